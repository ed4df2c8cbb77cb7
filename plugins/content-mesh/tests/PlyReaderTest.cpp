#include "MeshFiles.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace {

constexpr char kTetrahedron[] = "0 0 0\n1 0 0\n0 1 0\n0 0 1\n"
                                "3 0 2 1\n3 0 1 3\n3 1 2 3\n3 2 0 3\n";

std::string header(const std::string& format, const std::string& elements)
{
    return "ply\nformat " + format + " 1.0\n" + elements + "end_header\n";
}

std::string vertexElement(std::uint64_t count, const std::string& extra = "")
{
    return "element vertex " + std::to_string(count) +
           "\nproperty float x\nproperty float y\nproperty float z\n" + extra;
}

std::string faceElement(std::uint64_t count, const std::string& extra = "")
{
    return "element face " + std::to_string(count) + "\nproperty list uchar int vertex_indices\n" +
           extra;
}

std::string text(const std::string& elements, const std::string& rows)
{
    return header("ascii", elements) + rows;
}

std::string tetrahedron()
{
    return text(vertexElement(4) + faceElement(4), kTetrahedron);
}

/// One triangle in binary, of either byte order.
ByteWriter binaryTriangle(bool isBigEndian)
{
    ByteWriter bytes(header(isBigEndian ? "binary_big_endian" : "binary_little_endian",
                            vertexElement(3) + faceElement(1)),
                     isBigEndian);
    bytes.PutAll<float>({0, 0, 0, 1, 0, 0, 0, 1.5f, 0});
    return bytes.Put<std::uint8_t>(3).PutAll<std::int32_t>({0, 1, 2});
}

class PlyByteOrder : public testing::TestWithParam<bool>
{
};

} // namespace

TEST(PlyReader, ReadsTheTrianglesOfAText)
{
    const ReadResult result = ReadPlyBytes(tetrahedron());

    ASSERT_TRUE(result.ok) << result.error.c_str();
    EXPECT_EQ(result.mesh.VertexCount(), 4u);
    EXPECT_EQ(result.mesh.TriangleCount(), 4u);
    EXPECT_THAT(result.At(1, 1), ElementsAre(1, 0, 0));
    EXPECT_FALSE(result.mesh.isPointCloud);
    EXPECT_THAT(result.warnings, IsEmpty());
}

TEST_P(PlyByteOrder, ReadsBinary)
{
    const ReadResult result = ReadPlyBytes(binaryTriangle(GetParam()).Bytes());

    ASSERT_TRUE(result.ok) << result.error.c_str();
    EXPECT_THAT(result.At(0, 2), ElementsAre(0, 1.5f, 0));
    EXPECT_THAT(result.warnings, IsEmpty());
}

TEST_P(PlyByteOrder, ReadsValuesOfAnyType)
{
    ByteWriter bytes(header(GetParam() ? "binary_big_endian" : "binary_little_endian",
                            "element vertex 3\nproperty int8 z\nproperty double nz\n"
                            "property uint16 x\nproperty short ny\nproperty float64 y\n"
                            "property uint32 nx\n"
                            "element face 1\nproperty list uint16 uint8 vertex_index\n"),
                     GetParam());
    for (int i = 0; i < 3; ++i)
        bytes.Put<std::int8_t>(static_cast<std::int8_t>(-i))
            .Put<double>(0.0)
            .Put<std::uint16_t>(static_cast<std::uint16_t>(300 * i))
            .Put<std::int16_t>(-5)
            .Put<double>(i == 2 ? 7.25 : 0.0)
            .Put<std::uint32_t>(0);
    bytes.Put<std::uint16_t>(3).PutAll<std::uint8_t>({0, 1, 2});

    const ReadResult result = ReadPlyBytes(bytes.Bytes());

    ASSERT_TRUE(result.ok) << result.error.c_str();
    EXPECT_THAT(result.Vertex(2), ElementsAre(600, 7.25f, -2));
    EXPECT_THAT(result.Normal(0), ElementsAre(0, -1, 0));
}

