#include "MSGCTR_ENG_DumpContext.h"

#include "HostRootTest.h"

#include <ostream>

#include <functional>
#include <string>

namespace {

class DumpContextTest : public HostRootTest {
protected:
    MSGCTR_ENG_DumpContext dc;
};

QByteArray bytesUpTo(int count)
{
    QByteArray bytes;
    for (int i = 0; i < count; ++i)
        bytes.append(char(i));
    return bytes;
}

struct RenderCase {
    const char* name;
    std::function<void(MSGCTR_ENG_DumpContext&)> stream;
    const char* expected;
};

void PrintTo(const RenderCase& c, std::ostream* os)
{
    *os << "\"" << c.name << "\"";
}

class RenderTest : public HostRootTest, public ::testing::WithParamInterface<RenderCase> {};

const unsigned short kUnitsAb[] = {'a', 'b', 0};

} // namespace

TEST_P(RenderTest, FreshContext)
{
    MSGCTR_ENG_DumpContext dc;
    GetParam().stream(dc);
    EXPECT_EQ(dc.data(), QString::fromLatin1(GetParam().expected));
}

INSTANTIATE_TEST_SUITE_P(
    EveryOperand, RenderTest,
    ::testing::Values(
        RenderCase{"Int5", [](MSGCTR_ENG_DumpContext& c) { c << 5; }, "5(S32,4)"},
        RenderCase{"IntNegative", [](MSGCTR_ENG_DumpContext& c) { c << -17; }, "-17(S32,4)"},
        RenderCase{"UChar255", [](MSGCTR_ENG_DumpContext& c) { c << static_cast<unsigned char>(255); },
                   "255/0xFF(U8,1)"},
        RenderCase{"UShort", [](MSGCTR_ENG_DumpContext& c) { c << static_cast<unsigned short>(0x1234); },
                   "4660/0x1234(U16,2)"},
        RenderCase{"UInt", [](MSGCTR_ENG_DumpContext& c) { c << 255u; }, "255/0x000000FF(U32,4)"},
        RenderCase{"SChar", [](MSGCTR_ENG_DumpContext& c) { c << static_cast<signed char>(-5); }, "-5(S8,1)"},
        RenderCase{"Short", [](MSGCTR_ENG_DumpContext& c) { c << static_cast<short>(-300); }, "-300(S16,2)"},
        RenderCase{"True", [](MSGCTR_ENG_DumpContext& c) { c << true; }, "true(bool,1)"},
        RenderCase{"False", [](MSGCTR_ENG_DumpContext& c) { c << false; }, "false(bool,1)"},
        RenderCase{"Char", [](MSGCTR_ENG_DumpContext& c) { c << 'A'; }, "65/'A'(char,1)"},
        RenderCase{"CharAboveAscii", [](MSGCTR_ENG_DumpContext& c) { c << '\xE9'; }, "233/'\xE9'(char,1)"},
        RenderCase{"Float", [](MSGCTR_ENG_DumpContext& c) { c << 3.14159265f; }, "3.14159"},
        RenderCase{"Double", [](MSGCTR_ENG_DumpContext& c) { c << 1234567.0; }, "1.23457e+06"},
        RenderCase{"DoubleSmall", [](MSGCTR_ENG_DumpContext& c) { c << 0.5; }, "0.5"},
        RenderCase{"Pointer", [](MSGCTR_ENG_DumpContext& c) { c << reinterpret_cast<const void*>(0xBEEF); },
                   "0x0000BEEF(void*,4)"},
        RenderCase{"NullPointer", [](MSGCTR_ENG_DumpContext& c) { c << static_cast<const void*>(nullptr); },
                   "0x00000000(void*,4)"},
        RenderCase{"CText", [](MSGCTR_ENG_DumpContext& c) { c << "ab"; }, "\"ab\"(PCSTR8, len=2)"},
        RenderCase{"NullCText", [](MSGCTR_ENG_DumpContext& c) { c << static_cast<const char*>(nullptr); },
                   "NULL(PCSTR8, len=0)"},
        RenderCase{"QCString", [](MSGCTR_ENG_DumpContext& c) { c << QCString("xyz"); }, "\"xyz\"(QCString, len=3)"},
        RenderCase{"NullQCString", [](MSGCTR_ENG_DumpContext& c) { c << QCString(); }, "\"\"(QCString, len=0)"},
        RenderCase{"Units", [](MSGCTR_ENG_DumpContext& c) { c << kUnitsAb; }, "\"ab\"(PCSTR16, len=2)"},
        RenderCase{"NullUnits", [](MSGCTR_ENG_DumpContext& c) { c << static_cast<const unsigned short*>(nullptr); },
                   "NULL(PCSTR16, len=0)"},
        RenderCase{"QString", [](MSGCTR_ENG_DumpContext& c) { c << QStringLiteral("hello"); },
                   "\"hello\"(QString, len=5)"},
        RenderCase{"Label", [](MSGCTR_ENG_DumpContext& c) { c << MEDCStr("x = "); }, "x = "},
        RenderCase{"QqqLabel", [](MSGCTR_ENG_DumpContext& c) { c << MEDCQqqStr(QStringLiteral("y = ")); }, "y = "},
        RenderCase{"Endl", [](MSGCTR_ENG_DumpContext& c) { c << endl; }, "\"\n\"(PCSTR8, len=1)"},
        RenderCase{"Chain",
                   [](MSGCTR_ENG_DumpContext& c) {
                       c << MEDCStr("struVp.unit = ") << 3 << MEDCStr(", ") << MEDCStr("struVp.value = ")
                         << static_cast<unsigned char>(63) << MEDCStr(", ");
                   },
                   "struVp.unit = 3(S32,4), struVp.value = 63/0x3F(U8,1), "}),
    [](const ::testing::TestParamInfo<RenderCase>& info) { return std::string(info.param.name); });

