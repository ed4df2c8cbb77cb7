#include "Shapes.h"
#include "ViewTest.h"
#include "objects/AxesObject.h"

#include <OrvikCore/AMarkupViewObject.h>
#include <OrvikCore/CameraZUp.h>
#include <OrvikCore/ViewObjectManager.h>
#include <TambVizCore/ClipPlane.h>
#include <TambVizCore/Node.h>
#include <TambVizCore/VizBox.h>

#include <algorithm>
#include <cmath>

namespace ViewOpenGl {
namespace {

class ViewObjectsPicture : public ViewTest
{
protected:
    OrvikCore::ViewObjectManager& manager() { return *m_view->GetViewObjectManager(); }

    /// @return how many pixels of the last picture are mostly of one channel.
    int count(int channel, int left, int top, int right, int bottom) const
    {
        int found = 0;
        for (int y = top; y < bottom; ++y)
            for (int x = left; x < right; ++x) {
                const std::uint8_t* const p =
                    m_image.rgba.data() + 4 * static_cast<std::size_t>(y * m_image.width + x);
                const int others = std::max(p[(channel + 1) % 3], p[(channel + 2) % 3]);
                found += p[channel] > others + 60 ? 1 : 0;
            }
        return found;
    }
};

TEST_F(ViewObjectsPicture, PolylineIsDrawnInItsColour)
{
    m_view->DrawMarkupObjects({{-0.8, 0.0, 0.0, 0.8, 0.0, 0.0}}, kGreen);
    EXPECT_EQ(DrawnAt(0.0, 0.01), Shows::Green);
    EXPECT_EQ(At(0.0, 0.5), Shows::Background);
}

TEST_F(ViewObjectsPicture, ClosedPolylineIsFilled)
{
    m_view->DrawMarkupObjects({{-0.5, -0.5, 0.0, 0.5, -0.5, 0.0, 0.5, 0.5, 0.0, -0.5, 0.5, 0.0}},
                              true, true, kGreen);
    EXPECT_EQ(DrawnAt(0.0, 0.0), Shows::Green);
    EXPECT_EQ(At(0.7, 0.0), Shows::Background);
}

TEST_F(ViewObjectsPicture, OpenPolylineIsNotFilled)
{
    m_view->DrawMarkupObjects({{-0.5, -0.5, 0.0, 0.5, -0.5, 0.0, 0.5, 0.5, 0.0, -0.5, 0.5, 0.0}},
                              false, true, kGreen);
    EXPECT_EQ(DrawnAt(0.0, 0.0), Shows::Background);
}

TEST_F(ViewObjectsPicture, PolylineOfWrongNumbersIsLeftOut)
{
    m_view->DrawMarkupObjects({{0.0, 0.0, std::nan("")}, {-0.8, 0.0, 0.0, 0.8, 0.0, 0.0}}, kGreen);
    EXPECT_EQ(DrawnAt(0.0, 0.01), Shows::Green);
}

TEST_F(ViewObjectsPicture, ArrowIsDrawnBetweenItsPoints)
{
    m_view->DrawArrow(-0.8, 0.0, 0.0, 0.8, 0.0, 0.0);
    Draw(256, 256);

    EXPECT_EQ(At(0.0, 0.0), Shows::Other) << "orange";
    EXPECT_EQ(At(0.9, 0.0), Shows::Background);
    EXPECT_EQ(At(0.0, 0.2), Shows::Background);
}

TEST_F(ViewObjectsPicture, TrianglesAreDrawnInTheColoursOfTheirPoints)
{
    std::vector<float> points = {-0.5f, -0.5f, 0, 0.5f, -0.5f, 0, 0, 0.5f, 0};
    std::vector<float> normals;
    std::vector<float> colors = {0, 0, 0.9f, 0, 0, 0.9f, 0, 0, 0.9f};
    std::vector<int> indices = {0, 1, 2};
    m_view->DrawTessellationData(points, normals, colors, indices);

    EXPECT_EQ(DrawnAt(0.0, 0.0), Shows::Blue);
}

TEST_F(ViewObjectsPicture, TrianglesOfWrongIndicesAreTold)
{
    std::vector<float> points = {-0.5f, -0.5f, 0, 0.5f, -0.5f, 0, 0, 0.5f, 0};
    std::vector<float> none;
    std::vector<int> indices = {0, 1, -1};
    m_view->DrawTessellationData(points, none, none, indices);

    EXPECT_EQ(DrawnAt(0.0, 0.0), Shows::Background);
    EXPECT_NE(m_debug.Text().find("Triangle 0 names vertex 4294967295"), std::string::npos);
}

TEST_F(ViewObjectsPicture, DrawingsAreCleared)
{
    const int before = manager().Count();
    m_view->DrawMarkupObjects({{-0.8, 0.0, 0.0, 0.8, 0.0, 0.0}}, kGreen);
    m_view->DrawArrow(0, 0, 0, 0, 0.5, 0);
    EXPECT_EQ(manager().Count(), before + 2);
    Draw();

    m_view->ClearDrawingObjects();

    EXPECT_EQ(manager().Count(), before);
    EXPECT_EQ(DrawnAt(0.0, 0.01), Shows::Background);
}

TEST_F(ViewObjectsPicture, DrawingsCountNeitherForBoundsNorPicks)
{
    m_view->DrawMarkupObjects({{-50.0, 0.0, 0.0, 50.0, 0.0, 0.0}}, kGreen);
    m_view->DrawArrow(0, 0, 0, 0, 90, 0);
    Draw();

    EXPECT_EQ(m_view->GetGeometryRadius(), 0.0f);
    TambVizCore::RenderId id;
    EXPECT_FALSE(m_view->GetRenderIdAtPixel(32, 32, id));
}

TEST_F(ViewObjectsPicture, SectionPlanesDoNotCutDrawings)
{
    m_view->DrawMarkupObjects({{-0.8, 0.0, 0.0, 0.8, 0.0, 0.0}}, kGreen);
    Options().SetClipPlanes({{{1.0f, 0.0f, 0.0f}, -100.0f}});

    EXPECT_EQ(DrawnAt(0.0, 0.01), Shows::Green);
}

TEST_F(ViewObjectsPicture, ClearingTheViewKeepsDrawings)
{
    m_view->DrawMarkupObjects({{-0.8, 0.0, 0.0, 0.8, 0.0, 0.0}}, kGreen);
    m_view->Clear();

    EXPECT_EQ(DrawnAt(0.0, 0.01), Shows::Green);
}

TEST_F(ViewObjectsPicture, DisabledManagerDrawsNothing)
{
    m_view->DrawMarkupObjects({{-0.8, 0.0, 0.0, 0.8, 0.0, 0.0}}, kGreen);
    manager().SetIsEnabled(false);
    EXPECT_EQ(DrawnAt(0.0, 0.01), Shows::Background);

    manager().SetIsEnabled(true);
    EXPECT_EQ(DrawnAt(0.0, 0.01), Shows::Green);
}

TEST_F(ViewObjectsPicture, HiddenDrawingIsNotDrawn)
{
    m_view->DrawMarkupObjects({{-0.8, 0.0, 0.0, 0.8, 0.0, 0.0}}, kGreen);
    Draw();
    for (auto at = manager().Begin(); at != manager().End(); ++at)
        if (dynamic_cast<OrvikCore::AMarkupViewObject*>(at->second) != nullptr)
            at->second->SetIsVisible(false);

    EXPECT_EQ(DrawnAt(0.0, 0.01), Shows::Background);
}

TEST_F(ViewObjectsPicture, AxesAreHiddenAtFirst)
{
    ASSERT_TRUE(manager().Contains(kAxesName));
    EXPECT_FALSE(manager().Get(kAxesName)->IsVisible());
    Draw(256, 256);
    EXPECT_EQ(count(0, 0, 128, 128, 256), 0);
}

TEST_F(ViewObjectsPicture, AxesPointWhereTheWorldDoes)
{
    manager().Get(kAxesName)->SetIsVisible(true);
    Draw(256, 256);
    // The picture's corner of 48 pixels: x to the right of its middle, y above.
    EXPECT_GT(count(0, 24, 208, 48, 256), 5);
    EXPECT_EQ(count(0, 0, 208, 20, 256), 0);
    EXPECT_GT(count(1, 0, 208, 48, 232), 5);
    EXPECT_EQ(count(1, 0, 236, 48, 256), 0);

    manager().Get(kAxesName)->SetIsVisible(false);
    Draw(256, 256);
    EXPECT_EQ(count(0, 0, 208, 48, 256), 0);
}

TEST_F(ViewObjectsPicture, AxesLieInFrontOfTheModel)
{
    Add(MakeRectangles({{.left = -1, .bottom = -1, .right = 1, .top = 1, .z = 5}}), kBlack);
    manager().Get(kAxesName)->SetIsVisible(true);
    Draw(256, 256);

    EXPECT_GT(count(0, 24, 208, 48, 256), 5);
}

} // namespace
} // namespace ViewOpenGl
