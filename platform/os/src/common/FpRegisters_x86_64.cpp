#include "common/FpRegisters.h"

namespace OrvikOs {

FpState ReadFpRegisters() noexcept
{
    FpState state;
    asm volatile("stmxcsr %0" : "=m"(state.mxcsr));
    asm volatile("fnstcw %0" : "=m"(state.x87ControlWord));
    return state;
}

void WriteFpRegisters(const FpState& state) noexcept
{
    asm volatile("fnclex\n\tfldcw %0" : : "m"(state.x87ControlWord) : "memory");
    asm volatile("ldmxcsr %0" : : "m"(state.mxcsr) : "memory");
}

} // namespace OrvikOs
