#ifndef ORVIKCORE_TESTS_STRATEGYFIXTURE_H
#define ORVIKCORE_TESTS_STRATEGYFIXTURE_H

#include "CountedOp.h"
#include "OpText.h"

#include "OrvikCore/Controller.h"
#include "OrvikCore/Input2OpStrategySelect.h"
#include "OrvikCore/Input2OpStrategyStickySelect.h"
#include "OrvikCore/MouseEventArgs.h"
#include "OrvikCore/OpStack.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

/// What the event before left on the stack.
enum class Before
{
    Nothing,
    MouseMove,
    HitTest,
    RayPick,
    DragStart,
    DragProcessing,
    DragEnd,
    DragReset
};

/// A strategy that shows its operation stack.
template <typename Strategy> class ShownStrategy : public Strategy
{
public:
    using Strategy::Strategy;

    OrvikCore::OpStack& Stack() { return *this->opStack; }
};

/// A strategy of either kind on a controller of its own. The pointer is at (10, 20) and was at
/// (3, 4) before.
template <typename Strategy> class StrategyHarness
{
public:
    StrategyHarness() : m_strategy(&m_controller)
    {
        m_controller.DisableAllEvents(); // Positions are tracked all the same.
        movePointer(3, 4);
        movePointer(10, 20);
    }
    ~StrategyHarness() { m_strategy.Stack().Clear(); }
    StrategyHarness(const StrategyHarness&) = delete;
    StrategyHarness& operator=(const StrategyHarness&) = delete;

    void PutBefore(Before before)
    {
        using OrvikCore::IViewOpState;
        using OrvikCore::ViewOpType;
        switch (before) {
        case Before::Nothing:
            break;
        case Before::MouseMove:
            put(ViewOpType::MouseMove, IViewOpState::Processing);
            break;
        case Before::HitTest:
            put(ViewOpType::HitTest, IViewOpState::Processing);
            break;
        case Before::RayPick:
            put(ViewOpType::RayPick, IViewOpState::Processing);
            break;
        case Before::DragStart:
            put(ViewOpType::Drag, IViewOpState::Start);
            break;
        case Before::DragProcessing:
            put(ViewOpType::Drag, IViewOpState::Processing);
            break;
        case Before::DragEnd:
            put(ViewOpType::Drag, IViewOpState::End);
            break;
        case Before::DragReset:
            put(ViewOpType::Drag, IViewOpState::Reset);
            break;
        }
    }

    /// Puts an operation on the stack that is counted in Living().
    void put(OrvikCore::ViewOpType type, OrvikCore::IViewOpState state)
    {
        m_strategy.Stack().Push(new CountedOp(m_living, type, "before", state));
    }

    /// Hands an event to the strategy and checks what every conversion has in common.
    ///
    /// @return the text of the new operation, "none" when there is none.
    template <typename Event> std::string Convert(Event event)
    {
        const bool hadBefore = !m_strategy.Stack().IsEmpty();
        const bool hasOp = m_strategy.ConvertWindowEvent(&event);
        OrvikCore::IViewOp* top = m_strategy.Stack().Top();
        if (hasOp) {
            EXPECT_EQ(m_living, 0) << "the operation before is discarded";
            return OpText(top);
        }
        EXPECT_EQ(m_living, hadBefore ? 1 : 0) << "the operation before is kept";
        EXPECT_EQ(top != nullptr, hadBefore) << "and is on the stack again";
        return "none";
    }

    OrvikCore::Controller& Owner() { return m_controller; }
    ShownStrategy<Strategy>& Subject() { return m_strategy; }

    /// @return how many of the operations put on the stack are alive.
    int Living() const { return m_living; }

private:
    void movePointer(int x, int y)
    {
        OrvikCore::MouseEventArgs event(OrvikCore::MouseAction::Moved, x, y,
                                        OrvikCore::MouseButton::None, OrvikCore::ModifierKey::None);
        m_controller.HandleWindowEvent(&event);
    }

    int m_living = 0;
    OrvikCore::Controller m_controller;
    ShownStrategy<Strategy> m_strategy;
};

#endif
