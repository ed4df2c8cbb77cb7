#include "ControllerFixture.h"

#include <gtest/gtest.h>

#include <memory>
#include <vector>

using OrvikCore::EventArgsType;
using OrvikCore::ModifierKey;
using OrvikCore::MouseButton;
using OrvikCore::ViewOpType;

namespace {

using ControllerTest = ControllerFixture;

constexpr EventArgsType kAllTypes[] = {
    EventArgsType::MouseEventArgs, EventArgsType::MouseButtonEventArgs,
    EventArgsType::MouseClickEventArgs, EventArgsType::MouseWheelEventArgs,
    EventArgsType::KeyEventArgs};

/// A controller that refuses what a test says.
class VetoingController : public OrvikCore::Controller
{
public:
    bool m_allowsMouse = true;
    bool m_allowsKeys = true;

protected:
    bool isValidRequest(OrvikCore::AMouseEventArgs*) override { return m_allowsMouse; }
    bool isValidRequest(OrvikCore::KeyEventArgs*) override { return m_allowsKeys; }
};

} // namespace

TEST_F(ControllerTest, StartsWithThePointerAtZero)
{
    EXPECT_EQ(m_controller.MouseX(), 0);
    EXPECT_EQ(m_controller.MouseY(), 0);
    EXPECT_EQ(m_controller.PrevX(), 0);
    EXPECT_EQ(m_controller.PrevY(), 0);
}

TEST_F(ControllerTest, StartsStickyAndEmptyWithEveryEventEnabled)
{
    EXPECT_TRUE(m_controller.SelectionIsSticky());
    EXPECT_TRUE(stacked().empty());
    for (const EventArgsType type : kAllTypes) {
        EXPECT_TRUE(m_controller.IsEnabled(type));
    }
}

TEST_F(ControllerTest, TracksTheLastTwoPositions)
{
    move(1, 2);
    move(3, 4);
    wheel(1);

    EXPECT_EQ(m_controller.MouseX(), 1);
    EXPECT_EQ(m_controller.MouseY(), 2);
    EXPECT_EQ(m_controller.PrevX(), 3);
    EXPECT_EQ(m_controller.PrevY(), 4);
}

TEST_F(ControllerTest, DisabledMouseEventsStillShiftThePositions)
{
    m_controller.DisableAllEvents();

    move(1, 2);
    click(3, 4);

    EXPECT_EQ(m_controller.MouseX(), 3);
    EXPECT_EQ(m_controller.PrevX(), 1);
    EXPECT_TRUE(m_received.empty());
}

TEST_F(ControllerTest, KeysDoNotShiftThePositions)
{
    move(1, 2);

    key(0x01000000, ModifierKey::None);

    EXPECT_EQ(m_controller.MouseX(), 1);
    EXPECT_EQ(m_controller.PrevX(), 0);
}

TEST_F(ControllerTest, NullEventsMeanNothing)
{
    move(1, 2);
    m_received.clear();

    EXPECT_FALSE(m_controller.HandleWindowEvent(static_cast<OrvikCore::MouseEventArgs*>(nullptr)));
    EXPECT_FALSE(
        m_controller.HandleWindowEvent(static_cast<OrvikCore::MouseButtonEventArgs*>(nullptr)));
    EXPECT_FALSE(
        m_controller.HandleWindowEvent(static_cast<OrvikCore::MouseClickEventArgs*>(nullptr)));
    EXPECT_FALSE(m_controller.HandleWindowEvent(static_cast<OrvikCore::KeyEventArgs*>(nullptr)));
    EXPECT_TRUE(m_received.empty());
    EXPECT_EQ(m_controller.MouseX(), 1);
    EXPECT_EQ(m_controller.PrevX(), 0);
}

TEST_F(ControllerTest, WheelEventGivesTrueWithoutAnOperation)
{
    EXPECT_TRUE(
        m_controller.HandleWindowEvent(static_cast<OrvikCore::MouseWheelEventArgs*>(nullptr)));
    EXPECT_TRUE(m_received.empty());
}

TEST_F(ControllerTest, DisabledWheelEventGivesFalse)
{
    m_controller.DisableEvent(EventArgsType::MouseWheelEventArgs);

    EXPECT_FALSE(wheel(1));
    EXPECT_TRUE(m_received.empty());
}

TEST_F(ControllerTest, ResultTellsWhetherTheEventMeantAnOperation)
{
    EXPECT_TRUE(move(1, 2));
    EXPECT_FALSE(move(5, 2, MouseButton::Zoom));
    EXPECT_TRUE(click(1, 2));
    EXPECT_TRUE(press(ModifierKey::Ctrl, 1, 2));
    EXPECT_FALSE(press(ModifierKey::Alt, 1, 2));
    EXPECT_FALSE(key('A', ModifierKey::None));
    EXPECT_TRUE(key(0x01000000, ModifierKey::None));
}

