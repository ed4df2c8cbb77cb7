#ifndef ORVIKCAD_KERNEL_EXACTMEASURE_H
#define ORVIKCAD_KERNEL_EXACTMEASURE_H

#include <OrvikCore/IEntityProperties.h>

#include <TopoDS_Shape.hxx>

namespace OrvikCad {

/// Measures a shape or a face, an edge or a vertex of it from its exact geometry, in its own units.
///
/// @return false where the shape has nothing of the kind; the result is then untouched.
bool MeasureShape(const TopoDS_Shape& shape, OrvikCore::EntityMeasure what,
                  OrvikCore::MeasureResult& result);

/// Measures the least distance between two shapes.
/// @return false where the kernel finds none.
bool MeasureShapeDistance(const TopoDS_Shape& from, const TopoDS_Shape& to,
                          OrvikCore::DistanceResult& result);

/// @return the shape where an affine transform, double[16] column-major, puts it; a null shape
/// where
///         it would have no solid geometry.
TopoDS_Shape PlaceShape(const TopoDS_Shape& shape, const double* world);

} // namespace OrvikCad

#endif
