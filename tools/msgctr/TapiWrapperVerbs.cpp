// msgctr tapi: what the library itself asks the telephony side, through MSGCTR_ENG_TAPI.
#include "Command.h"
#include "LibraryReports.h"

#include "MSGCTR_ENG_StrUti.h"
#include "MSGCTR_ENG_TAPI.h"

#include <QStringList>

#include <limits>

namespace msgctr {
namespace {

QString unitName(unsigned int unit)
{
    switch (unit) {
    case 0:
        return QStringLiteral("5 minutes");
    case 1:
        return QStringLiteral("30 minutes");
    case 2:
        return QStringLiteral("day");
    case 3:
        return QStringLiteral("week");
    default:
        return QStringLiteral("unknown unit");
    }
}

int smsc(const QStringList& args)
{
    if (args.size() > 1)
        return usageError(QStringLiteral("tapi smsc takes at most one NUMBER (quote it if it holds blanks)"));
    if (args.size() == 1) {
        for (const QChar c : args.first()) {
            if (c.unicode() > 0xFF)
                return usageError(QStringLiteral("the number '%1' holds characters outside Latin-1").arg(args.first()));
        }
        const MSGCTR_ERRCODE code = MSGCTR_ENG_TAPI::errcodeSetSmsServiceCenterNumber(args.first());
        if (MSGCTR_ERRCODE_IS_ERROR(code))
            return failure(QStringLiteral("the service centre number was not set: error %1").arg(code));
    }
    QString number;
    const MSGCTR_ERRCODE code = MSGCTR_ENG_TAPI::errcodeGetSmsServiceCenterNumber(&number);
    if (MSGCTR_ERRCODE_IS_ERROR(code))
        return failure(QStringLiteral("the service centre number cannot be read: error %1").arg(code));
    out(number.isEmpty() ? QStringLiteral("(no service centre number)") : number);
    return ExitOk;
}

int vp(const QStringList& args)
{
    if (args.size() != 1)
        return usageError(QStringLiteral("tapi vp takes one number of SECONDS"));
    qlonglong seconds = 0;
    if (!parseInteger(args.first(), &seconds))
        return usageError(QStringLiteral("'%1' is not a number of seconds").arg(args.first()));
    if (seconds < std::numeric_limits<int>::min() || seconds > std::numeric_limits<int>::max())
        return usageError(QStringLiteral("%1 seconds is out of range (%2 to %3)")
                              .arg(args.first())
                              .arg(std::numeric_limits<int>::min())
                              .arg(std::numeric_limits<int>::max()));
    const _TAPI_SMS_EXPIRE_PERIOD_DATA_S struVp = MSGCTR_ENG_TAPI::toStruVpFromSecondS(int(seconds));
    const unsigned int unit = static_cast<unsigned int>(struVp.unit);
    const unsigned char octet = MSGCTR_ENG_TAPI::toU8VpFromStruVp(struVp);
    out(QStringLiteral("unit %1 (%2), value %3").arg(unit).arg(unitName(unit)).arg(struVp.value));
    out(QStringLiteral("octet %1 (%2)").arg(octet).arg(MSGCTR_ENG_StrUti::qstrHexWithPrefix0x(octet)));
    out(QStringLiteral("network gets %1 seconds").arg(MSGCTR_ENG_TAPI::toSecondSFromStruVp(struVp)));
    return ExitOk;
}

int gprs(const QStringList& args)
{
    if (args.size() > 1)
        return usageError(QStringLiteral("tapi gprs takes nothing, on or off"));
    if (args.isEmpty()) {
        if (!MSGCTR_ENG_TAPI::supportsSmsOverGprsFeature()) {
            out(QStringLiteral("SMS over GPRS: not supported"));
            return ExitOk;
        }
        out(MSGCTR_ENG_TAPI::smsOverGprsSwitchIsEnabled() ? QStringLiteral("SMS over GPRS: on")
                                                         : QStringLiteral("SMS over GPRS: off"));
        return ExitOk;
    }
    const QString& choice = args.first();
    if (choice != QLatin1String("on") && choice != QLatin1String("off"))
        return usageError(QStringLiteral("tapi gprs takes on or off, not '%1'").arg(choice));
    const bool on = choice == QLatin1String("on");
    const MSGCTR_ERRCODE code = MSGCTR_ENG_TAPI::enableSmsOverGprsSwitch(on);
    if (MSGCTR_ERRCODE_IS_ERROR(code))
        return failure(QStringLiteral("SMS over GPRS was not switched %1: error %2").arg(choice).arg(code));
    out(QStringLiteral("SMS over GPRS: %1").arg(choice));
    return ExitOk;
}

const FamilyRegistration registration(
    QStringLiteral("tapi"), QString(),
    {
        {QStringLiteral("smsc"), QStringLiteral("[NUMBER] [--trace]"),
         QStringLiteral("print the SMS service centre number, or set it first (cut to 41 characters)"),
         withReports(smsc)},
        {QStringLiteral("vp"), QStringLiteral("SECONDS [--trace]"),
         QStringLiteral("the validity period for SECONDS: unit/value pair, octet, seconds the network gets"),
         withReports(vp)},
        {QStringLiteral("gprs"), QStringLiteral("[on|off] [--trace]"),
         QStringLiteral("print whether SMS goes over GPRS, or switch it on or off"), withReports(gprs)},
    });

} // namespace
} // namespace msgctr
