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

/// A renderer that works on after a call has returned, on a clock of its own.
class FrameBudgetTest : public ::testing::Test
{
protected:
    void SetUp() override { s_clock = &m_clock; }

    void TearDown() override { s_clock = nullptr; }

    /// The renderer has got work for so many milliseconds.
    static void order(double milliseconds)
    {
        s_backlogUs += static_cast<std::uint64_t>(1000.0 * milliseconds);
    }

    static void wait()
    {
        s_clock->SetStep(s_backlogUs);
        s_clock->NowUs();
        s_clock->SetStep(0);
        s_backlogUs = 0;
    }

    TickingClock m_clock{0};
    CostModel m_model;
    FrameBudget m_budget{m_model, TimeSlice(20), &wait};

private:
    static inline std::uint64_t s_backlogUs = 0;
    static inline TickingClock* s_clock = nullptr;
};

TEST_F(FrameBudgetTest, WithoutEndTakesAllInOnePiece)
{
    FrameBudget budget;

    EXPECT_FALSE(budget.IsSpent(frameOf(1e9, 1e6)));
    EXPECT_EQ(budget.Piece(PartKind::Face, 1 << 30), 1 << 30);
}

TEST_F(FrameBudgetTest, IsSpentByWhatTheRendererIsStillDrawing)
{
    order(21.0);

    EXPECT_TRUE(m_budget.IsSpent(WorkOf(PartKind::Face, 20000)));
    EXPECT_EQ(m_budget.Waits(), 1);
}

TEST_F(FrameBudgetTest, IsSpentWhenTheNextPieceWouldBeTooLong)
{
    order(12.0);

    EXPECT_TRUE(m_budget.IsSpent(WorkOf(PartKind::Face, 16384)));
}

TEST_F(FrameBudgetTest, IsLeftWhenTheNextPieceFits)
{
    order(5.0);

    EXPECT_FALSE(m_budget.IsSpent(WorkOf(PartKind::Face, 16384)));
    EXPECT_EQ(m_budget.Waits(), 1);
}

TEST_F(FrameBudgetTest, WaitsForNoSmallPieces)
{
    order(1.0);

    EXPECT_FALSE(m_budget.IsSpent(WorkOf(PartKind::Face, 1000)));
    EXPECT_EQ(m_budget.Waits(), 0);
}

TEST_F(FrameBudgetTest, WaitsForManySmallPieces)
{
    order(21.0);

    EXPECT_TRUE(m_budget.IsSpent(frameOf(1000, 100)));
}

TEST_F(FrameBudgetTest, DoesNotTakeTheBackgroundForThePieceAfterIt)
{
    order(10.0);
    m_budget.Begin();
    order(1.0);

    EXPECT_FALSE(m_budget.IsSpent(WorkOf(PartKind::Face, 16384)));
}

TEST_F(FrameBudgetTest, IsSpentByTheClock)
{
    m_clock.SetStep(30000);

    EXPECT_TRUE(m_budget.IsSpent(WorkOf(PartKind::Face, 1)));
}

TEST_F(FrameBudgetTest, AllowsSomethingInEachSlice)
{
    m_clock.SetStep(30000);

    EXPECT_FALSE(m_budget.IsSpent(FrameWork()));
}

TEST_F(FrameBudgetTest, BeginsWithASmallPiece)
{
    EXPECT_EQ(m_budget.Piece(PartKind::Face, 10000000), 16384);
    EXPECT_EQ(m_budget.Piece(PartKind::Face, 100), 100);
}

TEST_F(FrameBudgetTest, TakesLargerPiecesWhereTheyAreCheap)
{
    order(0.1);
    ASSERT_FALSE(m_budget.IsSpent(WorkOf(PartKind::Face, 16384)));

    EXPECT_EQ(m_budget.Piece(PartKind::Face, 10000000), 65536);
}

TEST_F(FrameBudgetTest, DrawsAlongWhatIsNotWorthAPiece)
{
    EXPECT_EQ(m_budget.Piece(PartKind::Face, 20000), 20000);
}

} // namespace
} // namespace ViewOpenGl
