#include "content/PrimitiveDistance.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

using OrvikModel::FindNearest;
using OrvikModel::NearestPoints;
using OrvikModel::Primitive;
using OrvikModel::Vector3;

namespace {

Primitive make(std::initializer_list<Vector3> corners)
{
    Primitive primitive;
    for (const Vector3& corner : corners)
        primitive.corner[primitive.corners++] = corner;
    return primitive;
}

double distanceOf(const Primitive& a, const Primitive& b)
{
    const NearestPoints points = FindNearest(a, b);
    EXPECT_NEAR(Length(points.to - points.from), std::sqrt(points.squaredDistance), 1e-12);
    return std::sqrt(points.squaredDistance);
}

/// A point of a primitive by two shares from 0 to 1.
Vector3 pointOf(const Primitive& p, double s, double t)
{
    if (p.corners == 1)
        return p.corner[0];
    if (p.corners == 2)
        return p.corner[0] + (p.corner[1] - p.corner[0]) * s;
    const double root = std::sqrt(s);
    return p.corner[0] * (1.0 - root) + p.corner[1] * (root * (1.0 - t)) + p.corner[2] * (root * t);
}

} // namespace

TEST(PrimitiveDistance, KnownPairs)
{
    const Primitive point = make({{0, 0, 2}});
    const Primitive segment = make({{-1, 0, 1}, {1, 0, 1}});
    const Primitive triangle = make({{-1, -1, 0}, {1, -1, 0}, {0, 1, 0}});

    EXPECT_DOUBLE_EQ(distanceOf(point, make({{3, 4, 2}})), 5.0);
    EXPECT_DOUBLE_EQ(distanceOf(point, segment), 1.0);
    EXPECT_DOUBLE_EQ(distanceOf(triangle, point), 2.0);
    EXPECT_DOUBLE_EQ(distanceOf(segment, make({{0, -1, 4}, {0, 1, 4}})), 3.0);
    EXPECT_DOUBLE_EQ(distanceOf(segment, triangle), 1.0);
    EXPECT_DOUBLE_EQ(distanceOf(triangle, make({{-1, -1, 3}, {1, -1, 3}, {0, 1, 4}})), 3.0);
}

TEST(PrimitiveDistance, PrimitivesThatMeetHaveNone)
{
    const Primitive triangle = make({{-1, -1, 0}, {1, -1, 0}, {0, 1, 0}});

    EXPECT_EQ(distanceOf(triangle, make({{0, 0, -1}, {0, 0, 1}})), 0.0);
    EXPECT_EQ(distanceOf(triangle, make({{0, -0.5, -1}, {0, 0.5, -1}, {0, 0, 1}})), 0.0);
    EXPECT_EQ(distanceOf(make({{-1, 0, 0}, {1, 0, 0}}), make({{0, -1, 0}, {0, 1, 0}})), 0.0);
}

TEST(PrimitiveDistance, DegenerateOnesCountAsWhatIsLeftOfThem)
{
    const Primitive flat = make({{0, 0, 0}, {1, 0, 0}, {2, 0, 0}});
    const Primitive dot = make({{0, 0, 0}, {0, 0, 0}});

    EXPECT_DOUBLE_EQ(distanceOf(flat, make({{2, 3, 0}})), 3.0);
    EXPECT_DOUBLE_EQ(distanceOf(dot, make({{0, 3, 4}})), 5.0);
    EXPECT_DOUBLE_EQ(distanceOf(dot, make({{-1, 2, 0}, {1, 2, 0}})), 2.0);
    EXPECT_DOUBLE_EQ(distanceOf(make({{5, 0, 0}, {5, 0, 0}, {5, 0, 0}}), flat), 3.0);
}

TEST(PrimitiveDistance, NoPairOfPointsIsNearer)
{
    std::mt19937 random(7);
    std::uniform_real_distribution<double> place(-1.0, 1.0);
    std::uniform_real_distribution<double> share(0.0, 1.0);
    const auto any = [&](int corners, double shift) {
        Primitive primitive;
        primitive.corners = corners;
        for (int i = 0; i < corners; ++i)
            primitive.corner[i] = {place(random) + shift, place(random), place(random)};
        return primitive;
    };
    for (int round = 0; round < 600; ++round) {
        const Primitive a = any(1 + round % 3, 0.0);
        const Primitive b = any(1 + round / 3 % 3, round % 2 == 0 ? 0.7 : 2.5);
        const double distance = distanceOf(a, b);

        double least = 1e300;
        for (int i = 0; i < 200; ++i)
            least = std::min(least, Length(pointOf(a, share(random), share(random)) -
                                           pointOf(b, share(random), share(random))));

        EXPECT_LE(distance, least + 1e-12);
        EXPECT_NEAR(distance, distanceOf(b, a), 1e-12);
    }
}
