#include "FaultProbe.h"
#include "FaultSubjects.h"

#include <OrvikOs/FaultHook.h>
#include <OrvikOs/FpControl.h>
#include <OrvikOs/FpMasked.h>
#include <OrvikOs/ParallelFor.h>
#include <OrvikOs/Thread.h>

#include <gtest/gtest.h>

#include <atomic>
#include <mutex>
#include <set>
#include <stdexcept>
#include <vector>

// The test program runs with ORVIK_THREADS=4.

namespace {

void callOpaquely(void (*subject)())
{
    void (*volatile opaque)() = subject;
    opaque();
}

TEST(ParallelFor, EveryElementIsVisitedOnce)
{
    std::vector<std::atomic<int>> visits(10007);
    OrvikOs::ParallelFor(visits.size(), 13, [&visits](std::size_t begin, std::size_t end) {
        for (std::size_t i = begin; i < end; ++i) {
            ++visits[i];
        }
    });
    for (const auto& count : visits) {
        ASSERT_EQ(count.load(), 1);
    }
}

TEST(ParallelFor, NoElementsMeansNoCall)
{
    int calls = 0;
    OrvikOs::ParallelFor(0, 10, [&calls](std::size_t, std::size_t) { ++calls; });
    EXPECT_EQ(calls, 0);
}

TEST(ParallelFor, GrainOfZeroCountsAsOne)
{
    std::atomic<std::size_t> largest{0};
    std::atomic<int> calls{0};
    OrvikOs::ParallelFor(5, 0, [&](std::size_t begin, std::size_t end) {
        largest = std::max(largest.load(), end - begin);
        ++calls;
    });
    EXPECT_EQ(largest.load(), 1u);
    EXPECT_EQ(calls.load(), 5);
}

TEST(ParallelFor, UsesSeveralThreads)
{
    ASSERT_EQ(OrvikOs::ParallelWidth(), 4u);
    std::mutex mutex;
    std::set<std::uint32_t> threads;
    std::atomic<int> arrived{0};
    OrvikOs::ParallelFor(4, 1, [&](std::size_t, std::size_t) {
        ++arrived;
        while (arrived.load() < 4) { // Four pieces run only side by side.
            OrvikOs::YieldThread();
        }
        const std::lock_guard<std::mutex> lock(mutex);
        threads.insert(OrvikOs::CurrentThreadId());
    });
    EXPECT_EQ(threads.size(), 4u);
}

TEST(ParallelFor, FirstExceptionReachesTheCaller)
{
    std::atomic<int> calls{0};
    EXPECT_THROW(OrvikOs::ParallelFor(100000, 1,
                                      [&calls](std::size_t begin, std::size_t) {
                                          ++calls;
                                          if (begin == 17) {
                                              throw std::out_of_range("seventeen");
                                          }
                                      }),
                 std::out_of_range);
    EXPECT_GE(calls.load(), 1);
}

TEST(ParallelFor, ExceptionStopsTheHandingOutOfPieces)
{
    std::atomic<std::size_t> highest{0};
    try {
        OrvikOs::ParallelFor(1u << 30, 1, [&highest](std::size_t begin, std::size_t) {
            highest = begin;
            throw 1;
        });
    } catch (int) {
    }
    EXPECT_LT(highest.load(), 100u);
}

TEST(ParallelFor, FaultInAPieceReachesTheCallerThroughItsTranslator)
{
    OrvikOs::SetFaultTranslator(
        [](const OrvikOs::EXCEPTION_RECORD&) { throw std::domain_error("fault in a piece"); });
    std::string text;
    try {
        OrvikOs::ParallelFor(1000, 1, [](std::size_t begin, std::size_t) {
            if (begin == 500) {
                callOpaquely(&Subjects::WriteNull);
            }
        });
    } catch (const std::domain_error& error) {
        text = error.what();
    }
    EXPECT_EQ(text, "fault in a piece");
}

TEST(ParallelFor, FaultsInEveryPieceManyTimesOver)
{
    int caught = 0;
    for (int i = 0; i < 200; ++i) {
        try {
            OrvikOs::ParallelFor(
                8, 1, [](std::size_t, std::size_t) { callOpaquely(&Subjects::ReadNull); });
        } catch (const OrvikOs::MachineFault&) {
            ++caught;
        }
    }
    EXPECT_EQ(caught, 200);
}

TEST(ParallelFor, HookOfTheCallerDoesNotReachPieces)
{
    int calls = 0;
    const OrvikOs::FaultHookScope hook(
        [](void* context, const OrvikOs::FaultInfo&) { ++*static_cast<int*>(context); }, &calls);
    EXPECT_THROW(OrvikOs::ParallelFor(
                     1, 1, [](std::size_t, std::size_t) { callOpaquely(&Subjects::ReadNull); }),
                 OrvikOs::MachineFault);
    EXPECT_EQ(calls, 0);
}

TEST(ParallelFor, TrapsAreMaskedInPiecesAndBackAfterwards)
{
    OrvikOs::FpControl::SetControlWord(0x13, OrvikOs::kMCW_EM);
    const OrvikOs::FpState before = OrvikOs::FpControl::Save();
    std::atomic<bool> masked{true};
    OrvikOs::ParallelFor(64, 1, [&masked](std::size_t, std::size_t) {
        if (OrvikOs::FpControl::ControlWord() != 0x8001Fu) {
            masked = false;
        }
        callOpaquely(&Subjects::FpDivide);
    });
    const OrvikOs::FpState after = OrvikOs::FpControl::Save();
    OrvikOs::FpControl::SetControlWord(OrvikOs::kMCW_EM, OrvikOs::kMCW_EM);
    EXPECT_TRUE(masked.load());
    EXPECT_EQ(after.mxcsr, before.mxcsr);
    EXPECT_EQ(after.x87ControlWord, before.x87ControlWord);
}

TEST(ParallelFor, NestedLoopsRunOnTheThreadOfTheirPiece)
{
    std::atomic<int> sum{0};
    std::atomic<bool> sameThread{true};
    OrvikOs::ParallelFor(8, 1, [&](std::size_t, std::size_t) {
        const std::uint32_t own = OrvikOs::CurrentThreadId();
        OrvikOs::ParallelFor(100, 7, [&](std::size_t begin, std::size_t end) {
            sum += static_cast<int>(end - begin);
            sameThread = sameThread && OrvikOs::CurrentThreadId() == own;
        });
    });
    EXPECT_EQ(sum.load(), 800);
    EXPECT_TRUE(sameThread.load());
}

TEST(ParallelFor, SeveralThreadsMayLoopAtATime)
{
    std::atomic<int> sum{0};
    const auto loop = [&sum] {
        for (int i = 0; i < 50; ++i) {
            OrvikOs::ParallelFor(100, 3, [&sum](std::size_t begin, std::size_t end) {
                sum += static_cast<int>(end - begin);
            });
        }
    };
    OrvikOs::Thread first;
    OrvikOs::Thread second;
    first.Start(loop);
    second.Start(loop);
    loop();
    first.Join();
    second.Join();
    EXPECT_EQ(sum.load(), 15000);
}

TEST(FpControl, DefaultWordMasksEverything)
{
    EXPECT_EQ(OrvikOs::FpControl::ControlWord(), 0x8001Fu);
}

TEST(FpControl, BothUnitsAreSetAlike)
{
    EXPECT_EQ(OrvikOs::FpControl::SetControlWord(0x13, 0x8001F), 0);
    const OrvikOs::FpState state = OrvikOs::FpControl::Save();
    const unsigned word = OrvikOs::FpControl::ControlWord();
    OrvikOs::FpControl::SetControlWord(0x8001F, 0x8001F);
    EXPECT_EQ(word, 0x13u);
    EXPECT_EQ(state.mxcsr, 0x1880u);
    EXPECT_EQ(state.x87ControlWord, 0x371u);
}

TEST(FpControl, OnlyTheBitsOfTheMaskChange)
{
    OrvikOs::FpControl::SetControlWord(0, OrvikOs::kEM_ZERODIVIDE);
    EXPECT_EQ(OrvikOs::FpControl::ControlWord(), 0x80017u);
    OrvikOs::FpControl::SetControlWord(OrvikOs::kEM_ZERODIVIDE, OrvikOs::kEM_ZERODIVIDE);
    EXPECT_EQ(OrvikOs::FpControl::ControlWord(), 0x8001Fu);
}

TEST(FpControl, MaskWithOtherBitsIsRefused)
{
    EXPECT_EQ(OrvikOs::FpControl::SetControlWord(0, 0x300), 22);
    EXPECT_EQ(OrvikOs::FpControl::ControlWord(), 0x8001Fu);
}

TEST(FpControl, ClearedStatusDoesNotTrapLater)
{
    callOpaquely(&Subjects::X87Divide); // Leaves its error in the status.
    OrvikOs::FpControl::ClearStatus();
    EXPECT_EQ(OrvikOs::FpControl::Save().mxcsr & 0x3Fu, 0u);
    OrvikOs::FpControl::SetControlWord(0, OrvikOs::kEM_ZERODIVIDE);
    volatile long double one = 1.0L;
    one = one + one;
    OrvikOs::FpControl::SetControlWord(0x8001F, 0x8001F);
    EXPECT_EQ(one, 2.0L);
}

TEST(FpMasked, MasksWhileAliveAndRestoresBoth)
{
    OrvikOs::FpControl::SetControlWord(0x13, 0x8001F);
    unsigned inside = 0;
    {
        const OrvikOs::FpMasked masked;
        inside = OrvikOs::FpControl::ControlWord();
        callOpaquely(&Subjects::FpOverflow);
        callOpaquely(&Subjects::X87Divide);
    }
    const OrvikOs::FpState after = OrvikOs::FpControl::Save();
    OrvikOs::FpControl::SetControlWord(0x8001F, 0x8001F);
    EXPECT_EQ(inside, 0x8001Fu);
    EXPECT_EQ(after.mxcsr, 0x1880u);
    EXPECT_EQ(after.x87ControlWord, 0x371u);
}

} // namespace
