#include "CommandFixture.h"

namespace {

using Value = TambCommandsInfra::Value;

using InputCommands = CommandFixture;

TEST_F(InputCommands, NeedAHostThatTakesInput)
{
    EXPECT_EQ(errorOf("input:click", {Value(1), Value(2)}),
              "This program takes no input from scripts.");
    EXPECT_EQ(errorOf("app:navigation"), "This program takes no input from scripts.");
}

TEST_F(InputCommands, RefuseGesturesThatCannotBeRead)
{
    EXPECT_EQ(errorOf("input:click", {Value(1), Value(2), Value(L"Shift")}),
              "input:click: parameter \"gesture\": expected buttons and modifier keys such as "
              "\"Ctrl-Shift-left+middle\", got the string \"Shift\".");
    EXPECT_EQ(errorOf("input:click", {Value(1), Value(2), Value(L"left+right")}),
              "input:click: parameter \"gesture\": expected one button, got the string "
              "\"left+right\".");
    EXPECT_EQ(errorOf("input:mouse", {Value(L"jump"), Value(1), Value(2)}),
              "input:mouse: parameter \"state\": expected move, press, release or leave, got the "
              "string \"jump\".");
}

TEST_F(InputCommands, RefuseKeysThatCannotBeRead)
{
    for (const wchar_t* const key : {L"", L"F5", L"ctrl-f", L"Ctrl-", L"-f", L"left-f", L"\t"})
        EXPECT_NE(errorOf("input:key", {Value(key)}).find("expected a character, Escape"),
                  std::string::npos)
            << Value(key).AsUtf8();
    for (const wchar_t* const key : {L"f", L"-", L"Ctrl--", L"Ctrl-Shift-f", L"Alt-Escape"})
        EXPECT_EQ(errorOf("input:key", {Value(key)}), "This program takes no input from scripts.")
            << Value(key).AsUtf8();
}

} // namespace
