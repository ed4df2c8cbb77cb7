#include "Shapes.h"
#include "ViewTest.h"

#include <OrvikCore/ACamera.h>
#include <TambVizCore/Node.h>

#include <set>

namespace ViewOpenGl {
namespace {

using TambVizCore::GeoNode;
using TambVizCore::Node;
using TambVizCore::RGBAColor;

class ScenePicture : public ViewTest
{
};

TEST_F(ScenePicture, EmptySceneIsBackgroundOnly)
{
    EXPECT_EQ(DrawnAt(0, 0), Shows::Background);
}

TEST_F(ScenePicture, FirstBackgroundColourIsAtTheTopAndTheSecondAtTheBottom)
{
    m_view->SetBackgroundColor(1, RGBAColor(200, 0, 0));
    m_view->SetBackgroundColor(2, RGBAColor(0, 0, 200));
    Draw(16, 256);

    EXPECT_NEAR(ColorAt(0, 0.999).r, 200, 1);
    EXPECT_NEAR(ColorAt(0, 0).r, 100, 1);
    EXPECT_NEAR(ColorAt(0, 0).b, 100, 1);
    EXPECT_NEAR(ColorAt(0, -0.999).b, 200, 1);
}

TEST_F(ScenePicture, RowsRunFromTopToBottomAndColumnsFromLeftToRight)
{
    Add(MakeRectangles({{.left = -1.0f, .bottom = 0.5f, .right = -0.5f, .top = 1.0f}}));
    Draw();

    const std::size_t upperLeft = 4 * (4 * 64 + 4);
    EXPECT_GT(m_image.rgba[upperLeft], 150);
    EXPECT_LT(m_image.rgba[upperLeft + 1], 40);
}

TEST_F(ScenePicture, PictureIsAsWideAsItsShapeSays)
{
    Add(MakeRectangles({{.left = -1.8f, .right = 1.8f}}));
    Draw(128, 64);

    EXPECT_EQ(At(0.85, 0), Shows::Red);
    EXPECT_EQ(At(0.95, 0), Shows::Background);
}

TEST_F(ScenePicture, HiddenNodeAndWhatIsBelowAreNotDrawn)
{
    Node* const group = m_view->GetSceneRoot().CreateChildNode(100);
    GeoNode* const body = group->CreateChildGeoNode(1);
    body->SetGeometry(MakeRectangles({{}}));
    EXPECT_NE(DrawnAt(0, 0), Shows::Background);

    group->SetVisible(false);

    EXPECT_EQ(DrawnAt(0, 0), Shows::Background);
}

TEST_F(ScenePicture, NearestColourAboveABodyWins)
{
    Node* const outer = m_view->GetSceneRoot().CreateChildNode(100);
    Node* const inner = outer->CreateChildNode(1);
    inner->CreateChildGeoNode(1)->SetGeometry(MakeRectangles({{}}));
    outer->SetColor(kRed);
    EXPECT_EQ(DrawnAt(0, 0), Shows::Red);

    inner->SetColor(kGreen);

    EXPECT_EQ(DrawnAt(0, 0), Shows::Green);
}

TEST_F(ScenePicture, HighlightOfAGroupReachesItsBodies)
{
    Options().SetHighlightColor(kGreen);
    Node* const group = m_view->GetSceneRoot().CreateChildNode(100);
    group->CreateChildGeoNode(1)->SetGeometry(MakeRectangles({{}}));
    group->SetColor(kRed);

    group->SetHighlighted(true);

    EXPECT_EQ(DrawnAt(0, 0), Shows::Green);
}

TEST_F(ScenePicture, TransformsMultiplyFromTheRootDown)
{
    const double shifted[16] = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0.5, 0, 0, 1};
    const double halved[16] = {0.5, 0, 0, 0, 0, 0.5, 0, 0, 0, 0, 0.5, 0, 0, 0, 0, 1};
    Node* const group = m_view->GetSceneRoot().CreateChildNode(100);
    group->SetTransform(shifted);
    group->SetColor(kRed);
    GeoNode* const body = group->CreateChildGeoNode(1);
    body->SetTransform(halved);
    body->SetGeometry(MakeRectangles({{}}));
    Draw();

