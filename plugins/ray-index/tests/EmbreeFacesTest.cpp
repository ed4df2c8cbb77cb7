#include "EmbreeDevice.h"
#include "FaceTree.h"
#include "Shapes.h"

#include <OrvikOs/FpControl.h>
#include <OrvikOs/FpMasked.h>
#include <OrvikOs/ParallelFor.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <cmath>
#include <memory>
#include <random>
#include <string>
#include <vector>

// Embree's tree against our own, which looks at boxes and triangles in double precision.

namespace OrvikRay {
namespace {

using TambVizCore::ClipPlane;
using TambVizCore::Geometry;
using TambVizCore::GeometryQuery;
using TambVizCore::PartState;
using TambVizCore::SharedArray;

struct EmbreeFaces : ::testing::Test
{
    void SetUp() override
    {
        if (EmbreeDevice::Shared() == nullptr)
            GTEST_SKIP() << "Embree is not installed.";
    }
};

struct Found
{
    bool isHit = false;
    std::uint32_t triangle = 0;
    double distance = 0.0;
    Vector3 position;
};

Found search(const IFaceTree& faces, const Geometry& geometry, const GeometryQuery& query)
{
    const Line line(query);
    NearestFace nearest(geometry, line, query);
    faces.Search(nearest);
    if (!nearest.IsFound())
        return {};
    return {true, nearest.Best().primitive, nearest.Best().distance, nearest.Best().position};
}

/// Both trees of one geometry.
struct Pair
{
    explicit Pair(const Geometry& source)
        : geometry(source),
          own(MakeBoxFaces(source)),
          embree(MakeEmbreeFaces(source, *EmbreeDevice::Shared()))
    {
    }

    /// Expects the same answer of both. @return whether it is a hit.
    bool Agree(const GeometryQuery& query) const
    {
        const Found expected = search(*own, geometry, query);
        const Found found = search(*embree, geometry, query);
        EXPECT_EQ(found.isHit, expected.isHit);
        EXPECT_EQ(found.triangle, expected.triangle);
        EXPECT_EQ(found.distance, expected.distance);
        return expected.isHit;
    }

    const Geometry& geometry;
    std::unique_ptr<const IFaceTree> own;
    std::unique_ptr<const IFaceTree> embree;
};

/// Rays from places on a sphere of radius @p away around the ring towards places near it.
class Rays
{
public:
    Rays(const Ring& ring, double away) : m_ring(ring), m_away(away) {}

    GeometryQuery Next()
    {
        GeometryQuery query;
        double from[3];
        double length = 0.0;
        for (double& component : from)
            component = m_normal(m_random);
        length = std::hypot(from[0], from[1], from[2]);
        for (int axis = 0; axis < 3; ++axis) {
            query.origin[axis] =
                static_cast<float>(m_ring.center[axis] + m_away * from[axis] / length);
            const double to = m_ring.center[axis] + m_ring.size * m_place(m_random);
            query.direction[axis] =
                static_cast<float>(to - static_cast<double>(query.origin[axis]));
        }
        return query;
    }

