#include "ModelFixture.h"

#include <cmath>

namespace {

using OrvikCore::DistanceResult;
using OrvikCore::EntityMeasure;
using OrvikCore::LineHit;

class MeasureCommands : public ModelFixture
{
protected:
    /// Where a line along z meets a body that lies between two heights.
    void addSlab(std::vector<LineHit>& hits, const EntityId& body, const double* origin,
                 const double* direction, double low, double high, bool isExact) const
    {
        for (const double z : {low, high}) {
            LineHit hit;
            hit.entity = part(body, PartKind::Face, z == low ? 0 : 1);
            hit.distance = (z - origin[2]) / direction[2];
            hit.position[0] = origin[0];
            hit.position[1] = origin[1];
            hit.position[2] = z;
            hit.normal[2] = z == low ? -1.0 : 1.0;
            hit.exact = isExact;
            if (hit.distance >= 0.0)
                hits.push_back(hit);
        }
    }

    const List m_above = {0.0, 0.0, 100.0};
    const List m_down = {0.0, 0.0, -2.0};
};

TEST_F(MeasureCommands, DistanceComesWithBothPoints)
{
    DistanceResult result;
    result.distance = 90.0;
    result.from[0] = 10.0;
    result.to[0] = 100.0;
    result.exact = true;
    m_bolts.m_distance = result;

    EXPECT_EQ(run("measure:distance", {entity(m_firstBody), entity(m_secondBody)}),
              Value(List{90.0, List{10.0, 0.0, 0.0}, List{100.0, 0.0, 0.0}, L"exact"}));
}

TEST_F(MeasureCommands, ThicknessBehindAFaceIsMeasuredBesideItsHole)
{
    const EntityId top = part(m_firstBody, PartKind::Face, 1);
    m_bolts.m_entities[top].box = TambVizCore::VizBox(0.0f, 0.0f, 10.0f, 8.0f, 8.0f, 10.0f);
    m_bolts.m_intersect = [this](const double* origin, const double* direction) {
        std::vector<LineHit> hits;
        const bool isInHole = std::hypot(origin[0] - 4.0, origin[1] - 4.0) < 3.0;
        if (!isInHole && direction[2] != 0.0)
            addSlab(hits, m_firstBody, origin, direction, 4.0, 10.0, true);
        return hits;
    };

    const Value thickness = run("measure:face-thickness", {entity(top)});

    ASSERT_EQ(thickness.GetKind(), Value::Kind::List);
    EXPECT_DOUBLE_EQ(thickness.AsList()[0].AsReal(), 6.0);
    EXPECT_EQ(thickness.AsList().back(), Value(L"exact"));
    EXPECT_EQ(run("measure:face-thickness", {entity(m_firstBody)}), Value(false));
}

TEST_F(MeasureCommands, DistanceBetweenFilesIsMeasuredToTheOthersShapes)
{
    const Value distance = run("measure:distance", {entity(m_firstBody), entity(m_plate)});

    EXPECT_EQ(distance.AsList().front(), Value(2.0));
    EXPECT_EQ(distance.AsList().back(), Value(L"triangles"));
}

TEST_F(MeasureCommands, WithoutShapeThereIsNoDistance)
{
    EXPECT_EQ(run("measure:distance", {entity(m_firstBody), entity(m_secondBody)}), Value(false));
    EXPECT_EQ(run("measure:distance", {entity(m_firstBody), entity(node(1, EntityType::Body, 99))}),
              Value(false));
}

TEST_F(MeasureCommands, AngleOfPlanesAndLinesIsAtMostNinetyDegrees)
{
    auto& face = m_bolts.m_entities[m_face].measures;
    auto& edge = m_bolts.m_entities[m_edge].measures;
    auto& plate = m_plates.m_entities[m_plate].measures;
    face[EntityMeasure::Normal] = vector(0, 0, 1, true);
    plate[EntityMeasure::Normal] = vector(0, -1, -1, false);
    edge[EntityMeasure::Direction] = vector(0, 0, -1, true);

    const Value planes = run("measure:angle", {entity(m_face), entity(m_plate)});
    const Value planeAndLine = run("measure:angle", {entity(m_face), entity(m_edge)});
    const Value same = run("measure:angle", {entity(m_edge), entity(m_edge)});

    EXPECT_NEAR(planes.AsList()[0].AsReal(), 45.0, 1e-12);
    EXPECT_EQ(planes.AsList()[1], Value(L"triangles"));
    EXPECT_EQ(planeAndLine, Value(List{90.0, L"exact"}));
    EXPECT_EQ(same, Value(List{0.0, L"exact"}));
}

TEST_F(MeasureCommands, ASmallAngleKeepsItsDigits)
{
    m_bolts.m_entities[m_face].measures[EntityMeasure::Normal] = vector(0, 0, 1, true);
    m_plates.m_entities[m_plate].measures[EntityMeasure::Normal] = vector(1e-9, 0, 1, true);

    const Value angle = run("measure:angle", {entity(m_face), entity(m_plate)});

    EXPECT_NEAR(angle.AsList()[0].AsReal(), 1e-9 * 180.0 / 3.141592653589793, 1e-15);
}

TEST_F(MeasureCommands, WithoutDirectionThereIsNoAngle)
{
    m_bolts.m_entities[m_face].measures[EntityMeasure::Normal] = vector(0, 0, 1, true);

    EXPECT_EQ(run("measure:angle", {entity(m_face), entity(m_plate)}), Value(false));
}

TEST_F(MeasureCommands, ThicknessIsThatOfTheFirstBodyTheRayEnters)
{
    m_bolts.m_intersect = [this](const double* origin, const double* direction) {
        std::vector<LineHit> hits;
        addSlab(hits, m_firstBody, origin, direction, 10.0, 14.0, true);
        addSlab(hits, m_secondBody, origin, direction, 0.0, 3.0, true);
        return hits;
    };

    EXPECT_EQ(run("measure:thickness", {m_above, m_down}),
              Value(List{4.0, List{0.0, 0.0, 14.0}, List{0.0, 0.0, 10.0}, L"exact"}));
    EXPECT_TRUE(m_bolts.m_askedForVisible);
}

TEST_F(MeasureCommands, ThicknessLooksThroughAllFiles)
{
    m_bolts.m_intersect = [this](const double* origin, const double* direction) {
        std::vector<LineHit> hits;
        addSlab(hits, m_firstBody, origin, direction, 0.0, 10.0, true);
        return hits;
    };
    m_plates.m_intersect = [this](const double* origin, const double* direction) {
        std::vector<LineHit> hits;
        addSlab(hits, m_plate, origin, direction, 8.0, 20.0, false);
        return hits;
    };

    EXPECT_EQ(run("measure:thickness", {m_above, m_down}),
              Value(List{12.0, List{0.0, 0.0, 20.0}, List{0.0, 0.0, 8.0}, L"triangles"}));
}

TEST_F(MeasureCommands, ThicknessAlongTheNormalIsThatOfTheWall)
{
    m_plates.m_intersect = [this](const double* origin, const double* direction) {
        std::vector<LineHit> hits;
        addSlab(hits, m_plate, origin, direction, 0.0, 5.0, true);
        for (LineHit& hit : hits)
            hit.position[0] = origin[0] + hit.distance * direction[0];
        return hits;
    };
    const List slanted = {1.0, 0.0, -1.0};

    const Value alongRay = run("measure:thickness", {m_above, slanted});
    const Value alongNormal = run("measure:thickness", {m_above, slanted, L"normal"});

    EXPECT_NEAR(alongRay.AsList()[0].AsReal(), std::sqrt(50.0), 1e-12);
    EXPECT_EQ(alongNormal, Value(List{5.0, List{95.0, 0.0, 5.0}, List{95.0, 0.0, 0.0}, L"exact"}));
}

TEST_F(MeasureCommands, ARayThatEntersNothingFindsNoThickness)
{
    EXPECT_EQ(run("measure:thickness", {m_above, m_down}), Value(false));
}

TEST_F(MeasureCommands, ARayThatDoesNotLeaveFindsNoThickness)
{
    m_plates.m_intersect = [this](const double* origin, const double* direction) {
        std::vector<LineHit> hits;
        addSlab(hits, m_plate, origin, direction, 0.0, 5.0, true);
        hits.resize(1);
        return hits;
    };

    EXPECT_EQ(run("measure:thickness", {m_above, List{0.0, 0.0, 1.0}}), Value(false));
}

TEST_F(MeasureCommands, ADirectionHasALength)
{
    EXPECT_EQ(errorOf("measure:thickness", {m_above, List{0, 0, 0}}),
              "measure:thickness: parameter \"direction\": expected a direction that is not 0, got "
              "a list of 3 elements.");
    EXPECT_EQ(errorOf("measure:thickness", {m_above, m_down, L"up"}),
              "measure:thickness: parameter \"along\": expected ray or normal, got the string "
              "\"up\".");
}

} // namespace
