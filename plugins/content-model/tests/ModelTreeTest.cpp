#include "FakeContent.h"
#include "FakeSession.h"
#include "FakeView3D.h"
#include "OrvikModel/ModelContent.h"
#include "OrvikModel/ModelEntity.h"
#include "OrvikModel/ModelRenderer3D.h"
#include "OrvikModel/ModelTreeRenderer.h"
#include "StoringViewTree.h"
#include "TestModels.h"

#include "OrvikCore/ARendererTree.h"
#include "OrvikCore/Document.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>

using OrvikCore::ARendererTree;
using OrvikCore::Document;
using OrvikCore::TreeBuilder;
using OrvikModel::MakeEntity;
using OrvikModel::ModelContent;
using OrvikModel::ModelRenderer3D;
using OrvikModel::ModelTreeRenderer;
using OrvikModel::NodeKind;
using TambVizCore::EntityId;
using TambVizCore::EntityType;
using TambVizCore::MakePartId;
using TambVizCore::PartKind;
using TambVizCore::RenderId;

namespace {

constexpr std::uint64_t kScene = ARendererTree::kSceneRowId;

/// A content with every kind of node in a tree and in a scene.
class ModelTreeTest : public testing::Test
{
protected:
    const OrvikModel::Model& model() const { return *m_content.GetModel(); }
    RenderId pathOf(const wchar_t* name)
    {
        RenderId path;
        EXPECT_TRUE(
            m_renderer.ConvertToRenderId(MakeEntity(model(), NodeNamed(model(), name)), path));
        return path;
    }

    Document m_document{nullptr};
    ModelContent m_content{m_document, FullModel(), "Test"};
    StoringViewTree m_tree;
    FakeView3D m_view;
    ModelRenderer3D m_renderer3D{m_content, m_view};
    ModelTreeRenderer m_renderer{m_content, &m_tree, nullptr};
};

} // namespace

TEST_F(ModelTreeTest, BuildsARowForTheSceneTheContentAndEachNode)
{
    ASSERT_TRUE(m_renderer.Render());

    EXPECT_EQ(m_tree.Paths().size(), 2 + model().InOrder().size());
    ASSERT_NE(m_tree.Find(TreePathOf({kScene, 1})), nullptr);
    EXPECT_EQ(m_tree.Find(TreePathOf({kScene, 1}))->name, L"full.step");
    EXPECT_EQ(m_tree.Find(pathOf(L"right body"))->name, L"right body");
    EXPECT_EQ(m_tree.m_openAtEnd, 0u);
}

TEST_F(ModelTreeTest, EveryRowLeadsToItsEntityAndBack)
{
    MakeCurrentFakeSession().AddRenderer(&m_renderer, /*keep=*/true);
    m_renderer.Render();
    for (const RenderId& path : m_tree.Paths())
        ASSERT_TRUE(m_renderer.ExpandNode(path)) << path.ToString();

    for (const RenderId& path : m_tree.Paths()) {
        EntityId entity;
        EntityId extracted;
        RenderId back;
        ASSERT_TRUE(m_renderer.ConvertToEntityId(path, entity)) << path.ToString();
        m_tree.GetTreeBuilder()->ExtractEntityId(path, extracted);
        EXPECT_EQ(extracted, entity) << path.ToString();
        ASSERT_TRUE(m_renderer.ConvertToRenderId(entity, back)) << entity.ToString();
        EXPECT_EQ(back, path);
    }
}

TEST_F(ModelTreeTest, EveryRowWithAPictureLeadsToItAndBack)
{
    m_renderer3D.Render();
    m_renderer.Render();
    for (const RenderId& path : m_tree.Paths())
        m_renderer.ExpandNode(path);

    std::size_t pictures = 0;
    for (const RenderId& path : m_tree.Paths()) {
        EntityId entity;
        EntityId drawn;
        RenderId id;
        RenderId back;
        ASSERT_TRUE(m_renderer.ConvertToEntityId(path, entity));
        if (!m_renderer3D.ConvertToRenderId(entity, id))
            continue;
        ++pictures;
        ASSERT_TRUE(m_renderer3D.ConvertToEntityId(id, drawn));
        ASSERT_TRUE(m_renderer.ConvertToRenderId(drawn, back));
        EXPECT_EQ(back, path);
    }
    // The container, seventeen nodes, and 26 parts of each of the ten shapes.
    EXPECT_EQ(pictures, 1u + 17u + 10u * 26u);
}

