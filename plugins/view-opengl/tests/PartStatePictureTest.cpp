#include "Shapes.h"
#include "ViewTest.h"

#include <TambVizCore/Node.h>
#include <TambVizCore/PartState.h>

namespace ViewOpenGl {
namespace {

using TambVizCore::GeoNode;
using TambVizCore::PartState;
using TambVizCore::RGBAColor;

/// A body with two faces: the first on the left, the second on the right.
class PartStatePicture : public ViewTest
{
protected:
    GeoNode& addPair()
    {
        return Add(
            MakeRectangles({{.left = -0.8f, .right = -0.1f}, {.left = 0.1f, .right = 0.8f}}));
    }

    /// Draws anew.
    int countBlack()
    {
        Draw(64, 64);
        int count = 0;
        for (int pixel = 0; pixel < 64 * 64; ++pixel)
            count += At((pixel % 64 + 0.5) / 32 - 1, (pixel / 64 + 0.5) / 32 - 1) == Shows::Black;
        return count;
    }
};

TEST_F(PartStatePicture, HighlightedPartHasTheHighlightColour)
{
    Options().SetHighlightColor(kGreen);
    addPair().SetPartHighlighted(1, true);
    Draw();

    EXPECT_EQ(At(-0.4, 0), Shows::Red);
    EXPECT_EQ(At(0.4, 0), Shows::Green);
}

TEST_F(PartStatePicture, SelectedPartHasSomeOfTheHighlightColour)
{
    Options().SetHighlightColor(kGreen);
    addPair().SetPartSelected(1, true);
    Draw();

    EXPECT_EQ(At(-0.4, 0), Shows::Red);
    EXPECT_GT(ColorAt(0.4, 0).g, 80);
    EXPECT_GT(ColorAt(0.4, 0).r, 80);
}

TEST_F(PartStatePicture, PickedPartLooksAsAHighlightedOne)
{
    Options().SetHighlightColor(kGreen);
    GeoNode& node = addPair();
    node.SetPartHighlighted(1, true);
    Draw();
    const auto highlighted = ColorAt(0.4, 0);
    node.SetPartPicked(1, true);
    Draw();
    const auto both = ColorAt(0.4, 0);
    node.SetPartHighlighted(1, false);
    Draw();

    EXPECT_EQ(At(-0.4, 0), Shows::Red);
    EXPECT_EQ(At(0.4, 0), Shows::Green);
    EXPECT_EQ(ColorAt(0.4, 0), highlighted);
    EXPECT_EQ(both, highlighted);
}

TEST_F(PartStatePicture, PickedNodeIsPickedBelow)
{
    Options().SetHighlightColor(kGreen);
    addPair().SetPicked(true);
    Draw();

    EXPECT_EQ(At(-0.4, 0), Shows::Green);
    EXPECT_EQ(At(0.4, 0), Shows::Green);
}

TEST_F(PartStatePicture, StateThatChangesBetweenFramesIsDrawn)
{
    Options().SetHighlightColor(kGreen);
    GeoNode& node = addPair();
    node.SetPartHighlighted(0, true);
    Draw();
    node.SetPartHighlighted(1, true);
    Draw();
    EXPECT_EQ(At(0.4, 0), Shows::Green);

    node.SetPartHighlighted(0, false);
    Draw();

    EXPECT_EQ(At(-0.4, 0), Shows::Red);
    EXPECT_EQ(At(0.4, 0), Shows::Green);
}

TEST_F(PartStatePicture, HiddenPartShowsWhatLiesBehind)
{
    addPair().SetPartShown(0, false);
    Add(MakeRectangles({{.left = -0.8f, .right = 0.8f, .z = -1.0f}}), kBlue);
    Draw();

    EXPECT_EQ(At(-0.4, 0), Shows::Blue);
    EXPECT_EQ(At(0.4, 0), Shows::Red);
}

TEST_F(PartStatePicture, HiddenPartIsShownAgain)
{
    GeoNode& node = addPair();
    node.SetPartShown(0, false);
    EXPECT_EQ(DrawnAt(-0.4, 0), Shows::Background);

    node.SetPartShown(0, true);

    EXPECT_EQ(DrawnAt(-0.4, 0), Shows::Red);
}

TEST_F(PartStatePicture, ColourOfAPartWinsOverThatOfTheNode)
{
    addPair().SetPartColor(1, kBlue);
    Draw();

    EXPECT_EQ(At(-0.4, 0), Shows::Red);
    EXPECT_EQ(At(0.4, 0), Shows::Blue);
}

TEST_F(PartStatePicture, TrianglesOfAColouredPartHaveBordersOfTheirOwnColour)
{
    Options().SetDefaultTessEdgeColor(kBlack);
    GeoNode& node = addPair();
    node.SetPartColor(0, kGreen);
    node.SetPartColor(1, kGreen);
    EXPECT_EQ(countBlack(), 0);
    Options().SetShowTessellation(true);
    EXPECT_GT(countBlack(), 100);
    EXPECT_EQ(At(0.2, 0.3), Shows::Green);
}

TEST_F(PartStatePicture, TransparentPartLetsThroughWhatLiesBehind)
{
    addPair().SetPartColor(1, RGBAColor(220, 0, 0, 128));
    Add(MakeRectangles({{.left = -0.8f, .right = 0.8f, .z = -1.0f}}), kBlue);
    Draw();

    EXPECT_EQ(At(-0.4, 0), Shows::Red);
    EXPECT_GT(ColorAt(0.4, 0).r, 60);
    EXPECT_GT(ColorAt(0.4, 0).b, 60);
    EXPECT_EQ(ColorAt(0.4, 0).a, 255);
}

TEST_F(PartStatePicture, OpaquePartOfATransparentBodyHides)
{
    GeoNode& node = addPair();
    node.SetColor(RGBAColor(220, 0, 0, 128));
    node.SetPartColor(1, kGreen);
    Add(MakeRectangles({{.left = -0.8f, .right = 0.8f, .z = -1.0f}}), kBlue);
    Draw();

    EXPECT_EQ(At(0.4, 0), Shows::Green);
    EXPECT_GT(ColorAt(-0.4, 0).r, 60);
    EXPECT_GT(ColorAt(-0.4, 0).b, 60);
}

TEST_F(PartStatePicture, GapInAClosedBodyShowsItsBacks)
{
    // The face behind is seen from its back.
    auto builder = RectangleBuilder({{.z = 1.0f}, {.left = 0.5f, .right = -0.5f, .z = -1.0f}});
    builder.SetClosed(true);
    GeoNode& node = Add(Build(builder));
    node.SetPartColor(1, kBlue);

    node.SetPartShown(0, false);

    EXPECT_EQ(DrawnAt(0, 0), Shows::Blue);
}

TEST_F(PartStatePicture, InstancesHaveStatesOfTheirOwn)
{
    const auto shared = MakeRectangles({{.left = -0.2f, .right = 0.2f}});
    const double toLeft[16] = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, -0.5, 0, 0, 1};
    const double toRight[16] = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0.5, 0, 0, 1};
    GeoNode& left = Add(shared);
    GeoNode& right = Add(shared);
    left.SetTransform(toLeft);
    right.SetTransform(toRight);

