#include <TambVizCore/VizBox.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <vector>

namespace TambVizCore {
namespace {

using ::testing::ElementsAre;

std::vector<double> lo(const VizBox& box)
{
    return {box.Lo(), box.Lo() + 3};
}

std::vector<double> hi(const VizBox& box)
{
    return {box.Hi(), box.Hi() + 3};
}

TEST(VizBox, ANewBoxIsEmptyWithCornersAtZero)
{
    const VizBox box;

    EXPECT_TRUE(box.IsEmpty());
    EXPECT_THAT(lo(box), ElementsAre(0, 0, 0));
    EXPECT_THAT(hi(box), ElementsAre(0, 0, 0));
    EXPECT_EQ(box.Radius(), 0.0);
}

TEST(VizBox, TwoCornersMayComeInAnyOrder)
{
    const VizBox box(4, -1, 9, 1, 2, 3);

    EXPECT_THAT(lo(box), ElementsAre(1, -1, 3));
    EXPECT_THAT(hi(box), ElementsAre(4, 2, 9));
}

TEST(VizBox, TheFirstPointDoesNotDrawTheOriginIn)
{
    VizBox box;

    box.Add(5, 6, 7);

    EXPECT_FALSE(box.IsEmpty());
    EXPECT_THAT(lo(box), ElementsAre(5, 6, 7));
}

TEST(VizBox, PointsThatAreNotFiniteAreIgnored)
{
    VizBox box(0, 0, 0, 1, 1, 1);

    box.Add(std::numeric_limits<double>::quiet_NaN(), 5, 5);
    box.Add(5, std::numeric_limits<double>::infinity(), 5);

    EXPECT_EQ(box, VizBox(0, 0, 0, 1, 1, 1));
}

TEST(VizBox, AddingAnEmptyBoxChangesNothing)
{
    VizBox box(1, 1, 1, 2, 2, 2);

    box.Add(VizBox());

    EXPECT_EQ(box, VizBox(1, 1, 1, 2, 2, 2));
}

TEST(VizBox, ClearMakesItEmptyAgain)
{
    VizBox box(1, 1, 1, 2, 2, 2);

    box.Clear();

    EXPECT_EQ(box, VizBox());
}

TEST(VizBox, RadiusIsHalfTheDiagonal)
{
    const VizBox box(0, 0, 0, 2, 3, 6);
    float center[3];
    box.GetCenter(center);

    EXPECT_DOUBLE_EQ(box.Radius(), 3.5);
    EXPECT_THAT(center, ElementsAre(1.0f, 1.5f, 3.0f));
}

TEST(VizBox, ContainsItsSurfaceButNothingWhenEmpty)
{
    EXPECT_TRUE(VizBox(0, 0, 0, 1, 1, 1).Contains(1, 0, 0.5));
    EXPECT_FALSE(VizBox(0, 0, 0, 1, 1, 1).Contains(1.001, 0, 0.5));
    EXPECT_FALSE(VizBox().Contains(0, 0, 0));
}

TEST(VizBox, ATurnedBoxHoldsTheTurnedCorners)
{
    const double turnAndMove[16] = {0, 1, 0, 0, -1, 0, 0, 0, 0, 0, 1, 0, 10, 20, 30, 1};

    const VizBox box = VizBox(0, 0, 0, 1, 2, 3).Transformed(turnAndMove);

    EXPECT_THAT(lo(box), ElementsAre(8, 20, 30));
    EXPECT_THAT(hi(box), ElementsAre(10, 21, 33));
}

TEST(VizBox, AnEmptyBoxStaysEmptyWhenTransformed)
{
    const double move[16] = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 10, 20, 30, 1};

    EXPECT_TRUE(VizBox().Transformed(move).IsEmpty());
}

TEST(VizBox, ClipFindsWhereALineEntersAndLeaves)
{
    const float origin[3] = {-5.0f, 0.5f, 0.5f};
    const float direction[3] = {2.0f, 0.0f, 0.0f};
    double tMin = 0.0;
    double tMax = 100.0;

    ASSERT_TRUE(VizBox(0, 0, 0, 1, 1, 1).Clip(origin, direction, 0.0, tMin, tMax));
    EXPECT_DOUBLE_EQ(tMin, 2.5);
    EXPECT_DOUBLE_EQ(tMax, 3.0);
}

TEST(VizBox, ClipLeavesTheLimitsAloneOnAMiss)
{
    const float origin[3] = {-5.0f, 1.5f, 0.5f};
    const float direction[3] = {1.0f, 0.0f, 0.0f};
    double tMin = 0.0;
    double tMax = 100.0;

    EXPECT_FALSE(VizBox(0, 0, 0, 1, 1, 1).Clip(origin, direction, 0.0, tMin, tMax));
    EXPECT_EQ(tMin, 0.0);
    EXPECT_EQ(tMax, 100.0);
}

TEST(VizBox, ClipGrowsTheBoxByTheMargin)
{
    const float origin[3] = {-5.0f, 1.5f, 0.5f};
    const float direction[3] = {1.0f, 0.0f, 0.0f};
    double tMin = 0.0;
    double tMax = 100.0;

    EXPECT_TRUE(VizBox(0, 0, 0, 1, 1, 1).Clip(origin, direction, 0.5, tMin, tMax));
    EXPECT_DOUBLE_EQ(tMin, 4.5);
}

TEST(VizBox, ClipMissesABoxBehindThePiece)
{
    const float origin[3] = {5.0f, 0.5f, 0.5f};
    const float direction[3] = {1.0f, 0.0f, 0.0f};
    double tMin = 0.0;
    double tMax = 100.0;

    EXPECT_FALSE(VizBox(0, 0, 0, 1, 1, 1).Clip(origin, direction, 0.0, tMin, tMax));
}

} // namespace
} // namespace TambVizCore
