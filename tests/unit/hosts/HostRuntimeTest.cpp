#include "../scripting/ShellFixture.h"

#include <OrvikCore/KeyEventArgs.h>

#include <HostRuntime.h>

#include <cstdlib>

namespace {

using OrvikCore::KeyEventArgs;
using OrvikCore::MessageType;
using OrvikCore::ModifierKey;
using OrvikCore::SessionMgr;
using Pellux::StartResult;

/// A host that starts with the plugins of the test beside it and a configuration of its own.
class HostRuntime : public testing::Test
{
protected:
    HostRuntime()
    {
        static auto* const sleeper = new ShortSleeper;
        OrvikOs::SetSleeper(sleeper);
        setenv("XDG_STATE_HOME", m_dir.Path().c_str(), 1);
        m_options.kind = {L"test", /*isBatch=*/true};
        m_options.useConfiguration = false;
        m_options.runStartupScripts = false;
        m_options.output = [this](const std::wstring& text, MessageType type) {
            m_shown += (type == MessageType::Warning ? L"warning: " : L"") + text + L"\n";
        };
        m_options.sessionReady = [this] {
            m_wasReady = true;
            m_hadShell = SessionMgr::Instance().GetShell() != nullptr;
        };
    }

    /// The lines of a configuration that names a view and an engine.
    std::string plugins(const std::string& engine)
    {
        const std::string folder = m_folder.Dir().Path().string() + "/";
        m_folder.Add("FakeView.Plugin.dll");
        m_folder.Add(engine);
        return "[View3D]\nFile = \"" + folder +
               "FakeView.Plugin.dll\"\nName = \"CoreView\"\n[ScriptEngine]\nFile = \"" + folder +
               engine + "\"\n";
    }

    StartResult start(const std::string& configuration)
    {
        m_options.configurationFile = m_dir.Write("host.toml", configuration);
        return m_host.Start(m_options, m_reason);
    }

    PluginFolder m_folder;
    ScopedTempDir m_dir;
    Pellux::StartOptions m_options;
    std::wstring m_reason;
    std::wstring m_shown;
    bool m_wasReady = false;
    bool m_hadShell = false;
    Pellux::HostRuntime m_host; ///< Stops first.
};

TEST_F(HostRuntime, StopsWithoutHavingStarted)
{
    EXPECT_EQ(m_host.Stop(), 0);
    EXPECT_EQ(m_host.GetTree(), nullptr);
}

TEST_F(HostRuntime, EveryMistakeInTheConfigurationIsNamedWithItsLine)
{
    EXPECT_EQ(start("[hotkeys]\n\"Ctrl-F5\" = \"(a)\"\n[navigation]\nleft = \"turn\"\n"),
              StartResult::BadConfiguration);

    EXPECT_NE(m_reason.find(L"/host.toml:2:13: \"Ctrl-F5\" is no shortcut"), std::wstring::npos)
        << std::string(m_reason.begin(), m_reason.end());
    EXPECT_NE(m_reason.find(L"\n"), std::wstring::npos);
    EXPECT_NE(m_reason.find(L"/host.toml:4:8: \"turn\" is no action"), std::wstring::npos);
    EXPECT_FALSE(m_wasReady);
    EXPECT_EQ(m_host.Stop(), 0);
}

TEST_F(HostRuntime, AConfigurationFileThatIsMissingIsNamed)
{
    m_options.configurationFile = m_dir.WidePath(L"none.toml");

    EXPECT_EQ(m_host.Start(m_options, m_reason), StartResult::BadConfiguration);

    EXPECT_EQ(m_reason, m_dir.WidePath(L"none.toml") + L": cannot be read");
}

TEST_F(HostRuntime, WithoutAViewItDoesNotStart)
{
    EXPECT_EQ(start("[View3D]\nFile = \"/no/such/view.dll\"\nName = \"CoreView\"\n"),
              StartResult::NoView);

    EXPECT_EQ(m_reason,
              L"There is no 3D view: its plugin could not be loaded or cannot draw here.");
    EXPECT_FALSE(m_wasReady);
    EXPECT_EQ(m_host.Stop(), 0);
}

TEST_F(HostRuntime, AnEngineThatCannotBeLoadedOrInitialisedEndsTheStartWithTheReason)
{
    EXPECT_EQ(start(plugins("EngineInitThrows.dll")), StartResult::NoEngine);

    EXPECT_FALSE(m_reason.empty());
    EXPECT_TRUE(m_wasReady) << "a window is there before the engine, to show the reason";
    EXPECT_EQ(m_host.Stop(), 0);
}

TEST_F(HostRuntime, TheSessionIsReadyBeforeTheShellIsThere)
{
    EXPECT_EQ(start(plugins("FakeEngine.dll")), StartResult::Good)
        << std::string(m_reason.begin(), m_reason.end());

    EXPECT_TRUE(m_wasReady);
    EXPECT_FALSE(m_hadShell);
    EXPECT_EQ(m_host.GetShell().GetScriptEngine()->GetName(), L"Fake");
    EXPECT_EQ(m_host.GetTree(), nullptr);
    EXPECT_EQ(m_host.Stop(), 0);
    EXPECT_EQ(m_host.Stop(), 0);
}

TEST_F(HostRuntime, AJournalThatCannotBeWrittenIsAWarningOnly)
{
    m_options.withJournal = true;
    setenv("XDG_STATE_HOME", "/dev/null", 1);

    EXPECT_EQ(start(plugins("FakeEngine.dll")), StartResult::Good);
    m_host.DrainOutput();

    EXPECT_EQ(m_shown.find(L"warning: There is no journal of this run: /dev/null/"), 0u)
        << std::string(m_shown.begin(), m_shown.end());
    m_host.BeginForm(L"(a)");
    m_host.EndGesture();
    m_host.EndJournal();
    m_host.EndJournal();
    EXPECT_EQ(m_host.Stop(), 0);
}

TEST_F(HostRuntime, ShortcutsAreReadAgainUnlessAreMistaken)
{
    KeyEventArgs a('A', false, ModifierKey::Ctrl);
    KeyEventArgs b('B', false, ModifierKey::Ctrl);
    ASSERT_EQ(start("[hotkeys]\n\"Ctrl-a\" = \"(a)\"\n" + plugins("FakeEngine.dll")),
              StartResult::Good);

    EXPECT_TRUE(m_host.ReadHotkeysAgain(
        m_dir.Write("more.toml", "[hotkeys]\n\"Ctrl-b\" = \"(b)\"\n"), m_reason));
    EXPECT_NE(m_host.GetHotkeys().Find(a), nullptr);
    EXPECT_NE(m_host.GetHotkeys().Find(b), nullptr);

    EXPECT_FALSE(m_host.ReadHotkeysAgain(
        m_dir.Write("wrong.toml", "[hotkeys]\n\"Ctrl-b\" = \"(b)\"\nF5 = \"(c)\"\n"), m_reason));
    EXPECT_NE(m_reason.find(L"wrong.toml:3:6: "), std::wstring::npos)
        << std::string(m_reason.begin(), m_reason.end());
    EXPECT_NE(m_host.GetHotkeys().Find(b), nullptr);
    EXPECT_TRUE(m_host.ReadHotkeysAgain(m_dir.WidePath(L"missing.toml"), m_reason));
    EXPECT_EQ(m_host.GetHotkeys().Find(b), nullptr);
}

} // namespace
