#include "SetupFeatures.h"

#include "ZorHostCore.h"

#include <QFile>

namespace SetupFeatures {

const char* const kFlexBitGroup = "FLEX_BITS";
const char* const kFeatureGroup = "FEATURES";

namespace {

struct Switch {
    int number;
    bool on;
};

const Switch kFactoryFlexBits[] = {
    {49, true},   {50, true},   {51, true},   {52, true},   {112, false}, {147, true},  {148, true},
    {149, false}, {150, false}, {151, true},  {178, false}, {205, true},  {210, true},  {211, true},
    {212, false}, {213, true},  {214, true},  {215, false}, {216, true},  {217, false}, {218, true},
    {219, true},  {220, true},  {222, true},  {223, true},  {224, true},  {225, true},  {226, false},
    {227, false}, {228, true},  {230, true},  {231, false}, {232, true},  {233, false}, {234, true},
    {235, true},  {236, false}, {237, false}, {238, false}, {239, false}, {240, true},  {269, true},
    {303, false}, {323, true},  {326, true},  {391, false}, {395, false}, {399, false}, {421, true},
    {466, false}, {467, false}, {506, false},
};

const Switch kFactoryFeatures[] = {
    {2007, false}, {2040, true}, {2168, true}, {2189, false},
};

SetupKeyFile::Contents buildFactory()
{
    SetupKeyFile::Contents c;
    for (const Switch& s : kFactoryFlexBits)
        c.set(QLatin1String(kFlexBitGroup), QString::number(s.number), SetupKeyFile::boolText(s.on));
    for (const Switch& s : kFactoryFeatures)
        c.set(QLatin1String(kFeatureGroup), QString::number(s.number), SetupKeyFile::boolText(s.on));
    return c;
}

} // namespace

QString path()
{
    return ZorHostCore::stateDir(QStringLiteral("setup")) + QStringLiteral("/features.conf");
}

const SetupKeyFile::Contents& factory()
{
    static const SetupKeyFile::Contents contents = buildFactory();
    return contents;
}

bool table(const char* group, QMap<int, bool>* out)
{
    out->clear();
    const QString file = path();
    const SetupKeyFile::Contents* contents = &factory();
    SetupKeyFile::ContentsPtr onDisk;
    if (QFile::exists(file)) {
        if (!SetupKeyFile::load(file, &onDisk))
            return false;
        contents = onDisk.get();
    }
    const QString name = QLatin1String(group);
    for (const QString& key : contents->keys(name)) {
        bool keyOk = false;
        const int number = key.toInt(&keyOk, 10);
        bool on = false;
        if (keyOk && SetupKeyFile::parseBool(*contents->value(name, key), &on))
            out->insert(number, on);
    }
    return true;
}

bool set(const char* group, int number, const bool* value)
{
    return SetupKeyFile::update(
        path(),
        [&](SetupKeyFile::Contents& contents) {
            if (value)
                contents.set(QLatin1String(group), QString::number(number), SetupKeyFile::boolText(*value));
            else
                contents.remove(QLatin1String(group), QString::number(number));
        },
        factory());
}

} // namespace SetupFeatures
