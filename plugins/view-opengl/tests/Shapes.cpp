#include "Shapes.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <string>

namespace ViewOpenGl {

using TambVizCore::Geometry;
using TambVizCore::GeometryBuilder;
using TambVizCore::MakePartId;
using TambVizCore::PartKind;
using TambVizCore::SharedArray;

GeometryBuilder RectangleBuilder(const std::vector<Rectangle>& rectangles)
{
    std::vector<float> positions;
    std::vector<std::uint32_t> triangles;
    GeometryBuilder builder;
    for (std::uint32_t i = 0; i < rectangles.size(); ++i) {
        const Rectangle& r = rectangles[i];
        positions.insert(positions.end(), {r.left, r.bottom, r.z, r.right, r.bottom, r.z, r.right,
                                           r.top, r.z, r.left, r.top, r.z});
        for (const std::uint32_t corner : {0u, 1u, 2u, 0u, 2u, 3u})
            triangles.push_back(4 * i + corner);
        builder.AddPart({PartKind::Face, 2 * i, 2, MakePartId(PartKind::Face, i)});
    }
    builder.SetPositions(SharedArray<float>(std::move(positions)))
        .SetTriangles(SharedArray<std::uint32_t>(std::move(triangles)));
    return builder;
}

std::shared_ptr<const Geometry> MakeRectangles(const std::vector<Rectangle>& rectangles)
{
    GeometryBuilder builder = RectangleBuilder(rectangles);
    return Build(builder);
}

std::shared_ptr<const Geometry> Build(GeometryBuilder& builder)
{
    std::string error;
    auto geometry = builder.Build(error);
    EXPECT_EQ(error, "");
    return geometry;
}

std::shared_ptr<const Geometry> MakeLine(float z)
{
    GeometryBuilder builder;
    builder.SetPositions(SharedArray<float>(std::vector<float>{-0.5f, 0, z, 0.5f, 0, z}))
        .SetSegments(SharedArray<std::uint32_t>(std::vector<std::uint32_t>{0, 1}))
        .AddPart({PartKind::Edge, 0, 1, MakePartId(PartKind::Edge, 0)});
    return Build(builder);
}

namespace {

/// Adds the corners and triangles of a box; @p turn 1 faces outwards, -1 inwards.
void addBox(float half, int turn, std::vector<float>& positions,
            std::vector<std::uint32_t>& triangles)
{
    const auto first = static_cast<std::uint32_t>(positions.size() / 3);
    for (int corner = 0; corner < 8; ++corner)
        for (int axis = 0; axis < 3; ++axis)
            positions.push_back(((corner >> axis) & 1) != 0 ? half : -half);
    // Each side by its corners, anticlockwise seen from outside.
    constexpr std::uint32_t kSides[6][4] = {{0, 2, 3, 1}, {4, 5, 7, 6}, {0, 1, 5, 4},
                                            {2, 6, 7, 3}, {0, 4, 6, 2}, {1, 3, 7, 5}};
    for (const auto& side : kSides)
        for (const int corner : {0, 1, 2, 0, 2, 3})
            triangles.push_back(first + side[turn > 0 ? corner : 3 - corner]);
}

std::shared_ptr<const Geometry> buildClosed(std::vector<float>&& positions,
                                            std::vector<std::uint32_t>&& triangles)
{
    GeometryBuilder builder;
    builder.SetPositions(SharedArray<float>(std::move(positions)))
        .SetTriangles(SharedArray<std::uint32_t>(std::move(triangles)))
        .SetClosed(true);
    return Build(builder);
}

} // namespace

std::shared_ptr<const Geometry> MakeBox(float half)
{
    std::vector<float> positions;
    std::vector<std::uint32_t> triangles;
    addBox(half, 1, positions, triangles);
    return buildClosed(std::move(positions), std::move(triangles));
}

std::shared_ptr<const Geometry> MakeHollowBox(float outerHalf, float innerHalf)
{
    std::vector<float> positions;
    std::vector<std::uint32_t> triangles;
    addBox(outerHalf, 1, positions, triangles);
    addBox(innerHalf, -1, positions, triangles);
    return buildClosed(std::move(positions), std::move(triangles));
}

std::shared_ptr<const Geometry> MakePoint()
{
    GeometryBuilder builder;
    builder.SetPositions(SharedArray<float>(std::vector<float>{0, 0, 0}))
        .SetPoints(SharedArray<std::uint32_t>(std::vector<std::uint32_t>{0}))
        .AddPart({PartKind::Vertex, 0, 1, MakePartId(PartKind::Vertex, 0)});
    return Build(builder);
}

std::shared_ptr<const TambVizCore::Geometry> MakeSphere(std::uint32_t rings)
{
    std::vector<float> positions, normals;
    std::vector<std::uint32_t> triangles, segments;
    for (std::uint32_t ring = 0; ring <= rings; ++ring)
        for (std::uint32_t i = 0; i < rings; ++i) {
            const double v = std::numbers::pi * ring / rings;
            const double u = 2.0 * std::numbers::pi * i / rings;
            for (const double n :
                 {std::sin(v) * std::cos(u), std::sin(v) * std::sin(u), std::cos(v)}) {
                normals.push_back(static_cast<float>(n));
                positions.push_back(static_cast<float>(0.8 * n));
            }
        }
    for (std::uint32_t ring = 0; ring < rings; ++ring)
        for (std::uint32_t i = 0; i < rings; ++i) {
            const std::uint32_t a = ring * rings + i;
            const std::uint32_t b = ring * rings + (i + 1) % rings;
            triangles.insert(triangles.end(), {a, a + rings, b, b, a + rings, b + rings});
            if (ring % 8 == 0)
                segments.insert(segments.end(), {a, b});
        }
    const auto count = static_cast<std::uint32_t>(triangles.size() / 3);
    TambVizCore::GeometryBuilder builder;
    builder.SetPositions(TambVizCore::SharedArray<float>(std::move(positions)))
        .SetNormals(TambVizCore::SharedArray<float>(std::move(normals)))
        .SetTriangles(TambVizCore::SharedArray<std::uint32_t>(std::move(triangles)))
        .SetSegments(TambVizCore::SharedArray<std::uint32_t>(std::move(segments)))
        .AddPart({TambVizCore::PartKind::Face, 0, count,
                  TambVizCore::MakePartId(TambVizCore::PartKind::Face, 0)})
        .SetClosed(true);
    return Build(builder);
}

} // namespace ViewOpenGl
