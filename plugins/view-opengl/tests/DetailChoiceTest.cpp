#include "DetailChoice.h"

#include <TambVizCore/GeoNode.h>
#include <TambVizCore/Node.h>
#include <TambVizCore/RenderingOptions.h>

#include <gtest/gtest.h>

#include <deque>

namespace ViewOpenGl {
namespace {

using TambVizCore::GeoNode;
using TambVizCore::PartKind;
using TambVizCore::RenderingOptions;

constexpr double kMilliseconds = 36.0;

/// Primitives of a body, or of a version of it.
struct Counts
{
    int triangles = 0;
    int segments = 0;
    int points = 0;
};

/// Bodies in a window of 1920 x 1080, without OpenGL.
class DetailChoice : public ::testing::Test
{
protected:
    DetailChoice()
    {
        m_rest.slices = 1.0;
        m_rest.pixels = 1920.0 * 1080.0;
    }

    static void fill(const Counts& counts, std::array<GpuPrimitives, 3>& out)
    {
        out[0].count = 3 * counts.triangles;
        out[1].count = 2 * counts.segments;
        out[2].count = counts.points;
    }

    /// Adds a body whose longest side is about so many pixels.
    FrameItem& add(const Counts& counts, double pixels = 1000.0)
    {
        GpuGeometry& geometry = m_geometries.emplace_back();
        fill(counts, geometry.primitives);
        geometry.isComplete = true;
        geometry.hasLevels = true;
        FrameItem& item = m_items.emplace_back();
        item.node = m_root.CreateChildGeoNode(++m_id);
        item.geometry = &geometry;
        item.box = {-1.0, -1.0, -1.0, 1.0, 1.0, 1.0};
        item.pixels = pixels;
        item.covered = std::min(pixels * pixels / 3.0, m_rest.pixels);
        return item;
    }

    /// Adds a coarser version.
    static void addLevel(FrameItem& item, double cells, const Counts& counts)
    {
        GpuLevel& level = item.geometry->levels.emplace_back();
        level.cell = 2.0 / cells;
        fill(counts, level.primitives);
    }

    Coarseness fit()
    {
        return FitBudget(m_model, kMilliseconds, m_rest, m_options, m_items, m_order);
    }

    /// @return what a frame so coarse takes.
    double foretold(const Coarseness& coarseness)
    {
        FrameWork work = WorkOf(m_items, m_options, coarseness.edges);
        work += m_rest;
        return m_model.Milliseconds(Shrunk(work, coarseness));
    }

    /// The model learns that a frame of some work takes some time.
    void teach(const FrameWork& work, double milliseconds)
    {
        for (int i = 0; i < 200; ++i)
            m_model.Learn(work, milliseconds);
    }

    void expectFits()
    {
        const Coarseness coarseness = fit();

        EXPECT_LE(foretold(coarseness), kMilliseconds);
        for (const FrameItem& item : m_items)
            if (!item.leftOut)
                return;
        ADD_FAILURE() << "nothing is drawn";
    }

