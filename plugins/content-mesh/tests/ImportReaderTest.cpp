#include "ImportFiles.h"
#include "MeshFiles.h"
#include "import/ImportIo.h"
#include "import/MeshImport.h"

#include <assimp/Importer.hpp>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <set>

using OrvikModel::ModelNode;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

OrvikMesh::ImportSink wantsAll()
{
    OrvikMesh::ImportSink sink;
    sink.isWanted = [](void*) { return true; };
    return sink;
}

std::size_t trianglesBelow(const ModelNode& node)
{
    std::size_t count = node.shape ? node.shape->Present()->TriangleCount() : 0;
    for (const auto& child : node.children)
        count += trianglesBelow(*child);
    return count;
}

} // namespace

TEST(ImportReader, ReadsASampleOfEachFormat)
{
    const TempFolder folder;
    for (const ImportSample& sample : ImportSamples()) {
        const GltfResult result =
            ReadImportedFile(folder.Write("sample." + sample.extension, sample.bytes));
        ASSERT_TRUE(result.ok) << sample.extension << testing::PrintToString(result.error);
        std::size_t triangles = 0;
        for (const auto& node : result.model.nodes)
            triangles += trianglesBelow(*node);
        EXPECT_GT(triangles, 0u) << sample.extension;
        EXPECT_THAT(result.warnings, IsEmpty()) << sample.extension;
    }
}

TEST(ImportReader, ListsOnlyFormatsThatTheLibraryHas)
{
    const Assimp::Importer importer;
    std::set<std::wstring> extensions;
    for (const OrvikMesh::ImportFormat& format : OrvikMesh::ImportFormats()) {
        const std::wstring wide = format.extension;
        std::string extension;
        for (const wchar_t character : wide)
            extension += static_cast<char>(
                character >= L'A' && character <= L'Z' ? character - L'A' + L'a' : character);
        EXPECT_TRUE(importer.IsExtensionSupported(extension)) << extension;
        EXPECT_TRUE(extensions.insert(wide).second) << extension;
        EXPECT_TRUE(OrvikMesh::IsImportFormat(wide));
    }
    EXPECT_FALSE(OrvikMesh::IsImportFormat(L"STL"));
}

TEST(ImportReader, ReadsTheHierarchyWithInstancesNamesAndColours)
{
    const TempFolder folder;

    const GltfResult result = ReadImportedFile(folder.Write("a.dae", ImportSampleOf("dae")));

    ASSERT_TRUE(result.ok) << testing::PrintToString(result.error);
    ASSERT_EQ(result.model.nodes.size(), 2u);
    EXPECT_EQ(result.Node(0).name, L"left");
    EXPECT_EQ(result.Node(1).name, L"right");
    EXPECT_EQ(result.Node(0).shape, result.Node(1).shape);
    EXPECT_EQ(result.Node(0).color, TambVizCore::RGBAColor(255, 0, 0));
    EXPECT_EQ((*result.Node(1).transform)[13], 5.0);
    EXPECT_EQ(result.Node(1).number, 2u);
}

TEST(ImportReader, ReadsTransparency)
{
    const TempFolder folder;

    const GltfResult result = ReadImportedFile(folder.Write("a.3ds", ImportSampleOf("3ds")));

    ASSERT_TRUE(result.ok);
    EXPECT_EQ(result.Node(0).children.at(0)->color, TambVizCore::RGBAColor(255, 0, 0, 128));
}

TEST(ImportReader, DividesPolygonsIntoTriangles)
{
    const TempFolder folder;

    const GltfResult result = ReadImportedFile(folder.Write("a.ac", ImportSampleOf("ac")));

    ASSERT_TRUE(result.ok);
    EXPECT_EQ(result.Shape(0).TriangleCount(), 2u);
}

TEST(ImportReader, ReadsVertexColours)
{
    const TempFolder folder;
    std::string text = ImportSampleOf("x");
    text.insert(text.find("MeshMaterialList"),
                "MeshVertexColors { 3; 0;1.0;0.0;0.0;1.0;;, 1;0.0;1.0;0.0;1.0;;, "
                "2;0.0;0.0;1.0;1.0;;; } ");

    const GltfResult result = ReadImportedFile(folder.Write("a.x", text));

    ASSERT_TRUE(result.ok) << testing::PrintToString(result.error);
    EXPECT_EQ(result.Node(0).color, std::nullopt);
    const auto colors = result.Shape(0).Colors().Span();
    EXPECT_EQ(colors.size(), 12u);
}

TEST(ImportReader, CallsATopNodeWithoutANameAfterTheFile)
{
    const TempFolder folder;

    const GltfResult result = ReadImportedFile(folder.Write("disc.3ds", ImportSampleOf("3ds")));

    ASSERT_TRUE(result.ok);
    EXPECT_EQ(result.Node(0).name, L"disc");
}

TEST(ImportReader, SaysThatTheLibraryIsMissing)
{
    const TempFolder folder;
    const std::wstring path = folder.Write("a.dae", ImportSampleOf("dae"));

    const GltfResult result = ReadImportedFile(path, {}, L"/nowhere/OrvikMeshImport.dll");

    EXPECT_FALSE(result.ok);
    EXPECT_EQ(result.error.find(path + L": the library \"/nowhere/OrvikMeshImport.dll\" cannot be "
                                       L"loaded: "),
              0u);
}

TEST(ImportReader, SaysThatALibraryIsAnotherOne)
{
    const TempFolder folder;
    const std::wstring path = folder.Write("a.dae", ImportSampleOf("dae"));

    const GltfResult result = ReadImportedFile(path, {}, L"libOrvikOs.so");

    EXPECT_EQ(result.error, path + L": the library \"libOrvikOs.so\" is none that reads meshes");
}

