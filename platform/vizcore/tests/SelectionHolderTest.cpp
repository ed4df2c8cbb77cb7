#include "TestGeometry.h"

#include <TambVizCore/AttributeDisplacement.h>
#include <TambVizCore/AttributeOpacity.h>
#include <TambVizCore/AttributeVisibility.h>
#include <TambVizCore/GeoNode.h>
#include <TambVizCore/SelectionHolder.h>
#include <TambVizCore/ViewDoUndoStrategy.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace TambVizCore {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

RenderId path(std::initializer_list<std::uint64_t> values)
{
    RenderId id(RenderId::kOriginView3D);
    for (const std::uint64_t value : values) {
        id.AddValue(value);
    }
    return id;
}

/// root / group 5 / body 7 with the square.
struct MarkedScene : ::testing::Test
{
    MarkedScene()
    {
        group = root.CreateChildNode(5);
        body = group->CreateChildGeoNode(7);
        body->SetGeometry(MakeSquare());
    }

    bool isFaceHighlighted() const { return body->PartStates()[0].Has(PartState::kHighlighted); }
    bool isFaceSelected() const { return body->PartStates()[0].Has(PartState::kSelected); }
    bool isFacePicked() const { return body->PartStates()[0].Has(PartState::kPicked); }
    bool isFaceShown() const { return body->PartStates()[0].Has(PartState::kShown); }

    Node root{1};
    Node* group = nullptr;
    GeoNode* body = nullptr;
    const RenderId bodyId = path({5, 7});
    const RenderId faceId = path({5, 7, MakePartId(PartKind::Face, 0)});
};

struct SelectionHolderTest : MarkedScene
{
    SelectionHolder holder{&root};
};

TEST_F(SelectionHolderTest, HighlightMarksAPart)
{
    holder.Highlight(faceId);

    EXPECT_TRUE(isFaceHighlighted());
    EXPECT_FALSE(isFaceSelected());
    EXPECT_THAT(holder.GetHighlighted(), ElementsAre(faceId));
}

TEST_F(SelectionHolderTest, APickOutlivesTheHighlight)
{
    holder.Highlight(faceId);
    holder.SetPicked({faceId});
    holder.ClearHighlight();
    holder.ClearSelection();

    EXPECT_FALSE(isFaceHighlighted());
    EXPECT_TRUE(isFacePicked());
    EXPECT_THAT(holder.GetPicked(), ElementsAre(faceId));
}

TEST_F(SelectionHolderTest, APickReplacesTheOneBefore)
{
    holder.SetPicked({faceId, RenderId(), faceId});
    const std::uint64_t before = holder.Revision();
    holder.SetPicked({bodyId});

    EXPECT_FALSE(isFacePicked());
    EXPECT_TRUE(body->IsPicked());
    EXPECT_THAT(holder.GetPicked(), ElementsAre(bodyId));
    EXPECT_GT(holder.Revision(), before);
}

TEST_F(SelectionHolderTest, APickMarksGeometryThatCameLater)
{
    body->SetGeometry(nullptr);
    holder.SetPicked({faceId});
    body->SetGeometry(MakeSquare());
    holder.Reapply();

    EXPECT_TRUE(isFacePicked());
}

TEST_F(SelectionHolderTest, HighlightMarksANode)
{
    holder.Highlight(path({5}));

    EXPECT_TRUE(group->IsHighlighted());
    EXPECT_FALSE(isFaceHighlighted());
}

TEST_F(SelectionHolderTest, HighlightReplacesTheOneBefore)
{
    holder.Highlight(faceId);
    holder.Highlight(bodyId);

    EXPECT_FALSE(isFaceHighlighted());
    EXPECT_TRUE(body->IsHighlighted());
    EXPECT_THAT(holder.GetHighlighted(), ElementsAre(bodyId));
}

TEST_F(SelectionHolderTest, HighlightOfAnEmptyIdOnlyClears)
{
    holder.Highlight(faceId);
    holder.Highlight(RenderId());

    EXPECT_FALSE(isFaceHighlighted());
    EXPECT_THAT(holder.GetHighlighted(), IsEmpty());
}

TEST_F(SelectionHolderTest, AddHighlightGathers)
{
    holder.Highlight(faceId);
    holder.AddHighlight(bodyId);
    holder.AddHighlight(bodyId);

    EXPECT_THAT(holder.GetHighlighted(), ElementsAre(faceId, bodyId));
}

TEST_F(SelectionHolderTest, SelectionsGatherInOrder)
{
    holder.Select(faceId);
    holder.Select(bodyId);
    holder.Select(faceId);
    holder.Select(RenderId());

    EXPECT_TRUE(isFaceSelected());
    EXPECT_TRUE(body->IsSelected());
    EXPECT_THAT(holder.GetSelected(), ElementsAre(faceId, bodyId));
}

TEST_F(SelectionHolderTest, DeselectTakesOneAway)
{
    holder.Select(faceId);
    holder.Select(bodyId);

    holder.Deselect(faceId);
    holder.Deselect(path({99}));

    EXPECT_FALSE(isFaceSelected());
    EXPECT_THAT(holder.GetSelected(), ElementsAre(bodyId));
}

