#include "GltfFiles.h"
#include "MeshFiles.h"
#include "gltf/DataUri.h"
#include "readers/SideFiles.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

TEST(GltfSideFile, ReadsABufferBesideTheFile)
{
    const TempFolder folder;
    const GltfText text = OneTriangle();
    std::filesystem::create_directory(folder.Path() / "data");
    folder.Write("data/my points.bin", text.Buffer());

    const GltfResult result =
        ReadGltfFile(folder.Write("a.gltf", text.Json("data/my%20points.bin")));

    EXPECT_TRUE(result.ok) << testing::PrintToString(result.error);
    EXPECT_THAT(result.warnings, IsEmpty());
}

TEST(GltfSideFile, NamesAFileThatIsMissing)
{
    const TempFolder folder;
    const std::wstring path = folder.Write("a.gltf", OneTriangle().Json("gone.bin"));

    const GltfResult result = ReadGltfFile(path);

    EXPECT_FALSE(result.ok);
    EXPECT_EQ(result.error, path + L": mesh 0, primitive 0: the side file \"gone.bin\" cannot be "
                                   L"read: No such file or directory");
}

TEST(GltfSideFile, RefusesEveryWayOutOfTheFolder)
{
    const TempFolder folder;
    std::filesystem::create_directory(folder.Path() / "inner");
    const GltfText text = OneTriangle();
    folder.Write("outside.bin", text.Buffer());
    for (const std::string uri : {"../outside.bin", "%2e%2e/outside.bin", "..%5Coutside.bin",
                                  "x/../../outside.bin", "/etc/hostname", "file:///etc/hostname",
                                  "http://example.com/a.bin", "C:/a.bin", "", "a%00/../b"}) {
        const GltfResult result = ReadGltfFile(folder.Write("inner/a.gltf", text.Json(uri)));
        EXPECT_FALSE(result.ok) << uri;
        EXPECT_NE(result.error.find(L"lies outside the folder of the file and was not read"),
                  std::wstring::npos)
            << uri;
    }
}

TEST(GltfSideFile, RefusesAFolderAsABuffer)
{
    const TempFolder folder;
    std::filesystem::create_directory(folder.Path() / "inner");

    const GltfResult result = ReadGltfFile(folder.Write("a.gltf", OneTriangle().Json("inner")));

    EXPECT_FALSE(result.ok);
    EXPECT_NE(result.error.find(L"the side file \"inner\" cannot be read: "), std::wstring::npos);
}

TEST(GltfSideFile, AMissingBufferLeavesTheOthers)
{
    const TempFolder folder;
    GltfText text = OneTriangle();
    folder.Write("a.bin", text.Buffer());
    text.AddAccessor("\"bufferView\":2,\"componentType\":5126,\"count\":3,\"type\":\"VEC3\"");
    text.AddMesh("\"primitives\":[{\"attributes\":{\"POSITION\":2}}]");
    text.AddNode("\"mesh\":1");
    text.AddViewOf(1, 36);
    text.AddBuffer("\"uri\":\"b.bin\",\"byteLength\":36");

    const std::wstring path = folder.Write("a.gltf", text.Json("a.bin"));
    const GltfResult result = ReadGltfFile(path);

    ASSERT_TRUE(result.ok) << testing::PrintToString(result.error);
    EXPECT_NE(result.Node(0).shape, nullptr);
    EXPECT_EQ(result.Node(1).shape, nullptr);
    EXPECT_THAT(result.warnings,
                ElementsAre(path + L": mesh 1, primitive 0: the side file \"b.bin\" cannot be "
                                   L"read: No such file or directory; it was left out"));
}

TEST(GltfSideFile, ABufferThatIsTooShortIsToldOnce)
{
    const TempFolder folder;
    const GltfText text = OneTriangle();
    folder.Write("a.bin", text.Buffer().substr(0, 40));

    const std::wstring path = folder.Write("a.gltf", text.Json("a.bin"));
    const GltfResult result = ReadGltfFile(path);

    EXPECT_FALSE(result.ok);
    EXPECT_EQ(result.error, path + L": mesh 0, primitive 0: buffer view 1 reaches beyond the 40 "
                                   L"bytes of buffer 0");
    EXPECT_THAT(result.warnings,
                ElementsAre(path + L": buffer 0 has 40 bytes of the 42 that are announced"));
}

TEST(DataUri, DecodesBase64OfEachLength)
{
    std::string bytes;
    for (int length = 0; length < 70; ++length) {
        std::string decoded;
        std::size_t bad = 0;
        EXPECT_TRUE(OrvikMesh::DecodeBase64(Base64(bytes), {}, decoded, bad));
        EXPECT_EQ(decoded, bytes);
        bytes += static_cast<char>(length * 37);
    }
}

TEST(DataUri, StopsWhenCancelled)
{
    OrvikMesh::ReadOptions options;
    int questions = 0;
    options.isCancelled = [&questions] { return ++questions > 2; };
    std::string decoded;
    std::size_t bad = 0;

    EXPECT_THROW(
        OrvikMesh::DecodeBase64(std::string(std::size_t{4} << 20, 'A'), options, decoded, bad),
        OrvikMesh::ReadCancelled);
    EXPECT_EQ(questions, 3);
}

TEST(DataUri, FindsTheFirstCharacterThatIsNoneOfBase64)
{
    std::string decoded;
    std::size_t bad = 0;
    EXPECT_FALSE(OrvikMesh::DecodeBase64("AAAA*AA*", {}, decoded, bad));
    EXPECT_EQ(bad, 4u);
    EXPECT_FALSE(OrvikMesh::DecodeBase64("AAAAA", {}, decoded, bad));
    EXPECT_EQ(bad, 5u);
    EXPECT_FALSE(OrvikMesh::DecodeBase64("AA=A", {}, decoded, bad));
    EXPECT_EQ(bad, 2u);
}

TEST(DataUri, BadBase64InAFileIsTold)
{
    GltfText text = OneTriangle();

    const GltfResult result =
        ReadGltfBytes(text.Json("data:application/gltf-buffer;base64,AAAA!AAA"));

    EXPECT_EQ(result.error,
              L"test: mesh 0, primitive 0: buffer 0: character 4 of the data is none of base64");
}

TEST(DataUri, DecodesPercentCodesAndKeepsTheRest)
{
    EXPECT_EQ(OrvikMesh::DecodePercents("a%20b%C3%a4%zz%4"), "a b\xC3\xA4%zz%4");
}

TEST(SideFiles, StaysInFolderOnlyForRelativeNamesBelowIt)
{
    for (const char* name : {"a.bin", "x/a.bin", "x\\a.bin", "..a", "a..", "./a"})
        EXPECT_TRUE(OrvikMesh::StaysInFolder(name)) << name;
    for (const char* name : {"", "/a", "\\a", "..", "../a", "x/..", "x\\..\\a", "c:a", "http://a"})
        EXPECT_FALSE(OrvikMesh::StaysInFolder(name)) << name;
}
