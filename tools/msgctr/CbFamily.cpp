// msgctr cb: the info service (cell broadcast): reception state, the stored channel list beside the
// telephony side's subscriptions, and the languages with their slots. Everything goes through the
// library, so its checks and reports apply.
#include "Command.h"
#include "LibraryReports.h"

#include "MSGCTR_ENG_InfoServLang.h"
#include "MSGCTR_ENG_InfoServLangMngr_S.h"
#include "MSGCTR_ENG_SetupInfo.h"
#include "MSGCTR_ENG_TAPI.h"

#include <algorithm>
#include <vector>

namespace msgctr {
namespace {

using Info = MSGCTR_ENG_SetupInfo;

QString channelError(MSGCTR_ERRCODE code, int number)
{
    switch (code) {
    case MSGCTR_ERRCODE__CHANNEL_NOT_FOUND:
        return QStringLiteral("channel %1 is not in the list").arg(number);
    case MSGCTR_ERRCODE__CHANNEL_ALREADY_EXISTS:
        return QStringLiteral("channel %1 is in the list already").arg(number);
    case MSGCTR_ERRCODE__CHANNEL_OUT_OF_RANGE:
        return QStringLiteral("channel %1 is out of range (0 to 65534)").arg(number);
    case MSGCTR_ERRCODE__SETUP_INVALID_CHAR:
        return QStringLiteral("a channel name cannot hold \",\", \";\", \"[\", \"]\", \"=\" or line breaks");
    default:
        return QStringLiteral("the channel list was not changed: error %1").arg(code);
    }
}

bool parseChannel(const QString& text, int* number)
{
    qlonglong value = 0;
    if (!parseInteger(text, &value) || value < -1 || value > 65535)
        return false;
    *number = int(value);
    return true;
}

int state(const QStringList& args)
{
    if (args.size() > 1)
        return usageError(QStringLiteral("cb state takes nothing, on, off or a VALUE 0 to 255"));
    if (args.size() == 1) {
        qlonglong value = 0;
        if (args.first() == QLatin1String("on"))
            value = 1;
        else if (args.first() == QLatin1String("off"))
            value = 0;
        else if (!parseInteger(args.first(), &value) || value < 0 || value > 255)
            return usageError(QStringLiteral("'%1' is not on, off or a VALUE 0 to 255").arg(args.first()));
        const MSGCTR_ERRCODE code = MSGCTR_ENG_TAPI::errcodeCbSetCbState(static_cast<unsigned char>(value));
        if (MSGCTR_ERRCODE_IS_ERROR(code))
            return failure(QStringLiteral("the cell broadcast state was not set: error %1").arg(code));
    }
    unsigned char cbState = 0;
    const MSGCTR_ERRCODE code = MSGCTR_ENG_TAPI::errcodeCbGetCbState(&cbState);
    if (MSGCTR_ERRCODE_IS_ERROR(code))
        return failure(QStringLiteral("the cell broadcast state cannot be read: error %1").arg(code));
    out(QStringLiteral("cell broadcast state %1").arg(cbState));
    return ExitOk;
}

// The stored channels in stored order, then the subscriptions the list lacks, each with both sides.
int listChannels()
{
    Info info(MSGCTR_ENG_Setup::FLUSH_MODE__FLUSH);
    const Info::InfoServAllChnlInfo channels = info.getInfoServAllChnlInfo();
    std::vector<unsigned short> subscribed;
    const MSGCTR_ERRCODE code = MSGCTR_ENG_TAPI::errcodeCbListCbChannels(&subscribed);
    if (MSGCTR_ERRCODE_IS_ERROR(code))
        return failure(QStringLiteral("the subscribed channels cannot be read: error %1").arg(code));
    const auto isSubscribed = [&](int number) {
        return number >= 0 && number <= 0xFFFF
            && MSGCTR_ENG_TAPI::cbChannelNumberIsInside(static_cast<unsigned short>(number), subscribed);
    };
    if (channels.empty() && subscribed.empty())
        out(QStringLiteral("(no channels)"));
    for (const Info::INFO_SERV_CHNL_INFO_S& channel : channels) {
        out(QStringLiteral("%1 \"%2\" quick view %3, %4, %5")
                .arg(channel.m_nChannelNum)
                .arg(channel.m_strChannelName, channel.m_bQuickView ? QStringLiteral("on") : QStringLiteral("off"),
                     channel.m_bPredefined ? QStringLiteral("predefined") : QStringLiteral("user-defined"),
                     isSubscribed(channel.m_nChannelNum) ? QStringLiteral("subscribed")
                                                         : QStringLiteral("not subscribed")));
    }
    for (unsigned short number : subscribed) {
        if (!channels.containsChannelNum(number))
            out(QStringLiteral("%1 (not in the list), subscribed").arg(number));
    }
    return ExitOk;
}

int channels(const QStringList& args)
{
    if (args.isEmpty())
        return listChannels();
    const QString action = args.first();
    const QStringList rest = args.mid(1);
    const QStringList actions{QStringLiteral("add"), QStringLiteral("remove"), QStringLiteral("rename"),
                              QStringLiteral("quickview")};
    if (!actions.contains(action))
        return usageError(QStringLiteral("cb channels takes add, remove, rename or quickview, not '%1'").arg(action));
    const int wanted = action == QLatin1String("remove") ? 1 : 2;
    if (rest.size() != wanted)
        return usageError(action == QLatin1String("remove")
                              ? QStringLiteral("cb channels remove takes a channel NUMBER")
                              : QStringLiteral("cb channels %1 takes a channel NUMBER and %2")
                                    .arg(action, action == QLatin1String("quickview") ? QStringLiteral("on or off")
                                                                                      : QStringLiteral("a NAME")));
    int number = 0;
    if (!parseChannel(rest.first(), &number))
        return usageError(QStringLiteral("'%1' is not a channel number").arg(rest.first()));

    Info info(MSGCTR_ENG_Setup::FLUSH_MODE__FLUSH);
    MSGCTR_ERRCODE code = MSGCTR_ERRCODE__SUCCESS;
    if (action == QLatin1String("add")) {
        code = info.addInfoServChannel(number, rest.at(1));
        // A channel in the list is also received.
        if (MSGCTR_ERRCODE_IS_SUCCESS(code) && !MSGCTR_ENG_TAPI::cbChannelNumberIsDuplicated(static_cast<unsigned short>(number))) {
            const MSGCTR_ERRCODE subscribed = MSGCTR_ENG_TAPI::errcodeCbAddCbChannel(static_cast<unsigned short>(number));
            if (MSGCTR_ERRCODE_IS_ERROR(subscribed))
                return failure(QStringLiteral("channel %1 is in the list but not subscribed: error %2").arg(number).arg(subscribed));
        }
    } else if (action == QLatin1String("remove")) {
        code = info.removeInfoServChannel(number);
        if (MSGCTR_ERRCODE_IS_SUCCESS(code) && number >= 0 && number <= 0xFFFF
            && MSGCTR_ENG_TAPI::cbChannelNumberIsDuplicated(static_cast<unsigned short>(number))) {
            const MSGCTR_ERRCODE unsubscribed =
                MSGCTR_ENG_TAPI::errcodeCbRemoveCbChannel(static_cast<unsigned short>(number));
            if (MSGCTR_ERRCODE_IS_ERROR(unsubscribed))
                return failure(QStringLiteral("channel %1 left the list but is still subscribed: error %2")
                                   .arg(number)
                                   .arg(unsubscribed));
        }
    } else if (action == QLatin1String("rename")) {
        code = info.updateInfoServChannel(number, rest.at(1));
    } else {
        const QString& choice = rest.at(1);
        if (choice != QLatin1String("on") && choice != QLatin1String("off"))
            return usageError(QStringLiteral("cb channels quickview takes on or off, not '%1'").arg(choice));
        code = info.updateInfoServChannelQuickView(number, choice == QLatin1String("on"));
    }
    if (MSGCTR_ERRCODE_IS_ERROR(code))
        return failure(channelError(code, number));
    return listChannels();
}

QString languageError(MSGCTR_ERRCODE code, int langID)
{
    switch (code) {
    case MSGCTR_ERRCODE__NO_FREE_LANGUAGE_SLOT:
        return QStringLiteral("no free slot for language %1 (a slot is free when it repeats another slot's language)")
            .arg(langID);
    case MSGCTR_ERRCODE__CANNOT_DISABLE_DEFAULT_LANGUAGE:
        return QStringLiteral("language %1 is the system language and cannot be switched off").arg(langID);
    default:
        return QStringLiteral("language %1 was not switched: error %2").arg(langID).arg(code);
    }
}

int listLanguages()
{
    MSGCTR_ENG_InfoServLang::INFO_SERV_ALL_LANG_INFO_S all;
    const MSGCTR_ERRCODE code = MSGCTR_ENG_InfoServLang::getAllLangInfo(&all);
    if (MSGCTR_ERRCODE_IS_ERROR(code))
        return failure(QStringLiteral("the language slots cannot be read: error %1").arg(code));
    MSGCTR_ENG_InfoServLangMngr_S manager;
    manager.loadDataFromTapi();
    for (const MSGCTR_ENG_InfoServLang::INFO_SERV_LANG_INFO_S& info : all.m_vecLangInfo) {
        QStringList slotNumbers;
        for (const MSGCTR_ENG_InfoServLangMngr_S::LANG_ID_AND_INDEX_S& entry : manager.m_vecLangIDAndIndexLoaded) {
            if (entry.m_langID == info.m_langID)
                slotNumbers.append(QString::number(entry.m_nIndex));
        }
        QString line = QStringLiteral("%1 %2").arg(info.m_langID).arg(info.m_strLangName);
        if (info.m_langID == all.m_defaultLangID)
            line += QStringLiteral(" (system language)");
        line += info.m_bActivated ? QStringLiteral(" on") : QStringLiteral(" off");
        if (!slotNumbers.isEmpty())
            line += (slotNumbers.size() == 1 ? QStringLiteral(", slot ") : QStringLiteral(", slots "))
                + slotNumbers.join(QLatin1Char(','));
        out(line);
    }
    return ExitOk;
}

int languages(const QStringList& args)
{
    if (args.isEmpty())
        return listLanguages();
    if (args.size() != 2 || (args.first() != QLatin1String("on") && args.first() != QLatin1String("off")))
        return usageError(QStringLiteral("cb languages takes nothing, or on or off and a language ID"));
    qlonglong langID = 0;
    if (!parseInteger(args.at(1), &langID) || langID < 0 || langID > 255
        || !MSGCTR_ENG_InfoServLang::langIDValueIsKnownToMe(static_cast<unsigned char>(langID)))
        return usageError(QStringLiteral("'%1' is not a language ID of the list (msgctr cb languages)").arg(args.at(1)));
    const MSGCTR_ERRCODE code =
        MSGCTR_ENG_InfoServLang::activateLang(static_cast<unsigned char>(langID), args.first() == QLatin1String("on"));
    if (MSGCTR_ERRCODE_IS_ERROR(code))
        return failure(languageError(code, int(langID)));
    return listLanguages();
}

const FamilyRegistration registration(
    QStringLiteral("cb"), QStringLiteral("the info service: cell broadcast state, channels and languages"),
    {
        {QStringLiteral("state"), QStringLiteral("[on|off|VALUE] [--trace]"),
         QStringLiteral("print the reception state byte, or set it first (on 1, off 0)"), withReports(state)},
        {QStringLiteral("channels"), QStringLiteral("[add N NAME|remove N|rename N NAME|quickview N on|off] [--trace]"),
         QStringLiteral("the stored channel list beside the subscriptions; add and remove also (un)subscribe"),
         withReports(channels)},
        {QStringLiteral("languages"), QStringLiteral("[on|off ID] [--trace]"),
         QStringLiteral("the languages with their state and slots, or switch one on or off first"),
         withReports(languages)},
    });

} // namespace
} // namespace msgctr
