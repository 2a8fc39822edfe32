#include "SETUP_Utility.h"

#include "SetupFeatures.h"
#include "ZorHostEntry.h"

bool SETUP_Utility::getFlexBit(int number, bool* value)
{
    ZORHOST_ENTER(fault) return false;
    if (!value)
        return false;
    QMap<int, bool> bits;
    if (!SetupFeatures::table(SetupFeatures::kFlexBitGroup, &bits))
        return false;
    const auto it = bits.constFind(number);
    if (it == bits.constEnd())
        return false;
    *value = *it;
    return true;
}

bool SETUP_Utility::getFlexBit(int number, bool& value)
{
    return getFlexBit(number, &value);
}

bool SETUP_Utility::isFeatureAvailable(int id)
{
    ZORHOST_ENTER(fault) return fault != 0;
    QMap<int, bool> features;
    return SetupFeatures::table(SetupFeatures::kFeatureGroup, &features) && features.value(id, false);
}
