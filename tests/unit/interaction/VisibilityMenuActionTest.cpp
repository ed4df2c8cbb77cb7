#include "OrvikCore/VisibilityMenuAction.h"

#include "../jobs/DispatcherFixture.h"
#include "FakeContent.h"
#include "FakeRenderer.h"
#include "FakeSession.h"
#include "FakeView3D.h"

#include "OrvikCore/Document.h"

#include <TambVizCore/ViewDoUndoStrategy.h>

#include <gtest/gtest.h>

#include <memory>

using OrvikCore::VisibilityMenuAction;
using TambVizCore::EntityId;
using TambVizCore::EntityType;
using TambVizCore::RenderId;

namespace {

RenderId idOf(std::uint32_t origin, std::initializer_list<std::uint64_t> path)
{
    RenderId id(origin);
    for (const std::uint64_t value : path) {
        id.AddValue(value);
    }
    return id;
}

/// A session with a content that is drawn by node 7 (with node 8 beside) and shown by row 2/5.
class VisibilityMenuActionTest : public DispatcherTest
{
protected:
    VisibilityMenuActionTest()
    {
        m_body = m_view.m_root.CreateChildNode(7);
        m_other = m_view.m_root.CreateChildNode(8);
        m_strategy = std::make_unique<TambVizCore::ViewDoUndoStrategy>(m_view.m_root);
        m_view.m_adapter.m_strategy = m_strategy.get();
        m_session.m_fakeView = &m_view;
        auto* content = new FakeContent(m_session.Document(), "content", m_log);
        m_session.Document().AddContent(*content);
        m_renderer = new Fake3DRenderer(content);
        m_renderer->m_pairs = {{idOf(1, {7}), m_entity}};
        m_tree = new FakeTreeRenderer(content);
        m_tree->m_pairs = {{m_row, m_entity}};
        m_session.AddRenderer(m_renderer, false);
        m_session.AddRenderer(m_tree, false);
    }
    ~VisibilityMenuActionTest() override
    {
        m_session.DeleteAllRenderers();
        OrvikCore::SessionMgr::Instance().Terminate();
    }

    /// Takes one of the renderers away.
    void remove(OrvikCore::IContentRenderer* kept)
    {
        OrvikCore::IContentRenderer* gone =
            kept == m_renderer ? static_cast<OrvikCore::IContentRenderer*>(m_tree) : m_renderer;
        const bool isTree = gone == m_tree;
        m_session.DeleteAllRenderers();
        if (isTree) {
            m_renderer = new Fake3DRenderer(m_session.Document().GetContentList().front());
            m_session.AddRenderer(m_renderer, false);
        } else {
            m_tree = new FakeTreeRenderer(m_session.Document().GetContentList().front());
            m_session.AddRenderer(m_tree, false);
        }
    }

    CallLog m_log;
    FakeView3D m_view;
    TambVizCore::Node* m_body = nullptr;
    TambVizCore::Node* m_other = nullptr;
    std::unique_ptr<TambVizCore::ViewDoUndoStrategy> m_strategy;
    FakeSession& m_session = MakeCurrentFakeSession();
    Fake3DRenderer* m_renderer = nullptr; ///< Owned by the session.
    FakeTreeRenderer* m_tree = nullptr;   ///< Owned by the session.
    const EntityId m_entity{6, 5, static_cast<EntityType>(10003)};
    const RenderId m_row = idOf(2, {2, 5});
    VisibilityMenuAction m_hide{false};
    VisibilityMenuAction m_unhide{true};
};

} // namespace

TEST_F(VisibilityMenuActionTest, HidesWhatTheNodeShows)
{
    EXPECT_TRUE(m_hide.Run(m_row));

    EXPECT_FALSE(m_body->IsVisible());
    EXPECT_TRUE(m_other->IsVisible());
}

TEST_F(VisibilityMenuActionTest, UnhidesWhatTheNodeShows)
{
    m_body->SetVisible(false);

    EXPECT_TRUE(m_unhide.Run(m_row));

    EXPECT_TRUE(m_body->IsVisible());
}

TEST_F(VisibilityMenuActionTest, RefreshesTheView)
{
    m_hide.Run(m_row);

    EXPECT_EQ(m_view.m_calls, (std::vector<std::string>{"UpdateDisplay"}));
}

TEST_F(VisibilityMenuActionTest, CanBeUndoneInOneStep)
{
    m_renderer->m_expanded = {idOf(1, {7}), RenderId(1), idOf(1, {8})};
    m_hide.Run(m_row);
    EXPECT_FALSE(m_body->IsVisible());
    EXPECT_FALSE(m_other->IsVisible());

    EXPECT_TRUE(m_strategy->Undo());

    EXPECT_TRUE(m_body->IsVisible());
    EXPECT_TRUE(m_other->IsVisible());
}

TEST_F(VisibilityMenuActionTest, RefusesAPathThatTheTreeBuilderDidNotMake)
{
    EXPECT_FALSE(m_hide.Run(idOf(1, {2, 5})));
    EXPECT_FALSE(m_hide.Run(idOf(0, {2, 5})));

    EXPECT_TRUE(m_body->IsVisible());
    EXPECT_TRUE(m_view.m_calls.empty());
}

TEST_F(VisibilityMenuActionTest, NodeWithoutEntityOnlyRefreshes)
{
    EXPECT_TRUE(m_hide.Run(idOf(2, {9})));

    EXPECT_TRUE(m_body->IsVisible());
    EXPECT_EQ(m_strategy->UndoCount(), 0u);
    EXPECT_EQ(m_view.m_calls, (std::vector<std::string>{"UpdateDisplay"}));
}

TEST_F(VisibilityMenuActionTest, EntityThatCannotBeExpandedIsRefused)
{
    m_renderer->m_expands = false;

    EXPECT_FALSE(m_hide.Run(m_row));

    EXPECT_TRUE(m_body->IsVisible());
    EXPECT_TRUE(m_view.m_calls.empty());
}

TEST_F(VisibilityMenuActionTest, EntityThatIsNotDrawnIsRefused)
{
    m_renderer->m_pairs.clear();

    EXPECT_FALSE(m_hide.Run(m_row));

    EXPECT_TRUE(m_view.m_calls.empty());
}

TEST_F(VisibilityMenuActionTest, NeedsATreeRenderer)
{
    remove(m_renderer);

    EXPECT_FALSE(m_hide.Run(m_row));
}

TEST_F(VisibilityMenuActionTest, NeedsA3DRenderer)
{
    remove(m_tree);

    EXPECT_FALSE(m_hide.Run(m_row));
}

TEST_F(VisibilityMenuActionTest, NeedsAView)
{
    m_session.m_fakeView = nullptr;

    EXPECT_FALSE(m_hide.Run(m_row));
}

TEST_F(VisibilityMenuActionTest, NeedsAnAdapter)
{
    m_view.m_hasAdapter = false;

    EXPECT_FALSE(m_hide.Run(m_row));
}

TEST_F(VisibilityMenuActionTest, NeedsAnUndoStrategy)
{
    m_view.m_adapter.m_strategy = nullptr;

    EXPECT_FALSE(m_hide.Run(m_row));
    EXPECT_TRUE(m_body->IsVisible());
}
