#include "MeshFiles.h"
#include "content/MeshBodies.h"

#include <TambVizCore/Geometry.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using OrvikMesh::MakeBodies;
using OrvikMesh::MeshArray;
using OrvikMesh::MeshThin;
using OrvikMesh::ReadMessages;
using OrvikModel::NodeKind;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

const std::string kSquare = "v 0 0 0\nv 1 0 0\nv 1 1 0\nv 0 1 0\n";

std::vector<std::uint32_t> listOf(const MeshArray<std::uint32_t>& values)
{
    return {values.begin(), values.end()};
}

std::vector<float> listOf(const MeshArray<float>& values)
{
    return {values.begin(), values.end()};
}

} // namespace

TEST(ObjLines, PolylinesShareTheVerticesOfTheirBody)
{
    const ReadResult result = ReadObjText(kSquare + "l 1 2 3\nl 3/1 4/2\n");

    ASSERT_TRUE(result.ok) << result.error.c_str();
    ASSERT_EQ(result.mesh.thin.size(), 1u);
    const MeshThin& lines = result.mesh.thin[0];
    EXPECT_TRUE(lines.areLines);
    EXPECT_THAT(listOf(lines.segments), ElementsAre(0, 1, 1, 2, 2, 3));
    EXPECT_THAT(listOf(lines.runs), ElementsAre(0, 2));
    EXPECT_THAT(listOf(lines.positions), ElementsAre(0, 0, 0, 1, 0, 0, 1, 1, 0, 0, 1, 0));
    EXPECT_THAT(result.warnings, IsEmpty());
}

TEST(ObjLines, IndicesMayBeRelativeAndLinesContinued)
{
    const ReadResult result = ReadObjText(kSquare + "l -4 \\\n-1\nv 5 5 5\np -1 \\\n1\nf 1 2 3\n");

    ASSERT_EQ(result.mesh.thin.size(), 2u);
    EXPECT_THAT(listOf(result.mesh.thin[0].positions), ElementsAre(0, 0, 0, 0, 1, 0));
    EXPECT_FALSE(result.mesh.thin[1].areLines);
    EXPECT_THAT(listOf(result.mesh.thin[1].positions), ElementsAre(5, 5, 5, 0, 0, 0));
    EXPECT_EQ(result.mesh.TriangleCount(), 1u);
}

TEST(ObjLines, ThoseOfAnObjectAndGroupAreOneBodyInWhateverOrderTheyCome)
{
    const ReadResult result =
        ReadObjText(kSquare + "o a\nl 1 2\nf 1 2 3\no b\nl 2 3\ng c\np 4\no a\ng\nl 3 4\n");

    ASSERT_EQ(result.mesh.thin.size(), 4u);
    EXPECT_EQ(result.mesh.objects[result.mesh.thin[0].object], L"a");
    EXPECT_EQ(result.mesh.objects[result.mesh.thin[1].object], L"b");
    EXPECT_EQ(result.mesh.groups[result.mesh.thin[2].group], L"c");
}

TEST(ObjLines, BadOnesAreLeftOutAndCounted)
{
    const ReadResult result =
        ReadObjText(kSquare + "v nan 0 0\nl 1\nl 1 9\np 0\nl 1 5\np 7\nl 1 2\nl 1 x\nf 1 2 3\n");

    ASSERT_EQ(result.mesh.thin.size(), 1u);
    EXPECT_EQ(result.mesh.thin[0].segments.Size(), 2u);
    EXPECT_THAT(
        result.warnings,
        ElementsAre(L"test: line 12: not understood; lines left out, in whole or in part: 1",
                    L"test: line 6: an index that is 0 or out of range, a coordinate that is no "
                    L"finite number, or a line of one point; lines and points left out: 5"));
}

TEST(ObjLines, FileOfLinesAloneIsNoPointCloud)
{
    const ReadResult result = ReadObjText(kSquare + "l 1 2\np 3\n");

    ASSERT_TRUE(result.ok);
    EXPECT_FALSE(result.mesh.isPointCloud);
    EXPECT_EQ(result.mesh.TriangleCount(), 0u);
    EXPECT_EQ(result.mesh.thin.size(), 2u);
}

TEST(ObjLines, OfManyGroupsTheLastTakeTheRest)
{
    std::string text = kSquare;
    for (int i = 0; i < 10050; ++i)
        text += "g " + std::to_string(i) + "\nl 1 2\n";

    const ReadResult result = ReadObjText(text);

    ASSERT_EQ(result.mesh.thin.size(), 10000u);
    EXPECT_EQ(result.mesh.thin.back().segments.Size(), 51u * 2u);
}

TEST(ObjLines, BecomeWiresWithAnEdgeForEachPolylineAndPointsASet)
{
    ReadResult result =
        ReadObjText("v 0 0 0 1 0 0\nv 1 0 0\nv 1 1 0\no frame\nl 1 2 3\nl 3 1\no marks\np 1 3\n");
    ReadMessages messages(L"test");

    const auto nodes = MakeBodies(std::move(result.mesh), L"file", messages);

    ASSERT_EQ(nodes.size(), 2u);
    EXPECT_EQ(nodes[0]->kind, NodeKind::Wire);
    EXPECT_EQ(nodes[0]->name, L"frame");
    const auto wire = nodes[0]->shape->Present();
    EXPECT_EQ(wire->SegmentCount(), 3u);
    ASSERT_EQ(wire->Parts().size(), 2u);
    EXPECT_EQ(wire->Parts()[1].first, 2u);
    EXPECT_EQ(wire->Parts()[1].count, 1u);
    EXPECT_FALSE(wire->Colors().IsEmpty());
    EXPECT_EQ(nodes[1]->kind, NodeKind::PointSet);
    EXPECT_EQ(nodes[1]->shape->Present()->PointCount(), 2u);
}
