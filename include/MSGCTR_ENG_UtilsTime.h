// Conversions of message time stamps between local wall-clock time, UTC seconds, the compact ISO 8601
// form of message headers and display texts. UTC times are signed 32-bit seconds since 1970; zone
// offsets are seconds east of UTC. Most operations forward to the platform (UTIL_TimeConversion,
// UTIL_DateTime); the zone probe, the conversions for an arbitrary zone and the compact ISO 8601 text
// are this library's own.
#pragma once

#include "QCString.h"
#include "msgctr_export.h"

#include "UTIL_DateTime.h"

#include <QDate>
#include <QDateTime>
#include <QTime>

#include <ctime>

class MSGCTR_EXPORT MSGCTR_ENG_UtilsTime {
public:
    // The system's zone offset, probed through toUTC on the second day of 1970 (so that zones west of
    // UTC do not reach before the epoch).
    static int getSystimeTimeZoneInSecondS();

    // UTC seconds of a wall-clock time in the zone `zoneOffset` seconds east of UTC.
    static int getUTCByLocalTimeAtTimeZoneAndTheTimeZone(QDateTime wallClock, int zoneOffset);
    // The wall-clock time in the zone `zoneOffset` seconds east of UTC of UTC seconds.
    static QDateTime getLocalTimeAtTimeZoneByUTCAndTheTimeZone(int utc, int zoneOffset);

    // A tm as this class fills it: year in full, month 1 to 12, day, hour, minute, second; the other
    // fields are 0. Milliseconds are 0.
    static QDateTime qdatetimeFromtmTimeStamp(const tm& timeStamp);
    static void tmTimeStampFromqdatetime(QDateTime dateTime, tm& timeStamp);

    // UTC seconds of the current local date and time.
    static int currentUTCTime();

    static int toUTC(const QDateTime& localWallClock);
    static QDateTime fromUTC(int utc);
    static QCString toISO8601(const QDate& date);
    static QCString toISO8601(const QDateTime& localWallClock);
    static QDateTime fromISO8601(const QCString& text);

    // "%04d%02d%02dT%02d%02d%02dZ", e.g. 20061231T235959Z.
    static QCString toISO8601FromUTCDateTime(int year, int month, int day, int hour, int minute, int second);
    // UTC seconds of a UTC date and time, through the compact ISO 8601 text and the local zone.
    static int toUTCFormatFromUTCDateTime(int year, int month, int day, int hour, int minute, int second);

    static QString dateToString(const QDate& date, UTIL_DateTime::DateFormat format);
    static QString dateToString(const QDate& date, UTIL_DateTime::DateFormat format,
                                UTIL_DateTime::DateAccuracy accuracy);
    static QString timeToString(const QTime& time, UTIL_DateTime::TimeFormat format);
    static QString timeToString(const QTime& time, UTIL_DateTime::TimeFormat format,
                                UTIL_DateTime::TimeAccuracy accuracy);

    static UTIL_DateTime::DateFormat getDateFormatOfSystem();
    static UTIL_DateTime::TimeFormat getTimeFormatOfSystem();
    static QString dateToStringInSystemFormat(const QDate& date);
    static QString timeToStringInSystemFormat(const QTime& time);
    static QString timeToStringInSystemFormat(const QTime& time, UTIL_DateTime::TimeAccuracy accuracy);
};
