#include "../ConfigurationFile.h"

#include "ScopedTempDir.h"

#include <gtest/gtest.h>

namespace {

using Pellux::ConfigurationFile;
using Pairs = std::vector<std::pair<std::wstring, std::wstring>>;

class Configuration : public testing::Test
{
protected:
    /// @return whether the text was taken as a configuration file.
    bool add(const std::string& text, const std::string& name = "a.toml")
    {
        return m_configuration.AddFile(m_folder.Write(name, text), /*mustExist=*/true);
    }
    Pairs section(const std::wstring& name)
    {
        Pairs pairs;
        m_configuration.FillSection(name, &pairs);
        return pairs;
    }
    /// @return the error without the folder.
    std::wstring error()
    {
        const std::wstring text = m_configuration.GetErrorText();
        const std::wstring folder = m_folder.WidePath() + L"/";
        return text.starts_with(folder) ? text.substr(folder.size()) : text;
    }

    ScopedTempDir m_folder;
    ConfigurationFile m_configuration;
};

TEST_F(Configuration, TheDefaultEngineIsScheme)
{
    EXPECT_EQ(section(L"ScriptEngine"), (Pairs{{L"File", L"OrvikSchemeEngine.dll"}}));
    EXPECT_EQ(m_configuration.GetSourceName(), L"defaults");
    EXPECT_EQ(m_configuration.GetErrorText(), L"");
}

TEST_F(Configuration, TablesAreSections)
{
    EXPECT_TRUE(add("[View3D]\nFile = \"V.dll\"\nName = \"V\"\n"));

    EXPECT_EQ(section(L"View3D"), (Pairs{{L"File", L"V.dll"}, {L"Name", L"V"}}));
    std::vector<std::wstring> names;
    m_configuration.ListSections(names, 0, 0);
    EXPECT_EQ(names, (std::vector<std::wstring>{L"ScriptEngine", L"View3D"}));
}

TEST_F(Configuration, NumbersAndBooleansBecomeTexts)
{
    EXPECT_TRUE(add("[A]\na = 12\nb = true\nc = false\nd = 0.5\n"));

    EXPECT_EQ(section(L"A"),
              (Pairs{{L"a", L"12"}, {L"b", L"true"}, {L"c", L"false"}, {L"d", L"0.5"}}));
}

TEST_F(Configuration, AnArrayIsOnePairForEachElement)
{
    EXPECT_TRUE(add("[A]\nk = [\"one\", 2, true]\n"));

    EXPECT_EQ(section(L"A"), (Pairs{{L"k", L"one"}, {L"k", L"2"}, {L"k", L"true"}}));
}

TEST_F(Configuration, AnEmptyArrayTakesAllValuesAway)
{
    EXPECT_TRUE(add("[A]\nk = [1, 2]\nother = 3\n"));
    EXPECT_TRUE(add("[A]\nk = []\n", "b.toml"));

    EXPECT_EQ(section(L"A"), (Pairs{{L"other", L"3"}}));
}

TEST_F(Configuration, ALaterFileReplacesAllValuesOfAKeyAndKeepsTheOthers)
{
    EXPECT_TRUE(add("[A]\nk = [1, 2]\nother = 3\n[ScriptEngine]\nFile = \"Mine.dll\"\n"));
    EXPECT_TRUE(add("[A]\nk = 9\n", "b.toml"));

    EXPECT_EQ(section(L"A"), (Pairs{{L"other", L"3"}, {L"k", L"9"}}));
    EXPECT_EQ(section(L"ScriptEngine"), (Pairs{{L"File", L"Mine.dll"}}));
}

TEST_F(Configuration, TextsAreUtf8)
{
    EXPECT_TRUE(add("[A]\nk = \"gr\xC3\xBCn\"\n"));

    EXPECT_EQ(section(L"A"), (Pairs{{L"k", L"gr\u00FCn"}}));
}

TEST_F(Configuration, AnOptionalFileMayBeMissing)
{
    EXPECT_TRUE(m_configuration.AddFile(m_folder.WidePath(L"absent.toml"), /*mustExist=*/false));
    EXPECT_EQ(m_configuration.GetErrorText(), L"");
}

TEST_F(Configuration, ARequiredFileMayNot)
{
    EXPECT_FALSE(m_configuration.AddFile(m_folder.WidePath(L"absent.toml"), /*mustExist=*/true));
    EXPECT_EQ(error(), L"absent.toml: cannot be read");
}

TEST_F(Configuration, AFolderIsNoFile)
{
    EXPECT_FALSE(m_configuration.AddFile(m_folder.WidePath(), /*mustExist=*/true));
    EXPECT_EQ(m_configuration.GetErrorText(), m_folder.WidePath() + L": cannot be read");
}

TEST_F(Configuration, AKeyOutsideASectionIsAnErrorAtItsPlace)
{
    EXPECT_FALSE(add("# head\n  File = \"x\"\n"));

    EXPECT_EQ(error(), L"a.toml:2:10: 'File' stands outside a section; sections begin with [Name]");
}

TEST_F(Configuration, ATableInASectionIsAnErrorAtItsPlace)
{
    EXPECT_FALSE(add("[A]\nk = { x = 1 }\n"));

    EXPECT_EQ(error(), L"a.toml:2:5: the value of 'k' must be a string, a number or true or false");
}

TEST_F(Configuration, ADateIsAnErrorAtItsPlace)
{
    EXPECT_FALSE(add("[A]\nk = [1, 2020-01-01]\n"));

    EXPECT_EQ(error(), L"a.toml:2:9: the value of 'k' must be a string, a number or true or false");
}

TEST_F(Configuration, AMistakeInTheFormNamesLineAndColumn)
{
    EXPECT_FALSE(add("[A]\nk = \n"));

    EXPECT_TRUE(error().starts_with(L"a.toml:2:5: "))
        << std::string(error().begin(), error().end());
}

TEST_F(Configuration, BytesThatAreNoUtf8AreAMistake)
{
    EXPECT_FALSE(add("[A]\nk = \"\x80\"\n"));

    EXPECT_TRUE(error().starts_with(L"a.toml:2:")) << std::string(error().begin(), error().end());
}

TEST_F(Configuration, NothingOfAWrongFileIsTaken)
{
    EXPECT_FALSE(add("[A]\nk = 1\n[B]\nk = { x = 1 }\n"));

    EXPECT_EQ(section(L"A"), Pairs{});
    EXPECT_EQ(m_configuration.GetSourceName(), L"defaults");
}

TEST_F(Configuration, ErrorsOfSeveralFilesAreKeptLineByLine)
{
    EXPECT_FALSE(add("x = 1\n"));
    EXPECT_FALSE(add("y = 1\n", "b.toml"));

    const std::wstring text = m_configuration.GetErrorText();
    EXPECT_NE(text.find(L"a.toml:1:5: 'x' stands outside"), std::wstring::npos);
    EXPECT_NE(text.find(L"\n" + m_folder.WidePath(L"b.toml") + L":1:5: 'y'"), std::wstring::npos);
}

} // namespace
