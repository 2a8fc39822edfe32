// msgctr settings quicktexts and push: the messaging settings that are more than one key, through the
// settings object, so that its checks and reports apply.
#include "Command.h"
#include "LibraryReports.h"

#include "MSGCTR_ENG_SetupInfo.h"

#include <climits>
#include <vector>

namespace msgctr {
namespace {

using Info = MSGCTR_ENG_SetupInfo;
using Pair = Info::WAP_PPG_INFO_S;

void printTexts(const QStringList& texts)
{
    if (texts.isEmpty())
        out(QStringLiteral("(no quick texts)"));
    for (int i = 0; i < texts.size(); ++i)
        out(QStringLiteral("%1: %2").arg(i + 1).arg(texts.at(i)));
}

int quicktexts(const QStringList& args)
{
    QStringList rest = args;
    const bool user = rest.removeAll(QStringLiteral("--user")) > 0;
    Info info(MSGCTR_ENG_Setup::FLUSH_MODE__FLUSH);
    if (rest.isEmpty()) {
        QStringList texts;
        if (user)
            info.getUserDefinedQuickTexts(&texts);
        else
            info.getDefaultQuickTexts(&texts);
        printTexts(texts);
        return ExitOk;
    }
    if (rest.first() != QLatin1String("set"))
        return usageError(QStringLiteral("settings quicktexts takes [--user] [set TEXT...], not '%1'").arg(rest.first()));
    if (!user)
        return usageError(QStringLiteral("the default quick texts come from the language's resource file: use --user set"));
    const QStringList texts = rest.mid(1);
    // The library refuses a longer list without an error code; say so rather than pretend it was stored.
    if (texts.size() > Info::getMaximumPermitCountOfUserDefineQuickTexts()) {
        info.setUserDefinedQuickTexts(texts);
        return failure(QStringLiteral("at most %1 quick texts of your own; nothing was stored")
                           .arg(Info::getMaximumPermitCountOfUserDefineQuickTexts()));
    }
    const MSGCTR_ERRCODE code = info.setUserDefinedQuickTexts(texts);
    if (MSGCTR_ERRCODE_IS_ERROR(code))
        return failure(QStringLiteral("the quick texts were not stored: error %1").arg(code));
    QStringList stored;
    info.getUserDefinedQuickTexts(&stored);
    printTexts(stored);
    return ExitOk;
}

struct NamedValue {
    const char* name;
    int value;
};

const NamedValue kModes[] = {{"off", Info::WAP_ALLOWED_PUSH_SMSC_MODE__OFF},
                             {"all", Info::WAP_ALLOWED_PUSH_SMSC_MODE__RECEIVE_ALL},
                             {"restricted", Info::WAP_ALLOWED_PUSH_SMSC_MODE__RESTRICTED}};
const NamedValue kSecurityTypes[] = {{"ask", Info::PUSH_SL_SECURITY_ASK},
                                     {"allow", Info::PUSH_SL_SECURITY_ALLOW},
                                     {"deny", Info::PUSH_SL_SECURITY_DENY}};

template <size_t N>
QString valueText(const NamedValue (&names)[N], int value)
{
    for (const NamedValue& n : names) {
        if (n.value == value)
            return QStringLiteral("%1 (%2)").arg(value).arg(QLatin1String(n.name));
    }
    return QStringLiteral("%1 (out of range)").arg(value);
}

// A name of the table or any int: the library reports out-of-range values and stores them all the same.
template <size_t N>
bool parseValue(const NamedValue (&names)[N], const QString& text, int* value)
{
    for (const NamedValue& n : names) {
        if (text == QLatin1String(n.name)) {
            *value = n.value;
            return true;
        }
    }
    qlonglong number = 0;
    if (!parseInteger(text, &number) || number < INT_MIN || number > INT_MAX)
        return false;
    *value = int(number);
    return true;
}

QString pairsText(const std::vector<Pair>& pairs)
{
    if (pairs.empty())
        return QStringLiteral("(none)");
    QStringList texts;
    for (const Pair& pair : pairs)
        texts.append(pair.m_strSmsc + QLatin1Char(',') + pair.m_strPpg);
    return texts.join(QLatin1Char(' '));
}

void printPush(Info& info, const QString& what)
{
    const bool all = what.isEmpty();
    if (all || what == QLatin1String("mode"))
        out(QStringLiteral("mode %1").arg(valueText(kModes, info.getWapAllowedPushSmscMode())));
    if (all || what == QLatin1String("security"))
        out(QStringLiteral("security %1").arg(valueText(kSecurityTypes, info.getPushSerLoadingSecurityType())));
    if (all || what == QLatin1String("pairs"))
        out(QStringLiteral("pairs %1").arg(pairsText(info.getWapAllowedPpgS())));
    if (all || what == QLatin1String("whitelist")) {
        out(QStringLiteral("whitelist %1").arg(pairsText(info.getWapWhitelistPairS())));
        out(QStringLiteral("browser filter \"%1\"").arg(info.getOperaPushWhitelist()));
    }
}

int push(const QStringList& args)
{
    Info info(MSGCTR_ENG_Setup::FLUSH_MODE__FLUSH);
    if (args.isEmpty()) {
        printPush(info, QString());
        return ExitOk;
    }
    const QString what = args.first();
    const QStringList values = args.mid(1);
    MSGCTR_ERRCODE code = MSGCTR_ERRCODE__SUCCESS;
    if (what == QLatin1String("mode") || what == QLatin1String("security")) {
        if (values.size() > 1)
            return usageError(QStringLiteral("settings push %1 takes at most one VALUE").arg(what));
        if (values.size() == 1) {
            int value = 0;
            const bool mode = what == QLatin1String("mode");
            if (!(mode ? parseValue(kModes, values.first(), &value) : parseValue(kSecurityTypes, values.first(), &value)))
                return usageError(mode ? QStringLiteral("'%1' is not off, all, restricted or a number").arg(values.first())
                                       : QStringLiteral("'%1' is not ask, allow, deny or a number").arg(values.first()));
            code = mode ? info.setWapAllowedPushSmscMode(value) : info.setPushSerLoadingSecurityType(value);
        }
    } else if (what == QLatin1String("pairs")) {
        if (!values.isEmpty()) {
            std::vector<Pair> pairs;
            for (const QString& value : values) {
                const QStringList fields = value.split(QLatin1Char(','));
                if (fields.size() != 2)
                    return usageError(QStringLiteral("'%1' is not a pair SMSC,GATEWAY").arg(value));
                Pair pair;
                pair.m_strSmsc = fields.at(0);
                pair.m_strPpg = fields.at(1);
                pairs.push_back(pair);
            }
            code = info.setWapAllowedPpgS(pairs);
        }
    } else if (what == QLatin1String("whitelist")) {
        if (!values.isEmpty())
            return usageError(QStringLiteral("settings push whitelist takes nothing: its keys are the product's"));
    } else {
        return usageError(QStringLiteral("settings push takes mode, security, pairs or whitelist, not '%1'").arg(what));
    }
    if (MSGCTR_ERRCODE_IS_ERROR(code))
        return failure(QStringLiteral("the push settings were not stored: error %1").arg(code));
    printPush(info, what);
    return ExitOk;
}

const FamilyRegistration registration(
    QStringLiteral("settings"), QString(),
    {
        {QStringLiteral("quicktexts"), QStringLiteral("[--user] [set TEXT...] [--trace]"),
         QStringLiteral("the system language's quick texts, or with --user your own (set: at most 20)"),
         withReports(quicktexts)},
        {QStringLiteral("push"), QStringLiteral("[mode [VALUE]|security [VALUE]|pairs [SMSC,GATEWAY...]|whitelist] [--trace]"),
         QStringLiteral("the WAP push settings: mode, security, allowed pairs, whitelist and browser filter"),
         withReports(push)},
    });

} // namespace
} // namespace msgctr
