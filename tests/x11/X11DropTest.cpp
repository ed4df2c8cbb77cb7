#include "XSession.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

namespace {

const std::string kGear = std::string(ORVIK_SOURCE_FOLDER) + "/examples/gear.stl";

/// Files are dragged out of another program's window with the mouse.
class RealDrop : public ::testing::Test
{
protected:
    void SetUp() override
    {
        if (!m_x.WhyNot().empty())
            GTEST_SKIP() << m_x.WhyNot();
    }

    bool StartWindow(const std::string& last = "1")
    {
        return m_x.Start({"--eval", m_x.Writing("ready", "1"), "--eval", last}) &&
               XSession::Until([&] { return m_x.Read("ready") == "1"; });
    }

    std::string Copy(const std::string& name)
    {
        const std::string file = (m_x.Dir().Path() / name).string();
        std::filesystem::copy_file(kGear, file);
        return file;
    }

    /// Drags files over the view and lets go there. @return whether they were taken.
    bool Drag(const std::vector<std::string>& files)
    {
        std::string arguments = "1310 910";
        for (const std::string& file : files)
            arguments += " '" + file + "'";
        return m_x.RunBeside("'" ORVIK_DRAG_SOURCE "' " + arguments, [this] {
            return XSession::Until([&] { return m_x.HasWindow("Source of files"); }) &&
                   m_x.Do("mousemove 1350 950 sleep 0.3 mousedown 1 sleep 0.3 "
                          "mousemove 1340 940 sleep 0.2 mousemove 1200 700 sleep 0.2 "
                          "mousemove 640 300 sleep 0.2 mousemove 650 305 sleep 0.4 "
                          "mousemove 655 308 sleep 0.4 mouseup 1");
        });
    }

    XSession m_x;
};

TEST_F(RealDrop, OpensAFile)
{
    const std::string file = Copy("a gear.stl");
    ASSERT_TRUE(StartWindow());

    EXPECT_TRUE(Drag({file}));
    EXPECT_TRUE(m_x.JournalGets("(doc:load \"" + file + "\")")) << m_x.Journal();
}

TEST_F(RealDrop, OpensTheFirstOfTwoFilesAndAddsTheOther)
{
    const std::string one = Copy("one.stl");
    const std::string two = Copy("two.stl");
    ASSERT_TRUE(StartWindow());

    EXPECT_TRUE(Drag({one, two}));
    EXPECT_TRUE(m_x.JournalGets("(doc:load \"" + one + "\")\n(doc:import \"" + two + "\")"))
        << m_x.Journal();
}

TEST_F(RealDrop, OfWhatIsNoModelLeavesTheProgramAsItWas)
{
    const std::string text = (m_x.Dir().Path() / "notes.txt").string();
    std::ofstream(text) << "Milk, bread.\n";
    const std::string file = Copy("after.stl");
    ASSERT_TRUE(StartWindow());

    EXPECT_TRUE(Drag({text}));
    EXPECT_TRUE(Drag({file}));
    EXPECT_TRUE(m_x.JournalGets("(doc:load \"" + file + "\")")) << m_x.Journal();
}

TEST_F(RealDrop, WhileSomethingRunsIsDoneAfterwards)
{
    const std::string file = Copy("later.stl");
    ASSERT_TRUE(StartWindow("(begin (usleep 6000000) " + m_x.Writing("done", "1") + ")"));

    EXPECT_TRUE(Drag({file}));
    EXPECT_EQ(m_x.Read("done"), "");
    EXPECT_TRUE(m_x.JournalGets("(doc:load \"" + file + "\")")) << m_x.Journal();
    EXPECT_LT(m_x.Journal().find("usleep"), m_x.Journal().find("later.stl"));
}

} // namespace
