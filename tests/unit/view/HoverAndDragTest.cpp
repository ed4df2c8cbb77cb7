#include "../tree/RecordingViewObject.h"
#include "ViewSessionFixture.h"

#include "OrvikCore/ViewOpDrag.h"
#include "OrvikCore/ViewOpHighlight.h"
#include "OrvikCore/ViewOpHitTest.h"

#include <stdexcept>

using OrvikCore::IViewOpState;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

namespace {

class AView3DControllerAdapterHover : public ViewSession
{
protected:
    void hover(bool enhanced = false)
    {
        OrvikCore::ViewOpHitTest op(11, 12, enhanced);
        m_view.hitTest(&op);
    }
    void highlight(TambVizCore::EntityId* entity, bool on)
    {
        OrvikCore::ViewOpHighlight op(entity, on);
        m_view.highlight(&op);
    }
};

/// A view with a rubber band.
class AView3DControllerAdapterDrag : public ViewSession
{
protected:
    AView3DControllerAdapterDrag()
    {
        m_band = new RecordingViewObject("Rubberband", m_bandLog);
        m_band->Render();
        m_band->visible = false;
        m_bandLog.clear();
        m_view.m_manager.Add("Rubberband", m_band);
    }
    ~AView3DControllerAdapterDrag() override
    {
        m_view.m_manager.Remove(m_band);
        delete m_band;
        m_gate.Open();
    }

    void drag(int state)
    {
        OrvikCore::ViewOpDrag op(400, 300, static_cast<IViewOpState>(state));
        m_view.drag(&op);
    }

    std::vector<std::string> m_bandLog;
    RecordingViewObject* m_band = nullptr;
    GateJob m_gate;
};

/// The same while a job runs.
class AView3DControllerAdapterBusyDrag : public AView3DControllerAdapterDrag
{
protected:
    AView3DControllerAdapterBusyDrag() { occupyWorker(m_gate); }
};

} // namespace

TEST_F(AView3DControllerAdapterHover, AsksThePixelUnderThePointer)
{
    hover();

    EXPECT_THAT(m_view.m_calls, ElementsAre("id at 11 12"));
}

TEST_F(AView3DControllerAdapterHover, OverNothingClearsTheHighlight)
{
    holder().Highlight(nodeId(7));

    hover();

    EXPECT_THAT(highlighted(), IsEmpty());
}

TEST_F(AView3DControllerAdapterHover, OverAnItemHighlightsItWithAToolTip)
{
    m_view.m_idAtPixel = nodeId(7);
    m_renderer->m_toolTip = L"a face";

    hover();

    EXPECT_THAT(highlighted(), ElementsAre(7u));
    EXPECT_THAT(m_output.m_toolTips, ElementsAre(L"a face"));
}

TEST_F(AView3DControllerAdapterHover, OverOneExpandedItemHighlightsThat)
{
    m_view.m_idAtPixel = nodeId(7);
    m_renderer->m_expanded = {nodeId(8)};

    hover();

    EXPECT_THAT(highlighted(), ElementsAre(8u));
}

TEST_F(AView3DControllerAdapterHover, OverAHighlightedItemDoesNothing)
{
    m_view.m_idAtPixel = nodeId(7);
    holder().Highlight(nodeId(7));
    m_renderer->m_toolTip = L"a face";

    hover();

    EXPECT_THAT(highlighted(), ElementsAre(7u));
    EXPECT_THAT(m_output.m_toolTips, IsEmpty());
}

TEST_F(AView3DControllerAdapterHover, OverSeveralItemsSelectsThemFromLastToFirst)
{
    m_view.m_idAtPixel = nodeId(7);
    m_view.m_root.CreateChildNode(9);
    m_renderer->m_expanded = {nodeId(7), nodeId(8)};
    holder().Select(nodeId(9));
    holder().Highlight(nodeId(9));

    hover();

    EXPECT_THAT(selected(), ElementsAre(9u, 8u, 7u));
    EXPECT_THAT(highlighted(), ElementsAre(9u)) << "nothing is cleared";
}

TEST_F(AView3DControllerAdapterHover, OverAnItemThatExpandsToNothingDoesNothing)
{
    m_view.m_idAtPixel = nodeId(7);
    m_session.DeleteAllRenderers();

    hover();

    EXPECT_THAT(highlighted(), IsEmpty());
    EXPECT_THAT(selected(), IsEmpty());
}

TEST_F(AView3DControllerAdapterHover, OfNoViewAdapterOrOperationDoesNothing)
{
    holder().Highlight(nodeId(7));

    m_view.hitTest(nullptr);
    m_view.m_hasAdapter = false;
    hover();
    m_view.SetView3D(nullptr);
    hover();

    EXPECT_THAT(highlighted(), ElementsAre(7u));
    EXPECT_THAT(m_view.m_calls, IsEmpty());
}

TEST_F(AView3DControllerAdapterHover, EnhancedAsksTheContentsInOrderUntilOneAnswers)
{
    ScriptedContent* second = addContent("second");
    addContent("third");
    second->m_onHighlight = [] { return true; };
    m_view.m_idAtPixel = nodeId(7);

    hover(/*enhanced=*/true);

    EXPECT_THAT(m_log, ElementsAre("content.TryHighlight", "second.TryHighlight"));
    EXPECT_EQ(second->m_idAsked, nodeId(7));
    EXPECT_THAT(highlighted(), IsEmpty()) << "that is left to the content";
}

