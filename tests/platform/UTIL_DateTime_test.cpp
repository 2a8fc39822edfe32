#include "HostRootTest.h"
#include "RowName.h"

#include "UTIL_DateTime.h"
#include "ZorHostControl.h"
#include "ZorHostCore.h"
#include "ZorHostDateTimeControl.h"

#include <QDir>
#include <QFile>

namespace {

class DateTimeTest : public HostRootTest {
};

struct DateCase {
    UTIL_DateTime::DateFormat format;
    UTIL_DateTime::DateAccuracy accuracy;
    const char* text;
};

class DateStringTest : public DateTimeTest, public ::testing::WithParamInterface<DateCase> {
};

TEST_P(DateStringTest, ShowsTheFieldsOfTheAccuracyInTheFormatsOrder)
{
    EXPECT_EQ(UTIL_DateTime::dateToString(QDate(2006, 1, 2), GetParam().format, GetParam().accuracy),
              QString::fromLatin1(GetParam().text));
}

INSTANTIATE_TEST_SUITE_P(
    Table, DateStringTest,
    ::testing::Values(DateCase{UTIL_DateTime::DATE_FORMAT_DD_MM_YYYY, UTIL_DateTime::DATE_ACCURACY_DAY_MONTH_YEAR, "02.01.2006"},
                      DateCase{UTIL_DateTime::DATE_FORMAT_DD_MM_YYYY, UTIL_DateTime::DATE_ACCURACY_DAY_MONTH, "02.01"},
                      DateCase{UTIL_DateTime::DATE_FORMAT_DD_MM_YYYY, UTIL_DateTime::DATE_ACCURACY_MONTH_YEAR, "01.2006"},
                      DateCase{UTIL_DateTime::DATE_FORMAT_DD_MM_YYYY, UTIL_DateTime::DATE_ACCURACY_YEAR, "2006"},
                      DateCase{UTIL_DateTime::DATE_FORMAT_MM_DD_YYYY, UTIL_DateTime::DATE_ACCURACY_DAY_MONTH_YEAR, "01/02/2006"},
                      DateCase{UTIL_DateTime::DATE_FORMAT_MM_DD_YYYY, UTIL_DateTime::DATE_ACCURACY_DAY_MONTH, "01/02"},
                      DateCase{UTIL_DateTime::DATE_FORMAT_MM_DD_YYYY, UTIL_DateTime::DATE_ACCURACY_MONTH_YEAR, "01/2006"},
                      DateCase{UTIL_DateTime::DATE_FORMAT_MM_DD_YYYY, UTIL_DateTime::DATE_ACCURACY_YEAR, "2006"},
                      DateCase{UTIL_DateTime::DATE_FORMAT_YYYY_MM_DD, UTIL_DateTime::DATE_ACCURACY_DAY_MONTH_YEAR, "2006-01-02"},
                      DateCase{UTIL_DateTime::DATE_FORMAT_YYYY_MM_DD, UTIL_DateTime::DATE_ACCURACY_DAY_MONTH, "01-02"},
                      DateCase{UTIL_DateTime::DATE_FORMAT_YYYY_MM_DD, UTIL_DateTime::DATE_ACCURACY_MONTH_YEAR, "2006-01"},
                      DateCase{UTIL_DateTime::DATE_FORMAT_YYYY_MM_DD, UTIL_DateTime::DATE_ACCURACY_YEAR, "2006"}),
                         [](const auto& info) { return rowName("Format", int(info.param.format), "Accuracy", int(info.param.accuracy), info.param.text); });

struct TimeCase {
    QTime time;
    UTIL_DateTime::TimeFormat format;
    UTIL_DateTime::TimeAccuracy accuracy;
    const char* text;
};

class TimeStringTest : public DateTimeTest, public ::testing::WithParamInterface<TimeCase> {
};

TEST_P(TimeStringTest, ShowsTheFieldsOfTheAccuracy)
{
    EXPECT_EQ(UTIL_DateTime::timeToString(GetParam().time, GetParam().format, GetParam().accuracy),
              QString::fromLatin1(GetParam().text));
}

INSTANTIATE_TEST_SUITE_P(
    Table, TimeStringTest,
    ::testing::Values(TimeCase{QTime(23, 5, 9), UTIL_DateTime::TIME_FORMAT_24_HOUR, UTIL_DateTime::TIME_ACCURACY_HOUR_MINUTE_SECOND, "23:05:09"},
                      TimeCase{QTime(23, 5, 9), UTIL_DateTime::TIME_FORMAT_24_HOUR, UTIL_DateTime::TIME_ACCURACY_HOUR_MINUTE, "23:05"},
                      TimeCase{QTime(3, 5, 9), UTIL_DateTime::TIME_FORMAT_24_HOUR, UTIL_DateTime::TIME_ACCURACY_HOUR, "03"},
                      TimeCase{QTime(23, 5, 9), UTIL_DateTime::TIME_FORMAT_12_HOUR, UTIL_DateTime::TIME_ACCURACY_HOUR_MINUTE_SECOND, "11:05:09 PM"},
                      TimeCase{QTime(3, 5, 9), UTIL_DateTime::TIME_FORMAT_12_HOUR, UTIL_DateTime::TIME_ACCURACY_HOUR_MINUTE, "3:05 AM"},
                      TimeCase{QTime(0, 0), UTIL_DateTime::TIME_FORMAT_12_HOUR, UTIL_DateTime::TIME_ACCURACY_HOUR_MINUTE, "12:00 AM"},
                      TimeCase{QTime(12, 0), UTIL_DateTime::TIME_FORMAT_12_HOUR, UTIL_DateTime::TIME_ACCURACY_HOUR_MINUTE, "12:00 PM"},
                      TimeCase{QTime(12, 30), UTIL_DateTime::TIME_FORMAT_12_HOUR, UTIL_DateTime::TIME_ACCURACY_HOUR, "12 PM"},
                      TimeCase{QTime(0, 0), UTIL_DateTime::TIME_FORMAT_24_HOUR, UTIL_DateTime::TIME_ACCURACY_HOUR_MINUTE_SECOND, "00:00:00"}),
                         [](const auto& info) { return rowName("Format", int(info.param.format), "Accuracy", int(info.param.accuracy), info.param.text); });

TEST_F(DateTimeTest, InvalidInputsAndUnknownEnumerationsGiveANullText)
{
    EXPECT_TRUE(UTIL_DateTime::dateToString(QDate(), UTIL_DateTime::DATE_FORMAT_DD_MM_YYYY,
                                            UTIL_DateTime::DATE_ACCURACY_DAY_MONTH_YEAR).isNull());
    EXPECT_TRUE(UTIL_DateTime::dateToString(QDate(2006, 1, 2), static_cast<UTIL_DateTime::DateFormat>(3),
                                            UTIL_DateTime::DATE_ACCURACY_DAY_MONTH_YEAR).isNull());
    EXPECT_TRUE(UTIL_DateTime::dateToString(QDate(2006, 1, 2), UTIL_DateTime::DATE_FORMAT_DD_MM_YYYY,
                                            static_cast<UTIL_DateTime::DateAccuracy>(-1)).isNull());
    EXPECT_TRUE(UTIL_DateTime::timeToString(QTime(), UTIL_DateTime::TIME_FORMAT_24_HOUR,
                                            UTIL_DateTime::TIME_ACCURACY_HOUR_MINUTE).isNull());
    EXPECT_TRUE(UTIL_DateTime::timeToString(QTime(1, 2), static_cast<UTIL_DateTime::TimeFormat>(2),
                                            UTIL_DateTime::TIME_ACCURACY_HOUR_MINUTE).isNull());
    EXPECT_TRUE(UTIL_DateTime::timeToString(QTime(1, 2), UTIL_DateTime::TIME_FORMAT_24_HOUR,
                                            static_cast<UTIL_DateTime::TimeAccuracy>(3)).isNull());
}

TEST_F(DateTimeTest, FactoryFormatsAreDayFirstAnd24Hours)
{
    EXPECT_EQ(UTIL_DateTime::getDateFormat(), UTIL_DateTime::DATE_FORMAT_DD_MM_YYYY);
    EXPECT_EQ(UTIL_DateTime::getTimeFormat(), UTIL_DateTime::TIME_FORMAT_24_HOUR);
}

TEST_F(DateTimeTest, ChosenFormatsAreKeptUntilTheNextReset)
{
    ASSERT_TRUE(ZorHost::setSystemDateFormat(UTIL_DateTime::DATE_FORMAT_MM_DD_YYYY));
    ASSERT_TRUE(ZorHost::setSystemTimeFormat(UTIL_DateTime::TIME_FORMAT_12_HOUR));
    ASSERT_TRUE(ZorHost::setSystemDateFormat(UTIL_DateTime::DATE_FORMAT_YYYY_MM_DD));
    EXPECT_EQ(UTIL_DateTime::getDateFormat(), UTIL_DateTime::DATE_FORMAT_YYYY_MM_DD);
    EXPECT_EQ(UTIL_DateTime::getTimeFormat(), UTIL_DateTime::TIME_FORMAT_12_HOUR);
    ZorHost::resetAll();
    EXPECT_EQ(UTIL_DateTime::getDateFormat(), UTIL_DateTime::DATE_FORMAT_DD_MM_YYYY);
    EXPECT_EQ(UTIL_DateTime::getTimeFormat(), UTIL_DateTime::TIME_FORMAT_24_HOUR);
}

TEST_F(DateTimeTest, FormatsOutsideTheEnumerationsAreRefused)
{
    EXPECT_FALSE(ZorHost::setSystemDateFormat(static_cast<UTIL_DateTime::DateFormat>(3)));
    EXPECT_FALSE(ZorHost::setSystemTimeFormat(static_cast<UTIL_DateTime::TimeFormat>(-1)));
    EXPECT_EQ(UTIL_DateTime::getDateFormat(), UTIL_DateTime::DATE_FORMAT_DD_MM_YYYY);
    EXPECT_EQ(UTIL_DateTime::getTimeFormat(), UTIL_DateTime::TIME_FORMAT_24_HOUR);
}

TEST_F(DateTimeTest, DamagedSettingsReadAsFactory)
{
    ASSERT_TRUE(ZorHost::setSystemTimeFormat(UTIL_DateTime::TIME_FORMAT_12_HOUR));
    QFile file(QDir(ZorHostCore::stateDir(QStringLiteral("datetime"))).filePath(QStringLiteral("formats")));
    ASSERT_TRUE(file.exists());
    ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    file.write("dateFormat=7\ntimeFormat=x\n");
    file.close();
    EXPECT_EQ(UTIL_DateTime::getDateFormat(), UTIL_DateTime::DATE_FORMAT_DD_MM_YYYY);
    EXPECT_EQ(UTIL_DateTime::getTimeFormat(), UTIL_DateTime::TIME_FORMAT_24_HOUR);
}

TEST_F(DateTimeTest, CallsAreCounted)
{
    UTIL_DateTime::dateToString(QDate(2006, 1, 2), UTIL_DateTime::DATE_FORMAT_DD_MM_YYYY, UTIL_DateTime::DATE_ACCURACY_YEAR);
    UTIL_DateTime::timeToString(QTime(1, 2), UTIL_DateTime::TIME_FORMAT_24_HOUR, UTIL_DateTime::TIME_ACCURACY_HOUR);
    UTIL_DateTime::getDateFormat();
    UTIL_DateTime::getTimeFormat();
    UTIL_DateTime::getTimeFormat();
    EXPECT_EQ(ZorHost::callCount(QStringLiteral("UTIL_DateTime::dateToString")), 1);
    EXPECT_EQ(ZorHost::callCount(QStringLiteral("UTIL_DateTime::timeToString")), 1);
    EXPECT_EQ(ZorHost::callCount(QStringLiteral("UTIL_DateTime::getDateFormat")), 1);
    EXPECT_EQ(ZorHost::callCount(QStringLiteral("UTIL_DateTime::getTimeFormat")), 2);
}

} // namespace
