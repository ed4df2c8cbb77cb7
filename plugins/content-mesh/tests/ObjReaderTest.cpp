#include "MeshFiles.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

using testing::ElementsAre;
using testing::EndsWith;
using testing::IsEmpty;

namespace {

const std::string kSquare = "v 0 0 0\nv 1 0 0\nv 1 1 0\nv 0 1 0\n";

/// Twice the area that the triangles cover, all in the plane z = 0; clockwise ones count negative.
double doubleArea(const ReadResult& result)
{
    double area = 0.0;
    for (std::size_t i = 0; i < result.mesh.TriangleCount(); ++i) {
        const Point a = result.At(i, 0);
        const Point b = result.At(i, 1);
        const Point c = result.At(i, 2);
        area += (b[0] - a[0]) * (c[1] - a[1]) - (b[1] - a[1]) * (c[0] - a[0]);
    }
    return area;
}

std::string toUtf16(const std::string& text, bool isBigEndian)
{
    std::string bytes = isBigEndian ? "\xFE\xFF" : "\xFF\xFE";
    for (const char letter : text) {
        bytes += isBigEndian ? '\0' : letter;
        bytes += isBigEndian ? letter : '\0';
    }
    return bytes;
}

} // namespace

TEST(ObjReader, ReadsATriangle)
{
    const ReadResult result = ReadObjText(kSquare + "f 1 2 3\n");

    ASSERT_TRUE(result.ok);
    ASSERT_EQ(result.mesh.TriangleCount(), 1u);
    EXPECT_EQ(result.At(0, 2), (Point{1.0f, 1.0f, 0.0f}));
    EXPECT_THAT(result.warnings, IsEmpty());
}

TEST(ObjReader, LeavesPointsThatNoFaceUsesOut)
{
    const ReadResult result = ReadObjText("v 99 99 99\n" + kSquare + "f 2 3 4\n");

    EXPECT_EQ(result.mesh.VertexCount(), 3u);
}

TEST(ObjReader, NegativeIndicesCountFromTheLastPoint)
{
    const ReadResult result = ReadObjText(kSquare + "f -4 -3 -2\nv 5 5 5\nf -5 -4 -1\n");

    EXPECT_EQ(result.At(0, 0), (Point{0.0f, 0.0f, 0.0f}));
    EXPECT_EQ(result.At(1, 0), (Point{0.0f, 0.0f, 0.0f}));
    EXPECT_EQ(result.At(1, 2), (Point{5.0f, 5.0f, 5.0f}));
}

TEST(ObjReader, NegativeIndicesReachAcrossThePiecesOfALargeFile)
{
    std::string text = kSquare;
    text += "# " + std::string(9u << 20, 'x') + "\n";
    text += "f -4 -3 -2\n";

    const ReadResult result = ReadObjText(text);

    ASSERT_TRUE(result.ok);
    EXPECT_EQ(result.At(0, 1), (Point{1.0f, 0.0f, 0.0f}));
}

TEST(ObjReader, IndexZeroLeavesTheFaceOutWithTheLine)
{
    const ReadResult result = ReadObjText(kSquare + "f 1 2 3\nf 0 1 2\nf 1 0 2\n");

    EXPECT_EQ(result.mesh.TriangleCount(), 1u);
    EXPECT_THAT(result.warnings, ElementsAre(L"test: line 6: an index is 0; faces left out: 2"));
}

TEST(ObjReader, IndexOutOfRangeLeavesTheFaceOutWithTheLine)
{
    const ReadResult result =
        ReadObjText(kSquare + "f 1 2 5\nf 1 2 3\nf -5 1 2\nf 1 2 99999999999999999999\n");

    EXPECT_EQ(result.mesh.TriangleCount(), 1u);
    EXPECT_THAT(result.warnings,
                ElementsAre(L"test: line 5: an index is out of range; faces left out: 3"));
}

TEST(ObjReader, IndexMayPointAhead)
{
    EXPECT_TRUE(ReadObjText("f 1 2 3\n" + kSquare).ok);
}

