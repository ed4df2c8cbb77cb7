#ifndef TESTS_DATA_SHAPES_H
#define TESTS_DATA_SHAPES_H

#include <TopoDS_Face.hxx>
#include <TopoDS_Shape.hxx>
#include <gp_Dir.hxx>
#include <gp_Trsf.hxx>

namespace TestData {

/// The plate of several models: a corner in the origin, a bore upright through its middle. Lengths
/// in millimetres.
inline constexpr double kPlateLength = 100.0;
inline constexpr double kPlateWidth = 60.0;
inline constexpr double kPlateHeight = 10.0;
inline constexpr double kBoreDiameter = 12.0;

TopoDS_Shape Block(double x, double y, double z);
/// A plate of seven faces.
TopoDS_Shape BoredPlate();
/// A shank with a head, its axis along z, its head from 0 up, its shank below.
TopoDS_Shape Bolt(double diameter, double length);

/// The planar face whose outward normal is the direction; the one furthest out.
TopoDS_Face FaceTowards(const TopoDS_Shape& shape, const gp_Dir& direction);
/// The first face on a cylinder.
TopoDS_Face CylinderOf(const TopoDS_Shape& shape);

gp_Trsf Move(double x, double y, double z);
/// A turn about the z axis of the origin, then a move.
gp_Trsf TurnAndMove(double degrees, double x, double y, double z);

} // namespace TestData

#endif
