#include "MeshFiles.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::ElementsAre;
using testing::IsEmpty;

TEST(XyzReader, ReadsPointsWithAnySeparator)
{
    const ReadResult result = ReadXyzText(
        "# scan\n1 2 3\n// more\n\t4\t5\t6\n7,8,9\n10; 11 ;12\r\n-1e1 +.5 1.5E-1 # end");

    ASSERT_TRUE(result.ok) << result.error.c_str();
    EXPECT_TRUE(result.mesh.isPointCloud);
    ASSERT_EQ(result.mesh.VertexCount(), 5u);
    EXPECT_THAT(result.Vertex(2), ElementsAre(7, 8, 9));
    EXPECT_THAT(result.Vertex(3), ElementsAre(10, 11, 12));
    EXPECT_THAT(result.Vertex(4), ElementsAre(-10, 0.5f, 0.15f));
    EXPECT_TRUE(result.mesh.normals.IsEmpty());
    EXPECT_TRUE(result.mesh.colors.IsEmpty());
    EXPECT_THAT(result.warnings, IsEmpty());
}

TEST(XyzReader, TakesAHeadingOrACount)
{
    EXPECT_THAT(ReadXyzText("X,Y,Z\n1,2,3\n").warnings, IsEmpty());
    EXPECT_THAT(ReadXyzText("1\n1 2 3\n").warnings, IsEmpty());
    EXPECT_THAT(ReadXyzText("4294967295\n1 2 3\n").warnings,
                ElementsAre(L"test: the file announces 4294967295 points and holds 1"));
}

TEST(XyzReader, TellsNormalsFromColors)
{
    const ReadResult normals = ReadXyzText("0 0 0 0 0 1\n1 1 1 0.6 0.8 0\n");
    const ReadResult bytes = ReadXyzText("0 0 0 0 0 255\n1 1 1 60 80 0\n");
    const ReadResult shares = ReadXyzText("0 0 0 0.5 0.25 0.125\n1 1 1 0.1 0 0\n");
    const ReadResult both = ReadXyzText("0 0 0 0 0 1 255 0 0\n1 1 1 1 0 0 0 128 255\n");
    const ReadResult turned = ReadXyzText("0 0 0 255 0 0 0 0 1\n1 1 1 0 128 255 1 0 0\n");

    EXPECT_THAT(normals.Normal(1), ElementsAre(0.6f, 0.8f, 0));
    EXPECT_TRUE(normals.mesh.colors.IsEmpty());
    EXPECT_TRUE(bytes.mesh.normals.IsEmpty());
    EXPECT_THAT(bytes.Color(0), ElementsAre(0, 0, 255, 255));
    EXPECT_THAT(shares.Color(0), ElementsAre(128, 64, 32, 255));
    EXPECT_THAT(both.Normal(0), ElementsAre(0, 0, 1));
    EXPECT_THAT(both.Color(1), ElementsAre(0, 128, 255, 255));
    EXPECT_THAT(turned.Normal(1), ElementsAre(1, 0, 0));
    EXPECT_THAT(turned.Color(1), ElementsAre(0, 128, 255, 255));
}

TEST(XyzReader, PassesOverColumnsWithoutMeaning)
{
    const ReadResult result = ReadXyzText("0 0 0 1000 -7 3000.5\n1 2 3 1 2 3\n");

    EXPECT_EQ(result.mesh.VertexCount(), 2u);
    EXPECT_TRUE(result.mesh.normals.IsEmpty());
    EXPECT_TRUE(result.mesh.colors.IsEmpty());
}

TEST(XyzReader, CountsLinesThatItDoesNotUnderstand)
{
    const ReadResult result = ReadXyzText("0 0 0\n1 2\nhello\n3 4 5 what\n6 7 8\n9\n");

    EXPECT_EQ(result.mesh.VertexCount(), 3u);
    EXPECT_THAT(
        result.warnings,
        ElementsAre(L"test: line 2: not understood; lines left out, in whole or in part: 4"));
}

