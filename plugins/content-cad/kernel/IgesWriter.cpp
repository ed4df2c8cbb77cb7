#include "kernel/IgesWriter.h"

#include "interface/CadTexts.h"
#include "kernel/KernelMessages.h"
#include "kernel/KernelProgress.h"
#include "kernel/KernelWatch.h"

#include <OrvikOs/Utf8.h>
#include <TambVizCore/Utils.h>

#include <IGESCAFControl_Writer.hxx>
#include <IGESControl_Controller.hxx>
#include <IGESData_GlobalSection.hxx>
#include <IGESData_IGESModel.hxx>
#include <Interface_Static.hxx>
#include <TDF_LabelSequence.hxx>
#include <XCAFDoc_DocumentTool.hxx>
#include <XCAFDoc_ShapeTool.hxx>

#include <algorithm>
#include <locale>
#include <sstream>

namespace OrvikCad {

namespace {

constexpr char kOrigin[] = "Pellux";

/// The writer looks at these when it is made, and ignores them before its controller is there.
void configure()
{
    IGESControl_Controller::Init();
    Interface_Static::SetIVal("write.iges.brep.mode", 1); // Solids instead of loose faces.
    Interface_Static::SetCVal("write.iges.unit", "MM");
}

void nameFile(const std::wstring& fileName, const Handle(IGESData_IGESModel) & model)
{
    const std::wstring name = TambVizCore::Utils::GetFileNameOnly(fileName);
    IGESData_GlobalSection global = model->GlobalSection();
    global.SetFileName(new TCollection_HAsciiString(OrvikOs::WideToUtf8(name).c_str()));
    global.SetSystemId(new TCollection_HAsciiString(kOrigin));
    model->SetGlobalSection(global);
}

/// Names are ASCII in the format; the kernel writes "_" for every other character.
void warnOfNames(const CadDocument& document, CadMessages& messages)
{
    TDF_LabelSequence shapes;
    XCAFDoc_DocumentTool::ShapeTool(document.Main())->GetShapes(shapes);
    int count = 0;
    for (const TDF_Label& label : shapes) {
        const std::wstring name = NameOf(label);
        if (std::any_of(name.begin(), name.end(), [](wchar_t unit) { return unit > 0x7E; }))
            ++count;
    }
    if (count > 0)
        messages.Warn(FillText(kIgesNames, {std::to_wstring(count)}));
}

} // namespace

bool MakeIgesText(const std::wstring& fileName, const CadDocument& document, std::string& text,
                  CadMessages& messages)
{
    configure();
    IGESCAFControl_Writer writer;
    const Handle(KernelProgress) progress = new KernelProgress(KernelProgress::Reports::Yes);
    const KernelMessages complaints;
    const bool isDone = writer.Transfer(document.Document(), progress->Start());
    PollJob();
    if (!isDone) {
        messages.Fail(FillText(kNothingWritten, {L"IGES"}));
        return false;
    }
    writer.ComputeModel();
    nameFile(fileName, writer.Model());
    std::ostringstream stream;
    stream.imbue(std::locale::classic());
    if (!writer.Write(stream)) {
        messages.Fail(FillText(kNothingWritten, {L"IGES"}));
        return false;
    }
    text = std::move(stream).str();
    warnOfNames(document, messages);
    return true;
}

} // namespace OrvikCad
