#include <TambCommandsInfra/NearestName.h>

#include <gtest/gtest.h>

using TambCommandsInfra::FindNearestName;

TEST(NearestName, FindsAnExchangeOfNeighbours)
{
    EXPECT_EQ(FindNearestName("view:sio", {"view:front", "view:iso"}), "view:iso");
}

TEST(NearestName, FindsAMissingAndAnExtraCharacter)
{
    EXPECT_EQ(FindNearestName("view:fron", {"view:iso", "view:front"}), "view:front");
    EXPECT_EQ(FindNearestName("view:frontt", {"view:iso", "view:front"}), "view:front");
}

TEST(NearestName, DoesNotCareAboutCase)
{
    EXPECT_EQ(FindNearestName("VIEW:ISO", {"view:iso"}), "view:iso");
}

TEST(NearestName, ExchangeCountsOnce)
{
    EXPECT_EQ(FindNearestName("abcd", {"badc"}), "badc");
    EXPECT_EQ(FindNearestName("abcd", {"dcba"}), "");
}

TEST(NearestName, FarNamesAreNone)
{
    EXPECT_EQ(FindNearestName("quit", {"view:iso", "doc:load"}), "");
}

TEST(NearestName, ShortNamesMayDifferInTwoPlaces)
{
    EXPECT_EQ(FindNearestName("ab", {"abcd"}), "abcd");
    EXPECT_EQ(FindNearestName("ab", {"abcde"}), "");
}

TEST(NearestName, LongNamesMayDifferInAThird)
{
    EXPECT_EQ(FindNearestName("abcdefghi", {"abcdefghi123"}), "abcdefghi123");
    EXPECT_EQ(FindNearestName("abcdefghi", {"abcdefghi1234"}), "");
}

TEST(NearestName, FirstInTheAlphabetWinsATie)
{
    EXPECT_EQ(FindNearestName("abcx", {"abcz", "abcy"}), "abcy");
}

TEST(NearestName, NearerNameWinsWhateverTheOrder)
{
    EXPECT_EQ(FindNearestName("view:left", {"view:lef", "view:left-side", "view:left"}),
              "view:left");
}

TEST(NearestName, NothingIsNearWhenThereIsNothing)
{
    EXPECT_EQ(FindNearestName("a", {}), "");
}
