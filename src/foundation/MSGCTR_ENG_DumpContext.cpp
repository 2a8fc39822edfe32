#include "MSGCTR_ENG_DumpContext.h"

#include "MSGCTR_ENG_StrUti.h"

namespace {

const QString& commaLabel()
{
    static const QString comma = QStringLiteral(", ");
    return comma;
}

const QString& commentEnd()
{
    static const QString end = QStringLiteral(") = ");
    return end;
}

} // namespace

TRACE_CMT::~TRACE_CMT() = default;

MSGCTR_ENG_DumpContext::MSGCTR_ENG_DumpContext()
{
    init();
}

MSGCTR_ENG_DumpContext::~MSGCTR_ENG_DumpContext() = default;

MSGCTR_ENG_DumpContext::InBlockPushSetupAndDisableOutputObjTypeInfo::InBlockPushSetupAndDisableOutputObjTypeInfo(
    MSGCTR_ENG_DumpContext& context)
    : m_context(context)
{
    m_context.pushSetupAndDisableOutputObjTypeInfo();
}

MSGCTR_ENG_DumpContext::InBlockPushSetupAndDisableOutputObjTypeInfo::~InBlockPushSetupAndDisableOutputObjTypeInfo()
{
    m_context.popSetup();
}

void MSGCTR_ENG_DumpContext::init()
{
    m_depth = 0;
    m_needOutputObjectTypeInfo = true;
    m_printQuotesForString = true;
    m_printStringObjectTypeInfo = true;
    m_printHEXForUnsignedIntegralType = true;
    m_printAsciiCharForCharType = true;
    m_hexDumpAttr = MSGCTR_HEX_DUMP_ATTR_T();
    m_swallowNextComma = false;
}

void MSGCTR_ENG_DumpContext::appendString(const QString& text, bool isNull, const char* typeName)
{
    if (isNull) {
        m_result += QLatin1String("NULL");
    } else if (m_printQuotesForString) {
        m_result += QLatin1Char('"');
        m_result += text;
        m_result += QLatin1Char('"');
    } else {
        m_result += text;
    }
    if (m_needOutputObjectTypeInfo && m_printStringObjectTypeInfo)
        m_result += getStringObjTypeInfo(typeName, int(text.length()));
}

void MSGCTR_ENG_DumpContext::appendValue(const QString& rendered, const char* typeName, int size)
{
    m_result += rendered;
    if (typeName && m_needOutputObjectTypeInfo)
        m_result += getObjTypeInfo(typeName, size);
}

void MSGCTR_ENG_DumpContext::appendLabel(const QString& label)
{
    if (m_swallowNextComma) {
        m_swallowNextComma = false;
        if (label == commaLabel())
            return;
    }
    m_result += label;
}

MSGCTR_ENG_DumpContext& MSGCTR_ENG_DumpContext::operator<<(const char* text)
{
    appendString(QString::fromLatin1(text), text == nullptr, "PCSTR8");
    return *this;
}

MSGCTR_ENG_DumpContext& MSGCTR_ENG_DumpContext::operator<<(const QCString& text)
{
    appendString(QString::fromLatin1(text), false, "QCString");
    return *this;
}

MSGCTR_ENG_DumpContext& MSGCTR_ENG_DumpContext::operator<<(const unsigned short* units)
{
    appendString(MSGCTR_ENG_StrUti::qstringFrom(units), units == nullptr, "PCSTR16");
    return *this;
}

MSGCTR_ENG_DumpContext& MSGCTR_ENG_DumpContext::operator<<(const QString& text)
{
    appendString(text, false, "QString");
    return *this;
}

