#include "UTIL_DateTime.h"

#include "ZorHostCore.h"
#include "ZorHostEntry.h"
#include "ZorHostDateTimeControl.h"
#include "ZorHostStateFile.h"

#include <QDir>

namespace {

// The state file holds one "key=value" line per setting.
const char kDateFormatKey[] = "dateFormat";
const char kTimeFormatKey[] = "timeFormat";

QString settingsPath()
{
    return QDir(ZorHostCore::stateDir(QStringLiteral("datetime"))).filePath(QStringLiteral("formats"));
}

int readSetting(const char* key, int factoryValue, int lastValue)
{
    ZorHostCore::StateFile file(settingsPath());
    const QList<QByteArray> lines = file.read().split('\n');
    for (const QByteArray& line : lines) {
        const int eq = line.indexOf('=');
        if (eq <= 0 || line.left(eq) != key)
            continue;
        bool ok = false;
        const int value = line.mid(eq + 1).toInt(&ok);
        // A damaged setting reads as the factory one, as the phone's settings store does.
        return ok && value >= 0 && value <= lastValue ? value : factoryValue;
    }
    return factoryValue;
}

bool writeSetting(const char* key, int value)
{
    ZorHostCore::StateFile file(settingsPath());
    ZorHostCore::StateFileLocker locker(file);
    if (!locker.locked())
        return false;
    QByteArray contents;
    for (const QByteArray& line : file.read().split('\n')) {
        if (!line.isEmpty() && !line.startsWith(QByteArray(key) + '='))
            contents += line + '\n';
    }
    contents += QByteArray(key) + '=' + QByteArray::number(value) + '\n';
    return file.write(contents);
}

QString twoDigits(int value)
{
    return QString::number(value).rightJustified(2, QLatin1Char('0'));
}

QString fourDigits(int value)
{
    return QString::number(value).rightJustified(4, QLatin1Char('0'));
}

} // namespace

QString UTIL_DateTime::dateToString(const QDate& date, DateFormat format, DateAccuracy accuracy)
{
    ZORHOST_COUNT();
    if (!date.isValid() || date.year() < 0)
        return QString();
    const QString day = twoDigits(date.day());
    const QString month = twoDigits(date.month());
    const QString year = fourDigits(date.year());

    QString separator;
    QStringList dayMonthYear;
    QStringList dayMonth;
    QStringList monthYear;
    switch (format) {
    case DATE_FORMAT_DD_MM_YYYY:
        separator = QStringLiteral(".");
        dayMonthYear = {day, month, year};
        dayMonth = {day, month};
        monthYear = {month, year};
        break;
    case DATE_FORMAT_MM_DD_YYYY:
        separator = QStringLiteral("/");
        dayMonthYear = {month, day, year};
        dayMonth = {month, day};
        monthYear = {month, year};
        break;
    case DATE_FORMAT_YYYY_MM_DD:
        separator = QStringLiteral("-");
        dayMonthYear = {year, month, day};
        dayMonth = {month, day};
        monthYear = {year, month};
        break;
    default:
        return QString();
    }
    switch (accuracy) {
    case DATE_ACCURACY_DAY_MONTH_YEAR:
        return dayMonthYear.join(separator);
    case DATE_ACCURACY_DAY_MONTH:
        return dayMonth.join(separator);
    case DATE_ACCURACY_MONTH_YEAR:
        return monthYear.join(separator);
    case DATE_ACCURACY_YEAR:
        return year;
    }
    return QString();
}

QString UTIL_DateTime::timeToString(const QTime& time, TimeFormat format, TimeAccuracy accuracy)
{
    ZORHOST_COUNT();
    if (!time.isValid())
        return QString();
    if (accuracy != TIME_ACCURACY_HOUR_MINUTE_SECOND && accuracy != TIME_ACCURACY_HOUR_MINUTE
        && accuracy != TIME_ACCURACY_HOUR)
        return QString();

    QString hour;
    QString suffix;
    switch (format) {
    case TIME_FORMAT_24_HOUR:
        hour = twoDigits(time.hour());
        break;
    case TIME_FORMAT_12_HOUR:
        hour = QString::number(time.hour() % 12 == 0 ? 12 : time.hour() % 12);
        suffix = time.hour() < 12 ? QStringLiteral(" AM") : QStringLiteral(" PM");
        break;
    default:
        return QString();
    }
    QString text = hour;
    if (accuracy != TIME_ACCURACY_HOUR)
        text += QLatin1Char(':') + twoDigits(time.minute());
    if (accuracy == TIME_ACCURACY_HOUR_MINUTE_SECOND)
        text += QLatin1Char(':') + twoDigits(time.second());
    return text + suffix;
}

UTIL_DateTime::DateFormat UTIL_DateTime::getDateFormat()
{
    ZORHOST_COUNT();
    return static_cast<DateFormat>(readSetting(kDateFormatKey, DATE_FORMAT_DD_MM_YYYY, DATE_FORMAT_YYYY_MM_DD));
}

UTIL_DateTime::TimeFormat UTIL_DateTime::getTimeFormat()
{
    ZORHOST_COUNT();
    return static_cast<TimeFormat>(readSetting(kTimeFormatKey, TIME_FORMAT_24_HOUR, TIME_FORMAT_12_HOUR));
}

bool ZorHost::setSystemDateFormat(UTIL_DateTime::DateFormat format)
{
    if (format < UTIL_DateTime::DATE_FORMAT_DD_MM_YYYY || format > UTIL_DateTime::DATE_FORMAT_YYYY_MM_DD)
        return false;
    return writeSetting(kDateFormatKey, format);
}

bool ZorHost::setSystemTimeFormat(UTIL_DateTime::TimeFormat format)
{
    if (format < UTIL_DateTime::TIME_FORMAT_24_HOUR || format > UTIL_DateTime::TIME_FORMAT_12_HOUR)
        return false;
    return writeSetting(kTimeFormatKey, format);
}
