// msgctr platform flexbit|feature|lang|reset, run as separate processes against the test's root.
#include "HostRootTest.h"
#include "MsgctrRun.h"

#include "SETUP_Utility.h"
#include "UTIL_Language.h"
#include "ZorHostControl.h"
#include "ZorHostSetupControl.h"


namespace {

class MsgctrPlatformTest : public HostRootTest {
protected:
    MsgctrResult run(const QStringList& args) { return runMsgctr(root(), QStringList{QStringLiteral("platform")} + args); }
};

TEST_F(MsgctrPlatformTest, FlexbitListsTheWholeTable)
{
    const MsgctrResult r = run(words({"flexbit"}));
    EXPECT_EQ(r.exitCode, 0);
    const QStringList lines = r.out.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    ASSERT_EQ(lines.size(), 52);
    EXPECT_TRUE(lines.contains(QStringLiteral("flex_bits.49: true")));
    EXPECT_TRUE(lines.contains(QStringLiteral("flex_bits.303: false")));
    EXPECT_TRUE(lines.contains(QStringLiteral("flex_bits.506: false")));
}

TEST_F(MsgctrPlatformTest, FlexbitShowsAndSetsOneBit)
{
    MsgctrResult r = run(words({"flexbit", "303"}));
    EXPECT_EQ(r.exitCode, 0);
    EXPECT_EQ(r.out, QStringLiteral("number: 303\non: false\n"));
    r = run(words({"flexbit", "303", "on"}));
    EXPECT_EQ(r.exitCode, 0);
    EXPECT_EQ(r.out, QStringLiteral("number: 303\non: true\n"));
    bool value = false;
    EXPECT_TRUE(SETUP_Utility::getFlexBit(303, &value));
    EXPECT_TRUE(value);
    r = run(words({"flexbit", "303"}));
    EXPECT_EQ(r.out, QStringLiteral("number: 303\non: true\n"));
}

TEST_F(MsgctrPlatformTest, FlexbitUnsetMakesTheBitUnreadable)
{
    MsgctrResult r = run(words({"flexbit", "230", "--unset"}));
    EXPECT_EQ(r.exitCode, 0);
    EXPECT_EQ(r.out, QStringLiteral("number: 230\non: (none)\n"));
    bool value = true;
    EXPECT_FALSE(SETUP_Utility::getFlexBit(230, &value));
    r = run(words({"flexbit", "230"}));
    EXPECT_EQ(r.exitCode, 1);
    EXPECT_EQ(r.out, QString());
    EXPECT_EQ(r.err, QStringLiteral("msgctr: flex bit 230 is not set\n"));
}

struct BadArgs {
    const char* name;
    QStringList args;
    const char* message;
};

std::ostream& operator<<(std::ostream& os, const BadArgs& c)
{
    return os << c.name;
}

class MsgctrPlatformBadArgsTest : public MsgctrPlatformTest, public ::testing::WithParamInterface<BadArgs> {};

TEST_P(MsgctrPlatformBadArgsTest, BadInputIsAUsageError)
{
    const MsgctrResult r = run(GetParam().args);
    EXPECT_EQ(r.exitCode, 2);
    EXPECT_EQ(r.out, QString());
    EXPECT_EQ(r.err, QStringLiteral("msgctr: %1\n").arg(QString::fromUtf8(GetParam().message)));
    EXPECT_EQ(ZorHost::flexBits().value(303), false);
    EXPECT_EQ(UTIL_Language::getSystemLanguageCode(), QStringLiteral("en-us"));
}

INSTANTIATE_TEST_SUITE_P(
    Args, MsgctrPlatformBadArgsTest,
    ::testing::Values(
        BadArgs{"flexbitNotANumber", words({"flexbit", "x"}), "NUMBER must be a number from -2147483648 to 2147483647, not 'x'"},
        BadArgs{"flexbitTooBig", words({"flexbit", "99999999999"}),
                "NUMBER must be a number from -2147483648 to 2147483647, not '99999999999'"},
        BadArgs{"flexbitNotABoolean", words({"flexbit", "303", "maybe"}), "BOOL must be true or false (or on/off, yes/no, 1/0), not 'maybe'"},
        BadArgs{"flexbitTooMany", words({"flexbit", "303", "on", "x"}),
                "platform flexbit: one argument too many: 'x' (see msgctr platform flexbit --help)"},
        BadArgs{"flexbitUnsetWithBoolean", words({"flexbit", "303", "on", "--unset"}), "--unset goes without BOOL"},
        BadArgs{"featureUnset", words({"feature", "2040", "--unset"}),
                "unknown option '--unset' for 'platform feature' (an argument that begins with '-' goes after '--')"},
        BadArgs{"featureEmpty", words({"feature", ""}), "ID must be a number from -2147483648 to 2147483647, not ''"},
        BadArgs{"langTwoCodes", words({"lang", "de-de", "fr-fr"}),
                "platform lang: one argument too many: 'fr-fr' (see msgctr platform lang --help)"},
        BadArgs{"langUnknown", words({"lang", "xx"}),
                "unknown language code 'xx'; known: en-us en-gb de-de it-it fr-fr es-es nl-nl sv-se da-dk pt-pt "
                "fi-fi nb-no el-gr tr-tr hu-hu pl-pl cs-cz pt-br ru-ru zh-cn zh-tw"},
        BadArgs{"langMistyped", words({"lang", "de-dd"}),
                "unknown language code 'de-dd' (did you mean 'de-de'?); known: en-us en-gb de-de it-it fr-fr es-es nl-nl "
                "sv-se da-dk pt-pt fi-fi nb-no el-gr tr-tr hu-hu pl-pl cs-cz pt-br ru-ru zh-cn zh-tw"}),
    [](const ::testing::TestParamInfo<BadArgs>& info) { return std::string(info.param.name); });

TEST_F(MsgctrPlatformTest, FeatureListsShowsAndSets)
{
    MsgctrResult r = run(words({"feature"}));
    EXPECT_EQ(r.exitCode, 0);
    EXPECT_EQ(r.out, QStringLiteral("features.2007: false\nfeatures.2040: true\nfeatures.2168: true\nfeatures.2189: false\n"));
    r = run(words({"feature", "2007", "YES"}));
    EXPECT_EQ(r.exitCode, 0);
    EXPECT_EQ(r.out, QStringLiteral("id: 2007\navailable: true\n"));
    EXPECT_TRUE(SETUP_Utility::isFeatureAvailable(2007));
    r = run(words({"feature", "0x7f8"}));
    EXPECT_EQ(r.exitCode, 0);
    EXPECT_EQ(r.out, QStringLiteral("id: 2040\navailable: true\n"));
}

TEST_F(MsgctrPlatformTest, FeatureNotInTheTableIsReported)
{
    const MsgctrResult r = run(words({"feature", "4711"}));
    EXPECT_EQ(r.exitCode, 1);
    EXPECT_EQ(r.err, QStringLiteral("msgctr: feature 4711 is not set\n"));
}

TEST_F(MsgctrPlatformTest, LangShowsAndSetsTheSystemLanguage)
{
    MsgctrResult r = run(words({"lang"}));
    EXPECT_EQ(r.exitCode, 0);
    EXPECT_EQ(r.out, QStringLiteral("code: en-us\nid: 0\nname: English\ncb_language: 1\n"));
    r = run(words({"lang", "cs-cz"}));
    EXPECT_EQ(r.exitCode, 0);
    EXPECT_EQ(r.out, QStringLiteral("code: cs-cz\nid: 16\nname: Czech\ncb_language: 32\n"));
    EXPECT_EQ(UTIL_Language::getSystemLanguageCode(), QStringLiteral("cs-cz"));
}

TEST_F(MsgctrPlatformTest, ResetBringsBackTheFactorySwitchesAndLanguage)
{
    ASSERT_EQ(run(words({"lang", "fr-fr"})).exitCode, 0);
    ASSERT_EQ(run(words({"flexbit", "303", "on"})).exitCode, 0);
    const MsgctrResult r = run(words({"reset"}));
    EXPECT_EQ(r.exitCode, 0);
    EXPECT_EQ(r.out, QStringLiteral("root: %1\nstate: factory\n").arg(root()));
    EXPECT_EQ(run(words({"lang"})).out, QStringLiteral("code: en-us\nid: 0\nname: English\ncb_language: 1\n"));
    EXPECT_EQ(run(words({"flexbit", "303"})).out, QStringLiteral("number: 303\non: false\n"));
}

} // namespace
