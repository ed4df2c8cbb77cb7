#include "ImportFiles.h"
#include "MeshFiles.h"
#include "import/ImportWire.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <limits>
#include <ostream>
#include <string>
#include <vector>

using OrvikMesh::ImportedMesh;
using OrvikMesh::ImportedNode;
using OrvikMesh::ImportSink;
using OrvikMesh::WireReader;
using OrvikMesh::WireWriter;
using testing::EndsWith;
using testing::HasSubstr;

namespace {

constexpr int kDeep = 200000;

constexpr wchar_t kFailed[] =
    L": the file cannot be read: the library that reads it failed; the file is damaged, nested too "
    L"deep or refers to itself";

std::string repeated(const std::string& text, int count)
{
    std::string all;
    all.reserve(text.size() * static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i)
        all += text;
    return all;
}

/// A COLLADA file of one triangle and these library nodes, of which the scene shows "n0".
std::string collada(const std::string& nodes)
{
    return "<?xml version=\"1.0\"?><COLLADA version=\"1.4.1\"><asset/><library_geometries>"
           "<geometry id=\"g\"><mesh><source id=\"p\"><float_array id=\"a\" count=\"9\">0 0 0 1 0 "
           "0 "
           "0 1 0</float_array><technique_common><accessor source=\"#a\" count=\"3\" stride=\"3\">"
           "<param name=\"X\" type=\"float\"/><param name=\"Y\" type=\"float\"/><param name=\"Z\" "
           "type=\"float\"/></accessor></technique_common></source><vertices id=\"v\"><input "
           "semantic=\"POSITION\" source=\"#p\"/></vertices><triangles count=\"1\"><input "
           "semantic=\"VERTEX\" source=\"#v\" offset=\"0\"/><p>0 1 2</p></triangles></mesh>"
           "</geometry></library_geometries><library_nodes>" +
           nodes +
           "</library_nodes><library_visual_scenes><visual_scene id=\"s\"><node id=\"r\">"
           "<instance_geometry url=\"#g\"/><instance_node url=\"#n0\"/></node></visual_scene>"
           "</library_visual_scenes><scene><instance_visual_scene url=\"#s\"/></scene></COLLADA>";
}

struct NestedFile
{
    const char* extension;
    std::string bytes;
};

/// What a test's name says of its file.
void PrintTo(const NestedFile& file, std::ostream* out)
{
    *out << file.extension;
}

std::vector<NestedFile> nestedFiles()
{
    const auto around = [](const std::string& begin, const std::string& open,
                           const std::string& close, const std::string& end) {
        return begin + repeated(open, kDeep) + repeated(close, kDeep) + end;
    };
    return {
        {"dae", around("<COLLADA version=\"1.4.1\"><library_visual_scenes><visual_scene id=\"a\">",
                       "<node>", "</node>", "</visual_scene></library_visual_scenes></COLLADA>")},
        {"x3d", around("<X3D><Scene>", "<Transform>", "</Transform>", "</Scene></X3D>")},
        {"amf", around("<amf>", "<object>", "</object>", "</amf>")},
        {"fbx", around("; FBX 7.3.0 project file\n", "a: {\n", "}\n", "")},
        {"x", around("xof 0303txt 0032\n", "Frame a {\n", "}\n", "")},
        {"ac", "AC3Db\n" + repeated("OBJECT group\nkids 1\n", kDeep)},
        {"nff", repeated("(", kDeep)},
        {"dxf", repeated("(", kDeep)},
        {"3ds", repeated("(", kDeep)},
        {"lwo", repeated("(", kDeep)},
        {"3mf", repeated("(", kDeep)},
    };
}

class NestedImport : public testing::TestWithParam<NestedFile>
{
};

TEST_P(NestedImport, IsRefusedWithAReason)
{
    const TempFolder folder;
    const std::wstring path =
        folder.Write(std::string("deep.") + GetParam().extension, GetParam().bytes);

    const GltfResult result = ReadImportedFile(path);

    EXPECT_FALSE(result.ok);
    EXPECT_GT(result.error.size(), path.size() + 10);
}

INSTANTIATE_TEST_SUITE_P(Formats, NestedImport, testing::ValuesIn(nestedFiles()),
                         [](const testing::TestParamInfo<NestedFile>& file) {
                             return std::string("Of") + file.param.extension;
                         });

TEST(ImportLimits, AFileThatContainsItselfIsRefused)
{
    const TempFolder folder;
    const std::string nodes = "<node id=\"n0\"><instance_node url=\"#n1\"/></node>"
                              "<node id=\"n1\"><instance_node url=\"#n0\"/></node>";

    const GltfResult result = ReadImportedFile(folder.Write("cycle.dae", collada(nodes)));

    EXPECT_FALSE(result.ok);
    EXPECT_THAT(result.error, EndsWith(kFailed));
}

TEST(ImportLimits, InstancesOfInstancesTakeNoMoreMemoryThanTheirFileMay)
{
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
    GTEST_SKIP() << "the sanitizer's own memory counts, too";
#endif
    const TempFolder folder;
    std::string nodes;
    for (int level = 0; level < 12; ++level)
        nodes += "<node id=\"n" + std::to_string(level) + "\">" +
                 repeated("<instance_node url=\"#n" + std::to_string(level + 1) + "\"/>", 10) +
                 "</node>";
    nodes += "<node id=\"n12\"><instance_geometry url=\"#g\"/></node>";
    const std::string bytes = collada(nodes);

    const GltfResult result = ReadImportedFile(folder.Write("many.dae", bytes));

    EXPECT_FALSE(result.ok);
    EXPECT_THAT(result.error, EndsWith(L": the file cannot be read: that takes more than 64 MB of "
                                       L"memory, too much for its " +
                                       std::to_wstring(bytes.size()) + L" bytes"));
}

TEST(ImportLimits, BytesThatUnfoldToManyAreRefused)
{
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
    GTEST_SKIP() << "the sanitizer's own memory counts, too";
#endif
    // Blocks of 32 KB each, which hold nothing.
    const TempFolder folder;
    const std::string block("\x00\x80\x08\x00"
                            "CK\x03\x00\x00\x00\x00\x00",
                            12);
    const std::string bytes =
        "xof 0303tzip0032" + std::string("\xFF\xFF\xFF\x7F", 4) + repeated(block, 20000);

    const GltfResult result = ReadImportedFile(folder.Write("bomb.x", bytes));

    EXPECT_FALSE(result.ok);
    EXPECT_THAT(result.error, HasSubstr(L"that takes more than 73 MB of memory, too much for its "
                                        L"240020 bytes"));
}

TEST(ImportLimits, GrowWithTheFile)
{
    EXPECT_EQ(OrvikMesh::ImportLimits(0).memoryBytes, 64000000u);
    EXPECT_EQ(OrvikMesh::ImportLimits(1000000).memoryBytes, 104000000u);
    EXPECT_EQ(OrvikMesh::ImportLimits(0).processorSeconds, 30u);
    EXPECT_EQ(OrvikMesh::ImportLimits(10000000).processorSeconds, 50u);
}

TEST(ImportLimits, AFileThatNamesNoPlaceSaysSo)
{
    const TempFolder folder;

    const GltfResult result = ReadImportedFile(folder.Write("a.lwo", "no such file"));

    EXPECT_THAT(result.error, EndsWith(L"; the library that reads it does not tell where"));
}

TEST(ImportLimits, AFileThatNamesItsPlaceIsBelieved)
{
    const TempFolder folder;

    const GltfResult result = ReadImportedFile(
        folder.Write("a.fbx", "; FBX 7.3.0 project file\nObjects: {\n a: b c : :\n}\n"));

    EXPECT_FALSE(result.ok);
    EXPECT_THAT(result.error, HasSubstr(L"line 3"));
    EXPECT_THAT(result.error, testing::Not(HasSubstr(L"does not tell where")));
}

/// Remembers what comes.
struct Received
{
    std::vector<std::string> calls;

