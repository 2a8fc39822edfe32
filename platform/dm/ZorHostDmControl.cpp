#include "ZorHostDmControl.h"

#include "DmStore.h"

namespace ZorHostDm {

QString databasePath()
{
    return DmStore::databasePath();
}

} // namespace ZorHostDm
