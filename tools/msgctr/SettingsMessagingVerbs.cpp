// msgctr settings quicktexts and push: the messaging settings that are more than one key, through the
// settings object, so that its checks and reports apply.
#include "LibraryReports.h"
#include "Verb.h"

#include "MSGCTR_ENG_SetupInfo.h"

#include <vector>

namespace msgctr {
namespace {

using Info = MSGCTR_ENG_SetupInfo;
using Pair = Info::WAP_PPG_INFO_S;

int quicktexts(const Args& args, Output& out)
{
    const bool user = args.has(QStringLiteral("--user"));
    Info info(MSGCTR_ENG_Setup::FLUSH_MODE__FLUSH);
    QStringList texts;
    if (!args.has(QStringLiteral("ACTION"))) {
        if (args.has(QStringLiteral("TEXT")))
            return usage(QStringLiteral("settings quicktexts takes [--user] [set TEXT...], not '%1'")
                             .arg(args.texts(QStringLiteral("TEXT")).first()));
        if (user)
            info.getUserDefinedQuickTexts(&texts);
        else
            info.getDefaultQuickTexts(&texts);
        out.field(QStringLiteral("quick_texts"), QJsonArray::fromStringList(texts));
        return ExitOk;
    }
    if (!user)
        return usage(QStringLiteral("the default quick texts come from the language's resource file: use --user set"));
    texts = args.texts(QStringLiteral("TEXT"));
    // The library refuses a longer list without an error code; say so rather than pretend it was stored.
    if (texts.size() > Info::getMaximumPermitCountOfUserDefineQuickTexts()) {
        info.setUserDefinedQuickTexts(texts);
        return fail(QStringLiteral("at most %1 quick texts of your own; nothing was stored")
                        .arg(Info::getMaximumPermitCountOfUserDefineQuickTexts()));
    }
    const MSGCTR_ERRCODE code = info.setUserDefinedQuickTexts(texts);
    if (MSGCTR_ERRCODE_IS_ERROR(code))
        return libraryFailure(QStringLiteral("MSGCTR_ENG_SetupInfo::setUserDefinedQuickTexts"), code);
    QStringList stored;
    info.getUserDefinedQuickTexts(&stored);
    out.field(QStringLiteral("quick_texts"), QJsonArray::fromStringList(stored));
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
QString valueName(const NamedValue (&names)[N], int value)
{
    for (const NamedValue& n : names) {
        if (n.value == value)
            return QLatin1String(n.name);
    }
    return QStringLiteral("out of range");
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
    bool ok = false;
    *value = text.toInt(&ok, 10);
    return ok;
}

QJsonArray pairsJson(const std::vector<Pair>& pairs)
{
    QJsonArray list;
    for (const Pair& pair : pairs)
        list.append(QJsonObject{{QStringLiteral("smsc"), pair.m_strSmsc}, {QStringLiteral("gateway"), pair.m_strPpg}});
    return list;
}

void showPush(Info& info, const QString& what, Output& out)
{
    const bool all = what.isEmpty();
    if (all || what == QLatin1String("mode")) {
        const int mode = info.getWapAllowedPushSmscMode();
        out.field(QStringLiteral("mode"), mode).field(QStringLiteral("mode_name"), valueName(kModes, mode));
    }
    if (all || what == QLatin1String("security")) {
        const int security = info.getPushSerLoadingSecurityType();
        out.field(QStringLiteral("security"), security).field(QStringLiteral("security_name"), valueName(kSecurityTypes, security));
    }
    if (all || what == QLatin1String("pairs"))
        out.field(QStringLiteral("pairs"), pairsJson(info.getWapAllowedPpgS()));
    if (all || what == QLatin1String("whitelist")) {
        out.field(QStringLiteral("whitelist"), pairsJson(info.getWapWhitelistPairS()));
        out.field(QStringLiteral("browser_filter"), info.getOperaPushWhitelist());
    }
}

int push(const Args& args, Output& out)
{
    Info info(MSGCTR_ENG_Setup::FLUSH_MODE__FLUSH);
    const QString what = args.text(QStringLiteral("WHAT"));
    const QStringList values = args.texts(QStringLiteral("VALUE"));
    if (what.isEmpty() && !values.isEmpty())
        return usage(QStringLiteral("settings push takes mode, security, pairs or whitelist before a VALUE"));
    MSGCTR_ERRCODE code = MSGCTR_ERRCODE__SUCCESS;
    QString operation;
    if (what == QLatin1String("mode") || what == QLatin1String("security")) {
        if (values.size() > 1)
            return usage(QStringLiteral("settings push %1 takes at most one VALUE").arg(what));
        if (values.size() == 1) {
            int value = 0;
            const bool mode = what == QLatin1String("mode");
            if (!(mode ? parseValue(kModes, values.first(), &value) : parseValue(kSecurityTypes, values.first(), &value)))
                return usage(mode ? QStringLiteral("'%1' is not off, all, restricted or a number").arg(values.first())
                                  : QStringLiteral("'%1' is not ask, allow, deny or a number").arg(values.first()));
            code = mode ? info.setWapAllowedPushSmscMode(value) : info.setPushSerLoadingSecurityType(value);
            operation = mode ? QStringLiteral("MSGCTR_ENG_SetupInfo::setWapAllowedPushSmscMode")
                             : QStringLiteral("MSGCTR_ENG_SetupInfo::setPushSerLoadingSecurityType");
        }
    } else if (what == QLatin1String("pairs")) {
        if (!values.isEmpty()) {
            std::vector<Pair> pairs;
            for (const QString& value : values) {
                const QStringList fields = value.split(QLatin1Char(','));
                if (fields.size() != 2)
                    return usage(QStringLiteral("'%1' is not a pair SMSC,GATEWAY").arg(value));
                Pair pair;
                pair.m_strSmsc = fields.at(0);
                pair.m_strPpg = fields.at(1);
                pairs.push_back(pair);
            }
            code = info.setWapAllowedPpgS(pairs);
            operation = QStringLiteral("MSGCTR_ENG_SetupInfo::setWapAllowedPpgS");
        }
    } else if (what == QLatin1String("whitelist") && !values.isEmpty()) {
        return usage(QStringLiteral("settings push whitelist takes nothing: its keys are the product's"));
    }
    if (MSGCTR_ERRCODE_IS_ERROR(code))
        return libraryFailure(operation, code);
    showPush(info, what, out);
    return ExitOk;
}

const VerbRegistration registration(
    QStringLiteral("settings"), QString(),
    {
        Verb(QStringLiteral("quicktexts"),
             QStringLiteral("the system language's quick texts, or with --user your own (set: at most 20)"),
             withReports(quicktexts))
            .arg(flag(QStringLiteral("--user"), QStringLiteral("your own quick texts instead of the language's")))
            .arg(choice(QStringLiteral("ACTION"), {QStringLiteral("set")},
                        QStringLiteral("replace your own quick texts (with --user)")).optional())
            .arg(text(QStringLiteral("TEXT"), QStringLiteral("the quick texts, in order")).repeated().optional())
            .arg(traceFlag())
            .writesWhenGiven(QStringLiteral("ACTION"))
            .fields(QStringLiteral("quick_texts (list of texts)")),
        Verb(QStringLiteral("push"),
             QStringLiteral("the WAP push settings: mode, security, allowed pairs, whitelist and browser filter"),
             withReports(push))
            .arg(choice(QStringLiteral("WHAT"), {QStringLiteral("mode"), QStringLiteral("security"), QStringLiteral("pairs"),
                                                 QStringLiteral("whitelist")},
                        QStringLiteral("only this setting")).optional())
            .arg(text(QStringLiteral("VALUE"), QStringLiteral("set it first: off, all, restricted or a number (mode); "
                                                              "ask, allow, deny or a number (security); SMSC,GATEWAY "
                                                              "pairs (pairs)")).repeated().optional())
            .arg(traceFlag())
            .writesWhenGiven(QStringLiteral("VALUE"))
            .fields(QStringLiteral("mode (number), mode_name (text), security (number), security_name (text), "
                                   "pairs and whitelist (lists of {smsc (text), gateway (text)}), browser_filter (text)")),
    });

} // namespace
} // namespace msgctr
