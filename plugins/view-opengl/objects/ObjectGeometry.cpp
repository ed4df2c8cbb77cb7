#include "objects/ObjectGeometry.h"

#include <OrvikCore/Dbg.h>

#include <array>
#include <cmath>
#include <cstdint>
#include <numbers>
#include <utility>

namespace ViewOpenGl {

using TambVizCore::Geometry;
using TambVizCore::GeometryBuilder;
using TambVizCore::SharedArray;

namespace {

constexpr std::uint32_t kAround = 24; ///< Corners of the arrow's circles.
constexpr float kShaftRadius = 0.015f;
constexpr float kHeadRadius = 0.045f;
constexpr float kHeadLength = 0.15f;
constexpr float kLoneHeadRadius = 0.28f; ///< Of a head whose length is 1.

void addTriangle(std::vector<std::uint32_t>& triangles, std::uint32_t a, std::uint32_t b,
                 std::uint32_t c)
{
    triangles.insert(triangles.end(), {a, b, c});
}

using Point2 = std::array<double, 2>;

double turn(const Point2& a, const Point2& b, const Point2& c)
{
    return (b[0] - a[0]) * (c[1] - a[1]) - (b[1] - a[1]) * (c[0] - a[0]);
}

bool isInside(const Point2& p, const Point2& a, const Point2& b, const Point2& c)
{
    return turn(a, b, p) >= 0.0 && turn(b, c, p) >= 0.0 && turn(c, a, p) >= 0.0;
}

/// The corners without their largest normal component, so turned that they run anticlockwise. The
/// normal is the sum of the cross products of neighbouring corners (Newell).
std::vector<Point2> flatten(const std::vector<float>& points)
{
    const std::size_t count = points.size() / 3;
    double normal[3] = {0.0, 0.0, 0.0};
    for (std::size_t i = 0; i < count; ++i) {
        const float* const a = points.data() + 3 * i;
        const float* const b = points.data() + 3 * ((i + 1) % count);
        for (int k = 0; k < 3; ++k) {
            const int n = (k + 1) % 3;
            const int l = (k + 2) % 3;
            normal[k] += static_cast<double>(a[n] - b[n]) * (a[l] + b[l]);
        }
    }
    int dropped = 2;
    for (int k = 0; k < 2; ++k)
        if (std::abs(normal[k]) > std::abs(normal[dropped]))
            dropped = k;
    const double sign = normal[dropped] < 0.0 ? -1.0 : 1.0;
    std::vector<Point2> flat(count);
    for (std::size_t i = 0; i < count; ++i)
        flat[i] = {points[3 * i + static_cast<std::size_t>((dropped + 1) % 3)],
                   sign * points[3 * i + static_cast<std::size_t>((dropped + 2) % 3)]};
    return flat;
}

bool isEar(const std::vector<Point2>& flat, const std::vector<std::uint32_t>& left, std::size_t at)
{
    const std::size_t count = left.size();
    const std::uint32_t before = left[(at + count - 1) % count];
    const std::uint32_t here = left[at];
    const std::uint32_t after = left[(at + 1) % count];
    if (turn(flat[before], flat[here], flat[after]) <= 0.0)
        return false;
    for (const std::uint32_t other : left)
        if (other != before && other != here && other != after &&
            isInside(flat[other], flat[before], flat[here], flat[after]))
            return false;
    return true;
}

} // namespace

std::shared_ptr<const Geometry> BuildGeometry(GeometryBuilder& builder)
{
    std::string error;
    auto geometry = builder.Build(error);
    if (geometry == nullptr)
        OrvikCore::dbg << "-- view: a view object cannot be drawn: " << error << std::endl;
    return geometry;
}

std::shared_ptr<const Geometry> MakeArrow()
{
    // The axis' two ends, then four circles: bottom and top of the shaft, inside and outside of the
    // foot of the head (the first of these is the shaft's top).
    std::vector<float> positions = {0.0f, 0.0f, 0.0f, 0.0f, 0.0f, 1.0f};
    const auto addCircle = [&positions](float radius, float z) {
        for (std::uint32_t i = 0; i < kAround; ++i) {
            const float angle = 2.0f * std::numbers::pi_v<float> * static_cast<float>(i) /
                                static_cast<float>(kAround);
            positions.insert(positions.end(),
                             {radius * std::cos(angle), radius * std::sin(angle), z});
        }
    };
    addCircle(kShaftRadius, 0.0f);
    addCircle(kShaftRadius, 1.0f - kHeadLength);
    addCircle(kHeadRadius, 1.0f - kHeadLength);
    std::vector<std::uint32_t> triangles;
    for (std::uint32_t i = 0; i < kAround; ++i) {
        const std::uint32_t next = (i + 1) % kAround;
        const std::uint32_t bottom = 2 + i, bottomNext = 2 + next;
        const std::uint32_t top = bottom + kAround, topNext = bottomNext + kAround;
        const std::uint32_t foot = top + kAround, footNext = topNext + kAround;
        addTriangle(triangles, 0, bottomNext, bottom);
        addTriangle(triangles, bottom, bottomNext, topNext);
        addTriangle(triangles, bottom, topNext, top);
        addTriangle(triangles, top, topNext, footNext);
        addTriangle(triangles, top, footNext, foot);
        addTriangle(triangles, foot, footNext, 1);
    }
    GeometryBuilder builder;
    builder.SetPositions(SharedArray<float>(std::move(positions)))
        .SetTriangles(SharedArray<std::uint32_t>(std::move(triangles)))
        .SetClosed(true);
    return BuildGeometry(builder);
}

std::shared_ptr<const Geometry> MakeHead()
{
    std::vector<float> positions = {0.0f, 0.0f, 0.0f, 0.0f, 0.0f, 1.0f};
    std::vector<std::uint32_t> triangles;
    for (std::uint32_t i = 0; i < kAround; ++i) {
        const float angle =
            2.0f * std::numbers::pi_v<float> * static_cast<float>(i) / static_cast<float>(kAround);
        positions.insert(positions.end(), {kLoneHeadRadius * std::cos(angle),
                                           kLoneHeadRadius * std::sin(angle), 0.0f});
        const std::uint32_t here = 2 + i;
        const std::uint32_t next = 2 + (i + 1) % kAround;
        addTriangle(triangles, 0, next, here);
        addTriangle(triangles, here, next, 1);
    }
    GeometryBuilder builder;
    builder.SetPositions(SharedArray<float>(std::move(positions)))
        .SetTriangles(SharedArray<std::uint32_t>(std::move(triangles)))
        .SetClosed(true);
    return BuildGeometry(builder);
}

std::shared_ptr<const Geometry> MakeSegments(std::vector<float> points)
{
    std::vector<std::uint32_t> segments(points.size() / 3);
    for (std::uint32_t i = 0; i < segments.size(); ++i)
        segments[i] = i;
    GeometryBuilder builder;
    builder.SetPositions(SharedArray<float>(std::move(points)))
        .SetSegments(SharedArray<std::uint32_t>(std::move(segments)));
    return BuildGeometry(builder);
}

std::shared_ptr<const Geometry> MakeUnitSquare()
{
    GeometryBuilder builder;
    builder.SetPositions(SharedArray<float>({0, 0, 0, 1, 0, 0, 1, 1, 0, 0, 1, 0}))
        .SetTriangles(SharedArray<std::uint32_t>({0, 1, 2, 0, 2, 3}));
    return BuildGeometry(builder);
}

std::vector<std::uint32_t> FillPolygon(const std::vector<float>& points)
{
    const std::vector<Point2> flat = flatten(points);
    std::vector<std::uint32_t> triangles;
    if (flat.size() < 3)
        return triangles;
    std::vector<std::uint32_t> left(flat.size());
    for (std::uint32_t i = 0; i < left.size(); ++i)
        left[i] = i;
    std::size_t at = 0;
    std::size_t misses = 0;
    while (left.size() > 3) {
        // Where no corner is an ear the polygon crosses itself; any corner goes then.
        const bool isForced = misses == left.size();
        if (!isForced && !isEar(flat, left, at)) {
            at = (at + 1) % left.size();
            ++misses;
            continue;
        }
        const std::size_t count = left.size();
        addTriangle(triangles, left[(at + count - 1) % count], left[at], left[(at + 1) % count]);
        left.erase(left.begin() + static_cast<std::ptrdiff_t>(at));
        at %= left.size();
        misses = 0;
    }
    addTriangle(triangles, left[0], left[1], left[2]);
    return triangles;
}

} // namespace ViewOpenGl
