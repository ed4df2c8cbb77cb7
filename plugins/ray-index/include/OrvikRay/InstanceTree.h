#ifndef ORVIKRAY_INSTANCETREE_H
#define ORVIKRAY_INSTANCETREE_H

#include <TambVizCore/ScenePick.h>
#include <TambVizCore/VizBox.h>

#include <cstddef>
#include <memory>
#include <span>
#include <vector>

namespace OrvikRay {

struct Box;
class BoxTree;

/// Finds which of many placed geometries a ray may hit, without looking at each.
///
/// A content that places thousands of instances keeps one over their boxes and hands only what it
/// finds to TambVizCore::PickNearest:
///
///     std::vector<std::size_t> found;
///     tree.Find(query, found);
///     std::vector<PickInstance> instances;           // made for those, with their states of now
///     for (std::size_t position : found) instances.push_back(...);
///     PickResult result;                             // result.instance counts within `found`
///     if (TambVizCore::PickNearest(instances, query, result)) ... found[result.instance] ...
///
/// The answer is the same as that of PickNearest over all instances. Visibility, planes and kinds
/// stay with the caller, so that only a change of places asks for a new tree.
///
/// @thread Any thread, any number at the same time; immutable once made, no locks.
class InstanceTree
{
public:
    /// A tree over nothing: it finds nothing.
    InstanceTree();

    /// Builds the tree, about 1 us per box.
    ///
    /// @param worldBoxes  One per instance, for instance
    ///                    geometry->BoundingBox().Transformed(world); not kept. Empty boxes are
    ///                    never found; boxes that reach beyond 1e30 always are.
    explicit InstanceTree(std::span<const TambVizCore::VizBox> worldBoxes);

    ~InstanceTree();
    InstanceTree(InstanceTree&& other) noexcept;
    InstanceTree& operator=(InstanceTree&& other) noexcept;
    InstanceTree(const InstanceTree&) = delete;
    InstanceTree& operator=(const InstanceTree&) = delete;

    /// Finds the boxes that the ray meets within its aperture, wherever along it.
    ///
    /// @param query      Its ray and the growth of its aperture count, nothing else.
    /// @param positions  Emptied, then filled with positions in the list that the tree was made
    ///                   from, ascending. Empty for a ray of zero direction.
    void Find(const TambVizCore::PickQuery& query, std::vector<std::size_t>& positions) const;

    /// @return the bytes that the tree holds.
    std::size_t MemoryBytes() const;

private:
    std::unique_ptr<const BoxTree> m_tree;
    std::vector<Box> m_boxes;             ///< By number in the tree.
    std::vector<std::size_t> m_positions; ///< By number in the tree.
    std::vector<std::size_t> m_always;    ///< Too large for the tree; ascending.
};

} // namespace OrvikRay

#endif
