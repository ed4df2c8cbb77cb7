#include "common/FpRegisters.h"

namespace OrvikOs {

namespace {

/// The word is kept per thread, so that what is set can be read back; nothing traps.
thread_local FpState t_state;

} // namespace

FpState ReadFpRegisters() noexcept
{
    return t_state;
}

void WriteFpRegisters(const FpState& state) noexcept
{
    t_state = state;
}

} // namespace OrvikOs