INSTANTIATE_TEST_SUITE_P(Orders, PlyByteOrder, testing::Bool(), [](const auto& order) {
    return std::string(order.param ? "BigEndian" : "LittleEndian");
});

namespace {

struct ListType
{
    const char* name;
    std::size_t bytes;
    bool isFloat;
};

void putAs(ByteWriter& bytes, const ListType& type, unsigned value)
{
    if (type.isFloat && type.bytes == 4)
        bytes.Put(static_cast<float>(value));
    else if (type.isFloat)
        bytes.Put(static_cast<double>(value));
    else if (type.bytes == 1)
        bytes.Put(static_cast<std::uint8_t>(value));
    else if (type.bytes == 2)
        bytes.Put(static_cast<std::uint16_t>(value));
    else
        bytes.Put(static_cast<std::uint32_t>(value));
}

constexpr ListType kListTypes[] = {
    {"char", 1, false},  {"uint8", 1, false}, {"int16", 2, false}, {"ushort", 2, false},
    {"int32", 4, false}, {"uint", 4, false},  {"float", 4, true},  {"float64", 8, true},
};

} // namespace

TEST(PlyReader, ReadsListsOfAnyType)
{
    for (const ListType& countType : kListTypes) {
        for (const ListType& indexType : kListTypes) {
            ByteWriter bytes(header("binary_big_endian", vertexElement(4) +
                                                             "element face 1\nproperty list " +
                                                             countType.name + " " + indexType.name +
                                                             " vertex_indices\n"),
                             true);
            bytes.PutAll<float>({0, 0, 0, 1, 0, 0, 1, 1, 0, 0, 1, 0});
            for (const unsigned value : {4u, 0u, 1u, 2u, 3u})
                putAs(bytes, value == 4 ? countType : indexType, value);

            const ReadResult result = ReadPlyBytes(bytes.Bytes());

            EXPECT_TRUE(result.ok) << countType.name << " " << indexType.name;
            EXPECT_EQ(result.mesh.TriangleCount(), 2u) << countType.name << " " << indexType.name;
        }
    }
}

TEST(PlyReader, PassesOverElementsAndPropertiesThatItDoesNotKnow)
{
    const ReadResult result = ReadPlyBytes(
        text("element camera 2\nproperty list uchar float lens\nproperty float f\n" +
                 vertexElement(3, "property list int int marks\nproperty float quality\n") +
                 faceElement(1, "property list uchar float texcoord\n") +
                 "element edge 1\nproperty int vertex1\nproperty int vertex2\n",
             "2 1 2 3\n0 4\n0 0 0 1 5 0.5\n1 0 0 0 0.5\n0 1 0 2 8 9 0.5\n"
             "3 0 1 2 6 0 0 1 0 0 1\n0 1\n"));

    ASSERT_TRUE(result.ok) << result.error.c_str();
    EXPECT_THAT(result.Vertex(2), ElementsAre(0, 1, 0));
    EXPECT_THAT(result.warnings, ElementsAre(L"test: elements left out: \"camera\", \"edge\""));
}

TEST(PlyReader, PassesOverBinaryElementsOfAnySize)
{
    ByteWriter bytes(
        header("binary_little_endian", "element box 2\nproperty double a\nproperty char b\n"
                                       "element path 2\nproperty list uchar short p\n" +
                                           vertexElement(3) + faceElement(1)));
    bytes.Put(1.0).Put<char>(1).Put(2.0).Put<char>(2);
    bytes.Put<char>(2).PutAll<std::int16_t>({1, 2}).Put<char>(0);
    bytes.PutAll<float>({0, 0, 0, 1, 0, 0, 0, 3, 0});
    bytes.Put<char>(3).PutAll<std::int32_t>({0, 1, 2});

    const ReadResult result = ReadPlyBytes(bytes.Bytes());

    ASSERT_TRUE(result.ok) << result.error.c_str();
    EXPECT_THAT(result.Vertex(2), ElementsAre(0, 3, 0));
}

