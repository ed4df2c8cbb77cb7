#include "OrvikModel/ModelContent.h"
#include "OrvikModel/ModelEntity.h"
#include "TestModels.h"

#include "OrvikCore/Document.h"

#include <TambVizCore/Geometry.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using OrvikCore::Document;
using OrvikCore::PlacedShape;
using OrvikModel::MakeContainerEntity;
using OrvikModel::MakeEntity;
using OrvikModel::ModelContent;
using TambVizCore::EntityId;
using TambVizCore::EntityType;
using TambVizCore::MakePartId;
using TambVizCore::PartKind;
using TambVizCore::RGBAColor;
using TambVizCore::VizBox;
using testing::ElementsAre;

namespace {

class ModelPropertiesTest : public testing::Test
{
protected:
    const OrvikModel::Model& model() const { return *m_content.GetModel(); }
    EntityId entityOf(const wchar_t* name, std::uint64_t partId = 0) const
    {
        return MakeEntity(model(), NodeNamed(model(), name), partId);
    }

    Document m_document{nullptr};
    ModelContent m_content{m_document, FullModel(3), "Test"};
};

} // namespace

TEST_F(ModelPropertiesTest, ContentsAreNumbered)
{
    EXPECT_EQ(m_content.GetContentNumber(), 3u);
}

TEST_F(ModelPropertiesTest, ListsTheTopNodesBelowTheContent)
{
    std::vector<EntityId> children;
    std::vector<EntityId> ofContainer;

    ASSERT_TRUE(m_content.GetChildren(EntityId(), children));
    ASSERT_TRUE(m_content.GetChildren(MakeContainerEntity(model()), ofContainer));

    EXPECT_EQ(children.size(), 9u);
    EXPECT_EQ(children[0], entityOf(L"assembly"));
    EXPECT_EQ(children, ofContainer);
}

TEST_F(ModelPropertiesTest, ListsFacesEdgesAndVerticesBelowABody)
{
    std::vector<EntityId> children;

    ASSERT_TRUE(m_content.GetChildren(entityOf(L"closed"), children));

    ASSERT_EQ(children.size(), 26u);
    EXPECT_TRUE(children[5].IsFace());
    EXPECT_TRUE(children[17].IsEdge());
    EXPECT_TRUE(children[25].IsVertex());
    EXPECT_EQ(children[25].SubEntityIndex(), 7);
}

TEST_F(ModelPropertiesTest, EveryChildKnowsItsParent)
{
    std::vector<EntityId> open{EntityId()};
    std::size_t seen = 0;
    while (!open.empty()) {
        const EntityId above = open.back();
        open.pop_back();
        std::vector<EntityId> children;
        ASSERT_TRUE(m_content.GetChildren(above, children));
        for (const EntityId& child : children) {
            EntityId parent;
            ASSERT_TRUE(m_content.GetParent(child, parent));
            EXPECT_EQ(parent, above.IsEmpty() ? MakeContainerEntity(model()) : above);
            open.push_back(child);
            ++seen;
        }
    }
    EXPECT_EQ(seen, model().InOrder().size() + 10 * 26);
}

TEST_F(ModelPropertiesTest, NamesNodesAndNoParts)
{
    std::wstring name;

    ASSERT_TRUE(m_content.GetName(entityOf(L"right body"), name));
    EXPECT_EQ(name, L"right body");
    ASSERT_TRUE(m_content.GetName(MakeContainerEntity(model()), name));
    EXPECT_EQ(name, L"full.step");
    EXPECT_FALSE(m_content.GetName(entityOf(L"closed", MakePartId(PartKind::Face, 0)), name));
}

TEST(ModelProperties, ColorsComeFromThePartThenFromTheNearestNodeAbove)
{
    Document document(nullptr);
    NodePtr top = MakeNode(OrvikModel::NodeKind::Assembly, L"top");
    top->color = RGBAColor(1, 2, 3);
    top->layers = {L"b", L"c"};
    auto& body = AddChild(*top, MakeCube(OrvikModel::NodeKind::Body, L"body"));
    body.partColors = {{MakePartId(PartKind::Face, 1), RGBAColor(9, 9, 9)}};
    body.layers = {L"a", L"b"};
    std::vector<NodePtr> nodes;
    nodes.push_back(std::move(top));
    nodes.push_back(MakeCube(OrvikModel::NodeKind::Body, L"plain"));
    const ModelContent content(document, MakeModel(std::move(nodes)), "Test");
    const auto& model = *content.GetModel();
    RGBAColor color;
    std::vector<std::wstring> layers;

    ASSERT_TRUE(content.GetColor(MakeEntity(model, body), color));
    EXPECT_EQ(color, RGBAColor(1, 2, 3));
    ASSERT_TRUE(content.GetColor(MakeEntity(model, body, MakePartId(PartKind::Face, 1)), color));
    EXPECT_EQ(color, RGBAColor(9, 9, 9));
    EXPECT_FALSE(content.GetColor(MakeEntity(model, NodeNamed(model, L"plain")), color));
    ASSERT_TRUE(content.GetLayers(MakeEntity(model, body), layers));
    EXPECT_THAT(layers, ElementsAre(L"a", L"b", L"c"));
}

