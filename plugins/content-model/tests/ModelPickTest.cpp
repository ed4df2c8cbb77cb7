#include "FakeView3D.h"
#include "OrvikModel/ModelContent.h"
#include "OrvikModel/ModelEntity.h"
#include "OrvikModel/ModelRenderer3D.h"
#include "TestModels.h"

#include "OrvikCore/Document.h"

#include <TambCommandsInfra/CallGate.h>
#include <TambVizCore/GeoNode.h>
#include <TambVizCore/Ray.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <cmath>
#include <thread>

using OrvikCore::Document;
using OrvikCore::LineHit;
using OrvikModel::MakeEntity;
using OrvikModel::ModelContent;
using OrvikModel::ModelRenderer3D;
using OrvikModel::NodeKind;
using TambVizCore::ClipPlane;
using TambVizCore::EntityId;
using TambVizCore::GeoNode;
using TambVizCore::MakePartId;
using TambVizCore::PartKind;
using TambVizCore::Ray;
using TambVizCore::RenderId;

namespace {

/// Downwards along z through a point, from z = 10.
Ray down(float x, float y, double radius = 0.0)
{
    const float origin[3] = {x, y, 10.0f};
    const float direction[3] = {0.0f, 0.0f, -1.0f};
    return {origin, direction, radius};
}

/// Two cubes beside each other, drawn in a view.
class ModelPickTest : public testing::Test
{
protected:
    void SetUp() override
    {
        m_content.GetModel()->nodes[0]->shape->MakeParts();
        m_renderer.Render();
    }
    GeoNode& sceneNode(std::uint64_t number)
    {
        return *m_view.m_root.FindChild(1)->FindChild(number)->AsGeoNode();
    }
    EntityId entityOf(std::size_t cube, std::uint64_t partId = 0) const
    {
        return MakeEntity(*m_content.GetModel(), *m_content.GetModel()->nodes[cube], partId);
    }
    bool pick(const Ray& ray) { return m_content.RayPick(ray, m_hit); }
    std::vector<LineHit> intersect(double x, double y, bool visibleOnly = true)
    {
        const double origin[3] = {x, y, 10.0};
        const double direction[3] = {0.0, 0.0, -2.0};
        std::vector<LineHit> hits;
        m_content.IntersectLine(origin, direction, visibleOnly, hits);
        return hits;
    }

    Document m_document{nullptr};
    ModelContent m_content{m_document, CubeModel(2), "Test"};
    FakeView3D m_view;
    ModelRenderer3D m_renderer{m_content, m_view};
    EntityId m_hit;
};

} // namespace

TEST_F(ModelPickTest, FindsTheFaceUnderTheRay)
{
    ASSERT_TRUE(pick(down(2.3f, 0.4f)));

    EXPECT_EQ(m_hit, entityOf(1, MakePartId(PartKind::Face, 5)));
}

TEST_F(ModelPickTest, MissIsFalseAndLeavesTheEntityAlone)
{
    EXPECT_FALSE(pick(down(1.5f, 0.5f)));

    EXPECT_TRUE(m_hit.IsEmpty());
}

TEST_F(ModelPickTest, FindsWhatIsPlacedByTransforms)
{
    std::vector<NodePtr> nodes;
    nodes.push_back(MakeNode(NodeKind::Assembly, L"top"));
    nodes[0]->transform = Moved(0, 100, 0, 2.0);
    AddChild(*nodes[0], MakeCube(NodeKind::Body, L"body")).transform = Moved(10, 0, 0);
    ModelContent content(m_document, MakeModel(std::move(nodes)), "Test");

    ASSERT_TRUE(content.RayPick(down(21.0f, 101.0f), m_hit));

    EXPECT_EQ(m_hit.Value(), 2u);
    EXPECT_EQ(m_hit.SubEntityIndex(), 5);
    EXPECT_FALSE(content.RayPick(down(1.0f, 1.0f), m_hit));
}

TEST_F(ModelPickTest, HiddenNodesAreNotHit)
{
    ASSERT_TRUE(pick(down(0.5f, 0.4f)));
    sceneNode(1).SetVisible(false);

    EXPECT_FALSE(pick(down(0.5f, 0.4f)));
    EXPECT_TRUE(pick(down(2.5f, 0.4f)));
    EXPECT_TRUE(intersect(0.5, 0.4).empty());
    EXPECT_EQ(intersect(0.5, 0.4, /*visibleOnly=*/false).size(), 2u);
    sceneNode(1).SetVisible(true);
    EXPECT_TRUE(pick(down(0.5f, 0.4f)));
}