TEST_F(DumpContextTest, InitialFlags)
{
    EXPECT_EQ(dc.getDepth(), 0);
    EXPECT_TRUE(dc.needOutputObjectTypeInfo());
    EXPECT_TRUE(dc.printQuotesForString());
    EXPECT_TRUE(dc.printStringObjectTypeInfo());
    EXPECT_TRUE(dc.printHEXForUnsignedIntegralType());
    EXPECT_TRUE(dc.printAsciiCharForCharType());
    EXPECT_TRUE(dc.hexDumpAttr().showTotal);
    EXPECT_TRUE(dc.hexDumpAttr().with0xPrefix);
    EXPECT_TRUE(dc.hexDumpAttr().commaSeparated);
    EXPECT_EQ(dc.hexDumpAttr().bytesPerLine, 8);
    EXPECT_TRUE(dc.stackSetup().isEmpty());
    EXPECT_TRUE(dc.data().isEmpty());
}

TEST_F(DumpContextTest, InitRestoresTheInitialFlagsButKeepsTheText)
{
    dc << 1;
    dc.setDepth(4);
    dc.disableOutputObjTypeInfo();
    dc.setPrintQuotesForString(false);
    dc.setPrintStringObjectTypeInfo(false);
    dc.setPrintHEXForUnsignedIntegralType(false);
    dc.setPrintAsciiCharForCharType(false);
    dc.setHexDumpAttr(MSGCTR_HEX_DUMP_ATTR_T{false, false, false, 2});
    dc.init();
    EXPECT_EQ(dc.getDepth(), 0);
    EXPECT_TRUE(dc.needOutputObjectTypeInfo());
    EXPECT_TRUE(dc.printQuotesForString());
    EXPECT_TRUE(dc.printStringObjectTypeInfo());
    EXPECT_TRUE(dc.printHEXForUnsignedIntegralType());
    EXPECT_TRUE(dc.printAsciiCharForCharType());
    EXPECT_EQ(dc.hexDumpAttr().bytesPerLine, 8);
    EXPECT_EQ(dc.data(), QStringLiteral("1(S32,4)"));
}

