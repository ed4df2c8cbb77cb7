#include "MeshFiles.h"
#include "readers/Lzf.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <limits>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

std::string header(const std::string& fields, const std::string& size, const std::string& width,
                   const std::string& data)
{
    return "# .PCD v0.7 - Point Cloud Data file format\nVERSION 0.7\n" + fields + size + "WIDTH " +
           width + "\nHEIGHT 1\nVIEWPOINT 0 0 0 1 0 0 0\nPOINTS " + width + "\nDATA " + data + "\n";
}

constexpr char kXyz[] = "FIELDS x y z\n";
constexpr char kFloats[] = "SIZE 4 4 4\nTYPE F F F\nCOUNT 1 1 1\n";

std::string text(const std::string& rows, const std::string& count)
{
    return header(kXyz, kFloats, count, "ascii") + rows;
}

/// Packs bytes as runs that copy nothing.
std::string packedPlain(std::string_view bytes)
{
    std::string packed;
    for (; !bytes.empty(); bytes.remove_prefix(std::min<std::size_t>(bytes.size(), 32))) {
        const std::string_view run = bytes.substr(0, 32);
        packed += static_cast<char>(run.size() - 1);
        packed += run;
    }
    return packed;
}

/// @param unpackedSize  As announced.
std::string compressed(const std::string& start, const std::string& packed,
                       std::size_t unpackedSize)
{
    ByteWriter bytes(start);
    bytes.Put(static_cast<std::uint32_t>(packed.size()))
        .Put(static_cast<std::uint32_t>(unpackedSize));
    return bytes.Bytes() + packed;
}

} // namespace

TEST(PcdReader, ReadsText)
{
    const ReadResult result = ReadPcdBytes(text("1 2 3\n-4.5 5e1 6\n", "2"));

    ASSERT_TRUE(result.ok) << result.error.c_str();
    EXPECT_TRUE(result.mesh.isPointCloud);
    EXPECT_THAT(result.Vertex(1), ElementsAre(-4.5f, 50, 6));
    EXPECT_THAT(result.warnings, IsEmpty());
}

TEST(PcdReader, ReadsFieldsInAnyOrderAndOfAnyCount)
{
    const ReadResult result =
        ReadPcdBytes(header("FIELDS histogram z normal_z y rgb x normal_x normal_y\n",
                            "SIZE 4 4 4 4 4 4 4 4\nTYPE F F F F U F F F\nCOUNT 3 1 1 1 1 1 1 1\n",
                            "1", "ascii") +
                     "9 9 9 3 2 2 16744448 1 0 0\n");

    ASSERT_TRUE(result.ok) << result.error.c_str();
    EXPECT_THAT(result.Vertex(0), ElementsAre(1, 2, 3));
    EXPECT_THAT(result.Normal(0), ElementsAre(0, 0, 1));
    EXPECT_THAT(result.Color(0), ElementsAre(255, 128, 0, 255));
}

TEST(PcdReader, ReadsColorsPackedIntoAFloat)
{
    const float packed = std::bit_cast<float>(0x00102030u);
    char digits[32];
    std::snprintf(digits, sizeof digits, "%.9g", static_cast<double>(packed));

    const ReadResult result =
        ReadPcdBytes(header("FIELDS x y z rgb\n", "SIZE 4 4 4 4\nTYPE F F F F\n", "1", "ascii") +
                     "0 0 0 " + digits + "\n");

    EXPECT_THAT(result.Color(0), ElementsAre(16, 32, 48, 255));
}

TEST(PcdReader, ReadsBinaryOfAnyType)
{
    ByteWriter bytes(header("FIELDS x label y z rgba time\n",
                            "SIZE 8 2 2 1 4 8\nTYPE F U I U U U\n", "2", "binary"));
    for (int i = 0; i < 2; ++i)
        bytes.Put(0.25 + i)
            .Put<std::uint16_t>(7)
            .Put<std::int16_t>(-300)
            .Put<std::uint8_t>(200)
            .Put<std::uint32_t>(0x00FF0080u)
            .Put<std::uint64_t>(1);

    const ReadResult result = ReadPcdBytes(bytes.Bytes());

    ASSERT_TRUE(result.ok) << result.error.c_str();
    EXPECT_THAT(result.Vertex(1), ElementsAre(1.25f, -300, 200));
    EXPECT_THAT(result.Color(1), ElementsAre(255, 0, 128, 255));
    EXPECT_THAT(result.warnings, IsEmpty());
}

