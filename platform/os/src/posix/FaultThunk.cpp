#include "common/FaultThread.h"
#include "posix/Faults.h"

#include <cstddef>
#include <exception>

namespace OrvikOs {

// The thunk finds the frame at its stack pointer. Its unwind information says: this is a signal's
// frame, the caller's stack pointer is in the second word of the frame, its registers in the
// others. The escapes are DWARF expressions; (0x77, n) is "stack pointer plus n", 6 is "what is
// stored there".
static_assert(offsetof(FaultFrame, rip) == 0 && offsetof(FaultFrame, rsp) == 8 &&
              offsetof(FaultFrame, rbp) == 16 && offsetof(FaultFrame, rbx) == 24 &&
              offsetof(FaultFrame, r12) == 32 && offsetof(FaultFrame, r13) == 40 &&
              offsetof(FaultFrame, r14) == 48 && offsetof(FaultFrame, r15) == 56 &&
              offsetof(FaultFrame, r10) == 64);

asm(R"(
    .pushsection .text
    .p2align 4
    .globl OrvikOs_FaultThunk
    .hidden OrvikOs_FaultThunk
    .type OrvikOs_FaultThunk, @function
    .cfi_startproc
    .cfi_signal_frame
    .cfi_escape 0x0f, 0x03, 0x77, 0x08, 0x06
    .cfi_escape 0x10, 0x10, 0x02, 0x77, 0x00
    .cfi_escape 0x10, 0x06, 0x02, 0x77, 0x10
    .cfi_escape 0x10, 0x03, 0x02, 0x77, 0x18
    .cfi_escape 0x10, 0x0c, 0x02, 0x77, 0x20
    .cfi_escape 0x10, 0x0d, 0x02, 0x77, 0x28
    .cfi_escape 0x10, 0x0e, 0x02, 0x77, 0x30
    .cfi_escape 0x10, 0x0f, 0x02, 0x77, 0x38
    .cfi_escape 0x10, 0x0a, 0x03, 0x77, 0xc0, 0x00
    nop
OrvikOs_FaultThunk:
    movq %rsp, %rdi
    call OrvikOs_ThrowFromFault
    ud2
    .cfi_endproc
    .size OrvikOs_FaultThunk, .-OrvikOs_FaultThunk
    .popsection
)");

} // namespace OrvikOs

/// Goes on where the thread has faulted, in ordinary context: gives the hook its chance, makes the
/// exception and throws it as if the faulting instruction had.
extern "C" [[noreturn]] __attribute__((visibility("hidden"), used)) void
OrvikOs_ThrowFromFault(OrvikOs::FaultFrame* frame)
{
    OrvikOs::FaultThread& thread = OrvikOs::t_faultThread;
    if (thread.hook != nullptr && frame->fault.kind != OrvikOs::FaultKind::Interruption) {
        const OrvikOs::FaultInfo fault = frame->fault;
        thread.converting = false;
        thread.hook(thread.hookContext, fault);
        thread.converting = true;
    }
    const std::type_info* type = nullptr;
    void* object = nullptr;
    const std::exception_ptr exception = OrvikOs::MakeFaultException(frame->fault, type, object);
    if (!OrvikOs::SkipTerminatingFrames(*frame, type, object)) {
        // The throw is going to end the program through std::terminate, whose abort() must not
        // become the next exception that nobody catches.
        OrvikOs::StopConvertingAborts();
    }
    thread.converting = false;
    std::rethrow_exception(exception);
}
