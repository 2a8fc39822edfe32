#include "ReportLines.h"

#include <QRegularExpression>

std::vector<std::string> ticksMasked(const QStringList& lines)
{
    static const QRegularExpression tick(QStringLiteral("^([^()\\[\\]]+\\(\\d+\\)\\[\\w+\\])\\d+: "));
    std::vector<std::string> masked;
    for (QString line : lines)
        masked.push_back(line.replace(tick, QStringLiteral("\\1<T>: ")).toStdString());
    return masked;
}

std::vector<std::string> expected(const QStringList& lines)
{
    std::vector<std::string> out;
    for (const QString& line : lines)
        out.push_back(line.toStdString());
    return out;
}
