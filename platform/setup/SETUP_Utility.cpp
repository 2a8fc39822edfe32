#include "SETUP_Utility.h"

#include "SetupFeatures.h"
#include "ZorHostCore.h"

bool SETUP_Utility::getFlexBit(int number, bool* value)
{
    int fault;
    if (ZorHostCore::enter("SETUP_Utility::getFlexBit", &fault) || !value)
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
    int fault;
    if (ZorHostCore::enter("SETUP_Utility::isFeatureAvailable", &fault))
        return fault != 0;
    QMap<int, bool> features;
    return SetupFeatures::table(SetupFeatures::kFeatureGroup, &features) && features.value(id, false);
}
