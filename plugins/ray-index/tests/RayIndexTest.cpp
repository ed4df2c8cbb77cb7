#include <TambVizCore/Geometry.h>

#include <OrvikRay/RayIndex.h>
#include <gtest/gtest.h>

#include <cmath>
#include <memory>
#include <random>
#include <string>
#include <utility>
#include <vector>

using TambVizCore::ClipPlane;
using TambVizCore::Geometry;
using TambVizCore::GeometryBuilder;
using TambVizCore::GeometryHit;
using TambVizCore::GeometryPart;
using TambVizCore::GeometryQuery;
using TambVizCore::IGeometryIndex;
using TambVizCore::MakePartId;
using TambVizCore::PartKind;
using TambVizCore::PartState;
using TambVizCore::SharedArray;

namespace {

std::shared_ptr<const Geometry> build(std::vector<float> positions,
                                      std::vector<std::uint32_t> triangles,
                                      std::vector<std::uint32_t> segments = {},
                                      std::vector<std::uint32_t> points = {},
                                      std::vector<GeometryPart> parts = {})
{
    GeometryBuilder builder;
    builder.SetPositions(SharedArray<float>(std::move(positions)));
    builder.SetTriangles(SharedArray<std::uint32_t>(std::move(triangles)));
    builder.SetSegments(SharedArray<std::uint32_t>(std::move(segments)));
    builder.SetPoints(SharedArray<std::uint32_t>(std::move(points)));
    builder.SetParts(std::move(parts));
    std::string error;
    return builder.Build(error);
}

GeometryQuery alongZ(float x, float y, float z = -10.0f)
{
    GeometryQuery query;
    query.origin[0] = x;
    query.origin[1] = y;
    query.origin[2] = z;
    return query;
}

/// Two parallel squares in the planes z = 0 and z = 2, x and y from 0 to 1; two faces.
std::shared_ptr<const Geometry> twoSquares()
{
    return build({0, 0, 0, 1, 0, 0, 1, 1, 0, 0, 1, 0, 0, 0, 2, 1, 0, 2, 1, 1, 2, 0, 1, 2},
                 {0, 1, 2, 0, 2, 3, 4, 5, 6, 4, 6, 7}, {0, 1, 4, 5}, {0, 6},
                 {{PartKind::Face, 0, 2, MakePartId(PartKind::Face, 0)},
                  {PartKind::Face, 2, 2, MakePartId(PartKind::Face, 1)},
                  {PartKind::Edge, 0, 2, MakePartId(PartKind::Edge, 0)},
                  {PartKind::Vertex, 0, 2, MakePartId(PartKind::Vertex, 0)}});
}

/// Triangles, segments and points at random in a cube of 10.
std::shared_ptr<const Geometry> randomGeometry(std::size_t count)
{
    std::mt19937 random(7);
    std::uniform_real_distribution<float> place(0.0f, 10.0f);
    std::uniform_real_distribution<float> size(-0.3f, 0.3f);
    std::vector<float> positions;
    std::vector<std::uint32_t> triangles;
    std::vector<std::uint32_t> segments;
    std::vector<std::uint32_t> points;
    for (std::uint32_t i = 0; i < count; ++i) {
        const float center[3] = {place(random), place(random), place(random)};
        for (int corner = 0; corner < 3; ++corner)
            for (const float coordinate : center)
                positions.push_back(coordinate + size(random));
        triangles.insert(triangles.end(), {3 * i, 3 * i + 1, 3 * i + 2});
        segments.insert(segments.end(), {3 * i, 3 * i + 1});
        points.push_back(3 * i + 2);
    }
    return build(std::move(positions), std::move(triangles), std::move(segments),
                 std::move(points));
}

GeometryQuery randomQuery(std::mt19937& random)
{
    std::uniform_real_distribution<float> place(0.0f, 10.0f);
    GeometryQuery query;
    query.origin[0] = place(random);
    query.origin[1] = place(random);
    query.origin[2] = -20.0f;
    query.direction[0] = (place(random) - query.origin[0]) / 4;
    query.direction[1] = (place(random) - query.origin[1]) / 4;
    query.direction[2] = 30.0f / 4;
    return query;
}

/// Whether a primitive is hit, asked of an index over that primitive alone.
GeometryHit bestOfSingles(const Geometry& geometry, PartKind kind, const GeometryQuery& query,
                          bool& found)
{
    GeometryHit best;
    found = false;
    const std::size_t count = kind == PartKind::Face   ? geometry.TriangleCount()
                              : kind == PartKind::Edge ? geometry.SegmentCount()
                                                       : geometry.PointCount();
    for (std::uint32_t i = 0; i < count; ++i) {
        std::vector<std::uint32_t> indices;
        const SharedArray<std::uint32_t>& all = kind == PartKind::Face   ? geometry.Triangles()
                                                : kind == PartKind::Edge ? geometry.Segments()
                                                                         : geometry.Points();
        const std::size_t corners = kind == PartKind::Face ? 3 : kind == PartKind::Edge ? 2 : 1;
        std::vector<float> positions;
        for (std::uint32_t corner = 0; corner < corners; ++corner) {
            const float* p =
                geometry.Positions().Data() + std::size_t{all[i * corners + corner]} * 3;
            positions.insert(positions.end(), p, p + 3);
            indices.push_back(corner);
        }
        const bool isFace = kind == PartKind::Face;
        const bool isEdge = kind == PartKind::Edge;
        const auto single = build(positions, isFace ? indices : std::vector<std::uint32_t>{},
                                  isEdge ? indices : std::vector<std::uint32_t>{},
                                  !isFace && !isEdge ? indices : std::vector<std::uint32_t>{});
        const auto index = OrvikRay::BuildRayIndex(*single);
        GeometryHit hit;
        const bool isHit = isFace   ? index->FindFace(query, hit)
                           : isEdge ? index->FindEdge(query, hit)
                                    : index->FindVertex(query, hit);
        const bool isBetter =
            isFace ? hit.distance < best.distance : hit.deviation < best.deviation;
        if (isHit && (!found || isBetter)) {
            best = hit;
            best.primitive = i;
            found = true;
        }
    }
    return best;
}

} // namespace