TEST_F(ModelTreeTest, RowsOfViewsAndCapturesNameThemselves)
{
    MakeCurrentFakeSession().AddRenderer(&m_renderer, /*keep=*/true);
    m_renderer.Render();
    const RenderId top = pathOf(L"top");
    EntityId entity;

    m_tree.GetTreeBuilder()->ExtractEntityId(top, entity);

    EXPECT_EQ(top[2], NodeNamed(model(), L"views").number);
    EXPECT_EQ(entity.Type(), EntityType::View);
    EXPECT_EQ(entity.Owner(), static_cast<std::uint64_t>(EntityType::AnnotationSet));
    EXPECT_EQ(entity.Value(), top[3]);
    m_tree.GetTreeBuilder()->ExtractEntityId(pathOf(L"section"), entity);
    EXPECT_EQ(entity.Type(), EntityType::Capture);
    EXPECT_EQ(entity.Owner(), static_cast<std::uint64_t>(EntityType::AnnotationSet));
}

TEST_F(ModelTreeTest, TypesOfPmiHaveTheirNumberAsRowId)
{
    m_renderer.Render();

    const std::uint64_t pmi = NodeNamed(model(), L"PMI").number;
    EXPECT_NE(m_tree.Find(TreePathOf({kScene, 1, pmi, 10101})), nullptr);
    EXPECT_NE(m_tree.Find(TreePathOf({kScene, 1, pmi, 10103})), nullptr);
    EXPECT_EQ(m_tree.Find(pathOf(L"drawn"))->name, L"drawn: 12 +0.1");
}

TEST_F(ModelTreeTest, FacesEdgesAndVerticesGetTheirRowsWhenABodyIsOpened)
{
    m_renderer.Render();
    const RenderId body = pathOf(L"left body");
    const std::size_t before = m_tree.Paths().size();

    ASSERT_TRUE(m_renderer.ExpandNode(body));
    ASSERT_TRUE(m_renderer.ExpandNode(body));

    EXPECT_EQ(m_tree.Paths().size(), before + 26);
    EXPECT_EQ(m_tree.Find(body)->children[6]->name, L"edge 0");
    EXPECT_EQ(m_tree.Find(body)->name, L"left body");
    EXPECT_EQ(m_tree.m_openAtEnd, 0u);
}

TEST_F(ModelTreeTest, OpeningABodyLeavesTheRootPathAsItIs)
{
    m_renderer.Render();
    m_renderer.ExpandNode(pathOf(L"left body"));
    RenderId path;

    m_tree.GetTreeBuilder()->BuildRenderId(path, EntityId(1, 42, EntityType::Body));

    EXPECT_EQ(path[0], kScene);
    EXPECT_EQ(path[1], 1u);
    EXPECT_EQ(path.Last(), 42u);
    EXPECT_EQ(path.Length(), 3);
}

TEST_F(ModelTreeTest, RenderingTwiceBuildsOnceAndAgainAfterTheTreeWasCleared)
{
    m_renderer.Render();
    m_renderer.Render();
    const std::size_t rows = m_tree.Paths().size();
    m_tree.GetTreeBuilder()->ClearAll();

    EXPECT_TRUE(m_renderer.Rerender());

    EXPECT_EQ(m_tree.Paths().size(), rows);
    EXPECT_EQ(m_tree.m_constructions, 2);
}

TEST_F(ModelTreeTest, AddsItsContainerToASceneThatIsOpen)
{
    ModelContent other(m_document, CubeModel(2, 7), "Test");
    ModelTreeRenderer second(other, &m_tree, nullptr);
    TreeBuilder& builder = *m_tree.GetTreeBuilder();

    builder.ConstructionBegin();
    builder.SceneBegin(kScene, L"both");
    m_renderer.Render();
    second.Render();
    builder.SceneEnd();
    builder.ConstructionEnd();

    ASSERT_EQ(m_tree.m_top.children.size(), 1u);
    EXPECT_EQ(m_tree.m_top.children[0]->children.size(), 2u);
    EXPECT_EQ(m_tree.m_constructions, 1);
    EXPECT_NE(m_tree.Find(TreePathOf({kScene, 7, 2})), nullptr);
}