    ImportSink Functions()
    {
        ImportSink sink;
        sink.context = this;
        sink.isWanted = [](void*) { return true; };
        sink.progress = [](void* context, double share) {
            static_cast<Received*>(context)->calls.push_back("progress " + std::to_string(share));
        };
        sink.addMesh = [](void* context, const ImportedMesh* mesh) {
            std::string call = std::string("mesh ") + mesh->name;
            for (std::size_t i = 0; i < 3 * mesh->vertexCount; ++i)
                call += " " + std::to_string(static_cast<int>(mesh->positions[i]));
            call += mesh->normals ? " normals" : "";
            call += mesh->colors ? " colors " + std::to_string(mesh->colors[3]) : "";
            for (std::size_t i = 0; i < mesh->cornerCount; ++i)
                call += " " + std::to_string(mesh->corners[i]);
            call += mesh->hasColor ? " " + std::to_string(mesh->color[0]) : "";
            static_cast<Received*>(context)->calls.push_back(call);
            return true;
        };
        sink.addNode = [](void* context, const ImportedNode* node) {
            std::string call = std::string("node ") + node->name + " " +
                               std::to_string(static_cast<std::int32_t>(node->parent)) + " " +
                               std::to_string(static_cast<int>(node->matrix[12]));
            for (std::size_t i = 0; i < node->meshCount; ++i)
                call += " " + std::to_string(node->meshes[i]);
            static_cast<Received*>(context)->calls.push_back(call);
            return true;
        };
        return sink;
    }
};

/// What a writer makes of one mesh, one node and the end.
std::string wireBytes()
{
    std::string bytes;
    const OrvikOs::ApartWriter write = [&bytes](const void* from, std::size_t count) {
        bytes.append(static_cast<const char*>(from), count);
        return true;
    };
    WireWriter writer(write);
    const ImportSink sink = writer.Functions();
    const float positions[] = {0, 0, 0, 1, 0, 0, 0, 2, 0};
    const std::uint8_t colors[] = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12};
    const std::uint32_t corners[] = {0, 1, 2};
    ImportedMesh mesh;
    mesh.name = "eightlet";
    mesh.vertexCount = 3;
    mesh.positions = positions;
    mesh.colors = colors;
    mesh.corners = corners;
    mesh.cornerCount = 3;
    mesh.hasColor = true;
    mesh.color[0] = 200;
    const std::uint32_t meshes[] = {0, 0};
    ImportedNode node;
    node.name = "";
    node.matrix[12] = 5.0;
    node.meshes = meshes;
    node.meshCount = 2;
    sink.progress(sink.context, 0.5);
    sink.addMesh(sink.context, &mesh);
    sink.addNode(sink.context, &node);
    writer.End(false, "why");
    return bytes;
}

