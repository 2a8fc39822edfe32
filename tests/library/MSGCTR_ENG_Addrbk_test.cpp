#include "ForkedScenario.h"
#include "HostRootTest.h"
#include "RowName.h"

#include "MSGCTR_ENG_Addrbk.h"
#include "MSGCTR_ENG_AddrbkPeople.h"

namespace {

// A scripted address book: counts the calls and answers the configured code; on success it returns the
// contact "Carol" (UID 8/5) whatever was asked.
struct FakeBook {
    int numberCalls = 0;
    int emailCalls = 0;
    int contactCalls = 0;
    QStringList searched;
    ADDRBK_ENG_RESULT_T numberCode = ADDRBK_ENG_RESULT_SUCCESS;
    ADDRBK_ENG_RESULT_T emailCode = ADDRBK_ENG_RESULT_SUCCESS;
    ADDRBK_ENG_RESULT_T contactCode = ADDRBK_ENG_RESULT_SUCCESS;
    ADDRBK_ENG_Contact contact;
};
FakeBook* book = nullptr;

const ADDRBK_CONTACT_UID_S kCarolUid{ADDRBK_RECORD_TYPE_CONTACT, 5};

void fillCarol(ADDRBK_SEARCH_RESULT_S& result)
{
    result.contactUID = kCarolUid;
    result.displayName = QStringLiteral("Carol");
    result.matchedEmail = QStringLiteral("carol@home");
}

ADDRBK_ENG_RESULT_T byNumber(ADDRBK_SEARCH_RESULT_S& result, const QString& number)
{
    ++book->numberCalls;
    book->searched.append(QStringLiteral("number:") + number);
    if (book->numberCode == ADDRBK_ENG_RESULT_SUCCESS)
        fillCarol(result);
    return book->numberCode;
}

ADDRBK_ENG_RESULT_T byEmail(ADDRBK_SEARCH_RESULT_S& result, const QString& email)
{
    ++book->emailCalls;
    book->searched.append(QStringLiteral("email:") + email);
    if (book->emailCode == ADDRBK_ENG_RESULT_SUCCESS)
        fillCarol(result);
    return book->emailCode;
}

ADDRBK_ENG_RESULT_T getContact(ADDRBK_ENG_Contact*& contact, ADDRBK_RECORD_TYPE_T recordType, int index)
{
    ++book->contactCalls;
    book->searched.append(QStringLiteral("contact:%1/%2").arg(int(recordType)).arg(index));
    if (book->contactCode == ADDRBK_ENG_RESULT_SUCCESS)
        contact = &book->contact;
    return book->contactCode;
}

class AddrbkTest : public HostRootTest {
protected:
    void SetUp() override
    {
        HostRootTest::SetUp();
        book = &m_book;
        m_book.contact = ADDRBK_ENG_Contact(kCarolUid);
        m_book.contact.addElem(ADDRBK_FIELD_TYPE_NAME, ADDRBK_ATTR_TYPE_NONE, QStringLiteral("Carol C."));
        m_book.contact.addElem(ADDRBK_FIELD_TYPE_TEL, ADDRBK_ATTR_TYPE_TEL_HOME, QStringLiteral("555"));
        m_book.contact.addElem(ADDRBK_FIELD_TYPE_TEL, ADDRBK_ATTR_TYPE_TEL_MOBILE, QStringLiteral("777"));
        m_book.contact.addElem(ADDRBK_FIELD_TYPE_IM, ADDRBK_ATTR_TYPE_IM, QStringLiteral("carol#im"));
        MSGCTR_ENG_Addrbk::setAddrbkCallback(byNumber, byEmail, getContact);
    }
    void TearDown() override
    {
        MSGCTR_ENG_Addrbk::endCache();
        MSGCTR_ENG_Addrbk::setAddrbkCallback(nullptr, nullptr, nullptr);
        book = nullptr;
        HostRootTest::TearDown();
    }