TEST_F(ModelTreeTest, KnowsNothingOfOtherContents)
{
    ModelContent other(m_document, FullModel(7), "Test");
    ModelTreeRenderer second(other, &m_tree, nullptr);
    m_renderer.Render();
    m_tree.GetTreeBuilder()->ClearAll();
    second.Render();
    for (const RenderId& path : m_tree.Paths())
        second.ExpandNode(path);

    for (const RenderId& path : m_tree.Paths()) {
        EntityId entity;
        RenderId back;
        ASSERT_TRUE(second.ConvertToEntityId(path, entity));
        EXPECT_EQ(m_renderer.ConvertToRenderId(entity, back), path.Length() == 1)
            << entity.ToString();
        EXPECT_EQ(m_renderer.ConvertToEntityId(path, entity), path.Length() == 1);
        EXPECT_EQ(m_renderer.ExpandNode(path), path.Length() == 1);
    }
}

TEST(ModelTree, GroupsOfViewsOfSeveralContentsAreToldApart)
{
    Document document(nullptr);
    ModelContent first(document, FullModel(1), "Test");
    ModelContent second(document, FullModel(2), "Test");

    for (const wchar_t* group : {L"views", L"captures"}) {
        const EntityId one = MakeEntity(*first.GetModel(), NodeNamed(*first.GetModel(), group));
        const EntityId other = MakeEntity(*second.GetModel(), NodeNamed(*second.GetModel(), group));

        EXPECT_NE(one, other);
        EXPECT_TRUE(OrvikModel::FindEntity(*first.GetModel(), one).IsFound());
        EXPECT_FALSE(OrvikModel::FindEntity(*first.GetModel(), other).IsFound());
    }
    // What the numbers of the types would come to, whatever content the path is of.
    StoringViewTree tree;
    for (const std::uint64_t type : {10010u, 10012u}) {
        EntityId one;
        EntityId other;
        tree.GetTreeBuilder()->ExtractEntityId(TreePathOf({kScene, 1, type}), one);
        tree.GetTreeBuilder()->ExtractEntityId(TreePathOf({kScene, 2, type}), other);
        EXPECT_EQ(one, other);
    }
}

TEST_F(ModelTreeTest, PathsThatLeadNowhereAreRefused)
{
    m_renderer.Render();
    EntityId entity;
    TreeBuilder::TreeItemStyles style{};

    for (const RenderId& path :
         {RenderId(), TreePathOf({1}), TreePathOf({kScene, 2}), TreePathOf({kScene, 1, 999}),
          TreePathOf({kScene, 1, 1, 3}), TreePathOf({kScene, 1, 10101}),
          TreePathOf({kScene, 1, 1, MakePartId(PartKind::Face, 0)})}) {
        EXPECT_FALSE(m_renderer.ConvertToEntityId(path, entity)) << path.ToString();
        EXPECT_FALSE(m_renderer.ExpandNode(path));
        EXPECT_FALSE(m_renderer.GetNodeStyle(path, style));
    }
}

TEST_F(ModelTreeTest, TellsTheKindOfEachRow)
{
    using Style = TreeBuilder::TreeItemStyles;
    const auto styleOf = [this](const RenderId& path) {
        Style style{};
        EXPECT_TRUE(m_renderer.GetNodeStyle(path, style));
        return style;
    };
    m_renderer.Render();
    m_renderer.ExpandNode(pathOf(L"closed"));
    RenderId face = pathOf(L"closed");
    face.AddValue(MakePartId(PartKind::Face, 3));

    EXPECT_EQ(styleOf(TreePathOf({kScene})), Style::Scene);
    EXPECT_EQ(styleOf(TreePathOf({kScene, 1})), Style::Container);
    EXPECT_EQ(styleOf(pathOf(L"assembly")), Style::Assembly);
    EXPECT_EQ(styleOf(pathOf(L"left")), Style::AssemblyReference);
    EXPECT_EQ(styleOf(pathOf(L"left body")), Style::Body);
    EXPECT_EQ(styleOf(pathOf(L"closed")), Style::PolyBody);
    EXPECT_EQ(styleOf(pathOf(L"open")), Style::PolyBody);
    EXPECT_EQ(styleOf(face), Style::Geometry);
    EXPECT_EQ(styleOf(pathOf(L"wire")), Style::Wire);
    EXPECT_EQ(styleOf(pathOf(L"points")), Style::PointSet);
    EXPECT_EQ(styleOf(pathOf(L"cloud")), Style::PointCloud);
    EXPECT_EQ(styleOf(pathOf(L"PMI")), Style::PMI);
    EXPECT_EQ(styleOf(pathOf(L"type")), Style::PMIType10101);
    EXPECT_EQ(styleOf(pathOf(L"drawn")), Style::FTAGeometry);
    EXPECT_EQ(styleOf(pathOf(L"views")), Style::Views);
    EXPECT_EQ(styleOf(pathOf(L"front")), Style::View);
    EXPECT_EQ(styleOf(pathOf(L"captures")), Style::Captures);
    EXPECT_EQ(styleOf(pathOf(L"section")), Style::Capture);
}

