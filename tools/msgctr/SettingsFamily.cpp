// msgctr settings: the messaging keys of the configuration store, typed as the library reads them.
#include "Verb.h"

#include "MSGCTR_ENG_Setup.h"
#include "settings/SetupInfoKey.h"

#include <limits>

namespace msgctr {
namespace {

QString typeName(SetupInfoKey::VALUE_TYPE_E type)
{
    switch (type) {
    case SetupInfoKey::VALUE_TYPE__INT: return QStringLiteral("int");
    case SetupInfoKey::VALUE_TYPE__UINT: return QStringLiteral("uint");
    case SetupInfoKey::VALUE_TYPE__BOOL: return QStringLiteral("bool");
    case SetupInfoKey::VALUE_TYPE__TEXT: return QStringLiteral("text");
    case SetupInfoKey::VALUE_TYPE__ANY_TEXT: return QStringLiteral("any-text");
    case SetupInfoKey::VALUE_TYPE__TEXT_LIST: return QStringLiteral("text-list");
    case SetupInfoKey::VALUE_TYPE__INT_LIST: return QStringLiteral("int-list");
    }
    return QString();
}

QString accessName(SetupInfoKey::ACCESS_E access)
{
    switch (access) {
    case SetupInfoKey::ACCESS__GET: return QStringLiteral("get");
    case SetupInfoKey::ACCESS__GET_SET: return QStringLiteral("get,set");
    case SetupInfoKey::ACCESS__STATIC_GET_SET: return QStringLiteral("static-get,set");
    }
    return QString();
}

QJsonValue jsonValue(SetupInfoKey::VALUE_TYPE_E type, const QVariant& value)
{
    switch (type) {
    case SetupInfoKey::VALUE_TYPE__INT: return value.toInt();
    case SetupInfoKey::VALUE_TYPE__UINT: return qint64(value.toUInt());
    case SetupInfoKey::VALUE_TYPE__BOOL: return value.toBool();
    case SetupInfoKey::VALUE_TYPE__TEXT:
    case SetupInfoKey::VALUE_TYPE__ANY_TEXT:
        return value.toString().isNull() ? QJsonValue() : QJsonValue(value.toString());
    case SetupInfoKey::VALUE_TYPE__TEXT_LIST: return QJsonArray::fromStringList(value.toStringList());
    case SetupInfoKey::VALUE_TYPE__INT_LIST: {
        QJsonArray items;
        for (int item : value.value<QList<int>>())
            items.append(item);
        return items;
    }
    }
    return QJsonValue();
}

bool parseBool(const QString& text, bool* value)
{
    // The command line already gave booleans in one set of words; this is the same set for the VALUE word.
    const QString t = text.toLower();
    if (t == QLatin1String("true") || t == QLatin1String("on") || t == QLatin1String("yes") || t == QLatin1String("1"))
        *value = true;
    else if (t == QLatin1String("false") || t == QLatin1String("off") || t == QLatin1String("no") || t == QLatin1String("0"))
        *value = false;
    else
        return false;
    return true;
}

bool parseWhole(const QString& text, qlonglong low, qlonglong high, qlonglong* value)
{
    bool ok = false;
    *value = text.startsWith(QLatin1String("0x"), Qt::CaseInsensitive) ? text.mid(2).toLongLong(&ok, 16) : text.toLongLong(&ok, 10);
    return ok && *value >= low && *value <= high;
}

// The typed value of the words given for a key; an invalid QVariant with *error set on bad input.
QVariant parseValue(SetupInfoKey::VALUE_TYPE_E type, const QStringList& words, QString* error)
{
    if (type != SetupInfoKey::VALUE_TYPE__TEXT_LIST && words.size() != 1) {
        *error = QStringLiteral("a %1 key takes one VALUE (quote it if it has blanks)").arg(typeName(type));
        return QVariant();
    }
    qlonglong number = 0;
    switch (type) {
    case SetupInfoKey::VALUE_TYPE__INT:
        if (parseWhole(words.first(), std::numeric_limits<int>::min(), std::numeric_limits<int>::max(), &number))
            return int(number);
        *error = QStringLiteral("VALUE must be a number from %1 to %2, not '%3'")
                     .arg(std::numeric_limits<int>::min()).arg(std::numeric_limits<int>::max()).arg(words.first());
        return QVariant();
    case SetupInfoKey::VALUE_TYPE__UINT:
        if (parseWhole(words.first(), 0, std::numeric_limits<unsigned int>::max(), &number))
            return static_cast<unsigned int>(number);
        *error = QStringLiteral("VALUE must be a number from 0 to %1, not '%2'").arg(std::numeric_limits<unsigned int>::max()).arg(words.first());
        return QVariant();
    case SetupInfoKey::VALUE_TYPE__BOOL: {
        bool value = false;
        if (parseBool(words.first(), &value))
            return value;
        *error = QStringLiteral("VALUE must be true or false (or on/off, yes/no, 1/0), not '%1'").arg(words.first());
        return QVariant();
    }
    case SetupInfoKey::VALUE_TYPE__TEXT:
    case SetupInfoKey::VALUE_TYPE__ANY_TEXT:
        return words.first();
    case SetupInfoKey::VALUE_TYPE__TEXT_LIST:
        return words;
    case SetupInfoKey::VALUE_TYPE__INT_LIST: {
        std::vector<int> values;
        if (MSGCTR_ENG_Setup::toIntVectorFromString(&values, words.first(), QStringLiteral(",")))
            return QVariant::fromValue(QList<int>(values.begin(), values.end()));
        *error = QStringLiteral("'%1' is not a list of ints joined by \",\"").arg(words.first());
        return QVariant();
    }
    }
    return QVariant();
}

// The keys named by [GROUP [KEY]]; empty with a usage message when the pair is not a key.
QList<const SetupInfoKey*> selectKeys(const Args& args, QString* error)
{
    const QString group = args.text(QStringLiteral("GROUP"));
    const QString name = args.text(QStringLiteral("KEY"));
    QList<const SetupInfoKey*> keys;
    for (const SetupInfoKey& key : SetupInfoKey::table()) {
        if ((!args.has(QStringLiteral("GROUP")) || group == QLatin1String(key.group))
            && (!args.has(QStringLiteral("KEY")) || name == QLatin1String(key.key)))
            keys.append(&key);
    }
    if (keys.isEmpty())
        *error = QStringLiteral("%1 has no key %2 (see msgctr settings list %1)").arg(group, name);
    return keys;
}

QStringList groupNames()
{
    QStringList names;
    for (const SetupInfoKey& key : SetupInfoKey::table())
        if (!names.contains(QLatin1String(key.group)))
            names.append(QLatin1String(key.group));
    return names;
}

QStringList keyNames()
{
    QStringList names;
    for (const SetupInfoKey& key : SetupInfoKey::table())
        if (!names.contains(QLatin1String(key.key)))
            names.append(QLatin1String(key.key));
    return names;
}

// Fields are grouped: "GROUP.KEY: ..." as text, {"GROUP": {"KEY": ...}} as JSON.
void addKeyField(QMap<QString, QJsonObject>* groups, const SetupInfoKey& key, const QJsonValue& value)
{
    (*groups)[QLatin1String(key.group)].insert(QLatin1String(key.key), value);
}

void writeGroups(const QMap<QString, QJsonObject>& groups, Output& out)
{
    for (auto it = groups.constBegin(); it != groups.constEnd(); ++it)
        out.field(it.key(), it.value());
}

int list(const Args& args, Output& out)
{
    QString error;
    const QList<const SetupInfoKey*> keys = selectKeys(args, &error);
    if (keys.isEmpty())
        return usage(error);
    QMap<QString, QJsonObject> groups;
    for (const SetupInfoKey* key : keys) {
        addKeyField(&groups, *key,
                    QJsonObject{{QStringLiteral("type"), typeName(key->type)},
                                {QStringLiteral("access"), accessName(key->access)},
                                {QStringLiteral("writable"), key->access != SetupInfoKey::ACCESS__GET},
                                {QStringLiteral("default"), jsonValue(key->type, key->defaultValue)}});
    }
    writeGroups(groups, out);
    return ExitOk;
}

int get(const Args& args, Output& out)
{
    QString error;
    const QList<const SetupInfoKey*> keys = selectKeys(args, &error);
    if (keys.isEmpty())
        return usage(error);
    MSGCTR_ENG_Setup store(MSGCTR_ENG_Setup::MSGCTR_APP_ID, MSGCTR_ENG_Setup::FLUSH_MODE__NOT_FLUSH);
    QMap<QString, QJsonObject> groups;
    QJsonArray defaults;
    for (const SetupInfoKey* key : keys) {
        addKeyField(&groups, *key, jsonValue(key->type, key->read(store)));
        if (!store.keys(QLatin1String(key->group)).contains(QLatin1String(key->key)))
            defaults.append(QStringLiteral("%1.%2").arg(QLatin1String(key->group), QLatin1String(key->key)));
    }
    writeGroups(groups, out);
    out.field(QStringLiteral("defaults"), defaults);
    return ExitOk;
}

int set(const Args& args, Output& out)
{
    QString error;
    const QList<const SetupInfoKey*> keys = selectKeys(args, &error);
    if (keys.isEmpty())
        return usage(error);
    const SetupInfoKey& key = *keys.first();
    const QVariant value = parseValue(key.type, args.texts(QStringLiteral("VALUE")), &error);
    if (!value.isValid())
        return usage(error);
    if (key.access == SetupInfoKey::ACCESS__GET && !args.has(QStringLiteral("--force")))
        return fail(QStringLiteral("%1 %2 is read-only (give --force to write it all the same)")
                        .arg(QLatin1String(key.group), QLatin1String(key.key)));
    MSGCTR_ENG_Setup store(MSGCTR_ENG_Setup::MSGCTR_APP_ID, MSGCTR_ENG_Setup::FLUSH_MODE__FLUSH);
    const MSGCTR_ERRCODE code = key.write(store, value);
    if (MSGCTR_ERRCODE_IS_ERROR(code))
        return libraryFailure(QStringLiteral("writing %1 %2").arg(QLatin1String(key.group), QLatin1String(key.key)), code);
    QMap<QString, QJsonObject> groups;
    addKeyField(&groups, key, jsonValue(key.type, key.read(store)));
    writeGroups(groups, out);
    return ExitOk;
}

const VerbRegistration registration(
    QStringLiteral("settings"), QStringLiteral("the messaging settings in the configuration store"),
    {
        Verb(QStringLiteral("list"), QStringLiteral("the messaging keys with their types, access and defaults"), list)
            .arg(choice(QStringLiteral("GROUP"), groupNames(), QStringLiteral("only the keys of this group")).optional())
            .arg(choice(QStringLiteral("KEY"), keyNames(), QStringLiteral("only this key")).optional())
            .fields(QStringLiteral("one object per group, one member per key: type (text), access (text), writable (boolean), default")),
        Verb(QStringLiteral("get"), QStringLiteral("the values as the library reads them"), get)
            .arg(choice(QStringLiteral("GROUP"), groupNames(), QStringLiteral("only the keys of this group")).optional())
            .arg(choice(QStringLiteral("KEY"), keyNames(), QStringLiteral("only this key")).optional())
            .reads()
            .fields(QStringLiteral("one object per group, one member per key with its value; defaults (list of "
                                   "GROUP.KEY names not stored, read as their default)")),
        Verb(QStringLiteral("set"), QStringLiteral("write a key in its type (text lists: one VALUE per item; int lists: 1,2,3)"), set)
            .arg(choice(QStringLiteral("GROUP"), groupNames(), QStringLiteral("the key's group")))
            .arg(choice(QStringLiteral("KEY"), keyNames(), QStringLiteral("the key")))
            .arg(text(QStringLiteral("VALUE"), QStringLiteral("the new value")).repeated())
            .arg(flag(QStringLiteral("--force"), QStringLiteral("write a read-only key all the same")))
            .writes()
            .fields(QStringLiteral("one object for the group, with the key and the value now stored")),
    });

} // namespace
} // namespace msgctr
