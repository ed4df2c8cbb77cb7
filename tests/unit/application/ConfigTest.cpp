#include "OrvikCore/Config.h"

#include "FakeConfigInitializer.h"
#include "VirtualSlot.h"

#include <gtest/gtest.h>

#include <type_traits>

namespace {

using Pairs = FakeConfigInitializer::Pairs;
using Texts = std::vector<std::wstring>;

OrvikCore::Config& config()
{
    return OrvikCore::Config::Instance();
}

static_assert(!std::has_virtual_destructor_v<OrvikCore::IConfigInitializer>);
static_assert(!std::is_copy_constructible_v<OrvikCore::Config>);

TEST(IConfigInitializer, ListsInTheThirdAndFillsInTheFourthSlot)
{
    EXPECT_EQ(VirtualSlot(&OrvikCore::IConfigInitializer::ListSections), 2);
    EXPECT_EQ(VirtualSlot(&OrvikCore::IConfigInitializer::FillSection), 3);
}

TEST(Config, StartsInvalidAndEmpty)
{
    Texts names{L"stale"};

    EXPECT_FALSE(config().IsValid());
    EXPECT_TRUE(config().GetSectionNames(names));
    EXPECT_TRUE(names.empty());
}

TEST(Config, InitializeMakesItValid)
{
    FakeConfigInitializer initializer({});

    EXPECT_TRUE(config().Initialize(initializer));

    EXPECT_TRUE(config().IsValid());
}

TEST(Config, ListsTheSectionsWithTwoZeros)
{
    FakeConfigInitializer initializer({});

    config().Initialize(initializer);

    EXPECT_EQ(initializer.m_reserved, (std::pair<int, int>{0, 0}));
}

TEST(Config, FillsTheSectionsInTheOrderGivenStartingEmpty)
{
    FakeConfigInitializer initializer({{L"Zeta", {}}, {L"Alpha", {}}});

    config().Initialize(initializer);

    EXPECT_EQ(initializer.m_asked, (Texts{L"Zeta", L"Alpha"}));
    EXPECT_TRUE(initializer.m_startedEmpty);
}

TEST(Config, GivesTheSectionNamesSorted)
{
    Configure({{L"Zeta", {}}, {L"Alpha", {}}, {L"beta", {}}});
    Texts names{L"stale"};

    EXPECT_TRUE(config().GetSectionNames(names));

    EXPECT_EQ(names, (Texts{L"Alpha", L"Zeta", L"beta"}));
}

TEST(Config, KeepsTheOrderOfThePairs)
{
    const Pairs pairs{{L"b", L"1"}, {L"a", L"2"}, {L"b", L"3"}};
    Configure({{L"Section", pairs}});
    Pairs found{{L"stale", L"stale"}};

    EXPECT_TRUE(config().GetSection(L"Section", found));

    EXPECT_EQ(found, pairs);
}

TEST(Config, UnknownSectionLeavesTheCallersPairsAlone)
{
    Configure({{L"Section", {}}});
    Pairs found{{L"mine", L"1"}};

    EXPECT_FALSE(config().GetSection(L"section", found));

    EXPECT_EQ(found, (Pairs{{L"mine", L"1"}}));
}

TEST(Config, SectionDeliveredTwiceKeepsTheLaterPairs)
{
    Configure({{L"Section", {{L"a", L"1"}}}, {L"Section", {{L"b", L"2"}}}});
    Pairs found;

    config().GetSection(L"Section", found);

    EXPECT_EQ(found, (Pairs{{L"b", L"2"}}));
}

TEST(Config, SecondInitializationAddsAndReplaces)
{
    Configure({{L"Kept", {{L"a", L"1"}}}, {L"Replaced", {{L"b", L"2"}}}});
    FakeConfigInitializer later({{L"Replaced", {{L"c", L"3"}}}, {L"Added", {}}});

    config().Initialize(later);

    Texts names;
    Pairs found;
    config().GetSectionNames(names);
    config().GetSection(L"Replaced", found);
    EXPECT_EQ(names, (Texts{L"Added", L"Kept", L"Replaced"}));
    EXPECT_EQ(found, (Pairs{{L"c", L"3"}}));
}

TEST(Config, GetValueReturnsFalseAlsoWhenValuesAreFound)
{
    Configure({{L"Section", {{L"key", L"1"}, {L"other", L"2"}, {L"key", L"3"}}}});
    Texts values;

    EXPECT_FALSE(config().GetValue(L"Section", L"key", values));

    EXPECT_EQ(values, (Texts{L"1", L"3"}));
}

TEST(Config, GetValueEmptiesTheCallersListFirst)
{
    Configure({{L"Section", {{L"key", L"1"}}}});
    Texts values{L"stale"};

    EXPECT_FALSE(config().GetValue(L"Nothing", L"key", values));

    EXPECT_TRUE(values.empty());
}

TEST(Config, GetValueComparesNamesExactly)
{
    Configure({{L"Section", {{L"key", L"1"}}}});
    Texts values;

    config().GetValue(L"Section", L"Key", values);
    EXPECT_TRUE(values.empty());
    config().GetValue(L"SECTION", L"key", values);
    EXPECT_TRUE(values.empty());
}

TEST(Config, TerminateEmptiesIt)
{
    Configure({{L"Section", {{L"key", L"1"}}}});

    config().Terminate();

    Texts names;
    config().GetSectionNames(names);
    EXPECT_TRUE(names.empty());
    EXPECT_FALSE(config().IsValid());
}

} // namespace
