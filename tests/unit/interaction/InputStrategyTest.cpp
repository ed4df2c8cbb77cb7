#include "StrategyFixture.h"

#include "OrvikCore/KeyEventArgs.h"
#include "OrvikCore/MouseButtonEventArgs.h"
#include "OrvikCore/MouseClickEventArgs.h"
#include "OrvikCore/MouseWheelEventArgs.h"
#include "OrvikCore/ViewOpRayPick.h"

#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <tuple>

using OrvikCore::Input2OpStrategySelect;
using OrvikCore::Input2OpStrategyStickySelect;
using OrvikCore::ModifierKey;
using OrvikCore::MouseAction;
using OrvikCore::MouseButton;
using OrvikCore::ViewOpType;

namespace {

enum class Kind
{
    Select,
    Sticky
};

/// Hands an event to a fresh strategy of a kind.
/// @return what it means.
template <typename Event> std::string convert(Kind kind, Before before, const Event& event)
{
    if (kind == Kind::Select) {
        StrategyHarness<Input2OpStrategySelect> harness;
        harness.PutBefore(before);
        return harness.Convert(event);
    }
    StrategyHarness<Input2OpStrategyStickySelect> harness;
    harness.PutBefore(before);
    return harness.Convert(event);
}

std::string nameOf(Kind kind)
{
    return kind == Kind::Select ? "Select" : "Sticky";
}

struct MotionRow
{
    const char* name;
    int action;
    int modifiers;
    int buttons;
    Before before;
    int y;
    const char* means;
};

void PrintTo(const MotionRow& row, std::ostream* out)
{
    *out << row.name;
}

class PointerMotion : public ::testing::TestWithParam<std::tuple<Kind, MotionRow>>
{
};

struct ButtonRow
{
    const char* name;
    int modifiers;
    int button;
    bool pressed;
    Before before;
    const char* means;
};

void PrintTo(const ButtonRow& row, std::ostream* out)
{
    *out << row.name;
}

class ButtonChange : public ::testing::TestWithParam<std::tuple<Kind, ButtonRow>>
{
};

struct ClickRow
{
    const char* name;
    int modifiers;
    int button;
    int clicks;
    const char* meansSelect;
    const char* meansSticky;
};

void PrintTo(const ClickRow& row, std::ostream* out)
{
    *out << row.name;
}

class Click : public ::testing::TestWithParam<std::tuple<Kind, ClickRow>>
{
};

constexpr int kEscape = 0x01000000;
constexpr int kShiftKey = 0x01000020;
constexpr int kAltKey = 0x01000023;

struct KeyRow
{
    const char* name;
    int key;
    bool up;
    int modifiers;
    Before before;
    const char* meansSelect;
    const char* meansSticky;
};

void PrintTo(const KeyRow& row, std::ostream* out)
{
    *out << row.name;
}

class Key : public ::testing::TestWithParam<std::tuple<Kind, KeyRow>>
{
};

struct WheelRow
{
    const char* name;
    int delta;
    const char* means;
};

void PrintTo(const WheelRow& row, std::ostream* out)
{
    *out << row.name;
}

class Wheel : public ::testing::TestWithParam<std::tuple<Kind, WheelRow>>
{
};

/// Names a test after its strategy and its row.
template <typename Info> std::string rowName(const Info& test)
{
    return nameOf(std::get<0>(test.param)) + "_" + std::get<1>(test.param).name;
}

const auto kBothKinds = ::testing::Values(Kind::Select, Kind::Sticky);

} // namespace

TEST_P(PointerMotion, MeansTheOperationOfItsRow)
{
    const auto& [kind, row] = GetParam();

    const std::string means =
        convert(kind, row.before,
                OrvikCore::MouseEventArgs(static_cast<MouseAction>(row.action), 10, row.y,
                                          static_cast<MouseButton>(row.buttons),
                                          static_cast<ModifierKey>(row.modifiers)));

    EXPECT_EQ(means, row.means);
}

