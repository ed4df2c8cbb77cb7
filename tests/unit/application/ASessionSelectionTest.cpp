// Selection, highlight, zoom and the conversions behind them.
#include "SessionFixture.h"

#include "OrvikCore/ASession.h"

#include <stdexcept>

namespace {

using ASessionSelection = LinkedSessionTest;
using Calls = std::vector<std::string>;
using Messages = std::vector<RecordingOutputListener::Message>;
using TambVizCore::EntityId;
using TambVizCore::EntityType;
using TambVizCore::RenderId;
using TambVizCore::SetAllowThrow;
using TambVizCore::VizBox;

/// The text of the std::invalid_argument that @p action throws; "<none>" without one.
template <typename Action> std::string textThrown(Action action)
{
    try {
        action();
    } catch (const std::invalid_argument& error) {
        return error.what();
    }
    return "<none>";
}

TEST_F(ASessionSelection, HighlightOfAViewIdHighlightsInTheView)
{
    session().Highlight(viewId(11));

    EXPECT_EQ(highlighted(), (Ids{viewId(11)}));
    EXPECT_TRUE(selected().empty());
}

TEST_F(ASessionSelection, HighlightOfAViewIdHighlightsItsRowInTheTree)
{
    addTreeRenderer();
    RecordingViewTree& tree = addTree();

    session().Highlight(viewId(11));

    EXPECT_EQ(tree.m_highlighted, (Ids{treeId(22)}));
    EXPECT_TRUE(m_listener.m_toolTips.empty());
}

TEST_F(ASessionSelection, HighlightOfAnUnknownViewIdLeavesTheTreeAlone)
{
    addTreeRenderer();
    RecordingViewTree& tree = addTree();

    session().Highlight(viewId(99));

    EXPECT_EQ(highlighted(), (Ids{viewId(99)}));
    EXPECT_TRUE(tree.m_calls.empty());
}

TEST_F(ASessionSelection, HighlightWithATreeButNoTreeRendererClearsTheTree)
{
    RecordingViewTree& tree = addTree();

    session().Highlight(viewId(11));

    EXPECT_EQ(tree.m_calls, (Calls{"ClearHighlight"}));
}

TEST_F(ASessionSelection, EmptyViewIdClearsTheHighlight)
{
    session().Highlight(viewId(11));

    session().Highlight(RenderId(1));

    EXPECT_TRUE(highlighted().empty());
}

TEST_F(ASessionSelection, HighlightOfATreeIdSelectsInTheView)
{
    addTreeRenderer();
    m_renderer.m_expanded = {viewId(11), viewId(12)};

    session().Highlight(treeId(22));

    EXPECT_TRUE(highlighted().empty());
    EXPECT_EQ(selected(), (Ids{viewId(11), viewId(12)}));
}

TEST_F(ASessionSelection, UnknownOriginIsSilentWhereThrowingIsForbidden)
{
    session().Highlight(RenderId());
    session().Select(RenderId(3));

    EXPECT_TRUE(highlighted().empty());
    EXPECT_TRUE(selected().empty());
}

TEST_F(ASessionSelection, UnknownOriginThrowsWhereThrowingIsAllowed)
{
    SetAllowThrow(true);

    EXPECT_EQ(textThrown([this] { session().Highlight(RenderId()); }),
              "RenderId has Unknown origin");
    EXPECT_EQ(textThrown([this] { session().Select(RenderId(3)); }), "RenderId has Unknown origin");
    EXPECT_EQ(textThrown([this] { session().ZoomTo(RenderId()); }), "RenderId has Unknown origin");
}

TEST_F(ASessionSelection, SelectOfAViewIdWithoutATreeShowsNoToolTip)
{
    m_renderer.m_toolTip = L"a body";

    session().Select(viewId(11));

    EXPECT_EQ(selected(), (Ids{viewId(11)}));
    EXPECT_TRUE(m_listener.m_toolTips.empty());
}

TEST_F(ASessionSelection, SelectOfAViewIdHighlightsInTheTree)
{
    addTreeRenderer();
    RecordingViewTree& tree = addTree();
    m_renderer.m_toolTip = L"a body";

    session().Select(viewId(11));

    EXPECT_EQ(tree.m_highlighted, (Ids{treeId(22)}));
    EXPECT_EQ(m_listener.m_toolTips, (std::vector<std::wstring>{L"a body"}));
}

TEST_F(ASessionSelection, SelectOfATreeIdSelectsInTheViewAndShowsTheToolTipOfTheTree)
{
    addTreeRenderer();
    RecordingViewTree& tree = addTree();
    m_renderer.m_expanded = {viewId(11), viewId(12)};
    m_renderer.m_toolTip = L"in the view";
    m_treeRenderer.m_toolTip = L"in the tree";

    session().Select(treeId(22));

    EXPECT_EQ(selected(), (Ids{viewId(11), viewId(12)}));
    EXPECT_TRUE(tree.m_calls.empty());
    EXPECT_EQ(m_listener.m_toolTips, (std::vector<std::wstring>{L"in the tree"}));
}

TEST_F(ASessionSelection, SelectOfAnUnknownTreeIdSelectsNothing)
{
    addTreeRenderer();
    m_treeRenderer.m_toolTip = L"in the tree";

    session().Select(treeId(99));

    EXPECT_TRUE(selected().empty());
    EXPECT_TRUE(m_listener.m_toolTips.empty());
}

TEST_F(ASessionSelection, EmptyViewIdClearsTheSelection)
{
    session().Select(viewId(11));

    session().Select(RenderId(1));

    EXPECT_TRUE(selected().empty());
}

TEST_F(ASessionSelection, EmptyToolTipIsNotShown)
{
    addTreeRenderer();
    addTree();

    session().Select(viewId(11));

    EXPECT_TRUE(m_listener.m_toolTips.empty());
}

TEST_F(ASessionSelection, ToolTipOfAnotherOriginIsNotShown)
{
    m_renderer.m_toolTip = L"a body";

    session().ShowToolTip(RenderId(3));
    EXPECT_TRUE(m_listener.m_toolTips.empty());
    session().ShowToolTip(viewId(11));
    EXPECT_EQ(m_listener.m_toolTips.size(), 1u);
}

/// Notes the RenderIds that the overloads for entities call through the table.
class OverloadSession : public OpenSession
{
public:
    using OrvikCore::ASession::Highlight;
    using OrvikCore::ASession::Select;
    void Highlight(const RenderId& id) override { m_highlightIds.push_back(id); }
    void Select(const RenderId& id) override { m_selectIds.push_back(id); }

