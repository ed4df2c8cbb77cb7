#include "FakeContent.h"
#include "FakeView3D.h"
#include "OrvikModel/ModelContent.h"
#include "OrvikModel/ModelEntity.h"
#include "OrvikModel/ModelRenderer3D.h"
#include "TestModels.h"

#include "OrvikCore/ARendererTree.h"
#include "OrvikCore/Document.h"

#include <TambVizCore/GeoNode.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <memory>

using OrvikCore::ARendererTree;
using OrvikCore::Document;
using OrvikModel::MakeContainerEntity;
using OrvikModel::MakeEntity;
using OrvikModel::Model;
using OrvikModel::ModelContent;
using OrvikModel::ModelNode;
using OrvikModel::ModelRenderer3D;
using OrvikModel::NodeKind;
using TambVizCore::EntityId;
using TambVizCore::EntityType;
using TambVizCore::MakePartId;
using TambVizCore::PartKind;
using TambVizCore::RenderId;
using TambVizCore::RGBAColor;

namespace {

class ModelRendererTest : public testing::Test
{
protected:
    const Model& model() const { return *m_content.GetModel(); }
    TambVizCore::GeoNode* bodyNode(std::uint64_t body)
    {
        return m_view.m_root.FindChild(1)->FindChild(body)->AsGeoNode();
    }

    Document m_document{nullptr};
    ModelContent m_content{m_document, CubeModel(2), "Test"};
    FakeView3D m_view;
    ModelRenderer3D m_renderer{m_content, m_view};
};

} // namespace

TEST_F(ModelRendererTest, BuildsANodeForTheContentAndOneForEachBody)
{
    ASSERT_TRUE(m_renderer.Render());

    ASSERT_EQ(m_view.m_root.ChildCount(), 1u);
    EXPECT_EQ(m_view.m_root.ChildAt(0)->Name(), "cubes.stl");
    ASSERT_EQ(m_view.m_root.ChildAt(0)->ChildCount(), 2u);
    EXPECT_EQ(bodyNode(2)->Name(), "cube 1");
    EXPECT_EQ(bodyNode(2)->Entity(), EntityId(2, 1, EntityType::Mesh));
    EXPECT_EQ(bodyNode(2)->GetGeometry(), model().nodes[1]->shape->Present());
}

TEST_F(ModelRendererTest, RenderingTwiceBuildsOnce)
{
    m_renderer.Render();
    m_renderer.Render();

    EXPECT_EQ(m_view.m_root.ChildCount(), 1u);
}

TEST_F(ModelRendererTest, TakesANodeIdThatIsFree)
{
    m_view.m_root.CreateChildNode(1);
    m_renderer.Render();

    EXPECT_NE(m_view.m_root.FindChild(2), nullptr);
    RenderId id;
    ASSERT_TRUE(m_renderer.ConvertToRenderId(MakeEntity(model(), *model().nodes[0], 0), id));
    EXPECT_EQ(id, ViewIdOf({2, 1}));
}

TEST_F(ModelRendererTest, KeepsBoxAndSphere)
{
    m_renderer.Render();

    ASSERT_NE(m_renderer.GetBoxLo(), nullptr);
    EXPECT_EQ(m_renderer.GetBoxHi()[0], 3.0);
    float center[3];
    m_renderer.GetGeometryCenter(center);
    EXPECT_EQ(center[0], 1.5f);
    EXPECT_GT(m_renderer.GetGeometryRadius(), 1.5f);
}

TEST_F(ModelRendererTest, DrawsOnlyItsOwnContent)
{
    CallLog log;
    FakeContent fake(m_document, "fake", log);
    ModelContent other(m_document, CubeModel(), "Test");

    EXPECT_TRUE(m_renderer.IsRendererFor(&m_content));
    EXPECT_FALSE(m_renderer.IsRendererFor(&other));
    EXPECT_FALSE(m_renderer.IsRendererFor(&fake));
    EXPECT_FALSE(m_renderer.IsRendererFor(nullptr));
}

TEST_F(ModelRendererTest, ConvertsBodiesBothWays)
{
    m_renderer.Render();
    const EntityId entity = MakeEntity(model(), *model().nodes[1], 0);
    RenderId id;
    EntityId back;

    ASSERT_TRUE(m_renderer.ConvertToRenderId(entity, id));
    ASSERT_TRUE(m_renderer.ConvertToEntityId(id, back));

    EXPECT_EQ(id, ViewIdOf({1, 2}));
    EXPECT_EQ(back, entity);
}

