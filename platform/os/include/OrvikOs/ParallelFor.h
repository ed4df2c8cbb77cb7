#ifndef ORVIKOS_PARALLELFOR_H
#define ORVIKOS_PARALLELFOR_H

#include "OrvikOs/Export.h"

#include <cstddef>
#include <functional>

namespace OrvikOs {

/// Runs a loop on several threads at once and returns when all of it is done.
///
/// The range [0, count) is cut into pieces of at most @p grain; each piece is handed out once, in
/// rising order of its start, to whichever thread is free. The caller works too. Floating-point
/// traps are masked and a fault scope is open while pieces run; faults become exceptions through
/// the caller's own handlers. The first exception of any piece stops the handing out of further
/// pieces and is thrown here after all running ones have ended. A call from inside a piece runs on
/// the calling thread alone.
///
/// @param count  Number of elements; 0 returns at once.
/// @param grain  Largest number of elements per piece; 0 counts as 1. A piece should take some 10
/// us or more.
/// @param body   Called as body(begin, end) with begin < end, on several threads at a time; must
/// not hold
///               locks that the caller holds.
/// @throws what a piece throws.
/// @thread  Any thread, several at a time.
ORVIKOS_API void ParallelFor(std::size_t count, std::size_t grain,
                             const std::function<void(std::size_t begin, std::size_t end)>& body);

/// Gives how many threads a loop can use at most, the caller's included: the processors that this
/// process may use, or what the environment variable ORVIK_THREADS says (1 to 256). Never 0.
///
/// @thread  Any thread.
ORVIKOS_API unsigned ParallelWidth();

} // namespace OrvikOs

#endif
