#include "MsgctrRun.h"

#include "ProgramLauncher.h"

#include <QProcess>

MsgctrResult runMsgctr(const QString& root, const QStringList& args)
{
    QProcess process;
    QStringList all;
    if (!root.isEmpty())
        all << QStringLiteral("--root") << root;
    all << args;
    startProgram(process, QStringLiteral(ZOR_MSGCTR_EXE), all);
    MsgctrResult result;
    if (!process.waitForFinished(60000)) {
        process.kill();
        process.waitForFinished();
        result.err = QStringLiteral("msgctr did not finish");
        return result;
    }
    result.exitCode = process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
    result.out = QString::fromLocal8Bit(process.readAllStandardOutput());
    result.err = QString::fromLocal8Bit(process.readAllStandardError());
    return result;
}
