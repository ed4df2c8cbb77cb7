#ifndef ORVIKCORE_AEVENTARGS_H
#define ORVIKCORE_AEVENTARGS_H

#include "OrvikCore/EventArgsType.h"
#include "OrvikCore/Export.h"

#include <type_traits>

namespace OrvikCore {

/// The description of one window event: a small value made by the host, handed to a Controller by
/// pointer and not kept.
///
/// No class of this family has a virtual destructor: the table holds Type() alone. The destructors
/// of the abstract classes are protected, so that none is deleted through a base.
///
/// @thread  Any thread; a value like any other.
class ORVIKCORE_API AEventArgs
{
public:
    /// @return the class of the event.
    virtual EventArgsType Type() = 0;

protected:
    AEventArgs() = default;
    AEventArgs(const AEventArgs&) = default;
    AEventArgs& operator=(const AEventArgs&) = default;
    ~AEventArgs() = default;
};

static_assert(!std::has_virtual_destructor_v<AEventArgs>);

} // namespace OrvikCore

#endif
