#include "HostRootTest.h"
#include "MsgctrRun.h"

#include <QProcess>
#include <QProcessEnvironment>
#include <QRegularExpression>

namespace {

struct ToolRun {
    int exitCode;
    QString out;
    QString err;
};

class MsgctrTextTimeTest : public HostRootTest {
protected:
    ToolRun msgctr(const QStringList& args, const char* zone = "UTC")
    {
        QProcess process;
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        env.insert(QStringLiteral("TZ"), QString::fromLatin1(zone));
        process.setProcessEnvironment(env);
        process.start(QStringLiteral(ZOR_MSGCTR_EXE), QStringList{QStringLiteral("--root"), root()} + args);
        EXPECT_TRUE(process.waitForFinished(60000));
        return ToolRun{process.exitCode(), QString::fromLocal8Bit(process.readAllStandardOutput()),
                   QString::fromLocal8Bit(process.readAllStandardError())};
    }
};

TEST_F(MsgctrTextTimeTest, CrcShowsTheChecksumAndTheProtectedBlock)
{
    const ToolRun run = msgctr({"text", "crc", "313233343536373839"});
    EXPECT_EQ(run.exitCode, 0) << run.err.toStdString();
    EXPECT_EQ(run.out, QStringLiteral("checksum: 0x906E\nbytes: 9\nblock: 313233343536373839906E\n"));
}

TEST_F(MsgctrTextTimeTest, CrcAcceptsBlanksAPrefixAndNoBytes)
{
    ToolRun run = msgctr({"text", "crc", "0x31 32 33"});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(run.out, QStringLiteral("checksum: 0x9CB4\nbytes: 3\nblock: 3132339CB4\n"));
    run = msgctr({"text", "crc", ""});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(run.out, QStringLiteral("checksum: 0x0000\nbytes: 0\nblock: 0000\n"));
}

TEST_F(MsgctrTextTimeTest, CrcRefusesBadInput)
{
    ToolRun run = msgctr({"text", "crc", "123"});
    EXPECT_EQ(run.exitCode, 2);
    EXPECT_EQ(run.err, QStringLiteral("msgctr: '123' has an odd number of hex digits: two digits per byte\n"));
    run = msgctr({"text", "crc", "12G4"});
    EXPECT_EQ(run.exitCode, 2);
    EXPECT_EQ(run.err, QStringLiteral("msgctr: '12G4' is not hexadecimal (digits 0-9 and A-F only)\n"));
    run = msgctr({"text", "crc"});
    EXPECT_EQ(run.exitCode, 2);
    EXPECT_EQ(run.out, QString());
    EXPECT_EQ(run.err, QStringLiteral("msgctr: text crc needs HEX (see msgctr text crc --help)\n"));
}

TEST_F(MsgctrTextTimeTest, ToFromUtcSeconds)
{
    const ToolRun run = msgctr({"text", "iso8601", "to", "1167609599"}, "Europe/Berlin");
    EXPECT_EQ(run.exitCode, 0) << run.err.toStdString();
    EXPECT_EQ(run.out, QStringLiteral("iso8601: 20061231T235959Z\nutc_seconds: 1167609599\nutc: 2006-12-31 23:59:59\n"
                                      "local: 2007-01-01 00:59:59\nlocal_offset: UTC+01:00\n"));
}

TEST_F(MsgctrTextTimeTest, ToFromALocalDateAndTime)
{
    ToolRun run = msgctr({"text", "iso8601", "to", "2006-07-01", "12:00"}, "America/Los_Angeles");
    EXPECT_EQ(run.exitCode, 0) << run.err.toStdString();
    EXPECT_EQ(run.out, QStringLiteral("iso8601: 20060701T190000Z\nutc_seconds: 1151780400\nutc: 2006-07-01 19:00:00\n"
                                      "local: 2006-07-01 12:00:00\nlocal_offset: UTC-07:00\n"));
    run = msgctr({"text", "iso8601", "to", "1970-01-01"}, "Asia/Tokyo");
    EXPECT_EQ(run.exitCode, 0) << run.err.toStdString();
    EXPECT_EQ(run.out, QStringLiteral("iso8601: 19691231T150000Z\nutc_seconds: -32400\nutc: 1969-12-31 15:00:00\n"
                                      "local: 1970-01-01 00:00:00\nlocal_offset: UTC+09:00\n"));
}

TEST_F(MsgctrTextTimeTest, FromIso8601)
{
    const ToolRun run = msgctr({"text", "iso8601", "from", "20061231T235959Z"}, "Asia/Tokyo");
    EXPECT_EQ(run.exitCode, 0) << run.err.toStdString();
    EXPECT_EQ(run.out, QStringLiteral("iso8601: 20061231T235959Z\nutc_seconds: 1167609599\nutc: 2006-12-31 23:59:59\n"
                                      "local: 2007-01-01 08:59:59\nlocal_offset: UTC+09:00\n"));
}

TEST_F(MsgctrTextTimeTest, FromIso8601ShowsTheInstantGivenWhereTheWallClockRepeats)
{
    const ToolRun run = msgctr({"text", "iso8601", "from", "20231105T060000Z"}, "America/New_York");
    EXPECT_EQ(run.exitCode, 0) << run.err.toStdString();
    EXPECT_EQ(run.out, QStringLiteral("iso8601: 20231105T060000Z\nutc_seconds: 1699164000\nutc: 2023-11-05 06:00:00\n"
                                      "local: 2023-11-05 01:00:00\nlocal_offset: UTC-05:00\n"));
}

TEST_F(MsgctrTextTimeTest, RepeatedLocalWallClockIsItsFirstOccurrence)
{
    const ToolRun run = msgctr({"text", "iso8601", "to", "2023-11-05", "01:30"}, "America/New_York");
    EXPECT_EQ(run.exitCode, 0) << run.err.toStdString();
    EXPECT_EQ(run.out, QStringLiteral("iso8601: 20231105T053000Z\nutc_seconds: 1699162200\nutc: 2023-11-05 05:30:00\n"
                                      "local: 2023-11-05 01:30:00\nlocal_offset: UTC-04:00\n"));
}

TEST_F(MsgctrTextTimeTest, SkippedWallClockWithoutAZoneMovesForward)
{
    const ToolRun run = msgctr({"text", "iso8601", "from", "2023-03-12T02:30"}, "America/New_York");
    EXPECT_EQ(run.exitCode, 0) << run.err.toStdString();
    EXPECT_EQ(run.out, QStringLiteral("iso8601: 20230312T073000Z\nutc_seconds: 1678606200\nutc: 2023-03-12 07:30:00\n"
                                      "local: 2023-03-12 03:30:00\nlocal_offset: UTC-04:00\n"));
}

TEST_F(MsgctrTextTimeTest, NowWithoutArguments)
{
    const ToolRun run = msgctr({"text", "iso8601"});
    EXPECT_EQ(run.exitCode, 0) << run.err.toStdString();
    EXPECT_TRUE(QRegularExpression(QStringLiteral("^iso8601: \\d{8}T\\d{6}Z\nutc_seconds: \\d+\nutc: [-0-9: ]{19}\n"
                                                  "local: [-0-9: ]{19}\nlocal_offset: UTC\\+00:00\n$"))
                    .match(run.out).hasMatch()) << run.out.toStdString();
}

TEST_F(MsgctrTextTimeTest, BadTimeInputGetsAClearMessage)
{
    ToolRun run = msgctr({"text", "iso8601", "to", "2147483648"});
    EXPECT_EQ(run.exitCode, 2);
    EXPECT_EQ(run.err, QStringLiteral("msgctr: 2147483648 is outside the 32-bit range of UTC seconds (-2147483648 to 2147483647)\n"));
    run = msgctr({"text", "iso8601", "to", "2050-01-01"});
    EXPECT_EQ(run.exitCode, 2);
    EXPECT_EQ(run.err, QStringLiteral("msgctr: '2050-01-01' is outside the 32-bit range of UTC seconds (1901-12-13 to 2038-01-19)\n"));
    run = msgctr({"text", "iso8601", "to", "yesterday"});
    EXPECT_EQ(run.exitCode, 2);
    EXPECT_EQ(run.err, QStringLiteral("msgctr: 'yesterday' is neither UTC seconds nor a local date and time like 2006-12-31 23:59:59\n"));
    run = msgctr({"text", "iso8601", "from", "20061331T000000Z"});
    EXPECT_EQ(run.exitCode, 2);
    EXPECT_EQ(run.err, QStringLiteral("msgctr: '20061331T000000Z' is not an ISO 8601 date-time (e.g. 20061231T235959Z) "
                                      "within the 32-bit range of UTC seconds\n"));
    run = msgctr({"text", "iso8601", "sideways"});
    EXPECT_EQ(run.exitCode, 2);
    EXPECT_EQ(run.err, QStringLiteral("msgctr: DIRECTION must be one of to, from, not 'sideways'\n"));
    run = msgctr({"text", "iso8601", "from"});
    EXPECT_EQ(run.exitCode, 2);
    EXPECT_EQ(run.out, QString());
    EXPECT_EQ(run.err, QStringLiteral("msgctr: text iso8601 from takes one ISO 8601 text, e.g. 20061231T235959Z\n"));
}

} // namespace
