#include "kernel/KernelChecks.h"

#include "kernel/KernelWatch.h"

#include <OrvikOs/Utf8.h>

#include <IGESData_UndefinedEntity.hxx>
#include <Interface_Check.hxx>
#include <Interface_CheckIterator.hxx>
#include <Interface_InterfaceModel.hxx>
#include <StepData_UndefinedEntity.hxx>
#include <TCollection_HAsciiString.hxx>
#include <Transfer_TransientProcess.hxx>
#include <XSControl_TransferReader.hxx>

#include <cctype>
#include <cstdlib>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace OrvikCad {

namespace {

constexpr wchar_t kUnknownEntities[] =
    L"entities of types that are not known, left out: %1, the first of type %2";

/// How the kernel begins what it says of a file that it cannot read.
constexpr std::string_view kExternalFile = "Can not read external file";

constexpr int kPollEntities = 4096;

constexpr wchar_t kMoreAlike[] = L" (such entities: %1)";

/// The number by which the file itself names an entity.
std::uint64_t numberOf(const Handle(Interface_InterfaceModel) & model,
                       const Handle(Standard_Transient) & entity)
{
    const Handle(TCollection_HAsciiString) label = model->StringLabel(entity);
    if (label.IsNull())
        return 0;
    const char* digits = label->ToCString();
    while (*digits && !std::isdigit(static_cast<unsigned char>(*digits)))
        ++digits;
    return std::strtoull(digits, nullptr, 10);
}

/// @return the type, as the file names it, of an entity that the kernel does not know; empty for
///         others.
std::wstring unknownTypeOf(const Handle(Standard_Transient) & entity)
{
    if (const auto step = Handle(StepData_UndefinedEntity)::DownCast(entity))
        return OrvikOs::Utf8ToWide(step->StepType());
    if (const auto iges = Handle(IGESData_UndefinedEntity)::DownCast(entity))
        return std::to_wstring(iges->TypeNumber());
    return {};
}

/// Entities with the same complaint, which a file may have by the thousand.
class Complaints
{
public:
    void Add(const Handle(Interface_Check) & check, std::uint64_t entity)
    {
        for (int i = 1; i <= check->NbFails(); ++i) {
            if (std::string_view(check->CFail(i)).starts_with(kExternalFile))
                continue; // WarnOfMissingFiles tells it.
            const auto [at, isNew] =
                m_positions.try_emplace(OrvikOs::Utf8ToWide(check->CFail(i)), m_all.size());
            if (isNew)
                m_all.push_back({at->first, entity, 0});
            ++m_all[at->second].count;
        }
    }

    void Tell(CadMessages& messages) const
    {
        for (const Complaint& complaint : m_all) {
            std::wstring text = complaint.text;
            if (complaint.count > 1)
                text += FillText(kMoreAlike, {std::to_wstring(complaint.count)});
            if (complaint.firstEntity == 0)
                messages.Warn(text);
            else
                messages.WarnAtEntity(complaint.firstEntity, text);
        }
    }

private:
    struct Complaint
    {
        std::wstring text;
        std::uint64_t firstEntity = 0;
        std::uint64_t count = 0;
    };
    std::vector<Complaint> m_all; ///< In the order in which they came.
    std::map<std::wstring, std::size_t> m_positions;
};

} // namespace

void WarnOfBadEntities(const Handle(XSControl_WorkSession) & session, CadMessages& messages)
{
    const Handle(Interface_InterfaceModel)& model = session->Model();
    if (model.IsNull())
        return;
    Complaints complaints;
    complaints.Add(model->GlobalCheck(), 0);
    std::uint64_t unknown = 0;
    std::uint64_t firstUnknown = 0;
    std::wstring firstType;
    for (int i = 1; i <= model->NbEntities(); ++i) {
        if (i % kPollEntities == 0)
            PollJob();
        if (model->IsErrorEntity(i))
            complaints.Add(model->Check(i, Standard_True), numberOf(model, model->Value(i)));
        const std::wstring type = unknownTypeOf(model->Value(i));
        if (!type.empty() && unknown++ == 0) {
            firstUnknown = numberOf(model, model->Value(i));
            firstType = type;
        }
    }
    complaints.Tell(messages);
    if (unknown > 0)
        messages.WarnAtEntity(firstUnknown,
                              FillText(kUnknownEntities, {std::to_wstring(unknown), firstType}));
}

void WarnOfFailedTransfers(const Handle(XSControl_WorkSession) & session, CadMessages& messages)
{
    const Handle(Transfer_TransientProcess) process = session->TransferReader()->TransientProcess();
    if (process.IsNull())
        return;
    const Interface_CheckIterator checks = process->CheckList(/*erronly=*/Standard_True);
    Complaints complaints;
    for (checks.Start(); checks.More(); checks.Next()) {
        const Handle(Interface_Check)& check = checks.Value();
        const Handle(Standard_Transient)& entity = check->Entity();
        complaints.Add(check, entity.IsNull() ? 0 : numberOf(session->Model(), entity));
    }
    complaints.Tell(messages);
}

} // namespace OrvikCad
