#include "HostRootTest.h"
#include "MsgctrRun.h"

#include "ZorHostControl.h"
#include "ZorHostTapiControl.h"
#include "ZorHostUtilControl.h"

#include "TAPI.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

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
    EXPECT_EQ(r.out, QStringLiteral("cb_state: 0\n"));
    r = run({QStringLiteral("state"), QStringLiteral("on")});
    EXPECT_EQ(r.out, QStringLiteral("cb_state: 1\n"));
    r = run({QStringLiteral("state"), QStringLiteral("200")});
    EXPECT_EQ(r.out, QStringLiteral("cb_state: 200\n"));
    r = run({QStringLiteral("state"), QStringLiteral("off")});
    EXPECT_EQ(r.out, QStringLiteral("cb_state: 0\n"));
    r = run({QStringLiteral("state"), QStringLiteral("256")});
    EXPECT_EQ(r.exitCode, 2);
    EXPECT_EQ(r.err, QStringLiteral("msgctr: STATE must be on, off or a number from 0 to 255, not '256'\n"));
}

TEST_F(MsgctrCbTest, StateAsJsonHoldsTheSameNumber)
{
    const MsgctrResult r = run({QStringLiteral("state"), QStringLiteral("200"), QStringLiteral("--json")});
    EXPECT_EQ(r.exitCode, 0);
    EXPECT_EQ(QJsonDocument::fromJson(r.out.toUtf8()).object(), (QJsonObject{{QStringLiteral("cb_state"), 200}}));
}

TEST_F(MsgctrCbTest, ChannelsShowTheListBesideTheSubscriptions)
{
    MsgctrResult r = run({QStringLiteral("channels")});
    EXPECT_EQ(r.out, QStringLiteral("channels: (none)\n"));
    r = run({QStringLiteral("channels"), QStringLiteral("add"), QStringLiteral("50"), QStringLiteral("Local")});
    EXPECT_EQ(r.exitCode, 0) << qPrintable(r.err);
    const QString local = QStringLiteral("channels[0].in_list: true\nchannels[0].name: %1\nchannels[0].number: 50\n"
                                         "channels[0].predefined: false\nchannels[0].quick_view: %2\n"
                                         "channels[0].subscribed: true\n");
    const QString other = QStringLiteral("channels[1].in_list: false\nchannels[1].number: 919\nchannels[1].subscribed: true\n");
    EXPECT_EQ(r.out, local.arg(QStringLiteral("Local"), QStringLiteral("false")));
    ASSERT_EQ(TAPI_CB_AddChannel(919), TAPI_RESULT_SUCC);
    r = run({QStringLiteral("channels"), QStringLiteral("quickview"), QStringLiteral("50"), QStringLiteral("on")});
    EXPECT_EQ(r.out, local.arg(QStringLiteral("Local"), QStringLiteral("true")) + other);
    r = run({QStringLiteral("channels"), QStringLiteral("rename"), QStringLiteral("50"), QStringLiteral("Town news")});
    EXPECT_EQ(r.out, local.arg(QStringLiteral("Town news"), QStringLiteral("true")) + other);
    r = run({QStringLiteral("channels"), QStringLiteral("--json")});
    const QJsonArray expected{
        QJsonObject{{QStringLiteral("number"), 50}, {QStringLiteral("name"), QStringLiteral("Town news")},
                    {QStringLiteral("in_list"), true}, {QStringLiteral("quick_view"), true},
                    {QStringLiteral("predefined"), false}, {QStringLiteral("subscribed"), true}},
        QJsonObject{{QStringLiteral("number"), 919}, {QStringLiteral("in_list"), false}, {QStringLiteral("subscribed"), true}}};
    EXPECT_EQ(QJsonDocument::fromJson(r.out.toUtf8()).object(), (QJsonObject{{QStringLiteral("channels"), expected}}));
    r = run({QStringLiteral("channels"), QStringLiteral("remove"), QStringLiteral("50")});
    EXPECT_EQ(r.out, QStringLiteral("channels[0].in_list: false\nchannels[0].number: 919\nchannels[0].subscribed: true\n"));
    EXPECT_EQ(subscribed(), (std::vector<unsigned short>{919}));
}

