#include "MeshFiles.h"
#include "MeshSamples.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

namespace {

/// A reading either gives triangles whose indices are in range, or says why not.
void expectSound(const ReadResult& result)
{
    if (!result.ok) {
        EXPECT_FALSE(result.error.empty());
        return;
    }
    EXPECT_EQ(result.mesh.TriangleCount() == 0, result.mesh.isPointCloud);
    EXPECT_GT(result.mesh.VertexCount(), 0u);
    for (const float coordinate : result.mesh.positions)
        ASSERT_TRUE(std::isfinite(coordinate));
    EXPECT_TRUE(result.mesh.normals.IsEmpty() ||
                result.mesh.normals.Size() == result.mesh.positions.Size());
    EXPECT_TRUE(result.mesh.colors.IsEmpty() ||
                result.mesh.colors.Size() == result.mesh.VertexCount() * 4);
    for (const std::uint32_t index : result.mesh.triangles)
        ASSERT_LT(index, result.mesh.VertexCount());
    std::uint64_t covered = 0;
    for (const OrvikMesh::MeshRange& range : result.mesh.ranges) {
        EXPECT_EQ(range.firstTriangle, covered);
        covered += range.triangleCount;
    }
    EXPECT_EQ(covered, result.mesh.TriangleCount());
}

using ReadContent = ReadResult (*)(std::string_view, const OrvikMesh::ReadOptions&);

struct Subject
{
    const char* name;
    std::string bytes;
    ReadContent read;
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
                    Subject{"Obj", ObjSample(), &ReadObjText},
                    Subject{"PlyText", PlyTextSample(), &ReadPlyBytes},
                    Subject{"PlyLittleEndian", PlyBinarySample(false), &ReadPlyBytes},
                    Subject{"PlyBigEndian", PlyBinarySample(true), &ReadPlyBytes},
                    Subject{"OffText", OffTextSample(), &ReadOffBytes},
                    Subject{"OffBinary", OffBinarySample(), &ReadOffBytes},
                    Subject{"PcdText", PcdTextSample(), &ReadPcdBytes},
                    Subject{"PcdBinary", PcdBinarySample(), &ReadPcdBytes},
                    Subject{"PcdCompressed", PcdCompressedSample(), &ReadPcdBytes},
                    Subject{"Xyz", PointTextSample(), &ReadXyzText},
                    Subject{"Pts", PointTextSample(), &ReadPtsText}),
    [](const testing::TestParamInfo<Subject>& subject) { return std::string(subject.param.name); });

TEST(HostileFile, LongLineOfBackslashesEnds)
{
    std::string text = "f 1 2";
    for (int i = 0; i < 100000; ++i)
        text += " \\\n3";

    expectSound(ReadObjText("v 0 0 0\nv 1 0 0\nv 0 1 0\n" + text));
}

TEST(HostileFile, BackslashBeforeALoneReturnEnds)
{
    const ReadResult result = ReadObjText("v 0 0 0\nv 1 0 0\nv 0 1 0\nf 1 2 \\\r3\nf 1 2 3\n");

    EXPECT_EQ(result.mesh.TriangleCount(), 1u);
}

TEST(HostileFile, ReadingManyLargePolygonsCanBeStopped)
{
    std::string vertices;
    std::string polygon;
    for (int i = 0; i < 200; ++i) {
        vertices += std::to_string(i * 7919 % 101) + " " + std::to_string(i * 104729 % 97) + " 0\n";
        polygon += " " + std::to_string(i);
    }
    std::string faces;
    for (int i = 0; i < 100; ++i)
        faces += "200" + polygon + "\n";
    int questions = 0;
    OrvikMesh::ReadOptions options;
    options.isCancelled = [&questions] { return ++questions > 50; };

    EXPECT_EQ(ReadOffBytes("OFF\n200 100 0\n" + vertices + faces, options).error,
              L"test: reading was cancelled");
}

TEST(HostileFile, FacetWithEndlessVerticesIsLeftOut)
{
    std::string text = "solid x\nfacet normal 0 0 1\nouter loop\n";
    for (int i = 0; i < 1000; ++i)
        text += "vertex " + std::to_string(i) + " 0 0\n";

    const ReadResult result = ReadStlBytes(text + "endloop\nendfacet\nendsolid x\n");

    EXPECT_EQ(result.error, L"test: the file holds no triangle");
}
