// Hexadecimal texts and checksummed byte blocks: hex text and bytes convert into each other without
// loss, a block carries the CRC-16 (ISO 3309) of its payload, and a block whose checksum does not match
// is refused. The checksum is held against a bitwise model of the CRC, not against Qt's.
#include "FuzzSupport.h"

#include "MSGCTR_ENG_QByteArrUti.h"
#include "MSGCTR_ENG_Setup.h"
#include "MSGCTR_ENG_StrUti.h"

#include <vector>

namespace {

// CRC-16/X-25: reflected polynomial 0x1021, initial value and final XOR 0xFFFF.
quint16 modelCrc(const QByteArray& bytes)
{
    quint16 crc = 0xFFFF;
    for (const char b : bytes) {
        crc ^= static_cast<unsigned char>(b);
        for (int bit = 0; bit < 8; ++bit)
            crc = (crc & 1) ? static_cast<quint16>((crc >> 1) ^ 0x8408) : static_cast<quint16>(crc >> 1);
    }
    return static_cast<quint16>(~crc);
}

bool modelIsHex(const QString& text)
{
    if (text.size() % 2 != 0)
        return false;
    for (const QChar c : text) {
        const char16_t u = c.unicode();
        if (!((u >= u'0' && u <= u'9') || (u >= u'a' && u <= u'f') || (u >= u'A' && u <= u'F')))
            return false;
    }
    return true;
}

void checkHexText(const QString& text)
{
    FUZZ_CHECK(MSGCTR_ENG_StrUti::isValidHexString(text) == modelIsHex(text));
    QByteArray bytes("untouched");
    const bool ok = MSGCTR_ENG_Setup::hexQstring2ByteArray(text, &bytes);
    FUZZ_CHECK(ok == modelIsHex(text));
    if (!ok) {
        FUZZ_CHECK(bytes.isEmpty());
        return;
    }
    FUZZ_CHECK(bytes.size() == text.size() / 2);
    QString hex;
    MSGCTR_ENG_Setup::byteArray2HexQstring(bytes, &hex);
    FUZZ_CHECK(hex == text.toUpper());
}

void checkBlock(const QByteArray& block)
{
    QByteArray payload("untouched");
    const bool ok = MSGCTR_ENG_QByteArrUti::getQbyteArrFromQbyteArrWithCrc(&payload, block);
    const qsizetype n = block.size();
    const bool matches = n >= 2
                         && modelCrc(block.left(n - 2))
                                == static_cast<quint16>(static_cast<unsigned char>(block[n - 2]) << 8
                                                        | static_cast<unsigned char>(block[n - 1]));
    FUZZ_CHECK(ok == matches);
    FUZZ_CHECK(ok ? payload == block.left(n - 2) : payload.isEmpty());
}

void checkPayload(const QByteArray& payload, uint8_t flipAt, uint8_t flipBits)
{
    const QByteArray block = MSGCTR_ENG_QByteArrUti::qbyteArrWithCrc(payload);
    const quint16 crc = modelCrc(payload);
    FUZZ_CHECK(block.size() == payload.size() + 2 && block.startsWith(payload));
    FUZZ_CHECK(static_cast<unsigned char>(block[block.size() - 2]) == (crc >> 8));
    FUZZ_CHECK(static_cast<unsigned char>(block[block.size() - 1]) == (crc & 0xFF));
    QByteArray back;
    FUZZ_CHECK(MSGCTR_ENG_QByteArrUti::getQbyteArrFromQbyteArrWithCrc(&back, block) && back == payload);

    // A CRC-16 catches every error confined to one byte.
    if (flipBits != 0) {
        QByteArray damaged = block;
        damaged[flipAt % damaged.size()] = static_cast<char>(damaged[flipAt % damaged.size()] ^ flipBits);
        QByteArray refused("untouched");
        FUZZ_CHECK(!MSGCTR_ENG_QByteArrUti::getQbyteArrFromQbyteArrWithCrc(&refused, damaged));
        FUZZ_CHECK(refused.isEmpty());
    }

    QString hex;
    MSGCTR_ENG_Setup::byteArray2HexQstring(block, &hex);
    QByteArray fromHex;
    FUZZ_CHECK(MSGCTR_ENG_Setup::hexQstring2ByteArray(hex, &fromHex) && fromHex == block);

    const std::vector<unsigned char> vec = MSGCTR_ENG_QByteArrUti::byteVecFromQbytearray(payload);
    FUZZ_CHECK(vec.size() == static_cast<size_t>(payload.size()));
    FUZZ_CHECK(MSGCTR_ENG_QByteArrUti::qbytearrayFromByteVec(vec) == payload);
    FUZZ_CHECK(MSGCTR_ENG_QByteArrUti::qbytearrayFromDataSize(payload.constData(), int(payload.size())) == payload);

    const int cut = flipAt % (payload.size() + 2);
    QByteArray truncated = payload;
    const QByteArray before = truncated;
    MSGCTR_ENG_QByteArrUti::truncateWithRemainOrigData(&truncated, cut);
    FUZZ_CHECK(truncated == (cut <= payload.size() ? payload.left(cut) : QByteArray()));
    FUZZ_CHECK(before == payload);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    fuzz::init();
    FUZZ_CHECK(modelCrc(QByteArrayLiteral("123456789")) == 0x906E);
    fuzz::Input input(data, size);
    const uint8_t flipAt = input.byte();
    const uint8_t flipBits = input.byte();
    const QByteArray bytes = input.rest();
    checkHexText(fuzz::text(bytes));
    checkBlock(bytes);
    QByteArray fromHex;
    if (MSGCTR_ENG_Setup::hexQstring2ByteArray(QString::fromLatin1(bytes), &fromHex))
        checkBlock(fromHex);
    checkPayload(bytes, flipAt, flipBits);
    fuzz::takeReportCount();
    return 0;
}
