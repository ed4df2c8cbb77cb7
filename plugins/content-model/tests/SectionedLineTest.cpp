#include "content/SectionedLine.h"

#include <gtest/gtest.h>

#include <initializer_list>

using OrvikCore::LineHit;
using OrvikModel::KeptPiece;
using OrvikModel::PiercedFace;
using OrvikModel::WorldLine;
using TambVizCore::ClipPlane;
using TambVizCore::EntityId;
using TambVizCore::EntityType;

namespace {

const EntityId kBody(7, 1, EntityType::Body);

/// A plane that keeps what lies above a height, or below it.
ClipPlane keepAbove(float z)
{
    return {{0.0f, 0.0f, 2.0f}, -2.0f * z};
}

ClipPlane keepBelow(float z)
{
    return {{0.0f, 0.0f, -1.0f}, z};
}

PiercedFace passed(double distance, double normalZ, bool isShown = true)
{
    PiercedFace face;

    face.hit.distance = distance;
    face.hit.normal[2] = normalZ;
    face.hit.exact = true;
    face.isShown = isShown;
    return face;
}

/// Looks down from z = 100 on a slab from z = 90 to z = 80 and another from 60 to 50, one body.
class SectionedLine : public testing::Test
{
protected:
    std::vector<LineHit> seen(std::initializer_list<ClipPlane> planes, bool isSolid = true)
    {
        m_planes = planes;
        std::vector<LineHit> hits;
        KeptPiece(m_line, m_planes).AppendSeen(m_faces, isSolid, kBody, hits);
        return hits;
    }
    std::vector<double> distances(std::initializer_list<ClipPlane> planes, bool isSolid = true)
    {
        std::vector<double> all;
        for (const LineHit& hit : seen(planes, isSolid))
            all.push_back(hit.distance);
        return all;
    }

    WorldLine m_line{{0.0, 0.0, 100.0}, {0.0, 0.0, -1.0}};
    std::vector<PiercedFace> m_faces = {passed(10, 1), passed(20, -1), passed(40, 1),
                                        passed(50, -1)};
    std::vector<ClipPlane> m_planes;
};

} // namespace

TEST_F(SectionedLine, WithoutPlanesEveryFaceIsSeen)
{
    EXPECT_EQ(distances({}), (std::vector<double>{10, 20, 40, 50}));
}

TEST_F(SectionedLine, PlaneInsideTheBodyIsItsNewSurface)
{
    const std::vector<LineHit> hits = seen({keepBelow(85.0f)});

    ASSERT_EQ(hits.size(), 4u);
    EXPECT_DOUBLE_EQ(hits[0].distance, 15.0);
    EXPECT_DOUBLE_EQ(hits[0].position[2], 85.0);
    EXPECT_DOUBLE_EQ(hits[0].normal[2], 1.0);
    EXPECT_TRUE(hits[0].exact);
    EXPECT_DOUBLE_EQ(hits[1].distance, 20.0);
}

TEST_F(SectionedLine, PlaneOutsideTheBodyIsNot)
{
    EXPECT_EQ(distances({keepBelow(70.0f)}), (std::vector<double>{40, 50}));
    EXPECT_EQ(distances({keepBelow(95.0f)}), (std::vector<double>{10, 20, 40, 50}));
    EXPECT_TRUE(distances({keepBelow(10.0f)}).empty());
}

TEST_F(SectionedLine, WayOutMayBeCutToo)
{
    const std::vector<LineHit> hits = seen({keepAbove(55.0f)});

    ASSERT_EQ(hits.size(), 4u);
    EXPECT_DOUBLE_EQ(hits[3].distance, 45.0);
    EXPECT_DOUBLE_EQ(hits[3].normal[2], -1.0);
}

TEST_F(SectionedLine, MaterialBetweenTwoPlanesIsSeenThoughNoFaceIs)
{
    EXPECT_EQ(distances({keepBelow(87.0f), keepAbove(83.0f)}), (std::vector<double>{13, 17}));
}

TEST_F(SectionedLine, PlanesThatLeaveNothingShowNothing)
{
    EXPECT_TRUE(distances({keepBelow(83.0f), keepAbove(87.0f)}).empty());
}

TEST_F(SectionedLine, PlaneAlongTheLineKeepsAllOrNothing)
{
    EXPECT_EQ(distances({ClipPlane{{1.0f, 0.0f, 0.0f}, 1.0f}}).size(), 4u);
    EXPECT_TRUE(distances({ClipPlane{{1.0f, 0.0f, 0.0f}, -1.0f}}).empty());
}

TEST_F(SectionedLine, OpenBodiesAreNotFilled)
{
    EXPECT_EQ(distances({keepBelow(85.0f)}, /*isSolid=*/false), (std::vector<double>{20, 40, 50}));
}

TEST_F(SectionedLine, HiddenFacesAreLeftOutButStillBoundTheMaterial)
{
    m_faces[1].isShown = false;

    EXPECT_EQ(distances({keepBelow(85.0f)}), (std::vector<double>{15, 40, 50}));
}

TEST_F(SectionedLine, LineThatBeginsInTheMaterialMeetsNoCutThere)
{
    m_line.origin[2] = 85.0;
    m_faces = {passed(5, -1), passed(25, 1), passed(35, -1)};

    EXPECT_EQ(distances({keepBelow(95.0f)}), (std::vector<double>{5, 25, 35}));
}
