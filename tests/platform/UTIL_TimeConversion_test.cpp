#include "HostRootTest.h"
#include "ScopedTimeZone.h"
#include "RowName.h"

#include "UTIL_TimeConversion.h"
#include "ZorHostControl.h"

#include <QTimeZone>

#include <climits>
#include <memory>
#include <ostream>
#include <random>

namespace {

QDateTime bareWallClock(const char* text)
{
    return QDateTime::fromString(QString::fromLatin1(text), Qt::ISODate);
}

QString shown(const QDateTime& dateTime)
{
    return dateTime.date().toString(Qt::ISODate) + QLatin1Char('T') + dateTime.time().toString(Qt::ISODate);
}

std::string zoneName(const char* zone)
{
    return QString::fromLatin1(zone).replace(QLatin1Char('/'), QLatin1Char('_')).toStdString();
}

// Every test runs in the system zone of its own, set through TZ and put back afterwards.
class ZoneTest : public HostRootTest {
protected:
    void useZone(const char* zone)
    {
        m_zone = std::make_unique<ScopedTimeZone>(zone);
    }

private:
    std::unique_ptr<ScopedTimeZone> m_zone;
};

class TimeConversionZoneTest : public ZoneTest, public ::testing::WithParamInterface<const char*> {
protected:
    void SetUp() override
    {
        ZoneTest::SetUp();
        m_reference = QTimeZone(QByteArray(GetParam()));
        ASSERT_TRUE(m_reference.isValid()) << "no zone data for " << GetParam();
        useZone(GetParam());
    }

    QDateTime inZone(qint64 utc) const { return QDateTime::fromSecsSinceEpoch(utc, m_reference); }

