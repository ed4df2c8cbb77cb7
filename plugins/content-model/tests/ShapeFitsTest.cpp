#include "content/ShapeFits.h"

#include <gtest/gtest.h>

#include <numbers>

using OrvikModel::FitCircle;
using OrvikModel::FitCylinder;
using OrvikModel::FitLine;
using OrvikModel::FitPlane;
using OrvikModel::FitSphere;
using OrvikModel::Triangle3;
using OrvikModel::Vector3;

namespace {

using Segments = std::vector<std::array<Vector3, 2>>;

/// A tilted, moved place for points given in a frame of their own.
Vector3 tilt(double x, double y, double z)
{
    const Vector3 u = OrvikRay::Normalized({1.0, 2.0, 2.0});
    const Vector3 v = OrvikRay::Normalized({2.0, 1.0, -2.0});
    const Vector3 w = OrvikRay::Cross(u, v);
    return Vector3{10.0, -20.0, 30.0} + u * x + v * y + w * z;
}

Vector3 axisOfTilt()
{
    return OrvikRay::Cross(OrvikRay::Normalized({1.0, 2.0, 2.0}),
                           OrvikRay::Normalized({2.0, 1.0, -2.0}));
}

/// The wall of a cylinder about the tilted z axis from -1 to 3, @p steps facets over an angle.
std::vector<Triangle3> cylinder(double radius, int steps, double angle)
{
    std::vector<Triangle3> triangles;
    const auto point = [&](int i, double z) {
        const double at = angle * i / steps;
        return tilt(radius * std::cos(at), radius * std::sin(at), z);
    };
    for (int i = 0; i < steps; ++i) {
        triangles.push_back({point(i, -1), point(i + 1, -1), point(i + 1, 3)});
        triangles.push_back({point(i, -1), point(i + 1, 3), point(i, 3)});
    }
    return triangles;
}

/// Part of a sphere of radius 2: @p steps rings up to an angle from the pole.
std::vector<Triangle3> cap(int steps, double angle)
{
    std::vector<Triangle3> triangles;
    const auto point = [&](int i, int k) {
        const double down = angle * i / steps;
        const double around = 2.0 * std::numbers::pi * k / 24;
        return tilt(2.0 * std::sin(down) * std::cos(around),
                    2.0 * std::sin(down) * std::sin(around), 2.0 * std::cos(down));
    };
    for (int i = 0; i < steps; ++i)
        for (int k = 0; k < 24; ++k) {
            triangles.push_back({point(i, k), point(i + 1, k), point(i + 1, k + 1)});
            triangles.push_back({point(i, k), point(i + 1, k + 1), point(i, k + 1)});
        }
    return triangles;
}

Segments polygon(double radius, int steps, int count)
{
    Segments segments;
    const auto point = [&](int i) {
        const double at = 2.0 * std::numbers::pi * (i % steps) / steps;
        return tilt(radius * std::cos(at), radius * std::sin(at), 0.0);
    };
    for (int i = 0; i < count; ++i)
        segments.push_back({point(i), point(i + 1)});
    return segments;
}

} // namespace

TEST(ShapeFits, PlaneHasTheNormalOfItsTriangles)
{
    const auto fit = FitPlane({{tilt(0, 0, 1), tilt(2, 0, 1), tilt(2, 2, 1)},
                               {tilt(0, 0, 1), tilt(2, 2, 1), tilt(0, 2, 1)}},
                              0.0);

    ASSERT_TRUE(fit);
    EXPECT_NEAR(OrvikRay::Length(fit->normal - axisOfTilt()), 0.0, 1e-12);
    EXPECT_NEAR(OrvikRay::Length(fit->origin - tilt(1, 1, 1)), 0.0, 1e-12);
}

TEST(ShapeFits, BentFacesAreNotPlane)
{
    EXPECT_FALSE(FitPlane({{tilt(0, 0, 0), tilt(2, 0, 0), tilt(2, 2, 0.01)},
                           {tilt(0, 0, 0), tilt(2, 2, 0.01), tilt(0, 2, 0)}},
                          0.0));
    EXPECT_FALSE(FitPlane({{tilt(0, 0, 0), tilt(2, 0, 0), tilt(2, 2, 0)},
                           {tilt(0, 0, 0), tilt(0, 2, 0), tilt(2, 2, 0)}},
                          0.0)); // Folded back upon itself.
    EXPECT_FALSE(FitPlane({}, 0.0));
}

