// msgctr platform flexbit|feature|lang: the host platform's feature switches and system language.
#include "Command.h"

#include "UTIL_Language.h"
#include "ZorHostSetupControl.h"
#include "ZorHostUtilControl.h"

#include <QMap>

#include <cerrno>
#include <climits>
#include <cstring>

namespace msgctr {
namespace {

QString onOff(bool on)
{
    return on ? QStringLiteral("on") : QStringLiteral("off");
}

bool parseNumber(const QString& text, int* number)
{
    qlonglong value = 0;
    if (!parseInteger(text, &value) || value < INT_MIN || value > INT_MAX)
        return false;
    *number = int(value);
    return true;
}

QString writeError()
{
    return QString::fromLocal8Bit(std::strerror(errno));
}

// Shared by flexbit and feature: list the table, show one entry, or change it.
int switchVerb(const QStringList& args, const QString& verb, const QString& what, const QMap<int, bool>& table,
               const std::function<bool(int, const QString&)>& change, const QStringList& settings)
{
    if (args.size() > 2)
        return usageError(QStringLiteral("platform %1 takes at most a number and a setting").arg(verb));
    if (args.isEmpty()) {
        for (auto it = table.constBegin(); it != table.constEnd(); ++it)
            out(QStringLiteral("%1 %2").arg(it.key()).arg(onOff(it.value())));
        return ExitOk;
    }
    int number = 0;
    if (!parseNumber(args.first(), &number))
        return usageError(QStringLiteral("'%1' is not a %2 number").arg(args.first(), what));
    if (args.size() == 1) {
        if (!table.contains(number))
            return failure(QStringLiteral("%1 %2 is not set").arg(what).arg(number));
        out(QStringLiteral("%1 %2").arg(number).arg(onOff(table.value(number))));
        return ExitOk;
    }
    const QString setting = args.at(1);
    if (!settings.contains(setting))
        return usageError(QStringLiteral("'%1' is not one of %2").arg(setting, settings.join(QLatin1Char(' '))));
    if (!change(number, setting))
        return failure(QStringLiteral("cannot change %1 %2: %3").arg(what).arg(number).arg(writeError()));
    out(setting == QLatin1String("unset") ? QStringLiteral("%1 unset").arg(number)
                                          : QStringLiteral("%1 %2").arg(number).arg(setting));
    return ExitOk;
}

int flexbit(const QStringList& args)
{
    return switchVerb(
        args, QStringLiteral("flexbit"), QStringLiteral("flex bit"), ZorHost::flexBits(),
        [](int number, const QString& setting) {
            return setting == QLatin1String("unset") ? ZorHost::unsetFlexBit(number)
                                                     : ZorHost::setFlexBit(number, setting == QLatin1String("on"));
        },
        {QStringLiteral("on"), QStringLiteral("off"), QStringLiteral("unset")});
}

int feature(const QStringList& args)
{
    return switchVerb(
        args, QStringLiteral("feature"), QStringLiteral("feature"), ZorHost::features(),
        [](int id, const QString& setting) { return ZorHost::setFeatureAvailable(id, setting == QLatin1String("on")); },
        {QStringLiteral("on"), QStringLiteral("off")});
}

void printLanguage()
{
    const int id = UTIL_Language::getSystemLanguageId();
    out(QStringLiteral("%1 (id %2, %3, cell-broadcast language %4)")
            .arg(UTIL_Language::getSystemLanguageCode())
            .arg(id)
            .arg(UTIL_Language::getSystemLanguageString())
            .arg(UTIL_Language::getLanguageIndexByLanId(id)));
}

int lang(const QStringList& args)
{
    if (args.size() > 1)
        return usageError(QStringLiteral("platform lang takes at most one language code"));
    if (args.size() == 1) {
        const QStringList known = ZorHost::systemLanguages();
        if (!known.contains(args.first()))
            return usageError(QStringLiteral("unknown language code '%1'; known: %2")
                                  .arg(args.first(), known.join(QLatin1Char(' '))));
        if (!ZorHost::setSystemLanguage(args.first()))
            return failure(QStringLiteral("cannot set the system language: %1").arg(writeError()));
    }
    printLanguage();
    return ExitOk;
}

const FamilyRegistration registration(
    QStringLiteral("platform"), QString(),
    {
        {QStringLiteral("flexbit"), QStringLiteral("[NUMBER [on|off|unset]]"),
         QStringLiteral("list the flex bits, show one, or set it (unset: it can no longer be read)"), flexbit},
        {QStringLiteral("feature"), QStringLiteral("[ID [on|off]]"),
         QStringLiteral("list the feature ids, show one, or make it available or not"), feature},
        {QStringLiteral("lang"), QStringLiteral("[CODE]"),
         QStringLiteral("show the system language, or make CODE (e.g. de-de) the system language"), lang},
    });

} // namespace
} // namespace msgctr
