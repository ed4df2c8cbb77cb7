#include "FrameCost.h"

#include "TickingClock.h"

#include <gtest/gtest.h>

namespace ViewOpenGl {
namespace {

using TambVizCore::PartKind;

FrameWork frameOf(double triangles, double draws)
{
    FrameWork work = WorkOf(PartKind::Face, triangles);
    work.draws = draws;
    work.slices = 1.0;
    work.pixels = 2e6;
    return work;
}

TEST(CostModel, ForetellsAFrameThatItHasSeenSomeTimes)
{
    CostModel model;
    for (int i = 0; i < 20; ++i)
        model.Learn(frameOf(1e6, 200), 80.0);

    EXPECT_NEAR(model.Milliseconds(frameOf(1e6, 200)), 80.0, 1.0);
}

TEST(CostModel, ForetellsFramesOfOtherSizesFromTwoKinds)
{
    CostModel model;
    // Ten milliseconds, and one for ten thousand triangles.
    for (int i = 0; i < 400; ++i)
        for (const double triangles : {2e5, 1e6})
            model.Learn(frameOf(triangles, 100), 10.0 + triangles / 1e4);

    EXPECT_NEAR(model.Milliseconds(frameOf(5e5, 100)), 60.0, 6.0);
}

TEST(CostModel, FollowsAMachineThatGetsSlower)
{
    CostModel model;
    for (int i = 0; i < 20; ++i)
        model.Learn(frameOf(1e6, 200), 40.0);
    for (int i = 0; i < 20; ++i)
        model.Learn(frameOf(1e6, 200), 120.0);

    EXPECT_NEAR(model.Milliseconds(frameOf(1e6, 200)), 120.0, 2.0);
}

TEST(CostModel, OneHiccupDoesNotSpoilIt)
{
    CostModel model;
    for (int i = 0; i < 20; ++i)
        model.Learn(frameOf(1e5, 10), 8.0);

    model.Learn(frameOf(1e5, 10), 5000.0);

    EXPECT_LT(model.Milliseconds(frameOf(1e5, 10)), 20.0);
}

TEST(CostModel, NeverForetellsLessThanNothing)
{
    CostModel model;
    for (int i = 0; i < 50; ++i)
        model.Learn(frameOf(1e6, 5000), 0.0);

    EXPECT_GE(model.Milliseconds(frameOf(10, 1)), 0.0);
}

TEST(FrameBudget, WithoutEndTakesAllInOnePiece)
{
    const FrameBudget budget;

    EXPECT_FALSE(budget.IsSpent(frameOf(1e9, 1e6)));
    EXPECT_EQ(budget.Piece(PartKind::Face, 1 << 30, frameOf(1e9, 1e6)), 1 << 30);
}

TEST(FrameBudget, IsSpentByWhatWasDrawn)
{
    TickingClock clock(0);
    const CostModel model;
    const FrameBudget budget(model, TimeSlice(10));

    EXPECT_FALSE(budget.IsSpent(frameOf(1e4, 1)));
    EXPECT_TRUE(budget.IsSpent(frameOf(1e7, 1)));
}

TEST(FrameBudget, IsSpentByTheClock)
{
    TickingClock clock(20000);
    const CostModel model;
    const FrameBudget budget(model, TimeSlice(10));

    EXPECT_TRUE(budget.IsSpent(frameOf(1, 1)));
}

TEST(FrameBudget, AllowsSomethingInEachSlice)
{
    TickingClock clock(20000);
    const CostModel model;
    const FrameBudget budget(model, TimeSlice(1));

    EXPECT_FALSE(budget.IsSpent(FrameWork()));
}

TEST(FrameBudget, CutsLargeBodiesIntoPieces)
{
    TickingClock clock(0);
    const CostModel model;
    const FrameBudget budget(model, TimeSlice(10));

    const int piece = budget.Piece(PartKind::Face, 10000000, FrameWork());

    EXPECT_GT(piece, 1000);
    EXPECT_LT(piece, 1000000);
    EXPECT_EQ(budget.Piece(PartKind::Face, 100, FrameWork()), 100);
}

} // namespace
} // namespace ViewOpenGl
