// The table of platform operations under the host root: one slot per operation with its call count and
// pending fault, mapped into every process that uses the root.
#pragma once

namespace ZorHostCore {

// The root changed: the next entry of each operation finds its slot in the new root's table.
void detachOperationTable();

} // namespace ZorHostCore