TEST_F(DumpContextTest, NoTypeInfoLeavesBareValues)
{
    dc.disableOutputObjTypeInfo();
    dc << 5 << MEDCStr(" ") << static_cast<unsigned char>(255) << MEDCStr(" ") << QStringLiteral("ab")
       << MEDCStr(" ") << "cd" << MEDCStr(" ") << true << MEDCStr(" ") << reinterpret_cast<const void*>(0x10);
    EXPECT_EQ(dc.data(), QStringLiteral("5 255/0xFF \"ab\" \"cd\" true 0x00000010"));
}

TEST_F(DumpContextTest, SetNeedOutputObjectTypeInfoSwitchesBothWays)
{
    dc.setNeedOutputObjectTypeInfo(false);
    EXPECT_FALSE(dc.needOutputObjectTypeInfo());
    dc << 1;
    dc.setNeedOutputObjectTypeInfo(true);
    dc << 2;
    EXPECT_EQ(dc.data(), QStringLiteral("12(S32,4)"));
}

TEST_F(DumpContextTest, UnsignedWithoutHex)
{
    dc.setPrintHEXForUnsignedIntegralType(false);
    EXPECT_FALSE(dc.printHEXForUnsignedIntegralType());
    dc << static_cast<unsigned char>(255) << static_cast<unsigned short>(2) << 3u;
    EXPECT_EQ(dc.data(), QStringLiteral("255(U8,1)2(U16,2)3(U32,4)"));
}

TEST_F(DumpContextTest, CharWithoutAsciiForm)
{
    dc.setPrintAsciiCharForCharType(false);
    EXPECT_FALSE(dc.printAsciiCharForCharType());
    dc << 'A';
    EXPECT_EQ(dc.data(), QStringLiteral("65(char,1)"));
}

TEST_F(DumpContextTest, StringsWithoutQuotesOrAnnotation)
{
    dc.setPrintQuotesForString(false);
    EXPECT_FALSE(dc.printQuotesForString());
    dc << QStringLiteral("ab");
    dc.setPrintStringObjectTypeInfo(false);
    EXPECT_FALSE(dc.printStringObjectTypeInfo());
    dc << MEDCStr("|") << QStringLiteral("ab") << MEDCStr("|") << static_cast<const char*>(nullptr);
    EXPECT_EQ(dc.data(), QStringLiteral("ab(QString, len=2)|ab|NULL"));
}

TEST_F(DumpContextTest, StringAnnotationNeedsBothFlags)
{
    dc.disableOutputObjTypeInfo();
    dc << QStringLiteral("ab");
    EXPECT_EQ(dc.data(), QStringLiteral("\"ab\""));
}

TEST_F(DumpContextTest, Latin1TextKeepsItsCharacters)
{
    dc << "caf\xE9" << QCString("\xE9");
    EXPECT_EQ(dc.data(), QStringLiteral("\"caf\u00E9\"(PCSTR8, len=4)\"\u00E9\"(QCString, len=1)"));
}

TEST_F(DumpContextTest, StringAfterDisablePrintStringObjInfosAndPopStaysBare)
{
    dc.pushSetupAndDisablePrintStringObjInfosAndQuotes();
    dc.popSetup();
    dc << QStringLiteral("ab");
    EXPECT_EQ(dc.data(), QStringLiteral("ab"));
    EXPECT_TRUE(dc.stackSetup().isEmpty());
}

TEST_F(DumpContextTest, TypeInfoComesBackAfterPop)
{
    dc.pushSetupAndDisableOutputObjTypeInfo();
    dc << 1;
    dc.popSetup();
    dc << 2;
    EXPECT_EQ(dc.data(), QStringLiteral("12(S32,4)"));
    EXPECT_TRUE(dc.needOutputObjectTypeInfo());
}

TEST_F(DumpContextTest, ScopeGuardDisablesTypeInfoForItsBlock)
{
    {
        MSGCTR_ENG_DumpContext::InBlockPushSetupAndDisableOutputObjTypeInfo guard(dc);
        EXPECT_EQ(dc.stackSetup().size(), 1);
        dc << 1;
    }
    dc << 2;
    EXPECT_EQ(dc.data(), QStringLiteral("12(S32,4)"));
    EXPECT_TRUE(dc.stackSetup().isEmpty());
}

