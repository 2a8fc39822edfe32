// Persistent state of the telephony simulator: the readable state file, its factory state, two processes
// sharing one SIM, a damaged file, and fault injection with call counts on every TAPI_* function.
#include "HostRootTest.h"
#include "RowName.h"
#include "ProgramLauncher.h"
#include "TAPI.h"
#include "ZorHostControl.h"
#include "ZorHostTapiControl.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QProcessEnvironment>

#include <cstdio>
#include <fcntl.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <map>
#include <string>
#include <vector>

namespace {

QString stateFilePath(const QString& root)
{
    return root + QStringLiteral("/state/tapi/tapi.state");
}

QString mailboxLines(const char* prefix, int first, int last, const char* third)
{
    QString out;
    for (int i = first; i <= last; ++i)
        out += QStringLiteral("%1%2.number = \"\"\n%1%2.name = \"\"\n%1%2.%3\n").arg(QLatin1String(prefix)).arg(i).arg(QLatin1String(third));
    return out;
}

const QString kFactoryText = QStringLiteral(
    "# Simulated modem and SIM of libzortapi (change it with msgctr tapi ...)\n"
    "format = 1\n"
    "sim.status = 3\n"
    "sim.services = 2348 2349\n"
    "usim.access-rules = 1:4 2:4 3:4 4:4 5:4 6:4\n"
    "sms.service-centre = \"+12065550100\"\n"
    "sms.email-gateway = \"6245\"\n"
    "sms.transport-mode = 1\n"
    "sms.transport-mode-supported = 1\n"
    "sms.storage-notification = 2\n"
    "cb.state = 0\n"
    "cb.channels =\n"
    "cb.language-slots = 1 255 255 255 255\n"
    "mailbox.modifiable = 1\n")
    + mailboxLines("mailbox.", 0, 3, "count = 0") + mailboxLines("cphs.line", 1, 2, "waiting = 0");

std::string serviceCentre()
{
    char buffer[TAPI_PHONE_NUMBER_LEN] = {};
    return TAPI_SMS_GetServiceCenter(buffer) == TAPI_RESULT_SUCC ? std::string(buffer) : std::string("<failed>");
}

std::vector<unsigned short> channelList()
{
    int count = 0;
    unsigned short* list = nullptr;
    std::vector<unsigned short> out;
    if (TAPI_CB_GetChannelsEx(&count, &list) == TAPI_RESULT_SUCC && list)
        out.assign(list, list + count);
    std::free(list);
    return out;
}

QString selfExe()
{
    return QFileInfo(QStringLiteral("/proc/self/exe")).symLinkTarget();
}

// Runs this test program again as a second process acting on the same root (see ZorTapiStateChild).
struct ChildRun {
    int exitCode;
    QString out;
    QString err;
};

QProcess* startChild(const QString& root, const QString& action)
{
    auto* p = new QProcess;
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert(QStringLiteral("ZORTAPI_CHILD_ROOT"), root);
    env.insert(QStringLiteral("ZORTAPI_CHILD_ACTION"), action);
    p->setProcessEnvironment(env);
    startProgram(*p, selfExe(), {QStringLiteral("--gtest_also_run_disabled_tests"),
                                 QStringLiteral("--gtest_filter=ZorTapiStateChild.DISABLED_Act")});
    return p;
}

ChildRun finishChild(QProcess* p)
{
    EXPECT_TRUE(p->waitForFinished(120000));
    ChildRun r{p->exitCode(), QString::fromLocal8Bit(p->readAllStandardOutput()),
               QString::fromLocal8Bit(p->readAllStandardError())};
    delete p;
    return r;
}

ChildRun runChild(const QString& root, const QString& action)
{
    return finishChild(startChild(root, action));
}

// The lines the child printed for the parent.
QStringList childLines(const QString& out)
{
    QStringList lines;
    for (const QString& l : out.split(QLatin1Char('\n')))
        if (l.startsWith(QLatin1String("CHILD ")))
            lines << l.mid(6);
    return lines;
}

class ZorTapiState : public HostRootTest {};

TEST_F(ZorTapiState, FactoryStateIsNotWrittenUntilAChange)
{
    EXPECT_EQ(ZorHost::tapiStateText(), kFactoryText);
    EXPECT_EQ(serviceCentre(), "+12065550100");
    EXPECT_FALSE(QFile::exists(stateFilePath(root())));
    ASSERT_EQ(TAPI_CB_SetStatus(1), TAPI_RESULT_SUCC);
    EXPECT_TRUE(QFile::exists(stateFilePath(root())));
}

TEST_F(ZorTapiState, FileIsReadableText)
{
    const unsigned short name[TAPI_PHONEBOOK_NAME_UNITS] = {'Z', 0xE9, '"', '\\', 0x4E2D, 0};
    ASSERT_EQ(TAPI_MAILBOX_CphsSetVoiceMailBox(1, "+49 30", name), TAPI_RESULT_SUCC);
    ASSERT_EQ(TAPI_CB_AddChannel(50), TAPI_RESULT_SUCC);
    ASSERT_EQ(TAPI_CB_AddChannel(4370), TAPI_RESULT_SUCC);
    ASSERT_EQ(TAPI_SMS_SetEmailGateway("\x01\xFF"), TAPI_RESULT_SUCC);
    QFile f(stateFilePath(root()));
    ASSERT_TRUE(f.open(QIODevice::ReadOnly));
    QString expected = kFactoryText;
    expected.replace(QStringLiteral("\ncphs.line1.number = \"\"\n"), QStringLiteral("\ncphs.line1.number = \"+49 30\"\n"));
    expected.replace(QStringLiteral("\ncphs.line1.name = \"\"\n"),
                     QStringLiteral("\ncphs.line1.name = \"Z\\u00E9\\\"\\\\\\u4E2D\"\n"));
    expected.replace(QStringLiteral("\ncb.channels =\n"), QStringLiteral("\ncb.channels = 50 4370\n"));
    expected.replace(QStringLiteral("\nsms.email-gateway = \"6245\"\n"),
                     QStringLiteral("\nsms.email-gateway = \"\\x01\\xFF\"\n"));
    EXPECT_EQ(QString::fromLatin1(f.readAll()), expected);
    EXPECT_EQ(ZorHost::tapiStateText(), expected);
}

TEST_F(ZorTapiState, HandEditedFileIsRead)
{
    QString text = kFactoryText;
    text.replace(QStringLiteral("sms.service-centre = \"+12065550100\""), QStringLiteral("sms.service-centre = \"+3312\\x41\""));
    text.replace(QStringLiteral("cb.channels =\n"), QStringLiteral("cb.channels = 7 8\n"));
    QDir().mkpath(QFileInfo(stateFilePath(root())).absolutePath());
    QFile f(stateFilePath(root()));
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write(text.toLatin1());
    f.close();
    EXPECT_EQ(serviceCentre(), "+3312A");
    EXPECT_EQ(channelList(), (std::vector<unsigned short>{7, 8}));
}

TEST_F(ZorTapiState, ResetRestoresTheFactoryState)
{
    ASSERT_EQ(TAPI_SMS_SetServiceCenter("+1"), TAPI_RESULT_SUCC);
    ASSERT_TRUE(ZorHost::setSimCardStatus(0));
    ASSERT_TRUE(ZorHost::setCbLanguageSlotCount(2));
    ZorHost::setTapiCbListsNullWithCount(2);
    ZorHost::resetAll();
    EXPECT_EQ(ZorHost::tapiStateText(), kFactoryText);
    EXPECT_EQ(serviceCentre(), "+12065550100");
    int count = -1;
    unsigned char* list = nullptr;
    EXPECT_EQ(TAPI_CB_GetLanguagesEx(&count, &list), TAPI_RESULT_SUCC);
    EXPECT_EQ(count, 5);
    EXPECT_NE(list, nullptr);
    std::free(list);
}

TEST_F(ZorTapiState, ChangesPersistAcrossProcesses)
{
    ASSERT_EQ(TAPI_SMS_SetServiceCenter("+4711"), TAPI_RESULT_SUCC);
    ASSERT_EQ(TAPI_CB_AddChannel(321), TAPI_RESULT_SUCC);
    const ChildRun read = runChild(root(), QStringLiteral("read"));
    EXPECT_EQ(read.exitCode, 0) << qPrintable(read.out);
    EXPECT_EQ(childLines(read.out), (QStringList{QStringLiteral("smsc +4711"), QStringLiteral("channels 321")}));

    const ChildRun write = runChild(root(), QStringLiteral("write"));
    EXPECT_EQ(write.exitCode, 0) << qPrintable(write.out);
    EXPECT_EQ(serviceCentre(), "+999");
    EXPECT_EQ(channelList(), (std::vector<unsigned short>{321, 5}));
    EXPECT_TRUE(ZorHost::cphsMessageWaitingFlag(1));
}

// Read-modify-write happens under the cross-process lock: two processes adding channels lose none.
TEST_F(ZorTapiState, ConcurrentWritersLoseNothing)
{
    QProcess* child = startChild(root(), QStringLiteral("add-channels"));
    for (unsigned short c = 101; c <= 120; ++c)
        ASSERT_EQ(TAPI_CB_AddChannel(c), TAPI_RESULT_SUCC);
    const ChildRun run = finishChild(child);
    EXPECT_EQ(run.exitCode, 0) << qPrintable(run.out);
    std::vector<unsigned short> got = channelList();
    std::sort(got.begin(), got.end());
    std::vector<unsigned short> expected;
    for (unsigned short c = 1; c <= 20; ++c)
        expected.push_back(c);
    for (unsigned short c = 101; c <= 120; ++c)
        expected.push_back(c);
    EXPECT_EQ(got, expected);
}

TEST_F(ZorTapiState, DamagedFileIsReportedAndReplaced)
{
    const QString path = stateFilePath(root());
    QDir().mkpath(QFileInfo(path).absolutePath());
    QFile f(path);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write("\x00\x01garbage\n", 10);
    f.close();
    const ChildRun run = runChild(root(), QStringLiteral("read"));
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(run.err, QStringLiteral("zortapi: damaged state file %1 (line 1: expected \"format = 1\"); "
                                      "the factory state replaces it\n").arg(path));
    EXPECT_EQ(childLines(run.out), (QStringList{QStringLiteral("smsc +12065550100"), QStringLiteral("channels")}));
    ASSERT_TRUE(f.open(QIODevice::ReadOnly));
    EXPECT_EQ(QString::fromLatin1(f.readAll()), kFactoryText);
}

// Each kind of damage falls back to the factory state and rewrites the file, never a crash.
class ZorTapiDamage : public HostRootTest, public ::testing::WithParamInterface<std::pair<const char*, const char*>> {};

TEST_P(ZorTapiDamage, FallsBackToFactory)
{
    QString text = kFactoryText;
    text.replace(QString::fromLatin1(GetParam().first), QString::fromLatin1(GetParam().second));
    ASSERT_NE(text, kFactoryText);
    const QString path = stateFilePath(root());
    QDir().mkpath(QFileInfo(path).absolutePath());
    QFile f(path);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write(text.toLatin1());
    f.close();
    EXPECT_EQ(serviceCentre(), "+12065550100");
    EXPECT_EQ(channelList(), std::vector<unsigned short>{});
    ASSERT_TRUE(f.open(QIODevice::ReadOnly));
    EXPECT_EQ(QString::fromLatin1(f.readAll()), kFactoryText);
}

INSTANTIATE_TEST_SUITE_P(Kinds, ZorTapiDamage, ::testing::Values(
    std::make_pair("format = 1\n", ""),
    std::make_pair("format = 1", "format = 2"),
    std::make_pair("cb.channels =\n", "cb.channels = 5 5\n"),
    std::make_pair("cb.channels =\n", "cb.channels = 65535\n"),
    std::make_pair("cb.channels =\n", "cb.channels = x\n"),
    std::make_pair("cb.state = 0", "cb.state = 256"),
    std::make_pair("sms.transport-mode = 1", "sms.transport-mode = 3"),
    std::make_pair("sms.service-centre = \"+12065550100\"", "sms.service-centre = \"+1206"),
    std::make_pair("sms.service-centre = \"+12065550100\"", "sms.service-centre = \"\\u0100\""),
    std::make_pair("sms.service-centre = \"+12065550100\"", "sms.service-centre = \"123456789012345678901234567890123456789012\""),
    std::make_pair("mailbox.0.name = \"\"", "mailbox.0.name = \"\\q\""),
    std::make_pair("mailbox.0.count = 0", "mailbox.4.count = 0"),
    std::make_pair("cphs.line1.waiting = 0", "cphs.line1.waiting = yes"),
    std::make_pair("usim.access-rules = 1:4", "usim.access-rules = 1-4"),
    std::make_pair("sim.status = 3\n", "sim.status = 3\nunknown.key = 1\n"),
    std::make_pair("sim.status = 3\n", "sim.status=3\n")),
                         [](const auto& info) { return rowName(info.param.second); });

TEST_F(ZorTapiState, EmptyFileIsDamaged)
{
    const QString path = stateFilePath(root());
    QDir().mkpath(QFileInfo(path).absolutePath());
    QFile f(path);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.close();
    EXPECT_EQ(serviceCentre(), "+12065550100");
    EXPECT_EQ(ZorHost::tapiStateText(), kFactoryText);
}

TEST_F(ZorTapiState, ReadsTakeNoLockFile)
{
    const QString path = stateFilePath(root());
    QDir().mkpath(QFileInfo(path).absolutePath());
    QFile f(path);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write(kFactoryText.toLatin1());
    f.close();
    EXPECT_EQ(serviceCentre(), "+12065550100");
    EXPECT_EQ(channelList(), std::vector<unsigned short>{});
    EXPECT_EQ(QDir(QFileInfo(path).absolutePath()).entryList(QDir::Files), QStringList{QStringLiteral("tapi.state")});
}

TEST_F(ZorTapiState, WritersLeaveOneLongLivedLockFile)
{
    ASSERT_EQ(TAPI_SMS_SetServiceCenter("+1"), TAPI_RESULT_SUCC);
    ASSERT_EQ(TAPI_SMS_SetServiceCenter("+2"), TAPI_RESULT_SUCC);
    EXPECT_EQ(QDir(QFileInfo(stateFilePath(root())).absolutePath()).entryList(QDir::Files),
              (QStringList{QStringLiteral("tapi.state"), QStringLiteral("tapi.state.lock")}));
}

// Another process replacing the file between two reads, with a file of the same size, is seen by the next
// read however close together the two come.
TEST_F(ZorTapiState, ReplacementOfTheSameSizeIsSeenAtOnce)
{
    ASSERT_EQ(TAPI_SMS_SetServiceCenter("+4710"), TAPI_RESULT_SUCC);
    for (int round = 0; round < 40; ++round) {
        const std::string expected = round % 2 ? "+4710" : "+4711";
        const pid_t pid = ::fork();
        if (pid == 0)
            ::_exit(TAPI_SMS_SetServiceCenter(expected.c_str()) == TAPI_RESULT_SUCC ? 0 : 1);
        int status = -1;
        ASSERT_EQ(::waitpid(pid, &status, 0), pid);
        ASSERT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
        ASSERT_EQ(serviceCentre(), expected) << "round " << round;
    }
}

// Reads and writes in a forked child that is killed when a call blocks.
template <typename Body>
int inChildWithin(unsigned seconds, Body body)
{
    const pid_t pid = ::fork();
    if (pid == 0) {
        ::alarm(seconds);
        ::_exit(body());
    }
    int status = 0;
    if (pid < 0 || ::waitpid(pid, &status, 0) != pid)
        return -1;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

TEST_F(ZorTapiState, FifoInPlaceOfTheStateFileIsRefusedAtOnceAndLeftAlone)
{
    const QString path = stateFilePath(root());
    QDir().mkpath(QFileInfo(path).absolutePath());
    ASSERT_EQ(::mkfifo(QFile::encodeName(path).constData(), 0644), 0);
    const int result = inChildWithin(20, [&]() -> int {
        ::testing::internal::CaptureStderr();
        char buffer[TAPI_PHONE_NUMBER_LEN] = {};
        if (TAPI_SMS_GetServiceCenter(buffer) != TAPI_RESULT_IO_ERROR)
            return 10;
        if (TAPI_SMS_SetServiceCenter("+1") != TAPI_RESULT_IO_ERROR)
            return 11;
        const QString line = QStringLiteral("zortapi: state file %1 is not a regular file; it is left alone and "
                                            "not read\n").arg(path);
        return QString::fromStdString(::testing::internal::GetCapturedStderr()) == line + line ? 0 : 12;
    });
    EXPECT_EQ(result, 0);
    EXPECT_FALSE(QFileInfo(path).isFile());
    EXPECT_TRUE(QFileInfo(path).exists());
}

// A read on a full file system: a tiny tmpfs mounted in a user namespace of a child process.
TEST_F(ZorTapiState, ReadsWorkOnAFullDisk)
{
    const QString mountPoint = root() + QStringLiteral("/tiny");
    ASSERT_TRUE(QDir().mkpath(mountPoint));
    enum { Passed = 0, CannotMount = 10 };
    const int result = inChildWithin(60, [&]() -> int {
        const uid_t uid = ::getuid();
        const gid_t gid = ::getgid();
        if (::unshare(CLONE_NEWUSER | CLONE_NEWNS) != 0)
            return CannotMount;
        const auto put = [](const char* file, const QByteArray& text) {
            QFile f(QString::fromLatin1(file));
            return f.open(QIODevice::WriteOnly) && f.write(text) == text.size();
        };
        put("/proc/self/setgroups", "deny");
        if (!put("/proc/self/uid_map", "0 " + QByteArray::number(uid) + " 1")
            || !put("/proc/self/gid_map", "0 " + QByteArray::number(gid) + " 1"))
            return CannotMount;
        if (::mount("tmpfs", QFile::encodeName(mountPoint).constData(), "tmpfs", 0, "size=64k") != 0)
            return CannotMount;
        ZorHost::setRoot(mountPoint);
        // Written by hand, so that this process has nothing cached and no lock file exists yet.
        QString text = kFactoryText;
        text.replace(QStringLiteral("\"6245\""), QStringLiteral("\"6246\""));
        const QString path = stateFilePath(mountPoint);
        if (!QDir().mkpath(QFileInfo(path).absolutePath()) || !put(QFile::encodeName(path).constData(), text.toLatin1()))
            return 20;
        const QByteArray filler = QFile::encodeName(mountPoint + QStringLiteral("/filler"));
        const int fd = ::open(filler.constData(), O_WRONLY | O_CREAT, 0644);
        const QByteArray page(4096, 'f');
        while (::write(fd, page.constData(), size_t(page.size())) > 0) {
        }
        ::close(fd);
        char number[TAPI_PHONE_NUMBER_LEN] = {};
        if (TAPI_SMS_GetEmailGateway(number) != TAPI_RESULT_SUCC)
            return 21;
        return std::string(number) == "6246" ? Passed : 22;
    });
    if (result == CannotMount)
        GTEST_SKIP() << "no user namespace with a tmpfs mount here";
    EXPECT_EQ(result, Passed);
}

// Every TAPI_* function: an injected fault is returned, the call is counted and nothing changes.
struct FaultCase {
    const char* name;
    std::function<int()> call;
};

void PrintTo(const FaultCase& c, std::ostream* os)
{
    *os << c.name;
}

class ZorTapiFault : public HostRootTest, public ::testing::WithParamInterface<FaultCase> {};

// What each call of the table answers in the factory state once the fault is used up: the result code, or
// for the three functions that return something else, their value (available, converted, one character).
int unfaultedResult(const std::string& name)
{
    static const std::map<std::string, int> results{
        {"TAPI_ACCE_GetSimCardStatus", 0},
        {"TAPI_FTRDB_GetAvailability", 1},
        {"TAPI_SIM_GetUSIMFileInfo", 0},
        {"TAPI_SMS_SetServiceCenter", 0},
        {"TAPI_SMS_GetServiceCenter", 0},
        {"TAPI_SMS_SetEmailGateway", 0},
        {"TAPI_SMS_GetEmailGateway", 0},
        {"TAPI_SMS_NotifyMeStorageFull", 0},
        {"TAPI_SMS_NotifyMeStorageAvail", 0},
        {"TAPI_SMS_GetSmsTransportMode", 0},
        {"TAPI_SMS_SetSmsTransportMode", 0},
        {"TAPI_SMS_CaculateSm", 0},
        {"TAPI_SMS_ExpirePeriodToUINT8", 1},
        {"TAPI_UTIL_ConvertUcs2StringToGsmString", 1},
        {"TAPI_CB_GetStatus", 0},
        {"TAPI_CB_SetStatus", 0},
        {"TAPI_CB_AddChannel", 0},
        {"TAPI_CB_DeleteChannel", 819},
        {"TAPI_CB_GetChannelsEx", 0},
        {"TAPI_CB_GetLanguagesEx", 0},
        {"TAPI_CB_SetLanguage", 0},
        {"TAPI_MAILBOX_Gsmr4GetEntry", 0},
        {"TAPI_MAILBOX_Gsmr4SetEntry", 0},
        {"TAPI_MAILBOX_Gsmr4IsModifiable", 0},
        {"TAPI_MAILBOX_Gsmr4GetMailCount", 0},
        {"TAPI_MAILBOX_Gsmr4SetMailCount", 0},
        {"TAPI_MAILBOX_CphsGetVoiceMailBox", 0},
        {"TAPI_MAILBOX_CphsSetVoiceMailBox", 0},
        {"TAPI_CPHS_SetMessageWaitingFlag", 0}};
    const auto found = results.find(name);
    if (found == results.end()) {
        ADD_FAILURE() << "no unfaulted result written down for " << name;
        return -1;
    }
    return found->second;
}

TEST_P(ZorTapiFault, InjectedResultAndNoChange)
{
    const QString before = ZorHost::tapiStateText();
    const QString op = QString::fromLatin1(GetParam().name);
    ZorHost::injectFault(op, 4242);
    EXPECT_EQ(GetParam().call(), 4242);
    EXPECT_EQ(ZorHost::callCount(op), 1);
    EXPECT_EQ(ZorHost::tapiStateText(), before);
    EXPECT_EQ(GetParam().call(), unfaultedResult(GetParam().name));
    EXPECT_EQ(ZorHost::callCount(op), 2);
}

char g_number[TAPI_PHONE_NUMBER_LEN] = "+1";
unsigned short g_name[TAPI_PHONEBOOK_NAME_UNITS] = {'N', 0};

int listChannels()
{
    int count = 0;
    unsigned short* list = nullptr;
    const int r = TAPI_CB_GetChannelsEx(&count, &list);
    std::free(list);
    return r;
}

int listLanguages()
{
    int count = 0;
    unsigned char* list = nullptr;
    const int r = TAPI_CB_GetLanguagesEx(&count, &list);
    std::free(list);
    return r;
}

INSTANTIATE_TEST_SUITE_P(EveryFunction, ZorTapiFault, ::testing::Values(
    FaultCase{"TAPI_ACCE_GetSimCardStatus", [] { _TAPI_SIM_STATUS_E s; return TAPI_ACCE_GetSimCardStatus(&s); }},
    FaultCase{"TAPI_FTRDB_GetAvailability", [] { return TAPI_FTRDB_GetAvailability(2348); }},
    FaultCase{"TAPI_SIM_GetUSIMFileInfo", [] { TAPI_SIM_USIM_FILE_INFO_S i; return TAPI_SIM_GetUSIMFileInfo(1, 0, 0, &i); }},
    FaultCase{"TAPI_SMS_SetServiceCenter", [] { return TAPI_SMS_SetServiceCenter("+2"); }},
    FaultCase{"TAPI_SMS_GetServiceCenter", [] { char b[42]; return TAPI_SMS_GetServiceCenter(b); }},
    FaultCase{"TAPI_SMS_SetEmailGateway", [] { return TAPI_SMS_SetEmailGateway("+2"); }},
    FaultCase{"TAPI_SMS_GetEmailGateway", [] { char b[42]; return TAPI_SMS_GetEmailGateway(b); }},
    FaultCase{"TAPI_SMS_NotifyMeStorageFull", [] { return TAPI_SMS_NotifyMeStorageFull(); }},
    FaultCase{"TAPI_SMS_NotifyMeStorageAvail", [] { return TAPI_SMS_NotifyMeStorageAvail(); }},
    FaultCase{"TAPI_SMS_GetSmsTransportMode", [] { unsigned char m; return TAPI_SMS_GetSmsTransportMode(&m); }},
    FaultCase{"TAPI_SMS_SetSmsTransportMode", [] { return TAPI_SMS_SetSmsTransportMode(2); }},
    FaultCase{"TAPI_SMS_CaculateSm", [] {
        static TAPI_SMS_CACULATE_SM_REQ_S req{};
        TAPI_SMS_CACULATE_SM_RESULT_S res;
        return TAPI_SMS_CaculateSm(&req, &res);
    }},
    FaultCase{"TAPI_SMS_ExpirePeriodToUINT8", [] {
        const _TAPI_SMS_EXPIRE_PERIOD_DATA_S p{3, 63};
        unsigned char o;
        return TAPI_SMS_ExpirePeriodToUINT8(&p, &o);
    }},
    FaultCase{"TAPI_UTIL_ConvertUcs2StringToGsmString", [] {
        const unsigned short s[] = {'a'};
        unsigned char d[2];
        return int(TAPI_UTIL_ConvertUcs2StringToGsmString(s, 1, d, 2));
    }},
    FaultCase{"TAPI_CB_GetStatus", [] { unsigned char s; return TAPI_CB_GetStatus(&s); }},
    FaultCase{"TAPI_CB_SetStatus", [] { return TAPI_CB_SetStatus(1); }},
    FaultCase{"TAPI_CB_AddChannel", [] { return TAPI_CB_AddChannel(1); }},
    FaultCase{"TAPI_CB_DeleteChannel", [] { return TAPI_CB_DeleteChannel(2); }},
    FaultCase{"TAPI_CB_GetChannelsEx", listChannels},
    FaultCase{"TAPI_CB_GetLanguagesEx", listLanguages},
    FaultCase{"TAPI_CB_SetLanguage", [] { return TAPI_CB_SetLanguage(1, 2); }},
    FaultCase{"TAPI_MAILBOX_Gsmr4GetEntry", [] { char n[42]; unsigned short m[51]; return TAPI_MAILBOX_Gsmr4GetEntry(0, n, m); }},
    FaultCase{"TAPI_MAILBOX_Gsmr4SetEntry", [] { return TAPI_MAILBOX_Gsmr4SetEntry(0, g_number, g_name); }},
    FaultCase{"TAPI_MAILBOX_Gsmr4IsModifiable", [] { unsigned char m; return TAPI_MAILBOX_Gsmr4IsModifiable(&m); }},
    FaultCase{"TAPI_MAILBOX_Gsmr4GetMailCount", [] { unsigned char c; return TAPI_MAILBOX_Gsmr4GetMailCount(0, &c); }},
    FaultCase{"TAPI_MAILBOX_Gsmr4SetMailCount", [] { return TAPI_MAILBOX_Gsmr4SetMailCount(0, 5); }},
    FaultCase{"TAPI_MAILBOX_CphsGetVoiceMailBox", [] { char n[42]; unsigned short m[51]; return TAPI_MAILBOX_CphsGetVoiceMailBox(1, n, m); }},
    FaultCase{"TAPI_MAILBOX_CphsSetVoiceMailBox", [] { return TAPI_MAILBOX_CphsSetVoiceMailBox(1, g_number, g_name); }},
    FaultCase{"TAPI_CPHS_SetMessageWaitingFlag", [] { return TAPI_CPHS_SetMessageWaitingFlag(0, 1); }}),
    [](const ::testing::TestParamInfo<FaultCase>& info) { return std::string(info.param.name); });

} // namespace

// The second process of the tests above; it runs only when started by them.
TEST(ZorTapiStateChild, DISABLED_Act)
{
    const QString root = QString::fromLocal8Bit(qgetenv("ZORTAPI_CHILD_ROOT"));
    const QByteArray action = qgetenv("ZORTAPI_CHILD_ACTION");
    ASSERT_FALSE(root.isEmpty());
    ZorHost::setRoot(root);
    if (action == "read") {
        std::printf("CHILD smsc %s\n", serviceCentre().c_str());
        std::string line = "CHILD channels";
        for (unsigned short c : channelList())
            line += " " + std::to_string(c);
        std::printf("%s\n", line.c_str());
    } else if (action == "write") {
        ASSERT_EQ(TAPI_SMS_SetServiceCenter("+999"), TAPI_RESULT_SUCC);
        ASSERT_EQ(TAPI_CB_AddChannel(5), TAPI_RESULT_SUCC);
        ASSERT_EQ(TAPI_CPHS_SetMessageWaitingFlag(1, 1), TAPI_RESULT_SUCC);
    } else if (action == "add-channels") {
        for (unsigned short c = 1; c <= 20; ++c)
            ASSERT_EQ(TAPI_CB_AddChannel(c), TAPI_RESULT_SUCC);
    } else {
        FAIL() << "unknown action " << action.constData();
    }
    std::fflush(stdout);
}
