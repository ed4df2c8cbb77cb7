#ifndef TESTS_FAKESESSION_H
#define TESTS_FAKESESSION_H

#include "OrvikCore/ASession.h"
#include "OrvikCore/ASessionFactory.h"
#include "OrvikCore/IApplication.h"
#include "OrvikCore/MessageType.h"
#include "OrvikCore/SessionMgr.h"

#include <TambVizCore/EntityId.h>
#include <TambVizCore/IView3D.h>

#include <new>
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

/// A host that makes FakeSessions. Like every host it lies in storage of its own, in which the
/// session manager ends it.
class FakeSessionHost : public OrvikCore::IApplication
{
public:
    std::wstring GetName() const override { return L"FakeSessionHost"; }
    std::wstring GetVersion() const override { return {}; }
    std::wstring GetStateFolder() const override { return {}; }
    void Quit(int) override {}
    void CancelRunningJob() override {}
    void ShowNotice(const std::wstring&, const OrvikCore::MessageType&) override {}
    bool IsBatchMode() const override { return false; }
    bool IsPaused() const override { return false; }
    void RecordCommand(const std::wstring&) override {}
    void Pause(bool) override {}
    void ReportEngineTerminationFailure(const std::wstring&) override {}
    int Shutdown() override { return 0; }
    OrvikCore::ASession* NewSession() override
    {
        return new FakeSession(OrvikCore::ASessionFactory::GetNextId());
    }
};

/// Makes the current session of the process a FakeSession, by a host of this kind.
/// @return the session; owned by the session manager.
inline FakeSession& MakeCurrentFakeSession()
{
    alignas(FakeSessionHost) static unsigned char storage[sizeof(FakeSessionHost)];
    OrvikCore::SessionMgr& manager = OrvikCore::SessionMgr::Instance();
    manager.SetApplication(new (storage) FakeSessionHost);
    return static_cast<FakeSession&>(manager.CreateSession());
}

#endif