TEST_F(ModelPickTest, DisplacedNodesAreHitWhereTheyAreShown)
{
    ASSERT_TRUE(pick(down(2.5f, 0.4f)));
    const double away[3] = {0.0, 5.0, 0.0};
    sceneNode(2).SetDisplacement(away);
    m_hit.Clear();

    EXPECT_FALSE(pick(down(2.5f, 0.4f)));
    ASSERT_TRUE(pick(down(2.5f, 5.4f)));
    EXPECT_EQ(m_hit, entityOf(1, MakePartId(PartKind::Face, 5)));
    ASSERT_TRUE(m_content.RayPickKind(down(2.0f, 5.5f, 0.1), PartKind::Edge, m_hit));
    EXPECT_EQ(m_hit.Value(), 2u);
    EXPECT_TRUE(pick(down(0.5f, 0.4f)));
}

TEST_F(ModelPickTest, LinesMeetDisplacedNodesWhereTheyAreShownOrWhereTheyBelong)
{
    const double away[3] = {0.0, 5.0, 2.0};
    sceneNode(2).SetDisplacement(away);

    EXPECT_TRUE(intersect(2.5, 0.4).empty());
    EXPECT_EQ(intersect(2.5, 0.4, /*visibleOnly=*/false).size(), 2u);
    const std::vector<LineHit> hits = intersect(2.5, 5.4);
    ASSERT_EQ(hits.size(), 2u);
    EXPECT_EQ(hits[0].position[2], 3.0);
}

TEST_F(ModelPickTest, DisplacementOfANodeAboveMovesAllBelow)
{
    const double away[3] = {0.0, 5.0, 0.0};
    m_view.m_root.FindChild(1)->SetDisplacement(away);

    EXPECT_FALSE(pick(down(0.5f, 0.4f)));
    EXPECT_TRUE(pick(down(0.5f, 5.4f)));
    EXPECT_TRUE(pick(down(2.5f, 5.4f)));
    m_view.m_root.FindChild(1)->SetVisible(false);
    EXPECT_FALSE(pick(down(2.5f, 5.4f)));
}

TEST_F(ModelPickTest, NodesThatWentHomeAreHitThereAgain)
{
    const double away[3] = {0.0, 5.0, 0.0};
    const double none[3] = {0.0, 0.0, 0.0};
    sceneNode(2).SetDisplacement(away);
    ASSERT_TRUE(pick(down(2.5f, 5.4f)));
    sceneNode(1).SetVisible(false);
    ASSERT_TRUE(pick(down(2.5f, 5.4f)));
    sceneNode(2).SetDisplacement(none);

    EXPECT_FALSE(pick(down(2.5f, 5.4f)));
    EXPECT_TRUE(pick(down(2.5f, 0.4f)));
}

TEST_F(ModelPickTest, NothingBelowAHiddenNodeIsHit)
{
    m_view.m_root.FindChild(1)->SetVisible(false);

    EXPECT_FALSE(pick(down(0.5f, 0.4f)));
}

TEST_F(ModelPickTest, HiddenPartsAreNotHit)
{
    GeoNode& node = sceneNode(1);
    node.SetPartShown(5, false);

    ASSERT_TRUE(pick(down(0.5f, 0.4f)));

    EXPECT_EQ(m_hit, entityOf(0, MakePartId(PartKind::Face, 4)));
    EXPECT_EQ(intersect(0.5, 0.4).size(), 1u);
}

TEST_F(ModelPickTest, WhatSectionPlanesCutAwayIsNotHit)
{
    ClipPlane plane;
    plane.normal[2] = -1.0f;
    plane.offset = 0.5f; // Keeps what lies below z = 0.5.
    m_view.m_adapter.m_options.SetClipPlanes({plane});

    ASSERT_TRUE(pick(down(0.5f, 0.4f)));

    EXPECT_EQ(m_hit, entityOf(0, MakePartId(PartKind::Face, 4)));
    const std::vector<LineHit> hits = intersect(0.5, 0.4);
    ASSERT_EQ(hits.size(), 2u);
    EXPECT_EQ(hits[0].entity, entityOf(0)); // The cut itself.
    EXPECT_DOUBLE_EQ(hits[0].position[2], 0.5);
    EXPECT_EQ(intersect(0.5, 0.4, /*visibleOnly=*/false)[0].entity,
              entityOf(0, MakePartId(PartKind::Face, 5)));
}

