#include "Faults.h"
#include "common/FaultThread.h"

#include <OrvikOs/FaultScope.h>

#include <malloc.h>
#include <windows.h>

#include <algorithm>
#include <atomic>
#include <csignal>
#include <cstddef>
#include <cstdint>
#include <mutex>
#include <new>

namespace OrvikOs {

namespace {

constexpr ULONG kStackForOverflow = 64 * 1024;
constexpr DWORD kFlagsToClear = 0x40000 | 0x400 | 0x100; ///< Alignment check, direction, trap.
constexpr std::uint32_t kSixErrors = 0x3F;
constexpr DWORD kExecuteKind = 8; ///< First detail of an access violation by instruction fetch.
constexpr DWORD kMultipleFaults = 0xC00002B4;
constexpr DWORD kMultipleTraps = 0xC00002B5;

/// What the thunk finds at its stack pointer: room for its callee, then what the processor pushes
/// on a fault, which the unwind information refers to.
struct ThunkFrame
{
    std::uint64_t room[4];
    std::uint64_t rip;
    std::uint64_t cs;
    std::uint64_t flags;
    std::uint64_t rsp;
    std::uint64_t ss;
    std::exception_ptr* exception; ///< Null when the hook is to be called.
    FaultInfo fault;
};

std::mutex g_installMutex;
unsigned g_threadsInScope = 0; ///< Guarded by g_installMutex.
void* g_vector = nullptr;      ///< Registration of the handler; guarded by g_installMutex.
std::atomic<bool> g_abortsConverted{true};
using SignalHandler = void (*)(int);
SignalHandler g_previousAbort = SIG_DFL; ///< What was in place before the first scope.

bool isFloatingPoint(DWORD code)
{
    return (code >= 0xC000008Du && code <= 0xC0000093u) || code == kMultipleFaults ||
           code == kMultipleTraps;
}

/// Tells whether @p code is a fault of the machine, and not an exception that somebody has raised.
bool isMachineFault(DWORD code)
{
    static constexpr DWORD kCodes[] = {0x80000002u, 0x80000003u, 0x80000004u, 0xC0000005u,
                                       0xC0000006u, 0xC000001Du, 0xC000008Cu, 0xC0000094u,
                                       0xC0000095u, 0xC0000096u, 0xC00000FDu};
    return isFloatingPoint(code) ||
           std::find(std::begin(kCodes), std::end(kCodes), code) != std::end(kCodes);
}

/// Chooses the code from the errors that are raised and not masked: the system calls a denormal
/// operand an underflow.
std::uint32_t floatingPointCode(const CONTEXT& context, std::uint32_t reported)
{
    const std::uint32_t errors = context.MxCsr & ~(context.MxCsr >> 7) & kSixErrors;
    if ((errors & 0x01u) != 0) {
        return EXCEPTION_FLT_INVALID_OPERATION;
    }
    if ((errors & 0x04u) != 0) {
        return EXCEPTION_FLT_DIVIDE_BY_ZERO;
    }
    if ((errors & 0x02u) != 0) {
        return EXCEPTION_FLT_DENORMAL_OPERAND;
    }
    if ((errors & 0x08u) != 0) {
        return EXCEPTION_FLT_OVERFLOW;
    }
    if ((errors & 0x10u) != 0) {
        return EXCEPTION_FLT_UNDERFLOW;
    }
    return (errors & 0x20u) != 0 ? EXCEPTION_FLT_INEXACT_RESULT : reported;
}

FaultInfo describe(const ::EXCEPTION_RECORD& source, const CONTEXT& context)
{
    FaultInfo fault;
    EXCEPTION_RECORD& record = fault.record;
    record.ExceptionCode = isFloatingPoint(source.ExceptionCode)
                               ? floatingPointCode(context, source.ExceptionCode)
                               : source.ExceptionCode;
    record.ExceptionFlags = source.ExceptionFlags;
    record.ExceptionAddress = source.ExceptionAddress;
    const bool hasDetails =
        source.ExceptionCode == 0xC0000005u || source.ExceptionCode == 0xC0000006u;
    record.NumberParameters = hasDetails ? source.NumberParameters : 0;
    for (DWORD i = 0; i < record.NumberParameters; ++i) {
        record.ExceptionInformation[i] = source.ExceptionInformation[i];
    }
    return fault;
}

/// Makes the context fit for unwinding: the program counter must lie within the code at fault.
void settleProgramCounter(const FaultInfo& fault, CONTEXT& context)
{
    const EXCEPTION_RECORD& record = fault.record;
    if (record.ExceptionCode == EXCEPTION_ACCESS_VIOLATION &&
        record.ExceptionInformation[0] == kExecuteKind &&
        record.ExceptionInformation[1] == context.Rip) {
        // A call or jump into nothing: go back to the caller, whose address is on top of the stack.
        context.Rip = *reinterpret_cast<const DWORD64*>(context.Rsp) - 1;
        context.Rsp += sizeof(DWORD64);
    }
}

} // namespace

// The personality routines of gcc look one byte before the address that they are given, so the
// frame carries the address behind the fault.
extern "C" void OrvikOs_FaultThunk();
asm(R"(
    .text
    .p2align 4
    .globl OrvikOs_FaultThunk
    .def OrvikOs_FaultThunk; .scl 2; .type 32; .endef
    .seh_proc OrvikOs_FaultThunk
OrvikOs_FaultThunk:
    .seh_pushframe
    .seh_stackalloc 32
    .seh_endprologue
    nop
    call OrvikOs_ThrowFromFault
    nop
    ud2
    .seh_endproc
)");

/// Goes on where the thread has faulted.
extern "C" [[noreturn]] __attribute__((used)) void OrvikOs_ThrowFromFault(ThunkFrame* frame)
{
    FaultThread& thread = t_faultThread;
    thread.converting = false;
    if (frame->exception == nullptr) {
        thread.hook(thread.hookContext, frame->fault);
        ThrowFault(frame->fault); // The hook has returned.
    }
    const std::exception_ptr exception = *frame->exception;
    delete frame->exception;
    std::rethrow_exception(exception);
}

namespace {

/// Makes the interrupted thread go on in the thunk.
void redirect(const FaultInfo& fault, std::exception_ptr* exception, CONTEXT& context)
{
    constexpr DWORD64 kAlignment = 16;
    const DWORD64 place = (context.Rsp - sizeof(ThunkFrame)) & ~(kAlignment - 1);
    auto* const frame = new (reinterpret_cast<void*>(place)) ThunkFrame;
    frame->rip = context.Rip + 1;
    frame->cs = context.SegCs;
    frame->flags = context.EFlags;
    frame->rsp = context.Rsp;
    frame->ss = context.SegSs;
    frame->exception = exception;
    frame->fault = fault;

    context.Rip = reinterpret_cast<DWORD64>(&OrvikOs_FaultThunk);
    context.Rsp = place;
    context.Rcx = place;
    context.EFlags &= ~kFlagsToClear;
    context.MxCsr &= ~kSixErrors;
    context.FltSave.MxCsr &= ~kSixErrors;
    context.FltSave.StatusWord = 0;
    context.FltSave.TagWord = 0;
}

LONG CALLBACK handleFault(EXCEPTION_POINTERS* pointers)
{
    FaultThread& thread = t_faultThread;
    const ::EXCEPTION_RECORD& source = *pointers->ExceptionRecord;
    if (thread.depth == 0 || thread.converting || !isMachineFault(source.ExceptionCode)) {
        return EXCEPTION_CONTINUE_SEARCH;
    }
    thread.converting = true;
    CONTEXT& context = *pointers->ContextRecord;
    const FaultInfo fault = describe(source, context);
    settleProgramCounter(fault, context);
    thread.guardOpen = thread.guardOpen || fault.record.ExceptionCode == EXCEPTION_STACK_OVERFLOW;
    if (thread.hook != nullptr) {
        redirect(fault, nullptr, context);
        return EXCEPTION_CONTINUE_EXECUTION;
    }
    const std::type_info* type = nullptr;
    void* object = nullptr;
    auto* const exception = new std::exception_ptr(MakeFaultException(fault, type, object));
    if (!SkipTerminatingFrames(context, type, object)) {
        StopConvertingAborts(); // The throw is going to end the program through std::terminate.
    }
    redirect(fault, exception, context);
    return EXCEPTION_CONTINUE_EXECUTION;
}

/// Called by abort() on the aborting thread; what it throws leaves from there.
void handleAbort(int number)
{
    const FaultThread& thread = t_faultThread;
    if (thread.depth == 0 || !g_abortsConverted.load(std::memory_order_acquire)) {
        if (g_previousAbort != SIG_DFL && g_previousAbort != SIG_IGN) {
            g_previousAbort(number);
        }
        return; // abort() goes on and ends the program.
    }
    std::signal(SIGABRT, &handleAbort); // The runtime has put the default back.
    FaultInfo fault;
    fault.kind = FaultKind::Abort;
    if (thread.hook != nullptr) {
        thread.hook(thread.hookContext, fault);
    }
    ThrowFault(fault);
}

} // namespace

void FaultScope::Enter()
{
    if (t_faultThread.depth == 0) {
        const std::lock_guard<std::mutex> lock(g_installMutex);
        if (g_threadsInScope++ == 0) {
            g_vector = AddVectoredExceptionHandler(/*First=*/1, &handleFault);
            g_previousAbort = std::signal(SIGABRT, &handleAbort);
        }
    }
    RearmStackGuard();
    ++t_faultThread.depth;
}

void FaultScope::Leave()
{
    RearmStackGuard();
    if (t_faultThread.depth == 0 || --t_faultThread.depth > 0) {
        return;
    }
    const std::lock_guard<std::mutex> lock(g_installMutex);
    if (--g_threadsInScope == 0) {
        RemoveVectoredExceptionHandler(g_vector);
        if (g_abortsConverted.load(std::memory_order_acquire)) {
            std::signal(SIGABRT, g_previousAbort);
        }
    }
}

bool FaultScope::RearmStackGuard()
{
    FaultThread& thread = t_faultThread;
    if (thread.guardOpen) {
        thread.guardOpen = _resetstkoflw() == 0;
    }
    return !thread.guardOpen;
}

void ReserveStackForFaults()
{
    ULONG bytes = kStackForOverflow;
    SetThreadStackGuarantee(&bytes);
}

void StopConvertingAborts() noexcept
{
    g_abortsConverted.store(false, std::memory_order_release);
    std::signal(SIGABRT, SIG_DFL);
}

} // namespace OrvikOs
