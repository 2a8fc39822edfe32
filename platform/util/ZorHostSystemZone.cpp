#include "ZorHostSystemZone.h"

#include <QList>

namespace {

// Offsets of real zones stay well within a day of UTC, and so do their changes: every instant a wall
// clock can stand for lies within two days of the wall clock read as UTC.
const qint64 kSearchWindow = 2 * 86400;

// A stretch of time during which the zone keeps one offset: [start, end).
struct Stretch {
    qint64 start;
    qint64 end;
    int offset;
};

QDateTime utcAt(qint64 seconds)
{
    return QDateTime::fromSecsSinceEpoch(seconds, Qt::UTC);
}

// The wall clock read as if it were UTC: the instant minus the offset in force gives the real one.
qint64 wallClockAsUtc(const QDate& date, const QTime& time)
{
    return QDateTime(date, QTime(time.hour(), time.minute(), time.second()), Qt::UTC).toSecsSinceEpoch();
}

QList<Stretch> stretchesAround(const QTimeZone& zone, qint64 seconds)
{
    const qint64 from = seconds - kSearchWindow;
    const qint64 to = seconds + kSearchWindow;
    QList<Stretch> stretches{{from, to, zone.offsetFromUtc(utcAt(from))}};
    if (!zone.hasTransitions())
        return stretches;
    for (const QTimeZone::OffsetData& change : zone.transitions(utcAt(from + 1), utcAt(to))) {
        const qint64 at = change.atUtc.toSecsSinceEpoch();
        stretches.last().end = at;
        stretches.append({at, to, change.offsetFromUtc});
    }
    return stretches;
}

struct Resolution {
    qint64 seconds;
    bool skipped;
    int offsetBefore;
};

Resolution resolve(const QDate& date, const QTime& time)
{
    const qint64 asUtc = wallClockAsUtc(date, time);
    const QList<Stretch> stretches = stretchesAround(ZorHostSystemZone::zone(), asUtc);
    // The stretches are in time order, so the first one that shows the wall clock holds its first occurrence.
    for (const Stretch& stretch : stretches) {
        const qint64 candidate = asUtc - stretch.offset;
        if (candidate >= stretch.start && candidate < stretch.end)
            return {candidate, false, stretch.offset};
    }
    for (int i = 0; i + 1 < stretches.size(); ++i) {
        const qint64 change = stretches[i + 1].start;
        if (asUtc >= change + stretches[i].offset && asUtc < change + stretches[i + 1].offset)
            return {asUtc - stretches[i].offset, true, stretches[i].offset};
    }
    return {asUtc - stretches.first().offset, false, stretches.first().offset};
}

} // namespace

QTimeZone ZorHostSystemZone::zone()
{
    const QTimeZone system = QTimeZone::systemTimeZone();
    return system.isValid() ? system : QTimeZone::utc();
}

qint64 ZorHostSystemZone::secondsOfWallClock(const QDate& date, const QTime& time)
{
    return resolve(date, time).seconds;
}

QDateTime ZorHostSystemZone::wallClock(const QDate& date, const QTime& time)
{
    const Resolution resolution = resolve(date, time);
    const QTime wholeSeconds(time.hour(), time.minute(), time.second());
    if (resolution.skipped)
        return QDateTime(date, wholeSeconds, Qt::OffsetFromUTC, resolution.offsetBefore);
    return QDateTime::fromSecsSinceEpoch(resolution.seconds, zone());
}