TEST(PlyReader, ReadsFacesThatComeBeforeTheirVertices)
{
    const ReadResult result =
        ReadPlyBytes(text(faceElement(1) + vertexElement(3), "3 2 1 0\n0 0 0\n1 0 0\n0 1 0\n"));

    ASSERT_TRUE(result.ok) << result.error.c_str();
    EXPECT_THAT(result.Triangle(0), ElementsAre(2u, 1u, 0u));
}

TEST(PlyReader, SplitsConcavePolygonsInside)
{
    const ReadResult result = ReadPlyBytes(
        text(vertexElement(4) + faceElement(1), "0 0 0\n4 0 0\n1 1 0\n0 4 0\n4 0 1 2 3\n"));

    ASSERT_EQ(result.mesh.TriangleCount(), 2u);
    // The diagonal must end in the corner that turns inwards, vertex 2.
    for (std::size_t i = 0; i < 2; ++i)
        EXPECT_THAT(result.Triangle(i), testing::Contains(2u));
}

TEST(PlyReader, TurnsStripsIntoTriangles)
{
    const ReadResult result = ReadPlyBytes(
        text(vertexElement(5) + "element tristrips 1\nproperty list int int vertex_indices\n",
             "0 0 0\n1 0 0\n0 1 0\n1 1 0\n2 2 2\n8 0 1 2 3 -1 1 4 3\n"));

    ASSERT_TRUE(result.ok) << result.error.c_str();
    ASSERT_EQ(result.mesh.TriangleCount(), 3u);
    EXPECT_THAT(result.Triangle(0), ElementsAre(0u, 1u, 2u));
    EXPECT_THAT(result.Triangle(1), ElementsAre(2u, 1u, 3u));
    EXPECT_THAT(result.Triangle(2), ElementsAre(1u, 4u, 3u));
}

TEST(PlyReader, ReadsColorsOfBytes)
{
    const ReadResult result = ReadPlyBytes(
        text(vertexElement(1, "property uchar red\nproperty uchar green\nproperty uchar blue\n"),
             "0 0 0 255 128 7\n"));

    ASSERT_TRUE(result.ok) << result.error.c_str();
    EXPECT_THAT(result.Color(0), ElementsAre(255, 128, 7, 255));
}

TEST(PlyReader, ReadsColorsOfFloatsWithAlpha)
{
    const ReadResult result =
        ReadPlyBytes(text(vertexElement(1, "property float r\nproperty float g\nproperty float b\n"
                                           "property float a\n"),
                          "0 0 0 1 0.5 0 0.25\n"));

    ASSERT_TRUE(result.ok) << result.error.c_str();
    EXPECT_THAT(result.Color(0), ElementsAre(255, 128, 0, 64));
}

TEST(PlyReader, ReadsColorsOfFloatsTo255)
{
    const ReadResult result = ReadPlyBytes(
        text(vertexElement(2, "property float red\nproperty float green\nproperty float blue\n"),
             "0 0 0 1 0 0\n1 1 1 200 100 50\n"));

    EXPECT_THAT(result.Color(0), ElementsAre(1, 0, 0, 255));
    EXPECT_THAT(result.Color(1), ElementsAre(200, 100, 50, 255));
}

TEST(PlyReader, ReadsBinaryColorsOf16Bits)
{
    ByteWriter bytes(header("binary_little_endian",
                            vertexElement(1, "property ushort diffuse_red\nproperty ushort "
                                             "diffuse_green\nproperty ushort diffuse_blue\n")));
    bytes.PutAll<float>({1, 2, 3}).PutAll<std::uint16_t>({65535, 32768, 0});

    EXPECT_THAT(ReadPlyBytes(bytes.Bytes()).Color(0), ElementsAre(255, 128, 0, 255));
}

