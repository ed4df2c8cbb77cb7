// Setting up, ending and running commands.
#include "FakeApplication.h"
#include "ShellFixture.h"
#include "VirtualSlot.h"

#include "OrvikCore/IJob.h"
#include "OrvikCore/JobTicket.h"
#include "OrvikCore/ScriptEngineInitJob.h"
#include "OrvikCore/ScriptEngineLoadJob.h"
#include "OrvikCore/ScriptEngineTerminateJob.h"

#include <OrvikOs/MsgWait.h>

#include <type_traits>

namespace {

using Shell = ShellTest;
using OrvikCore::JobTicket;

TEST(AScriptEngine, OperationsStandInTheirSlots)
{
    using E = OrvikCore::AScriptEngine;
    EXPECT_TRUE(std::has_virtual_destructor_v<E>);
    // The destructor takes two entries, so the n-th operation has the entry n.
    EXPECT_EQ(VirtualSlot(&E::LoadScriptText), 2);
    EXPECT_EQ(VirtualSlot(&E::GetLanguageName), 3);
    EXPECT_EQ(VirtualSlot(&E::Initialize), 4);
    EXPECT_EQ(VirtualSlot(&E::GetName), 5);
}

TEST(AScriptEngine, OperationsAfterTheNameStandInTheirOrder)
{
    using E = OrvikCore::AScriptEngine;
    EXPECT_LT(VirtualSlot(&E::GetName), VirtualSlot(&E::GetScriptExtension));
    EXPECT_LT(VirtualSlot(&E::GetScriptExtension), VirtualSlot(&E::Execute));
    EXPECT_LT(VirtualSlot(&E::Execute), VirtualSlot(&E::GetOutput));
    EXPECT_LT(VirtualSlot(&E::GetOutput), VirtualSlot(&E::SetStartupLog));
}

TEST_F(Shell, LoadsTheEngineOnTheWorker)
{
    makeShell();

    ASSERT_NE(m_shell->GetScriptEngine(), nullptr);
    EXPECT_NE(engine().m_threadId, OrvikOs::CurrentThreadId());
    EXPECT_EQ(engine().Calls(), (Calls{"created"}));
    EXPECT_EQ(m_shell->GetStartupError(), L"");
    EXPECT_TRUE(m_shell->GetIsStartupLoadOK());
}

TEST_F(Shell, UsesTheFirstEngineOfTheConfiguration)
{
    Configure({{L"ScriptEngine",
                {{L"File", m_folder.Add("FakeEngine.dll")}, {L"File", L"/no/such/engine.dll"}}}});

    makeShell("");

    EXPECT_NE(m_shell->GetScriptEngine(), nullptr);
}

TEST_F(Shell, KeepsATextWithoutAnEngineInTheConfiguration)
{
    makeShell("");

    EXPECT_EQ(m_shell->GetScriptEngine(), nullptr);
    EXPECT_EQ(m_shell->GetStartupError(), L"Failed to instanciate script engine");
    EXPECT_TRUE(m_shell->GetIsStartupLoadOK());
}

TEST_F(Shell, KeepsTheTextOfAnEngineThatCannotBeLoaded)
{
    makeShell("EngineThrows.dll");

    EXPECT_EQ(m_shell->GetScriptEngine(), nullptr);
    EXPECT_EQ(m_shell->GetStartupError(), L"Cannot instanciate script engine at " +
                                              m_folder.FileName("EngineThrows.dll") +
                                              L" with error : no interpreter");
}

TEST_F(Shell, EngineThatWasToldToTheHostLeavesThePlainText)
{
    OrvikCore::ScriptPluginManager::Instance().SetNotificationCb(
        [](const std::wstring&, const OrvikCore::PMNotificationType&) {});

    makeShell("EngineThrows.dll");

    EXPECT_EQ(m_shell->GetStartupError(), L"Failed to instanciate script engine");
}

TEST_F(Shell, OddExceptionOfTheLoadingHasATextOfItsOwn)
{
    OrvikCore::ScriptPluginManager::Instance().SetNotificationCb(
        [](const std::wstring&, const OrvikCore::PMNotificationType&) { throw 42; });

    makeShell();

    EXPECT_EQ(m_shell->GetScriptEngine(), nullptr);
    EXPECT_EQ(m_shell->GetStartupError(), L"Failed to load script engine");
}

TEST_F(Shell, InitInitializesTheEngineOnTheWorkerOnce)
{
    makeShell();

    m_shell->Init();
    m_shell->Init();

    EXPECT_EQ(engine().Calls(), (Calls{"created", "Initialize"}));
    EXPECT_TRUE(engine().m_threadsAgree);
}

TEST_F(Shell, InitHandsTheContextOfTheEngineToTheScriptPlugins)
{
    OrvikCore::ScriptPluginManager::Instance().LoadPlugin(
        m_folder.Add("ScriptGood.Plugin.dll").c_str());
    makeShell();

    m_shell->Init();

    const Calls calls = m_debug.LinesAfter("[ScriptGood] doInitialize ");
    EXPECT_EQ(calls, (Calls{TambVizCore::Utils::PointerToHexString(&engine().m_context)}));
}

TEST_F(Shell, InitWithoutAnEngineKeepsAText)
{
    makeShell("");

    m_shell->Init();

    EXPECT_EQ(m_shell->GetStartupError(), L"*** Error : No Script Engine Available");
}

TEST_F(Shell, FailedInitializationIsKept)
{
    makeShell("EngineInitThrows.dll");

    m_shell->Init();

    EXPECT_FALSE(m_shell->GetIsStartupLoadOK());
    EXPECT_EQ(m_shell->GetStartupError(), L"no heap");
}

TEST_F(Shell, IsInitializedAlsoAfterAFailedInitialization)
{
    makeShell("EngineInitThrows.dll");
    m_shell->Init();

    EXPECT_TRUE(m_shell->RunScript(L"(+ 1 2)", m_output));

    EXPECT_EQ(m_output, L"ran: (+ 1 2)");
}

TEST_F(Shell, OddExceptionOfTheInitializationPassesToTheDispatcher)
{
    makeShell("EngineInitThrowsOdd.dll");

    m_shell->Init();

    EXPECT_TRUE(m_shell->GetIsStartupLoadOK());
    EXPECT_EQ(m_shell->GetStartupError(), L"");
    EXPECT_EQ(m_listener.Messages(),
              (Messages{{L"Unrecognized exception caught in JobDispatcher::messageLoop()", 2}}));
    EXPECT_TRUE(m_shell->RunScript(L"x", m_output));
}

TEST_F(Shell, DestructionEndsTheEngineOnTheWorker)
{
    makeShell();

    m_shell.reset();

    EXPECT_EQ(m_debug.LinesAfter("[FakeScriptEngine] "), (Calls{"deleted"}));
}

TEST_F(Shell, DestructionCopesWithoutAnEngine)
{
    makeShell("");

    ::testing::internal::CaptureStdout();
    m_shell.reset();

    EXPECT_EQ(::testing::internal::GetCapturedStdout(), "");
}

TEST_F(Shell, FailedEndOfTheEngineIsReportedAndWritten)
{
    Calls log;
    FakeApplication application(log);
    OrvikCore::IApplication* const before = OrvikCore::SessionMgr::Instance().GetApplication();
    OrvikCore::SessionMgr::Instance().SetApplication(&application);
    makeShell("EngineFaultsOnEnd.dll");

    ::testing::internal::CaptureStdout();
    m_shell.reset();
    const std::string written = ::testing::internal::GetCapturedStdout();

    EXPECT_EQ(log, (Calls{"ReportEngineTerminationFailure"}));
    EXPECT_EQ(written.rfind("JID_EXECUTE_JOB sync  0x", 0), 0u);
    EXPECT_NE(written.find("JOB_FAILED Unhandled Exception"), std::string::npos);
    EXPECT_EQ(written.back(), '\n');
    EXPECT_EQ(TambVizCore::Utils::WstringToString(application.m_details) + "\n", written);
    OrvikCore::SessionMgr::Instance().SetApplication(before);
}

TEST_F(Shell, FailedEndOfTheEngineIsWrittenWithoutAnApplicationToo)
{
    OrvikCore::IApplication* const before = OrvikCore::SessionMgr::Instance().GetApplication();
    OrvikCore::SessionMgr::Instance().SetApplication(nullptr);
    makeShell("EngineFaultsOnEnd.dll");

    ::testing::internal::CaptureStdout();
    m_shell.reset();

    EXPECT_NE(::testing::internal::GetCapturedStdout(), "");
    OrvikCore::SessionMgr::Instance().SetApplication(before);
}

TEST_F(Shell, RunScriptInitializesOnFirstUse)
{
    makeShell();

    EXPECT_TRUE(m_shell->RunScript(L"(view:iso)", m_output));

    EXPECT_EQ(engine().Calls(), (Calls{"created", "Initialize", "LoadScriptText", "Execute"}));
    EXPECT_EQ(engine().Texts(), (Texts{L"(view:iso)"}));
    EXPECT_EQ(engine().m_sources, (Texts{L""}));
    EXPECT_TRUE(engine().m_threadsAgree);
}

TEST_F(Shell, RunScriptGivesTheOutputAndPrintsItOnce)
{
    makeShell();

    EXPECT_TRUE(m_shell->RunScript(L"x", m_output));

    EXPECT_EQ(m_output, L"ran: x");
    EXPECT_EQ(m_listener.Messages(), (Messages{{L"ran: x", 0}}));
    EXPECT_NE(m_listener.Threads().front(), OrvikOs::CurrentThreadId());
}

TEST_F(Shell, RunScriptPrintsTheOutputOfAFailureAsAnError)
{
    makeShell();

    EXPECT_FALSE(m_shell->RunScript(L"fail", m_output));

    EXPECT_EQ(m_output, L"failed: fail");
    EXPECT_EQ(m_listener.Messages(), (Messages{{L"failed: fail", 2}}));
}

TEST_F(Shell, RunScriptUpdatesTheDisplay)
{
    makeShell();

    m_shell->RunScript(L"x", m_output);
    m_shell->RunScript(L"fail", m_output);

    EXPECT_EQ(m_session->m_calls, (Calls{"UpdateDisplay", "UpdateDisplay"}));
}

TEST_F(Shell, RunScriptWithoutAnEngineIsRefused)
{
    makeShell("");

    EXPECT_FALSE(m_shell->RunScript(L"x", m_output));

    EXPECT_EQ(m_output, L"*** Error : No Script Engine Available");
    EXPECT_TRUE(m_listener.Messages().empty());
    EXPECT_TRUE(m_session->m_calls.empty());
}

TEST_F(Shell, RunScriptTouchesNothingOnceTheEngineEnds)
{
    makeShell();
    m_shell->Init();
    OrvikCore::ScriptEngineTerminateJob job(m_shell.get());
    OrvikCore::JobDispatcher::Instance().ExecuteJob(job);

    EXPECT_FALSE(m_shell->RunScript(L"x", m_output));

    EXPECT_EQ(m_output, L"stale");
    EXPECT_TRUE(m_session->m_calls.empty());
    EXPECT_EQ(m_listener.Messages(),
              (Messages{{L" Invalid AScriptEngine in passed to JobDispatcher", 2}}));
}

TEST_F(Shell, TypographicQuotationMarkIsRefusedWithACaret)
{
    makeShell();

    EXPECT_FALSE(m_shell->RunScript(L"(app:print \u2019x)", m_output));

    EXPECT_EQ(m_output, L"Illegal character in the command at position 11");
    EXPECT_EQ(
        m_listener.Messages(),
        (Messages{{L"           ^", 1}, {L"Illegal character in the command at position 11", 2}}));
    EXPECT_TRUE(engine().Texts().empty());
    EXPECT_TRUE(m_session->m_calls.empty());
}

TEST_F(Shell, EachTypographicQuotationMarkIsRefused)
{
    makeShell();
    for (const wchar_t mark : {L'\u201C', L'\u201D', L'\u2018', L'\u2019'}) {
        EXPECT_FALSE(m_shell->RunScript(std::wstring(L"ab") + mark, m_output));
        EXPECT_EQ(m_output, L"Illegal character in the command at position 2");
    }
}

TEST_F(Shell, QuotationMarksAreSearchedByKind)
{
    makeShell();

    m_shell->RunScript(L"\u2019 and \u201C", m_output);

    EXPECT_EQ(m_output, L"Illegal character in the command at position 6");
}

TEST_F(Shell, PlainQuotationMarksAreFine)
{
    makeShell();

    EXPECT_TRUE(m_shell->RunScript(L"(doc:load \"a.stl\") 'x `y", m_output));
}

TEST_F(Shell, NullTicketIsPrintedAsAnError)
{
    makeShell();

    m_shell->NotifyJobStatus(nullptr);

    EXPECT_EQ(m_listener.Messages(), (Messages{{L"Invalid JobTicket = NULL", 2}}));
}

TEST_F(Shell, FinishedTicketIsPrintedAsOutputWhereItHasAMessage)
{
    makeShell();
    JobTicket ticket;
    ticket.SetStatus(OrvikCore::JOB_COMPLETED);

    m_shell->NotifyJobStatus(&ticket);
    EXPECT_TRUE(m_listener.Messages().empty());
    ticket.SetMessageText(L"done");
    m_shell->NotifyJobStatus(&ticket);

    EXPECT_EQ(m_listener.Messages(), (Messages{{L"done", 0}}));
}

TEST_F(Shell, FailedTicketIsPrintedAsAnError)
{
    makeShell();
    JobTicket ticket;
    ticket.SetStatus(OrvikCore::JOB_FAILED);
    ticket.SetMessageText(L"alas");

    m_shell->NotifyJobStatus(&ticket);

    EXPECT_EQ(m_listener.Messages(), (Messages{{L"alas", 2}}));
}

/// A job that fails by itself.
class FailingJob : public OrvikCore::IJob
{
public:
    bool Execute() override { throw std::runtime_error("no luck"); }
};

TEST_F(Shell, FailuresOfOtherJobsArePrintedToo)
{
    makeShell();
    FailingJob job;

    OrvikCore::JobDispatcher::Instance().ExecuteJob(job);

    EXPECT_EQ(m_listener.Messages(), (Messages{{L"no luck", 2}}));
}

TEST_F(Shell, DestroyedShellHearsNoMoreOfJobs)
{
    makeShell();
    m_shell.reset();
    FailingJob job;

    OrvikCore::JobDispatcher::Instance().ExecuteJob(job);

    EXPECT_TRUE(m_listener.Messages().empty());
}

TEST_F(Shell, JobsReportSuccess)
{
    makeShell();
    OrvikCore::ScriptEngineInitJob init(m_shell.get());
    OrvikCore::ScriptEngineTerminateJob terminate(m_shell.get());
    OrvikCore::ScriptEngineLoadJob load(m_shell.get());
    FakeScriptEngine& loaded = engine();
    loaded.m_threadId = OrvikOs::CurrentThreadId();

    EXPECT_TRUE(init.Execute());
    EXPECT_TRUE(terminate.Execute());
    EXPECT_EQ(m_shell->GetScriptEngine(), nullptr);
    EXPECT_TRUE(load.Execute());
    EXPECT_NE(m_shell->GetScriptEngine(), nullptr);
}

TEST_F(Shell, SessionManagerDeletesTheShellThatIsReplaced)
{
    configureEngine("FakeEngine.dll");
    OrvikCore::SessionMgr& manager = OrvikCore::SessionMgr::Instance();
    auto* const first = new OrvikCore::Shell;
    manager.SetShell(first);
    EXPECT_EQ(manager.GetShell(), first);
    EXPECT_EQ(m_session->GetShell(), first);

    manager.SetShell(nullptr);

    EXPECT_EQ(manager.GetShell(), nullptr);
    EXPECT_EQ(m_debug.LinesAfter("[FakeScriptEngine] "), (Calls{"deleted"}));
}

/// A message queue that holds one quit message at the start of every wait.
class QuitSource : public OrvikOs::IMessageSource
{
public:
    QuitSource() { OrvikOs::SetMessageSource(this); }
    ~QuitSource() override { OrvikOs::SetMessageSource(nullptr); }

