#include "TestSupport.h"

#include <TambCommandsInfra/CallGate.h>
#include <TambCommandsInfra/Progress.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <memory>
#include <string>
#include <thread>
#include <vector>

using TambCommandsInfra::CallGate;
using TambCommandsInfra::Progress;
using TambCommandsInfra::ProgressReport;

namespace {

/// A progress whose reports are written down, on a clock that stands still.
class RecordedProgress : public testing::Test
{
protected:
    RecordedProgress()
    {
        m_progress.SetObserver(
            [this](const ProgressReport& report) { m_reports.push_back(report); });
    }

    std::vector<double> fractions() const
    {
        std::vector<double> all;
        for (const ProgressReport& report : m_reports) {
            all.push_back(report.fraction);
        }
        return all;
    }

    ManualClock m_clock;
    Progress m_progress;
    std::vector<ProgressReport> m_reports;
};

} // namespace

TEST_F(RecordedProgress, PhaseBeginsAtZero)
{
    m_progress.BeginPhase(L"Reading");

    ASSERT_EQ(m_reports.size(), 1u);
    EXPECT_EQ(m_reports[0].phase, L"Reading");
    EXPECT_EQ(m_reports[0].fraction, 0.0);
    EXPECT_FALSE(m_reports[0].isFinished);
}

TEST_F(RecordedProgress, ReportsWithinFiftyMillisecondsAreLeftOut)
{
    m_progress.BeginPhase(L"Reading");

    m_clock.AdvanceMs(49);
    m_progress.Report(0.1);
    m_clock.AdvanceMs(1);
    m_progress.Report(0.2);
    m_progress.Report(0.3);

    EXPECT_THAT(fractions(), testing::ElementsAre(0.0, 0.2));
}

TEST_F(RecordedProgress, EndOfAPhaseIsNeverLeftOut)
{
    m_progress.BeginPhase(L"Reading");

    m_progress.Report(1.0);

    EXPECT_THAT(fractions(), testing::ElementsAre(0.0, 1.0));
}

TEST_F(RecordedProgress, NextPhaseIsReportedAtOnce)
{
    m_progress.BeginPhase(L"Reading");
    m_progress.BeginPhase(L"Welding");

    ASSERT_EQ(m_reports.size(), 2u);
    EXPECT_EQ(m_reports[1].phase, L"Welding");
}

TEST_F(RecordedProgress, FractionNeverFallsWithinAPhase)
{
    m_progress.BeginPhase(L"Reading");
    m_clock.AdvanceMs(50);
    m_progress.Report(0.5);

    m_clock.AdvanceMs(50);
    m_progress.Report(0.4);

    EXPECT_THAT(fractions(), testing::ElementsAre(0.0, 0.5));
}

TEST_F(RecordedProgress, FractionStartsAgainWithTheNextPhase)
{
    m_progress.BeginPhase(L"Reading");
    m_progress.Report(1.0);
    m_progress.BeginPhase(L"Welding");
    m_clock.AdvanceMs(50);

    m_progress.Report(0.25);

    EXPECT_THAT(fractions(), testing::ElementsAre(0.0, 1.0, 0.0, 0.25));
}

TEST_F(RecordedProgress, FractionsOutsideTheRangeAreMovedToItsEnds)
{
    m_progress.BeginPhase(L"Reading");
    m_clock.AdvanceMs(50);
    m_progress.Report(-1.0);

    m_progress.Report(7.0);

    EXPECT_THAT(fractions(), testing::ElementsAre(0.0, 1.0));
}

TEST_F(RecordedProgress, NotANumberIsIgnored)
{
    m_progress.BeginPhase(L"Reading");
    m_clock.AdvanceMs(50);

    m_progress.Report(std::numeric_limits<double>::quiet_NaN());

    EXPECT_EQ(m_reports.size(), 1u);
}

TEST_F(RecordedProgress, ReportOutsideAPhaseIsIgnored)
{
    m_progress.Report(1.0);

    EXPECT_TRUE(m_reports.empty());
}

TEST_F(RecordedProgress, EndReportsThatItIsFinishedOnce)
{
    m_progress.BeginPhase(L"Reading");

    m_progress.End();
    m_progress.End();

    ASSERT_EQ(m_reports.size(), 2u);
    EXPECT_TRUE(m_reports[1].isFinished);
    EXPECT_EQ(m_reports[1].phase, L"Reading");
}

TEST_F(RecordedProgress, WithoutObserverNothingHappens)
{
    m_progress.SetObserver(nullptr);

    m_progress.BeginPhase(L"Reading");

    EXPECT_TRUE(m_reports.empty());
}

TEST_F(RecordedProgress, SlowMainThreadSeesTheLatestStateOnce)
{
    CallGate gate;
    RunOnThread([&] {
        m_progress.BeginPhase(L"Reading");
        m_progress.BeginPhase(L"Welding");
        m_progress.Report(1.0);
    });

    EXPECT_EQ(gate.Drain(), 1u);

    ASSERT_EQ(m_reports.size(), 1u);
    EXPECT_EQ(m_reports[0].phase, L"Welding");
    EXPECT_EQ(m_reports[0].fraction, 1.0);
}

TEST_F(RecordedProgress, ReportsGoOnAfterTheMainThreadHasCaughtUp)
{
    CallGate gate;
    RunOnThread([&] { m_progress.BeginPhase(L"Reading"); });
    gate.Drain();

    RunOnThread([&] { m_progress.Report(1.0); });
    gate.Drain();

    EXPECT_THAT(fractions(), testing::ElementsAre(0.0, 1.0));
}

TEST_F(RecordedProgress, ClosedGateLosesReportsQuietly)
{
    CallGate gate;
    gate.Close();

    RunOnThread([&] { m_progress.BeginPhase(L"Reading"); });

    EXPECT_TRUE(m_reports.empty());
}

TEST(Progress, ReportOnItsWayMaySurviveItsOwner)
{
    CallGate gate;
    int calls = 0;
    auto progress = std::make_unique<Progress>();
    progress->SetObserver([&](const ProgressReport&) { ++calls; });
    RunOnThread([&] { progress->BeginPhase(L"Reading"); });

    progress.reset();

    EXPECT_EQ(gate.Drain(), 1u);
    EXPECT_EQ(calls, 0);
}

TEST(Progress, ReportsOfTwoThreadsArriveInOrder)
{
    const CallGate gate;
    ManualClock clock;
    Progress progress;
    std::vector<double> fractions;
    progress.SetObserver(
        [&](const ProgressReport& report) { fractions.push_back(report.fraction); });

    RunOnWorker([&] {
        progress.BeginPhase(L"Reading");
        const auto reportOften = [&] {
            for (int step = 1; step <= 1000; ++step) {
                clock.AdvanceMs(50);
                progress.Report(step / 1000.0);
            }
        };
        std::thread second(reportOften);
        reportOften();
        second.join();
        CallGate::Call([] {});
    });

    EXPECT_TRUE(std::is_sorted(fractions.begin(), fractions.end()));
    ASSERT_FALSE(fractions.empty());
    EXPECT_EQ(fractions.back(), 1.0);
}

TEST(Progress, ProcessHasOneProgress)
{
    EXPECT_EQ(&Progress::Instance(), &Progress::Instance());
}
