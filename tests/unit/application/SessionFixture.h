#ifndef TESTS_SESSIONFIXTURE_H
#define TESTS_SESSIONFIXTURE_H

#include "../../plugins/FakeViews.h"
#include "CapturedDebugOutput.h"
#include "FakeConfigInitializer.h"
#include "FakeContent.h"
#include "FakeRenderer.h"
#include "FakeSession.h"
#include "PluginFolder.h"
#include "RecordingOutputListener.h"
#include "RecordingViewTree.h"

#include "OrvikCore/ASession.h"
#include "OrvikCore/Document.h"
#include "OrvikCore/PluginManager.h"
#include "OrvikCore/View3DFactory.h"

#include <TambVizCore/AllowThrow.h>

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

/// A session on the view that View3DFactory makes, with its conversions open to the test.
class OpenSession : public FakeSession
{
public:
    explicit OpenSession(int id = 1) : FakeSession(id) {}

    TambVizCore::IView3D* View3D() const override { return ASession::View3D(); }
    OrvikCore::ARendererTree* CreateTreeRenderer() override
    {
        ++m_treeRenderersAsked;
        return m_treeRenderer;
    }

    using ASession::convert3DViewEntityIdToRenderId;
    using ASession::convert3DViewRenderIdToEntityId;
    using ASession::convertToView3DId;
    using ASession::convertToViewTreeId;
    using ASession::isUpdateOnContentModified;

    OrvikCore::ARendererTree* m_treeRenderer = nullptr; ///< Not owned.
    int m_treeRenderersAsked = 0;
};

/// Sessions with views from a test plugin: "FullView", "PlainView", "CoreView".
class SessionTest : public ::testing::Test
{
protected:
    SessionTest() { configure(L"FullView"); }
    ~SessionTest() override
    {
        m_session.reset();
        TambVizCore::SetAllowThrow(false);
        OrvikCore::View3DFactory::Terminate();
        OrvikCore::PluginManager::Instance().Terminate();
    }

    void configure(const std::wstring& view, const std::wstring& adapter = std::wstring())
    {
        FakeConfigInitializer::Pairs pairs{{L"File", m_plugin}, {L"Name", view}};
        if (!adapter.empty()) {
            pairs.emplace_back(L"Controller", adapter);
        }
        Configure({{L"View3D", pairs}});
    }

    /// @return the session of the test, made on first use.
    OpenSession& session()
    {
        if (m_session == nullptr) {
            m_session = std::make_unique<OpenSession>(5);
        }
        return *m_session;
    }
    FullFakeView& view() { return *dynamic_cast<FullFakeView*>(session().View3D()); }

    /// Adds a content to the document, which owns it.
    OrvikCore::AContent& addContent(const std::string& name = "content")
    {
        auto* const content = new FakeContent(session().Document(), name, m_contentLog);
        session().Document().AddContent(*content);
        return *content;
    }

    static TambVizCore::RenderId viewId(std::uint64_t value)
    {
        TambVizCore::RenderId id(TambVizCore::RenderId::kOriginView3D);
        id.AddValue(value);
        return id;
    }
    static TambVizCore::RenderId treeId(std::uint64_t value)
    {
        TambVizCore::RenderId id(TambVizCore::RenderId::kOriginTree);
        id.AddValue(value);
        return id;
    }
    static TambVizCore::EntityId body(std::uint64_t value)
    {
        return TambVizCore::EntityId(value, 1, TambVizCore::EntityType::Body);
    }

    using Ids = std::vector<TambVizCore::RenderId>;

    PluginFolder m_folder;
    CapturedDebugOutput m_debug;
    std::wstring m_plugin = m_folder.Add("FakeView.Plugin.dll");
    CallLog m_contentLog;
    std::unique_ptr<OpenSession> m_session;
};

/// A session with a content, its 3D renderer and a tree renderer, in which the view's item 11 and
/// the tree's row 22 stand for body 33.
class LinkedSessionTest : public SessionTest
{
protected:
    LinkedSessionTest() : m_content(addContent()), m_renderer(&m_content)
    {
        m_renderer.m_pairs = {{viewId(11), body(33)}};
        m_treeRenderer.m_pairs = {{treeId(22), body(33)}};
        session().AddRenderer(&m_renderer, /*keep=*/false);
        session().RegisterOutputCb(&m_listener);
    }
    ~LinkedSessionTest() override { m_session.reset(); }

    void addTreeRenderer() { session().AddRenderer(&m_treeRenderer, /*keep=*/true); }

    /// Sets a tree, which the session owns.
    RecordingViewTree& addTree()
    {
        auto* const tree = new RecordingViewTree;
        session().SetViewTree(tree);
        return *tree;
    }

    const Ids& highlighted() { return view().m_selection.GetHighlighted(); }
    const Ids& selected() { return view().m_selection.GetSelected(); }

    OrvikCore::AContent& m_content;
    Fake3DRenderer m_renderer;
    FakeTreeRenderer m_treeRenderer;
    RecordingOutputListener m_listener;
};

#endif