    TambVizCore::Node m_root{1};
    std::uint64_t m_id = 1;
    std::deque<GpuGeometry> m_geometries;
    std::vector<FrameItem> m_items;
    std::vector<FrameItem*> m_order;
    RenderingOptions m_options;
    FrameWork m_rest;
    CostModel m_model;
};

TEST_F(DetailChoice, LeavesASceneAsItIsThatFits)
{
    add({.triangles = 1000});

    const Coarseness coarseness = fit();

    EXPECT_EQ(coarseness.cellPixels, 0.0);
    EXPECT_EQ(coarseness.scale, 1.0);
}

TEST_F(DetailChoice, DrawsFewerPixelsWhereThePixelsAreDear)
{
    // Shells behind shells: few triangles that cover the picture many times.
    add({.triangles = 29000}, 1700.0);
    FrameWork full = WorkOf(m_items, m_options, true);
    full += m_rest;
    teach(full, 60.0);
    teach(Shrunk(full, {.scale = 0.5}), 20.0);

    const Coarseness coarseness = fit();

    EXPECT_LT(coarseness.scale, 1.0);
    EXPECT_LE(foretold(coarseness), kMilliseconds);
    EXPECT_FALSE(m_items[0].asBox);
    EXPECT_FALSE(m_items[0].leftOut);
}

TEST_F(DetailChoice, FitsShellsThatNoVersionMakesFewer)
{
    addLevel(add({.triangles = 10000000, .segments = 1000000}), 64.0, {.triangles = 5000000});

    expectFits();
}

TEST_F(DetailChoice, FitsABodyThatIsMuchLargerThanTheWindow)
{
    FrameItem& item = add({.triangles = 20000000}, 40000.0);
    addLevel(item, 320.0, {.triangles = 600000});
    addLevel(item, 16.0, {.triangles = 1500});

    expectFits();
    EXPECT_FALSE(m_items[0].asBox) << "a version is better than a box";
}

TEST_F(DetailChoice, FitsManyBodiesThatAreSmallEachAndKeepsThemInSight)
{
    for (int i = 0; i < 5000; ++i)
        add({.triangles = 1900}, 60.0);

    expectFits();
}

TEST_F(DetailChoice, FitsMoreBodiesThanBoxesCouldStandFor)
{
    for (int i = 0; i < 100000; ++i)
        add({.triangles = 1900}, 40.0 + 0.01 * i);

    expectFits();
}

TEST_F(DetailChoice, FitsLargeClouds)
{
    FrameItem& item = add({.points = 100000000});
    addLevel(item, 320.0, {.points = 20000000});
    addLevel(item, 8.0, {.points = 512});

    expectFits();
    EXPECT_FALSE(m_items[0].asBox);
}

TEST_F(DetailChoice, FitsBodiesOfOnlySegments)
{
    addLevel(add({.segments = 50000000}), 8.0, {.segments = 2000});

    expectFits();
    EXPECT_FALSE(m_items[0].asBox);
}

TEST_F(DetailChoice, FitsLayersThatCoverThePictureManyTimes)
{
    for (int i = 0; i < 2000; ++i)
        add({.triangles = 2}, 1920.0 + i);

    expectFits();
}

TEST_F(DetailChoice, FitsOnAMachineThatIsSlowInEverything)
{
    for (int i = 0; i < 100; ++i)
        add({.triangles = 10000, .segments = 1000}, 100.0 + i);
    FrameWork work = WorkOf(m_items, m_options, true);
    work += m_rest;
    teach(work, 20.0 * m_model.Milliseconds(work));

    const Coarseness coarseness = fit();

    FrameWork least = m_rest;
    least = Shrunk(least, {.scale = 0.25});
    EXPECT_LE(foretold(coarseness),
              std::max(kMilliseconds, m_model.Milliseconds(least) + 0.25 * kMilliseconds));
}

TEST_F(DetailChoice, DrawsSomethingThoughTheRestAloneIsTooDear)
{
    add({.triangles = 2000});
    teach(m_rest, 3000.0);

    fit();

    EXPECT_FALSE(m_items[0].leftOut);
}

TEST_F(DetailChoice, KeepsTheSegmentsOfBodiesThatShowNoFaces)
{
    add({.segments = 10});
    add({.triangles = 10, .segments = 100});

    EXPECT_EQ(WorkOf(m_items, m_options, false).segments, 10.0);
    EXPECT_TRUE(ShowsEdges(m_items[0], m_options, false));
    EXPECT_FALSE(ShowsEdges(m_items[1], m_options, false));
    m_options.SetShowFaces(false);
    EXPECT_TRUE(ShowsEdges(m_items[1], m_options, false));
    m_options.SetShowEdges(false);
    EXPECT_FALSE(ShowsEdges(m_items[0], m_options, true));
}

TEST_F(DetailChoice, CountsLinesThatFollowNoSwitch)
{
    add({.triangles = 10, .segments = 10}).isOwnColored = true;
    m_options.SetShowEdges(false);

    EXPECT_EQ(WorkOf(m_items, m_options, false).segments, 10.0);
}

} // namespace
} // namespace ViewOpenGl
