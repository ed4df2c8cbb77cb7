#include "MeshFiles.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace {

constexpr char kSquare[] = "0 0 0\n1 0 0\n1 1 0\n0 1 0\n";

std::string off(const std::string& rows)
{
    return "OFF\n" + rows;
}

ByteWriter binarySquare(const std::string& keyword)
{
    ByteWriter bytes(keyword + " BINARY\n", true);
    bytes.PutAll<std::int32_t>({4, 2, 0});
    bytes.PutAll<float>({0, 0, 0, 1, 0, 0, 1, 1, 0, 0, 1, 0});
    return bytes;
}

} // namespace

TEST(OffReader, ReadsPolygonsAndComments)
{
    const ReadResult result =
        ReadOffBytes("OFF # a square\n#\n\n 4 1 4 # counts\n"
                     "0 0 0 # first\n1 0 0\n\n1 1 0\n0 1 0\n4 0 1 2 3 # end\n");

    ASSERT_TRUE(result.ok) << result.error.c_str();
    EXPECT_EQ(result.mesh.TriangleCount(), 2u);
    EXPECT_EQ(result.mesh.VertexCount(), 4u);
    EXPECT_THAT(result.warnings, IsEmpty());
}

TEST(OffReader, TakesCountsBesideTheKeywordAndWithoutIt)
{
    for (const char* start : {"OFF 4 1 0\n", "4 1 0\n", "OFF\n4\n1 0\n", "4 1\n"}) {
        EXPECT_EQ(ReadOffBytes(std::string(start) + kSquare + "4 0 1 2 3\n").mesh.TriangleCount(),
                  2u)
            << start;
    }
}

TEST(OffReader, SplitsConcavePolygonsInside)
{
    const ReadResult result = ReadOffBytes(off("4 1 0\n0 0 0\n4 0 0\n1 1 0\n0 4 0\n4 0 1 2 3\n"));

    ASSERT_EQ(result.mesh.TriangleCount(), 2u);
    for (std::size_t i = 0; i < 2; ++i)
        EXPECT_THAT(result.Triangle(i), testing::Contains(2u));
}

TEST(OffReader, ReadsColorsOfVertices)
{
    const ReadResult bytes = ReadOffBytes(
        "COFF\n3 1 0\n0 0 0 255 0 0 255\n1 0 0 0 128 0 255\n0 1 0 0 0 1 64\n3 0 1 2\n");
    const ReadResult shares =
        ReadOffBytes("COFF\n3 1 0\n0 0 0 1 0 0 1\n1 0 0 0 0.5 0\n0 1 0 0 0 0 0.25\n3 0 1 2\n");

    EXPECT_THAT(bytes.Color(1), ElementsAre(0, 128, 0, 255));
    EXPECT_THAT(bytes.Color(2), ElementsAre(0, 0, 1, 64));
    EXPECT_THAT(shares.Color(0), ElementsAre(255, 0, 0, 255));
    EXPECT_THAT(shares.Color(1), ElementsAre(0, 128, 0, 255));
    EXPECT_THAT(shares.Color(2), ElementsAre(0, 0, 0, 64));
}

TEST(OffReader, ReadsNormalsColorsAndTextureCoordinatesInTheirOrder)
{
    const ReadResult result =
        ReadOffBytes("STCNOFF\n3 1 0\n0 0 0 0 0 2 255 0 0 255 0.5 0.5\n"
                     "1 0 0 0 0 1 0 255 0 0 0\n0 1 0 0 0 1 0 0 255 255 1 1\n3 0 1 2\n");

    ASSERT_TRUE(result.ok) << result.error.c_str();
    EXPECT_THAT(result.Normal(0), ElementsAre(0, 0, 1));
    EXPECT_THAT(result.Color(0), ElementsAre(255, 0, 0, 255));
    // Three components and two texture coordinates: no alpha.
    EXPECT_THAT(result.Color(1), ElementsAre(0, 255, 0, 255));
}

