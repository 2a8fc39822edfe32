#include "HostRootTest.h"
#include "RowName.h"
#include "ProgramLauncher.h"

#include "SETUP_Utility.h"
#include "UTIL_Language.h"
#include "ZorHostControl.h"
#include "ZorHostSetupControl.h"

#include <QProcess>

#include <ostream>

inline void PrintTo(const QString& text, std::ostream* os)
{
    *os << '"' << text.toStdString() << '"';
}

namespace {

struct ToolRun {
    int status = -1;
    QString out;
    QString err;
};

class MsgctrPlatformTest : public HostRootTest {
protected:
    ToolRun msgctr(const QStringList& args)
    {
        QProcess p;
        startProgram(p, QStringLiteral(ZOR_MSGCTR_EXE), QStringList{QStringLiteral("--root"), root()} + args);
        ToolRun run;
        if (!p.waitForFinished(-1) || p.exitStatus() != QProcess::NormalExit)
            return run;
        run.status = p.exitCode();
        run.out = QString::fromLocal8Bit(p.readAllStandardOutput());
        run.err = QString::fromLocal8Bit(p.readAllStandardError());
        return run;
    }
};

TEST_F(MsgctrPlatformTest, FlexbitListsTheWholeTable)
{
    const ToolRun run = msgctr({QStringLiteral("platform"), QStringLiteral("flexbit")});
    EXPECT_EQ(run.status, 0);
    const QStringList lines = run.out.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    ASSERT_EQ(lines.size(), 52);
    EXPECT_EQ(lines.first(), QStringLiteral("49 on"));
    EXPECT_TRUE(lines.contains(QStringLiteral("303 off")));
    EXPECT_EQ(lines.last(), QStringLiteral("506 off"));
}

TEST_F(MsgctrPlatformTest, FlexbitShowsAndSetsOneBit)
{
    ToolRun run = msgctr({QStringLiteral("platform"), QStringLiteral("flexbit"), QStringLiteral("303")});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.out, QStringLiteral("303 off\n"));
    run = msgctr({QStringLiteral("platform"), QStringLiteral("flexbit"), QStringLiteral("303"), QStringLiteral("on")});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.out, QStringLiteral("303 on\n"));
    bool value = false;
    EXPECT_TRUE(SETUP_Utility::getFlexBit(303, &value));
    EXPECT_TRUE(value);
    run = msgctr({QStringLiteral("platform"), QStringLiteral("flexbit"), QStringLiteral("303")});
    EXPECT_EQ(run.out, QStringLiteral("303 on\n"));
}

TEST_F(MsgctrPlatformTest, FlexbitUnsetMakesTheBitUnreadable)
{
    ToolRun run = msgctr({QStringLiteral("platform"), QStringLiteral("flexbit"), QStringLiteral("230"),
                      QStringLiteral("unset")});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.out, QStringLiteral("230 unset\n"));
    bool value = true;
    EXPECT_FALSE(SETUP_Utility::getFlexBit(230, &value));
    run = msgctr({QStringLiteral("platform"), QStringLiteral("flexbit"), QStringLiteral("230")});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.out, QString());
    EXPECT_EQ(run.err, QStringLiteral("msgctr: flex bit 230 is not set\n"));
}

struct BadArgs {
    QStringList args;
    const char* message;
};

class MsgctrPlatformBadArgsTest : public MsgctrPlatformTest, public ::testing::WithParamInterface<BadArgs> {};

TEST_P(MsgctrPlatformBadArgsTest, BadInputIsAUsageError)
{
    const ToolRun run = msgctr(QStringList{QStringLiteral("platform")} + GetParam().args);
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.out, QString());
    EXPECT_EQ(run.err, QStringLiteral("msgctr: %1\n").arg(QString::fromUtf8(GetParam().message)));
    EXPECT_EQ(ZorHost::flexBits().value(303), false);
    EXPECT_EQ(UTIL_Language::getSystemLanguageCode(), QStringLiteral("en-us"));
}

