// Reading back the module log sink, for tests and tools (see aplog.h).
#pragma once

#include <QList>
#include <QString>

namespace ZorHost {

struct AplogRecord {
    QString module;
    int level = 0;
    QString text;
    bool operator==(const AplogRecord& o) const { return module == o.module && level == o.level && text == o.text; }
};

// Every record written since the last reset, oldest first.
QList<AplogRecord> aplogRecords();
QString aplogPath();

} // namespace ZorHost
