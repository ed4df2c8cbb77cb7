#include "FrameWindow.h"
#include "Shapes.h"
#include "ViewTest.h"
#include "objects/RotationMark.h"

#include <OrvikCore/ACamera.h>
#include <OrvikCore/AViewObject.h>
#include <OrvikCore/IDimensionDrawer.h>
#include <OrvikCore/ViewObjectManager.h>
#include <OrvikCore/ViewOpRotate.h>
#include <TambVizCore/EntityId.h>
#include <TambVizCore/Node.h>

#include <FakeSession.h>

#include <cmath>
#include <limits>

namespace ViewOpenGl {
namespace {

using OrvikCore::Dimension;
using OrvikCore::IViewOpState;
using TambVizCore::EntityId;
using TambVizCore::EntityType;
using TambVizCore::RGBAColor;

bool isDimensionColor(const RGBAColor& color)
{
    return color.r > color.g + 30 && color.b > color.g + 5 && color.r > color.b + 15;
}

class DimensionPicture : public ViewTest
{
protected:
    void draw(const Dimension& dimension) { m_view->DrawDimension(dimension); }
    static Dimension across(double z = 0.0)
    {
        Dimension dimension;
        dimension.line = {{-0.8, 0.0, z}, {0.8, 0.0, z}};
        dimension.text = L"12 mm";
        return dimension;
    }
    /// @return how many pixels of the last picture have the colour of dimensions.
    int count(double left = -1.0, double bottom = -1.0, double right = 1.0, double top = 1.0) const
    {
        int found = 0;
        for (int y = 0; y < m_image.height; ++y)
            for (int x = 0; x < m_image.width; ++x) {
                const double u = (x + 0.5) / m_image.width * 2.0 - 1.0;
                const double v = 1.0 - (y + 0.5) / m_image.height * 2.0;
                const std::size_t at = 4 * static_cast<std::size_t>(y * m_image.width + x);
                found += u > left && u < right && v > bottom && v < top &&
                                 isDimensionColor(
                                     {m_image.rgba[at], m_image.rgba[at + 1], m_image.rgba[at + 2]})
                             ? 1
                             : 0;
            }
        return found;
    }
};

TEST_F(DimensionPicture, ShowsTheLineWithItsHeadsAndTheText)
{
    m_view->SetWindowSize(256, 256);
    draw(across());
    Draw(256, 256);

    EXPECT_GT(count(-0.6, -0.02, 0.6, 0.02), 100) << "line";
    // A head is wider than the line.
    EXPECT_GT(count(-0.8, 0.014, -0.7, 0.06), 0) << "head";
    EXPECT_EQ(count(-0.6, 0.014, -0.5, 0.06), 0);
    EXPECT_GT(count(-0.4, 0.04, 0.4, 0.25), 30) << "text";
    EXPECT_EQ(count(-1.0, 0.3, 1.0, 1.0), 0);
}

TEST_F(DimensionPicture, IsNotHiddenByTheModel)
{
    Add(MakeBox(0.9f), kGreen);
    draw(across(-0.5));
    Draw(128, 128);

    EXPECT_GT(count(-0.6, -0.03, 0.6, 0.03), 50);
}

TEST_F(DimensionPicture, IsAsLargeAsTheWindowHasIt)
{
    m_view->SetWindowSize(128, 128);
    draw(across());
    Draw(128, 128);
    const int small = count();
    Draw(512, 512);

    EXPECT_NEAR(static_cast<double>(count()) / small, 16.0, 5.0);
}

TEST_F(DimensionPicture, KeepsItsSizeInPixelsInPerspective)
{
    UsePerspective();
    m_view->SetWindowSize(256, 256);
    Dimension near = across();
    near.text.clear();
    draw(near);
    Draw(256, 256);
    const int heads = count(-0.85, -0.1, -0.7, 0.1);
    m_view->ClearDimensions();
    Dimension far;
    far.line = {{-8.0, 0.0, -90.0}, {8.0, 0.0, -90.0}};
    draw(far);
    Draw(256, 256);

    EXPECT_NEAR(count(-0.85, -0.1, -0.7, 0.1), heads, 0.3 * heads);
}

TEST_F(DimensionPicture, OfARadiusHasAHeadAtItsEndOnly)
{
    m_view->SetWindowSize(256, 256);
    Dimension radius = across();
    radius.text.clear();
    radius.startsWithHead = false;
    draw(radius);
    Draw(256, 256);

    EXPECT_GT(count(0.7, 0.014, 0.8, 0.06), 0);
    EXPECT_EQ(count(-0.8, 0.014, -0.7, 0.06), 0);
    EXPECT_GT(count(-0.8, -0.02, -0.7, 0.02), 10) << "the line begins there";
}

TEST_F(DimensionPicture, OfAPointIsItsText)
{
    m_view->SetWindowSize(256, 256);
    Dimension dimension;
    dimension.line = {{0.0, 0.0, 0.0}};
    dimension.text = L"0";
    draw(dimension);
    Draw(256, 256);

    EXPECT_GT(count(-0.2, 0.0, 0.2, 0.3), 5);
}

TEST_F(DimensionPicture, ShowsTheLegsOfAnAngle)
{
    Dimension dimension;
    dimension.line = {{0.5, 0.0, 0.0}, {0.35, 0.35, 0.0}, {0.0, 0.5, 0.0}};
    dimension.legs = {{{0.0, 0.0, 0.0}, {0.9, 0.0, 0.0}}, {{0.0, 0.0, 0.0}, {0.0, 0.9, 0.0}}};
    draw(dimension);
    Draw(256, 256);

    EXPECT_GT(count(0.7, -0.03, 0.85, 0.03), 10);
    EXPECT_GT(count(-0.03, 0.7, 0.03, 0.85), 10);
}

TEST_F(DimensionPicture, WhatIsNotFiniteDrawsNothing)
{
    Dimension dimension = across();
    dimension.line[1][0] = std::numeric_limits<double>::infinity();
    draw(dimension);
    draw(Dimension());
    Draw();

    EXPECT_EQ(count(), 0);
}

TEST_F(DimensionPicture, IsClearedAloneOrWithWhatElseWasDrawn)
{
    draw(across());
    m_view->DrawArrow(0.0, -0.9, 0.0, 0.0, 0.9, 0.0);
    m_view->ClearDimensions();
    Draw();
    EXPECT_EQ(count(), 0);
    EXPECT_NE(At(0.0, 0.0), Shows::Background);

    draw(across());
    m_view->ClearDrawingObjects();
    EXPECT_EQ(DrawnAt(0.0, 0.0), Shows::Background);
    EXPECT_EQ(count(), 0);
}

TEST_F(DimensionPicture, GoesWithWhatItMeasures)
{
    const EntityId body(5, 1, EntityType::Body);
    TambVizCore::GeoNode& node = Add(MakeLine(0.5f));
    node.SetEntity(body);
    Dimension dimension = across();
    dimension.measured = {body};
    draw(dimension);
    Draw();
    EXPECT_GT(count(), 0);

    m_view->GetSceneRoot().RemoveChild(node.Id());
    Draw();
    EXPECT_EQ(count(), 0);
}

TEST_F(DimensionPicture, MovesAlongWithWhatItMeasures)
{
    const EntityId entity(5, 1, EntityType::Body);
    TambVizCore::GeoNode& body = Add(MakeBox(0.1f), kGreen);
    body.SetEntity(entity);
    Dimension dimension = across();
    dimension.measured = {entity, entity};
    draw(dimension);
    Draw(128, 128);
    const double up[3] = {0.0, 0.6, 0.0};
    body.SetDisplacement(up);
    Draw(128, 128);

    EXPECT_GT(count(-0.7, 0.55, 0.7, 0.65), 50);
    EXPECT_EQ(count(-1.0, -0.3, 1.0, 0.3), 0);
    const double home[3] = {0.0, 0.0, 0.0};
    body.SetDisplacement(home);
    Draw(128, 128);
    EXPECT_GT(count(-0.7, -0.05, 0.7, 0.05), 50);
}

TEST_F(DimensionPicture, HidesWhileWhatItMeasuresIsShownApart)
{
    Dimension dimension = across();
    TambVizCore::GeoNode* bodies[2] = {};
    for (std::uint64_t i = 0; i < 2; ++i) {
        const EntityId entity(5, i + 1, EntityType::Body);
        bodies[i] = &Add(MakeBox(0.1f), kGreen);
        bodies[i]->SetEntity(entity);
        dimension.measured.push_back(entity);
    }
    draw(dimension);
    const double up[3] = {0.0, 0.6, 0.0};
    bodies[1]->SetDisplacement(up);
    Draw(128, 128);
    EXPECT_EQ(count(), 0);

    bodies[0]->SetDisplacement(up);
    Draw(128, 128);
    EXPECT_GT(count(-0.7, 0.55, 0.7, 0.65), 50);
}

TEST_F(DimensionPicture, HiddenOneLeavesTheFrameInPlace)
{
    Dimension dimension = across();
    for (std::uint64_t i = 0; i < 2; ++i) {
        const EntityId entity(5, i + 1, EntityType::Body);
        TambVizCore::GeoNode& body = Add(MakeBox(0.1f), kGreen);
        body.SetEntity(entity);
        const double up[3] = {0.0, 0.3 * static_cast<double>(i), 0.0};
        body.SetDisplacement(up);
        dimension.measured.push_back(entity);
    }
    draw(dimension);
    ASSERT_TRUE(m_view->DrawFrame());

    EXPECT_FALSE(m_view->NeedsFrame());
}

TEST_F(DimensionPicture, OnlyTheNewestHundredStay)
{
    for (int i = 0; i < 130; ++i)
        draw(across());

    // Axes, rubber band and the mark at the rotation centre are there too.
    EXPECT_EQ(m_view->GetViewObjectManager()->Count(), 103);
}

TEST_F(DimensionPicture, CountsNeitherForBoundsNorForPicks)
{
    Add(MakeBox(0.2f));
    const float radius = m_view->GetGeometryRadius();
    draw(across());
    Draw();

    EXPECT_EQ(m_view->GetGeometryRadius(), radius);
}

/// A view that a test turns as a hand does.
class TurnedView : public View3dOpenGlSG
{
public:
    void Turn(int x, IViewOpState state)
    {
        OrvikCore::ViewOpRotate op(x, 32, x, 32, state);
        ControllerNotify(&op);
    }
};

class RotationCenter : public ViewTest
{
protected:
    void SetUp() override
    {
        m_turned = new TurnedView;
        m_view.reset(m_turned); // Owned.
        m_session.m_fakeView = m_turned;
        ViewTest::SetUp();
        float center[3] = {0.0f, 0.0f, 0.0f};
        m_view->GetCamera()->SetRotationCenter(center);
    }
    ~RotationCenter() override { m_session.m_fakeView = nullptr; }

