#ifndef ORVIKCORE_MOUSEWHEELEVENTARGS_H
#define ORVIKCORE_MOUSEWHEELEVENTARGS_H

#include "OrvikCore/AMouseEventArgs.h"
#include "OrvikCore/Export.h"

namespace OrvikCore {

/// A turn of the mouse wheel.
class ORVIKCORE_API MouseWheelEventArgs final : public AMouseEventArgs
{
public:
    /// @param steps  the turn in the host's steps; positive moves the eye away from the target.
    /// @param column window pixels.
    /// @param row    window pixels.
    MouseWheelEventArgs(int steps, int column, int row);

    int Delta() const { return delta; }

    /// @return EventArgsType::MouseWheelEventArgs.
    EventArgsType Type() override;

private:
    int delta;
};

static_assert(!std::has_virtual_destructor_v<MouseWheelEventArgs>);

} // namespace OrvikCore

#endif
