#include "TestSupport.h"

#include <TambCommandsInfra/CancelToken.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <thread>
#include <vector>

using TambCommandsInfra::CancelScope;
using TambCommandsInfra::CancelToken;
using TambCommandsInfra::JobCancelled;

TEST(CancelToken, NothingIsCancelledAtFirst)
{
    CancelToken token;

    EXPECT_FALSE(token.IsCancelled());
    EXPECT_EQ(token.RunningJob(), 0u);
}

TEST(CancelToken, JobNumbersCountFromOne)
{
    CancelToken token;

    EXPECT_EQ(token.NextJobNumber(), 1u);
    EXPECT_EQ(token.NextJobNumber(), 2u);
}

TEST(CancelToken, CancelOfTheRunningJobReachesIt)
{
    CancelToken token;
    token.Arm(4);

    EXPECT_TRUE(token.Cancel(4));

    EXPECT_TRUE(token.IsCancelled());
}

TEST(CancelToken, LateCancelNeverHitsTheNextJob)
{
    CancelToken token;
    token.Arm(4);
    token.Disarm();
    token.Arm(5);

    EXPECT_FALSE(token.Cancel(4));

    EXPECT_FALSE(token.IsCancelled());
}

TEST(CancelToken, CancelledJobDoesNotLeaveTheNextOneCancelled)
{
    CancelToken token;
    token.Arm(4);
    token.CancelCurrent();
    token.Disarm();

    token.Arm(5);

    EXPECT_FALSE(token.IsCancelled());
}

TEST(CancelToken, JobCancelledBeforeItRunsIsCancelledFromItsStart)
{
    CancelToken token;
    EXPECT_FALSE(token.Cancel(7));

    token.Arm(7);

    EXPECT_TRUE(token.IsCancelled());
}

TEST(CancelToken, CancelOfAJobToComeKeepsTheRunningOneCancelled)
{
    CancelToken token;
    token.Arm(7);
    token.Cancel(7);

    token.Cancel(8);

    EXPECT_TRUE(token.IsCancelled());
}

TEST(CancelToken, CancelCurrentGivesTheNumberOfTheJob)
{
    CancelToken token;
    EXPECT_EQ(token.CancelCurrent(), 0u);

    token.Arm(3);

    EXPECT_EQ(token.CancelCurrent(), 3u);
}

TEST(CancelToken, CancelOfNoJobDoesNothing)
{
    CancelToken token;
    token.Arm(3);

    EXPECT_FALSE(token.Cancel(0));
    EXPECT_FALSE(token.IsCancelled());
}

TEST(CancelToken, JobZeroIsRefused)
{
    CancelToken token;

    EXPECT_EQ(ErrorOf([&] { token.Arm(0); }), "Job numbers start at 1.");
}

TEST(CancelToken, ThrowIfCancelledThrowsOnlyForACancelledJob)
{
    CancelToken token;
    token.Arm(1);
    EXPECT_NO_THROW(token.ThrowIfCancelled());

    token.CancelCurrent();

    EXPECT_THROW(token.ThrowIfCancelled(), JobCancelled);
    EXPECT_EQ(ErrorOf([&] { token.ThrowIfCancelled(); }), "The job was cancelled.");
}

TEST(CancelToken, InterruptersGetTheNumberOfTheJob)
{
    CancelToken token;
    std::vector<std::uint64_t> jobs;
    token.AddInterrupter([&](std::uint64_t job) { jobs.push_back(job); });
    token.Arm(6);

    token.Cancel(6);

    EXPECT_THAT(jobs, testing::ElementsAre(6u));
}

TEST(CancelToken, InterruptersAreNotCalledForAnotherJob)
{
    CancelToken token;
    int calls = 0;
    token.AddInterrupter([&](std::uint64_t) { ++calls; });
    token.Arm(6);

    token.Cancel(5);

    EXPECT_EQ(calls, 0);
}

TEST(CancelToken, MarkCallsNobodyAndInterruptMakesUpForIt)
{
    CancelToken token;
    int calls = 0;
    token.AddInterrupter([&](std::uint64_t) { ++calls; });
    token.Arm(6);

    EXPECT_EQ(token.MarkCurrent(), 6u);
    EXPECT_TRUE(token.IsCancelled());
    EXPECT_EQ(calls, 0);

    EXPECT_TRUE(token.Interrupt());
    EXPECT_EQ(calls, 1);
}

TEST(CancelToken, InterruptDoesNothingWhileNothingIsCancelled)
{
    CancelToken token;
    int calls = 0;
    token.AddInterrupter([&](std::uint64_t) { ++calls; });
    token.Arm(6);

    EXPECT_FALSE(token.Interrupt());
    EXPECT_EQ(calls, 0);
}

TEST(CancelToken, RemovedInterrupterIsNotCalled)
{
    CancelToken token;
    int first = 0;
    int second = 0;
    const int id = token.AddInterrupter([&](std::uint64_t) { ++first; });
    token.AddInterrupter([&](std::uint64_t) { ++second; });
    token.Arm(1);

    token.RemoveInterrupter(id);
    token.CancelCurrent();

    EXPECT_EQ(first, 0);
    EXPECT_EQ(second, 1);
}

TEST(CancelToken, ScopeDisarmsHoweverTheJobEnds)
{
    CancelToken token;

    ErrorOf([&] {
        const CancelScope scope(token, 9);
        EXPECT_EQ(token.RunningJob(), 9u);
        throw std::runtime_error("job failed");
    });

    EXPECT_EQ(token.RunningJob(), 0u);
}

TEST(CancelToken, CancelFromAnotherThreadEndsALoop)
{
    CancelToken token;
    OrvikOs::Event running;
    ASSERT_TRUE(running.Create());
    std::thread worker([&] {
        const CancelScope scope(token, token.NextJobNumber());
        running.Set();
        while (!token.IsCancelled()) {
            OrvikOs::YieldThread();
        }
    });
    running.Wait(-1);

    const std::uint64_t job = token.CancelCurrent();
    worker.join();

    EXPECT_EQ(job, 1u);
}

TEST(CancelToken, CancelsBesideManyShortJobsHitOnlyTheJobTheyName)
{
    CancelToken token;
    std::atomic<bool> ended{false};
    int wrong = 0;
    std::thread canceller([&] {
        while (!ended) {
            const std::uint64_t running = token.RunningJob();
            if (running % 2 == 1) {
                token.Cancel(running);
            }
        }
    });
    for (int count = 0; count < 20000; ++count) {
        const std::uint64_t job = token.NextJobNumber();
        const CancelScope scope(token, job);
        wrong += job % 2 == 0 && token.IsCancelled();
    }
    ended = true;
    canceller.join();

    EXPECT_EQ(wrong, 0);
}

TEST(CancelToken, ProcessHasOneToken)
{
    EXPECT_EQ(&CancelToken::Instance(), &CancelToken::Instance());
}
