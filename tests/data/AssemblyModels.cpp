#include "ModelDocument.h"
#include "Shapes.h"
#include "TestModels.h"

#include <TDF_LabelSequence.hxx>

#include <stdexcept>

namespace TestData {

namespace {

using std::filesystem::path;

/// Fills a document with a machine of two frames, each of a plate and four bolts: three levels, two
/// bodies, ten placements.
void makeMachine(ModelDocument& model)
{
    const TopoDS_Shape plateShape = BoredPlate();
    const TDF_Label plate = model.AddBody(plateShape, u"\u041F\u043B\u0438\u0442\u0430");
    const TDF_Label bolt = model.AddBody(Bolt(6, 20), u"\u87BA\u6813 M6");
    const TDF_Label frame = model.AddAssembly(u"Rahmen \u00DC\u00DF");
    const TDF_Label machine = model.AddAssembly(u"machine");

    // The kernel's writer loses the name of what is placed without a move.
    model.Place(frame, plate, Move(1, 0, 0), u"\u043F\u043B\u0438\u0442\u0430 1");
    const double x[4] = {10, kPlateLength - 10, kPlateLength - 10, 10};
    const double y[4] = {10, 10, kPlateWidth - 10, kPlateWidth - 10};
    const char16_t* names[4] = {u"\u87BA\u6813 1", u"\u87BA\u6813 2", u"\u87BA\u6813 3",
                                u"\u87BA\u6813 4"};
    for (int i = 0; i < 4; ++i)
        model.Place(frame, bolt, TurnAndMove(90.0 * i, x[i], y[i], kPlateHeight), names[i]);
    model.Place(machine, frame, Move(0, 0, 5), u"frame below");
    model.Place(machine, frame, TurnAndMove(90, kPlateWidth, 0, 100), u"frame above, \u03C0/2");

    model.SetColor(plate, Color(0.27f, 0.51f, 0.71f));
    model.SetColor(bolt, Color(0.8f, 0.6f, 0.2f, 0.5f));
    model.SetFaceColor(plate, CylinderOf(plateShape), Color(1, 0, 0));
    model.SetLayer(plate, u"Plates");
    model.SetLayer(bolt, u"Fasteners");
}

/// Colours the third bolt of the upper frame alone.
void colorOneBolt(ModelDocument& model)
{
    TDF_LabelSequence tops;
    TDF_LabelSequence frames;
    TDF_LabelSequence things;
    model.Shapes().UpdateAssemblies();
    model.Shapes().GetFreeShapes(tops);
    XCAFDoc_ShapeTool::GetComponents(tops.First(), frames);
    TDF_Label frame;
    XCAFDoc_ShapeTool::GetReferredShape(frames.Value(2), frame);
    XCAFDoc_ShapeTool::GetComponents(frame, things);
    const TopLoc_Location place = XCAFDoc_ShapeTool::GetLocation(frames.Value(2)) *
                                  XCAFDoc_ShapeTool::GetLocation(things.Value(4));
    TDF_Label bolt;
    XCAFDoc_ShapeTool::GetReferredShape(things.Value(4), bolt);
    model.SetInstanceColor(XCAFDoc_ShapeTool::GetShape(bolt).Located(place), Color(0, 0.6f, 0));
}

void writeMachine(const path& file, const StepStyle& style)
{
    ModelDocument model;
    makeMachine(model);
    model.WriteStep(file, style);
}

void writeAp214(const path& file)
{
    writeMachine(file, {StepSchema::Ap214});
}

void writeAp203(const path& file)
{
    writeMachine(file, {StepSchema::Ap203});
}

void writeAp242(const path& file)
{
    StepStyle style{StepSchema::Ap242};
    style.names = NameCoding::Utf8;
    writeMachine(file, style);
}

void writeInstanceColor(const path& file)
{
    ModelDocument model;
    makeMachine(model);
    colorOneBolt(model);
    model.WriteStep(file, {StepSchema::Ap214});
}

/// Two bodies in files of their own, of which one is then taken away.
void writeReferences(const path& file)
{
    ModelDocument model;
    const TDF_Label top = model.AddAssembly(u"references");
    model.Place(top, model.AddBody(Block(10, 20, 30), u"present"), Move(0, 0, 1), u"here");
    model.Place(top, model.AddBody(Block(5, 5, 5), u"absent"), Move(40, 0, 0), u"gone");
    StepStyle style{StepSchema::Ap214};
    style.referencesPrefix = "references_";
    model.WriteStep(file, style);
    if (!std::filesystem::remove(file.parent_path() / "references_absent.stp"))
        throw std::runtime_error("the referenced file has another name");
}

/// The same machine with a colour per body and per face; the format has no transparency.
void writeIges(const path& file)
{
    ModelDocument model;
    const TopoDS_Shape plateShape = BoredPlate();
    const TDF_Label plate = model.AddBody(plateShape, u"PLATE");
    const TDF_Label bolt = model.AddBody(Bolt(6, 20), u"BOLT");
    const TDF_Label top = model.AddAssembly(u"FRAME");
    model.Place(top, plate, Move(1, 0, 0), u"PLATE 1");
    model.Place(top, bolt, Move(10, 10, kPlateHeight), u"BOLT 1");
    model.Place(top, bolt, Move(kPlateLength - 10, 10, kPlateHeight), u"BOLT 2");
    model.SetColor(plate, Color(0, 0, 1));
    model.SetColor(bolt, Color(1, 1, 0));
    model.SetFaceColor(plate, CylinderOf(plateShape), Color(1, 0, 0));
    model.SetLayer(plate, u"7");
    model.WriteIges(file);
}

} // namespace

std::vector<TestModel> AssemblyModels()
{
    return {
        {"assembly_ap214.step",
         "three levels, two bodies in ten places, names in several scripts, colours, layers",
         writeAp214},
        {"assembly_ap203.step", "the same by the oldest schema", writeAp203},
        {"assembly_ap242.step", "the same by the newest schema, with names in UTF-8", writeAp242},
        {"instance_color.step", "the same with one bolt of one frame in green", writeInstanceColor},
        {"references.step", "two bodies in files of their own, one of them missing",
         writeReferences},
        {"colors.iges", "a plate and two bolts with names, colours and a coloured face", writeIges},
    };
}

} // namespace TestData