TEST_F(ControllerTest, EachTypeIsDisabledByItself)
{
    for (const EventArgsType type : kAllTypes) {
        OrvikCore::Controller controller;
        controller.DisableEvent(type);
        for (const EventArgsType other : kAllTypes) {
            EXPECT_EQ(controller.IsEnabled(other), other != type);
        }
    }
}

TEST_F(ControllerTest, DisabledEventsMeanNothing)
{
    m_controller.DisableAllEvents();

    EXPECT_FALSE(move(1, 2));
    EXPECT_FALSE(click(1, 2));
    EXPECT_FALSE(press(ModifierKey::Ctrl, 1, 2));
    EXPECT_FALSE(key(0x01000000, ModifierKey::None));
    EXPECT_TRUE(m_received.empty());
}

TEST_F(ControllerTest, OneEnablingUndoesRepeatedDisabling)
{
    m_controller.DisableEvent(EventArgsType::MouseClickEventArgs);
    m_controller.DisableEvent(EventArgsType::MouseClickEventArgs);
    m_controller.DisableAllEvents();

    m_controller.EnableEvent(EventArgsType::MouseClickEventArgs);

    EXPECT_TRUE(m_controller.IsEnabled(EventArgsType::MouseClickEventArgs));
    EXPECT_FALSE(m_controller.IsEnabled(EventArgsType::MouseEventArgs));
}

TEST_F(ControllerTest, EnableAllEventsEnablesEveryType)
{
    m_controller.DisableAllEvents();

    m_controller.EnableAllEvents();

    for (const EventArgsType type : kAllTypes) {
        EXPECT_TRUE(m_controller.IsEnabled(type));
    }
}

TEST_F(ControllerTest, DerivedControllerMayVetoMouseEvents)
{
    VetoingController controller;
    OrvikCore::MouseEventArgs event(OrvikCore::MouseAction::Moved, 1, 2, MouseButton::None,
                                    ModifierKey::None);
    OrvikCore::MouseWheelEventArgs turn(1, 1, 2);
    controller.m_allowsMouse = false;

    EXPECT_FALSE(controller.HandleWindowEvent(&event));
    EXPECT_FALSE(controller.HandleWindowEvent(&turn));
    EXPECT_EQ(controller.MouseX(), 1);
}

TEST_F(ControllerTest, DerivedControllerMayVetoKeys)
{
    VetoingController controller;
    OrvikCore::KeyEventArgs event(0x01000000, false, ModifierKey::None);
    controller.m_allowsKeys = false;

    EXPECT_FALSE(controller.HandleWindowEvent(&event));
    controller.m_allowsKeys = true;
    EXPECT_TRUE(controller.HandleWindowEvent(&event));
}

TEST_F(ControllerTest, StickinessReplacesTheStrategy)
{
    click(1, 2);
    m_controller.SelectionSetSticky(false);
    click(3, 4);
    m_controller.SelectionSetSticky(true);
    click(5, 6);

    EXPECT_EQ(m_received, (Texts{"a: RayPick 1 2 aperture 4 multiple 0 body 0 state 2",
                                 "a: TargetCamera 3 4 state 2",
                                 "a: RayPick 5 6 aperture 4 multiple 0 body 0 state 2"}));
}

TEST_F(ControllerTest, StickinessKeepsTheOperationStack)
{
    click(1, 2);

    m_controller.SelectionSetSticky(false);

    EXPECT_FALSE(m_controller.SelectionIsSticky());
    EXPECT_EQ(stacked(), (Texts{"RayPick 1 2 aperture 4 multiple 0 body 0 state 2"}));
}

TEST_F(ControllerTest, StickinessOfTheSameKindKeepsTheStrategy)
{
    m_controller.SelectionSetSticky(true);

    EXPECT_TRUE(m_controller.SelectionIsSticky());
}

TEST_F(ControllerTest, DestructorDeletesTheOperationsOnTheStack)
{
    int living = 0;
    {
        OrvikCore::Controller controller;
        ShownStrategy<OrvikCore::Input2OpStrategySelect> shown(&controller);
        shown.Stack().Push(new CountedOp(living, ViewOpType::MouseMove, "left over"));
    }

    EXPECT_EQ(living, 0);
}

TEST_F(ControllerTest, DestructorLeavesListeners)
{
    {
        OrvikCore::Controller controller;
        controller.AddListener(&m_listener);
    }

    move(1, 2);

    EXPECT_EQ(m_received.size(), 1u);
}

TEST_F(ControllerTest, UsesTheStrategyThatItIsGiven)
{
    m_controller.SetStrategy(new OrvikCore::Input2OpStrategySelect(&m_controller));
    EXPECT_FALSE(m_controller.SelectionIsSticky());

    m_controller.SetStrategy(nullptr);
    EXPECT_TRUE(m_controller.SelectionIsSticky());
}
