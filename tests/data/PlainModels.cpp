#include "ModelDocument.h"
#include "Shapes.h"
#include "StepText.h"
#include "TestModels.h"

#include <BRepBuilderAPI_MakeEdge.hxx>
#include <BRepBuilderAPI_MakeVertex.hxx>
#include <BRepBuilderAPI_MakeWire.hxx>
#include <BRepPrimAPI_MakeSphere.hxx>
#include <BRepTools.hxx>
#include <BRep_Builder.hxx>
#include <TopoDS_Compound.hxx>
#include <TopoDS_Shell.hxx>

#include <stdexcept>

namespace TestData {

namespace {

using std::filesystem::path;

void writePlate(const path& file)
{
    ModelDocument model;
    model.SetColor(model.AddBody(BoredPlate(), u"hole plate"), Color(0.7f, 0.7f, 0.75f));
    model.WriteStep(file, {});
}

void writeUnit(const path& file, const char* unit)
{
    ModelDocument model;
    model.AddBody(Block(25.4, 50.8, 76.2), u"block");
    StepStyle style;
    style.unit = unit;
    model.WriteStep(file, style);
}

void writeInch(const path& file)
{
    writeUnit(file, "INCH");
}

void writeMetre(const path& file)
{
    writeUnit(file, "M");
}

/// Three sides of a block.
TopoDS_Shell openShell()
{
    const TopoDS_Shape block = Block(30, 20, 10);
    TopoDS_Shell shell;
    BRep_Builder builder;
    builder.MakeShell(shell);
    for (const gp_Dir& side : {-gp::DX(), -gp::DY(), -gp::DZ()})
        builder.Add(shell, FaceTowards(block, side));
    return shell;
}

/// A square beside the block, open on one side.
TopoDS_Shape openWire()
{
    const gp_Pnt corners[4] = {{50, 0, 0}, {60, 0, 0}, {60, 10, 0}, {50, 10, 0}};
    BRepBuilderAPI_MakeWire wire;
    for (int i = 0; i < 3; ++i)
        wire.Add(BRepBuilderAPI_MakeEdge(corners[i], corners[i + 1]).Edge());
    return wire.Wire();
}

TopoDS_Shape threePoints()
{
    TopoDS_Compound points;
    BRep_Builder builder;
    builder.MakeCompound(points);
    for (double x : {70.0, 80.0, 90.0})
        builder.Add(points, BRepBuilderAPI_MakeVertex(gp_Pnt(x, 5, 0)).Vertex());
    return points;
}

void writeFreeShapes(const path& file)
{
    ModelDocument model;
    model.AddBody(openShell(), u"open shell");
    model.AddBody(openWire(), u"open wire");
    model.AddBody(threePoints(), u"three points");
    model.WriteStep(file, {});
}

void writeValidated(const path& file)
{
    ModelDocument model;
    model.SetValidationProperties(model.AddBody(Block(10, 20, 30), u"checked block"));
    model.WriteStep(file, {});
}

/// A file that claims ten times the volume and a centroid 5 mm off.
void writeWronglyValidated(const path& file)
{
    writeValidated(file);
    std::string text = ReadText(file);
    const std::size_t volume = text.find("VOLUME_MEASURE(");
    ReplaceInText(text, "6.E+03", "6.E+04", volume);
    ReplaceInText(text, "CARTESIAN_POINT('centre point',(5.,10.,15.))",
                  "CARTESIAN_POINT('centre point',(10.,10.,15.))");
    WriteText(file, text);
}

void writeBrep(const path& file)
{
    TopoDS_Compound shapes;
    BRep_Builder builder;
    builder.MakeCompound(shapes);
    builder.Add(shapes, BoredPlate());
    builder.Add(shapes, BRepPrimAPI_MakeSphere(gp_Pnt(0, 0, 50), 8).Solid());
    builder.Add(shapes, openWire());
    if (!BRepTools::Write(shapes, file.c_str()))
        throw std::runtime_error("cannot write: " + file.string());
}

} // namespace

std::vector<TestModel> PlainModels()
{
    return {
        {"hole_plate.step", "a plate of 100 x 60 x 10 mm with a bore of 12 mm", writePlate},
        {"units_inch.step", "a block of 1 x 2 x 3 inches", writeInch},
        {"units_metre.step", "the same block in metres", writeMetre},
        {"free_shapes.step", "an open shell, an open wire and three points", writeFreeShapes},
        {"validation_right.step", "a block with its true volume, area and centroid",
         writeValidated},
        {"validation_wrong.step", "the same block with a false volume and centroid",
         writeWronglyValidated},
        {"solids.brep", "a bored plate, a sphere and a wire", writeBrep},
    };
}

} // namespace TestData
