#include "TestSupport.h"

#include <TambCommandsInfra/CallGate.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

using TambCommandsInfra::CallGate;

namespace {

struct SpecialError : std::runtime_error
{
    explicit SpecialError(int given) : std::runtime_error("special"), code(given) {}
    int code;
};

} // namespace

TEST(CallGate, CallRunsAtOnceWithoutGate)
{
    std::thread::id caller;
    std::thread::id runner;

    RunOnThread([&] {
        caller = std::this_thread::get_id();
        CallGate::Call([&] { runner = std::this_thread::get_id(); });
    });

    EXPECT_EQ(runner, caller);
}

TEST(CallGate, PostRunsAtOnceWithoutGate)
{
    bool ran = false;

    EXPECT_TRUE(CallGate::Post([&] { ran = true; }));

    EXPECT_TRUE(ran);
}

TEST(CallGate, ExceptionOfAPostThatRunsAtOnceReachesTheCaller)
{
    EXPECT_EQ(ErrorOf([] { CallGate::Post([] { throw std::runtime_error("at once"); }); }),
              "at once");
}

TEST(CallGate, CallRunsAtOnceOnTheMainThread)
{
    const CallGate gate;

    EXPECT_EQ(CallGate::Call([] { return 3; }), 3);
}

TEST(CallGate, WorkerDoesNotRunInline)
{
    const CallGate gate;
    bool onWorker = true;

    RunOnThread([&] { onWorker = CallGate::RunsInline(); });

    EXPECT_FALSE(onWorker);
    EXPECT_TRUE(CallGate::RunsInline());
}

TEST(CallGate, CallOfAWorkerRunsOnTheMainThread)
{
    const CallGate gate;
    std::thread::id runner;

    RunOnWorker([&] { CallGate::Call([&] { runner = std::this_thread::get_id(); }); });

    EXPECT_EQ(runner, std::this_thread::get_id());
}

TEST(CallGate, CallGivesAResultThatCanOnlyBeMoved)
{
    const CallGate gate;
    std::unique_ptr<int> result;

    RunOnWorker([&] { result = CallGate::Call([] { return std::make_unique<int>(7); }); });

    ASSERT_TRUE(result);
    EXPECT_EQ(*result, 7);
}

TEST(CallGate, CallGivesAReference)
{
    const CallGate gate;
    int number = 0;
    const int* result = nullptr;

    RunOnWorker([&] { result = &CallGate::Call([&]() -> int& { return number; }); });

    EXPECT_EQ(result, &number);
}

TEST(CallGate, CallCarriesTheExceptionBackWithItsType)
{
    const CallGate gate;
    int code = 0;

    RunOnWorker([&] {
        try {
            CallGate::Call([] { throw SpecialError(12); });
        } catch (const SpecialError& error) {
            code = error.code;
        }
    });

    EXPECT_EQ(code, 12);
}

TEST(CallGate, CallCarriesBackWhatIsNoStandardException)
{
    const CallGate gate;
    int thrown = 0;

    RunOnWorker([&] {
        try {
            CallGate::Call([] { throw 5; });
        } catch (int number) {
            thrown = number;
        }
    });

    EXPECT_EQ(thrown, 5);
}

TEST(CallGate, CallsAndPostsRunInTheOrderInWhichTheyWereMade)
{
    const CallGate gate;
    std::vector<int> order;
    const auto note = [&order](int number) { order.push_back(number); };

    RunOnWorker([&] {
        CallGate::Post([&] { note(1); });
        CallGate::Post([&] { note(2); });
        CallGate::Call([&] { note(3); });
        CallGate::Post([&] { note(4); });
        CallGate::Call([&] { note(5); });
    });

    EXPECT_THAT(order, testing::ElementsAre(1, 2, 3, 4, 5));
}

TEST(CallGate, PostReturnsBeforeTheMainThreadHasTime)
{
    CallGate gate;
    int ran = 0;

    RunOnThread([&] {
        for (int post = 0; post < 1000; ++post) {
            CallGate::Post([&] { ++ran; });
        }
    });

    EXPECT_EQ(ran, 0);
    EXPECT_EQ(gate.Drain(), 1000u);
    EXPECT_EQ(ran, 1000);
}

TEST(CallGate, PostTakesAFunctionThatCanOnlyBeMoved)
{
    CallGate gate;
    int seen = 0;

    RunOnThread(
        [&] { CallGate::Post([&seen, number = std::make_unique<int>(9)] { seen = *number; }); });
    gate.Drain();

    EXPECT_EQ(seen, 9);
}

TEST(CallGate, PostWaitsOnceEightMegabytesArePending)
{
    CallGate gate;
    OrvikOs::Event filled;
    OrvikOs::Event through;
    ASSERT_TRUE(filled.Create() && through.Create());
    std::thread worker([&] {
        for (int post = 0; post < 8; ++post) {
            CallGate::Post([] {}, 1024 * 1024);
        }
        filled.Set();
        CallGate::Post([] {}, 1);
        through.Set();
    });

    EXPECT_EQ(filled.Wait(-1), OrvikOs::kWaitSignalled);
    EXPECT_EQ(through.Wait(50), OrvikOs::kWaitTimeout);
    EXPECT_GE(gate.Drain(), 8u);
    EXPECT_EQ(through.Wait(-1), OrvikOs::kWaitSignalled);
    worker.join();
}

TEST(CallGate, PostLargerThanTheLimitIsTakenWhenNothingWaits)
{
    CallGate gate;
    bool taken = false;

    RunOnThread([&] { taken = CallGate::Post([] {}, std::size_t{64} * 1024 * 1024); });

    EXPECT_TRUE(taken);
    EXPECT_EQ(gate.Drain(), 1u);
}

