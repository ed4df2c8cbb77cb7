#include "XSession.h"

#include <RunFolderWithFaults.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace {

namespace fs = std::filesystem;

const std::string kGear = std::string(ORVIK_SOURCE_FOLDER) + "/examples/gear.stl";

class ACrash : public ::testing::Test
{
protected:
    void SetUp() override
    {
        if (!m_x.WhyNot().empty())
            GTEST_SKIP() << m_x.WhyNot();
    }

    bool StartAndWait()
    {
        fs::remove(m_x.Dir().Path() / "ready");
        // The reports are the program's, not the sanitizers'.
        return m_x.Start({"--eval", "(app:print 1)", "--eval", m_x.Writing("ready", "1")},
                         "ASAN_OPTIONS=handle_segv=0 TSAN_OPTIONS=handle_segv=0") &&
               XSession::Until([&] { return m_x.Read("ready") == "1"; });
    }

    std::vector<fs::path> Entries(const char* folder) const
    {
        std::vector<fs::path> entries;
        for (const fs::directory_entry& entry :
             fs::directory_iterator(m_x.Dir().Path() / "state/pellux" / folder))
            entries.push_back(entry.path());
        return entries;
    }

    std::size_t Marks() const { return Entries("running").size(); }

    static std::string TextOf(const fs::path& file)
    {
        std::ifstream stream(file);
        return {std::istreambuf_iterator<char>(stream), {}};
    }

    /// The bar that tells of a crash has the colour of tool tips across the top of the view.
    static bool ShowsTheBar(const XSession& x)
    {
        const std::vector<std::uint32_t> pixels = x.Pixels(300, 50, 700, 40);
        const auto isTip = [](std::uint32_t pixel) { return (pixel & 0xFFFFFF) == 0xFFFFDC; };
        return std::count_if(pixels.begin(), pixels.end(), isTip) > 7000;
    }

    XSession m_x;
};

TEST_F(ACrash, LeavesItsMarkForTheNextStart)
{
    ASSERT_TRUE(StartAndWait());
    EXPECT_EQ(Marks(), 1U);
    m_x.Signal(SIGKILL);
    EXPECT_EQ(m_x.WaitForEnd(), 128 + SIGKILL);
    EXPECT_EQ(Marks(), 1U);

    // It stays until somebody has answered.
    ASSERT_TRUE(StartAndWait());
    EXPECT_EQ(Marks(), 2U);
    EXPECT_TRUE(XSession::Until([&] { return ShowsTheBar(m_x); }));
}

TEST_F(ACrash, AGoodEndLeavesNone)
{
    ASSERT_TRUE(StartAndWait());
    m_x.Signal(SIGINT);
    EXPECT_EQ(m_x.WaitForEnd(), 130);

    EXPECT_EQ(Marks(), 0U);
}

TEST_F(ACrash, IsNoneForASecondWindow)
{
    ASSERT_TRUE(StartAndWait());
    XSession other;
    const std::string folder = m_x.Dir().Path().string();
    ASSERT_TRUE(other.Start({"--eval", other.Writing("ready", "1")},
                            "XDG_STATE_HOME='" + folder + "/state'"));
    ASSERT_TRUE(XSession::Until([&] { return other.Read("ready") == "1"; }));

    EXPECT_EQ(Marks(), 2U);
    EXPECT_FALSE(ShowsTheBar(other));
    other.Signal(SIGINT);
    EXPECT_EQ(other.WaitForEnd(), 130);
    EXPECT_EQ(Marks(), 1U);
}

TEST_F(ACrash, OfTheProgramLeavesAReportAndAWholeJournal)
{
    MakeRunFolderWithFaults(m_x.Dir().Path() / "bin");
    m_x.UseRunFolder(m_x.Dir().Path() / "bin");
    ASSERT_TRUE(m_x.Start(
        {kGear, "--up", "z", "--eval", "(view:front)", "--eval", "(test:go-wrong \"terminate\")"}));
    EXPECT_EQ(m_x.WaitForEnd(), 128 + SIGABRT);

    ASSERT_EQ(Marks(), 1U);
    const std::string mark = TextOf(Entries("running").front());
    const std::string report = mark.substr(mark.find("report=") + 7);
    EXPECT_FALSE(TextOf(report.substr(0, report.find('\n'))).empty()) << mark;
    const std::string journal = TextOf(Entries("journals").front());
    EXPECT_TRUE(journal.ends_with("(doc:load \"" + kGear + "\")\n(view:front)\n")) << journal;

    ASSERT_TRUE(StartAndWait());
    EXPECT_TRUE(XSession::Until([&] { return ShowsTheBar(m_x); }));
    // The second button of the bar repeats what was done, which the new journal then has.
    ASSERT_TRUE(m_x.Do("search --onlyvisible --name '^Pellux' windowfocus key alt+r"));
    EXPECT_TRUE(XSession::Until([&] {
        const std::vector<fs::path> journals = Entries("journals");
        return std::count_if(journals.begin(), journals.end(), [](const fs::path& file) {
                   return TextOf(file).find("\n(view:front)\n") != std::string::npos;
               }) == 2;
    }));
    EXPECT_EQ(Marks(), 1U);
}

TEST_F(ACrash, ByASignalLeavesAReportThatTheNextStartNames)
{
    ASSERT_TRUE(StartAndWait());
    m_x.Signal(SIGSEGV);
    EXPECT_EQ(m_x.WaitForEnd(), 128 + SIGSEGV);

    ASSERT_EQ(Marks(), 1U);
    const std::string mark = TextOf(Entries("running").front());
    std::string report = mark.substr(mark.find("report=") + 7);
    report = report.substr(0, report.find('\n'));
    EXPECT_EQ(TextOf(report).find("The program was ended by signal 11 (SIGSEGV).\n"), 0U) << report;
    EXPECT_NE(TextOf(report).find("libQt6"), std::string::npos) << TextOf(report);
    ASSERT_TRUE(StartAndWait());
    EXPECT_TRUE(XSession::Until([&] { return ShowsTheBar(m_x); }));
}

TEST_F(ACrash, OfAPluginIsNone)
{
    MakeRunFolderWithFaults(m_x.Dir().Path() / "bin");
    m_x.UseRunFolder(m_x.Dir().Path() / "bin");
    m_x.Dir().Write("a.wrong", "null");
    ASSERT_TRUE(m_x.Start({(m_x.Dir().Path() / "a.wrong").string()}));
    const std::string next = m_x.Writing("next", "2");
    ASSERT_TRUE(XSession::Until([&] {
        m_x.Do("mousemove 616 808 click 1 type '" + next + "'");
        m_x.Do("key Return");
        return m_x.Read("next") == "2";
    }));
    m_x.Signal(SIGINT);
    EXPECT_EQ(m_x.WaitForEnd(), 130);
    EXPECT_EQ(Marks(), 0U);
}

} // namespace
