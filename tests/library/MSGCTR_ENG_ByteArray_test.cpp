#include "HostRootTest.h"

#include "MSGCTR_ENG_ByteArray.h"

#include <QRegularExpression>

#include <memory>
#include <type_traits>

namespace {

class ByteArrayTest : public HostRootTest {
};

static_assert(std::has_virtual_destructor<MSGCTR_ENG_ByteArray>::value, "deleted through its own pointer type");
static_assert(std::is_base_of<QByteArray, MSGCTR_ENG_ByteArray>::value, "usable wherever a byte array is");

TEST_F(ByteArrayTest, DefaultIsEmpty)
{
    const MSGCTR_ENG_ByteArray array;
    EXPECT_TRUE(array.isEmpty());
}

TEST_F(ByteArrayTest, BuildsADeepCopyOfUnsignedBytes)
{
    unsigned char source[] = {0x00, 0x80, 0xFF};
    const MSGCTR_ENG_ByteArray array(source, 3);
    source[1] = 0x01;
    ASSERT_EQ(array.size(), 3);
    EXPECT_EQ(static_cast<unsigned char>(array[0]), 0x00);
    EXPECT_EQ(static_cast<unsigned char>(array[1]), 0x80);
    EXPECT_EQ(static_cast<unsigned char>(array[2]), 0xFF);
    EXPECT_TRUE(reportLines().isEmpty());
}

TEST_F(ByteArrayTest, ZeroLengthIsEmpty)
{
    const unsigned char source[] = {0x41};
    EXPECT_TRUE(MSGCTR_ENG_ByteArray(source, 0).isEmpty());
    EXPECT_TRUE(MSGCTR_ENG_ByteArray(nullptr, 0).isEmpty());
    EXPECT_TRUE(reportLines().isEmpty());
}

TEST_F(ByteArrayTest, NullBytesWithALengthAreReportedAndEmpty)
{
    EXPECT_TRUE(MSGCTR_ENG_ByteArray(nullptr, 4).isEmpty());
    const QStringList lines = takeReportLines();
    ASSERT_EQ(lines.size(), 1);
    EXPECT_TRUE(QRegularExpression(QStringLiteral("^MSGCTR_ENG_QByteArrUti\\.cpp\\(\\d+\\)\\[qbytearrayFromDataSize\\]\\d+: "
                                                  "assert fail at \"bytes && length > 0\"; length = 4\\(S32,4\\), $"))
                    .match(lines.first()).hasMatch()) << lines.first().toStdString();
}

TEST_F(ByteArrayTest, WorksAsAByteArrayAndThroughItsOwnPointer)
{
    const unsigned char source[] = {'a', 'b'};
    std::unique_ptr<MSGCTR_ENG_ByteArray> array = std::make_unique<MSGCTR_ENG_ByteArray>(source, 2);
    const QByteArray& plain = *array;
    EXPECT_EQ(plain, QByteArray("ab"));
    array->append('c');
    EXPECT_EQ(plain, QByteArray("abc"));
}

} // namespace
