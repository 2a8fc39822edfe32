// The time parsers: ISO 8601 texts in the platform and in the library (which must agree), compact ISO
// 8601 written back, tm stamps and the conversions for an arbitrary zone. The process runs in a zone
// five and a half hours east of UTC without daylight saving, so every local time exists exactly once and
// round trips are exact.
#include "FuzzSupport.h"

#include "MSGCTR_ENG_UtilsTime.h"
#include "UTIL_TimeConversion.h"

#include <QRegularExpression>

#include <climits>
#include <cstdlib>
#include <ctime>

namespace {

void checkIso8601(const QByteArray& text)
{
    const QDateTime platform = UTIL_TimeConversion::fromISO8601(text);
    const QDateTime library = MSGCTR_ENG_UtilsTime::fromISO8601(QCString(text));
    FUZZ_CHECK(platform.isValid() == library.isValid());
    if (!platform.isValid())
        return;
    FUZZ_CHECK(platform == library);
    const QByteArray compact = UTIL_TimeConversion::toISO8601(platform);
    static const QRegularExpression form(QStringLiteral("^[0-9]{8}T[0-9]{6}Z$"));
    FUZZ_CHECK(form.match(QString::fromLatin1(compact)).hasMatch());
    FUZZ_CHECK(UTIL_TimeConversion::fromISO8601(compact) == platform);
    const int utc = UTIL_TimeConversion::toUTC(platform);
    FUZZ_CHECK(UTIL_TimeConversion::fromUTC(utc) == platform);
    FUZZ_CHECK(MSGCTR_ENG_UtilsTime::toUTC(platform) == utc);

    // A compact UTC time means exactly its seconds since 1970.
    static const QRegularExpression utcForm(QStringLiteral("^([0-9]{4})([0-9]{2})([0-9]{2})T([0-9]{2})([0-9]{2})([0-9]{2})Z$"));
    const QRegularExpressionMatch m = utcForm.match(QString::fromLatin1(text));
    if (m.hasMatch()) {
        const QDateTime model(QDate(m.captured(1).toInt(), m.captured(2).toInt(), m.captured(3).toInt()),
                              QTime(m.captured(4).toInt(), m.captured(5).toInt(), m.captured(6).toInt()), Qt::UTC);
        FUZZ_CHECK(model.toSecsSinceEpoch() == utc);
        FUZZ_CHECK(compact == text);
    }
}

void checkStamp(fuzz::Input& input)
{
    tm stamp = {};
    stamp.tm_year = input.intIn(-10, 10000);
    stamp.tm_mon = input.intIn(-1, 14);
    stamp.tm_mday = input.intIn(-1, 33);
    stamp.tm_hour = input.intIn(-1, 25);
    stamp.tm_min = input.intIn(-1, 61);
    stamp.tm_sec = input.intIn(-1, 61);
    const QDateTime dateTime = MSGCTR_ENG_UtilsTime::qdatetimeFromtmTimeStamp(stamp);
    const bool dateValid = QDate::isValid(stamp.tm_year, stamp.tm_mon, stamp.tm_mday);
    const bool valid = dateValid && QTime::isValid(stamp.tm_hour, stamp.tm_min, stamp.tm_sec);
    // A date-time with a valid date and an impossible time is that date's midnight.
    FUZZ_CHECK(dateTime.isValid() == dateValid);
    if (dateValid && !valid)
        FUZZ_CHECK(dateTime.time() == QTime(0, 0));
    if (valid) {
        tm back;
        MSGCTR_ENG_UtilsTime::tmTimeStampFromqdatetime(dateTime, back);
        FUZZ_CHECK(back.tm_year == stamp.tm_year && back.tm_mon == stamp.tm_mon && back.tm_mday == stamp.tm_mday);
        FUZZ_CHECK(back.tm_hour == stamp.tm_hour && back.tm_min == stamp.tm_min && back.tm_sec == stamp.tm_sec);
    }
    if (valid && stamp.tm_year >= 1 && stamp.tm_year <= 9999) {
        const QByteArray expected = QString::asprintf("%04d%02d%02d", stamp.tm_year, stamp.tm_mon, stamp.tm_mday).toLatin1();
        FUZZ_CHECK(MSGCTR_ENG_UtilsTime::toISO8601(dateTime.date()) == expected);
    }
}

void checkZones(fuzz::Input& input)
{
    const int margin = 2 * 14 * 3600;
    const int utc = input.intIn(-32768, 32767) * 65536 + input.intIn(0, 65535);
    const int zone = input.intIn(-14 * 4, 14 * 4) * 900;
    if (utc < INT_MIN + margin || utc > INT_MAX - margin)
        return;
    const QDateTime wallClock = MSGCTR_ENG_UtilsTime::getLocalTimeAtTimeZoneByUTCAndTheTimeZone(utc, zone);
    FUZZ_CHECK(wallClock.isValid());
    FUZZ_CHECK(QDateTime(wallClock.date(), wallClock.time(), Qt::UTC).toSecsSinceEpoch() == qint64(utc) + zone);
    FUZZ_CHECK(MSGCTR_ENG_UtilsTime::getUTCByLocalTimeAtTimeZoneAndTheTimeZone(wallClock, zone) == utc);
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    setenv("TZ", "<+0530>-5:30", 1);
    tzset();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    fuzz::init();
    fuzz::Input input(data, size);
    checkStamp(input);
    checkZones(input);
    checkIso8601(input.rest());
    fuzz::takeReportCount();
    return 0;
}
