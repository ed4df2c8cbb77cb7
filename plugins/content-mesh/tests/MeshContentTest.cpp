#include "Models.h"

#include "OrvikCore/Document.h"

#include <OrvikOs/FaultScope.h>
#include <OrvikOs/FpControl.h>
#include <TambVizCore/EntityId.h>
#include <TambVizCore/Ray.h>

#include <OrvikModel/ModelContent.h>
#include <gtest/gtest.h>

#include <thread>

using OrvikCore::Document;
using OrvikModel::ModelContent;
using TambVizCore::EntityId;
using TambVizCore::EntityType;
using TambVizCore::PartKind;
using TambVizCore::Ray;

namespace {

/// Downwards along z through a point, from z = 10.
Ray down(float x, float y, double radius = 0.0)
{
    const float origin[3] = {x, y, 10.0f};
    const float direction[3] = {0.0f, 0.0f, -1.0f};
    return {origin, direction, radius};
}

class MeshContentTest : public testing::Test
{
protected:
    Document m_document{nullptr};
    ModelContent m_content{m_document, CubeModel(2), "Mesh"};
    EntityId m_hit;
};

} // namespace

TEST_F(MeshContentTest, IdentifiesItselfByItsFile)
{
    EXPECT_EQ(m_content.GetShortId(), L"cubes.stl");
    EXPECT_EQ(m_content.GetLongId(), L"/models/cubes.stl");
    EXPECT_EQ(m_content.GetTypeName(), "Mesh");
    EXPECT_EQ(&m_content.GetDocument(), &m_document);
}

TEST_F(MeshContentTest, BoxHoldsAllBodies)
{
    TambVizCore::VizBox box;

    ASSERT_TRUE(m_content.GetBoundingBox(box));

    EXPECT_EQ(box, TambVizCore::VizBox(0, 0, 0, 3, 1, 1));
}

TEST_F(MeshContentTest, RayPickFindsTheFaceOfTheSecondBody)
{
    ASSERT_TRUE(m_content.RayPick(down(2.3f, 0.4f), m_hit));

    EXPECT_EQ(m_hit.Type(), EntityType::Mesh);
    EXPECT_EQ(m_hit.Value(), 2u);
    EXPECT_EQ(m_hit.Owner(), 1u);
    EXPECT_TRUE(m_hit.IsFace());
    EXPECT_EQ(m_hit.SubEntityIndex(), 1); // The second pair of triangles is the top.
}

TEST_F(MeshContentTest, RayPickThatMissesLeavesTheEntityAlone)
{
    EXPECT_FALSE(m_content.RayPick(down(1.5f, 0.5f), m_hit));

    EXPECT_TRUE(m_hit.IsEmpty());
}

TEST_F(MeshContentTest, VertexWithinTheApertureWinsOverEdgeAndFace)
{
    ASSERT_TRUE(m_content.RayPick(down(0.05f, 0.05f, 0.1), m_hit));
    EXPECT_TRUE(m_hit.IsVertex());

    ASSERT_TRUE(m_content.RayPick(down(0.5f, 0.05f, 0.1), m_hit));
    EXPECT_TRUE(m_hit.IsEdge());

    ASSERT_TRUE(m_content.RayPick(down(0.5f, 0.3f, 0.1), m_hit));
    EXPECT_TRUE(m_hit.IsFace());
}

TEST_F(MeshContentTest, PickOfAKindFindsThatKindOnly)
{
    ASSERT_TRUE(m_content.RayPickKind(down(0.05f, 0.05f, 0.1), PartKind::Face, m_hit));
    EXPECT_TRUE(m_hit.IsFace());

    ASSERT_TRUE(m_content.RayPickKind(down(0.05f, 0.05f, 0.1), PartKind::Edge, m_hit));
    EXPECT_TRUE(m_hit.IsEdge());

    EXPECT_FALSE(m_content.RayPickKind(down(0.5f, 0.5f, 0.1), PartKind::Vertex, m_hit));
    EXPECT_FALSE(m_content.RayPickKind(down(0.5f, 0.5f, 0.1), PartKind::None, m_hit));
}

TEST_F(MeshContentTest, EdgeJustOutsideTheBodyIsPicked)
{
    EXPECT_FALSE(m_content.RayPick(down(-0.05f, 0.5f), m_hit));

    EXPECT_TRUE(m_content.RayPick(down(-0.05f, 0.5f, 0.1), m_hit));

    EXPECT_TRUE(m_hit.IsEdge());
}

TEST_F(MeshContentTest, FaceHidesTheEdgesBehindIt)
{
    // The bottom edge y = 0, z = 0 lies one below the top edge; the ray meets the top inside.
    EXPECT_FALSE(m_content.RayPickKind(down(0.5f, 0.5f, 0.2), PartKind::Edge, m_hit));
}

TEST_F(MeshContentTest, PicksWithoutTrapsWhereTheCallerHasThem)
{
    const OrvikOs::FaultScope scope;
    OrvikOs::FpControl::SetControlWord(0, OrvikOs::kMCW_EM & ~OrvikOs::kEM_INEXACT);

    const bool isHit = m_content.RayPick(down(0.3f, 0.4f), m_hit);
    OrvikOs::FpControl::SetControlWord(OrvikOs::kMCW_EM, OrvikOs::kMCW_EM);

    EXPECT_TRUE(isHit);
}

TEST_F(MeshContentTest, UndoPointsChangeNothing)
{
    m_content.NoteState();
    m_content.Undo();
    m_content.Redo();
    m_content.ClearSelection();

    EXPECT_TRUE(m_content.RayPick(down(0.3f, 0.4f), m_hit));
}

TEST(MeshContent, PicksOfTwoThreadsMakeTheIndexOnce)
{
    Document document(nullptr);
    ModelContent content(document, CubeModel(), "Mesh");
    const auto pick = [&content] {
        EntityId hit;
        EXPECT_TRUE(content.RayPick(down(0.3f, 0.4f), hit));
    };

    std::thread other(pick);
    pick();
    other.join();

    EXPECT_NE(content.GetModel()->nodes[0]->shape->Present()->Index(), nullptr);
}

TEST(MeshContent, EmptyModelHasNoBox)
{
    Document document(nullptr);
    ModelContent content(document, std::make_shared<OrvikModel::Model>(), "Mesh");
    TambVizCore::VizBox box(1, 2, 3, 4, 5, 6);

    EXPECT_FALSE(content.GetBoundingBox(box));

    EXPECT_EQ(box, TambVizCore::VizBox(1, 2, 3, 4, 5, 6));
}
