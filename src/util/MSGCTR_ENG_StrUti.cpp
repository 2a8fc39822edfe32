#include "MSGCTR_ENG_StrUti.h"

#include "MFString.h"

#include <algorithm>
#include <cstring>
#include <vector>

namespace {

// The plain and the ...WithTruncateWarning copies share these; the warning flag is accepted but not acted
// upon, because callers rely on a cut text being silent.
int copyU16(unsigned short* buffer, int capacity, const QString& text, bool truncateWarning)
{
    (void)truncateWarning;
    const int n = std::min(capacity - 1, int(text.length()));
    if (n > 0)
        std::memcpy(buffer, text.utf16(), size_t(n) * sizeof(unsigned short));
    buffer[MSGCTR_ENG_RetZeroOnNegative(n)] = 0;
    return n;
}

int copyU8(char* buffer, int capacity, const QCString& text, bool truncateWarning)
{
    (void)truncateWarning;
    const int n = std::min(capacity - 1, int(text.length()));
    if (n > 0)
        std::memcpy(buffer, text.constData(), size_t(n));
    buffer[MSGCTR_ENG_RetZeroOnNegative(n)] = 0;
    return n;
}

void copyUnicode16bit(char* buffer, int sizeInBytes, const QString& text, bool truncateWarning)
{
    (void)truncateWarning;
    if (!buffer || sizeInBytes < 2)
        return;
    std::memset(buffer, 0, size_t(sizeInBytes));
    unsigned short* units = MSGCTR_ENG_StrUti::createU16StringFrom(text);
    const int n = std::min(int(text.length()), sizeInBytes / 2 - 1);
    std::memcpy(buffer, units, size_t(n) * sizeof(unsigned short));
    delete[] units;
}

// The buffer may sit at an odd address, so units are read byte-wise.
unsigned short unitAt(const unsigned char* bytes, int index)
{
    unsigned short unit;
    std::memcpy(&unit, bytes + 2 * index, sizeof(unit));
    return unit;
}

QString hexOf(unsigned int value, const char* format)
{
    return QString::asprintf(format, value);
}

} // namespace

int MSGCTR_ENG_StrUti::copyToU16StrBufFromQString(unsigned short* buffer, int capacity, const QString& text)
{
    return copyU16(buffer, capacity, text, false);
}

int MSGCTR_ENG_StrUti::copyToU16StrBufFromQStringWithTruncateWarning(unsigned short* buffer, int capacity,
                                                                     const QString& text)
{
    return copyU16(buffer, capacity, text, true);
}

int MSGCTR_ENG_StrUti::copyToU8StrBufFromQCString(char* buffer, int capacity, const QCString& text)
{
    return copyU8(buffer, capacity, text, false);
}

int MSGCTR_ENG_StrUti::copyToU8StrBufFromQCStringWithTruncateWarning(char* buffer, int capacity,
                                                                     const QCString& text)
{
    return copyU8(buffer, capacity, text, true);
}

void MSGCTR_ENG_StrUti::copyToBufByUnicode16bitFromQString(char* buffer, int sizeInBytes, const QString& text)
{
    copyUnicode16bit(buffer, sizeInBytes, text, false);
}

void MSGCTR_ENG_StrUti::copyToBufByUnicode16bitFromQStringWithTruncateWarning(char* buffer, int sizeInBytes,
                                                                             const QString& text)
{
    copyUnicode16bit(buffer, sizeInBytes, text, true);
}

unsigned short* MSGCTR_ENG_StrUti::createU16StringFrom(const QString& text)
{
    const int n = int(text.length());
    unsigned short* units = new unsigned short[size_t(n) + 1];
    const QChar* chars = text.constData();
    for (int i = 0; i < n; ++i)
        units[i] = chars[i].unicode();
    units[n] = 0;
    return units;
}

QString MSGCTR_ENG_StrUti::qstringFrom(const unsigned short* units)
{
    return QString(reinterpret_cast<const QChar*>(units), getStringLength(units));
}

QString MSGCTR_ENG_StrUti::qstringFrom(const unsigned short* units, int limit)
{
    return QString(reinterpret_cast<const QChar*>(units), getIndeedLen(units, limit));
}

QString MSGCTR_ENG_StrUti::qstringFromNotContainingEndChar(const unsigned short* units, int limit)
{
    return qstringFrom(units, limit);
}

QString MSGCTR_ENG_StrUti::qstringFromContainingEndChar(const unsigned short* units, int limit)
{
    return qstringFrom(units, limit);
}

QString MSGCTR_ENG_StrUti::qstringFrom(const unsigned char* text)
{
    return QString::fromUtf8(toConstCharPtr(text));
}

QString MSGCTR_ENG_StrUti::qstringFrom(const unsigned char* text, int limit)
{
    return QString::fromLatin1(toConstCharPtr(text), getIndeedLen(text, limit));
}

QString MSGCTR_ENG_StrUti::qstringFromNotContainingEndChar(const unsigned char* text, int limit)
{
    return qstringFrom(text, limit);
}

QString MSGCTR_ENG_StrUti::qstringFromContainingEndChar(const unsigned char* text, int limit)
{
    return qstringFrom(text, limit);
}

