#ifndef TAMBCOMMANDSINFRA_HPT_H
#define TAMBCOMMANDSINFRA_HPT_H

#include "TambCommandsInfra/Export.h"

#include <cstdint>

namespace TambCommandsInfra {

/// High-precision timer: how long something has taken, by the monotonic clock of OrvikOs.
///
/// @thread  Not shared: each thread uses its own object.
class TAMBCOMMANDSINFRA_API Hpt
{
public:
    /// Starts at once.
    Hpt();

    /// Starts again from zero.
    void Start();

    /// Gives the time since the last start in seconds; never negative.
    double ElapsedSeconds() const;

    /// Gives the time since the last start in milliseconds; never negative.
    double ElapsedMilliseconds() const;

private:
    std::uint64_t m_startUs = 0; ///< Reading of the clock at the last start, in microseconds.
};

} // namespace TambCommandsInfra

#endif
