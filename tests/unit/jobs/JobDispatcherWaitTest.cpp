#include "DispatcherFixture.h"

#include <algorithm>
#include <memory>
#include <stdexcept>

using OrvikCore::JID_EXECUTE_SCRIPT;
using OrvikCore::JOB_COMPLETED;
using OrvikCore::JOB_FAILED;
using OrvikCore::JOB_UNKNOWN;

namespace {

constexpr unsigned kTimer = 0x113;
constexpr unsigned kPaint = 0x0F;
constexpr unsigned kQuit = 0x12;

OrvikOs::Message messageOf(unsigned id)
{
    OrvikOs::Message message;
    message.id = id;
    return message;
}

class JobDispatcherWait : public DispatcherTest
{
protected:
    JobDispatcherWait()
    {
        dispatcher();
        OrvikOs::SetMessageSource(&source);
    }

    ~JobDispatcherWait() override
    {
        OrvikOs::SetMessageSource(nullptr);
        gate.Open();
        waitUntilIdle();
    }

    /// Submits the job that holds the worker and waits for it.
    JobTicket waitForGate()
    {
        JobTicket ticket = jobTicket(gate, /*sync=*/true);
        dispatcher().ExecuteJob(ticket);
        return ticket;
    }

    /// Lets the gate open when the queue has been looked at @p looks times.
    void openAfter(unsigned looks)
    {
        source.hasInput = [this, looks] {
            if (source.masks.size() >= looks) {
                gate.Open();
            }
            return !source.queue.empty();
        };
    }

    FakeMessageSource source;
    GateJob gate;
};

} // namespace

TEST_F(JobDispatcherWait, MessagesAreTranslatedAndDispatchedInOrder)
{
    source.queue = {messageOf(kTimer), messageOf(kPaint)};
    source.onDispatch = [this](const OrvikOs::Message& message) {
        if (message.id == kPaint) {
            gate.Open();
        }
    };

    EXPECT_EQ(waitForGate().GetStatus(), JOB_COMPLETED);
    EXPECT_EQ(source.calls, (std::vector<std::string>{"translate 275", "dispatch 275",
                                                      "translate 15", "dispatch 15"}));
    EXPECT_TRUE(source.queue.empty());
}

TEST_F(JobDispatcherWait, MouseTimersAndPaintingWakeItAndNothingElse)
{
    openAfter(3);

    waitForGate();

    EXPECT_FALSE(source.masks.empty());
    EXPECT_TRUE(std::all_of(source.masks.begin(), source.masks.end(),
                            [](unsigned mask) { return mask == 0x36; }));
}

TEST_F(JobDispatcherWait, QuitMessageEndsTheWaitAtOnce)
{
    source.queue = {messageOf(kQuit)};

    const JobTicket ticket = waitForGate();

    EXPECT_FALSE(gate.HasEnded());
    EXPECT_EQ(ticket.GetStatus(), JOB_UNKNOWN);
}

TEST_F(JobDispatcherWait, QuitMessageIsTakenAndNotPostedAgain)
{
    source.queue = {messageOf(kTimer), messageOf(kQuit), messageOf(kPaint)};

    waitForGate();

    ASSERT_EQ(source.queue.size(), 1u);
    EXPECT_EQ(source.queue[0].id, kPaint);
    EXPECT_EQ(source.calls, (std::vector<std::string>{"translate 275", "dispatch 275"}));
}

TEST_F(JobDispatcherWait, QuitMessageEndsTheWaitForAScriptToo)
{
    FakeScriptEngine engine;
    engine.onExecute = [this] { gate.Execute(); };
    const std::wstring script = L"(forever)";
    source.queue = {messageOf(kQuit)};
    JobTicket ticket(JID_EXECUTE_SCRIPT, nullptr, true, addressOf(engine), addressOf(script));

    dispatcher().ExecuteJob(ticket);

    EXPECT_FALSE(gate.HasEnded());
    gate.Open();
    waitUntilIdle();
}

TEST_F(JobDispatcherWait, TimeOutEndsTheWaitForAJobThatTheWorkerHasTaken)
{
    dispatcher().SetJobTimeout(1);

    const JobTicket ticket = waitForGate();

    EXPECT_TRUE(gate.HasStarted());
    EXPECT_FALSE(gate.HasEnded());
    EXPECT_EQ(ticket.GetStatus(), JOB_UNKNOWN);
}

TEST_F(JobDispatcherWait, TimedOutCallerReceivesAnEarlierTicket)
{
    FunctionJob earlier([] { return false; });
    dispatcher().ExecuteJob(earlier);
    dispatcher().SetJobTimeout(1);

    const JobTicket ticket = waitForGate();

    EXPECT_EQ(ticket.GetTarget(), addressOf(earlier));
    EXPECT_EQ(ticket.GetStatus(), JOB_FAILED);
}

