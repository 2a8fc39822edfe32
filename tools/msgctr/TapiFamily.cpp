// msgctr tapi: the simulated modem and SIM card, shown and changed as a person would on a phone.
#include "Command.h"

#include "TAPI.h"
#include "ZorHostControl.h"
#include "ZorHostTapiControl.h"

#include <cstdlib>
#include <cstring>

namespace msgctr {
namespace {

QString resultText(int result)
{
    switch (result) {
    case TAPI_RESULT_IO_ERROR: return QStringLiteral("the modem's storage could not be read or written");
    case TAPI_RESULT_NO_MEMORY: return QStringLiteral("out of memory");
    case TAPI_RESULT_ACCESS_DENIED: return QStringLiteral("the SIM refuses the change");
    case TAPI_RESULT_INVALID_PARAM: return QStringLiteral("invalid argument");
    case TAPI_RESULT_LIST_FULL: return QStringLiteral("the list is full");
    case TAPI_RESULT_NOT_SUPPORTED: return QStringLiteral("not supported by the modem or SIM");
    case TAPI_RESULT_SIM_NOT_READY: return QStringLiteral("no usable SIM card");
    case TAPI_RESULT_NOT_FOUND: return QStringLiteral("not found");
    default: return QStringLiteral("telephony failure");
    }
}

int tapiFailure(const char* function, int result)
{
    return failure(QStringLiteral("%1 failed with result %2 (%3)").arg(QLatin1String(function)).arg(result).arg(resultText(result)));
}

bool parseRange(const QString& text, qlonglong lo, qlonglong hi, qlonglong* value)
{
    return parseInteger(text, value) && *value >= lo && *value <= hi;
}

int rangeError(const QString& what, const QString& text, qlonglong lo, qlonglong hi)
{
    return usageError(QStringLiteral("%1 must be a number from %2 to %3, not '%4'").arg(what).arg(lo).arg(hi).arg(text));
}

bool parseOnOff(const QString& text, bool* on)
{
    if (text == QLatin1String("on") || text == QLatin1String("1") || text == QLatin1String("yes")) {
        *on = true;
        return true;
    }
    if (text == QLatin1String("off") || text == QLatin1String("0") || text == QLatin1String("no")) {
        *on = false;
        return true;
    }
    return false;
}

// A telephone number as the platform takes it: Latin-1, at most 41 characters.
bool toNumberBuffer(const QString& text, char* buffer, QString* problem)
{
    const QByteArray latin1 = text.toLatin1();
    if (QString::fromLatin1(latin1) != text || latin1.contains('\0')) {
        *problem = QStringLiteral("the number '%1' holds characters outside Latin-1").arg(text);
        return false;
    }
    if (latin1.size() > TAPI_PHONE_NUMBER_LEN - 1) {
        *problem = QStringLiteral("the number has %1 characters; at most %2 fit").arg(latin1.size()).arg(TAPI_PHONE_NUMBER_LEN - 1);
        return false;
    }
    std::memset(buffer, 0, TAPI_PHONE_NUMBER_LEN);
    std::memcpy(buffer, latin1.constData(), size_t(latin1.size()));
    return true;
}

// A name as the platform takes it: at most 51 UTF-16 units, in host order or big-endian.
bool toNameBuffer(const QString& text, bool bigEndian, unsigned short* buffer, QString* problem)
{
    if (text.size() > TAPI_PHONEBOOK_NAME_UNITS || text.contains(QChar(0))) {
        *problem = QStringLiteral("the name has %1 UTF-16 units; at most %2 fit").arg(text.size()).arg(TAPI_PHONEBOOK_NAME_UNITS);
        return false;
    }
    std::memset(buffer, 0, sizeof(TAPI_PHONEBOOK_NAME_A));
    for (qsizetype i = 0; i < text.size(); ++i) {
        const unsigned short unit = text.at(i).unicode();
        if (bigEndian) {
            unsigned char* bytes = reinterpret_cast<unsigned char*>(buffer + i);
            bytes[0] = static_cast<unsigned char>(unit >> 8);
            bytes[1] = static_cast<unsigned char>(unit & 0xFF);
        } else {
            buffer[i] = unit;
        }
    }
    return true;
}

QString fromNameBuffer(const unsigned short* buffer)
{
    int length = 0;
    while (length < TAPI_PHONEBOOK_NAME_UNITS && buffer[length])
        ++length;
    return QString(reinterpret_cast<const QChar*>(buffer), length);
}

QString fromNumberBuffer(const char* buffer)
{
    return QString::fromLatin1(buffer, qsizetype(strnlen(buffer, TAPI_PHONE_NUMBER_LEN)));
}

int show(const QStringList& args)
{
    if (!args.isEmpty())
        return usageError(QStringLiteral("tapi show takes no arguments"));
    const QStringList lines = ZorHost::tapiStateText().split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    for (const QString& line : lines)
        if (!line.startsWith(QLatin1Char('#')))
            out(line);
    return ExitOk;
}

int numberVerb(const QStringList& args, const char* verb, const char* what, int (*get)(char*), const char* getName,
               int (*set)(const char*), const char* setName)
{
    if (args.size() > 1)
        return usageError(QStringLiteral("tapi %1 takes at most one NUMBER").arg(QLatin1String(verb)));
    if (args.isEmpty()) {
        char buffer[TAPI_PHONE_NUMBER_LEN] = {};
        const int r = get(buffer);
        if (r != TAPI_RESULT_SUCC)
            return tapiFailure(getName, r);
        out(fromNumberBuffer(buffer));
        return ExitOk;
    }
    char buffer[TAPI_PHONE_NUMBER_LEN];
    QString problem;
    if (!toNumberBuffer(args.first(), buffer, &problem))
        return usageError(problem);
    const int r = set(buffer);
    if (r != TAPI_RESULT_SUCC)
        return tapiFailure(setName, r);
    out(QStringLiteral("%1 set to '%2'").arg(QLatin1String(what), args.first()));
    return ExitOk;
}

int emailGateway(const QStringList& args)
{
    return numberVerb(args, "email-gateway", "e-mail gateway", TAPI_SMS_GetEmailGateway, "TAPI_SMS_GetEmailGateway",
                      TAPI_SMS_SetEmailGateway, "TAPI_SMS_SetEmailGateway");
}

int simStatus(const QStringList& args)
{
    if (args.size() > 1)
        return usageError(QStringLiteral("tapi sim-status takes at most one STATUS"));
    if (args.isEmpty()) {
        _TAPI_SIM_STATUS_E status = TAPI_SIM_STATUS_NO_CARD;
        const int r = TAPI_ACCE_GetSimCardStatus(&status);
        if (r != TAPI_RESULT_SUCC)
            return tapiFailure("TAPI_ACCE_GetSimCardStatus", r);
        const int s = int(status);
        out(s == 3 ? QStringLiteral("3 (SIM ready)") : s == 4 ? QStringLiteral("4 (USIM ready)")
                                                             : QStringLiteral("%1 (no usable card)").arg(s));
        return ExitOk;
    }
    qlonglong status = 0;
    if (!parseRange(args.first(), -2147483647LL - 1, 2147483647LL, &status))
        return usageError(QStringLiteral("the SIM status must be a number (3 SIM ready, 4 USIM ready), not '%1'").arg(args.first()));
    if (!ZorHost::setSimCardStatus(int(status)))
        return failure(QStringLiteral("the SIM status could not be stored under %1").arg(ZorHost::root()));
    out(QStringLiteral("SIM status set to %1").arg(status));
    return ExitOk;
}

int service(const QStringList& args)
{
    if (args.isEmpty() || args.size() > 2)
        return usageError(QStringLiteral("tapi service takes an ID and optionally on or off"));
    qlonglong id = 0;
    if (!parseRange(args.first(), -2147483647LL - 1, 2147483647LL, &id))
        return usageError(QStringLiteral("'%1' is not a service id (2348 mailbox numbers, 2349 message waiting)").arg(args.first()));
    if (args.size() == 1) {
        out(TAPI_FTRDB_GetAvailability(int(id)) ? QStringLiteral("available") : QStringLiteral("not available"));
        return ExitOk;
    }
    bool on = false;
    if (!parseOnOff(args.at(1), &on))
        return usageError(QStringLiteral("service availability must be on or off, not '%1'").arg(args.at(1)));
    if (!ZorHost::setTapiServiceAvailable(int(id), on))
        return failure(QStringLiteral("the service could not be stored under %1").arg(ZorHost::root()));
    out(QStringLiteral("service %1 %2").arg(id).arg(on ? QStringLiteral("available") : QStringLiteral("not available")));
    return ExitOk;
}

int cbState(const QStringList& args)
{
    if (args.size() > 1)
        return usageError(QStringLiteral("tapi cb-state takes at most one STATE"));
    if (args.isEmpty()) {
        unsigned char state = 0;
        const int r = TAPI_CB_GetStatus(&state);
        if (r != TAPI_RESULT_SUCC)
            return tapiFailure("TAPI_CB_GetStatus", r);
        out(QString::number(state));
        return ExitOk;
    }
    qlonglong state = 0;
    if (!parseRange(args.first(), 0, 255, &state))
        return rangeError(QStringLiteral("the cell-broadcast state"), args.first(), 0, 255);
    const int r = TAPI_CB_SetStatus(static_cast<unsigned char>(state));
    if (r != TAPI_RESULT_SUCC)
        return tapiFailure("TAPI_CB_SetStatus", r);
    out(QStringLiteral("cell-broadcast state set to %1").arg(state));
    return ExitOk;
}

int channels(const QStringList& args)
{
    if (!args.isEmpty())
        return usageError(QStringLiteral("tapi channels takes no arguments"));
    int count = 0;
    unsigned short* list = nullptr;
    const int r = TAPI_CB_GetChannelsEx(&count, &list);
    QStringList numbers;
    if (r == TAPI_RESULT_SUCC && list)
        for (int i = 0; i < count; ++i)
            numbers << QString::number(list[i]);
    std::free(list);
    if (r != TAPI_RESULT_SUCC)
        return tapiFailure("TAPI_CB_GetChannelsEx", r);
    out(numbers.isEmpty() ? QStringLiteral("no channels") : numbers.join(QLatin1Char(' ')));
    return ExitOk;
}

int channelChange(const QStringList& args, bool add)
{
    const QString verb = add ? QStringLiteral("channel-add") : QStringLiteral("channel-del");
    if (args.size() != 1)
        return usageError(QStringLiteral("tapi %1 takes one CHANNEL").arg(verb));
    qlonglong channel = 0;
    if (!parseRange(args.first(), 0, 65534, &channel))
        return rangeError(QStringLiteral("a channel"), args.first(), 0, 65534);
    const int r = add ? TAPI_CB_AddChannel(static_cast<unsigned short>(channel))
                      : TAPI_CB_DeleteChannel(static_cast<unsigned short>(channel));
    if (r != TAPI_RESULT_SUCC)
        return tapiFailure(add ? "TAPI_CB_AddChannel" : "TAPI_CB_DeleteChannel", r);
    out(QStringLiteral("channel %1 %2").arg(channel).arg(add ? QStringLiteral("added") : QStringLiteral("deleted")));
    return ExitOk;
}

int languageSlots(const QStringList& args)
{
    if (args.size() == 1 || args.size() > 2)
        return usageError(QStringLiteral("tapi slots takes nothing, or a SLOT and a LANGUAGE code"));
    if (args.isEmpty()) {
        int count = 0;
        unsigned char* list = nullptr;
        const int r = TAPI_CB_GetLanguagesEx(&count, &list);
        QStringList lines;
        if (r == TAPI_RESULT_SUCC && list)
            for (int i = 0; i < count; ++i)
                lines << QStringLiteral("slot %1: %2").arg(i).arg(list[i]);
        std::free(list);
        if (r != TAPI_RESULT_SUCC)
            return tapiFailure("TAPI_CB_GetLanguagesEx", r);
        if (lines.isEmpty())
            out(QStringLiteral("no language slots"));
        for (const QString& l : lines)
            out(l);
        return ExitOk;
    }
    qlonglong slot = 0;
    qlonglong language = 0;
    if (!parseRange(args.at(0), 0, 65535, &slot))
        return rangeError(QStringLiteral("a slot"), args.at(0), 0, 65535);
    if (!parseRange(args.at(1), 0, 255, &language))
        return rangeError(QStringLiteral("a language code"), args.at(1), 0, 255);
    const int r = TAPI_CB_SetLanguage(static_cast<unsigned short>(slot), static_cast<unsigned char>(language));
    if (r != TAPI_RESULT_SUCC)
        return tapiFailure("TAPI_CB_SetLanguage", r);
    out(QStringLiteral("slot %1 set to %2").arg(slot).arg(language));
    return ExitOk;
}

int slotCount(const QStringList& args)
{
    if (args.size() != 1)
        return usageError(QStringLiteral("tapi slot-count takes one COUNT"));
    qlonglong count = 0;
    if (!parseRange(args.first(), 0, 255, &count))
        return rangeError(QStringLiteral("the number of slots"), args.first(), 0, 255);
    if (!ZorHost::setCbLanguageSlotCount(int(count)))
        return failure(QStringLiteral("the slots could not be stored under %1").arg(ZorHost::root()));
    out(QStringLiteral("%1 language slots").arg(count));
    return ExitOk;
}

// Shared by the GSM phase 2+ mailboxes (by type) and the CPHS voice mailboxes (by line).
int mailboxVerb(const QStringList& args, bool cphs)
{
    const QString verb = cphs ? QStringLiteral("cphs-mailbox") : QStringLiteral("mailbox");
    if (args.isEmpty() || args.size() > 3)
        return usageError(cphs ? QStringLiteral("tapi cphs-mailbox takes a LINE (1 or 2) and optionally NUMBER and NAME")
                               : QStringLiteral("tapi mailbox takes a TYPE (0 voice, 1 fax, 2 e-mail, 3 other) and optionally NUMBER and NAME"));
    qlonglong index = 0;
    const qlonglong lo = cphs ? 1 : 0;
    const qlonglong hi = cphs ? 2 : 3;
    if (!parseRange(args.first(), lo, hi, &index))
        return rangeError(cphs ? QStringLiteral("the line") : QStringLiteral("the mailbox type"), args.first(), lo, hi);
    char number[TAPI_PHONE_NUMBER_LEN] = {};
    TAPI_PHONEBOOK_NAME_A name = {};
    const unsigned char key = static_cast<unsigned char>(index);
    if (args.size() == 1) {
        const int r = cphs ? TAPI_MAILBOX_CphsGetVoiceMailBox(key, number, name) : TAPI_MAILBOX_Gsmr4GetEntry(key, number, name);
        if (r != TAPI_RESULT_SUCC)
            return tapiFailure(cphs ? "TAPI_MAILBOX_CphsGetVoiceMailBox" : "TAPI_MAILBOX_Gsmr4GetEntry", r);
        out(QStringLiteral("number: %1").arg(fromNumberBuffer(number)));
        out(QStringLiteral("name: %1").arg(fromNameBuffer(name)));
        return ExitOk;
    }
    QString problem;
    if (!toNumberBuffer(args.at(1), number, &problem)
        || !toNameBuffer(args.size() > 2 ? args.at(2) : QString(), !cphs, name, &problem))
        return usageError(problem);
    const int r = cphs ? TAPI_MAILBOX_CphsSetVoiceMailBox(key, number, name) : TAPI_MAILBOX_Gsmr4SetEntry(key, number, name);
    if (r != TAPI_RESULT_SUCC)
        return tapiFailure(cphs ? "TAPI_MAILBOX_CphsSetVoiceMailBox" : "TAPI_MAILBOX_Gsmr4SetEntry", r);
    out(QStringLiteral("%1 %2 set").arg(verb).arg(index));
    return ExitOk;
}

int mailCount(const QStringList& args)
{
    if (args.isEmpty() || args.size() > 2)
        return usageError(QStringLiteral("tapi mail-count takes a TYPE (0 to 3) and optionally a COUNT"));
    qlonglong type = 0;
    if (!parseRange(args.first(), 0, 3, &type))
        return rangeError(QStringLiteral("the mailbox type"), args.first(), 0, 3);
    if (args.size() == 1) {
        unsigned char count = 0;
        const int r = TAPI_MAILBOX_Gsmr4GetMailCount(static_cast<unsigned char>(type), &count);
        if (r != TAPI_RESULT_SUCC)
            return tapiFailure("TAPI_MAILBOX_Gsmr4GetMailCount", r);
        out(QString::number(count));
        return ExitOk;
    }
    qlonglong count = 0;
    if (!parseRange(args.at(1), 0, 255, &count))
        return rangeError(QStringLiteral("the count"), args.at(1), 0, 255);
    const int r = TAPI_MAILBOX_Gsmr4SetMailCount(static_cast<unsigned char>(type), static_cast<unsigned char>(count));
    if (r != TAPI_RESULT_SUCC)
        return tapiFailure("TAPI_MAILBOX_Gsmr4SetMailCount", r);
    out(QStringLiteral("mailbox %1 count set to %2").arg(type).arg(count));
    return ExitOk;
}

int waiting(const QStringList& args)
{
    if (args.isEmpty() || args.size() > 2)
        return usageError(QStringLiteral("tapi waiting takes a LINE (0 or 1) and optionally on or off"));
    qlonglong line = 0;
    if (!parseRange(args.first(), 0, 1, &line))
        return rangeError(QStringLiteral("the line"), args.first(), 0, 1);
    if (args.size() == 1) {
        out(ZorHost::cphsMessageWaitingFlag(int(line)) ? QStringLiteral("waiting") : QStringLiteral("not waiting"));
        return ExitOk;
    }
    bool on = false;
    if (!parseOnOff(args.at(1), &on))
        return usageError(QStringLiteral("the waiting flag must be on or off, not '%1'").arg(args.at(1)));
    const int r = TAPI_CPHS_SetMessageWaitingFlag(static_cast<unsigned char>(line), on ? 1 : 0);
    if (r != TAPI_RESULT_SUCC)
        return tapiFailure("TAPI_CPHS_SetMessageWaitingFlag", r);
    out(QStringLiteral("line %1 %2").arg(line).arg(on ? QStringLiteral("waiting") : QStringLiteral("not waiting")));
    return ExitOk;
}

int transportMode(const QStringList& args)
{
    if (args.size() > 1)
        return usageError(QStringLiteral("tapi transport-mode takes at most one MODE (1 off, 2 on)"));
    if (args.isEmpty()) {
        unsigned char mode = 0;
        const int r = TAPI_SMS_GetSmsTransportMode(&mode);
        if (r != TAPI_RESULT_SUCC)
            return tapiFailure("TAPI_SMS_GetSmsTransportMode", r);
        out(mode == TAPI_SMS_TRANSPORT_GPRS_ON ? QStringLiteral("2 (SMS over GPRS on)") : QStringLiteral("1 (SMS over GPRS off)"));
        return ExitOk;
    }
    qlonglong mode = 0;
    if (!parseRange(args.first(), 1, 2, &mode))
        return rangeError(QStringLiteral("the transport mode"), args.first(), 1, 2);
    const int r = TAPI_SMS_SetSmsTransportMode(static_cast<unsigned char>(mode));
    if (r != TAPI_RESULT_SUCC)
        return tapiFailure("TAPI_SMS_SetSmsTransportMode", r);
    out(QStringLiteral("transport mode set to %1").arg(mode));
    return ExitOk;
}

int transportSupported(const QStringList& args)
{
    if (args.size() > 1)
        return usageError(QStringLiteral("tapi transport-supported takes at most one of on or off"));
    if (args.isEmpty()) {
        out(ZorHost::smsTransportModeSupported() ? QStringLiteral("supported") : QStringLiteral("not supported"));
        return ExitOk;
    }
    bool on = false;
    if (!parseOnOff(args.first(), &on))
        return usageError(QStringLiteral("transport-mode support must be on or off, not '%1'").arg(args.first()));
    if (!ZorHost::setSmsTransportModeSupported(on))
        return failure(QStringLiteral("the setting could not be stored under %1").arg(ZorHost::root()));
    out(on ? QStringLiteral("transport mode supported") : QStringLiteral("transport mode not supported"));
    return ExitOk;
}

int usimRule(const QStringList& args)
{
    if (args.isEmpty() || args.size() > 2)
        return usageError(QStringLiteral("tapi usim-rule takes a FILE id and optionally a RULE"));
    qlonglong file = 0;
    if (!parseRange(args.first(), 0, 255, &file))
        return rangeError(QStringLiteral("the file id"), args.first(), 0, 255);
    if (args.size() == 1) {
        const int rule = ZorHost::usimAccessRule(static_cast<unsigned char>(file));
        if (rule < 0)
            return failure(QStringLiteral("the card has no USIM file %1").arg(file));
        out(QString::number(rule));
        return ExitOk;
    }
    qlonglong rule = 0;
    if (!parseRange(args.at(1), 0, 255, &rule))
        return rangeError(QStringLiteral("the access rule"), args.at(1), 0, 255);
    if (!ZorHost::setUsimAccessRule(static_cast<unsigned char>(file), static_cast<unsigned char>(rule)))
        return failure(QStringLiteral("the rule could not be stored under %1").arg(ZorHost::root()));
    out(QStringLiteral("USIM file %1 access rule set to %2").arg(file).arg(rule));
    return ExitOk;
}

const FamilyRegistration registration(QStringLiteral("tapi"), QStringLiteral("the simulated modem and SIM card (telephony)"),
    {
        {QStringLiteral("show"), QString(), QStringLiteral("print the whole SIM and modem state"), show},
        {QStringLiteral("email-gateway"), QStringLiteral("[NUMBER]"), QStringLiteral("get or set the e-mail gateway number"), emailGateway},
        {QStringLiteral("sim-status"), QStringLiteral("[STATUS]"), QStringLiteral("get or set the SIM card status (3 SIM ready, 4 USIM ready)"), simStatus},
        {QStringLiteral("service"), QStringLiteral("ID [on|off]"), QStringLiteral("get or set a SIM service (2348 mailbox numbers, 2349 message waiting)"), service},
        {QStringLiteral("usim-rule"), QStringLiteral("FILE [RULE]"), QStringLiteral("get or set the access rule of a USIM file"), usimRule},
        {QStringLiteral("cb-state"), QStringLiteral("[STATE]"), QStringLiteral("get or set the cell-broadcast state byte"), cbState},
        {QStringLiteral("channels"), QString(), QStringLiteral("list the subscribed cell-broadcast channels"), channels},
        {QStringLiteral("channel-add"), QStringLiteral("CHANNEL"), QStringLiteral("subscribe a channel (0 to 65534)"), [](const QStringList& a) { return channelChange(a, true); }},
        {QStringLiteral("channel-del"), QStringLiteral("CHANNEL"), QStringLiteral("unsubscribe a channel"), [](const QStringList& a) { return channelChange(a, false); }},
        {QStringLiteral("slots"), QStringLiteral("[SLOT LANGUAGE]"), QStringLiteral("list the language slots, or write one"), languageSlots},
        {QStringLiteral("slot-count"), QStringLiteral("COUNT"), QStringLiteral("set the number of language slots"), slotCount},
        {QStringLiteral("mailbox"), QStringLiteral("TYPE [NUMBER [NAME]]"), QStringLiteral("get or set a GSM phase 2+ mailbox entry"), [](const QStringList& a) { return mailboxVerb(a, false); }},
        {QStringLiteral("mail-count"), QStringLiteral("TYPE [COUNT]"), QStringLiteral("get or set the waiting count of a mailbox"), mailCount},
        {QStringLiteral("cphs-mailbox"), QStringLiteral("LINE [NUMBER [NAME]]"), QStringLiteral("get or set the CPHS voice mailbox of line 1 or 2"), [](const QStringList& a) { return mailboxVerb(a, true); }},
        {QStringLiteral("waiting"), QStringLiteral("LINE [on|off]"), QStringLiteral("get or set the CPHS message-waiting flag of line 0 or 1"), waiting},
        {QStringLiteral("transport-mode"), QStringLiteral("[MODE]"), QStringLiteral("get or set the SMS transport mode (1 GPRS off, 2 on)"), transportMode},
        {QStringLiteral("transport-supported"), QStringLiteral("[on|off]"), QStringLiteral("whether the modem reports the transport mode"), transportSupported},
    });

} // namespace
} // namespace msgctr
