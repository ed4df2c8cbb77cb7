#include "readers/NumberScan.h"
#include "readers/ReadMessages.h"
#include "readers/TextEncoding.h"
#include "readers/Triangulate.h"
#include "readers/VertexWelder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <vector>

using std::string_literals::operator""s;
using testing::ElementsAre;

TEST(VertexWelder, GrowsFarBeyondWhatWasExpected)
{
    std::vector<float> triangles;
    for (int i = 0; i < 30000; ++i)
        triangles.push_back(static_cast<float>(i));
    OrvikMesh::VertexWelder welder(1);
    OrvikMesh::MeshArray<std::uint32_t> indices;

    welder.AddTriangles(reinterpret_cast<const std::byte*>(triangles.data()), 36, 3333, indices);

    EXPECT_EQ(welder.VertexCount(), 9999u);
    EXPECT_EQ(indices[9998], 9998u);
    const OrvikMesh::MeshArray<float> positions = welder.TakePositions();
    EXPECT_EQ(positions[29996], 29996.0f);
}

TEST(VertexWelder, AppendRenumbersAsOneWelderWould)
{
    const float first[] = {0, 0, 0, 1, 0, 0, 0, 1, 0};
    const float second[] = {1, 0, 0, 5, 5, 5, 0, 0, 0};
    OrvikMesh::VertexWelder early(3);
    OrvikMesh::VertexWelder late(3);
    OrvikMesh::MeshArray<std::uint32_t> indices;
    early.AddTriangles(reinterpret_cast<const std::byte*>(first), 36, 1, indices);
    late.AddTriangles(reinterpret_cast<const std::byte*>(second), 36, 1, indices);
    OrvikMesh::MeshArray<std::uint32_t> newIndex;

    early.Append(late, newIndex);

    EXPECT_THAT(std::vector<std::uint32_t>(newIndex.begin(), newIndex.end()),
                ElementsAre(1u, 3u, 0u));
}

TEST(ScanDigits, ReadsNumbersOfAnyLengthAnywhereInAText)
{
    for (const std::string& digits : {"0"s, "7"s, "1234567"s, "12345678"s, "123456789"s}) {
        for (const std::string& tail : {""s, " "s, "/12 345"s, "x and a long rest"s}) {
            const std::string text = digits + tail;
            std::int64_t value = -1;

            const char* end =
                OrvikMesh::ScanDigits(text.data(), text.data() + text.size(), 1 << 30, value);

            EXPECT_EQ(value, std::stoll(digits)) << text;
            EXPECT_EQ(end - text.data(), static_cast<std::ptrdiff_t>(digits.size())) << text;
        }
    }
}

TEST(ScanDigits, StopsCountingBeyondTheLimit)
{
    const std::string text = "99999999999999999999999999999999";
    std::int64_t value = 0;

    const char* end = OrvikMesh::ScanDigits(text.data(), text.data() + text.size(), 1 << 30, value);

    EXPECT_GT(value, 1 << 30);
    EXPECT_EQ(end, text.data() + text.size());
}

TEST(TextEncoding, ConvertsSurrogatesAndReplacesLoneOnes)
{
    const std::string bytes = "\xFF\xFE\x3D\xD8\x00\xDE\x3D\xD8\x41\x00"s;
    std::string storage;

    EXPECT_EQ(OrvikMesh::ToUtf8Text(bytes, storage), "\xF0\x9F\x98\x80\xEF\xBF\xBD"
                                                     "A");
}

TEST(FillText, PutsValuesInAnyOrderAndLeavesPercentSignsAlone)
{
    EXPECT_EQ(OrvikMesh::FillText(L"%2 of %1, 5 % and %3", {L"ten", L"two"}),
              L"two of ten, 5 % and %3");
}

TEST(ReadMessages, KeepsTheFirstError)
{
    OrvikMesh::ReadMessages messages(L"a.stl");

    messages.Fail(L"first", OrvikMesh::ReadPlace::Byte(3));
    messages.Fail(L"second");

    EXPECT_EQ(messages.Error(), L"a.stl: byte 3: first");
}

TEST(Triangulator, BorderThatCrossesItselfEnds)
{
    const float positions[] = {0, 0, 0, 1, 1, 0, 1, 0, 0, 0, 1, 0, 0.5f, 2, 0, 0.2f, -1, 0};
    const std::uint32_t corners[] = {0, 1, 2, 3, 4, 5};
    std::vector<std::uint32_t> triangles;

    OrvikMesh::Triangulator().Split(positions, corners, 6, triangles);

    EXPECT_EQ(triangles.size(), 12u);
}

TEST(Triangulator, PolygonWithoutAreaIsStillSplit)
{
    const float positions[] = {0, 0, 0, 1, 0, 0, 2, 0, 0, 3, 0, 0};
    const std::uint32_t corners[] = {0, 1, 2, 3};
    std::vector<std::uint32_t> triangles;

    OrvikMesh::Triangulator().Split(positions, corners, 4, triangles);

    EXPECT_EQ(triangles.size(), 6u);
}
