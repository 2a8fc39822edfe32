// msgctr profile mms: the MMS profiles through the library's profile operations, so that their checks and
// reports apply.
#include "LibraryReports.h"
#include "Verb.h"

#include "MSGCTR_ENG_MMSProfileApi.h"

#include <cstdint>
#include <vector>

namespace msgctr {
namespace {

using Api = MSGCTR_ENG_MMSProfileApi;

QString storedDefault()
{
    Api::PROFILE_ID_S id;
    return Api::getDefaultProfileID(&id) == MSGCTR_ERRCODE__SUCCESS ? id.string() : QString();
}

int list(Output& out)
{
    std::vector<Api::MMSProfileIDAndData_S> profiles;
    const MSGCTR_ERRCODE code = Api::listAllProfileS(&profiles);
    if (MSGCTR_ERRCODE_IS_ERROR(code))
        return libraryFailure(QStringLiteral("MSGCTR_ENG_MMSProfileApi::listAllProfileS"), code);
    const QString defaultId = storedDefault();
    QJsonArray list;
    for (const Api::MMSProfileIDAndData_S& p : profiles)
        list.append(QJsonObject{{QStringLiteral("id"), p.profID.string()},
                                {QStringLiteral("name"), p.profData.strProfileName},
                                {QStringLiteral("readonly"), p.profData.bReadonly},
                                {QStringLiteral("default"), p.profID.string() == defaultId}});
    out.field(QStringLiteral("profiles"), list);
    return ExitOk;
}

void showProfile(const Api::PROFILE_ID_S& id, const Api::MMSProfileData_S& data, Output& out)
{
    out.field(QStringLiteral("id"), id.string())
        .field(QStringLiteral("name"), data.strProfileName)
        .field(QStringLiteral("mmsc"), data.strMMSC)
        .field(QStringLiteral("int_prof"), data.strIntProf)
        .field(QStringLiteral("int_prof2"), data.strIntProf2)
        .field(QStringLiteral("size_limit"), data.nMOSizeLimit)
        .field(QStringLiteral("readonly"), data.bReadonly)
        .field(QStringLiteral("default"), storedDefault() == id.string());
}

int show(const Api::PROFILE_ID_S& id, Output& out)
{
    Api::MMSProfileData_S data;
    const MSGCTR_ERRCODE code = Api::getProfile(&data, id);
    if (MSGCTR_ERRCODE_IS_ERROR(code))
        return libraryFailure(QStringLiteral("MSGCTR_ENG_MMSProfileApi::getProfile"), code);
    showProfile(id, data, out);
    return ExitOk;
}

// Applies the field options given to data.
void takeFields(const Args& args, Api::MMSProfileData_S* data)
{
    const struct {
        const char* option;
        QString* field;
    } texts[] = {{"--name", &data->strProfileName},
                 {"--mmsc", &data->strMMSC},
                 {"--int-prof", &data->strIntProf},
                 {"--int-prof2", &data->strIntProf2}};
    for (const auto& t : texts) {
        if (args.has(QString::fromLatin1(t.option)))
            *t.field = args.text(QString::fromLatin1(t.option));
    }
    if (args.has(QStringLiteral("--size-limit")))
        data->nMOSizeLimit = int(args.number(QStringLiteral("--size-limit")));
    if (args.has(QStringLiteral("--readonly")))
        data->bReadonly = true;
    if (args.has(QStringLiteral("--writable")))
        data->bReadonly = false;
}

int add(const Args& args, Output& out)
{
    if (!args.has(QStringLiteral("--name")))
        return usage(QStringLiteral("profile mms add needs --name"));
    Api::MMSProfileData_S data;
    takeFields(args, &data);
    // Ids come from a generator seeded with the current second, so runs started within one second draw
    // the same ids: a taken id fails the add, and the next id of the sequence is free.
    constexpr int kAttempts = 16;
    Api::PROFILE_ID_S id;
    MSGCTR_ERRCODE code = Api::addProfile(&id, data);
    for (int attempt = 1; attempt < kAttempts && id.isNull() && code == MSGCTR_ERRCODE__DM_UNKNOWN_RESULT; ++attempt)
        code = Api::addProfile(&id, data);
    if (MSGCTR_ERRCODE_IS_ERROR(code))
        return libraryFailure(QStringLiteral("MSGCTR_ENG_MMSProfileApi::addProfile"), code);
    showProfile(id, data, out);
    return ExitOk;
}

int update(const Api::PROFILE_ID_S& id, const Args& args, Output& out)
{
    Api::MMSProfileData_S data;
    MSGCTR_ERRCODE code = Api::getProfile(&data, id);
    if (MSGCTR_ERRCODE_IS_ERROR(code))
        return libraryFailure(QStringLiteral("MSGCTR_ENG_MMSProfileApi::getProfile"), code);
    takeFields(args, &data);
    code = Api::updateProfile(id, data);
    if (MSGCTR_ERRCODE_IS_ERROR(code))
        return libraryFailure(QStringLiteral("MSGCTR_ENG_MMSProfileApi::updateProfile"), code);
    showProfile(id, data, out);
    return ExitOk;
}

int remove(const Api::PROFILE_ID_S& id, Output& out)
{
    const MSGCTR_ERRCODE code = Api::removeProfile(id);
    if (MSGCTR_ERRCODE_IS_ERROR(code))
        return libraryFailure(QStringLiteral("MSGCTR_ENG_MMSProfileApi::removeProfile"), code);
    out.field(QStringLiteral("removed"), id.string());
    return ExitOk;
}

int defaultProfile(const Args& args, Output& out)
{
    Api::PROFILE_ID_S id;
    MSGCTR_ERRCODE code = MSGCTR_ERRCODE__SUCCESS;
    QString operation = QStringLiteral("MSGCTR_ENG_MMSProfileApi::getDefaultProfileID");
    if (args.has(QStringLiteral("ID"))) {
        code = Api::setDefaultProfileID(Api::PROFILE_ID_S(args.text(QStringLiteral("ID"))));
        if (MSGCTR_ERRCODE_IS_ERROR(code))
            operation = QStringLiteral("MSGCTR_ENG_MMSProfileApi::setDefaultProfileID");
        else
            code = Api::getDefaultProfileID(&id);
    } else if (args.has(QStringLiteral("--safe"))) {
        code = Api::getDefaultProfileIDSafe(&id);
        operation = QStringLiteral("MSGCTR_ENG_MMSProfileApi::getDefaultProfileIDSafe");
    } else {
        code = Api::getDefaultProfileID(&id);
    }
    if (MSGCTR_ERRCODE_IS_ERROR(code))
        return libraryFailure(operation, code);
    out.field(QStringLiteral("default"), id.isNull() ? QJsonValue() : QJsonValue(id.string()));
    return ExitOk;
}

// Which options each action takes; anything else given is refused.
bool optionsFit(const QString& action, const Args& args, QString* error)
{
    const QStringList fieldOptions{QStringLiteral("--name"), QStringLiteral("--mmsc"), QStringLiteral("--int-prof"),
                                   QStringLiteral("--int-prof2"), QStringLiteral("--size-limit"),
                                   QStringLiteral("--readonly"), QStringLiteral("--writable")};
    QStringList allowed;
    if (action == QLatin1String("add"))
        allowed = fieldOptions.mid(0, 6);
    else if (action == QLatin1String("update"))
        allowed = fieldOptions;
    else if (action == QLatin1String("default"))
        allowed = QStringList{QStringLiteral("--safe")};
    for (const QString& option : fieldOptions + QStringList{QStringLiteral("--safe")}) {
        if (args.has(option) && !allowed.contains(option)) {
            *error = QStringLiteral("profile mms %1 does not take %2").arg(action, option);
            return false;
        }
    }
    if (args.has(QStringLiteral("--readonly")) && args.has(QStringLiteral("--writable"))) {
        *error = QStringLiteral("--readonly and --writable exclude each other");
        return false;
    }
    const bool needsId = action == QLatin1String("show") || action == QLatin1String("update")
        || action == QLatin1String("remove");
    const bool takesId = needsId || action == QLatin1String("default");
    if (needsId && !args.has(QStringLiteral("ID"))) {
        *error = QStringLiteral("profile mms %1 needs an ID").arg(action);
        return false;
    }
    if (args.has(QStringLiteral("ID")) && (!takesId || args.has(QStringLiteral("--safe")))) {
        *error = takesId ? QStringLiteral("profile mms default takes an ID or --safe, not both")
                         : QStringLiteral("profile mms %1 takes no ID").arg(action);
        return false;
    }
    return true;
}

int mms(const Args& args, Output& out)
{
    const QString action = args.text(QStringLiteral("ACTION"));
    QString error;
    if (!optionsFit(action, args, &error))
        return usage(error);
    const Api::PROFILE_ID_S id(args.text(QStringLiteral("ID")));
    if (action == QLatin1String("list"))
        return list(out);
    if (action == QLatin1String("show"))
        return show(id, out);
    if (action == QLatin1String("add"))
        return add(args, out);
    if (action == QLatin1String("update"))
        return update(id, args, out);
    if (action == QLatin1String("remove"))
        return remove(id, out);
    return defaultProfile(args, out);
}

Arg textOption(const QString& name, const QString& valueName, const QString& help)
{
    return text(name, help).as(valueName);
}

const VerbRegistration registration(
    QStringLiteral("profile"), QStringLiteral("list and edit the message profiles kept in the DM tree"),
    {
        Verb(QStringLiteral("mms"),
             QStringLiteral("the MMS profiles: list them sorted by name, show, add, update, remove, or print, set or "
                            "repair the default"),
             withReports(mms))
            .arg(choice(QStringLiteral("ACTION"), {QStringLiteral("list"), QStringLiteral("show"), QStringLiteral("add"),
                                                   QStringLiteral("update"), QStringLiteral("remove"), QStringLiteral("default")},
                        QStringLiteral("what to do")))
            .arg(text(QStringLiteral("ID"), QStringLiteral("the profile (show, update, remove; default: make it the default)")).optional())
            .arg(textOption(QStringLiteral("--name"), QStringLiteral("NAME"), QStringLiteral("the profile's name (add needs it)")))
            .arg(textOption(QStringLiteral("--mmsc"), QStringLiteral("URL"), QStringLiteral("the MMS centre")))
            .arg(textOption(QStringLiteral("--int-prof"), QStringLiteral("P"), QStringLiteral("the internet profile")))
            .arg(textOption(QStringLiteral("--int-prof2"), QStringLiteral("P"), QStringLiteral("the second internet profile")))
            .arg(integer(QStringLiteral("--size-limit"), INT32_MIN, INT32_MAX, QStringLiteral("the largest message to send")))
            .arg(flag(QStringLiteral("--readonly"), QStringLiteral("mark the profile read-only (add, update)")))
            .arg(flag(QStringLiteral("--writable"), QStringLiteral("clear the read-only mark (update)")))
            .arg(flag(QStringLiteral("--safe"), QStringLiteral("default: repair a default that names no profile")))
            .arg(traceFlag())
            .writes()
            .fields(QStringLiteral("list: profiles (list of {id (text), name (text), readonly (bool), default (bool)}); "
                                   "show, add, update: id, name, mmsc, int_prof, int_prof2 (text), size_limit (number), "
                                   "readonly, default (bool); remove: removed (text); default: default (text or null)")),
    });

} // namespace
} // namespace msgctr
