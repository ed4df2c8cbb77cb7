#include "BoxTree.h"

#include <OrvikOs/ParallelFor.h>

#include <algorithm>
#include <array>
#include <limits>
#include <numeric>

namespace OrvikRay {

namespace {

constexpr std::size_t kBins = 16;
constexpr std::uint32_t kLeafSize = 4;
/// Below this depth boxes are halved by number, which bounds the depth of the tree.
constexpr std::size_t kMaxSplitDepth = 60;
/// Primitives of a subtree that is built as one task.
constexpr std::uint32_t kTaskSize = 1u << 15;

/// Primitives that become one subtree, at its place among the upper nodes.
struct Task
{
    std::uint32_t begin;
    std::uint32_t end;
    std::size_t depth;
    std::vector<BoxTree::Node> nodes;
};

/// A node of the upper tree before the subtrees are put in.
struct UpperNode
{
    Box box;
    std::int64_t left = -1;
    std::int64_t right = -1;
    std::int64_t task = -1; ///< Set for leaves of the upper tree.
};

struct Bin
{
    Box box = Box::Empty();
    std::uint32_t count = 0;
};

float centerOf(const Box& box, std::size_t axis)
{
    return box.lo[axis] + box.hi[axis];
}

class Builder
{
public:
    Builder(std::span<const Box> boxes, std::vector<std::uint32_t>& order)
        : m_boxes(boxes), m_order(order)
    {
    }

    Box BoundsOf(std::uint32_t begin, std::uint32_t end) const
    {
        Box box = Box::Empty();
        for (std::uint32_t i = begin; i < end; ++i)
            box.Add(m_boxes[m_order[i]]);
        return box;
    }

    /// Divides a run in two. @return where the second half begins.
    std::uint32_t Split(std::uint32_t begin, std::uint32_t end, std::size_t depth);

    /// Appends the nodes of a run in preorder; `first` of inner nodes counts within @p nodes.
    void BuildSubtree(std::uint32_t begin, std::uint32_t end, std::size_t depth,
                      std::vector<BoxTree::Node>& nodes);

private:
    std::uint32_t splitInHalf(std::uint32_t begin, std::uint32_t end, std::size_t axis);
    std::size_t bestBin(const std::array<Bin, kBins>& bins) const;

