#include "FaultProbe.h"
#include "FaultSubjects.h"

#include <OrvikOs/Thread.h>

#include <gtest/gtest.h>

#include <csignal>

namespace {

constexpr std::size_t kStackBytes = 1024 * 1024;

/// Overflows the stack of a thread @p times times; counts those that were caught with all
/// destructors run.
int overflowOnThread(int times, std::uint32_t& code)
{
    int whole = 0;
    OrvikOs::Thread thread;
    thread.Start(
        [&whole, &code, times] {
            const OrvikOs::FaultScope scope;
            for (int i = 0; i < times; ++i) {
                const Outcome outcome = RunAsIs(&Subjects::Overflow);
                // The innermost level may overflow where its destructor is not due yet or any more.
                const long missing = Subjects::g_levelsEntered - Subjects::g_levelsLeft;
                const bool balanced =
                    missing >= 0 && missing <= 1 && Subjects::g_levelsEntered > 100;
                whole += outcome.machineFault && balanced ? 1 : 0;
                code = outcome.record.ExceptionCode;
            }
        },
        kStackBytes);
    thread.Join();
    return whole;
}

TEST(StackOverflow, OnAThreadBecomesAnException)
{
    std::uint32_t code = 0;
    EXPECT_EQ(overflowOnThread(1, code), 1);
    EXPECT_EQ(code, 0xC00000FDu);
}

TEST(StackOverflow, GuardWorksAgainAfterRearming)
{
    std::uint32_t code = 0;
    EXPECT_EQ(overflowOnThread(50, code), 50);
    EXPECT_EQ(code, 0xC00000FDu);
}

TEST(StackOverflow, OtherFaultsAreConvertedAfterwards)
{
    bool caught = false;
    OrvikOs::Thread thread;
    thread.Start(
        [&caught] {
            const OrvikOs::FaultScope scope;
            RunAsIs(&Subjects::Overflow);
            caught = RunAsIs(&Subjects::ReadNull).machineFault;
        },
        kStackBytes);
    thread.Join();
    EXPECT_TRUE(caught);
}

TEST(StackOverflow, NextScopeRearmsTheGuard)
{
    int caught = 0;
    OrvikOs::Thread thread;
    thread.Start(
        [&caught] {
            const OrvikOs::FaultScope outer;
            for (int i = 0; i < 3; ++i) {
                const OrvikOs::FaultScope scope;
                try {
                    void (*volatile subject)() = &Subjects::Overflow;
                    subject();
                } catch (const OrvikOs::MachineFault&) {
                    ++caught;
                }
            }
        },
        kStackBytes);
    thread.Join();
    EXPECT_EQ(caught, 3);
}

TEST(StackOverflow, RearmingWithAClosedGuardDoesNothing)
{
    EXPECT_TRUE(OrvikOs::FaultScope::RearmStackGuard());
}

TEST(StackOverflowDeathTest, OnTheMainThreadEndsTheProgram)
{
    EXPECT_EXIT(RunInScope(&Subjects::Overflow), EndedBy(SIGSEGV), "");
}

} // namespace
