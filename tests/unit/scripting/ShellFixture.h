#ifndef TESTS_SHELLFIXTURE_H
#define TESTS_SHELLFIXTURE_H

#include "../../plugins/FakeScriptEngine.h"
#include "CapturedDebugOutput.h"
#include "FakeConfigInitializer.h"
#include "FakeSession.h"
#include "PluginFolder.h"
#include "RecordingOutputListener.h"

#include "OrvikCore/JobDispatcher.h"
#include "OrvikCore/PluginManager.h"
#include "OrvikCore/ProcessGlobals.h"
#include "OrvikCore/ScriptPluginManager.h"
#include "OrvikCore/SessionMgr.h"
#include "OrvikCore/Shell.h"

#include <OrvikOs/Sleeper.h>
#include <OrvikOs/Thread.h>

#include <gtest/gtest.h>

#include <chrono>
#include <memory>
#include <string>
#include <thread>
#include <vector>

/// Shortens every sleep to a tenth of a hundredth; the worker, which polls, still gets its turn.
class ShortSleeper : public OrvikOs::ISleeper
{
public:
    void SleepMs(int milliseconds) override
    {
        std::this_thread::sleep_for(std::chrono::microseconds(10 * milliseconds));
    }
};

/// A host without windows: main thread known, a session that a listener hears, and an executable's
/// folder into which a test puts engines and scripts.
class ShellTest : public ::testing::Test
{
protected:
    using Messages = std::vector<RecordingOutputListener::Message>;
    using Texts = std::vector<std::wstring>;
    using Calls = std::vector<std::string>;

    ShellTest()
    {
        Orvik_mainThreadId = OrvikOs::CurrentThreadId();
        // Lives as long as the worker, which ends with the process.
        static auto* const sleeper = new ShortSleeper;
        OrvikOs::SetSleeper(sleeper);
        m_session = &MakeCurrentFakeSession();
        m_session->RegisterOutputCb(&m_listener);
    }
    ~ShellTest() override
    {
        m_shell.reset();
        m_session->UnRegisterOutputCb(&m_listener);
        OrvikCore::ScriptPluginManager::Instance().SetNotificationCb(nullptr);
        OrvikCore::ScriptPluginManager::Instance().Terminate();
        OrvikCore::JobDispatcher::Instance().Terminate();
    }

    /// Puts an engine into the folder and names it in the configuration.
    void configureEngine(const std::string& plugin)
    {
        Configure({{L"ScriptEngine", {{L"File", m_folder.Add(plugin)}}}});
    }

    /// Makes the shell of the test, on an engine where one is named.
    OrvikCore::Shell& makeShell(const std::string& plugin = "FakeEngine.dll")
    {
        if (!plugin.empty()) {
            configureEngine(plugin);
        }
        m_shell = std::make_unique<OrvikCore::Shell>();
        return *m_shell;
    }

    FakeScriptEngine& engine()
    {
        return *static_cast<FakeScriptEngine*>(m_shell->GetScriptEngine());
    }

    PluginFolder m_folder;
    CapturedDebugOutput m_debug;
    RecordingOutputListener m_listener;
    FakeSession* m_session = nullptr; ///< Owned by the session manager.
    std::unique_ptr<OrvikCore::Shell> m_shell;
    std::wstring m_output = L"stale";
};

#endif
