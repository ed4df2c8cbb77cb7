#include "kernel/ExactMeasure.h"

#include "kernel/FreeForms.h"

#include <BRepAdaptor_Curve.hxx>
#include <BRepAdaptor_Surface.hxx>
#include <BRepBuilderAPI_Transform.hxx>
#include <BRepExtrema_DistShapeShape.hxx>
#include <BRepGProp.hxx>
#include <BRepTools.hxx>
#include <BRep_Tool.hxx>
#include <GProp_GProps.hxx>
#include <TopExp_Explorer.hxx>
#include <TopLoc_Location.hxx>
#include <TopoDS.hxx>
#include <TopoDS_Face.hxx>
#include <gp_Circ.hxx>
#include <gp_Cone.hxx>
#include <gp_Cylinder.hxx>
#include <gp_Elips.hxx>
#include <gp_Pln.hxx>
#include <gp_Sphere.hxx>
#include <gp_Torus.hxx>
#include <gp_Trsf.hxx>

#include <cmath>
#include <optional>

namespace OrvikCad {

using OrvikCore::EntityMeasure;
using OrvikCore::MeasureResult;

namespace {

bool has(const TopoDS_Shape& shape, TopAbs_ShapeEnum kind)
{
    return TopExp_Explorer(shape, kind).More();
}

void setVector(MeasureResult& result, const gp_XYZ& vector)
{
    for (int axis = 1; axis <= 3; ++axis)
        result.vector[axis - 1] = vector.Coord(axis);
}

/// Integrals over volume, area or length, whichever is the highest that the shape has.
std::optional<GProp_GProps> integralsOf(const TopoDS_Shape& shape)
{
    GProp_GProps integrals;
    if (has(shape, TopAbs_SOLID))
        BRepGProp::VolumeProperties(shape, integrals, /*OnlyClosed=*/Standard_True);
    else if (has(shape, TopAbs_FACE))
        BRepGProp::SurfaceProperties(shape, integrals);
    else if (has(shape, TopAbs_EDGE))
        BRepGProp::LinearProperties(shape, integrals, /*SkipShared=*/Standard_True);
    else
        return std::nullopt;
    return integrals;
}

bool measureAmount(const TopoDS_Shape& shape, EntityMeasure what, MeasureResult& result)
{
    GProp_GProps integrals;
    if (what == EntityMeasure::Volume) {
        if (!has(shape, TopAbs_SOLID))
            return false;
        BRepGProp::VolumeProperties(shape, integrals, /*OnlyClosed=*/Standard_True);
    } else if (what == EntityMeasure::Area) {
        if (!has(shape, TopAbs_FACE))
            return false;
        BRepGProp::SurfaceProperties(shape, integrals);
    } else {
        if (has(shape, TopAbs_FACE) || !has(shape, TopAbs_EDGE))
            return false;
        BRepGProp::LinearProperties(shape, integrals, /*SkipShared=*/Standard_True);
    }
    const double mass = std::abs(integrals.Mass());
    if (!std::isfinite(mass) || (what == EntityMeasure::Volume && mass == 0.0))
        return false;
    result.value = mass;
    return true;
}

bool measureCenter(const TopoDS_Shape& shape, MeasureResult& result)
{
    if (shape.ShapeType() == TopAbs_VERTEX) {
        setVector(result, BRep_Tool::Pnt(TopoDS::Vertex(shape)).XYZ());
        return true;
    }
    const auto integrals = integralsOf(shape);
    if (!integrals || integrals->Mass() == 0.0)
        return false;
    setVector(result, integrals->CentreOfMass().XYZ());
    return true;
}

/// What is round about a face or an edge.
struct Roundness
{
    std::optional<gp_Ax1> axis; ///< Direction and a point of it.
    std::optional<double> radius;
};

Roundness roundnessOf(const BRepAdaptor_Surface& surface)
{
    switch (surface.GetType()) {
    case GeomAbs_Cylinder:
        return {surface.Cylinder().Axis(), surface.Cylinder().Radius()};
    case GeomAbs_Cone:
        return {surface.Cone().Axis(), std::nullopt};
    case GeomAbs_Sphere:
        return {gp_Ax1(surface.Sphere().Location(), surface.Sphere().Position().Direction()),
                surface.Sphere().Radius()};
    case GeomAbs_Torus:
        return {surface.Torus().Axis(), surface.Torus().MajorRadius()};
    case GeomAbs_SurfaceOfRevolution:
        return {surface.AxeOfRevolution(), std::nullopt};
    default:
        return {};
    }
}

Roundness roundnessOf(const BRepAdaptor_Curve& curve)
{
    switch (curve.GetType()) {
    case GeomAbs_Line:
        return {gp_Ax1(curve.Line().Location(), curve.Line().Direction()), std::nullopt};
    case GeomAbs_Circle:
        return {curve.Circle().Axis(), curve.Circle().Radius()};
    case GeomAbs_Ellipse:
        return {curve.Ellipse().Axis(), std::nullopt};
    default:
        return {};
    }
}

const char* wordOf(GeomAbs_SurfaceType type)
{
    switch (type) {
    case GeomAbs_Plane:
        return "plane";
    case GeomAbs_Cylinder:
        return "cylinder";
    case GeomAbs_Cone:
        return "cone";
    case GeomAbs_Sphere:
        return "sphere";
    case GeomAbs_Torus:
        return "torus";
    case GeomAbs_SurfaceOfRevolution:
        return "revolution";
    case GeomAbs_SurfaceOfExtrusion:
        return "extrusion";
    case GeomAbs_OffsetSurface:
        return "offset";
    default:
        return "freeform";
    }
}

const char* wordOf(GeomAbs_CurveType type)
{
    switch (type) {
    case GeomAbs_Line:
        return "line";
    case GeomAbs_Circle:
        return "circle";
    case GeomAbs_Ellipse:
        return "ellipse";
    case GeomAbs_Hyperbola:
        return "hyperbola";
    case GeomAbs_Parabola:
        return "parabola";
    default:
        return "freeform";
    }
}

/// Whether a surface or curve says nothing about its form by its type.
bool isFreeform(GeomAbs_SurfaceType type)
{
    return type == GeomAbs_BSplineSurface || type == GeomAbs_BezierSurface ||
           type == GeomAbs_SurfaceOfExtrusion || type == GeomAbs_SurfaceOfRevolution ||
           type == GeomAbs_OffsetSurface || type == GeomAbs_OtherSurface;
}

bool isFreeform(GeomAbs_CurveType type)
{
    return type == GeomAbs_BSplineCurve || type == GeomAbs_BezierCurve ||
           type == GeomAbs_OffsetCurve || type == GeomAbs_OtherCurve;
}

const char* wordOf(SimpleForm form)
{
    switch (form) {
    case SimpleForm::Plane:
        return "plane";
    case SimpleForm::Cylinder:
        return "cylinder";
    case SimpleForm::Sphere:
        return "sphere";
    case SimpleForm::Circle:
        return "circle";
    }
    return "";
}

/// The normal of a planar face, out of the body.
bool measureNormal(const TopoDS_Face& face, const gp_Pln& plane, MeasureResult& result)
{
    const gp_Ax3& frame = plane.Position();
    gp_XYZ normal = frame.XDirection().XYZ().Crossed(frame.YDirection().XYZ());
    // The adaptor has placed the plane; a mirroring place turns the product of its directions.
    const bool isMirrored = face.Location().Transformation().IsNegative();
    if ((face.Orientation() == TopAbs_REVERSED) != isMirrored)
        normal.Reverse();
    setVector(result, normal);
    return true;
}

bool measureRoundness(const Roundness& round, EntityMeasure what, MeasureResult& result)
{
    if (what == EntityMeasure::Radius) {
        if (round.radius)
            result.value = *round.radius;
        return round.radius.has_value();
    }
    if (!round.axis)
        return false;
    setVector(result, what == EntityMeasure::Direction ? round.axis->Direction().XYZ()
                                                       : round.axis->Location().XYZ());
    return true;
}

/// What a freeform face or edge tells when it has a simple form.
bool measureForm(const FoundForm& found, EntityMeasure what, MeasureResult& result)
{
    Roundness round;
    if (found.form == SimpleForm::Plane ||
        (what != EntityMeasure::Direction && what != EntityMeasure::Origin &&
         what != EntityMeasure::Radius))
        return false;
    if (found.form != SimpleForm::Sphere || what != EntityMeasure::Direction)
        round = {found.axis, found.radius};
    return measureRoundness(round, what, result);
}

bool measureFace(const TopoDS_Face& face, EntityMeasure what, MeasureResult& result)
{
    const BRepAdaptor_Surface surface(face, /*R=*/Standard_False);
    if (what == EntityMeasure::Curve)
        return false;
    const char* const word = wordOf(surface.GetType());
    if (isFreeform(surface.GetType())) {
        const std::optional<FoundForm> found = FindForm(BRepAdaptor_Surface(face));
        if (found && what == EntityMeasure::Surface) {
            result.word = wordOf(found->form);
            return true;
        }
        if (found && what == EntityMeasure::Normal)
            return found->form == SimpleForm::Plane && measureNormal(face, found->plane, result);
        if (found)
            return measureForm(*found, what, result);
    }
    if (what == EntityMeasure::Normal)
        return surface.GetType() == GeomAbs_Plane && measureNormal(face, surface.Plane(), result);
    if (what == EntityMeasure::Surface)
        result.word = word;
    return what == EntityMeasure::Surface || measureRoundness(roundnessOf(surface), what, result);
}

bool measureEdge(const TopoDS_Edge& edge, EntityMeasure what, MeasureResult& result)
{
    if (BRep_Tool::Degenerated(edge))
        return false;
    const BRepAdaptor_Curve curve(edge);
    if (isFreeform(curve.GetType())) {
        const std::optional<FoundForm> found = FindForm(curve);
        if (found && what == EntityMeasure::Curve) {
            result.word = wordOf(found->form);
            return true;
        }
        if (found)
            return measureForm(*found, what, result);
    }
    if (what == EntityMeasure::Curve) {
        result.word = wordOf(curve.GetType());
        return true;
    }
    const Roundness round = roundnessOf(curve);
    // A straight edge has a direction, but no axis that it turns around.
    if (what == EntityMeasure::Origin && curve.GetType() == GeomAbs_Line)
        return false;
    if (what == EntityMeasure::Direction && curve.GetType() == GeomAbs_Line &&
        edge.Orientation() == TopAbs_REVERSED) {
        setVector(result, round.axis->Direction().Reversed().XYZ());
        return true;
    }
    return (what == EntityMeasure::Direction || what == EntityMeasure::Origin ||
            what == EntityMeasure::Radius) &&
           measureRoundness(round, what, result);
}

} // namespace

bool MeasureShape(const TopoDS_Shape& shape, EntityMeasure what, MeasureResult& result)
{
    MeasureResult measured;
    bool isMeasured = false;
    if (what == EntityMeasure::Area || what == EntityMeasure::Length ||
        what == EntityMeasure::Volume)
        isMeasured = measureAmount(shape, what, measured);
    else if (what == EntityMeasure::Center)
        isMeasured = measureCenter(shape, measured);
    else if (shape.ShapeType() == TopAbs_FACE)
        isMeasured = measureFace(TopoDS::Face(shape), what, measured);
    else if (shape.ShapeType() == TopAbs_EDGE)
        isMeasured = measureEdge(TopoDS::Edge(shape), what, measured);
    if (!isMeasured)
        return false;
    measured.exact = true;
    result = measured;
    return true;
}

bool MeasureShapeDistance(const TopoDS_Shape& from, const TopoDS_Shape& to,
                          OrvikCore::DistanceResult& result)
{
    BRepExtrema_DistShapeShape extrema(from, to);
    if (!extrema.IsDone() || extrema.NbSolution() == 0)
        return false;
    result.distance = extrema.Value();
    result.exact = true;
    for (int axis = 1; axis <= 3; ++axis) {
        result.from[axis - 1] = extrema.PointOnShape1(1).Coord(axis);
        result.to[axis - 1] = extrema.PointOnShape2(1).Coord(axis);
    }
    return true;
}

TopoDS_Shape PlaceShape(const TopoDS_Shape& shape, const double* world)
{
    const gp_XYZ columns[3] = {gp_XYZ(world[0], world[1], world[2]),
                               gp_XYZ(world[4], world[5], world[6]),
                               gp_XYZ(world[8], world[9], world[10])};
    const double scale = columns[0].Modulus();
    for (int i = 0; i < 3; ++i)
        if (!(std::abs(columns[i].Modulus() - scale) <= 1e-9 * scale) ||
            !(std::abs(columns[i].Dot(columns[(i + 1) % 3])) <= 1e-9 * scale * scale))
            return {};
    gp_Trsf transform;
    transform.SetValues(world[0], world[4], world[8], world[12], world[1], world[5], world[9],
                        world[13], world[2], world[6], world[10], world[14]);
    if (std::abs(scale - 1.0) < 1e-9 && !transform.IsNegative())
        return shape.Moved(TopLoc_Location(transform));
    return BRepBuilderAPI_Transform(shape, transform, /*theCopyGeom=*/Standard_True).Shape();
}

} // namespace OrvikCad
