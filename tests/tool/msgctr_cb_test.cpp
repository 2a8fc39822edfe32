#include "HostRootTest.h"
#include "MsgctrRun.h"

#include "ZorHostControl.h"
#include "ZorHostTapiControl.h"
#include "ZorHostUtilControl.h"

#include "TAPI.h"

#include <vector>

namespace {

class MsgctrCbTest : public HostRootTest {
protected:
    MsgctrResult run(const QStringList& args) { return runMsgctr(root(), QStringList{QStringLiteral("cb")} + args); }
    std::vector<unsigned short> subscribed()
    {
        int count = 0;
        unsigned short* list = nullptr;
        EXPECT_EQ(TAPI_CB_GetChannelsEx(&count, &list), TAPI_RESULT_SUCC);
        std::vector<unsigned short> channels(list, list + count);
        free(list);
        return channels;
    }
};

TEST_F(MsgctrCbTest, StateIsReadAndSet)
{
    MsgctrResult r = run({QStringLiteral("state")});
    EXPECT_EQ(r.exitCode, 0);
    EXPECT_EQ(r.out, QStringLiteral("cell broadcast state 0\n"));
    r = run({QStringLiteral("state"), QStringLiteral("on")});
    EXPECT_EQ(r.out, QStringLiteral("cell broadcast state 1\n"));
    r = run({QStringLiteral("state"), QStringLiteral("200")});
    EXPECT_EQ(r.out, QStringLiteral("cell broadcast state 200\n"));
    r = run({QStringLiteral("state"), QStringLiteral("off")});
    EXPECT_EQ(r.out, QStringLiteral("cell broadcast state 0\n"));
    r = run({QStringLiteral("state"), QStringLiteral("256")});
    EXPECT_EQ(r.exitCode, 2);
    EXPECT_EQ(r.err, QStringLiteral("msgctr: '256' is not on, off or a VALUE 0 to 255\n"));
}

TEST_F(MsgctrCbTest, ChannelsShowTheListBesideTheSubscriptions)
{
    MsgctrResult r = run({QStringLiteral("channels")});
    EXPECT_EQ(r.out, QStringLiteral("(no channels)\n"));
    r = run({QStringLiteral("channels"), QStringLiteral("add"), QStringLiteral("50"), QStringLiteral("Local")});
    EXPECT_EQ(r.exitCode, 0) << qPrintable(r.err);
    EXPECT_EQ(r.out, QStringLiteral("50 \"Local\" quick view off, user-defined, subscribed\n"));
    ASSERT_EQ(TAPI_CB_AddChannel(919), TAPI_RESULT_SUCC);
    r = run({QStringLiteral("channels"), QStringLiteral("quickview"), QStringLiteral("50"), QStringLiteral("on")});
    EXPECT_EQ(r.out, QStringLiteral("50 \"Local\" quick view on, user-defined, subscribed\n"
                                    "919 (not in the list), subscribed\n"));
    r = run({QStringLiteral("channels"), QStringLiteral("rename"), QStringLiteral("50"), QStringLiteral("Town news")});
    EXPECT_EQ(r.out, QStringLiteral("50 \"Town news\" quick view on, user-defined, subscribed\n"
                                    "919 (not in the list), subscribed\n"));
    r = run({QStringLiteral("channels"), QStringLiteral("remove"), QStringLiteral("50")});
    EXPECT_EQ(r.out, QStringLiteral("919 (not in the list), subscribed\n"));
    EXPECT_EQ(subscribed(), (std::vector<unsigned short>{919}));
}

TEST_F(MsgctrCbTest, ChannelRefusalsSayWhyAndShowTheLibrarysReport)
{
    ASSERT_EQ(run({QStringLiteral("channels"), QStringLiteral("add"), QStringLiteral("50"), QStringLiteral("Local")}).exitCode, 0);
    MsgctrResult r = run({QStringLiteral("channels"), QStringLiteral("add"), QStringLiteral("50"), QStringLiteral("x")});
    EXPECT_EQ(r.exitCode, 1);
    EXPECT_EQ(r.err, QStringLiteral("msgctr: channel 50 is in the list already\n"));
    r = run({QStringLiteral("channels"), QStringLiteral("remove"), QStringLiteral("51")});
    EXPECT_EQ(r.err, QStringLiteral("msgctr: channel 51 is not in the list\n"));
    r = run({QStringLiteral("channels"), QStringLiteral("add"), QStringLiteral("65535"), QStringLiteral("x")});
    EXPECT_EQ(r.exitCode, 1);
    EXPECT_TRUE(r.err.startsWith(QStringLiteral("msgctr: channel 65535 is out of range (0 to 65534)\n"))) << qPrintable(r.err);
    EXPECT_TRUE(r.err.contains(QStringLiteral("nChannelNum = 65535(S32,4), "))) << qPrintable(r.err);
    r = run({QStringLiteral("channels"), QStringLiteral("add"), QStringLiteral("52"), QStringLiteral("a;b")});
    EXPECT_TRUE(r.err.startsWith(QStringLiteral(
        "msgctr: a channel name cannot hold \",\", \";\", \"[\", \"]\", \"=\" or line breaks\n")))
        << qPrintable(r.err);
    r = run({QStringLiteral("channels")});
    EXPECT_EQ(r.out, QStringLiteral("50 \"Local\" quick view off, user-defined, subscribed\n"));
    r = run({QStringLiteral("channels"), QStringLiteral("quickview"), QStringLiteral("50"), QStringLiteral("maybe")});
    EXPECT_EQ(r.exitCode, 2);
    r = run({QStringLiteral("channels"), QStringLiteral("drop"), QStringLiteral("50")});
    EXPECT_EQ(r.exitCode, 2);
}

// msgctr loads the English catalogue for the factory language en-us.
TEST_F(MsgctrCbTest, LanguagesShowStateAndSlotsAndSwitch)
{
    ASSERT_TRUE(ZorHost::setCbLanguageSlots({1, 1, 0, 3}));
    MsgctrResult r = run({QStringLiteral("languages"), QStringLiteral("on"), QStringLiteral("4")});
    EXPECT_EQ(r.exitCode, 0) << qPrintable(r.err);
    EXPECT_EQ(ZorHost::cbLanguageSlots(), (std::vector<unsigned char>{1, 4, 0, 3}));
    const QStringList lines = r.out.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    ASSERT_EQ(lines.size(), 17);
    EXPECT_EQ(lines.at(0), QStringLiteral("0 GERMAN on, slot 2"));
    EXPECT_EQ(lines.at(1), QStringLiteral("1 ENGLISH (system language) on, slot 0"));
    EXPECT_EQ(lines.at(3), QStringLiteral("3 FRENCH on, slot 3"));
    EXPECT_EQ(lines.at(4), QStringLiteral("4 SPANISH on, slot 1"));
    EXPECT_EQ(lines.at(15), QStringLiteral("32 CZECH off"));
    EXPECT_EQ(lines.at(16), QStringLiteral("16 AUTOMATIC off"));
}

TEST_F(MsgctrCbTest, LanguagesReadInTheSystemLanguagesCatalogue)
{
    ASSERT_TRUE(ZorHost::setSystemLanguage(QStringLiteral("de-de")));
    ASSERT_TRUE(ZorHost::setCbLanguageSlots({1, 1}));
    const MsgctrResult r = run({QStringLiteral("languages")});
    const QStringList lines = r.out.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    ASSERT_EQ(lines.size(), 17);
    EXPECT_EQ(lines.at(0), QStringLiteral("0 GERMAN (system language) off"));
    EXPECT_EQ(lines.at(1), QStringLiteral("1 ENGLISCH on, slots 0,1"));
    EXPECT_EQ(lines.at(3), QStringLiteral("3 FRANZÖSISCH off"));
}

TEST_F(MsgctrCbTest, LanguageRefusalsSayWhy)
{
    ASSERT_TRUE(ZorHost::setCbLanguageSlots({1, 0, 3}));
    MsgctrResult r = run({QStringLiteral("languages"), QStringLiteral("on"), QStringLiteral("4")});
    EXPECT_EQ(r.exitCode, 1);
    // The library's trace of the slot read follows the message.
    EXPECT_TRUE(r.err.startsWith(QStringLiteral("msgctr: no free slot for language 4 (a slot is free when it repeats "
                                                "another slot's language)\n")))
        << qPrintable(r.err);
    r = run({QStringLiteral("languages"), QStringLiteral("off"), QStringLiteral("1")});
    EXPECT_TRUE(
        r.err.startsWith(QStringLiteral("msgctr: language 1 is the system language and cannot be switched off\n")))
        << qPrintable(r.err);
    r = run({QStringLiteral("languages"), QStringLiteral("on"), QStringLiteral("15")});
    EXPECT_EQ(r.exitCode, 2);
    EXPECT_EQ(ZorHost::cbLanguageSlots(), (std::vector<unsigned char>{1, 0, 3}));
}

} // namespace
