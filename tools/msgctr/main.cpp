// msgctr [--root DIR] [--json] <family> <verb> [args...]: every feature of the message-centre library at the
// command line, run against the host platform under DIR.
#include "CommandLine.h"

#include <QStringList>

int main(int argc, char** argv)
{
    // No application object: it would take arguments such as "-qmljsdebugger=..." for itself, and every word
    // must reach the verbs exactly as given.
    QStringList args;
    for (int i = 1; i < argc; ++i)
        args.append(QString::fromLocal8Bit(argv[i]));
    return msgctr::runCommandLine(args);
}