TEST_F(DumpContextTest, PushAndPopRestoreDepthTypeInfoAndHexAttributes)
{
    dc.setDepth(2);
    dc.pushSetup();
    const MSGCTR_ENG_DUMPCONTEXT_SETUP_S saved = dc.stackSetup().last();
    EXPECT_EQ(saved.depth, 2);
    EXPECT_TRUE(saved.needOutputObjectTypeInfo);
    EXPECT_EQ(saved.hexDumpAttr.bytesPerLine, 8);

    dc.setDepth(5);
    dc.setNeedOutputObjectTypeInfo(false);
    dc.setHexDumpAttr(MSGCTR_HEX_DUMP_ATTR_T{false, false, false, 3});
    dc.setPrintHEXForUnsignedIntegralType(false);
    const MSGCTR_ENG_DUMPCONTEXT_SETUP_S current = dc.getCurSetup();
    EXPECT_EQ(current.depth, 5);
    EXPECT_FALSE(current.needOutputObjectTypeInfo);
    EXPECT_EQ(current.hexDumpAttr.bytesPerLine, 3);

    dc.popSetup();
    EXPECT_EQ(dc.getDepth(), 2);
    EXPECT_TRUE(dc.needOutputObjectTypeInfo());
    EXPECT_TRUE(dc.hexDumpAttr().showTotal);
    EXPECT_EQ(dc.hexDumpAttr().bytesPerLine, 8);
    EXPECT_FALSE(dc.printHEXForUnsignedIntegralType()) << "not part of a saved setup";
}

TEST_F(DumpContextTest, PopOnEmptyStackDoesNothing)
{
    dc.setDepth(3);
    dc.disableOutputObjTypeInfo();
    dc.popSetup();
    EXPECT_EQ(dc.getDepth(), 3);
    EXPECT_FALSE(dc.needOutputObjectTypeInfo());
}

TEST_F(DumpContextTest, NestedSetupsUnwindInOrder)
{
    dc.setDepth(1);
    dc.pushSetup();
    dc.setDepth(2);
    dc.pushSetup();
    dc.setDepth(3);
    EXPECT_EQ(dc.stackSetup().size(), 2);
    dc.popSetup();
    EXPECT_EQ(dc.getDepth(), 2);
    dc.popSetup();
    EXPECT_EQ(dc.getDepth(), 1);
}

TEST_F(DumpContextTest, ByteArrayOfThree)
{
    dc << QByteArray("\x01\x02\xFF", 3);
    EXPECT_EQ(dc.data(), QStringLiteral("{ (QByteArray,8), Total (3) byte(s),0x01, 0x02, 0xFF,  }"));
}

TEST_F(DumpContextTest, EmptyByteArray)
{
    dc << QByteArray();
    EXPECT_EQ(dc.data(), QStringLiteral("{ (QByteArray,8), Total (0) byte(s), }"));
}

TEST_F(DumpContextTest, ByteArrayOfEightHasNoLeadingNewline)
{
    dc << bytesUpTo(8);
    EXPECT_EQ(dc.data(), QStringLiteral("{ (QByteArray,8), Total (8) byte(s),"
                                        "0x00, 0x01, 0x02, 0x03, 0x04, 0x05, 0x06, 0x07, \n }"));
}

TEST_F(DumpContextTest, ByteArrayOfNineBreaksBeforeAndAfterTheEighth)
{
    dc << bytesUpTo(9);
    EXPECT_EQ(dc.data(), QStringLiteral("{ (QByteArray,8), Total (9) byte(s),\n"
                                        "0x00, 0x01, 0x02, 0x03, 0x04, 0x05, 0x06, 0x07, \n0x08,  }"));
}

TEST_F(DumpContextTest, ByteArrayWithoutTypeInfo)
{
    dc.disableOutputObjTypeInfo();
    dc << QByteArray("\xAB", 1);
    EXPECT_EQ(dc.data(), QStringLiteral("{ Total (1) byte(s),0xAB,  }"));
}

