#include "TimeZoneTest.h"

#include <QString>

#include <cstdlib>
#include <ctime>

void TimeZoneTest::SetUp()
{
    HostRootTest::SetUp();
    m_zone = QTimeZone(QByteArray(GetParam()));
    if (!m_zone.isValid())
        GTEST_SKIP() << "no zone data for " << GetParam() << " on this machine";
    setenv("TZ", GetParam(), 1);
    tzset();
}

std::vector<const char*> testedZones()
{
    return {"UTC", "Asia/Tokyo", "America/Los_Angeles", "Europe/Berlin"};
}

std::string zoneRowName(const ::testing::TestParamInfo<const char*>& info)
{
    return QString::fromLatin1(info.param).replace(QLatin1Char('/'), QLatin1Char('_')).toStdString();
}
