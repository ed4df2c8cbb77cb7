#include "XSession.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <vector>

namespace {

const std::string kGear = std::string(ORVIK_SOURCE_FOLDER) + "/examples/gear.stl";

/// The view lies there at the first start, display pixels.
const std::string kOverTheModel = "mousemove 640 300";

/// A dialog takes a moment until it listens to keys, microseconds.
constexpr unsigned kSettleUs = 300'000;

class RealInput : public ::testing::Test
{
protected:
    void SetUp() override
    {
        if (!m_x.WhyNot().empty())
            GTEST_SKIP() << m_x.WhyNot();
    }

    /// Starts with the example model and waits until it is loaded.
    bool StartWithModel()
    {
        return m_x.Start({kGear, "--up", "z", "--eval", "(view:iso)", "--eval",
                          m_x.Writing("ready", "1")}) &&
               XSession::Until([&] { return m_x.Read("ready") == "1"; });
    }

    XSession m_x;
};

TEST_F(RealInput, ADragTurnsTheCameraAndTheJournalHasIt)
{
    ASSERT_TRUE(StartWithModel());
    ASSERT_TRUE(m_x.Do(kOverTheModel + " mousedown 1 mousemove_relative 60 20 "
                                       "mousemove_relative 60 20 mouseup 1"));

    EXPECT_TRUE(m_x.JournalGets("(view:set-camera")) << m_x.Journal();
}

TEST_F(RealInput, ADragIsShownBeforeTheButtonIsLetGo)
{
    ASSERT_TRUE(StartWithModel());
    ASSERT_TRUE(m_x.Do(kOverTheModel + " mousedown 1"));
    const std::vector<std::uint32_t> before = m_x.Pixels(400, 150, 500, 300);
    ASSERT_TRUE(m_x.Do("mousemove_relative 60 20 mousemove_relative 60 20"));

    EXPECT_TRUE(XSession::Until([&] { return m_x.Pixels(400, 150, 500, 300) != before; }));
    EXPECT_EQ(m_x.Journal().find("(view:set-camera"), std::string::npos);
}

TEST_F(RealInput, TheOpenDialogLoadsAFile)
{
    // The folder's name has capitals, which typed keys do not give reliably: the dialog is to begin
    // there.
    ASSERT_TRUE(m_x.Start(
        {"--eval", "(app:set-default-input-directory! \"" + m_x.Dir().Path().string() + "\")",
         "--eval", m_x.Writing("ready", "1")}));
    ASSERT_TRUE(XSession::Until([&] { return m_x.Read("ready") == "1"; }));
    const std::string other = (m_x.Dir().Path() / "other.stl").string();
    std::filesystem::copy_file(kGear, other);

    // Keys that come while the dialog is still on its way go astray: it is closed and opened again
    // then.
    const auto isLoaded = [&] {
        return m_x.Journal().find("(doc:load \"" + other + "\")") != std::string::npos;
    };
    for (int attempt = 0; attempt < 8 && !isLoaded(); ++attempt) {
        m_x.Do("search --onlyvisible --name '^Pellux' windowfocus key ctrl+o");
        EXPECT_TRUE(XSession::Until([&] { return m_x.HasWindow("Open"); }));
        usleep(kSettleUs);
        m_x.Do("search --onlyvisible --name '^Open' windowfocus");
        m_x.Do("type --delay 20 other.stl");
        m_x.Do("key Return");
        for (int step = 0; step < 30 && !isLoaded(); ++step)
            usleep(kSettleUs / 3);
        if (!isLoaded())
            m_x.Do("key Escape key Escape");
    }
    EXPECT_TRUE(isLoaded()) << m_x.Journal();
}

TEST_F(RealInput, AClickPicksAndTheJournalHasIt)
{
    ASSERT_TRUE(StartWithModel());
    ASSERT_TRUE(m_x.Do(kOverTheModel + " click 1"));

    EXPECT_TRUE(m_x.JournalGets("(sel:highlight (app:pick-entity")) << m_x.Journal();
}

TEST_F(RealInput, AKeyDuringAJobIsHeldAndDoesItsWorkAfterwards)
{
    m_x.Dir().Write("config/pellux/pellux.toml", "[hotkeys]\n\"Ctrl-f\" = \"(view:front)\"\n");
    ASSERT_TRUE(m_x.Start({"--eval", m_x.Writing("ready", "1"), "--eval",
                           "(begin (usleep 1500000) " + m_x.Writing("done", "1") + ")"}));
    ASSERT_TRUE(XSession::Until([&] { return m_x.Read("ready") == "1"; }));
    ASSERT_TRUE(m_x.Do("search --onlyvisible --name '^Pellux' windowfocus"));
    ASSERT_TRUE(m_x.Do(kOverTheModel + " click 1 key ctrl+f"));
    const bool wasHeld =
        m_x.Read("done").empty() && m_x.Journal().find("(view:front)") == std::string::npos;

    EXPECT_TRUE(wasHeld);
    EXPECT_TRUE(m_x.JournalGets("(view:front)")) << m_x.Journal();
    EXPECT_LT(m_x.Journal().find("usleep"), m_x.Journal().find("(view:front)"));
    EXPECT_EQ(m_x.Journal().find("(view:front)"), m_x.Journal().rfind("(view:front)"));
}

TEST_F(RealInput, EscapeEndsAnEndlessLoopAndTheWindowGoesOn)
{
    ASSERT_TRUE(m_x.Start({kGear, "--up", "z", "--eval", m_x.Writing("ready", "1"), "--eval",
                           "(let loop () (loop))"}));
    ASSERT_TRUE(XSession::Until([&] { return m_x.Read("ready") == "1"; }));
    ASSERT_TRUE(m_x.Do("search --onlyvisible --name '^Pellux' windowfocus"));
    ASSERT_TRUE(m_x.Do(kOverTheModel + " click 1 key Escape"));
    EXPECT_EQ(m_x.Journal().find("(sel:set"), std::string::npos);

    EXPECT_TRUE(XSession::Until([&] {
        m_x.Do(kOverTheModel + " click 1");
        return m_x.Journal().find("(sel:") != std::string::npos;
    }));
}

TEST_F(RealInput, CtrlCInTheTerminalEndsWhatRunsAndTheProgram)
{
    ASSERT_TRUE(m_x.Start({"--eval", m_x.Writing("ready", "1"), "--eval", "(let loop () (loop))"}));
    ASSERT_TRUE(XSession::Until([&] { return m_x.Read("ready") == "1"; }));
    m_x.Signal(SIGINT);

    EXPECT_EQ(m_x.WaitForEnd(), 130);
    EXPECT_EQ(m_x.Read("errors").substr(0, 12), "Interrupted;");
}

} // namespace
