#include "kernel/CadKernel.h"

#include "interface/CadTexts.h"
#include "kernel/FileReading.h"
#include "kernel/FileWriter.h"
#include "kernel/KernelMessages.h"
#include "kernel/KernelWatch.h"
#include "kernel/ModelBuilder.h"
#include "kernel/PmiReader.h"
#include "kernel/ReadContext.h"
#include "kernel/SavedViews.h"
#include "kernel/Tessellation.h"
#include "kernel/Validation.h"

#include <OrvikOs/MemoryMappedFile.h>
#include <TambCommandsInfra/CancelToken.h>
#include <TambCommandsInfra/Progress.h>

#include <IGESControl_Controller.hxx>
#include <Interface_Static.hxx>
#include <STEPCAFControl_Controller.hxx>
#include <XCAFDoc_ShapeTool.hxx>
#include <malloc.h>

#include <functional>
#include <memory>
#include <new>

namespace OrvikCad {

namespace {

constexpr wchar_t kTessellating[] = L"Cutting into triangles: ";

/// Ends the progress of reading, however it ends, and gives memory that the kernel has freed back
/// to the system: it frees in small pieces.
class ReadingScope
{
public:
    ReadingScope() = default;
    ~ReadingScope()
    {
        TambCommandsInfra::Progress::Instance().End();
        malloc_trim(0);
    }
    ReadingScope(const ReadingScope&) = delete;
    ReadingScope& operator=(const ReadingScope&) = delete;
};

/// Runs one step of reading.
/// @return false when it failed; @p messages then has an error.
bool runStep(const wchar_t* doing, KernelBudget& budget, CadMessages& messages,
             const std::function<bool()>& step)
{
    bool isDone = false;
    const std::wstring failure = RunWatched(budget, [&] { isDone = step(); });
    if (!failure.empty())
        messages.Fail(FillText(kKernelFailure, {doing, failure}));
    return isDone && failure.empty();
}

/// Runs a step without which the model is still worth showing.
void tryStep(const wchar_t* doing, KernelBudget& budget, CadMessages& messages,
             const std::function<void()>& step)
{
    const std::wstring failure = RunWatched(budget, step);
    if (!failure.empty())
        messages.Warn(FillText(kKernelFailure, {doing, failure}));
}

bool readInto(const CadFile& file, CadFormat format, CadDocument& document, CadMessages& messages)
{
    switch (format) {
    case CadFormat::Step:
        return ReadStep(file, document, messages);
    case CadFormat::Iges:
        return ReadIges(file, document, messages);
    case CadFormat::Brep:
        return ReadBrep(file, document, messages);
    }
    return false;
}

bool build(const CadFile& file, const std::shared_ptr<CadDocument>& document,
           const CadTessellation& tessellation, KernelBudget& budget, OrvikModel::Model& model,
           CadMessages& messages)
{
    ShapeCatalog shapes;
    NodeIndex nodes;
    ReadContext context{*document, model, shapes, nodes, messages};
    if (!runStep(kWhileBuilding, budget, messages, [&] {
            ModelBuilder(context, file.Stem(), MaxModelNodes(file.text.size())).Build();
            return true;
        }))
        return false;
    if (shapes.Entries().empty()) {
        messages.Fail(kNoShape);
        return false;
    }
    tryStep(kWhileReadingPmi, budget, messages, [&] { AddPmi(context); });
    BeginReadingPhase(kTessellating, file);
    if (tessellation.sag > 0.0 || tessellation.maxAngleDegrees > 0.0)
        budget.AllowAnyMemory();
    Tessellate(shapes, tessellation, budget, model, messages);
    tryStep(kWhileReadingViews, budget, messages, [&] { AddSavedViews(context); });
    model.NumberNodes();
    tryStep(kWhileValidating, budget, messages, [&] { CheckValidation(context); });
    model.source = document;
    return true;
}

bool readFile(const CadFile& file, CadFormat format, const CadTessellation& tessellation,
              const KernelLimits& limits, OrvikModel::Model& model, CadMessages& messages)
{
    KernelBudget budget(limits, file.text.size());
    const auto document = std::make_shared<CadDocument>();
    return runStep(kWhileReading, budget, messages,
                   [&] { return readInto(file, format, *document, messages); }) &&
           build(file, document, tessellation, budget, model, messages);
}

/// Settings of the kernel that hold for the process; the readers' controllers must be there first.
void configureKernel()
{
    KernelMessages::SilenceKernel();
    STEPCAFControl_Controller::Init();
    IGESControl_Controller::Init();
    Interface_Static::SetCVal("xstep.cascade.unit", "MM");
    XCAFDoc_ShapeTool::SetAutoNaming(Standard_False);
}

} // namespace

CadKernel::CadKernel(const KernelLimits& limits) : m_limits(limits)
{
    configureKernel();
}

bool CadKernel::Read(const std::wstring& fileName, CadFormat format,
                     const CadTessellation& tessellation, OrvikModel::Model& model,
                     CadMessages& messages)
{
    const ReadingScope scope;
    OrvikOs::MemoryMappedFile mapped;
    if (!mapped.Open(fileName)) {
        messages.Fail(FillText(kCannotOpen, {mapped.ErrorText()}));
        return false;
    }
    if (mapped.Size() == 0) {
        messages.Fail(kEmptyFile);
        return false;
    }
    model.path = fileName;
    bool isRead = false;
    try {
        isRead =
            readFile({fileName, mapped.Text()}, format, tessellation, m_limits, model, messages);
    } catch (const TambCommandsInfra::JobCancelled&) {
        messages.Fail(kCancelled);
    } catch (const std::bad_alloc&) {
        messages.Fail(kOutOfMemory);
    }
    if (!isRead)
        model = OrvikModel::Model();
    return isRead;
}

bool CadKernel::CanWrite(const OrvikModel::Model& model) const
{
    return CanWriteModel(model);
}

bool CadKernel::Write(const std::wstring& fileName, CadFormat format,
                      const OrvikModel::Model& model, CadMessages& messages)
{
    return WriteModel(fileName, format, model, messages);
}

} // namespace OrvikCad
