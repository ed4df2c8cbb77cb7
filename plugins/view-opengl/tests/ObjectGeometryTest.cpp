#include "objects/ObjectGeometry.h"

#include "objects/DrawingObjects.h"

#include <TambVizCore/Matrix.h>

#include <gtest/gtest.h>

#include <cmath>
#include <map>

namespace ViewOpenGl {
namespace {

/// The area of triangles over corners in the plane z = 0; negative where they run clockwise.
double areaOf(const std::vector<float>& points, const std::vector<std::uint32_t>& triangles)
{
    double area = 0.0;
    for (std::size_t i = 0; i < triangles.size(); i += 3) {
        const float* const a = points.data() + std::size_t{3} * triangles[i];
        const float* const b = points.data() + std::size_t{3} * triangles[i + 1];
        const float* const c = points.data() + std::size_t{3} * triangles[i + 2];
        area += 0.5 *
                static_cast<double>((b[0] - a[0]) * (c[1] - a[1]) - (b[1] - a[1]) * (c[0] - a[0]));
    }
    return area;
}

TEST(FillPolygon, CoversAConcavePolygonExactly)
{
    // An L of three unit squares.
    const std::vector<float> corners = {0, 0, 0, 2, 0, 0, 2, 1, 0, 1, 1, 0, 1, 2, 0, 0, 2, 0};
    const auto triangles = FillPolygon(corners);

    EXPECT_EQ(triangles.size(), 12u);
    EXPECT_DOUBLE_EQ(areaOf(corners, triangles), 3.0);
}

TEST(FillPolygon, CoversAPolygonThatRunsClockwise)
{
    const std::vector<float> corners = {0, 2, 0, 1, 2, 0, 1, 1, 0, 2, 1, 0, 2, 0, 0, 0, 0, 0};

    EXPECT_DOUBLE_EQ(areaOf(corners, FillPolygon(corners)), -3.0);
}

TEST(FillPolygon, WorksInEveryPlane)
{
    const std::vector<float> corners = {5, 0, 0, 5, 2, 0, 5, 2, 1, 5, 1, 1, 5, 1, 2, 5, 0, 2};

    EXPECT_EQ(FillPolygon(corners).size(), 12u);
}

TEST(FillPolygon, EndsOnAPolygonThatCrossesItself)
{
    const std::vector<float> corners = {0, 0, 0, 1, 1, 0, 1, 0, 0, 0, 1, 0};

    EXPECT_EQ(FillPolygon(corners).size(), 6u);
}

TEST(FillPolygon, GivesNothingForALine)
{
    EXPECT_TRUE(FillPolygon({0, 0, 0, 1, 0, 0}).empty());
    EXPECT_TRUE(FillPolygon({}).empty());
}

TEST(MakeArrow, IsClosedAndFacesOutwards)
{
    const auto arrow = MakeArrow();
    ASSERT_NE(arrow, nullptr);
    std::map<std::pair<std::uint32_t, std::uint32_t>, int> sides;
    double volume = 0.0;
    for (std::uint32_t i = 0; i < arrow->TriangleCount(); ++i) {
        const std::uint32_t* const corner = arrow->Triangles().Data() + std::size_t{3} * i;
        const float* p[3];
        for (int k = 0; k < 3; ++k) {
            p[k] = arrow->Positions().Data() + std::size_t{3} * corner[k];
            ++sides[{corner[k], corner[(k + 1) % 3]}];
        }
        volume += static_cast<double>(p[0][0] * (p[1][1] * p[2][2] - p[1][2] * p[2][1]) +
                                      p[0][1] * (p[1][2] * p[2][0] - p[1][0] * p[2][2]) +
                                      p[0][2] * (p[1][0] * p[2][1] - p[1][1] * p[2][0])) /
                  6.0;
    }
    for (const auto& [side, count] : sides) {
        EXPECT_EQ(count, 1);
        EXPECT_EQ(sides.count({side.second, side.first}), 1u) << "a side has no neighbour";
    }
    EXPECT_GT(volume, 0.0);
}

TEST(PlaceArrow, TakesTheArrowFromPointToPoint)
{
    const double from[3] = {1, 2, 3};
    for (const auto& to : {std::array<double, 3>{1, 2, 7}, {1, 2, -1}, {5, 2, 3}, {4, -2, 8}}) {
        double matrix[16];
        ASSERT_TRUE(PlaceArrow(from, to.data(), matrix));
        for (int i = 0; i < 3; ++i) {
            EXPECT_DOUBLE_EQ(matrix[12 + i], from[i]);
            EXPECT_NEAR(matrix[12 + i] + matrix[8 + i], to[static_cast<std::size_t>(i)], 1e-12);
        }
        const double length = std::hypot(to[0] - 1, to[1] - 2, to[2] - 3);
        EXPECT_NEAR(TambVizCore::Determinant3x3(matrix), length * length * length, 1e-9);
    }
}

TEST(PlaceArrow, RefusesAnArrowOfNoLength)
{
    const double point[3] = {1, 2, 3};
    double matrix[16];

    EXPECT_FALSE(PlaceArrow(point, point, matrix));
}

} // namespace
} // namespace ViewOpenGl
