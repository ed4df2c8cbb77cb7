#include "Shapes.h"
#include "ViewTest.h"

#include <OrvikCore/ViewObjectManager.h>
#include <OrvikCore/ViewOpDrag.h>
#include <TambVizCore/EntityId.h>
#include <TambVizCore/Node.h>

#include <FakeSession.h>

namespace ViewOpenGl {
namespace {

using OrvikCore::IViewOpState;
using TambVizCore::EntityId;
using TambVizCore::EntityType;

class DraggedView : public View3dOpenGlSG
{
public:
    void Drag(int x, int y, IViewOpState state)
    {
        OrvikCore::ViewOpDrag op(x, y, state);
        ControllerNotify(&op);
    }

    bool IsBandVisible() { return GetViewObjectManager()->Get(kRubberBandName)->IsVisible(); }
};

/// A body in the middle of a window of 100 x 100 pixels, from 40 to 60.
class Drag : public ::testing::Test
{
protected:
    Drag() : m_session(MakeCurrentFakeSession())
    {
        m_session.m_fakeView = &m_view;
        m_view.SetWindowSize(100, 100);
        PlaceCamera(m_view);
        TambVizCore::GeoNode* const node = m_view.GetSceneRoot().CreateChildGeoNode(7);
        node->SetGeometry(MakeBox(0.2f));
        node->SetEntity(m_body);
    }

    const EntityId m_body{7, 1, EntityType::Body};
    FakeSession& m_session;
    DraggedView m_view;
};

TEST_F(Drag, BandFollowsThePointerAndGoesAtTheEnd)
{
    EXPECT_FALSE(m_view.IsBandVisible());
    m_view.Drag(10, 10, IViewOpState::Start);
    EXPECT_TRUE(m_view.IsBandVisible());
    m_view.Drag(30, 30, IViewOpState::Processing);
    EXPECT_TRUE(m_view.IsBandVisible());
    m_view.Drag(30, 30, IViewOpState::End);
    EXPECT_FALSE(m_view.IsBandVisible());
}

TEST_F(Drag, EndSelectsUpToTheLastPointOnTheWay)
{
    m_view.Drag(10, 10, IViewOpState::Start);
    m_view.Drag(90, 90, IViewOpState::Processing);
    // The end of a drag may report no place.
    m_view.Drag(0, 0, IViewOpState::End);

    EXPECT_EQ(m_session.m_picked, std::vector<EntityId>{m_body});
}

TEST_F(Drag, FromLeftToRightOnlyEnclosedBodiesAreSelected)
{
    m_view.Drag(10, 10, IViewOpState::Start);
    m_view.Drag(50, 90, IViewOpState::Processing);
    m_view.Drag(50, 90, IViewOpState::End);

    EXPECT_TRUE(m_session.m_picked.empty());
}

TEST_F(Drag, FromRightToLeftTouchedBodiesAreSelected)
{
    m_view.Drag(50, 90, IViewOpState::Start);
    m_view.Drag(10, 10, IViewOpState::Processing);
    m_view.Drag(10, 10, IViewOpState::End);

    EXPECT_EQ(m_session.m_picked, std::vector<EntityId>{m_body});
}

TEST_F(Drag, ResetHidesTheBandAndSelectsNothing)
{
    m_view.Drag(10, 10, IViewOpState::Start);
    m_view.Drag(90, 90, IViewOpState::Processing);
    m_view.Drag(90, 90, IViewOpState::Reset);

    EXPECT_FALSE(m_view.IsBandVisible());
    EXPECT_TRUE(m_session.m_picked.empty());
    m_view.Drag(90, 90, IViewOpState::End);
    EXPECT_TRUE(m_session.m_picked.empty());
}

TEST_F(Drag, ShakingHandSelectsNothing)
{
    m_view.Drag(50, 50, IViewOpState::Start);
    m_view.Drag(51, 49, IViewOpState::Processing);
    m_view.Drag(51, 49, IViewOpState::End);

    EXPECT_TRUE(m_session.m_calls.empty());
}

using BandPicture = ViewTest;

TEST_F(BandPicture, BandIsDrawnOverTheModel)
{
    DraggedView view;
    view.SetWindowSize(64, 64);
    view.SetBackgroundColor(1, kBlack);
    view.SetBackgroundColor(2, kBlack);
    PlaceCamera(view);
    MakeCurrentFakeSession().m_fakeView = &view;
    view.Drag(16, 16, IViewOpState::Start);
    view.Drag(48, 40, IViewOpState::Processing);
    ASSERT_TRUE(view.ReadImage(64, 64, m_image));

    EXPECT_GT(ColorAt(0.0, 0.0).b, 20) << "inside: a thin wash";
    EXPECT_LT(ColorAt(0.0, 0.0).b, 120);
    EXPECT_EQ(At(0.0, -0.6), Shows::Black) << "below the band";
    bool isOutlined = false;
    for (int y = 38; y <= 41; ++y)
        isOutlined |= m_image.rgba[static_cast<std::size_t>((y * 64 + 32) * 4 + 2)] > 150;
    EXPECT_TRUE(isOutlined);
}

} // namespace
} // namespace ViewOpenGl
