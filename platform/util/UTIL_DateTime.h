// The platform's display forms of dates and times, and the system's current formats.
//
// Calls are counted under their qualified names ("UTIL_DateTime::dateToString", ZorHost::callCount);
// these operations have no result code, so ZorHost::injectFault refuses them.
#pragma once

#include <QDate>
#include <QString>
#include <QTime>

class UTIL_DateTime {
public:
    // Order of the fields and their separator.
    enum DateFormat {
        DATE_FORMAT_DD_MM_YYYY = 0,  // 31.12.2006 (factory setting)
        DATE_FORMAT_MM_DD_YYYY = 1,  // 12/31/2006
        DATE_FORMAT_YYYY_MM_DD = 2,  // 2006-12-31
    };
    // Which fields are shown, in the order of the format.
    enum DateAccuracy {
        DATE_ACCURACY_DAY_MONTH_YEAR = 0,  // 31.12.2006
        DATE_ACCURACY_DAY_MONTH = 1,       // 31.12
        DATE_ACCURACY_MONTH_YEAR = 2,      // 12.2006
        DATE_ACCURACY_YEAR = 3,            // 2006
    };
    enum TimeFormat {
        TIME_FORMAT_24_HOUR = 0,  // 23:05 (factory setting)
        TIME_FORMAT_12_HOUR = 1,  // 11:05 PM; midnight is 12:00 AM, noon 12:00 PM
    };
    // Which fields are shown; hours are always two digits in the 24-hour format, without a leading zero
    // in the 12-hour one.
    enum TimeAccuracy {
        TIME_ACCURACY_HOUR_MINUTE_SECOND = 0,  // 23:05:09
        TIME_ACCURACY_HOUR_MINUTE = 1,         // 23:05
        TIME_ACCURACY_HOUR = 2,                // 23
    };

    // A null or invalid date or time, or a format or accuracy outside its enumeration, gives a null text.
    static QString dateToString(const QDate& date, DateFormat format, DateAccuracy accuracy);
    static QString timeToString(const QTime& time, TimeFormat format, TimeAccuracy accuracy);

    // The formats the user chose in the phone's settings (ZorHost::setSystemDateFormat and
    // ZorHost::setSystemTimeFormat on this host); factory state: DATE_FORMAT_DD_MM_YYYY, TIME_FORMAT_24_HOUR.
    static DateFormat getDateFormat();
    static TimeFormat getTimeFormat();
};
