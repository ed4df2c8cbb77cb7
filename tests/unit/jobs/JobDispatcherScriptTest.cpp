#include "DispatcherFixture.h"
#include "FaultSubjects.h"

#include <OrvikOs/FpControl.h>
#include <OrvikOs/Thread.h>

#include <stdexcept>

using OrvikCore::JID_EXECUTE_SCRIPT;
using OrvikCore::JOB_COMPLETED;
using OrvikCore::JOB_FAILED;
using OrvikCore::JOB_UNKNOWN;

namespace {

class JobDispatcherScript : public DispatcherTest
{
protected:
    JobTicket scriptTicket(bool sync, long long parameter2 = 0)
    {
        return JobTicket(JID_EXECUTE_SCRIPT, nullptr, sync, addressOf(engine), addressOf(script),
                         parameter2);
    }

    /// Runs the script to its end.
    JobTicket run(long long parameter2 = 0)
    {
        JobTicket ticket = scriptTicket(/*sync=*/true, parameter2);
        dispatcher().ExecuteJob(ticket);
        return ticket;
    }

    FakeScriptEngine engine;
    const std::wstring script = L"(view:iso)";
};

} // namespace

TEST_F(JobDispatcherScript, TextIsLoadedWithoutASourceAndRun)
{
    const JobTicket ticket = run();

    EXPECT_EQ(ticket.GetStatus(), JOB_COMPLETED);
    EXPECT_EQ(engine.calls, (std::vector<std::string>{"load", "execute"}));
    EXPECT_EQ(engine.loadedText, L"(view:iso)");
    EXPECT_EQ(engine.loadedSource, L"");
}

TEST_F(JobDispatcherScript, OutputBecomesTheMessageWithAParameterOfZeroOrLess)
{
    EXPECT_EQ(run(0).GetMessageText(), L"output of the run");
    EXPECT_EQ(run(-1).GetMessageText(), L"output of the run");
}

TEST_F(JobDispatcherScript, OutputIsNotCollectedWithAParameterOfOneOrMore)
{
    const JobTicket ticket = run(1);

    EXPECT_EQ(ticket.GetStatus(), JOB_COMPLETED);
    EXPECT_EQ(ticket.GetMessageText(), L"");
    EXPECT_EQ(run(2).GetMessageText(), L"");
}

TEST_F(JobDispatcherScript, MissingEngineFailsWithItsText)
{
    JobTicket ticket(JID_EXECUTE_SCRIPT, nullptr, true, 0, addressOf(script));

    dispatcher().ExecuteJob(ticket);

    EXPECT_EQ(ticket.GetStatus(), JOB_FAILED);
    EXPECT_EQ(ticket.GetMessageText(), L" Invalid AScriptEngine in passed to JobDispatcher");
}

TEST_F(JobDispatcherScript, ExecuteRunsAlsoAfterALoadFailure)
{
    engine.onLoad = [] { return false; };

    const JobTicket ticket = run();

    EXPECT_EQ(engine.calls, (std::vector<std::string>{"load", "execute"}));
    EXPECT_EQ(ticket.GetStatus(), JOB_FAILED);
    EXPECT_EQ(ticket.GetMessageText(), L"output of the run");
}

TEST_F(JobDispatcherScript, ExceptionOfARunLeavesTheOutputAsTheMessage)
{
    engine.onExecute = [] { throw std::runtime_error("not this text"); };

    const JobTicket ticket = run();

    EXPECT_EQ(ticket.GetStatus(), JOB_FAILED);
    EXPECT_EQ(ticket.GetMessageText(), L"output of the run");
}

TEST_F(JobDispatcherScript, ForeignExceptionOfARunIsUnrecognized)
{
    engine.onExecute = [] { throw 42; };

    const JobTicket ticket = run();

    EXPECT_EQ(ticket.GetStatus(), JOB_FAILED);
    EXPECT_EQ(ticket.GetMessageText(),
              L"Unrecognized exception caught in JobDispatcher::messageLoop()");
}

