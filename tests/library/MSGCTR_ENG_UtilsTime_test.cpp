#include "HostRootTest.h"
#include "ScopedTimeZone.h"
#include "TimeZoneTest.h"

#include "MSGCTR_ENG_UtilsTime.h"
#include "ZorHostControl.h"
#include "ZorHostDateTimeControl.h"

#include <QRegularExpression>
#include <QTimeZone>

#include <ctime>
#include <memory>
#include <ostream>

namespace {

const QString kIsoFormat = QStringLiteral("yyyyMMdd'T'HHmmss'Z'");

class UtilsTimeTest : public HostRootTest {
};

class UtilsTimeZoneTest : public TimeZoneTest {
protected:
    // Qt's answer: UTC seconds of a wall clock in the zone.
    qint64 qtUtc(const QDate& date, const QTime& time) const { return QDateTime(date, time, m_zone).toSecsSinceEpoch(); }
};

// Far from every daylight-saving change of the zones below, so the probe's arithmetic holds there.
const qint64 kUtcSamples[] = {0, 86400, 1137326400 /* 2006-01-15 12:00 */, 1152964800 /* 2006-07-15 12:00 */,
                              -86400 * 365, 2000000000};
const int kZoneOffsets[] = {-43200, -28800, -3600, 0, 3600, 19800, 32400, 50400};

TEST_F(UtilsTimeTest, CompactIso8601OfAUtcDateTime)
{
    EXPECT_EQ(MSGCTR_ENG_UtilsTime::toISO8601FromUTCDateTime(2006, 1, 2, 3, 4, 5), QCString("20060102T030405Z"));
    EXPECT_EQ(MSGCTR_ENG_UtilsTime::toISO8601FromUTCDateTime(2006, 12, 31, 23, 59, 59), QCString("20061231T235959Z"));
    EXPECT_EQ(MSGCTR_ENG_UtilsTime::toISO8601FromUTCDateTime(999, 1, 1, 0, 0, 0), QCString("09990101T000000Z"));
}

TEST_F(UtilsTimeTest, TmConversionsUseNaturalUnitsAndNoMilliseconds)
{
    tm fields = {};
    fields.tm_sec = 99;
    MSGCTR_ENG_UtilsTime::tmTimeStampFromqdatetime(QDateTime(QDate(2006, 12, 31), QTime(23, 58, 59, 500)), fields);
    EXPECT_EQ(fields.tm_year, 2006);
    EXPECT_EQ(fields.tm_mon, 12);
    EXPECT_EQ(fields.tm_mday, 31);
    EXPECT_EQ(fields.tm_hour, 23);
    EXPECT_EQ(fields.tm_min, 58);
    EXPECT_EQ(fields.tm_sec, 59);
    EXPECT_EQ(fields.tm_isdst, 0);

    const QDateTime back = MSGCTR_ENG_UtilsTime::qdatetimeFromtmTimeStamp(fields);
    EXPECT_EQ(back.date(), QDate(2006, 12, 31));
    EXPECT_EQ(back.time(), QTime(23, 58, 59));
    EXPECT_EQ(back.time().msec(), 0);
}

TEST_F(UtilsTimeTest, DisplayFormsForwardWithTheirDefaultAccuracies)
{
    const QDate date(2006, 12, 31);
    const QTime time(23, 5, 9);
    EXPECT_EQ(MSGCTR_ENG_UtilsTime::dateToString(date, UTIL_DateTime::DATE_FORMAT_MM_DD_YYYY), QStringLiteral("12/31/2006"));
    EXPECT_EQ(MSGCTR_ENG_UtilsTime::dateToString(date, UTIL_DateTime::DATE_FORMAT_MM_DD_YYYY,
                                                 UTIL_DateTime::DATE_ACCURACY_MONTH_YEAR),
              QStringLiteral("12/2006"));
    EXPECT_EQ(MSGCTR_ENG_UtilsTime::timeToString(time, UTIL_DateTime::TIME_FORMAT_24_HOUR), QStringLiteral("23:05"));
    EXPECT_EQ(MSGCTR_ENG_UtilsTime::timeToString(time, UTIL_DateTime::TIME_FORMAT_12_HOUR,
                                                 UTIL_DateTime::TIME_ACCURACY_HOUR_MINUTE_SECOND),
              QStringLiteral("11:05:09 PM"));
}

TEST_F(UtilsTimeTest, SystemFormatsComeFromThePlatform)
{
    const QDate date(2006, 1, 2);
    const QTime time(0, 5, 9);
    EXPECT_EQ(MSGCTR_ENG_UtilsTime::getDateFormatOfSystem(), UTIL_DateTime::DATE_FORMAT_DD_MM_YYYY);
    EXPECT_EQ(MSGCTR_ENG_UtilsTime::getTimeFormatOfSystem(), UTIL_DateTime::TIME_FORMAT_24_HOUR);
    EXPECT_EQ(MSGCTR_ENG_UtilsTime::dateToStringInSystemFormat(date), QStringLiteral("02.01.2006"));
    EXPECT_EQ(MSGCTR_ENG_UtilsTime::timeToStringInSystemFormat(time), QStringLiteral("00:05"));

    ASSERT_TRUE(ZorHost::setSystemDateFormat(UTIL_DateTime::DATE_FORMAT_YYYY_MM_DD));
    ASSERT_TRUE(ZorHost::setSystemTimeFormat(UTIL_DateTime::TIME_FORMAT_12_HOUR));
    EXPECT_EQ(MSGCTR_ENG_UtilsTime::getDateFormatOfSystem(), UTIL_DateTime::DATE_FORMAT_YYYY_MM_DD);
    EXPECT_EQ(MSGCTR_ENG_UtilsTime::getTimeFormatOfSystem(), UTIL_DateTime::TIME_FORMAT_12_HOUR);
    EXPECT_EQ(MSGCTR_ENG_UtilsTime::dateToStringInSystemFormat(date), QStringLiteral("2006-01-02"));
    EXPECT_EQ(MSGCTR_ENG_UtilsTime::timeToStringInSystemFormat(time), QStringLiteral("12:05 AM"));
    EXPECT_EQ(MSGCTR_ENG_UtilsTime::timeToStringInSystemFormat(time, UTIL_DateTime::TIME_ACCURACY_HOUR_MINUTE_SECOND),
              QStringLiteral("12:05:09 AM"));
}

TEST_F(UtilsTimeTest, PlatformOperationsAreReallyCalled)
{
    ZorHost::resetCallCounts();
    MSGCTR_ENG_UtilsTime::toUTC(QDateTime(QDate(2006, 1, 2), QTime(3, 4)));
    MSGCTR_ENG_UtilsTime::fromUTC(0);
    MSGCTR_ENG_UtilsTime::fromISO8601("20060102");
    MSGCTR_ENG_UtilsTime::toISO8601(QDate(2006, 1, 2));
    MSGCTR_ENG_UtilsTime::getSystimeTimeZoneInSecondS();
    EXPECT_EQ(ZorHost::callCount(QStringLiteral("UTIL_TimeConversion::toUTC")), 2);
    EXPECT_EQ(ZorHost::callCount(QStringLiteral("UTIL_TimeConversion::fromUTC")), 1);
    EXPECT_EQ(ZorHost::callCount(QStringLiteral("UTIL_TimeConversion::fromISO8601")), 1);
    EXPECT_EQ(ZorHost::callCount(QStringLiteral("UTIL_TimeConversion::toISO8601")), 1);
}

TEST_P(UtilsTimeZoneTest, ProbeGivesTheZonesOffsetOnTheSecondDayOf1970)
{
    const QDateTime secondDay(QDate(1970, 1, 2), QTime(0, 0), Qt::UTC);
    EXPECT_EQ(MSGCTR_ENG_UtilsTime::getSystimeTimeZoneInSecondS(), m_zone.offsetFromUtc(secondDay));
    if (QByteArray(GetParam()) == "UTC") {
        EXPECT_EQ(MSGCTR_ENG_UtilsTime::getSystimeTimeZoneInSecondS(), 0);
    }
}

TEST_P(UtilsTimeZoneTest, ZoneConversionsAgreeWithQtAndAreInverseForAnyOffset)
{
    for (qint64 utc : kUtcSamples) {
        for (int offset : kZoneOffsets) {
            SCOPED_TRACE(QStringLiteral("utc %1 offset %2").arg(utc).arg(offset).toStdString());
            const QDateTime expected = QDateTime::fromSecsSinceEpoch(utc, Qt::OffsetFromUTC, offset);
            const QDateTime wallClock =
                MSGCTR_ENG_UtilsTime::getLocalTimeAtTimeZoneByUTCAndTheTimeZone(static_cast<int>(utc), offset);
            EXPECT_EQ(wallClock.date(), expected.date());
            EXPECT_EQ(wallClock.time(), expected.time());
            EXPECT_EQ(MSGCTR_ENG_UtilsTime::getUTCByLocalTimeAtTimeZoneAndTheTimeZone(wallClock, offset), utc);
        }
    }
}

TEST_P(UtilsTimeZoneTest, OffsetOfOneHourTurnsUtcZeroIntoOneOClock)
{
    const QDateTime wallClock = MSGCTR_ENG_UtilsTime::getLocalTimeAtTimeZoneByUTCAndTheTimeZone(0, 3600);
    EXPECT_EQ(wallClock.date(), QDate(1970, 1, 1));
    EXPECT_EQ(wallClock.time(), QTime(1, 0, 0));
}

TEST_P(UtilsTimeZoneTest, WallClockInTheSystemZoneItselfMatchesToUtc)
{
    for (const QDateTime& wallClock : {QDateTime(QDate(2006, 1, 15), QTime(12, 0)), QDateTime(QDate(2006, 7, 15), QTime(8, 30, 15)),
                                       QDateTime(QDate(1970, 1, 2), QTime(0, 0))}) {
        SCOPED_TRACE(wallClock.toString(Qt::ISODate).toStdString());
        const qint64 utc = qtUtc(wallClock.date(), wallClock.time());
        const int offset = m_zone.offsetFromUtc(QDateTime::fromSecsSinceEpoch(utc, Qt::UTC));
        EXPECT_EQ(MSGCTR_ENG_UtilsTime::getUTCByLocalTimeAtTimeZoneAndTheTimeZone(wallClock, offset), utc);
        EXPECT_EQ(MSGCTR_ENG_UtilsTime::toUTC(wallClock), utc);
        const QDateTime back = MSGCTR_ENG_UtilsTime::getLocalTimeAtTimeZoneByUTCAndTheTimeZone(static_cast<int>(utc), offset);
        EXPECT_EQ(back.date(), wallClock.date());
        EXPECT_EQ(back.time(), wallClock.time());
        EXPECT_EQ(MSGCTR_ENG_UtilsTime::fromUTC(static_cast<int>(utc)).time(), wallClock.time());
    }
}

TEST_P(UtilsTimeZoneTest, WallClockToUtcWritesItsTraceLine)
{
    const QDate date(2006, 7, 15);
    const QTime time(12, 0);
    const qint64 t = qtUtc(date, time);
    const QDateTime atT = QDateTime::fromSecsSinceEpoch(t, Qt::UTC);
    takeReportLines();
    EXPECT_EQ(MSGCTR_ENG_UtilsTime::getUTCByLocalTimeAtTimeZoneAndTheTimeZone(QDateTime(date, time), 3600),
              QDateTime(date, time, Qt::UTC).toSecsSinceEpoch() - 3600);
    const QStringList lines = takeReportLines();
    ASSERT_EQ(lines.size(), 1);
    const QString body = QStringLiteral(": @@ result 2: [%1, %2, %3]")
                             .arg(m_zone.isDaylightTime(atT) ? 1 : 0)
                             .arg(m_zone.offsetFromUtc(atT))
                             .arg(t);
    EXPECT_TRUE(QRegularExpression(QStringLiteral("^MSGCTR_ENG_UtilsTime\\.cpp\\(\\d+\\)\\[getUTCByLocalTimeAtTimeZoneAndTheTimeZone\\]\\d+")
                                   + QRegularExpression::escape(body) + QStringLiteral("$"))
                    .match(lines.first()).hasMatch()) << lines.first().toStdString();
}

TEST_P(UtilsTimeZoneTest, UtcDateTimeThroughIso8601GivesTheSameSecondsInEveryZone)
{
    EXPECT_EQ(MSGCTR_ENG_UtilsTime::toUTCFormatFromUTCDateTime(1970, 1, 1, 0, 0, 0), 0);
    EXPECT_EQ(MSGCTR_ENG_UtilsTime::toUTCFormatFromUTCDateTime(2006, 12, 31, 23, 59, 59), 1167609599);
    EXPECT_EQ(MSGCTR_ENG_UtilsTime::toUTCFormatFromUTCDateTime(2006, 7, 15, 12, 0, 0), 1152964800);
}

TEST_P(UtilsTimeZoneTest, Iso8601OfLocalTimesAgreesWithQt)
{
    const QDateTime wallClock(QDate(2006, 7, 15), QTime(8, 30, 15));
    const QString expected = QDateTime(wallClock.date(), wallClock.time(), m_zone).toUTC().toString(kIsoFormat);
    EXPECT_EQ(MSGCTR_ENG_UtilsTime::toISO8601(wallClock), QCString(expected.toLatin1()));
    EXPECT_EQ(MSGCTR_ENG_UtilsTime::toISO8601(QDate(2006, 7, 15)), QCString("20060715"));

    const QDateTime back = MSGCTR_ENG_UtilsTime::fromISO8601(QCString(expected.toLatin1()));
    EXPECT_EQ(back.date(), wallClock.date());
    EXPECT_EQ(back.time(), wallClock.time());
}

TEST_P(UtilsTimeZoneTest, CurrentUtcTimeIsNow)
{
    const qint64 before = QDateTime::currentSecsSinceEpoch();
    const int now = MSGCTR_ENG_UtilsTime::currentUTCTime();
    const qint64 after = QDateTime::currentSecsSinceEpoch();
    EXPECT_GE(now, before);
    EXPECT_LE(now, after);
}

// A UTC date and time through the compact ISO 8601 text, in a zone whose wall clock repeats or skips
// around it: the instant stays the one written. Seconds from the tz database.
struct UtcDateTimeRow {
    const char* name;
    const char* zone;
    int year, month, day, hour, minute, second;
    int utc;
};

const UtcDateTimeRow kUtcDateTimes[] = {
    {"London_1980_RepeatedHourFirst", "Europe/London", 1980, 10, 26, 1, 0, 0, 341370000},
    {"London_1980_RepeatedHourSecond", "Europe/London", 1980, 10, 26, 2, 0, 0, 341373600},
    {"Berlin_1997_RepeatedHourSecond", "Europe/Berlin", 1997, 10, 26, 1, 0, 1, 877827601},
    {"Berlin_2023_SkippedHour", "Europe/Berlin", 2023, 3, 26, 1, 0, 0, 1679792400},
    {"NewYork_2023_RepeatedHourSecond", "America/New_York", 2023, 11, 5, 6, 0, 0, 1699164000},
    {"LordHowe_2023_RepeatedHalfHourSecond", "Australia/Lord_Howe", 2023, 4, 1, 15, 15, 0, 1680362100},
    {"Chatham_2023_RepeatedHourSecond", "Pacific/Chatham", 2023, 4, 1, 14, 30, 0, 1680359400},
    {"Casablanca_2023_RepeatedHourSecond", "Africa/Casablanca", 2023, 3, 19, 2, 30, 0, 1679193000},
};

void PrintTo(const UtcDateTimeRow& row, std::ostream* os)
{
    *os << row.name;
}

class UtcDateTimeTest : public HostRootTest, public ::testing::WithParamInterface<UtcDateTimeRow> {
protected:
    void SetUp() override
    {
        HostRootTest::SetUp();
        m_systemZone = std::make_unique<ScopedTimeZone>(GetParam().zone);
    }

