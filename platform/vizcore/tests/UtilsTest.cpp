#include <OrvikOs/ExecutablePath.h>
#include <TambVizCore/Utils.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

namespace TambVizCore {
namespace {

/// A folder of the test's own, removed at its end.
struct UtilsFiles : ::testing::Test
{
    UtilsFiles()
    {
        const auto* const info = ::testing::UnitTest::GetInstance()->current_test_info();
        folder = std::filesystem::path(::testing::TempDir()) /
                 (std::string("vizcore-utils-") + info->name());
        std::filesystem::remove_all(folder);
        std::filesystem::create_directories(folder);
    }

    ~UtilsFiles() override { std::filesystem::remove_all(folder); }

    /// Writes a file and gives its wide name.
    std::wstring write(const std::string& name, const std::string& bytes) const
    {
        const std::filesystem::path file = folder / name;
        std::ofstream(file, std::ios::binary) << bytes;
        return Utils::StringToWstring(file.string());
    }

    std::filesystem::path folder;
};

TEST(Utils, GetExePathIsTheFolderOfTheProgram)
{
    OrvikOs::SetExecutablePath(L"/opt/pellux/bin/program");

    EXPECT_EQ(Utils::GetExePath(), L"/opt/pellux/bin");

    OrvikOs::SetExecutablePath(L"");
}

TEST_F(UtilsFiles, FilesAndFoldersExist)
{
    EXPECT_TRUE(Utils::FileExists(write("a.txt", "")));
    EXPECT_TRUE(Utils::FileExists(Utils::StringToWstring(folder.string())));
    EXPECT_FALSE(Utils::FileExists(Utils::StringToWstring((folder / "none").string())));
    EXPECT_FALSE(Utils::FileExists(L""));
}

TEST_F(UtilsFiles, FileNamesOfAnyScriptAreFound)
{
    // a with diaeresis, blank, a grinning face.
    EXPECT_TRUE(Utils::FileExists(write("\xC3\xA4 \xF0\x9F\x98\x80.scm", "x")));
}

TEST_F(UtilsFiles, FileNamesThatAreNoUtf8AreFoundAndRead)
{
    const std::wstring file = write("bad\xFF\xFEname.scm", "text");

    EXPECT_TRUE(Utils::FileExists(file));
    EXPECT_EQ(Utils::GetFileContents(file), L"text");
    EXPECT_EQ(Utils::WstringToString(Utils::GetFileNameOnly(file)), "bad\xFF\xFEname.scm");
}

TEST_F(UtilsFiles, Utf8FilesAreReadWhole)
{
    const std::wstring file = write("a.scm", "(display \"\xC3\xA4\")\r\nx\n");

    EXPECT_EQ(Utils::GetFileContents(file), L"(display \"\u00E4\")\r\nx\n");
}

TEST_F(UtilsFiles, AnUtf8MarkIsDropped)
{
    EXPECT_EQ(Utils::GetFileContents(write("a.scm", "\xEF\xBB\xBFhi")), L"hi");
}

TEST_F(UtilsFiles, LittleEndianUtf16IsRead)
{
    const std::string bytes("\xFF\xFE\xE4\x00\x3D\xD8\x00\xDE", 8);

    EXPECT_EQ(Utils::GetFileContents(write("a.scm", bytes)), L"\u00E4\U0001F600");
}

TEST_F(UtilsFiles, BigEndianUtf16IsRead)
{
    const std::string bytes("\xFE\xFF\x00\xE4\xD8\x3D\xDE\x00", 8);

    EXPECT_EQ(Utils::GetFileContents(write("a.scm", bytes)), L"\u00E4\U0001F600");
}

TEST_F(UtilsFiles, BrokenUtf16BecomesReplacementCharacters)
{
    // A lone high surrogate, a lone low one, half a unit.
    const std::string bytes("\xFF\xFE\x3D\xD8\x41\x00\x00\xDE\x42", 9);

    EXPECT_EQ(Utils::GetFileContents(write("a.scm", bytes)), L"\uFFFDA\uFFFD\uFFFD");
}

TEST_F(UtilsFiles, AMarkAloneIsAnEmptyText)
{
    std::wstring text = L"left over";

    EXPECT_TRUE(Utils::GetFileContents(write("a.scm", "\xFF\xFE"), text));
    EXPECT_EQ(text, L"");
}

TEST_F(UtilsFiles, AnEmptyFileIsReadAndGivesNoText)
{
    std::wstring text = L"left over";

    EXPECT_TRUE(Utils::GetFileContents(write("a.scm", ""), text));
    EXPECT_EQ(text, L"");
    EXPECT_EQ(Utils::GetFileContents(write("a.scm", "")), L"");
}

TEST_F(UtilsFiles, AMissingFileAndAFolderCannotBeRead)
{
    std::wstring text = L"left over";

    EXPECT_FALSE(Utils::GetFileContents(L"/no/such/file", text));
    EXPECT_EQ(text, L"");
    EXPECT_FALSE(Utils::GetFileContents(Utils::StringToWstring(folder.string()), text));
}

TEST_F(UtilsFiles, AbsolutePathsStartAtTheWorkingFolder)
{
    std::filesystem::current_path(folder);
    const std::wstring here = Utils::StringToWstring(std::filesystem::current_path().string());

    EXPECT_EQ(Utils::GetAbsolutePath(L"a/./b/../c.scm"), here + L"/a/c.scm");
    EXPECT_EQ(Utils::GetAbsolutePath(L"../x"),
              Utils::StringToWstring(std::filesystem::current_path().parent_path().string()) +
                  L"/x");
    std::filesystem::current_path("/");
}

TEST(Utils, AbsolutePathsStayAsTheyAre)
{
    EXPECT_EQ(Utils::GetAbsolutePath(L"/a/b.scm"), L"/a/b.scm");
    EXPECT_EQ(Utils::GetAbsolutePath(L""), L"");
}

TEST(Utils, ExtensionsFollowTheLastDot)
{
    EXPECT_EQ(Utils::GetFileExtension(L"/a.b/part.tar.Stp"), L"Stp");
    EXPECT_EQ(Utils::GetFileExtension(L"/a.b/part"), L"");
    EXPECT_EQ(Utils::GetFileExtension(L"part."), L"");
    EXPECT_EQ(Utils::GetFileExtension(L".scm"), L"");
    EXPECT_EQ(Utils::GetFileExtension(L""), L"");
    EXPECT_EQ(Utils::GetFileExtension(L"x.\u00E4"), L"\u00E4");
}

TEST(Utils, BareFileNamesKeepTheirExtension)
{
    EXPECT_EQ(Utils::GetFileNameOnly(L"/a/b/c.scm"), L"c.scm");
    EXPECT_EQ(Utils::GetFileNameOnly(L"c.scm"), L"c.scm");
    EXPECT_EQ(Utils::GetFileNameOnly(L"/a/b/"), L"");
}

TEST(Utils, UmlautsAndEmojiSurviveTheRoundTrip)
{
    const std::wstring wide = L"\u00E4\u00DF\u4E2D\U0001F600";
    const std::string narrow = "\xC3\xA4\xC3\x9F\xE4\xB8\xAD\xF0\x9F\x98\x80";

    EXPECT_EQ(Utils::WstringToString(wide), narrow);
    EXPECT_EQ(Utils::StringToWstring(narrow), wide);
    EXPECT_EQ(Utils::Char2Wchar(narrow.c_str()), wide);
}

TEST(Utils, EveryByteSurvivesTheRoundTrip)
{
    std::string bytes;
    for (int first = 0; first < 256; ++first) {
        for (int second = 0; second < 256; ++second) {
            bytes += static_cast<char>(first);
            bytes += static_cast<char>(second);
        }
    }

    EXPECT_EQ(Utils::WstringToString(Utils::StringToWstring(bytes)), bytes);
}

TEST(Utils, BytesThatAreNoUtf8BecomeMarkedUnits)
{
    EXPECT_EQ(Utils::StringToWstring("a\xFF\xC3"), std::wstring({L'a', 0xDCFF, 0xDCC3}));
}

TEST(Utils, ANullTextIsEmpty)
{
    EXPECT_EQ(Utils::Char2Wchar(nullptr), L"");
}

TEST(Utils, ZeroUnitsAreKept)
{
    const std::string bytes("a\0b", 3);

    EXPECT_EQ(Utils::StringToWstring(bytes), std::wstring(L"a\0b", 3));
    EXPECT_EQ(Utils::WstringToString(std::wstring(L"a\0b", 3)), bytes);
}

TEST(Utils, SurrogatePairsBecomeOneCharacter)
{
    EXPECT_EQ(Utils::WstringToString(std::wstring({0xD83D, 0xDE00})), "\xF0\x9F\x98\x80");
}

TEST(Utils, UnitsThatAreNoCharacterBecomeTheReplacement)
{
    EXPECT_EQ(Utils::WstringToString(std::wstring({0xD83D})), "\xEF\xBF\xBD");
    EXPECT_EQ(Utils::WstringToString(std::wstring({static_cast<wchar_t>(0x110000)})),
              "\xEF\xBF\xBD");
}

TEST(Utils, BoundedConversionsNeverCutACharacter)
{
    EXPECT_EQ(Utils::WstringToString(L"abc", 3), "abc");
    EXPECT_EQ(Utils::WstringToString(L"abc", 2), "ab");
    EXPECT_EQ(Utils::WstringToString(L"a\u00E4", 2), "a");
    EXPECT_EQ(Utils::WstringToString(L"a\U0001F600b", 4), "a");
    EXPECT_EQ(Utils::WstringToString(L"a\U0001F600b", 5), "a\xF0\x9F\x98\x80");
    EXPECT_EQ(Utils::WstringToString(L"\u00E4", 1), "");
    EXPECT_EQ(Utils::WstringToString(L"abc", 0), "");
}

TEST(Utils, LettersChangeCaseWithinAsciiOnly)
{
    EXPECT_EQ(Utils::ToUpperAscii(std::wstring_view(L"a\u00E4z{`9")), L"A\u00E4Z{`9");
    EXPECT_EQ(Utils::ToLowerAscii(std::wstring_view(L"A\u00C4Z[@9")), L"a\u00C4z[@9");
    EXPECT_EQ(Utils::ToUpperAscii(std::string_view("stl\xE4")), "STL\xE4");
    EXPECT_EQ(Utils::ToLowerAscii(std::string_view("STL\xC4")), "stl\xC4");
}

} // namespace
} // namespace TambVizCore
