#ifndef ORVIKCORE_INPUT2OPSTRATEGYSTICKYSELECT_H
#define ORVIKCORE_INPUT2OPSTRATEGYSTICKYSELECT_H

#include "OrvikCore/Export.h"
#include "OrvikCore/Input2OpStrategySelect.h"

namespace OrvikCore {

/// The strategy whose plain click picks; the one that a new Controller starts with.
class ORVIKCORE_API Input2OpStrategyStickySelect : public Input2OpStrategySelect
{
public:
    /// @param owner  the controller served; not owned.
    explicit Input2OpStrategyStickySelect(Controller* owner);
    ~Input2OpStrategyStickySelect() override;

    using Input2OpStrategySelect::ConvertWindowEvent;

    /// Shift released ends a hover, or drops a ray pick made before, and then gives true without an
    /// operation; Escape ends a drag when pressed and clears the selection when released; Shift and
    /// Alt together begin and end an enhanced hover.
    bool ConvertWindowEvent(KeyEventArgs* event) override;

    /// A plain click picks, Ctrl and a click add to the selection, Alt and a click hover once.
    bool ConvertWindowEvent(MouseClickEventArgs* event) override;

private:
    IViewOp* keyOpWithModifiers(KeyEventArgs& event);
};

} // namespace OrvikCore

#endif