// The pointer was at (3, 4).
const MotionRow kMotionRows[] = {
    {"Nothing", 0, 0, 0, Before::Nothing, 20, "none"},
    {"NothingKeepsTheOperationBefore", 0, 0, 0, Before::MouseMove, 20, "none"},
    {"UnknownAction", 3, 0, 1, Before::MouseMove, 20, "none"},
    {"HoverEnded", 1, 0, 0, Before::HitTest, 20, "Highlight null on 0 state 2"},
    {"BothButtons", 2, 0, 5, Before::Nothing, 20, "Pan 10 20 from 3 4 state 2"},
    {"BothButtonsDuringADrag", 2, 0, 5, Before::DragStart, 20, "Pan 10 20 from 3 4 state 2"},
    {"SelectionButton", 2, 0, 1, Before::Nothing, 20, "Rotate 10 20 from 3 4 state 2"},
    {"SelectionButtonAfterAMove", 2, 0, 1, Before::MouseMove, 20, "Rotate 10 20 from 3 4 state 2"},
    {"SelectionButtonAfterDragStart", 2, 0, 1, Before::DragStart, 20, "Drag 0 0 state 3"},
    {"SelectionButtonDuringADrag", 2, 0, 1, Before::DragProcessing, 20, "Drag 0 0 state 3"},
    {"SelectionButtonAfterDragReset", 2, 0, 1, Before::DragReset, 20, "Drag 0 0 state 3"},
    {"SelectionButtonAfterDragEnd", 2, 0, 1, Before::DragEnd, 20, "Rotate 10 20 from 3 4 state 2"},
    {"ZoomButtonDown", 2, 0, 4, Before::Nothing, 20, "Zoom 5 at 10 20 state 2"},
    {"ZoomButtonDownByOne", 2, 0, 4, Before::Nothing, 5, "Zoom 5 at 10 5 state 2"},
    {"ZoomButtonUp", 2, 0, 4, Before::Nothing, 3, "Zoom -5 at 10 3 state 2"},
    {"ZoomButtonSideways", 2, 0, 4, Before::MouseMove, 4, "none"},
    {"NoButton", 2, 0, 0, Before::MouseMove, 20, "MouseMove 10 20 state 2"},
    {"NoButtonAtFirst", 2, 0, 0, Before::Nothing, 20, "MouseMove 10 20 state 2"},
    {"NoButtonAfterARayPick", 2, 0, 0, Before::RayPick, 20, "Drag 10 20 state 4"},
    {"OtherButtonAfterARayPick", 2, 0, 2, Before::RayPick, 20, "Drag 10 20 state 4"},
    {"OtherButton", 2, 0, 2, Before::DragStart, 20, "MouseMove 10 20 state 2"},
    {"AllButtons", 2, 0, 7, Before::Nothing, 20, "MouseMove 10 20 state 2"},
    {"ShiftAtFirst", 2, 16, 0, Before::Nothing, 20, "HitTest 10 20 enhanced 0 state 2"},
    {"ShiftAfterAMove", 2, 16, 1, Before::MouseMove, 20, "HitTest 10 20 enhanced 0 state 2"},
    {"ShiftAfterDragStart", 2, 16, 1, Before::DragStart, 20, "Drag 10 20 state 2"},
    {"ShiftAfterDragEnd", 2, 16, 0, Before::DragEnd, 20, "Drag 10 20 state 2"},
    {"ShiftAlt", 2, 17, 0, Before::DragStart, 20, "HitTest 10 20 enhanced 1 state 2"},
    {"Ctrl", 2, 4, 1, Before::Nothing, 20, "MouseMove 10 20 state 2"},
    {"Alt", 2, 1, 5, Before::RayPick, 20, "MouseMove 10 20 state 2"},
    {"CtrlShift", 2, 20, 1, Before::DragStart, 20, "MouseMove 10 20 state 2"},
};

INSTANTIATE_TEST_SUITE_P(Rows, PointerMotion,
                         ::testing::Combine(kBothKinds, ::testing::ValuesIn(kMotionRows)),
                         [](const auto& test) { return rowName(test); });

TEST_P(ButtonChange, MeansTheOperationOfItsRow)
{
    const auto& [kind, row] = GetParam();

    const std::string means =
        convert(kind, row.before,
                OrvikCore::MouseButtonEventArgs(static_cast<MouseButton>(row.button), row.pressed,
                                                10, 20, static_cast<ModifierKey>(row.modifiers)));

    EXPECT_EQ(means, row.means);
}

