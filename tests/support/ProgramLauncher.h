// Starts the programs a test runs (msgctr, test programs of their own). In a cross build the test launcher
// names the emulator in ZOR_TEST_EMULATOR ("qemu-arm -L <sysroot>"): programs of the target processor
// cannot start directly on the build machine, so they start through it. Natively they start directly.
#pragma once

#include <QProcess>
#include <QString>
#include <QStringList>

// The emulator's command words; empty in a native build.
QStringList emulatorCommand();

void startProgram(QProcess& process, const QString& program, const QStringList& arguments);
