// msgctr status: the whole simulated phone on one screen, as the messaging applications find it.
#include "Verb.h"

#include "MSGCTR_ENG_Setup.h"
#include "MSGCTR_ENG_SetupInfo.h"
#include "MSGCTR_ENG_TAPI.h"
#include "MSGCTR_ENG_UTIL_Dbg.h"
#include "TAPI.h"
#include "UTIL_Language.h"
#include "ZorHostTapiControl.h"

#include <cstdlib>
#include <cstring>

namespace msgctr {
namespace {

// The library reports failed calls itself; here a failure is a line of the "problems" field instead.
void discardReport(const char*) {}

QString numberText(const char* buffer)
{
    return QString::fromLatin1(buffer, qsizetype(strnlen(buffer, TAPI_PHONE_NUMBER_LEN)));
}

QString nameText(const unsigned short* buffer)
{
    int length = 0;
    while (length < TAPI_PHONEBOOK_NAME_UNITS && buffer[length])
        ++length;
    return QString(reinterpret_cast<const QChar*>(buffer), length);
}

QString tapiProblem(const char* operation, int result)
{
    return QStringLiteral("%1 failed: result %2").arg(QLatin1String(operation)).arg(result);
}

QJsonObject sim(QJsonArray* problems)
{
    _TAPI_SIM_STATUS_E status = TAPI_SIM_STATUS_NO_CARD;
    const int r = TAPI_ACCE_GetSimCardStatus(&status);
    if (r != TAPI_RESULT_SUCC) {
        problems->append(tapiProblem("TAPI_ACCE_GetSimCardStatus", r));
        return QJsonObject{{QStringLiteral("status"), QJsonValue()}, {QStringLiteral("type"), QJsonValue()}};
    }
    const QString type = status == TAPI_SIM_STATUS_SIM_READY ? QStringLiteral("SIM")
        : status == TAPI_SIM_STATUS_USIM_READY               ? QStringLiteral("USIM")
                                                             : QStringLiteral("none");
    return QJsonObject{{QStringLiteral("status"), int(status)}, {QStringLiteral("type"), type}};
}

QJsonObject sms(QJsonArray* problems)
{
    QJsonObject sms;
    QString centre;
    const MSGCTR_ERRCODE code = MSGCTR_ENG_TAPI::errcodeGetSmsServiceCenterNumber(&centre);
    if (MSGCTR_ERRCODE_IS_ERROR(code))
        problems->append(QStringLiteral("reading the service centre number failed: error %1").arg(code));
    sms.insert(QStringLiteral("service_centre"), MSGCTR_ERRCODE_IS_ERROR(code) ? QJsonValue() : QJsonValue(centre));
    MSGCTR_ENG_SetupInfo info(MSGCTR_ENG_Setup::FLUSH_MODE__NOT_FLUSH);
    const int validity = info.getSmsValidityTime();
    sms.insert(QStringLiteral("validity_period"), validity);
    sms.insert(QStringLiteral("validity_period_network"),
               MSGCTR_ENG_TAPI::toSecondSFromStruVp(MSGCTR_ENG_TAPI::toStruVpFromSecondS(validity)));
    const bool gprsSupported = MSGCTR_ENG_TAPI::supportsSmsOverGprsFeature();
    sms.insert(QStringLiteral("over_gprs_supported"), gprsSupported);
    sms.insert(QStringLiteral("over_gprs"), gprsSupported && MSGCTR_ENG_TAPI::smsOverGprsSwitchIsEnabled());
    return sms;
}

QJsonObject cellBroadcast(QJsonArray* problems)
{
    QJsonObject cb;
    unsigned char state = 0;
    int r = TAPI_CB_GetStatus(&state);
    if (r != TAPI_RESULT_SUCC)
        problems->append(tapiProblem("TAPI_CB_GetStatus", r));
    cb.insert(QStringLiteral("state"), r == TAPI_RESULT_SUCC ? QJsonValue(int(state)) : QJsonValue());
    int count = 0;
    unsigned short* list = nullptr;
    r = TAPI_CB_GetChannelsEx(&count, &list);
    QJsonArray channels;
    if (r == TAPI_RESULT_SUCC && list)
        for (int i = 0; i < count; ++i)
            channels.append(int(list[i]));
    std::free(list);
    if (r != TAPI_RESULT_SUCC)
        problems->append(tapiProblem("TAPI_CB_GetChannelsEx", r));
    cb.insert(QStringLiteral("channels"), r == TAPI_RESULT_SUCC ? QJsonValue(channels) : QJsonValue());
    return cb;
}

QJsonArray mailboxes(QJsonArray* problems)
{
    QJsonArray boxes;
    for (unsigned char type = 0; type < 4; ++type) {
        char number[TAPI_PHONE_NUMBER_LEN] = {};
        TAPI_PHONEBOOK_NAME_A name = {};
        unsigned char count = 0;
        const int entry = TAPI_MAILBOX_Gsmr4GetEntry(type, number, name);
        const int waiting = TAPI_MAILBOX_Gsmr4GetMailCount(type, &count);
        if (entry != TAPI_RESULT_SUCC)
            problems->append(tapiProblem("TAPI_MAILBOX_Gsmr4GetEntry", entry));
        if (waiting != TAPI_RESULT_SUCC)
            problems->append(tapiProblem("TAPI_MAILBOX_Gsmr4GetMailCount", waiting));
        boxes.append(QJsonObject{{QStringLiteral("type"), int(type)},
                                 {QStringLiteral("number"), entry == TAPI_RESULT_SUCC ? QJsonValue(numberText(number)) : QJsonValue()},
                                 {QStringLiteral("name"), entry == TAPI_RESULT_SUCC ? QJsonValue(nameText(name)) : QJsonValue()},
                                 {QStringLiteral("count"), waiting == TAPI_RESULT_SUCC ? QJsonValue(int(count)) : QJsonValue()}});
    }
    return boxes;
}

QJsonArray cphsLines(QJsonArray* problems)
{
    QJsonArray lines;
    for (unsigned char line = 1; line <= 2; ++line) {
        char number[TAPI_PHONE_NUMBER_LEN] = {};
        TAPI_PHONEBOOK_NAME_A name = {};
        const int r = TAPI_MAILBOX_CphsGetVoiceMailBox(line, number, name);
        if (r != TAPI_RESULT_SUCC)
            problems->append(tapiProblem("TAPI_MAILBOX_CphsGetVoiceMailBox", r));
        lines.append(QJsonObject{{QStringLiteral("line"), int(line)},
                                 {QStringLiteral("number"), r == TAPI_RESULT_SUCC ? QJsonValue(numberText(number)) : QJsonValue()},
                                 {QStringLiteral("name"), r == TAPI_RESULT_SUCC ? QJsonValue(nameText(name)) : QJsonValue()},
                                 {QStringLiteral("waiting"), ZorHost::cphsMessageWaitingFlag(line - 1)}});
    }
    return lines;
}

int status(const Args&, Output& out)
{
    MSGCTR_ENG_UTIL_Dbg::setCallbackPrintln(discardReport);
    QJsonArray problems;
    out.field(QStringLiteral("sim"), sim(&problems));
    out.field(QStringLiteral("sms"), sms(&problems));
    out.field(QStringLiteral("cell_broadcast"), cellBroadcast(&problems));
    out.field(QStringLiteral("mailboxes"), mailboxes(&problems));
    out.field(QStringLiteral("cphs_mailboxes"), cphsLines(&problems));
    out.field(QStringLiteral("system_language"), UTIL_Language::getSystemLanguageCode());
    out.field(QStringLiteral("problems"), problems);
    return ExitOk;
}

const VerbRegistration registration(
    QStringLiteral("status"), QStringLiteral("the whole simulated phone on one screen"),
    {
        Verb(QString(), QStringLiteral("the whole simulated phone on one screen"), status)
            .reads()
            .fields(QStringLiteral("sim (status, type), sms (service_centre, validity_period, validity_period_network, "
                                   "over_gprs_supported, over_gprs), cell_broadcast (state, channels), mailboxes (list of "
                                   "type, number, name, count), cphs_mailboxes (list of line, number, name, waiting), "
                                   "system_language (text), problems (list of texts: what could not be read)")),
    });

} // namespace
} // namespace msgctr