    /// @return how many pixels are of the mark's orange.
    template <class Bytes> static int countIn(const Bytes& rgba)
    {
        int found = 0;
        for (std::size_t i = 0; i + 3 < rgba.size(); i += 4)
            found += rgba[i] > rgba[i + 2] + 100 ? 1 : 0;
        return found;
    }

    FakeSession& m_session = MakeCurrentFakeSession();
    TurnedView* m_turned = nullptr; ///< Not owned.
};

TEST_F(RotationCenter, IsMarkedInPicturesOnRequest)
{
    EXPECT_EQ(countIn(Draw(128, 128).rgba), 0);

    m_view->GetViewObjectManager()->Get(kRotationMarkName)->SetIsVisible(true);
    EXPECT_GT(countIn(Draw(128, 128).rgba), 20);

    m_view->GetViewObjectManager()->Get(kRotationMarkName)->SetIsVisible(false);
    EXPECT_EQ(countIn(Draw(128, 128).rgba), 0);
}

TEST_F(RotationCenter, IsMarkedInTheWindowWhileTheMouseTurns)
{
    FrameWindow window(*m_turned);
    m_view->SetFrameWindow(&window);
    m_view->UpdateDisplay();
    EXPECT_EQ(countIn(window.Pixels()), 0);
    m_turned->Turn(32, IViewOpState::Start);
    m_view->UpdateDisplay();
    EXPECT_GT(countIn(window.Pixels()), 20);
    EXPECT_EQ(countIn(Draw(64, 64).rgba), 0) << "pictures are without";

    m_turned->Turn(32, IViewOpState::End);
    m_view->UpdateDisplay();
    EXPECT_EQ(countIn(window.Pixels()), 0);
    m_view->SetFrameWindow(nullptr);
}

TEST_F(RotationCenter, IsMarkedNoMoreOnceTheMouseLetsGo)
{
    FrameWindow window(*m_turned);
    m_view->SetFrameWindow(&window);
    m_turned->Turn(32, IViewOpState::Processing);
    m_view->UpdateDisplay();
    ASSERT_GT(countIn(window.Pixels()), 20);

    m_view->EndGesture();

    EXPECT_EQ(countIn(window.Pixels()), 0);
    m_view->SetFrameWindow(nullptr);
}

} // namespace
} // namespace ViewOpenGl
