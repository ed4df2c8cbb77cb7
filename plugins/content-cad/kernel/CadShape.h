#ifndef ORVIKCAD_KERNEL_CADSHAPE_H
#define ORVIKCAD_KERNEL_CADSHAPE_H

#include "kernel/ShapeMesh.h"
#include "kernel/ShapeParts.h"

#include <OrvikOs/Snapshot.h>

#include <OrvikModel/ModelShape.h>
#include <TopoDS_Shape.hxx>

#include <memory>
#include <mutex>

namespace OrvikCad {

class ExactSurfaces;

/// A shape of the kernel with the triangles, segments and points that show it.
///
/// Parts are numbered in the order in which the shape's faces, edges and vertices are met in a walk
/// through it, so the same file gives the same ids; see ShapeParts. Every part is there whatever
/// the tessellation; one that draws nothing (a seam, a degenerated edge, a face that could not be
/// cut into triangles) has no primitives.
///
/// @thread  Any thread. Shapes may have faces in common, so one at a time of all is tessellated
///          anew.
class CadShape final : public OrvikModel::ModelShape
{
public:
    /// @param shape  Not null, without location. Shows nothing until SetMesh().
    explicit CadShape(const TopoDS_Shape& shape);
    ~CadShape() override;

    const TopoDS_Shape& Shape() const { return m_shape; }
    const ShapeParts& Parts() const { return m_parts; }

    /// Sets the box of a shape that is not cut yet; one thread, before the shape is shared.
    void SetBox(const TambVizCore::VizBox& box) { m_box = box; }

    /// Sets what is drawn, the box, and the parameters that the shape takes by itself; one thread,
    /// before the shape is shared.
    void SetMesh(ShapeMesh mesh);

    std::shared_ptr<const TambVizCore::Geometry> Present() const override;
    std::shared_ptr<const TambVizCore::Geometry> WithParts() const override;
    void MakeParts() const override;
    const TambVizCore::VizBox& BoundingBox() const override { return m_box; }
    bool Retessellate(double sag, double maxAngleDegrees) const override;
    bool MeasureExact(std::uint64_t partId, OrvikCore::EntityMeasure what,
                      OrvikCore::MeasureResult& result) const override;
    bool MeasureDistanceExact(const OrvikModel::PlacedPart& from, const OrvikModel::PlacedPart& to,
                              OrvikCore::DistanceResult& result) const override;
    bool Refine(const OrvikModel::FacetHit& facet, OrvikModel::RefinedHit& hit) const override;

private:
    std::shared_ptr<const ExactSurfaces> surfaces() const;

    TopoDS_Shape m_shape;
    ShapeParts m_parts;
    TambVizCore::VizBox m_box; ///< Of the first mesh; kept when the tessellation changes.
    mutable OrvikOs::Snapshot<ShapeMesh> m_mesh;
    MeshParameters m_ownParameters; ///< Those of the first mesh; what "default" means later.
    mutable std::mutex m_indexing;  ///< Held while the index is made.
    mutable std::once_flag m_surfacesOnce;
    mutable std::shared_ptr<const ExactSurfaces> m_surfaces; ///< Written once, by surfaces().
};

} // namespace OrvikCad

#endif
