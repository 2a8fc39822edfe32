// The first statement of every counted DM operation: the call is counted under its qualified name and a
// pending injected fault is answered at once, changing nothing.
#pragma once

#include "ZorHostCore.h"

inline bool dmtFaulted(const char* operation, int* fault)
{
    return ZorHostCore::enter(operation, fault);
}

// For operations that return a DM result.
#define DMT_ENTER(operation) \
    if (int fault_ = 0; dmtFaulted(operation, &fault_)) \
    return fault_

// For operations that return bool: the injected result answers as a bool.
#define DMT_ENTER_BOOL(operation) \
    if (int fault_ = 0; dmtFaulted(operation, &fault_)) \
    return fault_ != 0
