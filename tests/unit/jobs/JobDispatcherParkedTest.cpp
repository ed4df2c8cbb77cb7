#include "DispatcherFixture.h"

#include <chrono>
#include <memory>
#include <thread>

using OrvikCore::JID_EXECUTE_SCRIPT;
using OrvikCore::JOB_COMPLETED;

namespace {

using JobDispatcherParked = DispatcherTest;

std::shared_ptr<FunctionJob> doneJob()
{
    return std::make_shared<FunctionJob>([] { return true; });
}

} // namespace

TEST_F(JobDispatcherParked, FinishedJobIsReportedAndReleased)
{
    const std::shared_ptr<FunctionJob> job = doneJob();

    EXPECT_TRUE(dispatcher().ExecuteParked(job));

    EXPECT_EQ(job.use_count(), 1);
}

TEST_F(JobDispatcherParked, JobThatOutlastsItsSubmitterIsKept)
{
    auto gate = std::make_shared<GateJob>();
    const std::weak_ptr<GateJob> watch = gate;
    dispatcher().SetJobTimeout(1);

    const bool finished = dispatcher().ExecuteParked(gate);
    GateJob& running = *gate;
    gate.reset();

    EXPECT_FALSE(finished);
    ASSERT_FALSE(watch.expired());
    running.Open();
    waitUntilIdle();
}

TEST_F(JobDispatcherParked, KeptJobIsReleasedByALaterSubmission)
{
    auto gate = std::make_shared<GateJob>();
    const std::weak_ptr<GateJob> watch = gate;
    dispatcher().SetJobTimeout(1);
    dispatcher().ExecuteParked(gate);
    gate->Open();
    gate.reset();
    waitUntilIdle();
    EXPECT_FALSE(watch.expired());

    FunctionJob later([] { return true; });
    submit(later);
    waitUntilIdle();

    EXPECT_TRUE(watch.expired());
}

TEST_F(JobDispatcherParked, KeptJobIsReleasedByTerminate)
{
    auto gate = std::make_shared<GateJob>();
    const std::weak_ptr<GateJob> watch = gate;
    dispatcher().SetJobTimeout(1);
    dispatcher().ExecuteParked(gate);
    gate->Open();
    gate.reset();

    dispatcher().Terminate();

    EXPECT_TRUE(watch.expired());
}

TEST_F(JobDispatcherParked, JobOfAParkedWorkerIsNeverReleased)
{
    auto gate = std::make_shared<GateJob>();
    const std::weak_ptr<GateJob> watch = gate;
    dispatcher().SetJobTimeout(1);
    dispatcher().ExecuteParked(gate);
    waitUntil([&gate] { return gate->HasStarted(); });
    gate.reset();
    sleeper().DoNotWaitForWorker();

    dispatcher().Terminate();

    EXPECT_FALSE(watch.expired());
}

TEST_F(JobDispatcherParked, EventOfAnEarlierJobDoesNotEndTheWait)
{
    FunctionJob earlier([] { return false; });
    submit(earlier);
    waitUntilIdle();
    auto slow = std::make_shared<FunctionJob>([] {
        std::this_thread::sleep_for(std::chrono::milliseconds(100));
        return true;
    });

    EXPECT_TRUE(dispatcher().ExecuteParked(slow));
}

TEST_F(JobDispatcherParked, EventOfAnEarlierJobIsPassedOverUntilTheTimeOut)
{
    FunctionJob earlier([] { return false; });
    submit(earlier);
    waitUntilIdle();
    auto gate = std::make_shared<GateJob>();
    dispatcher().SetJobTimeout(50);

    EXPECT_FALSE(dispatcher().ExecuteParked(gate));

    gate->Open();
    waitUntilIdle();
}

TEST_F(JobDispatcherParked, ScriptTextIsKeptUntilItsRunHasEnded)
{
    GateJob gate;
    FakeScriptEngine engine;
    auto script = std::make_shared<const std::wstring>(L"(long)");
    const std::weak_ptr<const std::wstring> watch = script;
    occupyWorker(gate);
    JobTicket ticket(JID_EXECUTE_SCRIPT, nullptr, false, addressOf(engine), addressOf(*script));

    const bool finished = dispatcher().ExecuteParked(ticket, std::move(script));

    EXPECT_FALSE(finished);
    EXPECT_FALSE(watch.expired());
    gate.Open();
    waitUntilIdle();
    EXPECT_EQ(engine.loadedText, L"(long)");
}

TEST_F(JobDispatcherParked, TicketReceivesItsResultAsUsual)
{
    FakeScriptEngine engine;
    auto script = std::make_shared<const std::wstring>(L"(short)");
    JobTicket ticket(JID_EXECUTE_SCRIPT, nullptr, true, addressOf(engine), addressOf(*script));

    EXPECT_TRUE(dispatcher().ExecuteParked(ticket, script));

    EXPECT_EQ(ticket.GetStatus(), JOB_COMPLETED);
    EXPECT_EQ(ticket.GetMessageText(), L"output of the run");
    EXPECT_EQ(script.use_count(), 1);
}

TEST_F(JobDispatcherParked, BlockOfADroppedTicketIsNotKept)
{
    dispatcher();
    sleeper().HoldWorker();
    FunctionJob nothing([] { return true; });
    for (int i = 0; i < 100; ++i) {
        submit(nothing);
    }
    const std::shared_ptr<FunctionJob> dropped = doneJob();
    JobTicket ticket = jobTicket(*dropped, /*sync=*/false);

    EXPECT_FALSE(dispatcher().ExecuteParked(ticket, dropped));

    EXPECT_EQ(dropped.use_count(), 1);
    sleeper().ReleaseWorker();
    waitUntilIdle();
}

TEST_F(JobDispatcherParked, BlockOfARequestAfterTerminateIsNotKept)
{
    dispatcher().Terminate();
    const std::shared_ptr<FunctionJob> job = doneJob();

    EXPECT_FALSE(dispatcher().ExecuteParked(job));

    EXPECT_EQ(job.use_count(), 1);
}
