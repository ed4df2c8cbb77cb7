#ifndef ORVIKOS_PROCESS_H
#define ORVIKOS_PROCESS_H

#include "OrvikOs/Export.h"

#include <cstdint>
#include <optional>

namespace OrvikOs {

/// Tells when a process began. Together with its number that names a process for good: numbers are
/// given again, but not with the same beginning.
///
/// @param processId  See CurrentProcessId().
/// @return a number that only grows, in units of the system; nothing when no such process runs, or
///         the system does not tell.
/// @thread  Any thread.
ORVIKOS_API std::optional<std::uint64_t> ProcessStartTime(std::uint32_t processId);

} // namespace OrvikOs

#endif
