#include "XSession.h"

#include <RunFolderWithFaults.h>
#include <gtest/gtest.h>

#include <csignal>
#include <filesystem>

namespace {

namespace fs = std::filesystem;

/// Closes the window as a window manager does.
class Closing : public ::testing::Test
{
protected:
    void SetUp() override
    {
        if (!m_x.WhyNot().empty())
            GTEST_SKIP() << m_x.WhyNot();
    }

    bool Start(const std::string& form)
    {
        return m_x.Start({"--eval", "(view:front)", "--eval", m_x.Writing("ready", "1"), "--eval",
                          form}) &&
               XSession::Until([&] { return m_x.Read("ready") == "1"; });
    }

    bool HasMarks() const { return !fs::is_empty(m_x.Dir().Path() / "state/pellux/running"); }

    XSession m_x;
};

TEST_F(Closing, EndsAnIdleProgram)
{
    ASSERT_TRUE(Start("(app:print 1)"));
    ASSERT_TRUE(m_x.Close());

    EXPECT_EQ(m_x.WaitForEnd(), 0);
    EXPECT_FALSE(HasMarks());
}

TEST_F(Closing, WaitsForWhatRuns)
{
    ASSERT_TRUE(Start("(begin (usleep 1500000) " + m_x.Writing("done", "1") + ")"));
    ASSERT_TRUE(m_x.Close());

    EXPECT_EQ(m_x.WaitForEnd(), 0);
    EXPECT_EQ(m_x.Read("done"), "1");
    EXPECT_NE(m_x.Journal().find("usleep"), std::string::npos);
}

TEST_F(Closing, AtTheEndOfTheSessionLeavesNoMarkAndKeepsTheJournal)
{
    for (const char* const form : {"(app:print 1)", "(let loop () (loop))"}) {
        ASSERT_TRUE(Start(form));
        m_x.Signal(SIGTERM);

        EXPECT_EQ(m_x.WaitForEnd(), 0) << form;
        EXPECT_FALSE(HasMarks());
        std::filesystem::remove(m_x.Dir().Path() / "ready");
    }
}

TEST_F(Closing, ByForceEndsTheProcessAndKeepsTheJournal)
{
    MakeRunFolderWithFaults(m_x.Dir().Path() / "bin");
    m_x.UseRunFolder(m_x.Dir().Path() / "bin");
    ASSERT_TRUE(Start("(test:go-wrong \"forever\")"));
    ASSERT_TRUE(m_x.Close());
    ASSERT_TRUE(XSession::Until([&] {
        m_x.Close();
        return m_x.HasWindow("Something still runs");
    }));
    EXPECT_FALSE(m_x.HasEnded());
    ASSERT_TRUE(m_x.Do("search --onlyvisible --name '^Something' windowfocus key alt+e"));

    EXPECT_EQ(m_x.WaitForEnd(), 1);
    EXPECT_FALSE(HasMarks());
    EXPECT_NE(m_x.Journal().find("\n(view:front)\n"), std::string::npos) << m_x.Journal();
    EXPECT_TRUE(m_x.Journal().ends_with("\n")) << m_x.Journal();
}

} // namespace