    FakeBook m_book;
};

TEST_F(HostRootTest, WithoutCallbacksTheNameIsTheAddress)
{
    MSGCTR_ENG_Addrbk::setAddrbkCallback(nullptr, nullptr, nullptr);
    for (const QString& address : {QStringLiteral("+4930"), QStringLiteral("a@b"), QStringLiteral("x y"), QString()}) {
        ADDRBK_SEARCH_RESULT_S result;
        bool found = true;
        EXPECT_EQ(MSGCTR_ENG_Addrbk::searchPeople(&result, &found, address), MSGCTR_ERRCODE__SUCCESS);
        EXPECT_FALSE(found);
        EXPECT_EQ(result.displayName, address);
        EXPECT_TRUE(MSGCTR_ENG_Addrbk::isNullSearchResult(result));
        EXPECT_EQ(MSGCTR_ENG_Addrbk::getNameByAddress(address), address);
    }
    EXPECT_TRUE(reportLines().isEmpty());
}

TEST_F(AddrbkTest, FoundContactGivesItsNameAndUid)
{
    ADDRBK_SEARCH_RESULT_S result;
    bool found = false;
    ADDRBK_CONTACT_UID_S uid = MSGCTR_ENG_Addrbk::nullContactUID();
    EXPECT_EQ(MSGCTR_ENG_Addrbk::searchPeople(&result, &found, &uid, QStringLiteral("555")), MSGCTR_ERRCODE__SUCCESS);
    EXPECT_TRUE(found);
    EXPECT_EQ(result.displayName, QStringLiteral("Carol"));
    EXPECT_EQ(uid, kCarolUid);
    EXPECT_TRUE(MSGCTR_ENG_Addrbk::isValidSearchResult(result));
    EXPECT_EQ(MSGCTR_ENG_Addrbk::getNameByAddress(QStringLiteral("a@b")), QStringLiteral("Carol"));
}

TEST_F(AddrbkTest, NotFoundMapsTo10096AndKeepsAddressAsName)
{
    m_book.numberCode = ADDRBK_ENG_RESULT_NOT_FOUND;
    ADDRBK_SEARCH_RESULT_S result;
    bool found = true;
    ADDRBK_CONTACT_UID_S uid = kCarolUid;
    EXPECT_EQ(MSGCTR_ENG_Addrbk::searchPeopleByNumber(&result, &found, &uid, QStringLiteral("555")), 10096);
    EXPECT_FALSE(found);
    EXPECT_EQ(result.displayName, QStringLiteral("555"));
    EXPECT_TRUE(MSGCTR_ENG_Addrbk::isNullContactUID(uid));
    EXPECT_TRUE(MSGCTR_ENG_Addrbk::isNullSearchResult(result));
    EXPECT_EQ(MSGCTR_ENG_Addrbk::getNameByAddress(QStringLiteral("555")), QStringLiteral("555"));
}

struct FailureCase {
    int addrbkResult;
    MSGCTR_ERRCODE status;
};

class AddrbkFailureTest : public AddrbkTest, public ::testing::WithParamInterface<FailureCase> {};

TEST_P(AddrbkFailureTest, FailureIsMappedAndNothingIsFound)
{
    m_book.emailCode = static_cast<ADDRBK_ENG_RESULT_T>(GetParam().addrbkResult);
    ADDRBK_SEARCH_RESULT_S result;
    bool found = true;
    EXPECT_EQ(MSGCTR_ENG_Addrbk::searchPeopleByEmail(&result, &found, QStringLiteral("a@b")), GetParam().status);
    EXPECT_FALSE(found);
    EXPECT_EQ(result.displayName, QStringLiteral("a@b"));
    EXPECT_TRUE(MSGCTR_ENG_Addrbk::isNullSearchResult(result));
    EXPECT_EQ(m_book.emailCalls, 1);
}

INSTANTIATE_TEST_SUITE_P(Codes, AddrbkFailureTest,
                         ::testing::Values(FailureCase{-100, 10096}, FailureCase{-200, 10084}, FailureCase{-1, 10001},
                                           FailureCase{1, 10001}, FailureCase{-102, 10001},
                                           // the handler does not serve it: nothing found, no error
                                           FailureCase{-101, 0}),
                         [](const auto& info) { return rowName("Result", info.param.addrbkResult); });

struct MappingCase {
    int addrbkResult;
    MSGCTR_ERRCODE msgctrErrcode;
};

class AddrbkResultMappingTest : public HostRootTest, public ::testing::WithParamInterface<MappingCase> {};

TEST_P(AddrbkResultMappingTest, MapsByTable)
{
    EXPECT_EQ(MSGCTR_ENG_Addrbk::toMsgctrErrcodeFromAddrbkResult(
                  static_cast<ADDRBK_ENG_RESULT_T>(GetParam().addrbkResult)),
              GetParam().msgctrErrcode);
}

INSTANTIATE_TEST_SUITE_P(Table, AddrbkResultMappingTest,
                         ::testing::Values(MappingCase{0, 0}, MappingCase{-100, 10096}, MappingCase{-200, 10084},
                                           MappingCase{-101, 10001}, MappingCase{100, 10001},
                                           MappingCase{200, 10001}, MappingCase{10096, 10001},
                                           MappingCase{10084, 10001}, MappingCase{-1, 10001},
                                           MappingCase{INT32_MIN, 10001}, MappingCase{INT32_MAX, 10001}),
                         [](const auto& info) { return rowName("Result", info.param.addrbkResult); });

TEST_F(AddrbkTest, PlusAndDigitsAreSearchedByNumberAnythingElseByEmail)
{
    const QStringList addresses{QStringLiteral("+4930"), QStringLiteral("0301"), QStringLiteral("+"),
                                QStringLiteral("030-1"), QStringLiteral("a@b"), QStringLiteral("(030)1"),
                                QString(42, QLatin1Char('1'))};
    for (const QString& address : addresses)
        MSGCTR_ENG_Addrbk::getNameByAddress(address);
    EXPECT_EQ(m_book.searched,
              (QStringList{QStringLiteral("number:+4930"), QStringLiteral("number:0301"), QStringLiteral("number:+"),
                           QStringLiteral("email:030-1"), QStringLiteral("email:a@b"), QStringLiteral("email:(030)1"),
                           QStringLiteral("number:") + QString(42, QLatin1Char('1'))}));
}

TEST_F(AddrbkTest, WithoutCacheEveryLookUpCallsTheCallback)
{
    EXPECT_FALSE(MSGCTR_ENG_Addrbk::cacheIsEnabled());
    MSGCTR_ENG_Addrbk::getNameByAddress(QStringLiteral("555"));
    MSGCTR_ENG_Addrbk::getNameByAddress(QStringLiteral("555"));
    EXPECT_EQ(m_book.numberCalls, 2);
}

TEST_F(AddrbkTest, CacheAnswersRepeatedMissWithoutCallback)
{
    m_book.numberCode = ADDRBK_ENG_RESULT_NOT_FOUND;
    MSGCTR_ENG_Addrbk::beginCache();
    ASSERT_TRUE(MSGCTR_ENG_Addrbk::cacheIsEnabled());
    for (int i = 0; i < 3; ++i) {
        ADDRBK_SEARCH_RESULT_S result;
        bool found = true;
        EXPECT_EQ(MSGCTR_ENG_Addrbk::searchPeople(&result, &found, QStringLiteral("555")), 10096);
        EXPECT_FALSE(found);
        EXPECT_EQ(result.displayName, QStringLiteral("555"));
    }
    EXPECT_EQ(m_book.numberCalls, 1);
}

TEST_F(AddrbkTest, CacheKeepsHitsFailuresAndMissingCallbacksPerAddress)
{
    MSGCTR_ENG_Addrbk::beginCache();
    EXPECT_EQ(MSGCTR_ENG_Addrbk::getNameByAddress(QStringLiteral("555")), QStringLiteral("Carol"));
    m_book.numberCode = ADDRBK_ENG_RESULT_FAIL;
    // Still the cached hit, though the book would fail now.
    EXPECT_EQ(MSGCTR_ENG_Addrbk::getNameByAddress(QStringLiteral("555")), QStringLiteral("Carol"));
    // A different number is looked up, and its failure is cached.
    ADDRBK_SEARCH_RESULT_S result;
    bool found = true;
    EXPECT_EQ(MSGCTR_ENG_Addrbk::searchPeople(&result, &found, QStringLiteral("556")), 10001);
    m_book.numberCode = ADDRBK_ENG_RESULT_SUCCESS;
    EXPECT_EQ(MSGCTR_ENG_Addrbk::searchPeople(&result, &found, QStringLiteral("556")), 10001);
    EXPECT_EQ(m_book.numberCalls, 2);

    // Numbers and e-mail addresses have maps of their own.
    MSGCTR_ENG_Addrbk::getNameByAddress(QStringLiteral("a@b"));
    MSGCTR_ENG_Addrbk::getNameByAddress(QStringLiteral("a@b"));
    EXPECT_EQ(m_book.emailCalls, 1);
    EXPECT_EQ(MSGCTR_ENG_Addrbk::cache()->numberMap().size(), 2);
    EXPECT_EQ(MSGCTR_ENG_Addrbk::cache()->emailMap().size(), 1);
}

TEST_F(AddrbkTest, CacheKeepsAnswerOfMissingCallback)
{
    MSGCTR_ENG_Addrbk::setAddrbkCallback(nullptr, byEmail, getContact);
    MSGCTR_ENG_Addrbk::beginCache();
    EXPECT_EQ(MSGCTR_ENG_Addrbk::getNameByAddress(QStringLiteral("555")), QStringLiteral("555"));
    MSGCTR_ENG_Addrbk::setAddrbkCallback(byNumber, byEmail, getContact);
    EXPECT_EQ(MSGCTR_ENG_Addrbk::getNameByAddress(QStringLiteral("555")), QStringLiteral("555"));
    EXPECT_EQ(m_book.numberCalls, 0);
    MSGCTR_ENG_Addrbk::endCache();
    EXPECT_EQ(MSGCTR_ENG_Addrbk::getNameByAddress(QStringLiteral("555")), QStringLiteral("Carol"));
    EXPECT_EQ(m_book.numberCalls, 1);
}

TEST_F(AddrbkTest, EndCacheBeforeAnyBatchCreatesNothing)
{
    // The cache, once created, lives as long as the process.
    runForkedScenario([] {
        EXPECT_EQ(MSGCTR_ENG_Addrbk::cache(), nullptr);
        EXPECT_FALSE(MSGCTR_ENG_Addrbk::cacheIsEnabled());
        MSGCTR_ENG_Addrbk::endCache();
        EXPECT_EQ(MSGCTR_ENG_Addrbk::cache(), nullptr);
        EXPECT_EQ(MSGCTR_ENG_Addrbk::getNameByAddress(QStringLiteral("555")), QStringLiteral("Carol"));
        EXPECT_EQ(MSGCTR_ENG_Addrbk::cache(), nullptr);
    });
}

TEST_F(AddrbkTest, EndCacheDropsEverythingAndNextBatchStartsEmpty)
{
    MSGCTR_ENG_Addrbk::beginCache();
    MSGCTR_ENG_AddrbkCache* cache = MSGCTR_ENG_Addrbk::cache();
    ASSERT_NE(cache, nullptr);
    MSGCTR_ENG_Addrbk::getNameByAddress(QStringLiteral("555"));
    MSGCTR_ENG_Addrbk::endCache();
    EXPECT_FALSE(MSGCTR_ENG_Addrbk::cacheIsEnabled());
    EXPECT_EQ(MSGCTR_ENG_Addrbk::cache(), cache);
    EXPECT_TRUE(cache->numberMap().isEmpty());

    MSGCTR_ENG_Addrbk::getNameByAddress(QStringLiteral("555"));
    EXPECT_TRUE(cache->numberMap().isEmpty());
    MSGCTR_ENG_Addrbk::beginCache();
    MSGCTR_ENG_Addrbk::getNameByAddress(QStringLiteral("555"));
    EXPECT_EQ(m_book.numberCalls, 3);
    // A second beginCache starts a new batch.
    MSGCTR_ENG_Addrbk::beginCache();
    MSGCTR_ENG_Addrbk::getNameByAddress(QStringLiteral("555"));
    EXPECT_EQ(m_book.numberCalls, 4);
    EXPECT_EQ(MSGCTR_ENG_Addrbk::cache(), cache);
}

TEST_F(AddrbkTest, NameListsFollowAddressOrder)
{
    m_book.emailCode = ADDRBK_ENG_RESULT_NOT_FOUND;
    const QStringList addresses{QStringLiteral("555"), QStringLiteral("x@y"), QStringLiteral("777")};
    EXPECT_EQ(MSGCTR_ENG_Addrbk::getNameListByAddressList(addresses),
              (QStringList{QStringLiteral("Carol"), QStringLiteral("x@y"), QStringLiteral("Carol")}));
    EXPECT_EQ(MSGCTR_ENG_Addrbk::getNameListStringByAddressList(addresses, QStringLiteral("; ")),
              QStringLiteral("Carol; x@y; Carol"));
    EXPECT_TRUE(MSGCTR_ENG_Addrbk::getNameListByAddressList(QStringList()).isEmpty());
}

TEST_F(AddrbkTest, SearchIntoPeopleFetchesWholeContactAndShowsMatchedNumber)
{
    ADDRBK_SEARCH_RESULT_S result;
    bool found = false;
    MSGCTR_ENG_AddrbkPeople people;
    people.setEmail(QStringLiteral("stale@x"));
    EXPECT_EQ(MSGCTR_ENG_Addrbk::searchPeople(&result, &found, &people, QStringLiteral("777")), 0);
    EXPECT_TRUE(found);
    EXPECT_EQ(m_book.searched, (QStringList{QStringLiteral("number:777"), QStringLiteral("contact:8/5")}));
    EXPECT_EQ(people.name(), QStringLiteral("Carol"));  // the search result's display name wins
    EXPECT_EQ(people.number(), QStringLiteral("777"));  // the matched one, not the record's first number
    EXPECT_EQ(people.email(), QStringLiteral("carol@home"));
    EXPECT_EQ(people.im(), QStringLiteral("carol#im"));
}

TEST_F(AddrbkTest, SearchIntoPeopleByEmailKeepsRecordNumber)
{
    ADDRBK_SEARCH_RESULT_S result;
    bool found = false;
    MSGCTR_ENG_AddrbkPeople people;
    EXPECT_EQ(MSGCTR_ENG_Addrbk::searchPeople(&result, &found, &people, QStringLiteral("carol@home")), 0);
    EXPECT_TRUE(found);
    EXPECT_EQ(people.number(), QStringLiteral("555"));
    EXPECT_EQ(people.email(), QStringLiteral("carol@home"));
}

TEST_F(AddrbkTest, SearchIntoPeopleWithoutMatchHoldsTheAddress)
{
    m_book.numberCode = ADDRBK_ENG_RESULT_NOT_FOUND;
    m_book.emailCode = ADDRBK_ENG_RESULT_NOT_FOUND;
    ADDRBK_SEARCH_RESULT_S result;
    bool found = true;
    MSGCTR_ENG_AddrbkPeople people;
    people.setEmail(QStringLiteral("stale@x"));
    EXPECT_EQ(MSGCTR_ENG_Addrbk::searchPeopleByNumber(&result, &found, &people, QStringLiteral("123")), 10096);
    EXPECT_FALSE(found);
    EXPECT_EQ(people.name(), QStringLiteral("123"));
    EXPECT_EQ(people.number(), QStringLiteral("123"));
    EXPECT_FALSE(people.hasEmail());

    EXPECT_EQ(MSGCTR_ENG_Addrbk::searchPeopleByEmail(&result, &found, &people, QStringLiteral("a@b")), 10096);
    EXPECT_EQ(people.name(), QStringLiteral("a@b"));
    EXPECT_FALSE(people.hasNumber());
    EXPECT_EQ(m_book.contactCalls, 0);
}

TEST_F(AddrbkTest, SearchIntoPeopleWhenContactFetchFails)
{
    m_book.contactCode = ADDRBK_ENG_RESULT_FAIL;
    ADDRBK_SEARCH_RESULT_S result;
    bool found = false;
    MSGCTR_ENG_AddrbkPeople people;
    EXPECT_EQ(MSGCTR_ENG_Addrbk::searchPeopleByNumber(&result, &found, &people, QStringLiteral("777")), 0);
    EXPECT_TRUE(found);
    EXPECT_EQ(people.name(), QStringLiteral("Carol"));
    EXPECT_EQ(people.number(), QStringLiteral("777"));
    EXPECT_FALSE(people.hasIM());
}

TEST_F(AddrbkTest, GetPeopleValueWithoutCallbackIsNotHandled)
{
    MSGCTR_ENG_Addrbk::setAddrbkCallback(byNumber, byEmail, nullptr);
    MSGCTR_ENG_AddrbkPeople people;
    people.setName(QStringLiteral("kept"));
    EXPECT_EQ(MSGCTR_ENG_Addrbk::getPeopleValue(&people, kCarolUid), ADDRBK_ENG_RESULT_NOT_HANDLED);
    EXPECT_EQ(people.name(), QStringLiteral("kept"));
}

TEST_F(AddrbkTest, GetPeopleValueIsCachedByUid)
{
    MSGCTR_ENG_Addrbk::beginCache();
    MSGCTR_ENG_AddrbkPeople people;
    EXPECT_EQ(MSGCTR_ENG_Addrbk::getPeopleValue(&people, kCarolUid), ADDRBK_ENG_RESULT_SUCCESS);
    MSGCTR_ENG_AddrbkPeople again;
    EXPECT_EQ(MSGCTR_ENG_Addrbk::getPeopleValue(&again, kCarolUid), ADDRBK_ENG_RESULT_SUCCESS);
    EXPECT_EQ(again.name(), QStringLiteral("Carol C."));
    EXPECT_EQ(m_book.contactCalls, 1);
    EXPECT_EQ(MSGCTR_ENG_Addrbk::cache()->contactMap().size(), 1);
    MSGCTR_ENG_Addrbk::endCache();
    EXPECT_TRUE(MSGCTR_ENG_Addrbk::cache()->contactMap().isEmpty());
}

TEST_F(HostRootTest, NullValuesAndTests)
{
    const ADDRBK_CONTACT_UID_S null = MSGCTR_ENG_Addrbk::nullContactUID();
    EXPECT_EQ(null.recordType, 8u);
    EXPECT_EQ(null.index, 0u);
    EXPECT_TRUE(MSGCTR_ENG_Addrbk::isNullContactUID(null));
    EXPECT_FALSE(MSGCTR_ENG_Addrbk::isValidContactUID(null));
    EXPECT_TRUE(MSGCTR_ENG_Addrbk::isNullContactUID(ADDRBK_CONTACT_UID_S{3, 0}));
    EXPECT_TRUE(MSGCTR_ENG_Addrbk::isValidContactUID(ADDRBK_CONTACT_UID_S{0, 1}));

    const ADDRBK_SEARCH_RESULT_S result = MSGCTR_ENG_Addrbk::nullSearchResult();
    EXPECT_TRUE(MSGCTR_ENG_Addrbk::isNullSearchResult(result));
    EXPECT_FALSE(MSGCTR_ENG_Addrbk::isValidSearchResult(result));
    EXPECT_EQ(MSGCTR_ENG_Addrbk::getContactUIDFromSearchResult(result), null);
    EXPECT_TRUE(result.displayName.isEmpty());
    EXPECT_TRUE(result.matchedNumber.isEmpty());
    EXPECT_EQ(result.matchedAttrType, 0);
    EXPECT_EQ(result.groupIndex, 0);
    EXPECT_EQ(result.flags, 0);
}

TEST_F(HostRootTest, ContactUidsAreOrdered)
{
    const ADDRBK_CONTACT_UID_S a{4, 9};
    const ADDRBK_CONTACT_UID_S b{8, 1};
    const ADDRBK_CONTACT_UID_S c{8, 2};
    EXPECT_TRUE(a < b);
    EXPECT_TRUE(b < c);
    EXPECT_FALSE(c < b);
    EXPECT_FALSE(b < b);
    EXPECT_NE(a, b);
}

TEST_F(HostRootTest, AddressTestsAreThoseOfTheTypeCheck)
{
    EXPECT_TRUE(MSGCTR_ENG_Addrbk::isNumberAddr(QStringLiteral("+1")));
    EXPECT_FALSE(MSGCTR_ENG_Addrbk::isNumberAddr(QStringLiteral("1-2")));
    EXPECT_TRUE(MSGCTR_ENG_Addrbk::isEmailAddr(QStringLiteral("x@y")));
    EXPECT_FALSE(MSGCTR_ENG_Addrbk::isEmailAddr(QStringLiteral("a@b@c")));
}

} // namespace