const ButtonRow kButtonRows[] = {
    {"CtrlPress", 4, 1, true, Before::Nothing, "MouseMove 10 20 state 2"},
    {"CtrlRelease", 4, 1, false, Before::DragStart, "MouseMove 10 20 state 2"},
    {"ShiftPress", 16, 1, true, Before::Nothing, "Drag 10 20 state 1"},
    {"ShiftPressDuringADrag", 16, 1, true, Before::DragProcessing, "Drag 10 20 state 1"},
    {"ShiftReleaseDuringADrag", 16, 1, false, Before::DragProcessing, "Drag 10 20 state 3"},
    {"ShiftReleaseAfterDragEnd", 16, 1, false, Before::DragEnd, "Drag 10 20 state 3"},
    {"ShiftReleaseOtherwise", 16, 1, false, Before::MouseMove, "none"},
    {"ShiftReleaseAtFirst", 16, 1, false, Before::Nothing, "none"},
    {"PlainPressDuringADrag", 0, 1, true, Before::DragStart, "Drag 10 20 state 4"},
    {"PlainPressOtherwise", 0, 1, true, Before::RayPick, "MouseMove 10 20 state 2"},
    {"PlainPressAtFirst", 0, 1, true, Before::Nothing, "MouseMove 10 20 state 2"},
    {"PlainReleaseDuringADrag", 0, 1, false, Before::DragReset, "Drag 10 20 state 3"},
    {"PlainReleaseOtherwise", 0, 1, false, Before::MouseMove, "none"},
    {"PlainReleaseAtFirst", 0, 1, false, Before::Nothing, "none"},
    {"AltPress", 1, 1, true, Before::DragStart, "none"},
    {"CtrlShiftRelease", 20, 1, false, Before::DragStart, "none"},
    {"OtherButtonPress", 0, 4, true, Before::DragStart, "none"},
    {"OtherButtonWithShift", 16, 2, true, Before::MouseMove, "none"},
    {"TwoButtons", 16, 5, true, Before::Nothing, "none"},
};

INSTANTIATE_TEST_SUITE_P(Rows, ButtonChange,
                         ::testing::Combine(kBothKinds, ::testing::ValuesIn(kButtonRows)),
                         [](const auto& test) { return rowName(test); });

TEST_P(Wheel, ZoomsByFiveTimesTheSteps)
{
    const auto& [kind, row] = GetParam();

    EXPECT_EQ(convert(kind, Before::DragStart, OrvikCore::MouseWheelEventArgs(row.delta, 10, 20)),
              row.means);
}

const WheelRow kWheelRows[] = {
    {"Towards", -1, "Zoom -5 at 10 20 state 2"},
    {"Away", 3, "Zoom 15 at 10 20 state 2"},
    {"Nowhere", 0, "Zoom 0 at 10 20 state 2"},
};

INSTANTIATE_TEST_SUITE_P(Rows, Wheel,
                         ::testing::Combine(kBothKinds, ::testing::ValuesIn(kWheelRows)),
                         [](const auto& test) { return rowName(test); });

TEST_P(Click, MeansTheOperationOfItsRow)
{
    const auto& [kind, row] = GetParam();

    const std::string means =
        convert(kind, Before::MouseMove,
                OrvikCore::MouseClickEventArgs(static_cast<MouseButton>(row.button), row.clicks, 10,
                                               20, static_cast<ModifierKey>(row.modifiers)));

    EXPECT_EQ(means, kind == Kind::Select ? row.meansSelect : row.meansSticky);
}

const ClickRow kClickRows[] = {
    {"Plain", 0, 1, 1, "TargetCamera 10 20 state 2",
     "RayPick 10 20 aperture 4 multiple 0 body 0 state 2"},
    {"PlainDouble", 0, 1, 2, "TargetCamera 10 20 state 2",
     "RayPick 10 20 aperture 4 multiple 0 body 0 state 2"},
    {"Ctrl", 4, 1, 1, "RayPick 10 20 aperture 4 multiple 0 body 0 state 2",
     "RayPick 10 20 aperture 4 multiple 1 body 0 state 2"},
    {"Alt", 1, 1, 1, "none", "HitTest 10 20 enhanced 1 state 2"},
    {"Shift", 16, 1, 1, "none", "none"},
    {"CtrlAlt", 5, 1, 1, "none", "none"},
    {"OtherButton", 0, 4, 1, "none", "none"},
    {"OtherButtonWithCtrl", 4, 2, 1, "none", "none"},
};

INSTANTIATE_TEST_SUITE_P(Rows, Click,
                         ::testing::Combine(kBothKinds, ::testing::ValuesIn(kClickRows)),
                         [](const auto& test) { return rowName(test); });

TEST_P(Key, MeansTheOperationOfItsRow)
{
    const auto& [kind, row] = GetParam();

    const std::string means =
        convert(kind, row.before,
                OrvikCore::KeyEventArgs(row.key, row.up, static_cast<ModifierKey>(row.modifiers)));

    EXPECT_EQ(means, kind == Kind::Select ? row.meansSelect : row.meansSticky);
}

