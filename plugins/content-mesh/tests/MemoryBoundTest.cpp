#include "MeshFiles.h"
#include "ProcessMemory.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <string>

// How much memory hostile files can make a reader take: files that make much of each byte.

namespace {

constexpr std::size_t kFileBytes = 6u << 20;

std::string repeated(const std::string& start, const std::function<std::string(std::size_t)>& row)
{
    std::string text = start;
    for (std::size_t i = 0; text.size() < kFileBytes; ++i)
        text += row(i);
    return text;
}

std::string fixedRow(const std::string& row, const std::string& start)
{
    return repeated(start, [&](std::size_t) { return row; });
}

std::string plyHeader(const std::string& format, const std::string& faces)
{
    return "ply\nformat " + format +
           " 1.0\nelement vertex 3\nproperty uchar x\nproperty uchar y\nproperty uchar z\n" +
           faces + "end_header\n";
}

/// Strips that take one byte for a triangle.
std::string plyStrips()
{
    const std::string start =
        plyHeader("binary_little_endian",
                  "element tristrips 4294967295\nproperty list uchar uchar vertex_indices\n") +
        std::string("\0\0\0\1\0\0\0\1\0", 9);
    std::string strip(1, '\xFF');
    for (int i = 0; i < 255; ++i)
        strip += static_cast<char>(i % 3);
    return fixedRow(strip, start);
}

/// Faces that all have another colour, so that each has vertices of its own.
std::string plyColoredFaces()
{
    const std::string start =
        plyHeader("binary_little_endian",
                  "element face 4294967295\nproperty list uchar uchar vertex_indices\n"
                  "property uchar red\nproperty uchar green\nproperty uchar blue\n") +
        std::string("\0\0\0\1\0\0\0\1\0", 9);
    return repeated(start, [](std::size_t i) {
        return std::string("\3\0\1\2", 4) + static_cast<char>(i) + static_cast<char>(i >> 8) +
               static_cast<char>(i >> 16);
    });
}

struct Subject
{
    const char* name;
    std::string (*make)();
    ReadResult (*read)(std::string_view, const OrvikMesh::ReadOptions&);
};

class MemoryBound : public testing::TestWithParam<Subject>
{
};

} // namespace

TEST_P(MemoryBound, HoldsForFilesThatMakeMuchOfEachByte)
{
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
    GTEST_SKIP() << "the sanitizer's own memory counts, too";
#endif
    const std::string bytes = GetParam().make();
    if (!ResetPeakMemory())
        GTEST_SKIP() << "the system does not tell how much memory a process took";
    const std::size_t before = PresentMemory();

    const ReadResult result = GetParam().read(bytes, {});

    const std::size_t peak = PeakMemory();
    EXPECT_LE(peak - std::min(peak, before), MemoryAllowedFor(bytes.size()));
    EXPECT_TRUE(result.ok || !result.error.empty());
}

INSTANTIATE_TEST_SUITE_P(
    Formats, MemoryBound,
    testing::Values(
        Subject{"PlyStrips", &plyStrips, &ReadPlyBytes},
        Subject{"PlyColoredFaces", &plyColoredFaces, &ReadPlyBytes},
        Subject{"PlyProperties",
                [] {
                    return fixedRow("property char a\n",
                                    "ply\nformat ascii 1.0\nelement vertex 1\n") +
                           "end_header\n";
                },
                &ReadPlyBytes},
        Subject{"PlyElements", [] { return fixedRow("element a 0\n", "ply\nformat ascii 1.0\n"); },
                &ReadPlyBytes},
        Subject{"PlyPolygon",
                [] {
                    return fixedRow("1 ",
                                    plyHeader("ascii", "element face 1\n"
                                                       "property list uint uint vertex_indices\n") +
                                        "0 0 0\n1 0 0\n0 1 0\n3000000 ");
                },
                &ReadPlyBytes},
        Subject{"OffFaces",
                [] { return fixedRow("3 0 1 2\n", "OFF\n3 4294967295\n0 0 0\n1 0 0\n0 1 0\n"); },
                &ReadOffBytes},
        Subject{"OffColoredFaces",
                [] {
                    return repeated("OFF\n3 4294967295\n0 0 0\n1 0 0\n0 1 0\n", [](std::size_t i) {
                        return "3 0 1 2 " + std::to_string(i % 256) + " " +
                               std::to_string(i / 256 % 256) + " " + std::to_string(i / 65536) +
                               "\n";
                    });
                },
                &ReadOffBytes},
        Subject{"ObjGroups",
                [] {
                    return repeated("v 0 0 0\nv 1 0 0\nv 0 1 0\n",
                                    [](std::size_t i) { return "g " + std::to_string(i) + "\n"; }) +
                           "f 1 2 3\n";
                },
                &ReadObjText},
        Subject{"ObjFaces", [] { return fixedRow("f 1 2 3\n", "v 0 0 0\nv 1 0 0\nv 0 1 0\n"); },
                &ReadObjText},
        Subject{"ObjNormals",
                [] {
                    return fixedRow("f -3//1 -2//1 -1//1\nvn 1 0 0\n",
                                    "vn 1 0 0\nv 0 0 0\nv 1 0 0\nv 0 1 0\n");
                },
                &ReadObjText},
        Subject{"ObjGroupsOfFaces",
                [] {
                    return repeated("v 0 0 0\nv 1 0 0\nv 0 1 0\n", [](std::size_t i) {
                        return "g " + std::to_string(i) + "\nf 1 2 3\n";
                    });
                },
                &ReadObjText},
        Subject{"StlSolids", [] { return fixedRow("solid\n", "solid a\nfacet normal 0 0 1\n"); },
                &ReadStlBytes},
        Subject{"XyzPoints", [] { return fixedRow("1 1 1\n", ""); }, &ReadXyzText},
        Subject{"XyzColumns", [] { return fixedRow("1 1 1\n", "1 1 1 1 1 1 1 1 1 1\n"); },
                &ReadXyzText},
        Subject{"PcdFields", [] { return fixedRow("a ", "VERSION 0.7\nFIELDS ") + "\n"; },
                &ReadPcdBytes}),
    [](const testing::TestParamInfo<Subject>& subject) { return std::string(subject.param.name); });