TEST_F(DumpContextTest, ByteArrayWithOtherHexAttributes)
{
    dc.setHexDumpAttr(MSGCTR_HEX_DUMP_ATTR_T{false, false, false, 2});
    EXPECT_FALSE(dc.hexDumpAttr().showTotal);
    dc << QByteArray("\x01\x02\x03", 3);
    EXPECT_EQ(dc.data(), QStringLiteral("{ (QByteArray,8), 01 02 \n03  }"));
}

TEST_F(DumpContextTest, LongByteArrayBreakFollowsTheConstantNotBytesPerLine)
{
    dc.setHexDumpAttr(MSGCTR_HEX_DUMP_ATTR_T{true, true, true, 16});
    dc << bytesUpTo(9);
    EXPECT_EQ(dc.data(), QStringLiteral("{ (QByteArray,8), Total (9) byte(s),\n"
                                        "0x00, 0x01, 0x02, 0x03, 0x04, 0x05, 0x06, 0x07, 0x08,  }"));
}

TEST_F(DumpContextTest, CommentFoldsToItsText)
{
    dc << MEDCStr("TRACE_CMT( \" too many user-defined-quick-text \" ) = ")
       << TRACE_CMT(" too many user-defined-quick-text ") << MEDCStr(", ");
    EXPECT_EQ(dc.data(), QStringLiteral(" too many user-defined-quick-text "));
}

TEST_F(DumpContextTest, CommentFoldsAfterEarlierPairs)
{
    dc << MEDCStr("a = ") << 1 << MEDCStr(", ") << MEDCStr("TRACE_CMT(\"hi\") = ") << TRACE_CMT("hi")
       << MEDCStr(", ") << MEDCStr("b = ") << 2 << MEDCStr(", ");
    EXPECT_EQ(dc.data(), QStringLiteral("a = 1(S32,4), hib = 2(S32,4), "));
}

TEST_F(DumpContextTest, EmptyCommentLeavesNothing)
{
    dc << MEDCStr("TRACE_CMT(\"\") = ") << TRACE_CMT("") << MEDCStr(", ");
    EXPECT_EQ(dc.data(), QString());
}

TEST_F(DumpContextTest, OnlyOneCommaIsSwallowed)
{
    dc << MEDCStr("TRACE_CMT(\"x\") = ") << TRACE_CMT("x") << MEDCStr(", ") << MEDCStr(", ");
    EXPECT_EQ(dc.data(), QStringLiteral("x, "));
}

TEST_F(DumpContextTest, AnyOtherLabelClearsTheSwallowFlag)
{
    dc << MEDCStr("TRACE_CMT(\"x\") = ") << TRACE_CMT("x") << MEDCStr("; ") << MEDCStr(", ");
    EXPECT_EQ(dc.data(), QStringLiteral("x; , "));
}

TEST_F(DumpContextTest, QqqLabelSwallowsToo)
{
    dc << MEDCStr("TRACE_CMT(\"x\") = ") << TRACE_CMT("x") << MEDCQqqStr(QStringLiteral(", ")) << MEDCStr(", ");
    EXPECT_EQ(dc.data(), QStringLiteral("x, "));
}

TEST_F(DumpContextTest, ValuesDoNotClearTheSwallowFlag)
{
    dc << MEDCStr("TRACE_CMT(\"x\") = ") << TRACE_CMT("x") << 7 << MEDCStr(", ");
    EXPECT_EQ(dc.data(), QStringLiteral("x7(S32,4)"));
}

TEST_F(DumpContextTest, CommentWithoutItsLabelAddsNothingAndSwallowsNothing)
{
    dc << MEDCStr("abc") << TRACE_CMT("c") << MEDCStr(", ");
    EXPECT_EQ(dc.data(), QStringLiteral("abc, "));
}

TEST_F(DumpContextTest, CommentOnEmptyContextAddsNothing)
{
    dc << TRACE_CMT("c") << MEDCStr(", ");
    EXPECT_EQ(dc.data(), QStringLiteral(", "));
}