const KeyRow kKeyRows[] = {
    {"ShiftPress", kShiftKey, false, 0, Before::MouseMove, "Highlight null on 0 state 2", "none"},
    {"ShiftPressAtFirst", kShiftKey, false, 0, Before::Nothing, "none", "none"},
    {"ShiftRelease", kShiftKey, true, 0, Before::HitTest, "none", "Highlight null on 0 state 2"},
    {"ShiftReleaseAtFirst", kShiftKey, true, 0, Before::Nothing, "none", "none"},
    {"ShiftPressWithItself", kShiftKey, false, 16, Before::MouseMove, "none", "none"},
    {"ShiftReleaseWithItself", kShiftKey, true, 16, Before::MouseMove, "none", "none"},
    {"EscapePress", kEscape, false, 0, Before::DragStart, "Drag 0 0 state 3", "Drag 0 0 state 3"},
    {"EscapePressAtFirst", kEscape, false, 0, Before::Nothing, "Drag 0 0 state 3",
     "Drag 0 0 state 3"},
    {"EscapeRelease", kEscape, true, 0, Before::MouseMove, "Drag 0 0 state 3",
     "RayPick 0 0 aperture -1 multiple 0 body 0 state 4"},
    {"EscapePressWithCtrl", kEscape, false, 4, Before::MouseMove, "Drag 0 0 state 3", "none"},
    {"EscapeReleaseWithShift", kEscape, true, 16, Before::MouseMove, "Drag 0 0 state 3", "none"},
    {"AltPressWithShift", kAltKey, false, 16, Before::MouseMove, "none",
     "HitTest 10 20 enhanced 0 state 2"},
    {"AltReleaseWithShift", kAltKey, true, 16, Before::Nothing, "none",
     "HitTest 10 20 enhanced 0 state 2"},
    {"AnyKeyWithShiftAlt", 'A', false, 17, Before::MouseMove, "none",
     "HitTest 10 20 enhanced 1 state 2"},
    {"AltWithShiftAlt", kAltKey, false, 17, Before::MouseMove, "none",
     "HitTest 10 20 enhanced 1 state 2"},
    {"ShiftReleaseWithAlt", kShiftKey, true, 1, Before::HitTest, "none",
     "Highlight null on 0 state 2"},
    {"ShiftPressWithAlt", kShiftKey, false, 1, Before::Nothing, "none",
     "Highlight null on 0 state 2"},
    {"AltAlone", kAltKey, false, 1, Before::MouseMove, "none", "none"},
    {"AltWithoutModifiers", kAltKey, false, 0, Before::MouseMove, "none", "none"},
    {"CtrlShiftAlt", kAltKey, false, 21, Before::MouseMove, "none", "none"},
    {"Letter", 'A', false, 0, Before::MouseMove, "none", "none"},
};

INSTANTIATE_TEST_SUITE_P(Rows, Key, ::testing::Combine(kBothKinds, ::testing::ValuesIn(kKeyRows)),
                         [](const auto& test) { return rowName(test); });

TEST(Input2OpStrategySelect, ShiftPressDropsARayPick)
{
    StrategyHarness<Input2OpStrategySelect> harness;
    harness.PutBefore(Before::RayPick);
    OrvikCore::KeyEventArgs shift(kShiftKey, false, ModifierKey::None);

    EXPECT_TRUE(harness.Subject().ConvertWindowEvent(&shift));

    EXPECT_TRUE(harness.Subject().Stack().IsEmpty());
    EXPECT_EQ(harness.Living(), 0);
}

TEST(Input2OpStrategyStickySelect, ShiftReleaseDropsARayPick)
{
    StrategyHarness<Input2OpStrategyStickySelect> harness;
    harness.PutBefore(Before::RayPick);
    OrvikCore::KeyEventArgs shift(kShiftKey, true, ModifierKey::None);

    EXPECT_TRUE(harness.Subject().ConvertWindowEvent(&shift));

    EXPECT_TRUE(harness.Subject().Stack().IsEmpty());
    EXPECT_EQ(harness.Living(), 0);
}

TEST(Input2OpStrategySelect, EndOfHoverEmptiesTheStack)
{
    StrategyHarness<Input2OpStrategySelect> harness;
    harness.PutBefore(Before::MouseMove);
    harness.PutBefore(Before::HitTest);
    harness.PutBefore(Before::DragStart);
    OrvikCore::MouseEventArgs leave(MouseAction::HoverEnded, 1, 2, MouseButton::None,
                                    ModifierKey::None);

    harness.Subject().ConvertWindowEvent(&leave);

    EXPECT_EQ(harness.Living(), 0);
    delete harness.Subject().Stack().Pop();
    EXPECT_TRUE(harness.Subject().Stack().IsEmpty());
}

