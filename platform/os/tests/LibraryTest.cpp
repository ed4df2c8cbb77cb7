#include "TempFolder.h"

#include <OrvikOs/ExecutablePath.h>
#include <OrvikOs/Library.h>
#include <OrvikOs/Utf8.h>

#include <gtest/gtest.h>

#include <cerrno>
#include <stdexcept>

namespace {

const std::wstring kLibraryFolder = OrvikOs::Utf8ToWide(ORVIKOS_TEST_LIBRARY_FOLDER);
const std::wstring kGoodLibrary = kLibraryFolder + L"/PlainFaults.dll";

using Number = int (*)();

TEST(Library, LoadsAndFindsSymbols)
{
    OrvikOs::Library library;
    ASSERT_TRUE(library.Load(kGoodLibrary)) << OrvikOs::WideToUtf8(library.ErrorText());
    EXPECT_TRUE(library.IsLoaded());
    const auto number = reinterpret_cast<Number>(library.Symbol("PlainNumber"));
    ASSERT_NE(number, nullptr);
    EXPECT_EQ(number(), 42);
    EXPECT_EQ(library.Symbol("NoSuchThing"), nullptr);
    EXPECT_EQ(library.ErrorCode(), 0u);
}

TEST(Library, MissingFileGivesTheErrorOfOpeningIt)
{
    OrvikOs::Library library;
    EXPECT_FALSE(library.Load(L"/no/such/Thing.Plugin.dll"));
    EXPECT_EQ(library.ErrorCode(), static_cast<unsigned>(ENOENT));
    EXPECT_NE(library.ErrorText().find(L"/no/such/Thing.Plugin.dll"), std::wstring::npos);
    EXPECT_EQ(library.Symbol("PlainNumber"), nullptr);
}

TEST(Library, FileThatIsNoLibraryGivesB)
{
    const TempFolder folder;
    folder.Write("Text.Plugin.dll", "no library at all");
    OrvikOs::Library library;
    EXPECT_FALSE(library.Load(folder.Path(L"Text.Plugin.dll")));
    EXPECT_EQ(library.ErrorCode(), 0xbu);
    EXPECT_NE(library.ErrorText(), L"");
}

TEST(Library, DirectoryGivesB)
{
    const TempFolder folder;
    OrvikOs::Library library;
    EXPECT_FALSE(library.Load(folder.Path()));
    EXPECT_EQ(library.ErrorCode(), 0xbu);
}

TEST(Library, EmptyNameIsRefused)
{
    OrvikOs::Library library;
    EXPECT_FALSE(library.Load(L""));
    EXPECT_EQ(library.ErrorCode(), static_cast<unsigned>(ENOENT));
}

TEST(Library, BareNameIsFoundBesideTheExecutable)
{
    OrvikOs::SetExecutablePath(kLibraryFolder + L"/program");
    OrvikOs::Library library;
    EXPECT_TRUE(library.Load(L"PlainFaults.dll"));
}

TEST(Library, BareNameFallsBackToTheSystem)
{
    OrvikOs::SetExecutablePath(L"/no/such/folder/program");
    OrvikOs::Library library;
    EXPECT_FALSE(library.Load(L"PlainFaults.dll"));
    EXPECT_EQ(library.ErrorCode(), static_cast<unsigned>(ENOENT));
    EXPECT_TRUE(library.Load(L"libm.so.6"));
    EXPECT_EQ(library.ErrorCode(), 0u);
    EXPECT_EQ(library.ErrorText(), L"");
}

TEST(Library, NameWithBytesThatAreNoUtf8Loads)
{
    const TempFolder folder;
    const std::string name = "odd\xFF.Plugin.dll";
    std::filesystem::copy_file(ORVIKOS_TEST_LIBRARY_FOLDER "/PlainFaults.dll", folder.Bytes(name));
    OrvikOs::Library library;
    EXPECT_TRUE(library.Load(folder.Path(OrvikOs::Utf8ToWide(name))));
}

TEST(Library, CloseUnloadsAndDetachKeeps)
{
    const auto rounds = [](bool detach) {
        OrvikOs::Library library;
        library.Load(kGoodLibrary);
        const int result = reinterpret_cast<Number>(library.Symbol("PlainCounter"))();
        if (detach) {
            library.Detach();
        }
        return result;
    };
    EXPECT_EQ(rounds(false), 1);
    EXPECT_EQ(rounds(true), 1);
    EXPECT_EQ(rounds(true), 2);
    EXPECT_EQ(rounds(false), 3);
}

TEST(Library, MovingHandsTheLoadOver)
{
    OrvikOs::Library first;
    first.Load(kGoodLibrary);
    OrvikOs::Library second(std::move(first));
    EXPECT_FALSE(first.IsLoaded()); // NOLINT(bugprone-use-after-move)
    OrvikOs::Library third;
    third = std::move(second);
    EXPECT_TRUE(third.IsLoaded());
}

TEST(ExecutablePath, IsThisProgram)
{
    EXPECT_EQ(OrvikOs::WideToUtf8(OrvikOs::ExecutablePath()),
              std::filesystem::read_symlink("/proc/self/exe").string());
    EXPECT_EQ(OrvikOs::ExecutablePath().find(OrvikOs::ExecutableFolder() + L"/"), 0u);
}

TEST(ExecutablePath, CanBeReplacedAndPutBack)
{
    const std::wstring own = OrvikOs::ExecutablePath();
    OrvikOs::SetExecutablePath(L"/somewhere/else/pellux");
    EXPECT_EQ(OrvikOs::ExecutableFolder(), L"/somewhere/else");
    OrvikOs::SetExecutablePath(L"/pellux");
    EXPECT_EQ(OrvikOs::ExecutableFolder(), L"/");
    OrvikOs::SetExecutablePath(L"");
    EXPECT_EQ(OrvikOs::ExecutablePath(), own);
}

} // namespace
