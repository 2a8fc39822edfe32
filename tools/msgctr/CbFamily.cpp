// msgctr cb: the info service (cell broadcast): reception state, the stored channel list beside the
// telephony side's subscriptions, and the languages with their slots. Everything goes through the
// library, so its checks and reports apply.
#include "Catalogue.h"
#include "LibraryReports.h"
#include "Verb.h"

#include "MSGCTR_ENG_InfoServLang.h"
#include "MSGCTR_ENG_InfoServLangMngr_S.h"
#include "MSGCTR_ENG_SetupInfo.h"
#include "MSGCTR_ENG_TAPI.h"

#include <algorithm>
#include <vector>

namespace msgctr {
namespace {

using Info = MSGCTR_ENG_SetupInfo;

int state(const Args& args, Output& out)
{
    if (args.has(QStringLiteral("STATE"))) {
        const QString given = args.text(QStringLiteral("STATE"));
        bool ok = given == QLatin1String("on") || given == QLatin1String("off");
        int value = given == QLatin1String("on") ? 1 : 0;
        if (!ok) {
            value = given.toInt(&ok, 10);
            ok = ok && value >= 0 && value <= 255;
        }
        if (!ok)
            return usage(QStringLiteral("STATE must be on, off or a number from 0 to 255, not '%1'").arg(given));
        const MSGCTR_ERRCODE code = MSGCTR_ENG_TAPI::errcodeCbSetCbState(static_cast<unsigned char>(value));
        if (MSGCTR_ERRCODE_IS_ERROR(code))
            return libraryFailure(QStringLiteral("MSGCTR_ENG_TAPI::errcodeCbSetCbState"), code);
    }
    unsigned char cbState = 0;
    const MSGCTR_ERRCODE code = MSGCTR_ENG_TAPI::errcodeCbGetCbState(&cbState);
    if (MSGCTR_ERRCODE_IS_ERROR(code))
        return libraryFailure(QStringLiteral("MSGCTR_ENG_TAPI::errcodeCbGetCbState"), code);
    out.field(QStringLiteral("cb_state"), int(cbState));
    return ExitOk;
}

// The stored channels in stored order, then the subscriptions the list lacks, each with both sides.
int listChannels(Output& out)
{
    Info info(MSGCTR_ENG_Setup::FLUSH_MODE__FLUSH);
    const Info::InfoServAllChnlInfo channels = info.getInfoServAllChnlInfo();
    std::vector<unsigned short> subscribed;
    const MSGCTR_ERRCODE code = MSGCTR_ENG_TAPI::errcodeCbListCbChannels(&subscribed);
    if (MSGCTR_ERRCODE_IS_ERROR(code))
        return libraryFailure(QStringLiteral("MSGCTR_ENG_TAPI::errcodeCbListCbChannels"), code);
    const auto isSubscribed = [&](int number) {
        return number >= 0 && number <= 0xFFFF
            && MSGCTR_ENG_TAPI::cbChannelNumberIsInside(static_cast<unsigned short>(number), subscribed);
    };
    QJsonArray list;
    for (const Info::INFO_SERV_CHNL_INFO_S& channel : channels) {
        list.append(QJsonObject{{QStringLiteral("number"), channel.m_nChannelNum},
                                {QStringLiteral("name"), channel.m_strChannelName},
                                {QStringLiteral("in_list"), true},
                                {QStringLiteral("quick_view"), channel.m_bQuickView},
                                {QStringLiteral("predefined"), channel.m_bPredefined},
                                {QStringLiteral("subscribed"), isSubscribed(channel.m_nChannelNum)}});
    }
    for (unsigned short number : subscribed) {
        if (!channels.containsChannelNum(number))
            list.append(QJsonObject{{QStringLiteral("number"), int(number)},
                                    {QStringLiteral("in_list"), false},
                                    {QStringLiteral("subscribed"), true}});
    }
    out.field(QStringLiteral("channels"), list);
    return ExitOk;
}

int channels(const Args& args, Output& out)
{
    if (!args.has(QStringLiteral("ACTION"))) {
        if (args.has(QStringLiteral("NUMBER")))
            return usage(QStringLiteral("cb channels takes add, remove, rename or quickview before a NUMBER"));
        return listChannels(out);
    }
    const QString action = args.text(QStringLiteral("ACTION"));
    const bool remove = action == QLatin1String("remove");
    if (!args.has(QStringLiteral("NUMBER")))
        return usage(QStringLiteral("cb channels %1 needs a channel NUMBER").arg(action));
    if (remove == args.has(QStringLiteral("VALUE")))
        return usage(remove ? QStringLiteral("cb channels remove takes only a channel NUMBER")
                            : QStringLiteral("cb channels %1 needs a channel NUMBER and %2")
                                  .arg(action, action == QLatin1String("quickview") ? QStringLiteral("on or off")
                                                                                    : QStringLiteral("a NAME")));
    const int number = int(args.number(QStringLiteral("NUMBER")));
    const QString value = args.text(QStringLiteral("VALUE"));

    Info info(MSGCTR_ENG_Setup::FLUSH_MODE__FLUSH);
    MSGCTR_ERRCODE code = MSGCTR_ERRCODE__SUCCESS;
    QString operation;
    if (action == QLatin1String("add")) {
        code = info.addInfoServChannel(number, value);
        operation = QStringLiteral("MSGCTR_ENG_SetupInfo::addInfoServChannel");
        // A channel in the list is also received.
        if (MSGCTR_ERRCODE_IS_SUCCESS(code) && !MSGCTR_ENG_TAPI::cbChannelNumberIsDuplicated(static_cast<unsigned short>(number))) {
            const MSGCTR_ERRCODE subscribed = MSGCTR_ENG_TAPI::errcodeCbAddCbChannel(static_cast<unsigned short>(number));
            if (MSGCTR_ERRCODE_IS_ERROR(subscribed))
                return libraryFailure(QStringLiteral("MSGCTR_ENG_TAPI::errcodeCbAddCbChannel"), subscribed);
        }
    } else if (remove) {
        code = info.removeInfoServChannel(number);
        operation = QStringLiteral("MSGCTR_ENG_SetupInfo::removeInfoServChannel");
        if (MSGCTR_ERRCODE_IS_SUCCESS(code) && number >= 0 && number <= 0xFFFF
            && MSGCTR_ENG_TAPI::cbChannelNumberIsDuplicated(static_cast<unsigned short>(number))) {
            const MSGCTR_ERRCODE unsubscribed =
                MSGCTR_ENG_TAPI::errcodeCbRemoveCbChannel(static_cast<unsigned short>(number));
            if (MSGCTR_ERRCODE_IS_ERROR(unsubscribed))
                return libraryFailure(QStringLiteral("MSGCTR_ENG_TAPI::errcodeCbRemoveCbChannel"), unsubscribed);
        }
    } else if (action == QLatin1String("rename")) {
        code = info.updateInfoServChannel(number, value);
        operation = QStringLiteral("MSGCTR_ENG_SetupInfo::updateInfoServChannel");
    } else {
        if (value != QLatin1String("on") && value != QLatin1String("off"))
            return usage(QStringLiteral("cb channels quickview takes on or off, not '%1'").arg(value));
        code = info.updateInfoServChannelQuickView(number, value == QLatin1String("on"));
        operation = QStringLiteral("MSGCTR_ENG_SetupInfo::updateInfoServChannelQuickView");
    }
    if (MSGCTR_ERRCODE_IS_ERROR(code))
        return libraryFailure(operation, code);
    return listChannels(out);
}

int listLanguages(Output& out)
{
    // Some language names are resource identifiers, shown in the system language.
    loadSystemLanguageCatalogue();
    MSGCTR_ENG_InfoServLang::INFO_SERV_ALL_LANG_INFO_S all;
    const MSGCTR_ERRCODE code = MSGCTR_ENG_InfoServLang::getAllLangInfo(&all);
    if (MSGCTR_ERRCODE_IS_ERROR(code))
        return libraryFailure(QStringLiteral("MSGCTR_ENG_InfoServLang::getAllLangInfo"), code);
    MSGCTR_ENG_InfoServLangMngr_S manager;
    manager.loadDataFromTapi();
    QJsonArray list;
    for (const MSGCTR_ENG_InfoServLang::INFO_SERV_LANG_INFO_S& info : all.m_vecLangInfo) {
        QJsonArray slotNumbers;
        for (const MSGCTR_ENG_InfoServLangMngr_S::LANG_ID_AND_INDEX_S& entry : manager.m_vecLangIDAndIndexLoaded) {
            if (entry.m_langID == info.m_langID)
                slotNumbers.append(entry.m_nIndex);
        }
        list.append(QJsonObject{{QStringLiteral("id"), int(info.m_langID)},
                                {QStringLiteral("name"), info.m_strLangName},
                                {QStringLiteral("system_language"), info.m_langID == all.m_defaultLangID},
                                {QStringLiteral("on"), info.m_bActivated},
                                {QStringLiteral("slots"), slotNumbers}});
    }
    out.field(QStringLiteral("languages"), list);
    return ExitOk;
}

int languages(const Args& args, Output& out)
{
    if (args.has(QStringLiteral("ACTION")) != args.has(QStringLiteral("ID")))
        return usage(QStringLiteral("cb languages takes nothing, or on or off and a language ID"));
    if (!args.has(QStringLiteral("ACTION")))
        return listLanguages(out);
    const auto langID = static_cast<unsigned char>(args.number(QStringLiteral("ID")));
    if (!MSGCTR_ENG_InfoServLang::langIDValueIsKnownToMe(langID))
        return usage(QStringLiteral("%1 is not a language ID of the list (msgctr cb languages)").arg(int(langID)));
    const MSGCTR_ERRCODE code =
        MSGCTR_ENG_InfoServLang::activateLang(langID, args.text(QStringLiteral("ACTION")) == QLatin1String("on"));
    if (MSGCTR_ERRCODE_IS_ERROR(code))
        return libraryFailure(QStringLiteral("MSGCTR_ENG_InfoServLang::activateLang"), code);
    return listLanguages(out);
}

const VerbRegistration registration(
    QStringLiteral("cb"), QStringLiteral("the info service: cell broadcast state, channels and languages"),
    {
        Verb(QStringLiteral("state"), QStringLiteral("print the reception state byte, or set it first (on 1, off 0)"),
             withReports(state))
            .arg(text(QStringLiteral("STATE"), QStringLiteral("on, off or a number from 0 to 255")).optional())
            .arg(traceFlag())
            .writesWhenGiven(QStringLiteral("STATE"))
            .fields(QStringLiteral("cb_state (number)")),
        Verb(QStringLiteral("channels"),
             QStringLiteral("the stored channel list beside the subscriptions; add and remove also (un)subscribe"),
             withReports(channels))
            .arg(choice(QStringLiteral("ACTION"), {QStringLiteral("add"), QStringLiteral("remove"), QStringLiteral("rename"),
                                                   QStringLiteral("quickview")},
                        QStringLiteral("change the list first")).optional())
            .arg(integer(QStringLiteral("NUMBER"), -1, 65535, QStringLiteral("the channel")).optional())
            .arg(text(QStringLiteral("VALUE"), QStringLiteral("the NAME (add, rename), or on or off (quickview)")).optional())
            .arg(traceFlag())
            .writesWhenGiven(QStringLiteral("ACTION"))
            .fields(QStringLiteral("channels (list of {number (number), name (text), in_list (bool), quick_view (bool), "
                                   "predefined (bool), subscribed (bool)}; channels only subscribed have no name, "
                                   "quick_view or predefined)")),
        Verb(QStringLiteral("languages"), QStringLiteral("the languages with their state and slots, or switch one on or off first"),
             withReports(languages))
            .arg(choice(QStringLiteral("ACTION"), {QStringLiteral("on"), QStringLiteral("off")},
                        QStringLiteral("switch the language first")).optional())
            .arg(integer(QStringLiteral("ID"), 0, 255, QStringLiteral("the language ID (see msgctr cb languages)")).optional())
            .arg(traceFlag())
            .writesWhenGiven(QStringLiteral("ACTION"))
            .fields(QStringLiteral("languages (list of {id (number), name (text), system_language (bool), on (bool), "
                                   "slots (list of numbers)})")),
    });

} // namespace
} // namespace msgctr
