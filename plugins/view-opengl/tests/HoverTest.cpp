#include "Shapes.h"
#include "ViewTest.h"

#include <TambVizCore/Node.h>
#include <TambVizCore/RenderId.h>

#include <TestGeometry.h>

namespace ViewOpenGl {
namespace {

using TambVizCore::MakePartId;
using TambVizCore::PartKind;
using TambVizCore::RenderId;

/// The unit square from (0, 0) to (1, 1): the upper right quarter of the picture. Nothing is drawn.
class Hover : public ::testing::Test
{
protected:
    Hover()
    {
        m_view.SetWindowSize(100, 100);
        PlaceCamera(m_view);
        m_node = m_view.GetSceneRoot().CreateChildGeoNode(7);
        m_node->SetGeometry(TambVizCore::MakeSquare());
    }

    View3dOpenGlSG m_view;
    TambVizCore::GeoNode* m_node = nullptr;
};

TEST_F(Hover, FaceUnderThePixelIsFound)
{
    RenderId id;
    ASSERT_TRUE(m_view.GetRenderIdAtPixel(80, 40, id));

    EXPECT_EQ(id.Origin(), 1u);
    ASSERT_EQ(id.Length(), 2);
    EXPECT_EQ(id[0], 7u);
    EXPECT_EQ(id.Last(), MakePartId(PartKind::Face, 0));
}

TEST_F(Hover, NothingIsFoundBesideTheBody)
{
    RenderId id(1);
    id.AddValue(5);

    EXPECT_FALSE(m_view.GetRenderIdAtPixel(20, 80, id));
    EXPECT_TRUE(id.IsEmpty());
}

TEST_F(Hover, EdgeNearThePixelWinsOverTheFace)
{
    RenderId id;
    ASSERT_TRUE(m_view.GetRenderIdAtPixel(75, 2, id));

    EXPECT_EQ(id.Last() >> 32, static_cast<std::uint64_t>(PartKind::Edge));
}

TEST_F(Hover, HiddenEdgesAreNotFound)
{
    m_view.GetRenderingOptions()->SetShowEdges(false);
    RenderId id;
    ASSERT_TRUE(m_view.GetRenderIdAtPixel(75, 2, id));

    EXPECT_EQ(id.Last() >> 32, static_cast<std::uint64_t>(PartKind::Face));
}

TEST_F(Hover, HiddenPartIsNotFound)
{
    m_node->SetPartShown(0, false);
    RenderId id;

    EXPECT_FALSE(m_view.GetRenderIdAtPixel(80, 40, id));
}

TEST_F(Hover, WhatLiesBehindTheEyeIsFoundInParallelProjection)
{
    const double nearer[16] = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 50, 1};
    m_node->SetTransform(nearer);
    RenderId id;

    EXPECT_TRUE(m_view.GetRenderIdAtPixel(80, 40, id));
}

TEST_F(Hover, BodyWithoutIndexIsNotFound)
{
    m_node->SetGeometry(MakeRectangles({{}}));
    RenderId id;

    EXPECT_FALSE(m_view.GetRenderIdAtPixel(50, 50, id));
}

TEST_F(Hover, WithoutPixelsNothingIsFound)
{
    m_view.SetWindowSize(0, 0);
    RenderId id;

    EXPECT_FALSE(m_view.GetRenderIdAtPixel(0, 0, id));
}

TEST_F(Hover, SurfacePointLiesUnderThePixel)
{
    const double lifted[16] = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 3, 1};
    m_node->SetTransform(lifted);
    float point[3] = {};
    ASSERT_TRUE(m_view.GetSurfacePointAtPixel(80, 40, point));

    EXPECT_NEAR(point[0], 0.6f, 0.02f);
    EXPECT_NEAR(point[1], 0.2f, 0.02f);
    EXPECT_NEAR(point[2], 3.0f, 1e-4f);
}

TEST_F(Hover, SurfacePointStaysWhereThereIsNone)
{
    float point[3] = {1.0f, 2.0f, 3.0f};

    EXPECT_FALSE(m_view.GetSurfacePointAtPixel(20, 80, point));
    EXPECT_EQ(point[0], 1.0f);
    EXPECT_EQ(point[2], 3.0f);
}

} // namespace
} // namespace ViewOpenGl
