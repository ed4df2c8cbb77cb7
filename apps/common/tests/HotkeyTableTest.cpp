#include "../HotkeyTable.h"

#include "../ConfigurationFile.h"
#include "ScopedTempDir.h"

#include <OrvikCore/KeyEventArgs.h>

#include <gtest/gtest.h>

namespace {

using OrvikCore::KeyEventArgs;
using OrvikCore::ModifierKey;

class Hotkeys : public testing::Test
{
protected:
    /// @return the errors without the folder; empty when the text was taken.
    std::wstring read(const std::string& text, const std::string& name = "k.toml")
    {
        EXPECT_TRUE(m_configuration.AddFile(m_folder.Write(name, text), /*mustExist=*/true));
        std::wstring error;
        const bool good = m_table.Read(m_configuration, error);
        EXPECT_EQ(good, error.empty());
        const std::wstring folder = m_folder.WidePath() + L"/";
        return error.starts_with(folder) ? error.substr(folder.size()) : error;
    }
    std::wstring scriptOf(int key, ModifierKey modifiers, bool isUp = false) const
    {
        KeyEventArgs event(key, isUp, modifiers);
        const auto* const entry = m_table.Find(event);
        return entry == nullptr ? L"none" : entry->script;
    }

    ScopedTempDir m_folder;
    Pellux::ConfigurationFile m_configuration;
    Pellux::HotkeyTable m_table;
};

TEST_F(Hotkeys, AreFoundByCharacterAndModifiers)
{
    EXPECT_EQ(read("[hotkeys]\n\"Ctrl-f\" = \"(view:zoom-all)\"\n\"Shift-Ctrl-7\" = \"7\"\n"), L"");

    EXPECT_EQ(scriptOf('F', ModifierKey::Ctrl), L"(view:zoom-all)");
    EXPECT_EQ(scriptOf('f', ModifierKey::Ctrl, true), L"(view:zoom-all)");
    EXPECT_EQ(scriptOf('7', ModifierKey::Ctrl | ModifierKey::Shift), L"7");
    EXPECT_EQ(scriptOf('F', ModifierKey::Alt), L"none");
    EXPECT_EQ(scriptOf('F', ModifierKey::None), L"none");
}

TEST_F(Hotkeys, RunSeveralCommandsOneAfterTheOther)
{
    read("[hotkeys]\n\"Alt-x\" = [\"(a)\", \"(b)\"]\n");

    EXPECT_EQ(scriptOf('X', ModifierKey::Alt), L"(a)\n(b)");
}

TEST_F(Hotkeys, AreTakenAwayByAnEmptyTextInALaterFile)
{
    read("[hotkeys]\n\"Alt-x\" = \"(a)\"\n", "a.toml");
    read("[hotkeys]\n\"Alt-x\" = \"\"\n", "b.toml");

    EXPECT_EQ(scriptOf('X', ModifierKey::Alt), L"none");
}

TEST_F(Hotkeys, ErrorsNameTheLine)
{
    EXPECT_EQ(read("[hotkeys]\n\n\"ctrl-a\" = \"(a)\"\n"), L"k.toml:3:12: Invalid argument: ctrl");
}

TEST_F(Hotkeys, NeedAModifierAndOneCharacter)
{
    const wchar_t reason[] = L" is no shortcut: it needs Ctrl, Shift or Alt, a '-' behind each of "
                             L"them, and one character";
    EXPECT_EQ(read("[hotkeys]\na = \"(a)\"\n", "a.toml"),
              std::wstring(L"a.toml:2:5: \"a\"") + reason);
    m_configuration = {};
    EXPECT_EQ(read("[hotkeys]\n\"Ctrl-F5\" = \"(a)\"\n", "b.toml"),
              std::wstring(L"b.toml:2:13: \"Ctrl-F5\"") + reason);
}

TEST_F(Hotkeys, BoundTwiceAreAnError)
{
    EXPECT_EQ(read("[hotkeys]\n\"Ctrl-F\" = \"(a)\"\n\"Ctrl-f\" = \"(b)\"\n"),
              L"k.toml:3:12: \"Ctrl-f\" is the same shortcut as \"Ctrl-F\"");
    m_configuration = {};
    EXPECT_EQ(read("[hotkeys]\n\"Ctrl-f\" = \"(a)\"\n\"Ctrl-F\" = \"(b)\"\n", "b.toml"),
              L"b.toml:3:12: \"Ctrl-F\" is the same shortcut as \"Ctrl-f\"");
}

} // namespace