TEST(ObjReader, FaceOfTwoVerticesIsLeftOut)
{
    const ReadResult result = ReadObjText(kSquare + "f 1 2\nf 1 2 3\n");

    EXPECT_EQ(result.mesh.TriangleCount(), 1u);
    EXPECT_THAT(result.warnings,
                ElementsAre(L"test: line 5: fewer than three vertices; faces left out: 1"));
}

TEST(ObjReader, ConcavePolygonIsCoveredOnceByCuttingEars)
{
    // An arrow head with its notch at (1, 1).
    const ReadResult result = ReadObjText("v 0 0 0\nv 1 1 0\nv 2 0 0\nv 1 3 0\nf 1 2 3 4\n");

    ASSERT_EQ(result.mesh.TriangleCount(), 2u);
    double covered = 0.0;
    for (std::size_t i = 0; i < 2; ++i) {
        const Point a = result.At(i, 0);
        const Point b = result.At(i, 1);
        const Point c = result.At(i, 2);
        covered += std::abs((b[0] - a[0]) * (c[1] - a[1]) - (b[1] - a[1]) * (c[0] - a[0]));
    }
    EXPECT_DOUBLE_EQ(covered, 4.0);
    EXPECT_DOUBLE_EQ(doubleArea(result), 4.0);
}

TEST(ObjReader, CombOfManyTeethIsCoveredOnce)
{
    std::string text;
    std::string face = "f";
    const int teeth = 20;
    for (int i = 0; i < teeth; ++i)
        text += "v " + std::to_string(i) + " 0 0\nv " + std::to_string(i) + ".5 5 0\n";
    text += "v 20 0 0\nv 20 -1 0\nv 0 -1 0\n";
    for (int i = 2 * teeth + 3; i >= 1; --i)
        face += " " + std::to_string(i);

    const ReadResult result = ReadObjText(text + face + "\n");

    EXPECT_EQ(result.mesh.TriangleCount(), 41u);
    EXPECT_NEAR(doubleArea(result), 2.0 * (20.0 + 20 * 2.5), 1e-9);
}

TEST(ObjReader, PolygonWithTooManyCornersIsSplitAsAFanWithAWarning)
{
    std::string text;
    std::string face = "f";
    for (int i = 1; i <= 1025; ++i) {
        text += "v " + std::to_string(i) + " " + std::to_string(i * i) + " 0\n";
        face += " " + std::to_string(i);
    }

    const ReadResult result = ReadObjText(text + face + "\n");

    EXPECT_EQ(result.mesh.TriangleCount(), 1023u);
    EXPECT_THAT(result.warnings,
                ElementsAre(L"test: line 1026: more than 1024 corners; faces split without regard "
                            L"to concave corners: 1"));
}

TEST(ObjReader, ObjectsGroupsAndMaterialsBecomeRanges)
{
    const ReadResult result = ReadObjText(kSquare + "o one\nf 1 2 3\ng left side\nusemtl red\n"
                                                    "f 1 3 4\nf 1 2 4\no two\nf 2 3 4\n");

    EXPECT_THAT(result.mesh.objects, ElementsAre(L"one", L"two"));
    EXPECT_THAT(result.mesh.groups, ElementsAre(L"left side"));
    ASSERT_EQ(result.mesh.ranges.size(), 3u);
    EXPECT_EQ(result.mesh.ranges[1].triangleCount, 2u);
    EXPECT_EQ(result.mesh.ranges[1].group, 0u);
    EXPECT_EQ(result.mesh.ranges[1].material, 0u);
    EXPECT_EQ(result.mesh.ranges[2].object, 1u);
    EXPECT_EQ(result.mesh.ranges[2].firstTriangle, 3u);
}

TEST(ObjReader, NamesThatComeAgainMeanTheSameGroup)
{
    const ReadResult result = ReadObjText(kSquare + "g a\nf 1 2 3\ng b\nf 1 2 3\ng a\nf 1 2 3\n");

    EXPECT_THAT(result.mesh.groups, ElementsAre(L"a", L"b"));
    EXPECT_EQ(result.mesh.ranges[2].group, 0u);
}

