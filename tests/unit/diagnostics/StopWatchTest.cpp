#include "OrvikCore/StopWatch.h"

#include <OrvikOs/Clock.h>
#include <OrvikOs/DebugOutput.h>

#include <gtest/gtest.h>

#include <clocale>
#include <string>

using OrvikCore::StopWatch;

namespace {

class HandClock : public OrvikOs::IClock
{
public:
    std::uint64_t NowUs() override { return nowMs * 1000; }

    std::uint64_t nowMs = 5000;
};

class StopWatchTest : public ::testing::Test
{
protected:
    StopWatchTest()
    {
        OrvikOs::SetClock(&clock);
        OrvikOs::SetDebugSink([this](const char* text) { report += text; });
    }

    ~StopWatchTest() override
    {
        OrvikOs::SetDebugSink(nullptr);
        OrvikOs::SetClock(nullptr);
    }

    /// Lets a stop watch live for some milliseconds of the clock.
    void measure(const char* label, std::uint64_t milliseconds)
    {
        const StopWatch watch(label);
        clock.nowMs += milliseconds;
    }

    HandClock clock;
    std::string report;
};

} // namespace

TEST_F(StopWatchTest, ReportsLabelAndSecondsAtTheEndOfTheScope)
{
    measure("load", 1500);

    EXPECT_EQ(report, "load - 1.500(s)\n");
}

TEST_F(StopWatchTest, SaysNothingBeforeTheEnd)
{
    const StopWatch watch("load");

    EXPECT_EQ(report, "");
}

TEST_F(StopWatchTest, WritesMillisecondsWithThreeDigits)
{
    measure("short", 0);
    measure("short", 7);
    measure("long", 3600042);

    EXPECT_EQ(report, "short - 0.000(s)\nshort - 0.007(s)\nlong - 3600.042(s)\n");
}

TEST_F(StopWatchTest, CutsTheReportTo511Characters)
{
    const std::string label(600, 'x');

    measure(label.c_str(), 1);

    EXPECT_EQ(report, std::string(511, 'x'));
}

TEST_F(StopWatchTest, DoesNotReadTheLabelAsAFormat)
{
    measure("100% %s", 1000);

    EXPECT_EQ(report, "100% %s - 1.000(s)\n");
}

TEST_F(StopWatchTest, WritesAPointWhateverTheLocale)
{
    std::setlocale(LC_ALL, "de_DE.UTF-8");

    measure("load", 1500);

    EXPECT_EQ(report, "load - 1.500(s)\n");
}