TEST_F(ModelRendererTest, ConvertsEveryPartBothWays)
{
    model().nodes[0]->shape->WithParts();
    m_renderer.Render();
    for (const TambVizCore::GeometryPart& part : model().nodes[0]->shape->Present()->Parts()) {
        const EntityId entity = MakeEntity(model(), *model().nodes[0], part.id);
        RenderId id;
        EntityId back;
        ASSERT_TRUE(m_renderer.ConvertToRenderId(entity, id));
        ASSERT_TRUE(m_renderer.ConvertToEntityId(id, back));
        EXPECT_EQ(id.Last(), part.id);
        EXPECT_EQ(back, entity);
    }
}

TEST_F(ModelRendererTest, ConvertingAPartGivesTheNodeTheShapeThatHasIt)
{
    m_renderer.Render();
    EXPECT_TRUE(bodyNode(1)->GetGeometry()->Parts().empty());
    model().nodes[0]->shape->WithParts();
    RenderId id;

    ASSERT_TRUE(m_renderer.ConvertToRenderId(
        MakeEntity(model(), *model().nodes[0], MakePartId(PartKind::Edge, 3)), id));

    EXPECT_EQ(bodyNode(1)->GetGeometry(), model().nodes[0]->shape->Present());
    EXPECT_FALSE(bodyNode(1)->GetGeometry()->Parts().empty());
}

TEST_F(ModelRendererTest, ForeignEntitiesAndIdsAreRefused)
{
    model().nodes[0]->shape->WithParts();
    m_renderer.Render();
    RenderId id;
    EntityId entity;

    EXPECT_FALSE(m_renderer.ConvertToRenderId(EntityId(1, 1, EntityType::Body), id));
    EXPECT_FALSE(m_renderer.ConvertToRenderId(EntityId(1, 7, EntityType::Mesh), id));
    EXPECT_FALSE(m_renderer.ConvertToRenderId(EntityId(3, 1, EntityType::Mesh), id));
    EXPECT_FALSE(m_renderer.ConvertToRenderId(EntityId(0, 1, EntityType::Mesh), id));
    EXPECT_FALSE(m_renderer.ConvertToRenderId(
        MakeEntity(model(), *model().nodes[0], MakePartId(PartKind::Face, 6)), id));
    EXPECT_FALSE(m_renderer.ConvertToEntityId(ViewIdOf({2, 1}), entity));
    EXPECT_FALSE(m_renderer.ConvertToEntityId(ViewIdOf({1, 3}), entity));
    EXPECT_FALSE(m_renderer.ConvertToEntityId(ViewIdOf({1, 0}), entity));
    EXPECT_FALSE(m_renderer.ConvertToEntityId(ViewIdOf({1, 1, 12345}), entity));
    EXPECT_FALSE(m_renderer.ConvertToEntityId(RenderId(), entity));
}

TEST_F(ModelRendererTest, NothingIsConvertedBeforeItIsDrawn)
{
    RenderId id;
    EntityId entity;

    EXPECT_FALSE(m_renderer.ConvertToRenderId(MakeEntity(model(), *model().nodes[0], 0), id));
    EXPECT_FALSE(m_renderer.ConvertToEntityId(ViewIdOf({0, 1}), entity));
}

TEST_F(ModelRendererTest, AnEntityIsDrawnOnce)
{
    m_renderer.Render();
    std::vector<RenderId> ids;

    ASSERT_TRUE(m_renderer.ExpandRenderId(ViewIdOf({1, 2}), ids));

    EXPECT_THAT(ids, testing::ElementsAre(ViewIdOf({1, 2})));
    EXPECT_FALSE(m_renderer.ExpandRenderId(ViewIdOf({9, 2}), ids));
}

TEST_F(ModelRendererTest, ToolTipNamesBodyAndPart)
{
    model().nodes[0]->shape->WithParts();
    m_renderer.Render();

    EXPECT_EQ(m_renderer.GetToolTip(ViewIdOf({1, 1})), L"cube 0");
    EXPECT_EQ(m_renderer.GetToolTip(ViewIdOf({1, 1, MakePartId(PartKind::Face, 5)})),
              L"cube 0, face 5");
    EXPECT_EQ(m_renderer.GetToolTip(ViewIdOf({5})), L"");
}

TEST_F(ModelRendererTest, ListsItsBodies)
{
    std::vector<EntityId> bodies;

    ASSERT_TRUE(m_renderer.GetBodyList(bodies));

    EXPECT_THAT(bodies, testing::ElementsAre(EntityId(1, 1, EntityType::Mesh),
                                             EntityId(2, 1, EntityType::Mesh)));
}

TEST_F(ModelRendererTest, ClearingTakesTheNodesAway)
{
    m_renderer.Render();

    m_renderer.ClearAll();

    EXPECT_EQ(m_view.m_root.ChildCount(), 0u);
    EXPECT_EQ(m_renderer.GetBoxLo(), nullptr);
}

