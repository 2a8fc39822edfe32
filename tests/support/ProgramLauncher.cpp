#include "ProgramLauncher.h"

QStringList emulatorCommand()
{
    return QProcess::splitCommand(qEnvironmentVariable("ZOR_TEST_EMULATOR"));
}

void startProgram(QProcess& process, const QString& program, const QStringList& arguments)
{
    QStringList command = emulatorCommand();
    if (command.isEmpty()) {
        process.start(program, arguments);
        return;
    }
    const QString emulator = command.takeFirst();
    process.start(emulator, command + QStringList{program} + arguments);
}