TEST_F(JobDispatcherWait, TimeOutsOfZeroOrLessAreIgnored)
{
    dispatcher().SetJobTimeout(1);
    dispatcher().SetJobTimeout(0);
    dispatcher().SetJobTimeout(-5);

    waitForGate();

    EXPECT_FALSE(gate.HasEnded());
}

TEST_F(JobDispatcherWait, JobStillInTheRingIsWaitedForAgain)
{
    dispatcher().SetJobTimeout(1);
    sleeper().HoldWorker();
    source.hasInput = [this] {
        if (source.masks.size() == 20) {
            sleeper().ReleaseWorker();
        }
        return false;
    };
    FunctionJob job([] { return true; });
    JobTicket ticket = jobTicket(job, /*sync=*/true);

    dispatcher().ExecuteJob(ticket);

    EXPECT_GE(source.masks.size(), 20u);
}

TEST_F(JobDispatcherWait, CallerOfADroppedTicketWaitsUntilTheRingIsEmpty)
{
    dispatcher().SetJobTimeout(1);
    sleeper().HoldWorker();
    int runs = 0;
    FunctionJob counter([&runs] {
        ++runs;
        return true;
    });
    for (int i = 0; i < 100; ++i) {
        submit(counter);
    }
    source.hasInput = [this] {
        if (source.masks.size() == 20) {
            sleeper().ReleaseWorker();
        }
        return false;
    };
    bool ran = false;
    FunctionJob dropped([&ran] {
        ran = true;
        return true;
    });
    JobTicket ticket = jobTicket(dropped, /*sync=*/true);

    dispatcher().ExecuteJob(ticket);
    waitUntilIdle();

    EXPECT_GE(source.masks.size(), 20u);
    EXPECT_EQ(runs, 100);
    EXPECT_FALSE(ran);
    EXPECT_NE(ticket.GetTarget(), addressOf(dropped));
}

TEST_F(JobDispatcherWait, ScriptIsWaitedForOneTimeOutAfterAnother)
{
    FakeScriptEngine engine;
    engine.onExecute = [this] { gate.Execute(); };
    const std::wstring script = L"(long)";
    dispatcher().SetJobTimeout(1);
    openAfter(20);
    JobTicket ticket(JID_EXECUTE_SCRIPT, nullptr, true, addressOf(engine), addressOf(script));

    dispatcher().ExecuteJob(ticket);

    EXPECT_TRUE(gate.HasEnded());
    EXPECT_EQ(ticket.GetStatus(), JOB_COMPLETED);
}

TEST_F(JobDispatcherWait, SubmissionFromAWindowProcedureIsIgnored)
{
    bool ran = false;
    FunctionJob nested([&ran] {
        ran = true;
        return true;
    });
    JobTicket nestedTicket = jobTicket(nested, /*sync=*/true);
    source.queue = {messageOf(kTimer)};
    source.onDispatch = [&](const OrvikOs::Message&) {
        dispatcher().ExecuteJob(nestedTicket);
        dispatcher().ExecuteJob(nested);
        gate.Open();
    };

    EXPECT_EQ(waitForGate().GetStatus(), JOB_COMPLETED);
    waitUntilIdle();
    EXPECT_FALSE(ran);
    EXPECT_EQ(nestedTicket.GetStatus(), JOB_UNKNOWN);
}

TEST_F(JobDispatcherWait, ExceptionOfAWindowProcedureDoesNotMakeTheDispatcherDeaf)
{
    source.queue = {messageOf(kTimer)};
    source.onDispatch = [](const OrvikOs::Message&) { throw std::runtime_error("window"); };
    EXPECT_THROW(waitForGate(), std::runtime_error);
    gate.Open();
    waitUntilIdle();
    bool ran = false;
    FunctionJob later([&ran] {
        ran = true;
        return true;
    });

    submit(later);
    waitUntilIdle();

    EXPECT_TRUE(ran);
}

TEST_F(JobDispatcherWait, StaleEventEndsTheNextWaitAtOnce)
{
    FunctionJob earlier([] { return false; });
    submit(earlier);
    waitUntilIdle();

    const JobTicket ticket = waitForGate();

    EXPECT_FALSE(gate.HasEnded());
    EXPECT_EQ(ticket.GetTarget(), addressOf(earlier));
}

TEST_F(JobDispatcherWait, TerminateInAWindowProcedureEndsTheWait)
{
    source.queue = {messageOf(kTimer)};
    source.hasInput = [this] { return gate.HasStarted() && !source.queue.empty(); };
    source.onDispatch = [this](const OrvikOs::Message&) {
        sleeper().OnMainSleep([this] { gate.Open(); });
        dispatcher().Terminate();
    };
    FakeScriptEngine engine;
    engine.onExecute = [this] { gate.Execute(); };
    const std::wstring script = L"(long)";
    JobTicket ticket(JID_EXECUTE_SCRIPT, nullptr, true, addressOf(engine), addressOf(script));

    dispatcher().ExecuteJob(ticket);

    EXPECT_TRUE(gate.HasEnded());
    EXPECT_EQ(ticket.GetStatus(), JOB_UNKNOWN);
}