TEST(ImportWire, CarriesMeshesNodesProgressAndTheEndInPiecesOfAnySize)
{
    const std::string bytes = wireBytes();
    for (const std::size_t piece : {std::size_t{1}, std::size_t{7}, bytes.size()}) {
        Received received;
        const ImportSink sink = received.Functions();
        WireReader reader(sink, 1000000);
        for (std::size_t at = 0; at < bytes.size(); at += piece)
            ASSERT_TRUE(reader.Take(bytes.data() + at, std::min(piece, bytes.size() - at)));

        EXPECT_THAT(received.calls,
                    testing::ElementsAre("progress 0.500000",
                                         "mesh eightlet 0 0 0 1 0 0 0 2 0 colors 4 0 1 2 200",
                                         "node  -1 5 0 0"));
        EXPECT_TRUE(reader.IsEnded());
        EXPECT_FALSE(reader.IsRead());
        EXPECT_EQ(reader.Reason(), "why");
    }
}

TEST(ImportWire, BelievesNoNumberOfADamagedMessage)
{
    const std::string good = wireBytes();
    for (std::size_t at = 0; at + 8 <= good.size(); at += 8)
        for (const std::uint64_t number :
             {std::uint64_t{1} << 20, std::uint64_t{1} << 40, std::uint64_t{1} << 62,
              std::numeric_limits<std::uint64_t>::max()}) {
            std::string bytes = good;
            std::memcpy(bytes.data() + at, &number, sizeof number);
            Received received;
            const ImportSink sink = received.Functions();
            WireReader reader(sink, 1000000);

            reader.Take(bytes.data(), bytes.size());

            EXPECT_LE(received.calls.size(), 3u) << at;
        }
}

} // namespace
