#include "Shapes.h"

#include <gtest/gtest.h>

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

std::shared_ptr<const Geometry> MakePoint()
{
    GeometryBuilder builder;
    builder.SetPositions(SharedArray<float>(std::vector<float>{0, 0, 0}))
        .SetPoints(SharedArray<std::uint32_t>(std::vector<std::uint32_t>{0}))
        .AddPart({PartKind::Vertex, 0, 1, MakePartId(PartKind::Vertex, 0)});
    return Build(builder);
}

} // namespace ViewOpenGl
