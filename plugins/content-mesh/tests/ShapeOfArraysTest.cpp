#include "content/ShapeOfArrays.h"

#include "MeshFiles.h"

#include <TambVizCore/Geometry.h>

#include <gtest/gtest.h>

namespace {

/// A soup: every triangle has vertices of its own.
OrvikMesh::ShapeArrays soupOf(const std::vector<Triangle>& triangles)
{
    OrvikMesh::ShapeArrays arrays;
    for (const Triangle& triangle : triangles) {
        for (const Point& point : triangle) {
            arrays.mesh.triangles.PushBack(static_cast<std::uint32_t>(arrays.mesh.VertexCount()));
            for (const float value : point)
                arrays.mesh.positions.PushBack(value);
        }
    }
    return arrays;
}

} // namespace

TEST(ShapeOfArrays, VerticesAtOnePlaceCloseASolid)
{
    const auto shape = OrvikMesh::MakeShape(soupOf(Cube()));

    EXPECT_TRUE(shape->Present()->IsClosed());
    EXPECT_EQ(shape->Present()->VertexCount(), 36u);
    EXPECT_EQ(shape->WithParts()->Parts().size(), 26u);
}

TEST(ShapeOfArrays, AMissingTriangleLeavesItOpen)
{
    std::vector<Triangle> triangles = Cube();
    triangles.pop_back();

    EXPECT_FALSE(OrvikMesh::MakeShape(soupOf(triangles))->Present()->IsClosed());
}

TEST(ShapeOfArrays, SegmentsAreOneEdge)
{
    OrvikMesh::ShapeArrays arrays;
    for (const float value : {0.0f, 0.0f, 0.0f, 1.0f, 0.0f, 0.0f})
        arrays.mesh.positions.PushBack(value);
    arrays.segments.PushBack(0);
    arrays.segments.PushBack(1);

    const auto geometry = OrvikMesh::MakeShape(std::move(arrays))->WithParts();

    ASSERT_EQ(geometry->Parts().size(), 1u);
    EXPECT_EQ(geometry->Parts()[0].kind, TambVizCore::PartKind::Edge);
    EXPECT_EQ(geometry->Parts()[0].count, 1u);
    EXPECT_NE(geometry->Index(), nullptr);
}
