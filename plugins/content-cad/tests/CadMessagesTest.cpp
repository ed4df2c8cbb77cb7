#include "interface/CadMessages.h"

#include <gtest/gtest.h>

namespace OrvikCad {
namespace {

TEST(CadMessages, NameFileAndPlace)
{
    CadMessages messages(L"a.step");

    messages.FailAtLine(7, L"no number");
    messages.WarnAtEntity(12, L"unknown");

    EXPECT_EQ(messages.Error(), L"a.step: line 7: no number");
    EXPECT_EQ(messages.Warnings().at(0), L"a.step: #12: unknown");
}

TEST(CadMessages, KeepTheFirstError)
{
    CadMessages messages(L"a");

    messages.Fail(L"first");
    messages.Fail(L"second");

    EXPECT_EQ(messages.Error(), L"a: first");
}

TEST(CadMessages, TellTheSameOnceAndCountWhatIsTooMuch)
{
    CadMessages messages(L"a");

    for (int i = 0; i < 60; ++i)
        messages.Warn(std::to_wstring(i));
    messages.Warn(L"0");

    ASSERT_EQ(messages.Warnings().size(), CadMessages::kMaxWarnings + 1);
    EXPECT_EQ(messages.Warnings().back(), L"a: further warnings: 10");
}

TEST(FillText, PutsValuesInAndLeavesOtherPercentSigns)
{
    EXPECT_EQ(FillText(L"%2 of %1, 5 % and %9", {L"a", L"b"}), L"b of a, 5 % and %9");
}

} // namespace
} // namespace OrvikCad