    std::unique_ptr<ScopedTimeZone> m_systemZone;
};

TEST_P(UtcDateTimeTest, KeepsItsInstantThroughIso8601)
{
    const UtcDateTimeRow& row = GetParam();
    EXPECT_EQ(MSGCTR_ENG_UtilsTime::toUTCFormatFromUTCDateTime(row.year, row.month, row.day, row.hour, row.minute, row.second),
              row.utc);
    EXPECT_EQ(MSGCTR_ENG_UtilsTime::toUTC(MSGCTR_ENG_UtilsTime::fromUTC(row.utc)), row.utc);
}

INSTANTIATE_TEST_SUITE_P(Changes, UtcDateTimeTest, ::testing::ValuesIn(kUtcDateTimes),
                         [](const ::testing::TestParamInfo<UtcDateTimeRow>& info) { return std::string(info.param.name); });

TEST_F(UtilsTimeTest, RepeatedWallClockIsItsFirstOccurrenceWhateverCameBefore)
{
    const ScopedTimeZone berlin("Europe/Berlin");
    const QDateTime repeated(QDate(1997, 10, 26), QTime(2, 0, 1));
    EXPECT_EQ(MSGCTR_ENG_UtilsTime::toUTC(repeated), 877824001);
    MSGCTR_ENG_UtilsTime::toUTC(MSGCTR_ENG_UtilsTime::fromUTC(877827601));
    MSGCTR_ENG_UtilsTime::toUTC(QDateTime(QDate(1997, 10, 26), QTime(3, 0, 1)));
    EXPECT_EQ(MSGCTR_ENG_UtilsTime::toUTC(repeated), 877824001);
}

TEST_F(UtilsTimeTest, SkippedWallClockMovesForwardAlsoWhenTheChangeIsNotDaylightSaving)
{
    const ScopedTimeZone berlin("Europe/Berlin");
    // 1945-05-24: from summer time (+02:00) to double summer time (+03:00), 02:00 to 03:00 skipped.
    EXPECT_EQ(MSGCTR_ENG_UtilsTime::toUTC(QDateTime(QDate(1945, 5, 24), QTime(2, 59, 59))), -776559601);
    // 2023-03-26: from +01:00 to +02:00, 02:00 to 03:00 skipped.
    EXPECT_EQ(MSGCTR_ENG_UtilsTime::toUTC(QDateTime(QDate(2023, 3, 26), QTime(2, 0, 0))), 1679792400);
    const QDateTime asWritten = MSGCTR_ENG_UtilsTime::fromISO8601("2023-03-26T02:00:00");
    EXPECT_TRUE(asWritten.isValid());
    EXPECT_EQ(asWritten.date(), QDate(2023, 3, 26));
    EXPECT_EQ(asWritten.time(), QTime(2, 0, 0));
    EXPECT_EQ(MSGCTR_ENG_UtilsTime::toUTC(asWritten), 1679792400);
}

INSTANTIATE_TEST_SUITE_P(Zones, UtilsTimeZoneTest, ::testing::ValuesIn(testedZones()), zoneRowName);

} // namespace
