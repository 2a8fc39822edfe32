// The platform's time conversions between the local wall clock, UTC seconds and ISO 8601 text.
//
// Date-times of this platform carry no zone: a QDateTime handed in is read by its date and time fields as
// wall-clock time in the system's local zone (the C library's zone, TZ), whatever zone the QDateTime itself names, and the
// date-times handed out are local wall-clock times. UTC times are signed 32-bit seconds since
// 1970-01-01 00:00:00 UTC. Milliseconds are ignored.
//
// Calls are counted under their qualified names ("UTIL_TimeConversion::toUTC", ZorHost::callCount);
// these operations have no result code, so ZorHost::injectFault refuses them.
#pragma once

#include <QByteArray>
#include <QDate>
#include <QDateTime>

class UTIL_TimeConversion {
public:
    // UTC seconds of a local wall-clock time, resolved as the C library's mktime resolves it (a time
    // skipped by a daylight-saving change moves forward by the change, a repeated one is taken once).
    // An invalid date-time, or one outside the 32-bit range, gives -1.
    static int toUTC(const QDateTime& localWallClock);
    // The local wall-clock time of UTC seconds.
    static QDateTime fromUTC(int utc);

    // The compact ISO 8601 date, "20061231"; a null or invalid date gives a null text.
    static QByteArray toISO8601(const QDate& date);
    // The compact ISO 8601 UTC form of a local wall-clock time, "20061231T235959Z"; an invalid date-time
    // gives a null text.
    static QByteArray toISO8601(const QDateTime& localWallClock);
    // The local wall-clock time of an ISO 8601 text. Accepted, in the compact or the extended form:
    // a date alone ("20061231", "2006-12-31": local midnight), a date and time without a zone
    // ("20061231T235959", "2006-12-31T23:59": local wall clock as written; seconds may be left out), or
    // with "Z" or an offset "+hh", "+hhmm", "+hh:mm" (converted to the local zone). Anything else, or a
    // time outside the 32-bit range, gives an invalid date-time.
    static QDateTime fromISO8601(const QByteArray& text);
};
