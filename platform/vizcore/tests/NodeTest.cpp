#include "TestGeometry.h"

#include <TambVizCore/GeoNode.h>
#include <TambVizCore/Node.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <stdexcept>
#include <string>

namespace TambVizCore {
namespace {

using ::testing::ElementsAre;
using ::testing::StrEq;
using ::testing::ThrowsMessage;

constexpr double kMove[16] = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 10, 0, 0, 1};
constexpr double kDouble[16] = {2, 0, 0, 0, 0, 2, 0, 0, 0, 0, 2, 0, 0, 0, 0, 1};

RenderId path(std::initializer_list<std::uint64_t> values)
{
    RenderId id(RenderId::kOriginView3D);
    for (const std::uint64_t value : values) {
        id.AddValue(value);
    }
    return id;
}

/// root / group 5 / body 7 with the square; the group is moved by 10 along x, the body doubled.
struct Scene : ::testing::Test
{
    Scene()
    {
        group = root.CreateChildNode(5, "group");
        body = group->CreateChildGeoNode(7, "body");
        body->SetGeometry(MakeSquare());
        group->SetTransform(kMove);
        body->SetTransform(kDouble);
    }

    Node root{1, "root"};
    Node* group = nullptr;
    GeoNode* body = nullptr;
};

TEST(Node, StartsVisiblePlainAndUnplaced)
{
    const Node node(3, "name");

    EXPECT_EQ(node.Id(), 3u);
    EXPECT_EQ(node.Name(), "name");
    EXPECT_TRUE(node.IsVisible());
    EXPECT_FALSE(node.IsHighlighted() || node.IsSelected() || node.IsAuxiliary());
    EXPECT_FALSE(node.Color().has_value());
    EXPECT_EQ(node.Transform()[0], 1.0);
    EXPECT_EQ(node.Transform()[12], 0.0);
    EXPECT_EQ(node.Parent(), nullptr);
}

TEST(Node, ChildrenKnowTheirParentAndKeepTheirOrder)
{
    Node root(1);
    Node* const first = root.CreateChildNode(9, "a");
    GeoNode* const second = root.CreateChildGeoNode(4, "b");

    EXPECT_EQ(root.ChildCount(), 2u);
    EXPECT_EQ(root.ChildAt(0), first);
    EXPECT_EQ(root.ChildAt(1), second);
    EXPECT_EQ(root.ChildAt(2), nullptr);
    EXPECT_EQ(second->Parent(), &root);
    EXPECT_EQ(first->AsGeoNode(), nullptr);
    EXPECT_EQ(root.ChildAt(1)->AsGeoNode(), second);
}

TEST(Node, ATakenIdIsRefused)
{
    Node root(1);
    root.CreateChildNode(9);

    EXPECT_THAT(
        [&] { root.CreateChildGeoNode(9); },
        ThrowsMessage<std::invalid_argument>(StrEq("Node: a child with this id exists already.")));
    EXPECT_EQ(root.ChildCount(), 1u);
}

TEST(Node, ANullChildIsRefused)
{
    Node root(1);

    EXPECT_THAT([&] { root.AddChild(nullptr); },
                ThrowsMessage<std::invalid_argument>(StrEq("Node: null child.")));
}

TEST(Node, FindsEachOfManyChildren)
{
    Node root(1);
    for (std::uint64_t id = 100; id < 200; ++id) {
        root.CreateChildNode(id);
        EXPECT_EQ(root.FindChild(id)->Id(), id);
    }

    root.RemoveChild(150);

    EXPECT_EQ(root.FindChild(100)->Id(), 100u);
    EXPECT_EQ(root.FindChild(150), nullptr);
    EXPECT_EQ(root.FindChild(99), nullptr);
    EXPECT_NO_THROW(root.CreateChildNode(150));
}

TEST(Node, ATakenChildHasNoParentAndMayBeAddedAgain)
{
    Node root(1);
    Node* const child = root.CreateChildNode(9);

    std::unique_ptr<Node> taken = root.TakeChild(9);

    ASSERT_EQ(taken.get(), child);
    EXPECT_EQ(taken->Parent(), nullptr);
    EXPECT_EQ(root.TakeChild(9), nullptr);
    EXPECT_EQ(root.AddChild(std::move(taken)), child);
}

TEST(Node, RemovingChildrenDeletesThem)
{
    struct Watched : Node
    {
        explicit Watched(bool& flag) : Node(2), deleted(flag) {}
        ~Watched() override { deleted = true; }
        bool& deleted;
    };
    bool deleted = false;
    Node root(1);
    root.AddChild(std::make_unique<Watched>(deleted));

    root.RemoveAllChildren();

    EXPECT_TRUE(deleted);
    EXPECT_EQ(root.ChildCount(), 0u);
    EXPECT_FALSE(root.RemoveChild(2));
}

TEST_F(Scene, TheRenderIdIsThePathBelowTheRoot)
{
    EXPECT_EQ(body->GetRenderId(), path({5, 7}));
    EXPECT_EQ(root.GetRenderId(), path({}));
}

TEST_F(Scene, FindRenderIdFollowsThePath)
{
    EXPECT_EQ(FindRenderId(root, path({5})).node, group);
    EXPECT_EQ(FindRenderId(root, path({5, 7})).node, body);
    EXPECT_EQ(FindRenderId(root, path({5, 7})).part, -1);
}

TEST_F(Scene, FindRenderIdEndsInAPart)
{
    const NodeMatch match = FindRenderId(root, path({5, 7, MakePartId(PartKind::Edge, 1)}));

    EXPECT_EQ(match.node, body);
    EXPECT_EQ(match.part, kFirstEdge + 1);
}

TEST_F(Scene, FindRenderIdRefusesWhatIsNotThere)
{
    EXPECT_EQ(FindRenderId(root, path({})).node, nullptr);
    EXPECT_EQ(FindRenderId(root, path({6})).node, nullptr);
    EXPECT_EQ(FindRenderId(root, path({5, 8})).node, nullptr);
    EXPECT_EQ(FindRenderId(root, path({5, 7, 99})).node, nullptr);
    EXPECT_EQ(FindRenderId(root, path({5, 7, MakePartId(PartKind::Face, 0), 1})).node, nullptr);
}

TEST_F(Scene, AGeoNodeWithoutGeometryHasNoParts)
{
    body->SetGeometry(nullptr);

    EXPECT_EQ(FindRenderId(root, path({5, 7, MakePartId(PartKind::Face, 0)})).node, nullptr);
    EXPECT_EQ(FindRenderId(root, path({5, 7})).node, body);
}

TEST_F(Scene, WorldTransformsMultiplyFromTheRootDown)
{
    double world[16];

    body->GetWorldTransform(world);

    EXPECT_EQ(world[0], 2.0);
    EXPECT_EQ(world[12], 10.0);
}

TEST_F(Scene, BoundsAreThoseOfTheShownGeometry)
{
    EXPECT_EQ(body->SubtreeBounds(), VizBox(0, 0, 0, 1, 1, 0));
    EXPECT_EQ(group->SubtreeBounds(), VizBox(0, 0, 0, 2, 2, 0));
    EXPECT_EQ(root.SubtreeBounds(), VizBox(10, 0, 0, 12, 2, 0));
    EXPECT_EQ(body->WorldBounds(), VizBox(10, 0, 0, 12, 2, 0));
}

TEST_F(Scene, HiddenNodesDoNotCountForTheBoundsAbove)
{
    ASSERT_FALSE(root.SubtreeBounds().IsEmpty());

    body->SetVisible(false);

    EXPECT_TRUE(root.SubtreeBounds().IsEmpty());
    EXPECT_FALSE(body->SubtreeBounds().IsEmpty());
}

TEST_F(Scene, AuxiliaryNodesDoNotCountForTheBoundsAbove)
{
    group->SetAuxiliary(true);

    EXPECT_TRUE(root.SubtreeBounds().IsEmpty());
}

TEST_F(Scene, BoundsFollowEveryChangeBelow)
{
    ASSERT_EQ(root.SubtreeBounds(), VizBox(10, 0, 0, 12, 2, 0));

    const double back[16] = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, -1, 0, 0, 1};
    group->SetTransform(back);
    EXPECT_EQ(root.SubtreeBounds(), VizBox(-1, 0, 0, 1, 2, 0));
    group->RemoveChild(7);
    EXPECT_TRUE(root.SubtreeBounds().IsEmpty());
}

