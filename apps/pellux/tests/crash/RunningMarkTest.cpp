#include <OrvikOs/Directory.h>
#include <OrvikOs/Process.h>
#include <OrvikOs/Thread.h>

#include <ScopedTempDir.h>
#include <crash/RunningMark.h>
#include <gtest/gtest.h>

#include <filesystem>

using Pellux::CrashedRun;
using Pellux::FindCrashedRuns;
using Pellux::RunningMark;

namespace {

class Marks : public ::testing::Test
{
protected:
    std::wstring Folder() const { return m_dir.WidePath(L"running"); }

    void Write(const std::string& name, const std::string& text) const
    {
        m_dir.Write("running/" + name, text);
    }

    ScopedTempDir m_dir;
    std::wstring m_reason;
};

TEST_F(Marks, ARunThatGoesOnHasNotCrashed)
{
    RunningMark mark(Folder());
    ASSERT_TRUE(mark.Write(L"", L"", m_reason));

    EXPECT_TRUE(FindCrashedRuns(Folder()).empty());
}

TEST_F(Marks, AMarkGoesWithItsRun)
{
    {
        RunningMark mark(Folder());
        ASSERT_TRUE(mark.Write(L"", L"", m_reason));
        EXPECT_FALSE(std::filesystem::is_empty(m_dir.Path() / "running"));
    }

    EXPECT_TRUE(std::filesystem::is_empty(m_dir.Path() / "running"));
}

TEST_F(Marks, AnotherProcessWithTheSameNumberIsAnother)
{
    const std::string process = std::to_string(OrvikOs::CurrentProcessId());
    Write(process + ".mark", "process=" + process + "\nstarted=1\njournal=\nreport=\n");

    const auto runs = FindCrashedRuns(Folder());
    ASSERT_EQ(runs.size(), 1U);
    EXPECT_EQ(runs[0].record.processId, OrvikOs::CurrentProcessId());
    EXPECT_FALSE(runs[0].hasJournal);
    EXPECT_FALSE(runs[0].hasReport);
}

TEST_F(Marks, ACrashedRunNamesItsJournalAndReport)
{
    const std::string folder = m_dir.Path().string();
    m_dir.Write("a=b.journal.scm", ";");
    Write("4294967280.mark", "process=4294967280\nstarted=77\njournal=" + folder +
                                 "/a=b.journal.scm\nreport=" + folder + "/none.crash\n");

    const auto runs = FindCrashedRuns(Folder());
    ASSERT_EQ(runs.size(), 1U);
    EXPECT_EQ(runs[0].record.journal, m_dir.WidePath(L"a=b.journal.scm"));
    EXPECT_TRUE(runs[0].hasJournal);
    EXPECT_FALSE(runs[0].hasReport);

    Pellux::ForgetCrashedRun(runs[0]);
    EXPECT_TRUE(FindCrashedRuns(Folder()).empty());
    EXPECT_TRUE(OrvikOs::IsFile(m_dir.WidePath(L"a=b.journal.scm")));
}

TEST_F(Marks, TheLatestRunComesFirst)
{
    Write("4294967280.mark", "process=4294967280\nstarted=77\n");
    Write("4294967281.mark", "process=4294967281\nstarted=99\n");

    const auto runs = FindCrashedRuns(Folder());
    ASSERT_EQ(runs.size(), 2U);
    EXPECT_EQ(runs[0].record.startTime, 99U);
}

TEST_F(Marks, WhatIsNoMarkIsPassedOver)
{
    Write("1.mark", "");
    Write("2.mark", std::string("process=\0\xff\nstarted=x\n", 22));
    Write("3.mark", "process=-3\nstarted=9\n");
    Write("4294967280.txt", "process=4294967280\nstarted=99\n");
    std::filesystem::create_directories(m_dir.Path() / "running/5.mark");

    EXPECT_TRUE(FindCrashedRuns(Folder()).empty());
    EXPECT_TRUE(FindCrashedRuns(m_dir.WidePath(L"nowhere")).empty());
}

TEST_F(Marks, AFolderThatCannotBeMadeIsReported)
{
    m_dir.Write("running", "a file");
    RunningMark mark(Folder());

    EXPECT_FALSE(mark.Write(L"", L"", m_reason));
    EXPECT_FALSE(m_reason.empty());
}

} // namespace
