#include "MSGCTR_ENG_UTIL_Dbg.h"

#include "ForkedScenario.h"
#include "HostRootTest.h"
#include "ReportCapture.h"

#include <ostream>
#include "MSGCTR_ENG_DbgCtrlCenter.h"

#include <QFile>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <sys/times.h>
#include <unistd.h>

#include <cstdio>
#include <string>

namespace {

class UtilDbgTest : public HostRootTest {};

// Tests that install writers of their own take them away again when they end.
class UtilDbgWriter : public ::testing::Test {
protected:
    void TearDown() override { ReportCapture::stop(); }
};

struct FileCase {
    const char* name;
    const char* file;
    int line;
    const char* expected;
};

void PrintTo(const FileCase& c, std::ostream* os)
{
    *os << "\"" << c.name << "\"";
}

class FileAndLineTest : public HostRootTest, public ::testing::WithParamInterface<FileCase> {};

long ticksNow()
{
    struct tms buffer;
    return long(times(&buffer));
}

// Runs `write` with standard error sent to a file and returns what was written there.
template <typename Write>
QByteArray captureStderr(Write write)
{
    QTemporaryDir dir(QStringLiteral(ZOR_TEST_TMP "/stderr-XXXXXX"));
    const QString path = dir.filePath(QStringLiteral("stderr.txt"));
    std::fflush(stderr);
    const int saved = dup(STDERR_FILENO);
    FILE* file = std::fopen(path.toLocal8Bit().constData(), "w");
    dup2(fileno(file), STDERR_FILENO);
    write();
    std::fflush(stderr);
    dup2(saved, STDERR_FILENO);
    close(saved);
    std::fclose(file);
    QFile in(path);
    if (!in.open(QIODevice::ReadOnly))
        return QByteArray("<no capture>");
    return in.readAll();
}

QStringList g_ownLines;

void ownWriter(const char* line)
{
    g_ownLines.append(QString::fromLatin1(line));
}

void otherWriter(const char* line)
{
    g_ownLines.append(QStringLiteral("other:") + QString::fromLatin1(line));
}

// A writer that reports while it writes: the guard drops those nested lines.
void reportingWriter(const char* line)
{
    g_ownLines.append(QString::fromLatin1(line));
    MSGCTR_ENG_UTIL_Dbg::callPrintln("nested line");
    MSGCTR_ENG_DbgCtrlCenter::obj().output(QStringLiteral("nested report"));
    MSGCTR_ENG_DbgCtrlCenter::obj().outputAssertFail("nested.cpp", 1, "false");
}

} // namespace

TEST_P(FileAndLineTest, CutsTheFileName)
{
    EXPECT_EQ(MSGCTR_ENG_UTIL_Dbg::getFileAndLine(GetParam().file, GetParam().line),
              QString::fromLatin1(GetParam().expected));
}

INSTANTIATE_TEST_SUITE_P(
    Table, FileAndLineTest,
    ::testing::Values(FileCase{"BackslashWins", "a\\b/c", 5, "b/c(5)"},
                      FileCase{"Slash", "x/y", 12, "y(12)"},
                      FileCase{"NoSeparator", "MSGCTR_ENG_TAPI.cpp", 92, "MSGCTR_ENG_TAPI.cpp(92)"},
                      FileCase{"DeepPath", "/src/tapi/MSGCTR_ENG_TAPI.cpp", 92, "MSGCTR_ENG_TAPI.cpp(92)"},
                      FileCase{"Backslashes", "c:\\src\\x.h", 1, "x.h(1)"},
                      FileCase{"ExtensionKept", "dir/name.tar.gz", 3, "name.tar.gz(3)"},
                      FileCase{"TrailingSeparator", "dir/", 7, "(7)"},
                      FileCase{"NegativeLine", "f", -1, "f(-1)"}),
    [](const ::testing::TestParamInfo<FileCase>& info) { return std::string(info.param.name); });

TEST_F(UtilDbgTest, TimeTickIsTheProcessTickCount)
{
    const long before = ticksNow();
    const long tick = MSGCTR_ENG_UTIL_Dbg::getTimeTick();
    const long after = ticksNow();
    EXPECT_LE(before, tick);
    EXPECT_LE(tick, after);
}

