#ifndef ORVIKCORE_INPUT2OPSTRATEGYSELECT_H
#define ORVIKCORE_INPUT2OPSTRATEGYSELECT_H

#include "OrvikCore/Export.h"
#include "OrvikCore/Input2OpStrategy.h"

namespace OrvikCore {

class IViewOp;

/// The strategy whose plain click targets the camera; Ctrl and a click pick.
class ORVIKCORE_API Input2OpStrategySelect : public Input2OpStrategy
{
public:
    /// @param owner  the controller served; not owned.
    explicit Input2OpStrategySelect(Controller* owner);
    ~Input2OpStrategySelect() override;

    /// Shift pressed without modifiers ends a hover, or drops a ray pick made before, and then
    /// gives true without an operation; Escape ends a drag.
    bool ConvertWindowEvent(KeyEventArgs* event) override;

    /// Zooms by five times the wheel's steps.
    bool ConvertWindowEvent(MouseWheelEventArgs* event) override;

    /// A plain click targets the camera, Ctrl and a click pick.
    bool ConvertWindowEvent(MouseClickEventArgs* event) override;

    /// Shift and the selection button begin and end a drag.
    bool ConvertWindowEvent(MouseButtonEventArgs* event) override;

    /// Rotates, pans, zooms, hovers or drags by buttons and modifiers.
    bool ConvertWindowEvent(MouseEventArgs* event) override;

protected:
    /// Ends a conversion: pushes @p op and discards @p previous, or pushes @p previous again.
    ///
    /// @param previous  the operation popped at the start (transferred in; may be null).
    /// @param op        the new operation (transferred in), or null for none.
    /// @return true when there is a new operation.
    bool conclude(IViewOp* previous, IViewOp* op);

private:
    IViewOp* motionOp(MouseEventArgs& event, const IViewOp* previous);
    IViewOp* plainMotionOp(MouseEventArgs& event, const IViewOp* previous);
    IViewOp* buttonOp(MouseButtonEventArgs& event, const IViewOp* previous);
};

} // namespace OrvikCore

#endif
