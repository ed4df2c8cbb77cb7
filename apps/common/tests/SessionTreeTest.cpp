#include "../HostTree.h"
#include "../PelluxSession.h"
#include "FakeContent.h"

#include <OrvikCore/ARendererTree.h>
#include <OrvikCore/ATreeRendererFactory.h>
#include <OrvikCore/Document.h>
#include <OrvikCore/SessionMgr.h>
#include <TambVizCore/RenderId.h>

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace {

using OrvikCore::AContent;
using OrvikCore::TreeBuilder;
using Pellux::HostTree;
using Pellux::PelluxSession;
using TambVizCore::EntityId;
using TambVizCore::EntityType;
using TambVizCore::RenderId;

/// A container row for the content, with a body below it, and below that, later, three faces.
class BodyTreeRenderer : public OrvikCore::ARendererTree
{
public:
    BodyTreeRenderer(AContent& drawn, OrvikCore::AViewTree* tree, std::uint64_t number)
        : ARendererTree(&drawn, tree, nullptr), m_number(number)
    {
    }

    bool Render() override
    {
        TreeBuilder& builder = *getTreeBuilder();
        builder.ContainerBegin(m_number, content->GetShortId());
        builder.BodyBegin(7, L"body");
        builder.BodyEnd();
        builder.ContainerEnd();
        return true;
    }
    bool Rerender() override { return Render(); }
    bool IsRendererFor(AContent* asked) override { return asked == content; }
    bool ConvertToEntityId(const RenderId& id, EntityId& entity) override
    {
        if (id.Length() != 3 || id[1] != m_number)
            return false;
        entity = EntityId(id[2], m_number, EntityType::Body);
        return true;
    }
    bool ConvertToRenderId(const EntityId& entity, RenderId& id) override
    {
        if (entity.Owner() != m_number)
            return false;
        id = RenderId(RenderId::kOriginTree);
        id.AddValue(kSceneRowId);
        id.AddValue(m_number);
        id.AddValue(entity.Value());
        return true;
    }
    bool ExpandRenderId(const RenderId& id, std::vector<RenderId>& ids) override
    {
        ids.assign(1, id);
        return id[1] == m_number;
    }
    bool Activate(RenderId&) override
    {
        ++m_activated;
        return true;
    }
    std::wstring GetToolTip(const RenderId&) override
    {
        return L"tip of " + std::to_wstring(m_number);
    }
    bool ExpandNode(const RenderId& path) override
    {
        if (path.Length() != 3 || path[1] != m_number)
            return false;
        view->ConstructionBegin(/*incremental=*/true);
        for (int i = 0; i < path.Length(); ++i)
            view->OpenNode(path[i], L"", nullptr);
        for (std::uint64_t face = 1; face <= 3; ++face)
            view->CreateNode(face, L"face", nullptr);
        view->ConstructionEnd();
        return true;
    }
    bool GetNodeStyle(const RenderId& path, TreeBuilder::TreeItemStyles& style) const override
    {
        if (path[1] != m_number)
            return false;
        style = TreeBuilder::TreeItemStyles::Body;
        return true;
    }

    static inline int m_activated = 0;

protected:
    void discard() override {}

private:
    std::uint64_t m_number;
};

class BodyTreeFactory : public OrvikCore::ATreeRendererFactory
{
public:
    std::string GetName() const override { return "Fake"; }
    OrvikCore::ARendererTree* CreateRenderer(AContent* drawn, OrvikCore::AViewTree* tree,
                                             TambVizCore::Node*) override
    {
        return new BodyTreeRenderer(*drawn, tree, std::stoull(drawn->GetLongId()));
    }
};

/// A session with a tree; contents have rows through the factory above.
class SessionTree : public testing::Test
{
protected:
    SessionTree()
    {
        OrvikCore::SessionMgr::Instance().RegisterTreeRendererFactory(new BodyTreeFactory);
        m_session.SetViewTree(m_tree);
    }

    void add(const std::wstring& name, int number)
    {
        auto added = std::make_unique<FakeContent>(m_session.Document(), "content", m_log);
        added->m_shortId = name;
        added->m_longId = std::to_wstring(number);
        m_session.Document().AddContent(*added.release());
        m_session.UpdateAfterContentModified();
    }

    /// The texts of the rows below the scene row; none without one.
    std::vector<std::wstring> contentRows() const
    {
        std::vector<std::wstring> texts;
        RenderId path(RenderId::kOriginTree);
        path.AddValue(OrvikCore::ARendererTree::kSceneRowId);
        const Pellux::HostTreeRow* const scene = m_tree->Find(path);
        for (std::size_t i = 0; scene != nullptr && i < scene->ChildCount(); ++i)
            texts.push_back(scene->ChildAt(i).Text());
        return texts;
    }

    static RenderId bodyPath(std::uint64_t number)
    {
        RenderId path(RenderId::kOriginTree);
        path.AddValue(OrvikCore::ARendererTree::kSceneRowId);
        path.AddValue(number);
        path.AddValue(7);
        return path;
    }

    CallLog m_log;
    PelluxSession m_session;
    /// Owned by the session once set.
    HostTree* m_tree = new HostTree(
        [this](const RenderId& path) { return m_session.GetTreeRenderer()->ExpandNode(path); });
};

using Texts = std::vector<std::wstring>;

TEST_F(SessionTree, HasARowForEachContent)
{
    add(L"a", 1);
    add(L"b", 2);

    EXPECT_EQ(contentRows(), (Texts{L"a", L"b"}));
    EXPECT_NE(m_tree->Find(bodyPath(2)), nullptr);
}

TEST_F(SessionTree, IsEmptyWithoutContent)
{
    m_session.RefreshTree();

    EXPECT_EQ(m_tree->Root().ChildCount(), 0u);
    EXPECT_NE(m_session.GetTreeRenderer(), nullptr);
}

TEST_F(SessionTree, IsNamedAfterTheOpenedModel)
{
    m_session.Document().SetOpenedModelName(L"pump.step");
    add(L"a", 1);

    EXPECT_EQ(m_tree->Root().ChildAt(0).Text(), L"pump.step");
    EXPECT_STREQ(m_tree->Root().ChildAt(0).KindWord(), "scene");
}

TEST_F(SessionTree, EmptiesWithTheRenderers)
{
    add(L"a", 1);
    m_tree->HighlightNode(bodyPath(1));

    m_session.DeleteAllRenderers();
    EXPECT_EQ(contentRows(), Texts{});
    m_session.UpdateAfterContentModified();

    EXPECT_EQ(contentRows(), Texts{L"a"});
    EXPECT_FALSE(m_tree->Find(bodyPath(1))->IsHighlighted());
}

TEST_F(SessionTree, ForgetsAContentThatIsGone)
{
    add(L"a", 1);
    add(L"b", 2);
    AContent* first = m_session.Document().GetContentList().front();

    m_session.Document().DeleteContent(first);
    m_session.UpdateAfterUndoRedo();

    EXPECT_EQ(contentRows(), Texts{L"b"});
}

TEST_F(SessionTree, StaysAsItIsWhileUpdatingIsSwitchedOff)
{
    add(L"a", 1);
    m_session.EnableUpdateOnContentModified(false);

    add(L"b", 2);

    EXPECT_EQ(contentRows(), Texts{L"a"});
}

TEST_F(SessionTree, KeepsItsHighlightWhenItIsRefreshed)
{
    add(L"a", 1);
    m_tree->HighlightNode(bodyPath(1));

    add(L"b", 2);

    EXPECT_TRUE(m_tree->Find(bodyPath(1))->IsHighlighted());
}

TEST_F(SessionTree, FillsARowByTheRendererThatKnowsIt)
{
    add(L"a", 1);
    add(L"b", 2);

    m_tree->Fill(bodyPath(2));

    EXPECT_EQ(m_tree->GetChildrenCountForNode(bodyPath(1)), 0);
    EXPECT_EQ(m_tree->GetChildrenCountForNode(bodyPath(2)), 3);
}

TEST_F(SessionTree, ConvertsByTheRendererThatKnowsTheRow)
{
    add(L"a", 1);
    add(L"b", 2);
    OrvikCore::ARendererTree& renderer = *m_session.GetTreeRenderer();
    EntityId entity;
    RenderId back;

    ASSERT_TRUE(renderer.ConvertToEntityId(bodyPath(2), entity));
    ASSERT_TRUE(renderer.ConvertToRenderId(entity, back));

    EXPECT_EQ(entity, EntityId(7, 2, EntityType::Body));
    EXPECT_EQ(back, bodyPath(2));
    EXPECT_FALSE(renderer.ConvertToEntityId(bodyPath(3), entity));
    EXPECT_FALSE(renderer.ConvertToRenderId(EntityId(7, 3, EntityType::Body), back));
}

TEST_F(SessionTree, AsksTheRendererOfTheRowForStyleToolTipAndActivation)
{
    add(L"a", 1);
    add(L"b", 2);
    OrvikCore::ARendererTree& renderer = *m_session.GetTreeRenderer();
    TreeBuilder::TreeItemStyles style = TreeBuilder::TreeItemStyles::Scene;
    RenderId row = bodyPath(2);
    RenderId unknown = bodyPath(3);

    EXPECT_TRUE(renderer.GetNodeStyle(row, style));
    EXPECT_EQ(style, TreeBuilder::TreeItemStyles::Body);
    EXPECT_EQ(renderer.GetToolTip(row), L"tip of 2");
    EXPECT_EQ(renderer.GetToolTip(unknown), L"");
    EXPECT_TRUE(renderer.Activate(row));
    EXPECT_FALSE(renderer.Activate(unknown));
    EXPECT_EQ(BodyTreeRenderer::m_activated, 1);
}

TEST_F(SessionTree, IsNoneWithoutAViewTree)
{
    PelluxSession bare;

    bare.RefreshTree();

    EXPECT_EQ(bare.GetTreeRenderer(), nullptr);
}

} // namespace