TEST(RayIndex, FindsTheNearestFaceWithItsPartPositionAndNormal)
{
    const auto geometry = twoSquares();
    const auto index = OrvikRay::BuildRayIndex(*geometry);
    GeometryHit hit;

    ASSERT_TRUE(index->FindFace(alongZ(0.75f, 0.25f), hit));

    EXPECT_EQ(hit.kind, PartKind::Face);
    EXPECT_EQ(hit.partIndex, 0u);
    EXPECT_EQ(hit.primitive, 0u);
    EXPECT_EQ(hit.distance, 10.0f);
    EXPECT_EQ(hit.position[2], 0.0f);
    EXPECT_EQ(hit.normal[2], -1.0f);
}

TEST(RayIndex, FindsTheBackFromTheOtherSide)
{
    const auto geometry = twoSquares();
    const auto index = OrvikRay::BuildRayIndex(*geometry);
    GeometryQuery query = alongZ(0.5f, 0.25f, 10.0f);
    query.direction[2] = -2.0f;
    GeometryHit hit;

    ASSERT_TRUE(index->FindFace(query, hit));

    EXPECT_EQ(hit.partIndex, 1u);
    EXPECT_EQ(hit.distance, 4.0f);
    EXPECT_EQ(hit.normal[2], 1.0f);
}

TEST(RayIndex, MissLeavesTheHitAlone)
{
    const auto geometry = twoSquares();
    const auto index = OrvikRay::BuildRayIndex(*geometry);
    GeometryHit hit;
    hit.primitive = 99;

    EXPECT_FALSE(index->FindFace(alongZ(5.0f, 5.0f), hit));
    EXPECT_FALSE(index->FindEdge(alongZ(0.5f, 0.5f), hit));
    EXPECT_FALSE(index->FindVertex(alongZ(0.5f, 0.5f), hit));
    EXPECT_EQ(hit.primitive, 99u);
}

TEST(RayIndex, HitsOutsideTheDistancesDoNotCount)
{
    const auto geometry = twoSquares();
    const auto index = OrvikRay::BuildRayIndex(*geometry);
    GeometryQuery query = alongZ(0.75f, 0.25f);
    query.minDistance = 11.0f;
    GeometryHit hit;
    ASSERT_TRUE(index->FindFace(query, hit));
    EXPECT_EQ(hit.partIndex, 1u);

    query.maxDistance = 11.5f;

    EXPECT_FALSE(index->FindFace(query, hit));
}

TEST(RayIndex, HiddenPartsAreNotHit)
{
    const auto geometry = twoSquares();
    const auto index = OrvikRay::BuildRayIndex(*geometry);
    std::vector<PartState> states(geometry->Parts().size());
    states[0].flags = 0;
    GeometryQuery query = alongZ(0.75f, 0.25f);
    query.partStates = states;
    GeometryHit hit;

    ASSERT_TRUE(index->FindFace(query, hit));

    EXPECT_EQ(hit.partIndex, 1u);
}

