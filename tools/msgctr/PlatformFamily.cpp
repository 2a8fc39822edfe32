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
    // The simulators keep their state in these folders; what is left of them was not reset.
    for (const char* kept : {"state", "device"}) {
        const QString dir = base + QLatin1Char('/') + QLatin1String(kept);
        if (QFileInfo::exists(dir))
            return fail(QStringLiteral("cannot reset the host platform: %1 could not be removed").arg(dir));
    }
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
