#include <controls/SectionPlane.h>
#include <gtest/gtest.h>

namespace {

using Pellux::SectionPlane;
using TambVizCore::ClipPlane;

ClipPlane clipPlane(float x, float y, float z, float offset)
{
    ClipPlane plane;
    plane.normal[0] = x;
    plane.normal[1] = y;
    plane.normal[2] = z;
    plane.offset = offset;
    return plane;
}

TEST(SectionPlane, CutsAwayWhatItsAxisPointsTo)
{
    const SectionPlane plane = SectionPlane::FromClipPlane(clipPlane(0, 0, -1, 4));

    EXPECT_EQ(plane.AxisNumber(), 2);
    EXPECT_FALSE(plane.isFlipped);
    EXPECT_EQ(plane.position, 4.0);
    EXPECT_EQ(plane.Form(1), QStringLiteral("(view:section '(0 0 4) '(0 0 1) 1)"));
}

TEST(SectionPlane, IsFlippedWhereItCutsAwayWhatLiesBehind)
{
    const SectionPlane plane = SectionPlane::FromClipPlane(clipPlane(1, 0, 0, -2.5f));

    EXPECT_EQ(plane.AxisNumber(), 0);
    EXPECT_TRUE(plane.isFlipped);
    EXPECT_EQ(plane.position, 2.5);
    EXPECT_EQ(plane.Form(2), QStringLiteral("(view:section '(2.5 0 0) '(-1 0 0) 2)"));
}

TEST(SectionPlane, AcrossTheAxesIsFree)
{
    const SectionPlane plane = SectionPlane::FromClipPlane(clipPlane(0.6f, 0.8f, 0, 1));

    EXPECT_EQ(plane.AxisNumber(), 3);
}

TEST(SectionPlane, WritesNumbersAsShortAsSomebodyWouldWriteThem)
{
    SectionPlane plane;
    plane.axis = {0, 0, 1};
    plane.position = SectionPlane::Rounded(-0.01682, 0.12);
    EXPECT_EQ(plane.Form(1), QStringLiteral("(view:section '(0 0 -0.0168) '(0 0 1) 1)"));

    plane.position = SectionPlane::Rounded(0.0, 1.0);
    EXPECT_EQ(plane.Form(1), QStringLiteral("(view:section '(0 0 0) '(0 0 1) 1)"));
    plane.position = SectionPlane::Rounded(12345678.0, 5e6);
    EXPECT_EQ(plane.position, 12346000.0);
    EXPECT_EQ(SectionPlane::Rounded(0.3, 0.0), 0.3);
}

TEST(SectionPlane, WritesWhatTheViewKeepsAsItWasWritten)
{
    const SectionPlane plane = SectionPlane::FromClipPlane(clipPlane(-0.6f, -0.8f, 0, 0.1f));

    EXPECT_EQ(plane.position, 0.1);
    EXPECT_EQ(plane.Form(3), QStringLiteral("(view:section '(0.06 0.08 0) '(0.6 0.8 0) 3)"));
}

TEST(SectionPlane, RangesOverTheBoxAlongItsAxis)
{
    TambVizCore::VizBox box;
    const float low[] = {0, 10, -5};
    const float high[] = {2, 14, 5};
    box.Add(low);
    box.Add(high);
    SectionPlane plane;
    EXPECT_EQ(plane.Range(box), (std::array<double, 2>{-5, 5}));

    plane.axis = {0.6, -0.8, 0};
    EXPECT_NEAR(plane.Range(box)[0], -11.2, 1e-12);
    EXPECT_NEAR(plane.Range(box)[1], -6.8, 1e-12);
}

} // namespace
