#include "TempFolder.h"

#include <OrvikOs/AppendFile.h>
#include <OrvikOs/AtomicFile.h>
#include <OrvikOs/Directory.h>
#include <OrvikOs/FileWriting.h>
#include <OrvikOs/MemoryMappedFile.h>
#include <OrvikOs/Utf8.h>

#include <dirent.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>

#include <algorithm>
#include <cstdlib>

namespace {

std::vector<std::string> systemOrder(const std::string& folder)
{
    std::vector<std::string> names;
    DIR* const directory = opendir(folder.c_str());
    while (const dirent* const entry = readdir(directory)) {
        if (std::string(entry->d_name) != "." && std::string(entry->d_name) != "..") {
            names.emplace_back(entry->d_name);
        }
    }
    closedir(directory);
    return names;
}

TEST(ListDirectory, GivesTheEntriesInTheFileSystemsOrder)
{
    const TempFolder folder;
    for (int i = 0; i < 40; ++i) {
        folder.Write("file" + std::to_string(i * 7919 % 40), "");
    }
    std::vector<OrvikOs::DirectoryEntry> entries;

    ASSERT_TRUE(OrvikOs::ListDirectory(folder.Path(), entries));

    std::vector<std::string> names;
    for (const auto& entry : entries) {
        names.push_back(OrvikOs::WideToUtf8(entry.name));
    }
    EXPECT_EQ(names, systemOrder(folder.Bytes("")));
    EXPECT_EQ(names.size(), 40u);
}

TEST(ListDirectory, NamesThatAreNoUtf8CanBeOpenedAgain)
{
    const TempFolder folder;
    folder.Write("odd \xFF\xE2 name \xF0\x9F\x98\x80", "content");
    std::vector<OrvikOs::DirectoryEntry> entries;
    ASSERT_TRUE(OrvikOs::ListDirectory(folder.Path(), entries));
    ASSERT_EQ(entries.size(), 1u);

    OrvikOs::MemoryMappedFile file;
    ASSERT_TRUE(file.Open(folder.Path(entries[0].name)));
    EXPECT_EQ(file.Text(), "content");
}

TEST(ListDirectory, TellsKindsThroughLinks)
{
    const TempFolder folder;
    folder.Write("file", "");
    std::filesystem::create_directory(folder.Bytes("folder"));
    std::filesystem::create_symlink("folder", folder.Bytes("to-folder"));
    std::filesystem::create_symlink("nowhere", folder.Bytes("to-nothing"));
    std::vector<OrvikOs::DirectoryEntry> entries;
    ASSERT_TRUE(OrvikOs::ListDirectory(folder.Path(), entries));

    const auto kindOf = [&entries](const std::wstring& name) {
        return std::find_if(entries.begin(), entries.end(),
                            [&name](const auto& entry) { return entry.name == name; })
            ->kind;
    };
    EXPECT_EQ(kindOf(L"file"), OrvikOs::EntryKind::File);
    EXPECT_EQ(kindOf(L"folder"), OrvikOs::EntryKind::Directory);
    EXPECT_EQ(kindOf(L"to-folder"), OrvikOs::EntryKind::Directory);
    EXPECT_EQ(kindOf(L"to-nothing"), OrvikOs::EntryKind::Other);
}

TEST(ListDirectory, MissingFolderGivesTheSystemsText)
{
    std::vector<OrvikOs::DirectoryEntry> entries(3);
    std::wstring text;
    EXPECT_FALSE(OrvikOs::ListDirectory(L"/no/such/folder", entries, &text));
    EXPECT_TRUE(entries.empty());
    EXPECT_EQ(text, L"No such file or directory");
}

TEST(MakeDirectories, MakesWhatIsMissing)
{
    const TempFolder folder;
    EXPECT_TRUE(OrvikOs::MakeDirectories(folder.Path(L"a/b/c")));
    EXPECT_TRUE(OrvikOs::IsDirectory(folder.Path(L"a/b/c")));
    EXPECT_TRUE(OrvikOs::MakeDirectories(folder.Path(L"a/b/c/")));
}

TEST(MakeDirectories, FileInTheWayIsAnError)
{
    const TempFolder folder;
    folder.Write("a", "");
    std::wstring text;
    EXPECT_FALSE(OrvikOs::MakeDirectories(folder.Path(L"a/b"), &text));
    EXPECT_EQ(text, L"Not a directory");
    EXPECT_FALSE(OrvikOs::MakeDirectories(folder.Path(L"a"), &text));
}

TEST(RemoveFile, MissingFileIsNoError)
{
    const TempFolder folder;
    folder.Write("a", "");
    EXPECT_TRUE(OrvikOs::RemoveFile(folder.Path(L"a")));
    EXPECT_TRUE(OrvikOs::RemoveFile(folder.Path(L"a")));
    EXPECT_FALSE(OrvikOs::RemoveFile(folder.Path()));
}

TEST(AbsolutePath, PutsTheCurrentFolderBeforeARelativePath)
{
    EXPECT_EQ(OrvikOs::AbsolutePath(L"/a/../b"), L"/a/../b");
    EXPECT_EQ(OrvikOs::AbsolutePath(L"x"), OrvikOs::CurrentDirectory() + L"/x");
    EXPECT_EQ(OrvikOs::AbsolutePath(L""), OrvikOs::CurrentDirectory());
}

TEST(MemoryMappedFile, ShowsTheContent)
{
    const TempFolder folder;
    folder.Write("a", "solid\n");
    OrvikOs::MemoryMappedFile file;
    ASSERT_TRUE(file.Open(folder.Path(L"a")));
    file.ExpectSequentialReading();
    EXPECT_EQ(file.Size(), 6u);
    EXPECT_EQ(file.Data()[0], 's');
    EXPECT_EQ(file.ErrorText(), L"");
}

TEST(MemoryMappedFile, EmptyFileHasNoBytes)
{
    const TempFolder folder;
    folder.Write("a", "");
    OrvikOs::MemoryMappedFile file;
    EXPECT_TRUE(file.Open(folder.Path(L"a")));
    EXPECT_TRUE(file.IsOpen());
    EXPECT_EQ(file.Size(), 0u);
    EXPECT_EQ(file.Data(), nullptr);
    EXPECT_EQ(file.Text(), "");
}

TEST(MemoryMappedFile, MissingFileDirectoryAndPipeAreRefused)
{
    const TempFolder folder;
    mkfifo(folder.Bytes("pipe").c_str(), 0600);
    OrvikOs::MemoryMappedFile file;
    EXPECT_FALSE(file.Open(folder.Path(L"missing")));
    EXPECT_EQ(file.ErrorText(), L"No such file or directory");
    EXPECT_FALSE(file.Open(folder.Path()));
    EXPECT_EQ(file.ErrorText(), L"Is a directory");
    EXPECT_FALSE(file.Open(folder.Path(L"pipe")));
    EXPECT_EQ(file.ErrorText(), L"Not a regular file");
    EXPECT_FALSE(file.IsOpen());
}

TEST(MemoryMappedFile, MovingHandsTheContentOver)
{
    const TempFolder folder;
    folder.Write("a", "x");
    OrvikOs::MemoryMappedFile first;
    first.Open(folder.Path(L"a"));
    OrvikOs::MemoryMappedFile second(std::move(first));
    EXPECT_EQ(second.Text(), "x");
    OrvikOs::MemoryMappedFile third;
    third = std::move(second);
    EXPECT_EQ(third.Text(), "x");
}

TEST(WriteFileAtomically, WritesANewFile)
{
    const TempFolder folder;
    EXPECT_TRUE(OrvikOs::WriteFileAtomically(folder.Path(L"a"), "abc", 3));
    EXPECT_EQ(folder.Read("a"), "abc");
    EXPECT_EQ(folder.Count(), 1u);
}

TEST(WriteFileAtomically, ReplacedFileKeepsItsPermissions)
{
    const TempFolder folder;
    folder.Write("a", "old");
    chmod(folder.Bytes("a").c_str(), 0640);
    ASSERT_TRUE(OrvikOs::WriteFileAtomically(folder.Path(L"a"), "new", 3));
    struct stat status = {};
    stat(folder.Bytes("a").c_str(), &status);
    EXPECT_EQ(status.st_mode & 07777u, 0640u);
    EXPECT_EQ(folder.Read("a"), "new");
}

TEST(WriteFileAtomically, LinkIsFollowed)
{
    const TempFolder folder;
    folder.Write("real", "old");
    std::filesystem::create_symlink("real", folder.Bytes("link"));
    ASSERT_TRUE(OrvikOs::WriteFileAtomically(folder.Path(L"link"), "new", 3));
    EXPECT_EQ(folder.Read("real"), "new");
    EXPECT_TRUE(std::filesystem::is_symlink(folder.Bytes("link")));
}

TEST(WriteFileAtomically, FailureLeavesNothingBehind)
{
    const TempFolder folder;
    std::wstring text;
    EXPECT_FALSE(OrvikOs::WriteFileAtomically(folder.Path(L"no/file"), "abc", 3, &text));
    EXPECT_EQ(text, L"No such file or directory");
    EXPECT_FALSE(OrvikOs::WriteFileAtomically(folder.Path(), "abc", 3, &text));
    EXPECT_EQ(text, L"Is a directory");
    EXPECT_EQ(folder.Count(), 0u);
}

TEST(WriteFileAtomically, DeviceIsWrittenInPlace)
{
    std::wstring text;
    EXPECT_TRUE(OrvikOs::WriteFileAtomically(L"/dev/null", "abc", 3));
    EXPECT_FALSE(OrvikOs::WriteFileAtomically(L"/dev/full", "abc", 3, &text));
    EXPECT_EQ(text, L"No space left on device");
}

TEST(WriteFileAtomically, FullDiskRemovesTheTemporaryFile)
{
    // A limit on the size of files stands in for the full disk; in a child, for it cannot be taken
    // back.
    const TempFolder folder;
    folder.Write("a", "old");
    const pid_t child = fork();
    if (child == 0) {
        const rlimit limit = {100, 100};
        setrlimit(RLIMIT_FSIZE, &limit);
        signal(SIGXFSZ, SIG_IGN);
        const std::string large(5000, 'x');
        const bool written =
            OrvikOs::WriteFileAtomically(folder.Path(L"a"), large.data(), large.size());
        _exit(written ? 1 : 0);
    }
    int status = 0;
    waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);
    EXPECT_EQ(folder.Count(), 1u);
    EXPECT_EQ(folder.Read("a"), "old");
}

