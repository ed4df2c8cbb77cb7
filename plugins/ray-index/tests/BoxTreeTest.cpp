#include "BoxTree.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>
#include <vector>

using OrvikRay::Box;
using OrvikRay::BoxTree;

namespace {

std::vector<Box> randomBoxes(std::size_t count)
{
    std::mt19937 random(3);
    std::uniform_real_distribution<float> place(0.0f, 100.0f);
    std::vector<Box> boxes(count);
    for (Box& box : boxes)
        for (std::size_t axis = 0; axis < 3; ++axis) {
            box.lo[axis] = place(random);
            box.hi[axis] = box.lo[axis] + 1.0f;
        }
    return boxes;
}

bool holds(const Box& outer, const Box& inner)
{
    for (std::size_t axis = 0; axis < 3; ++axis)
        if (inner.lo[axis] < outer.lo[axis] || inner.hi[axis] > outer.hi[axis])
            return false;
    return true;
}

/// Walks the tree and checks what every walker relies on. @return the depth.
std::size_t check(const BoxTree& tree, const std::vector<Box>& boxes, std::uint32_t at,
                  std::vector<int>& seen)
{
    const BoxTree::Node& node = tree.Nodes()[at];
    if (node.count > 0) {
        for (std::uint32_t i = 0; i < node.count; ++i) {
            const std::uint32_t primitive = tree.Order()[node.first + i];
            ++seen[primitive];
            EXPECT_TRUE(holds(node.box, boxes[primitive]));
        }
        return 1;
    }
    EXPECT_TRUE(holds(node.box, tree.Nodes()[at + 1].box));
    EXPECT_TRUE(holds(node.box, tree.Nodes()[node.first].box));
    return 1 + std::max(check(tree, boxes, at + 1, seen), check(tree, boxes, node.first, seen));
}

void expectSound(const std::vector<Box>& boxes)
{
    BoxTree tree;
    tree.Build(boxes);
    std::vector<int> seen(boxes.size(), 0);

    const std::size_t depth = check(tree, boxes, 0, seen);

    EXPECT_LE(depth, BoxTree::kMaxDepth);
    EXPECT_EQ(std::count(seen.begin(), seen.end(), 1), static_cast<std::ptrdiff_t>(boxes.size()));
}

} // namespace

TEST(BoxTree, EveryPrimitiveLiesInOneLeafWithinAllBoxesAbove)
{
    expectSound(randomBoxes(5000));
}

TEST(BoxTree, SubtreesOfSeveralTasksFitTogether)
{
    expectSound(randomBoxes(120000));
}

TEST(BoxTree, BoxesAtTheSamePlaceAreHalvedByNumber)
{
    expectSound(std::vector<Box>(1000, Box{{1, 1, 1}, {2, 2, 2}}));
}

TEST(BoxTree, PlacesThatGrowByPowersDoNotMakeItDeep)
{
    std::vector<Box> boxes;
    for (int i = 0; i < 2000; ++i) {
        const float at = std::ldexp(1.0f, i % 250 - 125);
        boxes.push_back({{at, 0, 0}, {at, 0, 0}});
    }
    expectSound(boxes);
}

TEST(BoxTree, WithoutPrimitivesHasNoNodes)
{
    BoxTree tree;

    tree.Build({});

    EXPECT_TRUE(tree.Nodes().empty());
}
