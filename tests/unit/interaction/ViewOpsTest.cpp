#include "OrvikCore/ViewOpDrag.h"
#include "OrvikCore/ViewOpHighlight.h"
#include "OrvikCore/ViewOpHitTest.h"
#include "OrvikCore/ViewOpMouseMove.h"
#include "OrvikCore/ViewOpPan.h"
#include "OrvikCore/ViewOpRayPick.h"
#include "OrvikCore/ViewOpRotate.h"
#include "OrvikCore/ViewOpTargetCamera.h"
#include "OrvikCore/ViewOpZoom.h"

#include <TambVizCore/EntityId.h>

#include <gtest/gtest.h>

#include <memory>
#include <type_traits>

using OrvikCore::IViewOp;
using OrvikCore::IViewOpState;

namespace {

int typeOf(const IViewOp& op)
{
    return static_cast<int>(op.Type());
}

int stateOf(const IViewOp& op)
{
    return static_cast<int>(op.State());
}

std::string rotationText(int state)
{
    return OrvikCore::ViewOpRotate(1, 2, 3, 4, static_cast<IViewOpState>(state)).ToString();
}

} // namespace

TEST(ViewOpRotate, KeepsItsFields)
{
    const OrvikCore::ViewOpRotate op(1, 2, 3, 4, IViewOpState::Start);

    EXPECT_EQ(typeOf(op), 3);
    EXPECT_EQ(stateOf(op), 1);
    EXPECT_EQ(op.MouseX(), 1);
    EXPECT_EQ(op.MouseY(), 2);
    EXPECT_EQ(op.PrevX(), 3);
    EXPECT_EQ(op.PrevY(), 4);
}

TEST(ViewOpRotate, PrintsItsStateAsAWord)
{
    const std::string fields = "ViewOpRotate: mouseX = 1 mouseY = 2 prevX = 3 prevY = 4 state = ";

    EXPECT_EQ(rotationText(1), fields + "start");
    EXPECT_EQ(rotationText(2), fields + "processing");
    EXPECT_EQ(rotationText(3), fields + "end");
    EXPECT_EQ(rotationText(4), fields + "end");
    EXPECT_EQ(rotationText(0), fields + "end");
}

TEST(ViewOpPan, KeepsItsFields)
{
    const OrvikCore::ViewOpPan op(1, 2, 3, 4, IViewOpState::End);

    EXPECT_EQ(typeOf(op), 2);
    EXPECT_EQ(stateOf(op), 3);
    EXPECT_EQ(op.MouseX(), 1);
    EXPECT_EQ(op.MouseY(), 2);
    EXPECT_EQ(op.PrevX(), 3);
    EXPECT_EQ(op.PrevY(), 4);
}

TEST(ViewOpPan, PrintsNoState)
{
    EXPECT_EQ(OrvikCore::ViewOpPan(1, -2, 3, 4, IViewOpState::Start).ToString(),
              "ViewOpPan: mouseX = 1 mouseY = -2 prevX = 3 prevY = 4");
}

TEST(ViewOpZoom, KeepsItsFields)
{
    const OrvikCore::ViewOpZoom op(-5, 1, 2);

    EXPECT_EQ(typeOf(op), 4);
    EXPECT_EQ(stateOf(op), 2);
    EXPECT_EQ(op.Delta(), -5);
    EXPECT_EQ(op.MouseX(), 1);
    EXPECT_EQ(op.MouseY(), 2);
}

TEST(ViewOpZoom, PrintsItsNameAlone)
{
    EXPECT_EQ(OrvikCore::ViewOpZoom(5, 1, 2).ToString(), "ViewOpZoom");
}

TEST(ViewOpZoom, IsValidUnlessItsDeltaIsZero)
{
    EXPECT_FALSE(OrvikCore::ViewOpZoom(0, 1, 2).IsValid());
    EXPECT_TRUE(OrvikCore::ViewOpZoom(1, 1, 2).IsValid());
    EXPECT_TRUE(OrvikCore::ViewOpZoom(-1, 1, 2).IsValid());
}

TEST(ViewOpHitTest, KeepsItsFields)
{
    const OrvikCore::ViewOpHitTest op(1, 2, true);

    EXPECT_EQ(typeOf(op), 0);
    EXPECT_EQ(stateOf(op), 2);
    EXPECT_EQ(op.MouseX(), 1);
    EXPECT_EQ(op.MouseY(), 2);
    EXPECT_TRUE(op.UseEnhancedMode());
}

TEST(ViewOpHitTest, PrintsItsModeAsAWord)
{
    EXPECT_EQ(OrvikCore::ViewOpHitTest(1, 2, true).ToString(),
              "ViewOpHitTest: mouseX = 1 mouseY = 2 useEnhancedMode = true");
    EXPECT_EQ(OrvikCore::ViewOpHitTest(1, 2, false).ToString(),
              "ViewOpHitTest: mouseX = 1 mouseY = 2 useEnhancedMode = false");
}

