#include "ControllerFixture.h"
#include "FakeConfigInitializer.h"
#include "FakeSession.h"

#include "OrvikCore/Hotkey.h"
#include "OrvikCore/Shell.h"

#include <TambVizCore/Utils.h>

#include <gtest/gtest.h>

#include <string>

using OrvikCore::Hotkey;
using OrvikCore::ModifierKey;

namespace {

/// A controller in an application with a shell and an engine that writes down what it runs.
class ControllerHotkeys : public ControllerFixture
{
protected:
    ControllerHotkeys()
    {
        Configure(
            {{L"ScriptEngine", {{L"File", TambVizCore::Utils::Char2Wchar(ORVIK_TEST_ENGINE)}}}});
        MakeCurrentFakeSession();
        OrvikCore::SessionMgr::Instance().SetShell(new OrvikCore::Shell);
    }
    ~ControllerHotkeys() override { OrvikCore::SessionMgr::Instance().Terminate(); }

    /// @return the scripts that the engine ran, each in brackets.
    std::string ran() const
    {
        const std::string mark = "[engine] ";
        const std::string text = debugOutput().Text();
        std::string scripts;
        for (std::size_t at = text.find(mark); at != std::string::npos;
             at = text.find(mark, at + 1)) {
            const std::size_t begin = at + mark.size();
            scripts += "<" + text.substr(begin, text.find('\n', begin) - begin) + ">";
        }
        return scripts;
    }

    Hotkey m_ctrlA{L"Ctrl-A"};
    Hotkey m_altB{L"Alt-B"};
};

} // namespace

TEST_F(ControllerHotkeys, RunTheirScript)
{
    m_controller.AddHotkey(&m_ctrlA, L"(view:iso)");

    EXPECT_TRUE(key('a', ModifierKey::Ctrl));

    EXPECT_EQ(ran(), "<(view:iso)>");
    EXPECT_TRUE(m_received.empty());
}

TEST_F(ControllerHotkeys, RunOnPressAndOnRelease)
{
    m_controller.AddHotkey(&m_ctrlA, L"(view:iso)");

    key('a', ModifierKey::Ctrl);
    key('a', ModifierKey::Ctrl, /*up=*/true);

    EXPECT_EQ(ran(), "<(view:iso)><(view:iso)>");
}

TEST_F(ControllerHotkeys, FirstAddedOfEqualOnesCounts)
{
    Hotkey equal(L"Ctrl-a");
    m_controller.AddHotkey(&m_ctrlA, L"first");
    m_controller.AddHotkey(&equal, L"second");

    key('A', ModifierKey::Ctrl);

    EXPECT_EQ(ran(), "<first>");
}

TEST_F(ControllerHotkeys, RemovalTakesTheFirstEqualOneAway)
{
    Hotkey equal(L"Ctrl-a");
    m_controller.AddHotkey(&m_ctrlA, L"first");
    m_controller.AddHotkey(&equal, L"second");

    m_controller.RemoveHotkey(&equal);
    m_controller.RemoveHotkey(&m_altB);
    m_controller.RemoveHotkey(nullptr);
    key('A', ModifierKey::Ctrl);

    EXPECT_EQ(ran(), "<second>");
}

TEST_F(ControllerHotkeys, InvalidOnesAreNotAdded)
{
    Hotkey plain(L"a");
    m_controller.AddHotkey(&plain, L"plain");
    m_controller.AddHotkey(nullptr, L"null");

    EXPECT_FALSE(key('a', ModifierKey::None));
    EXPECT_FALSE(m_controller.HandleHotkey(&plain));

    EXPECT_EQ(ran(), "");
}

TEST_F(ControllerHotkeys, EmptyScriptFallsThroughToTheStrategy)
{
    Hotkey escapeStandIn(L"Shift-Alt-A");
    m_controller.AddHotkey(&escapeStandIn, L"");

    EXPECT_TRUE(key('A', ModifierKey::Shift | ModifierKey::Alt));

    EXPECT_EQ(ran(), "");
    EXPECT_EQ(stacked(), (Texts{"HitTest 0 0 enhanced 1 state 2"}));
}

TEST_F(ControllerHotkeys, FailedScriptFallsThroughToTheStrategy)
{
    Hotkey hotkey(L"Shift-Alt-A");
    m_controller.AddHotkey(&hotkey, L"(fail)");

    EXPECT_TRUE(key('A', ModifierKey::Shift | ModifierKey::Alt));

    EXPECT_EQ(ran(), "<(fail)>");
    EXPECT_EQ(stacked(), (Texts{"HitTest 0 0 enhanced 1 state 2"}));
}

TEST_F(ControllerHotkeys, OtherKeysDoNotRunThem)
{
    m_controller.AddHotkey(&m_ctrlA, L"(view:iso)");

    key('A', ModifierKey::Alt);
    key('B', ModifierKey::Ctrl);
    key('A', ModifierKey::Ctrl | ModifierKey::Shift);

    EXPECT_EQ(ran(), "");
}

TEST_F(ControllerHotkeys, DisabledKeysDoNotRunThem)
{
    m_controller.AddHotkey(&m_ctrlA, L"(view:iso)");
    m_controller.DisableEvent(OrvikCore::EventArgsType::KeyEventArgs);

    EXPECT_FALSE(key('A', ModifierKey::Ctrl));

    EXPECT_EQ(ran(), "");
}

TEST_F(ControllerHotkeys, HandleHotkeyTellsWhetherTheScriptSucceeded)
{
    m_controller.AddHotkey(&m_ctrlA, L"good");
    m_controller.AddHotkey(&m_altB, L"fail");

    EXPECT_TRUE(m_controller.HandleHotkey(&m_ctrlA));
    EXPECT_FALSE(m_controller.HandleHotkey(&m_altB));
}

TEST_F(ControllerHotkeys, AreNotDeletedByTheController)
{
    {
        OrvikCore::Controller controller;
        controller.AddHotkey(&m_ctrlA, L"good");
    }

    EXPECT_TRUE(m_ctrlA.IsValid());
}

TEST_F(ControllerHotkeys, WithoutShellDoNotRun)
{
    OrvikCore::SessionMgr::Instance().SetShell(nullptr);
    m_controller.AddHotkey(&m_ctrlA, L"good");

    EXPECT_FALSE(m_controller.HandleHotkey(&m_ctrlA));
}
