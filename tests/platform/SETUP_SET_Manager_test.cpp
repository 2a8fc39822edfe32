#include "HostRootTest.h"
#include "RowName.h"

#include "SETUP_SET_Manager.h"
#include "ZorHostControl.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>

#include <ostream>

inline void PrintTo(const QString& text, std::ostream* os)
{
    *os << '"' << text.toStdString() << '"';
}

namespace {

const QString kGroup = QStringLiteral("GROUP_MSGCTR_SMS");

QByteArray fileBytes(const QString& path)
{
    QFile f(path);
    if (!f.open(QIODevice::ReadOnly))
        return QByteArray();
    return f.readAll();
}

void writeBytes(const QString& path, const QByteArray& bytes)
{
    QDir().mkpath(QFileInfo(path).absolutePath());
    QFile f(path);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly | QIODevice::Truncate));
    ASSERT_EQ(f.write(bytes), bytes.size());
}

// Runs `body` in a forked child and returns its exit status (-1 when it did not exit normally).
template <typename Body>
int inChild(Body body)
{
    const pid_t pid = ::fork();
    if (pid == 0)
        ::_exit(body());
    int status = 0;
    if (pid < 0 || ::waitpid(pid, &status, 0) != pid)
        return -1;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

class SetupSetManagerTest : public HostRootTest {
protected:
    QString storeFile() { return SETUP_SET_Manager(AM_Global::APP_MESSAGING, true).fileName(); }
};

TEST_F(SetupSetManagerTest, StoreOfAnApplicationLivesUnderTheRoot)
{
    SETUP_SET_Manager store(AM_Global::APP_MESSAGING, true);
    EXPECT_EQ(store.fileName(), root() + QStringLiteral("/state/setup/apps/3.conf"));
    EXPECT_TRUE(store.isFlushMode());
    EXPECT_FALSE(QFile::exists(store.fileName()));
}

TEST_F(SetupSetManagerTest, MissingKeysReadTheirDefaults)
{
    SETUP_SET_Manager store(AM_Global::APP_MESSAGING, false);
    int i = 1;
    unsigned int u = 1;
    bool b = false;
    QString s = QStringLiteral("x");
    EXPECT_FALSE(store.getInt(kGroup, QStringLiteral("SMS_VALIDITY_TIME"), &i, -1));
    EXPECT_FALSE(store.getUInt(kGroup, QStringLiteral("SEQ_NUM_OF_SEND_BY_MUL"), &u, 7));
    EXPECT_FALSE(store.getBool(kGroup, QStringLiteral("EMAIL_GATEWAY_WARNING"), &b, true));
    EXPECT_FALSE(store.getString(kGroup, QStringLiteral("EMAIL_GATEWAY"), &s, QString(), false));
    EXPECT_EQ(i, -1);
    EXPECT_EQ(u, 7u);
    EXPECT_TRUE(b);
    EXPECT_TRUE(s.isNull());
}

TEST_F(SetupSetManagerTest, TypedWritesReadBackAndAreStoredAsReadableLines)
{
    SETUP_SET_Manager store(AM_Global::APP_MESSAGING, true);
    ASSERT_TRUE(store.setInt(kGroup, QStringLiteral("SMS_VALIDITY_TIME"), -3600));
    ASSERT_TRUE(store.setUInt(kGroup, QStringLiteral("SEQ_NUM_OF_SEND_BY_MUL"), 4294967295u));
    ASSERT_TRUE(store.setBool(QStringLiteral("GROUP_4_DEBUG"), QStringLiteral("OUTPUT_DEBUG_LOG"), true));
    ASSERT_TRUE(store.setString(kGroup, QStringLiteral("EMAIL_GATEWAY"), QStringLiteral("a b"), false));
    int i = 0;
    unsigned int u = 0;
    bool b = false;
    QString s;
    EXPECT_TRUE(store.getInt(kGroup, QStringLiteral("SMS_VALIDITY_TIME"), &i, 0));
    EXPECT_TRUE(store.getUInt(kGroup, QStringLiteral("SEQ_NUM_OF_SEND_BY_MUL"), &u, 0));
    EXPECT_TRUE(store.getBool(QStringLiteral("GROUP_4_DEBUG"), QStringLiteral("OUTPUT_DEBUG_LOG"), &b, false));
    EXPECT_TRUE(store.getString(kGroup, QStringLiteral("EMAIL_GATEWAY"), &s, QString(), false));
    EXPECT_EQ(i, -3600);
    EXPECT_EQ(u, 4294967295u);
    EXPECT_TRUE(b);
    EXPECT_EQ(s, QStringLiteral("a b"));
    EXPECT_EQ(fileBytes(store.fileName()),
              QByteArray("[GROUP_MSGCTR_SMS]\nSMS_VALIDITY_TIME=-3600\nSEQ_NUM_OF_SEND_BY_MUL=4294967295\n"
                         "EMAIL_GATEWAY=a b\n\n[GROUP_4_DEBUG]\nOUTPUT_DEBUG_LOG=true\n"));
}

TEST_F(SetupSetManagerTest, RewritingAKeyKeepsItsPlace)
{
    SETUP_SET_Manager store(AM_Global::APP_MESSAGING, true);
    ASSERT_TRUE(store.setInt(kGroup, QStringLiteral("A"), 1));
    ASSERT_TRUE(store.setInt(kGroup, QStringLiteral("B"), 2));
    ASSERT_TRUE(store.setInt(kGroup, QStringLiteral("A"), 3));
    EXPECT_EQ(fileBytes(store.fileName()), QByteArray("[GROUP_MSGCTR_SMS]\nA=3\nB=2\n"));
    EXPECT_EQ(store.keys(kGroup), (QStringList{QStringLiteral("A"), QStringLiteral("B")}));
    EXPECT_EQ(store.groups(), QStringList{kGroup});
}

TEST_F(SetupSetManagerTest, RemovedKeyReadsItsDefaultAndAnEmptyGroupDisappears)
{
    SETUP_SET_Manager store(AM_Global::APP_MESSAGING, true);
    ASSERT_TRUE(store.setInt(kGroup, QStringLiteral("A"), 1));
    ASSERT_TRUE(store.setInt(QStringLiteral("OTHER"), QStringLiteral("B"), 2));
    ASSERT_TRUE(store.removeEntry(kGroup, QStringLiteral("A")));
    int value = 0;
    EXPECT_FALSE(store.getInt(kGroup, QStringLiteral("A"), &value, 9));
    EXPECT_EQ(value, 9);
    EXPECT_EQ(store.groups(), QStringList{QStringLiteral("OTHER")});
    EXPECT_EQ(fileBytes(store.fileName()), QByteArray("[OTHER]\nB=2\n"));
}

// What each typed getter answers for a stored text, and the value it then reads (the default 42, 42 or true
// when the text is not of its type).
struct WrongType {
    const char* stored;
    bool intOk;
    int intValue;
    bool uintOk;
    unsigned int uintValue;
    bool boolOk;
    bool boolValue;
};

class SetupSetManagerWrongTypeTest : public SetupSetManagerTest, public ::testing::WithParamInterface<WrongType> {};

TEST_P(SetupSetManagerWrongTypeTest, ValueOfAnotherTypeReadsTheDefault)
{
    writeBytes(storeFile(), QByteArray("[G]\nK=") + GetParam().stored + '\n');
    SETUP_SET_Manager store(AM_Global::APP_MESSAGING, false);
    int i = 0;
    unsigned int u = 0;
    bool b = false;
    EXPECT_EQ(store.getInt(QStringLiteral("G"), QStringLiteral("K"), &i, 42), GetParam().intOk);
    EXPECT_EQ(store.getUInt(QStringLiteral("G"), QStringLiteral("K"), &u, 42u), GetParam().uintOk);
    EXPECT_EQ(store.getBool(QStringLiteral("G"), QStringLiteral("K"), &b, true), GetParam().boolOk);
    EXPECT_EQ(i, GetParam().intValue);
    EXPECT_EQ(u, GetParam().uintValue);
    EXPECT_EQ(b, GetParam().boolValue);
    QString s;
    EXPECT_TRUE(store.getString(QStringLiteral("G"), QStringLiteral("K"), &s, QString(), false));
    EXPECT_EQ(s, QString::fromUtf8(GetParam().stored));
}

INSTANTIATE_TEST_SUITE_P(Values, SetupSetManagerWrongTypeTest,
                         ::testing::Values(WrongType{"abc", false, 42, false, 42u, false, true},
                                           WrongType{"-1", true, -1, false, 42u, false, true},
                                           WrongType{"4294967296", false, 42, false, 42u, false, true},
                                           WrongType{"2147483648", false, 42, true, 2147483648u, false, true},
                                           WrongType{"0", true, 0, true, 0u, true, false},
                                           WrongType{"1", true, 1, true, 1u, true, true},
                                           WrongType{"TRUE", false, 42, false, 42u, true, true},
                                           WrongType{"5,x", false, 42, false, 42u, false, true},
                                           WrongType{"", false, 42, false, 42u, false, true}),
                         [](const auto& info) { return rowName("Stored", info.param.stored); });

TEST_F(SetupSetManagerTest, StoredBooleansReadAsWritten)
{
    SETUP_SET_Manager store(AM_Global::APP_MESSAGING, true);
    ASSERT_TRUE(store.setBool(kGroup, QStringLiteral("ON"), true));
    ASSERT_TRUE(store.setBool(kGroup, QStringLiteral("OFF"), false));
    bool on = false;
    bool off = true;
    EXPECT_TRUE(store.getBool(kGroup, QStringLiteral("ON"), &on, false));
    EXPECT_TRUE(store.getBool(kGroup, QStringLiteral("OFF"), &off, true));
    EXPECT_TRUE(on);
    EXPECT_FALSE(off);
    EXPECT_EQ(fileBytes(store.fileName()), QByteArray("[GROUP_MSGCTR_SMS]\nON=true\nOFF=false\n"));
}

class SetupSetManagerTextTest : public SetupSetManagerTest, public ::testing::WithParamInterface<const char16_t*> {};

TEST_P(SetupSetManagerTextTest, StorableTextRoundTripsThroughTheFile)
{
    const QString text = QString::fromUtf16(GetParam());
    ASSERT_TRUE(SETUP_SET_Manager::isStorableText(text));
    {
        SETUP_SET_Manager writer(AM_Global::APP_MESSAGING, true);
        ASSERT_TRUE(writer.setString(kGroup, QStringLiteral("TEXT"), text, false));
        ASSERT_TRUE(writer.setInt(kGroup, QStringLiteral("AFTER"), 5));
    }
    SETUP_SET_Manager reader(AM_Global::APP_MESSAGING, false);
    QString read;
    int after = 0;
    EXPECT_TRUE(reader.getString(kGroup, QStringLiteral("TEXT"), &read, QStringLiteral("default"), false));
    EXPECT_TRUE(reader.getInt(kGroup, QStringLiteral("AFTER"), &after, 0));
    EXPECT_EQ(read, text);
    EXPECT_FALSE(read.isNull());
    EXPECT_EQ(after, 5);
}

INSTANTIATE_TEST_SUITE_P(Texts, SetupSetManagerTextTest,
                         ::testing::Values(u"a=b", u"[GROUP]", u"[x", u"  blanks at both ends  ", u"tab\there",
                                           u"#not a comment", u";nor this", u"back\\slash", u"",
                                           u"\u00e9\u00fc \u4e2d\u6587 \U0001F600", u"x=y=z", u"\u0001\u007f"),
                         [](const auto& info) { return rowName(std::u16string(info.param)); });

class SetupSetManagerUnstorableTest : public SetupSetManagerTest,
                                      public ::testing::WithParamInterface<std::u16string> {};

TEST_P(SetupSetManagerUnstorableTest, TextTheStoreCannotKeepIsRefusedAndChangesNothing)
{
    const QString text = QString::fromStdU16String(GetParam());
    EXPECT_FALSE(SETUP_SET_Manager::isStorableText(text));
    SETUP_SET_Manager store(AM_Global::APP_MESSAGING, true);
    ASSERT_TRUE(store.setString(kGroup, QStringLiteral("TEXT"), QStringLiteral("old"), false));
    const QByteArray before = fileBytes(store.fileName());
    errno = 0;
    EXPECT_FALSE(store.setString(kGroup, QStringLiteral("TEXT"), text, false));
    EXPECT_EQ(errno, EINVAL);
    EXPECT_EQ(fileBytes(store.fileName()), before);
}

INSTANTIATE_TEST_SUITE_P(Texts, SetupSetManagerUnstorableTest,
                         ::testing::Values(std::u16string(u"line\nbreak"), std::u16string(u"carriage\rreturn"),
                                           std::u16string(u"nul\0inside", 10), std::u16string(u"\xd800 lone"),
                                           std::u16string(u"lone \xdc00")),
                         RowNameOfValue());

class SetupSetManagerBadNameTest : public SetupSetManagerTest, public ::testing::WithParamInterface<const char*> {};

TEST_P(SetupSetManagerBadNameTest, NameTheFileCannotHoldIsRefused)
{
    const QString name = QString::fromUtf8(GetParam());
    EXPECT_FALSE(SETUP_SET_Manager::isValidName(name));
    SETUP_SET_Manager store(AM_Global::APP_MESSAGING, true);
    errno = 0;
    EXPECT_FALSE(store.setInt(kGroup, name, 1));
    EXPECT_EQ(errno, EINVAL);
    errno = 0;
    EXPECT_FALSE(store.setInt(name, QStringLiteral("KEY"), 1));
    EXPECT_EQ(errno, EINVAL);
    EXPECT_FALSE(QFile::exists(store.fileName()));
}

INSTANTIATE_TEST_SUITE_P(Names, SetupSetManagerBadNameTest,
                         ::testing::Values("", "A=B", "[G]", "G]", " LEAD", "TRAIL ", "#COMMENT", ";COMMENT",
                                           "LINE\nBREAK"),
                         RowNameOfValue());

TEST_F(SetupSetManagerTest, EmptyTextIsAValueUnlessTheFlagSaysUnset)
{
    SETUP_SET_Manager store(AM_Global::APP_MESSAGING, true);
    ASSERT_TRUE(store.setString(kGroup, QStringLiteral("EMPTY"), QString(), false));
    QString value;
    EXPECT_TRUE(store.getString(kGroup, QStringLiteral("EMPTY"), &value, QStringLiteral("default"), false));
    EXPECT_TRUE(value.isEmpty());
    EXPECT_FALSE(value.isNull());
    EXPECT_FALSE(store.getString(kGroup, QStringLiteral("EMPTY"), &value, QStringLiteral("default"), true));
    EXPECT_EQ(value, QStringLiteral("default"));

    ASSERT_TRUE(store.setString(kGroup, QStringLiteral("EMPTY"), QString(), true));
    EXPECT_FALSE(store.getString(kGroup, QStringLiteral("EMPTY"), &value, QStringLiteral("default"), false));
    EXPECT_EQ(value, QStringLiteral("default"));
    EXPECT_EQ(fileBytes(store.fileName()), QByteArray());
}

TEST_F(SetupSetManagerTest, WriteThroughIsDurableAndSeenByEveryHandleAtOnce)
{
    SETUP_SET_Manager reader(AM_Global::APP_MESSAGING, false);
    int value = 0;
    EXPECT_FALSE(reader.getInt(kGroup, QStringLiteral("K"), &value, -1));
    SETUP_SET_Manager writer(AM_Global::APP_MESSAGING, true);
    ASSERT_TRUE(writer.setInt(kGroup, QStringLiteral("K"), 1));
    EXPECT_EQ(fileBytes(writer.fileName()), QByteArray("[GROUP_MSGCTR_SMS]\nK=1\n"));
    EXPECT_TRUE(reader.getInt(kGroup, QStringLiteral("K"), &value, -1));
    EXPECT_EQ(value, 1);
    ASSERT_TRUE(writer.setInt(kGroup, QStringLiteral("K"), 2));
    EXPECT_TRUE(reader.getInt(kGroup, QStringLiteral("K"), &value, -1));
    EXPECT_EQ(value, 2);
}

TEST_F(SetupSetManagerTest, BufferedWritesStayInTheHandleUntilFlushed)
{
    SETUP_SET_Manager writeThrough(AM_Global::APP_MESSAGING, true);
    ASSERT_TRUE(writeThrough.setInt(kGroup, QStringLiteral("K"), 1));
    const QByteArray before = fileBytes(writeThrough.fileName());

    SETUP_SET_Manager buffered(AM_Global::APP_MESSAGING, false);
    ASSERT_TRUE(buffered.setInt(kGroup, QStringLiteral("K"), 2));
    ASSERT_TRUE(buffered.setString(kGroup, QStringLiteral("NEW"), QStringLiteral("n"), false));
    EXPECT_TRUE(buffered.hasUnflushedWrites());
    int value = 0;
    EXPECT_TRUE(buffered.getInt(kGroup, QStringLiteral("K"), &value, 0));
    EXPECT_EQ(value, 2);
    EXPECT_TRUE(writeThrough.getInt(kGroup, QStringLiteral("K"), &value, 0));
    EXPECT_EQ(value, 1);
    EXPECT_EQ(fileBytes(writeThrough.fileName()), before);

    ASSERT_TRUE(buffered.flush());
    EXPECT_FALSE(buffered.hasUnflushedWrites());
    EXPECT_TRUE(writeThrough.getInt(kGroup, QStringLiteral("K"), &value, 0));
    EXPECT_EQ(value, 2);
    EXPECT_EQ(fileBytes(writeThrough.fileName()), QByteArray("[GROUP_MSGCTR_SMS]\nK=2\nNEW=n\n"));
}

TEST_F(SetupSetManagerTest, BufferedHandleDestroyedUnflushedLosesItsWrites)
{
    const QString path = storeFile();
    {
        SETUP_SET_Manager store(AM_Global::APP_MESSAGING, true);
        ASSERT_TRUE(store.setInt(kGroup, QStringLiteral("K"), 1));
    }
    const QByteArray before = fileBytes(path);
    {
        SETUP_SET_Manager buffered(AM_Global::APP_MESSAGING, false);
        ASSERT_TRUE(buffered.setInt(kGroup, QStringLiteral("K"), 2));
        ASSERT_TRUE(buffered.removeEntry(kGroup, QStringLiteral("K")));
        ASSERT_TRUE(buffered.setBool(kGroup, QStringLiteral("B"), true));
    }
    EXPECT_EQ(fileBytes(path), before);
    SETUP_SET_Manager reader(AM_Global::APP_MESSAGING, false);
    int value = 0;
    EXPECT_TRUE(reader.getInt(kGroup, QStringLiteral("K"), &value, 0));
    EXPECT_EQ(value, 1);
}

TEST_F(SetupSetManagerTest, BufferedRemovalHidesTheStoredValueUntilFlushed)
{
    SETUP_SET_Manager writeThrough(AM_Global::APP_MESSAGING, true);
    ASSERT_TRUE(writeThrough.setInt(kGroup, QStringLiteral("K"), 1));
    SETUP_SET_Manager buffered(AM_Global::APP_MESSAGING, false);
    ASSERT_TRUE(buffered.removeEntry(kGroup, QStringLiteral("K")));
    int value = 0;
    EXPECT_FALSE(buffered.getInt(kGroup, QStringLiteral("K"), &value, 7));
    EXPECT_EQ(value, 7);
    EXPECT_EQ(buffered.groups(), QStringList());
    EXPECT_TRUE(writeThrough.getInt(kGroup, QStringLiteral("K"), &value, 7));
    EXPECT_EQ(value, 1);
    ASSERT_TRUE(buffered.flush());
    EXPECT_FALSE(writeThrough.getInt(kGroup, QStringLiteral("K"), &value, 7));
}

TEST_F(SetupSetManagerTest, FlushMergesWithWhatOthersWroteMeanwhile)
{
    SETUP_SET_Manager buffered(AM_Global::APP_MESSAGING, false);
    ASSERT_TRUE(buffered.setInt(kGroup, QStringLiteral("MINE"), 1));
    ASSERT_TRUE(buffered.setInt(kGroup, QStringLiteral("BOTH"), 1));
    SETUP_SET_Manager other(AM_Global::APP_MESSAGING, true);
    ASSERT_TRUE(other.setInt(kGroup, QStringLiteral("THEIRS"), 2));
    ASSERT_TRUE(other.setInt(kGroup, QStringLiteral("BOTH"), 2));
    ASSERT_TRUE(buffered.flush());
    EXPECT_EQ(fileBytes(other.fileName()), QByteArray("[GROUP_MSGCTR_SMS]\nTHEIRS=2\nBOTH=1\nMINE=1\n"));
}

TEST_F(SetupSetManagerTest, FlushWithNothingBufferedWritesNothing)
{
    SETUP_SET_Manager buffered(AM_Global::APP_MESSAGING, false);
    EXPECT_TRUE(buffered.flush());
    SETUP_SET_Manager writeThrough(AM_Global::APP_MESSAGING, true);
    EXPECT_TRUE(writeThrough.flush());
    EXPECT_FALSE(QFile::exists(buffered.fileName()));
}

TEST_F(SetupSetManagerTest, FlushIsVirtual)
{
    struct CountingStore : SETUP_SET_Manager {
        CountingStore() : SETUP_SET_Manager(AM_Global::APP_MESSAGING, false) {}
        bool flush() override
        {
            ++flushes;
            return SETUP_SET_Manager::flush();
        }
        int flushes = 0;
    } derived;
    SETUP_SET_Manager& store = derived;
    ASSERT_TRUE(store.setInt(kGroup, QStringLiteral("K"), 1));
    EXPECT_TRUE(store.flush());
    EXPECT_EQ(derived.flushes, 1);
    EXPECT_EQ(fileBytes(store.fileName()), QByteArray("[GROUP_MSGCTR_SMS]\nK=1\n"));
}

TEST_F(SetupSetManagerTest, StoresOfOtherApplicationsAndNamesAreSeparate)
{
    SETUP_SET_Manager messaging(AM_Global::APP_MESSAGING, true);
    SETUP_SET_Manager phone(AM_Global::APP_PHONE, true);
    SETUP_SET_Manager named(QStringLiteral("msgctr"), true, false);
    ASSERT_TRUE(messaging.setInt(kGroup, QStringLiteral("K"), 3));
    ASSERT_TRUE(phone.setInt(kGroup, QStringLiteral("K"), 1));
    ASSERT_TRUE(named.setInt(kGroup, QStringLiteral("K"), 9));
    int value = 0;
    EXPECT_TRUE(messaging.getInt(kGroup, QStringLiteral("K"), &value, 0));
    EXPECT_EQ(value, 3);
    EXPECT_EQ(phone.fileName(), root() + QStringLiteral("/state/setup/apps/1.conf"));
    EXPECT_EQ(named.fileName(), root() + QStringLiteral("/state/setup/files/msgctr.conf"));
}

TEST_F(SetupSetManagerTest, NameCannotReachOutOfTheStoreFolder)
{
    SETUP_SET_Manager named(QStringLiteral("../../x/y"), true, true);
    EXPECT_EQ(named.fileName(), root() + QStringLiteral("/state/setup/files/..%2F..%2Fx%2Fy.conf"));
    EXPECT_TRUE(QFile::exists(named.fileName()));
}

TEST_F(SetupSetManagerTest, CreateFlagMakesTheEmptyFileAtOnce)
{
    SETUP_SET_Manager created(QStringLiteral("created"), false, true);
    EXPECT_TRUE(QFile::exists(created.fileName()));
    EXPECT_EQ(fileBytes(created.fileName()), QByteArray());
    SETUP_SET_Manager notCreated(QStringLiteral("lazy"), true, false);
    EXPECT_FALSE(QFile::exists(notCreated.fileName()));
}

TEST_F(SetupSetManagerTest, CreateFlagKeepsAnExistingFile)
{
    {
        SETUP_SET_Manager store(QStringLiteral("kept"), true, true);
        ASSERT_TRUE(store.setInt(kGroup, QStringLiteral("K"), 1));
    }
    SETUP_SET_Manager again(QStringLiteral("kept"), true, true);
    int value = 0;
    EXPECT_TRUE(again.getInt(kGroup, QStringLiteral("K"), &value, 0));
    EXPECT_EQ(value, 1);
}

TEST_F(SetupSetManagerTest, ResetGoesBackToTheEmptyStore)
{
    SETUP_SET_Manager store(AM_Global::APP_MESSAGING, true);
    ASSERT_TRUE(store.setInt(kGroup, QStringLiteral("K"), 1));
    int value = 0;
    ASSERT_TRUE(store.getInt(kGroup, QStringLiteral("K"), &value, 0));
    ZorHost::resetAll();
    EXPECT_FALSE(store.getInt(kGroup, QStringLiteral("K"), &value, 5));
    EXPECT_EQ(value, 5);
    EXPECT_TRUE(store.setInt(kGroup, QStringLiteral("K"), 2));
    EXPECT_TRUE(store.getInt(kGroup, QStringLiteral("K"), &value, 5));
    EXPECT_EQ(value, 2);
}

TEST_F(SetupSetManagerTest, DamagedLinesAreSkippedAndReported)
{
    const QString path = storeFile();
    static const char damaged[] = "[G]\n"
                                  "GOOD=1\n"
                                  "junk line without equals\n"
                                  "BIN=\x01\x00\x02\n"
                                  "=no key\n"
                                  "BAD\xff=1\n"
                                  "[broken\n"
                                  "LOST=2\n"
                                  "[H]\r\n"
                                  "OK=yes\r\n"
                                  "# comment\n"
                                  "\n"
                                  "TEXT= spaced = text\n";
    writeBytes(path, QByteArray(damaged, sizeof damaged - 1));
    ::testing::internal::CaptureStderr();
    SETUP_SET_Manager store(AM_Global::APP_MESSAGING, false);
    int good = 0;
    EXPECT_TRUE(store.getInt(QStringLiteral("G"), QStringLiteral("GOOD"), &good, 0));
    const QString reported = QString::fromStdString(::testing::internal::GetCapturedStderr());
    EXPECT_EQ(good, 1);
    const QString file = path;
    EXPECT_EQ(reported.split(QLatin1Char('\n'), Qt::SkipEmptyParts),
              (QStringList{QStringLiteral("SETUP_SET_Manager: %1 line 3 skipped: no \"=\"").arg(file),
                           QStringLiteral("SETUP_SET_Manager: %1 line 4 skipped: binary bytes").arg(file),
                           QStringLiteral("SETUP_SET_Manager: %1 line 5 skipped: bad key").arg(file),
                           QStringLiteral("SETUP_SET_Manager: %1 line 6 skipped: not UTF-8").arg(file),
                           QStringLiteral("SETUP_SET_Manager: %1 line 7 skipped: bad group header").arg(file),
                           QStringLiteral("SETUP_SET_Manager: %1 line 8 skipped: key outside a group").arg(file)}));
    QString text;
    EXPECT_FALSE(store.getString(QStringLiteral("G"), QStringLiteral("BIN"), &text, QStringLiteral("d"), false));
    EXPECT_EQ(text, QStringLiteral("d"));
    EXPECT_FALSE(store.getString(QStringLiteral("G"), QStringLiteral("LOST"), &text, QStringLiteral("d"), false));
    EXPECT_TRUE(store.getString(QStringLiteral("H"), QStringLiteral("OK"), &text, QString(), false));
    EXPECT_EQ(text, QStringLiteral("yes"));
    EXPECT_TRUE(store.getString(QStringLiteral("H"), QStringLiteral("TEXT"), &text, QString(), false));
    EXPECT_EQ(text, QStringLiteral(" spaced = text"));
    EXPECT_EQ(store.groups(), (QStringList{QStringLiteral("G"), QStringLiteral("H")}));
}

TEST_F(SetupSetManagerTest, DamagedFileIsReportedOnceAndCleanedByTheNextWrite)
{
    const QString path = storeFile();
    writeBytes(path, QByteArray("[G]\nGOOD=1\nJUNK\n"));
    ::testing::internal::CaptureStderr();
    SETUP_SET_Manager store(AM_Global::APP_MESSAGING, true);
    int value = 0;
    store.getInt(QStringLiteral("G"), QStringLiteral("GOOD"), &value, 0);
    store.getInt(QStringLiteral("G"), QStringLiteral("GOOD"), &value, 0);
    EXPECT_EQ(QString::fromStdString(::testing::internal::GetCapturedStderr()),
              QStringLiteral("SETUP_SET_Manager: %1 line 3 skipped: no \"=\"\n").arg(path));
    ASSERT_TRUE(store.setInt(QStringLiteral("G"), QStringLiteral("NEW"), 2));
    EXPECT_EQ(fileBytes(path), QByteArray("[G]\nGOOD=1\nNEW=2\n"));
}

TEST_F(SetupSetManagerTest, WholeBinaryFileReadsDefaults)
{
    QByteArray junk;
    for (int i = 0; i < 4096; ++i)
        junk += char((i * 37 + 11) & 0xff);
    writeBytes(storeFile(), junk);
    ::testing::internal::CaptureStderr();
    SETUP_SET_Manager store(AM_Global::APP_MESSAGING, false);
    int value = 0;
    EXPECT_FALSE(store.getInt(kGroup, QStringLiteral("K"), &value, 17));
    EXPECT_EQ(value, 17);
    EXPECT_FALSE(::testing::internal::GetCapturedStderr().empty());
}

struct WriteFault {
    const char* operation;
    std::function<bool(SETUP_SET_Manager&)> write;
};

class SetupSetManagerFaultTest : public SetupSetManagerTest, public ::testing::WithParamInterface<WriteFault> {};

TEST_P(SetupSetManagerFaultTest, InjectedFaultFailsTheWriteWithItsErrnoAndChangesNothing)
{
    SETUP_SET_Manager store(AM_Global::APP_MESSAGING, true);
    ASSERT_TRUE(store.setString(kGroup, QStringLiteral("TEXT"), QStringLiteral("old"), false));
    const QByteArray before = fileBytes(store.fileName());
    ZorHost::resetCallCounts();
    for (int result : {ENOSPC, EIO}) {
        ZorHost::injectFault(QString::fromLatin1(GetParam().operation), result);
        errno = 0;
        EXPECT_FALSE(GetParam().write(store));
        EXPECT_EQ(errno, result);
        EXPECT_EQ(fileBytes(store.fileName()), before);
    }
    EXPECT_EQ(ZorHost::callCount(QString::fromLatin1(GetParam().operation)), 2);
    EXPECT_TRUE(GetParam().write(store));
}

std::string faultName(const ::testing::TestParamInfo<WriteFault>& info)
{
    return QString::fromLatin1(info.param.operation).section(QLatin1Char(':'), -1).toStdString();
}

INSTANTIATE_TEST_SUITE_P(
    Writes, SetupSetManagerFaultTest,
    ::testing::Values(
        WriteFault{"SETUP_SET_Manager::setInt",
                   [](SETUP_SET_Manager& s) { return s.setInt(kGroup, QStringLiteral("TEXT"), 1); }},
        WriteFault{"SETUP_SET_Manager::setUInt",
                   [](SETUP_SET_Manager& s) { return s.setUInt(kGroup, QStringLiteral("TEXT"), 1u); }},
        WriteFault{"SETUP_SET_Manager::setBool",
                   [](SETUP_SET_Manager& s) { return s.setBool(kGroup, QStringLiteral("TEXT"), true); }},
        WriteFault{"SETUP_SET_Manager::setString",
                   [](SETUP_SET_Manager& s) {
                       return s.setString(kGroup, QStringLiteral("TEXT"), QStringLiteral("new"), false);
                   }},
        WriteFault{"SETUP_SET_Manager::removeEntry",
                   [](SETUP_SET_Manager& s) { return s.removeEntry(kGroup, QStringLiteral("TEXT")); }}),
    faultName);

TEST_F(SetupSetManagerTest, FaultedFlushKeepsTheWritesBuffered)
{
    SETUP_SET_Manager store(AM_Global::APP_MESSAGING, false);
    ASSERT_TRUE(store.setInt(kGroup, QStringLiteral("K"), 1));
    ZorHost::injectFault(QStringLiteral("SETUP_SET_Manager::flush"), ENOSPC);
    errno = 0;
    EXPECT_FALSE(store.flush());
    EXPECT_EQ(errno, ENOSPC);
    EXPECT_TRUE(store.hasUnflushedWrites());
    EXPECT_FALSE(QFile::exists(store.fileName()));
    EXPECT_TRUE(store.flush());
    EXPECT_EQ(fileBytes(store.fileName()), QByteArray("[GROUP_MSGCTR_SMS]\nK=1\n"));
}

TEST_F(SetupSetManagerTest, FaultedWriteOfABufferedHandleIsNotBuffered)
{
    SETUP_SET_Manager store(AM_Global::APP_MESSAGING, false);
    ZorHost::injectFault(QStringLiteral("SETUP_SET_Manager::setInt"), EIO);
    EXPECT_FALSE(store.setInt(kGroup, QStringLiteral("K"), 1));
    EXPECT_FALSE(store.hasUnflushedWrites());
}

TEST_F(SetupSetManagerTest, FaultedReadYieldsTheDefault)
{
    SETUP_SET_Manager store(AM_Global::APP_MESSAGING, true);
    ASSERT_TRUE(store.setInt(kGroup, QStringLiteral("K"), 1));
    ASSERT_TRUE(store.setString(kGroup, QStringLiteral("S"), QStringLiteral("s"), false));
    ZorHost::injectFault(QStringLiteral("SETUP_SET_Manager::getInt"), EIO);
    ZorHost::injectFault(QStringLiteral("SETUP_SET_Manager::getString"), EIO);
    int value = 0;
    QString text;
    EXPECT_FALSE(store.getInt(kGroup, QStringLiteral("K"), &value, 8));
    EXPECT_EQ(value, 8);
    EXPECT_FALSE(store.getString(kGroup, QStringLiteral("S"), &text, QStringLiteral("d"), false));
    EXPECT_EQ(text, QStringLiteral("d"));
    EXPECT_TRUE(store.getInt(kGroup, QStringLiteral("K"), &value, 8));
    EXPECT_EQ(value, 1);
}

TEST_F(SetupSetManagerTest, ReadsAreCounted)
{
    SETUP_SET_Manager store(AM_Global::APP_MESSAGING, false);
    unsigned int value = 0;
    store.getUInt(kGroup, QStringLiteral("INCOM_SMS_PREF_STORAGE"), &value, 0);
    store.getUInt(kGroup, QStringLiteral("INCOM_SMS_PREF_STORAGE"), &value, 0);
    EXPECT_EQ(ZorHost::callCount(QStringLiteral("SETUP_SET_Manager::getUInt")), 2);
    EXPECT_EQ(ZorHost::callCount(QStringLiteral("SETUP_SET_Manager::getInt")), 0);
}

TEST_F(SetupSetManagerTest, AnotherProcessSeesADurableWriteAtOnce)
{
    SETUP_SET_Manager store(AM_Global::APP_MESSAGING, true);
    ASSERT_TRUE(store.setInt(kGroup, QStringLiteral("K"), 1));
    int value = 0;
    ASSERT_TRUE(store.getInt(kGroup, QStringLiteral("K"), &value, 0));
    const int child = inChild([] {
        SETUP_SET_Manager other(AM_Global::APP_MESSAGING, true);
        int seen = 0;
        if (!other.getInt(kGroup, QStringLiteral("K"), &seen, 0) || seen != 1)
            return 1;
        return other.setInt(kGroup, QStringLiteral("K"), 2) ? 0 : 2;
    });
    ASSERT_EQ(child, 0);
    EXPECT_TRUE(store.getInt(kGroup, QStringLiteral("K"), &value, 0));
    EXPECT_EQ(value, 2);
}

TEST_F(SetupSetManagerTest, TwoProcessesWritingOneGroupLoseNothing)
{
    constexpr int kWrites = 300;
    const auto writer = [](char prefix) {
        return [prefix] {
            SETUP_SET_Manager store(AM_Global::APP_MESSAGING, true);
            for (int i = 0; i < kWrites; ++i)
                if (!store.setInt(kGroup, QStringLiteral("%1%2").arg(QLatin1Char(prefix)).arg(i), i))
                    return 1;
            return 0;
        };
    };
    const pid_t a = ::fork();
    if (a == 0)
        ::_exit(writer('A')());
    const pid_t b = ::fork();
    if (b == 0)
        ::_exit(writer('B')());
    int statusA = 0;
    int statusB = 0;
    ASSERT_EQ(::waitpid(a, &statusA, 0), a);
    ASSERT_EQ(::waitpid(b, &statusB, 0), b);
    ASSERT_TRUE(WIFEXITED(statusA) && WEXITSTATUS(statusA) == 0);
    ASSERT_TRUE(WIFEXITED(statusB) && WEXITSTATUS(statusB) == 0);

    SETUP_SET_Manager store(AM_Global::APP_MESSAGING, false);
    EXPECT_EQ(store.keys(kGroup).size(), 2 * kWrites);
    for (const char prefix : {'A', 'B'}) {
        for (int i = 0; i < kWrites; ++i) {
            int value = -1;
            EXPECT_TRUE(store.getInt(kGroup, QStringLiteral("%1%2").arg(QLatin1Char(prefix)).arg(i), &value, -1));
            EXPECT_EQ(value, i);
        }
    }
}

TEST_F(SetupSetManagerTest, WriterKilledMidWriteLeavesAWholeFile)
{
    SETUP_SET_Manager store(AM_Global::APP_MESSAGING, true);
    for (int i = 0; i < 60; ++i)
        ASSERT_TRUE(store.setInt(kGroup, QStringLiteral("KEY%1").arg(i), i));
    int progress[2];
    ASSERT_EQ(::pipe(progress), 0);
    const pid_t pid = ::fork();
    if (pid == 0) {
        ::close(progress[0]);
        SETUP_SET_Manager writer(AM_Global::APP_MESSAGING, true);
        for (int round = 0;; ++round) {
            const QString filler(200000, QLatin1Char(char('a' + round % 26)));
            if (!writer.setString(kGroup, QStringLiteral("BIG"), QString::number(round) + filler + QString::number(round),
                                  false))
                ::_exit(1);
            if (::write(progress[1], "w", 1) != 1)
                ::_exit(2);
        }
    }
    ::close(progress[1]);
    char byte;
    for (int i = 0; i < 5; ++i)
        ASSERT_EQ(::read(progress[0], &byte, 1), 1);
    ::kill(pid, SIGKILL);
    int status = 0;
    ASSERT_EQ(::waitpid(pid, &status, 0), pid);
    ::close(progress[0]);
    ASSERT_TRUE(WIFSIGNALED(status));

    ::testing::internal::CaptureStderr();
    SETUP_SET_Manager reader(AM_Global::APP_MESSAGING, false);
    QString big;
    ASSERT_TRUE(reader.getString(kGroup, QStringLiteral("BIG"), &big, QString(), false));
    EXPECT_EQ(::testing::internal::GetCapturedStderr(), std::string());
    bool ok = false;
    qsizetype digits = 0;
    while (digits < big.size() && big.at(digits).isDigit())
        ++digits;
    const int first = big.left(digits).toInt(&ok);
    ASSERT_TRUE(ok);
    EXPECT_EQ(big, QString::number(first) + QString(200000, QLatin1Char(char('a' + first % 26))) + QString::number(first));
    for (int i = 0; i < 60; ++i) {
        int value = -1;
        EXPECT_TRUE(reader.getInt(kGroup, QStringLiteral("KEY%1").arg(i), &value, -1));
        EXPECT_EQ(value, i);
    }
    // The dead writer's lock does not block the next one.
    EXPECT_TRUE(store.setInt(kGroup, QStringLiteral("AFTER"), 1));
}

// A store on a full file system: a tiny tmpfs mounted in a user namespace of a child process.
TEST_F(SetupSetManagerTest, FullDiskFailsTheWriteWithEnospc)
{
    const QString mountPoint = root() + QStringLiteral("/tiny");
    ASSERT_TRUE(QDir().mkpath(mountPoint));
    enum { Passed = 0, CannotMount = 10 };
    const int result = inChild([&]() -> int {
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
        SETUP_SET_Manager store(AM_Global::APP_MESSAGING, true);
        if (!store.setString(kGroup, QStringLiteral("K"), QStringLiteral("old"), false))
            return 20;
        const QByteArray before = fileBytes(store.fileName());
        // Fill the file system, then give back one page: enough for the lock, not for the new file.
        const QByteArray filler = QFile::encodeName(mountPoint + QStringLiteral("/filler"));
        const int fd = ::open(filler.constData(), O_WRONLY | O_CREAT, 0644);
        const QByteArray page(4096, 'f');
        off_t size = 0;
        for (;;) {
            const ssize_t n = ::write(fd, page.constData(), size_t(page.size()));
            if (n <= 0)
                break;
            size += n;
        }
        if (size < 4096 || ::ftruncate(fd, (size / 4096 - 1) * 4096) != 0)
            return 21;
        ::close(fd);
        errno = 0;
        if (store.setString(kGroup, QStringLiteral("K"), QString(8192, QLatin1Char('n')), false))
            return 22;
        if (errno != ENOSPC)
            return 23;
        if (fileBytes(store.fileName()) != before)
            return 24;
        SETUP_SET_Manager buffered(AM_Global::APP_MESSAGING, false);
        buffered.setString(kGroup, QStringLiteral("K"), QString(8192, QLatin1Char('b')), false);
        errno = 0;
        if (buffered.flush() || errno != ENOSPC || !buffered.hasUnflushedWrites())
            return 25;
        return fileBytes(store.fileName()) == before ? Passed : 26;
    });
    if (result == CannotMount)
        GTEST_SKIP() << "no user namespace with a tmpfs mount here; the full disk is covered by fault injection";
    EXPECT_EQ(result, Passed);
}

TEST_F(SetupSetManagerTest, DoubledCarriageReturnEndsTheLineAndLeavesNoCrInTheValue)
{
    const QString path = storeFile();
    writeBytes(path, QByteArray("[G]\r\r\nKEY=value\r\r\nNEXT=2\r\n"));
    ::testing::internal::CaptureStderr();
    SETUP_SET_Manager store(AM_Global::APP_MESSAGING, true);
    QString text;
    EXPECT_TRUE(store.getString(QStringLiteral("G"), QStringLiteral("KEY"), &text, QString(), false));
    EXPECT_EQ(::testing::internal::GetCapturedStderr(), std::string());
    EXPECT_EQ(text, QStringLiteral("value"));
    EXPECT_TRUE(SETUP_SET_Manager::isStorableText(text));
    // What was read is what the next rewrite keeps.
    ASSERT_TRUE(store.setInt(QStringLiteral("G"), QStringLiteral("NEXT"), 3));
    EXPECT_EQ(fileBytes(path), QByteArray("[G]\nKEY=value\nNEXT=3\n"));
}

TEST_F(SetupSetManagerTest, CarriageReturnInsideALineIsSkippedAndReported)
{
    const QString path = storeFile();
    writeBytes(path, QByteArray("[G]\nKEY=a\rb\nGOOD=1\n"));
    ::testing::internal::CaptureStderr();
    SETUP_SET_Manager store(AM_Global::APP_MESSAGING, false);
    QString text;
    EXPECT_FALSE(store.getString(QStringLiteral("G"), QStringLiteral("KEY"), &text, QStringLiteral("d"), false));
    EXPECT_EQ(QString::fromStdString(::testing::internal::GetCapturedStderr()),
              QStringLiteral("SETUP_SET_Manager: %1 line 2 skipped: CR inside the line\n").arg(path));
    EXPECT_EQ(text, QStringLiteral("d"));
    EXPECT_EQ(store.keys(QStringLiteral("G")), QStringList{QStringLiteral("GOOD")});
}

// Runs `body` in a forked child that is killed if it has not finished within the time given: a read that
// blocks fails the test instead of hanging it.
template <typename Body>
int inChildWithin(unsigned seconds, Body body)
{
    return inChild([&]() -> int {
        ::alarm(seconds);
        return body();
    });
}

// What can stand in the store file's place without being a regular file.
enum class NotAFile { Fifo, Socket, Folder };

bool makeInPlace(NotAFile kind, const QString& path)
{
    const QByteArray name = QFile::encodeName(path);
    switch (kind) {
    case NotAFile::Fifo:
        return ::mkfifo(name.constData(), 0644) == 0;
    case NotAFile::Socket: {
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        if (size_t(name.size()) >= sizeof address.sun_path)
            return false;
        std::memcpy(address.sun_path, name.constData(), size_t(name.size()));
        const int fd = ::socket(AF_UNIX, SOCK_STREAM, 0);
        const bool bound = fd >= 0 && ::bind(fd, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
        if (fd >= 0)
            ::close(fd);
        return bound;
    }
    case NotAFile::Folder:
        return QDir().mkpath(path);
    }
    return false;
}

class SetupSetManagerNotAFileTest : public SetupSetManagerTest, public ::testing::WithParamInterface<NotAFile> {};

TEST_P(SetupSetManagerNotAFileTest, RefusedAtOnceReportedOnceAndLeftAlone)
{
    const QString path = storeFile();
    QDir().mkpath(QFileInfo(path).absolutePath());
    ASSERT_TRUE(makeInPlace(GetParam(), path));
    const int result = inChildWithin(20, [&]() -> int {
        ::testing::internal::CaptureStderr();
        SETUP_SET_Manager store(AM_Global::APP_MESSAGING, true);
        int value = 0;
        if (store.getInt(kGroup, QStringLiteral("K"), &value, 17) || value != 17)
            return 10;
        if (store.getInt(kGroup, QStringLiteral("K"), &value, 18) || value != 18)
            return 11;
        errno = 0;
        if (store.setInt(kGroup, QStringLiteral("K"), 1) || errno != ENOTSUP)
            return 12;
        // Reported once, however often the file is met.
        const QString reported = QString::fromStdString(::testing::internal::GetCapturedStderr());
        return reported == QStringLiteral("SETUP_SET_Manager: %1 is not a regular file; it is not read and not replaced\n").arg(path)
            ? 0 : 13;
    });
    EXPECT_EQ(result, 0);
    EXPECT_FALSE(QFileInfo(path).isFile());
    EXPECT_TRUE(QFileInfo(path).exists());
}

INSTANTIATE_TEST_SUITE_P(Kinds, SetupSetManagerNotAFileTest,
                         ::testing::Values(NotAFile::Fifo, NotAFile::Socket, NotAFile::Folder),
                         [](const ::testing::TestParamInfo<NotAFile>& info) {
                             switch (info.param) {
                             case NotAFile::Fifo: return std::string("Fifo");
                             case NotAFile::Socket: return std::string("Socket");
                             case NotAFile::Folder: return std::string("Folder");
                             }
                             return std::string("Unknown");
                         });

TEST_F(SetupSetManagerTest, ReadsTakeNoLockFile)
{
    const QString path = storeFile();
    writeBytes(path, QByteArray("[G]\nK=1\n"));
    SETUP_SET_Manager store(AM_Global::APP_MESSAGING, false);
    int value = 0;
    EXPECT_TRUE(store.getInt(QStringLiteral("G"), QStringLiteral("K"), &value, 0));
    EXPECT_EQ(value, 1);
    EXPECT_EQ(QDir(QFileInfo(path).absolutePath()).entryList(QDir::Files), QStringList{QFileInfo(path).fileName()});
}

TEST_F(SetupSetManagerTest, WritersLeaveOneLongLivedLockFile)
{
    SETUP_SET_Manager store(AM_Global::APP_MESSAGING, true);
    ASSERT_TRUE(store.setInt(QStringLiteral("G"), QStringLiteral("K"), 1));
    ASSERT_TRUE(store.setInt(QStringLiteral("G"), QStringLiteral("K"), 2));
    const QFileInfo file(store.fileName());
    EXPECT_EQ(QDir(file.absolutePath()).entryList(QDir::Files),
              (QStringList{file.fileName(), file.fileName() + QStringLiteral(".lock")}));
}

// Another writer replacing the file between two reads, with a file of the same size and as fast as it
// can (the same clock tick), is seen by the very next read.
TEST_F(SetupSetManagerTest, ReplacementOfTheSameSizeIsSeenAtOnce)
{
    SETUP_SET_Manager store(AM_Global::APP_MESSAGING, true);
    ASSERT_TRUE(store.setInt(QStringLiteral("G"), QStringLiteral("K"), 10));
    for (int round = 0; round < 40; ++round) {
        const int expected = 10 + (round + 1) % 2;
        const int pid = inChild([&]() -> int {
            SETUP_SET_Manager other(AM_Global::APP_MESSAGING, true);
            return other.setInt(QStringLiteral("G"), QStringLiteral("K"), expected) ? 0 : 1;
        });
        ASSERT_EQ(pid, 0);
        int value = 0;
        ASSERT_TRUE(store.getInt(QStringLiteral("G"), QStringLiteral("K"), &value, 0));
        ASSERT_EQ(value, expected) << "round " << round;
    }
}

} // namespace
