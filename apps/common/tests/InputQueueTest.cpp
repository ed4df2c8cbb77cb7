#include "../InputQueue.h"

#include "../ConfigurationFile.h"
#include "../HotkeyTable.h"
#include "FakeSession.h"
#include "RecordingOutputListener.h"
#include "ScopedTempDir.h"

#include <TambVizCore/EntityType.h>

#include <gtest/gtest.h>

#include <functional>

namespace {

using OrvikCore::KeyEventArgs;
using OrvikCore::ModifierKey;

/// A queue with the shortcuts Ctrl-A, which runs "(a)", and Ctrl-B, over a session without view.
class Input : public testing::Test
{
protected:
    Input()
    {
        m_configuration.AddFile(
            m_folder.Write("k.toml", "[hotkeys]\n\"Ctrl-a\" = \"(a)\"\n\"Ctrl-b\" = \"(b)\"\n"),
            /*mustExist=*/true);
        std::wstring error;
        m_hotkeys.Read(m_configuration, error);
        m_session.RegisterOutputCb(&m_output);
    }
    ~Input() override { m_session.UnRegisterOutputCb(&m_output); }

    void postKey(char key)
    {
        m_queue.PostKey(KeyEventArgs(key, false, ModifierKey::Ctrl));
        m_queue.PostKey(KeyEventArgs(key, true, ModifierKey::Ctrl));
    }
    bool play()
    {
        return m_queue.Play({[this] { return m_goOn; },
                             [this](const std::wstring& script, const std::wstring& source) {
                                 m_run += source + script + L" ";
                                 return m_whileRunning ? m_whileRunning() : true;
                             }});
    }

    FakeSession& m_session = MakeCurrentFakeSession();
    RecordingOutputListener m_output;
    ScopedTempDir m_folder;
    Pellux::ConfigurationFile m_configuration;
    Pellux::HotkeyTable m_hotkeys;
    Pellux::InputQueue m_queue{m_hotkeys, {}};
    bool m_goOn = true;
    std::wstring m_run;
    std::function<bool()> m_whileRunning;
};

TEST_F(Input, RunsAHotkeyOnceForItsPressAndRelease)
{
    postKey('A');
    postKey('B');

    EXPECT_TRUE(play());
    EXPECT_EQ(m_run, L"Ctrl-a(a) Ctrl-b(b) ");
    EXPECT_TRUE(play());
    EXPECT_EQ(m_run, L"Ctrl-a(a) Ctrl-b(b) ");
}

TEST_F(Input, PlaysWhatAHotkeysScriptPostsAfterWhatWaits)
{
    m_whileRunning = [this] {
        if (m_run.size() < 12)
            postKey('B');
        return play(); // Nested: nothing.
    };
    postKey('A');
    postKey('A');

    EXPECT_TRUE(play());
    EXPECT_EQ(m_run, L"Ctrl-a(a) Ctrl-a(a) Ctrl-b(b) ");
}

TEST_F(Input, ForgetsTheRestAfterAFailure)
{
    m_whileRunning = [] { return false; };
    postKey('A');
    postKey('B');

    EXPECT_FALSE(play());
    m_whileRunning = {};
    EXPECT_TRUE(play());
    EXPECT_EQ(m_run, L"Ctrl-a(a) ");
}

TEST_F(Input, AGestureEndsWithEachReleaseOfAButton)
{
    using OrvikCore::MouseButton;
    int ended = 0;
    Pellux::InputQueue queue(m_hotkeys, {}, [&ended] { ++ended; });
    queue.PostButton({MouseButton::Selection, true, 1, 2, ModifierKey::None});
    queue.PostMotion(
        {OrvikCore::MouseAction::Moved, 3, 4, MouseButton::Selection, ModifierKey::None});
    const Pellux::InputQueue::Player player{[] { return true; }, {}};
    queue.Play(player);
    EXPECT_EQ(ended, 0);

    for (const MouseButton button : {MouseButton::Selection, MouseButton::Zoom})
        queue.PostButton({button, false, 3, 4, ModifierKey::None});

    EXPECT_TRUE(queue.Play(player));
    EXPECT_EQ(ended, 2);
}

TEST_F(Input, EndsWhenItsPlayerGivesUp)
{
    m_goOn = false;
    postKey('A');

    EXPECT_FALSE(play());
    EXPECT_EQ(m_run, L"");
}

TEST_F(Input, WithoutARowForTheEntityAMenuIsAnError)
{
    m_queue.PostMenuItem(L"Hide node", TambVizCore::EntityId(1, 0, TambVizCore::EntityType::Body));

    EXPECT_FALSE(play());
    ASSERT_FALSE(m_output.Messages().empty());
    EXPECT_EQ(m_output.Messages().back().first, L"The model tree has no row for this entity.");
}

} // namespace
