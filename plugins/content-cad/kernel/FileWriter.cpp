#include "kernel/FileWriter.h"

#include "interface/CadTexts.h"
#include "kernel/BrepWriter.h"
#include "kernel/CadDocument.h"
#include "kernel/IgesWriter.h"
#include "kernel/KernelGuard.h"
#include "kernel/StepWriter.h"

#include <OrvikOs/FileWriting.h>
#include <TambCommandsInfra/CancelToken.h>
#include <TambCommandsInfra/Progress.h>
#include <TambVizCore/Utils.h>

#include <new>

namespace OrvikCad {

namespace {

using TambCommandsInfra::Progress;

constexpr wchar_t kWriting[] = L"Writing ";

/// Ends the progress of writing, however it ends.
class WritingScope
{
public:
    explicit WritingScope(const std::wstring& fileName)
    {
        Progress::Instance().BeginPhase(kWriting + TambVizCore::Utils::GetFileNameOnly(fileName));
    }
    ~WritingScope() { Progress::Instance().End(); }
    WritingScope(const WritingScope&) = delete;
    WritingScope& operator=(const WritingScope&) = delete;
};

bool makeText(const std::wstring& fileName, CadFormat format, const CadDocument& document,
              std::string& text, CadMessages& messages)
{
    switch (format) {
    case CadFormat::Step:
        return MakeStepText(fileName, document, text, messages);
    case CadFormat::Iges:
        return MakeIgesText(fileName, document, text, messages);
    case CadFormat::Brep:
        return MakeBrepText(document, text, messages);
    }
    return false;
}

bool store(const std::wstring& fileName, const std::string& text, CadMessages& messages)
{
    std::wstring reason;
    if (OrvikOs::WriteFileAtomically(fileName, text.data(), text.size(), &reason))
        return true;
    messages.Fail(FillText(kCannotWrite, {reason}));
    return false;
}

} // namespace

bool CanWriteModel(const OrvikModel::Model& model)
{
    return dynamic_cast<const CadDocument*>(model.source.get()) != nullptr;
}

bool WriteModel(const std::wstring& fileName, CadFormat format, const OrvikModel::Model& model,
                CadMessages& messages)
{
    const auto* document = dynamic_cast<const CadDocument*>(model.source.get());
    if (!document) {
        messages.Fail(kNotWritable);
        return false;
    }
    const WritingScope scope(fileName);
    std::string text;
    bool isMade = false;
    try {
        const std::wstring failure =
            RunGuarded([&] { isMade = makeText(fileName, format, *document, text, messages); });
        if (!failure.empty())
            messages.Fail(FillText(kKernelFailure, {kWhileWriting, failure}));
        return isMade && failure.empty() && store(fileName, text, messages);
    } catch (const TambCommandsInfra::JobCancelled&) {
        messages.Fail(kWritingCancelled);
    } catch (const std::bad_alloc&) {
        messages.Fail(kNoMemoryToWrite);
    }
    return false;
}

} // namespace OrvikCad
