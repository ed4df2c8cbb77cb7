#include "kernel/KernelWatch.h"

#include <OrvikOs/ThreadWatch.h>
#include <TambCommandsInfra/CancelToken.h>

#include <ElCLib.hxx>
#include <gp_Circ.hxx>
#include <gtest/gtest.h>

#include <ctime>
#include <string>
#include <vector>

namespace OrvikCad {
namespace {

using TambCommandsInfra::CancelScope;
using TambCommandsInfra::CancelToken;
using TambCommandsInfra::JobCancelled;

constexpr KernelLimits kShort{.silentMs = 50, .silentMsPerMegabyte = 0};

volatile double g_sink = 0.0;

void computeInKernel()
{
    const gp_Circ circle(gp::XOY(), 1.0);
    for (int i = 0; i < 1000; ++i)
        g_sink = g_sink + ElCLib::Value(0.001 * i, circle).X();
}

void computeForEver()
{
    for (;;)
        computeInKernel();
}

/// Grows outside of the kernel's code, so that the end never meets a list half made longer.
void fillForEver()
{
    std::vector<std::string> blocks;
    for (;;) {
        blocks.emplace_back(std::size_t{1} << 16, 'x');
        computeInKernel();
    }
}

class KernelWatching : public testing::Test
{
protected:
    void SetUp() override
    {
#if defined(__SANITIZE_THREAD__) || !defined(__x86_64__)
        GTEST_SKIP() << "no thread can be watched here";
#endif
    }
};

TEST_F(KernelWatching, EndsWhatShowsNoSignOfLife)
{
    KernelBudget budget(kShort, 0);

    EXPECT_EQ(RunWatched(budget, &computeForEver), L"the computation does not come to an end");
}

TEST_F(KernelWatching, LosesPatienceEachTime)
{
    KernelBudget budget({.silentMs = 800, .silentMsPerMegabyte = 0}, 0);
    RunWatched(budget, &computeForEver);
    EXPECT_EQ(budget.SilentMs(), 200u);

    RunWatched(budget, &computeForEver);

    EXPECT_EQ(budget.SilentMs(), 50u);
}

TEST_F(KernelWatching, LetsWorkGoOnThatShowsSignsOfLife)
{
    KernelBudget budget(kShort, 0);
    const std::clock_t end = std::clock() + CLOCKS_PER_SEC / 2;

    const std::wstring failure = RunWatched(budget, [end] {
        while (std::clock() < end) {
            computeInKernel();
            ShowSignOfLife();
        }
    });

    EXPECT_EQ(failure, L"");
}

TEST_F(KernelWatching, EndsWhatTakesMoreAndMoreMemory)
{
    if (OrvikOs::ResidentBytes() == 0)
        GTEST_SKIP() << "the system does not tell how much memory a process has";
    KernelBudget budget({.silentMs = 100'000, .silentMsPerMegabyte = 0}, 0);

    EXPECT_EQ(RunWatched(budget, &fillForEver), L"the computation takes more and more memory");
}

TEST_F(KernelWatching, EndsWhatDoesNotNoticeACancel)
{
    CancelToken& token = CancelToken::Instance();
    const CancelScope job(token, token.NextJobNumber());
    KernelBudget budget({.silentMs = 100'000, .silentMsPerMegabyte = 0}, 0);
    token.CancelCurrent();

    EXPECT_THROW(RunWatched(budget, &computeForEver), JobCancelled);
}

/// Gives back for longer than a cancel is waited for.
class SlowToGiveBack
{
public:
    explicit SlowToGiveBack(bool& isGivenBack) : m_isGivenBack(isGivenBack) {}
    ~SlowToGiveBack()
    {
        const std::clock_t end = std::clock() + 2 * CLOCKS_PER_SEC * kCancelPatienceMs / 1000;
        while (std::clock() < end)
            computeInKernel();
        m_isGivenBack = true;
    }
    SlowToGiveBack(const SlowToGiveBack&) = delete;
    SlowToGiveBack& operator=(const SlowToGiveBack&) = delete;

private:
    bool& m_isGivenBack;
};

TEST_F(KernelWatching, LeavesTheCleanupAfterACancelAlone)
{
    CancelToken& token = CancelToken::Instance();
    const CancelScope job(token, token.NextJobNumber());
    KernelBudget budget({.silentMs = 100'000, .silentMsPerMegabyte = 0}, 0);
    bool isGivenBack = false;

    EXPECT_THROW(RunWatched(budget,
                            [&] {
                                const SlowToGiveBack large(isGivenBack);
                                token.CancelCurrent();
                                PollJob();
                            }),
                 JobCancelled);

    EXPECT_TRUE(isGivenBack);
}

TEST_F(KernelWatching, LeavesTheCleanupAroundACancelledPieceAlone)
{
    CancelToken& token = CancelToken::Instance();
    const CancelScope job(token, token.NextJobNumber());
    KernelBudget budget({.silentMs = 100'000, .silentMsPerMegabyte = 0}, 0);
    bool isGivenBack = false;

    EXPECT_THROW(RunWatched(budget,
                            [&] {
                                const SlowToGiveBack large(isGivenBack);
                                token.CancelCurrent();
                                RunWatched(budget, [] { PollJob(); });
                            }),
                 JobCancelled);

    EXPECT_TRUE(isGivenBack);
}

TEST_F(KernelWatching, LeavesTheCleanupAfterAnEndByForceAlone)
{
    CancelToken& token = CancelToken::Instance();
    const CancelScope job(token, token.NextJobNumber());
    KernelBudget budget({.silentMs = 100'000, .silentMsPerMegabyte = 0}, 0);
    bool isGivenBack = false;
    token.CancelCurrent();

    EXPECT_THROW(RunWatched(budget,
                            [&] {
                                const SlowToGiveBack large(isGivenBack);
                                computeForEver();
                            }),
                 JobCancelled);

    EXPECT_TRUE(isGivenBack);
}

TEST_F(KernelWatching, LeavesAloneWhatSaysThatItCleansUp)
{
    CancelToken& token = CancelToken::Instance();
    const CancelScope job(token, token.NextJobNumber());
    KernelBudget budget({.silentMs = 100'000, .silentMsPerMegabyte = 0}, 0);
    bool isGivenBack = false;
    token.CancelCurrent();

    EXPECT_THROW(RunWatched(budget,
                            [&] {
                                {
                                    const CleanupScope cleanup;
                                    const SlowToGiveBack large(isGivenBack);
                                }
                                computeForEver();
                            }),
                 JobCancelled);

    EXPECT_TRUE(isGivenBack);
}

TEST(KernelBudget, GrowsWithTheFile)
{
    const KernelBudget small({}, 0);
    const KernelBudget large({}, 10 << 20);

    EXPECT_EQ(small.SilentMs(), 5000u);
    EXPECT_EQ(large.SilentMs(), 15000u);
    EXPECT_EQ(small.MaxSilentBytes(), std::size_t{24} << 20);
    EXPECT_EQ(large.MaxSilentBytes(), std::size_t{224} << 20);
}

} // namespace
} // namespace OrvikCad
