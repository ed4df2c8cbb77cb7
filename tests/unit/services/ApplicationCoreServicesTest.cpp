#include "CapturedDebugOutput.h"
#include "FakeSession.h"
#include "RecordingOutputListener.h"

#include "OrvikCore/IApplication.h"
#include "OrvikCore/IAutoComplete.h"
#include "OrvikCore/SessionMgr.h"
#include "OrvikCore/TambApplicationCoreServicesPellux.h"

#include <TambCommandsInfra/Contract.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

using OrvikCore::SessionMgr;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

namespace {

std::vector<std::string> contracts;

void recordContract(const char* condition, const char*)
{
    contracts.emplace_back(condition);
}

class FakeApplication : public OrvikCore::IApplication
{
public:
    FakeApplication() { SessionMgr::Instance().SetApplication(this); }
    ~FakeApplication() override { SessionMgr::Instance().SetApplication(nullptr); }
    FakeApplication(const FakeApplication&) = delete;
    FakeApplication& operator=(const FakeApplication&) = delete;

    std::wstring GetName() const override { return L"Fake"; }
    std::wstring GetVersion() const override { return L"0"; }
    std::wstring GetStateFolder() const override { return {}; }
    void Quit(int) override {}
    void CancelRunningJob() override {}
    void ShowNotice(const std::wstring&, const OrvikCore::MessageType&) override {}
    bool IsBatchMode() const override { return m_batch; }
    bool IsPaused() const override { return false; }
    void RecordCommand(const std::wstring&) override {}
    void Pause(bool pause) override { m_pauses.push_back(pause); }
    void ReportEngineTerminationFailure(const std::wstring&) override {}
    int Shutdown() override { return 0; }
    OrvikCore::ASession* NewSession() override { return nullptr; }

    bool m_batch = false;
    std::vector<bool> m_pauses;
};

class RecordingAutoComplete final : public OrvikCore::IAutoComplete
{
public:
    RecordingAutoComplete() { SessionMgr::Instance().SetAutoComplete(this); }
    ~RecordingAutoComplete() { SessionMgr::Instance().SetAutoComplete(nullptr); }
    RecordingAutoComplete(const RecordingAutoComplete&) = delete;
    RecordingAutoComplete& operator=(const RecordingAutoComplete&) = delete;

    bool AddExtensionInfo(std::vector<std::wstring> names, std::vector<std::wstring> descriptions,
                          const std::wstring& group) override
    {
        m_names = std::move(names);
        m_descriptions = std::move(descriptions);
        m_text = group;
        return true;
    }
    bool AddExtensionObject(std::vector<std::wstring> names, const std::wstring& object) override
    {
        m_names = std::move(names);
        m_text = object;
        return true;
    }
    bool FindExtensions(const std::wstring&, std::vector<std::wstring>&) override { return false; }
    bool FindExtensionHelp(const std::wstring&, std::wstring&) override { return false; }

    std::vector<std::wstring> m_names;
    std::vector<std::wstring> m_descriptions;
    std::wstring m_text;
};

struct ApplicationCoreServices : testing::Test
{
    ApplicationCoreServices() { contracts.clear(); }

    TambApplicationCoreServicesPellux m_services;
};

struct ApplicationCoreServicesWithSession : ApplicationCoreServices
{
    ApplicationCoreServicesWithSession() { m_session.RegisterOutputCb(&m_listener); }
    ~ApplicationCoreServicesWithSession() override { m_session.UnRegisterOutputCb(&m_listener); }

    FakeSession& m_session = MakeCurrentFakeSession();
    RecordingOutputListener m_listener;
};

} // namespace

TEST_F(ApplicationCoreServicesWithSession, PrintsWithTheTypeOfTheMessage)
{
    m_services.PrintMessage(L"plain");
    m_services.PrintWarningMessage(L"warning");
    m_services.PrintErrorMessage(L"error");

    EXPECT_THAT(m_listener.Messages(),
                ElementsAre(Pair(L"plain", 0), Pair(L"warning", 1), Pair(L"error", 2)));
}

TEST_F(ApplicationCoreServicesWithSession, PrintsOnlyTexts)
{
    m_services.PrintMessage(L"");

    EXPECT_THAT(m_listener.Messages(), IsEmpty());
}

TEST_F(ApplicationCoreServicesWithSession, ShowsToolTips)
{
    m_services.SetTooltip(L"tip");

    EXPECT_THAT(m_listener.m_toolTips, ElementsAre(L"tip"));
}

TEST_F(ApplicationCoreServices, WithoutSessionTheDebugOutputSaysWhy)
{
    const CapturedDebugOutput output;

    m_services.PrintMessage(L"plain");

    EXPECT_EQ(output.Text(), "-- No session for a script service: null IApplication!\n");
}

