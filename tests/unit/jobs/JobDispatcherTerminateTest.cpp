#include "DispatcherFixture.h"

#include "OrvikCore/ProcessGlobals.h"

#include <OrvikOs/Thread.h>

#include <signal.h>

#include <atomic>
#include <cstdio>
#include <thread>

using OrvikCore::JOB_UNKNOWN;

namespace {

class JobDispatcherTerminate : public DispatcherTest
{
protected:
    JobDispatcherTerminate()
    {
        dispatcher();
        // The worker has begun to poll, so that pauses hand over to it.
        sleeper().HoldWorker();
        sleeper().ReleaseWorker();
        debugOutput().Clear();
    }

    static std::string terminateLine(const char* end)
    {
        char line[128];
        std::snprintf(line, sizeof line, "[0x%04x] JobDispatcher::Terminate() %s\n",
                      OrvikOs::CurrentThreadId(), end);
        return line;
    }

    /// @return the pauses since the dispatcher's start.
    static std::vector<int> pauses()
    {
        const std::vector<int> all = sleeper().MainSleeps();
        return {all.begin() + 1, all.end()};
    }

    int runs = 0;
    FunctionJob job{[this] {
        ++runs;
        return true;
    }};
};

} // namespace

TEST_F(JobDispatcherTerminate, IdleWorkerLeavesByItself)
{
    dispatcher().Terminate();

    EXPECT_TRUE(debugOutput().Text().starts_with(terminateLine("")));
    EXPECT_EQ(debugOutput().Text().find("Terminating worker thread"), std::string::npos);
    EXPECT_LE(pauses().size(), 3u);
    EXPECT_TRUE(violations().empty());
}

TEST_F(JobDispatcherTerminate, SecondCallOnlySaysSo)
{
    dispatcher().Terminate();
    debugOutput().Clear();
    const std::size_t before = pauses().size();

    dispatcher().Terminate();

    EXPECT_EQ(debugOutput().Text(), terminateLine(" already exited"));
    EXPECT_EQ(pauses().size(), before);
}

TEST_F(JobDispatcherTerminate, LaterSubmissionsDoNothing)
{
    OrvikCore::JobDispatcher& ended = dispatcher();
    ended.Terminate();
    JobTicket ticket = jobTicket(job, /*sync=*/true);

    ended.ExecuteJob(ticket);
    ended.ExecuteJob(job);
    submit(job);

    EXPECT_EQ(runs, 0);
    EXPECT_EQ(ticket.GetStatus(), JOB_UNKNOWN);
    EXPECT_EQ(ticket.GetTarget(), addressOf(job));
    EXPECT_FALSE(ended.IsBusy());
}

TEST_F(JobDispatcherTerminate, WorkerThatFinishesItsJobInTimeIsNotParked)
{
    GateJob gate;
    occupyWorker(gate);
    sleeper().DoNotWaitForWorker();
    sleeper().OnMainSleep([this, &gate] {
        if (pauses().size() == 5) {
            gate.Open();
            waitUntil([&gate] { return gate.HasEnded(); });
        }
        OrvikOs::YieldThread();
    });

    dispatcher().Terminate();

    EXPECT_TRUE(gate.HasEnded());
    EXPECT_EQ(debugOutput().Text().find("... FAILED"), std::string::npos);
}

TEST_F(JobDispatcherTerminate, FinishedJobIsNotReportedAnyMore)
{
    std::vector<Notice> notices;
    RecordingObserver observer("observer", notices);
    dispatcher().RegisterJobStatusObserver(&observer);
    GateJob gate;
    JobTicket ticket = jobTicket(gate, /*sync=*/false, &observer);
    dispatcher().ExecuteJob(ticket);
    waitUntil([&gate] { return gate.HasStarted(); });
    sleeper().OnMainSleep([&gate] { gate.Open(); });

    dispatcher().Terminate();

    EXPECT_TRUE(gate.HasEnded());
    EXPECT_TRUE(notices.empty());
}

TEST_F(JobDispatcherTerminate, StuckWorkerIsParkedAfterTenPauses)
{
    GateJob& gate = *new GateJob; // Never deleted: the worker never leaves it.
    occupyWorker(gate);
    sleeper().DoNotWaitForWorker();

    dispatcher().Terminate();

    EXPECT_EQ(pauses(), std::vector<int>(10, 100));
    EXPECT_FALSE(gate.HasEnded());
    const std::string text = debugOutput().Text();
    EXPECT_TRUE(text.ends_with("    Terminating worker thread...\n... DONE\n")) << text;
}

TEST_F(JobDispatcherTerminate, EventIsSetInTheSecondPass)
{
    GateJob& gate = *new GateJob; // Never deleted: the worker never leaves it.
    occupyWorker(gate);
    sleeper().DoNotWaitForWorker();
    std::vector<std::string> textAtPause;
    sleeper().OnMainSleep([&textAtPause] { textAtPause.push_back(debugOutput().Text()); });

    dispatcher().Terminate();

    ASSERT_EQ(textAtPause.size(), 10u);
    EXPECT_EQ(textAtPause[0], terminateLine(""));
    const std::string head = terminateLine("") + "    JobDispatcher: SetEvent() for [0x";
    EXPECT_EQ(textAtPause[1].substr(0, head.size()), head);
    EXPECT_TRUE(textAtPause[1].ends_with("]\n"));
    EXPECT_EQ(textAtPause[9], textAtPause[1]);
}

TEST_F(JobDispatcherTerminate, WorkerThatDoesNotAnswerIsGivenUp)
{
    auto& started = *new std::atomic<bool>{false};
    auto& endless = *new FunctionJob([&started] { // Neither is deleted: the worker uses them.
        sigset_t all;
        sigfillset(&all);
        pthread_sigmask(SIG_BLOCK, &all, nullptr);
        started = true;
        while (started) {
            OrvikOs::YieldThread();
        }
        return true;
    });
    submit(endless);
    waitUntil([&started] { return started.load(); });
    sleeper().DoNotWaitForWorker();

    dispatcher().Terminate();

    const std::string text = debugOutput().Text();
    EXPECT_TRUE(text.ends_with("    Terminating worker thread...\n... FAILED\n")) << text;
}

TEST_F(JobDispatcherTerminate, CallFromAnotherThreadIsAssertedAndDoesNotPause)
{
    std::thread other([this] {
        // Contracts are written down on the thread that broke them; nobody else does so now.
        dispatcher().Terminate();
    });
    other.join();

    EXPECT_TRUE(pauses().empty());
    ASSERT_EQ(violations().size(), 1u);
    EXPECT_EQ(violations()[0].condition, "GetCurrentThreadId() == Orvik_mainThreadId");
    EXPECT_EQ(violations()[0].source, "src/JobDispatcher_Tamb");
    EXPECT_TRUE(debugOutput().Text().ends_with("    Terminating worker thread...\n... DONE\n"));
}