TEST_F(UtilDbgTest, FileAndLineAndTimeAppendsTheTicksWithoutSeparator)
{
    const long before = ticksNow();
    const QString text = MSGCTR_ENG_UTIL_Dbg::getFileAndLineAndTime("x/y", 12);
    const long after = ticksNow();
    const QRegularExpressionMatch m = QRegularExpression(QStringLiteral("^y\\(12\\)(\\d+)$")).match(text);
    ASSERT_TRUE(m.hasMatch()) << text.toStdString();
    EXPECT_GE(m.captured(1).toLong(), before);
    EXPECT_LE(m.captured(1).toLong(), after);
}

TEST_F(UtilDbgTest, FileAndLineAndFuncNameAndTime)
{
    const long before = ticksNow();
    const QString text = MSGCTR_ENG_UTIL_Dbg::getFileAndLineAndFuncNameAndTime("a/MSGCTR_ENG_TAPI.cpp", 92,
                                                                               "u8VpOfMaximum");
    const long after = ticksNow();
    const QRegularExpressionMatch m =
        QRegularExpression(QStringLiteral("^MSGCTR_ENG_TAPI\\.cpp\\(92\\)\\[u8VpOfMaximum\\](\\d+)$")).match(text);
    ASSERT_TRUE(m.hasMatch()) << text.toStdString();
    EXPECT_GE(m.captured(1).toLong(), before);
    EXPECT_LE(m.captured(1).toLong(), after);
}

TEST_F(UtilDbgTest, TextEndingInNewlineWritesNoEmptyLastLine)
{
    MSGCTR_ENG_UTIL_Dbg::outputToStdout("a\n");
    EXPECT_EQ(reportLines(), QStringList{QStringLiteral("a")});
}

TEST_F(UtilDbgTest, TwoNewlinesMakeAnEmptyMiddleLine)
{
    MSGCTR_ENG_UTIL_Dbg::outputToStdout("a\n\nb");
    EXPECT_EQ(reportLines(), (QStringList{QStringLiteral("a"), QString(), QStringLiteral("b")}));
}

TEST_F(UtilDbgTest, EmptyTextWritesNothing)
{
    MSGCTR_ENG_UTIL_Dbg::outputToStdout("");
    MSGCTR_ENG_UTIL_Dbg::outputToStdout(QString());
    MSGCTR_ENG_UTIL_Dbg__qdebug(QCString());
    EXPECT_EQ(reportLines(), QStringList());
}

TEST_F(UtilDbgTest, NullTextWritesNothing)
{
    MSGCTR_ENG_UTIL_Dbg::outputToStdout(static_cast<const char*>(nullptr));
    EXPECT_EQ(reportLines(), QStringList());
}

TEST_F(UtilDbgTest, LoneNewlineIsOneEmptyLine)
{
    MSGCTR_ENG_UTIL_Dbg::outputToStdout("\n");
    EXPECT_EQ(reportLines(), QStringList{QString()});
}

TEST_F(UtilDbgTest, SplitterHandsEachLineOn)
{
    MSGCTR_ENG_UTIL_Dbg__qdebug(QCString("one\ntwo\n\nthree\n"));
    EXPECT_EQ(reportLines(),
              (QStringList{QStringLiteral("one"), QStringLiteral("two"), QString(), QStringLiteral("three")}));
}

TEST_F(UtilDbgTest, CarriageReturnsStayInTheLine)
{
    MSGCTR_ENG_UTIL_Dbg::outputToStdout("a\r\nb");
    EXPECT_EQ(reportLines(), (QStringList{QStringLiteral("a\r"), QStringLiteral("b")}));
}

TEST_F(UtilDbgTest, QStringAbove255BecomesQuestionMarks)
{
    MSGCTR_ENG_UTIL_Dbg::outputToStdout(QString::fromUtf16(u"caf\u00E9 \u20AC5\nnext"));
    EXPECT_EQ(reportLines(), (QStringList{QStringLiteral("caf\u00E9 ?5"), QStringLiteral("next")}));
}

TEST_F(UtilDbgTest, CallPrintlnWritesOneLineAsItIs)
{
    MSGCTR_ENG_UTIL_Dbg::callPrintln("x\ny");
    MSGCTR_ENG_UTIL_Dbg::callPrintln(nullptr);
    EXPECT_EQ(reportLines(), (QStringList{QStringLiteral("x\ny"), QString()}));
}