struct FoldRefusal {
    const char* name;
    const char* label;
    const char* comment;
};

void PrintTo(const FoldRefusal& c, std::ostream* os)
{
    *os << "\"" << c.name << "\"";
}

class CommentRefusalTest : public HostRootTest, public ::testing::WithParamInterface<FoldRefusal> {};

TEST_P(CommentRefusalTest, LabelStaysAndCommaIsWritten)
{
    MSGCTR_ENG_DumpContext dc;
    dc << MEDCStr(GetParam().label) << TRACE_CMT(GetParam().comment) << MEDCStr(", ");
    EXPECT_EQ(dc.data(), QString::fromLatin1(GetParam().label) + QStringLiteral(", "));
}

INSTANTIATE_TEST_SUITE_P(
    Cases, CommentRefusalTest,
    ::testing::Values(FoldRefusal{"OtherText", "TRACE_CMT( \"x\" ) = ", "y"},
                      FoldRefusal{"NoCallName", "TRACE( \"x\" ) = ", "x"},
                      FoldRefusal{"NotAnOpeningParenthesis", "TRACE_CMT[ \"x\" ) = ", "x"},
                      FoldRefusal{"TextBeforeTheQuote", "TRACE_CMT( z \"x\" ) = ", "x"},
                      FoldRefusal{"TextAfterTheQuote", "TRACE_CMT( \"x\" z ) = ", "x"},
                      FoldRefusal{"QuotedTextBeforeTheCall", "\"x\" TRACE_CMT( ) = ", "x"},
                      FoldRefusal{"UnquotedText", "TRACE_CMT( x ) = ", "x"}),
    [](const ::testing::TestParamInfo<FoldRefusal>& info) { return std::string(info.param.name); });

TEST_F(DumpContextTest, QqqLabelIsLatin1)
{
    dc << MEDCQqqStr(QString::fromUtf16(u"\u00E9\u20AC"));
    EXPECT_EQ(dc.data(), QStringLiteral("\u00E9?"));
}

TEST_F(DumpContextTest, NullLabelWritesNothing)
{
    dc << MEDCStr(nullptr);
    EXPECT_EQ(dc.data(), QString());
}

TEST_F(DumpContextTest, EndlRespectsTheStringFlags)
{
    dc.pushSetupAndDisablePrintStringObjInfosAndQuotes();
    dc << MEDCStr("a") << endl << MEDCStr("b");
    EXPECT_EQ(dc.data(), QStringLiteral("a\nb"));
}

TEST_F(DumpContextTest, AnnotationBuilders)
{
    EXPECT_EQ(MSGCTR_ENG_DumpContext::getObjTypeInfo("U8", 1), QStringLiteral("(U8,1)"));
    EXPECT_EQ(MSGCTR_ENG_DumpContext::getStringObjTypeInfo("QString", 5), QStringLiteral("(QString, len=5)"));
}

TEST_F(DumpContextTest, U32InDecimalAndHex)
{
    dc.dumpU32InDEC(4294967295u);
    dc << MEDCStr(" ");
    dc.dumpU32InHEX(0xABCu);
    EXPECT_EQ(dc.data(), QStringLiteral("4294967295 0x00000ABC"));
}

TEST_F(DumpContextTest, HexDumpIsAnEmptyHook)
{
    const unsigned char bytes[] = {1, 2, 3};
    dc.hexDump("title", bytes, 3, 0xFFu);
    EXPECT_EQ(dc.data(), QString());
}

TEST_F(DumpContextTest, ResultAccessAndClear)
{
    dc << MEDCStr("abc");
    dc.qstrResult() += QStringLiteral("def");
    EXPECT_EQ(dc.data(), QStringLiteral("abcdef"));
    dc.clear();
    EXPECT_EQ(dc.data(), QString());
    dc << 1;
    EXPECT_EQ(dc.data(), QStringLiteral("1(S32,4)"));
}

TEST_F(DumpContextTest, StreamingWritesNoReport)
{
    dc << 1 << QStringLiteral("x") << QByteArray("y");
    EXPECT_TRUE(reportLines().isEmpty());
}
