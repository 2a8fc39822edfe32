// Runs the msgctr tool as a person would, against a given host root.
#pragma once

#include <QString>
#include <QStringList>

struct MsgctrResult {
    int exitCode = -1;
    QString out;
    QString err;
};

MsgctrResult runMsgctr(const QString& root, const QStringList& args);
