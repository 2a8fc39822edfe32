// msgctr text iso8601: message time stamps between UTC seconds, the compact ISO 8601 form and the local
// wall clock (the zone of TZ).
#include "Command.h"

#include "MSGCTR_ENG_UtilsTime.h"

#include <climits>

namespace msgctr {
namespace {

const QString kShownFormat = QStringLiteral("yyyy-MM-dd HH:mm:ss");

QString offsetText(int seconds)
{
    const int magnitude = seconds < 0 ? -seconds : seconds;
    return QStringLiteral("UTC%1%2:%3")
        .arg(seconds < 0 ? QLatin1Char('-') : QLatin1Char('+'))
        .arg(magnitude / 3600, 2, 10, QLatin1Char('0'))
        .arg(magnitude % 3600 / 60, 2, 10, QLatin1Char('0'));
}

int show(int utc)
{
    const QDateTime utcTime = QDateTime::fromSecsSinceEpoch(utc, Qt::UTC);
    const QDate d = utcTime.date();
    const QTime t = utcTime.time();
    const QDateTime local = MSGCTR_ENG_UtilsTime::fromUTC(utc);
    const qint64 localAsUtc = QDateTime(local.date(), local.time(), Qt::UTC).toSecsSinceEpoch();
    out(QStringLiteral("iso8601 %1").arg(QString::fromLatin1(MSGCTR_ENG_UtilsTime::toISO8601FromUTCDateTime(
        d.year(), d.month(), d.day(), t.hour(), t.minute(), t.second()))));
    out(QStringLiteral("utc-seconds %1").arg(utc));
    out(QStringLiteral("utc %1").arg(utcTime.toString(kShownFormat)));
    out(QStringLiteral("local %1 (%2)")
            .arg(local.toString(kShownFormat), offsetText(static_cast<int>(localAsUtc - utc))));
    return ExitOk;
}

// A local wall-clock time as a person writes it: "2006-12-31", "2006-12-31 23:59" or "2006-12-31 23:59:59"
// (a "T" may stand for the blank).
QDateTime parseLocal(const QStringList& args)
{
    QString text = args.join(QLatin1Char(' '));
    text.replace(QLatin1Char('T'), QLatin1Char(' '));
    for (const char* format : {"yyyy-MM-dd HH:mm:ss", "yyyy-MM-dd HH:mm", "yyyy-MM-dd"}) {
        const QDateTime parsed = QDateTime::fromString(text, QString::fromLatin1(format));
        if (parsed.date().isValid() && parsed.time().isValid())
            return parsed;
    }
    return QDateTime();
}

int to(const QStringList& args)
{
    if (args.isEmpty() || args.size() > 2)
        return usageError(QStringLiteral("text iso8601 to takes SECONDS or a local DATE [TIME] (see msgctr text iso8601 --help)"));
    qlonglong seconds = 0;
    if (args.size() == 1 && parseInteger(args.first(), &seconds)) {
        if (seconds < INT_MIN || seconds > INT_MAX)
            return usageError(QStringLiteral("%1 is outside the 32-bit range of UTC seconds (%2 to %3)")
                                  .arg(args.first()).arg(INT_MIN).arg(INT_MAX));
        return show(static_cast<int>(seconds));
    }
    const QDateTime local = parseLocal(args);
    if (!local.isValid())
        return usageError(QStringLiteral("'%1' is neither UTC seconds nor a local date and time like 2006-12-31 23:59:59")
                              .arg(args.join(QLatin1Char(' '))));
    const int utc = MSGCTR_ENG_UtilsTime::toUTC(local);
    // -1 is a real time as well as the answer for "out of range": only the way back tells them apart.
    if (utc == -1 && MSGCTR_ENG_UtilsTime::fromUTC(-1) != QDateTime(local.date(), local.time()))
        return usageError(QStringLiteral("'%1' is outside the 32-bit range of UTC seconds (1901-12-13 to 2038-01-19)")
                              .arg(args.join(QLatin1Char(' '))));
    return show(utc);
}

int from(const QStringList& args)
{
    if (args.size() != 1)
        return usageError(QStringLiteral("text iso8601 from takes one ISO 8601 text, e.g. 20061231T235959Z"));
    const QDateTime local = MSGCTR_ENG_UtilsTime::fromISO8601(QCString(args.first().toLatin1()));
    if (!local.isValid())
        return usageError(QStringLiteral("'%1' is not an ISO 8601 date-time (e.g. 20061231T235959Z) within the 32-bit "
                                         "range of UTC seconds")
                              .arg(args.first()));
    return show(MSGCTR_ENG_UtilsTime::toUTC(local));
}

int iso8601(const QStringList& args)
{
    if (args.isEmpty())
        return show(MSGCTR_ENG_UtilsTime::currentUTCTime());
    const QString direction = args.first();
    if (direction == QLatin1String("to"))
        return to(args.mid(1));
    if (direction == QLatin1String("from"))
        return from(args.mid(1));
    return usageError(QStringLiteral("text iso8601 expects 'to' or 'from', not '%1'").arg(direction));
}

const FamilyRegistration registration(
    QStringLiteral("text"), QString(),
    {
        {QStringLiteral("iso8601"), QStringLiteral("[to SECONDS | to DATE [TIME] | from ISO8601]"),
         QStringLiteral("a time as compact ISO 8601, UTC seconds, UTC and local wall clock (now if none given)"),
         iso8601},
    });

} // namespace
} // namespace msgctr
