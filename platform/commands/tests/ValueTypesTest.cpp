#include "TestSupport.h"

#include <TambCommandsInfra/Color24.h>
#include <TambCommandsInfra/Int8.h>
#include <TambCommandsInfra/Nullable.h>

#include <gtest/gtest.h>

#include <string>
#include <type_traits>

using TambCommandsInfra::Color24;
using TambCommandsInfra::Int8;
using TambCommandsInfra::Nullable;

TEST(Color24, IsBlackAtFirst)
{
    EXPECT_EQ(Color24(), (Color24{0, 0, 0}));
}

TEST(Color24, ComparesAllComponents)
{
    EXPECT_EQ((Color24{1, 2, 3}), (Color24{1, 2, 3}));
    EXPECT_NE((Color24{1, 2, 3}), (Color24{9, 2, 3}));
    EXPECT_NE((Color24{1, 2, 3}), (Color24{1, 9, 3}));
    EXPECT_NE((Color24{1, 2, 3}), (Color24{1, 2, 9}));
}

TEST(Int8, HoldsEightBitsWithoutSign)
{
    EXPECT_EQ(Int8().Value(), 0);
    EXPECT_EQ(Int8(255).Value(), 255);
    EXPECT_NE(Int8(1), Int8(2));
}

TEST(Int8, IsNotMadeFromANumberUnseen)
{
    EXPECT_FALSE((std::is_convertible_v<int, Int8>));
}

TEST(Nullable, HoldsNothingAtFirst)
{
    EXPECT_FALSE(Nullable<Int8>().HasValue());
}

TEST(Nullable, TakesAValueUnasked)
{
    const Nullable<Color24> color = Color24{1, 2, 3};

    ASSERT_TRUE(color.HasValue());
    EXPECT_EQ(color.Value(), (Color24{1, 2, 3}));
}

TEST(Nullable, ValueOfNothingThrows)
{
    const Nullable<std::wstring> nothing;

    EXPECT_EQ(ErrorOf([&] { nothing.Value(); }), "Nullable has no value.");
}

TEST(Nullable, ValueOrTakesTheFallbackOnlyForNothing)
{
    EXPECT_EQ(Nullable<int>().ValueOr(4), 4);
    EXPECT_EQ(Nullable<int>(3).ValueOr(4), 3);
}

TEST(Nullable, ResetDropsTheValue)
{
    Nullable<int> number = 3;

    number.Reset();

    EXPECT_FALSE(number.HasValue());
}

TEST(Nullable, NothingEqualsOnlyNothing)
{
    EXPECT_EQ(Nullable<int>(), Nullable<int>());
    EXPECT_NE(Nullable<int>(), Nullable<int>(0));
    EXPECT_EQ(Nullable<int>(2), Nullable<int>(2));
    EXPECT_NE(Nullable<int>(2), Nullable<int>(3));
}
