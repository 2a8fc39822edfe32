#include "UTIL_TimeConversion.h"

#include "ZorHostEntry.h"
#include "ZorHostSystemZone.h"

#include <QRegularExpression>

#include <climits>

namespace {

bool fitsInt(qint64 value)
{
    return value >= INT_MIN && value <= INT_MAX;
}

// UTC seconds of a date-time, read by the kind of time it carries; false for one that stands for no time at all.
bool secondsOf(const QDateTime& dateTime, qint64* seconds)
{
    if (dateTime.timeSpec() == Qt::LocalTime) {
        if (!dateTime.date().isValid() || !dateTime.time().isValid())
            return false;
        *seconds = ZorHostSystemZone::secondsOfWallClock(dateTime.date(), dateTime.time());
        return true;
    }
    if (!dateTime.isValid())
        return false;
    // Whole seconds of the instant, rounded down also before 1970.
    const qint64 msecs = dateTime.toMSecsSinceEpoch();
    *seconds = msecs / 1000 - (msecs % 1000 < 0 ? 1 : 0);
    return true;
}

} // namespace

int UTIL_TimeConversion::toUTC(const QDateTime& dateTime)
{
    ZORHOST_COUNT();
    qint64 seconds = 0;
    if (!secondsOf(dateTime, &seconds) || !fitsInt(seconds))
        return -1;
    return static_cast<int>(seconds);
}

QDateTime UTIL_TimeConversion::fromUTC(int utc)
{
    ZORHOST_COUNT();
    return QDateTime::fromSecsSinceEpoch(utc, ZorHostSystemZone::zone());
}

QByteArray UTIL_TimeConversion::toISO8601(const QDate& date)
{
    ZORHOST_COUNT();
    if (!date.isValid() || date.year() < 0 || date.year() > 9999)
        return QByteArray();
    return QByteArray::number(date.year()).rightJustified(4, '0')
        + QByteArray::number(date.month()).rightJustified(2, '0')
        + QByteArray::number(date.day()).rightJustified(2, '0');
}

QByteArray UTIL_TimeConversion::toISO8601(const QDateTime& dateTime)
{
    ZORHOST_COUNT();
    qint64 seconds = 0;
    if (!secondsOf(dateTime, &seconds))
        return QByteArray();
    const QDateTime utc = QDateTime::fromSecsSinceEpoch(seconds, Qt::UTC);
    const QDate date = utc.date();
    const QTime time = utc.time();
    if (date.year() < 0 || date.year() > 9999)
        return QByteArray();
    return QString::asprintf("%04d%02d%02dT%02d%02d%02dZ", date.year(), date.month(), date.day(), time.hour(),
                             time.minute(), time.second())
        .toLatin1();
}

QDateTime UTIL_TimeConversion::fromISO8601(const QByteArray& text)
{
    ZORHOST_COUNT();
    static const QRegularExpression compact(QStringLiteral(
        "^(\\d{4})(\\d{2})(\\d{2})(?:T(\\d{2})(\\d{2})(\\d{2})?(Z|[+-]\\d{2}(?:\\d{2})?)?)?$"));
    static const QRegularExpression extended(QStringLiteral(
        "^(\\d{4})-(\\d{2})-(\\d{2})(?:T(\\d{2}):(\\d{2})(?::(\\d{2}))?(Z|[+-]\\d{2}(?::\\d{2})?)?)?$"));
    const QString s = QString::fromLatin1(text);
    QRegularExpressionMatch m = compact.match(s);
    if (!m.hasMatch())
        m = extended.match(s);
    if (!m.hasMatch())
        return QDateTime();

    const QDate date(m.captured(1).toInt(), m.captured(2).toInt(), m.captured(3).toInt());
    const bool hasTime = m.capturedLength(4) > 0;
    const QTime time = hasTime ? QTime(m.captured(4).toInt(), m.captured(5).toInt(), m.captured(6).toInt())
                               : QTime(0, 0);
    if (!date.isValid() || !time.isValid())
        return QDateTime();

    const QString zone = m.captured(7);
    if (zone.isEmpty()) {
        if (!fitsInt(ZorHostSystemZone::secondsOfWallClock(date, time)))
            return QDateTime();
        return ZorHostSystemZone::wallClock(date, time);
    }

    int offset = 0;
    if (zone != QLatin1String("Z")) {
        const QString digits = zone.mid(1).remove(QLatin1Char(':'));
        const int hours = digits.left(2).toInt();
        const int minutes = digits.mid(2).toInt();
        if (hours > 23 || minutes > 59)
            return QDateTime();
        offset = (hours * 3600 + minutes * 60) * (zone.startsWith(QLatin1Char('-')) ? -1 : 1);
    }
    const qint64 utc = QDateTime(date, time, Qt::UTC).toSecsSinceEpoch() - offset;
    if (!fitsInt(utc))
        return QDateTime();
    return QDateTime::fromSecsSinceEpoch(utc, ZorHostSystemZone::zone());
}