TEST(CallGate, ExceptionInAPostIsWrittenToTheDebugOutput)
{
    CallGate gate;
    const CapturedDebugOutput debug;

    RunOnThread([] { CallGate::Post([] { throw std::runtime_error("lost"); }); });
    gate.Drain();

    EXPECT_EQ(debug.Text(), "-- Exception in a posted call: lost\n");
}

TEST(CallGate, WhatIsNoStandardExceptionInAPostIsWrittenToTheDebugOutput)
{
    CallGate gate;
    const CapturedDebugOutput debug;

    RunOnThread([] { CallGate::Post([] { throw 1; }); });
    gate.Drain();

    EXPECT_EQ(debug.Text(), "-- Unknown exception in a posted call\n");
}

TEST(CallGate, PostAfterAFailedOneStillRuns)
{
    CallGate gate;
    bool ran = false;

    RunOnThread([&] {
        CallGate::Post([] { throw std::runtime_error("lost"); });
        CallGate::Post([&] { ran = true; });
    });
    gate.Drain();

    EXPECT_TRUE(ran);
}

TEST(CallGate, FaultInACallBecomesAnExceptionAtTheCaller)
{
    const CallGate gate;
    std::string text;

    RunOnWorker([&] { text = ErrorOf([] { CallGate::Call([] { return ReadBadMemory(); }); }); });

    EXPECT_THAT(text, testing::StartsWith("Machine fault 0xC0000005"));
}

TEST(CallGate, FaultInAPostIsTracedAndTheNextOneRuns)
{
    CallGate gate;
    const CapturedDebugOutput debug;
    bool ran = false;

    RunOnThread([&] {
        CallGate::Post([] { ReadBadMemory(); });
        CallGate::Post([&] { ran = true; });
    });
    gate.Drain();

    EXPECT_THAT(debug.Text(), testing::StartsWith("-- Exception in a posted call: Machine fault"));
    EXPECT_TRUE(ran);
}

TEST(CallGate, FaultsDoNotWearTheGateOut)
{
    const CallGate gate;
    int caught = 0;

    RunOnWorker([&] {
        for (int attempt = 0; attempt < 500; ++attempt) {
            caught +=
                ErrorOf([] { CallGate::Call([] { return ReadBadMemory(); }); }) != "no exception";
        }
    });

    EXPECT_EQ(caught, 500);
}

TEST(CallGate, CallInsideADrainedFunctionRunsAtOnce)
{
    const CallGate gate;
    int result = 0;

    RunOnWorker(
        [&] { result = CallGate::Call([] { return CallGate::Call([] { return 4; }) + 1; }); });

    EXPECT_EQ(result, 5);
}

TEST(CallGate, DrainLeavesWhatIsQueuedMeanwhileForTheNextTime)
{
    CallGate gate;
    RunOnThread([] { CallGate::Post([] { RunOnThread([] { CallGate::Post([] {}); }); }); });

    EXPECT_EQ(gate.Drain(), 1u);
    EXPECT_EQ(gate.Drain(), 1u);
    EXPECT_EQ(gate.Drain(), 0u);
}

TEST(CallGate, DrainedFunctionMayDrain)
{
    CallGate gate;
    std::vector<std::string> order;
    RunOnThread([&] {
        CallGate::Post([&] {
            order.push_back("outer begins");
            gate.Drain();
            order.push_back("outer ends");
        });
        CallGate::Post([&] { order.push_back("inner"); });
    });

    gate.Drain();

    EXPECT_THAT(order, testing::ElementsAre("outer begins", "inner", "outer ends"));
}

TEST(CallGate, WaitInsideADrainedFunctionServesWhatWasQueuedBefore)
{
    CallGate gate;
    OrvikOs::Event inner;
    ASSERT_TRUE(inner.Create());
    unsigned result = OrvikOs::kWaitFailed;
    RunOnThread([&] {
        CallGate::Post([&] { result = OrvikOs::MsgWait(inner, -1, 0); });
        CallGate::Post([&] { inner.Set(); });
    });

    OrvikOs::ServeWakeSources();

    EXPECT_EQ(result, OrvikOs::kWaitSignalled);
}

TEST(CallGate, SecondGateIsRefused)
{
    const CallGate gate;

    EXPECT_EQ(ErrorOf([] { const CallGate second; }), "A call gate exists already.");
}

TEST(CallGate, RefusedSecondGateLeavesTheFirstInPlace)
{
    const CallGate gate;
    ErrorOf([] { const CallGate second; });
    int result = 0;

    RunOnWorker([&] { result = CallGate::Call([] { return 2; }); });

    EXPECT_EQ(result, 2);
}

TEST(CallGate, CallsRunAtOnceAgainWhenTheGateIsGone)
{
    {
        const CallGate gate;
    }
    int result = 0;

    RunOnThread([&] { result = CallGate::Call([] { return 6; }); });

    EXPECT_EQ(result, 6);
}

TEST(CallGate, NewGateFollowsADestroyedOne)
{
    {
        CallGate first;
        first.Close();
    }
    const CallGate second;
    int result = 0;

    RunOnWorker([&] { result = CallGate::Call([] { return 8; }); });

    EXPECT_EQ(result, 8);
}

TEST(CallGate, CallsOfTwoThreadsAllArrive)
{
    const CallGate gate;
    int sum = 0; // touched on the main thread only

    RunOnWorker([&] {
        const auto callOften = [&] {
            for (int call = 0; call < 2000; ++call) {
                CallGate::Call([&] { ++sum; });
                CallGate::Post([&] { ++sum; });
            }
            CallGate::Call([] {});
        };
        std::thread second(callOften);
        callOften();
        second.join();
    });

    EXPECT_EQ(sum, 8000);
}
