#include "OrvikCore/KeyEventArgs.h"
#include "OrvikCore/MouseButtonEventArgs.h"
#include "OrvikCore/MouseClickEventArgs.h"
#include "OrvikCore/MouseEventArgs.h"
#include "OrvikCore/MouseWheelEventArgs.h"

#include <gtest/gtest.h>

#include <type_traits>

using OrvikCore::KeyEventArgs;
using OrvikCore::ModifierKey;
using OrvikCore::MouseAction;
using OrvikCore::MouseButton;

namespace {

int typeOf(OrvikCore::AEventArgs& event)
{
    return static_cast<int>(event.Type());
}

KeyEventArgs keyWith(int modifiers)
{
    return KeyEventArgs(0x41, false, static_cast<ModifierKey>(modifiers));
}

} // namespace

TEST(MouseEventArgs, KeepsItsFields)
{
    OrvikCore::MouseEventArgs event(MouseAction::Moved, 7, -8, MouseButton::Zoom, ModifierKey::Alt);

    EXPECT_EQ(typeOf(event), 0);
    EXPECT_EQ(event.X(), 7);
    EXPECT_EQ(event.Y(), -8);
    EXPECT_EQ(static_cast<int>(event.GetMouseAction()), 2);
    EXPECT_EQ(static_cast<int>(event.GetMouseButtons()), 4);
    EXPECT_EQ(static_cast<int>(event.ModifierKeys()), 1);
}

TEST(MouseButtonEventArgs, KeepsItsFields)
{
    OrvikCore::MouseButtonEventArgs event(MouseButton::Selection, true, 7, -8, ModifierKey::Shift);

    EXPECT_EQ(typeOf(event), 1);
    EXPECT_EQ(event.X(), 7);
    EXPECT_EQ(event.Y(), -8);
    EXPECT_EQ(static_cast<int>(event.GetMouseButtons()), 1);
    EXPECT_TRUE(event.IsPressed());
    EXPECT_EQ(static_cast<int>(event.ModifierKeys()), 16);
}

TEST(MouseClickEventArgs, KeepsItsFields)
{
    OrvikCore::MouseClickEventArgs event(MouseButton::Selection, 2, 7, -8, ModifierKey::Ctrl);

    EXPECT_EQ(typeOf(event), 2);
    EXPECT_EQ(event.X(), 7);
    EXPECT_EQ(event.Y(), -8);
    EXPECT_EQ(static_cast<int>(event.GetMouseButton()), 1);
    EXPECT_EQ(event.Clicks(), 2);
    EXPECT_EQ(static_cast<int>(event.ModifierKeys()), 4);
}

TEST(MouseWheelEventArgs, KeepsItsFields)
{
    OrvikCore::MouseWheelEventArgs event(-3, 7, -8);

    EXPECT_EQ(typeOf(event), 3);
    EXPECT_EQ(event.X(), 7);
    EXPECT_EQ(event.Y(), -8);
    EXPECT_EQ(event.Delta(), -3);
}

TEST(KeyEventArgs, KeepsItsFields)
{
    KeyEventArgs event(0x01000000, true, ModifierKey::None);

    EXPECT_EQ(typeOf(event), 4);
    EXPECT_EQ(event.Key(), 0x01000000);
    EXPECT_TRUE(event.IsKeyUp());
    EXPECT_EQ(event.ModifierKeysCount(), 0);
    EXPECT_EQ(static_cast<int>(event.ModifierKeys()), 0);
}

TEST(KeyEventArgs, DropsUnknownModifierBits)
{
    const KeyEventArgs event = keyWith(0x3F);

    EXPECT_EQ(static_cast<int>(event.ModifierKeys()), 21);
    EXPECT_EQ(event.ModifierKeysCount(), 3);
}

TEST(KeyEventArgs, AddsEachModifierOnce)
{
    KeyEventArgs event = keyWith(4);

    event.AddModifier(ModifierKey::None);
    event.AddModifier(ModifierKey::Ctrl);
    event.AddModifier(ModifierKey::Ctrl | ModifierKey::Alt);

    EXPECT_EQ(static_cast<int>(event.ModifierKeys()), 4);
    EXPECT_EQ(event.ModifierKeysCount(), 1);
}

