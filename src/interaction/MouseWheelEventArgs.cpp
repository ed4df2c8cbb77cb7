#include "OrvikCore/MouseWheelEventArgs.h"

namespace OrvikCore {

MouseWheelEventArgs::MouseWheelEventArgs(int steps, int column, int row)
    : AMouseEventArgs(column, row), delta(steps)
{
}

EventArgsType MouseWheelEventArgs::Type()
{
    return EventArgsType::MouseWheelEventArgs;
}

} // namespace OrvikCore
