#include "kernel/ShapeSanity.h"

#include <BRep_Builder.hxx>
#include <BRep_Tool.hxx>
#include <Geom2d_Curve.hxx>
#include <Geom_Curve.hxx>
#include <TopExp.hxx>
#include <TopExp_Explorer.hxx>
#include <TopTools_IndexedMapOfShape.hxx>
#include <TopoDS.hxx>
#include <TopoDS_Compound.hxx>

#include <cmath>
#include <initializer_list>

namespace OrvikCad {

namespace {

bool areSane(std::initializer_list<double> numbers)
{
    for (const double number : numbers)
        if (!(std::abs(number) <= kMostSaneNumber)) // False for what is not a number, too.
            return false;
    return true;
}

bool isSane(const gp_Pnt& point)
{
    return areSane({point.X(), point.Y(), point.Z()});
}

bool isSane(const gp_Pnt2d& point)
{
    return areSane({point.X(), point.Y()});
}

/// @param curve  May be null.
template <class Curve> bool isSane(const Curve& curve, double first, double last)
{
    return curve.IsNull() ||
           (areSane({first, last}) && isSane(curve->Value(first)) && isSane(curve->Value(last)));
}

bool isSane(const TopoDS_Edge& edge, const TopoDS_Face& face)
{
    double first = 0.0;
    double last = 0.0;
    const Handle(Geom2d_Curve) onFace = BRep_Tool::CurveOnSurface(edge, face, first, last);
    return areSane({BRep_Tool::Tolerance(edge)}) && isSane(onFace, first, last) && IsSane(edge);
}

} // namespace

bool IsSane(const TopoDS_Edge& edge)
{
    double first = 0.0;
    double last = 0.0;
    const Handle(Geom_Curve) curve = BRep_Tool::Curve(edge, first, last);
    return isSane(curve, first, last);
}

bool IsSane(const TopoDS_Face& face)
{
    for (TopExp_Explorer edges(face, TopAbs_EDGE); edges.More(); edges.Next())
        if (!isSane(TopoDS::Edge(edges.Current()), face))
            return false;
    return true;
}

TopoDS_Shape SaneFacesOf(const TopoDS_Shape& shape)
{
    TopTools_IndexedMapOfShape faces;
    TopExp::MapShapes(shape, TopAbs_FACE, faces);
    const BRep_Builder builder;
    TopoDS_Compound sane;
    builder.MakeCompound(sane);
    bool areAll = true;
    for (int i = 1; i <= faces.Extent(); ++i)
        if (IsSane(TopoDS::Face(faces.FindKey(i))))
            builder.Add(sane, faces.FindKey(i));
        else
            areAll = false;
    return areAll ? shape : TopoDS_Shape(sane);
}

} // namespace OrvikCad
