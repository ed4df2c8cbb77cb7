#include "interface/CadTexts.h"
#include "kernel/FileReading.h"
#include "kernel/FileStream.h"
#include "kernel/KernelProgress.h"
#include "kernel/KernelText.h"

#include <TambCommandsInfra/CancelToken.h>

#include <BRepTools.hxx>
#include <BRep_Builder.hxx>
#include <TDataStd_Name.hxx>
#include <TopoDS_Shape.hxx>
#include <XCAFDoc_DocumentTool.hxx>
#include <XCAFDoc_ShapeTool.hxx>

namespace OrvikCad {

namespace {

constexpr wchar_t kPhase[] = L"Reading ";

/// The text form begins with one of these, after an optional line of its own.
bool isBrep(std::string_view text)
{
    const std::string_view head = text.substr(0, 200);
    return head.find("CASCADE Topology V") != head.npos ||
           head.find("DBRep_DrawableShape") != head.npos;
}

} // namespace

bool ReadBrep(const CadFile& file, CadDocument& document, CadMessages& messages)
{
    if (!isBrep(file.text)) {
        messages.Fail(kNotBrep);
        return false;
    }
    BeginReadingPhase(kPhase, file);
    FileStream stream(file.text);
    TopoDS_Shape shape;
    const Handle(KernelProgress) progress = new KernelProgress(KernelProgress::Reports::No);
    BRepTools::Read(shape, stream, BRep_Builder(), progress->Start());
    TambCommandsInfra::CancelToken::Instance().ThrowIfCancelled();
    if (shape.IsNull()) {
        messages.Fail(kBrepBroken);
        return false;
    }
    // Triangles that lie in the file were made for some other purpose.
    BRepTools::Clean(shape);
    const Handle(XCAFDoc_ShapeTool) shapes = XCAFDoc_DocumentTool::ShapeTool(document.Main());
    const TDF_Label label = shapes->AddShape(shape, /*makeAssembly=*/Standard_False);
    TDataStd_Name::Set(label, ToKernel(file.Stem()));
    return true;
}

} // namespace OrvikCad