TEST(PlyReader, GivesEachFaceItsColor)
{
    const ReadResult result = ReadPlyBytes(
        text(vertexElement(4) +
                 faceElement(2, "property uchar red\nproperty uchar green\nproperty uchar blue\n"),
             "0 0 0\n1 0 0\n1 1 0\n0 1 0\n3 0 1 2 255 0 0\n3 0 2 3 0 0 255\n"));

    ASSERT_TRUE(result.ok) << result.error.c_str();
    EXPECT_EQ(result.mesh.VertexCount(), 6u);
    for (std::size_t corner = 0; corner < 3; ++corner) {
        EXPECT_THAT(result.Color(result.Triangle(0)[corner]), ElementsAre(255, 0, 0, 255));
        EXPECT_THAT(result.Color(result.Triangle(1)[corner]), ElementsAre(0, 0, 255, 255));
    }
    EXPECT_THAT(result.At(1, 0), ElementsAre(0, 0, 0));
}

TEST(PlyReader, BringsNormalsToLengthOne)
{
    const ReadResult result = ReadPlyBytes(
        text(vertexElement(2, "property float nx\nproperty float ny\nproperty float nz\n"),
             "0 0 0 0 0 3\n1 1 1 nan 0 1\n"));

    EXPECT_THAT(result.Normal(0), ElementsAre(0, 0, 1));
    EXPECT_THAT(result.Normal(1), ElementsAre(0, 0, 0));
}

TEST(PlyReader, LeavesOutVerticesThatNoFaceUses)
{
    const ReadResult result = ReadPlyBytes(
        text(vertexElement(4) + faceElement(1), "9 9 9\n0 0 0\n1 0 0\n0 1 0\n3 1 2 3\n"));

    EXPECT_EQ(result.mesh.VertexCount(), 3u);
    EXPECT_THAT(result.At(0, 0), ElementsAre(0, 0, 0));
    EXPECT_THAT(result.At(0, 2), ElementsAre(0, 1, 0));
}

TEST(PlyReader, WithoutFacesIsAPointCloud)
{
    for (const std::string& faces : {std::string(), faceElement(0)}) {
        const ReadResult result = ReadPlyBytes(text(vertexElement(2) + faces, "0 0 0\n1 2 3\n"));

        ASSERT_TRUE(result.ok) << result.error.c_str();
        EXPECT_TRUE(result.mesh.isPointCloud);
        EXPECT_EQ(result.mesh.VertexCount(), 2u);
        EXPECT_EQ(result.mesh.TriangleCount(), 0u);
        EXPECT_TRUE(result.mesh.ranges.empty());
    }
}

TEST(PlyReader, LeavesOutPointsThatAreNotFinite)
{
    const ReadResult result = ReadPlyBytes(text(vertexElement(3), "0 0 0\nnan 2 3\n4 5 6\n"));

    EXPECT_THAT(result.Vertex(1), ElementsAre(4, 5, 6));
    EXPECT_THAT(
        result.warnings,
        ElementsAre(L"test: a coordinate of point 2 is not a finite number; points left out: 1"));
}

TEST(PlyReader, TakesLinesOfAnyEnd)
{
    for (const std::string& end : {std::string("\r\n"), std::string("\r")}) {
        std::string file;
        for (const char letter : tetrahedron())
            file += letter == '\n' ? end : std::string(1, letter);

        EXPECT_EQ(ReadPlyBytes(file).mesh.TriangleCount(), 4u);
    }
}

TEST(PlyReader, TakesBinaryDataThatBeginLikeALineEnd)
{
    std::string start = header("binary_little_endian", "element vertex 1\nproperty uchar x\n"
                                                       "property uchar y\nproperty uchar z\n");
    std::replace(start.begin(), start.end(), '\n', '\r');

    EXPECT_THAT(ReadPlyBytes(start + "\n\r\n").Vertex(0), ElementsAre(10, 13, 10));
}