TEST(KeyEventArgs, CountsACombinedModifierOnce)
{
    KeyEventArgs event = keyWith(4);

    event.AddModifier(ModifierKey::Alt | ModifierKey::Shift);

    EXPECT_EQ(static_cast<int>(event.ModifierKeys()), 21);
    EXPECT_EQ(event.ModifierKeysCount(), 2);
}

TEST(KeyEventArgs, TellsWhichModifiersAreHeld)
{
    const KeyEventArgs event = keyWith(5);

    EXPECT_TRUE(event.HasAltModifier());
    EXPECT_TRUE(event.HasCtrlModifier());
    EXPECT_FALSE(event.HasShiftModifier());
    EXPECT_TRUE(keyWith(16).HasShiftModifier());
}

TEST(KeyEventArgs, TellsASingleModifierFromSeveral)
{
    EXPECT_TRUE(keyWith(1).HasAltModifierOnly());
    EXPECT_TRUE(keyWith(4).HasCtrlModifierOnly());
    EXPECT_TRUE(keyWith(16).HasShiftModifierOnly());
    EXPECT_FALSE(keyWith(5).HasAltModifierOnly());
    EXPECT_FALSE(keyWith(5).HasCtrlModifierOnly());
    EXPECT_FALSE(keyWith(17).HasShiftModifierOnly());
}

TEST(KeyEventArgs, PrintableKeysAreSpecial)
{
    EXPECT_FALSE(KeyEventArgs(0x1F, false, ModifierKey::None).IsSpecialKey());
    EXPECT_TRUE(KeyEventArgs(0x20, false, ModifierKey::None).IsSpecialKey());
    EXPECT_TRUE(KeyEventArgs(0x7E, false, ModifierKey::None).IsSpecialKey());
    EXPECT_FALSE(KeyEventArgs(0x7F, false, ModifierKey::None).IsSpecialKey());
    EXPECT_FALSE(KeyEventArgs(0x01000000, false, ModifierKey::None).IsSpecialKey());
}

TEST(KeyEventArgs, PrintsKeyStateAndModifiers)
{
    EXPECT_EQ(keyWith(0x3F).ToString(), "key = 0x41 up = 0 modifiers = Ctrl Alt Shift");
    EXPECT_EQ(keyWith(5).ToString(), "key = 0x41 up = 0 modifiers = Ctrl Alt ");
    EXPECT_EQ(KeyEventArgs(0x01000023, true, ModifierKey::None).ToString(),
              "key = 0x1000023 up = 1 modifiers = ");
}

TEST(EventArgs, AreValuesWithoutVirtualDestructors)
{
    EXPECT_TRUE(std::is_copy_assignable_v<KeyEventArgs>);
    EXPECT_TRUE(std::is_copy_constructible_v<OrvikCore::MouseEventArgs>);
    EXPECT_TRUE(std::is_copy_assignable_v<OrvikCore::MouseButtonEventArgs>);
    EXPECT_TRUE(std::is_copy_assignable_v<OrvikCore::MouseClickEventArgs>);
    EXPECT_TRUE(std::is_copy_assignable_v<OrvikCore::MouseWheelEventArgs>);
    EXPECT_FALSE(std::has_virtual_destructor_v<KeyEventArgs>);
    EXPECT_FALSE(std::has_virtual_destructor_v<OrvikCore::MouseEventArgs>);
}

TEST(ModifierKey, HasTheNumbersOfTheHost)
{
    EXPECT_EQ(static_cast<int>(ModifierKey::None), 0);
    EXPECT_EQ(static_cast<int>(ModifierKey::Alt), 1);
    EXPECT_EQ(static_cast<int>(ModifierKey::Ctrl), 4);
    EXPECT_EQ(static_cast<int>(ModifierKey::Shift), 16);
    EXPECT_EQ(sizeof(ModifierKey), 4u);
}
