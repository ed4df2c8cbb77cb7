#ifndef ORVIKMODEL_CONTENT_PRIMITIVETREE_H
#define ORVIKMODEL_CONTENT_PRIMITIVETREE_H

#include "content/PrimitiveDistance.h"
#include "content/Primitives.h"

#include <cstdint>
#include <vector>

namespace OrvikModel {

/// An axis-parallel box in the world; empty at first.
struct Box3
{
    void Add(const Vector3& point);
    void Add(const Box3& other);

    double low[3] = {1e300, 1e300, 1e300};
    double high[3] = {-1e300, -1e300, -1e300};
};

/// @return the square of the least distance between points of two boxes.
double SquaredDistance(const Box3& a, const Box3& b);

/// A tree of boxes over primitives, to find what is near without looking at all.
///
/// @thread  Any thread; immutable once made.
class PrimitiveTree
{
public:
    /// Builds the tree, some 0.5 us per primitive.
    explicit PrimitiveTree(const Primitives& primitives);

    const Box3& Bounds() const { return m_nodes.front().box; }

    /// Finds the nearest points of two sets of primitives where they are nearer than
    /// @p best.squaredDistance.
    ///
    /// @param best  Replaced when something nearer is found.
    /// @return false when the running job was cancelled meanwhile.
    static bool FindNearest(const PrimitiveTree& from, const PrimitiveTree& to,
                            NearestPoints& best);

private:
    struct Node
    {
        Box3 box;
        std::uint32_t first =
            0; ///< Of a leaf: position in m_order. Else the first of two children.
        std::uint32_t count = 0; ///< Of a leaf: primitives; else 0.
    };
    struct Pair
    {
        std::uint32_t from;
        std::uint32_t to;
        double squaredDistance; ///< Of the boxes.
    };

    void build();
    static void compareLeaves(const PrimitiveTree& from, const Node& a, const PrimitiveTree& to,
                              const Node& b, NearestPoints& best);
    static void pushChildren(const PrimitiveTree& from, const PrimitiveTree& to, const Pair& pair,
                             std::vector<Pair>& open);

    Primitives m_primitives;
    std::vector<std::uint32_t> m_order; ///< Primitives in the order of the leaves.
    std::vector<Node> m_nodes;          ///< Never empty; the top one first.
};

} // namespace OrvikModel

#endif
