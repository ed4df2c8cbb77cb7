#include "interface/CadTexts.h"
#include "kernel/FileReading.h"
#include "kernel/FileStream.h"
#include "kernel/KernelGuard.h"
#include "kernel/KernelMessages.h"
#include "kernel/KernelProgress.h"
#include "kernel/KernelText.h"
#include "kernel/KernelWatch.h"
#include "kernel/StepScan.h"

#include <BRepTools.hxx>
#include <BRep_Builder.hxx>
#include <TDataStd_Name.hxx>
#include <TopoDS_Shape.hxx>
#include <XCAFDoc_DocumentTool.hxx>
#include <XCAFDoc_ShapeTool.hxx>

#include <algorithm>
#include <ios>

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

/// The binary form says the same in other words.
bool isBinaryBrep(std::string_view text)
{
    return text.substr(0, 200).find("Open CASCADE Topology V") != text.npos;
}

/// @return a null shape where the file cannot be read; @p messages then has an error.
TopoDS_Shape readShape(const CadFile& file, CadMessages& messages)
{
    FileStream stream(file.text, {}, OnBadText::Throw);
    TopoDS_Shape shape;
    const Handle(KernelProgress) progress = new KernelProgress(KernelProgress::Reports::No);
    const SilencedThread silence;
    bool hasBadText = false;
    const std::wstring failure = RunGuarded([&] {
        try {
            BRepTools::Read(shape, stream, BRep_Builder(), progress->Start());
        } catch (const std::ios_base::failure&) {
            hasBadText = true;
        }
    });
    PollJob();
    if (failure.empty() && !hasBadText && !shape.IsNull())
        return shape;
    const std::size_t place = std::min(stream.Position(), file.text.size());
    messages.FailAtLine(LineOf(file.text, place), hasBadText        ? kBrepUnexpected
                                                  : failure.empty() ? kBrepBroken
                                                                    : failure);
    return {};
}

} // namespace

bool ReadBrep(const CadFile& file, CadDocument& document, CadMessages& messages)
{
    if (isBinaryBrep(file.text)) {
        messages.Fail(kBinaryBrep);
        return false;
    }
    if (!isBrep(file.text)) {
        messages.Fail(kNotBrep);
        return false;
    }
    BeginReadingPhase(kPhase, file);
    const TopoDS_Shape shape = readShape(file, messages);
    if (shape.IsNull())
        return false;
    // Triangles that lie in the file were made for some other purpose.
    BRepTools::Clean(shape);
    const Handle(XCAFDoc_ShapeTool) shapes = XCAFDoc_DocumentTool::ShapeTool(document.Main());
    const TDF_Label label = shapes->AddShape(shape, /*makeAssembly=*/Standard_False);
    TDataStd_Name::Set(label, ToKernel(file.Stem()));
    return true;
}

} // namespace OrvikCad