TEST(ImportReader, StopsWhenCancelled)
{
    const TempFolder folder;
    OrvikMesh::ReadOptions options;
    options.isCancelled = [] { return true; };

    const std::wstring path = folder.Write("a.dae", ImportSampleOf("dae"));
    const GltfResult result = ReadImportedFile(path, options);

    EXPECT_FALSE(result.ok);
    EXPECT_EQ(result.error, path + L": reading was cancelled");
}

TEST(ImportReader, ReportsProgress)
{
    const TempFolder folder;
    double last = 0.0;
    OrvikMesh::ReadOptions options;
    options.progress = [&](double share) { last = std::max(last, share); };

    EXPECT_TRUE(ReadImportedFile(folder.Write("a.dae", ImportSampleOf("dae")), options).ok);
    EXPECT_GT(last, 0.5);
}

TEST(ImportReader, RefusesAFileThatIsTooLarge)
{
    const TempFolder folder;
    const std::wstring path = folder.Write("a.dae", "<");
    std::filesystem::resize_file(folder.Path() / "a.dae", OrvikMesh::kMaxImportBytes + 1);

    EXPECT_EQ(ReadImportedFile(path).error,
              path + L": the file has 536870913 bytes; files of this format are read up to "
                     L"536870912");
}

TEST(ImportReader, PassesNoExceptionOfTheShapeMakerThroughTheLibrary)
{
    const TempFolder folder;
    const std::wstring path = folder.Write("a.dae", ImportSampleOf("dae"));
    OrvikModel::Model model;
    OrvikMesh::ReadMessages messages(path);
    const OrvikMesh::ShapeMaker make =
        [](OrvikMesh::ShapeArrays&&) -> std::shared_ptr<const OrvikModel::ModelShape> {
        throw std::bad_alloc();
    };

    EXPECT_FALSE(OrvikMesh::ReadImported(path, {}, make, model, messages, L"" ORVIK_MESH_IMPORT));
    EXPECT_EQ(messages.Error(), path + L": not enough memory to read the file");
}

TEST(ImportIo, OpensTheFileAndWhatLiesBesideOrBelow)
{
    const TempFolder folder;
    std::filesystem::create_directory(folder.Path() / "below");
    folder.Write("a.dae", "abcdef");
    folder.Write("b.txt", "b");
    folder.Write("below/c.txt", "c");
    const std::string base = folder.Path().string();
    const OrvikMesh::ImportSink sink = wantsAll();
    OrvikMesh::ImportIo io(base + "/a.dae", sink);

    for (const std::string& name : {base + "/a.dae", base + "/b.txt", std::string("b.txt"),
                                    base + "/below/c.txt", std::string("below\\c.txt")}) {
        EXPECT_TRUE(io.Exists(name.c_str())) << name;
        Assimp::IOStream* stream = io.Open(name.c_str(), "rb");
        EXPECT_NE(stream, nullptr) << name;
        io.Close(stream);
    }
}

TEST(ImportIo, RefusesFilesOutsideTheFolderAndWriting)
{
    const TempFolder folder;
    std::filesystem::create_directory(folder.Path() / "inner");
    folder.Write("inner/a.dae", "a");
    folder.Write("out.txt", "o");
    const std::string base = folder.Path().string();
    const OrvikMesh::ImportSink sink = wantsAll();
    OrvikMesh::ImportIo io(base + "/inner/a.dae", sink);

    for (const std::string& name : {base + "/out.txt", base + "/inner/../out.txt",
                                    std::string("../out.txt"), std::string("/etc/hostname")}) {
        EXPECT_FALSE(io.Exists(name.c_str())) << name;
        EXPECT_EQ(io.Open(name.c_str(), "rb"), nullptr) << name;
    }
    EXPECT_EQ(io.Open((base + "/inner/new.txt").c_str(), "wb"), nullptr);
    EXPECT_EQ(io.Open((base + "/inner/a.dae").c_str(), "r+"), nullptr);
}

TEST(ImportIo, StreamsStayInsideTheirFile)
{
    const TempFolder folder;
    folder.Write("a.dae", "abcdef");
    const std::string path = (folder.Path() / "a.dae").string();
    const OrvikMesh::ImportSink sink = wantsAll();
    OrvikMesh::ImportIo io(path, sink);
    Assimp::IOStream* stream = io.Open(path.c_str(), "rb");
    ASSERT_NE(stream, nullptr);
    char buffer[16] = {};

    EXPECT_EQ(stream->FileSize(), 6u);
    EXPECT_EQ(stream->Read(buffer, 4, 3), 1u);
    EXPECT_EQ(stream->Tell(), 4u);
    EXPECT_EQ(stream->Read(buffer, 0, 3), 0u);
    EXPECT_EQ(stream->Seek(static_cast<std::size_t>(-3), aiOrigin_CUR), aiReturn_SUCCESS);
    EXPECT_EQ(stream->Read(buffer, 1, 16), 5u);
    EXPECT_EQ(std::string(buffer, 5), "bcdef");
    EXPECT_EQ(stream->Seek(7, aiOrigin_SET), aiReturn_FAILURE);
    EXPECT_EQ(stream->Seek(static_cast<std::size_t>(-2), aiOrigin_END), aiReturn_SUCCESS);
    EXPECT_EQ(stream->Seek(static_cast<std::size_t>(-5), aiOrigin_CUR), aiReturn_FAILURE);
    EXPECT_EQ(stream->Tell(), 4u);
    io.Close(stream);
}
