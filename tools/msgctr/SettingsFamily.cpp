// msgctr settings: the messaging keys of the configuration store, typed as the library reads them.
#include "Command.h"

#include "MSGCTR_ENG_Setup.h"
#include "MSGCTR_ENG_SetupInfo.h"
#include "settings/SetupInfoKey.h"

#include <limits>

namespace msgctr {
namespace {

using Info = MSGCTR_ENG_SetupInfo;

QString typeName(SetupInfoKey::VALUE_TYPE_E type)
{
    switch (type) {
    case SetupInfoKey::VALUE_TYPE__INT:
        return QStringLiteral("int");
    case SetupInfoKey::VALUE_TYPE__UINT:
        return QStringLiteral("uint");
    case SetupInfoKey::VALUE_TYPE__BOOL:
        return QStringLiteral("bool");
    case SetupInfoKey::VALUE_TYPE__TEXT:
        return QStringLiteral("text");
    case SetupInfoKey::VALUE_TYPE__ANY_TEXT:
        return QStringLiteral("any-text");
    case SetupInfoKey::VALUE_TYPE__TEXT_LIST:
        return QStringLiteral("text-list");
    case SetupInfoKey::VALUE_TYPE__INT_LIST:
        return QStringLiteral("int-list");
    }
    return QString();
}

QString accessName(SetupInfoKey::ACCESS_E access)
{
    switch (access) {
    case SetupInfoKey::ACCESS__GET:
        return QStringLiteral("get");
    case SetupInfoKey::ACCESS__GET_SET:
        return QStringLiteral("get,set");
    case SetupInfoKey::ACCESS__STATIC_GET_SET:
        return QStringLiteral("static-get,set");
    }
    return QString();
}

// Texts are quoted so that empty and null stay apart and line breaks stay on one line.
QString quoted(const QString& text)
{
    if (text.isNull())
        return QStringLiteral("(null)");
    QString result = QStringLiteral("\"");
    for (QChar c : text) {
        if (c == QLatin1Char('"') || c == QLatin1Char('\\'))
            result += QLatin1Char('\\') + c;
        else if (c == QLatin1Char('\n'))
            result += QStringLiteral("\\n");
        else if (c == QLatin1Char('\r'))
            result += QStringLiteral("\\r");
        else
            result += c;
    }
    return result + QLatin1Char('"');
}

QString formatValue(SetupInfoKey::VALUE_TYPE_E type, const QVariant& value)
{
    switch (type) {
    case SetupInfoKey::VALUE_TYPE__INT:
        return QString::number(value.toInt());
    case SetupInfoKey::VALUE_TYPE__UINT:
        return QString::number(value.toUInt());
    case SetupInfoKey::VALUE_TYPE__BOOL:
        return value.toBool() ? QStringLiteral("true") : QStringLiteral("false");
    case SetupInfoKey::VALUE_TYPE__TEXT:
    case SetupInfoKey::VALUE_TYPE__ANY_TEXT:
        return quoted(value.toString());
    case SetupInfoKey::VALUE_TYPE__TEXT_LIST: {
        QStringList items;
        for (const QString& item : value.toStringList())
            items.append(quoted(item));
        return QLatin1Char('[') + items.join(QStringLiteral(", ")) + QLatin1Char(']');
    }
    case SetupInfoKey::VALUE_TYPE__INT_LIST: {
        QStringList items;
        for (int item : value.value<QList<int>>())
            items.append(QString::number(item));
        return QLatin1Char('[') + items.join(QStringLiteral(",")) + QLatin1Char(']');
    }
    }
    return QString();
}

bool parseBool(const QString& text, bool* value)
{
    const QString t = text.toLower();
    if (t == QLatin1String("true") || t == QLatin1String("on") || t == QLatin1String("yes") || t == QLatin1String("1"))
        *value = true;
    else if (t == QLatin1String("false") || t == QLatin1String("off") || t == QLatin1String("no")
             || t == QLatin1String("0"))
        *value = false;
    else
        return false;
    return true;
}

bool inRange(qlonglong value, qlonglong low, qlonglong high)
{
    return value >= low && value <= high;
}

// The typed value of the words given for a key; an empty result with *error set on bad input.
QVariant parseValue(SetupInfoKey::VALUE_TYPE_E type, const QStringList& words, QString* error)
{
    if (type != SetupInfoKey::VALUE_TYPE__TEXT_LIST && words.size() != 1) {
        *error = words.isEmpty() ? QStringLiteral("settings set needs a value")
                                 : QStringLiteral("a %1 key takes one value (quote it if it has blanks)").arg(typeName(type));
        return QVariant();
    }
    qlonglong number = 0;
    switch (type) {
    case SetupInfoKey::VALUE_TYPE__INT:
        if (parseInteger(words.first(), &number)
            && inRange(number, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()))
            return int(number);
        *error = QStringLiteral("'%1' is not an int").arg(words.first());
        return QVariant();
    case SetupInfoKey::VALUE_TYPE__UINT:
        if (parseInteger(words.first(), &number) && inRange(number, 0, std::numeric_limits<unsigned int>::max()))
            return static_cast<unsigned int>(number);
        *error = QStringLiteral("'%1' is not an unsigned int").arg(words.first());
        return QVariant();
    case SetupInfoKey::VALUE_TYPE__BOOL: {
        bool value = false;
        if (parseBool(words.first(), &value))
            return value;
        *error = QStringLiteral("'%1' is not a bool (true, false, on, off, yes, no, 1, 0)").arg(words.first());
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

QString describeError(MSGCTR_ERRCODE code)
{
    switch (code) {
    case MSGCTR_ERRCODE__SETUP_INVALID_CHAR:
        return QStringLiteral("the store cannot keep \"[\", \"]\", \"=\" or line breaks in this key");
    case MSGCTR_ERRCODE__SETUP_WRITE_NO_SPACE:
        return QStringLiteral("the disk is full");
    default:
        return QStringLiteral("the store refused the write");
    }
}

// The keys named by [GROUP [KEY]]; empty with a usage message when nothing matches.
QList<const SetupInfoKey*> selectKeys(const QStringList& args, const QString& verb, QString* error)
{
    QList<const SetupInfoKey*> keys;
    if (args.size() > 2) {
        *error = QStringLiteral("settings %1 takes at most GROUP and KEY").arg(verb);
        return keys;
    }
    for (const SetupInfoKey& key : SetupInfoKey::table()) {
        if ((args.isEmpty() || args.at(0) == QLatin1String(key.group))
            && (args.size() < 2 || args.at(1) == QLatin1String(key.key)))
            keys.append(&key);
    }
    if (keys.isEmpty()) {
        *error = args.size() == 1
            ? QStringLiteral("unknown group '%1' (see msgctr settings list)").arg(args.at(0))
            : QStringLiteral("unknown key '%1 %2' (see msgctr settings list)").arg(args.at(0), args.at(1));
    }
    return keys;
}

int list(const QStringList& args)
{
    QString error;
    const QList<const SetupInfoKey*> keys = selectKeys(args, QStringLiteral("list"), &error);
    if (keys.isEmpty())
        return usageError(error);
    for (const SetupInfoKey* key : keys) {
        out(QStringLiteral("%1 %2 %3 %4 default %5")
                .arg(QLatin1String(key->group), QLatin1String(key->key), typeName(key->type), accessName(key->access),
                     formatValue(key->type, key->defaultValue)));
    }
    return ExitOk;
}

int get(const QStringList& args)
{
    QString error;
    const QList<const SetupInfoKey*> keys = selectKeys(args, QStringLiteral("get"), &error);
    if (keys.isEmpty())
        return usageError(error);
    MSGCTR_ENG_Setup store(MSGCTR_ENG_Setup::MSGCTR_APP_ID, MSGCTR_ENG_Setup::FLUSH_MODE__NOT_FLUSH);
    for (const SetupInfoKey* key : keys) {
        const QString value = formatValue(key->type, key->read(store));
        if (args.size() == 2) {
            out(value);
            continue;
        }
        const bool stored = store.keys(QLatin1String(key->group)).contains(QLatin1String(key->key));
        out(QStringLiteral("%1 %2 = %3%4")
                .arg(QLatin1String(key->group), QLatin1String(key->key), value,
                     stored ? QString() : QStringLiteral(" (default)")));
    }
    return ExitOk;
}

int set(const QStringList& args)
{
    if (args.size() < 2)
        return usageError(QStringLiteral("settings set needs GROUP KEY VALUE"));
    QString error;
    const QList<const SetupInfoKey*> keys = selectKeys(args.mid(0, 2), QStringLiteral("set"), &error);
    if (keys.isEmpty())
        return usageError(error);
    const SetupInfoKey& key = *keys.first();
    const QVariant value = parseValue(key.type, args.mid(2), &error);
    if (!value.isValid())
        return usageError(error);
    MSGCTR_ENG_Setup store(MSGCTR_ENG_Setup::MSGCTR_APP_ID, MSGCTR_ENG_Setup::FLUSH_MODE__FLUSH);
    const MSGCTR_ERRCODE code = key.write(store, value);
    if (MSGCTR_ERRCODE_IS_ERROR(code))
        return failure(QStringLiteral("cannot set %1 %2: %3 (result %4)")
                           .arg(QLatin1String(key.group), QLatin1String(key.key), describeError(code))
                           .arg(code));
    out(QStringLiteral("%1 %2 = %3")
            .arg(QLatin1String(key.group), QLatin1String(key.key), formatValue(key.type, key.read(store))));
    return ExitOk;
}

const FamilyRegistration registration(
    QStringLiteral("settings"), QStringLiteral("the messaging settings in the configuration store"),
    {
        {QStringLiteral("list"), QStringLiteral("[GROUP [KEY]]"),
         QStringLiteral("the messaging keys with their types, access and defaults"), list},
        {QStringLiteral("get"), QStringLiteral("[GROUP [KEY]]"),
         QStringLiteral("the values as the library reads them; keys not stored are marked (default)"), get},
        {QStringLiteral("set"), QStringLiteral("GROUP KEY VALUE"),
         QStringLiteral("write a key in its type (text lists: one VALUE per item; int lists: 1,2,3)"), set},
    });

} // namespace
} // namespace msgctr
