#include "TestSupport.h"

#include <TambCommandsInfra/Hpt.h>

#include <gtest/gtest.h>

using TambCommandsInfra::Hpt;

TEST(Hpt, MeasuresFromItsConstruction)
{
    ManualClock clock;
    const Hpt timer;

    clock.AdvanceMs(1500);

    EXPECT_DOUBLE_EQ(timer.ElapsedSeconds(), 1.5);
    EXPECT_DOUBLE_EQ(timer.ElapsedMilliseconds(), 1500.0);
}

TEST(Hpt, ResolvesMicroseconds)
{
    ManualClock clock;
    clock.SetUs(5);
    const Hpt timer;

    clock.SetUs(12);

    EXPECT_DOUBLE_EQ(timer.ElapsedMilliseconds(), 0.007);
}

TEST(Hpt, StartBeginsAgainAtZero)
{
    ManualClock clock;
    Hpt timer;
    clock.AdvanceMs(100);

    timer.Start();
    clock.AdvanceMs(20);

    EXPECT_DOUBLE_EQ(timer.ElapsedMilliseconds(), 20.0);
}

TEST(Hpt, ClockThatGoesBackGivesZero)
{
    ManualClock clock;
    const Hpt timer;

    clock.SetUs(1);

    EXPECT_EQ(timer.ElapsedSeconds(), 0.0);
}
