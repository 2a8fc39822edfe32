#include "MSGCTR_ENG_QByteArrUti.h"

#include "foundation/MsgctrReport.h"

MSGCTR_ENG_QByteArrUti::~MSGCTR_ENG_QByteArrUti() = default;

const char* MSGCTR_ENG_QByteArrUti::data(const QByteArray& array)
{
    return array.constData();
}

int MSGCTR_ENG_QByteArrUti::size(const QByteArray& array)
{
    return static_cast<int>(array.size());
}

QByteArray MSGCTR_ENG_QByteArrUti::qbytearrayFromDataSize(const char* bytes, int length)
{
    if (length == 0)
        return QByteArray();
    MSGCTR_CHECK(bytes && length > 0) << MSGCTR_VAL(length);
    if (!bytes || length < 0)
        return QByteArray();
    return QByteArray(bytes, length);
}

QByteArray MSGCTR_ENG_QByteArrUti::qbytearrayFromDataSize(const unsigned char* bytes, int length)
{
    return qbytearrayFromDataSize(reinterpret_cast<const char*>(bytes), length);
}

void MSGCTR_ENG_QByteArrUti::append(QByteArray* array, const char* bytes, int length)
{
    MSGCTR_CHECK(array) << MSGCTR_VAL(length);
    if (!array)
        return;
    QByteArray joined;
    joined.reserve(array->size() + qMax(length, 0));
    joined.append(*array);
    joined.append(qbytearrayFromDataSize(bytes, length));
    *array = joined;
}

void MSGCTR_ENG_QByteArrUti::truncateWithRemainOrigData(QByteArray* array, int n)
{
    MSGCTR_CHECK(array && n >= 0) << MSGCTR_VAL(n);
    if (!array)
        return;
    if (n < 0 || array->size() < n) {
        *array = QByteArray();
        return;
    }
    *array = QByteArray(array->constData(), n);
}

QByteArray MSGCTR_ENG_QByteArrUti::qbyteArrWithCrc(const QByteArray& payload)
{
    return subQbyteArrWithCrc(payload);
}

bool MSGCTR_ENG_QByteArrUti::getQbyteArrFromQbyteArrWithCrc(QByteArray* payload, const QByteArray& block)
{
    return subGetQbyteArrFromQbyteArrWithCrc(payload, block);
}

QByteArray MSGCTR_ENG_QByteArrUti::subQbyteArrWithCrc(const QByteArray& payload)
{
    const quint16 crc = qChecksum(QByteArrayView(payload), Qt::ChecksumIso3309);
    QByteArray block(payload.constData(), payload.size());
    block.append(static_cast<char>(crc >> 8));
    block.append(static_cast<char>(crc & 0xFF));
    return block;
}

bool MSGCTR_ENG_QByteArrUti::subGetQbyteArrFromQbyteArrWithCrc(QByteArray* payload, const QByteArray& block)
{
    MSGCTR_CHECK(payload) << MSGCTR_VAL(size(block));
    if (!payload)
        return false;
    *payload = QByteArray();
    const qsizetype n = block.size();
    if (n < 2)
        return false;
    const quint16 stored = static_cast<quint16>(static_cast<unsigned char>(block[n - 2]) * 256
                                                + static_cast<unsigned char>(block[n - 1]));
    const quint16 computed = qChecksum(QByteArrayView(block.constData(), n - 2), Qt::ChecksumIso3309);
    if (stored != computed)
        return false;
    *payload = QByteArray(block.constData(), n - 2);
    return true;
}

QByteArray MSGCTR_ENG_QByteArrUti::qbytearrayFromByteVec(const std::vector<unsigned char>& bytes)
{
    QByteArray array;
    array.reserve(static_cast<qsizetype>(bytes.size()));
    for (unsigned char byte : bytes)
        array.append(static_cast<char>(byte));
    return array;
}

std::vector<unsigned char> MSGCTR_ENG_QByteArrUti::byteVecFromQbytearray(const QByteArray& array)
{
    std::vector<unsigned char> bytes;
    bytes.reserve(static_cast<size_t>(array.size()));
    for (char byte : array)
        bytes.push_back(static_cast<unsigned char>(byte));
    return bytes;
}