    bool HasInput(unsigned) override { return true; }
    bool Peek(OrvikOs::Message& message, bool) override
    {
        message = {};
        message.id = 0x12;
        return true;
    }
    void Translate(const OrvikOs::Message&) override {}
    void Dispatch(const OrvikOs::Message&) override {}
    int PollIntervalMs() override { return 1; }
};

void waitUntilIdle()
{
    while (OrvikCore::JobDispatcher::Instance().IsBusy()) {
        OrvikOs::YieldThread();
    }
}

TEST_F(Shell, ScriptTextOutlivesAWaitThatAQuitMessageEnds)
{
    makeShell();
    m_shell->Init();
    const std::wstring text(1000, L'x');

    {
        QuitSource quit;
        m_shell->RunScript(text, m_output);
    }
    waitUntilIdle();

    EXPECT_EQ(engine().Texts(), (Texts{text}));
    // The event of that script ends the next wait early, so the end of the engine is waited for.
    m_shell.reset();
    waitUntilIdle();
}

TEST_F(Shell, EngineEndsOnTheWorkerAlsoAfterTheShellWhoseWaitAQuitMessageEnds)
{
    makeShell();

    {
        QuitSource quit;
        m_shell.reset();
    }
    waitUntilIdle();

    EXPECT_EQ(m_debug.LinesAfter("[FakeScriptEngine] "), (Calls{"deleted"}));
}

TEST_F(Shell, JobMayEndAfterItsShell)
{
    makeShell();
    OrvikCore::ScriptEngineTerminateJob late(m_shell.get());
    m_shell.reset();

    EXPECT_TRUE(late.Execute());
}

} // namespace
