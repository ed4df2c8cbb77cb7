#include "MeshFiles.h"
#include "readers/BinaryStl.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace {

Triangle triangleAt(float x)
{
    return {Point{x, 0.0f, 0.0f}, Point{x + 1.0f, 0.0f, 0.0f}, Point{x, 1.0f, 0.0f}};
}

} // namespace

TEST(BinaryStl, WeldsTheCornersOfACubeToEightVertices)
{
    const ReadResult result = ReadStlBytes(BinaryStl(Cube()));

    ASSERT_TRUE(result.ok);
    EXPECT_EQ(result.mesh.VertexCount(), 8u);
    EXPECT_EQ(result.mesh.TriangleCount(), 12u);
    EXPECT_THAT(result.warnings, IsEmpty());
}

TEST(BinaryStl, KeepsTheCornersOfEveryTriangleInOrder)
{
    const std::vector<Triangle> cube = Cube();

    const ReadResult result = ReadStlBytes(BinaryStl(cube));

    for (std::size_t triangle = 0; triangle < cube.size(); ++triangle)
        for (std::size_t corner = 0; corner < 3; ++corner)
            EXPECT_EQ(result.At(triangle, corner), cube[triangle][corner]);
}

TEST(BinaryStl, NumbersVerticesInTheOrderOfFirstUse)
{
    const ReadResult result = ReadStlBytes(BinaryStl({triangleAt(5.0f), triangleAt(6.0f)}));

    const std::vector<std::uint32_t> indices(result.mesh.triangles.begin(),
                                             result.mesh.triangles.end());
    EXPECT_THAT(indices, ElementsAre(0u, 1u, 2u, 1u, 3u, 4u));
}

TEST(BinaryStl, TakesMinusZeroForZero)
{
    Triangle mirrored = triangleAt(0.0f);
    for (Point& point : mirrored)
        for (float& coordinate : point)
            coordinate = coordinate == 0.0f ? -0.0f : coordinate;

    const ReadResult result = ReadStlBytes(BinaryStl({triangleAt(0.0f), mirrored}));

    EXPECT_EQ(result.mesh.VertexCount(), 3u);
    EXPECT_FALSE(std::signbit(result.mesh.positions[1]));
}

TEST(BinaryStl, GivesOneRangeWithoutNames)
{
    const ReadResult result = ReadStlBytes(BinaryStl(Cube()));

    ASSERT_EQ(result.mesh.ranges.size(), 1u);
    EXPECT_EQ(result.mesh.ranges[0].triangleCount, 12u);
    EXPECT_EQ(result.mesh.ranges[0].object, OrvikMesh::kNone);
}

TEST(BinaryStl, ResultDoesNotDependOnTheNumberOfPieces)
{
    std::vector<Triangle> torus = Torus(20000);
    torus[7000][1][1] = std::numeric_limits<float>::infinity();
    const std::string bytes = BinaryStl(torus);
    OrvikMesh::ReadMessages messages(L"test");
    OrvikMesh::MeshData whole;
    OrvikMesh::MeshData pieces;

    ASSERT_TRUE(OrvikMesh::ReadBinaryStl(bytes, {}, whole, messages, 1));
    ASSERT_TRUE(OrvikMesh::ReadBinaryStl(bytes, {}, pieces, messages, 7));

    EXPECT_TRUE(std::equal(whole.positions.begin(), whole.positions.end(), pieces.positions.begin(),
                           pieces.positions.end()));
    EXPECT_TRUE(std::equal(whole.triangles.begin(), whole.triangles.end(), pieces.triangles.begin(),
                           pieces.triangles.end()));
    EXPECT_THAT(messages.Warnings(),
                ElementsAre(L"test: byte 350084: a coordinate of triangle 7001 is not a finite "
                            L"number; triangles left out: 1",
                            L"test: byte 350084: a coordinate of triangle 7001 is not a finite "
                            L"number; triangles left out: 1"));
}

