// msgctr [--root DIR] [--json] <family> <verb> [args...]: every feature of the message-centre library at the
// command line, run against the host platform under DIR.
#include "CommandLine.h"

#include <QCoreApplication>
#include <QStringList>

int main(int argc, char** argv)
{
    // The application object sees only the program's name: it would take arguments such as
    // "-qmljsdebugger=..." for itself, and every word must reach the verbs exactly as given. It is there for
    // the message catalogue.
    int appArgc = 1;
    QCoreApplication app(appArgc, argv);
    QStringList args;
    for (int i = 1; i < argc; ++i)
        args.append(QString::fromLocal8Bit(argv[i]));
    return msgctr::runCommandLine(args);
}
