#include "HostRootTest.h"
#include "RowName.h"

#include "MSGCTR_ENG_Setup.h"
#include "SETUP_SET_Manager_Compose_Flush.h"
#include "SETUP_SET_Manager_Compose_NOT_Flush.h"
#include "ZorHostControl.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <cerrno>
#include <functional>
#include <string>
#include <utility>

namespace {

const QString G = QStringLiteral("GROUP_TEST");
const QString K = QStringLiteral("KEY");

struct FileState {
    bool exists = false;
    QByteArray bytes;
    bool operator==(const FileState& other) const { return exists == other.exists && bytes == other.bytes; }
};

FileState fileState(const QString& path)
{
    FileState state;
    QFile file(path);
    state.exists = file.exists();
    if (state.exists && file.open(QIODevice::ReadOnly))
        state.bytes = file.readAll();
    return state;
}

class SetupTest : public HostRootTest {
protected:
    MSGCTR_ENG_Setup& store()
    {
        if (!m_store)
            m_store = std::make_unique<MSGCTR_ENG_Setup>(MSGCTR_ENG_Setup::MSGCTR_APP_ID,
                                                         MSGCTR_ENG_Setup::FLUSH_MODE__FLUSH);
        return *m_store;
    }
    // The raw text of a key as the store keeps it, read past the library's encodings.
    QString rawText(const QString& key = K)
    {
        SETUP_SET_Manager raw(AM_Global::APP_MESSAGING, true);
        QString text;
        raw.getString(G, key, &text, QStringLiteral("<missing>"), false);
        return text;
    }
    void putRawText(const QString& text, const QString& key = K)
    {
        SETUP_SET_Manager raw(AM_Global::APP_MESSAGING, true);
        ASSERT_TRUE(raw.setString(G, key, text, false));
    }
    FileState storeFile() { return fileState(store().fileName()); }

private:
    std::unique_ptr<MSGCTR_ENG_Setup> m_store;
};

QString crcHex(const QByteArray& payload)
{
    return QStringLiteral("%1").arg(qChecksum(payload), 4, 16, QLatin1Char('0')).toUpper();
}

TEST_F(SetupTest, TheMessagingStoreIsApplicationThree)
{
    EXPECT_EQ(int(MSGCTR_ENG_Setup::MSGCTR_APP_ID), 3);
    SETUP_SET_Manager messaging(AM_Global::APP_MESSAGING, true);
    EXPECT_EQ(store().fileName(), messaging.fileName());
    EXPECT_EQ(&store().objSetupSetManager(), static_cast<SETUP_SET_Manager*>(&store()));
}

TEST_F(SetupTest, ModeZeroWritesThroughAndModeOneBuffers)
{
    MSGCTR_ENG_Setup writeThrough(MSGCTR_ENG_Setup::MSGCTR_APP_ID, MSGCTR_ENG_Setup::FLUSH_MODE__FLUSH);
    MSGCTR_ENG_Setup buffered(MSGCTR_ENG_Setup::MSGCTR_APP_ID, MSGCTR_ENG_Setup::FLUSH_MODE__NOT_FLUSH);
    EXPECT_EQ(int(MSGCTR_ENG_Setup::FLUSH_MODE__FLUSH), 0);
    EXPECT_EQ(int(MSGCTR_ENG_Setup::FLUSH_MODE__NOT_FLUSH), 1);
    EXPECT_TRUE(writeThrough.isFlushMode());
    EXPECT_FALSE(buffered.isFlushMode());
}

TEST_F(SetupTest, ByNameStoreGivesBothFlagsTheMode)
{
    const QString name = QStringLiteral("msgctr-by-name");
    MSGCTR_ENG_Setup buffered(name, MSGCTR_ENG_Setup::FLUSH_MODE__NOT_FLUSH);
    EXPECT_FALSE(buffered.isFlushMode());
    // Without the second flag the file waits for the first durable write.
    EXPECT_FALSE(QFile::exists(buffered.fileName()));

    MSGCTR_ENG_Setup writeThrough(name, MSGCTR_ENG_Setup::FLUSH_MODE__FLUSH);
    EXPECT_TRUE(writeThrough.isFlushMode());
    EXPECT_TRUE(QFile::exists(writeThrough.fileName()));
    EXPECT_EQ(writeThrough.fileName(), buffered.fileName());
    EXPECT_NE(writeThrough.fileName(), store().fileName());
}

TEST_F(SetupTest, ComposeStoresOpenTheMessagingStoreInTheirMode)
{
    SETUP_SET_Manager_Compose_Flush flush;
    SETUP_SET_Manager_Compose_NOT_Flush notFlush;
    EXPECT_TRUE(flush.isFlushMode());
    EXPECT_FALSE(notFlush.isFlushMode());
    EXPECT_EQ(flush.fileName(), store().fileName());
    EXPECT_EQ(notFlush.fileName(), store().fileName());

    ASSERT_TRUE(notFlush.setInt(G, K, 5));
    ASSERT_TRUE(flush.setInt(G, QStringLiteral("OTHER"), 6));
    int value = 0;
    store().getEntry(G, K, &value, -1);
    EXPECT_EQ(value, -1);
    store().getEntry(G, QStringLiteral("OTHER"), &value, -1);
    EXPECT_EQ(value, 6);
}

TEST_F(SetupTest, MissingKeysReadTheirDefaults)
{
    int i = 0;
    unsigned int u = 0;
    bool b = false;
    QString s;
    store().getEntry(G, K, &i, -7);
    store().getEntry(G, K, &u, 4000000000u);
    store().getEntry(G, K, &b, true);
    store().getEntry(G, K, &s, QStringLiteral("def"), false);
    EXPECT_EQ(i, -7);
    EXPECT_EQ(u, 4000000000u);
    EXPECT_TRUE(b);
    EXPECT_EQ(s, QStringLiteral("def"));
    store().getEntry(G, K, &s, QString(), false);
    EXPECT_TRUE(s.isNull());
}

TEST_F(SetupTest, ScalarsRoundTripAsTheStoresOwnValues)
{
    EXPECT_EQ(store().setEntry(G, QStringLiteral("I"), -42), 0);
    EXPECT_EQ(store().setEntry(G, QStringLiteral("U"), 4000000000u), 0);
    EXPECT_EQ(store().setEntry(G, QStringLiteral("B"), true), 0);
    EXPECT_EQ(store().setEntry(G, QStringLiteral("S"), QStringLiteral("a b"), false), 0);

    int i = 0;
    unsigned int u = 0;
    bool b = false;
    QString s;
    store().getEntry(G, QStringLiteral("I"), &i, 0);
    store().getEntry(G, QStringLiteral("U"), &u, 0u);
    store().getEntry(G, QStringLiteral("B"), &b, false);
    store().getEntry(G, QStringLiteral("S"), &s, QString(), false);
    EXPECT_EQ(i, -42);
    EXPECT_EQ(u, 4000000000u);
    EXPECT_TRUE(b);
    EXPECT_EQ(s, QStringLiteral("a b"));

    // Typed as the store keeps them.
    SETUP_SET_Manager raw(AM_Global::APP_MESSAGING, true);
    EXPECT_TRUE(raw.getInt(G, QStringLiteral("I"), &i, 0));
    EXPECT_TRUE(raw.getUInt(G, QStringLiteral("U"), &u, 0));
    EXPECT_TRUE(raw.getBool(G, QStringLiteral("B"), &b, false));
    EXPECT_EQ(rawText(QStringLiteral("S")), QStringLiteral("a b"));
}

TEST_F(SetupTest, TextFlagIsPassedThroughToTheStore)
{
    ASSERT_EQ(store().setEntry(G, K, QStringLiteral("x"), false), 0);
    // With the flag the store removes the key for an empty text; without it an empty text is kept.
    EXPECT_EQ(store().setEntry(G, K, QString(QLatin1String("")), true), 0);
    EXPECT_EQ(rawText(), QStringLiteral("<missing>"));
    EXPECT_EQ(store().setEntry(G, K, QString(QLatin1String("")), false), 0);
    QString s;
    store().getEntry(G, K, &s, QStringLiteral("def"), false);
    EXPECT_EQ(s, QString(QLatin1String("")));
    EXPECT_FALSE(s.isNull());
    store().getEntry(G, K, &s, QStringLiteral("def"), true);
    EXPECT_EQ(s, QStringLiteral("def"));
}

TEST_F(SetupTest, TextWithABlankIsWritten)
{
    EXPECT_EQ(store().setEntry(G, K, QStringLiteral("a b"), false), 0);
    EXPECT_EQ(rawText(), QStringLiteral("a b"));
}

class SetupRefusedTextTest : public SetupTest, public ::testing::WithParamInterface<const char*> {};

TEST_P(SetupRefusedTextTest, IsRefusedAndLeavesTheFileByteForByte)
{
    ASSERT_EQ(store().setEntry(G, K, QStringLiteral("old"), false), 0);
    const FileState before = storeFile();
    ASSERT_TRUE(before.exists);

    const QString text = QString::fromLatin1(GetParam());
    EXPECT_FALSE(MSGCTR_ENG_Setup::isValidStringToSaveToCfg(text));
    EXPECT_EQ(store().setEntry(G, K, text, false), MSGCTR_ERRCODE__SETUP_INVALID_CHAR);
    EXPECT_EQ(store().setEntry(G, QStringLiteral("NEW_KEY"), text, false), MSGCTR_ERRCODE__SETUP_INVALID_CHAR);

    EXPECT_EQ(storeFile(), before);
    EXPECT_EQ(rawText(), QStringLiteral("old"));
}

INSTANTIATE_TEST_SUITE_P(EveryCharacterTheStoreCannotKeep, SetupRefusedTextTest,
                         ::testing::Values("a=b", "[GROUP]", "x]", "[", "line\nbreak", "cr\rhere", "="),
                         RowNameOfValue());

TEST_F(SetupTest, RefusedTextWritesNothingToABufferedStoreEither)
{
    MSGCTR_ENG_Setup buffered(MSGCTR_ENG_Setup::MSGCTR_APP_ID, MSGCTR_ENG_Setup::FLUSH_MODE__NOT_FLUSH);
    EXPECT_EQ(buffered.setEntry(G, K, QStringLiteral("a=b"), false), MSGCTR_ERRCODE__SETUP_INVALID_CHAR);
    EXPECT_FALSE(buffered.hasUnflushedWrites());
}

TEST_F(SetupTest, CheckPatternsAreTheStoresForbiddenCharacters)
{
    EXPECT_EQ(MSGCTR_ENG_Setup::invalidCharChkRegExpForStringToSaveToCfg(), QStringLiteral("[\\[\\]\\r\\n\\=]"));
    EXPECT_EQ(MSGCTR_ENG_Setup::validCharChkRegExpForStringToSaveToCfg(), QStringLiteral("[^\\[\\]\\r\\n\\=]"));
    EXPECT_TRUE(MSGCTR_ENG_Setup::isValidStringToSaveToCfg(QString()));
    EXPECT_TRUE(MSGCTR_ENG_Setup::isValidStringToSaveToCfg(QStringLiteral("a b;c,d\t(e){f}*?.\\")));
    // Not a wildcard pattern and case-sensitive: "[" and "]" are characters, nothing else is special.
    EXPECT_TRUE(MSGCTR_ENG_Setup::isValidStringToSaveToCfg(QStringLiteral("rn")));
    EXPECT_TRUE(MSGCTR_ENG_Setup::isValidStringToSaveToCfg(QStringLiteral("R N \\r \\n")));
}

// Texts that are not valid UTF-16: the character check still sees every character of them.
struct SurrogateTextCase {
    const char* name;
    QString text;
    bool valid;
};

class SetupSurrogateTextTest : public SetupTest, public ::testing::WithParamInterface<SurrogateTextCase> {};

TEST_P(SetupSurrogateTextTest, ForbiddenCharactersAreFoundInAnyText)
{
    EXPECT_EQ(MSGCTR_ENG_Setup::isValidStringToSaveToCfg(GetParam().text), GetParam().valid);
    if (!GetParam().valid) {
        EXPECT_EQ(store().setEntry(G, K, GetParam().text, false), MSGCTR_ERRCODE__SETUP_INVALID_CHAR);
    }
}

INSTANTIATE_TEST_SUITE_P(
    UnpairedSurrogates, SetupSurrogateTextTest,
    ::testing::Values(
        SurrogateTextCase{"EqualsBeforeAHighSurrogate", QStringLiteral("a=") + QChar(0xD800), false},
        SurrogateTextCase{"BracketAfterALowSurrogate", QChar(0xDC00) + QStringLiteral("[x"), false},
        SurrogateTextCase{"LineFeedBetweenTwoHighSurrogates",
                          QString(QChar(0xD800)) + QChar(u'\n') + QChar(0xDBFF), false},
        SurrogateTextCase{"NoForbiddenCharacter", QStringLiteral("1;2") + QChar(0xD800), true}),
    [](const ::testing::TestParamInfo<SurrogateTextCase>& info) { return std::string(info.param.name); });

// The failing store operation for each kind of write.
struct FailingWrite {
    const char* name;
    const char* operation;
    std::function<MSGCTR_ERRCODE(MSGCTR_ENG_Setup&)> write;
};

std::ostream& operator<<(std::ostream& os, const FailingWrite& w)
{
    return os << w.name;
}

const FailingWrite kFailingWrites[] = {
    {"int", "SETUP_SET_Manager::setInt", [](MSGCTR_ENG_Setup& s) { return s.setEntry(G, K, 1); }},
    {"uint", "SETUP_SET_Manager::setUInt", [](MSGCTR_ENG_Setup& s) { return s.setEntry(G, K, 1u); }},
    {"bool", "SETUP_SET_Manager::setBool", [](MSGCTR_ENG_Setup& s) { return s.setEntry(G, K, true); }},
    {"text", "SETUP_SET_Manager::setString",
     [](MSGCTR_ENG_Setup& s) { return s.setEntry(G, K, QStringLiteral("t"), false); }},
    {"bytes", "SETUP_SET_Manager::setString",
     [](MSGCTR_ENG_Setup& s) { return s.setEntry(G, K, QByteArray("\x01\x02", 2)); }},
    {"anyText", "SETUP_SET_Manager::setString",
     [](MSGCTR_ENG_Setup& s) { return s.setEntryAnyQstr(G, K, QStringLiteral("a=b")); }},
    {"textList", "SETUP_SET_Manager::setString",
     [](MSGCTR_ENG_Setup& s) { return s.setEntry(G, K, QStringList{QStringLiteral("a")}); }},
    {"intList", "SETUP_SET_Manager::setString",
     [](MSGCTR_ENG_Setup& s) { return s.setEntry(G, K, std::vector<int>{1, 2}); }},
    {"uintList", "SETUP_SET_Manager::setString",
     [](MSGCTR_ENG_Setup& s) { return s.setEntry(G, K, std::vector<unsigned int>{1u, 2u}); }},
    {"flush", "SETUP_SET_Manager::flush", [](MSGCTR_ENG_Setup& s) {
         s.setEntry(G, K, 9);
         return s.flush();
     }},
};

class SetupFailedWriteTest : public SetupTest, public ::testing::WithParamInterface<FailingWrite> {};

TEST_P(SetupFailedWriteTest, DiskFullIsNoSpace)
{
    MSGCTR_ENG_Setup buffered(MSGCTR_ENG_Setup::MSGCTR_APP_ID, MSGCTR_ENG_Setup::FLUSH_MODE__NOT_FLUSH);
    MSGCTR_ENG_Setup& target = QLatin1String(GetParam().name) == QLatin1String("flush") ? buffered : store();
    ZorHost::injectFault(QString::fromLatin1(GetParam().operation), ENOSPC);
    EXPECT_EQ(GetParam().write(target), MSGCTR_ERRCODE__SETUP_WRITE_NO_SPACE);
}

TEST_P(SetupFailedWriteTest, AnyOtherFailureIsWriteFail)
{
    MSGCTR_ENG_Setup buffered(MSGCTR_ENG_Setup::MSGCTR_APP_ID, MSGCTR_ENG_Setup::FLUSH_MODE__NOT_FLUSH);
    MSGCTR_ENG_Setup& target = QLatin1String(GetParam().name) == QLatin1String("flush") ? buffered : store();
    for (int error : {EIO, EACCES, EROFS}) {
        ZorHost::injectFault(QString::fromLatin1(GetParam().operation), error);
        EXPECT_EQ(GetParam().write(target), MSGCTR_ERRCODE__SETUP_WRITE_FAIL) << error;
    }
    EXPECT_EQ(GetParam().write(target), 0);
}

INSTANTIATE_TEST_SUITE_P(EveryWrite, SetupFailedWriteTest, ::testing::ValuesIn(kFailingWrites),
                         [](const ::testing::TestParamInfo<FailingWrite>& info) {
                             return std::string(info.param.name);
                         });

TEST_F(SetupTest, AFailedWriteLeavesTheFileByteForByte)
{
    ASSERT_EQ(store().setEntry(G, K, 1), 0);
    const FileState before = storeFile();
    ZorHost::injectFault(QStringLiteral("SETUP_SET_Manager::setInt"), ENOSPC);
    EXPECT_EQ(store().setEntry(G, K, 2), MSGCTR_ERRCODE__SETUP_WRITE_NO_SPACE);
    EXPECT_EQ(storeFile(), before);
}

// A store whose file lives on a file system that is full: run in a child process that has a tiny file
// system of its own (a user and mount namespace), so that the disk really fills up.
const char* const kFullDiskRootVariable = "ZOR_SETTINGS_FULL_DISK_ROOT";

TEST_F(SetupTest, ReallyFullDiskIsNoSpace)
{
    const QString childRoot = qEnvironmentVariable(kFullDiskRootVariable);
    if (!childRoot.isEmpty()) {
        ZorHost::setRoot(childRoot);
        MSGCTR_ENG_Setup full(MSGCTR_ENG_Setup::MSGCTR_APP_ID, MSGCTR_ENG_Setup::FLUSH_MODE__FLUSH);
        ASSERT_EQ(full.setEntry(G, K, QStringLiteral("before"), false), 0);
        const FileState before = fileState(full.fileName());
        QFile filler(childRoot + QStringLiteral("/filler"));
        ASSERT_TRUE(filler.open(QIODevice::WriteOnly));
        const QByteArray block(4096, 'x');
        while (filler.write(block) == block.size() && filler.flush()) {
        }
        filler.close();
        EXPECT_EQ(full.setEntry(G, K, QString(8192, QLatin1Char('y')), false), MSGCTR_ERRCODE__SETUP_WRITE_NO_SPACE);
        EXPECT_EQ(fileState(full.fileName()), before);
        return;
    }

    QProcess probe;
    probe.start(QStringLiteral("unshare"), {QStringLiteral("-rm"), QStringLiteral("true")});
    if (!probe.waitForFinished(10000) || probe.exitStatus() != QProcess::NormalExit || probe.exitCode() != 0)
        GTEST_SKIP() << "cannot make a full file system here: unshare -rm is not permitted";

    QTemporaryDir mountPoint(QStringLiteral(ZOR_TEST_TMP "/fulldisk-XXXXXX"));
    ASSERT_TRUE(mountPoint.isValid());
    QProcess child;
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert(QString::fromLatin1(kFullDiskRootVariable), mountPoint.path());
    child.setProcessEnvironment(env);
    child.setProcessChannelMode(QProcess::MergedChannels);
    child.start(QStringLiteral("unshare"),
                {QStringLiteral("-rm"), QStringLiteral("sh"), QStringLiteral("-c"),
                 QStringLiteral("mount -t tmpfs -o size=256k tmpfs \"$1\" && exec $ZOR_TEST_EMULATOR \"$2\" --gtest_filter=\"$3\""),
                 QStringLiteral("sh"), mountPoint.path(), QFile::symLinkTarget(QStringLiteral("/proc/self/exe")),
                 QStringLiteral("SetupTest.ReallyFullDiskIsNoSpace")});
    ASSERT_TRUE(child.waitForFinished(60000));
    const QString output = QString::fromLocal8Bit(child.readAll());
    ASSERT_EQ(child.exitStatus(), QProcess::NormalExit) << output.toStdString();
    EXPECT_EQ(child.exitCode(), 0) << output.toStdString();
    EXPECT_TRUE(output.contains(QStringLiteral("[  PASSED  ] 1 test"))) << output.toStdString();
}

TEST_F(SetupTest, IntListIsStoredAsDecimalsJoinedByCommas)
{
    EXPECT_EQ(store().setEntry(G, K, std::vector<int>{1, 2, 3}), 0);
    EXPECT_EQ(rawText(), QStringLiteral("1,2,3"));
    std::vector<int> values;
    store().getEntry(G, K, &values, std::vector<int>{9});
    EXPECT_EQ(values, (std::vector<int>{1, 2, 3}));

    EXPECT_EQ(store().setEntry(G, K, std::vector<int>{-1, 0, 2147483647}), 0);
    EXPECT_EQ(rawText(), QStringLiteral("-1,0,2147483647"));
    EXPECT_EQ(store().setEntry(G, K, std::vector<int>{}), 0);
    EXPECT_EQ(rawText(), QString(QLatin1String("")));
    store().getEntry(G, K, &values, std::vector<int>{9});
    EXPECT_EQ(values, std::vector<int>{});
}

TEST_F(SetupTest, IntListWithANonNumberReadsEmptyNotTheDefault)
{
    putRawText(QStringLiteral("5,x"));
    std::vector<int> values{7, 7};
    store().getEntry(G, K, &values, std::vector<int>{5, 10});
    EXPECT_TRUE(values.empty());
}

TEST_F(SetupTest, MissingIntListReadsTheDefault)
{
    std::vector<int> values{7};
    store().getEntry(G, K, &values, std::vector<int>{5, 10});
    EXPECT_EQ(values, (std::vector<int>{5, 10}));
}

TEST_F(SetupTest, IntListDropsEmptyParts)
{
    putRawText(QStringLiteral(",4,,5,"));
    std::vector<int> values;
    store().getEntry(G, K, &values, std::vector<int>{});
    EXPECT_EQ(values, (std::vector<int>{4, 5}));
}

TEST_F(SetupTest, UnsignedListGoesThroughTheIntList)
{
    EXPECT_EQ(store().setEntry(G, K, std::vector<unsigned int>{1u, 4294967295u}), 0);
    EXPECT_EQ(rawText(), QStringLiteral("1,-1"));
    std::vector<unsigned int> values;
    store().getEntry(G, K, &values, std::vector<unsigned int>{});
    EXPECT_EQ(values, (std::vector<unsigned int>{1u, 4294967295u}));

    store().getEntry(G, QStringLiteral("MISSING"), &values, std::vector<unsigned int>{3u, 4u});
    EXPECT_EQ(values, (std::vector<unsigned int>{3u, 4u}));
    putRawText(QStringLiteral("1,y"));
    store().getEntry(G, K, &values, std::vector<unsigned int>{3u});
    EXPECT_TRUE(values.empty());
}

TEST_F(SetupTest, IntListConversionsTakeTheSeparator)
{
    const QString sep = QStringLiteral(";");
    EXPECT_EQ(MSGCTR_ENG_Setup::toStringFromIntVector({3, -4}, sep), QStringLiteral("3;-4"));
    EXPECT_EQ(MSGCTR_ENG_Setup::toStringFromIntVector({}, sep), QString(QLatin1String("")));
    std::vector<int> values{1};
    EXPECT_TRUE(MSGCTR_ENG_Setup::toIntVectorFromString(&values, QStringLiteral("3;;-4"), sep));
    EXPECT_EQ(values, (std::vector<int>{3, -4}));
    EXPECT_FALSE(MSGCTR_ENG_Setup::toIntVectorFromString(&values, QStringLiteral("3,4"), sep));
    EXPECT_TRUE(values.empty());
    EXPECT_FALSE(MSGCTR_ENG_Setup::toIntVectorFromString(&values, QStringLiteral("99999999999"), sep));
    EXPECT_TRUE(values.empty());
}

TEST_F(SetupTest, ByteArrayIsStoredAsUppercaseHexWithItsCrc)
{
    const QByteArray payload("\x01\x02\xff", 3);
    EXPECT_EQ(store().setEntry(G, K, payload), 0);
    // CRC-16 of 01 02 FF (ISO 3309), high byte first.
    EXPECT_EQ(crcHex(payload), QStringLiteral("A0D8"));
    EXPECT_EQ(rawText(), QStringLiteral("0102FFA0D8"));
    QByteArray read;
    store().getEntry(G, K, &read, QByteArray("d"));
    EXPECT_EQ(read, payload);
}

TEST_F(SetupTest, MissingByteArrayReadsTheDefault)
{
    QByteArray read("caller");
    store().getEntry(G, K, &read, QByteArray("\x00\x10", 2));
    EXPECT_EQ(read, QByteArray("\x00\x10", 2));
}

TEST_F(SetupTest, ByteArrayWithAWrongCrcLeavesTheCallersVariable)
{
    putRawText(QStringLiteral("0102FFA0D9"));
    QByteArray read("caller");
    store().getEntry(G, K, &read, QByteArray("default"));
    EXPECT_EQ(read, QByteArray("caller"));
}

TEST_F(SetupTest, ByteArrayThatIsNotHexLeavesTheCallersVariable)
{
    for (const QString& text : {QStringLiteral("0102FFA0D"), QStringLiteral("zz"), QStringLiteral("01 2")}) {
        putRawText(text);
        QByteArray read("caller");
        store().getEntry(G, K, &read, QByteArray("default"));
        EXPECT_EQ(read, QByteArray("caller")) << text.toStdString();
    }
}

TEST_F(SetupTest, EmptyByteArrayRoundTrips)
{
    EXPECT_EQ(store().setEntry(G, K, QByteArray()), 0);
    EXPECT_EQ(rawText(), QStringLiteral("0000"));
    QByteArray read("caller");
    store().getEntry(G, K, &read, QByteArray("default"));
    EXPECT_TRUE(read.isEmpty());
}

TEST_F(SetupTest, HexConversions)
{
    QByteArray bytes("junk");
    EXPECT_TRUE(MSGCTR_ENG_Setup::hexQstring2ByteArray(QStringLiteral("0aF9"), &bytes));
    EXPECT_EQ(bytes, QByteArray("\x0a\xf9", 2));
    EXPECT_TRUE(MSGCTR_ENG_Setup::hexQstring2ByteArray(QString(), &bytes));
    EXPECT_TRUE(bytes.isEmpty());
    bytes = "junk";
    EXPECT_FALSE(MSGCTR_ENG_Setup::hexQstring2ByteArray(QStringLiteral("abc"), &bytes));
    EXPECT_TRUE(bytes.isEmpty());
    bytes = "junk";
    EXPECT_FALSE(MSGCTR_ENG_Setup::hexQstring2ByteArray(QStringLiteral("0g"), &bytes));
    EXPECT_TRUE(bytes.isEmpty());

    QString text = QStringLiteral("junk");
    MSGCTR_ENG_Setup::byteArray2HexQstring(QByteArray("\x00\xab\x7f", 3), &text);
    EXPECT_EQ(text, QStringLiteral("00AB7F"));
    MSGCTR_ENG_Setup::byteArray2HexQstring(QByteArray(), &text);
    EXPECT_EQ(text, QString(QLatin1String("")));
}

TEST_F(SetupTest, AnyTextKeepsEveryCharacter)
{
    const QString text = QStringLiteral("a=b\r\n[x]\u00e9\u4e2d");
    EXPECT_EQ(store().setEntryAnyQstr(G, K, text), 0);
    QString read;
    store().getEntryAnyQstr(G, K, &read, QStringLiteral("def"));
    EXPECT_EQ(read, text);
}

TEST_F(SetupTest, AnyTextBytesArePinned)
{
    // Data stream of "ab": byte length 4, then UTF-16 big-endian; then the CRC of those bytes.
    EXPECT_EQ(store().setEntryAnyQstr(G, K, QStringLiteral("ab")), 0);
    const QByteArray stream = QByteArray::fromHex("0000000400610062");
    EXPECT_EQ(rawText(), QStringLiteral("0000000400610062") + crcHex(stream));
    EXPECT_EQ(crcHex(stream), QStringLiteral("B1E6"));

    EXPECT_EQ(store().setEntryAnyQstr(G, K, QString()), 0);
    EXPECT_EQ(rawText(), QStringLiteral("FFFFFFFF0F47"));
}

TEST_F(SetupTest, AnyTextKeepsNullAndEmptyApart)
{
    QString read;
    EXPECT_EQ(store().setEntryAnyQstr(G, K, QString()), 0);
    store().getEntryAnyQstr(G, K, &read, QStringLiteral("def"));
    EXPECT_TRUE(read.isNull());
    EXPECT_EQ(store().setEntryAnyQstr(G, K, QString(QLatin1String(""))), 0);
    store().getEntryAnyQstr(G, K, &read, QString());
    EXPECT_FALSE(read.isNull());
    EXPECT_TRUE(read.isEmpty());
}

TEST_F(SetupTest, MissingOrDamagedAnyTextReadsTheDefault)
{
    QString read = QStringLiteral("caller");
    store().getEntryAnyQstr(G, K, &read, QString());
    EXPECT_TRUE(read.isNull());
    store().getEntryAnyQstr(G, K, &read, QStringLiteral("def"));
    EXPECT_EQ(read, QStringLiteral("def"));

    // A wrong CRC, not hexadecimal, and a right CRC around bytes that are no data stream text.
    const QByteArray notAStream = QByteArray::fromHex("00000009");
    for (const QString& text : {QStringLiteral("0000000400610062B1E7"), QStringLiteral("nothex"),
                                QStringLiteral("00000009") + crcHex(notAStream)}) {
        putRawText(text);
        read = QStringLiteral("caller");
        store().getEntryAnyQstr(G, K, &read, QStringLiteral("def"));
        EXPECT_EQ(read, QStringLiteral("def")) << text.toStdString();
    }
}

TEST_F(SetupTest, TextListRoundTripsAndIsPinned)
{
    const QStringList list{QStringLiteral("a"), QString(QLatin1String("")), QStringLiteral("x=y;z")};
    EXPECT_EQ(store().setEntry(G, K, list), 0);
    QStringList read;
    store().getEntry(G, K, &read, QStringList{QStringLiteral("def")});
    EXPECT_EQ(read, list);

    EXPECT_EQ(store().setEntry(G, K, QStringList{QStringLiteral("a")}), 0);
    // Count 1, then the text as above.
    EXPECT_EQ(rawText(), QStringLiteral("000000010000000200613B9A"));
}

TEST_F(SetupTest, MissingOrDamagedTextListReadsTheDefault)
{
    const QStringList def{QStringLiteral("d1"), QStringLiteral("d2")};
    QStringList read{QStringLiteral("caller")};
    store().getEntry(G, K, &read, def);
    EXPECT_EQ(read, def);
    putRawText(QStringLiteral("00000001000000020061FFFF"));
    read = QStringList{QStringLiteral("caller")};
    store().getEntry(G, K, &read, def);
    EXPECT_EQ(read, def);
}

// The report of a stored value that is no data stream of its type, for the key K of group G.
bool isDamagedValueReport(const QString& line)
{
    static const QRegularExpression report(QStringLiteral(
        "^MSGCTR_ENG_Setup\\.cpp\\(\\d+\\)\\[readDataStreamEntry\\]\\d+:  warning ! mild_assert fail at "
        "\"fromDataStreamBytes\\(bytes, out\\)\"; group = \"GROUP_TEST\"\\(QString, len=10\\), "
        "key = \"KEY\"\\(QString, len=3\\), $"));
    return report.match(line).hasMatch();
}

// Every item of a stored list takes at least four bytes, so a count the bytes cannot hold is damage: the
// read gives the default and a report, and never reserves room for the count first.
class SetupItemCountTest : public SetupTest, public ::testing::WithParamInterface<std::pair<const char*, const char*>> {};

TEST_P(SetupItemCountTest, TextListReadsTheDefaultAndReports)
{
    const QByteArray stream = QByteArray::fromHex(GetParam().second);
    putRawText(QString::fromLatin1(stream.toHex().toUpper()) + crcHex(stream));
    const QStringList def{QStringLiteral("d1"), QStringLiteral("d2")};
    QStringList read{QStringLiteral("caller")};
    store().getEntry(G, K, &read, def);
    EXPECT_EQ(read, def);
    const QStringList lines = takeReportLines();
    ASSERT_EQ(lines.size(), 1);
    EXPECT_TRUE(isDamagedValueReport(lines.first())) << lines.first().toStdString();
}

INSTANTIATE_TEST_SUITE_P(
    DamagedCounts, SetupItemCountTest,
    ::testing::Values(std::make_pair("HugeCountBeforeOneItem", "FFFFFFF0000000020061"),
                      std::make_pair("LargestCount", "FFFFFFFF"),
                      std::make_pair("CountOfTwoWithOneItem", "00000002000000020061"),
                      std::make_pair("NoCountAtAll", "000000")),
    [](const ::testing::TestParamInfo<std::pair<const char*, const char*>>& info) {
        return std::string(info.param.first);
    });

TEST_F(SetupTest, AnyTextThatIsNoStreamTextReadsTheDefaultAndReports)
{
    const QByteArray notAStream = QByteArray::fromHex("00000009");
    putRawText(QStringLiteral("00000009") + crcHex(notAStream));
    QString read = QStringLiteral("caller");
    store().getEntryAnyQstr(G, K, &read, QStringLiteral("def"));
    EXPECT_EQ(read, QStringLiteral("def"));
    const QStringList lines = takeReportLines();
    ASSERT_EQ(lines.size(), 1);
    EXPECT_TRUE(isDamagedValueReport(lines.first())) << lines.first().toStdString();
}

TEST_F(SetupTest, WriteThroughIsSeenByAnotherHandleAtOnce)
{
    MSGCTR_ENG_Setup other(MSGCTR_ENG_Setup::MSGCTR_APP_ID, MSGCTR_ENG_Setup::FLUSH_MODE__NOT_FLUSH);
    EXPECT_EQ(store().setEntry(G, K, 11), 0);
    int value = 0;
    other.getEntry(G, K, &value, 0);
    EXPECT_EQ(value, 11);
}

TEST_F(SetupTest, BufferedStoreDestroyedUnflushedLeavesTheFileUnchanged)
{
    ASSERT_EQ(store().setEntry(G, QStringLiteral("KEEP"), 1), 0);
    const FileState before = storeFile();
    {
        MSGCTR_ENG_Setup buffered(MSGCTR_ENG_Setup::MSGCTR_APP_ID, MSGCTR_ENG_Setup::FLUSH_MODE__NOT_FLUSH);
        EXPECT_EQ(buffered.setEntry(G, K, 5), 0);
        EXPECT_EQ(buffered.setEntryAnyQstr(G, QStringLiteral("ANY"), QStringLiteral("t")), 0);
        int value = 0;
        buffered.getEntry(G, K, &value, 0);
        EXPECT_EQ(value, 5);
        EXPECT_EQ(storeFile(), before);
    }
    EXPECT_EQ(storeFile(), before);
    int value = 0;
    store().getEntry(G, K, &value, -1);
    EXPECT_EQ(value, -1);
}

TEST_F(SetupTest, BufferedStoreFlushedIsWritten)
{
    {
        MSGCTR_ENG_Setup buffered(MSGCTR_ENG_Setup::MSGCTR_APP_ID, MSGCTR_ENG_Setup::FLUSH_MODE__NOT_FLUSH);
        EXPECT_EQ(buffered.setEntry(G, K, 5), 0);
        EXPECT_FALSE(QFile::exists(buffered.fileName()));
        EXPECT_EQ(buffered.flush(), 0);
    }
    EXPECT_TRUE(storeFile().bytes.contains("KEY=5"));
    int value = 0;
    store().getEntry(G, K, &value, -1);
    EXPECT_EQ(value, 5);
}

TEST_F(SetupTest, FlushWithNothingBufferedSucceeds)
{
    EXPECT_EQ(store().flush(), 0);
}

} // namespace
