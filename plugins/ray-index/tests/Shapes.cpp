#include "Shapes.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <string>
#include <utility>

namespace OrvikRay {

using TambVizCore::Geometry;
using TambVizCore::GeometryPart;
using TambVizCore::PartKind;
using TambVizCore::SharedArray;

std::shared_ptr<const Geometry> MakeGeometry(std::vector<float> positions,
                                             std::vector<std::uint32_t> triangles,
                                             std::vector<std::uint32_t> segments,
                                             std::vector<std::uint32_t> points,
                                             std::vector<GeometryPart> parts)
{
    TambVizCore::GeometryBuilder builder;
    builder.SetPositions(SharedArray<float>(std::move(positions)));
    builder.SetTriangles(SharedArray<std::uint32_t>(std::move(triangles)));
    builder.SetSegments(SharedArray<std::uint32_t>(std::move(segments)));
    builder.SetPoints(SharedArray<std::uint32_t>(std::move(points)));
    builder.SetParts(std::move(parts));
    std::string error;
    auto geometry = builder.Build(error);
    EXPECT_EQ(error, "");
    return geometry;
}

std::vector<float> RingPositions(const Ring& ring)
{
    std::vector<float> positions;
    for (std::uint32_t i = 0; i < ring.steps; ++i) {
        for (std::uint32_t j = 0; j < ring.steps; ++j) {
            const double u = 2.0 * std::numbers::pi * i / ring.steps;
            const double v = 2.0 * std::numbers::pi * j / ring.steps;
            const double thickness = 0.22 + 0.02 * std::sin(7.0 * u);
            const double radius = 0.76 + thickness * std::cos(v);
            const double point[3] = {radius * std::cos(u), radius * std::sin(u),
                                     thickness * std::sin(v)};
            for (int axis = 0; axis < 3; ++axis)
                positions.push_back(
                    static_cast<float>(ring.center[axis] + ring.size * point[axis]));
        }
    }
    return positions;
}

std::vector<std::uint32_t> RingTriangles(const Ring& ring)
{
    std::vector<std::uint32_t> triangles;
    const auto at = [&ring](std::uint32_t i, std::uint32_t j) {
        return (i % ring.steps) * ring.steps + j % ring.steps;
    };
    for (std::uint32_t i = 0; i < ring.steps; ++i) {
        for (std::uint32_t j = 0; j < ring.steps; ++j) {
            triangles.insert(triangles.end(), {at(i, j), at(i + 1, j), at(i + 1, j + 1)});
            triangles.insert(triangles.end(), {at(i, j), at(i + 1, j + 1), at(i, j + 1)});
        }
    }
    return triangles;
}

std::shared_ptr<const Geometry> MakeRing(const Ring& ring)
{
    const std::uint32_t count = 2 * ring.steps * ring.steps;
    std::vector<GeometryPart> parts;
    for (std::uint32_t first = 0; first < count; first += 100)
        parts.push_back({PartKind::Face, first, std::min(100u, count - first),
                         TambVizCore::MakePartId(PartKind::Face, first / 100)});
    return MakeGeometry(RingPositions(ring), RingTriangles(ring), {}, {}, std::move(parts));
}

} // namespace OrvikRay
