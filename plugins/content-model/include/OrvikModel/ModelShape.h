#ifndef ORVIKMODEL_MODELSHAPE_H
#define ORVIKMODEL_MODELSHAPE_H

#include <OrvikCore/IEntityProperties.h>
#include <TambVizCore/Geometry.h>
#include <TambVizCore/VizBox.h>

#include <cstdint>
#include <memory>

namespace OrvikModel {

class ModelShape;

/// A shape, or one part of it, where it stands in the world.
struct PlacedPart
{
    const ModelShape* shape = nullptr;                                   ///< Not owned.
    std::uint64_t partId = 0;                                            ///< 0 for the whole shape.
    double world[16] = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1}; ///< Column-major.
};

/// Where a line meets a triangle of a face, in the shape's own units.
struct FacetHit
{
    std::uint64_t facePartId = 0;
    double origin[3] = {0.0, 0.0, 0.0};    ///< Of the line.
    double direction[3] = {0.0, 0.0, 0.0}; ///< Of the line; any length but 0.
    double parameter = 0.0;                ///< In multiples of the direction.
    /// The line runs against the triangle's normal, which points out of the body.
    bool isFromOutside = true;
};

/// Where a line meets the exact surface of a face, in the shape's own units.
struct RefinedHit
{
    double parameter = 0.0; ///< In multiples of the direction.
    double position[3] = {0.0, 0.0, 0.0};
    double normal[3] = {0.0, 0.0, 0.0}; ///< Unit length, out of the body.
};

/// The shape of one body: what is drawn, what is picked, and, for solids, the exact surfaces.
///
/// Instances of a body share it. The geometry comes in two forms: as it is drawn, and with parts
/// (faces, edges, vertices) and the spatial index, which is made on first use, once, by whichever
/// thread asks first; the others wait for it. A picture alone never asks.
///
/// @thread  Any thread.
class ModelShape
{
public:
    virtual ~ModelShape();
    ModelShape(const ModelShape&) = delete;
    ModelShape& operator=(const ModelShape&) = delete;

    /// @return what is drawn at present, never null; never waits.
    virtual std::shared_ptr<const TambVizCore::Geometry> Present() const = 0;

    /// @return the geometry with parts and with its index, made when there is none yet.
    /// @throws std::bad_alloc; a later call tries again.
    virtual std::shared_ptr<const TambVizCore::Geometry> WithParts() const = 0;

    /// Makes the parts without the index.
    virtual void MakeParts() const = 0;

    /// @return the box in the shape's own units.
    virtual const TambVizCore::VizBox& BoundingBox() const = 0;

    /// Makes the geometry anew with the present tessellation parameters (those of
    /// OrvikCore::IContentRenderer), where the shape is more than its triangles. The parameters of
    /// last time change nothing.
    ///
    /// @param sag              the greatest distance of a chord from its curve, world units; 0 for
    ///                         what the shape takes by itself.
    /// @param maxAngleDegrees  the greatest angle between neighbouring chords; 0 likewise.
    /// @return true when Present() is another geometry than before; part ids stay the same.
    virtual bool Retessellate(double sag, double maxAngleDegrees) const;

    /// Measures the exact shape or one part of it, in the shape's own units.
    /// @return false where there is no exact geometry; the triangles are then measured.
    virtual bool MeasureExact(std::uint64_t partId, OrvikCore::EntityMeasure what,
                              OrvikCore::MeasureResult& result) const;

    /// Measures the least distance between two placed parts with exact geometry, world units.
    /// @return false where either has none; the triangles are then measured.
    virtual bool MeasureDistanceExact(const PlacedPart& from, const PlacedPart& to,
                                      OrvikCore::DistanceResult& result) const;

    /// Moves a hit on a triangle of a face onto the exact surface: to the place nearby where the
    /// line passes it to the same side.
    /// @return false where there is no exact surface or the line does not meet it nearby.
    virtual bool Refine(const FacetHit& facet, RefinedHit& hit) const;

protected:
    ModelShape();
};

} // namespace OrvikModel

#endif
