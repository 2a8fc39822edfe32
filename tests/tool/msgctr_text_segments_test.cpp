// msgctr text segments with recipients: the counts the composer shows.
#include "HostRootTest.h"
#include "MsgctrRun.h"

namespace {

class MsgctrTextSegmentsTest : public HostRootTest {
protected:
    MsgctrResult segments(const QStringList& args)
    {
        return runMsgctr(root(), QStringList{QStringLiteral("text"), QStringLiteral("segments")} + args);
    }
};

const QString kBody150 = QString(150, QLatin1Char('a'));

TEST_F(MsgctrTextSegmentsTest, EachRecipientAndTheMaximumOverTheEmailRecipients)
{
    // 22 + "(Hi)" + 150 characters need two segments; the number gets the bare body.
    const MsgctrResult r = segments({QStringLiteral("--to"), QStringLiteral("12345, abcdefghij@example.com"),
                                     QStringLiteral("--subject"), QStringLiteral("Hi"), kBody150});
    EXPECT_EQ(r.exitCode, 0);
    EXPECT_EQ(r.out, QStringLiteral("recipients[0].recipient: 12345\nrecipients[0].segments: 1\n"
                                    "recipients[1].recipient: abcdefghij@example.com\nrecipients[1].segments: 2\n"
                                    "maximum: 2\nfits_one_message: true\n"));
    EXPECT_EQ(r.err, QString());
}

TEST_F(MsgctrTextSegmentsTest, NumbersOnlyCountTheBody)
{
    const MsgctrResult r = segments({QStringLiteral("--to"), QStringLiteral("12345;678"), QString(161, QLatin1Char('b'))});
    EXPECT_EQ(r.exitCode, 0);
    EXPECT_EQ(r.out, QStringLiteral("recipients[0].recipient: 12345\nrecipients[0].segments: 2\nrecipients[1].recipient: 678\n"
                                    "recipients[1].segments: 2\nmaximum: 2\nfits_one_message: true\n"));
}

TEST_F(MsgctrTextSegmentsTest, MoreThanOneMessageMayTakeIsSaid)
{
    const MsgctrResult r = segments({QStringLiteral("--to"), QStringLiteral("a@b"), QString(1600, QLatin1Char('c'))});
    EXPECT_EQ(r.exitCode, 0);
    EXPECT_EQ(r.out, QStringLiteral("recipients[0].recipient: a@b\nrecipients[0].segments: 11\nmaximum: 11\nfits_one_message: false\n"));
}

TEST_F(MsgctrTextSegmentsTest, ATextTooLongToCountFails)
{
    const MsgctrResult r = segments({QStringLiteral("--to"), QStringLiteral("a@b"), QString(3198, QLatin1Char('c'))});
    EXPECT_EQ(r.exitCode, 1);
    EXPECT_EQ(r.out, QStringLiteral("recipients[0].recipient: a@b\nrecipients[0].segments: (none)\nmaximum: (none)\nfits_one_message: false\n"));
    EXPECT_EQ(r.err, QStringLiteral("msgctr: a recipient's text cannot be counted (longer than 3200 UTF-16 units)\n"));
}

TEST_F(MsgctrTextSegmentsTest, SubjectWithoutRecipientsIsBadUsage)
{
    const MsgctrResult r = segments({QStringLiteral("--subject"), QStringLiteral("x"), QStringLiteral("hi")});
    EXPECT_EQ(r.exitCode, 2);
    EXPECT_EQ(r.err, QStringLiteral("msgctr: --subject goes with --to\n"));
}

TEST_F(MsgctrTextSegmentsTest, AnEmptyRecipientListIsBadUsage)
{
    const MsgctrResult r = segments({QStringLiteral("--to"), QStringLiteral(" , ;"), QStringLiteral("hi")});
    EXPECT_EQ(r.exitCode, 2);
    EXPECT_EQ(r.err, QStringLiteral("msgctr: --to holds no address\n"));
}

TEST_F(MsgctrTextSegmentsTest, ToWithoutAValueIsBadUsage)
{
    const MsgctrResult r = segments({QStringLiteral("hi"), QStringLiteral("--to")});
    EXPECT_EQ(r.exitCode, 2);
    EXPECT_EQ(r.err, QStringLiteral("msgctr: --to needs a value (LIST)\n"));
}

} // namespace
