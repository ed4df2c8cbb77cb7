#include "ControllerFixture.h"

#include <gtest/gtest.h>

#include <stdexcept>

using OrvikCore::ModifierKey;
using OrvikCore::MouseButton;
using OrvikCore::ViewOpType;

namespace {

const char kPickAtOneTwo[] = "RayPick 1 2 aperture 4 multiple 0 body 0 state 2";

class ControllerDelivery : public ControllerFixture
{
protected:
    /// Puts an operation on the stack below what the next event makes.
    void putOnStack(const char* name)
    {
        m_shown.Stack().Push(new CountedOp(m_living, ViewOpType::MouseMove, name));
    }

    /// Has the listener send a nested event when it gets its first operation.
    void nest(const std::function<void()>& event)
    {
        m_listener.m_onNotify = [this, event](OrvikCore::IViewOp* op) {
            m_listener.m_onNotify = nullptr;
            event();
            m_textAfterNesting = OpText(op);
        };
    }

    int m_living = 0;
    std::string m_textAfterNesting; ///< The outer operation, read when the nested event is over.
};

/// The same while a job runs.
class ControllerBusy : public ControllerFixture
{
protected:
    ControllerBusy() { occupyWorker(m_gate); }
    ~ControllerBusy() override
    {
        m_gate.Open();
        waitUntilIdle();
    }

    GateJob m_gate;
};

} // namespace

TEST_F(ControllerDelivery, ReachesEachListenerInTheOrderAdded)
{
    RecordingListener second("b", m_received);
    m_controller.AddListener(&second);
    m_controller.AddListener(nullptr);
    m_controller.AddListener(&m_listener);

    move(1, 2);

    EXPECT_EQ(m_received, (Texts{"a: MouseMove 1 2 state 2", "b: MouseMove 1 2 state 2",
                                 "a: MouseMove 1 2 state 2"}));
}

TEST_F(ControllerDelivery, EndsForAListenerRemovedOnce)
{
    m_controller.AddListener(&m_listener);

    m_controller.RemoveListener(&m_listener);
    move(1, 2);

    EXPECT_TRUE(m_received.empty());
}

TEST_F(ControllerDelivery, LeavesExactlyOneOperationOnTheStack)
{
    move(1, 2);
    click(1, 2);

    EXPECT_EQ(stacked(), (Texts{kPickAtOneTwo}));
}

TEST_F(ControllerDelivery, IsNewestFirstAndKeepsTheOldest)
{
    putOnStack("oldest");
    putOnStack("middle");
    putOnStack("replaced by the event");

    move(1, 2);

    EXPECT_EQ(m_received,
              (Texts{"a: MouseMove 1 2 state 2", "a: middle state 2", "a: oldest state 2"}));
    EXPECT_EQ(stacked(), (Texts{"oldest state 2"}));
    EXPECT_EQ(m_living, 1);
}

TEST_F(ControllerDelivery, DoesNotHappenWithoutAnOperation)
{
    putOnStack("before");

    move(5, 0, MouseButton::Zoom);

    EXPECT_TRUE(m_received.empty());
    EXPECT_EQ(stacked(), (Texts{"before state 2"}));
}

TEST_F(ControllerDelivery, OfAnEventWithoutOperationThatDropsThePickEndsAtOnce)
{
    click(1, 2);
    m_received.clear();

    EXPECT_TRUE(key(0x01000020, ModifierKey::None, /*up=*/true));

    EXPECT_TRUE(m_received.empty());
    EXPECT_TRUE(stacked().empty());
}

TEST_F(ControllerDelivery, NestedEventIsDeliveredInsideTheOuterOne)
{
    nest([this] { move(3, 4); });

    click(1, 2);

    EXPECT_EQ(m_received, (Texts{std::string("a: ") + kPickAtOneTwo, "a: Drag 3 4 state 4"}));
}

TEST_F(ControllerDelivery, OperationOutlivesTheNestedEventThatReplacesIt)
{
    nest([this] { move(3, 4); });

    click(1, 2);

    EXPECT_EQ(m_textAfterNesting, kPickAtOneTwo);
    EXPECT_EQ(stacked(), (Texts{"Drag 3 4 state 4"}));
}

TEST_F(ControllerDelivery, OperationOutlivesANestedEndOfHover)
{
    nest([this] { leave(); });

    click(1, 2);

    EXPECT_EQ(m_textAfterNesting, kPickAtOneTwo);
    EXPECT_EQ(stacked(), (Texts{"Highlight null on 0 state 2"}));
}

TEST_F(ControllerDelivery, OperationOutlivesANestedEventThatDropsIt)
{
    nest([this] { key(0x01000020, ModifierKey::None, /*up=*/true); });

    click(1, 2);

    EXPECT_EQ(m_textAfterNesting, kPickAtOneTwo);
    EXPECT_TRUE(stacked().empty());
}

TEST_F(ControllerDelivery, NestedEventWithoutOperationChangesNothing)
{
    nest([this] { press(ModifierKey::Alt, 3, 4); });

    click(1, 2);

    EXPECT_EQ(m_received, (Texts{std::string("a: ") + kPickAtOneTwo}));
    EXPECT_EQ(stacked(), (Texts{kPickAtOneTwo}));
}

