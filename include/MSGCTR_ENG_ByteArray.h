// The library's byte array type: a QByteArray that can be built straight from unsigned bytes.
#pragma once

#include "msgctr_export.h"

#include <QByteArray>

class MSGCTR_EXPORT MSGCTR_ENG_ByteArray : public QByteArray {
public:
    MSGCTR_ENG_ByteArray();
    // A deep copy of `length` bytes; a null pointer or a negative length is reported and gives an empty
    // array.
    MSGCTR_ENG_ByteArray(const unsigned char* bytes, int length);
    virtual ~MSGCTR_ENG_ByteArray();
};
