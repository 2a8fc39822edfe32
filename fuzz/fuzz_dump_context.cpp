// The dump context's renderers, driven by a script of values and flag changes: each value appends
// exactly its rendering (held against a plain model here), zero-terminated buffers are read up to their
// terminator and never past it, and setups pushed are popped back.
#include "FuzzSupport.h"

#include "MSGCTR_ENG_DumpContext.h"

#include <vector>

namespace {

QString typeInfo(const MSGCTR_ENG_DumpContext& c, const char* type, int size)
{
    return c.needOutputObjectTypeInfo() ? QStringLiteral("(%1,%2)").arg(QLatin1String(type)).arg(size) : QString();
}

QString stringRendering(const MSGCTR_ENG_DumpContext& c, const QString& text, const char* type)
{
    QString out = c.printQuotesForString() ? QLatin1Char('"') + text + QLatin1Char('"') : text;
    if (c.needOutputObjectTypeInfo() && c.printStringObjectTypeInfo())
        out += QStringLiteral("(%1, len=%2)").arg(QLatin1String(type)).arg(text.size());
    return out;
}

QString bytesRendering(const MSGCTR_ENG_DumpContext& c, const QByteArray& bytes)
{
    const MSGCTR_HEX_DUMP_ATTR_T& attr = c.hexDumpAttr();
    QString out = QStringLiteral("{ ");
    if (c.needOutputObjectTypeInfo())
        out += QStringLiteral("(QByteArray,8), ");
    if (attr.showTotal)
        out += QStringLiteral("Total (%1) byte(s),").arg(bytes.size());
    if (bytes.size() > 8)
        out += QLatin1Char('\n');
    int onLine = 0;
    for (const char b : bytes) {
        if (attr.with0xPrefix)
            out += QStringLiteral("0x");
        out += QStringLiteral("%1").arg(static_cast<unsigned char>(b), 2, 16, QLatin1Char('0')).toUpper();
        out += attr.commaSeparated ? QStringLiteral(", ") : QStringLiteral(" ");
        if (++onLine == attr.bytesPerLine) {
            out += QLatin1Char('\n');
            onLine = 0;
        }
    }
    return out + QStringLiteral(" }");
}

// Streams one value and checks what it appended.
template <typename T>
void expectAppends(MSGCTR_ENG_DumpContext& c, const T& value, const QString& expected)
{
    const qsizetype before = c.data().size();
    c << value;
    FUZZ_CHECK(c.data().mid(before) == expected);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    fuzz::init();
    fuzz::Input input(data, size);
    MSGCTR_ENG_DumpContext c;
    int pushed = 0;
    for (int step = 0; step < 64 && !input.atEnd(); ++step) {
        switch (input.byte() % 14) {
        case 0: {
            const QString text = fuzz::text(input.field());
            expectAppends(c, text, stringRendering(c, text, "QString"));
            break;
        }
        case 1: {
            // The context reads a C text up to its terminator: the copy is exactly that long.
            const QByteArray bytes = input.field();
            std::vector<char> buffer(bytes.begin(), bytes.end());
            buffer.push_back('\0');
            expectAppends(c, static_cast<const char*>(buffer.data()),
                          stringRendering(c, QString::fromLatin1(bytes), "PCSTR8"));
            break;
        }
        case 2: {
            const QString text = fuzz::text(input.field());
            std::vector<unsigned short> units;
            for (const QChar ch : text) {
                if (ch.unicode() == 0)
                    break;
                units.push_back(ch.unicode());
            }
            const QString expected = QString(reinterpret_cast<const QChar*>(units.data()), qsizetype(units.size()));
            units.push_back(0);
            expectAppends(c, static_cast<const unsigned short*>(units.data()),
                          stringRendering(c, expected, "PCSTR16"));
            break;
        }
        case 3: {
            const QCString text(input.field());
            expectAppends(c, text, stringRendering(c, QString::fromLatin1(text), "QCString"));
            break;
        }
        case 4: {
            const QByteArray bytes = input.field();
            expectAppends(c, bytes, bytesRendering(c, bytes));
            break;
        }
        case 5: {
            const int value = input.intIn(-32768, 32767) * 65536 + input.intIn(0, 65535);
            expectAppends(c, value, QString::number(value) + typeInfo(c, "S32", 4));
            break;
        }
        case 6: {
            const unsigned short value = static_cast<unsigned short>(input.intIn(0, 65535));
            QString expected = QString::number(value);
            if (c.printHEXForUnsignedIntegralType())
                expected += QStringLiteral("/0x") + QStringLiteral("%1").arg(value, 4, 16, QLatin1Char('0')).toUpper();
            expectAppends(c, value, expected + typeInfo(c, "U16", 2));
            break;
        }
        case 7: {
            const bool value = input.flag();
            expectAppends(c, value, QLatin1String(value ? "true" : "false") + typeInfo(c, "bool", 1));
            break;
        }
        case 8: {
            // A comment folds into its label; the comma label after it is swallowed.
            const QByteArray text = input.field();
            if (text.contains('"') || text.contains("TRACE_CMT"))
                break;
            const QString before = c.data();
            const QByteArray label = "TRACE_CMT( \"" + text + "\" ) = ";
            c << MEDCStr(label.constData()) << TRACE_CMT(text.constData()) << MEDCStr(", ");
            FUZZ_CHECK(c.data() == before + QString::fromLatin1(text));
            break;
        }
        case 9: {
            MSGCTR_HEX_DUMP_ATTR_T attr;
            attr.showTotal = input.flag();
            attr.with0xPrefix = input.flag();
            attr.commaSeparated = input.flag();
            attr.bytesPerLine = input.intIn(-2, 40);
            c.setHexDumpAttr(attr);
            break;
        }
        case 10: {
            const uint8_t flags = input.byte();
            c.setNeedOutputObjectTypeInfo(flags & 1);
            c.setPrintQuotesForString(flags & 2);
            c.setPrintStringObjectTypeInfo(flags & 4);
            c.setPrintHEXForUnsignedIntegralType(flags & 8);
            c.setPrintAsciiCharForCharType(flags & 16);
            break;
        }
        case 11:
            c.pushSetup();
            ++pushed;
            break;
        case 12:
            if (pushed > 0) {
                const MSGCTR_ENG_DUMPCONTEXT_SETUP_S saved = c.stackSetup().last();
                c.popSetup();
                --pushed;
                FUZZ_CHECK(c.getDepth() == saved.depth);
                FUZZ_CHECK(c.needOutputObjectTypeInfo() == saved.needOutputObjectTypeInfo);
                FUZZ_CHECK(c.hexDumpAttr().bytesPerLine == saved.hexDumpAttr.bytesPerLine);
            }
            break;
        case 13: {
            const QString label = fuzz::text(input.field());
            const qsizetype before = c.data().size();
            c << MEDCQqqStr(label);
            FUZZ_CHECK(c.data().mid(before) == QString::fromLatin1(label.toLatin1())
                       || label == QStringLiteral(", "));
            break;
        }
        }
    }
    FUZZ_CHECK(c.stackSetup().size() == pushed);
    fuzz::takeReportCount();
    return 0;
}
