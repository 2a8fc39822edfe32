// msgctr tapi: what the library itself asks the telephony side, through MSGCTR_ENG_TAPI.
#include "LibraryReports.h"
#include "Verb.h"

#include "MSGCTR_ENG_StrUti.h"
#include "MSGCTR_ENG_TAPI.h"

#include <QStringList>

#include <climits>

namespace msgctr {
namespace {

QString unitName(unsigned int unit)
{
    switch (unit) {
    case 0: return QStringLiteral("5 minutes");
    case 1: return QStringLiteral("30 minutes");
    case 2: return QStringLiteral("day");
    case 3: return QStringLiteral("week");
    default: return QStringLiteral("unknown unit");
    }
}

int smsc(const Args& args, Output& out)
{
    if (args.has(QStringLiteral("NUMBER"))) {
        const QString number = args.text(QStringLiteral("NUMBER"));
        for (const QChar c : number) {
            if (c.unicode() > 0xFF)
                return usage(QStringLiteral("the number '%1' holds characters outside Latin-1").arg(number));
        }
        const MSGCTR_ERRCODE code = MSGCTR_ENG_TAPI::errcodeSetSmsServiceCenterNumber(number);
        if (MSGCTR_ERRCODE_IS_ERROR(code))
            return libraryFailure(QStringLiteral("setting the service centre number"), code);
    }
    QString number;
    const MSGCTR_ERRCODE code = MSGCTR_ENG_TAPI::errcodeGetSmsServiceCenterNumber(&number);
    if (MSGCTR_ERRCODE_IS_ERROR(code))
        return libraryFailure(QStringLiteral("reading the service centre number"), code);
    out.field(QStringLiteral("service_centre"), number);
    return ExitOk;
}

int vp(const Args& args, Output& out)
{
    const int seconds = int(args.number(QStringLiteral("SECONDS")));
    const _TAPI_SMS_EXPIRE_PERIOD_DATA_S struVp = MSGCTR_ENG_TAPI::toStruVpFromSecondS(seconds);
    const unsigned int unit = static_cast<unsigned int>(struVp.unit);
    const unsigned char octet = MSGCTR_ENG_TAPI::toU8VpFromStruVp(struVp);
    out.field(QStringLiteral("unit"), int(unit));
    out.field(QStringLiteral("unit_name"), unitName(unit));
    out.field(QStringLiteral("value"), int(struVp.value));
    out.field(QStringLiteral("octet"), int(octet));
    out.field(QStringLiteral("octet_hex"), MSGCTR_ENG_StrUti::qstrHexWithPrefix0x(octet));
    out.field(QStringLiteral("network_seconds"), MSGCTR_ENG_TAPI::toSecondSFromStruVp(struVp));
    return ExitOk;
}

int gprs(const Args& args, Output& out)
{
    if (args.has(QStringLiteral("BOOL"))) {
        const MSGCTR_ERRCODE code = MSGCTR_ENG_TAPI::enableSmsOverGprsSwitch(args.boolean(QStringLiteral("BOOL")));
        if (MSGCTR_ERRCODE_IS_ERROR(code))
            return libraryFailure(QStringLiteral("switching SMS over GPRS"), code);
    }
    const bool supported = MSGCTR_ENG_TAPI::supportsSmsOverGprsFeature();
    out.field(QStringLiteral("supported"), supported);
    out.field(QStringLiteral("sms_over_gprs"), supported && MSGCTR_ENG_TAPI::smsOverGprsSwitchIsEnabled());
    return ExitOk;
}

const VerbRegistration registration(
    QStringLiteral("tapi"), QString(),
    {
        Verb(QStringLiteral("smsc"), QStringLiteral("print the SMS service centre number, or set it first (cut to 41 characters)"), withReports(smsc))
            .arg(text(QStringLiteral("NUMBER"), QStringLiteral("the new number (empty clears it)")).optional())
            .arg(traceFlag())
            .writesWhenGiven(QStringLiteral("NUMBER"))
            .fields(QStringLiteral("service_centre (text, empty when none)")),
        Verb(QStringLiteral("vp"), QStringLiteral("the validity period for SECONDS: unit/value pair, octet, seconds the network gets"), withReports(vp))
            .arg(integer(QStringLiteral("SECONDS"), INT_MIN, INT_MAX, QStringLiteral("the validity period")))
            .arg(traceFlag())
            .fields(QStringLiteral("unit (number), unit_name (text), value (number), octet (number), octet_hex (text), network_seconds (number)")),
        Verb(QStringLiteral("gprs"), QStringLiteral("print whether SMS goes over GPRS, or switch it on or off"), withReports(gprs))
            .arg(boolean(QStringLiteral("BOOL"), QStringLiteral("the new setting")).optional())
            .arg(traceFlag())
            .writesWhenGiven(QStringLiteral("BOOL"))
            .fields(QStringLiteral("supported (boolean), sms_over_gprs (boolean)")),
    });

} // namespace
} // namespace msgctr
