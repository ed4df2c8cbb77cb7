#include "../Dimensions.h"
#include "ModelFixture.h"

#include <OrvikCore/IDimensionDrawer.h>

#include <cmath>
#include <cstring>

namespace {

using OrvikCommands::DiameterDimension;
using OrvikCommands::RadiusDimension;
using OrvikCore::Dimension;
using OrvikCore::EntityMeasure;
using OrvikCore::LineHit;
using TambVizCore::EntityId;

/// A cylinder of radius 5 around an axis along z through (10, 20, 0); its middle lies at height 30.
class RoundMeasures : public ModelFixture
{
protected:
    RoundMeasures()
    {
        auto& face = m_bolts.m_entities[m_face].measures;
        face[EntityMeasure::Surface].word = "cylinder";
        face[EntityMeasure::Origin] = vector(10, 20, 0, true);
        face[EntityMeasure::Direction] = vector(0, 0, 1, true);
        face[EntityMeasure::Center] = vector(10, 20, 30, true);
        face[EntityMeasure::Radius] = number(5, true);
        m_bolts.m_intersect = [this](const double* origin, const double* direction) {
            return std::vector<LineHit>{hitOn(origin, direction)};
        };
    }

    LineHit hitOn(const double* origin, const double* direction) const
    {
        LineHit hit;
        hit.entity = m_face;
        hit.distance = 5.0;
        for (int i = 0; i < 3; ++i)
            hit.position[i] = origin[i] + 5.0 * direction[i];
        return hit;
    }

    static Dimension::Point pointOf(const Value& value)
    {
        const List& list = value.AsList();
        return {list[0].AsReal(), list[1].AsReal(), list[2].AsReal()};
    }