TEST_F(ModelRendererTest, SurvivesAViewThatWasCleared)
{
    m_renderer.Render();
    m_view.m_root.RemoveAllChildren();
    RenderId id;

    EXPECT_FALSE(m_renderer.ConvertToRenderId(MakeEntity(model(), *model().nodes[0], 0), id));
    EXPECT_TRUE(m_renderer.Rerender());

    EXPECT_EQ(m_view.m_root.ChildCount(), 1u);
}

TEST_F(ModelRendererTest, OutlivesItsContent)
{
    auto content = std::make_unique<ModelContent>(m_document, CubeModel(), "Test");
    ModelRenderer3D renderer(*content, m_view);
    content.reset();

    EXPECT_TRUE(renderer.Render());
    RenderId id;
    EXPECT_TRUE(renderer.ConvertToRenderId(EntityId(1, 1, EntityType::Mesh), id));
}

TEST_F(ModelRendererTest, DestructionTakesTheNodesAway)
{
    {
        ModelRenderer3D renderer(m_content, m_view);
        renderer.Render();
        EXPECT_EQ(m_view.m_root.ChildCount(), 1u);
    }

    EXPECT_EQ(m_view.m_root.ChildCount(), 0u);
}

TEST_F(ModelRendererTest, TheContentItselfIsAContainer)
{
    m_renderer.Render();
    const EntityId container(1, ARendererTree::kSceneRowId, EntityType::Container);
    EntityId entity;
    RenderId id;

    ASSERT_TRUE(m_renderer.ConvertToEntityId(ViewIdOf({1}), entity));
    ASSERT_TRUE(m_renderer.ConvertToRenderId(container, id));

    EXPECT_EQ(entity, container);
    EXPECT_EQ(id, ViewIdOf({1}));
    EXPECT_EQ(m_view.m_root.ChildAt(0)->Entity(), container);
}

TEST_F(ModelRendererTest, ColorsNodesAndPartsAsTheModelSays)
{
    std::vector<NodePtr> nodes;
    nodes.push_back(MakeCube(NodeKind::Body, L"red"));
    nodes[0]->color = RGBAColor(255, 0, 0);
    nodes[0]->partColors = {{MakePartId(PartKind::Face, 2), RGBAColor(0, 255, 0)}};
    nodes[0]->isShown = false;
    nodes[0]->lineWidthPixels = 3.0f;
    ModelContent content(m_document, MakeModel(std::move(nodes)), "Test");
    ModelRenderer3D renderer(content, m_view);

    renderer.Render();
    content.GetModel()->nodes[0]->shape->WithParts();
    renderer.Rerender();

    const TambVizCore::GeoNode& node = *bodyNode(1);
    EXPECT_EQ(node.Color(), RGBAColor(255, 0, 0));
    EXPECT_EQ(node.PartStates()[2].color, RGBAColor(0, 255, 0));
    EXPECT_FALSE(node.PartStates()[1].Has(TambVizCore::PartState::kColored));
    EXPECT_FALSE(node.IsVisible());
    EXPECT_EQ(node.LineWidthPixels(), 3.0f);
}

TEST(ModelRenderer3D, MirrorsTheModelWithoutItsSavedViews)
{
    Document document(nullptr);
    ModelContent content(document, FullModel(), "Test");
    FakeView3D view;
    ModelRenderer3D renderer(content, view);
    renderer.Render();
    const Model& model = *content.GetModel();

    std::size_t drawn = 0;
    for (const ModelNode* node : model.InOrder()) {
        RenderId id;
        EntityId back;
        const EntityId entity = MakeEntity(model, *node);
        if (!renderer.ConvertToRenderId(entity, id))
            continue;
        ++drawn;
        ASSERT_TRUE(renderer.ConvertToEntityId(id, back));
        EXPECT_EQ(back, entity);
        const TambVizCore::NodeMatch match = TambVizCore::FindRenderId(view.m_root, id);
        ASSERT_NE(match.node, nullptr);
        EXPECT_EQ(match.node->Entity(), entity);
        double world[16];
        GetWorldTransform(*node, world);
        double scene[16];
        match.node->GetWorldTransform(scene);
        EXPECT_TRUE(std::equal(world, world + 16, scene)) << node->number;
    }
    // The assembly, its references and bodies, five other bodies, the group of annotations, its
    // three types and three drawn annotations.
    EXPECT_EQ(drawn, 17u);
}