TEST_F(ModelPickTest, OnlyKindsThatAreDisplayedAreHitUnlessOneIsAskedFor)
{
    auto& options = m_view.m_adapter.m_options;
    const Ray corner = down(0.05f, 0.01f, 0.2);
    const auto kindOf = [&](const Ray& ray) {
        return pick(ray) ? m_hit.SubEntityKind() : PartKind::None;
    };

    EXPECT_EQ(kindOf(corner), PartKind::Edge); // Vertices are not displayed at the start.
    options.SetShowVertices(true);
    EXPECT_EQ(kindOf(corner), PartKind::Vertex);
    options.SetShowVertices(false);
    options.SetShowEdges(false);
    EXPECT_EQ(kindOf(corner), PartKind::Face);
    options.SetShowFaces(false);
    EXPECT_EQ(kindOf(corner), PartKind::None);
    EXPECT_TRUE(m_content.RayPickKind(corner, PartKind::Vertex, m_hit));
    EXPECT_TRUE(m_content.RayPickKind(corner, PartKind::Face, m_hit));
}

TEST(ModelPick, PmiAndPointCloudsFollowTheirSwitches)
{
    Document document(nullptr);
    ModelContent content(document, FullModel(), "Test");
    FakeView3D view;
    ModelRenderer3D renderer(content, view);
    renderer.Render();
    EntityId hit;

    EXPECT_TRUE(content.RayPick(down(18.5f, 0.4f), hit));
    EXPECT_TRUE(content.RayPick(down(20.5f, 0.4f), hit));
    view.m_adapter.m_options.SetShowPointClouds(false);
    EXPECT_FALSE(content.RayPick(down(18.5f, 0.4f), hit));
    EXPECT_TRUE(content.RayPick(down(20.5f, 0.4f), hit));
    view.m_adapter.m_options.SetShowPMI(false);
    EXPECT_FALSE(content.RayPick(down(20.5f, 0.4f), hit));
}

TEST_F(ModelPickTest, ContentThatIsNotDrawnIsHitAllTheSame)
{
    m_renderer.ClearAll();

    EXPECT_TRUE(pick(down(0.5f, 0.4f)));
}

TEST_F(ModelPickTest, WorkerCrossesTheGateOnlyAfterAChange)
{
    TambCommandsInfra::CallGate gate;
    std::size_t crossings = 0;
    const auto pickOnWorker = [&](int times) {
        std::atomic<bool> isDone = false;
        std::thread worker([&] {
            for (int i = 0; i < times; ++i)
                EXPECT_TRUE(pick(down(2.5f, 0.4f)));
            isDone = true;
        });
        while (!isDone)
            crossings += gate.Drain();
        worker.join();
    };

    pickOnWorker(1000);
    EXPECT_EQ(crossings, 1u);
    sceneNode(1).SetVisible(false);
    pickOnWorker(1000);

    EXPECT_EQ(crossings, 2u);
}

TEST_F(ModelPickTest, LineMeetsEveryFaceInOrder)
{
    const std::vector<LineHit> hits = intersect(0.25, 0.5);

    ASSERT_EQ(hits.size(), 2u);
    EXPECT_EQ(hits[0].entity, entityOf(0, MakePartId(PartKind::Face, 5)));
    EXPECT_DOUBLE_EQ(hits[0].distance, 9.0);
    EXPECT_DOUBLE_EQ(hits[0].position[2], 1.0);
    EXPECT_DOUBLE_EQ(hits[0].position[0], 0.25);
    EXPECT_DOUBLE_EQ(hits[0].normal[2], 1.0);
    EXPECT_DOUBLE_EQ(hits[1].distance, 10.0);
    EXPECT_DOUBLE_EQ(hits[1].normal[2], -1.0);
    EXPECT_FALSE(hits[1].exact);
}

