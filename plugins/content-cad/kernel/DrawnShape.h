#ifndef ORVIKCAD_KERNEL_DRAWNSHAPE_H
#define ORVIKCAD_KERNEL_DRAWNSHAPE_H

#include <OrvikModel/Model.h>

#include <memory>
#include <mutex>

namespace OrvikCad {

/// A shape of which only what is drawn is kept: measures and picks know its triangles, and another
/// tessellation changes nothing.
///
/// @thread  Any thread.
class DrawnShape final : public OrvikModel::ModelShape
{
public:
    /// @param geometry  Not null, with its parts.
    explicit DrawnShape(std::shared_ptr<const TambVizCore::Geometry> geometry);
    ~DrawnShape() override;

    std::shared_ptr<const TambVizCore::Geometry> Present() const override { return m_geometry; }
    std::shared_ptr<const TambVizCore::Geometry> WithParts() const override;
    void MakeParts() const override;
    const TambVizCore::VizBox& BoundingBox() const override { return m_geometry->BoundingBox(); }

private:
    std::shared_ptr<const TambVizCore::Geometry> m_geometry;
    mutable std::mutex m_indexing; ///< Held while the index is made.
};

/// Puts what is drawn in the place of the exact shapes; shapes that nodes share stay shared. Bodies
/// become bodies of triangles: PolyBody where they are closed, else Mesh.
void KeepOnlyDrawings(OrvikModel::Model& model);

/// Puts a shape that draws nothing in the place of all shapes. The kinds of the nodes stay.
void KeepOnlyStructure(OrvikModel::Model& model);

} // namespace OrvikCad

#endif
