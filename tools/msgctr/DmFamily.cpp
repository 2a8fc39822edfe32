// msgctr dm: a browser of the device-management tree for developers, straight on the DM library.
#include "Verb.h"

#include "DmtResult.h"
#include "DmtTreeFactory.h"

#include <QByteArray>


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
        return QStringLiteral("unknown DM result");
    }
}

// The one failure form of msgctr: the operation, the code and what it means.
int dmFailure(const QString& operation, int result)
{
    return fail(QStringLiteral("%1 failed: result %2 (%3)").arg(operation).arg(result).arg(resultText(result)));
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

// A value in its JSON type; bytes in hexadecimal.
QJsonValue valueJson(const DmtData& value)
{
    DMString text;
    int number = 0;
    bool flag = false;
    DMVector<unsigned char> bytes;
    if (value.GetString(text) == DMT_RESULT_SUCCESS) {
        return QString::fromUtf8(text.c_str(), qsizetype(text.length()));
    }
    if (value.GetInt(number) == DMT_RESULT_SUCCESS)
        return number;
    if (value.GetBoolean(flag) == DMT_RESULT_SUCCESS)
        return flag;
    if (value.GetBinary(bytes) == DMT_RESULT_SUCCESS)
        return QString::fromLatin1(QByteArray(reinterpret_cast<const char*>(bytes.data()), qsizetype(bytes.size())).toHex());
    return QJsonValue();
}

QJsonObject leafJson(const QString& path, const DmtData& value)
{
    return QJsonObject{{QStringLiteral("path"), path},
                       {QStringLiteral("type"), typeName(value.GetType())},
                       {QStringLiteral("value"), valueJson(value)}};
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

// Every node under relative in depth-first order, each with its full path and type; leaves with their value.
int collectNodes(PDmtTree& tree, const QByteArray& relative, const QString& path, QJsonArray* nodes)
{
    PDmtNode node;
    if (const int result = tree->GetNode(relative.constData(), node); result != DMT_RESULT_SUCCESS)
        return result;
    if (node->IsLeaf()) {
        DmtData value;
        if (const int result = node->GetValue(value); result != DMT_RESULT_SUCCESS)
            return result;
        nodes->append(leafJson(path, value));
        return DMT_RESULT_SUCCESS;
    }
    nodes->append(QJsonObject{{QStringLiteral("path"), path}, {QStringLiteral("type"), QStringLiteral("node")}});
    DMStringVector children;
    if (const int result = tree->GetChildNodeNames(relative.constData(), children); result != DMT_RESULT_SUCCESS)
        return result;
    for (const DMString& child : children) {
        const QByteArray childRelative = relative.isEmpty() ? QByteArray(child.c_str()) : relative + '/' + child.c_str();
        const QString childPath = path + QLatin1Char('/') + QString::fromUtf8(child.c_str());
        if (const int result = collectNodes(tree, childRelative, childPath, nodes); result != DMT_RESULT_SUCCESS)
            return result;
    }
    return DMT_RESULT_SUCCESS;
}

int tree(const Args& args, Output& out)
{
    const QString path = args.has(QStringLiteral("PATH")) ? args.text(QStringLiteral("PATH")) : QStringLiteral(".");
    Factory factory;
    PDmtTree subtree;
    if (const int result = openTree(path.toUtf8().constData(), DMT_LOCK_SHARED, &subtree, factory);
        result != DMT_RESULT_SUCCESS)
        return dmFailure(QStringLiteral("opening %1").arg(path), result);
    QJsonArray nodes;
    const QString root = QString::fromUtf8(subtree->GetRootPath().c_str());
    if (const int result = collectNodes(subtree, QByteArray(""), root, &nodes); result != DMT_RESULT_SUCCESS)
        return dmFailure(QStringLiteral("reading %1").arg(path), result);
    out.field(QStringLiteral("nodes"), nodes);
    return ExitOk;
}

int get(const Args& args, Output& out)
{
    const QString path = args.text(QStringLiteral("PATH"));
    QByteArray relative;
    if (!relativeToRoot(path, &relative))
        return usage(QStringLiteral("'%1' is not a tree path (they begin with \"./\")").arg(path));
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
        return dmFailure(QStringLiteral("reading %1").arg(path), result);
    const QJsonObject leaf = leafJson(path, value);
    for (auto it = leaf.begin(); it != leaf.end(); ++it)
        out.field(it.key(), it.value());
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
        bool ok = false;
        const int number = text.toInt(&ok, 10);
        if (!ok)
            return false;
        *value = DmtData(number);
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

int set(const Args& args, Output& out)
{
    const QString path = args.text(QStringLiteral("PATH"));
    const QString text = args.text(QStringLiteral("VALUE"));
    const QString type = args.has(QStringLiteral("--type")) ? args.text(QStringLiteral("--type")) : QStringLiteral("string");
    QByteArray relative;
    if (!relativeToRoot(path, &relative) || relative.isEmpty())
        return usage(QStringLiteral("'%1' is not a leaf path (they begin with \"./\")").arg(path));
    DmtData value;
    if (!parseValue(type, text, &value))
        return usage(QStringLiteral("'%1' is not a %2 value").arg(text, type));
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
        return dmFailure(QStringLiteral("setting %1").arg(path), result);
    const QJsonObject leaf = leafJson(path, value);
    for (auto it = leaf.begin(); it != leaf.end(); ++it)
        out.field(it.key(), it.value());
    return ExitOk;
}

int remove(const Args& args, Output& out)
{
    const QString path = args.text(QStringLiteral("PATH"));
    QByteArray relative;
    if (!relativeToRoot(path, &relative) || relative.isEmpty())
        return usage(QStringLiteral("'%1' is not a path below the root (they begin with \"./\")").arg(path));
    Factory factory;
    PDmtTree root;
    int result = openTree(".", DMT_LOCK_EXCLUSIVE, &root, factory);
    if (result == DMT_RESULT_SUCCESS)
        result = root->DeleteNode(relative.constData());
    if (result == DMT_RESULT_SUCCESS)
        result = root->Flush();
    if (result != DMT_RESULT_SUCCESS)
        return dmFailure(QStringLiteral("deleting %1").arg(path), result);
    out.field(QStringLiteral("deleted"), path);
    return ExitOk;
}

Arg pathArg(const QString& help)
{
    return text(QStringLiteral("PATH"), help);
}

const VerbRegistration registration(
    QStringLiteral("dm"), QStringLiteral("browse and edit the device-management tree"),
    {
        Verb(QStringLiteral("tree"), QStringLiteral("every node under PATH with its type, leaves with their value"), tree)
            .arg(pathArg(QStringLiteral("where to start (default \".\", the whole tree)")).optional())
            .reads()
            .fields(QStringLiteral("nodes (list of {path (text), type (text), value (text, number or bool; leaves only)})")),
        Verb(QStringLiteral("get"), QStringLiteral("the value of the leaf at PATH"), get)
            .arg(pathArg(QStringLiteral("the leaf, e.g. ./Vendor/Name")))
            .reads()
            .fields(QStringLiteral("path (text), type (text), value (text, number or bool)")),
        Verb(QStringLiteral("set"), QStringLiteral("set the leaf at PATH, creating it and its parents if needed"), set)
            .arg(pathArg(QStringLiteral("the leaf, e.g. ./Vendor/Name")))
            .arg(text(QStringLiteral("VALUE"), QStringLiteral("the value; binary values in hexadecimal")))
            .arg(choice(QStringLiteral("--type"), {QStringLiteral("string"), QStringLiteral("int"), QStringLiteral("bool"),
                                                   QStringLiteral("binary")},
                        QStringLiteral("the value's type (default string)")))
            .writes()
            .fields(QStringLiteral("path (text), type (text), value (text, number or bool)")),
        Verb(QStringLiteral("delete"), QStringLiteral("delete the node at PATH and all under it"), remove)
            .arg(pathArg(QStringLiteral("the node, e.g. ./Vendor")))
            .writes()
            .fields(QStringLiteral("deleted (text)")),
    });

} // namespace
} // namespace msgctr
