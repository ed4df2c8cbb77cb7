#ifndef ORVIKCORE_INPUT2OPSTRATEGY_H
#define ORVIKCORE_INPUT2OPSTRATEGY_H

#include "OrvikCore/Export.h"
#include "OrvikCore/InputStrategyState.h"

namespace OrvikCore {

class Controller;
class KeyEventArgs;
class MouseButtonEventArgs;
class MouseClickEventArgs;
class MouseEventArgs;
class MouseWheelEventArgs;
class OpStack;

/// Decides which view operation a window event means.
///
/// Every conversion pops the operation of the event before, decides on a new one, and pushes that
/// (the one before is discarded) or else the one before again. Its result is true when the event
/// meant an operation; a null event gives false and leaves the stack alone. An operation that
/// cannot be allocated counts as none.
///
/// Owned by a Controller, which calls it under its strategy lock.
class ORVIKCORE_API Input2OpStrategy
{
public:
    Input2OpStrategy(const Input2OpStrategy&) = delete;
    Input2OpStrategy& operator=(const Input2OpStrategy&) = delete;

    // Virtual operations in slot order; append only.

    virtual ~Input2OpStrategy();

    /// @return the kind of the strategy.
    virtual InputStrategyState InputState();

    /// @return true when a plain click picks.
    virtual bool SelectionIsSticky();

    virtual bool ConvertWindowEvent(KeyEventArgs* event) = 0;
    virtual bool ConvertWindowEvent(MouseWheelEventArgs* event) = 0;
    virtual bool ConvertWindowEvent(MouseClickEventArgs* event) = 0;
    virtual bool ConvertWindowEvent(MouseButtonEventArgs* event) = 0;
    virtual bool ConvertWindowEvent(MouseEventArgs* event) = 0;

protected:
    /// @param owner  the controller served (not owned); without one every conversion gives false.
    explicit Input2OpStrategy(Controller* owner);

    Controller* controller; ///< Not owned; may be null.
    InputStrategyState inputState = InputStrategyState::Select;
    bool sticky = false;
    OpStack* opStack; ///< The controller's, not owned; null without controller.
};

} // namespace OrvikCore

#endif