TEST(BinaryStl, ReadsAFileWhoseHeaderBeginsWithSolid)
{
    const ReadResult result = ReadStlBytes(BinaryStl(Cube(), 12, "solid exported, facet by facet"));

    EXPECT_TRUE(result.ok);
    EXPECT_EQ(result.mesh.TriangleCount(), 12u);
}

TEST(BinaryStl, CountLargerThanTheFileIsAWarningWithBothNumbers)
{
    const ReadResult result = ReadStlBytes(BinaryStl(Cube(), 1000));

    EXPECT_TRUE(result.ok);
    EXPECT_EQ(result.mesh.TriangleCount(), 12u);
    EXPECT_THAT(result.warnings, ElementsAre(L"test: byte 80: the header announces 1000 triangles, "
                                             L"the file ends after 12; these were read"));
}

TEST(BinaryStl, HugeCountAllocatesOnlyWhatTheFileHolds)
{
    const ReadResult result = ReadStlBytes(BinaryStl(Cube(), 0xFFFFFFFFu));

    EXPECT_EQ(result.mesh.TriangleCount(), 12u);
    EXPECT_LT(result.mesh.triangles.Capacity(), 1000u);
    EXPECT_EQ(result.warnings.size(), 1u);
}

TEST(BinaryStl, CountSmallerThanTheFileLeavesTheRestOutWithAWarning)
{
    const ReadResult result = ReadStlBytes(BinaryStl(Cube(), 10));

    EXPECT_EQ(result.mesh.TriangleCount(), 10u);
    EXPECT_THAT(result.warnings, ElementsAre(L"test: byte 80: the header announces 10 triangles; "
                                             L"bytes after them, left out: 100"));
}

TEST(BinaryStl, CountOfZeroReadsWhatIsThereWithAWarning)
{
    const ReadResult result = ReadStlBytes(BinaryStl(Cube(), 0));

    EXPECT_EQ(result.mesh.TriangleCount(), 12u);
    EXPECT_THAT(result.warnings, ElementsAre(L"test: byte 80: the header announces no triangles, "
                                             L"the file holds 12; these were read"));
}

TEST(BinaryStl, TruncatedFileKeepsItsWholeTrianglesWithAWarning)
{
    const std::string bytes = BinaryStl(Cube());

    const ReadResult result = ReadStlBytes(bytes.substr(0, bytes.size() - 30));

    EXPECT_TRUE(result.ok);
    EXPECT_EQ(result.mesh.TriangleCount(), 11u);
    EXPECT_THAT(result.warnings, ElementsAre(L"test: byte 80: the header announces 12 triangles, "
                                             L"the file ends after 11; these were read"));
}

TEST(BinaryStl, FileWithoutTrianglesIsAnError)
{
    const ReadResult result = ReadStlBytes(BinaryStl({}));

    EXPECT_FALSE(result.ok);
    EXPECT_EQ(result.error, L"test: the file holds no triangle");
}

TEST(BinaryStl, FileShorterThanAHeaderIsAnError)
{
    const ReadResult result = ReadStlBytes(std::string(40, '\1'));

    EXPECT_FALSE(result.ok);
    EXPECT_EQ(result.error, L"test: this is no STL file: 40 bytes are fewer than a header's");
}

TEST(BinaryStl, BytesOfAnotherFormatAreAnError)
{
    std::string bytes;
    for (unsigned i = 0, value = 1; i < 5000; ++i) {
        value = value * 1664525u + 1013904223u;
        bytes += static_cast<char>(value >> 24);
    }

    const ReadResult result = ReadStlBytes(bytes);

    EXPECT_FALSE(result.ok);
    EXPECT_EQ(result.error, L"test: this is no STL file: it is no text, and the 227120290 "
                            L"triangles that its header announces do not fit its 5000 bytes");
}

TEST(BinaryStl, ATextOfAnotherKindAndZerosAloneAreAnError)
{
    for (const char byte : {'(', '\0', '\n'}) {
        const ReadResult result = ReadStlBytes(std::string(5000, byte));

        EXPECT_FALSE(result.ok);
        EXPECT_EQ(result.error.find(L"test: this is no STL file: it is no text, and the "), 0u)
            << result.error;
    }
}

