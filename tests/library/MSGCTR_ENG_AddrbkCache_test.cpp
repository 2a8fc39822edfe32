#include "HostRootTest.h"

#include "MSGCTR_ENG_AddrbkCache.h"

namespace {

TEST_F(HostRootTest, StartsDisabledAndEmpty)
{
    MSGCTR_ENG_AddrbkCache cache;
    EXPECT_FALSE(cache.cacheIsEnabled());
    EXPECT_TRUE(cache.numberMap().isEmpty());
    EXPECT_TRUE(cache.emailMap().isEmpty());
    EXPECT_TRUE(cache.contactMap().isEmpty());
    cache.enableCache(true);
    EXPECT_TRUE(cache.cacheIsEnabled());
    cache.enableCache(false);
    EXPECT_FALSE(cache.cacheIsEnabled());
}

TEST_F(HostRootTest, ClearEmptiesAllThreeMapsAndKeepsTheFlag)
{
    MSGCTR_ENG_AddrbkCache cache;
    cache.enableCache(true);
    cache.numberMap().insert(QStringLiteral("1"), MSGCTR_ENG_AddrbkCacheSearchResult());
    cache.emailMap().insert(QStringLiteral("a@b"), MSGCTR_ENG_AddrbkCacheSearchResult());
    cache.contactMap().insert(ADDRBK_CONTACT_UID_S{8, 1}, MSGCTR_ENG_AddrbkCacheContact());
    cache.clear();
    EXPECT_TRUE(cache.numberMap().isEmpty());
    EXPECT_TRUE(cache.emailMap().isEmpty());
    EXPECT_TRUE(cache.contactMap().isEmpty());
    EXPECT_TRUE(cache.cacheIsEnabled());
}

TEST_F(HostRootTest, CachedSearchResultIsACopy)
{
    ADDRBK_SEARCH_RESULT_S result = ADDRBK_SEARCH_RESULT_S::null();
    result.displayName = QStringLiteral("Gus");
    MSGCTR_ENG_AddrbkCacheSearchResult cached(ADDRBK_ENG_RESULT_NOT_FOUND, result);
    result.displayName = QStringLiteral("changed");
    MSGCTR_ENG_AddrbkCacheSearchResult other;
    EXPECT_EQ(other.result, ADDRBK_ENG_RESULT_NOT_HANDLED);
    other = cached;
    EXPECT_EQ(other.result, ADDRBK_ENG_RESULT_NOT_FOUND);
    EXPECT_EQ(other.searchResult.displayName, QStringLiteral("Gus"));
}

} // namespace
