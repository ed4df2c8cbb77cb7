#include "OrvikModel/ExactIndex.h"

#include "TestModels.h"

#include <OrvikRay/RayIndex.h>
#include <gtest/gtest.h>

#include <map>

using OrvikModel::FacetHit;
using OrvikModel::IExactFaces;
using OrvikModel::RefinedHit;
using TambVizCore::Geometry;
using TambVizCore::GeometryHit;
using TambVizCore::GeometryQuery;
using TambVizCore::IGeometryIndex;
using TambVizCore::MakePartId;
using TambVizCore::PartKind;

namespace {

/// Moves every hit on some faces of a cube by some way along the line.
class MovedFaces final : public IExactFaces
{
public:
    bool Refine(const FacetHit& facet, RefinedHit& hit) const override
    {
        const auto face = static_cast<std::size_t>(facet.facePartId & 0xFFFFFFFFu);
        m_fromOutside[face] = facet.isFromOutside;
        if (m_moves[face] == 0.0)
            return false;
        hit.parameter = facet.parameter + m_moves[face];
        for (int i = 0; i < 3; ++i)
            hit.position[i] = facet.origin[i] + hit.parameter * facet.direction[i];
        hit.normal[2] = 1.0;
        return true;
    }
    double Deviation() const override { return 0.5; }
    std::size_t MemoryBytes() const override { return 1000; }

    double m_moves[6] = {0, 0, 0, 0, 0, 0};            ///< By face; low z is 4, high z is 5.
    mutable std::map<std::size_t, bool> m_fromOutside; ///< What was told, by face.
};

/// A cube of 1 from the origin, looked at from z = 10 with a direction of length 2.
class ExactIndexTest : public testing::Test
{
protected:
    static std::shared_ptr<const Geometry> cube()
    {
        const double low[3] = {0, 0, 0};
        const double high[3] = {1, 1, 1};
        return BoxGeometry(low, high, /*withParts=*/true);
    }

    bool find()
    {
        m_query.origin[0] = 0.3f;
        m_query.origin[1] = 0.6f;
        m_query.origin[2] = 10.0f;
        m_query.direction[2] = -2.0f;
        return m_index->FindFace(m_query, m_hit);
    }

    std::shared_ptr<const Geometry> m_cube = cube();
    std::shared_ptr<MovedFaces> m_faces = std::make_shared<MovedFaces>();
    std::unique_ptr<const IGeometryIndex> m_index =
        OrvikModel::MakeExactIndex(OrvikRay::BuildRayIndex(*m_cube), m_faces, *m_cube);
    GeometryQuery m_query;
    GeometryHit m_hit;
};

} // namespace

TEST_F(ExactIndexTest, AnswersTheExactPlace)
{
    m_faces->m_moves[5] = 0.125;

    ASSERT_TRUE(find());

    EXPECT_EQ(m_hit.partIndex, 5u);
    EXPECT_FLOAT_EQ(m_hit.distance, 4.625f);
    EXPECT_FLOAT_EQ(m_hit.facetDistance, 4.5f);
    EXPECT_FLOAT_EQ(m_hit.position[2], 0.75f);
    EXPECT_FLOAT_EQ(m_hit.normal[2], 1.0f);
}

TEST_F(ExactIndexTest, TellsTheSideFromWhichATriangleIsMet)
{
    m_faces->m_moves[5] = 1.0;

    ASSERT_TRUE(find());

    EXPECT_TRUE(m_faces->m_fromOutside.at(5));
    EXPECT_FALSE(m_faces->m_fromOutside.at(4));
}

TEST_F(ExactIndexTest, ExactlyNearerFaceWinsOverTheNearerTriangle)
{
    m_faces->m_moves[5] = 0.375; // Top: triangle at 4.5, surface at 4.875.
    m_faces->m_moves[4] = -0.25; // Bottom: triangle at 5, surface at 4.75.

    ASSERT_TRUE(find());

    EXPECT_EQ(m_hit.partIndex, 4u);
    EXPECT_FLOAT_EQ(m_hit.distance, 4.75f);
}

TEST_F(ExactIndexTest, WhatHasNoExactSurfaceLiesWhereItsTriangleLies)
{
    ASSERT_TRUE(find());

    EXPECT_EQ(m_hit.partIndex, 5u);
    EXPECT_FLOAT_EQ(m_hit.distance, 4.5f);
}

TEST_F(ExactIndexTest, LimitsCountForTheExactPlace)
{
    m_faces->m_moves[5] = 0.125;
    m_faces->m_moves[4] = 0.125;

    m_query.minDistance = 4.55f; // Behind the triangle, before the surface.
    ASSERT_TRUE(find());
    EXPECT_EQ(m_hit.partIndex, 5u);
    m_query.minDistance = 4.65f;
    ASSERT_TRUE(find());
    EXPECT_EQ(m_hit.partIndex, 4u);
    m_query.maxDistance = 5.1f; // Behind the triangle, before the surface.
    EXPECT_FALSE(find());
    m_faces->m_moves[4] = -0.125;
    m_query.maxDistance = 4.9f; // Before the triangle, behind the surface.
    EXPECT_TRUE(find());
}

TEST_F(ExactIndexTest, FacetsAreFoundOnRequest)
{
    m_faces->m_moves[5] = 0.125;
    m_query.facetsOnly = true;

    ASSERT_TRUE(find());

    EXPECT_FLOAT_EQ(m_hit.distance, 4.5f);
}

TEST_F(ExactIndexTest, HiddenFacesAreNotFound)
{
    std::vector<TambVizCore::PartState> states(m_cube->Parts().size());
    states[5].flags = 0;
    m_query.partStates = states;

    ASSERT_TRUE(find());

    EXPECT_EQ(m_hit.partIndex, 4u);
}

TEST_F(ExactIndexTest, CountsTheMemoryOfBoth)
{
    EXPECT_GT(m_index->MemoryBytes(), OrvikRay::BuildRayIndex(*m_cube)->MemoryBytes() + 1000);
    EXPECT_FLOAT_EQ(m_index->Deviation(), 0.5f);
}
