#include "FaultProbe.h"
#include "FaultSubjects.h"

#include <OrvikOs/FaultHook.h>
#include <OrvikOs/FaultScope.h>
#include <OrvikOs/Thread.h>

#include <gtest/gtest.h>
#include <malloc.h>

#include <csetjmp>
#include <csignal>
#include <cstdlib>
#include <mutex>
#include <stdexcept>
#include <string>

namespace {

struct FaultAsText : std::runtime_error
{
    using std::runtime_error::runtime_error;
};

void translateToText(const OrvikOs::EXCEPTION_RECORD& record)
{
    throw FaultAsText("translated " + std::to_string(record.ExceptionCode));
}

void returnFromTranslator(const OrvikOs::EXCEPTION_RECORD&) {}

TEST(FaultScope, AbortBecomesRuntimeError)
{
    EXPECT_EQ(RunInScope(&Subjects::Abort).text, "Abnormal abort.");
}

TEST(FaultScope, AbortCanHappenAThousandTimes)
{
    const OrvikOs::FaultScope scope;
    int caught = 0;
    for (int i = 0; i < 1000; ++i) {
        caught += RunAsIs(&Subjects::Abort).text == "Abnormal abort." ? 1 : 0;
    }
    EXPECT_EQ(caught, 1000);
}

TEST(FaultScope, FailedAssertionBecomesRuntimeError)
{
    EXPECT_EQ(RunInScope(&Subjects::FailedAssertion).text, "Abnormal abort.");
}

TEST(FaultScope, PureCallBecomesLogicError)
{
    EXPECT_EQ(RunInScope(&Subjects::PureCall).text, "Pure virtual call");
}

TEST(FaultScope, TextOfUntranslatedFaultNamesCodeAndAddress)
{
    const Outcome outcome = RunInScope(&Subjects::ExecuteNull);
    EXPECT_EQ(outcome.text, "Machine fault 0xC0000005 at 0x00000000");
}

TEST(FaultScope, InvalidParameterBecomesInvalidArgument)
{
    const Outcome outcome =
        RunInScope([] { OrvikOs::RaiseInvalidParameter(L"function", L"file", 3, L"expression"); });
    EXPECT_EQ(outcome.text, "Invalid parameter");
}

TEST(FaultScope, InvalidParameterHandlerGetsTheDetails)
{
    OrvikOs::SetInvalidParameterHandler([](const wchar_t* expression, const wchar_t* function,
                                           const wchar_t* file, unsigned line) {
        const bool matches = std::wstring(expression) == L"e" && std::wstring(function) == L"f" &&
                             std::wstring(file) == L"p" && line == 7;
        throw std::runtime_error(matches ? "details are there" : "details are wrong");
    });
    const Outcome outcome = RunInScope([] { OrvikOs::RaiseInvalidParameter(L"f", L"p", 7, L"e"); });
    EXPECT_EQ(outcome.text, "details are there");
}

TEST(FaultScope, ThreadTranslatorDecidesWhatIsThrown)
{
    OrvikOs::SetFaultTranslator(&translateToText);
    EXPECT_EQ(RunInScope(&Subjects::IllegalInstruction).text, "translated 3221225501");
}

TEST(FaultScope, ProcessTranslatorServesThreadsWithoutTheirOwn)
{
    OrvikOs::FaultHandlers handlers;
    handlers.translator = &translateToText;
    OrvikOs::SetProcessFaultHandlers(handlers);
    EXPECT_EQ(RunInScope(&Subjects::IllegalInstruction).text, "translated 3221225501");
}

TEST(FaultScope, SetTranslatorGivesTheOneBefore)
{
    EXPECT_EQ(OrvikOs::SetFaultTranslator(&translateToText), nullptr);
    EXPECT_EQ(OrvikOs::SetFaultTranslator(nullptr), &translateToText);
    EXPECT_EQ(OrvikOs::SetFaultTranslator(nullptr), nullptr);
}

TEST(FaultScope, TenThousandFaultsLeakNothing)
{
    const OrvikOs::FaultScope scope;
    for (int i = 0; i < 100; ++i) {
        RunAsIs(&Subjects::WriteNull);
    }
    const std::size_t before = mallinfo2().uordblks;

    int caught = 0;
    for (int i = 0; i < 10000; ++i) {
        caught += RunAsIs(&Subjects::WriteNull).machineFault ? 1 : 0;
    }

    EXPECT_EQ(caught, 10000);
    EXPECT_LE(mallinfo2().uordblks, before + 4096);
}

TEST(FaultScope, DepthCountsNestedScopes)
{
    EXPECT_EQ(OrvikOs::FaultScope::Depth(), 0u);
    {
        const OrvikOs::FaultScope outer;
        const OrvikOs::FaultScope inner;
        EXPECT_EQ(OrvikOs::FaultScope::Depth(), 2u);
    }
    EXPECT_EQ(OrvikOs::FaultScope::Depth(), 0u);
}

TEST(FaultScope, LeaveWithoutScopeDoesNothing)
{
    OrvikOs::FaultScope::Leave();
    EXPECT_EQ(OrvikOs::FaultScope::Depth(), 0u);
}

TEST(FaultScope, OuterScopeWorksAfterInnerHasEnded)
{
    const OrvikOs::FaultScope outer;
    EXPECT_TRUE(RunInScope(&Subjects::ReadNull).machineFault);
    EXPECT_TRUE(RunAsIs(&Subjects::ReadNull).machineFault);
}

TEST(FaultScope, FaultInsideACatchClauseIsConverted)
{
    const OrvikOs::FaultScope scope;
    bool caught = false;
    try {
        throw std::runtime_error("first");
    } catch (const std::runtime_error&) {
        caught = RunAsIs(&Subjects::ReadNull).machineFault;
    }
    EXPECT_TRUE(caught);
}

TEST(FaultScope, FaultInADestructorThatCatchesItDuringUnwindingIsConverted)
{
    struct Faulting
    {
        bool* caught;
        ~Faulting() { *caught = RunAsIs(&Subjects::ReadNull).machineFault; }
    };
    static bool innerCaught = false;
    const Outcome outcome = RunInScope([] {
        const Faulting object{&innerCaught};
        Subjects::WriteNull();
    });
    EXPECT_TRUE(outcome.machineFault);
    EXPECT_TRUE(innerCaught);
}

TEST(FaultScope, DestructorsOfCallersRun)
{
    struct Marker
    {
        bool* ran;
        ~Marker() { *ran = true; }
    };
    static bool ran = false;
    RunInScope([] {
        const Marker marker{&ran};
        void (*volatile subject)() = &Subjects::ReadNull;
        subject();
    });
    EXPECT_TRUE(ran);
}

TEST(FaultScope, LockGuardsOfCallersAreReleased)
{
    static std::mutex mutex;
    RunInScope([] {
        const std::lock_guard<std::mutex> lock(mutex);
        void (*volatile subject)() = &Subjects::DivideByZero;
        subject();
    });
    ASSERT_TRUE(mutex.try_lock());
    mutex.unlock();
}

TEST(FaultScope, NoexceptFramesArePassed)
{
    const Outcome outcome = RunInScope([] {
        struct Quiet
        {
            static __attribute__((noinline)) void Call() noexcept
            {
                void (*volatile subject)() = &Subjects::ReadNull;
                subject();
            }
        };
        Quiet::Call();
    });
    EXPECT_TRUE(outcome.machineFault);
}

TEST(FaultScope, NearestHandlerBeyondANoexceptFrameCatches)
{
    static std::string caughtBy;
    const Outcome outcome = RunInScope([] {
        struct Inner
        {
            static __attribute__((noinline)) void Quiet() noexcept
            {
                void (*volatile subject)() = &Subjects::ReadNull;
                subject();
            }
        };
        void (*volatile quiet)() = &Inner::Quiet;
        try {
            quiet();
        } catch (const OrvikOs::MachineFault&) {
            caughtBy = "inner";
        }
    });
    EXPECT_TRUE(outcome.returned);
    EXPECT_EQ(caughtBy, "inner");
}

TEST(FaultScope, HandlerInsideANoexceptFrameCatches)
{
    static std::string caughtBy;
    const Outcome outcome = RunInScope([] {
        struct Inner
        {
            static __attribute__((noinline)) void Careful() noexcept
            {
                void (*volatile subject)() = &Subjects::ReadNull;
                try {
                    subject();
                } catch (const std::exception&) {
                    caughtBy = "careful";
                }
            }
        };
        Inner::Careful();
    });
    EXPECT_TRUE(outcome.returned);
    EXPECT_EQ(caughtBy, "careful");
}

TEST(FaultScope, HandlerOfAnotherTypeDoesNotHideTheOneThatCatches)
{
    static std::string caughtBy;
    struct Chain
    {
        static void Choosy()
        {
            void (*volatile subject)() = &Subjects::ReadNull;
            try {
                subject();
            } catch (const std::bad_alloc&) {
                caughtBy = "wrong";
            }
        }
        static void Quiet() noexcept
        {
            void (*volatile choosy)() = &Choosy;
            choosy();
        }
    };

    const Outcome outcome = RunInScope(&Chain::Quiet);

    EXPECT_TRUE(outcome.machineFault);
    EXPECT_EQ(caughtBy, "");
}

std::jmp_buf g_escape;

struct HookLog
{
    int calls = 0;
    OrvikOs::FaultInfo fault;
};

void escapeFromFault(void* context, const OrvikOs::FaultInfo& fault)
{
    auto* const log = static_cast<HookLog*>(context);
    ++log->calls;
    log->fault = fault;
    std::longjmp(g_escape, 1);
}

/// Runs @p subject with a hook that leaves by a long jump.
void runWithHook(void (*subject)(), HookLog& log)
{
    const OrvikOs::FaultScope scope;
    const OrvikOs::FaultHookScope hook(&escapeFromFault, &log);
    if (setjmp(g_escape) == 0) {
        void (*volatile opaque)() = subject;
        opaque();
    }
}

TEST(FaultHook, GetsMachineFaultsInsteadOfAnException)
{
    HookLog log;
    runWithHook(&Subjects::WriteNull, log);
    EXPECT_EQ(log.calls, 1);
    EXPECT_EQ(log.fault.kind, OrvikOs::FaultKind::Machine);
    EXPECT_EQ(log.fault.record.ExceptionCode, 0xC0000005u);
    EXPECT_EQ(log.fault.record.ExceptionInformation[0], 1u);
}

TEST(FaultHook, GetsAbortsAndPureCalls)
{
    HookLog log;
    runWithHook(&Subjects::Abort, log);
    EXPECT_EQ(log.fault.kind, OrvikOs::FaultKind::Abort);
    runWithHook(&Subjects::PureCall, log);
    EXPECT_EQ(log.fault.kind, OrvikOs::FaultKind::PureCall);
    EXPECT_EQ(log.calls, 2);
}

TEST(FaultHook, WorksAThousandTimesInARow)
{
    HookLog log;
    for (int i = 0; i < 1000; ++i) {
        runWithHook(&Subjects::DivideByZero, log);
    }
    EXPECT_EQ(log.calls, 1000);
}

TEST(FaultHook, NullHookMakesFaultsExceptionsAgain)
{
    HookLog log;
    const OrvikOs::FaultHookScope hook(&escapeFromFault, &log);
    const OrvikOs::FaultHookScope pause(nullptr, nullptr);
    EXPECT_TRUE(RunInScope(&Subjects::ReadNull).machineFault);
    EXPECT_EQ(log.calls, 0);
}

TEST(FaultHook, HookThatReturnsLetsTheFaultBeThrown)
{
    int calls = 0;
    const OrvikOs::FaultHookScope hook(
        [](void* context, const OrvikOs::FaultInfo&) { ++*static_cast<int*>(context); }, &calls);
    EXPECT_TRUE(RunInScope(&Subjects::ReadNull).machineFault);
    EXPECT_EQ(calls, 1);
}

TEST(FaultHook, KeptFaultCanBeThrownLater)
{
    HookLog log;
    runWithHook(&Subjects::WriteNull, log);
    std::uint32_t code = 0;
    try {
        OrvikOs::ThrowFault(log.fault);
    } catch (const OrvikOs::MachineFault& fault) {
        code = fault.Record().ExceptionCode;
    }
    EXPECT_EQ(code, 0xC0000005u);
}

using FaultScopeDeathTest = testing::Test;

TEST(FaultScopeDeathTest, FaultWithoutScopeEndsTheProgram)
{
    EXPECT_EXIT(RunAsIs(&Subjects::ReadNull), EndedBy(SIGSEGV), "");
    EXPECT_EXIT(RunAsIs(&Subjects::IllegalInstruction), EndedBy(SIGILL), "");
}

TEST(FaultScopeDeathTest, FaultAfterTheScopeEndsTheProgram)
{
    EXPECT_EXIT(
        {
            RunInScope(&Subjects::ReadNull);
            RunAsIs(&Subjects::ReadNull);
        },
        EndedBy(SIGSEGV), "");
}

TEST(FaultScopeDeathTest, FaultOnAThreadWithoutScopeEndsTheProgram)
{
    EXPECT_EXIT(
        {
            const OrvikOs::FaultScope scope;
            OrvikOs::Thread thread;
            thread.Start([] { RunAsIs(&Subjects::ReadNull); });
            thread.Join();
        },
        EndedBy(SIGSEGV), "");
}

TEST(FaultScopeDeathTest, BreakpointWithoutScopeEndsTheProgram)
{
    EXPECT_EXIT(
        {
            const OrvikOs::FaultScope scope;
            OrvikOs::Thread thread;
            thread.Start([] { RunAsIs(&Subjects::Breakpoint); });
            thread.Join();
        },
        EndedBy(SIGTRAP), "");
}

TEST(FaultScopeDeathTest, RaisedSignalsEndTheProgram)
{
    EXPECT_EXIT(RunInScope([] { std::raise(SIGSEGV); }), EndedBy(SIGSEGV), "");
    EXPECT_EXIT(RunInScope([] { std::raise(SIGFPE); }), EndedBy(SIGFPE), "");
}

TEST(FaultScopeDeathTest, SignalsSentToTheProcessEndTheProgram)
{
    EXPECT_EXIT(RunInScope([] { kill(getpid(), SIGILL); }), EndedBy(SIGILL), "");
    EXPECT_EXIT(RunInScope([] { kill(getpid(), SIGABRT); }), EndedBy(SIGABRT), "");
}

TEST(FaultScopeDeathTest, PureCallWithoutScopeEndsTheProgram)
{
    EXPECT_EXIT(RunAsIs(&Subjects::PureCall), EndedBy(SIGABRT), "pure virtual method called");
}

TEST(FaultScopeDeathTest, FaultInTheTranslatorEndsTheProgram)
{
    const auto faulting = +[](const OrvikOs::EXCEPTION_RECORD&) {
        void (*volatile subject)() = &Subjects::ReadNull;
        subject();
    };
    EXPECT_EXIT(
        {
            OrvikOs::SetFaultTranslator(faulting);
            RunInScope(&Subjects::WriteNull);
        },
        EndedBy(SIGSEGV), "");
}

TEST(FaultScopeDeathTest, FaultInsideTheMemoryAllocatorEndsTheProgram)
{
    if (HasAddressSanitizer() || HasThreadSanitizer()) {
        GTEST_SKIP() << "the sanitizers bring an allocator of their own";
    }
    EXPECT_EXIT(RunInScope(&Subjects::CorruptHeap), EndedBy(SIGSEGV), "");
}

TEST(FaultScopeDeathTest, FaultThatNobodyCatchesEndsTheProgramOnce)
{
    EXPECT_EXIT(
        {
            OrvikOs::Thread thread;
            thread.Start([] {
                const OrvikOs::FaultScope scope;
                void (*volatile subject)() = &Subjects::WriteNull;
                subject();
            });
            thread.Join();
        },
        EndedBy(SIGABRT), "Machine fault 0xC0000005");
}

TEST(FaultScopeDeathTest, TranslatorThatReturnsEndsTheProgram)
{
    EXPECT_EXIT(
        {
            OrvikOs::SetFaultTranslator(&returnFromTranslator);
            RunInScope(&Subjects::WriteNull);
        },
        EndedBy(SIGABRT), "");
}

TEST(FaultScope, SignalHandlersAreAsBeforeAfterTheLastScope)
{
    const auto own = +[](int) {};
    std::signal(SIGTRAP, own);
    {
        const OrvikOs::FaultScope scope;
    }
    EXPECT_EQ(std::signal(SIGTRAP, SIG_DFL), own);
}

TEST(FaultScope, FaultsOfOtherThreadsReachTheHandlerThatWasThereBefore)
{
    static volatile std::sig_atomic_t seen = 0;
    std::signal(SIGTRAP, [](int) { seen = 1; });
    const OrvikOs::FaultScope scope;

    OrvikOs::Thread thread;
    thread.Start(&Subjects::Breakpoint);
    thread.Join();

    EXPECT_EQ(seen, 1);
}

} // namespace