    right.SetPartColor(0, kGreen);
    Draw();

    EXPECT_EQ(At(-0.5, 0), Shows::Red);
    EXPECT_EQ(At(0.5, 0), Shows::Green);
}

TEST_F(PartStatePicture, StatesOfAnotherGeometryAreNotKept)
{
    GeoNode& node = addPair();
    node.SetPartColor(0, kGreen);
    Draw();

    node.SetGeometry(nullptr);
    node.SetGeometry(
        MakeRectangles({{.left = -0.8f, .right = -0.1f}, {.left = 0.1f, .right = 0.8f}}));

    EXPECT_EQ(DrawnAt(-0.4, 0), Shows::Red);
}

TEST_F(PartStatePicture, NewNodeAtThePlaceOfADeletedOneIsPlain)
{
    TambVizCore::Node& root = m_view->GetSceneRoot();
    const auto shared =
        MakeRectangles({{.left = -0.8f, .right = -0.1f}, {.left = 0.1f, .right = 0.8f}});
    for (int i = 0; i < 20; ++i) {
        GeoNode& old = Add(shared);
        old.SetPartColor(0, kGreen);
        EXPECT_EQ(DrawnAt(-0.4, 0), Shows::Green);
        root.RemoveAllChildren();

        Add(shared);

        EXPECT_EQ(DrawnAt(-0.4, 0), Shows::Red);
        root.RemoveAllChildren();
    }
}

TEST_F(PartStatePicture, OpacityThinsEverythingBelowANode)
{
    TambVizCore::Node* const group = m_view->GetSceneRoot().CreateChildNode(500);
    GeoNode* const node = group->CreateChildGeoNode(1);
    node->SetGeometry(MakeRectangles({{}}));
    node->SetColor(kRed);
    node->SetOpacity(0.5f);
    group->SetOpacity(0.5f);
    Add(MakeRectangles({{.z = -1.0f}}), kBlue);
    Draw();
    EXPECT_GT(ColorAt(0, 0).b, 2 * ColorAt(0, 0).r) << "a quarter of red over blue";

    group->SetOpacity(1.0f);
    node->SetOpacity(1.0f);
    EXPECT_EQ(DrawnAt(0, 0), Shows::Red);
}

TEST_F(PartStatePicture, OpacityZeroShowsNothingOfAFace)
{
    GeoNode& node = Add(MakeRectangles({{}}));
    node.SetOpacity(0.0f);

    EXPECT_EQ(DrawnAt(0, 0), Shows::Background);
}

TEST_F(PartStatePicture, XRayThinsWhatIsNotSelected)
{
    GeoNode& node = addPair();
    node.SetPartSelected(1, true);
    Add(MakeRectangles({{.left = -0.9f, .right = 0.9f, .z = -1.0f}}), kBlue).SetSelected(true);
    Options().SetHighlightColor(kGreen);
    Options().SetXRay(true);
    Draw();

    EXPECT_GT(ColorAt(-0.4, 0).b, ColorAt(-0.4, 0).r) << "the selected body behind shines through";
    EXPECT_GT(ColorAt(0.4, 0).r, ColorAt(0.4, 0).b) << "a selected face is opaque";

    Options().SetXRay(false);
    EXPECT_EQ(DrawnAt(-0.4, 0), Shows::Red);
}

TEST_F(PartStatePicture, XRayLeavesDrawingsAlone)
{
    Options().SetXRay(true);
    m_view->DrawMarkupObjects({{-0.5, -0.5, 0.0, 0.5, -0.5, 0.0, 0.5, 0.5, 0.0, -0.5, 0.5, 0.0}},
                              true, true, kGreen);

    EXPECT_EQ(DrawnAt(0, 0), Shows::Green);
}

} // namespace
} // namespace ViewOpenGl
