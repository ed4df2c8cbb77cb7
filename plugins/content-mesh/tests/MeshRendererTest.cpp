#include "FakeContent.h"
#include "FakeView3D.h"
#include "Models.h"
#include "content/MeshContent.h"
#include "content/MeshRenderer3D.h"

#include "OrvikCore/Document.h"

#include <TambVizCore/GeoNode.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>

using OrvikCore::Document;
using OrvikMesh::MakeMeshEntity;
using OrvikMesh::MeshContent;
using OrvikMesh::MeshRenderer3D;
using TambVizCore::EntityId;
using TambVizCore::EntityType;
using TambVizCore::MakePartId;
using TambVizCore::PartKind;
using TambVizCore::RenderId;

namespace {

RenderId idOf(std::initializer_list<std::uint64_t> path)
{
    RenderId id(RenderId::kOriginView3D);
    for (const std::uint64_t value : path)
        id.AddValue(value);
    return id;
}

class MeshRendererTest : public testing::Test
{
protected:
    const OrvikMesh::MeshModel& model() const { return *m_content.Model(); }
    TambVizCore::GeoNode* bodyNode(std::uint64_t body)
    {
        return m_view.m_root.FindChild(1)->FindChild(body)->AsGeoNode();
    }

    Document m_document{nullptr};
    MeshContent m_content{m_document, CubeModel(2)};
    FakeView3D m_view;
    MeshRenderer3D m_renderer{m_content, m_view};
};

} // namespace

TEST_F(MeshRendererTest, BuildsANodeForTheContentAndOneForEachBody)
{
    ASSERT_TRUE(m_renderer.Render());

    ASSERT_EQ(m_view.m_root.ChildCount(), 1u);
    EXPECT_EQ(m_view.m_root.ChildAt(0)->Name(), "cubes.stl");
    ASSERT_EQ(m_view.m_root.ChildAt(0)->ChildCount(), 2u);
    EXPECT_EQ(bodyNode(2)->Name(), "cube 1");
    EXPECT_EQ(bodyNode(2)->Entity(), EntityId(2, 1, EntityType::Mesh));
    EXPECT_EQ(bodyNode(2)->GetGeometry(), model().bodies[1]->Present());
}

TEST_F(MeshRendererTest, RenderingTwiceBuildsOnce)
{
    m_renderer.Render();
    m_renderer.Render();

    EXPECT_EQ(m_view.m_root.ChildCount(), 1u);
}

TEST_F(MeshRendererTest, TakesANodeIdThatIsFree)
{
    m_view.m_root.CreateChildNode(1);
    m_renderer.Render();

    EXPECT_NE(m_view.m_root.FindChild(2), nullptr);
    RenderId id;
    ASSERT_TRUE(m_renderer.ConvertToRenderId(MakeMeshEntity(model(), 0, 0), id));
    EXPECT_EQ(id, idOf({2, 1}));
}

TEST_F(MeshRendererTest, KeepsBoxAndSphere)
{
    m_renderer.Render();

    ASSERT_NE(m_renderer.GetBoxLo(), nullptr);
    EXPECT_EQ(m_renderer.GetBoxHi()[0], 3.0);
    float center[3];
    m_renderer.GetGeometryCenter(center);
    EXPECT_EQ(center[0], 1.5f);
    EXPECT_GT(m_renderer.GetGeometryRadius(), 1.5f);
}

TEST_F(MeshRendererTest, DrawsOnlyItsOwnContent)
{
    CallLog log;
    FakeContent fake(m_document, "fake", log);
    MeshContent other(m_document, CubeModel());

    EXPECT_TRUE(m_renderer.IsRendererFor(&m_content));
    EXPECT_FALSE(m_renderer.IsRendererFor(&other));
    EXPECT_FALSE(m_renderer.IsRendererFor(&fake));
    EXPECT_FALSE(m_renderer.IsRendererFor(nullptr));
}

