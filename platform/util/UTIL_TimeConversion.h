// The platform's time conversions between date-times, UTC seconds and ISO 8601 text.
//
// UTC times are signed 32-bit seconds since 1970-01-01 00:00:00 UTC; milliseconds are ignored. The local
// zone is the system's (the zone of TZ). A date-time handed in is read by the kind of time it carries:
// - one that carries its zone (Qt::UTC, Qt::OffsetFromUTC, Qt::TimeZone, like every date-time these
//   operations hand out) stands for its own instant, which every conversion keeps;
// - a bare local wall clock (Qt::LocalTime, as QDateTime(date, time) makes it) is read by its date and time
//   fields in the system zone, valid or not in Qt's eyes, by two rules that depend on nothing else:
//   1. a wall clock that occurs twice (the clock is set back) is its first occurrence;
//   2. a wall clock that a change skips (the clock is set forward) moves forward by the size of the change,
//      daylight-saving or not: it is read with the offset in force before the change.
//
// Calls are counted under their qualified names ("UTIL_TimeConversion::toUTC", ZorHost::callCount);
// these operations have no result code, so ZorHost::injectFault refuses them.
#pragma once

#include <QByteArray>
#include <QDate>
#include <QDateTime>

class UTIL_TimeConversion {
public:
    // UTC seconds of a date-time. An invalid one, or one outside the 32-bit range, gives -1.
    static int toUTC(const QDateTime& dateTime);
    // The instant of UTC seconds in the system zone: its date and time show the local wall clock.
    static QDateTime fromUTC(int utc);

    // The compact ISO 8601 date, "20061231"; a null or invalid date gives a null text.
    static QByteArray toISO8601(const QDate& date);
    // The compact ISO 8601 UTC form of a date-time's instant, "20061231T235959Z"; an invalid date-time, or
    // one outside the years 0 to 9999, gives a null text.
    static QByteArray toISO8601(const QDateTime& dateTime);
    // The date-time of an ISO 8601 text. Accepted, in the compact or the extended form:
    // - a date alone ("20061231", "2006-12-31": local midnight) or a date and time without a zone
    //   ("20061231T235959", "2006-12-31T23:59": seconds may be left out): the local wall clock as written,
    //   valid also when a change skips it, carrying the instant the two rules above give it;
    // - with "Z" or an offset "+hh", "+hhmm", "+hh:mm": exactly that instant, in the system zone.
    // Anything else, or an instant outside the 32-bit range, gives an invalid date-time.
    static QDateTime fromISO8601(const QByteArray& text);
};