TEST(ModelRenderer3D, GroupsOfAnnotationsHoldWhatIsDrawnOfThem)
{
    Document document(nullptr);
    ModelContent content(document, FullModel(), "Test");
    FakeView3D view;
    ModelRenderer3D renderer(content, view);
    renderer.Render();
    const Model& model = *content.GetModel();

    RenderId group;
    RenderId annotation;
    ASSERT_TRUE(renderer.ConvertToRenderId(MakeEntity(model, NodeNamed(model, L"PMI")), group));
    ASSERT_TRUE(
        renderer.ConvertToRenderId(MakeEntity(model, NodeNamed(model, L"drawn")), annotation));

    const TambVizCore::Node* drawn = TambVizCore::FindRenderId(view.m_root, annotation).node;
    ASSERT_NE(drawn, nullptr);
    EXPECT_NE(drawn->AsGeoNode(), nullptr);
    EXPECT_EQ(drawn->Parent()->Parent(), TambVizCore::FindRenderId(view.m_root, group).node);
    EXPECT_FALSE(
        renderer.ConvertToRenderId(MakeEntity(model, NodeNamed(model, L"text only")), annotation));
}

TEST(ModelRenderer3D, HidingAGroupOfAnnotationsHidesWhatIsDrawnOfThem)
{
    Document document(nullptr);
    ModelContent content(document, FullModel(), "Test");
    FakeView3D view;
    ModelRenderer3D renderer(content, view);
    renderer.Render();
    const Model& model = *content.GetModel();
    RenderId group;
    RenderId annotation;
    renderer.ConvertToRenderId(MakeEntity(model, NodeNamed(model, L"PMI")), group);
    renderer.ConvertToRenderId(MakeEntity(model, NodeNamed(model, L"drawn")), annotation);

    TambVizCore::FindRenderId(view.m_root, group).node->SetVisible(false);

    EXPECT_FALSE(TambVizCore::FindRenderId(view.m_root, annotation).node->IsVisibleInScene());
}

TEST(ModelRenderer3D, InstancesShareTheirGeometry)
{
    Document document(nullptr);
    ModelContent content(document, FullModel(), "Test");
    FakeView3D view;
    ModelRenderer3D renderer(content, view);
    renderer.Render();
    const auto geoNode = [&](const wchar_t* name) {
        RenderId id;
        const Model& model = *content.GetModel();
        renderer.ConvertToRenderId(MakeEntity(model, NodeNamed(model, name)), id);
        return TambVizCore::FindRenderId(view.m_root, id).node->AsGeoNode();
    };

    EXPECT_EQ(geoNode(L"left body")->GetGeometry(), geoNode(L"right body")->GetGeometry());
    EXPECT_EQ(geoNode(L"drawn")->GetCategory(), TambVizCore::GeoNode::Category::PMI);
    EXPECT_EQ(geoNode(L"cloud")->GetCategory(), TambVizCore::GeoNode::Category::PointCloud);
    EXPECT_EQ(geoNode(L"points")->GetCategory(), TambVizCore::GeoNode::Category::PointCloud);
    EXPECT_EQ(geoNode(L"wire")->GetCategory(), TambVizCore::GeoNode::Category::Model);
}

TEST(ModelRenderer3D, RerenderTessellatesEachShapeAnewWhenTheParametersChanged)
{
    Document document(nullptr);
    ModelContent content(document, FullModel(), "Test");
    FakeView3D view;
    ModelRenderer3D renderer(content, view);
    renderer.Render();
    const auto& shape =
        dynamic_cast<const TestShape&>(*NodeNamed(*content.GetModel(), L"left body").shape);

    renderer.Rerender();
    EXPECT_TRUE(shape.m_tessellations.empty());
    renderer.SetTesselationSag(0.5);
    renderer.SetTesselationMaxAngle(-1.0);
    renderer.Rerender();
    renderer.Rerender();

    EXPECT_THAT(shape.m_tessellations, testing::ElementsAre(0.5, 0.0));
}

TEST(ModelRendererFactory, MakesRenderersForItsTypeOnly)
{
    Document document(nullptr);
    ModelContent mesh(document, CubeModel(), "Mesh");
    ModelContent other(document, CubeModel(), "Other");
    CallLog log;
    FakeContent fake(document, "fake", log);
    FakeView3D view;
    OrvikModel::ModelRendererFactory factory("Mesh");

    const std::unique_ptr<OrvikCore::IContentRenderer> renderer(
        factory.CreateRenderer(&mesh, &view));

    EXPECT_EQ(factory.GetName(), "Mesh");
    EXPECT_NE(renderer, nullptr);
    EXPECT_EQ(factory.CreateRenderer(&other, &view), nullptr);
    EXPECT_EQ(factory.CreateRenderer(&fake, &view), nullptr);
    EXPECT_EQ(factory.CreateRenderer(&mesh, nullptr), nullptr);
}