TEST_F(Scene, VisibilityInTheSceneNeedsEveryNodeAbove)
{
    EXPECT_TRUE(body->IsVisibleInScene());

    group->SetVisible(false);

    EXPECT_TRUE(body->IsVisible());
    EXPECT_FALSE(body->IsVisibleInScene());
}

TEST_F(Scene, AChangeStampsTheNodeAndEverySubtreeAbove)
{
    const std::uint64_t before = root.Stamps().subtree;

    body->SetSelected(true);

    EXPECT_GT(body->Stamps().appearance, before);
    EXPECT_EQ(body->Stamps().subtree, body->Stamps().appearance);
    EXPECT_EQ(root.Stamps().subtree, body->Stamps().appearance);
    EXPECT_LT(root.Stamps().appearance, body->Stamps().appearance);
}

TEST_F(Scene, ASiblingKeepsItsStamps)
{
    const Node* const sibling = root.CreateChildNode(6);
    const std::uint64_t before = sibling->Stamps().subtree;

    body->SetColor(RGBAColor(1, 2, 3));

    EXPECT_EQ(sibling->Stamps().subtree, before);
}

TEST_F(Scene, SettingTheSameValueStampsNothing)
{
    const std::uint64_t before = root.Stamps().subtree;

    body->SetVisible(true);
    body->SetHighlighted(false);
    body->SetSelected(false);
    body->SetColor(std::nullopt);
    body->SetAuxiliary(false);
    body->SetTransform(kDouble);
    body->SetGeometry(body->GetGeometry());
    body->SetCategory(GeoNode::Category::Model);
    body->SetLineWidthPixels(1.0f);
    body->SetPointSizePixels(1.0f);
    body->SetPartShown(0, true);
    body->SetAllParts(PartState::kShown, true);
    root.RemoveChild(77);

    EXPECT_EQ(root.Stamps().subtree, before);
}