TEST_F(MsgctrCbTest, ChannelRefusalsSayWhyAndShowTheLibrarysReport)
{
    ASSERT_EQ(run({QStringLiteral("channels"), QStringLiteral("add"), QStringLiteral("50"), QStringLiteral("Local")}).exitCode, 0);
    MsgctrResult r = run({QStringLiteral("channels"), QStringLiteral("add"), QStringLiteral("50"), QStringLiteral("x")});
    EXPECT_EQ(r.exitCode, 1);
    EXPECT_EQ(r.err, QStringLiteral("msgctr: MSGCTR_ENG_SetupInfo::addInfoServChannel failed: error 10022 (the channel is "
                                    "already in the list)\n"));
    r = run({QStringLiteral("channels"), QStringLiteral("remove"), QStringLiteral("51")});
    EXPECT_EQ(r.err, QStringLiteral("msgctr: MSGCTR_ENG_SetupInfo::removeInfoServChannel failed: error 10021 (the channel "
                                    "is not in the list)\n"));
    r = run({QStringLiteral("channels"), QStringLiteral("add"), QStringLiteral("65535"), QStringLiteral("x")});
    EXPECT_EQ(r.exitCode, 1);
    EXPECT_TRUE(r.err.startsWith(QStringLiteral("msgctr: MSGCTR_ENG_SetupInfo::addInfoServChannel failed: error 10023 "
                                                "(the channel number is out of range)\n")))
        << qPrintable(r.err);
    EXPECT_TRUE(r.err.contains(QStringLiteral("nChannelNum = 65535(S32,4), "))) << qPrintable(r.err);
    r = run({QStringLiteral("channels"), QStringLiteral("add"), QStringLiteral("52"), QStringLiteral("a;b")});
    EXPECT_EQ(r.exitCode, 1);
    EXPECT_TRUE(r.err.startsWith(QStringLiteral("msgctr: MSGCTR_ENG_SetupInfo::addInfoServChannel failed: error 10020 ")))
        << qPrintable(r.err);
    r = run({QStringLiteral("channels")});
    EXPECT_EQ(r.out, QStringLiteral("channels[0].in_list: true\nchannels[0].name: Local\nchannels[0].number: 50\n"
                                    "channels[0].predefined: false\nchannels[0].quick_view: false\n"
                                    "channels[0].subscribed: true\n"));
    r = run({QStringLiteral("channels"), QStringLiteral("quickview"), QStringLiteral("50"), QStringLiteral("maybe")});
    EXPECT_EQ(r.exitCode, 2);
    EXPECT_EQ(r.err, QStringLiteral("msgctr: cb channels quickview takes on or off, not 'maybe'\n"));
    r = run({QStringLiteral("channels"), QStringLiteral("drop"), QStringLiteral("50")});
    EXPECT_EQ(r.exitCode, 2);
    EXPECT_EQ(r.err, QStringLiteral("msgctr: ACTION must be one of add, remove, rename, quickview, not 'drop'\n"));
}

// One language of the list as text lines, each field on its own line.
QString languageLines(int index, int id, const QString& name, bool on, const QString& slotText, bool system)
{
    const auto b = [](bool v) { return v ? QStringLiteral("true") : QStringLiteral("false"); };
    return QStringLiteral("languages[%1].id: %2\nlanguages[%1].name: %3\nlanguages[%1].on: %4\nlanguages[%1].slots: %5\n"
                          "languages[%1].system_language: %6\n")
        .arg(index).arg(id).arg(name, b(on), slotText, b(system));
}