TEST(RayIndex, WhatAPlaneCutsAwayIsNotHit)
{
    const auto geometry = twoSquares();
    const auto index = OrvikRay::BuildRayIndex(*geometry);
    const ClipPlane keepsAboveOne{{0.0f, 0.0f, 1.0f}, -1.0f};
    GeometryQuery query = alongZ(0.75f, 0.25f);
    query.clipPlanes = {&keepsAboveOne, 1};
    GeometryHit hit;

    ASSERT_TRUE(index->FindFace(query, hit));

    EXPECT_EQ(hit.position[2], 2.0f);
}

TEST(RayIndex, EdgeWithinTheApertureIsFoundWithItsDeviation)
{
    const auto geometry = twoSquares();
    const auto index = OrvikRay::BuildRayIndex(*geometry);
    GeometryQuery query = alongZ(0.5f, -0.125f);
    GeometryHit hit;
    query.radius = 0.1f;
    EXPECT_FALSE(index->FindEdge(query, hit));

    query.radius = 0.2f;

    ASSERT_TRUE(index->FindEdge(query, hit));
    EXPECT_EQ(hit.primitive, 0u);
    EXPECT_EQ(hit.deviation, 0.125f);
    EXPECT_EQ(hit.distance, 10.0f);
    EXPECT_EQ(hit.position[0], 0.5f);
}

TEST(RayIndex, ApertureMayGrowAlongTheRay)
{
    const auto geometry = twoSquares();
    const auto index = OrvikRay::BuildRayIndex(*geometry);
    GeometryQuery query = alongZ(1.2f, 1.0f);
    query.radiusGrowth = 0.018f; // 0.18 at z = 0, 0.216 at z = 2.
    GeometryHit hit;

    ASSERT_TRUE(index->FindVertex(query, hit));

    EXPECT_EQ(hit.primitive, 1u);
    EXPECT_EQ(hit.position[2], 2.0f);
}

TEST(RayIndex, RayOfNoDirectionHitsNothing)
{
    const auto geometry = twoSquares();
    const auto index = OrvikRay::BuildRayIndex(*geometry);
    GeometryQuery query = alongZ(0.5f, 0.25f, 0.0f);
    query.direction[2] = 0.0f;
    query.radius = 10.0f;
    GeometryHit hit;

    EXPECT_FALSE(index->FindFace(query, hit));
    EXPECT_FALSE(index->FindEdge(query, hit));
}

TEST(RayIndex, GeometryWithoutPrimitivesIsNotHit)
{
    const auto geometry = build({}, {});
    const auto index = OrvikRay::BuildRayIndex(*geometry);
    GeometryHit hit;

    EXPECT_FALSE(index->FindFace(alongZ(0.0f, 0.0f), hit));
}

TEST(RayIndex, FindsTheFacesThatLookingAtEachWouldFind)
{
    const auto geometry = randomGeometry(400);
    const auto index = OrvikRay::BuildRayIndex(*geometry);
    std::mt19937 random(1);
    for (int i = 0; i < 40; ++i) {
        const GeometryQuery query = randomQuery(random);
        bool expected = false;
        const GeometryHit best = bestOfSingles(*geometry, PartKind::Face, query, expected);
        GeometryHit hit;
        ASSERT_EQ(index->FindFace(query, hit), expected);
        EXPECT_EQ(hit.primitive, best.primitive);
    }
}

TEST(RayIndex, FindsTheEdgesAndVerticesThatLookingAtEachWouldFind)
{
    const auto geometry = randomGeometry(400);
    const auto index = OrvikRay::BuildRayIndex(*geometry);
    std::mt19937 random(2);
    for (int i = 0; i < 30; ++i) {
        GeometryQuery query = randomQuery(random);
        query.radius = 0.05f;
        query.radiusGrowth = 0.05f;
        bool expected = false;
        const GeometryHit edge = bestOfSingles(*geometry, PartKind::Edge, query, expected);
        GeometryHit hit;
        ASSERT_EQ(index->FindEdge(query, hit), expected);
        EXPECT_EQ(hit.primitive, edge.primitive);
        const GeometryHit vertex = bestOfSingles(*geometry, PartKind::Vertex, query, expected);
        ASSERT_EQ(index->FindVertex(query, hit), expected);
        if (expected) {
            EXPECT_EQ(hit.primitive, vertex.primitive);
        }
    }
}
