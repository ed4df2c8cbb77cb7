#ifndef ORVIKCORE_TESTS_VIEWSESSIONFIXTURE_H
#define ORVIKCORE_TESTS_VIEWSESSIONFIXTURE_H

#include "../jobs/DispatcherFixture.h"
#include "CameraFixture.h"
#include "FakeConfigInitializer.h"
#include "FakeContent.h"
#include "FakeRenderer.h"
#include "FakeSession.h"
#include "RecordingOutputListener.h"
#include "TestView.h"

#include "OrvikCore/Document.h"
#include "OrvikCore/Shell.h"

#include <TambVizCore/Utils.h>

#include <functional>
#include <new>
#include <string>
#include <vector>

/// @return the id of a node below the root of the 3D view.
inline TambVizCore::RenderId nodeId(std::uint64_t node)
{
    TambVizCore::RenderId id(1);
    id.AddValue(node);
    return id;
}

/// A content whose picks and enhanced highlights are functions of the test, run on the worker.
class ScriptedContent : public FakeContent
{
public:
    using FakeContent::FakeContent;

    bool RayPick(const TambVizCore::Ray& ray, TambVizCore::EntityId& hit) override
    {
        m_ray = ray;
        if (m_onPick) {
            m_onPick();
        }
        return FakeContent::RayPick(ray, hit);
    }
    bool TryHighlight(const TambVizCore::RenderId& id) override
    {
        note("TryHighlight");
        m_idAsked = id;
        return m_onHighlight ? m_onHighlight() : false;
    }

    TambVizCore::Ray m_ray; ///< Of the last pick.
    TambVizCore::RenderId m_idAsked;
    std::function<void()> m_onPick;
    std::function<bool()> m_onHighlight;
};

/// A session whose highlights and selections reach the view that View3D() answers.
class HolderSession : public FakeSession
{
public:
    using FakeSession::FakeSession;

    void Highlight(const TambVizCore::EntityId& entity) override
    {
        TambVizCore::RenderId id;
        if (find(entity, id)) {
            holder().Highlight(id);
        }
    }
    void Highlight(const TambVizCore::RenderId& id) override { holder().Highlight(id); }
    void UnHighlight() const override { holder().ClearHighlight(); }
    void Select(const TambVizCore::EntityId& entity) override
    {
        TambVizCore::RenderId id;
        if (find(entity, id)) {
            holder().Select(id);
        }
    }
    void Select(const TambVizCore::RenderId& id) override { holder().Select(id); }
    void UnSelect() const override { holder().ClearSelection(); }

private:
    TambVizCore::SelectionHolder& holder() const { return *View3D()->GetSelectionHolder(); }
    bool find(const TambVizCore::EntityId& entity, TambVizCore::RenderId& id) const
    {
        OrvikCore::IContentRenderer* renderer = nullptr;
        return convert3DViewEntityIdToRenderId(entity, id, renderer);
    }
};

/// A host whose sessions are HolderSessions.
class HolderSessionHost : public FakeSessionHost
{
public:
    OrvikCore::ASession* NewSession() override
    {
        return new HolderSession(OrvikCore::ASessionFactory::GetNextId());
    }
};

/// Makes the current session of the process a HolderSession, owned by the session manager.
inline FakeSession& MakeCurrentHolderSession()
{
    alignas(HolderSessionHost) static unsigned char storage[sizeof(HolderSessionHost)];
    OrvikCore::SessionMgr& manager = OrvikCore::SessionMgr::Instance();
    manager.SetApplication(new (storage) HolderSessionHost);
    return static_cast<HolderSession&>(manager.CreateSession());
}

/// A current session with a view, a content that is drawn by node 7 of the view, and a listener.
///
/// The camera stands at (0, 0, 100), looks at the origin with y up, and does not animate; a pixel
/// of the window of 800 x 600 measures 0.138071 units.
class ViewSession : public DispatcherTest
{
protected:
    ViewSession()
    {
        m_view.m_root.CreateChildNode(7);
        m_view.m_root.CreateChildNode(8);
        m_session.m_fakeView = &m_view;
        m_session.RegisterOutputCb(&m_output);
        m_content = addContent("content");
        m_renderer = new Fake3DRenderer(m_content);
        m_renderer->m_pairs = {{nodeId(7), m_entity}};
        m_session.AddRenderer(m_renderer, false);
        m_view.GetCamera()->SetAnimate(false);
        setTriple(*m_view.GetCamera(), {{0, 0, 100}, {0, 0, 0}, {0, 1, 0}});
    }
    ~ViewSession() override
    {
        OrvikOs::SetMessageSource(nullptr);
        waitUntilIdle();
        m_session.DeleteAllRenderers();
        OrvikCore::SessionMgr::Instance().Terminate();
        waitUntilIdle(); // After a wait that ended early the engine's end may still be in the ring.
    }

    /// @return a content of the session's document, which owns it.
    ScriptedContent* addContent(const std::string& name)
    {
        auto* content = new ScriptedContent(m_session.Document(), name, m_log);
        m_session.Document().AddContent(*content);
        return content;
    }

    /// Gives the application a shell with the engine of @p library.
    void startShell(const char* library)
    {
        Configure({{L"ScriptEngine", {{L"File", TambVizCore::Utils::Char2Wchar(library)}}}});
        OrvikCore::SessionMgr::Instance().SetShell(new OrvikCore::Shell);
    }
    void startScheme() { startShell(ORVIK_TEST_SCHEME_ENGINE); }
    void startOtherLanguage() { startShell(ORVIK_TEST_ECHO_ENGINE); }

    std::vector<std::uint64_t> highlighted() { return lastIds(holder().GetHighlighted()); }
    std::vector<std::uint64_t> selected() { return lastIds(holder().GetSelected()); }
    TambVizCore::SelectionHolder& holder() { return *m_view.GetSelectionHolder(); }

    Vector rotationCenter()
    {
        Vector center{};
        m_view.GetCamera()->GetRotationCenter(center.data());
        return center;
    }

    /// @return the texts that the session printed.
    std::vector<std::wstring> printed() const
    {
        std::vector<std::wstring> texts;
        for (const auto& message : m_output.Messages()) {
            texts.push_back(message.first);
        }
        return texts;
    }

    CallLog m_log; ///< Of the contents.
    RecordingOutputListener m_output;
    TestObjectView m_view;
    FakeSession& m_session = MakeCurrentHolderSession();
    ScriptedContent* m_content = nullptr; ///< Owned by the document.
    Fake3DRenderer* m_renderer = nullptr; ///< Owned by the session.
    const TambVizCore::EntityId m_entity{6, 5, static_cast<TambVizCore::EntityType>(10003)};

private:
    static std::vector<std::uint64_t> lastIds(const std::vector<TambVizCore::RenderId>& ids)
    {
        std::vector<std::uint64_t> last;
        for (const TambVizCore::RenderId& id : ids) {
            last.push_back(id.Last());
        }
        return last;
    }
};

#endif