TEST(PcdReader, ReadsCompressedFieldAfterField)
{
    ByteWriter columns;
    columns.PutAll<float>({1, 2}).PutAll<float>({3, 4}).PutAll<float>({5, 6});

    const ReadResult result = ReadPcdBytes(compressed(
        header(kXyz, kFloats, "2", "binary_compressed"), packedPlain(columns.Bytes()), 24));

    ASSERT_TRUE(result.ok) << result.error.c_str();
    EXPECT_THAT(result.Vertex(0), ElementsAre(1, 3, 5));
    EXPECT_THAT(result.Vertex(1), ElementsAre(2, 4, 6));
}

TEST(PcdReader, LeavesOutUnmeasuredPixelsWithoutAWord)
{
    const std::string rows = "1 2 3\nnan nan nan\n4 5 6\nnan nan nan\n";
    std::string image = text(rows, "4");
    image.replace(image.find("WIDTH 4\nHEIGHT 1"), 16, "WIDTH 2\nHEIGHT 2");

    EXPECT_THAT(ReadPcdBytes(image).warnings, IsEmpty());
    EXPECT_EQ(ReadPcdBytes(image).mesh.VertexCount(), 2u);
    EXPECT_THAT(
        ReadPcdBytes(text(rows, "4")).warnings,
        ElementsAre(L"test: a coordinate of point 2 is not a finite number; points left out: 2"));
}

TEST(PcdReader, TellsOfPointsThatAreNotThere)
{
    EXPECT_THAT(ReadPcdBytes(text("1 2 3\n", "4294967295")).warnings,
                ElementsAre(L"test: the file ends after 1 of 4294967295 points; these were read"));
    EXPECT_THAT(ReadPcdBytes(header(kXyz, kFloats, "3", "binary") + std::string(29, '\0')).warnings,
                ElementsAre(L"test: the file ends after 2 of 3 points; these were read"));
}

TEST(PcdReader, CountsLinesWithValuesThatAreNoNumbers)
{
    const ReadResult result = ReadPcdBytes(text("1 2 3\n1 2\n1 2 z\n4 5 6\n", "4"));

    EXPECT_EQ(result.mesh.VertexCount(), 2u);
    EXPECT_THAT(
        result.warnings,
        ElementsAre(L"test: line 13: a value is missing or no number; such vertices: 2",
                    L"test: a coordinate of point 2 is not a finite number; points left out: 2"));
}

namespace {

struct BadPcd
{
    const char* name;
    std::string bytes;
    const wchar_t* error;
};

class PcdError : public testing::TestWithParam<BadPcd>
{
};

} // namespace

TEST_P(PcdError, NamesPlaceAndReason)
{
    const ReadResult result = ReadPcdBytes(GetParam().bytes);

    EXPECT_FALSE(result.ok);
    EXPECT_EQ(result.error, GetParam().error);
}

