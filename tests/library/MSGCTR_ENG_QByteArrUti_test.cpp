#include "HostRootTest.h"
#include "RowName.h"

#include "MSGCTR_ENG_QByteArrUti.h"

#include <QRegularExpression>

namespace {

class QByteArrUtiTest : public HostRootTest {
protected:
    // The whole report line, with the digits of the tick count left open.
    static bool isReport(const QString& line, const QString& function, const QString& body)
    {
        return QRegularExpression(QStringLiteral("^MSGCTR_ENG_QByteArrUti\\.cpp\\(\\d+\\)\\[%1\\]\\d+: %2$")
                                      .arg(function, QRegularExpression::escape(body)))
            .match(line)
            .hasMatch();
    }
};

QByteArray bytes(std::initializer_list<unsigned char> values)
{
    QByteArray array;
    for (unsigned char v : values)
        array.append(static_cast<char>(v));
    return array;
}

TEST_F(QByteArrUtiTest, ChecksumIsTheIso3309Crc16)
{
    // The published check value of CRC-16/ISO 3309 (X.25) for "123456789".
    const QByteArray block = MSGCTR_ENG_QByteArrUti::qbyteArrWithCrc(QByteArray("123456789"));
    EXPECT_EQ(block, QByteArray("123456789") + bytes({0x90, 0x6E}));
}

TEST_F(QByteArrUtiTest, ThreeBytePayloadGivesFiveByteBlockHighByteFirstAndChecksBack)
{
    const QByteArray payload = bytes({0x01, 0x02, 0xFF});
    const QByteArray block = MSGCTR_ENG_QByteArrUti::qbyteArrWithCrc(payload);
    // CRC-16/ISO 3309 of 01 02 FF is 0xA0D8.
    EXPECT_EQ(block, bytes({0x01, 0x02, 0xFF, 0xA0, 0xD8}));

    QByteArray out("junk");
    EXPECT_TRUE(MSGCTR_ENG_QByteArrUti::getQbyteArrFromQbyteArrWithCrc(&out, block));
    EXPECT_EQ(out, payload);
    EXPECT_TRUE(reportLines().isEmpty());
}

TEST_F(QByteArrUtiTest, ProtectingLeavesThePayloadAlone)
{
    const QByteArray payload("abc");
    const QByteArray copy = payload;
    QByteArray block = MSGCTR_ENG_QByteArrUti::qbyteArrWithCrc(payload);
    block[0] = 'z';
    EXPECT_EQ(payload, QByteArray("abc"));
    EXPECT_EQ(copy, QByteArray("abc"));
}

class ChangedByteTest : public QByteArrUtiTest, public ::testing::WithParamInterface<int> {
};

TEST_P(ChangedByteTest, ChangingAnyByteOfTheBlockFailsTheCheckWithEmptyOutput)
{
    QByteArray block = MSGCTR_ENG_QByteArrUti::qbyteArrWithCrc(bytes({0x01, 0x02, 0xFF}));
    block[GetParam()] = static_cast<char>(block[GetParam()] ^ 0x10);
    QByteArray out("previous");
    EXPECT_FALSE(MSGCTR_ENG_QByteArrUti::getQbyteArrFromQbyteArrWithCrc(&out, block));
    EXPECT_TRUE(out.isEmpty());
    EXPECT_TRUE(reportLines().isEmpty());
}

INSTANTIATE_TEST_SUITE_P(EveryPosition, ChangedByteTest, ::testing::Range(0, 5),
                         [](const auto& info) { return rowName("Byte", info.param); });

TEST_F(QByteArrUtiTest, TwoByteBlockChecksAgainstTheChecksumOfNoData)
{
    // CRC-16/ISO 3309 of no data is 0x0000.
    const QByteArray block = bytes({0x00, 0x00});
    EXPECT_EQ(MSGCTR_ENG_QByteArrUti::qbyteArrWithCrc(QByteArray()), block);
    QByteArray out("previous");
    EXPECT_TRUE(MSGCTR_ENG_QByteArrUti::getQbyteArrFromQbyteArrWithCrc(&out, block));
    EXPECT_TRUE(out.isEmpty());

    const QByteArray wrong = bytes({0x00, 0xFF});
    out = "previous";
    EXPECT_FALSE(MSGCTR_ENG_QByteArrUti::getQbyteArrFromQbyteArrWithCrc(&out, wrong));
    EXPECT_TRUE(out.isEmpty());
}

TEST_F(QByteArrUtiTest, BlocksShorterThanTwoBytesFail)
{
    for (const QByteArray& block : {QByteArray(), QByteArray(""), QByteArray("x")}) {
        QByteArray out("previous");
        EXPECT_FALSE(MSGCTR_ENG_QByteArrUti::getQbyteArrFromQbyteArrWithCrc(&out, block));
        EXPECT_TRUE(out.isEmpty());
    }
    EXPECT_TRUE(reportLines().isEmpty());
}

TEST_F(QByteArrUtiTest, NullOutputIsReported)
{
    EXPECT_FALSE(MSGCTR_ENG_QByteArrUti::getQbyteArrFromQbyteArrWithCrc(nullptr, QByteArray("abcde")));
    const QStringList lines = takeReportLines();
    ASSERT_EQ(lines.size(), 1);
    EXPECT_TRUE(isReport(lines.first(), QStringLiteral("subGetQbyteArrFromQbyteArrWithCrc"),
                         QStringLiteral("assert fail at \"payload\"; size(block) = 5(S32,4), ")))
        << lines.first().toStdString();
}

TEST_F(QByteArrUtiTest, TruncateKeepsADeepCopyOfTheFirstBytesAndEarlierCopiesKeepTheRest)
{
    QByteArray array("abcdef");
    const QByteArray earlier = array;
    MSGCTR_ENG_QByteArrUti::truncateWithRemainOrigData(&array, 3);
    EXPECT_EQ(array, QByteArray("abc"));
    EXPECT_EQ(earlier, QByteArray("abcdef"));
    EXPECT_NE(array.constData(), earlier.constData());

    MSGCTR_ENG_QByteArrUti::truncateWithRemainOrigData(&array, 3);
    EXPECT_EQ(array, QByteArray("abc"));
    MSGCTR_ENG_QByteArrUti::truncateWithRemainOrigData(&array, 0);
    EXPECT_TRUE(array.isEmpty());
    EXPECT_TRUE(reportLines().isEmpty());
}

TEST_F(QByteArrUtiTest, TruncateToMoreThanTheSizeLeavesAnEmptyArray)
{
    QByteArray array("abc");
    MSGCTR_ENG_QByteArrUti::truncateWithRemainOrigData(&array, 4);
    EXPECT_TRUE(array.isEmpty());
    EXPECT_TRUE(reportLines().isEmpty());
}

TEST_F(QByteArrUtiTest, TruncateToANegativeSizeIsReportedAndEmpties)
{
    QByteArray array("abc");
    MSGCTR_ENG_QByteArrUti::truncateWithRemainOrigData(&array, -1);
    EXPECT_TRUE(array.isEmpty());
    MSGCTR_ENG_QByteArrUti::truncateWithRemainOrigData(nullptr, 1);
    const QStringList lines = takeReportLines();
    ASSERT_EQ(lines.size(), 2);
    EXPECT_TRUE(isReport(lines.at(0), QStringLiteral("truncateWithRemainOrigData"),
                         QStringLiteral("assert fail at \"array && n >= 0\"; n = -1(S32,4), ")))
        << lines.at(0).toStdString();
    EXPECT_TRUE(isReport(lines.at(1), QStringLiteral("truncateWithRemainOrigData"),
                         QStringLiteral("assert fail at \"array && n >= 0\"; n = 1(S32,4), ")))
        << lines.at(1).toStdString();
}

TEST_F(QByteArrUtiTest, AppendMakesANewArrayOfOldThenNewBytes)
{
    QByteArray array("ab");
    const QByteArray earlier = array;
    const char more[] = {'c', '\0', 'd'};
    MSGCTR_ENG_QByteArrUti::append(&array, more, 3);
    EXPECT_EQ(array, QByteArray("ab\0c\0d", 6).remove(2, 1));
    EXPECT_EQ(array.size(), 5);
    EXPECT_EQ(earlier, QByteArray("ab"));

    MSGCTR_ENG_QByteArrUti::append(&array, nullptr, 0);
    EXPECT_EQ(array.size(), 5);
    QByteArray empty;
    MSGCTR_ENG_QByteArrUti::append(&empty, "xyz", 2);
    EXPECT_EQ(empty, QByteArray("xy"));
    EXPECT_TRUE(reportLines().isEmpty());
}

TEST_F(QByteArrUtiTest, AppendWithBadArgumentsIsReported)
{
    MSGCTR_ENG_QByteArrUti::append(nullptr, "x", 1);
    QByteArray array("ab");
    MSGCTR_ENG_QByteArrUti::append(&array, nullptr, 2);
    EXPECT_EQ(array, QByteArray("ab"));
    const QStringList lines = takeReportLines();
    ASSERT_EQ(lines.size(), 2);
    EXPECT_TRUE(isReport(lines.at(0), QStringLiteral("append"), QStringLiteral("assert fail at \"array\"; length = 1(S32,4), ")))
        << lines.at(0).toStdString();
    EXPECT_TRUE(isReport(lines.at(1), QStringLiteral("qbytearrayFromDataSize"),
                         QStringLiteral("assert fail at \"bytes && length > 0\"; length = 2(S32,4), ")))
        << lines.at(1).toStdString();
}

TEST_F(QByteArrUtiTest, FromDataSizeCopiesDeeplyWithZeroBytesIncluded)
{
    char source[] = {'a', '\0', 'b'};
    const QByteArray copy = MSGCTR_ENG_QByteArrUti::qbytearrayFromDataSize(source, 3);
    const unsigned char usource[] = {0xFF, 0x00};
    const QByteArray ucopy = MSGCTR_ENG_QByteArrUti::qbytearrayFromDataSize(usource, 2);
    source[0] = 'z';
    EXPECT_EQ(copy, QByteArray("a\0b", 3));
    EXPECT_EQ(ucopy, bytes({0xFF, 0x00}));
    EXPECT_TRUE(MSGCTR_ENG_QByteArrUti::qbytearrayFromDataSize(static_cast<const char*>(nullptr), 0).isEmpty());
    EXPECT_TRUE(reportLines().isEmpty());
}

TEST_F(QByteArrUtiTest, FromDataSizeWithANegativeLengthIsReportedAndEmpty)
{
    EXPECT_TRUE(MSGCTR_ENG_QByteArrUti::qbytearrayFromDataSize("abc", -1).isEmpty());
    const QStringList lines = takeReportLines();
    ASSERT_EQ(lines.size(), 1);
    EXPECT_TRUE(isReport(lines.first(), QStringLiteral("qbytearrayFromDataSize"),
                         QStringLiteral("assert fail at \"bytes && length > 0\"; length = -1(S32,4), ")))
        << lines.first().toStdString();
}

TEST_F(QByteArrUtiTest, DataAndSizeGiveTheArraysOwn)
{
    const QByteArray array("hello");
    EXPECT_EQ(MSGCTR_ENG_QByteArrUti::data(array), array.constData());
    EXPECT_EQ(MSGCTR_ENG_QByteArrUti::size(array), 5);
    EXPECT_EQ(MSGCTR_ENG_QByteArrUti::size(QByteArray()), 0);
}

TEST_F(QByteArrUtiTest, VectorConversionsKeepEveryByteInOrder)
{
    const std::vector<unsigned char> vec = {0x00, 0x7F, 0x80, 0xFF, 0x41};
    const QByteArray array = MSGCTR_ENG_QByteArrUti::qbytearrayFromByteVec(vec);
    EXPECT_EQ(array, bytes({0x00, 0x7F, 0x80, 0xFF, 0x41}));
    EXPECT_EQ(MSGCTR_ENG_QByteArrUti::byteVecFromQbytearray(array), vec);
    EXPECT_TRUE(MSGCTR_ENG_QByteArrUti::qbytearrayFromByteVec({}).isEmpty());
    EXPECT_TRUE(MSGCTR_ENG_QByteArrUti::byteVecFromQbytearray(QByteArray()).empty());
}

} // namespace
