// The text builder of every report: values are streamed in with operator<<, each rendered with its type
// annotation, and the collected text is handed to the report sink.
#pragma once

#include "QCString.h"
#include "msgctr_export.h"

#include <QByteArray>
#include <QList>
#include <QString>

class MSGCTR_ENG_Object;

// How byte arrays are shown.
struct MSGCTR_HEX_DUMP_ATTR_T {
    bool showTotal = true;        // "Total (n) byte(s),"
    bool with0xPrefix = true;     // "0x" before each byte
    bool commaSeparated = true;   // bytes followed by ", ", else by " "
    int bytesPerLine = 8;         // a "\n" after every so many bytes
};

// What pushSetup() saves and popSetup() restores.
struct MSGCTR_ENG_DUMPCONTEXT_SETUP_S {
    int depth = 0;
    bool needOutputObjectTypeInfo = true;
    MSGCTR_HEX_DUMP_ATTR_T hexDumpAttr;
};

// Literal label text streamed into a report; points at the text, so it lives inside one expression only.
class MSGCTR_EXPORT MEDCStr {
public:
    explicit MEDCStr(const char* text) : m_text(text) {}
    const char* text() const { return m_text; }
private:
    const char* m_text;
};

// A label built at run time; streamed in Latin-1, exactly as an MEDCStr.
class MSGCTR_EXPORT MEDCQqqStr {
public:
    explicit MEDCQqqStr(const QString& text) : m_text(text) {}
    const QString& text() const { return m_text; }
private:
    QString m_text;
};

// A comment that folds into the label spelling out its own call (see operator<<(const TRACE_CMT&)).
class MSGCTR_EXPORT TRACE_CMT {
public:
    explicit TRACE_CMT(const char* text) : m_text(QString::fromLatin1(text ? text : "")) {}
    virtual ~TRACE_CMT();
    const QString& text() const { return m_text; }
private:
    QString m_text;
};

class MSGCTR_EXPORT MSGCTR_ENG_DumpContext {
public:
    MSGCTR_ENG_DumpContext();
    virtual ~MSGCTR_ENG_DumpContext();

    // Scope guard: pushSetupAndDisableOutputObjTypeInfo() now, popSetup() at scope end.
    class MSGCTR_EXPORT InBlockPushSetupAndDisableOutputObjTypeInfo {
    public:
        explicit InBlockPushSetupAndDisableOutputObjTypeInfo(MSGCTR_ENG_DumpContext& context);
        ~InBlockPushSetupAndDisableOutputObjTypeInfo();
        InBlockPushSetupAndDisableOutputObjTypeInfo(const InBlockPushSetupAndDisableOutputObjTypeInfo&) = delete;
        InBlockPushSetupAndDisableOutputObjTypeInfo& operator=(
            const InBlockPushSetupAndDisableOutputObjTypeInfo&) = delete;
    private:
        MSGCTR_ENG_DumpContext& m_context;
    };

    void init();

    QString data() const { return m_result; }
    QString& qstrResult() { return m_result; }
    void clear() { m_result.clear(); }

    int getDepth() const { return m_depth; }
    void setDepth(int depth) { m_depth = depth; }

    MSGCTR_ENG_DumpContext& operator<<(const char* text);
    MSGCTR_ENG_DumpContext& operator<<(const QCString& text);
    MSGCTR_ENG_DumpContext& operator<<(const unsigned short* units);
    MSGCTR_ENG_DumpContext& operator<<(const QString& text);
    MSGCTR_ENG_DumpContext& operator<<(const QByteArray& bytes);
    MSGCTR_ENG_DumpContext& operator<<(const void* pointer);
    MSGCTR_ENG_DumpContext& operator<<(const MSGCTR_ENG_Object& object);
    MSGCTR_ENG_DumpContext& operator<<(bool value);
    MSGCTR_ENG_DumpContext& operator<<(char value);
    MSGCTR_ENG_DumpContext& operator<<(unsigned char value);
    MSGCTR_ENG_DumpContext& operator<<(unsigned short value);
    MSGCTR_ENG_DumpContext& operator<<(unsigned int value);
    MSGCTR_ENG_DumpContext& operator<<(signed char value);
    MSGCTR_ENG_DumpContext& operator<<(short value);
    MSGCTR_ENG_DumpContext& operator<<(int value);
    MSGCTR_ENG_DumpContext& operator<<(float value);
    MSGCTR_ENG_DumpContext& operator<<(double value);
    MSGCTR_ENG_DumpContext& operator<<(const MEDCStr& label);
    MSGCTR_ENG_DumpContext& operator<<(const MEDCQqqStr& label);
    MSGCTR_ENG_DumpContext& operator<<(const TRACE_CMT& comment);
    MSGCTR_ENG_DumpContext& operator<<(MSGCTR_ENG_DumpContext& (*manipulator)(MSGCTR_ENG_DumpContext&))
    {
        return manipulator(*this);
    }