QString MSGCTR_ENG_StrUti::qstringFromUnicode16bit(const unsigned char* bytes)
{
    if (!bytes)
        return QString();
    std::vector<unsigned short> units;
    for (int i = 0;; ++i) {
        const unsigned short unit = unitAt(bytes, i);
        units.push_back(unit);
        if (unit == 0)
            break;
    }
    return qstringFrom(units.data());
}

QString MSGCTR_ENG_StrUti::qstringFromUnicode16bit(const unsigned char* bytes, int lengthInBytes)
{
    const int length = bytes ? MSGCTR_ENG_RetZeroOnNegative(lengthInBytes) : 0;
    // Two spare zero units: one completes a trailing odd byte, one terminates.
    std::vector<unsigned short> units(size_t(length / 2 + 2), 0);
    if (length > 0)
        std::memcpy(units.data(), bytes, size_t(length));
    return qstringFrom(units.data());
}

MFString MSGCTR_ENG_StrUti::qstringToMFString(const QString& text)
{
    unsigned short* units = createU16StringFrom(text);
    MFString result(units, -1);
    delete[] units;
    return result;
}

QString MSGCTR_ENG_StrUti::MFStringToqstring(const MFString& text)
{
    return qstringFrom(text.getUnicodeStr(), text.length());
}

QCString MSGCTR_ENG_StrUti::qcstrFromQstr(const QString& text)
{
    return QCString(text.toLatin1());
}

const char* MSGCTR_ENG_StrUti::nonNullPcstr8FromQCString(const QCString& text)
{
    return text.isNull() ? "" : text.constData();
}

const char* MSGCTR_ENG_StrUti::toConstCharPtr(const unsigned char* text)
{
    return reinterpret_cast<const char*>(text);
}

int MSGCTR_ENG_StrUti::length(const QString& text)
{
    return int(text.length());
}

int MSGCTR_ENG_StrUti::length(const QCString& text)
{
    return int(text.length());
}

void MSGCTR_ENG_StrUti::truncate(QString& text, int n)
{
    text.truncate(MSGCTR_ENG_RetZeroOnNegative(n));
}

void MSGCTR_ENG_StrUti::truncate(QCString& text, int n)
{
    text.truncate(MSGCTR_ENG_RetZeroOnNegative(n));
}

void MSGCTR_ENG_StrUti::empty(QString& text)
{
    truncate(text, 0);
}

void MSGCTR_ENG_StrUti::empty(QCString& text)
{
    truncate(text, 0);
}

int MSGCTR_ENG_StrUti::getStringLength(const unsigned short* units)
{
    if (!units)
        return 0;
    int n = 0;
    while (units[n] != 0)
        ++n;
    return n;
}

QString MSGCTR_ENG_StrUti::qstrHex(unsigned int value)
{
    return hexOf(value, "%08X");
}

QString MSGCTR_ENG_StrUti::qstrHex(unsigned short value)
{
    return hexOf(value, "%04X");
}

QString MSGCTR_ENG_StrUti::qstrHex(unsigned char value)
{
    return hexOf(value, "%02X");
}

QString MSGCTR_ENG_StrUti::qstrHex(char value)
{
    return qstrHex(static_cast<unsigned char>(value & 0xFF));
}

QString MSGCTR_ENG_StrUti::qstrHexWithPrefix0x(unsigned int value)
{
    return QLatin1String("0x") + qstrHex(value);
}

QString MSGCTR_ENG_StrUti::qstrHexWithPrefix0x(unsigned short value)
{
    return QLatin1String("0x") + qstrHex(value);
}

QString MSGCTR_ENG_StrUti::qstrHexWithPrefix0x(unsigned char value)
{
    return QLatin1String("0x") + qstrHex(value);
}

QString MSGCTR_ENG_StrUti::qstrHexWithPrefix0x(char value)
{
    return QLatin1String("0x") + qstrHex(value);
}

bool MSGCTR_ENG_StrUti::qstrEquIgnoreNull(const QString& a, const QString& b)
{
    if (a.length() == 0 && b.length() == 0)
        return true;
    return a == b;
}

bool MSGCTR_ENG_StrUti::isValidHexString(const QString& text)
{
    if (text.length() % 2 != 0)
        return false;
    for (const QChar c : text) {
        const char16_t u = c.unicode();
        const bool hex = (u >= '0' && u <= '9') || (u >= 'a' && u <= 'f') || (u >= 'A' && u <= 'F');
        if (!hex)
            return false;
    }
    return true;
}

// The last occurrence ends at the end exactly when the text's tail is the ending; comparing the tail
// gives that answer for every text, where lastIndexOf is off by one for an ending of "\0".
bool MSGCTR_ENG_StrUti::endsWith(const QString& text, const QString& ending)
{
    if (ending.size() > text.size())
        return false;
    return QStringView(text).sliced(text.size() - ending.size()) == QStringView(ending);
}

QString MSGCTR_ENG_StrUti::removeAllWhiteSpaceChars(const QString& text)
{
    return text.simplified().remove(QLatin1Char(' '));
}

QString MSGCTR_ENG_StrUti::replaceNonAsciiChar(const QString& text, char replacement)
{
    QString result = text;
    const QChar with = QLatin1Char(replacement);
    for (QChar& c : result) {
        if (c.unicode() > 255)
            c = with;
    }
    return result;
}