TEST_F(ModelTreeTest, ClearingEmptiesATreeOfItsOwn)
{
    m_renderer.Render();

    m_renderer.ClearAll();

    EXPECT_TRUE(m_tree.Paths().empty());
}

TEST_F(ModelTreeTest, ToolTipsNameFileNodeAndPart)
{
    m_renderer.Render();
    RenderId face = pathOf(L"closed");
    m_renderer.ExpandNode(face);
    face.AddValue(MakePartId(PartKind::Face, 3));

    EXPECT_EQ(m_renderer.GetToolTip(TreePathOf({kScene, 1})), L"/models/full.step");
    EXPECT_EQ(m_renderer.GetToolTip(face), L"closed, face 3");
    EXPECT_EQ(m_renderer.GetToolTip(TreePathOf({kScene})), L"");
}

TEST_F(ModelTreeTest, WithoutATreeNothingIsBuilt)
{
    m_renderer.SetView(nullptr);

    EXPECT_FALSE(m_renderer.Render());
    EXPECT_FALSE(m_renderer.ExpandNode(TreePathOf({kScene, 1})));
}

TEST(ModelTreeRenderer, RowsOfHiddenNodesAreDisabled)
{
    Document document(nullptr);
    std::vector<NodePtr> nodes;
    nodes.push_back(MakeCube(NodeKind::Body, L"hidden"));
    nodes[0]->isShown = false;
    ModelContent content(document, MakeModel(std::move(nodes)), "Test");
    StoringViewTree tree;
    ModelTreeRenderer renderer(content, &tree, nullptr);

    renderer.Render();

    EXPECT_FALSE(tree.Find(TreePathOf({kScene, 1, 1}))->isEnabled);
}

TEST(ModelTreeRenderer, BuildsDeepTreesWithoutRecursion)
{
    Document document(nullptr);
    std::vector<NodePtr> nodes;
    nodes.push_back(MakeNode(NodeKind::Assembly, L"top"));
    OrvikModel::ModelNode* last = nodes[0].get();
    for (int i = 0; i < 1000; ++i)
        last = &AddChild(*last, MakeNode(NodeKind::Assembly, L"deep"));
    ModelContent content(document, MakeModel(std::move(nodes)), "Test");
    StoringViewTree tree;
    ModelTreeRenderer renderer(content, &tree, nullptr);

    renderer.Render();

    RenderId path;
    ASSERT_TRUE(renderer.ConvertToRenderId(MakeEntity(*content.GetModel(), *last), path));
    EXPECT_EQ(path.Length(), 1003);
    EXPECT_NE(tree.Find(path), nullptr);
}

TEST(ModelTreeRendererFactory, MakesRenderersForItsTypeOnly)
{
    Document document(nullptr);
    ModelContent mesh(document, CubeModel(), "Mesh");
    ModelContent other(document, CubeModel(), "Other");
    CallLog log;
    FakeContent fake(document, "fake", log);
    StoringViewTree tree;
    OrvikModel::ModelTreeRendererFactory factory("Mesh");

    const std::unique_ptr<ARendererTree> renderer(factory.CreateRenderer(&mesh, &tree, nullptr));

    EXPECT_EQ(factory.GetName(), "Mesh");
    ASSERT_NE(renderer, nullptr);
    EXPECT_TRUE(renderer->IsRendererFor(&mesh));
    EXPECT_FALSE(renderer->IsRendererFor(&other));
    EXPECT_EQ(factory.CreateRenderer(&other, &tree, nullptr), nullptr);
    EXPECT_EQ(factory.CreateRenderer(&fake, &tree, nullptr), nullptr);
}
