#include "HostRootTest.h"
#include "RowName.h"

#include "MSGCTR_ENG_Addrbk.h"
#include "MSGCTR_ENG_EmsAddressList.h"

#include <string>

namespace {

struct RawListCase {
    const char* text;
    QStringList expected;
};

void PrintTo(const RawListCase& c, std::ostream* os)
{
    *os << '"' << c.text << '"';
}

class RawAddrListTest : public HostRootTest, public ::testing::WithParamInterface<RawListCase> {};

TEST_P(RawAddrListTest, NormalisesTypedText)
{
    const QString text = QString::fromUtf8(GetParam().text);
    EXPECT_EQ(MSGCTR_ENG_EmsAddressList::getRawAddrList(text), GetParam().expected);
    EXPECT_EQ(MSGCTR_ENG_EmsAddressList::marshalAddrList(text), GetParam().expected.join(QLatin1Char(',')));
}

INSTANTIATE_TEST_SUITE_P(
    Table, RawAddrListTest,
    ::testing::Values(
        RawListCase{" 123 45;+4930 ,,a@b ;", {"12345", "+4930", "a@b"}}, RawListCase{"", {}},
        RawListCase{"   ", {}}, RawListCase{",;, ;", {}}, RawListCase{"a", {"a"}},
        RawListCase{"1\t2\n3\r\n,4", {"123", "4"}}, RawListCase{"x;y;x", {"x", "y", "x"}},
        RawListCase{"a b c @ d", {"abc@d"}}, RawListCase{";;;a;;;", {"a"}},
        RawListCase{"\xc3\xa9l\xc3\xa8ve@ex , 1", {"\xc3\xa9l\xc3\xa8ve@ex", "1"}}),
                         [](const auto& info) { return rowName(info.param.text); });

// Texts that are not valid UTF-16 (unpaired surrogates) are split by the same separator rules.
struct SurrogateListCase {
    const char* name;
    QString text;
    QStringList expected;
};

class SurrogateAddrListTest : public HostRootTest, public ::testing::WithParamInterface<SurrogateListCase> {};

TEST_P(SurrogateAddrListTest, SplitsAtEverySeparator)
{
    EXPECT_EQ(MSGCTR_ENG_EmsAddressList::getRawAddrList(GetParam().text), GetParam().expected);
    EXPECT_EQ(MSGCTR_ENG_EmsAddressList::marshalAddrList(GetParam().text), GetParam().expected.join(QLatin1Char(',')));
}

INSTANTIATE_TEST_SUITE_P(
    UnpairedSurrogates, SurrogateAddrListTest,
    ::testing::Values(
        SurrogateListCase{"HighSurrogateAtTheEnd", QStringLiteral("1;2") + QChar(0xD800),
                          {QStringLiteral("1"), QStringLiteral("2") + QChar(0xD800)}},
        SurrogateListCase{"LowSurrogateFirst", QChar(0xDC00) + QStringLiteral(" ;a ; b"),
                          {QString(QChar(0xDC00)), QStringLiteral("a"), QStringLiteral("b")}},
        SurrogateListCase{"SurrogateBetweenSeparators", QStringLiteral(";") + QChar(0xDBFF) + QStringLiteral(";;3"),
                          {QString(QChar(0xDBFF)), QStringLiteral("3")}}),
    [](const ::testing::TestParamInfo<SurrogateListCase>& info) { return std::string(info.param.name); });

TEST_F(HostRootTest, TypedListNormalisesToCanonicalText)
{
    const QString typed = QStringLiteral(" 123 45;+4930 ,,a@b ;");
    EXPECT_EQ(MSGCTR_ENG_EmsAddressList::getRawAddrList(typed),
              (QStringList{QStringLiteral("12345"), QStringLiteral("+4930"), QStringLiteral("a@b")}));
    EXPECT_EQ(MSGCTR_ENG_EmsAddressList::marshalAddrList(typed), QStringLiteral("12345,+4930,a@b"));
}

TEST_F(HostRootTest, ManyAddressesOfAnyLengthAreKept)
{
    QStringList addresses;
    for (int i = 0; i < 500; ++i)
        addresses.append(QString(100, QLatin1Char('7')) + QString::number(i));
    EXPECT_EQ(MSGCTR_ENG_EmsAddressList::getRawAddrList(addresses.join(QStringLiteral(" ; "))), addresses);
}

TEST_F(HostRootTest, JoinOfListKeepsEntriesAsTheyAre)
{
    EXPECT_EQ(MSGCTR_ENG_EmsAddressList::join(QStringList{QStringLiteral("a b"), QString(), QStringLiteral("c")}),
              QStringLiteral("a b,,c"));
    EXPECT_EQ(MSGCTR_ENG_EmsAddressList::join(QStringList()), QString());
}

TEST_F(HostRootTest, JoinOfTwoListsDropsEmptyPiece)
{
    EXPECT_EQ(MSGCTR_ENG_EmsAddressList::join(QString(), QStringLiteral("b")), QStringLiteral("b"));
    EXPECT_EQ(MSGCTR_ENG_EmsAddressList::join(QStringLiteral("a"), QString()), QStringLiteral("a"));
    EXPECT_EQ(MSGCTR_ENG_EmsAddressList::join(QStringLiteral(" 1 ;2"), QStringLiteral("3, a@b ")),
              QStringLiteral("1,2,3,a@b"));
    EXPECT_EQ(MSGCTR_ENG_EmsAddressList::join(QString(), QString()), QString());
}

TEST_F(HostRootTest, SegregationKeepsOrder)
{
    QStringList numbers{QStringLiteral("stale")};
    QStringList others{QStringLiteral("stale")};
    MSGCTR_ENG_EmsAddressList::segregateEmsNumberTypeFromOtherAddrType(&numbers, &others,
                                                                       QStringLiteral("123,a@b,456"));
    EXPECT_EQ(numbers, (QStringList{QStringLiteral("123"), QStringLiteral("456")}));
    EXPECT_EQ(others, QStringList{QStringLiteral("a@b")});

    QString numberText = QStringLiteral("stale");
    QString otherText = QStringLiteral("stale");
    MSGCTR_ENG_EmsAddressList::segregateEmsNumberTypeFromOtherAddrType(&numberText, &otherText,
                                                                       QStringLiteral(" 123 ; a@b,4 5 6;x@y"));
    EXPECT_EQ(numberText, QStringLiteral("123,456"));
    EXPECT_EQ(otherText, QStringLiteral("a@b,x@y"));
}

TEST_F(HostRootTest, SegregationOfEmptyTextEmptiesBothOutputs)
{
    QStringList numbers{QStringLiteral("stale")};
    QStringList others{QStringLiteral("stale")};
    MSGCTR_ENG_EmsAddressList::segregateEmsNumberTypeFromOtherAddrType(&numbers, &others, QString());
    EXPECT_TRUE(numbers.isEmpty());
    EXPECT_TRUE(others.isEmpty());
}

bool startsWithA(const QString& address)
{
    return address.startsWith(QLatin1Char('a'));
}

TEST_F(HostRootTest, SegregationWithOwnTest)
{
    QString mine;
    QString others;
    MSGCTR_ENG_EmsAddressList::segregateMyAddrTypeFromOtherAddrType(&mine, &others, QStringLiteral("ab,b,ac;12"),
                                                                    startsWithA);
    EXPECT_EQ(mine, QStringLiteral("ab,ac"));
    EXPECT_EQ(others, QStringLiteral("b,12"));
}

TEST_F(HostRootTest, SegregationSendsOverlongNumbersToOthers)
{
    QStringList numbers;
    QStringList others;
    const QString longNumber(42, QLatin1Char('1'));
    MSGCTR_ENG_EmsAddressList::segregateEmsNumberTypeFromOtherAddrType(&numbers, &others,
                                                                       longNumber + QStringLiteral(",+,12-3"));
    EXPECT_EQ(numbers, QStringList{QStringLiteral("+")});
    EXPECT_EQ(others, (QStringList{longNumber, QStringLiteral("12-3")}));
}

TEST_F(HostRootTest, SavedToSimCardOnlyWhenEmptyOrNumber)
{
    EXPECT_TRUE(MSGCTR_ENG_EmsAddressList::isValidForBeingSavedToSIMCard(QString()));
    EXPECT_TRUE(MSGCTR_ENG_EmsAddressList::isValidForBeingSavedToSIMCard(QStringLiteral("+49301")));
    EXPECT_FALSE(MSGCTR_ENG_EmsAddressList::isValidForBeingSavedToSIMCard(QStringLiteral("a@b")));
    EXPECT_FALSE(MSGCTR_ENG_EmsAddressList::isValidForBeingSavedToSIMCard(QString(42, QLatin1Char('1'))));
}

TEST_F(HostRootTest, IteratorStartsEmpty)
{
    MSGCTR_ENG_EmsAddressList list;
    EXPECT_FALSE(list.hasMoreAddress());
    QString address = QStringLiteral("untouched");
    EXPECT_FALSE(list.getAddress(&address));
    EXPECT_EQ(address, QStringLiteral("untouched"));
}

TEST_F(HostRootTest, IteratorHandsOutAddressesInOrder)
{
    MSGCTR_ENG_EmsAddressList list;
    list.loadSource(QStringLiteral("1 ; 2,,a@b"));
    QStringList seen;
    QString address;
    while (list.hasMoreAddress()) {
        ASSERT_TRUE(list.getAddress(&address));
        seen.append(address);
    }
    EXPECT_EQ(seen, (QStringList{QStringLiteral("1"), QStringLiteral("2"), QStringLiteral("a@b")}));
    EXPECT_FALSE(list.getAddress(&address));
    EXPECT_EQ(address, QStringLiteral("a@b"));

    // Loading again starts over.
    list.loadSource(QStringLiteral("9"));
    ASSERT_TRUE(list.getAddress(&address));
    EXPECT_EQ(address, QStringLiteral("9"));
    EXPECT_FALSE(list.hasMoreAddress());
}

// Two contacts: Alice (111) and Bob (222).
ADDRBK_ENG_RESULT_T searchTwoContacts(ADDRBK_SEARCH_RESULT_S& result, const QString& number)
{
    if (number == QLatin1String("111")) {
        result.contactUID = ADDRBK_CONTACT_UID_S{ADDRBK_RECORD_TYPE_CONTACT, 1};
        result.displayName = QStringLiteral("Alice");
        return ADDRBK_ENG_RESULT_SUCCESS;
    }
    if (number == QLatin1String("222")) {
        result.contactUID = ADDRBK_CONTACT_UID_S{ADDRBK_RECORD_TYPE_CONTACT, 2};
        result.displayName = QStringLiteral("Bob");
        return ADDRBK_ENG_RESULT_SUCCESS;
    }
    return ADDRBK_ENG_RESULT_NOT_FOUND;
}

class NameListTest : public HostRootTest {
protected:
    void SetUp() override
    {
        HostRootTest::SetUp();
        MSGCTR_ENG_Addrbk::setAddrbkCallback(searchTwoContacts, nullptr, nullptr);
    }
    void TearDown() override
    {
        MSGCTR_ENG_Addrbk::setAddrbkCallback(nullptr, nullptr, nullptr);
        HostRootTest::TearDown();
    }
};

TEST_F(NameListTest, NamesFromAddressBookWithFallbackToAddress)
{
    EXPECT_EQ(MSGCTR_ENG_EmsAddressList::toNameList(QStringLiteral("111; 333 ,a@b,222"), QStringLiteral(", ")),
              QStringLiteral("Alice, 333, a@b, Bob"));
    EXPECT_EQ(MSGCTR_ENG_EmsAddressList::toNameList(QString(), QStringLiteral(", ")), QString());
}

TEST_F(NameListTest, LimitReachedByFirstName)
{
    EXPECT_EQ(MSGCTR_ENG_EmsAddressList::toNameList(QStringLiteral("111,222"), 5, QStringLiteral(", ")),
              QStringLiteral("Alice"));
}

TEST_F(NameListTest, LimitCutsInsideLaterName)
{
    EXPECT_EQ(MSGCTR_ENG_EmsAddressList::toNameList(QStringLiteral("111,222"), 8, QStringLiteral(", ")),
              QStringLiteral("Alice, B"));
}

TEST_F(NameListTest, LimitNeverReachedLeavesFullText)
{
    EXPECT_EQ(MSGCTR_ENG_EmsAddressList::toNameList(QStringLiteral("111,222"), 10, QStringLiteral(", ")),
              QStringLiteral("Alice, Bob"));
    EXPECT_EQ(MSGCTR_ENG_EmsAddressList::toNameList(QStringLiteral("111,222"), 100, QStringLiteral(", ")),
              QStringLiteral("Alice, Bob"));
}

TEST_F(NameListTest, LimitBelowFirstNameCutsIt)
{
    EXPECT_EQ(MSGCTR_ENG_EmsAddressList::toNameList(QStringLiteral("111,222"), 3, QStringLiteral(", ")),
              QStringLiteral("Ali"));
    EXPECT_EQ(MSGCTR_ENG_EmsAddressList::toNameList(QStringLiteral("111,222"), 0, QStringLiteral(", ")), QString());
    EXPECT_EQ(MSGCTR_ENG_EmsAddressList::toNameList(QStringLiteral("111,222"), -1, QStringLiteral(", ")),
              QString());
}

} // namespace