INSTANTIATE_TEST_SUITE_P(
    Args, MsgctrPlatformBadArgsTest,
    ::testing::Values(
        BadArgs{{QStringLiteral("flexbit"), QStringLiteral("x")}, "'x' is not a flex bit number"},
        BadArgs{{QStringLiteral("flexbit"), QStringLiteral("99999999999")}, "'99999999999' is not a flex bit number"},
        BadArgs{{QStringLiteral("flexbit"), QStringLiteral("303"), QStringLiteral("yes")},
                "'yes' is not one of on off unset"},
        BadArgs{{QStringLiteral("flexbit"), QStringLiteral("303"), QStringLiteral("on"), QStringLiteral("x")},
                "platform flexbit takes at most a number and a setting"},
        BadArgs{{QStringLiteral("feature"), QStringLiteral("2040"), QStringLiteral("unset")},
                "'unset' is not one of on off"},
        BadArgs{{QStringLiteral("feature"), QStringLiteral("")}, "'' is not a feature number"},
        BadArgs{{QStringLiteral("lang"), QStringLiteral("de-de"), QStringLiteral("fr-fr")},
                "platform lang takes at most one language code"},
        BadArgs{{QStringLiteral("lang"), QStringLiteral("xx")},
                "unknown language code 'xx'; known: en-us en-gb de-de it-it fr-fr es-es nl-nl sv-se da-dk pt-pt "
                "fi-fi nb-no el-gr tr-tr hu-hu pl-pl cs-cz pt-br ru-ru zh-cn zh-tw"}),
                         [](const auto& info) { return rowName(info.param.args.join(QLatin1Char(' '))); });

TEST_F(MsgctrPlatformTest, FeatureListsShowsAndSets)
{
    ToolRun run = msgctr({QStringLiteral("platform"), QStringLiteral("feature")});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.out, QStringLiteral("2007 off\n2040 on\n2168 on\n2189 off\n"));
    run = msgctr({QStringLiteral("platform"), QStringLiteral("feature"), QStringLiteral("2007"), QStringLiteral("on")});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.out, QStringLiteral("2007 on\n"));
    EXPECT_TRUE(SETUP_Utility::isFeatureAvailable(2007));
    run = msgctr({QStringLiteral("platform"), QStringLiteral("feature"), QStringLiteral("0x7f8")});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.out, QStringLiteral("2040 on\n"));
}

TEST_F(MsgctrPlatformTest, FeatureNotInTheTableIsReported)
{
    const ToolRun run = msgctr({QStringLiteral("platform"), QStringLiteral("feature"), QStringLiteral("4711")});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.err, QStringLiteral("msgctr: feature 4711 is not set\n"));
}

TEST_F(MsgctrPlatformTest, LangShowsAndSetsTheSystemLanguage)
{
    ToolRun run = msgctr({QStringLiteral("platform"), QStringLiteral("lang")});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.out, QStringLiteral("en-us (id 0, English, cell-broadcast language 1)\n"));
    run = msgctr({QStringLiteral("platform"), QStringLiteral("lang"), QStringLiteral("cs-cz")});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.out, QStringLiteral("cs-cz (id 16, Czech, cell-broadcast language 32)\n"));
    EXPECT_EQ(UTIL_Language::getSystemLanguageCode(), QStringLiteral("cs-cz"));
}

TEST_F(MsgctrPlatformTest, ResetBringsBackTheFactorySwitchesAndLanguage)
{
    ASSERT_EQ(msgctr({QStringLiteral("platform"), QStringLiteral("lang"), QStringLiteral("fr-fr")}).status, 0);
    ASSERT_EQ(msgctr({QStringLiteral("platform"), QStringLiteral("flexbit"), QStringLiteral("303"), QStringLiteral("on")})
                  .status,
              0);
    ASSERT_EQ(msgctr({QStringLiteral("platform"), QStringLiteral("reset")}).status, 0);
    EXPECT_EQ(msgctr({QStringLiteral("platform"), QStringLiteral("lang")}).out,
              QStringLiteral("en-us (id 0, English, cell-broadcast language 1)\n"));
    EXPECT_EQ(msgctr({QStringLiteral("platform"), QStringLiteral("flexbit"), QStringLiteral("303")}).out,
              QStringLiteral("303 off\n"));
}

} // namespace
