#include "TestGeometry.h"

#include <TambVizCore/GeoNode.h>
#include <TambVizCore/ScenePick.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <random>
#include <string>
#include <vector>

namespace TambVizCore {
namespace {

using ::testing::ElementsAre;
using ::testing::FloatNear;

/// Looks down on the plane of the square from z = 10.
PickQuery downAt(float x, float y, double aperture = 0.0)
{
    const float origin[3] = {x, y, 10.0f};
    const float direction[3] = {0.0f, 0.0f, -1.0f};
    PickQuery query;
    query.ray = Ray(origin, direction, aperture);
    return query;
}

/// Counts what it is asked.
class CountingIndex : public BruteForceIndex
{
public:
    using BruteForceIndex::BruteForceIndex;

    bool FindFace(const GeometryQuery& query, GeometryHit& hit) const override
    {
        ++questions;
        return BruteForceIndex::FindFace(query, hit);
    }
    bool FindEdge(const GeometryQuery& query, GeometryHit& hit) const override
    {
        ++questions;
        return BruteForceIndex::FindEdge(query, hit);
    }
    bool FindVertex(const GeometryQuery& query, GeometryHit& hit) const override
    {
        ++questions;
        return BruteForceIndex::FindVertex(query, hit);
    }

    mutable int questions = 0;
};

/// Knows that the faces lie before their triangles.
class BulgingIndex : public BruteForceIndex
{
public:
    BulgingIndex(const Geometry& geometry, float way) : BruteForceIndex(geometry), m_way(way) {}

    bool FindFace(const GeometryQuery& query, GeometryHit& hit) const override
    {
        GeometryQuery facets = query;
        facets.minDistance += m_way;
        facets.maxDistance += m_way;
        if (!BruteForceIndex::FindFace(facets, hit))
            return false;
        hit.facetDistance = hit.distance;
        hit.distance -= m_way;
        return true;
    }
    float Deviation() const override { return m_way; }

private:
    float m_way;
};

void place(Node& node, double x, double y, double z, double scale = 1.0)
{
    const double matrix[16] = {scale, 0, 0, 0, 0, scale, 0, 0, 0, 0, scale, 0, x, y, z, 1};
    node.SetTransform(matrix);
}

/// Two squares: body 7 at z = 0, body 8 three below, moved by 0.5 along x.
struct ScenePick : ::testing::Test
{
    ScenePick()
    {
        const auto square = MakeSquare();
        top = root.CreateChildGeoNode(7, "top");
        top->SetGeometry(square);
        bottom = root.CreateChildGeoNode(8, "bottom");
        bottom->SetGeometry(square);
        place(*bottom, 0.5, 0.0, -3.0);
    }

    bool pick(const PickQuery& query) { return PickNearest(root, query, result); }