TEST_F(AView3DControllerAdapterHover, EnhancedGoesOnAfterAContentThatThrows)
{
    addContent("second");
    m_content->m_onHighlight = []() -> bool { throw std::runtime_error("no index"); };
    m_view.m_idAtPixel = nodeId(7);

    hover(/*enhanced=*/true);

    EXPECT_THAT(m_log, ElementsAre("content.TryHighlight", "second.TryHighlight"));
}

TEST_F(AView3DControllerAdapterHover, EnhancedOverNothingAsksNobody)
{
    hover(/*enhanced=*/true);

    EXPECT_THAT(m_log, IsEmpty());
}

TEST_F(AView3DControllerAdapterHover, HighlightOnHighlightsTheEntity)
{
    TambVizCore::EntityId entity = m_entity;

    highlight(&entity, true);

    EXPECT_THAT(highlighted(), ElementsAre(7u));
}

TEST_F(AView3DControllerAdapterHover, HighlightOffClearsTheHighlight)
{
    TambVizCore::EntityId entity = m_entity;
    holder().Highlight(nodeId(7));

    highlight(&entity, false);

    EXPECT_THAT(highlighted(), IsEmpty());
}

TEST_F(AView3DControllerAdapterHover, HighlightOfNullClearsTheHighlight)
{
    holder().Highlight(nodeId(7));

    highlight(nullptr, true);

    EXPECT_THAT(highlighted(), IsEmpty());
}

TEST_F(AView3DControllerAdapterHover, HighlightOfAnEmptyEntityClearsTheHighlight)
{
    TambVizCore::EntityId empty;
    holder().Highlight(nodeId(7));

    highlight(&empty, true);

    EXPECT_THAT(highlighted(), IsEmpty());
}

TEST_F(AView3DControllerAdapterHover, NullHighlightOperationDoesNothing)
{
    holder().Highlight(nodeId(7));

    m_view.highlight(nullptr);

    EXPECT_THAT(highlighted(), ElementsAre(7u));
}

TEST_F(AView3DControllerAdapterBusyDrag, StartShowsTheBandAndPicks)
{
    drag(1);

    EXPECT_TRUE(m_band->IsVisible());
    EXPECT_THAT(m_view.m_picks, SizeIs(1));
}

TEST_F(AView3DControllerAdapterBusyDrag, ProcessingDisplaysTheBand)
{
    m_band->visible = true;

    drag(2);

    EXPECT_THAT(m_bandLog, ElementsAre("Rubberband.display"));
    EXPECT_THAT(m_view.m_picks, IsEmpty());
}

TEST_F(AView3DControllerAdapterBusyDrag, EndHidesTheBandAndPicks)
{
    m_band->visible = true;

    drag(3);

    EXPECT_FALSE(m_band->IsVisible());
    EXPECT_THAT(m_view.m_picks, SizeIs(1));
}

TEST_F(AView3DControllerAdapterBusyDrag, AnyOtherStateHidesTheBandWithoutAPick)
{
    m_band->visible = true;
    drag(4);
    EXPECT_FALSE(m_band->IsVisible());

    m_band->visible = true;
    drag(0);
    EXPECT_FALSE(m_band->IsVisible());
    EXPECT_THAT(m_view.m_picks, IsEmpty());
}

TEST_F(AView3DControllerAdapterDrag, DoesNothingWhileTheDispatcherIsIdle)
{
    m_band->visible = true;

    drag(1);
    drag(2);
    drag(4);

    EXPECT_TRUE(m_band->IsVisible());
    EXPECT_THAT(m_bandLog, IsEmpty());
    EXPECT_THAT(m_view.m_picks, IsEmpty());
}

TEST_F(AView3DControllerAdapterDrag, EndsWhileTheDispatcherIsIdleToo)
{
    m_band->visible = true;

    drag(3);

    EXPECT_FALSE(m_band->IsVisible());
    EXPECT_THAT(m_view.m_picks, SizeIs(1));
}

TEST_F(AView3DControllerAdapterDrag, PicksWithAnApertureOfFourPixelsFromOutside)
{
    m_view.m_radius = 1000.0f;

    drag(3);

    ASSERT_THAT(m_view.m_picks, SizeIs(1));
    EXPECT_NEAR(m_view.m_picks[0].Radius(), 0.552285, 1e-5);
    EXPECT_NEAR(m_view.m_picks[0].Origin()[2], 2099.0f, 0.1f);
    EXPECT_THAT(m_log, IsEmpty()) << "the document is not asked";
}

TEST_F(AView3DControllerAdapterDrag, WithoutABandDoesNothing)
{
    m_view.m_manager.Remove(m_band);

    drag(3);

    EXPECT_THAT(m_view.m_picks, IsEmpty());
}

TEST_F(AView3DControllerAdapterDrag, WithoutAManagerDoesNothing)
{
    m_view.m_hasManager = false;

    drag(3);

    EXPECT_THAT(m_view.m_picks, IsEmpty());
}

TEST_F(AView3DControllerAdapterDrag, InAViewWithoutObjectsDoesNothing)
{
    TestView plain;
    OrvikCore::ViewOpDrag op(1, 2, IViewOpState::End);

    plain.drag(&op);

    EXPECT_THAT(plain.m_picks, IsEmpty());
}

TEST_F(AView3DControllerAdapterDrag, OfNoViewOrOperationDoesNothing)
{
    m_view.drag(nullptr);
    m_view.SetView3D(nullptr);

    drag(3);

    EXPECT_THAT(m_view.m_picks, IsEmpty());
}