TEST(XyzReader, LeavesOutPointsThatAreNotFinite)
{
    const ReadResult result = ReadXyzText("0 0 0\nnan nan nan\n1 inf 2\n1e99 0 0\n3 4 5\n");

    EXPECT_EQ(result.mesh.VertexCount(), 2u);
    EXPECT_THAT(result.Vertex(1), ElementsAre(3, 4, 5));
    EXPECT_THAT(
        result.warnings,
        ElementsAre(L"test: a coordinate of point 2 is not a finite number; points left out: 3"));
}

TEST(XyzReader, TellsWhenCoordinatesOfMapsAreRounded)
{
    EXPECT_THAT(ReadXyzText("500000.25 5400000.1 100\n500010.5 5400020.7 101\n").warnings,
                ElementsAre(L"test: coordinates of up to 5400020.5 are rounded to steps of 0.5, "
                            L"which shows"));
    EXPECT_THAT(ReadXyzText("500000.25 400000.1 100\n510010.5 410020.7 101\n").warnings, IsEmpty());
    EXPECT_THAT(ReadXyzText("5400000 0 0\n").warnings, IsEmpty());
}

TEST(XyzReader, RefusesWhatHoldsNoPoint)
{
    EXPECT_EQ(ReadXyzText("").error, L"test: the file is empty");
    EXPECT_EQ(ReadXyzText("# nothing\n").error,
              L"test: the file holds no point: no line is made of three numbers or more");
    EXPECT_EQ(ReadXyzText("3\nwater\nO 0 0 0\nH 1 0 0\nH 0 1 0\n").error,
              L"test: the file holds no point: no line is made of three numbers or more");
    EXPECT_EQ(
        ReadXyzText("COFF\n3 1 0\n0 0 0\n1 0 0\n0 1 0\n3 0 1 2\n").error,
        L"test: this is no text of points: it begins with \"COFF\", as files of another format "
        L"do");
    EXPECT_EQ(ReadXyzText("nan nan nan\n").error, L"test: the file holds no point");
    EXPECT_EQ(ReadXyzText(BinaryStl(Cube())).error,
              L"test: byte 6: this is no text: a byte is zero");
}

TEST(XyzReader, ReadsManyPiecesInTheirOrder)
{
    std::string text;
    for (int i = 0; i < 400000; ++i)
        text += std::to_string(i) + " 0.25 1\n";

    const ReadResult result = ReadXyzText(text + "bad\n");

    ASSERT_EQ(result.mesh.VertexCount(), 400000u);
    for (std::size_t i = 0; i < 400000; i += 4999)
        EXPECT_EQ(result.Vertex(i)[0], static_cast<float>(i));
    EXPECT_THAT(
        result.warnings,
        ElementsAre(L"test: line 400001: not understood; lines left out, in whole or in part: 1"));
}

TEST(XyzReader, StopsWhenItIsCancelled)
{
    OrvikMesh::ReadOptions options;
    options.isCancelled = [] { return true; };

    EXPECT_EQ(ReadXyzText("1 2 3\n", options).error, L"test: reading was cancelled");
}

TEST(PtsReader, ReadsIntensityAndColor)
{
    const ReadResult result = ReadPtsText("2\n1 2 3 -1024 255 0 10\n4 5 6 2047 0 20 255\n");

    ASSERT_TRUE(result.ok) << result.error.c_str();
    EXPECT_THAT(result.Vertex(1), ElementsAre(4, 5, 6));
    EXPECT_THAT(result.Color(0), ElementsAre(255, 0, 10, 255));
    EXPECT_THAT(result.warnings, IsEmpty());
}

TEST(PtsReader, ReadsPointsWithIntensityAlone)
{
    const ReadResult result = ReadPtsText("1 2 3 0.5\n4 5 6 0.25\n");

    EXPECT_EQ(result.mesh.VertexCount(), 2u);
    EXPECT_TRUE(result.mesh.colors.IsEmpty());
}

TEST(PtsReader, JoinsSeveralClouds)
{
    const ReadResult result = ReadPtsText("1\n1 2 3\n2\n4 5 6\n7 8 9\n");

    EXPECT_EQ(result.mesh.VertexCount(), 3u);
    EXPECT_THAT(result.warnings, IsEmpty());
}

TEST(PtsReader, TellsWhenTheCountIsAnother)
{
    EXPECT_THAT(ReadPtsText("1000\n1 2 3\n").warnings,
                ElementsAre(L"test: the file announces 1000 points and holds 1"));
}
