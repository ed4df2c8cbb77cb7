#ifndef ORVIKCAD_KERNEL_SHAPEPARTS_H
#define ORVIKCAD_KERNEL_SHAPEPARTS_H

#include <TambVizCore/PartKind.h>

#include <TopTools_IndexedMapOfShape.hxx>
#include <TopoDS_Shape.hxx>

#include <cstdint>

namespace OrvikCad {

/// The faces, edges and vertices of a shape, numbered from 0 in the order of a walk through it. A
/// part that is met twice (the edge between two faces) is there once.
class ShapeParts
{
public:
    explicit ShapeParts(const TopoDS_Shape& shape);

    const TopTools_IndexedMapOfShape& Faces() const { return m_faces; }
    const TopTools_IndexedMapOfShape& Edges() const { return m_edges; }
    const TopTools_IndexedMapOfShape& Vertices() const { return m_vertices; }

    /// @return the part with that id (TambVizCore::MakePartId); a null shape when there is none.
    TopoDS_Shape Find(std::uint64_t partId) const;

    /// @return the id of a face, an edge or a vertex as it lies in the shape, whatever its
    ///         orientation; 0 when it is not one of the shape.
    std::uint64_t IdOf(const TopoDS_Shape& part) const;

private:
    TopTools_IndexedMapOfShape m_faces;
    TopTools_IndexedMapOfShape m_edges;
    TopTools_IndexedMapOfShape m_vertices;
};

} // namespace OrvikCad

#endif
