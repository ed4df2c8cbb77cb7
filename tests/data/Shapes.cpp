#include "Shapes.h"

#include <BRepAdaptor_Surface.hxx>
#include <BRepAlgoAPI_Cut.hxx>
#include <BRepAlgoAPI_Fuse.hxx>
#include <BRepGProp.hxx>
#include <BRepPrimAPI_MakeBox.hxx>
#include <BRepPrimAPI_MakeCylinder.hxx>
#include <GProp_GProps.hxx>
#include <TopExp_Explorer.hxx>
#include <TopoDS.hxx>
#include <gp_Ax1.hxx>
#include <gp_Ax2.hxx>
#include <gp_Pln.hxx>

#include <limits>
#include <numbers>
#include <stdexcept>

namespace TestData {

TopoDS_Shape Block(double x, double y, double z)
{
    return BRepPrimAPI_MakeBox(x, y, z).Solid();
}

TopoDS_Shape BoredPlate()
{
    const gp_Ax2 axis(gp_Pnt(kPlateLength / 2, kPlateWidth / 2, 0), gp::DZ());
    const TopoDS_Shape bore =
        BRepPrimAPI_MakeCylinder(axis, kBoreDiameter / 2, kPlateHeight).Solid();
    const TopoDS_Shape plate =
        BRepAlgoAPI_Cut(Block(kPlateLength, kPlateWidth, kPlateHeight), bore).Shape();
    return TopExp_Explorer(plate, TopAbs_SOLID).Current();
}

TopoDS_Shape Bolt(double diameter, double length)
{
    const gp_Ax2 down(gp::Origin(), -gp::DZ());
    const TopoDS_Shape shank = BRepPrimAPI_MakeCylinder(down, diameter / 2, length).Solid();
    const TopoDS_Shape head = BRepPrimAPI_MakeCylinder(diameter, diameter * 0.7).Solid();
    const TopoDS_Shape bolt = BRepAlgoAPI_Fuse(shank, head).Shape();
    return TopExp_Explorer(bolt, TopAbs_SOLID).Current();
}

TopoDS_Face FaceTowards(const TopoDS_Shape& shape, const gp_Dir& direction)
{
    TopoDS_Face found;
    double furthest = -std::numeric_limits<double>::infinity();
    for (TopExp_Explorer it(shape, TopAbs_FACE); it.More(); it.Next()) {
        const TopoDS_Face face = TopoDS::Face(it.Current());
        const BRepAdaptor_Surface surface(face);
        if (surface.GetType() != GeomAbs_Plane)
            continue;
        gp_Dir normal = surface.Plane().Axis().Direction();
        if (face.Orientation() == TopAbs_REVERSED)
            normal.Reverse();
        const double distance = gp_Vec(surface.Plane().Location().XYZ()).Dot(direction);
        if (normal.IsEqual(direction, 1e-9) && distance > furthest) {
            furthest = distance;
            found = face;
        }
    }
    if (found.IsNull())
        throw std::runtime_error("no such face");
    return found;
}

TopoDS_Face CylinderOf(const TopoDS_Shape& shape)
{
    for (TopExp_Explorer it(shape, TopAbs_FACE); it.More(); it.Next())
        if (BRepAdaptor_Surface(TopoDS::Face(it.Current())).GetType() == GeomAbs_Cylinder)
            return TopoDS::Face(it.Current());
    throw std::runtime_error("no cylinder");
}

gp_Trsf Move(double x, double y, double z)
{
    gp_Trsf move;
    move.SetTranslation(gp_Vec(x, y, z));
    return move;
}

gp_Trsf TurnAndMove(double degrees, double x, double y, double z)
{
    gp_Trsf turn;
    turn.SetRotation(gp::OZ(), degrees * std::numbers::pi / 180.0);
    return Move(x, y, z) * turn;
}

} // namespace TestData