TEST(ObjReader, MaterialsTakeTheirDiffuseColorAndOpacity)
{
    const TempFolder folder;
    folder.Write("colors.mtl", "# colours\nnewmtl red\nKa 0 0 0\nKd 1 0.5 0.25\nd 0.5\n"
                               "newmtl glass\r\n  Kd 0.1 0.2 0.3\r\nTr 0.75\n");
    const std::wstring path =
        folder.Write("box.obj", "mtllib colors.mtl\n" + kSquare +
                                    "usemtl red\nf 1 2 3\nusemtl glass\nf 1 3 4\n");

    const ReadResult result = ReadObjFile(path);

    ASSERT_EQ(result.mesh.materials.size(), 2u);
    EXPECT_TRUE(result.mesh.materials[0].hasColor);
    EXPECT_EQ(result.mesh.materials[0].color.green, 0.5f);
    EXPECT_EQ(result.mesh.materials[0].color.alpha, 0.5f);
    EXPECT_EQ(result.mesh.materials[1].color.blue, 0.3f);
    EXPECT_EQ(result.mesh.materials[1].color.alpha, 0.25f);
    EXPECT_THAT(result.warnings, IsEmpty());
}

TEST(ObjReader, MaterialLibraryMayHaveBlanksInItsName)
{
    const TempFolder folder;
    folder.Write("my colours.mtl", "newmtl red\nKd 1 0 0\n");
    const std::wstring path =
        folder.Write("box.obj", "mtllib my colours.mtl\n" + kSquare + "usemtl red\nf 1 2 3\n");

    EXPECT_TRUE(ReadObjFile(path).mesh.materials.at(0).hasColor);
}

TEST(ObjReader, MissingMaterialLibraryIsAWarning)
{
    const TempFolder folder;
    const std::wstring path =
        folder.Write("box.obj", "mtllib nowhere.mtl\n" + kSquare + "usemtl red\nf 1 2 3\n");

    const ReadResult result = ReadObjFile(path);

    EXPECT_TRUE(result.ok);
    EXPECT_THAT(result.warnings, ElementsAre(path + L": the material library \"nowhere.mtl\" "
                                                    L"cannot be read: No such file or directory"));
}

TEST(ObjReader, MaterialLibraryOutsideTheFolderIsNotRead)
{
    const TempFolder folder;
    folder.Write("secret.mtl", "newmtl red\nKd 1 0 0\n");
    std::filesystem::create_directory(folder.Path() / "sub");
    const std::wstring path =
        folder.Write("sub/box.obj", "mtllib ../secret.mtl\n" + kSquare + "usemtl red\nf 1 2 3\n");

    const ReadResult result = ReadObjFile(path);

    EXPECT_FALSE(result.mesh.materials.at(0).hasColor);
    EXPECT_THAT(result.warnings, ElementsAre(path + L": the material library \"../secret.mtl\" "
                                                    L"lies outside the folder of the file and was "
                                                    L"not read"));
}

TEST(ObjReader, NoMoreThanSomeMaterialLibrariesAreRead)
{
    const TempFolder folder;
    std::string text = kSquare + "f 1 2 3\n";
    for (int i = 0; i < 200; ++i)
        text += "mtllib none" + std::to_string(i) + " none" + std::to_string(i) + "\n";

    const ReadResult result = ReadObjFile(folder.Write("a.obj", text));

    ASSERT_EQ(result.warnings.size(), 65u);
    EXPECT_THAT(result.warnings.back(),
                EndsWith(L"a.obj: more than 64 material libraries; the others were not read"));
}

TEST(ObjReader, UndefinedMaterialIsAWarning)
{
    const TempFolder folder;
    folder.Write("colors.mtl", "newmtl red\nKd 1 0 0\n");
    const std::wstring path =
        folder.Write("box.obj", "mtllib colors.mtl\n" + kSquare + "usemtl blue\nf 1 2 3\n");

    EXPECT_THAT(ReadObjFile(path).warnings,
                ElementsAre(path + L": the material \"blue\" is not defined"));
}

TEST(ObjReader, VertexColorsAreKept)
{
    const ReadResult result = ReadObjText("v 0 0 0 1 0 0\nv 1 0 0\nv 0 1 0 0 0.5 1\nf 1 2 3\n");

    ASSERT_EQ(result.mesh.colors.Size(), 12u);
    const std::vector<int> colors(result.mesh.colors.begin(), result.mesh.colors.end());
    EXPECT_THAT(colors, ElementsAre(255, 0, 0, 255, 255, 255, 255, 255, 0, 128, 255, 255));
}