TEST(BinaryStl, TrianglesWithInfinitiesAndNansAreLeftOutAndCounted)
{
    Triangle infinite = triangleAt(3.0f);
    infinite[1][2] = std::numeric_limits<float>::infinity();
    Triangle nan = triangleAt(4.0f);
    nan[2][0] = std::numeric_limits<float>::quiet_NaN();

    const ReadResult result =
        ReadStlBytes(BinaryStl({triangleAt(0.0f), infinite, nan, triangleAt(9.0f)}));

    EXPECT_EQ(result.mesh.TriangleCount(), 2u);
    EXPECT_EQ(result.mesh.ranges[0].triangleCount, 2u);
    EXPECT_EQ(result.mesh.VertexCount(), 6u);
    EXPECT_THAT(result.warnings, ElementsAre(L"test: byte 134: a coordinate of triangle 2 is not a "
                                             L"finite number; triangles left out: 2"));
}

TEST(BinaryStl, OnlyTrianglesThatAreNotFiniteAreAnError)
{
    Triangle nan = triangleAt(4.0f);
    nan[2][0] = std::numeric_limits<float>::quiet_NaN();

    EXPECT_EQ(ReadStlBytes(BinaryStl({nan})).error, L"test: the file holds no triangle");
}

TEST(BinaryStl, DenormalCoordinatesAreKept)
{
    Triangle tiny = triangleAt(0.0f);
    tiny[1][0] = std::numeric_limits<float>::denorm_min();

    const ReadResult result = ReadStlBytes(BinaryStl({tiny}));

    EXPECT_EQ(result.At(0, 1)[0], std::numeric_limits<float>::denorm_min());
    EXPECT_THAT(result.warnings, IsEmpty());
}

TEST(AsciiStl, ReadsTheSameCubeAsTheBinaryForm)
{
    const std::vector<Triangle> cube = Cube(0.25f);

    const ReadResult result = ReadStlBytes(AsciiStl(cube, "cube"));

    ASSERT_TRUE(result.ok);
    EXPECT_THAT(result.warnings, IsEmpty());
    ASSERT_EQ(result.mesh.TriangleCount(), 12u);
    EXPECT_EQ(result.mesh.VertexCount(), 8u);
    for (std::size_t triangle = 0; triangle < cube.size(); ++triangle)
        for (std::size_t corner = 0; corner < 3; ++corner)
            EXPECT_EQ(result.At(triangle, corner), cube[triangle][corner]);
}

TEST(AsciiStl, EachSolidBecomesAnObjectWithItsName)
{
    const ReadResult result =
        ReadStlBytes(AsciiStl(Cube(), "Left Box") + AsciiStl({triangleAt(7.0f)}, "\xC3\x9C"
                                                                                 "ber"));

    EXPECT_THAT(result.mesh.objects, ElementsAre(L"Left Box", L"\u00DC"
                                                              L"ber"));
    ASSERT_EQ(result.mesh.ranges.size(), 2u);
    EXPECT_EQ(result.mesh.ranges[0].triangleCount, 12u);
    EXPECT_EQ(result.mesh.ranges[1].firstTriangle, 12u);
    EXPECT_EQ(result.mesh.ranges[1].triangleCount, 1u);
    EXPECT_EQ(result.mesh.ranges[1].object, 1u);
}

TEST(AsciiStl, JunkLinesAreLeftOutAndCountedWithTheFirstOne)
{
    std::string text = AsciiStl({triangleAt(0.0f)}, "part");
    text.insert(text.find("    endloop"), "what is this\n");
    text += "more of it\n";

    const ReadResult result = ReadStlBytes(text);

    EXPECT_EQ(result.mesh.TriangleCount(), 1u);
    EXPECT_THAT(result.warnings, ElementsAre(L"test: line 7: not understood; lines left out: 2"));
}

