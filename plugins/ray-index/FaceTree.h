#ifndef ORVIKRAY_FACETREE_H
#define ORVIKRAY_FACETREE_H

#include "Candidate.h"

#include <cstddef>
#include <cstdint>
#include <memory>

namespace OrvikRay {

class EmbreeDevice;

/// Keeps the nearest of the triangles that are offered to it. Which one that is does not depend on
/// the order: of equally near ones it is the one of the lowest number.
class NearestFace
{
public:
    enum class Verdict
    {
        Nearest, ///< Hit, seen and nearer than all before.
        Other,   ///< Hit, but hidden, cut away or farther.
        Missed   ///< The line does not pass through it.
    };

    /// All three outlive this object.
    NearestFace(const TambVizCore::Geometry& geometry, const Line& line,
                const TambVizCore::GeometryQuery& query)
        : m_geometry(geometry), m_line(line), m_query(query), m_far(line.far)
    {
    }

    Verdict Offer(std::uint32_t triangle);

    const Line& GetLine() const { return m_line; }
    /// Where the nearest lies; the end of the line while there is none.
    double Far() const { return m_far; }
    bool IsFound() const { return m_found; }
    /// Valid when one was found.
    const Candidate& Best() const { return m_best; }

private:
    const TambVizCore::Geometry& m_geometry;
    const Line& m_line;
    const TambVizCore::GeometryQuery& m_query;
    Candidate m_best;
    double m_far;
    bool m_found = false;
};

/// Offers the triangles of one geometry that a line may hit.
///
/// @thread Any thread, any number at the same time; immutable once made, no locks.
class IFaceTree
{
public:
    virtual ~IFaceTree() = default;

    /// Offers all triangles that may be the nearest one, and few others.
    virtual void Search(NearestFace& nearest) const = 0;

    /// @return the bytes that the tree holds, without the geometry's own arrays.
    virtual std::size_t MemoryBytes() const = 0;
};

/// Makes a tree of our own.
///
/// @param geometry  Read as long as the tree lives.
std::unique_ptr<const IFaceTree> MakeBoxFaces(const TambVizCore::Geometry& geometry);

/// Whether a geometry is one for Embree: large enough to be worth it, and of coordinates whose
/// cubes fit single precision.
bool SuitsEmbree(const TambVizCore::Geometry& geometry);

/// Makes a tree of Embree's.
///
/// @param geometry  Read as long as the tree lives; SuitsEmbree must hold.
/// @param device    Outlives the tree.
/// @throws std::bad_alloc       when there is not enough memory.
/// @throws std::runtime_error   "Embree failed with error N." for any other failure.
std::unique_ptr<const IFaceTree> MakeEmbreeFaces(const TambVizCore::Geometry& geometry,
                                                 const EmbreeDevice& device);

} // namespace OrvikRay

#endif
