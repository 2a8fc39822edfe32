// An 8-bit, zero-terminated text. It holds bytes like QByteArray but is a text: reports render it quoted,
// as a string, where a QByteArray is rendered as a block of bytes. A null QCString and an empty one differ.
#pragma once

#include <QByteArray>

class QCString : public QByteArray {
public:
    QCString() = default;
    QCString(const char* text) : QByteArray(text) {}
    QCString(const char* text, qsizetype size) : QByteArray(text, size) {}
    QCString(const QByteArray& bytes) : QByteArray(bytes) {}
    QCString(QByteArray&& bytes) : QByteArray(std::move(bytes)) {}

    qsizetype length() const { return size(); }
};
