#include "XSession.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <csignal>
#include <cstdint>
#include <fstream>
#include <iterator>
#include <string>
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
    // Edges are dark, the background is not.
    const auto showsEdges = [this] {
        const std::vector<std::uint32_t> pixels = m_x.Pixels(600, 150, 400, 240);
        return std::any_of(pixels.begin(), pixels.end(), [](std::uint32_t pixel) {
            return ((pixel >> 16 & 0xFF) + (pixel >> 8 & 0xFF) + (pixel & 0xFF)) < 120;
        });
    };
    EXPECT_TRUE(XSession::Until(showsEdges));

    const std::vector<std::uint32_t> before = m_x.Pixels(600, 150, 400, 240);
    ASSERT_TRUE(m_x.Do("mousemove 700 300 mousedown 1 mousemove_relative 60 20 "
                       "mousemove_relative 60 20 mouseup 1"));
    EXPECT_TRUE(XSession::Until([&] { return m_x.Pixels(600, 150, 400, 240) != before; }));
    EXPECT_FALSE(m_x.HasEnded());
    m_x.Signal(SIGINT);
    EXPECT_EQ(m_x.WaitForEnd(), 130);
}

INSTANTIATE_TEST_SUITE_P(Paths, Graphics, ::testing::Values("image", "window"));

TEST(ADisplayThatDoesNotAnswer, EndsTheStartWithALine)
{
    XSession x;
    if (!x.WhyNot().empty())
        GTEST_SKIP() << x.WhyNot();
    EXPECT_FALSE(x.Start({}, "DISPLAY=:9876"));

    EXPECT_EQ(x.WaitForEnd(), 3);
    std::ifstream errors(x.Dir().Path() / "errors");
    const std::string text{std::istreambuf_iterator<char>(errors), {}};
    EXPECT_NE(text.find("\npellux: no window can be opened: "), std::string::npos) << text;
    EXPECT_EQ(text.find("Calls, the last first:"), std::string::npos) << text;
}

} // namespace
