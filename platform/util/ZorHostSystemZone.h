// The system's time zone (the zone of TZ, as the C library reads it) and how a bare wall clock in it
// becomes an instant. Shared by the platform's time conversions.
#pragma once

#include <QDate>
#include <QDateTime>
#include <QTime>
#include <QTimeZone>

namespace ZorHostSystemZone {

// The zone of TZ; UTC when TZ names no zone the time-zone database knows (the C library does the same).
QTimeZone zone();

// UTC seconds of a wall clock in the system zone, milliseconds ignored. A wall clock that occurs twice
// is its first occurrence; one that a change of the zone's offset skips is moved forward by the size of
// the change (read with the offset in force before the change). The answer depends on nothing but the
// zone's rules.
qint64 secondsOfWallClock(const QDate& date, const QTime& time);

// The wall clock as written, carrying the instant secondsOfWallClock gives it: in the system zone, or,
// for a skipped wall clock (which the zone cannot show), with the fixed offset in force before the change.
QDateTime wallClock(const QDate& date, const QTime& time);

} // namespace ZorHostSystemZone
