#include "MeshFiles.h"

#include <gtest/gtest.h>

#include <random>

namespace {

std::string wavefrontSample()
{
    std::string text = "mtllib a.mtl\no body\n";
    for (int i = 0; i < 40; ++i)
        text += "v " + std::to_string(i) + " " + std::to_string(i * i % 17) + " 0.5\nvn 0 0 1\n";
    for (int i = 1; i < 38; ++i)
        text += "f " + std::to_string(i) + "//1 " + std::to_string(i + 1) + "//2 -1//-1 " +
                std::to_string(i + 2) + "//3\n";
    return text;
}

/// A reading either gives triangles whose indices are in range, or says why not.
void expectSound(const ReadResult& result)
{
    if (!result.ok) {
        EXPECT_FALSE(result.error.empty());
        return;
    }
    EXPECT_GT(result.mesh.TriangleCount(), 0u);
    for (const std::uint32_t index : result.mesh.triangles)
        ASSERT_LT(index, result.mesh.VertexCount());
    std::uint64_t covered = 0;
    for (const OrvikMesh::MeshRange& range : result.mesh.ranges) {
        EXPECT_EQ(range.firstTriangle, covered);
        covered += range.triangleCount;
    }
    EXPECT_EQ(covered, result.mesh.TriangleCount());
}

using ReadBytes = ReadResult (*)(std::string_view, const OrvikMesh::ReadOptions&);

struct Subject
{
    const char* name;
    std::string bytes;
    ReadBytes read;
};

class HostileFile : public testing::TestWithParam<Subject>
{
};

} // namespace

TEST_P(HostileFile, CutAtEveryTenthIsReadOrRefused)
{
    const std::string& bytes = GetParam().bytes;
    for (std::size_t tenth = 0; tenth < 10; ++tenth)
        expectSound(GetParam().read(bytes.substr(0, bytes.size() * tenth / 10), {}));
}

TEST_P(HostileFile, WithFlippedBytesIsReadOrRefused)
{
    for (unsigned seed = 0; seed < 50; ++seed) {
        std::mt19937 random(seed);
        std::string bytes = GetParam().bytes;
        for (int i = 0; i < 8; ++i)
            bytes[random() % bytes.size()] = static_cast<char>(random());
        SCOPED_TRACE(seed);
        expectSound(GetParam().read(bytes, {}));
    }
}

TEST_P(HostileFile, RepeatedIsReadOrRefused)
{
    expectSound(GetParam().read(GetParam().bytes + GetParam().bytes, {}));
}

INSTANTIATE_TEST_SUITE_P(
    Formats, HostileFile,
    testing::Values(Subject{"BinaryStl", BinaryStl(Cylinder(12)), &ReadStlBytes},
                    Subject{"AsciiStl", AsciiStl(Cylinder(12), "tube"), &ReadStlBytes},
                    Subject{"Obj", wavefrontSample(), &ReadObjText}),
    [](const testing::TestParamInfo<Subject>& subject) { return std::string(subject.param.name); });

TEST(HostileFile, LongLineOfBackslashesEnds)
{
    std::string text = "f 1 2";
    for (int i = 0; i < 100000; ++i)
        text += " \\\n3";

    expectSound(ReadObjText("v 0 0 0\nv 1 0 0\nv 0 1 0\n" + text));
}

TEST(HostileFile, FacetWithEndlessVerticesIsLeftOut)
{
    std::string text = "solid x\nfacet normal 0 0 1\nouter loop\n";
    for (int i = 0; i < 1000; ++i)
        text += "vertex " + std::to_string(i) + " 0 0\n";

    const ReadResult result = ReadStlBytes(text + "endloop\nendfacet\nendsolid x\n");

    EXPECT_EQ(result.error, L"test: the file holds no triangle");
}
