#include "MSGCTR_ENG_ByteArray.h"

#include "MSGCTR_ENG_QByteArrUti.h"

MSGCTR_ENG_ByteArray::MSGCTR_ENG_ByteArray() = default;

MSGCTR_ENG_ByteArray::MSGCTR_ENG_ByteArray(const unsigned char* bytes, int length)
    : QByteArray(MSGCTR_ENG_QByteArrUti::qbytearrayFromDataSize(bytes, length))
{
}

MSGCTR_ENG_ByteArray::~MSGCTR_ENG_ByteArray() = default;
