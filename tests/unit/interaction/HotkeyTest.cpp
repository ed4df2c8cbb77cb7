#include "OrvikCore/Hotkey.h"

#include "OrvikCore/KeyEventArgs.h"

#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>
#include <string>

using OrvikCore::Hotkey;
using OrvikCore::KeyEventArgs;
using OrvikCore::ModifierKey;

namespace {

constexpr ModifierKey kNone = ModifierKey::None;
constexpr ModifierKey kAlt = ModifierKey::Alt;
constexpr ModifierKey kCtrl = ModifierKey::Ctrl;
constexpr ModifierKey kShift = ModifierKey::Shift;

/// @return the mask of a hotkey, rebuilt from its three questions.
int maskOf(const Hotkey& key)
{
    return (key.HasAltModifier() ? 1 : 0) + (key.HasCtrlModifier() ? 4 : 0) +
           (key.HasShiftModifier() ? 16 : 0);
}

/// @return the message of the exception that reading @p text throws.
std::string failureOf(const std::wstring& text)
{
    try {
        const Hotkey key(text);
    } catch (const std::invalid_argument& error) {
        return error.what();
    }
    return "nothing thrown";
}

struct TextRow
{
    const char* name;
    const wchar_t* text;
    char character; ///< 0 when there is none.
    int mask;
    int count;
    bool valid;
};

class HotkeyText : public ::testing::TestWithParam<TextRow>
{
};

struct FailingRow
{
    const char* name;
    const wchar_t* text;
    const char* message;
};

class UnreadableHotkeyText : public ::testing::TestWithParam<FailingRow>
{
};

} // namespace

TEST_P(HotkeyText, ReadsAs)
{
    const TextRow& row = GetParam();

    const Hotkey key{std::wstring(row.text)};

    EXPECT_EQ(key.Char(), static_cast<unsigned short>(row.character));
    EXPECT_EQ(maskOf(key), row.mask);
    EXPECT_EQ(key.ModifierKeysCount(), row.count);
    EXPECT_EQ(key.IsValid(), row.valid);
}

INSTANTIATE_TEST_SUITE_P(
    Texts, HotkeyText,
    ::testing::Values(TextRow{"TwoModifiers", L"Ctrl-Shift-a", 'A', 20, 2, true},
                      TextRow{"OneModifier", L"Alt-x", 'X', 1, 1, true},
                      TextRow{"ThreeModifiers", L"Ctrl-Shift-Alt-k", 'K', 21, 3, true},
                      TextRow{"CharacterAlone", L"a", 'A', 0, 0, false},
                      TextRow{"UnprintableCharacterAlone", L"\t", 0, 0, 0, false},
                      TextRow{"FunctionKeyReadsAsItsLetter", L"Ctrl-F5", 'F', 4, 1, true},
                      TextRow{"RepeatedModifierCountsOnce", L"Ctrl-Ctrl-a", 'A', 4, 1, true},
                      TextRow{"FourthModifierIsTheCharacter", L"Ctrl-Shift-Alt-Ctrl-a", 'C', 21, 3,
                              true},
                      TextRow{"NothingBehindTheSeparator", L"Ctrl-", 0, 4, 1, false},
                      TextRow{"UnprintableCharacter", L"Ctrl-\u0434", 0, 4, 1, false},
                      TextRow{"Digit", L"Shift-7", '7', 16, 1, true}),
    [](const auto& test) { return std::string(test.param.name); });

TEST_P(UnreadableHotkeyText, ThrowsWithTheText)
{
    EXPECT_EQ(failureOf(GetParam().text), GetParam().message);
}

INSTANTIATE_TEST_SUITE_P(
    Texts, UnreadableHotkeyText,
    ::testing::Values(FailingRow{"Empty", L"", "Invalid argument: "},
                      FailingRow{"TwoCharacters", L"-a", "Invalid argument: -a"},
                      FailingRow{"ThreeCharacters", L"A-b", "Invalid argument: A-b"},
                      FailingRow{"FourCharacters", L"Ctrl", "Invalid argument: Ctrl"},
                      FailingRow{"NoSeparator", L"Ctrl+A", "Invalid argument: Ctrl+A"},
                      FailingRow{"WrongCase", L"ctrl-a", "Invalid argument: ctrl"},
                      FailingRow{"UnknownSecondWord", L"Ctrl-Meta-a", "Invalid argument: Meta"},
                      FailingRow{"EmptyWord", L"Ctrl--", "Invalid argument: "},
                      FailingRow{"WideCharactersAreCut", L"\u0141bc-x", "Invalid argument: Abc"}),
    [](const auto& test) { return std::string(test.param.name); });

TEST(Hotkey, ValidatesPrintableCharactersOnly)
{
    EXPECT_EQ(Hotkey::ValidateChar('q'), 'Q');
    EXPECT_EQ(Hotkey::ValidateChar('Q'), 'Q');
    EXPECT_EQ(Hotkey::ValidateChar(32), 32);
    EXPECT_EQ(Hotkey::ValidateChar(126), 126);
    EXPECT_EQ(Hotkey::ValidateChar(31), 0);
    EXPECT_EQ(Hotkey::ValidateChar(127), 0);
    EXPECT_EQ(Hotkey::ValidateChar(0), 0);
    EXPECT_EQ(Hotkey::ValidateChar(-65), 0);
    EXPECT_EQ(Hotkey::ValidateChar(0xE4), 0);
    EXPECT_EQ(Hotkey::ValidateChar(300), 0);
}