TEST_F(ModelPropertiesTest, BoxesAreThoseOfTheWorld)
{
    VizBox box;

    ASSERT_TRUE(m_content.GetBox(entityOf(L"right body"), box));
    EXPECT_EQ(box, VizBox(5, 0, 0, 7, 2, 2));
    ASSERT_TRUE(m_content.GetBox(entityOf(L"right body", MakePartId(PartKind::Face, 5)), box));
    EXPECT_EQ(box, VizBox(5, 0, 2, 7, 2, 2));
    ASSERT_TRUE(m_content.GetBox(entityOf(L"assembly"), box));
    EXPECT_EQ(box, VizBox(0, 0, 0, 7, 2, 2));
    EXPECT_FALSE(m_content.GetBox(entityOf(L"views"), box));
    EXPECT_FALSE(m_content.GetBox(entityOf(L"closed", MakePartId(PartKind::Face, 6)), box));
}

TEST_F(ModelPropertiesTest, ShapesAreListedWhereTheyStand)
{
    std::vector<PlacedShape> shapes;

    ASSERT_TRUE(m_content.GetShapes(entityOf(L"assembly"), shapes));
    ASSERT_EQ(shapes.size(), 2u);
    EXPECT_EQ(shapes[1].name, L"right body");
    EXPECT_EQ(shapes[1].body, entityOf(L"right body"));
    EXPECT_EQ(shapes[1].world[12], 5.0);
    EXPECT_EQ(shapes[0].geometry, shapes[1].geometry);
    ASSERT_TRUE(m_content.GetShapes(EntityId(), shapes));
    EXPECT_EQ(shapes.size(), 7u); // Without annotations.
    ASSERT_TRUE(m_content.GetShapes(entityOf(L"closed", MakePartId(PartKind::Face, 2)), shapes));
    EXPECT_EQ(shapes[0].partId, MakePartId(PartKind::Face, 2));
    EXPECT_EQ(shapes[0].geometry->Parts().size(), 26u);
    EXPECT_FALSE(m_content.GetShapes(entityOf(L"front"), shapes));
}

TEST_F(ModelPropertiesTest, EntitiesOfOthersHaveNoProperties)
{
    const EntityId other(1, 9, EntityType::Assembly);
    std::vector<EntityId> entities;
    EntityId parent;
    std::vector<std::wstring> layers;
    VizBox box;

    EXPECT_FALSE(m_content.GetChildren(other, entities));
    EXPECT_FALSE(m_content.GetParent(other, parent));
    EXPECT_FALSE(m_content.GetLayers(other, layers));
    EXPECT_FALSE(m_content.GetBox(other, box));
    EXPECT_FALSE(m_content.GetParent(MakeContainerEntity(model()), parent));
}

TEST(AddModel, GivesEachContentOfADocumentItsOwnNumber)
{
    Document document(nullptr);

    const ModelContent& first = OrvikModel::AddModel(document, CubeModel(1, 0), "Mesh");
    const ModelContent& second = OrvikModel::AddModel(document, CubeModel(1, 0), "Other");

    EXPECT_EQ(first.GetContentNumber(), 1u);
    EXPECT_EQ(second.GetContentNumber(), 2u);
    EXPECT_EQ(second.GetTypeName(), "Other");
    EXPECT_EQ(document.GetContentList().size(), 2u);
}

TEST(AddModel, LeavesOutNumbersThatStandForOtherRows)
{
    Document document(nullptr);
    document.AddContent(*new ModelContent(document, CubeModel(1, 10000), "Mesh"));

    EXPECT_EQ(OrvikModel::AddModel(document, CubeModel(1, 0), "Mesh").GetContentNumber(), 11000u);
}
