#include "MSGCTR_ENG_Setup.h"

#include "MSGCTR_ENG_QByteArrUti.h"
#include "MSGCTR_ENG_StrUti.h"
#include "foundation/MsgctrReport.h"

#include <QDataStream>
#include <QtEndian>
#include <QIODevice>

#include <cerrno>

static_assert(MSGCTR_ENG_Setup::DATA_STREAM_VERSION == QDataStream::Qt_6_0, "stored bytes depend on it");

namespace {

// The store answers true or false and leaves errno as the failure left it.
MSGCTR_ERRCODE resultOfWrite(bool written)
{
    if (written)
        return MSGCTR_ERRCODE__SUCCESS;
    return errno == ENOSPC ? MSGCTR_ERRCODE__SETUP_WRITE_NO_SPACE : MSGCTR_ERRCODE__SETUP_WRITE_FAIL;
}

template <typename T>
QByteArray toDataStreamBytes(const T& value)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream.setVersion(MSGCTR_ENG_Setup::DATA_STREAM_VERSION);
    stream.setByteOrder(QDataStream::BigEndian);
    stream << value;
    return bytes;
}

// A list's serialised item count comes first and the stream reserves room for that many items before
// reading one. Every item takes at least its 4-byte length, so a count the remaining bytes cannot hold is
// damage, refused before it costs an allocation the data does not justify.
bool itemCountFits(const QByteArray& bytes, const QStringList*)
{
    if (bytes.size() < 4)
        return false;
    const quint32 count = qFromBigEndian<quint32>(bytes.constData());
    return count <= static_cast<quint32>((bytes.size() - 4) / 4);
}

bool itemCountFits(const QByteArray&, const QString*)
{
    return true;
}

// False when the bytes are not exactly one value of the type.
template <typename T>
bool fromDataStreamBytes(const QByteArray& bytes, T* out)
{
    if (!itemCountFits(bytes, out))
        return false;
    QDataStream stream(bytes);
    stream.setVersion(MSGCTR_ENG_Setup::DATA_STREAM_VERSION);
    stream.setByteOrder(QDataStream::BigEndian);
    T value;
    stream >> value;
    if (stream.status() != QDataStream::Ok || !stream.atEnd())
        return false;
    *out = value;
    return true;
}

template <typename T>
void readDataStreamEntry(MSGCTR_ENG_Setup& setup, const QString& group, const QString& key, T* out,
                         const T& defaultValue)
{
    const QByteArray defaultBytes = toDataStreamBytes(defaultValue);
    QByteArray bytes = defaultBytes;
    setup.getEntry(group, key, &bytes, defaultBytes);
    if (!fromDataStreamBytes(bytes, out)) {
        MSGCTR_MILD_ASSERT_FAIL_REPORT("fromDataStreamBytes(bytes, out)")
            << MSGCTR_VAL(group) << MSGCTR_VAL(key);
        *out = defaultValue;
    }
}

bool subHexQstring2ByteArray(const QString& text, QByteArray* out)
{
    out->clear();
    if (!MSGCTR_ENG_StrUti::isValidHexString(text))
        return false;
    const int pairs = text.length() / 2;
    QByteArray bytes(pairs, '\0');
    for (int i = 0; i < pairs; ++i) {
        bool ok = false;
        const uint value = QStringView(text).mid(2 * i, 2).toUInt(&ok, 16);
        if (!ok)
            return false;
        bytes[i] = static_cast<char>(value);
    }
    *out = bytes;
    return true;
}

} // namespace

MSGCTR_ENG_Setup::MSGCTR_ENG_Setup(AM_Global::Apps app, FLUSH_MODE_E mode)
    : SETUP_SET_Manager(app, mode == FLUSH_MODE__FLUSH)
{
}

MSGCTR_ENG_Setup::MSGCTR_ENG_Setup(const QString& name, FLUSH_MODE_E mode)
    : SETUP_SET_Manager(name, mode == FLUSH_MODE__FLUSH, mode == FLUSH_MODE__FLUSH)
{
}

MSGCTR_ENG_Setup::~MSGCTR_ENG_Setup() = default;

void MSGCTR_ENG_Setup::getEntry(const QString& group, const QString& key, int* out, int defaultValue)
{
    SETUP_SET_Manager::getInt(group, key, out, defaultValue);
}

void MSGCTR_ENG_Setup::getEntry(const QString& group, const QString& key, unsigned int* out,
                                unsigned int defaultValue)
{
    SETUP_SET_Manager::getUInt(group, key, out, defaultValue);
}

void MSGCTR_ENG_Setup::getEntry(const QString& group, const QString& key, bool* out, bool defaultValue)
{
    SETUP_SET_Manager::getBool(group, key, out, defaultValue);
}

void MSGCTR_ENG_Setup::getEntry(const QString& group, const QString& key, QString* out,
                                const QString& defaultValue, bool flag)
{
    SETUP_SET_Manager::getString(group, key, out, defaultValue, flag);
}

void MSGCTR_ENG_Setup::getEntry(const QString& group, const QString& key, QByteArray* out,
                                const QByteArray& defaultValue)
{
    QString defaultHex;
    byteArray2HexQstring(MSGCTR_ENG_QByteArrUti::qbyteArrWithCrc(defaultValue), &defaultHex);
    QString hex;
    getEntry(group, key, &hex, defaultHex, false);
    QByteArray framed;
    if (!hexQstring2ByteArray(hex, &framed))
        return;
    QByteArray payload;
    if (MSGCTR_ENG_QByteArrUti::getQbyteArrFromQbyteArrWithCrc(&payload, framed))
        *out = payload;
}

