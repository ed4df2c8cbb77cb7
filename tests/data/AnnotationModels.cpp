#include "ModelDocument.h"
#include "Shapes.h"
#include "StepText.h"
#include "TestModels.h"

#include <BRepBuilderAPI_MakeEdge.hxx>
#include <BRep_Builder.hxx>
#include <TCollection_HAsciiString.hxx>
#include <TopoDS_Compound.hxx>
#include <XCAFDimTolObjects_DatumObject.hxx>
#include <XCAFDimTolObjects_DimensionObject.hxx>
#include <XCAFDimTolObjects_GeomToleranceObject.hxx>
#include <XCAFDoc_Datum.hxx>
#include <XCAFDoc_Dimension.hxx>
#include <XCAFDoc_GeomTolerance.hxx>
#include <gp_Ax2.hxx>

#include <vector>

namespace TestData {

namespace {

using std::filesystem::path;

Handle(TCollection_HAsciiString) text(const char* value)
{
    return new TCollection_HAsciiString(value);
}

/// A polyline, as annotations are drawn.
TopoDS_Shape strokes(const std::vector<gp_Pnt>& points)
{
    TopoDS_Compound curves;
    BRep_Builder builder;
    builder.MakeCompound(curves);
    for (std::size_t i = 0; i + 1 < points.size(); ++i)
        builder.Add(curves, BRepBuilderAPI_MakeEdge(points[i], points[i + 1]).Edge());
    return curves;
}

/// Draws an annotation: a leader from a point of the body to a flag above it.
template <class Object>
void draw(const Handle(Object) & object, const gp_Pnt& at, double height, const char* name)
{
    const gp_Pnt flag(at.X(), at.Y(), at.Z() + height);
    object->SetPlane(gp_Ax2(flag, -gp::DY()));
    object->SetPointTextAttach(flag);
    object->SetPresentation(strokes({at, flag, gp_Pnt(flag.X() + 15, flag.Y(), flag.Z()),
                                     gp_Pnt(flag.X() + 15, flag.Y(), flag.Z() + 4),
                                     gp_Pnt(flag.X(), flag.Y(), flag.Z() + 4), flag}),
                            text(name));
}

/// The plate with the faces that annotations hang on.
struct AnnotatedPlate
{
    explicit AnnotatedPlate(ModelDocument& model)
    {
        const TopoDS_Shape shape = BoredPlate();
        body = model.AddBody(shape, u"annotated plate");
        bore = model.Shapes().AddSubShape(body, CylinderOf(shape));
        top = model.Shapes().AddSubShape(body, FaceTowards(shape, gp::DZ()));
        bottom = model.Shapes().AddSubShape(body, FaceTowards(shape, -gp::DZ()));
        left = model.Shapes().AddSubShape(body, FaceTowards(shape, -gp::DX()));
        right = model.Shapes().AddSubShape(body, FaceTowards(shape, gp::DX()));
    }
    TDF_Label body, bore, top, bottom, left, right;
};

/// "diameter 12 +0.1/-0.05" on the bore. The kernel takes the lower tolerance as a magnitude.
void addDiameter(ModelDocument& model, const AnnotatedPlate& plate)
{
    Handle(XCAFDimTolObjects_DimensionObject) size = new XCAFDimTolObjects_DimensionObject();
    size->SetType(XCAFDimTolObjects_DimensionType_Size_Diameter);
    size->SetValue(kBoreDiameter);
    size->SetUpperTolValue(0.1);
    size->SetLowerTolValue(0.05);
    draw(size, gp_Pnt(kPlateLength / 2, kPlateWidth / 2, kPlateHeight), 20, "Diameter.1");
    const TDF_Label label = model.Tolerances().AddDimension();
    model.Tolerances().SetDimension(plate.bore, label);
    XCAFDoc_Dimension::Set(label)->SetObject(size);
}

/// "100 h7" between the two ends. The kernel's writer adds two to the grade.
void addLength(ModelDocument& model, const AnnotatedPlate& plate)
{
    Handle(XCAFDimTolObjects_DimensionObject) length = new XCAFDimTolObjects_DimensionObject();
    length->SetType(XCAFDimTolObjects_DimensionType_Location_LinearDistance);
    length->SetValue(kPlateLength);
    length->SetClassOfTolerance(/*theHole=*/false, XCAFDimTolObjects_DimensionFormVariance_H,
                                XCAFDimTolObjects_DimensionGrade_IT7);
    draw(length, gp_Pnt(0, 0, kPlateHeight), 30, "Length.1");
    const TDF_Label label = model.Tolerances().AddDimension();
    model.Tolerances().SetDimension(plate.left, plate.right, label);
    XCAFDoc_Dimension::Set(label)->SetObject(length);
}

void addFlatness(ModelDocument& model, const AnnotatedPlate& plate)
{
    Handle(XCAFDimTolObjects_GeomToleranceObject) flatness =
        new XCAFDimTolObjects_GeomToleranceObject();
    flatness->SetType(XCAFDimTolObjects_GeomToleranceType_Flatness);
    flatness->SetValue(0.05);
    draw(flatness, gp_Pnt(20, 10, kPlateHeight), 12, "Flatness.1");
    const TDF_Label label = model.Tolerances().AddGeomTolerance();
    model.Tolerances().SetGeomTolerance(plate.top, label);
    XCAFDoc_GeomTolerance::Set(label)->SetObject(flatness);
}

/// Position of the bore, diameter 0.2 at maximum material, to datum A, the lower face.
void addPosition(ModelDocument& model, const AnnotatedPlate& plate)
{
    Handle(XCAFDimTolObjects_GeomToleranceObject) position =
        new XCAFDimTolObjects_GeomToleranceObject();
    position->SetType(XCAFDimTolObjects_GeomToleranceType_Position);
    position->SetTypeOfValue(XCAFDimTolObjects_GeomToleranceTypeValue_Diameter);
    position->SetValue(0.2);
    position->SetMaterialRequirementModifier(XCAFDimTolObjects_GeomToleranceMatReqModif_M);
    draw(position, gp_Pnt(70, 40, kPlateHeight), 16, "Position.1");
    const TDF_Label tolerance = model.Tolerances().AddGeomTolerance();
    model.Tolerances().SetGeomTolerance(plate.bore, tolerance);
    XCAFDoc_GeomTolerance::Set(tolerance)->SetObject(position);

    Handle(XCAFDimTolObjects_DatumObject) datum = new XCAFDimTolObjects_DatumObject();
    datum->SetName(text("A"));
    datum->SetPosition(1);
    draw(datum, gp_Pnt(90, 5, 0), -10, "Datum Feature.1");
    const TDF_Label label = model.Tolerances().AddDatum();
    TDF_LabelSequence faces;
    faces.Append(plate.bottom);
    model.Tolerances().SetDatum(faces, label);
    XCAFDoc_Datum::Set(label)->SetObject(datum);
    // A datum that no tolerance uses is not written.
    model.Tolerances().SetDatumToGeomTol(label, tolerance);
}

/// An annotation that is only drawn: of the kinds that have no meaning of their own in the kernel.
void addDrawnOnly(ModelDocument& model, const TDF_Label& face, const gp_Pnt& at, const char* name)
{
    Handle(XCAFDimTolObjects_DimensionObject) drawn = new XCAFDimTolObjects_DimensionObject();
    drawn->SetType(XCAFDimTolObjects_DimensionType_DimensionPresentation);
    draw(drawn, at, 8, name);
    const TDF_Label label = model.Tolerances().AddDimension();
    model.Tolerances().SetDimension(face, label);
    XCAFDoc_Dimension::Set(label)->SetObject(drawn);
}

/// What the entities of views refer to.
struct ViewTargets
{
    explicit ViewTargets(const std::string& text)
        : shape(reference(text, "ADVANCED_BREP_SHAPE_REPRESENTATION(")),
          context(reference(text, "( GEOMETRIC_REPRESENTATION_CONTEXT(3) ")),
          callout(reference(text, "DRAUGHTING_CALLOUT("))
    {
    }
    static std::string reference(const std::string& text, std::string_view beginning)
    {
        return '#' + std::to_string(FindEntity(text, beginning));
    }
    std::string shape, context, callout;
};

/// The entities of a parallel view from the front, above and right onto the middle of the plate.
/// As in the files of other systems the z axis looks away from the viewer, and the window of
/// 200 x 120 mm lies before the eye.
constexpr char kViewFromAbove[] =
    "@1 = CARTESIAN_POINT('',(165.47005384,-85.47005384,120.47005384));\n"
    "@2 = DIRECTION('',(-0.57735026919,0.57735026919,-0.57735026919));\n"
    "@3 = DIRECTION('',(-0.70710678119,-0.70710678119,0.));\n"
    "@4 = AXIS2_PLACEMENT_3D('',@1,@2,@3);\n"
    "@5 = CARTESIAN_POINT('',(0.,0.,0.));\n"
    "@6 = CARTESIAN_POINT('',(-100.,-60.,200.));\n"
    "@7 = DIRECTION('',(0.,0.,1.));\n"
    "@8 = DIRECTION('',(1.,0.,0.));\n"
    "@9 = AXIS2_PLACEMENT_3D('',@6,@7,@8);\n"
    "@10 = PLANAR_BOX('',200.,120.,@9);\n"
    "@11 = VIEW_VOLUME(.PARALLEL.,@5,200.,0.,.F.,0.,.F.,.F.,@10);\n"
    "@12 = CAMERA_MODEL_D3('Iso view',@4,@11);\n";

/// Shows nothing by itself.
constexpr char kFreeView[] = "@13 = DRAUGHTING_MODEL('Iso view',(@12),CONTEXT);\n";

/// The same camera again, with the body and one annotation.
constexpr char kCapture[] = "@14 = CAMERA_MODEL_D3('Bore only',@4,@11);\n"
                            "@15 = AXIS2_PLACEMENT_3D('',@5,@7,@8);\n"
                            "@16 = REPRESENTATION_MAP(@15,SHAPE);\n"
                            "@17 = MAPPED_ITEM('',@16,@15);\n"
                            "@18 = DRAUGHTING_MODEL('Bore only',(@14,@17,CALLOUT),CONTEXT);\n";

/// The kernel reads saved views but writes none: they are added to the text.
void addViews(const path& file)
{
    std::string text = ReadText(file);
    const ViewTargets targets(text);
    std::string entities = std::string(kViewFromAbove) + kFreeView + kCapture;
    ReplaceInText(entities, "CONTEXT);", targets.context + ");");
    ReplaceInText(entities, "CONTEXT);", targets.context + ");");
    ReplaceInText(entities, "SHAPE);", targets.shape + ");");
    ReplaceInText(entities, "CALLOUT", targets.callout);
    AppendEntities(text, entities);
    WriteText(file, text);
}

void writePmi(const path& file)
{
    ModelDocument model;
    const AnnotatedPlate plate(model);
    addDiameter(model, plate);
    addLength(model, plate);
    addFlatness(model, plate);
    addPosition(model, plate);
    addDrawnOnly(model, plate.top, gp_Pnt(80, 20, kPlateHeight), "Surface Roughness.1");
    addDrawnOnly(model, plate.right, gp_Pnt(kPlateLength, 30, 5), "Note.1");
    model.WriteStep(file, {StepSchema::Ap242});
    std::string text = ReadText(file);
    ReplaceInText(text, "LIMITS_AND_FITS('h','shaft','9'", "LIMITS_AND_FITS('h','shaft','7'");
    WriteText(file, text);
}

/// The kernel writes the values of dimensions as they are told, whatever the unit of the file.
void writeInchPmi(const path& file)
{
    ModelDocument model;
    const AnnotatedPlate plate(model);
    Handle(XCAFDimTolObjects_DimensionObject) size = new XCAFDimTolObjects_DimensionObject();
    size->SetType(XCAFDimTolObjects_DimensionType_Size_Diameter);
    size->SetValue(0.5);
    size->SetUpperTolValue(0.01);
    size->SetLowerTolValue(0.01);
    const TDF_Label label = model.Tolerances().AddDimension();
    model.Tolerances().SetDimension(plate.bore, label);
    XCAFDoc_Dimension::Set(label)->SetObject(size);
    StepStyle style{StepSchema::Ap242};
    style.unit = "INCH";
    model.WriteStep(file, style);
}

void writeViews(const path& file)
{
    ModelDocument model;
    const AnnotatedPlate plate(model);
    addDiameter(model, plate);
    addFlatness(model, plate);
    model.WriteStep(file, {StepSchema::Ap242});
    addViews(file);
}

} // namespace

std::vector<TestModel> AnnotationModels()
{
    return {
        {"pmi.step", "the bored plate with dimensions, tolerances, a datum, a note and a finish",
         writePmi},
        {"pmi_inch.step", "the bored plate in inches with a diameter of 0.5 +-0.01", writeInchPmi},
        {"views.step", "the bored plate with a saved view, and a capture of it with one annotation",
         writeViews},
    };
}

} // namespace TestData
