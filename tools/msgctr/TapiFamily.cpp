// msgctr tapi: the simulated modem and SIM card, shown and changed as a person would on a phone.
#include "Verb.h"

#include "TAPI.h"
#include "ZorHostControl.h"
#include "ZorHostTapiControl.h"

#include <cstdlib>
#include <cstring>

namespace msgctr {
namespace {

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

// A value of the state file: quoted texts with \" \\ \xHH \uHHHH escapes, whole numbers, or anything else as is.
QJsonValue stateValue(const QString& value)
{
    bool isInt = false;
    const qlonglong number = value.toLongLong(&isInt);
    if (isInt)
        return QJsonValue(number);
    if (value.size() < 2 || !value.startsWith(QLatin1Char('"')) || !value.endsWith(QLatin1Char('"')))
        return value;
    QString text;
    for (qsizetype i = 1; i + 1 < value.size(); ++i) {
        const QChar c = value.at(i);
        if (c != QLatin1Char('\\') || i + 2 >= value.size()) {
            text += c;
            continue;
        }
        const QChar kind = value.at(++i);
        const int digits = kind == QLatin1Char('x') ? 2 : kind == QLatin1Char('u') ? 4 : 0;
        if (digits == 0) {
            text += kind;
            continue;
        }
        text += QChar(char16_t(value.mid(i + 1, digits).toUShort(nullptr, 16)));
        i += digits;
    }
    return text;
}

int show(const Args&, Output& out)
{
    // The state is read through the platform first, so that an unreadable state is a failure, not the factory state.
    _TAPI_SIM_STATUS_E status = TAPI_SIM_STATUS_NO_CARD;
    const int r = TAPI_ACCE_GetSimCardStatus(&status);
    if (r == TAPI_RESULT_IO_ERROR)
        return tapiFailure(QStringLiteral("TAPI_ACCE_GetSimCardStatus"), r);
    const QStringList lines = ZorHost::tapiStateText().split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    for (const QString& line : lines) {
        const qsizetype equals = line.indexOf(QStringLiteral(" ="));
        if (line.startsWith(QLatin1Char('#')) || equals < 0)
            continue;
        out.field(line.left(equals), stateValue(line.mid(equals + 2).trimmed()));
    }
    return ExitOk;
}

int emailGateway(const Args& args, Output& out)
{
    char buffer[TAPI_PHONE_NUMBER_LEN] = {};
    if (args.has(QStringLiteral("NUMBER"))) {
        QString problem;
        if (!toNumberBuffer(args.text(QStringLiteral("NUMBER")), buffer, &problem))
            return usage(problem);
        const int r = TAPI_SMS_SetEmailGateway(buffer);
        if (r != TAPI_RESULT_SUCC)
            return tapiFailure(QStringLiteral("TAPI_SMS_SetEmailGateway"), r);
    }
    const int r = TAPI_SMS_GetEmailGateway(buffer);
    if (r != TAPI_RESULT_SUCC)
        return tapiFailure(QStringLiteral("TAPI_SMS_GetEmailGateway"), r);
    out.field(QStringLiteral("email_gateway"), fromNumberBuffer(buffer));
    return ExitOk;
}

QString simStatusName(int status)
{
    switch (status) {
    case TAPI_SIM_STATUS_NO_CARD: return QStringLiteral("no card");
    case TAPI_SIM_STATUS_PIN_REQUIRED: return QStringLiteral("PIN required");
    case TAPI_SIM_STATUS_PUK_REQUIRED: return QStringLiteral("PUK required");
    case TAPI_SIM_STATUS_SIM_READY: return QStringLiteral("SIM ready");
    case TAPI_SIM_STATUS_USIM_READY: return QStringLiteral("USIM ready");
    case TAPI_SIM_STATUS_BLOCKED: return QStringLiteral("blocked");
    case TAPI_SIM_STATUS_INITIALIZING: return QStringLiteral("initialising");
    default: return QStringLiteral("unknown");
    }
}

int simStatus(const Args& args, Output& out)
{
    if (args.has(QStringLiteral("STATUS")) && !ZorHost::setSimCardStatus(int(args.number(QStringLiteral("STATUS")))))
        return fail(QStringLiteral("the SIM status could not be stored under %1").arg(ZorHost::root()));
    _TAPI_SIM_STATUS_E status = TAPI_SIM_STATUS_NO_CARD;
    const int r = TAPI_ACCE_GetSimCardStatus(&status);
    if (r != TAPI_RESULT_SUCC)
        return tapiFailure(QStringLiteral("TAPI_ACCE_GetSimCardStatus"), r);
    out.field(QStringLiteral("sim_status"), int(status));
    out.field(QStringLiteral("meaning"), simStatusName(int(status)));
    return ExitOk;
}

int service(const Args& args, Output& out)
{
    const int id = int(args.number(QStringLiteral("ID")));
    if (args.has(QStringLiteral("BOOL")) && !ZorHost::setTapiServiceAvailable(id, args.boolean(QStringLiteral("BOOL"))))
        return fail(QStringLiteral("the service could not be stored under %1").arg(ZorHost::root()));
    out.field(QStringLiteral("service"), id);
    out.field(QStringLiteral("available"), TAPI_FTRDB_GetAvailability(id) != 0);
    return ExitOk;
}

int cbState(const Args& args, Output& out)
{
    if (args.has(QStringLiteral("STATE"))) {
        const int r = TAPI_CB_SetStatus(static_cast<unsigned char>(args.number(QStringLiteral("STATE"))));
        if (r != TAPI_RESULT_SUCC)
            return tapiFailure(QStringLiteral("TAPI_CB_SetStatus"), r);
    }
    unsigned char state = 0;
    const int r = TAPI_CB_GetStatus(&state);
    if (r != TAPI_RESULT_SUCC)
        return tapiFailure(QStringLiteral("TAPI_CB_GetStatus"), r);
    out.field(QStringLiteral("cb_state"), int(state));
    return ExitOk;
}

int channels(const Args&, Output& out)
{
    int count = 0;
    unsigned short* list = nullptr;
    const int r = TAPI_CB_GetChannelsEx(&count, &list);
    QJsonArray numbers;
    if (r == TAPI_RESULT_SUCC && list)
        for (int i = 0; i < count; ++i)
            numbers.append(int(list[i]));
    std::free(list);
    if (r != TAPI_RESULT_SUCC)
        return tapiFailure(QStringLiteral("TAPI_CB_GetChannelsEx"), r);
    out.field(QStringLiteral("channels"), numbers);
    return ExitOk;
}

int channelChange(const Args& args, Output& out, bool add)
{
    const int channel = int(args.number(QStringLiteral("CHANNEL")));
    const int r = add ? TAPI_CB_AddChannel(static_cast<unsigned short>(channel))
                      : TAPI_CB_DeleteChannel(static_cast<unsigned short>(channel));
    if (r != TAPI_RESULT_SUCC)
        return tapiFailure(add ? QStringLiteral("TAPI_CB_AddChannel") : QStringLiteral("TAPI_CB_DeleteChannel"), r);
    return channels(args, out);
}

bool languageSlots(QJsonArray* languages, int* result)
{
    int count = 0;
    unsigned char* list = nullptr;
    *result = TAPI_CB_GetLanguagesEx(&count, &list);
    if (*result == TAPI_RESULT_SUCC && list)
        for (int i = 0; i < count; ++i)
            languages->append(int(list[i]));
    std::free(list);
    return *result == TAPI_RESULT_SUCC;
}

int languageSlotsVerb(const Args& args, Output& out)
{
    QJsonArray languages;
    int r = TAPI_RESULT_SUCC;
    if (!languageSlots(&languages, &r))
        return tapiFailure(QStringLiteral("TAPI_CB_GetLanguagesEx"), r);
    if (args.has(QStringLiteral("SLOT"))) {
        if (!args.has(QStringLiteral("LANGUAGE")))
            return usage(QStringLiteral("tapi slots needs a LANGUAGE after the SLOT"));
        const int slot = int(args.number(QStringLiteral("SLOT")));
        if (slot >= languages.size())
            return fail(languages.isEmpty() ? QStringLiteral("slot %1 does not exist (there are no slots)").arg(slot)
                                            : QStringLiteral("slot %1 does not exist (0-%2)").arg(slot).arg(languages.size() - 1));
        r = TAPI_CB_SetLanguage(static_cast<unsigned short>(slot), static_cast<unsigned char>(args.number(QStringLiteral("LANGUAGE"))));
        if (r != TAPI_RESULT_SUCC)
            return tapiFailure(QStringLiteral("TAPI_CB_SetLanguage"), r);
        languages = QJsonArray();
        if (!languageSlots(&languages, &r))
            return tapiFailure(QStringLiteral("TAPI_CB_GetLanguagesEx"), r);
    }
    out.field(QStringLiteral("language_slots"), languages);
    return ExitOk;
}

int slotCount(const Args& args, Output& out)
{
    if (!ZorHost::setCbLanguageSlotCount(int(args.number(QStringLiteral("COUNT")))))
        return fail(QStringLiteral("the slots could not be stored under %1").arg(ZorHost::root()));
    return languageSlotsVerb(Args(), out);
}

// Shared by the GSM phase 2+ mailboxes (by type) and the CPHS voice mailboxes (by line). A value not given
// is left as it is.
int mailboxVerb(const Args& args, Output& out, bool cphs)
{
    const QString indexName = cphs ? QStringLiteral("LINE") : QStringLiteral("TYPE");
    const unsigned char key = static_cast<unsigned char>(args.number(indexName));
    const QString getName = cphs ? QStringLiteral("TAPI_MAILBOX_CphsGetVoiceMailBox") : QStringLiteral("TAPI_MAILBOX_Gsmr4GetEntry");
    char number[TAPI_PHONE_NUMBER_LEN] = {};
    TAPI_PHONEBOOK_NAME_A name = {};
    int r = cphs ? TAPI_MAILBOX_CphsGetVoiceMailBox(key, number, name) : TAPI_MAILBOX_Gsmr4GetEntry(key, number, name);
    if (r != TAPI_RESULT_SUCC)
        return tapiFailure(getName, r);
    if (args.has(QStringLiteral("NUMBER"))) {
        // The getter gives the name in host order; the GSM setter wants it big-endian.
        const QString newName = args.has(QStringLiteral("NAME")) ? args.text(QStringLiteral("NAME")) : fromNameBuffer(name);
        QString problem;
        if (!toNumberBuffer(args.text(QStringLiteral("NUMBER")), number, &problem)
            || !toNameBuffer(newName, !cphs, name, &problem))
            return usage(problem);
        r = cphs ? TAPI_MAILBOX_CphsSetVoiceMailBox(key, number, name) : TAPI_MAILBOX_Gsmr4SetEntry(key, number, name);
        if (r != TAPI_RESULT_SUCC)
            return tapiFailure(cphs ? QStringLiteral("TAPI_MAILBOX_CphsSetVoiceMailBox") : QStringLiteral("TAPI_MAILBOX_Gsmr4SetEntry"), r);
        r = cphs ? TAPI_MAILBOX_CphsGetVoiceMailBox(key, number, name) : TAPI_MAILBOX_Gsmr4GetEntry(key, number, name);
        if (r != TAPI_RESULT_SUCC)
            return tapiFailure(getName, r);
    }
    out.field(cphs ? QStringLiteral("line") : QStringLiteral("type"), int(key));
    out.field(QStringLiteral("number"), fromNumberBuffer(number));
    out.field(QStringLiteral("name"), fromNameBuffer(name));
    return ExitOk;
}

int mailCount(const Args& args, Output& out)
{
    const unsigned char type = static_cast<unsigned char>(args.number(QStringLiteral("TYPE")));
    if (args.has(QStringLiteral("COUNT"))) {
        const int r = TAPI_MAILBOX_Gsmr4SetMailCount(type, static_cast<unsigned char>(args.number(QStringLiteral("COUNT"))));
        if (r != TAPI_RESULT_SUCC)
            return tapiFailure(QStringLiteral("TAPI_MAILBOX_Gsmr4SetMailCount"), r);
    }
    unsigned char count = 0;
    const int r = TAPI_MAILBOX_Gsmr4GetMailCount(type, &count);
    if (r != TAPI_RESULT_SUCC)
        return tapiFailure(QStringLiteral("TAPI_MAILBOX_Gsmr4GetMailCount"), r);
    out.field(QStringLiteral("type"), int(type));
    out.field(QStringLiteral("count"), int(count));
    return ExitOk;
}

// Lines are numbered 1 and 2 here as on the phone; the platform's flag call counts them from 0.
int waiting(const Args& args, Output& out)
{
    const int line = int(args.number(QStringLiteral("LINE")));
    if (args.has(QStringLiteral("BOOL"))) {
        const int r = TAPI_CPHS_SetMessageWaitingFlag(static_cast<unsigned char>(line - 1), args.boolean(QStringLiteral("BOOL")) ? 1 : 0);
        if (r != TAPI_RESULT_SUCC)
            return tapiFailure(QStringLiteral("TAPI_CPHS_SetMessageWaitingFlag"), r);
    }
    out.field(QStringLiteral("line"), line);
    out.field(QStringLiteral("waiting"), ZorHost::cphsMessageWaitingFlag(line - 1));
    return ExitOk;
}

int transportMode(const Args& args, Output& out)
{
    if (args.has(QStringLiteral("MODE"))) {
        const int r = TAPI_SMS_SetSmsTransportMode(static_cast<unsigned char>(args.number(QStringLiteral("MODE"))));
        if (r != TAPI_RESULT_SUCC)
            return tapiFailure(QStringLiteral("TAPI_SMS_SetSmsTransportMode"), r);
    }
    unsigned char mode = 0;
    const int r = TAPI_SMS_GetSmsTransportMode(&mode);
    if (r != TAPI_RESULT_SUCC)
        return tapiFailure(QStringLiteral("TAPI_SMS_GetSmsTransportMode"), r);
    out.field(QStringLiteral("transport_mode"), int(mode));
    out.field(QStringLiteral("sms_over_gprs"), mode == TAPI_SMS_TRANSPORT_GPRS_ON);
    return ExitOk;
}

int transportSupported(const Args& args, Output& out)
{
    if (args.has(QStringLiteral("BOOL")) && !ZorHost::setSmsTransportModeSupported(args.boolean(QStringLiteral("BOOL"))))
        return fail(QStringLiteral("the setting could not be stored under %1").arg(ZorHost::root()));
    out.field(QStringLiteral("transport_mode_supported"), ZorHost::smsTransportModeSupported());
    return ExitOk;
}

int usimRule(const Args& args, Output& out)
{
    const unsigned char file = static_cast<unsigned char>(args.number(QStringLiteral("FILE")));
    if (args.has(QStringLiteral("RULE"))
        && !ZorHost::setUsimAccessRule(file, static_cast<unsigned char>(args.number(QStringLiteral("RULE")))))
        return fail(QStringLiteral("the rule could not be stored under %1").arg(ZorHost::root()));
    const int rule = ZorHost::usimAccessRule(file);
    if (rule < 0)
        return fail(QStringLiteral("the card has no USIM file %1").arg(file));
    out.field(QStringLiteral("file"), int(file));
    out.field(QStringLiteral("access_rule"), rule);
    return ExitOk;
}

const QString kLine = QStringLiteral("the line: 1 or 2");
const QString kMailboxType = QStringLiteral("the mailbox type: 0 voice, 1 fax, 2 e-mail, 3 other");

const VerbRegistration registration(QStringLiteral("tapi"), QStringLiteral("the simulated modem and SIM card (telephony)"),
    {
        Verb(QStringLiteral("show"), QStringLiteral("print the whole SIM and modem state as stored"), show)
            .reads()
            .fields(QStringLiteral("one field per stored setting, e.g. sim.status (number), sms.service-centre (text)")),
        Verb(QStringLiteral("email-gateway"), QStringLiteral("get or set the e-mail gateway number"), emailGateway)
            .arg(text(QStringLiteral("NUMBER"), QStringLiteral("the new number, at most 41 Latin-1 characters")).optional())
            .writesWhenGiven(QStringLiteral("NUMBER"))
            .fields(QStringLiteral("email_gateway (text)")),
        Verb(QStringLiteral("sim-status"), QStringLiteral("get or set the SIM card status"), simStatus)
            .arg(integer(QStringLiteral("STATUS"), 0, 6, QStringLiteral("0 no card, 1 PIN, 2 PUK, 3 SIM ready, 4 USIM ready, 5 blocked, 6 initialising")).optional())
            .writesWhenGiven(QStringLiteral("STATUS"))
            .fields(QStringLiteral("sim_status (number), meaning (text)")),
        Verb(QStringLiteral("service"), QStringLiteral("get or set a SIM service (2348 mailbox numbers, 2349 message waiting)"), service)
            .arg(integer(QStringLiteral("ID"), 0, 65535, QStringLiteral("the service's feature id")))
            .arg(boolean(QStringLiteral("BOOL"), QStringLiteral("whether it is available")).optional())
            .writesWhenGiven(QStringLiteral("BOOL"))
            .fields(QStringLiteral("service (number), available (boolean)")),
        Verb(QStringLiteral("usim-rule"), QStringLiteral("get or set the access rule of a USIM file"), usimRule)
            .arg(integer(QStringLiteral("FILE"), 0, 255, QStringLiteral("the file id")))
            .arg(integer(QStringLiteral("RULE"), 0, 255, QStringLiteral("the access rule")).optional())
            .writesWhenGiven(QStringLiteral("RULE"))
            .fields(QStringLiteral("file (number), access_rule (number)")),
        Verb(QStringLiteral("cb-state"), QStringLiteral("get or set the cell-broadcast state byte"), cbState)
            .arg(integer(QStringLiteral("STATE"), 0, 255, QStringLiteral("the new state")).optional())
            .writesWhenGiven(QStringLiteral("STATE"))
            .fields(QStringLiteral("cb_state (number)")),
        Verb(QStringLiteral("channels"), QStringLiteral("list the subscribed cell-broadcast channels"), channels)
            .reads()
            .fields(QStringLiteral("channels (list of numbers)")),
        Verb(QStringLiteral("channel-add"), QStringLiteral("subscribe a channel"), [](const Args& a, Output& o) { return channelChange(a, o, true); })
            .arg(integer(QStringLiteral("CHANNEL"), 0, 65534, QStringLiteral("the channel")))
            .writes()
            .fields(QStringLiteral("channels (list of numbers)")),
        Verb(QStringLiteral("channel-del"), QStringLiteral("unsubscribe a channel"), [](const Args& a, Output& o) { return channelChange(a, o, false); })
            .arg(integer(QStringLiteral("CHANNEL"), 0, 65534, QStringLiteral("the channel")))
            .writes()
            .fields(QStringLiteral("channels (list of numbers)")),
        Verb(QStringLiteral("slots"), QStringLiteral("list the language slots, or write one"), languageSlotsVerb)
            .arg(integer(QStringLiteral("SLOT"), 0, 254, QStringLiteral("the slot, counted from 0")).optional())
            .arg(integer(QStringLiteral("LANGUAGE"), 0, 255, QStringLiteral("the cell-broadcast language code")).optional())
            .writesWhenGiven(QStringLiteral("SLOT"))
            .fields(QStringLiteral("language_slots (list of numbers, slot 0 first)")),
        Verb(QStringLiteral("slot-count"), QStringLiteral("set the number of language slots"), slotCount)
            .arg(integer(QStringLiteral("COUNT"), 0, 255, QStringLiteral("the number of slots")))
            .writes()
            .fields(QStringLiteral("language_slots (list of numbers, slot 0 first)")),
        Verb(QStringLiteral("mailbox"), QStringLiteral("get or set a GSM phase 2+ mailbox entry"), [](const Args& a, Output& o) { return mailboxVerb(a, o, false); })
            .arg(integer(QStringLiteral("TYPE"), 0, 3, kMailboxType))
            .arg(text(QStringLiteral("NUMBER"), QStringLiteral("the new number")).optional())
            .arg(text(QStringLiteral("NAME"), QStringLiteral("the new name (kept when not given)")).optional())
            .writesWhenGiven(QStringLiteral("NUMBER"))
            .fields(QStringLiteral("type (number), number (text), name (text)")),
        Verb(QStringLiteral("mail-count"), QStringLiteral("get or set the waiting count of a mailbox"), mailCount)
            .arg(integer(QStringLiteral("TYPE"), 0, 3, kMailboxType))
            .arg(integer(QStringLiteral("COUNT"), 0, 255, QStringLiteral("the new count")).optional())
            .writesWhenGiven(QStringLiteral("COUNT"))
            .fields(QStringLiteral("type (number), count (number)")),
        Verb(QStringLiteral("cphs-mailbox"), QStringLiteral("get or set the CPHS voice mailbox of a line"), [](const Args& a, Output& o) { return mailboxVerb(a, o, true); })
            .arg(integer(QStringLiteral("LINE"), 1, 2, kLine))
            .arg(text(QStringLiteral("NUMBER"), QStringLiteral("the new number")).optional())
            .arg(text(QStringLiteral("NAME"), QStringLiteral("the new name (kept when not given)")).optional())
            .writesWhenGiven(QStringLiteral("NUMBER"))
            .fields(QStringLiteral("line (number), number (text), name (text)")),
        Verb(QStringLiteral("waiting"), QStringLiteral("get or set the CPHS message-waiting flag of a line"), waiting)
            .arg(integer(QStringLiteral("LINE"), 1, 2, kLine))
            .arg(boolean(QStringLiteral("BOOL"), QStringLiteral("whether mail is waiting")).optional())
            .writesWhenGiven(QStringLiteral("BOOL"))
            .fields(QStringLiteral("line (number), waiting (boolean)")),
        Verb(QStringLiteral("transport-mode"), QStringLiteral("get or set the SMS transport mode (1 GPRS off, 2 on)"), transportMode)
            .arg(integer(QStringLiteral("MODE"), 1, 2, QStringLiteral("1 SMS over GPRS off, 2 on")).optional())
            .writesWhenGiven(QStringLiteral("MODE"))
            .fields(QStringLiteral("transport_mode (number), sms_over_gprs (boolean)")),
        Verb(QStringLiteral("transport-supported"), QStringLiteral("whether the modem reports the transport mode"), transportSupported)
            .arg(boolean(QStringLiteral("BOOL"), QStringLiteral("whether it is supported")).optional())
            .writesWhenGiven(QStringLiteral("BOOL"))
            .fields(QStringLiteral("transport_mode_supported (boolean)")),
    });

} // namespace
} // namespace msgctr