TEST_F(ApplicationCoreServices, PrintsAndToolTipsDoNothingWithoutSession)
{
    EXPECT_NO_THROW(m_services.PrintMessage(L"plain"));
    EXPECT_NO_THROW(m_services.PrintWarningMessage(L"warning"));
    EXPECT_NO_THROW(m_services.PrintErrorMessage(L"error"));
    EXPECT_NO_THROW(m_services.SetTooltip(L"tip"));
}

TEST_F(ApplicationCoreServices, ExtensionInfoReachesTheCompletionStore)
{
    RecordingAutoComplete store;

    m_services.AddExtensionInfo({L"view:iso"}, {L"none"}, L"turns the camera");

    EXPECT_THAT(store.m_names, ElementsAre(L"view:iso"));
    EXPECT_THAT(store.m_descriptions, ElementsAre(L"none"));
    EXPECT_EQ(store.m_text, L"turns the camera");
}

TEST_F(ApplicationCoreServices, ObjectInfoReachesTheCompletionStore)
{
    RecordingAutoComplete store;

    m_services.AddObjectInfo({L"length", L"area"}, L"entity");

    EXPECT_THAT(store.m_names, ElementsAre(L"length", L"area"));
    EXPECT_EQ(store.m_text, L"entity");
}

TEST_F(ApplicationCoreServices, InfoDoesNothingWithoutCompletionStore)
{
    EXPECT_NO_THROW(m_services.AddExtensionInfo({L"a"}, {L"b"}, L"c"));
    EXPECT_NO_THROW(m_services.AddObjectInfo({L"a"}, L"b"));
}

TEST_F(ApplicationCoreServices, PauseReachesTheApplication)
{
    FakeApplication application;

    m_services.Pause(true);
    m_services.Pause(false);

    EXPECT_THAT(application.m_pauses, ElementsAre(true, false));
}

TEST_F(ApplicationCoreServices, PauseIsPassedOverInBatchMode)
{
    FakeApplication application;
    application.m_batch = true;

    m_services.Pause(true);

    EXPECT_THAT(application.m_pauses, IsEmpty());
}

TEST_F(ApplicationCoreServices, PauseWithoutApplicationRaisesTheContractAssertion)
{
    TambCommandsInfra::SetContractHandler(recordContract);

    m_services.Pause(true);

    EXPECT_THAT(contracts, ElementsAre("In TambApplicationCoreServicesPellux::PauseImpl: NULL "
                                       "application in the session."));
}

TEST_F(ApplicationCoreServices, PauseWithoutApplicationIsSilentWithContractChecksOff)
{
    TambCommandsInfra::SetContractHandler(recordContract);
    TambContractChecksOn = false;

    m_services.Pause(true);

    EXPECT_THAT(contracts, IsEmpty());
}

TEST_F(ApplicationCoreServices, PauseWithApplicationRaisesNothing)
{
    TambCommandsInfra::SetContractHandler(recordContract);
    FakeApplication application;

    m_services.Pause(true);

    EXPECT_THAT(contracts, IsEmpty());
}

TEST_F(ApplicationCoreServices, InputDirectoryIsTheSessionManagers)
{
    EXPECT_EQ(m_services.GetDefaultInputDirectory().Value(), L".");
    m_services.SetDefaultInputDirectory(std::wstring(L"/models"));

    EXPECT_EQ(SessionMgr::Instance().GetDefaultInputDirectory(), L"/models");
    EXPECT_EQ(m_services.GetDefaultInputDirectory().Value(), L"/models");
    EXPECT_EQ(m_services.GetDefaultOutputDirectory().Value(), L".");
}

TEST_F(ApplicationCoreServices, OutputDirectoryIsTheSessionManagers)
{
    m_services.SetDefaultOutputDirectory(std::wstring(L"/pictures"));

    EXPECT_EQ(SessionMgr::Instance().GetDefaultOutputDirectory(), L"/pictures");
    EXPECT_EQ(m_services.GetDefaultOutputDirectory().Value(), L"/pictures");
    EXPECT_EQ(m_services.GetDefaultInputDirectory().Value(), L".");
}

TEST_F(ApplicationCoreServices, DirectoriesWithoutValueBecomeTheDot)
{
    SessionMgr::Instance().SetDefaultInputDirectory(L"/models");
    SessionMgr::Instance().SetDefaultOutputDirectory(L"/pictures");

    m_services.SetDefaultInputDirectory({});
    m_services.SetDefaultOutputDirectory({});

    EXPECT_EQ(SessionMgr::Instance().GetDefaultInputDirectory(), L".");
    EXPECT_EQ(SessionMgr::Instance().GetDefaultOutputDirectory(), L".");
}
