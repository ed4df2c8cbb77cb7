#ifndef ORVIKMODEL_EXACTINDEX_H
#define ORVIKMODEL_EXACTINDEX_H

#include "OrvikModel/ModelShape.h"

#include <TambVizCore/IGeometryIndex.h>

#include <cstddef>
#include <cstdint>
#include <memory>

namespace OrvikModel {

/// The exact surfaces that the triangles of one geometry stand for.
///
/// @thread  Any thread, any number at the same time.
class IExactFaces
{
public:
    virtual ~IExactFaces();

    /// Moves a hit on a triangle of a face onto the exact surface; see ModelShape::Refine.
    virtual bool Refine(const FacetHit& facet, RefinedHit& hit) const = 0;

    /// @return the greatest distance between a triangle and its surface, the geometry's units.
    virtual double Deviation() const = 0;

    /// @return the bytes that are held for refining.
    virtual std::size_t MemoryBytes() const = 0;
};

/// Makes an index that compares and answers exact surfaces, so that of two faces that lie nearer to
/// each other than their triangles tell, the right one is picked. A face that a line meets without
/// meeting one of its triangles is not found, and one whose surface is not met where a triangle is
/// (beside an outline) is found where the triangle lies.
///
/// @param facets  Not null; finds the triangles.
/// @param faces   Not null; shared.
/// @param shown   Of which both are; read as long as the index lives.
std::unique_ptr<const TambVizCore::IGeometryIndex>
MakeExactIndex(std::unique_ptr<const TambVizCore::IGeometryIndex> facets,
               std::shared_ptr<const IExactFaces> faces, const TambVizCore::Geometry& shown);

} // namespace OrvikModel

#endif