TEST_F(UtilDbgTest, EnableOutputLogChangesNothingVisible)
{
    MSGCTR_ENG_UTIL_Dbg::enableOutputLog(true);
    MSGCTR_ENG_UTIL_Dbg::outputToStdout("a");
    MSGCTR_ENG_UTIL_Dbg::enableOutputLog(false);
    MSGCTR_ENG_UTIL_Dbg::outputToStdout("b");
    EXPECT_EQ(reportLines(), (QStringList{QStringLiteral("a"), QStringLiteral("b")}));
}

TEST_F(UtilDbgWriter, WithoutCallbackLinesGoToStandardError)
{
    // Only a process where no writer was ever installed has none.
    runForkedScenario([] {
        const QByteArray written = captureStderr([] {
            MSGCTR_ENG_UTIL_Dbg::outputToStdout("one\n\ntwo\n");
            MSGCTR_ENG_UTIL_Dbg::outputToStdout(QString::fromUtf16(u"\u20AC%s"));
            MSGCTR_ENG_UTIL_Dbg::callPrintln(nullptr);
        });
        EXPECT_EQ(written, QByteArray("one\n\ntwo\n?%s\n\n"));
    });
}

TEST_F(UtilDbgWriter, CallbackReplacesStandardError)
{
    g_ownLines.clear();
    MSGCTR_ENG_UTIL_Dbg::setCallbackPrintln(ownWriter);
    const QByteArray written = captureStderr([] { MSGCTR_ENG_UTIL_Dbg::outputToStdout("a\nb"); });
    EXPECT_EQ(written, QByteArray());
    EXPECT_EQ(g_ownLines, (QStringList{QStringLiteral("a"), QStringLiteral("b")}));
}

TEST_F(UtilDbgWriter, NullCallbackKeepsTheCurrentWriter)
{
    g_ownLines.clear();
    MSGCTR_ENG_UTIL_Dbg::setCallbackPrintln(ownWriter);
    MSGCTR_ENG_UTIL_Dbg::setCallbackPrintln(nullptr);
    const QByteArray written = captureStderr([] { MSGCTR_ENG_UTIL_Dbg::outputToStdout("kept"); });
    EXPECT_EQ(written, QByteArray());
    EXPECT_EQ(g_ownLines, QStringList{QStringLiteral("kept")});
}

TEST_F(UtilDbgWriter, NullCallbackBeforeAnyWriterKeepsStandardError)
{
    runForkedScenario([] {
        MSGCTR_ENG_UTIL_Dbg::setCallbackPrintln(nullptr);
        const QByteArray written = captureStderr([] { MSGCTR_ENG_UTIL_Dbg::outputToStdout("still here"); });
        EXPECT_EQ(written, QByteArray("still here\n"));
    });
}

TEST_F(UtilDbgWriter, LaterCallbackReplacesTheEarlierOne)
{
    g_ownLines.clear();
    MSGCTR_ENG_UTIL_Dbg::setCallbackPrintln(ownWriter);
    MSGCTR_ENG_UTIL_Dbg::setCallbackPrintln(otherWriter);
    MSGCTR_ENG_UTIL_Dbg::outputToStdout("x");
    EXPECT_EQ(g_ownLines, QStringList{QStringLiteral("other:x")});
}

TEST_F(UtilDbgWriter, WriterThatReportsDoesNotRecurse)
{
    g_ownLines.clear();
    MSGCTR_ENG_UTIL_Dbg::setCallbackPrintln(reportingWriter);
    const QByteArray written = captureStderr([] { MSGCTR_ENG_UTIL_Dbg::outputToStdout("first\nsecond"); });
    EXPECT_EQ(g_ownLines, (QStringList{QStringLiteral("first"), QStringLiteral("second")}));
    EXPECT_EQ(written, QByteArray()) << "nested lines are dropped, not sent elsewhere";

    // The guard is lowered again once the writer returns.
    MSGCTR_ENG_UTIL_Dbg::callPrintln("third");
    EXPECT_EQ(g_ownLines.last(), QStringLiteral("third"));
    EXPECT_EQ(g_ownLines.size(), 3);
}
