#include "HostRootTest.h"
#include "RowName.h"

#include "UTIL_TimeConversion.h"
#include "ZorHostControl.h"

#include <QTimeZone>

#include <cstdlib>
#include <ctime>

namespace {

class TimeConversionZoneTest : public HostRootTest, public ::testing::WithParamInterface<const char*> {
protected:
    void SetUp() override
    {
        HostRootTest::SetUp();
        m_zone = QTimeZone(QByteArray(GetParam()));
        if (!m_zone.isValid())
            GTEST_SKIP() << "no zone data for " << GetParam() << " on this machine";
        setenv("TZ", GetParam(), 1);
        tzset();
    }

    QDateTime inZone(qint64 utc) const { return QDateTime::fromSecsSinceEpoch(utc, m_zone); }

    QTimeZone m_zone;
};

const qint64 kSamples[] = {0, -1, 86400, 1143334800 /* around spring forward in Europe */, 1152964800,
                           1162083600 /* around fall back in Europe */, INT_MAX, INT_MIN};

TEST_P(TimeConversionZoneTest, FromUtcAndToUtcAgreeWithQtsZone)
{
    for (qint64 utc : kSamples) {
        SCOPED_TRACE(utc);
        const QDateTime expected = inZone(utc);
        const QDateTime local = UTIL_TimeConversion::fromUTC(static_cast<int>(utc));
        EXPECT_EQ(local.date(), expected.date());
        EXPECT_EQ(local.time(), expected.time());
        // A wall clock shown twice in the fall-back hour goes back to one of its two instants.
        const int back = UTIL_TimeConversion::toUTC(local);
        const int offsetNow = m_zone.offsetFromUtc(expected);
        const int offsetHourEarlier = m_zone.offsetFromUtc(inZone(utc - 3600));
        EXPECT_TRUE(back == utc || back == utc + offsetNow - offsetHourEarlier) << back;
    }
}

TEST_P(TimeConversionZoneTest, ToUtcOfAWallClockAgreesWithQt)
{
    for (const QDateTime& wallClock : {QDateTime(QDate(2006, 1, 15), QTime(12, 0)), QDateTime(QDate(2006, 7, 15), QTime(23, 59, 59)),
                                       QDateTime(QDate(1970, 1, 1), QTime(0, 0)), QDateTime(QDate(1969, 12, 31), QTime(23, 59, 59))}) {
        SCOPED_TRACE(wallClock.toString(Qt::ISODate).toStdString());
        EXPECT_EQ(UTIL_TimeConversion::toUTC(wallClock), QDateTime(wallClock.date(), wallClock.time(), m_zone).toSecsSinceEpoch());
        // The fields count, not the zone the date-time names.
        EXPECT_EQ(UTIL_TimeConversion::toUTC(QDateTime(wallClock.date(), wallClock.time(), Qt::UTC)),
                  UTIL_TimeConversion::toUTC(wallClock));
    }
}

TEST_P(TimeConversionZoneTest, Iso8601RoundTripsThroughUtc)
{
    const QDateTime wallClock(QDate(2006, 12, 31), QTime(23, 59, 59));
    const QByteArray text = UTIL_TimeConversion::toISO8601(wallClock);
    EXPECT_EQ(text, QDateTime(wallClock.date(), wallClock.time(), m_zone).toUTC().toString(QStringLiteral("yyyyMMdd'T'HHmmss'Z'")).toLatin1());
    const QDateTime back = UTIL_TimeConversion::fromISO8601(text);
    EXPECT_EQ(back.date(), wallClock.date());
    EXPECT_EQ(back.time(), wallClock.time());
}

TEST_P(TimeConversionZoneTest, UtcAndOffsetTextsAreConvertedToTheLocalZone)
{
    const qint64 utc = 1167609599;  // 2006-12-31 23:59:59 UTC
    const QDateTime expected = inZone(utc);
    for (const char* text : {"20061231T235959Z", "2006-12-31T23:59:59Z", "20070101T015959+0200", "2007-01-01T01:59:59+02:00",
                             "20061231T205959-03", "2006-12-31T18:29:59-05:30"}) {
        SCOPED_TRACE(text);
        const QDateTime local = UTIL_TimeConversion::fromISO8601(text);
        EXPECT_EQ(local.date(), expected.date());
        EXPECT_EQ(local.time(), expected.time());
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
                         [](const ::testing::TestParamInfo<const char*>& info) {
                             return QString::fromLatin1(info.param).replace(QLatin1Char('/'), QLatin1Char('_')).toStdString();
                         });

class TimeConversionTest : public HostRootTest {
protected:
    void SetUp() override
    {
        HostRootTest::SetUp();
        setenv("TZ", "UTC", 1);
        tzset();
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
}

TEST_F(TimeConversionTest, CompactDate)
{
    EXPECT_EQ(UTIL_TimeConversion::toISO8601(QDate(2006, 1, 2)), QByteArray("20060102"));
    EXPECT_EQ(UTIL_TimeConversion::toISO8601(QDate(987, 6, 5)), QByteArray("09870605"));
    EXPECT_TRUE(UTIL_TimeConversion::toISO8601(QDate()).isNull());
    EXPECT_TRUE(UTIL_TimeConversion::toISO8601(QDateTime()).isNull());
    EXPECT_EQ(UTIL_TimeConversion::toISO8601(QDateTime(QDate(2006, 1, 2), QTime(3, 4, 5, 999))), QByteArray("20060102T030405Z"));
}

class BadIsoTextTest : public TimeConversionTest, public ::testing::WithParamInterface<const char*> {
};

TEST_P(BadIsoTextTest, GivesAnInvalidDateTime)
{
    EXPECT_FALSE(UTIL_TimeConversion::fromISO8601(GetParam()).isValid());
}

INSTANTIATE_TEST_SUITE_P(Texts, BadIsoTextTest,
                         ::testing::Values("", "2006", "200612", "20061331", "20060230", "20061231T", "20061231T24",
                                           "20061231T240000Z", "20061231T236000Z", "20061231T235960Z", "20061231 235959",
                                           "20061231T235959z", "20061231T235959+2400", "2006-12-31T235959",
                                           "20061231T235959Zjunk", " 20061231", "20380119T031408Z", "19011213T204551Z",
                                           "20380120"),
                         [](const auto& info) { return rowName("Text", info.param); });

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

} // namespace
