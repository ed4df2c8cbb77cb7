#include <TambVizCore/Geometry.h>
#include <TambVizCore/Ray.h>
#include <TambVizCore/ScenePick.h>

#include <OrvikRay/InstanceTree.h>
#include <OrvikRay/RayIndex.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <memory>
#include <random>
#include <string>
#include <utility>
#include <vector>

using OrvikRay::InstanceTree;
using TambVizCore::Geometry;
using TambVizCore::GeometryBuilder;
using TambVizCore::PickInstance;
using TambVizCore::PickNearest;
using TambVizCore::PickQuery;
using TambVizCore::PickResult;
using TambVizCore::Ray;
using TambVizCore::SharedArray;
using TambVizCore::VizBox;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

PickQuery rayFrom(float x, float y, float z, float dx, float dy, float dz, double aperture = 0.0)
{
    const float origin[3] = {x, y, z};
    const float direction[3] = {dx, dy, dz};
    PickQuery query;
    query.ray = Ray(origin, direction, aperture);
    return query;
}

std::vector<std::size_t> find(const std::vector<VizBox>& boxes, const PickQuery& query)
{
    std::vector<std::size_t> positions = {99};
    InstanceTree(boxes).Find(query, positions);
    return positions;
}

/// A pyramid with faces, edges and vertices and an index of its own.
std::shared_ptr<const Geometry> pyramid()
{
    GeometryBuilder builder;
    builder.SetPositions(
        SharedArray<float>(std::vector<float>{0, 0, 0, 1, 0, 0, 0, 1, 0, 0, 0, 1}));
    builder.SetTriangles(
        SharedArray<std::uint32_t>(std::vector<std::uint32_t>{0, 2, 1, 0, 1, 3, 1, 2, 3, 2, 0, 3}));
    builder.SetSegments(SharedArray<std::uint32_t>(std::vector<std::uint32_t>{0, 1, 1, 2, 2, 0}));
    builder.SetPoints(SharedArray<std::uint32_t>(std::vector<std::uint32_t>{0, 1, 2, 3}));
    std::string error;
    auto geometry = builder.Build(error);
    geometry->PublishIndex(OrvikRay::BuildRayIndex(*geometry));
    return geometry;
}

/// Places turned, scaled and moved at random in a cube of 20.
std::vector<PickInstance> placedAtRandom(const Geometry& geometry, std::size_t count)
{
    std::mt19937 random(11);
    std::uniform_real_distribution<double> place(0.0, 20.0);
    std::uniform_real_distribution<double> matrix(-0.8, 0.8);
    std::vector<PickInstance> instances(count);
    for (PickInstance& instance : instances) {
        instance.geometry = &geometry;
        for (int column = 0; column < 3; ++column)
            for (int row = 0; row < 3; ++row)
                instance.world[column * 4 + row] = matrix(random);
        for (int row = 0; row < 3; ++row)
            instance.world[12 + row] = place(random);
    }
    return instances;
}

std::vector<VizBox> worldBoxes(const std::vector<PickInstance>& instances)
{
    std::vector<VizBox> boxes;
    for (const PickInstance& instance : instances)
        boxes.push_back(instance.geometry->BoundingBox().Transformed(instance.world));
    return boxes;
}

PickQuery randomQuery(std::mt19937& random)
{
    std::uniform_real_distribution<float> place(0.0f, 20.0f);
    const float from[3] = {place(random), place(random), -30.0f};
    PickQuery query = rayFrom(from[0], from[1], from[2], place(random) - from[0],
                              place(random) - from[1], 40.0f, 0.05);
    query.radiusGrowth = 0.002;
    return query;
}

} // namespace

TEST(InstanceTree, FindsTheBoxesThatTheRayMeetsInAscendingOrder)
{
    const std::vector<VizBox> boxes = {
        {4, 0, 0, 5, 1, 1}, {0, 5, 0, 1, 6, 1}, {-3, 0, 0, -2, 1, 1}, {8, 0, 0, 9, 1, 1}};

    EXPECT_THAT(find(boxes, rayFrom(0.0f, 0.5f, 0.5f, 1.0f, 0.0f, 0.0f)), ElementsAre(0u, 3u));
}