TEST_F(MeshRendererTest, ConvertsBodiesBothWays)
{
    m_renderer.Render();
    const EntityId entity = MakeMeshEntity(model(), 1, 0);
    RenderId id;
    EntityId back;

    ASSERT_TRUE(m_renderer.ConvertToRenderId(entity, id));
    ASSERT_TRUE(m_renderer.ConvertToEntityId(id, back));

    EXPECT_EQ(id, idOf({1, 2}));
    EXPECT_EQ(back, entity);
}

TEST_F(MeshRendererTest, ConvertsEveryPartBothWays)
{
    model().bodies[0]->WithParts();
    m_renderer.Render();
    for (const TambVizCore::GeometryPart& part : model().bodies[0]->Present()->Parts()) {
        const EntityId entity = MakeMeshEntity(model(), 0, part.id);
        RenderId id;
        EntityId back;
        ASSERT_TRUE(m_renderer.ConvertToRenderId(entity, id));
        ASSERT_TRUE(m_renderer.ConvertToEntityId(id, back));
        EXPECT_EQ(id.Last(), part.id);
        EXPECT_EQ(back, entity);
    }
}

TEST_F(MeshRendererTest, ConvertingAPartGivesTheNodeTheShapeThatHasIt)
{
    m_renderer.Render();
    EXPECT_TRUE(bodyNode(1)->GetGeometry()->Parts().empty());
    model().bodies[0]->WithParts();
    RenderId id;

    ASSERT_TRUE(m_renderer.ConvertToRenderId(
        MakeMeshEntity(model(), 0, MakePartId(PartKind::Edge, 3)), id));

    EXPECT_EQ(bodyNode(1)->GetGeometry(), model().bodies[0]->Present());
    EXPECT_FALSE(bodyNode(1)->GetGeometry()->Parts().empty());
}

TEST_F(MeshRendererTest, ForeignEntitiesAndIdsAreRefused)
{
    model().bodies[0]->WithParts();
    m_renderer.Render();
    RenderId id;
    EntityId entity;

    EXPECT_FALSE(m_renderer.ConvertToRenderId(EntityId(1, 1, EntityType::Body), id));
    EXPECT_FALSE(m_renderer.ConvertToRenderId(EntityId(1, 7, EntityType::Mesh), id));
    EXPECT_FALSE(m_renderer.ConvertToRenderId(EntityId(3, 1, EntityType::Mesh), id));
    EXPECT_FALSE(m_renderer.ConvertToRenderId(EntityId(0, 1, EntityType::Mesh), id));
    EXPECT_FALSE(m_renderer.ConvertToRenderId(
        MakeMeshEntity(model(), 0, MakePartId(PartKind::Face, 6)), id));
    EXPECT_FALSE(m_renderer.ConvertToEntityId(idOf({1}), entity));
    EXPECT_FALSE(m_renderer.ConvertToEntityId(idOf({2, 1}), entity));
    EXPECT_FALSE(m_renderer.ConvertToEntityId(idOf({1, 3}), entity));
    EXPECT_FALSE(m_renderer.ConvertToEntityId(idOf({1, 0}), entity));
    EXPECT_FALSE(m_renderer.ConvertToEntityId(idOf({1, 1, 12345}), entity));
    EXPECT_FALSE(m_renderer.ConvertToEntityId(RenderId(), entity));
}

TEST_F(MeshRendererTest, NothingIsConvertedBeforeItIsDrawn)
{
    RenderId id;
    EntityId entity;

    EXPECT_FALSE(m_renderer.ConvertToRenderId(MakeMeshEntity(model(), 0, 0), id));
    EXPECT_FALSE(m_renderer.ConvertToEntityId(idOf({0, 1}), entity));
}

TEST_F(MeshRendererTest, AnEntityIsDrawnOnce)
{
    m_renderer.Render();
    std::vector<RenderId> ids;

    ASSERT_TRUE(m_renderer.ExpandRenderId(idOf({1, 2}), ids));

    EXPECT_THAT(ids, testing::ElementsAre(idOf({1, 2})));
    EXPECT_FALSE(m_renderer.ExpandRenderId(idOf({9, 2}), ids));
}