    EXPECT_EQ(At(0.5, 0), Shows::Red);
    EXPECT_EQ(At(0.2, 0), Shows::Background);
    EXPECT_EQ(At(0.8, 0), Shows::Background);
}

TEST_F(ScenePicture, TransparentBodyMixesWithWhatLiesBehind)
{
    Add(MakeRectangles({{.z = 1.0f}}), RGBAColor(220, 0, 0, 128));
    Add(MakeRectangles({{.z = -1.0f}}), kBlue);
    Draw();

    EXPECT_GT(ColorAt(0, 0).r, 60);
    EXPECT_GT(ColorAt(0, 0).b, 60);
}

TEST_F(ScenePicture, NearerOfTwoTransparentBodiesCountsMoreInAnyOrder)
{
    const RGBAColor red(220, 0, 0, 160);
    const RGBAColor blue(0, 0, 220, 160);
    Add(MakeRectangles({{.z = 1.0f}}), red);
    Add(MakeRectangles({{.z = -1.0f}}), blue);
    Draw();
    const RGBAColor nearFirst = ColorAt(0, 0);
    m_view->GetSceneRoot().RemoveAllChildren();
    Add(MakeRectangles({{.z = -1.0f}}), blue);
    Add(MakeRectangles({{.z = 1.0f}}), red);
    Draw();

    EXPECT_EQ(ColorAt(0, 0), nearFirst);
    EXPECT_GT(nearFirst.r, nearFirst.b);
}

TEST_F(ScenePicture, TransparentBodyBehindAnOpaqueOneIsHidden)
{
    Add(MakeRectangles({{.z = -1.0f}}), RGBAColor(0, 220, 0, 128));
    Add(MakeRectangles({{.z = 1.0f}}), kRed);

    EXPECT_EQ(DrawnAt(0, 0), Shows::Red);
}

TEST_F(ScenePicture, AuxiliaryBodyFarOutsideTheModelIsDrawn)
{
    Add(MakeRectangles({{.left = 0.1f}}));
    Add(MakeRectangles({{.left = -0.9f, .right = -0.1f, .z = 5.0f}}), kGreen).SetAuxiliary(true);
    Draw();

    EXPECT_EQ(At(-0.5, 0), Shows::Green);
    EXPECT_EQ(At(0.3, 0), Shows::Red);
}

TEST_F(ScenePicture, AuxiliaryLinesAreDrawnInTheirColourWhateverTheSwitch)
{
    Options().SetShowEdges(false);
    Add(MakeLine(0.0f), kGreen).SetAuxiliary(true);
    Draw(65, 65);

    EXPECT_EQ(At(0.2, 0), Shows::Green);
}

TEST_F(ScenePicture, SectionPlaneCutsAway)
{
    Add(MakeRectangles({{}}));
    TambVizCore::ClipPlane plane;
    plane.normal[0] = 1.0f;
    plane.normal[2] = 0.0f;
    plane.offset = -0.1f;
    Options().SetClipPlanes({plane});
    Draw();

    EXPECT_EQ(At(0.0, 0), Shows::Background);
    EXPECT_EQ(At(0.3, 0), Shows::Red);

    Options().SetClipPlanes({});
    EXPECT_EQ(DrawnAt(0.0, 0), Shows::Red);
}

TEST_F(ScenePicture, SectionPlanesStayInWorldUnitsWhenTheCameraTurns)
{
    Add(MakeRectangles({{}}));
    TambVizCore::ClipPlane plane;
    plane.normal[0] = 1.0f;
    plane.normal[2] = 0.0f;
    Options().SetClipPlanes({plane});
    float eye[3] = {0.0f, 0.0f, -10.0f};
    float target[3] = {0.0f, 0.0f, 0.0f};
    float up[3] = {0.0f, 1.0f, 0.0f};
    m_view->GetCamera()->SetCamera(eye, target, up);
    Draw();

    EXPECT_EQ(At(-0.3, 0), Shows::Red);
    EXPECT_EQ(At(0.3, 0), Shows::Background);
}

TEST_F(ScenePicture, AntialiasingSmoothsSlantedBorders)
{
    const double turned[16] = {0.8, 0.6, 0, 0, -0.6, 0.8, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};
    Add(MakeRectangles({{}})).SetTransform(turned);
    const auto countShades = [this] {
        Draw();
        std::set<std::uint8_t> shades;
        for (std::size_t i = 0; i < m_image.rgba.size(); i += 4)
            shades.insert(m_image.rgba[i]);
        return shades.size();
    };

    EXPECT_EQ(countShades(), 2u);
    Options().SetAntialiasLevel(4);
    EXPECT_GT(countShades(), 3u);
    Options().SetAntialiasLevel(0);
    EXPECT_EQ(countShades(), 2u);
}

TEST_F(ScenePicture, EdgesAreAsWideAsTheOptionsSay)
{
    Add(MakeLine(0.0f));
    const auto countDrawn = [this] {
        Draw();
        std::size_t drawn = 0;
        for (int row = 0; row < m_image.height; ++row)
            drawn += At(0.0, 2.0 * (row + 0.5) / m_image.height - 1.0) == Shows::Background ? 0 : 1;
        return drawn;
    };

    EXPECT_EQ(countDrawn(), 1u);
    Options().SetLineWidth(5.0f);
    EXPECT_EQ(countDrawn(), 5u);
}

TEST_F(ScenePicture, MoreSamplesThanTheDriverHasAreTakenAsItsMost)
{
    Options().SetAntialiasLevel(16);
    Add(MakeRectangles({{}}));

    EXPECT_EQ(DrawnAt(0, 0), Shows::Red);
}

} // namespace
} // namespace ViewOpenGl
