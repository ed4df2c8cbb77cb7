#include "OrvikCore/CommandLineOptions.h"

#include <gtest/gtest.h>

namespace {

using OrvikCore::CommandLineOptions;

TEST(CommandLineOptions, UnknownOptionIsAnEmptyText)
{
    const CommandLineOptions options;

    EXPECT_EQ(options.Get(L"size"), L"");
}

TEST(CommandLineOptions, GivesTheValueThatWasSet)
{
    CommandLineOptions options;

    options.Set(L"size", L"800x600");

    EXPECT_EQ(options.Get(L"size"), L"800x600");
    EXPECT_EQ(options.Get(L"Size"), L"");
}

TEST(CommandLineOptions, SetOverwrites)
{
    CommandLineOptions options;
    options.Set(L"size", L"1x1");

    options.Set(L"size", L"2x2");

    EXPECT_EQ(options.Get(L"size"), L"2x2");
}

TEST(CommandLineOptions, CopiesAreIndependent)
{
    CommandLineOptions options;
    options.Set(L"size", L"1x1");

    CommandLineOptions copy = options;
    copy.Set(L"size", L"2x2");

    EXPECT_EQ(options.Get(L"size"), L"1x1");
}

} // namespace