TEST_F(ControllerDelivery, NestedEventsOfAnyDepthEachReachEveryListenerOnce)
{
    RecordingListener second("b", m_received);
    m_controller.AddListener(&second);
    nest([this] {
        nest([this] { move(5, 6); });
        click(3, 4);
    });

    click(1, 2);

    EXPECT_EQ(m_received,
              (Texts{"a: RayPick 1 2 aperture 4 multiple 0 body 0 state 2",
                     "a: RayPick 3 4 aperture 4 multiple 0 body 0 state 2", "a: Drag 5 6 state 4",
                     "b: Drag 5 6 state 4", "b: RayPick 3 4 aperture 4 multiple 0 body 0 state 2",
                     "b: RayPick 1 2 aperture 4 multiple 0 body 0 state 2"}));
    EXPECT_EQ(stacked(), (Texts{"Drag 5 6 state 4"}));
}

TEST_F(ControllerDelivery, NestedEventDeliversWhatTheOuterOneHadLeft)
{
    putOnStack("older");
    putOnStack("replaced by the event");
    nest([this] { move(3, 4); });

    click(1, 2);

    EXPECT_EQ(m_received, (Texts{std::string("a: ") + kPickAtOneTwo, "a: Drag 3 4 state 4",
                                 "a: older state 2"}));
    EXPECT_EQ(stacked(), (Texts{"older state 2"}));
}

TEST_F(ControllerDelivery, SkipsAListenerThatWasRemovedDuringIt)
{
    RecordingListener second("b", m_received);
    m_controller.AddListener(&second);
    m_listener.m_onNotify = [&](OrvikCore::IViewOp*) { m_controller.RemoveListener(&second); };

    move(1, 2);

    EXPECT_EQ(m_received, (Texts{"a: MouseMove 1 2 state 2"}));
}

TEST_F(ControllerDelivery, ReachesAListenerAddedDuringItNextTime)
{
    RecordingListener second("b", m_received);
    m_listener.m_onNotify = [&](OrvikCore::IViewOp*) {
        m_listener.m_onNotify = nullptr;
        m_controller.AddListener(&second);
    };

    move(1, 2);
    move(3, 4);

    EXPECT_EQ(m_received, (Texts{"a: MouseMove 1 2 state 2", "a: MouseMove 3 4 state 2",
                                 "b: MouseMove 3 4 state 2"}));
}

TEST_F(ControllerDelivery, SurvivesAListenerThatReplacesTheStrategy)
{
    m_listener.m_onNotify = [&](OrvikCore::IViewOp*) { m_controller.SelectionSetSticky(false); };

    EXPECT_TRUE(click(1, 2));

    EXPECT_FALSE(m_controller.SelectionIsSticky());
}

TEST_F(ControllerDelivery, ExceptionOfAListenerPassesAndKeepsTheOperation)
{
    m_listener.m_onNotify = [](OrvikCore::IViewOp*) { throw std::runtime_error("refused"); };

    EXPECT_THROW(click(1, 2), std::runtime_error);

    EXPECT_EQ(stacked(), (Texts{kPickAtOneTwo}));
}

TEST_F(ControllerDelivery, GoesOnAfterAnException)
{
    m_listener.m_onNotify = [](OrvikCore::IViewOp*) { throw std::runtime_error("refused"); };
    EXPECT_THROW(click(1, 2), std::runtime_error);
    m_listener.m_onNotify = nullptr;
    m_received.clear();

    EXPECT_TRUE(move(3, 4));

    EXPECT_EQ(m_received, (Texts{"a: Drag 3 4 state 4"}));
    EXPECT_EQ(stacked(), (Texts{"Drag 3 4 state 4"}));
}

TEST_F(ControllerDelivery, OfHitTestsHappensWhileTheDispatcherIsIdle)
{
    waitUntilIdle();

    move(1, 2, MouseButton::None, ModifierKey::Shift);
    leave();

    EXPECT_EQ(m_received,
              (Texts{"a: HitTest 1 2 enhanced 0 state 2", "a: Highlight null on 0 state 2"}));
}

TEST_F(ControllerBusy, HitTestsAreTakenButNotDelivered)
{
    EXPECT_TRUE(move(1, 2, MouseButton::None, ModifierKey::Shift));

    EXPECT_TRUE(m_received.empty());
    EXPECT_EQ(stacked(), (Texts{"HitTest 1 2 enhanced 0 state 2"}));
}

TEST_F(ControllerBusy, HighlightsAreTakenButNotDelivered)
{
    EXPECT_TRUE(leave());

    EXPECT_TRUE(m_received.empty());
    EXPECT_EQ(stacked(), (Texts{"Highlight null on 0 state 2"}));
}

TEST_F(ControllerBusy, OtherOperationsAreDelivered)
{
    move(1, 2);
    move(3, 4, MouseButton::Selection);
    move(5, 6, MouseButton::Selection | MouseButton::Zoom);
    wheel(1);
    click(1, 2);
    move(7, 8);

    EXPECT_EQ(m_received, (Texts{"a: MouseMove 1 2 state 2", "a: Rotate 3 4 from 1 2 state 2",
                                 "a: Pan 5 6 from 3 4 state 2", "a: Zoom 5 at 1 2 state 2",
                                 std::string("a: ") + kPickAtOneTwo, "a: Drag 7 8 state 4"}));
}

TEST_F(ControllerBusy, OperationsBelowAHitTestAreDelivered)
{
    int living = 0;
    m_shown.Stack().Push(new CountedOp(living, ViewOpType::MouseMove, "older"));
    m_shown.Stack().Push(new CountedOp(living, ViewOpType::MouseMove, "replaced by the event"));

    move(1, 2, MouseButton::None, ModifierKey::Shift);

    EXPECT_EQ(m_received, (Texts{"a: older state 2"}));
    m_shown.Stack().Clear();
}
