// msgctr dm: a browser of the device-management tree for developers, straight on the DM library.
#include "Command.h"

#include "DmtResult.h"
#include "DmtTreeFactory.h"

#include <QByteArray>

#include <climits>

namespace msgctr {
namespace {

QString resultText(int result)
{
    switch (result) {
    case DMT_RESULT_FAIL:
        return QStringLiteral("general failure");
    case DMT_RESULT_CONSTRAINT:
        return QStringLiteral("a constraint failed");
    case DMT_RESULT_READ_ONLY:
        return QStringLiteral("read-only");
    case DMT_RESULT_INVALID_PARAM:
        return QStringLiteral("invalid parameter");
    case DMT_RESULT_NOT_FOUND:
        return QStringLiteral("no such node");
    case DMT_RESULT_NOT_ALLOWED:
        return QStringLiteral("not allowed");
    case DMT_RESULT_ALREADY_EXISTS:
        return QStringLiteral("the node exists already");
    default:
        return QStringLiteral("DM result");
    }
}

int dmFailure(const QString& what, int result)
{
    return failure(QStringLiteral("%1: %2 (DM result %3)").arg(what, resultText(result)).arg(result));
}

QString typeName(DmtDataType type)
{
    switch (type) {
    case DMT_DATA_STRING:
        return QStringLiteral("string");
    case DMT_DATA_INTEGER:
        return QStringLiteral("int");
    case DMT_DATA_BOOLEAN:
        return QStringLiteral("bool");
    case DMT_DATA_BINARY:
        return QStringLiteral("binary");
    case DMT_DATA_NULL:
        break;
    }
    return QStringLiteral("null");
}

// A value as a person reads it: strings quoted in the outline, bytes in hexadecimal.
QString valueText(const DmtData& value, bool quoteStrings)
{
    DMString text;
    int number = 0;
    bool flag = false;
    DMVector<unsigned char> bytes;
    if (value.GetString(text) == DMT_RESULT_SUCCESS) {
        const QString s = QString::fromUtf8(text.c_str(), qsizetype(text.length()));
        return quoteStrings ? QLatin1Char('"') + s + QLatin1Char('"') : s;
    }
    if (value.GetInt(number) == DMT_RESULT_SUCCESS)
        return QString::number(number);
    if (value.GetBoolean(flag) == DMT_RESULT_SUCCESS)
        return flag ? QStringLiteral("true") : QStringLiteral("false");
    if (value.GetBinary(bytes) == DMT_RESULT_SUCCESS)
        return QString::fromLatin1(QByteArray(reinterpret_cast<const char*>(bytes.data()), qsizetype(bytes.size())).toHex());
    return QString();
}

// The factory is initialised for the length of one verb.
class Factory {
public:
    Factory() : m_ok(DmtTreeFactory::Initialize()) {}
    ~Factory()
    {
        if (m_ok)
            DmtTreeFactory::Uninitialize();
    }
    bool ok() const { return m_ok; }

private:
    bool m_ok;
};

// "./A/B" as a path relative to the whole tree ("A/B"); "." is "".
bool relativeToRoot(const QString& path, QByteArray* relative)
{
    if (path == QLatin1String("."))
        *relative = QByteArray("");
    else if (path.startsWith(QLatin1String("./")) && path.size() > 2)
        *relative = path.mid(2).toUtf8();
    else
        return false;
    return true;
}

int openTree(const char* path, int lock, PDmtTree* tree, Factory& factory)
{
    if (!factory.ok())
        return DMT_RESULT_FAIL;
    return DmtTreeFactory::GetSubtreeEx(DmtPrincipal(DMT_LOCAL_PRINCIPAL), path, lock, *tree);
}

int printOutline(PDmtTree& tree, const QByteArray& relative, const QString& name, int depth)
{
    PDmtNode node;
    if (const int result = tree->GetNode(relative.constData(), node); result != DMT_RESULT_SUCCESS)
        return result;
    const QString indent(depth * 2, QLatin1Char(' '));
    if (node->IsLeaf()) {
        DmtData value;
        if (const int result = node->GetValue(value); result != DMT_RESULT_SUCCESS)
            return result;
        out(QStringLiteral("%1%2 (%3) = %4").arg(indent, name, typeName(value.GetType()), valueText(value, true)));
        return DMT_RESULT_SUCCESS;
    }
    out(QStringLiteral("%1%2 (node)").arg(indent, name));
    DMStringVector children;
    if (const int result = tree->GetChildNodeNames(relative.constData(), children); result != DMT_RESULT_SUCCESS)
        return result;
    for (const DMString& child : children) {
        const QByteArray path = relative.isEmpty() ? QByteArray(child.c_str()) : relative + '/' + child.c_str();
        if (const int result = printOutline(tree, path, QString::fromUtf8(child.c_str()), depth + 1);
            result != DMT_RESULT_SUCCESS)
            return result;
    }
    return DMT_RESULT_SUCCESS;
}

int tree(const QStringList& args)
{
    if (args.size() > 1)
        return usageError(QStringLiteral("dm tree takes at most one PATH"));
    const QString path = args.isEmpty() ? QStringLiteral(".") : args.first();
    Factory factory;
    PDmtTree subtree;
    if (const int result = openTree(path.toUtf8().constData(), DMT_LOCK_SHARED, &subtree, factory);
        result != DMT_RESULT_SUCCESS)
        return dmFailure(QStringLiteral("cannot open %1").arg(path), result);
    const QString root = QString::fromUtf8(subtree->GetRootPath().c_str());
    if (const int result = printOutline(subtree, QByteArray(""), root, 0); result != DMT_RESULT_SUCCESS)
        return dmFailure(QStringLiteral("cannot read %1").arg(path), result);
    return ExitOk;
}

int get(const QStringList& args)
{
    if (args.size() != 1)
        return usageError(QStringLiteral("dm get takes one PATH"));
    QByteArray relative;
    if (!relativeToRoot(args.first(), &relative))
        return usageError(QStringLiteral("'%1' is not a tree path (they begin with \"./\")").arg(args.first()));
    Factory factory;
    PDmtTree root;
    PDmtNode node;
    DmtData value;
    int result = openTree(".", DMT_LOCK_SHARED, &root, factory);
    if (result == DMT_RESULT_SUCCESS)
        result = root->GetNode(relative.constData(), node);
    if (result == DMT_RESULT_SUCCESS)
        result = node->GetValue(value);
    if (result != DMT_RESULT_SUCCESS)
        return dmFailure(QStringLiteral("cannot read %1").arg(args.first()), result);
    out(valueText(value, false));
    return ExitOk;
}

// VALUE as the DM value of the type asked for; false when it does not read as that type.
bool parseValue(const QString& type, const QString& text, DmtData* value)
{
    if (type == QLatin1String("string")) {
        *value = DmtData(DMString(text.toUtf8().toStdString()));
        return true;
    }
    if (type == QLatin1String("int")) {
        qlonglong number = 0;
        if (!parseInteger(text, &number) || number < INT_MIN || number > INT_MAX)
            return false;
        *value = DmtData(int(number));
        return true;
    }
    if (type == QLatin1String("bool")) {
        if (text != QLatin1String("true") && text != QLatin1String("false"))
            return false;
        *value = DmtData(text == QLatin1String("true"));
        return true;
    }
    if (type == QLatin1String("binary")) {
        const QByteArray bytes = QByteArray::fromHex(text.toLatin1());
        if (bytes.toHex() != text.toLower().toLatin1())
            return false;
        *value = DmtData(reinterpret_cast<const unsigned char*>(bytes.constData()), int(bytes.size()));
        return true;
    }
    return false;
}

int set(const QStringList& args)
{
    QStringList rest = args;
    QString type = QStringLiteral("string");
    int status = ExitOk;
    if (!takeOption(&rest, QStringLiteral("--type"), &type, nullptr, &status))
        return status;
    if (rest.size() != 2)
        return usageError(QStringLiteral("dm set takes PATH and VALUE"));
    static const QStringList types{QStringLiteral("string"), QStringLiteral("int"), QStringLiteral("bool"),
                                   QStringLiteral("binary")};
    if (!types.contains(type))
        return usageError(QStringLiteral("unknown type '%1' (string, int, bool or binary)").arg(type));
    QByteArray relative;
    if (!relativeToRoot(rest.at(0), &relative) || relative.isEmpty())
        return usageError(QStringLiteral("'%1' is not a leaf path (they begin with \"./\")").arg(rest.at(0)));
    DmtData value;
    if (!parseValue(type, rest.at(1), &value))
        return usageError(QStringLiteral("'%1' is not a %2 value").arg(rest.at(1), type));
    Factory factory;
    PDmtTree root;
    PDmtNode node;
    int result = openTree(".", DMT_LOCK_EXCLUSIVE, &root, factory);
    if (result == DMT_RESULT_SUCCESS) {
        result = root->GetNode(relative.constData(), node);
        if (result == DMT_RESULT_SUCCESS)
            result = node->SetValue(value);
        else if (result == DMT_RESULT_NOT_FOUND)
            result = root->CreateLeafNode(relative.constData(), node, value);
    }
    if (result == DMT_RESULT_SUCCESS)
        result = root->Flush();
    if (result != DMT_RESULT_SUCCESS)
        return dmFailure(QStringLiteral("cannot set %1").arg(rest.at(0)), result);
    return ExitOk;
}

int remove(const QStringList& args)
{
    if (args.size() != 1)
        return usageError(QStringLiteral("dm delete takes one PATH"));
    QByteArray relative;
    if (!relativeToRoot(args.first(), &relative) || relative.isEmpty())
        return usageError(QStringLiteral("'%1' is not a path below the root (they begin with \"./\")").arg(args.first()));
    Factory factory;
    PDmtTree root;
    int result = openTree(".", DMT_LOCK_EXCLUSIVE, &root, factory);
    if (result == DMT_RESULT_SUCCESS)
        result = root->DeleteNode(relative.constData());
    if (result == DMT_RESULT_SUCCESS)
        result = root->Flush();
    if (result != DMT_RESULT_SUCCESS)
        return dmFailure(QStringLiteral("cannot delete %1").arg(args.first()), result);
    return ExitOk;
}

const FamilyRegistration registration(
    QStringLiteral("dm"), QStringLiteral("browse and edit the device-management tree"),
    {
        {QStringLiteral("tree"), QStringLiteral("[PATH]"),
         QStringLiteral("the tree under PATH (default \".\") as an indented outline with types"), tree},
        {QStringLiteral("get"), QStringLiteral("PATH"), QStringLiteral("print the value of the leaf at PATH"), get},
        {QStringLiteral("set"), QStringLiteral("PATH VALUE [--type string|int|bool|binary]"),
         QStringLiteral("set the leaf at PATH, creating it and its parents if needed (binary in hex)"), set},
        {QStringLiteral("delete"), QStringLiteral("PATH"), QStringLiteral("delete the node at PATH and all under it"),
         remove},
    });

} // namespace
} // namespace msgctr
