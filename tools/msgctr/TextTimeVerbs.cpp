// msgctr text iso8601: message time stamps between UTC seconds, the compact ISO 8601 form and the local
// wall clock (the zone of TZ).
#include "Verb.h"

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

int show(int utc, Output& out)
{
    const QDateTime utcTime = QDateTime::fromSecsSinceEpoch(utc, Qt::UTC);
    const QDate d = utcTime.date();
    const QTime t = utcTime.time();
    const QDateTime local = MSGCTR_ENG_UtilsTime::fromUTC(utc);
    const qint64 localAsUtc = QDateTime(local.date(), local.time(), Qt::UTC).toSecsSinceEpoch();
    out.field(QStringLiteral("iso8601"), QString::fromLatin1(MSGCTR_ENG_UtilsTime::toISO8601FromUTCDateTime(
        d.year(), d.month(), d.day(), t.hour(), t.minute(), t.second())));
    out.field(QStringLiteral("utc_seconds"), utc);
    out.field(QStringLiteral("utc"), utcTime.toString(kShownFormat));
    out.field(QStringLiteral("local"), local.toString(kShownFormat));
    out.field(QStringLiteral("local_offset"), offsetText(static_cast<int>(localAsUtc - utc)));
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

int to(const QStringList& args, Output& out)
{
    if (args.isEmpty())
        return usage(QStringLiteral("text iso8601 to needs SECONDS or a local DATE [TIME] (see msgctr text iso8601 --help)"));
    bool isNumber = false;
    const qlonglong seconds = args.first().toLongLong(&isNumber);
    if (args.size() == 1 && isNumber) {
        if (seconds < INT_MIN || seconds > INT_MAX)
            return usage(QStringLiteral("%1 is outside the 32-bit range of UTC seconds (%2 to %3)")
                             .arg(args.first()).arg(INT_MIN).arg(INT_MAX));
        return show(static_cast<int>(seconds), out);
    }
    const QDateTime local = parseLocal(args);
    if (!local.isValid())
        return usage(QStringLiteral("'%1' is neither UTC seconds nor a local date and time like 2006-12-31 23:59:59")
                         .arg(args.join(QLatin1Char(' '))));
    const int utc = MSGCTR_ENG_UtilsTime::toUTC(local);
    // -1 is a real time as well as the answer for "out of range": only the way back tells them apart.
    if (utc == -1 && MSGCTR_ENG_UtilsTime::fromUTC(-1) != QDateTime(local.date(), local.time()))
        return usage(QStringLiteral("'%1' is outside the 32-bit range of UTC seconds (1901-12-13 to 2038-01-19)")
                         .arg(args.join(QLatin1Char(' '))));
    return show(utc, out);
}

int from(const QStringList& args, Output& out)
{
    if (args.size() != 1)
        return usage(QStringLiteral("text iso8601 from takes one ISO 8601 text, e.g. 20061231T235959Z"));
    const QDateTime local = MSGCTR_ENG_UtilsTime::fromISO8601(QCString(args.first().toLatin1()));
    if (!local.isValid())
        return usage(QStringLiteral("'%1' is not an ISO 8601 date-time (e.g. 20061231T235959Z) within the 32-bit "
                                    "range of UTC seconds")
                         .arg(args.first()));
    return show(MSGCTR_ENG_UtilsTime::toUTC(local), out);
}

int iso8601(const Args& args, Output& out)
{
    if (!args.has(QStringLiteral("DIRECTION")))
        return show(MSGCTR_ENG_UtilsTime::currentUTCTime(), out);
    const QStringList rest = args.texts(QStringLiteral("TIME"));
    if (args.text(QStringLiteral("DIRECTION")) == QLatin1String("to"))
        return to(rest, out);
    return from(rest, out);
}

const VerbRegistration registration(
    QStringLiteral("text"), QString(),
    {
        Verb(QStringLiteral("iso8601"), QStringLiteral("a time as compact ISO 8601, UTC seconds, UTC and local wall clock (now if none given)"), iso8601)
            .arg(choice(QStringLiteral("DIRECTION"), {QStringLiteral("to"), QStringLiteral("from")},
                        QStringLiteral("to: from UTC SECONDS or a local DATE [TIME]; from: from an ISO 8601 text")).optional())
            .arg(text(QStringLiteral("TIME"), QStringLiteral("SECONDS, DATE [TIME] or ISO8601")).optional().repeated())
            .fields(QStringLiteral("iso8601 (text), utc_seconds (number), utc (text), local (text), local_offset (text)")),
    });

} // namespace
} // namespace msgctr
