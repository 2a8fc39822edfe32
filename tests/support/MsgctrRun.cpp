#include "MsgctrRun.h"

#include "ProgramLauncher.h"

#include <QProcess>

MsgctrResult runMsgctr(const QString& root, const QStringList& args, const QByteArray& input)
{
    QProcess process;
    QStringList all;
    if (!root.isEmpty())
        all << QStringLiteral("--root") << root;
    all << args;
    startProgram(process, QStringLiteral(ZOR_MSGCTR_EXE), all);
    if (process.waitForStarted(60000)) {
        process.write(input);
        process.closeWriteChannel();
    }
    MsgctrResult result;
    if (!process.waitForFinished(60000)) {
        process.kill();
        process.waitForFinished();
        result.err = QStringLiteral("msgctr did not finish");
        return result;
    }
    result.exitCode = process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
    result.out = QString::fromUtf8(process.readAllStandardOutput());
    result.err = QString::fromUtf8(process.readAllStandardError());
    return result;
}

QStringList words(std::initializer_list<const char*> items)
{
    QStringList list;
    for (const char* item : items)
        list.append(QString::fromUtf8(item));
    return list;
}
