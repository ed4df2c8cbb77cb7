#include "kernel/ExternalFiles.h"

#include "interface/CadTexts.h"

#include <OrvikOs/Utf8.h>

#include <Interface_InterfaceModel.hxx>
#include <STEPCAFControl_ExternFile.hxx>
#include <StepAP214_AppliedExternalIdentificationAssignment.hxx>
#include <TCollection_HAsciiString.hxx>

#include <string_view>

namespace OrvikCad {

namespace {

constexpr wchar_t kElsewhere[] =
    L"the file refers to \"%1\", which lies outside of its folder and was not read";

bool leavesFolder(std::string_view name)
{
    if (name.empty())
        return false;
    if (name.front() == '/' || name.front() == '\\' || name.find(':') != name.npos)
        return true;
    std::size_t begin = 0;
    while (begin <= name.size()) {
        const std::size_t end = std::min(name.find_first_of("/\\", begin), name.size());
        if (name.substr(begin, end - begin) == "..")
            return true;
        begin = end + 1;
    }
    return false;
}

} // namespace

void RefuseFilesElsewhere(const Handle(XSControl_WorkSession) & session, CadMessages& messages)
{
    const Handle(Interface_InterfaceModel)& model = session->Model();
    for (int i = 1; i <= model->NbEntities(); ++i) {
        const auto reference =
            Handle(StepAP214_AppliedExternalIdentificationAssignment)::DownCast(model->Value(i));
        if (reference.IsNull() || reference->AssignedId().IsNull())
            continue;
        const std::string name = reference->AssignedId()->ToCString();
        if (!leavesFolder(name))
            continue;
        messages.Warn(FillText(kElsewhere, {OrvikOs::Utf8ToWide(name)}));
        reference->SetAssignedId(new TCollection_HAsciiString(""));
    }
}

void WarnOfMissingFiles(const STEPCAFControl_Reader& reader, CadMessages& messages)
{
    using Files = NCollection_DataMap<TCollection_AsciiString, Handle(STEPCAFControl_ExternFile)>;
    for (Files::Iterator files(reader.ExternFiles()); files.More(); files.Next())
        if (files.Value().IsNull() || files.Value()->GetLoadStatus() != IFSelect_RetDone)
            messages.Warn(
                FillText(kMissingExternal, {OrvikOs::Utf8ToWide(files.Key().ToCString())}));
}

} // namespace OrvikCad
