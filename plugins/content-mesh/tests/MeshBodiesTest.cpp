#include "Models.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

const std::string kSquare = "v 0 0 0\nv 1 0 0\nv 1 1 0\nv 0 1 0\n";

} // namespace

TEST(MeshBodies, OneBodyWithoutNamesIsNamedAfterTheFile)
{
    ReadResult read;

    const auto bodies = BodiesOfObj(kSquare + "f 1 2 3\n", read);

    ASSERT_EQ(bodies.size(), 1u);
    EXPECT_EQ(bodies[0]->name, L"test");
    EXPECT_FALSE(bodies[0]->color);
}

TEST(MeshBodies, EachObjectAndGroupBecomesABodyWithItsOwnVertices)
{
    ReadResult read;

    const auto bodies =
        BodiesOfObj(kSquare + "o top\nf 1 2 3\ng left\nf 1 3 4\no end\ng\nf 2 3 4\n", read);

    ASSERT_EQ(bodies.size(), 3u);
    EXPECT_EQ(bodies[0]->name, L"top");
    EXPECT_EQ(bodies[1]->name, L"top / left");
    EXPECT_EQ(bodies[2]->name, L"end");
    EXPECT_EQ(bodies[1]->shape->Present()->VertexCount(), 3u);
    EXPECT_EQ(bodies[1]->shape->BoundingBox().Hi()[1], 1.0);
}

TEST(MeshBodies, GroupThatComesAgainAddsToItsBody)
{
    ReadResult read;

    const auto bodies = BodiesOfObj(kSquare + "g a\nf 1 2 3\ng b\nf 1 2 4\ng a\nf 1 3 4\n", read);

    ASSERT_EQ(bodies.size(), 2u);
    EXPECT_EQ(bodies[0]->shape->Present()->TriangleCount(), 2u);
}

TEST(MeshBodies, OneMaterialColorsTheBody)
{
    OrvikMesh::ReadMessages messages(L"test");
    ReadResult read = ReadObjText(kSquare + "usemtl red\nf 1 2 3\n");
    read.mesh.materials[0].hasColor = true;
    read.mesh.materials[0].color = {1.0f, 0.5f, 0.0f, 1.0f};

    const auto bodies = OrvikMesh::MakeBodies(std::move(read.mesh), L"test", messages);

    EXPECT_EQ(bodies[0]->color, TambVizCore::RGBAColor(255, 128, 0));
    EXPECT_TRUE(bodies[0]->shape->Present()->Colors().IsEmpty());
}

TEST(MeshBodies, SeveralMaterialsColorTheVertices)
{
    OrvikMesh::ReadMessages messages(L"test");
    ReadResult read = ReadObjText(kSquare + "usemtl red\nf 1 2 3\nusemtl none\nf 1 3 4\n");
    read.mesh.materials[0].hasColor = true;
    read.mesh.materials[0].color = {1.0f, 0.0f, 0.0f, 1.0f};

    const auto bodies = OrvikMesh::MakeBodies(std::move(read.mesh), L"test", messages);

    const TambVizCore::Geometry& geometry = *bodies[0]->shape->Present();
    EXPECT_FALSE(bodies[0]->color);
    EXPECT_EQ(geometry.VertexCount(), 6u);
    ASSERT_EQ(geometry.Colors().Size(), 24u);
    EXPECT_EQ(geometry.Colors()[1], 0);
    EXPECT_EQ(geometry.Colors()[13], 204);
}

TEST(MeshBodies, VertexColorsWinOverMaterials)
{
    OrvikMesh::ReadMessages messages(L"test");
    ReadResult read =
        ReadObjText("v 0 0 0 0 0 1\nv 1 0 0 0 0 1\nv 1 1 0 0 0 1\nusemtl red\nf 1 2 3\n");
    read.mesh.materials[0].hasColor = true;

    const auto bodies = OrvikMesh::MakeBodies(std::move(read.mesh), L"test", messages);

    EXPECT_FALSE(bodies[0]->color);
    EXPECT_EQ(bodies[0]->shape->Present()->Colors()[2], 255);
    EXPECT_EQ(bodies[0]->shape->Present()->Colors()[0], 0);
}

TEST(MeshBodies, TooManyGroupsBecomeOneBodyWithAWarning)
{
    std::string text = kSquare;
    for (int i = 0; i <= 10000; ++i)
        text += "g g" + std::to_string(i) + "\nf 1 2 3\n";
    ReadResult read;

    const auto bodies = BodiesOfObj(text, read);

    ASSERT_EQ(bodies.size(), 1u);
    EXPECT_EQ(bodies[0]->shape->Present()->TriangleCount(), 10001u);
    EXPECT_THAT(read.warnings, ElementsAre(L"test: the file has more than 10000 objects and "
                                           L"groups; they were read as one body"));
}

TEST(MeshBodies, ClosedBodiesArePolygonBodiesAndOpenOnesMeshes)
{
    OrvikMesh::ReadMessages messages(L"test");
    ReadResult closed = ReadStlBytes(BinaryStl(Cube()));
    ReadResult open;

    const auto bodies = OrvikMesh::MakeBodies(std::move(closed.mesh), L"test", messages);
    const auto sheets = BodiesOfObj(kSquare + "f 1 2 3\n", open);

    EXPECT_EQ(bodies[0]->kind, OrvikModel::NodeKind::PolyBody);
    EXPECT_EQ(sheets[0]->kind, OrvikModel::NodeKind::Mesh);
}

TEST(MeshBodies, PointsWithoutTrianglesAreACloud)
{
    OrvikMesh::ReadMessages messages(L"test");
    OrvikMesh::MeshData mesh;
    mesh.isPointCloud = true;
    for (const float value : {0.0f, 0.0f, 0.0f, 1.0f, 2.0f, 3.0f})
        mesh.positions.PushBack(value);

    const auto bodies = OrvikMesh::MakeBodies(std::move(mesh), L"scan", messages);

    ASSERT_EQ(bodies.size(), 1u);
    EXPECT_EQ(bodies[0]->kind, OrvikModel::NodeKind::PointCloud);
    EXPECT_EQ(bodies[0]->name, L"scan");
    EXPECT_EQ(bodies[0]->shape->WithParts()->PointCount(), 2u);
    EXPECT_GT(bodies[0]->pointSizePixels, 1.0f);
}