    /// A ray that passes exactly through a point.
    GeometryQuery Through(const float* point)
    {
        GeometryQuery query;
        for (int axis = 0; axis < 3; ++axis) {
            query.direction[axis] = static_cast<float>(std::lround(8.0 * m_place(m_random)));
            query.origin[axis] = point[axis] - 4.0f * query.direction[axis];
        }
        return query;
    }

private:
    Ring m_ring;
    double m_away;
    std::mt19937 m_random{42};
    std::normal_distribution<double> m_normal;
    std::uniform_real_distribution<double> m_place{-1.0, 1.0};
};

/// Whether the triangles that meet at a point face the ray with different sides, as at an outline:
/// there rounding alone tells a hit from a miss.
bool isGrazing(const Geometry& geometry, const Vector3& point, const GeometryQuery& query)
{
    int fronts = 0;
    int backs = 0;
    for (std::uint32_t i = 0; i < geometry.TriangleCount(); ++i) {
        const std::uint32_t* corners = geometry.Triangles().Data() + std::size_t{3} * i;
        const Vector3 a = VertexAt(geometry, corners[0]);
        const Vector3 b = VertexAt(geometry, corners[1]);
        const Vector3 c = VertexAt(geometry, corners[2]);
        if (Length(a - point) > 1e-5 && Length(b - point) > 1e-5 && Length(c - point) > 1e-5)
            continue;
        const double facing = Dot(Cross(b - a, c - a), ToVector3(query.direction));
        ++(facing > 0.0 ? fronts : backs);
    }
    return fronts > 0 && backs > 0;
}

/// A ring whose positions begin @p shift floats behind the start of a page.
std::shared_ptr<const Geometry> ringInPages(const Ring& ring, std::size_t shift)
{
    const std::vector<float> values = RingPositions(ring);
    const auto block = std::make_shared<std::vector<float>>(values.size() + 2048);
    void* start = block->data();
    std::size_t room = block->size() * sizeof(float);
    float* const first = static_cast<float*>(std::align(4096, 4096, start, room)) + shift;
    std::copy(values.begin(), values.end(), first);
    TambVizCore::GeometryBuilder builder;
    builder.SetPositions(
        SharedArray<float>(std::shared_ptr<const float>(block, first), values.size()));
    builder.SetTriangles(SharedArray<std::uint32_t>(RingTriangles(ring)));
    std::string error;
    return builder.Build(error);
}

int agreeing(const Pair& pair, Rays& rays, int count)
{
    int hits = 0;
    for (int i = 0; i < count; ++i)
        hits += pair.Agree(rays.Next()) ? 1 : 0;
    return hits;
}

} // namespace

TEST_F(EmbreeFaces, FindTheTrianglesThatOurOwnTreeFinds)
{
    const Ring ring{.steps = 200};
    const auto geometry = MakeRing(ring);
    const Pair pair(*geometry);
    Rays rays(ring, 40.0);

    EXPECT_GT(agreeing(pair, rays, 20000), 5000);
}

TEST_F(EmbreeFaces, KeepTheirDigitsWhenTheRayComesFromFarAway)
{
    const Ring ring;
    const auto geometry = MakeRing(ring);
    const Pair pair(*geometry);
    Rays rays(ring, 1e6);

    EXPECT_GT(agreeing(pair, rays, 5000), 1000);
}

TEST_F(EmbreeFaces, KeepTheirDigitsFarFromTheOrigin)
{
    const Ring ring{.size = 10.0, .center = {20000.0, -30000.0, 10000.0}};
    const auto geometry = MakeRing(ring);
    const Pair pair(*geometry);
    Rays rays(ring, 60.0);

    EXPECT_GT(agreeing(pair, rays, 5000), 1000);
}

TEST_F(EmbreeFaces, FindSmallAndLargeModels)
{
    for (const double size : {1e-5, 1e-2, 1e4, 1e8}) {
        const Ring ring{.size = size};
        const auto geometry = MakeRing(ring);
        ASSERT_TRUE(SuitsEmbree(*geometry)) << size;
        const Pair pair(*geometry);
        Rays rays(ring, 4.0 * size);
        EXPECT_GT(agreeing(pair, rays, 2000), 500) << size;
    }
}

TEST_F(EmbreeFaces, WhereSeveralTrianglesMeetTheLowestNumberIsHit)
{
    const Ring ring;
    const auto geometry = MakeRing(ring);
    const Pair pair(*geometry);
    Rays rays(ring, 0.0);
    int compared = 0;
    for (std::uint32_t vertex = 0; vertex < geometry->VertexCount(); ++vertex) {
        const GeometryQuery query = rays.Through(geometry->Positions().Data() + 3 * vertex);
        const Found expected = search(*pair.own, *geometry, query);
        if (!expected.isHit || isGrazing(*geometry, expected.position, query))
            continue;
        pair.Agree(query);
        ++compared;
    }
    EXPECT_GT(compared, 2000);
}

TEST_F(EmbreeFaces, OfTrianglesAtTheSamePlaceTheLowestNumberIsHit)
{
    const Ring ring;
    std::vector<std::uint32_t> triangles = RingTriangles(ring);
    const std::size_t count = triangles.size();
    for (std::size_t i = count; i > 0; i -= 3) // Backwards and with other first corners.
        triangles.insert(triangles.end(), {triangles[i - 2], triangles[i - 1], triangles[i - 3]});
    const auto geometry = MakeGeometry(RingPositions(ring), triangles);
    const Pair pair(*geometry);
    Rays rays(ring, 40.0);

    EXPECT_GT(agreeing(pair, rays, 5000), 1000);
}

TEST_F(EmbreeFaces, HiddenPartsAndPlanesLetTheRayPass)
{
    const Ring ring;
    const auto geometry = MakeRing(ring);
    const Pair pair(*geometry);
    std::vector<PartState> states(geometry->Parts().size());
    for (std::size_t part = 0; part < states.size(); part += 2)
        states[part].flags = 0;
    const ClipPlane planes[2] = {{{1.0f, 0.0f, 0.0f}, 4.0f}, {{0.0f, 0.6f, -0.8f}, 2.0f}};
    Rays rays(ring, 40.0);
    int hits = 0;
    for (int i = 0; i < 5000; ++i) {
        GeometryQuery query = rays.Next();
        query.partStates = states;
        query.clipPlanes = planes;
        hits += pair.Agree(query) ? 1 : 0;
    }
    EXPECT_GT(hits, 500);
}

TEST_F(EmbreeFaces, DistancesLimitTheRayExactly)
{
    const Ring ring;
    const auto geometry = MakeRing(ring);
    const Pair pair(*geometry);
    Rays rays(ring, 40.0);
    int hits = 0;
    for (int i = 0; i < 2000; ++i) {
        GeometryQuery query = rays.Next();
        const Found first = search(*pair.own, *geometry, query);
        if (!first.isHit)
            continue;
        query.minDistance = static_cast<float>(first.distance);
        hits += pair.Agree(query) ? 1 : 0;
        query.minDistance = std::nextafter(query.minDistance, 10.0f);
        pair.Agree(query);
        query.minDistance = -5.0f;
        query.maxDistance = static_cast<float>(first.distance);
        pair.Agree(query);
    }
    EXPECT_GT(hits, 100);
}

TEST_F(EmbreeFaces, DirectionsMayHaveAnyLength)
{
    const Ring ring;
    const auto geometry = MakeRing(ring);
    const Pair pair(*geometry);
    Rays rays(ring, 40.0);
    int hits = 0;
    for (int i = 0; i < 1000; ++i) {
        GeometryQuery query = rays.Next();
        const float length = std::ldexp(1.0f, i % 220 - 120);
        for (float& component : query.direction)
            component *= length;
        hits += pair.Agree(query) ? 1 : 0;
    }
    EXPECT_GT(hits, 200);
}

TEST_F(EmbreeFaces, FlatAndDegenerateTrianglesDoNoHarm)
{
    std::mt19937 random(3);
    std::uniform_int_distribution<std::uint32_t> vertex(0, 99);
    std::vector<float> positions;
    for (int i = 0; i < 100; ++i)
        positions.insert(positions.end(),
                         {static_cast<float>(i % 10), static_cast<float>(i / 10), 0.0f});
    std::vector<std::uint32_t> triangles;
    for (int i = 0; i < 5000; ++i) // Every tenth has no area.
        triangles.insert(triangles.end(), {vertex(random), vertex(random), vertex(random)});
    const auto geometry = MakeGeometry(positions, triangles);
    const Pair pair(*geometry);
    std::uniform_real_distribution<float> place(-1.0f, 10.0f);
    for (int i = 0; i < 2000; ++i) {
        GeometryQuery query;
        query.origin[0] = place(random);
        query.origin[1] = place(random);
        query.origin[2] = -3.0f;
        pair.Agree(query);
    }
}

TEST_F(EmbreeFaces, PositionsThatEndWithTheirPageAreCopied)
{
    const Ring ring{.steps = 64}; // 4096 vertices: twelve pages.
    const auto atEnd = ringInPages(ring, 0);
    const auto inside = ringInPages(ring, 1);

    const Pair pair(*atEnd);
    const auto sharing = MakeEmbreeFaces(*inside, *EmbreeDevice::Shared());

    EXPECT_GE(pair.embree->MemoryBytes(),
              sharing->MemoryBytes() + atEnd->Positions().MemoryBytes());
    Rays rays(ring, 40.0);
    EXPECT_GT(agreeing(pair, rays, 500), 100);
}

TEST_F(EmbreeFaces, NothingTrapsWhenTrapsAreArmed)
{
    const Ring ring;
    const auto geometry = MakeRing(ring);
    Rays rays(ring, 40.0);
    const OrvikOs::FpMasked restoresAtTheEnd;
    OrvikOs::FpControl::SetControlWord(
        OrvikOs::kEM_INEXACT | OrvikOs::kEM_UNDERFLOW | OrvikOs::kEM_DENORMAL, OrvikOs::kMCW_EM);

    const auto embree = MakeEmbreeFaces(*geometry, *EmbreeDevice::Shared());
    int hits = 0;
    for (int i = 0; i < 500; ++i) {
        GeometryQuery query = rays.Next();
        query.direction[i % 3] = 0.0f;
        hits += search(*embree, *geometry, query).isHit ? 1 : 0;
    }

    EXPECT_GT(hits, 10);
}

TEST_F(EmbreeFaces, AnyNumberOfThreadsBuildAndSearch)
{
    const Ring ring;
    const auto geometry = MakeRing(ring);
    const auto shared = MakeEmbreeFaces(*geometry, *EmbreeDevice::Shared());
    Rays once(ring, 40.0);
    std::vector<GeometryQuery> queries(200);
    for (GeometryQuery& query : queries)
        query = once.Next();
    std::atomic<int> different = 0;

    OrvikOs::ParallelFor(8, 1, [&](std::size_t, std::size_t) {
        const auto mine = MakeEmbreeFaces(*geometry, *EmbreeDevice::Shared());
        for (const GeometryQuery& query : queries)
            if (search(*mine, *geometry, query).distance !=
                search(*shared, *geometry, query).distance)
                different.fetch_add(1);
    });

    EXPECT_EQ(different.load(), 0);
}

TEST_F(EmbreeFaces, AreCountedInBytes)
{
    const auto small = MakeRing({.steps = 60});
    const auto large = MakeRing({.steps = 180});
    const std::size_t smallBytes = MakeEmbreeFaces(*small, *EmbreeDevice::Shared())->MemoryBytes();

    const std::size_t largeBytes = MakeEmbreeFaces(*large, *EmbreeDevice::Shared())->MemoryBytes();

    EXPECT_GT(smallBytes, 7200u * 16u);
    EXPECT_GT(largeBytes, 5 * smallBytes);
    EXPECT_LT(largeBytes, 64800u * 200u);
}

TEST(SuitsEmbree, OnlyManyTrianglesWithinTheRangeOfTheirCubes)
{
    EXPECT_TRUE(SuitsEmbree(*MakeRing({.steps = 60})));
    EXPECT_FALSE(SuitsEmbree(*MakeRing({.steps = 20})));
    EXPECT_FALSE(SuitsEmbree(*MakeRing({.size = 1e12})));
    EXPECT_FALSE(SuitsEmbree(*MakeRing({.size = 1e-9})));
    EXPECT_FALSE(SuitsEmbree(*MakeRing({.center = {1e10, 0.0, 0.0}})));
}

} // namespace OrvikRay
