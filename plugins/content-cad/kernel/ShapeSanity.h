#ifndef ORVIKCAD_KERNEL_SHAPESANITY_H
#define ORVIKCAD_KERNEL_SHAPESANITY_H

#include <TopoDS_Edge.hxx>
#include <TopoDS_Face.hxx>
#include <TopoDS_Shape.hxx>

namespace OrvikCad {

/// Tells whether the numbers of a face's edges make sense: ranges of curves, their ends in space
/// and on the surface, and tolerances are finite, and none is beyond kMostSaneNumber. With others
/// the kernel's mesher computes without end.
bool IsSane(const TopoDS_Face& face);

/// Tells the same of an edge's curve in space.
bool IsSane(const TopoDS_Edge& edge);

/// @return the shape itself when all its faces are sane, else a compound of those that are.
TopoDS_Shape SaneFacesOf(const TopoDS_Shape& shape);

/// Coordinates and parameters beyond it leave no digits for the geometry.
inline constexpr double kMostSaneNumber = 1e15;

} // namespace OrvikCad

#endif