void MSGCTR_ENG_Setup::getEntryAnyQstr(const QString& group, const QString& key, QString* out,
                                       const QString& defaultValue)
{
    readDataStreamEntry(*this, group, key, out, defaultValue);
}

void MSGCTR_ENG_Setup::getEntry(const QString& group, const QString& key, QStringList* out,
                                const QStringList& defaultValue)
{
    readDataStreamEntry(*this, group, key, out, defaultValue);
}

void MSGCTR_ENG_Setup::getEntry(const QString& group, const QString& key, std::vector<int>* out,
                                const std::vector<int>& defaultValue)
{
    const QString separator = QStringLiteral(",");
    QString text;
    getEntry(group, key, &text, toStringFromIntVector(defaultValue, separator), false);
    toIntVectorFromString(out, text, separator);
}

void MSGCTR_ENG_Setup::getEntry(const QString& group, const QString& key, std::vector<unsigned int>* out,
                                const std::vector<unsigned int>& defaultValue)
{
    std::vector<int> values;
    getEntry(group, key, &values, std::vector<int>(defaultValue.begin(), defaultValue.end()));
    out->assign(values.begin(), values.end());
}

MSGCTR_ERRCODE MSGCTR_ENG_Setup::setEntry(const QString& group, const QString& key, int value)
{
    return resultOfWrite(SETUP_SET_Manager::setInt(group, key, value));
}

MSGCTR_ERRCODE MSGCTR_ENG_Setup::setEntry(const QString& group, const QString& key, unsigned int value)
{
    return resultOfWrite(SETUP_SET_Manager::setUInt(group, key, value));
}

MSGCTR_ERRCODE MSGCTR_ENG_Setup::setEntry(const QString& group, const QString& key, bool value)
{
    return resultOfWrite(SETUP_SET_Manager::setBool(group, key, value));
}

MSGCTR_ERRCODE MSGCTR_ENG_Setup::setEntry(const QString& group, const QString& key, const QString& value,
                                          bool flag)
{
    if (!isValidStringToSaveToCfg(value))
        return MSGCTR_ERRCODE__SETUP_INVALID_CHAR;
    return resultOfWrite(SETUP_SET_Manager::setString(group, key, value, flag));
}

MSGCTR_ERRCODE MSGCTR_ENG_Setup::setEntry(const QString& group, const QString& key, const QByteArray& value)
{
    QString hex;
    byteArray2HexQstring(MSGCTR_ENG_QByteArrUti::qbyteArrWithCrc(value), &hex);
    return setEntry(group, key, hex, false);
}

MSGCTR_ERRCODE MSGCTR_ENG_Setup::setEntryAnyQstr(const QString& group, const QString& key, const QString& value)
{
    return setEntry(group, key, toDataStreamBytes(value));
}

MSGCTR_ERRCODE MSGCTR_ENG_Setup::setEntry(const QString& group, const QString& key, const QStringList& value)
{
    return setEntry(group, key, toDataStreamBytes(value));
}

MSGCTR_ERRCODE MSGCTR_ENG_Setup::setEntry(const QString& group, const QString& key,
                                          const std::vector<int>& value)
{
    return setEntry(group, key, toStringFromIntVector(value, QStringLiteral(",")), false);
}

MSGCTR_ERRCODE MSGCTR_ENG_Setup::setEntry(const QString& group, const QString& key,
                                          const std::vector<unsigned int>& value)
{
    return setEntry(group, key, std::vector<int>(value.begin(), value.end()));
}

MSGCTR_ERRCODE MSGCTR_ENG_Setup::flush() const
{
    SETUP_SET_Manager& store = const_cast<MSGCTR_ENG_Setup&>(*this);
    return resultOfWrite(store.flush());
}

bool MSGCTR_ENG_Setup::hexQstring2ByteArray(const QString& text, QByteArray* out)
{
    return subHexQstring2ByteArray(text, out);
}

void MSGCTR_ENG_Setup::byteArray2HexQstring(const QByteArray& bytes, QString* out)
{
    *out = QString::fromLatin1(bytes.toHex().toUpper());
}

bool MSGCTR_ENG_Setup::toIntVectorFromString(std::vector<int>* out, const QString& text,
                                             const QString& separator)
{
    out->clear();
    const QStringList parts = text.split(separator, Qt::SkipEmptyParts);
    std::vector<int> values;
    values.reserve(parts.size());
    for (const QString& part : parts) {
        bool ok = false;
        const int value = part.toInt(&ok, 10);
        if (!ok)
            return false;
        values.push_back(value);
    }
    *out = std::move(values);
    return true;
}

QString MSGCTR_ENG_Setup::toStringFromIntVector(const std::vector<int>& vector, const QString& separator)
{
    QStringList parts;
    parts.reserve(static_cast<qsizetype>(vector.size()));
    for (int value : vector)
        parts.append(QString::number(value));
    return parts.join(separator);
}

QString MSGCTR_ENG_Setup::invalidCharChkRegExpForStringToSaveToCfg()
{
    return QStringLiteral("[\\[\\]\\r\\n\\=]");
}

QString MSGCTR_ENG_Setup::validCharChkRegExpForStringToSaveToCfg()
{
    return QStringLiteral("[^\\[\\]\\r\\n\\=]");
}

// The characters of invalidCharChkRegExpForStringToSaveToCfg(), looked for one by one: a pattern matcher
// finds nothing in a text that is not valid UTF-16, and any text must be checked.
bool MSGCTR_ENG_Setup::isValidStringToSaveToCfg(const QString& text)
{
    for (const QChar c : text) {
        switch (c.unicode()) {
        case '[': case ']': case '\r': case '\n': case '=':
            return false;
        default:
            break;
        }
    }
    return true;
}