    std::vector<RenderId> m_highlightIds;
    std::vector<RenderId> m_selectIds;
};

TEST_F(ASessionSelection, EntitiesGoThroughTheTableWithOriginOne)
{
    OverloadSession other;
    auto* const content = new FakeContent(other.Document(), "content", m_contentLog);
    other.Document().AddContent(*content);
    Fake3DRenderer renderer(content);
    RenderId bare;
    bare.AddValue(11);
    renderer.m_pairs = {{bare, body(33)}};
    other.AddRenderer(&renderer, /*keep=*/false);

    other.Highlight(body(33));
    other.Select(body(33));

    EXPECT_EQ(other.m_highlightIds, (Ids{viewId(11)}));
    EXPECT_EQ(other.m_selectIds, (Ids{viewId(11)}));
}

TEST_F(ASessionSelection, HighlightOfAnUnknownEntityThrowsWhereThrowingIsAllowed)
{
    session().Highlight(body(99));
    SetAllowThrow(true);

    EXPECT_EQ(textThrown([this] { session().Highlight(body(99)); }),
              "Could not convert EntityId to RenderId in ASession::Highlight");
    EXPECT_TRUE(m_listener.Messages().empty());
}

TEST_F(ASessionSelection, SelectOfAnUnknownEntityPrintsAndNeverThrows)
{
    SetAllowThrow(true);

    session().Select(body(99));

    EXPECT_EQ(m_listener.Messages(),
              (Messages{{L"Could not convert EntityId to RenderId in ASession::Select", 0}}));
}

TEST_F(ASessionSelection, UnHighlightClearsTheHighlightsOfViewAndTree)
{
    RecordingViewTree& tree = addTree();
    view().m_selection.Highlight(viewId(1));
    view().m_selection.Select(viewId(2));

    session().UnHighlight();

    EXPECT_TRUE(highlighted().empty());
    EXPECT_EQ(selected(), (Ids{viewId(2)}));
    EXPECT_EQ(tree.m_calls, (Calls{"ClearHighlight"}));
}

TEST_F(ASessionSelection, UnSelectClearsTheSelectionOfTheViewAndTheHighlightOfTheTree)
{
    RecordingViewTree& tree = addTree();
    view().m_selection.Highlight(viewId(1));
    view().m_selection.Select(viewId(2));

    session().UnSelect();

    EXPECT_EQ(highlighted(), (Ids{viewId(1)}));
    EXPECT_TRUE(selected().empty());
    EXPECT_EQ(tree.m_calls, (Calls{"ClearHighlight"}));
}

TEST_F(ASessionSelection, ConversionsStopAtTheFirstContentThatSucceeds)
{
    OrvikCore::AContent& second = addContent("second");
    Fake3DRenderer other(&second);
    other.m_pairs = {{viewId(11), body(44)}, {viewId(12), body(45)}};
    session().AddRenderer(&other, /*keep=*/false);
    EntityId entity;
    OrvikCore::IContentRenderer* renderer = nullptr;

    EXPECT_TRUE(session().convert3DViewRenderIdToEntityId(viewId(11), entity, renderer));
    EXPECT_EQ(entity, body(33));
    EXPECT_EQ(renderer, &m_renderer);
    EXPECT_TRUE(session().convert3DViewRenderIdToEntityId(viewId(12), entity, renderer));
    EXPECT_EQ(entity, body(45));
    EXPECT_EQ(renderer, &other);
}

TEST_F(ASessionSelection, ConversionsOfEntitiesTellTheirRenderer)
{
    RenderId id;
    OrvikCore::IContentRenderer* renderer = nullptr;

    EXPECT_TRUE(session().convert3DViewEntityIdToRenderId(body(33), id, renderer));
    EXPECT_EQ(id, viewId(11));
    EXPECT_EQ(renderer, &m_renderer);
    EXPECT_FALSE(session().convert3DViewEntityIdToRenderId(body(99), id, renderer));
}

TEST_F(ASessionSelection, ConversionToTheTreeIsTheFirstStepWithoutATreeRenderer)
{
    RenderId id;

    EXPECT_TRUE(session().convertToViewTreeId(viewId(11), id));
    EXPECT_TRUE(id.IsEmpty());
    EXPECT_FALSE(session().convertToViewTreeId(viewId(99), id));
}

TEST_F(ASessionSelection, ConversionToTheTreeFailsWhereTheTreeRendererDoes)
{
    addTreeRenderer();
    m_treeRenderer.m_pairs.clear();
    RenderId id;
    SetAllowThrow(true);

    EXPECT_FALSE(session().convertToViewTreeId(viewId(11), id));
}

TEST_F(ASessionSelection, ConversionToTheTreeReportsTheEntityLeftBehind)
{
    const EntityId left(6, 5, EntityType::Body);
    m_renderer.m_entityOnFailure = left;
    SetAllowThrow(true);
    RenderId id;

    EXPECT_EQ(textThrown([&] { session().convertToViewTreeId(viewId(99), id); }),
              "Could not convert " + left.ToString() +
                  " to RenderId in ASession::convertToViewTreeId");
}

TEST_F(ASessionSelection, ConversionToTheTreeReportsNoBlankEntity)
{
    SetAllowThrow(true);
    RenderId id;

    EXPECT_FALSE(session().convertToViewTreeId(viewId(99), id));
    m_renderer.m_entityOnFailure = EntityId(10003, 10003, EntityType::Body);
    EXPECT_FALSE(session().convertToViewTreeId(viewId(99), id));
}

TEST_F(ASessionSelection, ConversionToTheTreeReportsNothingWithoutAGraphic)
{
    m_renderer.m_entityOnFailure = EntityId(6, 5, EntityType::NonGraphical);
    SetAllowThrow(true);
    RenderId id;

    EXPECT_FALSE(session().convertToViewTreeId(viewId(99), id));
}

TEST_F(ASessionSelection, ConversionToTheTreeIsSilentWhereThrowingIsForbidden)
{
    m_renderer.m_entityOnFailure = EntityId(6, 5, EntityType::Body);
    RenderId id;

    EXPECT_FALSE(session().convertToViewTreeId(viewId(99), id));
}

TEST_F(ASessionSelection, ConversionToTheViewExpandsTheId)
{
    addTreeRenderer();
    m_renderer.m_expanded = {viewId(12), viewId(13)};
    Ids ids{viewId(1)};

    EXPECT_TRUE(session().convertToView3DId(treeId(22), ids));

    EXPECT_EQ(ids, (Ids{viewId(12), viewId(13)}));
}

TEST_F(ASessionSelection, ConversionToTheViewEmptiesTheListFirst)
{
    Ids ids{viewId(1)};

    EXPECT_FALSE(session().convertToView3DId(treeId(22), ids));

    EXPECT_TRUE(ids.empty());
}

TEST_F(ASessionSelection, ConversionToTheViewFailsWhereTheExpansionDoes)
{
    addTreeRenderer();
    m_renderer.m_expands = false;
    Ids ids;

    EXPECT_FALSE(session().convertToView3DId(treeId(22), ids));
}

TEST_F(ASessionSelection, ConversionToTheViewReportsTheEntityWithoutAnItem)
{
    addTreeRenderer();
    m_renderer.m_pairs.clear();
    SetAllowThrow(true);
    Ids ids;

    EXPECT_EQ(textThrown([&] { session().convertToView3DId(treeId(22), ids); }),
              "Could not convert " + body(33).ToString() +
                  " to RenderId in ASession::convertToView3DId");
}

TEST_F(ASessionSelection, ConversionToTheViewReportsNoRowThatIsUnknown)
{
    addTreeRenderer();
    m_treeRenderer.m_entityOnFailure = EntityId(6, 5, EntityType::Body);
    SetAllowThrow(true);
    Ids ids;

    EXPECT_FALSE(session().convertToView3DId(treeId(99), ids));
}

TEST_F(ASessionSelection, ConversionToTheViewReportsNothingWithoutAGraphic)
{
    addTreeRenderer();
    m_treeRenderer.m_pairs = {{treeId(22), EntityId(6, 5, EntityType::NonGraphical)}};
    SetAllowThrow(true);
    Ids ids;

    EXPECT_FALSE(session().convertToView3DId(treeId(22), ids));
}

TEST_F(ASessionSelection, ZoomToAViewIdLeavesTheCameraAlone)
{
    view().m_box = VizBox(0, 0, 0, 1, 1, 1);
    SetAllowThrow(true);

    EXPECT_FALSE(session().ZoomTo(viewId(11)));

    EXPECT_TRUE(view().m_camera.m_boxes.empty());
}

TEST_F(ASessionSelection, ZoomToATreeIdZoomsToTheBoxOfItsFirstItem)
{
    addTreeRenderer();
    m_renderer.m_expanded = {viewId(12), viewId(13)};
    view().m_box = VizBox(1, 2, 3, 4, 5, 6);

    EXPECT_TRUE(session().ZoomTo(treeId(22)));

    EXPECT_EQ(view().m_boxIdAsked, viewId(12));
    EXPECT_EQ(view().m_camera.m_boxes, (std::vector<std::vector<float>>{{1, 2, 3, 4, 5, 6}}));
}

TEST_F(ASessionSelection, ZoomToATreeIdNeedsAnItemThatIsNotEmpty)
{
    addTreeRenderer();
    m_renderer.m_expanded = {RenderId(1)};
    view().m_box = VizBox(1, 2, 3, 4, 5, 6);

    EXPECT_FALSE(session().ZoomTo(treeId(22)));
}

TEST_F(ASessionSelection, ZoomToATreeIdNeedsABox)
{
    addTreeRenderer();

    EXPECT_FALSE(session().ZoomTo(treeId(22)));

    EXPECT_TRUE(view().m_camera.m_boxes.empty());
}

TEST_F(ASessionSelection, ZoomToATreeIdNeedsAConversion)
{
    addTreeRenderer();
    view().m_box = VizBox(1, 2, 3, 4, 5, 6);

    EXPECT_FALSE(session().ZoomTo(treeId(99)));
}

TEST_F(ASessionSelection, ZoomToAnEntityZoomsToItsBox)
{
    view().m_box = VizBox(1, 2, 3, 4, 5, 6);

    EXPECT_TRUE(session().ZoomTo(body(33)));

    EXPECT_EQ(view().m_camera.m_boxes, (std::vector<std::vector<float>>{{1, 2, 3, 4, 5, 6}}));
}

TEST_F(ASessionSelection, ZoomToAnEntityNeedsABoxAndACamera)
{
    EXPECT_FALSE(session().ZoomTo(body(33)));

    view().m_box = VizBox(1, 2, 3, 4, 5, 6);
    view().m_hasCamera = false;
    EXPECT_FALSE(session().ZoomTo(body(33)));
}

TEST_F(ASessionSelection, ZoomToAnUnknownOriginIsFalseWhereThrowingIsForbidden)
{
    EXPECT_FALSE(session().ZoomTo(RenderId()));
}

} // namespace