TEST_F(Scene, EachKindOfChangeHasItsOwnStamp)
{
    std::uint64_t before = root.Stamps().subtree;
    group->CreateChildNode(8);
    EXPECT_GT(group->Stamps().structure, before);

    before = root.Stamps().subtree;
    group->SetTransform(kDouble);
    EXPECT_GT(group->Stamps().transform, before);

    before = root.Stamps().subtree;
    body->SetPartHighlighted(0, true);
    EXPECT_GT(body->Stamps().parts, before);
    EXPECT_LT(body->Stamps().appearance, before);
}

TEST_F(Scene, FindEntityIgnoresTheSubEntity)
{
    EntityId entity(42, 1, EntityType::Body);
    body->SetEntity(entity);
    entity.SetSubEntity(PartKind::Face, 1);

    EXPECT_EQ(root.FindEntity(entity), body);
    EXPECT_EQ(root.FindEntity(EntityId(43, 1, EntityType::Body)), nullptr);
}

TEST_F(Scene, EntitiesAndRenderIdsConvertBothWays)
{
    EntityId entity(42, 1, EntityType::Body);
    body->SetEntity(entity);
    entity.SetSubEntity(PartKind::Edge, 3);
    RenderId id;
    EntityId back;

    ASSERT_TRUE(FindEntityRenderId(root, entity, id));
    EXPECT_EQ(id, path({5, 7, MakePartId(PartKind::Edge, 3)}));
    ASSERT_TRUE(GetRenderIdEntity(root, id, back));
    EXPECT_EQ(back, entity);
}