    QTimeZone m_reference;
};

const qint64 kSamples[] = {0, -1, 86400, 1143334800 /* around spring forward in Europe */, 1152964800,
                           1162083600 /* around fall back in Europe */, INT_MAX, INT_MIN};

TEST_P(TimeConversionZoneTest, FromUtcShowsTheLocalWallClockAndKeepsTheInstant)
{
    for (qint64 utc : kSamples) {
        SCOPED_TRACE(utc);
        const QDateTime expected = inZone(utc);
        const QDateTime local = UTIL_TimeConversion::fromUTC(static_cast<int>(utc));
        EXPECT_EQ(local.date(), expected.date());
        EXPECT_EQ(local.time(), expected.time());
        EXPECT_EQ(UTIL_TimeConversion::toUTC(local), utc);
    }
}

TEST_P(TimeConversionZoneTest, BareWallClockAgreesWithQtAwayFromChanges)
{
    for (const QDateTime& wallClock : {QDateTime(QDate(2006, 1, 15), QTime(12, 0)), QDateTime(QDate(2006, 7, 15), QTime(23, 59, 59)),
                                       QDateTime(QDate(1970, 1, 1), QTime(0, 0)), QDateTime(QDate(1969, 12, 31), QTime(23, 59, 59))}) {
        SCOPED_TRACE(wallClock.toString(Qt::ISODate).toStdString());
        EXPECT_EQ(UTIL_TimeConversion::toUTC(wallClock), QDateTime(wallClock.date(), wallClock.time(), m_reference).toSecsSinceEpoch());
    }
}

TEST_P(TimeConversionZoneTest, DateTimesCarryingAZoneKeepTheirInstant)
{
    EXPECT_EQ(UTIL_TimeConversion::toUTC(QDateTime(QDate(2006, 12, 31), QTime(23, 59, 59), Qt::UTC)), 1167609599);
    EXPECT_EQ(UTIL_TimeConversion::toUTC(QDateTime(QDate(2007, 1, 1), QTime(1, 59, 59), Qt::OffsetFromUTC, 7200)), 1167609599);
    EXPECT_EQ(UTIL_TimeConversion::toUTC(QDateTime(QDate(2007, 1, 1), QTime(8, 59, 59), QTimeZone("Asia/Tokyo"))), 1167609599);
    EXPECT_EQ(UTIL_TimeConversion::toISO8601(QDateTime(QDate(2007, 1, 1), QTime(1, 59, 59), Qt::OffsetFromUTC, 7200)),
              QByteArray("20061231T235959Z"));
}

TEST_P(TimeConversionZoneTest, MillisecondsAreIgnoredAlsoBefore1970)
{
    EXPECT_EQ(UTIL_TimeConversion::toUTC(QDateTime::fromMSecsSinceEpoch(-500, Qt::UTC)), -1);
    EXPECT_EQ(UTIL_TimeConversion::toUTC(QDateTime::fromMSecsSinceEpoch(1999, Qt::UTC)), 1);
    EXPECT_EQ(UTIL_TimeConversion::toUTC(QDateTime::fromMSecsSinceEpoch(-1001, Qt::UTC)), -2);
}

TEST_P(TimeConversionZoneTest, Iso8601RoundTripsThroughUtc)
{
    const QDateTime wallClock(QDate(2006, 12, 31), QTime(23, 59, 59));
    const QByteArray text = UTIL_TimeConversion::toISO8601(wallClock);
    EXPECT_EQ(text, QDateTime(wallClock.date(), wallClock.time(), m_reference).toUTC().toString(QStringLiteral("yyyyMMdd'T'HHmmss'Z'")).toLatin1());
    const QDateTime back = UTIL_TimeConversion::fromISO8601(text);
    EXPECT_EQ(back.date(), wallClock.date());
    EXPECT_EQ(back.time(), wallClock.time());
}

TEST_P(TimeConversionZoneTest, UtcAndOffsetTextsGiveExactlyTheirInstant)
{
    const qint64 utc = 1167609599;  // 2006-12-31 23:59:59 UTC
    const QDateTime expected = inZone(utc);
    for (const char* text : {"20061231T235959Z", "2006-12-31T23:59:59Z", "20070101T015959+0200", "2007-01-01T01:59:59+02:00",
                             "20061231T205959-03", "2006-12-31T18:29:59-05:30"}) {
        SCOPED_TRACE(text);
        const QDateTime local = UTIL_TimeConversion::fromISO8601(text);
        EXPECT_EQ(local.date(), expected.date());
        EXPECT_EQ(local.time(), expected.time());
        EXPECT_EQ(UTIL_TimeConversion::toUTC(local), utc);
    }
}

TEST_P(TimeConversionZoneTest, TextsWithoutAZoneAreLocalWallClock)
{
    EXPECT_EQ(UTIL_TimeConversion::fromISO8601("20061231T235959"), QDateTime(QDate(2006, 12, 31), QTime(23, 59, 59)));
    EXPECT_EQ(UTIL_TimeConversion::fromISO8601("2006-12-31T23:59"), QDateTime(QDate(2006, 12, 31), QTime(23, 59)));
    EXPECT_EQ(UTIL_TimeConversion::fromISO8601("20061231T2359"), QDateTime(QDate(2006, 12, 31), QTime(23, 59)));
    EXPECT_EQ(UTIL_TimeConversion::fromISO8601("20061231"), QDateTime(QDate(2006, 12, 31), QTime(0, 0)));
    EXPECT_EQ(UTIL_TimeConversion::fromISO8601("2006-12-31"), QDateTime(QDate(2006, 12, 31), QTime(0, 0)));
}

INSTANTIATE_TEST_SUITE_P(Zones, TimeConversionZoneTest,
                         ::testing::Values("UTC", "Asia/Tokyo", "America/Los_Angeles", "Europe/Berlin"),
                         [](const ::testing::TestParamInfo<const char*>& info) { return zoneName(info.param); });

// A local wall clock that a change of the zone's offset skips or repeats. Seconds from the tz database.
struct WallClockRow {
    const char* name;
    const char* zone;
    const char* wallClock;
    qint64 first;   // what the bare wall clock stands for: its first occurrence, or the skipped one moved forward
    qint64 second;  // its other occurrence (the same as first when it has none)
    const char* firstIso8601;
    const char* shownAtFirst;  // the wall clock the zone shows at `first`
};

const WallClockRow kWallClocks[] = {
    {"Europe_London_1971_10_31_RepeatedStart", "Europe/London", "1971-10-31T02:00:00", 57718800, 57722400, "19711031T010000Z", "1971-10-31T02:00:00"},
    {"Europe_London_1971_10_31_RepeatedLastSecond", "Europe/London", "1971-10-31T02:59:59", 57722399, 57725999, "19711031T015959Z", "1971-10-31T02:59:59"},
    {"Europe_London_1980_03_16_SkippedStart", "Europe/London", "1980-03-16T02:00:00", 322020000, 322020000, "19800316T020000Z", "1980-03-16T03:00:00"},
    {"Europe_London_1980_03_16_SkippedLastSecond", "Europe/London", "1980-03-16T02:59:59", 322023599, 322023599, "19800316T025959Z", "1980-03-16T03:59:59"},
    {"Europe_London_1980_10_26_RepeatedStart", "Europe/London", "1980-10-26T02:00:00", 341370000, 341373600, "19801026T010000Z", "1980-10-26T02:00:00"},
    {"Europe_London_1980_10_26_RepeatedLastSecond", "Europe/London", "1980-10-26T02:59:59", 341373599, 341377199, "19801026T015959Z", "1980-10-26T02:59:59"},
    {"Europe_London_2023_03_26_SkippedStart", "Europe/London", "2023-03-26T01:00:00", 1679792400, 1679792400, "20230326T010000Z", "2023-03-26T02:00:00"},
    {"Europe_London_2023_03_26_SkippedLastSecond", "Europe/London", "2023-03-26T01:59:59", 1679795999, 1679795999, "20230326T015959Z", "2023-03-26T02:59:59"},
    {"Europe_London_2023_10_29_RepeatedStart", "Europe/London", "2023-10-29T01:00:00", 1698537600, 1698541200, "20231029T000000Z", "2023-10-29T01:00:00"},
    {"Europe_London_2023_10_29_RepeatedLastSecond", "Europe/London", "2023-10-29T01:59:59", 1698541199, 1698544799, "20231029T005959Z", "2023-10-29T01:59:59"},
    {"Europe_Berlin_1945_05_24_SkippedStart", "Europe/Berlin", "1945-05-24T02:00:00", -776563200, -776563200, "19450524T000000Z", "1945-05-24T03:00:00"},
    {"Europe_Berlin_1945_05_24_SkippedLastSecond", "Europe/Berlin", "1945-05-24T02:59:59", -776559601, -776559601, "19450524T005959Z", "1945-05-24T03:59:59"},
    {"Europe_Berlin_1945_09_24_RepeatedStart", "Europe/Berlin", "1945-09-24T02:00:00", -765939600, -765936000, "19450923T230000Z", "1945-09-24T02:00:00"},
    {"Europe_Berlin_1945_09_24_RepeatedLastSecond", "Europe/Berlin", "1945-09-24T02:59:59", -765936001, -765932401, "19450923T235959Z", "1945-09-24T02:59:59"},
    {"Europe_Berlin_1997_03_30_SkippedStart", "Europe/Berlin", "1997-03-30T02:00:00", 859683600, 859683600, "19970330T010000Z", "1997-03-30T03:00:00"},
    {"Europe_Berlin_1997_03_30_SkippedLastSecond", "Europe/Berlin", "1997-03-30T02:59:59", 859687199, 859687199, "19970330T015959Z", "1997-03-30T03:59:59"},
    {"Europe_Berlin_1997_10_26_RepeatedStart", "Europe/Berlin", "1997-10-26T02:00:00", 877824000, 877827600, "19971026T000000Z", "1997-10-26T02:00:00"},
    {"Europe_Berlin_1997_10_26_RepeatedLastSecond", "Europe/Berlin", "1997-10-26T02:59:59", 877827599, 877831199, "19971026T005959Z", "1997-10-26T02:59:59"},
    {"Europe_Berlin_2023_03_26_SkippedStart", "Europe/Berlin", "2023-03-26T02:00:00", 1679792400, 1679792400, "20230326T010000Z", "2023-03-26T03:00:00"},
    {"Europe_Berlin_2023_03_26_SkippedLastSecond", "Europe/Berlin", "2023-03-26T02:59:59", 1679795999, 1679795999, "20230326T015959Z", "2023-03-26T03:59:59"},
    {"Europe_Berlin_2023_10_29_RepeatedStart", "Europe/Berlin", "2023-10-29T02:00:00", 1698537600, 1698541200, "20231029T000000Z", "2023-10-29T02:00:00"},
    {"Europe_Berlin_2023_10_29_RepeatedLastSecond", "Europe/Berlin", "2023-10-29T02:59:59", 1698541199, 1698544799, "20231029T005959Z", "2023-10-29T02:59:59"},
    {"America_New_York_2023_03_12_SkippedStart", "America/New_York", "2023-03-12T02:00:00", 1678604400, 1678604400, "20230312T070000Z", "2023-03-12T03:00:00"},
    {"America_New_York_2023_03_12_SkippedLastSecond", "America/New_York", "2023-03-12T02:59:59", 1678607999, 1678607999, "20230312T075959Z", "2023-03-12T03:59:59"},
    {"America_New_York_2023_11_05_RepeatedStart", "America/New_York", "2023-11-05T01:00:00", 1699160400, 1699164000, "20231105T050000Z", "2023-11-05T01:00:00"},
    {"America_New_York_2023_11_05_RepeatedLastSecond", "America/New_York", "2023-11-05T01:59:59", 1699163999, 1699167599, "20231105T055959Z", "2023-11-05T01:59:59"},
    {"America_St_Johns_1988_04_03_SkippedStart", "America/St_Johns", "1988-04-03T00:01:00", 576041460, 576041460, "19880403T033100Z", "1988-04-03T02:01:00"},
    {"America_St_Johns_1988_04_03_SkippedLastSecond", "America/St_Johns", "1988-04-03T02:00:59", 576048659, 576048659, "19880403T053059Z", "1988-04-03T04:00:59"},
    {"America_St_Johns_1988_10_30_RepeatedStart", "America/St_Johns", "1988-10-29T22:01:00", 594171060, 594178260, "19881029T233100Z", "1988-10-29T22:01:00"},
    {"America_St_Johns_1988_10_30_RepeatedLastSecond", "America/St_Johns", "1988-10-30T00:00:59", 594178259, 594185459, "19881030T013059Z", "1988-10-30T00:00:59"},
    {"America_St_Johns_2023_03_12_SkippedStart", "America/St_Johns", "2023-03-12T02:00:00", 1678599000, 1678599000, "20230312T053000Z", "2023-03-12T03:00:00"},
    {"America_St_Johns_2023_03_12_SkippedLastSecond", "America/St_Johns", "2023-03-12T02:59:59", 1678602599, 1678602599, "20230312T062959Z", "2023-03-12T03:59:59"},
    {"America_St_Johns_2023_11_05_RepeatedStart", "America/St_Johns", "2023-11-05T01:00:00", 1699155000, 1699158600, "20231105T033000Z", "2023-11-05T01:00:00"},
    {"America_St_Johns_2023_11_05_RepeatedLastSecond", "America/St_Johns", "2023-11-05T01:59:59", 1699158599, 1699162199, "20231105T042959Z", "2023-11-05T01:59:59"},
    {"Australia_Lord_Howe_2023_04_01_RepeatedStart", "Australia/Lord_Howe", "2023-04-02T01:30:00", 1680359400, 1680361200, "20230401T143000Z", "2023-04-02T01:30:00"},
    {"Australia_Lord_Howe_2023_04_01_RepeatedLastSecond", "Australia/Lord_Howe", "2023-04-02T01:59:59", 1680361199, 1680362999, "20230401T145959Z", "2023-04-02T01:59:59"},
    {"Australia_Lord_Howe_2023_09_30_SkippedStart", "Australia/Lord_Howe", "2023-10-01T02:00:00", 1696087800, 1696087800, "20230930T153000Z", "2023-10-01T02:30:00"},
    {"Australia_Lord_Howe_2023_09_30_SkippedLastSecond", "Australia/Lord_Howe", "2023-10-01T02:29:59", 1696089599, 1696089599, "20230930T155959Z", "2023-10-01T02:59:59"},
    {"Asia_Kathmandu_1919_12_31_RepeatedStart", "Asia/Kathmandu", "1919-12-31T23:48:44", -1577944352, -1577943676, "19191231T180728Z", "1919-12-31T23:48:44"},
    {"Asia_Kathmandu_1919_12_31_RepeatedLastSecond", "Asia/Kathmandu", "1919-12-31T23:59:59", -1577943677, -1577943001, "19191231T181843Z", "1919-12-31T23:59:59"},
    {"Asia_Kathmandu_1985_12_31_SkippedStart", "Asia/Kathmandu", "1986-01-01T00:00:00", 504901800, 504901800, "19851231T183000Z", "1986-01-01T00:15:00"},
    {"Asia_Kathmandu_1985_12_31_SkippedLastSecond", "Asia/Kathmandu", "1986-01-01T00:14:59", 504902699, 504902699, "19851231T184459Z", "1986-01-01T00:29:59"},
    {"Pacific_Chatham_2023_04_01_RepeatedStart", "Pacific/Chatham", "2023-04-02T02:45:00", 1680354000, 1680357600, "20230401T130000Z", "2023-04-02T02:45:00"},
    {"Pacific_Chatham_2023_04_01_RepeatedLastSecond", "Pacific/Chatham", "2023-04-02T03:44:59", 1680357599, 1680361199, "20230401T135959Z", "2023-04-02T03:44:59"},
    {"Pacific_Chatham_2023_09_23_SkippedStart", "Pacific/Chatham", "2023-09-24T02:45:00", 1695477600, 1695477600, "20230923T140000Z", "2023-09-24T03:45:00"},
    {"Pacific_Chatham_2023_09_23_SkippedLastSecond", "Pacific/Chatham", "2023-09-24T03:44:59", 1695481199, 1695481199, "20230923T145959Z", "2023-09-24T04:44:59"},
    {"Africa_Casablanca_2018_05_13_RepeatedStart", "Africa/Casablanca", "2018-05-13T02:00:00", 1526173200, 1526176800, "20180513T010000Z", "2018-05-13T02:00:00"},
    {"Africa_Casablanca_2018_05_13_RepeatedLastSecond", "Africa/Casablanca", "2018-05-13T02:59:59", 1526176799, 1526180399, "20180513T015959Z", "2018-05-13T02:59:59"},
    {"Africa_Casablanca_2018_06_17_SkippedStart", "Africa/Casablanca", "2018-06-17T02:00:00", 1529200800, 1529200800, "20180617T020000Z", "2018-06-17T03:00:00"},
    {"Africa_Casablanca_2018_06_17_SkippedLastSecond", "Africa/Casablanca", "2018-06-17T02:59:59", 1529204399, 1529204399, "20180617T025959Z", "2018-06-17T03:59:59"},
    {"Africa_Casablanca_2023_03_19_RepeatedStart", "Africa/Casablanca", "2023-03-19T02:00:00", 1679187600, 1679191200, "20230319T010000Z", "2023-03-19T02:00:00"},
    {"Africa_Casablanca_2023_03_19_RepeatedLastSecond", "Africa/Casablanca", "2023-03-19T02:59:59", 1679191199, 1679194799, "20230319T015959Z", "2023-03-19T02:59:59"},
    {"Africa_Casablanca_2023_04_23_SkippedStart", "Africa/Casablanca", "2023-04-23T02:00:00", 1682215200, 1682215200, "20230423T020000Z", "2023-04-23T03:00:00"},
    {"Africa_Casablanca_2023_04_23_SkippedLastSecond", "Africa/Casablanca", "2023-04-23T02:59:59", 1682218799, 1682218799, "20230423T025959Z", "2023-04-23T03:59:59"},
};

// Rows show as their names in test output.
void PrintTo(const WallClockRow& row, std::ostream* os)
{
    *os << row.name;
}

class TransitionWallClockTest : public ZoneTest, public ::testing::WithParamInterface<WallClockRow> {
protected:
    void SetUp() override
    {
        ZoneTest::SetUp();
        useZone(GetParam().zone);
    }
};

TEST_P(TransitionWallClockTest, BareWallClockFollowsTheTwoRules)
{
    const WallClockRow& row = GetParam();
    EXPECT_EQ(UTIL_TimeConversion::toUTC(bareWallClock(row.wallClock)), row.first);
    EXPECT_EQ(UTIL_TimeConversion::toISO8601(bareWallClock(row.wallClock)), QByteArray(row.firstIso8601));
    EXPECT_EQ(shown(UTIL_TimeConversion::fromUTC(static_cast<int>(row.first))), QString::fromLatin1(row.shownAtFirst));
}

TEST_P(TransitionWallClockTest, AnswerDoesNotDependOnEarlierCalls)
{
    const WallClockRow& row = GetParam();
    UTIL_TimeConversion::fromUTC(static_cast<int>(row.second));
    UTIL_TimeConversion::toUTC(UTIL_TimeConversion::fromUTC(static_cast<int>(row.second)));
    EXPECT_EQ(UTIL_TimeConversion::toUTC(bareWallClock(row.wallClock)), row.first);
    UTIL_TimeConversion::toUTC(QDateTime(QDate(2006, 7, 15), QTime(12, 0)));
    UTIL_TimeConversion::toUTC(QDateTime(QDate(2006, 1, 15), QTime(12, 0)));
    EXPECT_EQ(UTIL_TimeConversion::toUTC(bareWallClock(row.wallClock)), row.first);
}

TEST_P(TransitionWallClockTest, EveryOccurrenceKeepsItsInstant)
{
    const WallClockRow& row = GetParam();
    for (qint64 utc : {row.first, row.second}) {
        SCOPED_TRACE(utc);
        const QDateTime local = UTIL_TimeConversion::fromUTC(static_cast<int>(utc));
        EXPECT_EQ(UTIL_TimeConversion::toUTC(local), utc);
    }
    if (row.second != row.first) {
        EXPECT_EQ(shown(UTIL_TimeConversion::fromUTC(static_cast<int>(row.second))), QString::fromLatin1(row.wallClock));
    }
}

TEST_P(TransitionWallClockTest, TextWithoutAZoneIsTheWallClockAsWritten)
{
    const WallClockRow& row = GetParam();
    const QDateTime local = UTIL_TimeConversion::fromISO8601(row.wallClock);
    EXPECT_TRUE(local.isValid());
    EXPECT_EQ(shown(local), QString::fromLatin1(row.wallClock));
    EXPECT_EQ(UTIL_TimeConversion::toUTC(local), row.first);
    EXPECT_EQ(UTIL_TimeConversion::toISO8601(local), QByteArray(row.firstIso8601));
}

TEST_P(TransitionWallClockTest, UtcTextGivesThatInstant)
{
    const WallClockRow& row = GetParam();
    EXPECT_EQ(UTIL_TimeConversion::toUTC(UTIL_TimeConversion::fromISO8601(row.firstIso8601)), row.first);
}

INSTANTIATE_TEST_SUITE_P(Changes, TransitionWallClockTest, ::testing::ValuesIn(kWallClocks),
                         [](const ::testing::TestParamInfo<WallClockRow>& info) { return std::string(info.param.name); });

// An instant just before and at a change of offset. Wall clocks and offsets from the tz database.
struct InstantRow {
    const char* zone;
    qint64 utc;
    const char* iso8601;
    const char* wallClock;
    int offset;
};

const InstantRow kInstants[] = {
    {"Europe/London", 57722399, "19711031T015959Z", "1971-10-31T02:59:59", 3600},
    {"Europe/London", 57722400, "19711031T020000Z", "1971-10-31T02:00:00", 0},
    {"Europe/London", 322019999, "19800316T015959Z", "1980-03-16T01:59:59", 0},
    {"Europe/London", 322020000, "19800316T020000Z", "1980-03-16T03:00:00", 3600},
    {"Europe/London", 341373599, "19801026T015959Z", "1980-10-26T02:59:59", 3600},
    {"Europe/London", 341373600, "19801026T020000Z", "1980-10-26T02:00:00", 0},
    {"Europe/London", 1679792399, "20230326T005959Z", "2023-03-26T00:59:59", 0},
    {"Europe/London", 1679792400, "20230326T010000Z", "2023-03-26T02:00:00", 3600},
    {"Europe/London", 1698541199, "20231029T005959Z", "2023-10-29T01:59:59", 3600},
    {"Europe/London", 1698541200, "20231029T010000Z", "2023-10-29T01:00:00", 0},
    {"Europe/Berlin", -776563201, "19450523T235959Z", "1945-05-24T01:59:59", 7200},
    {"Europe/Berlin", -776563200, "19450524T000000Z", "1945-05-24T03:00:00", 10800},
    {"Europe/Berlin", -765936001, "19450923T235959Z", "1945-09-24T02:59:59", 10800},
    {"Europe/Berlin", -765936000, "19450924T000000Z", "1945-09-24T02:00:00", 7200},
    {"Europe/Berlin", 859683599, "19970330T005959Z", "1997-03-30T01:59:59", 3600},
    {"Europe/Berlin", 859683600, "19970330T010000Z", "1997-03-30T03:00:00", 7200},
    {"Europe/Berlin", 877827599, "19971026T005959Z", "1997-10-26T02:59:59", 7200},
    {"Europe/Berlin", 877827600, "19971026T010000Z", "1997-10-26T02:00:00", 3600},
    {"Europe/Berlin", 1679792399, "20230326T005959Z", "2023-03-26T01:59:59", 3600},
    {"Europe/Berlin", 1679792400, "20230326T010000Z", "2023-03-26T03:00:00", 7200},
    {"Europe/Berlin", 1698541199, "20231029T005959Z", "2023-10-29T02:59:59", 7200},
    {"Europe/Berlin", 1698541200, "20231029T010000Z", "2023-10-29T02:00:00", 3600},
    {"America/New_York", 1678604399, "20230312T065959Z", "2023-03-12T01:59:59", -18000},
    {"America/New_York", 1678604400, "20230312T070000Z", "2023-03-12T03:00:00", -14400},
    {"America/New_York", 1699163999, "20231105T055959Z", "2023-11-05T01:59:59", -14400},
    {"America/New_York", 1699164000, "20231105T060000Z", "2023-11-05T01:00:00", -18000},
    {"America/St_Johns", 576041459, "19880403T033059Z", "1988-04-03T00:00:59", -12600},
    {"America/St_Johns", 576041460, "19880403T033100Z", "1988-04-03T02:01:00", -5400},
    {"America/St_Johns", 594178259, "19881030T013059Z", "1988-10-30T00:00:59", -5400},
    {"America/St_Johns", 594178260, "19881030T013100Z", "1988-10-29T22:01:00", -12600},
    {"America/St_Johns", 1678598999, "20230312T052959Z", "2023-03-12T01:59:59", -12600},
    {"America/St_Johns", 1678599000, "20230312T053000Z", "2023-03-12T03:00:00", -9000},
    {"America/St_Johns", 1699158599, "20231105T042959Z", "2023-11-05T01:59:59", -9000},
    {"America/St_Johns", 1699158600, "20231105T043000Z", "2023-11-05T01:00:00", -12600},
    {"Australia/Lord_Howe", 1680361199, "20230401T145959Z", "2023-04-02T01:59:59", 39600},
    {"Australia/Lord_Howe", 1680361200, "20230401T150000Z", "2023-04-02T01:30:00", 37800},
    {"Australia/Lord_Howe", 1696087799, "20230930T152959Z", "2023-10-01T01:59:59", 37800},
    {"Australia/Lord_Howe", 1696087800, "20230930T153000Z", "2023-10-01T02:30:00", 39600},
    {"Asia/Kathmandu", -1577943677, "19191231T181843Z", "1919-12-31T23:59:59", 20476},
    {"Asia/Kathmandu", -1577943676, "19191231T181844Z", "1919-12-31T23:48:44", 19800},
    {"Asia/Kathmandu", 504901799, "19851231T182959Z", "1985-12-31T23:59:59", 19800},
    {"Asia/Kathmandu", 504901800, "19851231T183000Z", "1986-01-01T00:15:00", 20700},
    {"Pacific/Chatham", 1680357599, "20230401T135959Z", "2023-04-02T03:44:59", 49500},
    {"Pacific/Chatham", 1680357600, "20230401T140000Z", "2023-04-02T02:45:00", 45900},
    {"Pacific/Chatham", 1695477599, "20230923T135959Z", "2023-09-24T02:44:59", 45900},
    {"Pacific/Chatham", 1695477600, "20230923T140000Z", "2023-09-24T03:45:00", 49500},
    {"Africa/Casablanca", 1526176799, "20180513T015959Z", "2018-05-13T02:59:59", 3600},
    {"Africa/Casablanca", 1526176800, "20180513T020000Z", "2018-05-13T02:00:00", 0},
    {"Africa/Casablanca", 1529200799, "20180617T015959Z", "2018-06-17T01:59:59", 0},
    {"Africa/Casablanca", 1529200800, "20180617T020000Z", "2018-06-17T03:00:00", 3600},
    {"Africa/Casablanca", 1679191199, "20230319T015959Z", "2023-03-19T02:59:59", 3600},
    {"Africa/Casablanca", 1679191200, "20230319T020000Z", "2023-03-19T02:00:00", 0},
    {"Africa/Casablanca", 1682215199, "20230423T015959Z", "2023-04-23T01:59:59", 0},
    {"Africa/Casablanca", 1682215200, "20230423T020000Z", "2023-04-23T03:00:00", 3600},
};

void PrintTo(const InstantRow& row, std::ostream* os)
{
    *os << row.zone << ' ' << row.iso8601;
}

class TransitionInstantTest : public ZoneTest, public ::testing::WithParamInterface<InstantRow> {
protected:
    void SetUp() override
    {
        ZoneTest::SetUp();
        useZone(GetParam().zone);
    }
};

TEST_P(TransitionInstantTest, FromUtcShowsTheZonesWallClockAndGoesBackExactly)
{
    const InstantRow& row = GetParam();
    const QDateTime local = UTIL_TimeConversion::fromUTC(static_cast<int>(row.utc));
    EXPECT_EQ(shown(local), QString::fromLatin1(row.wallClock));
    EXPECT_EQ(local.offsetFromUtc(), row.offset);
    EXPECT_EQ(UTIL_TimeConversion::toUTC(local), row.utc);
    EXPECT_EQ(UTIL_TimeConversion::toISO8601(local), QByteArray(row.iso8601));
}

TEST_P(TransitionInstantTest, UtcTextGivesThatInstantInTheLocalZone)
{
    const InstantRow& row = GetParam();
    const QDateTime local = UTIL_TimeConversion::fromISO8601(row.iso8601);
    EXPECT_EQ(shown(local), QString::fromLatin1(row.wallClock));
    EXPECT_EQ(UTIL_TimeConversion::toUTC(local), row.utc);
}

INSTANTIATE_TEST_SUITE_P(Changes, TransitionInstantTest, ::testing::ValuesIn(kInstants),
                         [](const ::testing::TestParamInfo<InstantRow>& info) {
                             return zoneName(info.param.zone) + "_" + info.param.iso8601;
                         });

const char* const kChangingZones[] = {"Europe/London",    "Europe/Berlin", "America/New_York", "America/St_Johns",
                                      "Australia/Lord_Howe", "Asia/Kathmandu", "Pacific/Chatham",  "Africa/Casablanca"};

class RandomInstantTest : public ZoneTest, public ::testing::WithParamInterface<const char*> {
protected:
    void SetUp() override
    {
        ZoneTest::SetUp();
        useZone(GetParam());
    }
};

TEST_P(RandomInstantTest, EveryInstantComesBackAndEveryWallClockHasOneAnswer)
{
    std::mt19937 random(20231105);
    std::uniform_int_distribution<int> anyInstant(INT_MIN, INT_MAX);
    for (int i = 0; i < 2000; ++i) {
        const int utc = anyInstant(random);
        SCOPED_TRACE(utc);
        const QDateTime local = UTIL_TimeConversion::fromUTC(utc);
        ASSERT_EQ(UTIL_TimeConversion::toUTC(local), utc);

        // The bare wall clock of the instant stands for its first occurrence: never later than the instant,
        // showing the same wall clock, and the same after any other call.
        const QDateTime bare(local.date(), local.time());
        const int first = UTIL_TimeConversion::toUTC(bare);
        EXPECT_LE(first, utc);
        EXPECT_EQ(shown(UTIL_TimeConversion::fromUTC(first)), shown(local));
        UTIL_TimeConversion::toUTC(UTIL_TimeConversion::fromUTC(anyInstant(random)));
        UTIL_TimeConversion::toUTC(QDateTime(local.date(), local.time().addSecs(3600)));
        EXPECT_EQ(UTIL_TimeConversion::toUTC(bare), first);
    }
}

INSTANTIATE_TEST_SUITE_P(Zones, RandomInstantTest, ::testing::ValuesIn(kChangingZones),
                         [](const ::testing::TestParamInfo<const char*>& info) { return zoneName(info.param); });

class TimeConversionTest : public ZoneTest {
protected:
    void SetUp() override
    {
        ZoneTest::SetUp();
        useZone("UTC");
    }
};

TEST_F(TimeConversionTest, InvalidOrOutOfRangeWallClocksGiveMinusOne)
{
    EXPECT_EQ(UTIL_TimeConversion::toUTC(QDateTime()), -1);
    EXPECT_EQ(UTIL_TimeConversion::toUTC(QDateTime(QDate(2038, 1, 19), QTime(3, 14, 8))), -1);
    EXPECT_EQ(UTIL_TimeConversion::toUTC(QDateTime(QDate(2038, 1, 19), QTime(3, 14, 7))), INT_MAX);
    EXPECT_EQ(UTIL_TimeConversion::toUTC(QDateTime(QDate(1901, 12, 13), QTime(20, 45, 52))), INT_MIN);
    EXPECT_EQ(UTIL_TimeConversion::toUTC(QDateTime(QDate(1901, 12, 13), QTime(20, 45, 51))), -1);
    EXPECT_EQ(UTIL_TimeConversion::toUTC(QDateTime(QDate(1969, 12, 31), QTime(23, 59, 59))), -1);
    EXPECT_EQ(UTIL_TimeConversion::toUTC(QDateTime(QDate(2038, 1, 19), QTime(3, 14, 8), Qt::UTC)), -1);
}

TEST_F(TimeConversionTest, CompactDate)
{
    EXPECT_EQ(UTIL_TimeConversion::toISO8601(QDate(2006, 1, 2)), QByteArray("20060102"));
    EXPECT_EQ(UTIL_TimeConversion::toISO8601(QDate(987, 6, 5)), QByteArray("09870605"));
    EXPECT_TRUE(UTIL_TimeConversion::toISO8601(QDate()).isNull());
    EXPECT_TRUE(UTIL_TimeConversion::toISO8601(QDateTime()).isNull());
    EXPECT_EQ(UTIL_TimeConversion::toISO8601(QDateTime(QDate(2006, 1, 2), QTime(3, 4, 5, 999))), QByteArray("20060102T030405Z"));
}

struct BadIsoText {
    const char* name;
    const char* text;
};

void PrintTo(const BadIsoText& row, std::ostream* os)
{
    *os << '"' << row.text << '"';
}

class BadIsoTextTest : public TimeConversionTest, public ::testing::WithParamInterface<BadIsoText> {
};

TEST_P(BadIsoTextTest, GivesAnInvalidDateTime)
{
    EXPECT_FALSE(UTIL_TimeConversion::fromISO8601(GetParam().text).isValid());
}

const BadIsoText kBadIsoTexts[] = {
    {"Empty", ""},
    {"YearOnly", "2006"},
    {"YearAndMonth", "200612"},
    {"Month13", "20061331"},
    {"February30", "20060230"},
    {"TWithoutTime", "20061231T"},
    {"HourOnly", "20061231T24"},
    {"Hour24", "20061231T240000Z"},
    {"Minute60", "20061231T236000Z"},
    {"Second60", "20061231T235960Z"},
    {"BlankForT", "20061231 235959"},
    {"LowerCaseZ", "20061231T235959z"},
    {"Offset24Hours", "20061231T235959+2400"},
    {"MixedForms", "2006-12-31T235959"},
    {"TrailingJunk", "20061231T235959Zjunk"},
    {"LeadingBlank", " 20061231"},
    {"AfterTheRange", "20380119T031408Z"},
    {"BeforeTheRange", "19011213T204551Z"},
    {"DateAfterTheRange", "20380120"},
};

INSTANTIATE_TEST_SUITE_P(Texts, BadIsoTextTest, ::testing::ValuesIn(kBadIsoTexts),
                         [](const ::testing::TestParamInfo<BadIsoText>& info) { return std::string(info.param.name); });

TEST_F(TimeConversionTest, RangeEndsAreAccepted)
{
    EXPECT_EQ(UTIL_TimeConversion::toUTC(UTIL_TimeConversion::fromISO8601("20380119T031407Z")), INT_MAX);
    EXPECT_EQ(UTIL_TimeConversion::toUTC(UTIL_TimeConversion::fromISO8601("19011213T204552Z")), INT_MIN);
}

TEST_F(TimeConversionTest, CallsAreCountedAndFaultsDoNotApply)
{
    ZorHost::injectFault(QStringLiteral("UTIL_TimeConversion::toUTC"), 12345, 1);
    EXPECT_EQ(UTIL_TimeConversion::toUTC(QDateTime(QDate(1970, 1, 1), QTime(0, 0, 7))), 7);
    UTIL_TimeConversion::fromUTC(0);
    UTIL_TimeConversion::fromUTC(1);
    EXPECT_EQ(ZorHost::callCount(QStringLiteral("UTIL_TimeConversion::toUTC")), 1);
    EXPECT_EQ(ZorHost::callCount(QStringLiteral("UTIL_TimeConversion::fromUTC")), 2);
}

TEST(TimeConversionZoneRestoreTest, ZoneIsPutBackAfterAScope)
{
    const QByteArray before = qgetenv("TZ");
    const bool hadZone = qEnvironmentVariableIsSet("TZ");
    {
        const ScopedTimeZone zone("Pacific/Chatham");
        EXPECT_EQ(qgetenv("TZ"), QByteArray("Pacific/Chatham"));
    }
    EXPECT_EQ(qEnvironmentVariableIsSet("TZ"), hadZone);
    EXPECT_EQ(qgetenv("TZ"), before);
}

} // namespace