    static void expectPoint(const Value& value, double x, double y, double z)
    {
        const Dimension::Point point = pointOf(value);
        EXPECT_NEAR(point[0], x, 1e-12);
        EXPECT_NEAR(point[1], y, 1e-12);
        EXPECT_NEAR(point[2], z, 1e-12);
    }
};

TEST_F(RoundMeasures, RadiusRunsFromTheAxisAcrossToTheMiddleOfTheFace)
{
    const List radius = run("measure:radius", {entity(m_face)}).AsList();

    EXPECT_EQ(radius[0], Value(5.0));
    expectPoint(radius[1], 10, 20, 30);
    const Dimension::Point end = pointOf(radius[2]);
    EXPECT_NEAR(std::hypot(end[0] - 10, end[1] - 20), 5.0, 1e-12);
    EXPECT_NEAR(end[2], 30.0, 1e-12);
    EXPECT_EQ(radius[3], Value(L"exact"));
}

TEST_F(RoundMeasures, RadiusOfHalfACylinderLeadsToThatHalf)
{
    m_bolts.m_entities[m_face].measures[EntityMeasure::Center] = vector(10, 16, 30, true);

    const List radius = run("measure:radius", {entity(m_face)}).AsList();

    expectPoint(radius[1], 10, 20, 30);
    expectPoint(radius[2], 10, 15, 30);
}

TEST_F(RoundMeasures, RadiusLeadsBesideAHoleInTheFace)
{
    m_bolts.m_entities[m_face].measures[EntityMeasure::Center] = vector(10, 16, 30, true);
    m_bolts.m_intersect = [this](const double* origin, const double* direction) {
        LineHit hit = hitOn(origin, direction);
        if (direction[1] < -0.8) // What is behind the hole.
            hit.distance = 12.0;
        return std::vector<LineHit>{hit};
    };

    const Dimension::Point end = pointOf(run("measure:radius", {entity(m_face)}).AsList()[2]);

    EXPECT_GT(end[1], 20.0 - 0.8 * 5.0);
    EXPECT_LT(end[1], 20.0);
    EXPECT_NEAR(std::hypot(end[0] - 10, end[1] - 20), 5.0, 1e-12);
}

TEST_F(RoundMeasures, DiameterRunsBetweenPointsThatFaceEachOther)
{
    const List diameter = run("measure:diameter", {entity(m_face)}).AsList();

    EXPECT_EQ(diameter[0], Value(10.0));
    const Dimension::Point from = pointOf(diameter[1]);
    const Dimension::Point to = pointOf(diameter[2]);
    EXPECT_NEAR(0.5 * (from[0] + to[0]), 10.0, 1e-12);
    EXPECT_NEAR(0.5 * (from[1] + to[1]), 20.0, 1e-12);
    EXPECT_NEAR(std::hypot(from[0] - to[0], from[1] - to[1]), 10.0, 1e-12);
    EXPECT_EQ(diameter[3], Value(L"exact"));
}

TEST_F(RoundMeasures, OfASphereStartInItsCentre)
{
    auto& face = m_bolts.m_entities[m_face].measures;
    face[EntityMeasure::Surface].word = "sphere";
    face[EntityMeasure::Center] = vector(10, 20, 3, false);
    face[EntityMeasure::Radius] = number(5, false);

    const List radius = run("measure:radius", {entity(m_face)}).AsList();

    expectPoint(radius[1], 10, 20, 0);
    expectPoint(radius[2], 10, 20, 5);
    EXPECT_EQ(radius[3], Value(L"triangles"));
}

TEST_F(RoundMeasures, OfACircleStartInItsCentreToo)
{
    auto& edge = m_bolts.m_entities[m_edge].measures;
    edge[EntityMeasure::Origin] = vector(1, 2, 3, true);
    edge[EntityMeasure::Direction] = vector(1, 0, 0, true);
    edge[EntityMeasure::Center] = vector(1, 2, 3, true);
    edge[EntityMeasure::Radius] = number(2, true);

    const List radius = run("measure:radius", {entity(m_edge)}).AsList();

    expectPoint(radius[1], 1, 2, 3);
    const Dimension::Point end = pointOf(radius[2]);
    EXPECT_NEAR(end[0], 1.0, 1e-12);
    EXPECT_NEAR(std::hypot(end[1] - 2, end[2] - 3), 2.0, 1e-12);
}

TEST_F(RoundMeasures, OfWhatHasNoRadiusAreFalse)
{
    auto& face = m_bolts.m_entities[m_face].measures;
    face.erase(EntityMeasure::Radius);
    EXPECT_EQ(run("measure:radius", {entity(m_face)}), Value(false)) << "a cone";
    EXPECT_EQ(run("measure:diameter", {entity(m_firstBody)}), Value(false));
    EXPECT_EQ(run("measure:radius", {entity(node(1, EntityType::Body, 99))}), Value(false));

    face[EntityMeasure::Radius] = number(0, true);
    EXPECT_EQ(run("measure:radius", {entity(m_face)}), Value(false)) << "a tip";
}

TEST_F(RoundMeasures, TakeEntitiesOnly)
{
    for (const char* const name : {"measure:radius", "measure:diameter"}) {
        EXPECT_NE(errorOf(name, {Value(5.0)}).find("parameter \"entity\""), std::string::npos);
        EXPECT_NE(errorOf(name), "no error");
    }
}

TEST(RoundDimensions, ShowTheirSignBeforeTheLength)
{
    const Dimension radius = RadiusDimension({0, 0, 0}, {0, 2.5, 0}, 2.5, true);
    const Dimension diameter = DiameterDimension({0, -2, 0}, {0, 2, 0}, 4.0, false);

    EXPECT_EQ(radius.text, L"R 2.5 mm");
    EXPECT_FALSE(radius.startsWithHead) << "it starts in the centre, which is no end of it";
    EXPECT_EQ(diameter.text, L"\u2300 4");
    EXPECT_TRUE(diameter.startsWithHead);
    EXPECT_EQ(diameter.line, (std::vector<Dimension::Point>{{0, -2, 0}, {0, 2, 0}}));
}

} // namespace