TEST_F(Scene, TheEntityOfANodeAboveCounts)
{
    group->SetEntity(EntityId(5, 0, EntityType::Assembly));
    EntityId entity;

    ASSERT_TRUE(GetRenderIdEntity(root, path({5, 7}), entity));
    EXPECT_EQ(entity, EntityId(5, 0, EntityType::Assembly));
}

TEST_F(Scene, ConversionsThatFindNothingClearTheResult)
{
    EntityId entity(9, 9, EntityType::Body);
    RenderId id = path({1});

    EXPECT_FALSE(GetRenderIdEntity(root, path({5, 7}), entity));
    EXPECT_TRUE(entity.IsEmpty());
    EXPECT_FALSE(FindEntityRenderId(root, EntityId(42, 1, EntityType::Body), id));
    EXPECT_EQ(id, RenderId());
}

TEST_F(Scene, AnEmptyEntityIsDrawnByNothing)
{
    RenderId id;

    EXPECT_FALSE(FindEntityRenderId(root, EntityId(), id));
}

TEST_F(Scene, ASubEntityThatTheGeometryLacksIsNotFound)
{
    EntityId entity(42, 1, EntityType::Body);
    body->SetEntity(entity);
    entity.SetSubEntity(PartKind::Face, 2);
    RenderId id;

    EXPECT_FALSE(FindEntityRenderId(root, entity, id));
}

TEST(Node, APartWithAnIdOfItsOwnIsNoSubEntity)
{
    std::string error;
    Node root(1);
    GeoNode* const body = root.CreateChildGeoNode(7);
    body->SetEntity(EntityId(42, 1, EntityType::Body));
    body->SetGeometry(GeometryBuilder().AddPart({PartKind::Face, 0, 0, 12345}).Build(error));
    EntityId entity;

    EXPECT_FALSE(GetRenderIdEntity(root, path({7, 12345}), entity));
    EXPECT_TRUE(entity.IsEmpty());
}

TEST_F(Scene, BoxesOfIdsAreInWorldUnits)
{
    VizBox box;

    ASSERT_TRUE(GetRenderIdBox(root, path({5}), box));
    EXPECT_EQ(box, VizBox(10, 0, 0, 12, 2, 0));
    ASSERT_TRUE(GetRenderIdBox(root, path({5, 7, MakePartId(PartKind::Vertex, 2)}), box));
    EXPECT_EQ(box, VizBox(12, 2, 0, 12, 2, 0));
    EXPECT_FALSE(GetRenderIdBox(root, path({6}), box));
    EXPECT_TRUE(box.IsEmpty());
}

TEST_F(Scene, PrintsTheTreeWithCounts)
{
    group->SetVisible(false);
    std::string text;
    root.Print(text, /*withParts=*/false);
    EXPECT_EQ(text, "root [1]\n"
                    "  group [5] hidden\n"
                    "    body [7] (2 triangles, 4 segments, 4 points)\n");

    text.clear();
    body->Print(text, /*withParts=*/true);
    EXPECT_EQ(text, "body [7] (2 triangles, 4 segments, 4 points; 2 faces, 4 edges, 4 vertices)\n");
}

TEST(GeoNode, EveryPartStartsShownAndPlain)
{
    GeoNode node(7);
    node.SetGeometry(MakeSquare());

    ASSERT_EQ(node.PartStates().size(), 10u);
    for (const PartState& state : node.PartStates()) {
        EXPECT_EQ(state.flags, 1u);
    }
}

