// A list of DM texts, e.g. the child names of a node in creation order.
#pragma once

#include "DMString.h"
#include "DMVector.h"

using DMStringVector = DMVector<DMString>;
