#include "DispatcherFixture.h"

#include <OrvikOs/Event.h>
#include <OrvikOs/Thread.h>

using OrvikCore::JID_EXECUTE_JOB;
using OrvikCore::JOB_COMPLETED;
using OrvikCore::JOB_FAILED;

namespace {

/// The worker is held by a gate; each look at the clock takes 100 ms.
class JobDispatcherBusy : public DispatcherTest
{
protected:
    JobDispatcherBusy()
    {
        occupyWorker(gate);
        stepClock().StepMs(100);
        OrvikOs::SetClock(&stepClock());
    }

    ~JobDispatcherBusy() override
    {
        OrvikOs::SetClock(nullptr);
        gate.Open();
        waitUntilIdle();
    }

    GateJob gate;
    int runs = 0;
    FunctionJob job{[this] {
        ++runs;
        return true;
    }};
};

/// Does something when a wait or a busy loop serves it, which it asks for at once.
class ActingWakeSource : public OrvikOs::IWakeSource
{
public:
    explicit ActingWakeSource(std::function<void()> action) : m_action(std::move(action))
    {
        m_event.Create();
        m_event.Set();
        OrvikOs::RegisterWakeSource(*this);
    }

    ~ActingWakeSource() override { OrvikOs::UnregisterWakeSource(*this); }

    OrvikOs::Event& WakeEvent() override { return m_event; }
    void Serve() override { m_action(); }

private:
    OrvikOs::Event m_event;
    std::function<void()> m_action;
};

} // namespace

TEST_F(JobDispatcherBusy, RefusedRequestFailsWithItsText)
{
    JobTicket ticket = jobTicket(job, /*sync=*/true);

    dispatcher().ExecuteJob(ticket);

    EXPECT_EQ(ticket.GetStatus(), JOB_FAILED);
    EXPECT_EQ(ticket.GetMessageText(), L"Application is busy. The request is denied.");
    EXPECT_EQ(ticket.GetTarget(), addressOf(job));
}

TEST_F(JobDispatcherBusy, RefusedRequestReportsBusyToEveryObserver)
{
    std::vector<Notice> notices;
    RecordingObserver a("a", notices);
    RecordingObserver b("b", notices);
    dispatcher().RegisterJobStatusObserver(&a);
    dispatcher().RegisterJobStatusObserver(&b);
    JobTicket ticket = jobTicket(job, /*sync=*/true, &a);

    dispatcher().ExecuteJob(ticket);

    ASSERT_EQ(notices.size(), 2u);
    for (const Notice& notice : notices) {
        EXPECT_EQ(notice.status, JOB_FAILED);
        EXPECT_EQ(notice.message, L"Application is busy. The request is denied.");
        EXPECT_EQ(notice.threadId, OrvikOs::CurrentThreadId());
    }
    EXPECT_EQ(notices[0].observer, "a");
    EXPECT_EQ(notices[1].observer, "b");
    dispatcher().UnRegisterJobStatusObserver(&a);
    dispatcher().UnRegisterJobStatusObserver(&b);
}

TEST_F(JobDispatcherBusy, RefusalLeavesTheDispatcherDeaf)
{
    JobTicket refused = jobTicket(job, /*sync=*/true);
    dispatcher().ExecuteJob(refused);
    gate.Open();
    waitUntilIdle();
    JobTicket later = jobTicket(job, /*sync=*/true);

    dispatcher().ExecuteJob(later);
    dispatcher().ExecuteJob(job);
    submit(job);
    waitUntilIdle();

    EXPECT_EQ(runs, 0);
    EXPECT_EQ(later.GetStatus(), OrvikCore::JOB_UNKNOWN);
    EXPECT_EQ(later.GetMessageText(), L"");
}

TEST_F(JobDispatcherBusy, RefusalComesAfter2000Ms)
{
    // The first look starts the time; the looks at 100 ms to 1900 ms are too early.
    stepClock().SetMs(0);
    JobTicket ticket = jobTicket(job, /*sync=*/true);

    dispatcher().ExecuteJob(ticket);

    EXPECT_EQ(ticket.GetStatus(), JOB_FAILED);
    EXPECT_EQ(stepClock().NowUs(), 2100u * 1000u);
}

TEST_F(JobDispatcherBusy, RefusalSurvivesTheTurnOfThe32BitClock)
{
    const std::uint64_t start = (std::uint64_t{1} << 32) - 500;
    stepClock().SetMs(start);
    JobTicket ticket = jobTicket(job, /*sync=*/true);

    dispatcher().ExecuteJob(ticket);

    EXPECT_EQ(ticket.GetStatus(), JOB_FAILED);
    EXPECT_EQ(stepClock().NowUs(), (start + 2100u) * 1000u);
}

TEST_F(JobDispatcherBusy, RequestRunsWhenTheWorkerComesFreeInTime)
{
    stepClock().StepMs(0);
    ActingWakeSource opener([this] { gate.Open(); });
    JobTicket ticket = jobTicket(job, /*sync=*/true);

    // The stale event of the gate's job ends the first wait; the second submission waits for
    // itself.
    dispatcher().ExecuteJob(ticket);
    waitUntilIdle();

    EXPECT_EQ(runs, 1);
    EXPECT_NE(ticket.GetStatus(), JOB_FAILED);
}

TEST_F(JobDispatcherBusy, WakeSourcesAreServedWhileTheRequestWaits)
{
    int served = 0;
    ActingWakeSource source([&served] { ++served; });
    JobTicket ticket = jobTicket(job, /*sync=*/true);

    dispatcher().ExecuteJob(ticket);

    EXPECT_EQ(served, 1);
    EXPECT_EQ(ticket.GetStatus(), JOB_FAILED);
}

TEST_F(JobDispatcherBusy, TerminateWhileTheRequestWaitsDropsTheRequest)
{
    ActingWakeSource stopper([this] {
        sleeper().OnMainSleep([this] { gate.Open(); });
        dispatcher().Terminate();
    });
    JobTicket ticket = jobTicket(job, /*sync=*/true);

    dispatcher().ExecuteJob(ticket);

    EXPECT_EQ(runs, 0);
    EXPECT_NE(ticket.GetStatus(), JOB_FAILED);
    EXPECT_EQ(ticket.GetMessageText(), L"");
}

TEST_F(JobDispatcherBusy, ExceptionOfAWakeSourceDoesNotMakeTheDispatcherDeaf)
{
    {
        ActingWakeSource source([] { throw std::runtime_error("source is unwell"); });
        JobTicket ticket = jobTicket(job, /*sync=*/true);
        EXPECT_THROW(dispatcher().ExecuteJob(ticket), std::runtime_error);
    }
    gate.Open();
    waitUntilIdle();

    submit(job);
    waitUntilIdle();

    EXPECT_EQ(runs, 1);
}

TEST_F(JobDispatcherBusy, AsynchronousRequestsAreNotRefused)
{
    submit(job);
    gate.Open();
    waitUntilIdle();

    EXPECT_EQ(runs, 1);
}
