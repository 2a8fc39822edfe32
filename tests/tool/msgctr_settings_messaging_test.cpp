#include "HostRootTest.h"
#include "MsgctrRun.h"

#include "ZorHostControl.h"
#include "ZorHostUtilControl.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace {

class MsgctrSettingsMessagingTest : public HostRootTest {
protected:
    MsgctrResult run(const QStringList& args)
    {
        return runMsgctr(root(), QStringList{QStringLiteral("settings")} + args);
    }
};

TEST_F(MsgctrSettingsMessagingTest, DefaultQuickTextsComeFromTheLanguagesResource)
{
    ASSERT_TRUE(ZorHost::setSystemLanguage(QStringLiteral("fr-fr")));
    const MsgctrResult r = run({QStringLiteral("quicktexts"), QStringLiteral("--json")});
    EXPECT_EQ(r.exitCode, 0);
    const QJsonArray texts = QJsonDocument::fromJson(r.out.toUtf8()).object().value(QStringLiteral("quick_texts")).toArray();
    ASSERT_EQ(texts.size(), 12);
    EXPECT_EQ(texts.first(), QJsonValue(QStringLiteral("Je suis en route.")));
    EXPECT_EQ(texts.last(), QJsonValue(QStringLiteral("Bonne nuit.")));
    const MsgctrResult text = run({QStringLiteral("quicktexts")});
    EXPECT_TRUE(text.out.startsWith(QStringLiteral("quick_texts: Je suis en route., "))) << qPrintable(text.out);
    EXPECT_TRUE(text.out.endsWith(QStringLiteral(", Bonne nuit.\n"))) << qPrintable(text.out);
}

TEST_F(MsgctrSettingsMessagingTest, UserQuickTextsAreSetAndRead)
{
    MsgctrResult r = run({QStringLiteral("quicktexts"), QStringLiteral("--user")});
    EXPECT_EQ(r.out, QStringLiteral("quick_texts: (none)\n"));
    r = run({QStringLiteral("quicktexts"), QStringLiteral("--user"), QStringLiteral("set"), QStringLiteral("On my way"),
             QStringLiteral("a=b")});
    EXPECT_EQ(r.exitCode, 0);
    EXPECT_EQ(r.out, QStringLiteral("quick_texts: On my way, a=b\n"));
    r = run({QStringLiteral("quicktexts"), QStringLiteral("--user")});
    EXPECT_EQ(r.out, QStringLiteral("quick_texts: On my way, a=b\n"));
}

TEST_F(MsgctrSettingsMessagingTest, MoreThanTwentyUserQuickTextsAreNotStored)
{
    QStringList args{QStringLiteral("quicktexts"), QStringLiteral("--user"), QStringLiteral("set")};
    for (int i = 1; i <= 21; ++i)
        args.append(QString::number(i));
    MsgctrResult r = run(args);
    EXPECT_EQ(r.exitCode, 1);
    EXPECT_TRUE(r.err.startsWith(QStringLiteral("msgctr: at most 20 quick texts of your own; nothing was stored\n")))
        << qPrintable(r.err);
    EXPECT_TRUE(r.err.contains(QStringLiteral(" too many user-defined-quick-text quickTexts.count() = 21(S32,4), ")))
        << qPrintable(r.err);
    r = run({QStringLiteral("quicktexts"), QStringLiteral("--user")});
    EXPECT_EQ(r.out, QStringLiteral("quick_texts: (none)\n"));
    r = run({QStringLiteral("quicktexts"), QStringLiteral("set"), QStringLiteral("x")});
    EXPECT_EQ(r.exitCode, 2);
}

TEST_F(MsgctrSettingsMessagingTest, PushSettingsShowEverything)
{
    const MsgctrResult r = run({QStringLiteral("push")});
    EXPECT_EQ(r.exitCode, 0);
    EXPECT_EQ(r.out, QStringLiteral("mode: 1\nmode_name: all\nsecurity: 0\nsecurity_name: ask\npairs: (none)\n"
                                    "whitelist: (none)\nbrowser_filter: *\n"));
    const MsgctrResult json = run({QStringLiteral("push"), QStringLiteral("--json")});
    EXPECT_EQ(QJsonDocument::fromJson(json.out.toUtf8()).object(),
              (QJsonObject{{QStringLiteral("mode"), 1}, {QStringLiteral("mode_name"), QStringLiteral("all")},
                           {QStringLiteral("security"), 0}, {QStringLiteral("security_name"), QStringLiteral("ask")},
                           {QStringLiteral("pairs"), QJsonArray()}, {QStringLiteral("whitelist"), QJsonArray()},
                           {QStringLiteral("browser_filter"), QStringLiteral("*")}}));
}

TEST_F(MsgctrSettingsMessagingTest, RestrictedModeFiltersByTheValidatedPairs)
{
    MsgctrResult r = run({QStringLiteral("push"), QStringLiteral("pairs"), QStringLiteral(" 123 , gw "),
                          QStringLiteral("456,gw2")});
    EXPECT_EQ(r.exitCode, 0);
    EXPECT_EQ(r.out, QStringLiteral("pairs[0].gateway: gw\npairs[0].smsc: 123\npairs[1].gateway: gw2\npairs[1].smsc: 456\n"));
    r = run({QStringLiteral("push"), QStringLiteral("mode"), QStringLiteral("restricted")});
    EXPECT_EQ(r.out, QStringLiteral("mode: 2\nmode_name: restricted\n"));
    r = run({QStringLiteral("push"), QStringLiteral("whitelist")});
    EXPECT_EQ(r.out, QStringLiteral("whitelist: (none)\nbrowser_filter: 123,gw 456,gw2\n"));
    r = run({QStringLiteral("push"), QStringLiteral("mode"), QStringLiteral("off")});
    r = run({QStringLiteral("push"), QStringLiteral("whitelist")});
    EXPECT_EQ(r.out, QStringLiteral("whitelist: (none)\nbrowser_filter: \n"));
}

TEST_F(MsgctrSettingsMessagingTest, OutOfRangeModeIsStoredAndReportedWithTrace)
{
    const MsgctrResult r = run({QStringLiteral("push"), QStringLiteral("mode"), QStringLiteral("3"), QStringLiteral("--trace")});
    EXPECT_EQ(r.exitCode, 0);
    EXPECT_EQ(r.out, QStringLiteral("mode: 3\nmode_name: out of range\n"));
    EXPECT_TRUE(r.err.contains(QStringLiteral("nMode = 3(S32,4), "))) << qPrintable(r.err);
    const MsgctrResult s = run({QStringLiteral("push"), QStringLiteral("security"), QStringLiteral("deny")});
    EXPECT_EQ(s.out, QStringLiteral("security: 2\nsecurity_name: deny\n"));
    EXPECT_EQ(run({QStringLiteral("push"), QStringLiteral("security"), QStringLiteral("maybe")}).exitCode, 2);
    EXPECT_EQ(run({QStringLiteral("push"), QStringLiteral("pairs"), QStringLiteral("123")}).exitCode, 2);
}

} // namespace