// msgctr loads the English catalogue for the factory language en-us.
TEST_F(MsgctrCbTest, LanguagesShowStateAndSlotsAndSwitch)
{
    ASSERT_TRUE(ZorHost::setCbLanguageSlots({1, 1, 0, 3}));
    MsgctrResult r = run({QStringLiteral("languages"), QStringLiteral("on"), QStringLiteral("4")});
    EXPECT_EQ(r.exitCode, 0) << qPrintable(r.err);
    EXPECT_EQ(ZorHost::cbLanguageSlots(), (std::vector<unsigned char>{1, 4, 0, 3}));
    EXPECT_EQ(r.out.count(QLatin1Char('\n')), 17 * 5);
    EXPECT_TRUE(r.out.startsWith(languageLines(0, 0, QStringLiteral("GERMAN"), true, QStringLiteral("2"), false)
                                 + languageLines(1, 1, QStringLiteral("ENGLISH"), true, QStringLiteral("0"), true)))
        << qPrintable(r.out);
    EXPECT_TRUE(r.out.contains(languageLines(3, 3, QStringLiteral("FRENCH"), true, QStringLiteral("3"), false)
                               + languageLines(4, 4, QStringLiteral("SPANISH"), true, QStringLiteral("1"), false)));
    EXPECT_TRUE(r.out.endsWith(languageLines(15, 32, QStringLiteral("CZECH"), false, QStringLiteral("(none)"), false)
                               + languageLines(16, 16, QStringLiteral("AUTOMATIC"), false, QStringLiteral("(none)"), false)));
}

TEST_F(MsgctrCbTest, LanguagesAsJsonHoldTheSameValues)
{
    ASSERT_TRUE(ZorHost::setCbLanguageSlots({1, 1}));
    const MsgctrResult r = run({QStringLiteral("languages"), QStringLiteral("--json")});
    EXPECT_EQ(r.exitCode, 0);
    const QJsonArray languages = QJsonDocument::fromJson(r.out.toUtf8()).object().value(QStringLiteral("languages")).toArray();
    ASSERT_EQ(languages.size(), 17);
    EXPECT_EQ(languages.at(1).toObject(),
              (QJsonObject{{QStringLiteral("id"), 1}, {QStringLiteral("name"), QStringLiteral("ENGLISH")},
                           {QStringLiteral("on"), true}, {QStringLiteral("slots"), QJsonArray{0, 1}},
                           {QStringLiteral("system_language"), true}}));
    EXPECT_EQ(languages.at(15).toObject().value(QStringLiteral("id")), QJsonValue(32));
}

TEST_F(MsgctrCbTest, LanguagesReadInTheSystemLanguagesCatalogue)
{
    ASSERT_TRUE(ZorHost::setSystemLanguage(QStringLiteral("de-de")));
    ASSERT_TRUE(ZorHost::setCbLanguageSlots({1, 1}));
    const MsgctrResult r = run({QStringLiteral("languages")});
    EXPECT_TRUE(r.out.startsWith(languageLines(0, 0, QStringLiteral("GERMAN"), false, QStringLiteral("(none)"), true)
                                 + languageLines(1, 1, QStringLiteral("ENGLISCH"), true, QStringLiteral("0, 1"), false)))
        << qPrintable(r.out);
    EXPECT_TRUE(r.out.contains(languageLines(3, 3, QStringLiteral("FRANZÖSISCH"), false, QStringLiteral("(none)"), false)));
}

TEST_F(MsgctrCbTest, LanguageRefusalsSayWhy)
{
    ASSERT_TRUE(ZorHost::setCbLanguageSlots({1, 0, 3}));
    MsgctrResult r = run({QStringLiteral("languages"), QStringLiteral("on"), QStringLiteral("4")});
    EXPECT_EQ(r.exitCode, 1);
    // The library's trace of the slot read follows the message.
    EXPECT_TRUE(r.err.startsWith(QStringLiteral("msgctr: MSGCTR_ENG_InfoServLang::activateLang failed: error 10024 (no free "
                                                "language slot)\n")))
        << qPrintable(r.err);
    r = run({QStringLiteral("languages"), QStringLiteral("off"), QStringLiteral("1")});
    EXPECT_TRUE(
        r.err.startsWith(QStringLiteral("msgctr: MSGCTR_ENG_InfoServLang::activateLang failed: error 10025 (the system "
                                        "language cannot be switched off)\n")))
        << qPrintable(r.err);
    r = run({QStringLiteral("languages"), QStringLiteral("on"), QStringLiteral("15")});
    EXPECT_EQ(r.exitCode, 2);
    EXPECT_EQ(r.err, QStringLiteral("msgctr: 15 is not a language ID of the list (msgctr cb languages)\n"));
    EXPECT_EQ(ZorHost::cbLanguageSlots(), (std::vector<unsigned char>{1, 0, 3}));
}

} // namespace
