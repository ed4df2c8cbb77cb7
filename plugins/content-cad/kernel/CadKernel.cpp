#include "kernel/CadKernel.h"

#include "interface/CadTexts.h"
#include "kernel/DrawnShape.h"
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

using OrvikCore::LoadMode;

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

bool readInto(const CadFile& file, CadFormat format, LoadMode mode, CadDocument& document,
              CadMessages& messages)
{
    switch (format) {
    case CadFormat::Step:
        return ReadStep(file, mode, document, messages);
    case CadFormat::Iges:
        return ReadIges(file, document, messages);
    case CadFormat::Brep:
        return ReadBrep(file, document, messages);
    }
    return false;
}

bool buildStructure(const CadFile& file, LoadMode mode, ReadContext& context, KernelBudget& budget)
{
    if (!runStep(kWhileBuilding, budget, context.messages, [&] {
            ModelBuilder(context, file.Stem(), MaxModelNodes(file.text.size())).Build();
            return true;
        }))
        return false;
    // A structure is worth showing though the files with its shapes are missing.
    const bool isEmpty = mode == LoadMode::ProductStructure ? context.model.nodes.empty()
                                                            : context.shapes.Entries().empty();
    if (isEmpty)
        context.messages.Fail(kNoShape);
    return !context.messages.HasError();
}

/// Adds all that the structure does not hold.
void buildContent(const CadFile& file, const CadTessellation& tessellation, ReadContext& context,
                  KernelBudget& budget)
{
    CadMessages& messages = context.messages;
    tryStep(kWhileReadingPmi, budget, messages, [&] { AddPmi(context); });
    BeginReadingPhase(kTessellating, file);
    if (tessellation.sag > 0.0 || tessellation.maxAngleDegrees > 0.0)
        budget.AllowAnyMemory();
    Tessellate(context.shapes, tessellation, budget, context.model, messages);
    tryStep(kWhileReadingViews, budget, messages, [&] { AddSavedViews(context); });
    context.model.NumberNodes();
    tryStep(kWhileValidating, budget, messages, [&] { CheckValidation(context); });
}

bool build(const CadFile& file, const std::shared_ptr<CadDocument>& document,
           const CadOptions& options, KernelBudget& budget, OrvikModel::Model& model,
           CadMessages& messages)
{
    ShapeCatalog shapes;
    NodeIndex nodes;
    ReadContext context{*document, model, shapes, nodes, messages};
    if (!buildStructure(file, options.mode, context, budget))
        return false;
    if (options.mode == LoadMode::ProductStructure) {
        KeepOnlyStructure(model);
        model.NumberNodes();
        return true;
    }
    buildContent(file, options.tessellation, context, budget);
    if (options.mode == LoadMode::Graphical)
        KeepOnlyDrawings(model);
    else
        model.source = document;
    return true;
}

bool readFile(const CadFile& file, CadFormat format, const CadOptions& options,
              const KernelLimits& limits, OrvikModel::Model& model, CadMessages& messages)
{
    KernelBudget budget(limits, file.text.size());
    const auto document = std::make_shared<CadDocument>();
    return runStep(kWhileReading, budget, messages,
                   [&] { return readInto(file, format, options.mode, *document, messages); }) &&
           build(file, document, options, budget, model, messages);
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

bool CadKernel::Read(const std::wstring& fileName, CadFormat format, const CadOptions& options,
                     OrvikModel::Model& model, CadMessages& messages)
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
        isRead = readFile({fileName, mapped.Text()}, format, options, m_limits, model, messages);
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