TEST(ObjReader, VertexColorsFrom0To255AreTakenAsSuch)
{
    const ReadResult result =
        ReadObjText("v 0 0 0 255 0 51\nv 1 0 0 255 0 51\nv 0 1 0 255 0 51\nf 1 2 3\n");

    EXPECT_EQ(result.mesh.colors[0], 255);
    EXPECT_EQ(result.mesh.colors[2], 51);
}

TEST(ObjReader, FourthNumberOfAPointIsAWeightAndIgnored)
{
    const ReadResult result = ReadObjText("v 0 0 0 1.0\nv 1 0 0 1.0\nv 0 1 0 1.0\nf 1 2 3\n");

    EXPECT_TRUE(result.mesh.colors.IsEmpty());
    EXPECT_THAT(result.warnings, IsEmpty());
}

TEST(ObjReader, NormalsSplitPointsThatHaveSeveral)
{
    const ReadResult result =
        ReadObjText(kSquare + "vn 0 0 2\nvn 0 1 0\nf 1//1 2//1 3//1\nf 1//1 3//2 4//1\n");

    EXPECT_EQ(result.mesh.VertexCount(), 5u);
    ASSERT_EQ(result.mesh.normals.Size(), 15u);
    EXPECT_EQ(result.mesh.normals[2], 1.0f);
}

TEST(ObjReader, FaceWithoutNormalsAmongOthersGetsAFlatOne)
{
    const ReadResult result = ReadObjText(kSquare + "vn 0 1 0\nf 1//1 2//1 3//1\nf 1 3 4\n");

    const std::uint32_t vertex = result.mesh.triangles[3];
    EXPECT_EQ(result.mesh.normals[vertex * 3 + 2], 1.0f);
}

TEST(ObjReader, IndexOfANormalOutOfRangeIsReplacedWithAWarning)
{
    const ReadResult result = ReadObjText(kSquare + "vn 0 1 0\nf 1//1 2//7 3//1\n");

    EXPECT_EQ(result.mesh.TriangleCount(), 1u);
    EXPECT_THAT(result.warnings, ElementsAre(L"test: line 6: the index of a normal is out of "
                                             L"range; indices replaced: 1"));
}

TEST(ObjReader, TextureIndicesAreSkipped)
{
    const ReadResult result =
        ReadObjText(kSquare + "vt 0 0\nvn 0 0 1\nf 1/1 2/1 3/1\nf 1/1/1 2/1/1 3/-1/-1\n");

    EXPECT_EQ(result.mesh.TriangleCount(), 2u);
    EXPECT_THAT(result.warnings, IsEmpty());
}

TEST(ObjReader, LineContinuesAfterABackslash)
{
    const ReadResult result = ReadObjText("v 0 0 \\\n0\nv 1 0 0\nv 1 1 0\nv 0 1 0\nvt 1 \\\r\n1\n"
                                          "g first \\\nsecond\nf 1 2 \\\n 3 \\\n 4\n");

    EXPECT_EQ(result.mesh.TriangleCount(), 2u);
    EXPECT_THAT(result.mesh.groups, ElementsAre(L"first  second"));
    EXPECT_THAT(result.warnings, IsEmpty());
}

TEST(ObjReader, BackslashAtTheEndOfACommentDoesNotContinueIt)
{
    EXPECT_TRUE(ReadObjText("# C:\\models\\\n" + kSquare + "f 1 2 3\n").ok);
}

TEST(ObjReader, LineEndsMayBeCrLfOrCr)
{
    EXPECT_EQ(ReadObjText("v 0 0 0\r\nv 1 0 0\r\nv 0 1 0\r\ng a\r\nf 1 2 3\r\n").mesh.groups.at(0),
              L"a");
    EXPECT_EQ(ReadObjText("v 0 0 0\rv 1 0 0\rv 0 1 0\rf 1 2 3\r").mesh.TriangleCount(), 1u);
}

