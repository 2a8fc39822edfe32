// msgctr profile mms: the MMS profiles through the library's profile operations, so that their checks and
// reports apply.
#include "Command.h"

#include "MSGCTR_ENG_MMSProfileApi.h"
#include "MSGCTR_ENG_UTIL_Dbg.h"

#include <cstdio>
#include <vector>

namespace msgctr {
namespace {

using Api = MSGCTR_ENG_MMSProfileApi;

QStringList g_reportLines;

void keepReportLine(const char* line)
{
    g_reportLines.append(QString::fromLatin1(line));
}

// The library's report lines of a failed operation go with its error.
int profileFailure(const QString& what, MSGCTR_ERRCODE code)
{
    for (const QString& line : std::as_const(g_reportLines))
        std::fprintf(stderr, "%s\n", line.toLatin1().constData());
    return failure(QStringLiteral("%1: error %2").arg(what).arg(code));
}

QString storedDefault()
{
    Api::PROFILE_ID_S id;
    return Api::getDefaultProfileID(&id) == MSGCTR_ERRCODE__SUCCESS ? id.string() : QString();
}

int list(const QStringList& args)
{
    if (!args.isEmpty())
        return usageError(QStringLiteral("profile mms list takes no arguments"));
    std::vector<Api::MMSProfileIDAndData_S> profiles;
    const MSGCTR_ERRCODE code = Api::listAllProfileS(&profiles);
    if (MSGCTR_ERRCODE_IS_ERROR(code))
        return profileFailure(QStringLiteral("the MMS profiles cannot be listed"), code);
    if (profiles.empty())
        out(QStringLiteral("(no MMS profiles)"));
    const QString defaultId = storedDefault();
    for (const Api::MMSProfileIDAndData_S& p : profiles)
        out(QStringLiteral("%1 %2  %3%4")
                .arg(p.profID.string() == defaultId ? QLatin1Char('*') : QLatin1Char(' '))
                .arg(p.profID.string(), p.profData.strProfileName,
                     p.profData.bReadonly ? QStringLiteral("  [read-only]") : QString()));
    return ExitOk;
}

int show(const QStringList& args)
{
    if (args.size() != 1)
        return usageError(QStringLiteral("profile mms show takes one ID"));
    const Api::PROFILE_ID_S id(args.first());
    Api::MMSProfileData_S data;
    const MSGCTR_ERRCODE code = Api::getProfile(&data, id);
    if (MSGCTR_ERRCODE_IS_ERROR(code))
        return profileFailure(QStringLiteral("the MMS profile %1 cannot be read").arg(args.first()), code);
    out(QStringLiteral("id: %1").arg(id.string()));
    out(QStringLiteral("name: %1").arg(data.strProfileName));
    out(QStringLiteral("mmsc: %1").arg(data.strMMSC));
    out(QStringLiteral("int-prof: %1").arg(data.strIntProf));
    out(QStringLiteral("int-prof2: %1").arg(data.strIntProf2));
    out(QStringLiteral("size-limit: %1").arg(data.nMOSizeLimit));
    out(QStringLiteral("readonly: %1").arg(data.bReadonly ? QStringLiteral("yes") : QStringLiteral("no")));
    out(QStringLiteral("default: %1").arg(storedDefault() == id.string() ? QStringLiteral("yes") : QStringLiteral("no")));
    return ExitOk;
}

// Applies the field options in args to data; false with a usage error's status in *status.
bool takeFields(QStringList* args, Api::MMSProfileData_S* data, int* status)
{
    bool given = false;
    QString value;
    const struct {
        const char* option;
        QString* field;
    } texts[] = {{"--name", &data->strProfileName},
                 {"--mmsc", &data->strMMSC},
                 {"--int-prof", &data->strIntProf},
                 {"--int-prof2", &data->strIntProf2}};
    for (const auto& t : texts) {
        if (!takeOption(args, QString::fromLatin1(t.option), &value, &given, status))
            return false;
        if (given)
            *t.field = value;
    }
    if (!takeOption(args, QStringLiteral("--size-limit"), &value, &given, status))
        return false;
    if (given) {
        qlonglong limit = 0;
        if (!parseInteger(value, &limit) || limit < INT32_MIN || limit > INT32_MAX) {
            *status = usageError(QStringLiteral("--size-limit needs a whole number, not '%1'").arg(value));
            return false;
        }
        data->nMOSizeLimit = int(limit);
    }
    const bool readonly = args->removeAll(QStringLiteral("--readonly")) > 0;
    const bool writable = args->removeAll(QStringLiteral("--writable")) > 0;
    if (readonly && writable) {
        *status = usageError(QStringLiteral("--readonly and --writable exclude each other"));
        return false;
    }
    if (readonly || writable)
        data->bReadonly = readonly;
    if (!args->isEmpty()) {
        *status = usageError(QStringLiteral("unexpected '%1'").arg(args->first()));
        return false;
    }
    return true;
}

int add(const QStringList& args)
{
    QStringList rest = args;
    Api::MMSProfileData_S data;
    int status = ExitOk;
    if (!rest.contains(QStringLiteral("--name")))
        return usageError(QStringLiteral("profile mms add needs --name"));
    if (!takeFields(&rest, &data, &status))
        return status;
    // Ids come from a generator seeded with the current second, so runs started within one second draw
    // the same ids: a taken id fails the add, and the next id of the sequence is free.
    constexpr int kAttempts = 16;
    Api::PROFILE_ID_S id;
    MSGCTR_ERRCODE code = Api::addProfile(&id, data);
    for (int attempt = 1; attempt < kAttempts && id.isNull() && code == MSGCTR_ERRCODE__DM_UNKNOWN_RESULT; ++attempt) {
        g_reportLines.clear();
        code = Api::addProfile(&id, data);
    }
    if (MSGCTR_ERRCODE_IS_ERROR(code))
        return profileFailure(QStringLiteral("the MMS profile was not added"), code);
    out(id.string());
    return ExitOk;
}

int update(const QStringList& args)
{
    if (args.isEmpty())
        return usageError(QStringLiteral("profile mms update takes an ID and the fields to change"));
    QStringList rest = args.mid(1);
    const Api::PROFILE_ID_S id(args.first());
    Api::MMSProfileData_S data;
    MSGCTR_ERRCODE code = Api::getProfile(&data, id);
    if (MSGCTR_ERRCODE_IS_ERROR(code))
        return profileFailure(QStringLiteral("the MMS profile %1 cannot be read").arg(args.first()), code);
    int status = ExitOk;
    if (!takeFields(&rest, &data, &status))
        return status;
    code = Api::updateProfile(id, data);
    if (MSGCTR_ERRCODE_IS_ERROR(code))
        return profileFailure(QStringLiteral("the MMS profile %1 was not updated").arg(args.first()), code);
    return ExitOk;
}

int remove(const QStringList& args)
{
    if (args.size() != 1)
        return usageError(QStringLiteral("profile mms remove takes one ID"));
    const MSGCTR_ERRCODE code = Api::removeProfile(Api::PROFILE_ID_S(args.first()));
    if (MSGCTR_ERRCODE_IS_ERROR(code))
        return profileFailure(QStringLiteral("the MMS profile %1 was not removed").arg(args.first()), code);
    return ExitOk;
}

int defaultProfile(const QStringList& args)
{
    if (args.size() > 1)
        return usageError(QStringLiteral("profile mms default takes at most one ID or --safe"));
    Api::PROFILE_ID_S id;
    MSGCTR_ERRCODE code = MSGCTR_ERRCODE__SUCCESS;
    if (args.isEmpty()) {
        code = Api::getDefaultProfileID(&id);
    } else if (args.first() == QLatin1String("--safe")) {
        code = Api::getDefaultProfileIDSafe(&id);
    } else {
        code = Api::setDefaultProfileID(Api::PROFILE_ID_S(args.first()));
        if (MSGCTR_ERRCODE_IS_SUCCESS(code))
            code = Api::getDefaultProfileID(&id);
    }
    if (MSGCTR_ERRCODE_IS_ERROR(code))
        return profileFailure(QStringLiteral("the default MMS profile cannot be had"), code);
    out(id.isNull() ? QStringLiteral("(no default)") : id.string());
    return ExitOk;
}

int mms(const QStringList& args)
{
    if (args.isEmpty())
        return usageError(QStringLiteral("profile mms needs list, show, add, update, remove or default"));
    MSGCTR_ENG_UTIL_Dbg::setCallbackPrintln(keepReportLine);
    const QString action = args.first();
    const QStringList rest = args.mid(1);
    if (action == QLatin1String("list"))
        return list(rest);
    if (action == QLatin1String("show"))
        return show(rest);
    if (action == QLatin1String("add"))
        return add(rest);
    if (action == QLatin1String("update"))
        return update(rest);
    if (action == QLatin1String("remove"))
        return remove(rest);
    if (action == QLatin1String("default"))
        return defaultProfile(rest);
    return usageError(QStringLiteral("unknown action 'profile mms %1' (see msgctr profile --help)").arg(action));
}

const FamilyRegistration registration(
    QStringLiteral("profile"), QStringLiteral("list and edit the message profiles kept in the DM tree"),
    {
        {QStringLiteral("mms"),
         QStringLiteral("list | show ID | add --name N [--mmsc URL] [--int-prof P] [--int-prof2 P] [--size-limit N] "
                        "[--readonly] | update ID [same options, --writable] | remove ID | default [ID|--safe]"),
         QStringLiteral("the MMS profiles: list them sorted by name (* marks the default), show, add, update, "
                        "remove, or print, set or repair the default"),
         mms},
    });

} // namespace
} // namespace msgctr
