// Control interface of the DM tree simulator, for tests, benchmarks and tools.
#pragma once

#include <QString>

namespace ZorHostDm {

// The SQLite database that holds the tree (see DmtTreeFactory.h for its schema).
QString databasePath();

} // namespace ZorHostDm