TEST(ObjReader, ReadsUtf16OfBothOrdersAndAUtf8Mark)
{
    const std::string text = kSquare + "f 1 2 3\n";

    EXPECT_TRUE(ReadObjText(toUtf16(text, false)).ok);
    EXPECT_TRUE(ReadObjText(toUtf16(text, true)).ok);
    EXPECT_THAT(ReadObjText("\xEF\xBB\xBF" + text).warnings, IsEmpty());
}

TEST(ObjReader, LastLineMayLackItsEnd)
{
    EXPECT_TRUE(ReadObjText(kSquare + "f 1 2 3").ok);
}

TEST(ObjReader, LinesThatAreNotUnderstoodAreCounted)
{
    const ReadResult result = ReadObjText(kSquare + "hello\nf 1 2 x\nf 1 2 3\n");

    EXPECT_EQ(result.mesh.TriangleCount(), 1u);
    EXPECT_THAT(result.warnings, ElementsAre(L"test: line 5: not understood; lines left out, in "
                                             L"whole or in part: 2"));
}

TEST(ObjReader, PointWithABadNumberKeepsItsIndexAndTakesItsFacesAlong)
{
    const ReadResult result = ReadObjText("v 0 0 0\nv 1 x 0\nv 1 1 0\nv 0 1 0\nf 1 2 3\nf 1 3 4\n");

    EXPECT_EQ(result.mesh.TriangleCount(), 1u);
    EXPECT_EQ(result.At(0, 1), (Point{1.0f, 1.0f, 0.0f}));
    EXPECT_THAT(
        result.warnings,
        ElementsAre(L"test: line 2: a coordinate is missing or no number; such vertices: 1",
                    L"test: line 5: a coordinate is not a finite number; faces left out: 1"));
}

TEST(ObjReader, FacesWithInfinitiesAndNansAreLeftOutAndDenormalsKept)
{
    const ReadResult result = ReadObjText(
        "v 0 0 0\nv inf 0 0\nv nan 1 0\nv 1e-40 1 0\nv 1 0 0\nf 1 2 5\nf 1 3 5\nf 1 5 4\n");

    ASSERT_EQ(result.mesh.TriangleCount(), 1u);
    EXPECT_EQ(result.At(0, 2)[0], 1e-40f);
    EXPECT_THAT(result.warnings, ElementsAre(L"test: line 6: a coordinate is not a finite number; "
                                             L"faces left out: 2"));
}

TEST(ObjReader, CurvesAndSurfacesAreLeftOutAndCounted)
{
    const ReadResult result = ReadObjText(kSquare + "curv 0 1 1 2\nsurf 0 1 0 1 1 2\nf 1 2 3\n");

    EXPECT_THAT(result.warnings, ElementsAre(L"test: line 5: curves and surfaces left out: 2"));
}

TEST(ObjReader, FileWithoutFacesIsAPointCloudWithAWarning)
{
    const ReadResult result = ReadObjText(
        "v 0 0 0 1 0 0\nvn 0 0 2\nv 1 2 3 0 0 1\nvn 0 1 0\nv nan 0 0\nvn 1 0 0\np 1 2\n");

    ASSERT_TRUE(result.ok) << result.error.c_str();
    EXPECT_TRUE(result.mesh.isPointCloud);
    EXPECT_EQ(result.mesh.VertexCount(), 2u);
    EXPECT_THAT(result.Vertex(1), ElementsAre(1, 2, 3));
    EXPECT_THAT(result.Color(1), ElementsAre(0, 0, 255, 255));
    EXPECT_THAT(result.Normal(0), ElementsAre(0, 0, 1));
    EXPECT_THAT(
        result.warnings,
        ElementsAre(L"test: a coordinate of point 3 is not a finite number; points left out: 1",
                    L"test: the file holds no faces; its points were read as a point cloud"));
}

TEST(ObjReader, FileWithBadFacesAloneIsAnError)
{
    EXPECT_EQ(ReadObjText(kSquare + "f 1 2 9\n").error, L"test: the file holds no triangle");
    EXPECT_EQ(ReadObjText("# nothing\n").error, L"test: the file holds no point");
}
