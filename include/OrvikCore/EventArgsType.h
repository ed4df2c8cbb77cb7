#ifndef ORVIKCORE_EVENTARGSTYPE_H
#define ORVIKCORE_EVENTARGSTYPE_H

#include <cstdint>

namespace OrvikCore {

/// The classes of window events that a Controller handles; each can be switched off there.
enum class EventArgsType : std::int32_t
{
    MouseEventArgs = 0,
    MouseButtonEventArgs = 1,
    MouseClickEventArgs = 2,
    MouseWheelEventArgs = 3,
    KeyEventArgs = 4
};

} // namespace OrvikCore

#endif
