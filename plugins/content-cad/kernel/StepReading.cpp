#include "interface/CadTexts.h"
#include "kernel/ExternalFiles.h"
#include "kernel/FileReading.h"
#include "kernel/FileStream.h"
#include "kernel/KernelChecks.h"
#include "kernel/KernelMessages.h"
#include "kernel/KernelProgress.h"
#include "kernel/KernelWatch.h"
#include "kernel/PmiValues.h"
#include "kernel/SavedViewPlaces.h"
#include "kernel/StepParser.h"
#include "kernel/StepScan.h"
#include "kernel/StepStructure.h"

#include <OrvikOs/Utf8.h>

#include <Interface_InterfaceModel.hxx>
#include <Interface_Static.hxx>
#include <STEPCAFControl_Reader.hxx>
#include <StepData_FileRecognizer.hxx>
#include <StepData_Protocol.hxx>
#include <StepData_StepModel.hxx>
#include <StepData_StepReaderTool.hxx>

#include <filesystem>
#include <memory>

namespace OrvikCad {

namespace {

constexpr wchar_t kParsing[] = L"Reading ";
constexpr wchar_t kTransferring[] = L"Making shapes of ";

/// Fails where the kernel must not see the file at all.
bool isReadable(const StepScan& scan, CadMessages& messages)
{
    if (!scan.isStep)
        messages.Fail(kNotStep);
    else if (scan.refusedLine > 0)
        messages.FailAtLine(scan.refusedLine, scan.refusal);
    else if (!scan.hasData)
        messages.Fail(kStepNoData);
    return !messages.HasError();
}

/// Files that this one refers to are looked for beside it, for which the kernel wants a whole path.
std::string wholePath(const CadFile& file)
{
    return std::filesystem::absolute(OrvikOs::WideToUtf8(file.path)).string();
}

/// Makes entities of records, and looks at the job's cancel in between: the kernel's own tool does
/// not.
class PollingTool final : public StepData_StepReaderTool
{
public:
    using StepData_StepReaderTool::StepData_StepReaderTool;

    Standard_Boolean Recognize(const Standard_Integer number, Handle(Interface_Check) & check,
                               Handle(Standard_Transient) & entity) override
    {
        poll();
        return StepData_StepReaderTool::Recognize(number, check, entity);
    }

    Standard_Boolean AnalyseRecord(const Standard_Integer number,
                                   const Handle(Standard_Transient) & entity,
                                   Handle(Interface_Check) & check) override
    {
        poll();
        return StepData_StepReaderTool::AnalyseRecord(number, entity, check);
    }

private:
    void poll()
    {
        if (++m_calls % kPollEntities == 0)
            PollJob();
    }

    static constexpr unsigned kPollEntities = 256;
    unsigned m_calls = 0;
};

/// Makes the session's model of the records of a file with plain syntax, as the kernel's own
/// reading would.
/// @return false where that has to do it.
bool loadRecords(const CadFile& file, STEPCAFControl_Reader& reader)
{
    const Handle(XSControl_WorkSession) session = reader.Reader().WS();
    const auto protocol = Handle(StepData_Protocol)::DownCast(session->Protocol());
    StepParser parser(file.text);
    if (protocol.IsNull() || !parser.Parse())
        return false;
    const Handle(StepData_StepModel) model = new StepData_StepModel();
    {
        const Handle(StepData_StepReaderData) data = parser.Release(model->SourceCodePage());
        PollingTool tool(data, protocol);
        tool.SetErrorHandle(Standard_True);
        tool.PrepareHeader(nullptr);
        tool.Prepare(nullptr);
        tool.LoadModel(model);
        if (model->Protocol().IsNull())
            model->SetProtocol(protocol);
        tool.Clear();
    }
    session->SetModel(model);
    session->SetLoadedFile(wholePath(file).c_str());
    session->InitTransferReader(4);
    return true;
}

bool parse(const CadFile& file, const StepScan& scan, STEPCAFControl_Reader& reader,
           CadMessages& messages)
{
    BeginReadingPhase(kParsing, file);
    // Text outside of the escapes is UTF-8 by the newer editions of the format; older systems
    // wrote what their machine used.
    Interface_Static::SetCVal("read.step.codepage", scan.isUtf8 ? "UTF8" : "iso8859-1");
    const KernelMessages complaints;
    if (scan.isComplete && loadRecords(file, reader))
        return true;
    FileStream stream(file.text.substr(0, scan.usableBytes), scan.tail, OnBadText::Fail);
    const std::string name = wholePath(file);
    const IFSelect_ReturnStatus status = reader.ChangeReader().ReadStream(name.c_str(), stream);
    PollJob();
    if (status == IFSelect_RetDone)
        return true;
    const std::vector<std::wstring> reasons = complaints.Failures();
    messages.Fail(FillText(kStepSyntax, {reasons.empty() ? std::to_wstring(status) : reasons[0]}));
    return false;
}

/// Makes the document of a file's entities.
bool transfer(const CadFile& file, const StepScan& scan, bool hasShapes,
              STEPCAFControl_Reader& reader, CadDocument& document, CadMessages& messages)
{
    const Handle(XSControl_WorkSession) session = reader.Reader().WS();
    if (!scan.isComplete)
        messages.Warn(kStepTruncated);
    WarnOfBadEntities(session, messages);
    RefuseFilesElsewhere(session, messages);
    if (!hasShapes)
        BindPlaceholders(session);

    BeginReadingPhase(kTransferring, file);
    const Handle(KernelProgress) progress = new KernelProgress(KernelProgress::Reports::Yes);
    Handle(TDocStd_Document) target = document.Document();
    const KernelMessages complaints;
    const bool isTransferred = reader.Transfer(target, progress->Start());
    PollJob();
    WarnOfFailedTransfers(session, messages);
    WarnOfMissingFiles(reader, messages);
    if (hasShapes) {
        CompletePmi(session, file.text, document);
        PlaceSavedViews(session, document);
    }
    if (!isTransferred)
        messages.Fail(
            FillText(kNothingTransferred, {std::to_wstring(session->Model()->NbEntities())}));
    return isTransferred;
}

} // namespace

bool ReadStep(const CadFile& file, OrvikCore::LoadMode mode, CadDocument& document,
              CadMessages& messages)
{
    const StepScan scan = ScanStep(file.text);
    if (!isReadable(scan, messages))
        return false;
    const bool hasShapes = mode != OrvikCore::LoadMode::ProductStructure;
    auto reader = std::make_unique<STEPCAFControl_Reader>();
    reader->SetGDTMode(hasShapes);
    reader->SetViewMode(hasShapes);
    reader->SetSHUOMode(Standard_True);
    const bool isRead = parse(file, scan, *reader, messages) &&
                        transfer(file, scan, hasShapes, *reader, document, messages);
    const CleanupScope cleanup;
    reader.reset();
    return isRead;
}

} // namespace OrvikCad