TEST(Hotkey, CountsModifiersByPosition)
{
    EXPECT_EQ(Hotkey('a', kCtrl, kNone, kShift).ModifierKeysCount(), 1);
    EXPECT_EQ(maskOf(Hotkey('a', kCtrl, kNone, kShift)), 20);
    EXPECT_EQ(Hotkey('a', kNone, kCtrl, kShift).ModifierKeysCount(), 0);
    EXPECT_EQ(Hotkey('a', kCtrl, kAlt, kNone).ModifierKeysCount(), 2);
    EXPECT_EQ(Hotkey('a', kCtrl, kCtrl, kCtrl).ModifierKeysCount(), 3);
}

TEST(Hotkey, IsValidWithACountedModifierOnly)
{
    EXPECT_TRUE(Hotkey('a', kCtrl, kNone, kNone).IsValid());
    EXPECT_FALSE(Hotkey('a', kNone, kCtrl, kNone).IsValid());
    EXPECT_FALSE(Hotkey('a', kNone, kNone, kNone).IsValid());
}

TEST(Hotkey, WithoutCharacterTakesNoModifiers)
{
    const Hotkey key(7, kCtrl, kAlt, kShift);

    EXPECT_EQ(key.Char(), 0);
    EXPECT_EQ(maskOf(key), 0);
    EXPECT_EQ(key.ModifierKeysCount(), 0);
    EXPECT_FALSE(key.IsValid());
}

TEST(Hotkey, BecomesValidWithAModifier)
{
    Hotkey key('a', kNone, kNone, kNone);

    key.AddModifier(kShift);
    key.AddModifier(kShift);

    EXPECT_TRUE(key.IsValid());
    EXPECT_EQ(key.ModifierKeysCount(), 1);
}

TEST(Hotkey, WithoutCharacterStaysInvalidWithAModifier)
{
    Hotkey key(7, kNone, kNone, kNone);

    key.AddModifier(kShift);

    EXPECT_FALSE(key.IsValid());
    EXPECT_EQ(key.ModifierKeysCount(), 1);
}

TEST(Hotkey, IsEqualByCharacterAndMaskWhateverTheCount)
{
    const Hotkey byPosition('a', kCtrl, kNone, kShift);
    const Hotkey byText(L"Shift-Ctrl-A");

    EXPECT_TRUE(byPosition == byText);
    EXPECT_FALSE(byText == Hotkey(L"Ctrl-A"));
    EXPECT_FALSE(byText == Hotkey(L"Shift-Ctrl-B"));
}

TEST(Hotkey, IsMadeFromPressAndReleaseAlike)
{
    KeyEventArgs press('a', false, kCtrl);
    KeyEventArgs release('a', true, kCtrl);

    const std::unique_ptr<Hotkey> pressed(Hotkey::FromKeyEventArgs(&press));
    const std::unique_ptr<Hotkey> released(Hotkey::FromKeyEventArgs(&release));

    EXPECT_TRUE(pressed->IsValid());
    EXPECT_TRUE(released->IsValid());
    EXPECT_TRUE(*pressed == *released);
}

TEST(Hotkey, TakesMaskAndCountOfAnEvent)
{
    KeyEventArgs event('a', false, kCtrl);
    event.AddModifier(kAlt | kShift);

    const std::unique_ptr<Hotkey> key(Hotkey::FromKeyEventArgs(&event));

    EXPECT_EQ(maskOf(*key), 21);
    EXPECT_EQ(key->ModifierKeysCount(), 2);
}

TEST(Hotkey, OfAnEventWithoutModifierOrCharacterIsInvalid)
{
    KeyEventArgs plain('a', false, kNone);
    KeyEventArgs escape(0x01000000, false, kCtrl);

    const std::unique_ptr<Hotkey> withoutModifier(Hotkey::FromKeyEventArgs(&plain));
    const std::unique_ptr<Hotkey> withoutCharacter(Hotkey::FromKeyEventArgs(&escape));

    EXPECT_EQ(withoutModifier->Char(), 'A');
    EXPECT_FALSE(withoutModifier->IsValid());
    EXPECT_FALSE(withoutCharacter->IsValid());
    EXPECT_EQ(maskOf(*withoutCharacter), 0);
}

TEST(Hotkey, OfANullEventIsNull)
{
    EXPECT_EQ(Hotkey::FromKeyEventArgs(nullptr), nullptr);
}

TEST(Hotkey, ConvertsTextCharacterByCharacter)
{
    EXPECT_EQ(Hotkey::Wstr2str(L"a\u0142\u00FF"), "a\x42\xFF");
    EXPECT_EQ(Hotkey::Str2wstr("a\xFF"), L"a\u00FF");
}