TEST_F(JobDispatcherScript, ExceptionWhileLoadingBecomesTheMessage)
{
    engine.onLoad = []() -> bool { throw std::runtime_error("cannot be read"); };

    const JobTicket ticket = run();

    EXPECT_EQ(engine.calls, std::vector<std::string>{"load"});
    EXPECT_EQ(ticket.GetStatus(), JOB_FAILED);
    EXPECT_EQ(ticket.GetMessageText(), L"cannot be read");
}

TEST_F(JobDispatcherScript, MachineFaultOnlyFailsTheRun)
{
    engine.onExecute = [] { runSubject(writeToNull); };

    const JobTicket ticket = run();

    EXPECT_EQ(ticket.GetStatus(), JOB_FAILED);
    EXPECT_EQ(ticket.GetMessageText(), L"output of the run");
}

TEST_F(JobDispatcherScript, FloatingPointErrorsTrapDuringTheRun)
{
    for (void (*subject)() : {divideByZero, overflow, useDenormal}) {
        engine.onExecute = [subject] { runSubject(subject); };
        EXPECT_EQ(run().GetStatus(), JOB_FAILED);
    }
}

TEST_F(JobDispatcherScript, FloatingPointErrorsDoNotTrapWhileLoading)
{
    engine.onLoad = [] {
        runSubject(divideByZero);
        return true;
    };

    EXPECT_EQ(run().GetStatus(), JOB_COMPLETED);
}

TEST_F(JobDispatcherScript, WorkerHasItsFloatingPointControlBackAfterwards)
{
    unsigned before = 0;
    unsigned during = 0;
    unsigned after = 0;
    FunctionJob lookBefore([&before] {
        before = OrvikOs::FpControl::ControlWord();
        return true;
    });
    FunctionJob lookAfter([&after] {
        after = OrvikOs::FpControl::ControlWord();
        return true;
    });
    engine.onExecute = [&during] {
        during = OrvikOs::FpControl::ControlWord();
        runSubject(divideByZero);
    };

    dispatcher().ExecuteJob(lookBefore);
    run();
    dispatcher().ExecuteJob(lookAfter);

    EXPECT_EQ(before, 0x8001Fu);
    EXPECT_EQ(during, 0x13u);
    EXPECT_EQ(after, 0x8001Fu);
}

TEST_F(JobDispatcherScript, ScriptSubmittedInsideAnAsynchronousJobRunsAtOnce)
{
    std::uint32_t jobThread = 0;
    std::uint32_t scriptThread = 0;
    bool ranInside = false;
    engine.onExecute = [&scriptThread] { scriptThread = OrvikOs::CurrentThreadId(); };
    FunctionJob job([&] {
        jobThread = OrvikOs::CurrentThreadId();
        JobTicket ticket = scriptTicket(/*sync=*/true);
        dispatcher().ExecuteJob(ticket);
        ranInside = engine.calls.size() == 2;
        return true;
    });
    // The submission has returned before the job begins: no other is in progress.
    dispatcher();
    sleeper().HoldWorker();
    submit(job);
    sleeper().ReleaseWorker();
    waitUntilIdle();

    EXPECT_TRUE(ranInside);
    EXPECT_EQ(scriptThread, jobThread);
    EXPECT_TRUE(violations().empty());
}

TEST_F(JobDispatcherScript, ScriptSubmittedInsideASynchronousJobIsIgnored)
{
    OrvikCore::JobStatus nestedStatus = JOB_FAILED;
    FunctionJob job([&] {
        JobTicket ticket = scriptTicket(/*sync=*/true);
        dispatcher().ExecuteJob(ticket);
        nestedStatus = ticket.GetStatus();
        return true;
    });

    dispatcher().ExecuteJob(job);

    EXPECT_TRUE(engine.calls.empty());
    EXPECT_EQ(nestedStatus, JOB_UNKNOWN);
}
