#include "settings/SetupInfoKey.h"

#include "MSGCTR_ENG_SetupInfo.h"

#include <QLatin1String>
#include <QList>
#include <QStringList>

#include <vector>

namespace {

std::vector<int> toVector(const QVariant& value)
{
    const QList<int> list = value.value<QList<int>>();
    return std::vector<int>(list.begin(), list.end());
}

SetupInfoKey::Table buildTable()
{
#define MSGCTR_SETUP_INFO_KEY_ROW(group, key, type, access, defaultValue)                                    \
    SetupInfoKey{MSGCTR_ENG_SetupInfo::group, #key, SetupInfoKey::VALUE_TYPE__##type, SetupInfoKey::ACCESS__##access, \
                 QVariant::fromValue(defaultValue)},
    return SetupInfoKey::Table{{MSGCTR_SETUP_INFO_KEYS(MSGCTR_SETUP_INFO_KEY_ROW)}};
#undef MSGCTR_SETUP_INFO_KEY_ROW
}

} // namespace

const SetupInfoKey::Table& SetupInfoKey::table()
{
    static const Table table = buildTable();
    return table;
}

const SetupInfoKey* SetupInfoKey::find(const QString& group, const QString& key)
{
    for (const SetupInfoKey& entry : table()) {
        if (group == QLatin1String(entry.group) && key == QLatin1String(entry.key))
            return &entry;
    }
    return nullptr;
}

QVariant SetupInfoKey::read(MSGCTR_ENG_Setup& store) const
{
    const QString groupName = QLatin1String(group);
    const QString name = QLatin1String(key);
    switch (type) {
    case VALUE_TYPE__INT: {
        int value = 0;
        store.getEntry(groupName, name, &value, defaultValue.toInt());
        return value;
    }
    case VALUE_TYPE__UINT: {
        unsigned int value = 0;
        store.getEntry(groupName, name, &value, defaultValue.toUInt());
        return value;
    }
    case VALUE_TYPE__BOOL: {
        bool value = false;
        store.getEntry(groupName, name, &value, defaultValue.toBool());
        return value;
    }
    case VALUE_TYPE__TEXT: {
        QString value;
        store.getEntry(groupName, name, &value, defaultValue.toString(), false);
        return value;
    }
    case VALUE_TYPE__ANY_TEXT: {
        QString value;
        store.getEntryAnyQstr(groupName, name, &value, defaultValue.toString());
        return value;
    }
    case VALUE_TYPE__TEXT_LIST: {
        QStringList value;
        store.getEntry(groupName, name, &value, defaultValue.toStringList());
        return value;
    }
    case VALUE_TYPE__INT_LIST: {
        std::vector<int> value;
        store.getEntry(groupName, name, &value, toVector(defaultValue));
        return QVariant::fromValue(QList<int>(value.begin(), value.end()));
    }
    }
    return defaultValue;
}

MSGCTR_ERRCODE SetupInfoKey::write(MSGCTR_ENG_Setup& store, const QVariant& value) const
{
    const QString groupName = QLatin1String(group);
    const QString name = QLatin1String(key);
    switch (type) {
    case VALUE_TYPE__INT:
        return store.setEntry(groupName, name, value.toInt());
    case VALUE_TYPE__UINT:
        return store.setEntry(groupName, name, value.toUInt());
    case VALUE_TYPE__BOOL:
        return store.setEntry(groupName, name, value.toBool());
    case VALUE_TYPE__TEXT:
        return store.setEntry(groupName, name, value.toString(), false);
    case VALUE_TYPE__ANY_TEXT:
        return store.setEntryAnyQstr(groupName, name, value.toString());
    case VALUE_TYPE__TEXT_LIST:
        return store.setEntry(groupName, name, value.toStringList());
    case VALUE_TYPE__INT_LIST:
        return store.setEntry(groupName, name, toVector(value));
    }
    return MSGCTR_ERRCODE__INVALID_ARGUMENT;
}
