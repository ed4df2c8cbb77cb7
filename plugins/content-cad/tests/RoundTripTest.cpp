#include "kernel/CadDocument.h"
#include "kernel/KernelText.h"
#include "kernel/StepTextWriter.h"
#include "tests/KernelFixture.h"
#include "tests/ModelText.h"

#include <TambCommandsInfra/CancelToken.h>

#include <BRepBuilderAPI_MakeVertex.hxx>
#include <BRepPrimAPI_MakeBox.hxx>
#include <BRep_Builder.hxx>
#include <TDataStd_Name.hxx>
#include <TopoDS_Compound.hxx>
#include <TopoDS_Edge.hxx>
#include <TopoDS_Solid.hxx>
#include <TopoDS_Vertex.hxx>
#include <XCAFDoc_DocumentTool.hxx>
#include <XCAFDoc_ShapeTool.hxx>

namespace OrvikCad {
namespace {

using OrvikModel::Model;
using testing::HasSubstr;
using testing::IsEmpty;

using RoundTrip = KernelFixture;

/// A model of which all is kept.
class StepRoundTrip : public RoundTrip, public testing::WithParamInterface<const char*>
{
};

TEST_P(StepRoundTrip, KeepsStructureNamesColoursLayersAndShapes)
{
    const Model first = ReadTestModel(GetParam());

    const Model second = WriteAndRead(first, CadFormat::Step);

    EXPECT_EQ(ModelText(second), ModelText(first));
    EXPECT_THAT(ModelText(first), HasSubstr("faces="));
    EXPECT_THAT(warnings, IsEmpty());
}

std::string nameOfModel(const testing::TestParamInfo<const char*>& model)
{
    const std::string file = model.param;
    return file.substr(0, file.find('.'));
}

INSTANTIATE_TEST_SUITE_P(Models, StepRoundTrip,
                         testing::Values("assembly_ap203.step", "assembly_ap214.step",
                                         "assembly_ap242.step", "instance_color.step",
                                         "hole_plate.step", "units_inch.step", "units_metre.step",
                                         "free_shapes.step", "validation_right.step"),
                         nameOfModel);

/// A block in an assembly, at its origin, with names as they are asked for.
Model makePlacedBlock(const std::wstring& body, const std::wstring& place)
{
    const auto document = std::make_shared<CadDocument>();
    const auto shapes = XCAFDoc_DocumentTool::ShapeTool(document->Main());
    const TDF_Label block = shapes->AddShape(BRepPrimAPI_MakeBox(1, 2, 3).Solid(), false);
    const TDF_Label top = shapes->NewShape();
    const TDF_Label component = shapes->AddComponent(top, block, TopLoc_Location());
    TDataStd_Name::Set(block, ToKernel(body));
    TDataStd_Name::Set(top, "top");
    TDataStd_Name::Set(component, ToKernel(place));
    shapes->UpdateAssemblies();
    Model model;
    model.source = document;
    return model;
}

constexpr const wchar_t* kNames[] = {
    L"plain",
    L"it's 'quoted'",
    L"back\\slash \\X2\\ kept",
    L"#1 = (semi; colon)",
    L"\u041F\u043B\u0438\u0442\u0430",
    L"\u87BA\u6813 M6 \u00D7 20",
    L"\U0001F600 beyond the plane",
    L"\u0434\u043B\u0438\u043D\u043D\u043E\u0435 "
    L"\u0438\u043C\u044F \u043A\u043E\u0442\u043E\u0440\u043E\u0435 "
    L"\u043D\u0435 \u043F\u043E\u043C\u0435\u0449\u0430\u0435\u0442\u0441\u044F "
    L"\u0432 \u043E\u0434\u043D\u0443 \u0441\u0442\u0440\u043E\u043A\u0443 "
    L"\u0444\u0430\u0439\u043B\u0430 STEP"};

TEST_F(RoundTrip, KeepsTheNamesOfBodiesAndPlaces)
{
    for (const std::wstring name : kNames) {
        const Model read =
            WriteAndRead(makePlacedBlock(name, L"place of " + name), CadFormat::Step);

        const auto& place = *read.nodes.at(0)->children.at(0);
        EXPECT_EQ(place.name, L"place of " + name);
        EXPECT_EQ(place.children.at(0)->name, name);
    }
}

TEST(StepTextWriter, EscapesWhatIsNotAscii)
{
    EXPECT_EQ(EscapeStepText("#1 = A('\xD0\x9F 1','\xF0\x9F\x98\x80');"),
              "#1 = A('\\X2\\041F\\X0\\ 1','\\X4\\0001F600\\X0\\');");
}

TEST(StepTextWriter, JoinsStringsThatWereBrokenIntoLines)
{
    EXPECT_EQ(EscapeStepText("#1 = A('ab\ncd \xD0\n\x9F',\n  #2);"),
              "#1 = A('abcd \\X2\\041F\\X0\\',\n  #2);");
}

TEST(StepTextWriter, KeepsBytesThatAreNoUtf8)
{
    EXPECT_EQ(EscapeStepText("'\xE9t\xE9'"), "'\\X2\\00E9\\X0\\t\\X2\\00E9\\X0\\'");
}

TEST_F(RoundTrip, ThroughBrepKeepsShapes)
{
    const ModelTextOptions shapesOnly{false, false, false, false};
    const Model first = ReadTestModel("solids.brep", CadFormat::Brep);

    const Model second = WriteAndRead(first, CadFormat::Brep);

    EXPECT_EQ(ModelText(second, shapesOnly), ModelText(first, shapesOnly));
    EXPECT_THAT(ModelText(first, shapesOnly), HasSubstr("faces=7"));
}

TEST_F(RoundTrip, ThroughIgesKeepsNamesAndColours)
{
    const Model first = ReadTestModel("colors.iges", CadFormat::Iges);

    const Model second = WriteAndRead(first, CadFormat::Iges);

    EXPECT_EQ(ModelText(second), ModelText(first));
}

TEST_F(RoundTrip, WarnsOfPointsThatStepDrops)
{
    const auto document = std::make_shared<CadDocument>();
    TopoDS_Compound both;
    BRep_Builder builder;
    builder.MakeCompound(both);
    builder.Add(both, BRepPrimAPI_MakeBox(1, 2, 3).Solid());
    builder.Add(both, BRepBuilderAPI_MakeVertex(gp_Pnt(9, 9, 9)).Vertex());
    XCAFDoc_DocumentTool::ShapeTool(document->Main())->AddShape(both, false);
    Model model;
    model.source = document;

    WriteAndRead(model, CadFormat::Step);

    EXPECT_THAT(warnings, testing::ElementsAre(HasSubstr(
                              L"loose points of bodies with edges that were not written: 1")));
}

TEST_F(RoundTrip, WarnsOfNamesThatIgesCannotHold)
{
    WriteAndRead(makePlacedBlock(L"\u041F\u043B\u0438\u0442\u0430", L"plain"), CadFormat::Iges);

    EXPECT_THAT(warnings, testing::ElementsAre(HasSubstr(
                              L"names with characters that IGES does not have, written with \"_\" "
                              L"for each: 1")));
}

TEST_F(RoundTrip, WarnsOfAnnotationsAndViewsThatAreLeftOut)
{
    WriteAndRead(ReadTestModel("views.step"), CadFormat::Step);

    const std::wstring path = folder.WidePath(L"written");
    EXPECT_THAT(warnings, testing::ElementsAre(path + L": annotations that were not written: 2",
                                               path + L": saved views that were not written: 2"));
}

TEST_F(RoundTrip, TellsTheFileThatCannotBeWritten)
{
    const Model model = ReadTestModel("hole_plate.step");
    const std::wstring path = folder.WidePath(L"missing/file.step");
    CadMessages messages(path);

    EXPECT_FALSE(kernel.Write(path, CadFormat::Step, model, messages));

    EXPECT_THAT(messages.Error(), HasSubstr(path + L": the file cannot be written: "));
}

TEST_F(RoundTrip, LeavesTheOldFileWhenTheJobIsCancelled)
{
    const Model model = ReadTestModel("hole_plate.step");
    const std::wstring path = folder.Write("old.step", "as it was");
    CadMessages messages(path);
    auto& token = TambCommandsInfra::CancelToken::Instance();
    token.Arm(token.NextJobNumber());
    token.CancelCurrent();

    EXPECT_FALSE(kernel.Write(path, CadFormat::Step, model, messages));

    token.Disarm();
    EXPECT_EQ(messages.Error(), path + L": writing was cancelled");
    EXPECT_EQ(std::filesystem::file_size(folder.Path() / "old.step"), 9u);
}

TEST_F(RoundTrip, RefusesAModelOfAnotherKind)
{
    const Model model;
    CadMessages messages(L"file.step");

    EXPECT_FALSE(kernel.CanWrite(model));
    EXPECT_FALSE(kernel.Write(folder.WidePath(L"file.step"), CadFormat::Step, model, messages));

    EXPECT_EQ(messages.Error(),
              L"file.step: the model has no exact shapes of the geometry kernel, so it cannot be "
              L"written in this format");
    EXPECT_FALSE(std::filesystem::exists(folder.Path() / "file.step"));
}

} // namespace
} // namespace OrvikCad
