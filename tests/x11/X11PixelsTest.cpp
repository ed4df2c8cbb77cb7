#include "XSession.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

namespace {

struct Display
{
    const char* name;
    const char* scaleFactor; ///< Of Qt under X.
    int waylandScale;        ///< Of the compositor; 0 for none.
};

void PrintTo(const Display& display, std::ostream* stream)
{
    *stream << display.name;
}

/// The window where a pixel of the user interface is several of the display.
class PixelRatio : public ::testing::TestWithParam<Display>
{
protected:
    void SetUp() override
    {
        if (GetParam().waylandScale > 0)
            m_x.UseWayland(GetParam().waylandScale);
        if (!m_x.WhyNot().empty())
            GTEST_SKIP() << m_x.WhyNot();
    }

    /// Writes a square from y = 0 to 10 across a range of x, as a mesh of one colour.
    std::string WriteSquare(const std::string& name, double from, double to,
                            const std::string& color) const
    {
        const std::string file = (m_x.Dir().Path() / name).string();
        std::ofstream stream(file);
        stream
            << "ply\nformat ascii 1.0\nelement vertex 4\nproperty float x\nproperty float y\n"
               "property float z\nproperty uchar red\nproperty uchar green\nproperty uchar blue\n"
               "element face 1\nproperty list uchar int vertex_indices\nend_header\n";
        for (const auto& [x, y] : {std::pair{from, 0}, {to, 0}, {to, 10}, {from, 10}})
            stream << x << ' ' << y << " 0 " << color << '\n';
        stream << "4 0 1 2 3\n";
        return file;
    }

    /// @return the last column before the colour changes along a row that crosses both squares, and
    ///         the row; nothing where there is none.
    std::vector<int> FindBorder() const
    {
        const std::vector<std::uint32_t> pixels = m_x.Pixels(0, 0, kWidth, kHeight);
        for (int y = 0; y < kHeight && pixels.size() == std::size_t{kWidth} * kHeight; ++y) {
            const auto row = pixels.begin() + std::ptrdiff_t{y} * kWidth;
            const auto red = std::count_if(row, row + kWidth, isRed);
            const auto blue = std::count_if(row, row + kWidth, isBlue);
            if (red < kLeastPixels || blue < kLeastPixels)
                continue;
            const auto last = std::find_if(std::make_reverse_iterator(row + kWidth),
                                           std::make_reverse_iterator(row), isRed);
            const int x = static_cast<int>(last.base() - row) - 1;
            // Into the squares, away from their upper edges.
            return {x, y + kLeastPixels / 2};
        }
        return {};
    }

    /// @return what a click finds, as the journal tells it.
    std::string PickAt(int x, int y)
    {
        const std::size_t before = m_x.Journal().size();
        m_x.Do("mousemove " + std::to_string(x) + " " + std::to_string(y) + " click 1");
        std::size_t pick = std::string::npos;
        XSession::Until([&] {
            const std::string journal = m_x.Journal();
            pick = journal.find(";= pick ", before);
            return pick != std::string::npos && journal.find('\n', pick) != std::string::npos;
        });
        const std::string journal = m_x.Journal();
        return pick == std::string::npos ? journal
                                         : journal.substr(pick, journal.find('\n', pick) - pick);
    }

    static constexpr int kWidth = 1400;
    static constexpr int kHeight = 1000;
    static constexpr int kLeastPixels = 40;

    XSession m_x;

private:
    static bool isRed(std::uint32_t pixel)
    {
        return (pixel >> 16 & 255) > 150 && (pixel >> 8 & 255) < 70 && (pixel & 255) < 70;
    }
    static bool isBlue(std::uint32_t pixel)
    {
        return (pixel & 255) > 150 && (pixel >> 8 & 255) < 70 && (pixel >> 16 & 255) < 70;
    }
};

TEST_P(PixelRatio, AClickFindsWhatLiesUnderThePointer)
{
    const std::string left = WriteSquare("left.ply", 0, 10, "255 0 0");
    const std::string right = WriteSquare("right.ply", 10, 20, "0 0 255");
    ASSERT_TRUE(m_x.Start({left, right, "--eval", "(view:animate #f)", "--eval", "(view:front)",
                           "--eval", "(view:display-edges #f)", "--eval", "(view:zoom-all)",
                           "--eval", m_x.Writing("ready", "1")},
                          std::string("QT_SCALE_FACTOR=") + GetParam().scaleFactor));
    ASSERT_TRUE(XSession::Until([&] { return m_x.Read("ready") == "1"; }));
    std::vector<int> border;
    ASSERT_TRUE(XSession::Until([&] {
        border = FindBorder();
        return !border.empty();
    }));

    // The edge between them, which is not displayed, is in nobody's way.
    const std::string onTheLeft = PickAt(border[0] - 2, border[1]);
    const std::string onTheRight = PickAt(border[0] + 2, border[1]);
    EXPECT_EQ(onTheLeft.find(";= pick face "), 0U) << onTheLeft;
    EXPECT_EQ(onTheRight.find(";= pick face "), 0U) << onTheRight;
    EXPECT_NE(onTheLeft, onTheRight);
}

INSTANTIATE_TEST_SUITE_P(Displays, PixelRatio,
                         ::testing::Values(Display{"Times1", "1", 0}, Display{"Times1_5", "1.5", 0},
                                           Display{"Times2", "2", 0},
                                           Display{"WaylandTimes1", "1", 1},
                                           Display{"WaylandTimes2", "1", 2}),
                         [](const auto& tested) { return tested.param.name; });

} // namespace