TEST(OffReader, ReadsColorsOfFaces)
{
    const ReadResult result = ReadOffBytes(
        off(std::string("4 3 0\n") + kSquare +
            "3 0 1 2 255 0 0\n3 0 2 3 0.0 0.5 1.0 0.5\n3 0 1 3 7 # of a colour map\n"));

    ASSERT_EQ(result.mesh.TriangleCount(), 3u);
    EXPECT_THAT(result.Color(result.Triangle(0)[0]), ElementsAre(255, 0, 0, 255));
    EXPECT_THAT(result.Color(result.Triangle(1)[0]), ElementsAre(0, 128, 255, 128));
    EXPECT_THAT(result.Color(result.Triangle(2)[0]), ElementsAre(255, 255, 255, 255));
}

TEST(OffReader, DividesByTheHomogeneousCoordinate)
{
    const ReadResult result = ReadOffBytes("4OFF\n3 1 0\n0 0 0 1\n4 0 0 2\n0 1 0 1\n3 0 1 2\n");

    EXPECT_THAT(result.Vertex(1), ElementsAre(2, 0, 0));
}

TEST(OffReader, TakesThreeOfAnyNumberOfDimensions)
{
    EXPECT_EQ(ReadOffBytes("nOFF\n3\n4 1 0\n" + std::string(kSquare) + "4 0 1 2 3\n")
                  .mesh.TriangleCount(),
              2u);
    EXPECT_EQ(ReadOffBytes("nOFF\n5\n4 1 0\n").error,
              L"test: line 2: vertices of 5 dimensions cannot be read");
}

TEST(OffReader, ReadsBinary)
{
    ByteWriter bytes = binarySquare("OFF");
    bytes.PutAll<std::int32_t>({3, 0, 1, 2, 0});
    bytes.PutAll<std::int32_t>({3, 0, 2, 3, 3}).PutAll<float>({1.0f, 0.5f, 0.0f});

    const ReadResult result = ReadOffBytes(bytes.Bytes());

    ASSERT_TRUE(result.ok) << result.error.c_str();
    EXPECT_EQ(result.mesh.TriangleCount(), 2u);
    EXPECT_THAT(result.At(1, 1), ElementsAre(1, 1, 0));
    EXPECT_THAT(result.Color(result.Triangle(1)[0]), ElementsAre(255, 128, 0, 255));
}

TEST(OffReader, KeepsTheBinaryFacesBeforeTheEnd)
{
    ByteWriter bytes = binarySquare("OFF");
    bytes.PutAll<std::int32_t>({3, 0, 1, 2, 0}).PutAll<std::int32_t>({2147483647, 0});

    const ReadResult result = ReadOffBytes(bytes.Bytes());

    ASSERT_TRUE(result.ok) << result.error.c_str();
    EXPECT_EQ(result.mesh.TriangleCount(), 1u);
    EXPECT_THAT(result.warnings,
                ElementsAre(L"test: byte 91: the file ends in its faces, after 1 of 2; these were "
                            L"read"));
}

TEST(OffReader, WithoutFacesIsAPointCloud)
{
    const ReadResult result = ReadOffBytes("COFF\n2 0 0\n0 0 0 255 0 0 255\n1 2 3 0 0 255 255\n");

    ASSERT_TRUE(result.ok) << result.error.c_str();
    EXPECT_TRUE(result.mesh.isPointCloud);
    EXPECT_EQ(result.mesh.VertexCount(), 2u);
    EXPECT_THAT(result.Color(1), ElementsAre(0, 0, 255, 255));
}

TEST(OffReader, TakesUtf16AndLinesOfAnyEnd)
{
    const std::string text = off("4 1 0\n" + std::string(kSquare) + "4 0 1 2 3\n");
    std::string wide = "\xFF\xFE";
    std::string returns;
    for (const char letter : text) {
        wide += letter;
        wide += '\0';
        returns += letter == '\n' ? '\r' : letter;
    }

    EXPECT_EQ(ReadOffBytes(wide).mesh.TriangleCount(), 2u);
    EXPECT_EQ(ReadOffBytes(returns).mesh.TriangleCount(), 2u);
}

namespace {

struct BadOff
{
    const char* name;
    std::string bytes;
    const wchar_t* error;
};

class OffError : public testing::TestWithParam<BadOff>
{
};

} // namespace

TEST_P(OffError, NamesPlaceAndReason)
{
    const ReadResult result = ReadOffBytes(GetParam().bytes);

    EXPECT_FALSE(result.ok);
    EXPECT_EQ(result.error, GetParam().error);
}

