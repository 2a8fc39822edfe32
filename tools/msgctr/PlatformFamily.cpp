// msgctr platform: the host platform itself.
#include "Verb.h"

#include "ZorHostControl.h"

#include <QDir>
#include <QFileInfo>

namespace msgctr {
namespace {

int root(const Args&, Output& out)
{
    out.field(QStringLiteral("root"), ZorHost::root());
    return ExitOk;
}

int reset(const Args&, Output& out)
{
    const QString base = ZorHost::root();
    ZorHost::resetAll();
    // The simulators keep their state here; what is left of it was not reset. (The device folder is not
    // checked: a reset installs the factory resource files in it again.)
    const QString dir = base + QStringLiteral("/state");
    if (QFileInfo::exists(dir))
        return fail(QStringLiteral("cannot reset the host platform: %1 could not be removed").arg(dir));
    out.field(QStringLiteral("root"), base);
    out.field(QStringLiteral("state"), QStringLiteral("factory"));
    return ExitOk;
}

const VerbRegistration registration(
    QStringLiteral("platform"), QStringLiteral("the host platform the library runs on"),
    {
        Verb(QStringLiteral("root"), QStringLiteral("print the folder the host platform keeps its files in"), root)
            .reads()
            .fields(QStringLiteral("root (text)")),
        Verb(QStringLiteral("reset"), QStringLiteral("put every simulator back to its factory state"), reset)
            .writes()
            .fields(QStringLiteral("root (text), state (text: factory)")),
    });

} // namespace
} // namespace msgctr