TEST_F(SelectionHolderTest, ClearingOneSideLeavesTheOther)
{
    holder.Highlight(faceId);
    holder.Select(faceId);

    holder.ClearHighlight();
    EXPECT_FALSE(isFaceHighlighted());
    EXPECT_TRUE(isFaceSelected());

    holder.Highlight(faceId);
    holder.ClearSelection();
    EXPECT_TRUE(isFaceHighlighted());
    EXPECT_FALSE(isFaceSelected());
}

TEST_F(SelectionHolderTest, WhatLiesBelowAHighlightedNodeIsHighlighted)
{
    holder.Highlight(path({5}));

    EXPECT_TRUE(holder.IsHighlighted(path({5})));
    EXPECT_TRUE(holder.IsHighlighted(faceId));
    EXPECT_FALSE(holder.IsHighlighted(path({6})));
    EXPECT_FALSE(holder.IsHighlighted(RenderId()));
    EXPECT_FALSE(holder.IsSelected(path({5})));
}

TEST_F(SelectionHolderTest, WhatLiesAboveASelectedItemIsNotSelected)
{
    holder.Select(faceId);

    EXPECT_TRUE(holder.IsSelected(faceId));
    EXPECT_FALSE(holder.IsSelected(bodyId));
}

TEST_F(SelectionHolderTest, IdsThatNameNothingYetAreMarkedByReapply)
{
    const RenderId later = path({6});
    holder.Select(later);
    Node* const node = root.CreateChildNode(6);
    EXPECT_FALSE(node->IsSelected());

    holder.Reapply();

    EXPECT_TRUE(node->IsSelected());
}

TEST_F(SelectionHolderTest, ReapplyRestoresTheHighlightAfterANewGeometry)
{
    holder.Highlight(faceId);
    body->SetGeometry(nullptr);
    body->SetGeometry(MakeSquare());
    EXPECT_FALSE(isFaceHighlighted());

    holder.Reapply();

    EXPECT_TRUE(isFaceHighlighted());
}

TEST_F(SelectionHolderTest, RemovedNodesDoNoHarm)
{
    holder.Highlight(faceId);
    root.RemoveAllChildren();

    holder.ClearHighlight();

    EXPECT_THAT(holder.GetHighlighted(), IsEmpty());
}

TEST_F(SelectionHolderTest, EveryChangeCountsAndNoRepetition)
{
    holder.ClearHighlight();
    holder.ClearSelection();
    EXPECT_EQ(holder.Revision(), 0u);

    holder.Highlight(faceId);
    const std::uint64_t revision = holder.Revision();
    EXPECT_GT(revision, 0u);
    holder.Highlight(faceId);
    EXPECT_EQ(holder.Revision(), revision);
    holder.Select(faceId);
    EXPECT_GT(holder.Revision(), revision);
}

TEST(SelectionHolder, KeepsIdsWithoutAScene)
{
    SelectionHolder holder;

    holder.Highlight(path({5}));
    holder.Select(path({6}));

    EXPECT_TRUE(holder.IsHighlighted(path({5, 7})));
    EXPECT_THAT(holder.GetSelected(), ElementsAre(path({6})));
}

TEST(SelectionHolder, MarksASceneThatComesLater)
{
    SelectionHolder holder;
    holder.Highlight(path({5}));
    Node root(1);
    Node* const node = root.CreateChildNode(5);

    holder.SetSceneRoot(&root);

    EXPECT_TRUE(node->IsHighlighted());
}

using AttributeDisplacementTest = MarkedScene;

TEST_F(AttributeDisplacementTest, MovesEachNodeByItsOwnAndBringsItBack)
{
    const auto former = AttributeDisplacement({{bodyId, {1, 2, 3}}}).ApplyTo(root, bodyId);

    EXPECT_EQ(body->Displacement()[2], 3.0);
    ASSERT_NE(former, nullptr);
    former->ApplyTo(root, bodyId);
    EXPECT_FALSE(body->IsDisplaced());
}

TEST_F(AttributeDisplacementTest, WhatIsNotListedGoesHome)
{
    const AttributeDisplacement attribute({{bodyId, {1, 2, 3}}});
    attribute.ApplyTo(root, bodyId);
    const auto former = AttributeDisplacement({}).ApplyTo(root, bodyId);

    EXPECT_FALSE(body->IsDisplaced());
    former->ApplyTo(root, bodyId);
    EXPECT_EQ(body->Displacement()[0], 1.0);
}

TEST_F(AttributeDisplacementTest, UnknownIdGivesNothing)
{
    EXPECT_EQ(AttributeDisplacement({}).ApplyTo(root, RenderId(1)), nullptr);
}

using AttributeOpacityTest = MarkedScene;

TEST_F(AttributeOpacityTest, ThinsTheNodeOfAPartAndBringsItBack)
{
    const auto former = AttributeOpacity(0.25f).ApplyTo(root, bodyId);
    ASSERT_NE(former, nullptr);
    EXPECT_EQ(body->Opacity(), 0.25f);

    ASSERT_NE(former->ApplyTo(root, bodyId), nullptr);
    EXPECT_EQ(body->Opacity(), 1.0f);
}

