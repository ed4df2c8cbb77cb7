#include "BoxSelection.h"

#include "Shapes.h"
#include "ViewTest.h"

#include <TambVizCore/ClipPlane.h>
#include <TambVizCore/EntityId.h>
#include <TambVizCore/Node.h>

namespace ViewOpenGl {
namespace {

using TambVizCore::EntityId;
using TambVizCore::EntityType;
using TambVizCore::GeoNode;

/// The same view as ViewTest's, on a window of 100 x 100 pixels: one unit is 50 pixels. Nothing is
/// drawn.
class BoxSelection : public ::testing::Test
{
protected:
    BoxSelection()
    {
        m_view.SetWindowSize(100, 100);
        PlaceCamera(m_view);
    }

    GeoNode& add(std::uint64_t number, std::shared_ptr<const TambVizCore::Geometry> geometry)
    {
        GeoNode* const node = m_view.GetSceneRoot().CreateChildGeoNode(number);
        node->SetGeometry(std::move(geometry));
        node->SetEntity(EntityId(number, 1, EntityType::Body));
        return *node;
    }

    /// @return the values of the entities found.
    std::vector<std::uint64_t> find(int x1, int y1, int x2, int y2, bool touching)
    {
        BoxQuery query;
        query.rectangle = {x1, y1, x2, y2};
        query.width = query.height = 100;
        query.touching = touching;
        std::vector<std::uint64_t> values;
        for (const EntityId& entity :
             FindInBox(m_view.GetSceneRoot(), *m_view.GetRenderingOptions(),
                       MakeProjection(*m_view.GetCamera(), 100, 100), query))
            values.push_back(entity.Value());
        return values;
    }

    using Values = std::vector<std::uint64_t>;
    View3dOpenGlSG m_view;
};

TEST_F(BoxSelection, EnclosedBodyIsFoundBothWays)
{
    add(7, MakeBox(0.2f));
    EXPECT_EQ(find(20, 20, 80, 80, false), Values{7});
    EXPECT_EQ(find(20, 20, 80, 80, true), Values{7});
    EXPECT_EQ(find(80, 80, 20, 20, false), Values{7}) << "corners in any order";
}

TEST_F(BoxSelection, TouchedBodyIsFoundOnlyByTouching)
{
    add(7, MakeBox(0.2f));
    EXPECT_EQ(find(50, 20, 80, 80, false), Values{});
    EXPECT_EQ(find(50, 20, 80, 80, true), Values{7});
}

TEST_F(BoxSelection, BoxInsideAFaceTouchesIt)
{
    add(7, MakeRectangles({{}}));
    EXPECT_EQ(find(55, 48, 57, 50, true), Values{7});
    EXPECT_EQ(find(55, 48, 57, 50, false), Values{});
}

TEST_F(BoxSelection, EdgeThatOnlyPassesThroughIsTouched)
{
    add(7, MakeLine(0.0f));
    EXPECT_EQ(find(48, 40, 52, 60, true), Values{7});
    EXPECT_EQ(find(48, 60, 52, 70, true), Values{});
}

TEST_F(BoxSelection, BoundingBoxAloneTouchesNothing)
{
    // The upper left half of a square: the rectangle lies in its box, beside the triangle.
    TambVizCore::GeometryBuilder builder;
    builder
        .SetPositions(TambVizCore::SharedArray<float>(
            std::vector<float>{-0.8f, -0.8f, 0, -0.8f, 0.8f, 0, 0.8f, 0.8f, 0}))
        .SetTriangles(TambVizCore::SharedArray<std::uint32_t>(std::vector<std::uint32_t>{0, 2, 1}));
    add(7, Build(builder));

    EXPECT_EQ(find(70, 70, 85, 85, true), Values{});
    EXPECT_EQ(find(15, 15, 30, 30, true), Values{7});
}

TEST_F(BoxSelection, HiddenBodiesPartsAndAuxiliariesAreLeftOut)
{
    add(7, MakeBox(0.2f)).SetVisible(false);
    add(8, MakeBox(0.2f)).SetAuxiliary(true);
    GeoNode& parts = add(9, MakeRectangles({{}}));
    parts.SetPartShown(0, false);

    EXPECT_EQ(find(45, 45, 55, 55, true), Values{});
}

TEST_F(BoxSelection, WhatPlanesCutAwayDoesNotCount)
{
    add(7, MakeBox(0.5f));
    // Only what is left of x = 0 stays: pixels 25 to 50.
    m_view.GetRenderingOptions()->SetClipPlanes({{{-1.0f, 0.0f, 0.0f}, 0.0f}});

    EXPECT_EQ(find(20, 20, 60, 80, false), Values{7});
    add(8, MakeRectangles({{.left = 0.2f, .right = 0.4f}}));
    EXPECT_EQ(find(55, 20, 80, 80, true), Values{7}) << "the cut triangles reach there unseen";
}

TEST_F(BoxSelection, EachBodyIsFoundOnceInTheOrderOfTheScene)
{
    add(9, MakeBox(0.1f));
    add(3, MakeBox(0.1f));
    GeoNode* const again = m_view.GetSceneRoot().CreateChildGeoNode(20);
    again->SetGeometry(MakeBox(0.1f));
    again->SetEntity(EntityId(9, 1, EntityType::Body));

    EXPECT_EQ(find(0, 0, 100, 100, false), (Values{9, 3}));
}

} // namespace
} // namespace ViewOpenGl
