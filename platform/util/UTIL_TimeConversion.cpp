#include "UTIL_TimeConversion.h"

#include "ZorHostEntry.h"

#include <QRegularExpression>

#include <cerrno>
#include <climits>
#include <ctime>

namespace {

// mktime without the 32-bit limit; false for an invalid date-time or one the C library cannot place.
bool localWallClockToSeconds(const QDateTime& localWallClock, qint64* seconds)
{
    const QDate date = localWallClock.date();
    const QTime time = localWallClock.time();
    if (!date.isValid() || !time.isValid())
        return false;
    tm fields = {};
    fields.tm_year = date.year() - 1900;
    fields.tm_mon = date.month() - 1;
    fields.tm_mday = date.day();
    fields.tm_hour = time.hour();
    fields.tm_min = time.minute();
    fields.tm_sec = time.second();
    fields.tm_isdst = -1;
    tzset();
    errno = 0;
    const time_t t = mktime(&fields);
    // -1 is also a real time (one second before 1970): only errno tells a failure apart.
    if (t == static_cast<time_t>(-1) && errno != 0)
        return false;
    *seconds = static_cast<qint64>(t);
    return true;
}

QDateTime localWallClockFromSeconds(qint64 seconds)
{
    const time_t t = static_cast<time_t>(seconds);
    tm fields = {};
    tzset();
    if (!localtime_r(&t, &fields))
        return QDateTime();
    return QDateTime(QDate(fields.tm_year + 1900, fields.tm_mon + 1, fields.tm_mday),
                     QTime(fields.tm_hour, fields.tm_min, fields.tm_sec));
}

bool fitsInt(qint64 value)
{
    return value >= INT_MIN && value <= INT_MAX;
}

} // namespace

int UTIL_TimeConversion::toUTC(const QDateTime& localWallClock)
{
    ZORHOST_COUNT();
    qint64 seconds = 0;
    if (!localWallClockToSeconds(localWallClock, &seconds) || !fitsInt(seconds))
        return -1;
    return static_cast<int>(seconds);
}

QDateTime UTIL_TimeConversion::fromUTC(int utc)
{
    ZORHOST_COUNT();
    return localWallClockFromSeconds(utc);
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

QByteArray UTIL_TimeConversion::toISO8601(const QDateTime& localWallClock)
{
    ZORHOST_COUNT();
    qint64 seconds = 0;
    if (!localWallClockToSeconds(localWallClock, &seconds))
        return QByteArray();
    const time_t t = static_cast<time_t>(seconds);
    tm utc = {};
    if (!gmtime_r(&t, &utc) || utc.tm_year + 1900 < 0 || utc.tm_year + 1900 > 9999)
        return QByteArray();
    return QString::asprintf("%04d%02d%02dT%02d%02d%02dZ", utc.tm_year + 1900, utc.tm_mon + 1, utc.tm_mday,
                             utc.tm_hour, utc.tm_min, utc.tm_sec)
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
        const QDateTime wallClock(date, time);
        qint64 seconds = 0;
        if (!localWallClockToSeconds(wallClock, &seconds) || !fitsInt(seconds))
            return QDateTime();
        return QDateTime(date, time);
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
    return localWallClockFromSeconds(utc);
}
