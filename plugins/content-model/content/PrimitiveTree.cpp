#include "content/PrimitiveTree.h"

#include <TambCommandsInfra/CancelToken.h>

#include <algorithm>
#include <numeric>

namespace OrvikModel {

namespace {

constexpr std::uint32_t kLeafSize = 4;
constexpr std::size_t kStepsBetweenPolls = 4096;
/// Two results that differ by less than this share of themselves are the same: without it, pairs of
/// parallel faces would all be looked at.
constexpr double kSlack = 1.0 - 1e-12;

Box3 boxOf(const Primitive& primitive)
{
    Box3 box;
    for (int i = 0; i < primitive.corners; ++i)
        box.Add(primitive.corner[i]);
    return box;
}

double sizeOf(const Box3& box)
{
    return std::max({box.high[0] - box.low[0], box.high[1] - box.low[1], box.high[2] - box.low[2]});
}

} // namespace

void Box3::Add(const Vector3& point)
{
    for (std::size_t axis = 0; axis < 3; ++axis) {
        low[axis] = std::min(low[axis], point[axis]);
        high[axis] = std::max(high[axis], point[axis]);
    }
}

void Box3::Add(const Box3& other)
{
    for (std::size_t axis = 0; axis < 3; ++axis) {
        low[axis] = std::min(low[axis], other.low[axis]);
        high[axis] = std::max(high[axis], other.high[axis]);
    }
}

double SquaredDistance(const Box3& a, const Box3& b)
{
    double sum = 0.0;
    for (int axis = 0; axis < 3; ++axis) {
        const double gap = std::max({0.0, a.low[axis] - b.high[axis], b.low[axis] - a.high[axis]});
        sum += gap * gap;
    }
    return sum;
}

PrimitiveTree::PrimitiveTree(const Primitives& primitives) : m_primitives(primitives)
{
    build();
}

/// Splits the primitives at the median of the longest side until leaves are small.
void PrimitiveTree::build()
{
    const std::uint32_t count = m_primitives.Count();
    std::vector<Box3> boxes(count);
    for (std::uint32_t i = 0; i < count; ++i)
        boxes[i] = boxOf(m_primitives.At(i));
    m_order.resize(count);
    std::iota(m_order.begin(), m_order.end(), 0u);
    m_nodes.push_back({Box3(), 0, count});
    std::vector<std::uint32_t> open{0};
    while (!open.empty()) {
        const std::uint32_t at = open.back();
        open.pop_back();
        const auto first = m_order.begin() + m_nodes[at].first;
        const auto end = first + m_nodes[at].count;
        Box3 centers;
        for (auto i = first; i != end; ++i) {
            const Box3& box = boxes[*i];
            m_nodes[at].box.Add(box);
            centers.Add(Vector3{box.low[0] + box.high[0], box.low[1] + box.high[1],
                                box.low[2] + box.high[2]});
        }
        if (m_nodes[at].count <= kLeafSize)
            continue;
        int axis = 0;
        for (int i = 1; i < 3; ++i)
            if (centers.high[i] - centers.low[i] > centers.high[axis] - centers.low[axis])
                axis = i;
        const auto middle = first + m_nodes[at].count / 2;
        std::nth_element(first, middle, end, [&boxes, axis](std::uint32_t a, std::uint32_t b) {
            return boxes[a].low[axis] + boxes[a].high[axis] <
                   boxes[b].low[axis] + boxes[b].high[axis];
        });
        const std::uint32_t half = m_nodes[at].count / 2;
        const auto child = static_cast<std::uint32_t>(m_nodes.size());
        m_nodes.push_back({Box3(), m_nodes[at].first, half});
        m_nodes.push_back({Box3(), m_nodes[at].first + half, m_nodes[at].count - half});
        m_nodes[at].first = child;
        m_nodes[at].count = 0;
        open.insert(open.end(), {child, child + 1});
    }
}

void PrimitiveTree::compareLeaves(const PrimitiveTree& from, const Node& a, const PrimitiveTree& to,
                                  const Node& b, NearestPoints& best)
{
    for (std::uint32_t i = 0; i < a.count; ++i) {
        const Primitive one = from.m_primitives.At(from.m_order[a.first + i]);
        const Box3 box = boxOf(one);
        for (std::uint32_t k = 0; k < b.count; ++k) {
            const Primitive other = to.m_primitives.At(to.m_order[b.first + k]);
            if (!(SquaredDistance(box, boxOf(other)) < best.squaredDistance * kSlack))
                continue;
            const NearestPoints found = OrvikModel::FindNearest(one, other);
            if (found.squaredDistance < best.squaredDistance)
                best = found;
        }
    }
}

/// Opens the larger of two nodes; the nearer of its children comes to lie on top.
void PrimitiveTree::pushChildren(const PrimitiveTree& from, const PrimitiveTree& to,
                                 const Pair& pair, std::vector<Pair>& open)
{
    const Node& a = from.m_nodes[pair.from];
    const Node& b = to.m_nodes[pair.to];
    const bool opensFrom = b.count != 0 || (a.count == 0 && sizeOf(a.box) > sizeOf(b.box));
    Pair children[2];
    for (std::uint32_t i = 0; i < 2; ++i) {
        Pair& child = children[i];
        child.from = opensFrom ? a.first + i : pair.from;
        child.to = opensFrom ? pair.to : b.first + i;
        child.squaredDistance =
            SquaredDistance(from.m_nodes[child.from].box, to.m_nodes[child.to].box);
    }
    const bool isFirstNearer = children[0].squaredDistance < children[1].squaredDistance;
    open.push_back(children[isFirstNearer ? 1 : 0]);
    open.push_back(children[isFirstNearer ? 0 : 1]);
}

bool PrimitiveTree::FindNearest(const PrimitiveTree& from, const PrimitiveTree& to,
                                NearestPoints& best)
{
    std::vector<Pair> open{{0, 0, SquaredDistance(from.Bounds(), to.Bounds())}};
    for (std::size_t step = 1; !open.empty(); ++step) {
        if (step % kStepsBetweenPolls == 0 &&
            TambCommandsInfra::CancelToken::Instance().IsCancelled())
            return false;
        const Pair pair = open.back();
        open.pop_back();
        if (!(pair.squaredDistance < best.squaredDistance * kSlack))
            continue;
        const Node& a = from.m_nodes[pair.from];
        const Node& b = to.m_nodes[pair.to];
        if (a.count != 0 && b.count != 0)
            compareLeaves(from, a, to, b, best);
        else
            pushChildren(from, to, pair, open);
    }
    return true;
}

} // namespace OrvikModel