TEST(InstanceTree, TheApertureGrowsAlongTheRay)
{
    const std::vector<VizBox> boxes = {{4, 0, 0, 5, 1, 1}, {40, 0, 0, 41, 1, 1}};
    PickQuery query = rayFrom(0.0f, 2.0f, 0.5f, 3.0f, 0.0f, 0.0f, 0.5);
    EXPECT_THAT(find(boxes, query), IsEmpty());

    query.radiusGrowth = 0.02;

    EXPECT_THAT(find(boxes, query), ElementsAre(1u));
}

TEST(InstanceTree, EmptyBoxesAreNeverFound)
{
    const std::vector<VizBox> boxes = {{}, {0, 0, 0, 1, 1, 1}, {}};

    EXPECT_THAT(find(boxes, rayFrom(0.0f, 0.0f, -5.0f, 0.0f, 0.0f, 1.0f)), ElementsAre(1u));
}

TEST(InstanceTree, BoxesBeyondTheRangeOfFloatsAreAlwaysFound)
{
    const std::vector<VizBox> boxes = {
        {5, 5, 5, 6, 6, 6}, {-1e300, 0, 0, 1, 1, 1}, {1e31, 0, 0, 1e32, 1, 1}};

    EXPECT_THAT(find(boxes, rayFrom(0.0f, 0.0f, 0.0f, 0.0f, 0.0f, -1.0f)), ElementsAre(1u, 2u));
}

TEST(InstanceTree, ARayWithoutDirectionFindsNothing)
{
    EXPECT_THAT(find({{-1, -1, -1, 1, 1, 1}}, rayFrom(0.0f, 0.0f, 0.0f, 0.0f, 0.0f, 0.0f, 1.0)),
                IsEmpty());
}

TEST(InstanceTree, OverNothingFindsNothing)
{
    std::vector<std::size_t> positions = {99};

    InstanceTree().Find(rayFrom(0.0f, 0.0f, 0.0f, 1.0f, 0.0f, 0.0f), positions);

    EXPECT_THAT(positions, IsEmpty());
}

TEST(InstanceTree, FindsWhatLookingAtEachBoxFinds)
{
    const auto geometry = pyramid();
    const std::vector<VizBox> boxes = worldBoxes(placedAtRandom(*geometry, 3000));
    const InstanceTree tree(boxes);
    std::mt19937 random(5);
    for (int i = 0; i < 200; ++i) {
        PickQuery query = randomQuery(random);
        query.radiusGrowth = 0.0;
        std::vector<std::size_t> expected;
        for (std::size_t at = 0; at < boxes.size(); ++at) {
            double near = 0.0;
            double far = 1e300;
            if (boxes[at].Clip(query.ray.Origin(), query.ray.Direction(), query.ray.Radius(), near,
                               far))
                expected.push_back(at);
        }
        std::vector<std::size_t> positions;
        tree.Find(query, positions);
        EXPECT_EQ(positions, expected);
    }
}

TEST(InstanceTree, PicksAmongTheFoundAreThoseAmongAll)
{
    const auto geometry = pyramid();
    const std::vector<PickInstance> instances = placedAtRandom(*geometry, 3000);
    const InstanceTree tree(worldBoxes(instances));
    std::mt19937 random(6);
    int hits = 0;
    for (int i = 0; i < 300; ++i) {
        const PickQuery query = randomQuery(random);
        PickResult expected;
        const bool isHit = PickNearest(instances, query, expected);
        std::vector<std::size_t> positions;
        tree.Find(query, positions);
        std::vector<PickInstance> found;
        for (const std::size_t position : positions)
            found.push_back(instances[position]);
        PickResult result;
        ASSERT_EQ(PickNearest(found, query, result), isHit);
        if (!isHit)
            continue;
        ++hits;
        EXPECT_EQ(positions[result.instance], expected.instance);
        EXPECT_EQ(result.kind, expected.kind);
        EXPECT_EQ(result.primitive, expected.primitive);
        EXPECT_EQ(result.distance, expected.distance);
    }
    EXPECT_GT(hits, 200);
}