TEST_F(ModelPickTest, PlaceBetweenTwoTrianglesCountsOnce)
{
    EXPECT_EQ(intersect(0.5, 0.5).size(), 2u);
}

TEST_F(ModelPickTest, LineFromInsideMeetsTheWayOutOnly)
{
    const double origin[3] = {0.3, 0.4, 0.5};
    const double direction[3] = {1.0, 0.0, 0.0};
    std::vector<LineHit> hits;

    ASSERT_TRUE(m_content.IntersectLine(origin, direction, false, hits));

    ASSERT_EQ(hits.size(), 3u); // Out of this cube, into and out of the other one.
    EXPECT_NEAR(hits[0].distance, 0.7, 1e-12);
    EXPECT_NEAR(hits[2].distance, 2.7, 1e-12);
    EXPECT_EQ(hits[2].entity.Value(), 2u);
}

TEST_F(ModelPickTest, LineKeepsItsPrecisionFarAway)
{
    const double origin[3] = {0.3, 0.4, 1.0e6};
    const double direction[3] = {0.0, 0.0, -1.0};
    std::vector<LineHit> hits;

    ASSERT_TRUE(m_content.IntersectLine(origin, direction, false, hits));

    ASSERT_EQ(hits.size(), 2u);
    EXPECT_NEAR(hits[0].position[2], 1.0, 1e-9);
    EXPECT_NEAR(hits[1].position[2], 0.0, 1e-9);
}

TEST(ModelPick, NormalsOfMirroredAndStretchedBodiesPointOutwards)
{
    Document document(nullptr);
    std::vector<NodePtr> nodes;
    nodes.push_back(MakeCube(NodeKind::Body, L"mirrored"));
    nodes[0]->transform = std::vector<double>{-1, 0, 0, 0, 0, 3, 0, 0, 0, 0, 5, 0, 0, 0, 0, 1};
    const ModelContent content(document, MakeModel(std::move(nodes)), "Test");
    const double origin[3] = {-10.0, 1.0, 1.0};
    const double direction[3] = {1.0, 0.0, 0.0};
    std::vector<LineHit> hits;

    ASSERT_TRUE(content.IntersectLine(origin, direction, false, hits));

    ASSERT_EQ(hits.size(), 2u);
    EXPECT_NEAR(hits[0].distance, 9.0, 1e-12);
    EXPECT_DOUBLE_EQ(hits[0].normal[0], -1.0);
    EXPECT_DOUBLE_EQ(hits[1].normal[0], 1.0);
}

TEST_F(ModelPickTest, LinesWithoutDirectionMeetNothing)
{
    const double origin[3] = {0.3, 0.4, 10.0};
    const double none[3] = {0.0, 0.0, 0.0};
    const double bad[3] = {std::nan(""), 0.0, 1.0};
    std::vector<LineHit> hits;

    EXPECT_FALSE(m_content.IntersectLine(origin, none, false, hits));
    EXPECT_FALSE(m_content.IntersectLine(bad, origin, false, hits));
    EXPECT_FALSE(m_content.IntersectLine(origin, bad, false, hits));
    const float zero[3] = {0.0f, 0.0f, 0.0f};
    EXPECT_FALSE(pick(Ray(zero, zero, 1.0)));
}

TEST(ModelPick, HoverHighlightsTheSameInEveryInstance)
{
    Document document(nullptr);
    ModelContent content(document, FullModel(), "Test");
    FakeView3D view;
    ModelRenderer3D renderer(content, view);
    renderer.Render();
    view.m_selection.SetSceneRoot(&view.m_root);
    const auto& model = *content.GetModel();
    const std::uint64_t face = MakePartId(PartKind::Face, 2);
    RenderId left;
    RenderId right;
    renderer.ConvertToRenderId(MakeEntity(model, NodeNamed(model, L"left body"), face), left);
    renderer.ConvertToRenderId(MakeEntity(model, NodeNamed(model, L"right body"), face), right);

    EXPECT_TRUE(content.TryHighlight(right));

    EXPECT_THAT(view.m_selection.GetHighlighted(), testing::UnorderedElementsAre(left, right));
    EXPECT_FALSE(content.TryHighlight(ViewIdOf({99, 1})));
}
