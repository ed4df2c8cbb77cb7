#ifndef ORVIKRAY_BOXTREE_H
#define ORVIKRAY_BOXTREE_H

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace OrvikRay {

/// An axis-aligned box; empty while lo is above hi.
struct Box
{
    float lo[3];
    float hi[3];

    static Box Empty();
    void Add(const Box& other);
    void Add(const float* point);
    /// Half of the surface, the measure of how likely a ray hits it; 0 when empty.
    float HalfArea() const;
};

/// A binary tree of boxes over numbered primitives, split where the sum of box surfaces is
/// smallest.
///
/// Immutable once built; any number of threads may walk it. 32 bytes per node, about one node per
/// two primitives.
class BoxTree
{
public:
    struct Node
    {
        Box box;
        std::uint32_t first; ///< Leaf: first entry of Order(). Else: the right child; the left
                             ///< one follows its parent.
        std::uint32_t count; ///< Leaf: entries, at least 1. Else 0.
    };

    /// Deepest path from the root: what a walker's stack must hold.
    static constexpr std::size_t kMaxDepth = 96;

    /// Builds the tree over boxes, one per primitive; none of them may be empty. The large
    /// subtrees are built on several threads; the tree does not depend on their number.
    void Build(std::span<const Box> boxes);

    /// In preorder; empty without primitives.
    std::span<const Node> Nodes() const { return m_nodes; }
    /// Primitive numbers in the order in which leaves refer to them.
    std::span<const std::uint32_t> Order() const { return m_order; }
    std::size_t MemoryBytes() const;

    /// Calls visit(number) for every primitive in the leaves below boxes that meets(box) accepts,
    /// in preorder.
    template <typename Meets, typename Visit>
    void Walk(const Meets& meets, const Visit& visit) const;

private:
    std::vector<Node> m_nodes;
    std::vector<std::uint32_t> m_order;
};

template <typename Meets, typename Visit>
void BoxTree::Walk(const Meets& meets, const Visit& visit) const
{
    if (m_nodes.empty())
        return;
    std::uint32_t stack[kMaxDepth];
    std::size_t depth = 0;
    stack[depth++] = 0;
    while (depth > 0) {
        const std::uint32_t at = stack[--depth];
        const Node& node = m_nodes[at];
        if (!meets(node.box))
            continue;
        if (node.count == 0) {
            stack[depth++] = node.first;
            stack[depth++] = at + 1;
            continue;
        }
        for (std::uint32_t i = 0; i < node.count; ++i)
            visit(m_order[node.first + i]);
    }
}

} // namespace OrvikRay

#endif
