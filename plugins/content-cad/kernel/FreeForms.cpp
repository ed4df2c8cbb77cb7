#include "kernel/FreeForms.h"

#include <Adaptor3d_Curve.hxx>
#include <Adaptor3d_Surface.hxx>
#include <Precision.hxx>
#include <gp_Ax2.hxx>
#include <gp_Dir.hxx>
#include <gp_Mat.hxx>
#include <gp_Pnt.hxx>
#include <gp_Vec.hxx>
#include <gp_XYZ.hxx>
#include <math_Jacobi.hxx>
#include <math_Matrix.hxx>
#include <math_Vector.hxx>

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

namespace OrvikCad {
namespace {

constexpr int kSurfaceSteps = 8;
constexpr int kCurveSteps = 32;

/// Furthest from the simple form, as a share of the size: what numbers in files are rounded to.
constexpr double kMost = 1e-6;

/// Where a normal is shorter than this, as a share of the longest, the lines of the surface meet.
constexpr double kPole = 1e-9;

/// A circle with less of its turn than this is not told from noise, radians.
constexpr double kLeastTurn = 0.1;

/// Places of a surface or curve.
struct Places
{
    std::vector<gp_XYZ> points;
    std::vector<gp_XYZ> normals; ///< Unit vectors, nothing at poles; of a surface only.
    gp_XYZ middle;
    double size = 0.0; ///< Greatest distance of a point from the middle.
};

void finish(Places& places)
{
    for (const gp_XYZ& point : places.points)
        places.middle += point;
    places.middle /= static_cast<double>(places.points.size());
    for (const gp_XYZ& point : places.points)
        places.size = std::max(places.size, (point - places.middle).Modulus());
}

std::optional<Places> placesOf(const Adaptor3d_Surface& surface)
{
    const double u = surface.FirstUParameter();
    const double v = surface.FirstVParameter();
    const double du = (surface.LastUParameter() - u) / kSurfaceSteps;
    const double dv = (surface.LastVParameter() - v) / kSurfaceSteps;
    if (Precision::IsInfinite(u) || Precision::IsInfinite(v) || Precision::IsInfinite(du) ||
        Precision::IsInfinite(dv))
        return std::nullopt;
    Places places;
    for (int i = 0; i <= kSurfaceSteps; ++i)
        for (int k = 0; k <= kSurfaceSteps; ++k) {
            gp_Pnt point;
            gp_Vec alongU;
            gp_Vec alongV;
            surface.D1(u + i * du, v + k * dv, point, alongU, alongV);
            places.points.push_back(point.XYZ());
            places.normals.push_back(alongU.XYZ().Crossed(alongV.XYZ()));
        }
    double longest = 0.0;
    for (const gp_XYZ& normal : places.normals)
        longest = std::max(longest, normal.Modulus());
    for (gp_XYZ& normal : places.normals) {
        const double length = normal.Modulus();
        const bool isPole = !(length > kPole * longest);
        normal = isPole ? gp_XYZ() : normal / length;
    }
    finish(places);
    return places;
}

std::optional<Places> placesOf(const Adaptor3d_Curve& curve)
{
    const double first = curve.FirstParameter();
    const double step = (curve.LastParameter() - first) / kCurveSteps;
    if (Precision::IsInfinite(first) || Precision::IsInfinite(step))
        return std::nullopt;
    Places places;
    for (int i = 0; i <= kCurveSteps; ++i)
        places.points.push_back(curve.Value(first + i * step).XYZ());
    finish(places);
    return places;
}

/// @return the direction in which vectors spread least.
std::optional<gp_Dir> leastSpread(const std::vector<gp_XYZ>& vectors)
{
    math_Matrix spread(1, 3, 1, 3, 0.0);
    for (const gp_XYZ& vector : vectors)
        for (int row = 1; row <= 3; ++row)
            for (int column = 1; column <= 3; ++column)
                spread(row, column) += vector.Coord(row) * vector.Coord(column);
    const math_Jacobi eigen(spread);
    if (!eigen.IsDone())
        return std::nullopt;
    int least = 1;
    for (int i = 2; i <= 3; ++i)
        if (eigen.Value(i) < eigen.Value(least))
            least = i;
    math_Vector axis(1, 3);
    eigen.Vector(least, axis);
    return gp_Dir(axis(1), axis(2), axis(3));
}

std::optional<FoundForm> findPlane(const Places& places)
{
    std::vector<gp_XYZ> ways;
    for (const gp_XYZ& point : places.points)
        ways.push_back(point - places.middle);
    const std::optional<gp_Dir> normal = leastSpread(ways);
    if (!normal)
        return std::nullopt;
    double furthest = 0.0;
    for (const gp_XYZ& way : ways)
        furthest = std::max(furthest, std::abs(way.Dot(normal->XYZ())));
    if (!(furthest <= kMost * places.size))
        return std::nullopt;
    FoundForm found;
    found.form = SimpleForm::Plane;
    // As the surface has it, which the face may turn round.
    gp_XYZ sum;
    for (const gp_XYZ& own : places.normals)
        sum += own;
    const bool isTurned = sum.Dot(normal->XYZ()) < 0.0;
    found.plane = gp_Pln(gp_Pnt(places.middle), isTurned ? normal->Reversed() : *normal);
    return found;
}

/// The circle about an axis through points seen along it, by least squares of
/// x^2 + y^2 = 2 a x + 2 b y + c.
std::optional<FoundForm> roundAbout(const Places& places, const gp_Dir& axis, SimpleForm form)
{
    const gp_Ax2 frame(gp_Pnt(places.middle), axis);
    std::vector<std::array<double, 2>> flat;
    std::array<std::array<double, 4>, 3> rows{};
    for (const gp_XYZ& point : places.points) {
        const gp_XYZ way = (point - places.middle) / places.size;
        const double x = way.Dot(frame.XDirection().XYZ());
        const double y = way.Dot(frame.YDirection().XYZ());
        flat.push_back({x, y});
        const std::array<double, 4> terms = {2.0 * x, 2.0 * y, 1.0, x * x + y * y};
        for (int row = 0; row < 3; ++row)
            for (int column = 0; column < 4; ++column)
                rows[row][column] += terms[row] * terms[column];
    }
    // Points about their mean: the sums of x and of y alone are nothing.
    const double determinant = rows[0][0] * rows[1][1] - rows[0][1] * rows[1][0];
    if (!(determinant > 1e-12 * rows[2][2] * rows[2][2]))
        return std::nullopt;
    const double a = (rows[0][3] * rows[1][1] - rows[1][3] * rows[0][1]) / determinant;
    const double b = (rows[1][3] * rows[0][0] - rows[0][3] * rows[1][0]) / determinant;
    const double c = rows[2][3] / rows[2][2];
    const double radius = std::sqrt(std::max(c + a * a + b * b, 0.0));
    double furthest = 0.0;
    for (const auto& [x, y] : flat)
        furthest = std::max(furthest, std::abs(std::hypot(x - a, y - b) - radius));
    if (!(radius > 0.0) || 2.0 / radius < kLeastTurn ||
        !(furthest <= kMost * std::min(1.0, radius)))
        return std::nullopt;
    FoundForm found;
    found.form = form;
    const gp_XYZ center = places.middle + frame.XDirection().XYZ() * (a * places.size) +
                          frame.YDirection().XYZ() * (b * places.size);
    found.axis = gp_Ax1(gp_Pnt(center), axis);
    found.radius = radius * places.size;
    return found;
}

std::optional<FoundForm> findCylinder(const Places& places)
{
    const std::optional<gp_Dir> axis = leastSpread(places.normals);
    if (!axis)
        return std::nullopt;
    for (const gp_XYZ& normal : places.normals)
        if (std::abs(normal.Dot(axis->XYZ())) > kMost)
            return std::nullopt;
    return roundAbout(places, *axis, SimpleForm::Cylinder);
}

/// The normals of a sphere meet in its centre: what lies on all of them, by least squares.
std::optional<FoundForm> findSphere(const Places& places)
{
    gp_Mat sum(0, 0, 0, 0, 0, 0, 0, 0, 0);
    gp_XYZ right;
    for (std::size_t i = 0; i < places.points.size(); ++i) {
        const gp_XYZ& normal = places.normals[i];
        if (normal.SquareModulus() == 0.0)
            continue;
        const gp_XYZ way = places.points[i] - places.middle;
        gp_Mat across;
        across.SetIdentity();
        for (int row = 1; row <= 3; ++row)
            for (int column = 1; column <= 3; ++column)
                across(row, column) -= normal.Coord(row) * normal.Coord(column);
        sum += across;
        right += across * way;
    }
    if (std::abs(sum.Determinant()) < 1e-9)
        return std::nullopt;
    const gp_XYZ center = places.middle + sum.Inverted() * right;
    double least = HUGE_VAL;
    double most = 0.0;
    for (const gp_XYZ& point : places.points) {
        const double distance = (point - center).Modulus();
        least = std::min(least, distance);
        most = std::max(most, distance);
    }
    if (2.0 * places.size < kLeastTurn * most ||
        !(most - least <= kMost * std::min(places.size, most)))
        return std::nullopt;
    FoundForm found;
    found.form = SimpleForm::Sphere;
    found.axis = gp_Ax1(gp_Pnt(center), gp::DZ());
    found.radius = 0.5 * (least + most);
    return found;
}

} // namespace

std::optional<FoundForm> FindForm(const Adaptor3d_Surface& surface)
{
    const std::optional<Places> places = placesOf(surface);
    if (!places || !(places->size > 0.0))
        return std::nullopt;
    if (const auto plane = findPlane(*places))
        return plane;
    if (const auto cylinder = findCylinder(*places))
        return cylinder;
    return findSphere(*places);
}

std::optional<FoundForm> FindForm(const Adaptor3d_Curve& curve)
{
    const std::optional<Places> places = placesOf(curve);
    if (!places || !(places->size > 0.0))
        return std::nullopt;
    const std::optional<FoundForm> plane = findPlane(*places);
    if (!plane)
        return std::nullopt;
    return roundAbout(*places, plane->plane.Axis().Direction(), SimpleForm::Circle);
}

} // namespace OrvikCad
