// Conversions between Qt strings and the zero-terminated buffers of the platform interfaces, and a few
// small text tests. Every copy into a buffer takes its capacity in buffer units, copies at most capacity
// minus one units and always writes the terminating zero.
#pragma once

#include "QCString.h"
#include "msgctr_export.h"

#include <QString>

class MFString;

// Its argument, or 0 when the argument is negative.
template <typename T>
T MSGCTR_ENG_RetZeroOnNegative(T value)
{
    return value < 0 ? T(0) : value;
}

class MSGCTR_EXPORT MSGCTR_ENG_StrUti {
public:
    // Copying into buffers.
    static int copyToU16StrBufFromQString(unsigned short* buffer, int capacity, const QString& text);
    static int copyToU16StrBufFromQStringWithTruncateWarning(unsigned short* buffer, int capacity,
                                                             const QString& text);
    static int copyToU8StrBufFromQCString(char* buffer, int capacity, const QCString& text);
    static int copyToU8StrBufFromQCStringWithTruncateWarning(char* buffer, int capacity, const QCString& text);
    static void copyToBufByUnicode16bitFromQString(char* buffer, int sizeInBytes, const QString& text);
    static void copyToBufByUnicode16bitFromQStringWithTruncateWarning(char* buffer, int sizeInBytes,
                                                                     const QString& text);
    // The caller owns the array and frees it with delete[].
    static unsigned short* createU16StringFrom(const QString& text);

    // Building strings from buffers.
    static QString qstringFrom(const unsigned short* units);
    static QString qstringFrom(const unsigned short* units, int limit);
    static QString qstringFromNotContainingEndChar(const unsigned short* units, int limit);
    static QString qstringFromContainingEndChar(const unsigned short* units, int limit);
    static QString qstringFrom(const unsigned char* text);
    static QString qstringFrom(const unsigned char* text, int limit);
    static QString qstringFromNotContainingEndChar(const unsigned char* text, int limit);
    static QString qstringFromContainingEndChar(const unsigned char* text, int limit);
    static QString qstringFromUnicode16bit(const unsigned char* bytes);
    static QString qstringFromUnicode16bit(const unsigned char* bytes, int lengthInBytes);
    static MFString qstringToMFString(const QString& text);
    static QString MFStringToqstring(const MFString& text);
    static QCString qcstrFromQstr(const QString& text);
    static const char* nonNullPcstr8FromQCString(const QCString& text);
    static const char* toConstCharPtr(const unsigned char* text);

    // Lengths and truncation.
    static int length(const QString& text);
    static int length(const QCString& text);
    static void truncate(QString& text, int n);
    static void truncate(QCString& text, int n);
    static void empty(QString& text);
    static void empty(QCString& text);
    static int getStringLength(const unsigned short* units);
    // Elements before the first zero element, counting at most `limit`; 0 when the limit is not positive.
    template <typename T>
    static int getIndeedLen(const T* data, int limit)
    {
        int n = 0;
        while (n < limit && data[n] != 0)
            ++n;
        return n;
    }

    // Formatting and tests.
    static QString qstrHex(unsigned int value);
    static QString qstrHex(unsigned short value);
    static QString qstrHex(unsigned char value);
    static QString qstrHex(char value);
    static QString qstrHexWithPrefix0x(unsigned int value);
    static QString qstrHexWithPrefix0x(unsigned short value);
    static QString qstrHexWithPrefix0x(unsigned char value);
    static QString qstrHexWithPrefix0x(char value);
    static bool qstrEquIgnoreNull(const QString& a, const QString& b);
    static bool isValidHexString(const QString& text);
    static bool endsWith(const QString& text, const QString& ending);
    static QString removeAllWhiteSpaceChars(const QString& text);
    static QString replaceNonAsciiChar(const QString& text, char replacement);
};
