#include "SourceLine.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QList>

int sourceLine(const QString& projectFile, const std::vector<const char*>& markers)
{
    QFile file(QStringLiteral(ZOR_SOURCE_DIR "/") + projectFile);
    if (!file.open(QIODevice::ReadOnly)) {
        ADD_FAILURE() << "cannot read " << file.fileName().toStdString();
        return 0;
    }
    const QList<QByteArray> lines = file.readAll().split('\n');
    int index = 0;
    for (const char* marker : markers) {
        while (index < lines.size() && !lines.at(index).contains(marker))
            ++index;
        if (index == lines.size()) {
            ADD_FAILURE() << "no line of " << projectFile.toStdString() << " has \"" << marker << "\"";
            return 0;
        }
    }
    return index + 1;
}