INSTANTIATE_TEST_SUITE_P(
    Files, OffError,
    testing::Values(
        BadOff{"Empty", "", L"test: the file is empty"},
        BadOff{"Stl", AsciiStl(Cube(), "cube"),
               L"test: line 1: this is no OFF file: it begins neither with \"OFF\" nor with a "
               L"count"},
        BadOff{"LongerKeyword", "OFFICE 1 2 3\n",
               L"test: line 1: this is no OFF file: it begins neither with \"OFF\" nor with a "
               L"count"},
        BadOff{"NoCounts", off("# nothing\n"),
               L"test: line 3: the counts of vertices and faces are missing or no numbers"},
        BadOff{"Points", "1.5 2 3\n",
               L"test: line 1: the counts of vertices and faces are missing or no numbers"},
        BadOff{"ManyVertices", off("353535235358 6 0\n" + std::string(kSquare)),
               L"test: line 2: the header announces 353535235358 vertices and 6 faces, more than "
               L"the file can hold"},
        BadOff{"CountBeyond64Bits", off("99999999999999999999999 6 0\n" + std::string(kSquare)),
               L"test: line 2: the header announces 999999999999999999 vertices and 6 faces, more "
               L"than the file can hold"},
        BadOff{"CutInVertices", off("4 1 0\n0 0 0 0 0 0 0 0 0 0 0\n1 0 0\n"),
               L"test: line 5: the file ends in its vertices, after 2 of 4; it has no faces"},
        BadOff{"BinaryWithoutCounts", "OFF BINARY\nabc",
               L"test: line 2: the counts of vertices and faces are missing or no numbers"},
        BadOff{"NoPoint", off("0 0 0\n"), L"test: the file holds no point"},
        BadOff{"NoTriangle", off("4 1 0\n" + std::string(kSquare) + "2 0 1\n"),
               L"test: the file holds no triangle"}),
    [](const testing::TestParamInfo<BadOff>& file) { return std::string(file.param.name); });

TEST(OffReader, KeepsTheFacesBeforeTheEndOfACutFile)
{
    const ReadResult result =
        ReadOffBytes(off("4 4294967295 0\n" + std::string(kSquare) + "3 0 1 2\n3 0 1"));

    ASSERT_TRUE(result.ok) << result.error.c_str();
    EXPECT_EQ(result.mesh.TriangleCount(), 1u);
    EXPECT_THAT(
        result.warnings,
        ElementsAre(
            L"test: line 8: the file ends in its faces, after 2 of 4294967295; these were read",
            L"test: line 8: a value is missing or no number; faces left out: 1"));
}

TEST(OffReader, LeavesOutBadFacesAndSaysSo)
{
    const ReadResult result =
        ReadOffBytes(off("5 5 0\n" + std::string(kSquare) +
                         "nan 0 0\n3 0 1 4\n3 0 1 5\n3 0 1 -3\n4294967295 0 1\n3 0 1 2\n"));

    EXPECT_EQ(result.mesh.TriangleCount(), 1u);
    EXPECT_THAT(
        result.warnings,
        ElementsAre(L"test: line 11: a value is missing or no number; faces left out: 1",
                    L"test: line 9: an index is out of range; faces left out: 2",
                    L"test: line 8: a coordinate is not a finite number; faces left out: 1"));
}

TEST(OffReader, CountsVerticesWithoutThreeNumbers)
{
    const ReadResult result =
        ReadOffBytes(off("4 2 0\n0 0 0\n1 0 0\n0 1 0\n0 1\n3 0 1 2\n3 0 1 3\n"));

    EXPECT_EQ(result.mesh.TriangleCount(), 1u);
    EXPECT_THAT(result.warnings.at(0),
                HasSubstr(L"line 6: a value is missing or no number; such vertices: 1"));
}

TEST(OffReader, StopsWhenItIsCancelled)
{
    OrvikMesh::ReadOptions options;
    options.isCancelled = [] { return true; };

    EXPECT_EQ(ReadOffBytes(off("4 1 0\n" + std::string(kSquare) + "4 0 1 2 3\n"), options).error,
              L"test: reading was cancelled");
}
