#include "XSession.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <fstream>
#include <iterator>
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

    std::string Journal() const
    {
        std::string path = m_x.Journals();
        path = path.substr(0, path.find('\n'));
        std::ifstream file(path);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    bool JournalGets(const std::string& text)
    {
        return XSession::Until([&] { return Journal().find(text) != std::string::npos; });
    }

    XSession m_x;
};

TEST_F(RealInput, ADragTurnsTheCameraAndTheJournalHasIt)
{
    ASSERT_TRUE(StartWithModel());
    ASSERT_TRUE(m_x.Do(kOverTheModel + " mousedown 1 mousemove_relative 60 20 "
                                       "mousemove_relative 60 20 mouseup 1"));

    EXPECT_TRUE(JournalGets("(view:set-camera")) << Journal();
}

TEST_F(RealInput, ADragIsShownBeforeTheButtonIsLetGo)
{
    ASSERT_TRUE(StartWithModel());
    ASSERT_TRUE(m_x.Do(kOverTheModel + " mousedown 1"));
    const std::vector<std::uint32_t> before = m_x.Pixels(400, 150, 500, 300);
    ASSERT_TRUE(m_x.Do("mousemove_relative 60 20 mousemove_relative 60 20"));

    EXPECT_TRUE(XSession::Until([&] { return m_x.Pixels(400, 150, 500, 300) != before; }));
    EXPECT_EQ(Journal().find("(view:set-camera"), std::string::npos);
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
        return Journal().find("(doc:load \"" + other + "\")") != std::string::npos;
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
    EXPECT_TRUE(isLoaded()) << Journal();
}

TEST_F(RealInput, AClickPicksAndTheJournalHasIt)
{
    ASSERT_TRUE(StartWithModel());
    ASSERT_TRUE(m_x.Do(kOverTheModel + " click 1"));

    EXPECT_TRUE(JournalGets("(sel:highlight (app:pick-entity")) << Journal();
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
        m_x.Read("done").empty() && Journal().find("(view:front)") == std::string::npos;

    EXPECT_TRUE(wasHeld);
    EXPECT_TRUE(JournalGets("(view:front)")) << Journal();
    EXPECT_LT(Journal().find("usleep"), Journal().find("(view:front)"));
    EXPECT_EQ(Journal().find("(view:front)"), Journal().rfind("(view:front)"));
}

TEST_F(RealInput, EscapeEndsAnEndlessLoopAndTheWindowGoesOn)
{
    ASSERT_TRUE(m_x.Start({kGear, "--up", "z", "--eval", m_x.Writing("ready", "1"), "--eval",
                           "(let loop () (loop))"}));
    ASSERT_TRUE(XSession::Until([&] { return m_x.Read("ready") == "1"; }));
    ASSERT_TRUE(m_x.Do("search --onlyvisible --name '^Pellux' windowfocus"));
    ASSERT_TRUE(m_x.Do(kOverTheModel + " click 1 key Escape"));
    EXPECT_EQ(Journal().find("(sel:set"), std::string::npos);

    EXPECT_TRUE(XSession::Until([&] {
        m_x.Do(kOverTheModel + " click 1");
        return Journal().find("(sel:") != std::string::npos;
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