TEST(AppendFile, IsReadableWhileItGrowsAndKeepsWhatWasThere)
{
    const TempFolder folder;
    folder.Write("log", "one\n");
    OrvikOs::AppendFile file;

    ASSERT_TRUE(file.Open(folder.Path(L"log")));
    ASSERT_TRUE(file.Append("two\n"));

    EXPECT_EQ(folder.Read("log"), "one\ntwo\n");
}

TEST(AppendFile, ThatCannotBeOpenedTakesNothing)
{
    const TempFolder folder;
    OrvikOs::AppendFile file;
    std::wstring reason;

    EXPECT_FALSE(file.Open(folder.Path(L"missing/log"), &reason));
    EXPECT_FALSE(reason.empty());
    EXPECT_FALSE(file.Append("text"));
}

TEST(AtomicFile, ShowsNothingBeforeItIsCommitted)
{
    const TempFolder folder;
    folder.Write("a", "old");
    OrvikOs::AtomicFile file;

    ASSERT_TRUE(file.Open(folder.Path(L"a")));
    EXPECT_TRUE(file.Write("ne", 2));
    EXPECT_EQ(folder.Read("a"), "old");
    EXPECT_TRUE(file.Write("w", 1));
    EXPECT_TRUE(file.Commit());

    EXPECT_EQ(folder.Read("a"), "new");
    EXPECT_EQ(folder.Count(), 1u);
    EXPECT_FALSE(file.Write("more", 4));
    EXPECT_FALSE(file.Commit());
}

