#include "common/FpRegisters.h"

#include <OrvikOs/FpControl.h>

namespace OrvikOs {

namespace {

constexpr std::uint32_t kStatusBits = 0x3F; ///< Error flags of the SSE register.
constexpr unsigned kSseMaskShift = 7;       ///< Where the six mask bits stand in the SSE register.
constexpr std::uint32_t kSixMasks = 0x3F;   ///< The six mask bits in the processor's order.
constexpr int kInvalidMask = 22;            ///< The C runtime's number of an invalid argument.

/// The six errors in the processor's order: invalid, denormal, zero divide, overflow, underflow,
/// inexact.
constexpr unsigned kProcessorOrder[] = {kEM_INVALID,  kEM_DENORMAL,  kEM_ZERODIVIDE,
                                        kEM_OVERFLOW, kEM_UNDERFLOW, kEM_INEXACT};

unsigned toControlWord(std::uint32_t processorMasks)
{
    unsigned word = 0;
    for (unsigned bit = 0; bit < 6; ++bit) {
        if ((processorMasks >> bit & 1u) != 0) {
            word |= kProcessorOrder[bit];
        }
    }
    return word;
}

std::uint32_t toProcessorMasks(unsigned word)
{
    std::uint32_t masks = 0;
    for (unsigned bit = 0; bit < 6; ++bit) {
        if ((word & kProcessorOrder[bit]) != 0) {
            masks |= 1u << bit;
        }
    }
    return masks;
}

} // namespace

unsigned FpControl::ControlWord() noexcept
{
    return toControlWord(ReadFpRegisters().mxcsr >> kSseMaskShift & kSixMasks);
}

int FpControl::SetControlWord(unsigned value, unsigned mask) noexcept
{
    if ((mask & ~kMCW_EM) != 0) {
        return kInvalidMask;
    }
    FpState state = ReadFpRegisters();
    const unsigned current = toControlWord(state.mxcsr >> kSseMaskShift & kSixMasks);
    const std::uint32_t masks = toProcessorMasks((current & ~mask) | (value & mask));

    state.mxcsr &= ~(kSixMasks << kSseMaskShift | kStatusBits);
    state.mxcsr |= masks << kSseMaskShift;
    state.x87ControlWord = static_cast<std::uint16_t>((state.x87ControlWord & ~kSixMasks) | masks);
    WriteFpRegisters(state);
    return 0;
}

void FpControl::ClearStatus() noexcept
{
    Restore(ReadFpRegisters());
}

FpState FpControl::Save() noexcept
{
    return ReadFpRegisters();
}

void FpControl::Restore(const FpState& state) noexcept
{
    FpState cleared = state;
    cleared.mxcsr &= ~kStatusBits;
    WriteFpRegisters(cleared);
}

} // namespace OrvikOs