TEST(AsciiStl, FacetWithABadNumberIsLeftOutAndCounted)
{
    std::string text = AsciiStl({triangleAt(0.0f), triangleAt(1.0f)}, "part");
    text.replace(text.find("vertex 1 0 0"), 12, "vertex 1 O 0");

    const ReadResult result = ReadStlBytes(text);

    EXPECT_EQ(result.mesh.TriangleCount(), 1u);
    EXPECT_THAT(result.warnings,
                ElementsAre(L"test: line 2: fewer than three vertices, or a number that is none; "
                            L"facets left out: 1"));
}

TEST(AsciiStl, FacetWithTwoVerticesIsLeftOutAndCounted)
{
    std::string text = AsciiStl({triangleAt(0.0f), triangleAt(1.0f)}, "part");
    const std::size_t at = text.find("      vertex 1 0 0\n");
    text.erase(at, 19);

    const ReadResult result = ReadStlBytes(text);

    EXPECT_EQ(result.mesh.TriangleCount(), 1u);
    EXPECT_EQ(result.warnings.size(), 1u);
}

TEST(AsciiStl, FacetWithFourVerticesIsSplit)
{
    std::string text = AsciiStl({triangleAt(0.0f)}, "part");
    text.insert(text.find("    endloop"), "      vertex -1 0.5 0\n");

    const ReadResult result = ReadStlBytes(text);

    EXPECT_EQ(result.mesh.TriangleCount(), 2u);
    EXPECT_THAT(result.warnings,
                ElementsAre(L"test: line 2: more than three vertices; facets split: 1"));
}

TEST(AsciiStl, TruncatedTextKeepsWhatIsWholeWithAWarning)
{
    const std::string text = AsciiStl({triangleAt(0.0f), triangleAt(1.0f)}, "part");

    const ReadResult result = ReadStlBytes(text.substr(0, text.rfind("vertex")));

    EXPECT_TRUE(result.ok);
    EXPECT_EQ(result.mesh.TriangleCount(), 1u);
    EXPECT_THAT(result.warnings.back(), HasSubstr(L"the file ends before \"endsolid\""));
}

TEST(AsciiStl, WordsCountInAnyCaseAndLinesMayBeCutAnywhere)
{
    const ReadResult result = ReadStlBytes("SOLID x\r\nFACET NORMAL 0 0 1 OUTER LOOP\r\n"
                                           "Vertex 0 0\r\n0 VERTEX +1 0 0 vertex 0 1e0 0 ENDLOOP "
                                           "EndFacet\r\nENDSOLID x\r\n");

    EXPECT_TRUE(result.ok);
    EXPECT_EQ(result.mesh.TriangleCount(), 1u);
    EXPECT_THAT(result.warnings, IsEmpty());
}

TEST(AsciiStl, SolidWithoutFacetsIsAnError)
{
    EXPECT_EQ(ReadStlBytes("solid nothing\nendsolid nothing\n").error,
              L"test: the file holds no triangle");
}

TEST(AsciiStl, ReadsUtf16WithAByteOrderMark)
{
    std::string bytes = "\xFF\xFE";
    for (const char letter : AsciiStl({triangleAt(0.0f)}, "part")) {
        bytes += letter;
        bytes += '\0';
    }

    EXPECT_EQ(ReadStlBytes(bytes).mesh.TriangleCount(), 1u);
}

TEST(AsciiStl, CoordinatesThatAreNotFiniteAreLeftOutAndCounted)
{
    std::string text = AsciiStl({triangleAt(0.0f), triangleAt(1.0f)}, "part");
    text.replace(text.find("vertex 1 0 0"), 12, "vertex inf 0 nan");

    const ReadResult result = ReadStlBytes(text);

    EXPECT_EQ(result.mesh.TriangleCount(), 1u);
    EXPECT_THAT(
        result.warnings,
        ElementsAre(
            L"test: a coordinate of triangle 1 is not a finite number; triangles left out: 1"));
}