TEST(AtomicFile, LeavesNothingBehindWithoutCommit)
{
    const TempFolder folder;
    {
        OrvikOs::AtomicFile file;
        ASSERT_TRUE(file.Open(folder.Path(L"a")));
        EXPECT_TRUE(file.Write("new", 3));
        EXPECT_EQ(folder.Count(), 1u);
    }

    EXPECT_EQ(folder.Count(), 0u);
}

TEST(AtomicFile, FailedWriteEndsIt)
{
    OrvikOs::AtomicFile file;
    ASSERT_TRUE(file.Open(L"/dev/full"));

    EXPECT_FALSE(file.Write("abc", 3));
    EXPECT_EQ(file.ErrorText(), L"No space left on device");
    EXPECT_FALSE(file.Commit());
    EXPECT_EQ(file.ErrorText(), L"No space left on device");
}

TEST(WriteMarkerFile, ReplacesTheContent)
{
    const TempFolder folder;
    folder.Write("a", "something long");
    EXPECT_TRUE(OrvikOs::WriteMarkerFile(folder.Bytes("a").c_str(), "mark\n"));
    EXPECT_EQ(folder.Read("a"), "mark\n");
    EXPECT_FALSE(OrvikOs::WriteMarkerFile("/no/such/folder/file", "x"));
}

} // namespace