TEST(ShapeFits, CylinderIsFoundFromAPieceOfItsWall)
{
    for (const double angle : {0.8, 2.0, 2.0 * std::numbers::pi}) {
        const auto fit = FitCylinder(cylinder(5.0, 24, angle), 0.0);

        ASSERT_TRUE(fit) << angle;
        EXPECT_NEAR(fit->radius, 5.0, 1e-9);
        EXPECT_NEAR(std::abs(OrvikRay::Dot(fit->axis, axisOfTilt())), 1.0, 1e-9);
        EXPECT_NEAR(OrvikRay::Length(fit->center - tilt(0, 0, 1)), 0.0, 1e-8);
    }
}

TEST(ShapeFits, FewOrWideFacetsAreNoCylinder)
{
    EXPECT_FALSE(FitCylinder(cylinder(5.0, 4, 1.0), 0.0));
    EXPECT_FALSE(FitCylinder(cylinder(5.0, 8, 2.0 * std::numbers::pi), 0.0));
    EXPECT_FALSE(FitCylinder(cap(8, 1.0), 0.0));
    EXPECT_FALSE(FitCylinder({}, 0.0));
}

TEST(ShapeFits, EllipticWallIsNoCylinder)
{
    std::vector<Triangle3> triangles = cylinder(5.0, 24, 2.0);
    for (Triangle3& triangle : triangles)
        for (Vector3& corner : triangle)
            corner.x *= 1.1;

    EXPECT_FALSE(FitCylinder(triangles, 0.0));
}

TEST(ShapeFits, SphereIsFoundFromACap)
{
    const auto fit = FitSphere(cap(6, 0.9), 0.0);

    ASSERT_TRUE(fit);
    EXPECT_NEAR(fit->radius, 2.0, 1e-9);
    EXPECT_NEAR(OrvikRay::Length(fit->center - tilt(0, 0, 0)), 0.0, 1e-8);
    EXPECT_EQ(OrvikRay::Length(fit->axis), 0.0);
    EXPECT_FALSE(FitSphere(cylinder(5.0, 24, 2.0), 0.0));
    EXPECT_FALSE(FitSphere({}, 0.0));
}

TEST(ShapeFits, StraightEdgeIsALineInAnyOrderOfItsSegments)
{
    const auto fit = FitLine({{tilt(2, 0, 0), tilt(3, 0, 0)}, {tilt(0, 0, 0), tilt(2, 0, 0)}}, 0.0);

    ASSERT_TRUE(fit);
    EXPECT_NEAR(std::abs(OrvikRay::Dot(fit->direction, OrvikRay::Normalized({1.0, 2.0, 2.0}))), 1.0,
                1e-12);
    EXPECT_FALSE(FitLine({{tilt(0, 0, 0), tilt(2, 0, 0)}, {tilt(2, 0, 0), tilt(3, 1, 0)}}, 0.0));
    EXPECT_FALSE(FitLine({}, 0.0));
    EXPECT_FALSE(FitLine({{tilt(0, 0, 0), tilt(0, 0, 0)}}, 0.0));
}

TEST(ShapeFits, ClosedRoundEdgeIsACircle)
{
    const auto fit = FitCircle(polygon(3.0, 32, 32), 0.0);

    ASSERT_TRUE(fit);
    EXPECT_NEAR(fit->radius, 3.0, 1e-9);
    EXPECT_NEAR(OrvikRay::Length(fit->center - tilt(0, 0, 0)), 0.0, 1e-9);
    EXPECT_NEAR(std::abs(OrvikRay::Dot(fit->axis, axisOfTilt())), 1.0, 1e-9);
}

TEST(ShapeFits, OpenAndAngularEdgesAreNoCircles)
{
    EXPECT_FALSE(FitCircle(polygon(3.0, 32, 31), 0.0));
    EXPECT_FALSE(FitCircle(polygon(3.0, 8, 8), 0.0));
    EXPECT_FALSE(FitCircle({}, 0.0));
}
