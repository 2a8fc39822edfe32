#include "MSGCTR_ENG_UtilsTime.h"

#include "foundation/MsgctrReport.h"

#include "UTIL_TimeConversion.h"

#include <sys/time.h>

int MSGCTR_ENG_UtilsTime::getSystimeTimeZoneInSecondS()
{
    // Asked for as the platform always did, but the minutes west it gives ignore the zone's rules:
    // the conversion below is the answer.
    timeval now = {};
    struct timezone minutesWest = {};
    gettimeofday(&now, &minutesWest);

    const QDateTime secondDayOf1970(QDate(1970, 1, 2), QTime(0, 0));
    return -(toUTC(secondDayOf1970) - 86400);
}

int MSGCTR_ENG_UtilsTime::getUTCByLocalTimeAtTimeZoneAndTheTimeZone(QDateTime wallClock, int zoneOffset)
{
    tm fields = {};
    tmTimeStampFromqdatetime(wallClock, fields);
    fields.tm_mon -= 1;
    fields.tm_year -= 1900;
    fields.tm_isdst = -1;
    tzset();
    const time_t t = mktime(&fields);
    MSGCTR_TRACE_REPORT() << MEDCQqqStr(QString::asprintf("@@ result 2: [%d, %d, %d]\n", fields.tm_isdst,
                                                          static_cast<int>(fields.tm_gmtoff),
                                                          static_cast<int>(t)));
    return static_cast<int>(t + fields.tm_gmtoff - zoneOffset);
}

QDateTime MSGCTR_ENG_UtilsTime::getLocalTimeAtTimeZoneByUTCAndTheTimeZone(int utc, int zoneOffset)
{
    // localtime() adds the system zone; taking it off first makes the system zone cancel out.
    time_t t = static_cast<time_t>(utc) + zoneOffset;
    tm fields = {};
    tzset();
    localtime_r(&t, &fields);
    t -= fields.tm_gmtoff;
    localtime_r(&t, &fields);
    fields.tm_mon += 1;
    fields.tm_year += 1900;
    return qdatetimeFromtmTimeStamp(fields);
}

QDateTime MSGCTR_ENG_UtilsTime::qdatetimeFromtmTimeStamp(const tm& timeStamp)
{
    return QDateTime(QDate(timeStamp.tm_year, timeStamp.tm_mon, timeStamp.tm_mday),
                     QTime(timeStamp.tm_hour, timeStamp.tm_min, timeStamp.tm_sec));
}

void MSGCTR_ENG_UtilsTime::tmTimeStampFromqdatetime(QDateTime dateTime, tm& timeStamp)
{
    timeStamp = tm();
    const QDate date = dateTime.date();
    const QTime time = dateTime.time();
    timeStamp.tm_year = date.year();
    timeStamp.tm_mon = date.month();
    timeStamp.tm_mday = date.day();
    timeStamp.tm_hour = time.hour();
    timeStamp.tm_min = time.minute();
    timeStamp.tm_sec = time.second();
}

int MSGCTR_ENG_UtilsTime::currentUTCTime()
{
    return toUTC(QDateTime::currentDateTime());
}

int MSGCTR_ENG_UtilsTime::toUTC(const QDateTime& localWallClock)
{
    return UTIL_TimeConversion::toUTC(localWallClock);
}

QDateTime MSGCTR_ENG_UtilsTime::fromUTC(int utc)
{
    return UTIL_TimeConversion::fromUTC(utc);
}

QCString MSGCTR_ENG_UtilsTime::toISO8601(const QDate& date)
{
    return QCString(UTIL_TimeConversion::toISO8601(date));
}

QCString MSGCTR_ENG_UtilsTime::toISO8601(const QDateTime& localWallClock)
{
    return QCString(UTIL_TimeConversion::toISO8601(localWallClock));
}

QDateTime MSGCTR_ENG_UtilsTime::fromISO8601(const QCString& text)
{
    return UTIL_TimeConversion::fromISO8601(text);
}

QCString MSGCTR_ENG_UtilsTime::toISO8601FromUTCDateTime(int year, int month, int day, int hour, int minute,
                                                       int second)
{
    return QCString(QByteArray(
        QString::asprintf("%04d%02d%02dT%02d%02d%02dZ", year, month, day, hour, minute, second).toLatin1()));
}

int MSGCTR_ENG_UtilsTime::toUTCFormatFromUTCDateTime(int year, int month, int day, int hour, int minute,
                                                    int second)
{
    return toUTC(fromISO8601(toISO8601FromUTCDateTime(year, month, day, hour, minute, second)));
}

QString MSGCTR_ENG_UtilsTime::dateToString(const QDate& date, UTIL_DateTime::DateFormat format)
{
    return UTIL_DateTime::dateToString(date, format, static_cast<UTIL_DateTime::DateAccuracy>(0));
}

QString MSGCTR_ENG_UtilsTime::dateToString(const QDate& date, UTIL_DateTime::DateFormat format,
                                           UTIL_DateTime::DateAccuracy accuracy)
{
    return UTIL_DateTime::dateToString(date, format, accuracy);
}

QString MSGCTR_ENG_UtilsTime::timeToString(const QTime& time, UTIL_DateTime::TimeFormat format)
{
    return UTIL_DateTime::timeToString(time, format, static_cast<UTIL_DateTime::TimeAccuracy>(1));
}

QString MSGCTR_ENG_UtilsTime::timeToString(const QTime& time, UTIL_DateTime::TimeFormat format,
                                           UTIL_DateTime::TimeAccuracy accuracy)
{
    return UTIL_DateTime::timeToString(time, format, accuracy);
}

UTIL_DateTime::DateFormat MSGCTR_ENG_UtilsTime::getDateFormatOfSystem()
{
    return UTIL_DateTime::getDateFormat();
}

UTIL_DateTime::TimeFormat MSGCTR_ENG_UtilsTime::getTimeFormatOfSystem()
{
    return UTIL_DateTime::getTimeFormat();
}

QString MSGCTR_ENG_UtilsTime::dateToStringInSystemFormat(const QDate& date)
{
    return dateToString(date, getDateFormatOfSystem());
}

QString MSGCTR_ENG_UtilsTime::timeToStringInSystemFormat(const QTime& time)
{
    return timeToString(time, getTimeFormatOfSystem());
}

QString MSGCTR_ENG_UtilsTime::timeToStringInSystemFormat(const QTime& time, UTIL_DateTime::TimeAccuracy accuracy)
{
    return timeToString(time, getTimeFormatOfSystem(), accuracy);
}