    std::span<const Box> m_boxes;
    std::vector<std::uint32_t>& m_order;
};

std::uint32_t Builder::splitInHalf(std::uint32_t begin, std::uint32_t end, std::size_t axis)
{
    const std::uint32_t middle = begin + (end - begin) / 2;
    std::nth_element(m_order.begin() + begin, m_order.begin() + middle, m_order.begin() + end,
                     [this, axis](std::uint32_t a, std::uint32_t b) {
                         const float centerA = centerOf(m_boxes[a], axis);
                         const float centerB = centerOf(m_boxes[b], axis);
                         return centerA < centerB || (centerA == centerB && a < b);
                     });
    return middle;
}

/// @return the first bin of the right side with the least surface times number on both sides; 0
///         when one side would be empty whatever is chosen.
std::size_t Builder::bestBin(const std::array<Bin, kBins>& bins) const
{
    std::array<float, kBins> rightCost{};
    Box box = Box::Empty();
    std::uint32_t count = 0;
    for (std::size_t i = kBins; i-- > 1;) {
        box.Add(bins[i].box);
        count += bins[i].count;
        rightCost[i] = box.HalfArea() * static_cast<float>(count);
    }
    const std::uint32_t total = count + bins[0].count;
    box = Box::Empty();
    count = 0;
    std::size_t best = 0;
    float bestCost = std::numeric_limits<float>::infinity();
    for (std::size_t i = 1; i < kBins; ++i) {
        box.Add(bins[i - 1].box);
        count += bins[i - 1].count;
        const float cost = box.HalfArea() * static_cast<float>(count) + rightCost[i];
        if (count > 0 && count < total && cost < bestCost) {
            best = i;
            bestCost = cost;
        }
    }
    return best;
}

std::uint32_t Builder::Split(std::uint32_t begin, std::uint32_t end, std::size_t depth)
{
    Box centers = Box::Empty();
    for (std::uint32_t i = begin; i < end; ++i) {
        const Box& box = m_boxes[m_order[i]];
        const float center[3] = {centerOf(box, 0), centerOf(box, 1), centerOf(box, 2)};
        centers.Add(center);
    }
    std::size_t axis = 0;
    for (std::size_t i = 1; i < 3; ++i)
        if (centers.hi[i] - centers.lo[i] > centers.hi[axis] - centers.lo[axis])
            axis = i;
    const float extent = centers.hi[axis] - centers.lo[axis];
    const float scale = static_cast<float>(kBins) / extent;
    if (!(extent > 0.0f) || !(scale < std::numeric_limits<float>::max()) || depth >= kMaxSplitDepth)
        return splitInHalf(begin, end, axis);

    const float low = centers.lo[axis];
    const auto binOf = [&](std::uint32_t primitive) {
        const float offset = (centerOf(m_boxes[primitive], axis) - low) * scale;
        return std::min(static_cast<std::size_t>(offset), kBins - 1);
    };
    std::array<Bin, kBins> bins;
    for (std::uint32_t i = begin; i < end; ++i) {
        Bin& bin = bins[binOf(m_order[i])];
        bin.box.Add(m_boxes[m_order[i]]);
        ++bin.count;
    }
    const std::size_t firstRight = bestBin(bins);
    if (firstRight == 0)
        return splitInHalf(begin, end, axis);
    const auto middle =
        std::partition(m_order.begin() + begin, m_order.begin() + end,
                       [&](std::uint32_t primitive) { return binOf(primitive) < firstRight; });
    return static_cast<std::uint32_t>(middle - m_order.begin());
}

void Builder::BuildSubtree(std::uint32_t begin, std::uint32_t end, std::size_t depth,
                           std::vector<BoxTree::Node>& nodes)
{
    const std::size_t self = nodes.size();
    nodes.push_back({BoundsOf(begin, end), begin, end - begin});
    if (end - begin <= kLeafSize)
        return;
    const std::uint32_t middle = Split(begin, end, depth);
    BuildSubtree(begin, middle, depth + 1, nodes);
    nodes[self].first = static_cast<std::uint32_t>(nodes.size());
    nodes[self].count = 0;
    BuildSubtree(middle, end, depth + 1, nodes);
}

/// Splits until every run is small enough for a task. @return the index of the new node.
std::int64_t buildUpper(Builder& builder, std::uint32_t begin, std::uint32_t end, std::size_t depth,
                        std::vector<UpperNode>& upper, std::vector<Task>& tasks)
{
    const auto self = static_cast<std::int64_t>(upper.size());
    upper.push_back({});
    if (end - begin <= kTaskSize) {
        upper.back().task = static_cast<std::int64_t>(tasks.size());
        tasks.push_back({begin, end, depth, {}});
        return self;
    }
    const Box box = builder.BoundsOf(begin, end);
    const std::uint32_t middle = builder.Split(begin, end, depth);
    const std::int64_t left = buildUpper(builder, begin, middle, depth + 1, upper, tasks);
    const std::int64_t right = buildUpper(builder, middle, end, depth + 1, upper, tasks);
    upper[static_cast<std::size_t>(self)] = {box, left, right, -1};
    return self;
}

void appendUpper(const std::vector<UpperNode>& upper, std::int64_t at, std::vector<Task>& tasks,
                 std::vector<BoxTree::Node>& nodes)
{
    const UpperNode& source = upper[static_cast<std::size_t>(at)];
    if (source.task >= 0) {
        std::vector<BoxTree::Node>& subtree = tasks[static_cast<std::size_t>(source.task)].nodes;
        const auto offset = static_cast<std::uint32_t>(nodes.size());
        for (BoxTree::Node& node : subtree) {
            node.first += node.count == 0 ? offset : 0;
            nodes.push_back(node);
        }
        subtree = {};
        return;
    }
    const std::size_t self = nodes.size();
    nodes.push_back({source.box, 0, 0});
    appendUpper(upper, source.left, tasks, nodes);
    nodes[self].first = static_cast<std::uint32_t>(nodes.size());
    appendUpper(upper, source.right, tasks, nodes);
}

} // namespace

Box Box::Empty()
{
    constexpr float kInfinity = std::numeric_limits<float>::infinity();
    return {{kInfinity, kInfinity, kInfinity}, {-kInfinity, -kInfinity, -kInfinity}};
}

void Box::Add(const Box& other)
{
    for (std::size_t i = 0; i < 3; ++i) {
        lo[i] = std::min(lo[i], other.lo[i]);
        hi[i] = std::max(hi[i], other.hi[i]);
    }
}

void Box::Add(const float* point)
{
    for (std::size_t i = 0; i < 3; ++i) {
        lo[i] = std::min(lo[i], point[i]);
        hi[i] = std::max(hi[i], point[i]);
    }
}

float Box::HalfArea() const
{
    const float x = hi[0] - lo[0];
    const float y = hi[1] - lo[1];
    const float z = hi[2] - lo[2];
    return x < 0.0f ? 0.0f : x * y + y * z + z * x;
}

void BoxTree::Build(std::span<const Box> boxes)
{
    m_nodes.clear();
    m_order.resize(boxes.size());
    std::iota(m_order.begin(), m_order.end(), 0u);
    if (boxes.empty())
        return;
    Builder builder(boxes, m_order);
    std::vector<UpperNode> upper;
    std::vector<Task> tasks;
    buildUpper(builder, 0, static_cast<std::uint32_t>(boxes.size()), 0, upper, tasks);
    OrvikOs::ParallelFor(tasks.size(), 1, [&](std::size_t begin, std::size_t end) {
        for (std::size_t i = begin; i < end; ++i)
            builder.BuildSubtree(tasks[i].begin, tasks[i].end, tasks[i].depth, tasks[i].nodes);
    });
    appendUpper(upper, 0, tasks, m_nodes);
    m_nodes.shrink_to_fit();
}

std::size_t BoxTree::MemoryBytes() const
{
    return m_nodes.capacity() * sizeof(Node) + m_order.capacity() * sizeof(std::uint32_t);
}

} // namespace OrvikRay
