#include "XSession.h"

#include <gtest/gtest.h>

#include <csignal>
#include <cstdint>
#include <set>
#include <vector>

namespace {

const std::string kGear = std::string(ORVIK_SOURCE_FOLDER) + "/examples/gear.stl";

class Graphics : public ::testing::TestWithParam<const char*>
{
protected:
    void SetUp() override
    {
        if (!m_x.WhyNot().empty())
            GTEST_SKIP() << m_x.WhyNot();
    }

    XSession m_x;
};

TEST_P(Graphics, ShowsTheModelAndTurnsIt)
{
    ASSERT_TRUE(m_x.Start({kGear, "--up", "z", "--graphics", GetParam(), "--eval", "(view:iso)",
                           "--eval", m_x.Writing("ready", "1")}));
    ASSERT_TRUE(XSession::Until([&] { return m_x.Read("ready") == "1"; }));
    const auto colors = [this] {
        const std::vector<std::uint32_t> pixels = m_x.Pixels(400, 150, 480, 240);
        return std::set<std::uint32_t>(pixels.begin(), pixels.end()).size();
    };
    // The background alone has a colour for each of the rows.
    EXPECT_TRUE(XSession::Until([&] { return colors() > 300; })) << colors();

    const std::vector<std::uint32_t> before = m_x.Pixels(400, 150, 480, 240);
    ASSERT_TRUE(m_x.Do("mousemove 640 300 mousedown 1 mousemove_relative 60 20 "
                       "mousemove_relative 60 20 mouseup 1"));
    EXPECT_TRUE(XSession::Until([&] { return m_x.Pixels(400, 150, 480, 240) != before; }));
    EXPECT_FALSE(m_x.HasEnded());
    m_x.Signal(SIGINT);
    EXPECT_EQ(m_x.WaitForEnd(), 130);
}

INSTANTIATE_TEST_SUITE_P(Paths, Graphics, ::testing::Values("image", "window"));

} // namespace
