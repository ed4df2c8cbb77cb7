#include "OrvikCore/MouseGesture.h"

#include <gtest/gtest.h>

using OrvikCore::ModifierKey;
using OrvikCore::MouseButton;
using OrvikCore::MouseGesture;

namespace {

MouseGesture read(const std::wstring& text)
{
    MouseGesture gesture;
    EXPECT_TRUE(MouseGesture::FromText(text, gesture));
    return gesture;
}

} // namespace

TEST(MouseGesture, IsReadFromModifiersAndButtons)
{
    EXPECT_EQ(read(L""), MouseGesture());
    EXPECT_EQ(read(L"left"), (MouseGesture{ModifierKey::None, MouseButton::Selection}));
    EXPECT_EQ(read(L"Shift"), (MouseGesture{ModifierKey::Shift, MouseButton::None}));
    EXPECT_EQ(read(L"Alt-right"), (MouseGesture{ModifierKey::Alt, MouseButton::Menu}));
    EXPECT_EQ(read(L"Shift-Ctrl-middle+left"),
              (MouseGesture{ModifierKey::Ctrl | ModifierKey::Shift,
                            MouseButton::Selection | MouseButton::Zoom}));
}

TEST(MouseGesture, OtherTextsAreRefusedAndChangeNothing)
{
    for (const wchar_t* const text :
         {L"Left", L"ctrl-left", L"Ctrl-", L"-left", L"left+", L"left+left", L"Ctrl-Ctrl-left",
          L"left-Ctrl", L"Ctrl+left", L"left middle", L"+", L"-"}) {
        MouseGesture gesture{ModifierKey::Alt, MouseButton::Menu};
        EXPECT_FALSE(MouseGesture::FromText(text, gesture)) << std::wstring(text).size();
        EXPECT_EQ(gesture, (MouseGesture{ModifierKey::Alt, MouseButton::Menu}));
    }
}

TEST(MouseGesture, TextIsInOneOrder)
{
    EXPECT_EQ(read(L"Alt-Shift-Ctrl-right+left").ToText(), L"Ctrl-Shift-Alt-left+right");
    EXPECT_EQ(read(L"Shift").ToText(), L"Shift");
    EXPECT_EQ(MouseGesture().ToText(), L"");
}
