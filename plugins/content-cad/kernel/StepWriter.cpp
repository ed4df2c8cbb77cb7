#include "kernel/StepWriter.h"

#include "interface/CadTexts.h"
#include "kernel/KernelMessages.h"
#include "kernel/KernelProgress.h"
#include "kernel/KernelWatch.h"
#include "kernel/StepNamesWriter.h"
#include "kernel/StepTextWriter.h"

#include <OrvikOs/Utf8.h>
#include <TambVizCore/Utils.h>

#include <APIHeaderSection_MakeHeader.hxx>
#include <Interface_Static.hxx>
#include <STEPCAFControl_Writer.hxx>
#include <STEPControl_Controller.hxx>
#include <StepData_Protocol.hxx>
#include <StepData_StepModel.hxx>
#include <StepData_StepWriter.hxx>
#include <TDF_LabelSequence.hxx>
#include <TopExp_Explorer.hxx>
#include <XCAFDoc_DimTolTool.hxx>
#include <XCAFDoc_DocumentTool.hxx>
#include <XCAFDoc_ShapeTool.hxx>
#include <XCAFDoc_ViewTool.hxx>

#include <locale>
#include <sstream>

namespace OrvikCad {

namespace {

constexpr int kAp214 = 4;
constexpr char kOrigin[] = "Pellux";

Handle(TCollection_HAsciiString) utf8(const std::wstring& text)
{
    return new TCollection_HAsciiString(OrvikOs::WideToUtf8(text).c_str());
}

/// The writer looks at these when it is made, and ignores them before its controller is there.
void configure(const std::wstring& productName)
{
    STEPControl_Controller::Init();
    Interface_Static::SetIVal("write.step.schema", kAp214);
    Interface_Static::SetCVal("write.step.unit", "MM");
    Interface_Static::SetCVal("write.step.product.name", OrvikOs::WideToUtf8(productName).c_str());
}

/// The kernel drops loose points of a body that has edges too.
int countDroppedPoints(const CadDocument& document)
{
    TDF_LabelSequence labels;
    XCAFDoc_DocumentTool::ShapeTool(document.Main())->GetShapes(labels);
    int points = 0;
    for (const TDF_Label& label : labels) {
        const TopoDS_Shape shape = XCAFDoc_ShapeTool::GetShape(label);
        if (!XCAFDoc_ShapeTool::IsSimpleShape(label) || !TopExp_Explorer(shape, TopAbs_EDGE).More())
            continue;
        for (TopExp_Explorer it(shape, TopAbs_VERTEX, TopAbs_EDGE); it.More(); it.Next())
            ++points;
    }
    return points;
}

void warnOfWhatIsLeftOut(const CadDocument& document, CadMessages& messages)
{
    const Handle(XCAFDoc_DimTolTool) tool = XCAFDoc_DocumentTool::DimTolTool(document.Main());
    TDF_LabelSequence annotations;
    TDF_LabelSequence tolerances;
    TDF_LabelSequence views;
    tool->GetDimensionLabels(annotations);
    tool->GetGeomToleranceLabels(tolerances);
    annotations.Append(tolerances);
    XCAFDoc_DocumentTool::ViewTool(document.Main())->GetViewLabels(views);
    if (!annotations.IsEmpty())
        messages.Warn(FillText(kAnnotationsNotWritten, {std::to_wstring(annotations.Length())}));
    if (const int points = countDroppedPoints(document))
        messages.Warn(FillText(kPointsNotWritten, {std::to_wstring(points)}));
    if (!views.IsEmpty())
        messages.Warn(FillText(kViewsNotWritten, {std::to_wstring(views.Length())}));
}

void nameFile(const std::wstring& fileName, const Handle(StepData_StepModel) & model)
{
    APIHeaderSection_MakeHeader header(model);
    header.SetName(utf8(TambVizCore::Utils::GetFileNameOnly(fileName)));
    header.SetOriginatingSystem(new TCollection_HAsciiString(kOrigin));
}

} // namespace

bool MakeStepText(const std::wstring& fileName, const CadDocument& document, std::string& text,
                  CadMessages& messages)
{
    configure(TambVizCore::Utils::GetFileNameOnly(fileName));
    STEPCAFControl_Writer writer;
    // The schema has no place for annotations. What a file claimed of its bodies is not repeated.
    writer.SetDimTolMode(Standard_False);
    writer.SetPropsMode(Standard_False);
    const Handle(KernelProgress) progress = new KernelProgress(KernelProgress::Reports::Yes);
    const KernelMessages complaints;
    const bool isDone =
        writer.Transfer(document.Document(), STEPControl_AsIs, nullptr, progress->Start());
    PollJob();
    const Handle(XSControl_WorkSession) session = writer.ChangeWriter().WS();
    const Handle(StepData_StepModel) model = writer.ChangeWriter().Model();
    if (!isDone || model.IsNull() || model->NbEntities() == 0) {
        messages.Fail(FillText(kNothingWritten, {L"STEP"}));
        return false;
    }
    NamePlacements(session, document);
    nameFile(fileName, model);

    StepData_StepWriter sender(model);
    sender.SendModel(Handle(StepData_Protocol)::DownCast(session->Protocol()));
    std::ostringstream stream;
    stream.imbue(std::locale::classic());
    if (!sender.Print(stream)) {
        messages.Fail(FillText(kNothingWritten, {L"STEP"}));
        return false;
    }
    text = EscapeStepText(std::move(stream).str());
    warnOfWhatIsLeftOut(document, messages);
    return true;
}

} // namespace OrvikCad