namespace {

struct BadPly
{
    const char* name;
    std::string bytes;
    const wchar_t* error;
};

class PlyError : public testing::TestWithParam<BadPly>
{
};

} // namespace

TEST_P(PlyError, NamesPlaceAndReason)
{
    const ReadResult result = ReadPlyBytes(GetParam().bytes);

    EXPECT_FALSE(result.ok);
    EXPECT_EQ(result.error, GetParam().error);
}

INSTANTIATE_TEST_SUITE_P(
    Files, PlyError,
    testing::Values(
        BadPly{"Empty", "", L"test: the file is empty"},
        BadPly{"Stl", BinaryStl(Cube()),
               L"test: this is no PLY file: it does not begin with \"ply\""},
        BadPly{"NoEnd", "ply\nformat ascii 1.0\nelement vertex 3\n",
               L"test: line 3: the header has no \"end_header\""},
        BadPly{"NoFormat", "ply\n" + vertexElement(1) + "end_header\n0 0 0\n",
               L"test: line 6: the header does not say which format the data have"},
        BadPly{"OddFormat", header("binary_middle_endian", ""),
               L"test: line 2: the format \"binary_middle_endian\" is not known"},
        BadPly{"NoCount", header("ascii", "element vertex\n"),
               L"test: line 3: an element without a name or a count"},
        BadPly{"CountBeyond64Bits",
               header("ascii", vertexElement(1) + "element face 18446744073709551616\n"),
               L"test: line 7: an element without a name or a count"},
        BadPly{"OddType", header("ascii", "element vertex 1\nproperty quad x\n"),
               L"test: line 4: a property outside an element, without a name or of a type that is "
               L"not known"},
        BadPly{"PropertyAlone", header("ascii", "property float x\n"),
               L"test: line 3: a property outside an element, without a name or of a type that is "
               L"not known"},
        BadPly{"NoVertices", header("ascii", faceElement(1)),
               L"test: line 5: the header announces no element \"vertex\" with x, y and z"},
        BadPly{"NoZ", header("ascii", "element vertex 1\nproperty float x\nproperty float y\n"),
               L"test: line 6: the header announces no element \"vertex\" with x, y and z"},
        BadPly{"BinaryAsText", text(vertexElement(2), std::string("\0\0\0\0\x3f\x80\0\0", 8)),
               L"test: byte 100: the header announces text, but the data are binary"},
        BadPly{"TextAsBinary",
               header("binary_little_endian", vertexElement(4) + faceElement(4)) + kTetrahedron,
               L"test: byte 169: the header announces binary data, but they are text"},
        BadPly{"CutInVertices", text(vertexElement(4) + faceElement(4), "0 0 0\n1 1 1\n"),
               L"test: line 12: the file ends in the element \"vertex\", after 2 of 4; it has no "
               L"faces"},
        BadPly{"CountNear64Bits",
               text(vertexElement(18446744073709551615u) + faceElement(4), kTetrahedron),
               L"test: line 18: the file ends in the element \"vertex\", after 8 of "
               L"18446744073709551615; it has no faces"},
        BadPly{"CountNear32BitsBinary",
               header("binary_little_endian", vertexElement(4294967295u) + faceElement(1)) +
                   std::string(24, '\0'),
               L"test: byte 202: the file ends in the element \"vertex\", after 2 of 4294967295; "
               L"it has no faces"},
        BadPly{"OnlyBadFaces", text(vertexElement(1) + faceElement(1), "0 0 0\n3 0 0 7\n"),
               L"test: the file holds no triangle"},
        BadPly{"NoPoint", text(vertexElement(0), ""), L"test: the file holds no point"}),
    [](const testing::TestParamInfo<BadPly>& file) { return std::string(file.param.name); });

