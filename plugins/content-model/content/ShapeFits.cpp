#include "content/ShapeFits.h"

#include "content/LeastSquares.h"

#include <algorithm>
#include <map>
#include <tuple>

namespace OrvikModel {

namespace {

/// How far corners may lie off the shape, as a share of its size.
constexpr double kTolerance = 5e-4;
/// How far the middle of a chord may lie inside a circle, as a share of the radius: that of a
/// regular polygon of twelve sides does.
constexpr double kLeastMiddle = 0.965;
/// With fewer directions anything can look round.
constexpr std::size_t kLeastDirections = 6;

/// Fits the sphere |p|^2 = 2 c.p + k by least squares; with points of a plane through 0 and
/// @p normal given, the circle.
bool fitSphere(const std::vector<Vector3>& points, const Vector3& normal, RoundFit& fit)
{
    Vector3 middle;
    for (const Vector3& point : points)
        middle = middle + point * (1.0 / static_cast<double>(points.size()));
    double size = 0.0;
    for (const Vector3& point : points)
        size = std::max(size, Length(point - middle));
    if (!(size > 0.0))
        return false;
    LeastSquares4 equations;
    for (const Vector3& point : points) {
        const Vector3 p = (point - middle) * (1.0 / size);
        equations.Add({2.0 * p.x, 2.0 * p.y, 2.0 * p.z, 1.0}, Dot(p, p));
    }
    // The centre of a circle lies in its plane.
    const double weight = static_cast<double>(points.size());
    equations.Add({weight * normal.x, weight * normal.y, weight * normal.z, 0.0}, 0.0);
    std::array<double, 4> solution;
    if (!equations.Solve(solution))
        return false;
    const Vector3 center{solution[0], solution[1], solution[2]};
    const double square = solution[3] + Dot(center, center);
    if (!(square > 0.0))
        return false;
    fit.center = middle + center * size;
    fit.radius = std::sqrt(square) * size;
    return true;
}

bool isTight(const std::vector<Vector3>& points, const RoundFit& fit, double noise)
{
    const double tolerance = kTolerance * fit.radius + 4.0 * noise;
    return tolerance < 0.02 * fit.radius &&
           std::all_of(points.begin(), points.end(), [&](const Vector3& point) {
               return std::abs(Length(point - fit.center) - fit.radius) <= tolerance;
           });
}

Vector3 turnedUp(const Vector3& axis)
{
    const double largest = std::max({axis.x, axis.y, axis.z});
    const double least = std::min({axis.x, axis.y, axis.z});
    return largest >= -least ? axis : axis * -1.0;
}

/// Whether the points lie in enough directions, seen from the centre, to tell a round shape.
bool hasDirections(const std::vector<Vector3>& points, const Vector3& center)
{
    std::vector<Vector3> directions;
    for (const Vector3& point : points) {
        const Vector3 way = Normalized(point - center);
        if (std::any_of(directions.begin(), directions.end(),
                        [&way](const Vector3& known) { return Length(way - known) < 0.01; }))
            continue;
        directions.push_back(way);
        if (directions.size() >= kLeastDirections)
            return true;
    }
    return false;
}

Vector3 middleOf(const Triangle3& triangle)
{
    return (triangle[0] + triangle[1] + triangle[2]) * (1.0 / 3.0);
}

Vector3 areaVector(const Triangle3& triangle)
{
    return Cross(triangle[1] - triangle[0], triangle[2] - triangle[0]) * 0.5;
}

std::vector<Vector3> endsOf(const std::vector<std::array<Vector3, 2>>& segments)
{
    std::vector<Vector3> ends;
    for (const auto& segment : segments)
        ends.insert(ends.end(), segment.begin(), segment.end());
    return ends;
}

/// Whether every end of a segment is the end of exactly one other.
bool isClosed(const std::vector<std::array<Vector3, 2>>& segments)
{
    std::map<std::tuple<double, double, double>, int> uses;
    for (const Vector3& end : endsOf(segments))
        ++uses[{end.x, end.y, end.z}];
    return std::all_of(uses.begin(), uses.end(), [](const auto& use) { return use.second == 2; });
}

} // namespace

std::optional<PlaneFit> FitPlane(const std::vector<Triangle3>& triangles, double noise)
{
    Vector3 sum;
    Vector3 middle;
    double area = 0.0;
    for (const Triangle3& triangle : triangles) {
        const Vector3 own = areaVector(triangle);
        const double size = Length(own);
        sum = sum + own;
        middle = middle + middleOf(triangle) * size;
        area += size;
    }
    if (!(area > 0.0) || Length(sum) < 0.999 * area)
        return std::nullopt;
    const PlaneFit fit{middle * (1.0 / area), Normalized(sum)};
    const double tolerance = 1e-5 * std::sqrt(area) + 4.0 * noise;
    for (const Triangle3& triangle : triangles)
        for (const Vector3& corner : triangle)
            if (std::abs(Dot(corner - fit.origin, fit.normal)) > tolerance)
                return std::nullopt;
    return fit;
}

std::optional<RoundFit> FitCylinder(const std::vector<Triangle3>& triangles, double noise)
{
    // 1. The axis is the direction to which all normals are square.
    Matrix3 spread{};
    double area = 0.0;
    for (const Triangle3& triangle : triangles) {
        const Vector3 own = areaVector(triangle);
        const double size = Length(own);
        AddOuter(spread, Normalized(own), size);
        area += size;
    }
    const Eigen eigen = FindEigen(spread);
    if (!(eigen.value[0] <= 1e-5 * area) || !(eigen.value[1] > 1e-3 * area))
        return std::nullopt;
    RoundFit fit;
    fit.axis = turnedUp(eigen.vector[0]);
    // 2. Seen along it, the corners lie on a circle.
    std::vector<Vector3> flat;
    double lowest = 1e300;
    double highest = -1e300;
    for (const Triangle3& triangle : triangles)
        for (const Vector3& corner : triangle) {
            const double along = Dot(corner, fit.axis);
            lowest = std::min(lowest, along);
            highest = std::max(highest, along);
            flat.push_back(corner - fit.axis * along);
        }
    if (!fitSphere(flat, fit.axis, fit) || !isTight(flat, fit, noise) ||
        !hasDirections(flat, fit.center))
        return std::nullopt;
    // 3. And no triangle cuts far across.
    for (const Triangle3& triangle : triangles)
        for (std::size_t i = 0; i < 3; ++i) {
            const Vector3 side = (triangle[i] + triangle[(i + 1) % 3]) * 0.5;
            const Vector3 across = side - fit.axis * Dot(side, fit.axis) - fit.center;
            if (Length(across) < kLeastMiddle * fit.radius)
                return std::nullopt;
        }
    fit.center = fit.center + fit.axis * ((lowest + highest) * 0.5 - Dot(fit.center, fit.axis));
    return fit;
}

std::optional<RoundFit> FitSphere(const std::vector<Triangle3>& triangles, double noise)
{
    std::vector<Vector3> corners;
    for (const Triangle3& triangle : triangles)
        corners.insert(corners.end(), triangle.begin(), triangle.end());
    RoundFit fit;
    if (corners.empty() || FitPlane(triangles, noise) || !fitSphere(corners, Vector3{}, fit) ||
        !isTight(corners, fit, noise) || !hasDirections(corners, fit.center))
        return std::nullopt;
    for (const Triangle3& triangle : triangles)
        if (Length(middleOf(triangle) - fit.center) < kLeastMiddle * fit.radius)
            return std::nullopt;
    return fit;
}

std::optional<LineFit> FitLine(const std::vector<std::array<Vector3, 2>>& segments, double noise)
{
    if (segments.empty())
        return std::nullopt;
    const std::vector<Vector3> ends = endsOf(segments);
    const auto isNearer = [&ends](const Vector3& a, const Vector3& b) {
        return Length(a - ends.front()) < Length(b - ends.front());
    };
    const Vector3 far = *std::max_element(ends.begin(), ends.end(), isNearer);
    const double length = Length(far - ends.front());
    if (!(length > 0.0))
        return std::nullopt;
    const LineFit fit{ends.front(), Normalized(far - ends.front())};
    for (const Vector3& end : ends) {
        const Vector3 way = end - fit.origin;
        if (Length(way - fit.direction * Dot(way, fit.direction)) > 1e-5 * length + 4.0 * noise)
            return std::nullopt;
    }
    return fit;
}

std::optional<RoundFit> FitCircle(const std::vector<std::array<Vector3, 2>>& segments, double noise)
{
    if (segments.size() < kLeastDirections || !isClosed(segments))
        return std::nullopt;
    const std::vector<Vector3> ends = endsOf(segments);
    Vector3 middle;
    for (const Vector3& end : ends)
        middle = middle + end * (1.0 / static_cast<double>(ends.size()));
    Matrix3 spread{};
    for (const Vector3& end : ends)
        AddOuter(spread, end - middle, 1.0);
    RoundFit fit;
    fit.axis = turnedUp(FindEigen(spread).vector[0]);
    if (!fitSphere(ends, fit.axis, fit) || !isTight(ends, fit, noise))
        return std::nullopt;
    const double tolerance = kTolerance * fit.radius + 4.0 * noise;
    for (const auto& [a, b] : segments)
        if (std::abs(Dot(a - fit.center, fit.axis)) > tolerance ||
            Length((a + b) * 0.5 - fit.center) < kLeastMiddle * fit.radius)
            return std::nullopt;
    return fit;
}

} // namespace OrvikModel
