// msgctr platform fault|faults|calls: faults met by the next calls of a platform operation, in any process
// using the root, and how often each operation was called.
#include "DidYouMean.h"
#include "Verb.h"

#include "ZorHostControl.h"

#include <climits>

namespace msgctr {
namespace {

// The name must be one of the platform's operations; the hint covers typing mistakes.
int checkOperation(const QString& operation)
{
    if (ZorHost::isOperation(operation))
        return ExitOk;
    return usage(QStringLiteral("'%1' is not a platform operation%2 (see msgctr platform calls)")
                     .arg(operation, didYouMean(operation, ZorHost::operations())));
}

QJsonArray faultList()
{
    QJsonArray faults;
    for (const ZorHost::PendingFault& f : ZorHost::pendingFaults())
        faults.append(QJsonObject{{QStringLiteral("operation"), f.operation},
                                  {QStringLiteral("result"), f.result},
                                  {QStringLiteral("remaining"), f.remaining}});
    return faults;
}

int fault(const Args& args, Output& out)
{
    const QString operation = args.text(QStringLiteral("OPERATION"));
    const int checked = checkOperation(operation);
    if (checked != ExitOk)
        return checked;
    const int times = args.has(QStringLiteral("--times")) ? int(args.number(QStringLiteral("--times"))) : 1;
    if (times == 0)
        return usage(QStringLiteral("--times must be 1 or more, or -1 (until cleared), not 0"));
    const int result = int(args.number(QStringLiteral("RESULT")));
    if (!ZorHost::injectFault(operation, result, times))
        return fail(QStringLiteral("the fault for %1 could not be set under %2").arg(operation, ZorHost::root()));
    out.field(QStringLiteral("faults"), faultList());
    return ExitOk;
}

int faults(const Args& args, Output& out)
{
    if (args.has(QStringLiteral("ACTION")))
        ZorHost::clearFaults();
    out.field(QStringLiteral("faults"), faultList());
    return ExitOk;
}

int calls(const Args& args, Output& out)
{
    if (args.has(QStringLiteral("OPERATION"))) {
        const QString operation = args.text(QStringLiteral("OPERATION"));
        const int checked = checkOperation(operation);
        if (checked != ExitOk)
            return checked;
        out.field(QStringLiteral("operation"), operation);
        out.field(QStringLiteral("calls"), ZorHost::callCount(operation));
        return ExitOk;
    }
    // Only the operations called at all: the platform has hundreds.
    QJsonObject counts;
    for (const QString& operation : ZorHost::operations()) {
        const int count = ZorHost::callCount(operation);
        if (count > 0)
            counts.insert(operation, count);
    }
    out.field(QStringLiteral("calls"), counts);
    return ExitOk;
}

const VerbRegistration registration(
    QStringLiteral("platform"), QString(),
    {
        Verb(QStringLiteral("fault"), QStringLiteral("make the next calls of a platform operation, in any process, fail with RESULT"), fault)
            .arg(text(QStringLiteral("OPERATION"), QStringLiteral("the operation, e.g. TAPI_SMS_GetServiceCenter")))
            .arg(integer(QStringLiteral("RESULT"), INT_MIN, INT_MAX, QStringLiteral("the result the calls answer")))
            .arg(integer(QStringLiteral("--times"), -1, INT_MAX, QStringLiteral("how many calls fail (default 1; -1 until cleared)")))
            .writes()
            .fields(QStringLiteral("faults (list of operation, result, remaining; remaining -1: until cleared)")),
        Verb(QStringLiteral("faults"), QStringLiteral("list the faults not yet met, or clear them"), faults)
            .arg(choice(QStringLiteral("ACTION"), {QStringLiteral("clear")}, QStringLiteral("clear: remove every fault")).optional())
            .writesWhenGiven(QStringLiteral("ACTION"))
            .fields(QStringLiteral("faults (list of operation, result, remaining)")),
        Verb(QStringLiteral("calls"), QStringLiteral("how often the platform operations were called since the last reset"), calls)
            .arg(text(QStringLiteral("OPERATION"), QStringLiteral("only this operation")).optional())
            .reads()
            .fields(QStringLiteral("calls (object: operation to count, operations called at all); for one operation: "
                                   "operation (text), calls (number)")),
    });

} // namespace
} // namespace msgctr
