#ifndef ORVIKOS_RUNAPART_H
#define ORVIKOS_RUNAPART_H

#include "OrvikOs/Export.h"

#include <cstddef>
#include <cstdint>
#include <functional>

namespace OrvikOs {

/// What a function that runs apart may take; 0 for no limit.
struct ApartLimits
{
    std::uint64_t memoryBytes = 0;      ///< Beyond what the process has already.
    std::uint32_t processorSeconds = 0; ///< Processor time.
};

/// How a function that ran apart has ended.
enum class ApartEnd : int
{
    Returned = 0,    ///< It returned, and all that it wrote was taken.
    Threw = 1,       ///< It let an exception out.
    Faulted = 2,     ///< A machine fault, an abort or a signal from outside ended it.
    TimeUp = 3,      ///< It took more processor time than it may.
    Stopped = 4,     ///< Who takes wanted no more.
    Unavailable = 5, ///< The system runs nothing apart, or refuses it now: it was not called.
};

/// Hands bytes to the one who takes; blocks while that one is behind. False when nobody takes any
/// more.
using ApartWriter = std::function<bool(const void* bytes, std::size_t count)>;

/// Runs a function in a copy of this process, so that what it does to memory, stack and locks stays
/// there: for libraries that do not survive damaged files.
///
/// The copy has one thread, the caller's. It sees everything as it is at the call, nothing that
/// happens later, and changes nothing here but by what it writes; its standard streams lead
/// nowhere. It must not use what other threads hold locks of: its own data, the allocator and files
/// are safe, windows and OpenGL are not. It ends without destructors of static objects, and with
/// this process when that ends first. Memory that cannot be had makes its allocations fail.
///
/// A limit of memory does not hold in builds with a sanitizer, whose own memory counts.
///
/// @param work    Runs in the copy.
/// @param limits  Of the copy.
/// @param take    Gets what @p work writes, in pieces of any size, on the calling thread; also
///                called with nothing, at least every 50 ms while nothing comes. False ends the
///                copy at once.
/// @thread        Any thread; blocks until the copy has ended.
ORVIKOS_API ApartEnd
RunApart(const std::function<void(const ApartWriter& write)>& work, const ApartLimits& limits,
         const std::function<bool(const void* bytes, std::size_t count)>& take);

} // namespace OrvikOs

#endif
