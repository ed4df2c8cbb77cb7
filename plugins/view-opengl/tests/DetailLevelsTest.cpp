#include "DetailLevels.h"

#include "Shapes.h"
#include "TickingClock.h"

#include <TambVizCore/Geometry.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <set>
#include <utility>

namespace ViewOpenGl {
namespace {

using TambVizCore::Geometry;

std::vector<DetailLevel> levelsOf(const Geometry& geometry)
{
    DetailBuilder builder;
    EXPECT_TRUE(builder.Continue(geometry, TimeSlice()));
    return std::move(builder.Levels());
}

TEST(DetailLevels, EachHasClearlyFewerPrimitivesThanTheOneBefore)
{
    const auto sphere = MakeSphere(200);

    const auto levels = levelsOf(*sphere);

    ASSERT_GE(levels.size(), 2u);
    std::size_t before = sphere->TriangleCount() + sphere->SegmentCount();
    for (const DetailLevel& level : levels) {
        const std::size_t count =
            level.primitives[0].sources.size() + level.primitives[1].sources.size();
        EXPECT_LE(count, 0.6 * static_cast<double>(before));
        EXPECT_GT(level.primitives[0].sources.size(), 8u);
        before = count;
    }
}

TEST(DetailLevels, MoveNoCornerFartherThanTheDiagonalOfACell)
{
    const auto sphere = MakeSphere(200);
    for (const DetailLevel& level : levelsOf(*sphere)) {
        const auto& primitives = level.primitives[0];
        // Levels build on each other, so moves add up; the cells grow by more than twice.
        const double most = 2.0 * std::sqrt(3.0) * level.cell;
        for (std::size_t i = 0; i < primitives.indices.size(); ++i) {
            const std::uint32_t from =
                sphere->Triangles()[std::size_t{3} * primitives.sources[i / 3] + i % 3];
            const float* const a = sphere->Positions().Data() + std::size_t{3} * from;
            const float* const b =
                sphere->Positions().Data() + std::size_t{3} * primitives.indices[i];
            ASSERT_LE(std::hypot(a[0] - b[0], a[1] - b[1], a[2] - b[2]), most);
        }
    }
}

TEST(DetailLevels, HoldNoTriangleTwiceAndNoneThatIsFlat)
{
    for (const DetailLevel& level : levelsOf(*MakeSphere(200))) {
        std::set<std::array<std::uint32_t, 3>> seen;
        const auto& indices = level.primitives[0].indices;
        for (std::size_t i = 0; i < indices.size(); i += 3) {
            std::array<std::uint32_t, 3> corners = {indices[i], indices[i + 1], indices[i + 2]};
            std::rotate(corners.begin(), std::min_element(corners.begin(), corners.end()),
                        corners.end());
            EXPECT_TRUE(seen.insert(corners).second);
            EXPECT_NE(corners[0], corners[1]);
            EXPECT_NE(corners[1], corners[2]);
        }
    }
}

TEST(DetailLevels, HoldNoSegmentTwiceEitherWay)
{
    for (const DetailLevel& level : levelsOf(*MakeSphere(200))) {
        std::set<std::pair<std::uint32_t, std::uint32_t>> seen;
        const auto& indices = level.primitives[1].indices;
        for (std::size_t i = 0; i < indices.size(); i += 2) {
            EXPECT_TRUE(seen.insert(std::minmax(indices[i], indices[i + 1])).second);
            EXPECT_NE(indices[i], indices[i + 1]);
        }
    }
}

TEST(DetailLevels, AreTheSameWhetherMadeAtOnceOrInSlices)
{
    const auto sphere = MakeSphere(120);
    const auto atOnce = levelsOf(*sphere);
    TickingClock clock(2000);
    DetailBuilder builder;
    int slices = 1;
    while (!builder.Continue(*sphere, TimeSlice(1)))
        ++slices;

    EXPECT_GT(slices, 5);
    ASSERT_EQ(builder.Levels().size(), atOnce.size());
    for (std::size_t i = 0; i < atOnce.size(); ++i)
        for (std::size_t kind = 0; kind < 3; ++kind) {
            EXPECT_EQ(builder.Levels()[i].primitives[kind].indices,
                      atOnce[i].primitives[kind].indices);
            EXPECT_EQ(builder.Levels()[i].primitives[kind].sources,
                      atOnce[i].primitives[kind].sources);
        }
}

TEST(DetailLevels, ThinOutClouds)
{
    std::vector<float> positions;
    std::vector<std::uint32_t> points;
    for (std::uint32_t i = 0; i < 100000; ++i) {
        points.push_back(i);
        positions.push_back(static_cast<float>(i % 317));
        positions.push_back(static_cast<float>(i % 313));
        positions.push_back(0.0f);
    }
    TambVizCore::GeometryBuilder builder;
    builder.SetPositions(TambVizCore::SharedArray<float>(std::move(positions)))
        .SetPoints(TambVizCore::SharedArray<std::uint32_t>(std::move(points)));

    const auto levels = levelsOf(*Build(builder));

    ASSERT_FALSE(levels.empty());
    EXPECT_LT(levels.back().primitives[2].sources.size(), 1000u);
    EXPECT_GT(levels.back().primitives[2].sources.size(), 30u);
}

TEST(DetailLevels, AreNoneWhereNothingCanBeLeftOut)
{
    EXPECT_TRUE(levelsOf(*MakeBox(0.5f)).empty());
    EXPECT_TRUE(levelsOf(*MakePoint()).empty());
}

} // namespace
} // namespace ViewOpenGl
