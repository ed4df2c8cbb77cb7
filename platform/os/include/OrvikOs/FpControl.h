#ifndef ORVIKOS_FPCONTROL_H
#define ORVIKOS_FPCONTROL_H

#include "OrvikOs/Export.h"

#include <cstdint>

namespace OrvikOs {

// Names and values are those of the Windows C runtime's control word, on every system.
// NOLINTBEGIN(readability-identifier-naming)
inline constexpr unsigned kEM_INEXACT =
    0x00001; ///< _EM_INEXACT: set = an inexact result does not trap.
inline constexpr unsigned kEM_UNDERFLOW = 0x00002;  ///< _EM_UNDERFLOW
inline constexpr unsigned kEM_OVERFLOW = 0x00004;   ///< _EM_OVERFLOW
inline constexpr unsigned kEM_ZERODIVIDE = 0x00008; ///< _EM_ZERODIVIDE
inline constexpr unsigned kEM_INVALID = 0x00010;    ///< _EM_INVALID
inline constexpr unsigned kEM_DENORMAL =
    0x80000;                                 ///< _EM_DENORMAL: a denormal operand does not trap.
inline constexpr unsigned kMCW_EM = 0x8001F; ///< _MCW_EM: all six together.
// NOLINTEND(readability-identifier-naming)

/// The floating-point control registers of a thread, raw.
struct FpState
{
    std::uint32_t mxcsr = 0x1F80;         ///< SSE control and status register.
    std::uint16_t x87ControlWord = 0x37F; ///< x87 control word.
};

/// Which floating-point errors trap on the calling thread.
///
/// Both units of the processor are always set alike: code that copies the masks of one to the other
/// (a garbage collector does) then changes nothing. Denormal operands are honoured, which the
/// Windows runtime's own function does not do. A new thread inherits the setting of its creator. On
/// processors without traps the word is kept and has no effect.
///
/// @thread  Acts on the calling thread.
class ORVIKOS_API FpControl
{
public:
    FpControl() = delete;

    /// Gives the control word: the kEM_ bits that are masked (do not trap). kMCW_EM by default.
    static unsigned ControlWord() noexcept;

    /// Sets the bits of @p mask to those of @p value, in both units; the status is cleared first.
    ///
    /// @param value  kEM_ bits; a set bit keeps the error from trapping.
    /// @param mask   Which bits to change, within kMCW_EM.
    /// @return 0, or 22 when @p mask holds other bits (nothing is changed then).
    static int SetControlWord(unsigned value, unsigned mask) noexcept;

    /// Forgets errors met so far in both units, so that an old one cannot trap later.
    static void ClearStatus() noexcept;

    /// Gives the raw registers, status bits included.
    static FpState Save() noexcept;

    /// Puts raw registers back, with their status bits cleared.
    static void Restore(const FpState& state) noexcept;
};

} // namespace OrvikOs

#endif