TEST(PlyReader, KeepsTheFacesBeforeTheEndOfACutFile)
{
    const std::string whole = tetrahedron();

    const ReadResult result = ReadPlyBytes(whole.substr(0, whole.size() - 16));

    ASSERT_TRUE(result.ok) << result.error.c_str();
    EXPECT_EQ(result.mesh.TriangleCount(), 2u);
    EXPECT_THAT(result.warnings,
                ElementsAre(L"test: line 16: the file ends in the element \"face\", after 2 of 4; "
                            L"these were read"));
}

TEST(PlyReader, KeepsTheBinaryFacesBeforeTheEndOfACutFile)
{
    ByteWriter bytes(header("binary_little_endian", vertexElement(3) + faceElement(4294967295u)));
    bytes.PutAll<float>({0, 0, 0, 1, 0, 0, 0, 1, 0});
    bytes.Put<char>(3).PutAll<std::int32_t>({0, 1, 2}).Put<char>(3).Put<std::int32_t>(0);

    const ReadResult result = ReadPlyBytes(bytes.Bytes());

    ASSERT_TRUE(result.ok) << result.error.c_str();
    EXPECT_EQ(result.mesh.TriangleCount(), 1u);
    EXPECT_THAT(result.warnings.at(0), HasSubstr(L"after 1 of 4294967295"));
}

TEST(PlyReader, KeepsThePointsBeforeTheEndOfACutCloud)
{
    const ReadResult result = ReadPlyBytes(text(vertexElement(1000), "0 0 0\n1 2 3\n"));

    ASSERT_TRUE(result.ok) << result.error.c_str();
    EXPECT_EQ(result.mesh.VertexCount(), 2u);
    EXPECT_THAT(result.warnings.at(0), HasSubstr(L"after 2 of 1000"));
}

TEST(PlyReader, LeavesOutFacesThatNameVerticesThatAreNotThere)
{
    const ReadResult result =
        ReadPlyBytes(text(vertexElement(3) + faceElement(4),
                          "0 0 0\n1 0 0\n0 1 0\n3 0 1 3\n3 0 1 -2\n3 0 1 99999999999\n3 0 1 2\n"));

    EXPECT_EQ(result.mesh.TriangleCount(), 1u);
    EXPECT_THAT(result.warnings,
                ElementsAre(L"test: line 13: an index is out of range; faces left out: 3"));
}

TEST(PlyReader, LeavesOutBinaryFacesThatNameVerticesThatAreNotThere)
{
    ByteWriter bytes(header("binary_little_endian", vertexElement(3) + faceElement(3)));
    bytes.PutAll<float>({0, 0, 0, 1, 0, 0, 0, 1, 0});
    for (const std::int32_t last : {3, -1, 2})
        bytes.Put<char>(3).PutAll<std::int32_t>({0, 1, last});

    const ReadResult result = ReadPlyBytes(bytes.Bytes());

    EXPECT_EQ(result.mesh.TriangleCount(), 1u);
    EXPECT_THAT(result.warnings.at(0), HasSubstr(L"an index is out of range; faces left out: 2"));
}

TEST(PlyReader, LeavesOutFacesWithVerticesThatAreNotFinite)
{
    ByteWriter bytes(header("binary_little_endian", vertexElement(4) + faceElement(2)));
    const float infinity = std::numeric_limits<float>::infinity();
    bytes.PutAll<float>({0, 0, 0, 1, 0, 0, 0, 1, 0, 0, infinity, 0});
    for (const std::int32_t last : {3, 2})
        bytes.Put<char>(3).PutAll<std::int32_t>({0, 1, last});

    const ReadResult result = ReadPlyBytes(bytes.Bytes());

    EXPECT_EQ(result.mesh.TriangleCount(), 1u);
    EXPECT_EQ(result.mesh.VertexCount(), 3u);
    EXPECT_THAT(result.warnings.at(0),
                HasSubstr(L"a coordinate is not a finite number; faces left out: 1"));
}

