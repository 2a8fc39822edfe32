// A test run once per time zone: the process's TZ is the zone of the parameter for the test (HostRootTest
// puts it back afterwards), and Qt's own zone of that name is at hand as the reference.
#pragma once

#include "HostRootTest.h"

#include <QTimeZone>

#include <string>
#include <vector>

class TimeZoneTest : public HostRootTest, public ::testing::WithParamInterface<const char*> {
protected:
    void SetUp() override;

    QTimeZone m_zone;
};

// Zones with and without daylight saving, on both sides of UTC.
std::vector<const char*> testedZones();
// The row name of a zone: "Europe/Berlin" gives "Europe_Berlin".
std::string zoneRowName(const ::testing::TestParamInfo<const char*>& info);
