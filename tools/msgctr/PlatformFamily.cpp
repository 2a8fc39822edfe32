// msgctr platform: the host platform itself.
#include "Command.h"

#include "ZorHostControl.h"

namespace msgctr {
namespace {

int root(const QStringList& args)
{
    if (!args.isEmpty())
        return usageError(QStringLiteral("platform root takes no arguments"));
    out(ZorHost::root());
    return ExitOk;
}

int reset(const QStringList& args)
{
    if (!args.isEmpty())
        return usageError(QStringLiteral("platform reset takes no arguments"));
    ZorHost::resetAll();
    out(QStringLiteral("host platform at %1 is back to its factory state").arg(ZorHost::root()));
    return ExitOk;
}

const FamilyRegistration registration(QStringLiteral("platform"), QStringLiteral("the host platform the library runs on"),
                    {
                        {QStringLiteral("root"), QString(), QStringLiteral("print the folder the host platform keeps its files in"), root},
                        {QStringLiteral("reset"), QString(), QStringLiteral("put every simulator back to its factory state"), reset},
                    });

} // namespace
} // namespace msgctr
