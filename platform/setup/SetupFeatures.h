// The feature-switch file behind SETUP_Utility and its control setters.
#pragma once

#include "SetupKeyFile.h"

#include <QMap>

namespace SetupFeatures {

extern const char* const kFlexBitGroup;
extern const char* const kFeatureGroup;

QString path();
const SetupKeyFile::Contents& factory();
// The table of one group as it stands now; false with errno set when the file cannot be read.
bool table(const char* group, QMap<int, bool>* out);
bool set(const char* group, int number, const bool* value); // null value: remove

} // namespace SetupFeatures
