#ifndef TESTS_FAKESESSION_H
#define TESTS_FAKESESSION_H

#include "OrvikCore/ASession.h"
#include "OrvikCore/ASessionFactory.h"
#include "OrvikCore/SessionMgr.h"

#include <TambVizCore/EntityId.h>
#include <TambVizCore/IView3D.h>

#include <string>
#include <vector>

/// A session with a view that a test sets, which remembers what it was asked to do.
class FakeSession : public OrvikCore::ASession
{
public:
    explicit FakeSession(int id = 1) : ASession(id) {}

    void SetPickedEntities(const std::vector<TambVizCore::EntityId>& picked) override
    {
        m_picked = picked;
        m_calls.push_back("SetPickedEntities");
    }
    std::vector<TambVizCore::EntityId> GetPickedEntities() const override { return m_picked; }
    void BeginProgress(const std::wstring&) override {}
    void ReportProgress(double) override {}
    void EndProgress() override {}
    bool IsCancelRequested() const override { return false; }
    TambVizCore::IView3D* View3D() const override { return m_fakeView; }
    void UpdateAfterUndoRedo() override { m_calls.push_back("UpdateAfterUndoRedo"); }
    void UpdateAfterContentModified() override { m_calls.push_back("UpdateAfterContentModified"); }
    void UpdateDisplay() override
    {
        m_calls.push_back("UpdateDisplay");
        ASession::UpdateDisplay();
    }
    void Rerender() override { m_calls.push_back("Rerender"); }
    void RefreshTree() override { m_calls.push_back("RefreshTree"); }
    void ZoomAll() override { m_calls.push_back("ZoomAll"); }
    bool ZoomToPicked() override { return false; }
    void SetBusy(bool busy) override { m_busy = busy; }
    bool IsBusy() const override { return m_busy; }
    OrvikCore::IContentRenderer* CreateContentRenderer(OrvikCore::AContent&) override
    {
        return nullptr;
    }
    OrvikCore::ARendererTree* CreateTreeRenderer() override { return nullptr; }

    TambVizCore::IView3D* m_fakeView = nullptr; ///< Not owned; what View3D() answers.
    std::vector<std::string> m_calls;
    std::vector<TambVizCore::EntityId> m_picked;
    bool m_busy = false;
};

#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

/// Makes FakeSessions; the session manager deletes it without a virtual destructor.
class FakeSessionFactory final : public OrvikCore::ASessionFactory
{
public:
    OrvikCore::ASession* CreateSession() override { return new FakeSession(GetNextId()); }
};

#pragma GCC diagnostic pop

/// Makes the current session of the process a FakeSession.
/// @return the session; owned by the session manager.
inline FakeSession& MakeCurrentFakeSession()
{
    OrvikCore::SessionMgr& manager = OrvikCore::SessionMgr::Instance();
    manager.SetSessionFactory(new FakeSessionFactory);
    return static_cast<FakeSession&>(manager.CreateSession());
}

#endif