INSTANTIATE_TEST_SUITE_P(
    Files, PcdError,
    testing::Values(
        BadPcd{"Empty", "", L"test: the file is empty"},
        BadPcd{"Ply", "ply\nformat ascii 1.0\n",
               L"test: line 1: this is no PCD file: its header is not understood"},
        BadPcd{"Comment", "# nothing else\n",
               L"test: line 1: this is no PCD file: its header is not understood"},
        BadPcd{"NoData", "VERSION 0.7\nFIELDS x y z\n",
               L"test: line 2: the header has no line \"DATA\""},
        BadPcd{"OddData", header(kXyz, kFloats, "1", "ternary"),
               L"test: line 11: data of the format \"ternary\" cannot be read"},
        BadPcd{
            "FewSizes", header(kXyz, "SIZE 4 4\nTYPE F F F\n", "1", "ascii"),
            L"test: line 10: the lines \"FIELDS\", \"SIZE\", \"TYPE\" and \"COUNT\" do not name as "
            L"many fields"},
        BadPcd{
            "OddSize", header(kXyz, "SIZE 4 4 3\nTYPE F F F\n", "1", "ascii"),
            L"test: line 10: the lines \"SIZE\", \"TYPE\" and \"COUNT\" hold a value that is not "
            L"known"},
        BadPcd{
            "HugeCount",
            header(kXyz, "SIZE 4 4 4\nTYPE F F F\nCOUNT 1 1 18446744073709551615\n", "1", "binary"),
            L"test: line 11: the lines \"SIZE\", \"TYPE\" and \"COUNT\" hold a value that is not "
            L"known"},
        BadPcd{"NoZ", header("FIELDS x y\n", "SIZE 4 4\nTYPE F F\n", "1", "ascii"),
               L"test: line 10: the header has no fields x, y and z"},
        BadPcd{"CountBeyond64Bits", header(kXyz, kFloats, "18446744073709551616", "ascii"),
               L"test: line 7: a number is missing or too large"},
        BadPcd{"NoCount", "FIELDS x y z\nSIZE 4 4 4\nTYPE F F F\nDATA ascii\n0 0 0\n",
               L"test: line 4: the header does not say how many points there are"},
        BadPcd{"AreaBeyond64Bits",
               "FIELDS x y z\nSIZE 4 4 4\nTYPE F F F\nWIDTH 4294967296\nHEIGHT 4294967296\n"
               "DATA ascii\n0 0 0\n",
               L"test: line 6: a number is missing or too large"},
        BadPcd{"BinaryAsText", text(std::string(24, '\0'), "2"),
               L"test: byte 163: the header announces text, but the data are binary"},
        BadPcd{"TextAsBinary",
               header(kXyz, kFloats, "4", "binary") + "1 2 3\n4 5 6\n7 8 9\n10 11 12\n",
               L"test: byte 164: the header announces binary data, but they are text"},
        BadPcd{"NoPoint", text("", "0"), L"test: the file holds no point"},
        BadPcd{"CompressedCut",
               compressed(header(kXyz, kFloats, "2", "binary_compressed"), std::string(30, 'x'), 24)
                   .substr(0, 210),
               L"test: byte 175: the file ends in its compressed data"},
        BadPcd{
            "CompressedOfAnotherSize",
            compressed(header(kXyz, kFloats, "2", "binary_compressed"), std::string(30, 'x'),
                       4294967295u),
            L"test: byte 175: the compressed data announce 4294967295 bytes, the points take 24"},
        BadPcd{"Bomb",
               compressed(header(kXyz, kFloats, "300000000", "binary_compressed"),
                          std::string(30, 'x'), 3600000000u),
               L"test: byte 191: the compressed data announce 3600000000 bytes, too much for what "
               L"the file holds; they were not read"},
        BadPcd{"Damaged",
               compressed(header(kXyz, kFloats, "2", "binary_compressed"),
                          std::string("\xFF\xFF\xFF", 3), 24),
               L"test: byte 175: the compressed data are damaged"}),
    [](const testing::TestParamInfo<BadPcd>& file) { return std::string(file.param.name); });

TEST(PcdReader, StopsWhenItIsCancelled)
{
    OrvikMesh::ReadOptions options;
    options.isCancelled = [] { return true; };

    EXPECT_EQ(ReadPcdBytes(text("1 2 3\n", "1"), options).error, L"test: reading was cancelled");
}

namespace {

std::string unpacked(std::string_view packed, std::size_t room, OrvikMesh::LzfStop& stop)
{
    std::string bytes(room, '?');
    OrvikMesh::LzfState state;
    state.at = reinterpret_cast<const std::byte*>(packed.data());
    state.end = state.at + packed.size();
    state.begin = state.to = reinterpret_cast<std::byte*>(bytes.data());
    state.limit = state.begin + room;
    stop = OrvikMesh::UnpackLzf(state, room + 1);
    bytes.resize(static_cast<std::size_t>(state.to - state.begin));
    return bytes;
}

} // namespace

TEST(Lzf, CopiesMayReachIntoThemselves)
{
    OrvikMesh::LzfStop stop = OrvikMesh::LzfStop::Damaged;
    // "ab", then five bytes from two before, then eleven from one before.
    const std::string packed = {1, 'a', 'b', 3 << 5, 1, static_cast<char>(7 << 5), 2, 0};

    EXPECT_EQ(unpacked(packed, 64, stop), "abababa" + std::string(11, 'a'));
    EXPECT_EQ(stop, OrvikMesh::LzfStop::Done);
}

TEST(Lzf, RefusesRunsBeyondTheEnds)
{
    OrvikMesh::LzfStop stop = OrvikMesh::LzfStop::Done;
    for (const std::string& packed :
         {std::string{5, 'a'}, std::string{1 << 5}, std::string{1 << 5, 0},
          std::string{0, 'a', 1 << 5, 1}, std::string{0, 'a', static_cast<char>(7 << 5)},
          std::string{0, 'a', static_cast<char>(7 << 5), 9, 0}}) {
        unpacked(packed, 8, stop);
        EXPECT_EQ(stop, OrvikMesh::LzfStop::Damaged);
    }
}