MSGCTR_ENG_DumpContext& MSGCTR_ENG_DumpContext::operator<<(const QByteArray& bytes)
{
    m_result += QLatin1String("{ ");
    if (m_needOutputObjectTypeInfo) {
        m_result += getObjTypeInfo("QByteArray", 8);
        m_result += QLatin1String(", ");
    }
    if (m_hexDumpAttr.showTotal)
        m_result += QStringLiteral("Total (%1) byte(s),").arg(bytes.size());
    // The break before a long block does not follow bytesPerLine.
    if (bytes.size() > 8)
        m_result += QLatin1Char('\n');
    const QLatin1String separator = m_hexDumpAttr.commaSeparated ? QLatin1String(", ") : QLatin1String(" ");
    int onLine = 0;
    for (const char byte : bytes) {
        if (m_hexDumpAttr.with0xPrefix)
            m_result += QLatin1String("0x");
        m_result += MSGCTR_ENG_StrUti::qstrHex(byte);
        m_result += separator;
        if (++onLine == m_hexDumpAttr.bytesPerLine) {
            m_result += QLatin1Char('\n');
            onLine = 0;
        }
    }
    m_result += QLatin1String(" }");
    return *this;
}

MSGCTR_ENG_DumpContext& MSGCTR_ENG_DumpContext::operator<<(const void* pointer)
{
    // At least eight digits; a host pointer wider than 32 bits keeps all of its digits.
    m_workingBuffer = QLatin1String("0x")
        + QString::number(quintptr(pointer), 16).toUpper().rightJustified(8, QLatin1Char('0'));
    appendValue(m_workingBuffer, "void*", 4);
    return *this;
}

MSGCTR_ENG_DumpContext& MSGCTR_ENG_DumpContext::operator<<(bool value)
{
    appendValue(value ? QStringLiteral("true") : QStringLiteral("false"), "bool", 1);
    return *this;
}

MSGCTR_ENG_DumpContext& MSGCTR_ENG_DumpContext::operator<<(char value)
{
    m_workingBuffer = QString::number(static_cast<unsigned char>(value));
    if (m_printAsciiCharForCharType) {
        m_workingBuffer += QLatin1String("/'");
        m_workingBuffer += QChar::fromLatin1(value);
        m_workingBuffer += QLatin1Char('\'');
    }
    appendValue(m_workingBuffer, "char", 1);
    return *this;
}

MSGCTR_ENG_DumpContext& MSGCTR_ENG_DumpContext::operator<<(unsigned char value)
{
    m_workingBuffer = QString::number(value);
    if (m_printHEXForUnsignedIntegralType)
        m_workingBuffer += QLatin1Char('/') + MSGCTR_ENG_StrUti::qstrHexWithPrefix0x(value);
    appendValue(m_workingBuffer, "U8", 1);
    return *this;
}

MSGCTR_ENG_DumpContext& MSGCTR_ENG_DumpContext::operator<<(unsigned short value)
{
    m_workingBuffer = QString::number(value);
    if (m_printHEXForUnsignedIntegralType)
        m_workingBuffer += QLatin1Char('/') + MSGCTR_ENG_StrUti::qstrHexWithPrefix0x(value);
    appendValue(m_workingBuffer, "U16", 2);
    return *this;
}

MSGCTR_ENG_DumpContext& MSGCTR_ENG_DumpContext::operator<<(unsigned int value)
{
    m_workingBuffer = QString::number(value);
    if (m_printHEXForUnsignedIntegralType)
        m_workingBuffer += QLatin1Char('/') + MSGCTR_ENG_StrUti::qstrHexWithPrefix0x(value);
    appendValue(m_workingBuffer, "U32", 4);
    return *this;
}

MSGCTR_ENG_DumpContext& MSGCTR_ENG_DumpContext::operator<<(signed char value)
{
    appendValue(QString::number(value), "S8", 1);
    return *this;
}

MSGCTR_ENG_DumpContext& MSGCTR_ENG_DumpContext::operator<<(short value)
{
    appendValue(QString::number(value), "S16", 2);
    return *this;
}

MSGCTR_ENG_DumpContext& MSGCTR_ENG_DumpContext::operator<<(int value)
{
    appendValue(QString::number(value), "S32", 4);
    return *this;
}

MSGCTR_ENG_DumpContext& MSGCTR_ENG_DumpContext::operator<<(float value)
{
    appendValue(QString::number(double(value), 'g', 6), nullptr, 0);
    return *this;
}

MSGCTR_ENG_DumpContext& MSGCTR_ENG_DumpContext::operator<<(double value)
{
    appendValue(QString::number(value, 'g', 6), nullptr, 0);
    return *this;
}

