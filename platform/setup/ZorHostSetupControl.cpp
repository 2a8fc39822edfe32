#include "ZorHostSetupControl.h"

#include "SetupFeatures.h"

namespace ZorHost {

bool setFlexBit(int number, bool on)
{
    return SetupFeatures::set(SetupFeatures::kFlexBitGroup, number, &on);
}

bool unsetFlexBit(int number)
{
    return SetupFeatures::set(SetupFeatures::kFlexBitGroup, number, nullptr);
}

bool setFeatureAvailable(int id, bool available)
{
    return SetupFeatures::set(SetupFeatures::kFeatureGroup, id, &available);
}

QMap<int, bool> flexBits()
{
    QMap<int, bool> bits;
    SetupFeatures::table(SetupFeatures::kFlexBitGroup, &bits);
    return bits;
}

QMap<int, bool> features()
{
    QMap<int, bool> table;
    SetupFeatures::table(SetupFeatures::kFeatureGroup, &table);
    return table;
}

} // namespace ZorHost
