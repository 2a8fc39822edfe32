// Runs the msgctr tool as a person would, against a given host root.
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <initializer_list>
#include <ostream>

struct MsgctrResult {
    int exitCode = -1;
    QString out;
    QString err;
};

// `input` is what the tool reads on standard input (nothing when empty).
MsgctrResult runMsgctr(const QString& root, const QStringList& args, const QByteArray& input = QByteArray());

// A command line from UTF-8 words: words({"tapi", "smsc", "+49"}).
QStringList words(std::initializer_list<const char*> items);

// Failed comparisons show the texts themselves.
inline void PrintTo(const QString& text, std::ostream* os)
{
    *os << '"' << text.toStdString() << '"';
}
