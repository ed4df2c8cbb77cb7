#ifndef ORVIKRAY_THINTREE_H
#define ORVIKRAY_THINTREE_H

#include "BoxTree.h"
#include "Candidate.h"

#include <cstddef>

namespace OrvikRay {

/// The segments or the points of one geometry, which a line hits with an aperture around it: a
/// cylinder or a cone, chosen per query.
///
/// @thread Any thread, any number at the same time; immutable once made, no locks.
class ThinTree
{
public:
    /// @param geometry  Read as long as the tree lives.
    /// @param kind      Edge for its segments, Vertex for its points.
    ThinTree(const TambVizCore::Geometry& geometry, TambVizCore::PartKind kind);

    /// Finds the seen primitive that lies nearest to the line within the aperture; of two equally
    /// near ones (to 1e-6 of the aperture) the one with the smaller distance, then the one of the
    /// lower number.
    /// @return false, with @p best untouched, when there is none.
    bool Find(const TambVizCore::GeometryQuery& query, Candidate& best) const;

    std::size_t MemoryBytes() const { return m_tree.MemoryBytes(); }

private:
    void measure(const Line& line, std::uint32_t primitive, Candidate& candidate) const;

    const TambVizCore::Geometry& m_geometry;
    TambVizCore::PartKind m_kind;
    BoxTree m_tree;
};

} // namespace OrvikRay

#endif