TEST(GeoNode, TwoNodesShareAGeometryButNotItsState)
{
    const auto square = MakeSquare();
    GeoNode one(7);
    GeoNode two(8);
    one.SetGeometry(square);
    two.SetGeometry(square);

    EXPECT_TRUE(one.SetPartHighlighted(3, true));

    EXPECT_EQ(one.GetGeometry(), two.GetGeometry());
    EXPECT_TRUE(one.PartStates()[3].Has(PartState::kHighlighted));
    EXPECT_FALSE(two.PartStates()[3].Has(PartState::kHighlighted));
}

TEST(GeoNode, EachFlagOfAPartIsItsOwn)
{
    GeoNode node(7);
    node.SetGeometry(MakeSquare());

    EXPECT_TRUE(node.SetPartShown(0, false));
    EXPECT_TRUE(node.SetPartHighlighted(1, true));
    EXPECT_TRUE(node.SetPartSelected(2, true));
    EXPECT_TRUE(node.SetPartColor(3, RGBAColor(9, 8, 7)));

    EXPECT_EQ(node.PartStates()[0].flags, 0u);
    EXPECT_EQ(node.PartStates()[1].flags, 3u);
    EXPECT_EQ(node.PartStates()[2].flags, 5u);
    EXPECT_EQ(node.PartStates()[3].flags, 9u);
    EXPECT_EQ(node.PartStates()[3].color, RGBAColor(9, 8, 7));
}

TEST(GeoNode, AColourMayBeTakenAway)
{
    GeoNode node(7);
    node.SetGeometry(MakeSquare());
    node.SetPartColor(3, RGBAColor(9, 8, 7));

    EXPECT_FALSE(node.SetPartColor(3, RGBAColor(9, 8, 7)));
    EXPECT_TRUE(node.ClearPartColor(3));
    EXPECT_FALSE(node.ClearPartColor(3));

    EXPECT_FALSE(node.PartStates()[3].Has(PartState::kColored));
}

TEST(GeoNode, PartsOutOfRangeAreIgnored)
{
    GeoNode node(7);
    node.SetGeometry(MakeSquare());

    EXPECT_FALSE(node.SetPartShown(10, false));
    EXPECT_FALSE(node.SetPartColor(kNoPart, RGBAColor()));
    EXPECT_FALSE(GeoNode(8).SetPartSelected(0, true));
}

TEST(GeoNode, TheChangedRunHoldsEveryChangeAndIsTakenOnce)
{
    GeoNode node(7);
    node.SetGeometry(MakeSquare());
    EXPECT_EQ(node.TakeChangedParts().count, 10u);

    node.SetPartSelected(6, true);
    node.SetPartSelected(3, true);
    const PartRange range = node.TakeChangedParts();

    EXPECT_EQ(range.first, 3u);
    EXPECT_EQ(range.count, 4u);
    EXPECT_EQ(node.TakeChangedParts().count, 0u);
}

TEST(GeoNode, SetAllPartsTouchesEveryPartOnce)
{
    GeoNode node(7);
    node.SetGeometry(MakeSquare());
    node.TakeChangedParts();

    node.SetAllParts(PartState::kHighlighted | PartState::kSelected, true);
    EXPECT_EQ(node.PartStates()[9].flags, 7u);
    EXPECT_EQ(node.TakeChangedParts().count, 10u);
    node.SetAllParts(PartState::kSelected, false);
    EXPECT_EQ(node.PartStates()[0].flags, 3u);
}

TEST(GeoNode, PartsThatBothGeometriesHaveKeepTheirState)
{
    std::string error;
    GeoNode node(7);
    node.SetGeometry(MakeSquare());
    node.SetPartSelected(1, true);
    node.SetPartShown(kFirstVertex, false);

    node.SetGeometry(GeometryBuilder()
                         .AddPart({PartKind::Face, 0, 0, MakePartId(PartKind::Face, 1)})
                         .AddPart({PartKind::Face, 0, 0, MakePartId(PartKind::Face, 8)})
                         .AddPart({PartKind::Vertex, 0, 0, MakePartId(PartKind::Vertex, 0)})
                         .Build(error));

    ASSERT_EQ(node.PartStates().size(), 3u);
    EXPECT_EQ(node.PartStates()[0].flags, 5u);
    EXPECT_EQ(node.PartStates()[1].flags, 1u);
    EXPECT_EQ(node.PartStates()[2].flags, 0u);
}