TEST_F(AttributeOpacityTest, UnknownIdGivesNothing)
{
    EXPECT_EQ(AttributeOpacity(0.25f).ApplyTo(root, RenderId(1)), nullptr);
}

using AttributeVisibilityTest = MarkedScene;

TEST_F(AttributeVisibilityTest, HidesANode)
{
    EXPECT_NE(AttributeVisibility(false).ApplyTo(root, bodyId), nullptr);

    EXPECT_FALSE(body->IsVisible());
}

TEST_F(AttributeVisibilityTest, HidesAPartAlone)
{
    EXPECT_NE(AttributeVisibility(false).ApplyTo(root, faceId), nullptr);

    EXPECT_FALSE(isFaceShown());
    EXPECT_TRUE(body->IsVisible());
    EXPECT_TRUE(body->PartStates()[1].Has(PartState::kShown));
}

TEST_F(AttributeVisibilityTest, WhatItReturnsBringsTheFormerStateBack)
{
    const auto former = AttributeVisibility(false).ApplyTo(root, faceId);

    former->ApplyTo(root, faceId);

    EXPECT_TRUE(isFaceShown());
}

TEST_F(AttributeVisibilityTest, AnIdThatNamesNothingGivesNull)
{
    EXPECT_EQ(AttributeVisibility(false).ApplyTo(root, path({99})), nullptr);
    EXPECT_EQ(AttributeVisibility(false).ApplyTo(root, RenderId()), nullptr);
}

struct ViewDoUndoStrategyTest : MarkedScene
{
    ViewDoUndoStrategy strategy{root};
    const AttributeVisibility hide{false};
};

TEST_F(ViewDoUndoStrategyTest, IsFoundBehindAHighlightStrategy)
{
    IHighlightStrategy* const plain = &strategy;

    EXPECT_EQ(dynamic_cast<IViewDoUndoStrategy*>(plain), &strategy);
}

TEST_F(ViewDoUndoStrategyTest, UndoAndRedoGoBackAndForth)
{
    EXPECT_TRUE(strategy.Apply(faceId, hide));
    EXPECT_FALSE(isFaceShown());

    EXPECT_TRUE(strategy.Undo());
    EXPECT_TRUE(isFaceShown());
    EXPECT_TRUE(strategy.Redo());
    EXPECT_FALSE(isFaceShown());
    EXPECT_TRUE(strategy.Undo());
    EXPECT_TRUE(isFaceShown());
}

TEST_F(ViewDoUndoStrategyTest, SeveralIdsAreOneStep)
{
    EXPECT_TRUE(strategy.ApplyToAll({faceId, path({99}), path({5})}, hide));
    EXPECT_EQ(strategy.UndoCount(), 1u);

    EXPECT_TRUE(strategy.Undo());

    EXPECT_TRUE(isFaceShown());
    EXPECT_TRUE(group->IsVisible());
}

TEST_F(ViewDoUndoStrategyTest, AnIdNamedTwiceComesBackToItsFirstState)
{
    strategy.ApplyToAll({faceId, faceId}, hide);

    strategy.Undo();

    EXPECT_TRUE(isFaceShown());
}

TEST_F(ViewDoUndoStrategyTest, IdsThatNameNothingMakeNoStep)
{
    EXPECT_FALSE(strategy.Apply(path({99}), hide));
    EXPECT_FALSE(strategy.ApplyToAll({}, hide));

    EXPECT_EQ(strategy.UndoCount(), 0u);
}

TEST_F(ViewDoUndoStrategyTest, WithoutStepsThereIsNothingToUndo)
{
    EXPECT_FALSE(strategy.Undo());
    EXPECT_FALSE(strategy.Redo());
}

TEST_F(ViewDoUndoStrategyTest, ANewStepForgetsWhatWasTakenBack)
{
    strategy.Apply(faceId, hide);
    strategy.Undo();

    strategy.Apply(bodyId, hide);

    EXPECT_FALSE(strategy.Redo());
    EXPECT_EQ(strategy.RedoCount(), 0u);
}

TEST_F(ViewDoUndoStrategyTest, StepsWhoseNodesHaveGoneArePassedOver)
{
    Node* const other = root.CreateChildNode(6);
    strategy.Apply(path({6}), hide);
    strategy.Apply(faceId, hide);
    root.RemoveChild(5);

    EXPECT_TRUE(strategy.Undo());

    EXPECT_TRUE(other->IsVisible());
    EXPECT_FALSE(strategy.Undo());
}

TEST_F(ViewDoUndoStrategyTest, TheOldestStepsAreForgotten)
{
    for (int i = 0; i < 1001; ++i) {
        strategy.Apply(faceId, AttributeVisibility(i % 2 == 1));
    }

    EXPECT_EQ(strategy.UndoCount(), 1000u);
}

} // namespace
} // namespace TambVizCore
