// msgctr [--root DIR] <family> <verb> [args...]: every feature of the message-centre library at the
// command line, run against the host platform under DIR.
#include "Catalogue.h"
#include "Command.h"

#include "ZorHostControl.h"

#include <QCoreApplication>

#include <algorithm>

using namespace msgctr;

namespace {

void printTopHelp()
{
    out(QStringLiteral("usage: msgctr [--root DIR] <family> <verb> [args...]"));
    out(QStringLiteral("       msgctr --help | --version | <family> --help | <family> <verb> --help"));
    out(QString());
    out(QStringLiteral("  --root DIR   keep the host platform's files under DIR (default: $ZORHOST_ROOT,"));
    out(QStringLiteral("               else $XDG_DATA_HOME/zorhost, else ~/.local/share/zorhost)"));
    out(QString());
    out(QStringLiteral("families:"));
    for (const Family& f : allFamilies())
        out(QStringLiteral("  %1 %2").arg(f.name, -10).arg(f.summary));
}

void printFamilyHelp(const Family& family)
{
    out(QStringLiteral("usage: msgctr %1 <verb> [args...]").arg(family.name));
    out(family.summary);
    out(QString());
    out(QStringLiteral("verbs:"));
    for (const Verb& v : family.verbs)
        out(QStringLiteral("  %1 %2").arg((v.name + QLatin1Char(' ') + v.usage).trimmed(), -28).arg(v.summary));
}

void printVerbHelp(const Family& family, const Verb& verb)
{
    out(QStringLiteral("usage: msgctr %1 %2 %3").arg(family.name, verb.name, verb.usage).trimmed());
    out(verb.summary);
}

bool isHelp(const QString& arg)
{
    return arg == QLatin1String("--help") || arg == QLatin1String("-h");
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    QStringList args = app.arguments().mid(1);

    while (!args.isEmpty() && args.first().startsWith(QLatin1String("--"))) {
        const QString opt = args.takeFirst();
        if (isHelp(opt)) {
            printTopHelp();
            return ExitOk;
        }
        if (opt == QLatin1String("--version")) {
            out(QStringLiteral("msgctr " MSGCTR_VERSION));
            return ExitOk;
        }
        if (opt == QLatin1String("--root")) {
            if (args.isEmpty())
                return usageError(QStringLiteral("--root needs a folder"));
            ZorHost::setRoot(args.takeFirst());
            continue;
        }
        if (opt.startsWith(QLatin1String("--root="))) {
            ZorHost::setRoot(opt.mid(7));
            continue;
        }
        return usageError(QStringLiteral("unknown option '%1' (see msgctr --help)").arg(opt));
    }
    if (args.isEmpty() || isHelp(args.first())) {
        printTopHelp();
        return args.isEmpty() ? ExitUsage : ExitOk;
    }

    loadSystemLanguageCatalogue();
    const QString familyName = args.takeFirst();
    const std::vector<Family> families = allFamilies();
    const auto family = std::find_if(families.begin(), families.end(),
                                     [&](const Family& f) { return f.name == familyName; });
    if (family == families.end())
        return usageError(QStringLiteral("unknown family '%1' (see msgctr --help)").arg(familyName));
    if (args.isEmpty() || isHelp(args.first())) {
        printFamilyHelp(*family);
        return args.isEmpty() ? ExitUsage : ExitOk;
    }

    const QString verbName = args.takeFirst();
    const std::vector<Verb>& verbs = family->verbs;
    const auto verb = std::find_if(verbs.begin(), verbs.end(), [&](const Verb& v) { return v.name == verbName; });
    if (verb == verbs.end())
        return usageError(QStringLiteral("unknown verb '%1 %2' (see msgctr %1 --help)").arg(familyName, verbName));
    if (args.contains(QStringLiteral("--help"))) {
        printVerbHelp(*family, *verb);
        return ExitOk;
    }
    return verb->run(args);
}