TEST(ViewOpHighlight, KeepsItsFields)
{
    TambVizCore::EntityId entity;
    const OrvikCore::ViewOpHighlight op(&entity, true);

    EXPECT_EQ(typeOf(op), 1);
    EXPECT_EQ(stateOf(op), 2);
    EXPECT_EQ(op.GetPickResult(), &entity);
    EXPECT_TRUE(op.HighlightOn());
}

TEST(ViewOpHighlight, PrintsNullWithoutAnEntity)
{
    EXPECT_EQ(OrvikCore::ViewOpHighlight(nullptr, true).ToString(),
              "ViewOpHighlight:  EntityId = NULL  highlightOn = 1");
}

TEST(ViewOpHighlight, PrintsTheTextOfItsEntity)
{
    TambVizCore::EntityId entity(6, 5, static_cast<TambVizCore::EntityType>(10003));

    EXPECT_EQ(OrvikCore::ViewOpHighlight(&entity, false).ToString(),
              "ViewOpHighlight:  " + entity.ToString() + "  highlightOn = 0");
}

TEST(ViewOpRayPick, KeepsItsFields)
{
    const OrvikCore::ViewOpRayPick op(true, 1, 2, 9, true);

    EXPECT_EQ(typeOf(op), 5);
    EXPECT_EQ(stateOf(op), 2);
    EXPECT_TRUE(op.PickBody());
    EXPECT_EQ(op.MouseX(), 1);
    EXPECT_EQ(op.MouseY(), 2);
    EXPECT_EQ(op.ApertureRadius(), 9);
    EXPECT_TRUE(op.IsMultiple());
}

TEST(ViewOpRayPick, PrintsEverythingButMultiple)
{
    EXPECT_EQ(OrvikCore::ViewOpRayPick(true, 1, 2, 9, true).ToString(),
              "ViewOpRayPick: pickBody = 1 mouseX = 1 mouseY = 2 apertureRadius = 9");
}

TEST(ViewOpRayPick, ResetIsToldByItsState)
{
    const std::unique_ptr<OrvikCore::ViewOpRayPick> reset(
        OrvikCore::ViewOpRayPick::CreateViewOpReset());
    const OrvikCore::ViewOpRayPick pick(false, 1, 2, 4, false);

    EXPECT_TRUE(OrvikCore::ViewOpRayPick::IsReset(reset.get()));
    EXPECT_FALSE(OrvikCore::ViewOpRayPick::IsReset(&pick));
    EXPECT_EQ(stateOf(*reset), 4);
}

TEST(ViewOpRayPick, ResetHasNoPositionAndNoAperture)
{
    const std::unique_ptr<OrvikCore::ViewOpRayPick> reset(
        OrvikCore::ViewOpRayPick::CreateViewOpReset());

    EXPECT_EQ(reset->ToString(),
              "ViewOpRayPick: pickBody = 0 mouseX = 0 mouseY = 0 apertureRadius = -1");
    EXPECT_FALSE(reset->IsMultiple());
}

TEST(ViewOpRayPick, ApertureIsFourPixels)
{
    EXPECT_EQ(OrvikCore::ViewOpRayPick::APERTURE, 4);
}

TEST(ViewOpTargetCamera, KeepsAndPrintsItsFields)
{
    const OrvikCore::ViewOpTargetCamera op(1, 2);

    EXPECT_EQ(typeOf(op), 6);
    EXPECT_EQ(stateOf(op), 2);
    EXPECT_EQ(op.MouseX(), 1);
    EXPECT_EQ(op.MouseY(), 2);
    EXPECT_EQ(op.ToString(), "ViewOpTargetCamera: mouseX = 1 mouseY = 2");
}

TEST(ViewOpMouseMove, KeepsAndPrintsItsFields)
{
    const OrvikCore::ViewOpMouseMove op(1, 2);

    EXPECT_EQ(typeOf(op), 7);
    EXPECT_EQ(stateOf(op), 2);
    EXPECT_EQ(op.MouseX(), 1);
    EXPECT_EQ(op.MouseY(), 2);
    EXPECT_EQ(op.ToString(), "ViewOpMouseMove: mouseX = 1 mouseY = 2");
}

TEST(ViewOpDrag, KeepsAndPrintsItsFields)
{
    const OrvikCore::ViewOpDrag op(1, 2, IViewOpState::Reset);

    EXPECT_EQ(typeOf(op), 8);
    EXPECT_EQ(stateOf(op), 4);
    EXPECT_EQ(op.MouseX(), 1);
    EXPECT_EQ(op.MouseY(), 2);
    EXPECT_EQ(op.ToString(), "ViewOpDrag: mouseX = 1 mouseY = 2 dragState = 4");
}

TEST(ViewOps, AreCopiedAndAssigned)
{
    OrvikCore::ViewOpDrag op(1, 2, IViewOpState::Start);
    const OrvikCore::ViewOpDrag other(3, 4, IViewOpState::End);

    op = other;

    EXPECT_EQ(op.ToString(), "ViewOpDrag: mouseX = 3 mouseY = 4 dragState = 3");
    EXPECT_TRUE(std::has_virtual_destructor_v<IViewOp>);
}
