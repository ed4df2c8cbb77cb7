#include "TestSupport.h"

#include <TambCommandsInfra/CallGate.h>

#include <gtest/gtest.h>

#include <atomic>
#include <memory>
#include <string>
#include <thread>

using TambCommandsInfra::CallGate;

TEST(CallGateClose, LaterCallIsRefused)
{
    CallGate gate;
    gate.Close();
    std::string text;

    RunOnThread([&] { text = ErrorOf([] { CallGate::Call([] {}); }); });

    EXPECT_EQ(text, "The application is closing.");
}

TEST(CallGateClose, LaterPostIsRefusedAndItsFunctionDestroyed)
{
    CallGate gate;
    gate.Close();
    const auto kept = std::make_shared<int>(0);
    bool taken = true;

    RunOnThread([&] { taken = CallGate::Post([kept] { ++*kept; }); });

    EXPECT_FALSE(taken);
    EXPECT_EQ(*kept, 0);
    EXPECT_EQ(kept.use_count(), 1);
}

TEST(CallGateClose, CallMadeWhileTheGateClosesIsRefusedAndNeverLost)
{
    for (int round = 0; round < 200; ++round) {
        CallGate gate;
        OrvikOs::Event calling;
        ASSERT_TRUE(calling.Create());
        std::string text;
        std::thread worker([&] {
            calling.Set();
            text = ErrorOf([] { CallGate::Call([] {}); });
        });
        calling.Wait(-1);
        for (int spin = 0; spin < round; ++spin) {
            OrvikOs::YieldThread();
        }

        gate.Close();
        worker.join();

        ASSERT_EQ(text, "The application is closing.");
    }
}

TEST(CallGateClose, RefusedCallNeverRunsAfterwards)
{
    CallGate gate;
    std::atomic<bool> ran{false};
    OrvikOs::Event calling;
    ASSERT_TRUE(calling.Create());
    std::thread worker([&] {
        calling.Set();
        ErrorOf([&] { CallGate::Call([&] { ran = true; }); });
    });
    calling.Wait(-1);

    gate.Close();
    worker.join();

    EXPECT_EQ(gate.Drain(), 0u);
    EXPECT_FALSE(ran);
}

TEST(CallGateClose, CallThatWasBegunIsFinishedAndGivesItsResult)
{
    const CallGate gate;
    int result = 0;
    std::string later;

    RunOnWorker([&] {
        result = CallGate::Call([] {
            CallGate::CloseCurrent();
            return 42;
        });
        later = ErrorOf([] { CallGate::Call([] {}); });
    });

    EXPECT_EQ(result, 42);
    EXPECT_EQ(later, "The application is closing.");
}

TEST(CallGateClose, PendingPostsAreDroppedAndDestroyed)
{
    CallGate gate;
    const auto kept = std::make_shared<int>(0);
    RunOnThread([&] { CallGate::Post([kept] { ++*kept; }); });
    ASSERT_EQ(kept.use_count(), 2);

    gate.Close();

    EXPECT_EQ(kept.use_count(), 1);
    EXPECT_EQ(gate.Drain(), 0u);
    EXPECT_EQ(*kept, 0);
}

TEST(CallGateClose, PostThatWaitsForRoomIsRefused)
{
    CallGate gate;
    OrvikOs::Event filled;
    ASSERT_TRUE(filled.Create());
    bool taken = true;
    std::thread worker([&] {
        CallGate::Post([] {}, CallGate::kMaxPendingBytes);
        filled.Set();
        taken = CallGate::Post([] {});
    });
    filled.Wait(-1);

    gate.Close();
    worker.join();

    EXPECT_FALSE(taken);
}

TEST(CallGateClose, MainThreadStillRunsAtOnce)
{
    CallGate gate;
    gate.Close();

    EXPECT_EQ(CallGate::Call([] { return 1; }), 1);
}

TEST(CallGateClose, SecondCloseDoesNothing)
{
    CallGate gate;
    EXPECT_FALSE(gate.IsClosed());

    gate.Close();
    gate.Close();

    EXPECT_TRUE(gate.IsClosed());
}

TEST(CallGateClose, CloseCurrentWithoutGateDoesNothing)
{
    CallGate::CloseCurrent();

    EXPECT_EQ(CallGate::Call([] { return 1; }), 1);
}

TEST(CallGateClose, DestructionLetsAWaitingPostGo)
{
    auto gate = std::make_unique<CallGate>();
    OrvikOs::Event filled;
    ASSERT_TRUE(filled.Create());
    bool returned = false;
    std::thread worker([&] {
        CallGate::Post([] {}, CallGate::kMaxPendingBytes);
        filled.Set();
        CallGate::Post([] {});
        returned = true;
    });
    filled.Wait(-1);

    gate.reset();
    worker.join();

    EXPECT_TRUE(returned);
}
