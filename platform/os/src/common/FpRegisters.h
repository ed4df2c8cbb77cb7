#ifndef ORVIKOS_COMMON_FPREGISTERS_H
#define ORVIKOS_COMMON_FPREGISTERS_H

#include <OrvikOs/FpControl.h>

namespace OrvikOs {

// Access to the floating-point control registers; one definition per kind of processor.

/// Reads both registers of the calling thread.
FpState ReadFpRegisters() noexcept;

/// Writes both registers of the calling thread, after clearing the status of the x87 unit: with a
/// stale error in it, the next x87 instruction would trap as soon as that error is unmasked.
void WriteFpRegisters(const FpState& state) noexcept;

} // namespace OrvikOs

#endif