TEST(Input2OpStrategySelect, ShiftDragRunsFromStartToEnd)
{
    StrategyHarness<Input2OpStrategySelect> harness;

    const std::string pressed = harness.Convert(
        OrvikCore::MouseButtonEventArgs(MouseButton::Selection, true, 1, 2, ModifierKey::Shift));
    OrvikCore::MouseEventArgs move(MouseAction::Moved, 3, 4, MouseButton::Selection,
                                   ModifierKey::Shift);
    harness.Subject().ConvertWindowEvent(&move);
    const std::string moved = OpText(harness.Subject().Stack().Top());
    OrvikCore::MouseButtonEventArgs release(MouseButton::Selection, false, 5, 6,
                                            ModifierKey::Shift);
    harness.Subject().ConvertWindowEvent(&release);
    const std::string released = OpText(harness.Subject().Stack().Top());

    EXPECT_EQ(pressed, "Drag 1 2 state 1");
    EXPECT_EQ(moved, "Drag 3 4 state 2");
    EXPECT_EQ(released, "Drag 5 6 state 3");
}

TEST(Input2OpStrategySelect, TakesTheApertureOfThePickOperation)
{
    OrvikCore::ViewOpRayPick::APERTURE = 9;
    const OrvikCore::MouseClickEventArgs click(MouseButton::Selection, 1, 10, 20,
                                               ModifierKey::Ctrl);

    const std::string means = convert(Kind::Select, Before::Nothing, click);
    OrvikCore::ViewOpRayPick::APERTURE = 4;

    EXPECT_EQ(means, "RayPick 10 20 aperture 9 multiple 0 body 0 state 2");
}

template <typename Strategy> class AnyStrategy : public ::testing::Test
{
};

using Strategies = ::testing::Types<Input2OpStrategySelect, Input2OpStrategyStickySelect>;
TYPED_TEST_SUITE(AnyStrategy, Strategies);

TYPED_TEST(AnyStrategy, NullEventsGiveFalseAndLeaveTheStack)
{
    StrategyHarness<TypeParam> harness;
    harness.PutBefore(Before::RayPick);
    auto& subject = harness.Subject();

    EXPECT_FALSE(subject.ConvertWindowEvent(static_cast<OrvikCore::KeyEventArgs*>(nullptr)));
    EXPECT_FALSE(subject.ConvertWindowEvent(static_cast<OrvikCore::MouseEventArgs*>(nullptr)));
    EXPECT_FALSE(
        subject.ConvertWindowEvent(static_cast<OrvikCore::MouseButtonEventArgs*>(nullptr)));
    EXPECT_FALSE(subject.ConvertWindowEvent(static_cast<OrvikCore::MouseClickEventArgs*>(nullptr)));
    EXPECT_FALSE(subject.ConvertWindowEvent(static_cast<OrvikCore::MouseWheelEventArgs*>(nullptr)));
    EXPECT_EQ(harness.Living(), 1);
    EXPECT_FALSE(subject.Stack().IsEmpty());
}

TYPED_TEST(AnyStrategy, WithoutControllerConvertsNothing)
{
    TypeParam strategy(nullptr);
    OrvikCore::MouseEventArgs move(MouseAction::Moved, 1, 2, MouseButton::Selection,
                                   ModifierKey::None);
    OrvikCore::KeyEventArgs escape(kEscape, false, ModifierKey::None);
    OrvikCore::MouseWheelEventArgs wheel(1, 1, 2);
    OrvikCore::MouseClickEventArgs click(MouseButton::Selection, 1, 1, 2, ModifierKey::None);
    OrvikCore::MouseButtonEventArgs press(MouseButton::Selection, true, 1, 2, ModifierKey::None);

    EXPECT_FALSE(strategy.ConvertWindowEvent(&move));
    EXPECT_FALSE(strategy.ConvertWindowEvent(&escape));
    EXPECT_FALSE(strategy.ConvertWindowEvent(&wheel));
    EXPECT_FALSE(strategy.ConvertWindowEvent(&click));
    EXPECT_FALSE(strategy.ConvertWindowEvent(&press));
}

TEST(Input2OpStrategySelect, IsNotStickyAndHasStateZero)
{
    StrategyHarness<Input2OpStrategySelect> harness;

    EXPECT_FALSE(harness.Subject().SelectionIsSticky());
    EXPECT_EQ(static_cast<int>(harness.Subject().InputState()), 0);
}

TEST(Input2OpStrategyStickySelect, IsStickyAndHasStateThree)
{
    StrategyHarness<Input2OpStrategyStickySelect> harness;

    EXPECT_TRUE(harness.Subject().SelectionIsSticky());
    EXPECT_EQ(static_cast<int>(harness.Subject().InputState()), 3);
}