TEST_F(MeshRendererTest, ToolTipNamesBodyAndPart)
{
    model().bodies[0]->WithParts();
    m_renderer.Render();

    EXPECT_EQ(m_renderer.GetToolTip(idOf({1, 1})), L"cube 0");
    EXPECT_EQ(m_renderer.GetToolTip(idOf({1, 1, MakePartId(PartKind::Face, 5)})),
              L"cube 0, face 5");
    EXPECT_EQ(m_renderer.GetToolTip(idOf({5})), L"");
}

TEST_F(MeshRendererTest, ListsItsBodies)
{
    std::vector<EntityId> bodies;

    ASSERT_TRUE(m_renderer.GetBodyList(bodies));

    EXPECT_THAT(bodies, testing::ElementsAre(EntityId(1, 1, EntityType::Mesh),
                                             EntityId(2, 1, EntityType::Mesh)));
}

TEST_F(MeshRendererTest, ClearingTakesTheNodesAway)
{
    m_renderer.Render();

    m_renderer.ClearAll();

    EXPECT_EQ(m_view.m_root.ChildCount(), 0u);
    EXPECT_EQ(m_renderer.GetBoxLo(), nullptr);
}

TEST_F(MeshRendererTest, SurvivesAViewThatWasCleared)
{
    m_renderer.Render();
    m_view.m_root.RemoveAllChildren();
    RenderId id;

    EXPECT_FALSE(m_renderer.ConvertToRenderId(MakeMeshEntity(model(), 0, 0), id));
    EXPECT_TRUE(m_renderer.Rerender());

    EXPECT_EQ(m_view.m_root.ChildCount(), 1u);
}

TEST_F(MeshRendererTest, OutlivesItsContent)
{
    auto content = std::make_unique<MeshContent>(m_document, CubeModel());
    MeshRenderer3D renderer(*content, m_view);
    content.reset();

    EXPECT_TRUE(renderer.Render());
    RenderId id;
    EXPECT_TRUE(renderer.ConvertToRenderId(EntityId(1, 1, EntityType::Mesh), id));
}

TEST_F(MeshRendererTest, DestructionTakesTheNodesAway)
{
    {
        MeshRenderer3D renderer(m_content, m_view);
        renderer.Render();
        EXPECT_EQ(m_view.m_root.ChildCount(), 1u);
    }

    EXPECT_EQ(m_view.m_root.ChildCount(), 0u);
}

TEST_F(MeshRendererTest, BodiesWithAColorColorTheirNode)
{
    auto colored = CubeModel();
    colored->bodies[0] = std::make_unique<OrvikMesh::MeshBody>(L"red", PlainGeometry(Cube()),
                                                               TambVizCore::RGBAColor(255, 0, 0));
    MeshContent content(m_document, colored);
    MeshRenderer3D renderer(content, m_view);

    renderer.Render();

    EXPECT_EQ(bodyNode(1)->Color(), TambVizCore::RGBAColor(255, 0, 0));
}

TEST(MeshRendererFactory, MakesRenderersForMeshesOnly)
{
    Document document(nullptr);
    MeshContent mesh(document, CubeModel());
    CallLog log;
    FakeContent fake(document, "fake", log);
    FakeView3D view;
    OrvikMesh::MeshRendererFactory factory;

    const std::unique_ptr<OrvikCore::IContentRenderer> renderer(
        factory.CreateRenderer(&mesh, &view));

    EXPECT_EQ(factory.GetName(), mesh.GetTypeName());
    EXPECT_NE(renderer, nullptr);
    EXPECT_EQ(factory.CreateRenderer(&fake, &view), nullptr);
    EXPECT_EQ(factory.CreateRenderer(&mesh, nullptr), nullptr);
}
