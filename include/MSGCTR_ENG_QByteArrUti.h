// Byte-array operations of the engine's clients: building from raw memory, appending, cutting, converting
// to and from byte vectors, and a trailing checksum that lets a stored blob be verified when read back.
//
// A checksummed block is the payload followed by two bytes holding qChecksum (CRC-16, ISO 3309) of the
// payload, most significant byte first.
#pragma once

#include "msgctr_export.h"

#include <QByteArray>

#include <vector>

class MSGCTR_EXPORT MSGCTR_ENG_QByteArrUti {
public:
    MSGCTR_ENG_QByteArrUti() {}
    virtual ~MSGCTR_ENG_QByteArrUti();

    static const char* data(const QByteArray& array);
    static int size(const QByteArray& array);

    // A deep copy of `length` bytes. A null pointer with a positive length, or a negative length, is
    // reported and gives an empty array.
    static QByteArray qbytearrayFromDataSize(const char* bytes, int length);
    static QByteArray qbytearrayFromDataSize(const unsigned char* bytes, int length);

    // *array becomes a new array holding its old bytes and then `length` bytes of `bytes`.
    static void append(QByteArray* array, const char* bytes, int length);

    // *array becomes a deep copy of its first n bytes, so earlier copies keep the untruncated data. An
    // array shorter than n becomes empty on purpose, and so does one given a negative n (reported).
    static void truncateWithRemainOrigData(QByteArray* array, int n);

    // The payload followed by its checksum.
    static QByteArray qbyteArrWithCrc(const QByteArray& payload);
    // *payload becomes the block without its checksum if the checksum matches (true); otherwise, and for
    // a block shorter than two bytes, *payload is left empty (false).
    static bool getQbyteArrFromQbyteArrWithCrc(QByteArray* payload, const QByteArray& block);

    static QByteArray qbytearrayFromByteVec(const std::vector<unsigned char>& bytes);
    static std::vector<unsigned char> byteVecFromQbytearray(const QByteArray& array);

protected:
    static QByteArray subQbyteArrWithCrc(const QByteArray& payload);
    static bool subGetQbyteArrFromQbyteArrWithCrc(QByteArray* payload, const QByteArray& block);
};