    void pushSetup();
    void popSetup();
    void pushSetupAndDisableOutputObjTypeInfo();
    // The two string flags are not part of a saved setup: popSetup() does not bring them back.
    void pushSetupAndDisablePrintStringObjInfosAndQuotes();
    MSGCTR_ENG_DUMPCONTEXT_SETUP_S getCurSetup() const;
    const QList<MSGCTR_ENG_DUMPCONTEXT_SETUP_S>& stackSetup() const { return m_setupStack; }

    void disableOutputObjTypeInfo() { m_needOutputObjectTypeInfo = false; }
    bool needOutputObjectTypeInfo() const { return m_needOutputObjectTypeInfo; }
    void setNeedOutputObjectTypeInfo(bool on) { m_needOutputObjectTypeInfo = on; }
    bool printQuotesForString() const { return m_printQuotesForString; }
    void setPrintQuotesForString(bool on) { m_printQuotesForString = on; }
    bool printStringObjectTypeInfo() const { return m_printStringObjectTypeInfo; }
    void setPrintStringObjectTypeInfo(bool on) { m_printStringObjectTypeInfo = on; }
    bool printHEXForUnsignedIntegralType() const { return m_printHEXForUnsignedIntegralType; }
    void setPrintHEXForUnsignedIntegralType(bool on) { m_printHEXForUnsignedIntegralType = on; }
    bool printAsciiCharForCharType() const { return m_printAsciiCharForCharType; }
    void setPrintAsciiCharForCharType(bool on) { m_printAsciiCharForCharType = on; }
    const MSGCTR_HEX_DUMP_ATTR_T& hexDumpAttr() const { return m_hexDumpAttr; }
    void setHexDumpAttr(const MSGCTR_HEX_DUMP_ATTR_T& attr) { m_hexDumpAttr = attr; }

    // "(" + type + "," + size + ")" and "(" + type + ", len=" + length + ")".
    static QString getObjTypeInfo(const char* typeName, int size);
    static QString getStringObjTypeInfo(const char* typeName, int length);

    void dumpU32InDEC(unsigned int value);
    void dumpU32InHEX(unsigned int value);
    // An empty hook by design: accepts its arguments and writes nothing.
    void hexDump(const char* title, const unsigned char* bytes, int length, unsigned int flags);

private:
    void appendString(const QString& text, bool isNull, const char* typeName);
    void appendValue(const QString& rendered, const char* typeName, int size);
    void appendLabel(const QString& label);

    QString m_workingBuffer;
    QString m_result;
    int m_depth;
    bool m_needOutputObjectTypeInfo;
    bool m_printQuotesForString;
    bool m_printStringObjectTypeInfo;
    bool m_printHEXForUnsignedIntegralType;
    bool m_printAsciiCharForCharType;
    MSGCTR_HEX_DUMP_ATTR_T m_hexDumpAttr;
    QList<MSGCTR_ENG_DUMPCONTEXT_SETUP_S> m_setupStack;
    bool m_swallowNextComma;
};

// Streams the C text "\n": with the default flags a quoted newline and its annotation.
MSGCTR_EXPORT MSGCTR_ENG_DumpContext& endl(MSGCTR_ENG_DumpContext& context);
