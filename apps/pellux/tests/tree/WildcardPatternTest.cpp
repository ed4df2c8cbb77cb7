#include <gtest/gtest.h>
#include <tree/WildcardPattern.h>

namespace {

bool matches(const char* pattern, const char* name)
{
    return Pellux::WildcardPattern(QString::fromUtf8(pattern)).Matches(QString::fromUtf8(name));
}

TEST(WildcardPattern, WithoutWildcardsIsFoundAnywhere)
{
    EXPECT_TRUE(matches("olt", "Bolt M8"));
    EXPECT_TRUE(matches(" bolt ", "a bolt"));
    EXPECT_FALSE(matches("nut", "Bolt M8"));
}

TEST(WildcardPattern, StarStandsForAnyText)
{
    EXPECT_TRUE(matches("bolt*", "Bolt M8"));
    EXPECT_TRUE(matches("*m8", "Bolt M8"));
    EXPECT_TRUE(matches("b*m*8", "Bolt M8"));
    EXPECT_TRUE(matches("*", ""));
    EXPECT_FALSE(matches("bolt*", "a bolt"));
    EXPECT_FALSE(matches("b*m9", "Bolt M8"));
}

TEST(WildcardPattern, QuestionMarkStandsForOneCharacter)
{
    EXPECT_TRUE(matches("face ?", "face 7"));
    EXPECT_FALSE(matches("face ?", "face 17"));
    EXPECT_FALSE(matches("face ?", "face "));
}

TEST(WildcardPattern, DoesNotTellUpperFromLowerCase)
{
    EXPECT_TRUE(matches("\xC3\x84hre", "\xC3\xA4HRE"));
}

TEST(WildcardPattern, TakesBracketsAsTheyAre)
{
    EXPECT_TRUE(matches("[a]*", "[a] b"));
    EXPECT_FALSE(matches("[a]*", "a b"));
}

/// Stars that each try every place would take for ever here.
TEST(WildcardPattern, OfManyStarsIsTriedInReasonableTime)
{
    const QString name(2000, QLatin1Char('a'));
    EXPECT_FALSE(Pellux::WildcardPattern(QStringLiteral("a*a*a*a*a*a*a*a*a*b")).Matches(name));
}

} // namespace
