#include "interface/CadTexts.h"
#include "kernel/FileReading.h"
#include "kernel/KernelChecks.h"
#include "kernel/KernelMessages.h"
#include "kernel/KernelProgress.h"
#include "kernel/KernelWatch.h"
#include "kernel/LooseShapes.h"

#include <OrvikOs/Utf8.h>

#include <IGESCAFControl_Reader.hxx>
#include <Interface_InterfaceModel.hxx>

#include <memory>

namespace OrvikCad {

namespace {

constexpr wchar_t kParsing[] = L"Reading ";
constexpr wchar_t kTransferring[] = L"Making shapes of ";

/// Lines have 80 columns: the 73rd names the section, the first of which is the start section, and
/// after it stands the number of the line.
bool isIges(std::string_view text)
{
    constexpr std::size_t kSectionColumn = 72;
    constexpr std::size_t kColumns = 80;
    const std::string_view line = text.substr(0, text.find_first_of("\r\n"));
    return line.size() >= kColumns && line[kSectionColumn] == 'S' &&
           line.substr(kSectionColumn + 1, kColumns - kSectionColumn - 1)
                   .find_first_not_of(" 0123456789") == line.npos;
}

bool readWith(IGESCAFControl_Reader& reader, const CadFile& file, CadDocument& document,
              CadMessages& messages)
{
    BeginReadingPhase(kParsing, file);
    const KernelMessages complaints;
    const std::string name = OrvikOs::WideToUtf8(file.path);
    const IFSelect_ReturnStatus status = reader.ReadFile(name.c_str());
    const Handle(XSControl_WorkSession) session = reader.WS();
    if (status != IFSelect_RetDone || session->Model().IsNull()) {
        messages.Fail(kIgesUnreadable);
        return false;
    }
    WarnOfBadEntities(session, messages);

    BeginReadingPhase(kTransferring, file);
    const Handle(KernelProgress) progress = new KernelProgress(KernelProgress::Reports::Yes);
    Handle(TDocStd_Document) target = document.Document();
    const bool isTransferred = reader.Transfer(target, progress->Start());
    PollJob();
    WarnOfFailedTransfers(session, messages);
    if (!isTransferred)
        messages.Fail(
            FillText(kNothingTransferred, {std::to_wstring(session->Model()->NbEntities())}));
    else
        JoinLooseShapes(document);
    return isTransferred;
}

} // namespace

bool ReadIges(const CadFile& file, CadDocument& document, CadMessages& messages)
{
    if (!isIges(file.text)) {
        messages.Fail(kNotIges);
        return false;
    }
    auto reader = std::make_unique<IGESCAFControl_Reader>();
    const bool isRead = readWith(*reader, file, document, messages);
    const CleanupScope cleanup;
    reader.reset();
    return isRead;
}

} // namespace OrvikCad
