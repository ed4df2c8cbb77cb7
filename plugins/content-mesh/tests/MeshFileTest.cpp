#include "MeshFiles.h"

#include <OrvikOs/FaultScope.h>
#include <OrvikOs/FpControl.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <filesystem>
#include <limits>

using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

TEST(MeshFile, MissingFileIsAnErrorThatNamesIt)
{
    const TempFolder folder;

    const ReadResult result = ReadStlFile(folder.PathOf("missing.stl"));

    EXPECT_FALSE(result.ok);
    EXPECT_EQ(result.error, folder.PathOf("missing.stl") + L": No such file or directory");
}

TEST(MeshFile, MissingObjFileIsAnError)
{
    const TempFolder folder;

    EXPECT_THAT(ReadObjFile(folder.PathOf("missing.obj")).error,
                EndsWith(L"missing.obj: No such file or directory"));
}

TEST(MeshFile, FileThatCannotBeOpenedIsAnErrorWithTheSystemsReason)
{
    // A link to itself: unreadable whoever asks, the administrator included.
    const TempFolder folder;
    std::filesystem::create_symlink("loop.stl", folder.Path() / "loop.stl");

    const ReadResult result = ReadStlFile(folder.PathOf("loop.stl"));

    EXPECT_FALSE(result.ok);
    EXPECT_THAT(result.error, StartsWith(folder.PathOf("loop.stl") + L": "));
    EXPECT_GT(result.error.size(), folder.PathOf("loop.stl").size() + 2);
}

TEST(MeshFile, FolderInPlaceOfAFileIsAnError)
{
    const TempFolder folder;
    std::filesystem::create_directory(folder.Path() / "folder.stl");

    const ReadResult result = ReadStlFile(folder.PathOf("folder.stl"));

    EXPECT_FALSE(result.ok);
    EXPECT_THAT(result.error, StartsWith(folder.PathOf("folder.stl") + L": "));
}

TEST(MeshFile, EmptyFileIsAnError)
{
    const TempFolder folder;

    EXPECT_THAT(ReadStlFile(folder.Write("empty.stl", "")).error,
                EndsWith(L"empty.stl: the file is empty"));
    EXPECT_THAT(ReadObjFile(folder.Write("empty.obj", "")).error,
                EndsWith(L"empty.obj: the file is empty"));
}

class MeshFileName : public testing::TestWithParam<const char*>
{
};

TEST_P(MeshFileName, IsReadWhateverItsBytes)
{
    const TempFolder folder;

    const ReadResult result = ReadStlFile(folder.Write(GetParam(), BinaryStl(Cube())));

    EXPECT_TRUE(result.ok);
    EXPECT_EQ(result.mesh.TriangleCount(), 12u);
}

INSTANTIATE_TEST_SUITE_P(Names, MeshFileName,
                         testing::Values("with some blanks .stl", "\xC3\xA4\xC3\xB6\xC3\xBC.stl",
                                         "\xF0\x9F\x98\x80.stl", "no utf8 \xFF\xFE\x80.stl"));

TEST(MeshFile, FileCutShortWhileItIsReadIsAnError)
{
    const TempFolder folder;
    const std::wstring path = folder.Write("cut.stl", BinaryStl(Torus(100000)));
    OrvikMesh::ReadOptions options;
    std::atomic<bool> isCut = false;
    options.isCancelled = [&] {
        if (!isCut.exchange(true))
            std::filesystem::resize_file(folder.Path() / "cut.stl", 0);
        return false;
    };

    const ReadResult result = ReadStlFile(path, options);

    EXPECT_TRUE(isCut);
    EXPECT_FALSE(result.ok);
    EXPECT_THAT(result.error, HasSubstr(L"cut.stl: the file could not be read to its end; it may "
                                        L"have been changed meanwhile (Machine fault 0xC0000006"));
}

TEST(MeshFile, ObjCutShortWhileItIsReadIsAnError)
{
    const TempFolder folder;
    std::string text;
    for (int i = 0; i < 20000; ++i)
        text += "v 0 0 1\nv 1 0 1\nv 0 1 1\nf -1 -2 -3\n";
    const std::wstring path = folder.Write("cut.obj", text);
    OrvikMesh::ReadOptions options;
    std::atomic<bool> isCut = false;
    options.isCancelled = [&] {
        if (!isCut.exchange(true))
            std::filesystem::resize_file(folder.Path() / "cut.obj", 0);
        return false;
    };

    EXPECT_THAT(ReadObjFile(path, options).error,
                HasSubstr(L"the file could not be read to its end"));
}

TEST(MeshFile, CancelEndsReadingWithAnError)
{
    const TempFolder folder;
    OrvikMesh::ReadOptions options;
    options.isCancelled = [] { return true; };

    EXPECT_THAT(ReadStlFile(folder.Write("a.stl", BinaryStl(Cube())), options).error,
                EndsWith(L"a.stl: reading was cancelled"));
    EXPECT_THAT(ReadStlFile(folder.Write("b.stl", AsciiStl(Cube(), "b")), options).error,
                EndsWith(L"b.stl: reading was cancelled"));
    EXPECT_THAT(ReadObjFile(folder.Write("c.obj", "v 0 0 0\nf 1 1 1\n"), options).error,
                EndsWith(L"c.obj: reading was cancelled"));
}

TEST(MeshFile, ReportsProgressUpToTheEndOfAText)
{
    std::vector<double> shares;
    OrvikMesh::ReadOptions options;
    options.progress = [&](double share) { shares.push_back(share); };

    ReadStlBytes(AsciiStl(Torus(20000), "torus"), options);

    ASSERT_GE(shares.size(), 3u);
    EXPECT_TRUE(std::is_sorted(shares.begin(), shares.end()));
    EXPECT_EQ(shares.back(), 1.0);
}

TEST(MeshFile, ReportsProgressOfEveryFormatUpToTheEnd)
{
    std::atomic<double> last = 0.0;
    OrvikMesh::ReadOptions options;
    options.progress = [&](double share) { last = std::max(last.load(), share); };

    ReadStlBytes(BinaryStl(Torus(100000)), options);
    EXPECT_DOUBLE_EQ(last.exchange(0.0), 1.0);
    ReadObjText("v 0 0 0\nf 1 1 1\n", options);
    EXPECT_DOUBLE_EQ(last.load(), 1.0);
}

TEST(MeshFile, IsReadWithoutTrapsWhereTheCallerHasThem)
{
    Triangle odd{Point{0, 0, 0}, Point{1, 0, 0}, Point{0, 1, 0}};
    odd[1][0] = std::numeric_limits<float>::denorm_min();
    Triangle nan = odd;
    nan[2][1] = std::numeric_limits<float>::signaling_NaN();
    const std::string bytes = BinaryStl({odd, nan, odd});
    const OrvikOs::FaultScope scope;
    OrvikOs::FpControl::SetControlWord(0, OrvikOs::kMCW_EM & ~OrvikOs::kEM_INEXACT);

    const ReadResult binary = ReadStlBytes(bytes);
    const ReadResult text = ReadObjText("v 1e-42 0 0\nv 1 0 0\nv 0 1e39 1\nv 0 1 0\n"
                                        "f 1 2 4\nf 1 2 3\n");
    const unsigned after = OrvikOs::FpControl::ControlWord();
    OrvikOs::FpControl::SetControlWord(OrvikOs::kMCW_EM, OrvikOs::kMCW_EM);

    EXPECT_EQ(binary.mesh.TriangleCount(), 2u);
    EXPECT_EQ(text.mesh.TriangleCount(), 1u);
    EXPECT_EQ(after, OrvikOs::kEM_INEXACT);
}
