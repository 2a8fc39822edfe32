// The first statement of every TAPI_* function: the call is counted under the function's own name, and a
// pending injected fault is answered at once, changing nothing.
#pragma once

#include "ZorHostCore.h"

#define ZORTAPI_ENTER() \
    if (int fault_ = 0; ZorHostCore::enter(__func__, &fault_)) \
    return fault_