MSGCTR_ENG_DumpContext& MSGCTR_ENG_DumpContext::operator<<(const MEDCStr& label)
{
    appendLabel(QString::fromLatin1(label.text()));
    return *this;
}

MSGCTR_ENG_DumpContext& MSGCTR_ENG_DumpContext::operator<<(const MEDCQqqStr& label)
{
    appendLabel(QString::fromLatin1(label.text().toLatin1()));
    return *this;
}

// Folds "TRACE_CMT( \"text\" ) = " + comment down to the bare text; anything else is left untouched.
MSGCTR_ENG_DumpContext& MSGCTR_ENG_DumpContext::operator<<(const TRACE_CMT& comment)
{
    if (!m_result.endsWith(commentEnd()))
        return *this;
    const QString call = QStringLiteral("TRACE_CMT");
    const QString quoted = QLatin1Char('"') + comment.text() + QLatin1Char('"');
    const qsizetype p1 = m_result.lastIndexOf(call);
    const qsizetype e1 = p1 + call.length();
    const qsizetype p2 = m_result.lastIndexOf(quoted);
    const qsizetype e2 = p2 + quoted.length();
    const qsizetype p3 = m_result.lastIndexOf(commentEnd());
    if (p1 < 0 || p2 < 0 || e1 > p2 || e2 > p3)
        return *this;
    if (m_result.mid(e1, p2 - e1).trimmed() != QLatin1String("("))
        return *this;
    if (!m_result.mid(e2, p3 - e2).trimmed().isEmpty())
        return *this;
    m_result.truncate(p1);
    m_result += comment.text();
    m_swallowNextComma = true;
    return *this;
}

void MSGCTR_ENG_DumpContext::pushSetup()
{
    m_setupStack.append(getCurSetup());
}

void MSGCTR_ENG_DumpContext::popSetup()
{
    if (m_setupStack.isEmpty())
        return;
    const MSGCTR_ENG_DUMPCONTEXT_SETUP_S setup = m_setupStack.takeLast();
    m_depth = setup.depth;
    m_needOutputObjectTypeInfo = setup.needOutputObjectTypeInfo;
    m_hexDumpAttr = setup.hexDumpAttr;
}

void MSGCTR_ENG_DumpContext::pushSetupAndDisableOutputObjTypeInfo()
{
    pushSetup();
    m_needOutputObjectTypeInfo = false;
}

void MSGCTR_ENG_DumpContext::pushSetupAndDisablePrintStringObjInfosAndQuotes()
{
    pushSetup();
    m_printQuotesForString = false;
    m_printStringObjectTypeInfo = false;
}

MSGCTR_ENG_DUMPCONTEXT_SETUP_S MSGCTR_ENG_DumpContext::getCurSetup() const
{
    MSGCTR_ENG_DUMPCONTEXT_SETUP_S setup;
    setup.depth = m_depth;
    setup.needOutputObjectTypeInfo = m_needOutputObjectTypeInfo;
    setup.hexDumpAttr = m_hexDumpAttr;
    return setup;
}

QString MSGCTR_ENG_DumpContext::getObjTypeInfo(const char* typeName, int size)
{
    return QStringLiteral("(%1,%2)").arg(QLatin1String(typeName)).arg(size);
}

QString MSGCTR_ENG_DumpContext::getStringObjTypeInfo(const char* typeName, int length)
{
    return QStringLiteral("(%1, len=%2)").arg(QLatin1String(typeName)).arg(length);
}

void MSGCTR_ENG_DumpContext::dumpU32InDEC(unsigned int value)
{
    m_result += QString::number(value);
}

void MSGCTR_ENG_DumpContext::dumpU32InHEX(unsigned int value)
{
    m_result += MSGCTR_ENG_StrUti::qstrHexWithPrefix0x(value);
}

void MSGCTR_ENG_DumpContext::hexDump(const char* title, const unsigned char* bytes, int length, unsigned int flags)
{
    (void)title;
    (void)bytes;
    (void)length;
    (void)flags;
}

MSGCTR_ENG_DumpContext& endl(MSGCTR_ENG_DumpContext& context)
{
    return context << "\n";
}
