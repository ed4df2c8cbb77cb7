#include "../Dimensions.h"
#include "ModelFixture.h"

#include <OrvikCore/IDimensionDrawer.h>

#include <cmath>

namespace {

using OrvikCommands::AngleDimension;
using OrvikCommands::Bearing;
using OrvikCore::Dimension;
using OrvikCore::DistanceResult;
using OrvikCore::EntityMeasure;

/// A view that keeps what it is to draw.
class DimensionView : public FakeView3D, public OrvikCore::IDimensionDrawer
{
public:
    void DrawDimension(const Dimension& dimension) override { m_dimensions.push_back(dimension); }
    void ClearDimensions() override { m_dimensions.clear(); }

    std::vector<Dimension> m_dimensions;
};

class Dimensions : public ModelFixture
{
protected:
    Dimensions()
    {
        m_session.m_fakeView = &m_drawer;
        DistanceResult result;
        result.distance = 90.0;
        result.from[0] = 10.0;
        result.to[0] = 100.0;
        result.exact = true;
        m_bolts.m_distance = result;
    }
    ~Dimensions() override { m_session.m_fakeView = &m_view; }

    void measure() { run("measure:distance", {entity(m_face), entity(m_secondBody)}); }

    DimensionView m_drawer;
};

TEST_F(Dimensions, DistancesLeaveALineWithLengthAndUnit)
{
    measure();

    ASSERT_EQ(m_drawer.m_dimensions.size(), 1u);
    const Dimension& dimension = m_drawer.m_dimensions[0];
    EXPECT_EQ(dimension.line, (std::vector<Dimension::Point>{{10, 0, 0}, {100, 0, 0}}));
    EXPECT_EQ(dimension.text, L"90 mm");
    EXPECT_EQ(dimension.measured, (std::vector<EntityId>{m_firstBody, m_secondBody}));
}

TEST_F(Dimensions, LengthsOfTrianglesHaveNoUnit)
{
    run("measure:distance", {entity(m_firstBody), entity(m_plate)});

    ASSERT_EQ(m_drawer.m_dimensions.size(), 1u);
    EXPECT_EQ(m_drawer.m_dimensions[0].text, L"2");
}

TEST_F(Dimensions, AreNotDrawnOnceThatIsSwitchedOff)
{
    EXPECT_EQ(run("measure:draw", {Value(false)}), Value(true));
    measure();
    EXPECT_TRUE(m_drawer.m_dimensions.empty());

    EXPECT_EQ(run("measure:draw"), Value(false));
    measure();
    EXPECT_EQ(m_drawer.m_dimensions.size(), 1u);
    run("measure:clear");
    EXPECT_TRUE(m_drawer.m_dimensions.empty());
}

TEST_F(Dimensions, AreLeftOutByViewsThatDrawNone)
{
    m_session.m_fakeView = &m_view;

    EXPECT_EQ(run("measure:distance", {entity(m_face), entity(m_secondBody)}).AsList()[0],
              Value(90.0));
    run("measure:clear");
}

TEST_F(Dimensions, AnglesLeaveAnArcWithDegrees)
{
    auto& face = m_bolts.m_entities[m_face].measures;
    face[EntityMeasure::Normal] = vector(0, 0, 1, true);
    face[EntityMeasure::Center] = vector(5, 0, 0, true);
    auto& plate = m_plates.m_entities[m_plate].measures;
    plate[EntityMeasure::Normal] = vector(1, 0, 0, true);
    plate[EntityMeasure::Center] = vector(0, 0, 10, true);

    run("measure:angle", {entity(m_face), entity(m_plate)});

    ASSERT_EQ(m_drawer.m_dimensions.size(), 1u);
    const Dimension& dimension = m_drawer.m_dimensions[0];
    EXPECT_EQ(dimension.text, L"90\u00B0");
    // The planes meet along y; the legs lead to the faces.
    ASSERT_EQ(dimension.legs.size(), 2u);
    EXPECT_NEAR(dimension.legs[0][0][0], 0.0, 1e-12);
    EXPECT_GT(dimension.legs[0][1][0], 1.0);
    EXPECT_GT(dimension.legs[1][1][2], 1.0);
    EXPECT_GT(dimension.line.size(), 10u);
}

TEST(AngleDimensions, OfCrossingLinesLieBetweenThem)
{
    const Bearing first{{1, 0, 0}, false, true, {10, 0, 0}};
    const Bearing second{{std::sqrt(0.5), std::sqrt(0.5), 0}, false, true, {5, 5, 4}};

    const Dimension dimension = AngleDimension(first, second, 45.0);

    EXPECT_EQ(dimension.text, L"45\u00B0");
    const auto& apex = dimension.legs.at(0).front();
    EXPECT_NEAR(apex[0], 0.0, 1e-12);
    EXPECT_NEAR(apex[2], 2.0, 1e-12);
    const auto& end = dimension.line.back();
    EXPECT_NEAR(std::atan2(end[1] - apex[1], end[0] - apex[0]) * 180.0 / 3.141592653589793, 45.0,
                1e-9);
}

TEST(AngleDimensions, OfALineAndAPlaneLeanOnItsShadow)
{
    const Bearing line{{std::sqrt(0.5), 0, std::sqrt(0.5)}, false, true, {3, 0, 3}};
    const Bearing plane{{0, 0, 1}, true, true, {50, 7, 0}};

    for (const Dimension& dimension :
         {AngleDimension(line, plane, 45.0), AngleDimension(plane, line, 45.0)}) {
        ASSERT_EQ(dimension.legs.size(), 2u);
        EXPECT_NEAR(dimension.legs[0][0][0], 0.0, 1e-12);
        EXPECT_NEAR(dimension.legs[0][1][2] * dimension.legs[1][1][2], 0.0, 1e-9);
    }
}

TEST(AngleDimensions, OfAPlaneAndAnUprightLineAreRight)
{
    const Bearing line{{0, 0, 1}, false, true, {3, 4, 3}};
    const Bearing plane{{0, 0, 1}, true, true, {3, 4, 0}};

    const Dimension dimension = AngleDimension(line, plane, 90.0);

    ASSERT_EQ(dimension.legs.size(), 2u);
    EXPECT_NEAR(dimension.legs[1][1][2], 0.0, 1e-12);
}

TEST(AngleDimensions, OfWhatDoesNotMeetAreTextBetween)
{
    const Bearing first{{1, 0, 0}, false, true, {0, 0, 0}};
    const Bearing second{{1, 0, 0}, false, true, {0, 6, 0}};
    const Bearing almost{{1, 0.001, 0}, false, true, {0, 6, 0}};

    for (const Bearing& other : {second, almost}) {
        const Dimension dimension = AngleDimension(first, other, 0.0);

        EXPECT_TRUE(dimension.legs.empty());
        EXPECT_EQ(dimension.line, (std::vector<Dimension::Point>{{0, 3, 0}}));
    }
}

} // namespace