TEST(PlyReader, CountsValuesThatAreNoNumbers)
{
    const ReadResult result = ReadPlyBytes(
        text(vertexElement(4, "property float quality\n") + faceElement(3),
             "0 0 0 1\n1 0 0 bad\n0 1 0 1\n0 zero 1 1\n3 0 1 2\n3 0 1 3\n3 0 one 2\n"));

    ASSERT_TRUE(result.ok) << result.error.c_str();
    EXPECT_EQ(result.mesh.TriangleCount(), 1u);
    EXPECT_THAT(
        result.warnings,
        ElementsAre(L"test: line 12: a value is missing or no number; such vertices: 2",
                    L"test: line 17: a value is missing or no number; faces left out: 1",
                    L"test: line 16: a coordinate is not a finite number; faces left out: 1"));
}

TEST(PlyReader, TellsOfShortFacesHeadersNotUnderstoodAndTrailingBytes)
{
    const ReadResult result =
        ReadPlyBytes(text("Created by hand\n" + vertexElement(3) + faceElement(2),
                          "0 0 0\n1 0 0\n0 1 0\n2 0 1\n3 0 1 2\n9 9 9\n"));

    EXPECT_EQ(result.mesh.TriangleCount(), 1u);
    EXPECT_THAT(result.warnings,
                ElementsAre(L"test: line 3: not understood; lines of the header left out: 1",
                            L"test: line 16: bytes after the last element, left out: 6",
                            L"test: line 14: fewer than three vertices; faces left out: 1"));
}

TEST(PlyReader, KeepsTrianglesWithoutAreaAndEdgesOfManyFaces)
{
    const ReadResult result = ReadPlyBytes(text(vertexElement(5) + faceElement(4),
                                                "0 0 0\n1 0 0\n0 1 0\n0 -1 0\n0 0 1\n"
                                                "3 0 0 1\n3 0 1 2\n3 0 1 3\n3 0 1 4\n"));

    EXPECT_EQ(result.mesh.TriangleCount(), 4u);
    EXPECT_THAT(result.warnings, IsEmpty());
}

TEST(PlyReader, StopsWhenItIsCancelled)
{
    OrvikMesh::ReadOptions options;
    options.isCancelled = [] { return true; };

    EXPECT_EQ(ReadPlyBytes(tetrahedron(), options).error, L"test: reading was cancelled");
    EXPECT_EQ(ReadPlyBytes(binaryTriangle(false).Bytes(), options).error,
              L"test: reading was cancelled");
}

TEST(PlyReader, ManyPolygonsBetweenTrianglesKeepTheirOrder)
{
    // Longer than the runs that are read at once.
    constexpr std::uint32_t kFaces = 200000;
    ByteWriter bytes(header("binary_little_endian", vertexElement(5) + faceElement(kFaces)));
    bytes.PutAll<float>({0, 0, 0, 1, 0, 0, 1, 1, 0, 0, 1, 0, 9, 9, 9});
    std::size_t triangles = 0;
    for (std::uint32_t i = 0; i < kFaces; ++i) {
        const bool isQuad = i % 70001 == 5;
        bytes.Put<char>(isQuad ? 4 : 3).PutAll<std::int32_t>({0, 1, 2});
        if (isQuad)
            bytes.Put<std::int32_t>(3);
        triangles += isQuad ? 2 : 1;
    }

    const ReadResult result = ReadPlyBytes(bytes.Bytes());

    ASSERT_EQ(result.mesh.TriangleCount(), triangles);
    EXPECT_THAT(result.Triangle(6), ElementsAre(0u, 2u, 3u));
    EXPECT_THAT(result.Triangle(7), ElementsAre(0u, 1u, 2u));
    EXPECT_THAT(result.warnings, IsEmpty());
}
