#include "common/FaultThread.h"

#include <OrvikOs/FaultHook.h>
#include <OrvikOs/FaultScope.h>
#include <OrvikOs/FileWriting.h>

#include <cxxabi.h>

#include <atomic>
#include <cstdio>
#include <string>
#include <utility>

namespace OrvikOs {

thread_local constinit FaultThread t_faultThread;

namespace {

std::atomic<FaultTranslator> g_translator{nullptr};
std::atomic<PureCallHandler> g_pureCall{nullptr};
std::atomic<InvalidParameterHandler> g_invalidParameter{nullptr};
std::atomic<AbortHandler> g_abort{nullptr};

void throwMachineFault(const EXCEPTION_RECORD& record)
{
    throw MachineFault(record);
}

void throwPureCall()
{
    throw std::logic_error("Pure virtual call");
}

void throwInvalidParameter(const wchar_t*, const wchar_t*, const wchar_t*, unsigned)
{
    throw std::invalid_argument("Invalid parameter");
}

void throwAbort()
{
    throw std::runtime_error("Abnormal abort.");
}

/// Chooses the thread's handler, else the process's, else the built-in one.
template <typename Handler>
Handler choose(Handler ofThread, const std::atomic<Handler>& ofProcess, Handler builtIn)
{
    if (ofThread != nullptr) {
        return ofThread;
    }
    const Handler handler = ofProcess.load(std::memory_order_acquire);
    return handler != nullptr ? handler : builtIn;
}

void callInvalidParameterHandler(const wchar_t* expression, const wchar_t* function,
                                 const wchar_t* file, unsigned line)
{
    choose(t_faultThread.handlers.invalidParameter, g_invalidParameter,
           &throwInvalidParameter)(expression, function, file, line);
}

/// Gives the hook of the thread its chance to leave by its own way.
void offerToHook(FaultKind kind)
{
    const FaultThread& thread = t_faultThread;
    if (thread.hook != nullptr) {
        FaultInfo fault;
        fault.kind = kind;
        thread.hook(thread.hookContext, fault);
    }
}

std::string describe(const EXCEPTION_RECORD& record)
{
    char text[64];
    std::snprintf(
        text, sizeof text, "Machine fault 0x%08X at 0x%08llX",
        static_cast<unsigned>(record.ExceptionCode),
        static_cast<unsigned long long>(reinterpret_cast<std::uintptr_t>(record.ExceptionAddress)));
    return text;
}

} // namespace

FaultScope::FaultScope()
{
    Enter();
}

FaultScope::~FaultScope()
{
    Leave();
}

unsigned FaultScope::Depth()
{
    return t_faultThread.depth;
}

MachineFault::MachineFault(const EXCEPTION_RECORD& record)
    : std::runtime_error(describe(record)), m_record(record)
{
}

MachineFault::~MachineFault() = default;

const EXCEPTION_RECORD& MachineFault::Record() const
{
    return m_record;
}

FaultHandlers SetProcessFaultHandlers(const FaultHandlers& handlers)
{
    FaultHandlers previous;
    previous.translator = g_translator.exchange(handlers.translator, std::memory_order_acq_rel);
    previous.pureCall = g_pureCall.exchange(handlers.pureCall, std::memory_order_acq_rel);
    previous.invalidParameter =
        g_invalidParameter.exchange(handlers.invalidParameter, std::memory_order_acq_rel);
    previous.abort = g_abort.exchange(handlers.abort, std::memory_order_acq_rel);
    return previous;
}

FaultHandlers GetThreadFaultHandlers()
{
    return t_faultThread.handlers;
}

FaultHandlers SetThreadFaultHandlers(const FaultHandlers& handlers)
{
    return std::exchange(t_faultThread.handlers, handlers);
}

FaultTranslator SetFaultTranslator(FaultTranslator translator)
{
    return std::exchange(t_faultThread.handlers.translator, translator);
}

PureCallHandler SetPureCallHandler(PureCallHandler handler)
{
    return std::exchange(t_faultThread.handlers.pureCall, handler);
}

InvalidParameterHandler SetInvalidParameterHandler(InvalidParameterHandler handler)
{
    return std::exchange(t_faultThread.handlers.invalidParameter, handler);
}

AbortHandler SetAbortHandler(AbortHandler handler)
{
    return std::exchange(t_faultThread.handlers.abort, handler);
}

void ThrowFault(const FaultInfo& fault)
{
    const FaultHandlers& own = t_faultThread.handlers;
    switch (fault.kind) {
    case FaultKind::Machine:
        choose(own.translator, g_translator, &throwMachineFault)(fault.record);
        break;
    case FaultKind::PureCall:
        choose(own.pureCall, g_pureCall, &throwPureCall)();
        break;
    case FaultKind::InvalidParameter:
        callInvalidParameterHandler(nullptr, nullptr, nullptr, 0);
        break;
    case FaultKind::Abort:
        choose(own.abort, g_abort, &throwAbort)();
        break;
    case FaultKind::Interruption:
        t_faultThread.interrupter(t_faultThread.interrupterContext);
        break;
    }
    std::terminate(); // A handler that returns has nothing to go back to.
}

std::exception_ptr MakeFaultException(const FaultInfo& fault, const std::type_info*& type,
                                      void*& object)
{
    try {
        ThrowFault(fault);
    } catch (std::exception& thrown) {
        type = abi::__cxa_current_exception_type();
        object = dynamic_cast<void*>(&thrown);
        return std::current_exception();
    } catch (...) {
        type = abi::__cxa_current_exception_type();
        object = nullptr;
        return std::current_exception();
    }
}

void RaisePureCall()
{
    if (t_faultThread.depth == 0) {
        WriteStandardStream(StandardStream::Error, "pure virtual method called\n");
        std::terminate();
    }
    offerToHook(FaultKind::PureCall);
    FaultInfo fault;
    fault.kind = FaultKind::PureCall;
    ThrowFault(fault);
}

void RaiseInvalidParameter(const wchar_t* function, const wchar_t* file, unsigned line,
                           const wchar_t* expression)
{
    if (t_faultThread.depth == 0) {
        std::terminate();
    }
    offerToHook(FaultKind::InvalidParameter);
    callInvalidParameterHandler(expression, function, file, line);
    std::terminate(); // A handler that returns has nothing to go back to.
}

FaultHookScope::FaultHookScope(FaultHook hook, void* context)
    : m_previousHook(std::exchange(t_faultThread.hook, hook)),
      m_previousContext(std::exchange(t_faultThread.hookContext, context))
{
}

FaultHookScope::~FaultHookScope()
{
    t_faultThread.hook = m_previousHook;
    t_faultThread.hookContext = m_previousContext;
}

} // namespace OrvikOs