    Node root{1};
    GeoNode* top = nullptr;
    GeoNode* bottom = nullptr;
    ScenePickResult result;
};

TEST_F(ScenePick, TheNearestFaceIsFound)
{
    ASSERT_TRUE(pick(downAt(0.75f, 0.25f)));

    EXPECT_EQ(result.node, top);
    EXPECT_EQ(result.hit.kind, PartKind::Face);
    EXPECT_EQ(result.hit.partIndex, 0u);
    EXPECT_DOUBLE_EQ(result.hit.distance, 10.0);
    EXPECT_THAT(result.hit.position, ElementsAre(0.75f, 0.25f, 0.0f));
    EXPECT_THAT(result.hit.normal, ElementsAre(0.0f, 0.0f, 1.0f));
}

TEST_F(ScenePick, TheIdEndsWithThePart)
{
    ASSERT_TRUE(pick(downAt(0.25f, 0.75f)));

    EXPECT_EQ(result.id.ToString(), "RenderId = 1: 7/4294967297");
}

TEST_F(ScenePick, AMissLeavesTheResultUntouched)
{
    result.node = bottom;

    EXPECT_FALSE(pick(downAt(5.0f, 5.0f)));

    EXPECT_EQ(result.node, bottom);
}

TEST_F(ScenePick, ARayWithoutDirectionHitsNothing)
{
    PickQuery query = downAt(0.25f, 0.75f);
    const float none[3] = {0.0f, 0.0f, 0.0f};
    query.ray.SetDirection(none);

    EXPECT_FALSE(pick(query));
}

TEST_F(ScenePick, DistancesAreWorldUnitsWhateverTheLengthOfTheDirection)
{
    PickQuery query = downAt(0.25f, 0.75f);
    const float direction[3] = {0.0f, 0.0f, -0.125f};
    query.ray.SetDirection(direction);

    ASSERT_TRUE(pick(query));
    EXPECT_DOUBLE_EQ(result.hit.distance, 10.0);
}

TEST_F(ScenePick, DistancesAreWorldUnitsInScaledNodes)
{
    place(*top, 0.0, 0.0, 2.0, 4.0);

    ASSERT_TRUE(pick(downAt(3.0f, 1.0f)));

    EXPECT_EQ(result.node, top);
    EXPECT_DOUBLE_EQ(result.hit.distance, 8.0);
    EXPECT_THAT(result.hit.position, ElementsAre(3.0f, 1.0f, 2.0f));
}

TEST_F(ScenePick, HiddenNodesAreNotHit)
{
    top->SetVisible(false);

    ASSERT_TRUE(pick(downAt(0.75f, 0.25f)));
    EXPECT_EQ(result.node, bottom);
}

TEST_F(ScenePick, AuxiliaryNodesAreNotHit)
{
    top->SetAuxiliary(true);

    ASSERT_TRUE(pick(downAt(0.75f, 0.25f)));
    EXPECT_EQ(result.node, bottom);
}

TEST_F(ScenePick, HiddenPartsAreNotHit)
{
    top->SetPartShown(0, false);

    ASSERT_TRUE(pick(downAt(0.75f, 0.25f)));
    EXPECT_EQ(result.node, bottom);
}

TEST_F(ScenePick, CategoriesMayBeLeftOut)
{
    top->SetCategory(GeoNode::Category::PMI);
    bottom->SetCategory(GeoNode::Category::PointCloud);
    PickQuery query = downAt(0.75f, 0.25f);

    query.pmi = false;
    ASSERT_TRUE(pick(query));
    EXPECT_EQ(result.node, bottom);
    query.pointClouds = false;
    EXPECT_FALSE(pick(query));
}

TEST_F(ScenePick, KindsThatModelsDoNotShowAreNotHitAndHideNothing)
{
    PickQuery query = downAt(0.05f, 0.01f, 0.1);

    query.modelKinds = ToPartKinds(PartKind::Face) | ToPartKinds(PartKind::Edge);
    ASSERT_TRUE(pick(query));
    EXPECT_EQ(result.hit.kind, PartKind::Edge);
    query.modelKinds = ToPartKinds(PartKind::Face);
    ASSERT_TRUE(pick(query));
    EXPECT_EQ(result.hit.kind, PartKind::Face);
    EXPECT_EQ(result.node, top);

    query.modelKinds = ToPartKinds(PartKind::Edge);
    top->SetVisible(false);
    ASSERT_TRUE(pick(downAt(0.75f, 0.25f)));
    query.ray = downAt(0.75f, 0.25f).ray;
    EXPECT_FALSE(pick(query));
}

TEST_F(ScenePick, CloudsAndAnnotationsShowAllTheirKinds)
{
    top->SetCategory(GeoNode::Category::PointCloud);
    PickQuery query = downAt(0.05f, 0.01f, 0.1);
    query.modelKinds = 0;

    ASSERT_TRUE(pick(query));
    EXPECT_EQ(result.hit.kind, PartKind::Vertex);
    EXPECT_EQ(result.node, top);
}

TEST_F(ScenePick, GeometriesWithoutIndexAreNotHit)
{
    std::string error;
    top->SetGeometry(SquareBuilder().Build(error));

    ASSERT_TRUE(pick(downAt(0.75f, 0.25f)));
    EXPECT_EQ(result.node, bottom);
}

TEST_F(ScenePick, ANodeScaledToNothingIsNotHit)
{
    place(*top, 0.0, 0.0, 0.0, 0.0);

    ASSERT_TRUE(pick(downAt(0.75f, 0.25f)));
    EXPECT_EQ(result.node, bottom);
}

TEST_F(ScenePick, AnEdgeWithinTheApertureWinsOverItsFace)
{
    ASSERT_TRUE(pick(downAt(0.5f, 0.05f, 0.1)));

    EXPECT_EQ(result.hit.kind, PartKind::Edge);
    EXPECT_EQ(result.hit.partIndex, kFirstEdge);
    EXPECT_THAT(result.hit.position, ElementsAre(0.5f, FloatNear(0.0f, 1e-6f), 0.0f));
    EXPECT_THAT(result.hit.normal, ElementsAre(0.0f, 0.0f, 1.0f));
}

TEST_F(ScenePick, AVertexWithinTheApertureWinsOverAnEdge)
{
    ASSERT_TRUE(pick(downAt(0.05f, 0.01f, 0.1)));

    EXPECT_EQ(result.hit.kind, PartKind::Vertex);
    EXPECT_EQ(result.hit.partIndex, kFirstVertex);
}

TEST_F(ScenePick, OfTwoEdgesTheOneNearerToTheRayWins)
{
    ASSERT_TRUE(pick(downAt(0.93f, 0.1f, 0.11)));

    EXPECT_EQ(result.hit.kind, PartKind::Edge);
    EXPECT_EQ(result.hit.partIndex, kFirstEdge + 1);
}

TEST_F(ScenePick, AFaceHidesTheEdgesBehindIt)
{
    // The left edge of the lower square, x = 0.5, lies behind the upper square.
    ASSERT_TRUE(pick(downAt(0.5f, 0.5f, 0.1)));

    EXPECT_EQ(result.node, top);
    EXPECT_EQ(result.hit.kind, PartKind::Face);
}

TEST_F(ScenePick, FacesHideAlsoWhenOnlyEdgesAreWanted)
{
    PickQuery query = downAt(0.5f, 0.5f, 0.1);
    query.kinds = ToPartKinds(PartKind::Edge);

    EXPECT_FALSE(pick(query));
    query.facesHide = false;
    ASSERT_TRUE(pick(query));
    EXPECT_EQ(result.node, bottom);
    EXPECT_EQ(result.hit.partIndex, kFirstEdge + 3);
}

TEST_F(ScenePick, EdgesMayBeHitBesideEveryFace)
{
    ASSERT_TRUE(pick(downAt(0.25f, -0.05f, 0.1)));

    EXPECT_EQ(result.hit.kind, PartKind::Edge);
    EXPECT_EQ(result.node, top);
}

TEST_F(ScenePick, TheApertureGrowsAlongTheRay)
{
    PickQuery query = downAt(0.25f, -0.2f);
    EXPECT_FALSE(pick(query));

    query.radiusGrowth = 0.021; // 0.21 at the square's distance of 10.
    ASSERT_TRUE(pick(query));
    EXPECT_EQ(result.hit.kind, PartKind::Edge);
    query.radiusGrowth = 0.019;
    EXPECT_FALSE(pick(query));
}

TEST_F(ScenePick, TheApertureIsAWorldLengthInScaledNodes)
{
    place(*top, 0.0, 0.0, 0.0, 10.0);
    bottom->SetVisible(false);

    EXPECT_FALSE(pick(downAt(5.0f, -0.3f, 0.2)));
    EXPECT_TRUE(pick(downAt(5.0f, -0.3f, 0.4)));
}

TEST_F(ScenePick, ClipPlanesCutAwayWhatTheyDoNotKeep)
{
    const ClipPlane below{{0.0f, 0.0f, -1.0f}, -1.0f}; // Keeps z <= -1.
    PickQuery query = downAt(0.75f, 0.25f);
    query.clipPlanes = {&below, 1};

    ASSERT_TRUE(pick(query));
    EXPECT_EQ(result.node, bottom);
}

TEST_F(ScenePick, ClipPlanesStandInTheWorldAlsoForPlacedNodes)
{
    const ClipPlane right{{1.0f, 0.0f, 0.0f}, -1.2f}; // Keeps x >= 1.2.
    PickQuery query = downAt(1.1f, 0.25f);
    query.clipPlanes = {&right, 1};
    EXPECT_FALSE(pick(query));

    query.ray = downAt(1.3f, 0.25f).ray;
    ASSERT_TRUE(pick(query));
    EXPECT_EQ(result.node, bottom);
}

TEST_F(ScenePick, KindsMayBeSwitchedOffPerInstance)
{
    PickInstance instance;
    instance.geometry = top->GetGeometry().get();
    instance.kinds = ToPartKinds(PartKind::Edge);
    PickResult hit;

    EXPECT_FALSE(PickNearest({&instance, 1}, downAt(0.5f, 0.5f, 0.1), hit));
    ASSERT_TRUE(PickNearest({&instance, 1}, downAt(0.5f, 0.05f, 0.1), hit));
    EXPECT_EQ(hit.kind, PartKind::Edge);
    EXPECT_EQ(hit.instance, 0u);
}

TEST_F(ScenePick, OfEquallyNearFacesThatOfTheFirstInstanceCounts)
{
    PickInstance instances[3];
    for (PickInstance& instance : instances) {
        instance.geometry = top->GetGeometry().get();
    }
    instances[0].world[14] = -1.0;
    instances[2].world[12] = -0.5; // Begins elsewhere, lies in the same plane.
    PickResult hit;

    ASSERT_TRUE(PickNearest(instances, downAt(0.25f, 0.25f), hit));

    EXPECT_EQ(hit.instance, 1u);
}

TEST_F(ScenePick, WhatLiesBehindTheHitIsNotAsked)
{
    std::string error;
    const auto counted = SquareBuilder().Build(error);
    const auto* const index = new CountingIndex(*counted);
    counted->PublishIndex(std::unique_ptr<const IGeometryIndex>(index));
    PickInstance instances[2];
    instances[0].geometry = counted.get();
    instances[0].world[14] = -5.0;
    instances[1].geometry = top->GetGeometry().get();
    PickResult hit;

    ASSERT_TRUE(PickNearest(instances, downAt(0.5f, 0.5f, 0.1), hit));

    EXPECT_EQ(hit.instance, 1u);
    EXPECT_EQ(index->questions, 0);
}

TEST_F(ScenePick, TheNearestOfManyIsThatOfLookingAtEach)
{
    std::mt19937 random(4);
    std::uniform_real_distribution<double> number(-1.0, 1.0);
    std::vector<PickInstance> instances(60);
    for (PickInstance& instance : instances) {
        instance.geometry = top->GetGeometry().get();
        for (int i = 0; i < 15; ++i) {
            instance.world[i] = i % 4 == 3 ? 0.0 : 2.0 * number(random);
        }
    }
    for (int i = 0; i < 200; ++i) {
        PickQuery query =
            downAt(static_cast<float>(number(random)), static_cast<float>(number(random)));
        query.kinds = ToPartKinds(PartKind::Face);
        PickResult nearest;
        bool isHit = false;
        for (std::size_t at = 0; at < instances.size(); ++at) {
            PickResult alone;
            if (PickNearest({&instances[at], 1}, query, alone) &&
                (!isHit || alone.distance < nearest.distance)) {
                nearest = alone;
                nearest.instance = at;
                isHit = true;
            }
        }
        PickResult hit;
        ASSERT_EQ(PickNearest(instances, query, hit), isHit);
        EXPECT_EQ(hit.instance, nearest.instance);
        EXPECT_EQ(hit.distance, nearest.distance);
    }
}

TEST_F(ScenePick, NormalsAreTurnedWithTheNode)
{
    // A quarter turn about y stands the square up: its normal z becomes x.
    const double turn[16] = {0, 0, -1, 0, 0, 1, 0, 0, 1, 0, 0, 0, 0, 0, 0, 1};
    top->SetTransform(turn);
    const float origin[3] = {10.0f, 0.5f, -0.75f};
    const float direction[3] = {-1.0f, 0.0f, 0.0f};
    PickQuery query;
    query.ray = Ray(origin, direction, 0.0);

    ASSERT_TRUE(pick(query));
    EXPECT_EQ(result.node, top);
    EXPECT_THAT(result.hit.normal, ElementsAre(FloatNear(1.0f, 1e-6f), FloatNear(0.0f, 1e-6f),
                                               FloatNear(0.0f, 1e-6f)));
}

TEST_F(ScenePick, APickBelowANodeSeesThePlacesAbove)
{
    Node* const group = root.CreateChildNode(9);
    place(*group, 100.0, 0.0, 0.0);
    GeoNode* const body = group->CreateChildGeoNode(10);
    body->SetGeometry(top->GetGeometry());

    EXPECT_TRUE(PickNearest(*group, downAt(100.75f, 0.25f), result));
    EXPECT_EQ(result.node, body);
}

TEST_F(ScenePick, AnExactFaceThatBulgesOutOfItsBoxIsFound)
{
    // A body one unit below the square, whose exact face lies 1.5 before its triangles.
    std::string error;
    const auto bulging = SquareBuilder().Build(error);
    bulging->PublishIndex(std::make_unique<BulgingIndex>(*bulging, 1.5f));
    bottom->SetGeometry(bulging);
    place(*bottom, 0.0, 0.0, -1.0);

    ASSERT_TRUE(pick(downAt(0.75f, 0.25f)));

    EXPECT_EQ(result.node, bottom);
    EXPECT_DOUBLE_EQ(result.hit.distance, 9.5);
}

TEST_F(ScenePick, EdgesBehindABulgingFaceAreNotHiddenByIt)
{
    std::string error;
    const auto bulging = SquareBuilder().Build(error);
    bulging->PublishIndex(std::make_unique<BulgingIndex>(*bulging, 1.5f));
    top->SetGeometry(bulging);

    ASSERT_TRUE(pick(downAt(0.5f, 0.01f, 0.1)));

    EXPECT_EQ(result.node, top);
    EXPECT_EQ(result.hit.kind, PartKind::Edge);
}

} // namespace
} // namespace TambVizCore