TEST(GeoNode, WidthsAreClamped)
{
    GeoNode node(7);

    node.SetLineWidthPixels(0.0f);
    node.SetPointSizePixels(1000.0f);

    EXPECT_EQ(node.LineWidthPixels(), 1.0f);
    EXPECT_EQ(node.PointSizePixels(), 64.0f);
}

TEST(GeoNode, KeepsItsCategory)
{
    GeoNode node(7);
    EXPECT_EQ(node.GetCategory(), GeoNode::Category::Model);

    node.SetCategory(GeoNode::Category::PMI);

    EXPECT_EQ(node.GetCategory(), GeoNode::Category::PMI);
    EXPECT_GT(node.Stamps().appearance, 0u);
}

TEST_F(Scene, DisplacedNodesAreShownAwayFromHome)
{
    const double away[3] = {0.5, 0, 100};
    group->SetDisplacement(away);

    EXPECT_TRUE(group->IsDisplaced());
    EXPECT_EQ(group->Transform()[12], 10.5);
    EXPECT_EQ(group->Transform()[14], 100.0);
    EXPECT_EQ(body->WorldBounds().Lo()[2], 100.0f);
    double home[16];
    group->GetHomeTransform(home);
    EXPECT_TRUE(std::equal(home, home + 16, kMove));
}

TEST_F(Scene, DisplacementEndsWhereTheNodeWasToTheLastBit)
{
    const double place[16] = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0.1, 1e20, 1.0 / 3, 1};
    const double away[3] = {1e30, 12345.678, 1e-9};
    const double none[3] = {0, 0, 0};
    group->SetTransform(place);
    group->SetDisplacement(away);
    group->SetDisplacement(none);

    EXPECT_FALSE(group->IsDisplaced());
    EXPECT_TRUE(std::equal(place, place + 16, group->Transform()));
}

TEST_F(Scene, TransformOfADisplacedNodeIsWhereItBelongs)
{
    const double away[3] = {0, 0, 100};
    group->SetDisplacement(away);
    const std::uint64_t before = group->Stamps().transform;
    group->SetTransform(kMove);
    EXPECT_EQ(group->Stamps().transform, before);
    group->SetTransform(kDouble);

    EXPECT_GT(group->Stamps().transform, before);
    EXPECT_EQ(group->Transform()[0], 2.0);
    EXPECT_EQ(group->Transform()[12], 0.0);
    EXPECT_EQ(group->Transform()[14], 100.0);
}

TEST_F(Scene, DisplacementThatIsNotFiniteIsIgnored)
{
    const double nowhere[3] = {0, std::numeric_limits<double>::infinity(), 0};
    group->SetDisplacement(nowhere);

    EXPECT_FALSE(group->IsDisplaced());
    EXPECT_EQ(group->Transform()[13], 0.0);
}

TEST(Node, OpacityStaysFromZeroToOneAndIsAChangeOfAppearance)
{
    Node node(1);
    EXPECT_EQ(node.Opacity(), 1.0f);
    node.SetOpacity(1.0f);
    EXPECT_EQ(node.Stamps().appearance, 0u);
    node.SetOpacity(-3.0f);
    EXPECT_EQ(node.Opacity(), 0.0f);
    EXPECT_NE(node.Stamps().appearance, 0u);
    node.SetOpacity(7.0f);
    EXPECT_EQ(node.Opacity(), 1.0f);
    node.SetOpacity(0.5f);
    node.SetOpacity(std::numeric_limits<float>::quiet_NaN());
    EXPECT_EQ(node.Opacity(), 1.0f);
}

} // namespace
} // namespace TambVizCore
