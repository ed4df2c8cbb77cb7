#include "plugin/CadSaver.h"

#include "interface/CadMessages.h"
#include "interface/CadTexts.h"
#include "plugin/CadLoader.h"
#include "plugin/KernelLibrary.h"

#include <OrvikModel/ModelContent.h>

namespace OrvikCad {

namespace {

/// @return the model of a content that came from the kernel; null for any other.
const OrvikModel::Model* modelOf(const OrvikCore::AContent* content)
{
    const auto* cad = dynamic_cast<const OrvikModel::ModelContent*>(content);
    // Where there is no source the kernel's library need not be loaded to know the answer.
    return cad && cad->GetTypeName() == kCadTypeName && cad->GetModel()->source
               ? cad->GetModel().get()
               : nullptr;
}

} // namespace

CadSaver::CadSaver(CadFormat format) : m_format(format)
{
    validExtensions = ExtensionsOf(format);
}

CadSaver::~CadSaver() = default;

bool CadSaver::canSave(OrvikCore::AContent* content, const std::wstring& /*extension*/)
{
    const OrvikModel::Model* model = modelOf(content);
    std::wstring reason;
    ICadKernel* kernel = model ? LoadKernel(kKernelLibrary, reason) : nullptr;
    return kernel && kernel->CanWrite(*model);
}

bool CadSaver::save(const std::wstring& fileName, OrvikCore::AContent* content)
{
    CadMessages messages(fileName);
    const OrvikModel::Model* model = modelOf(content);
    std::wstring reason = kNotWritable;
    ICadKernel* kernel = model ? LoadKernel(kKernelLibrary, reason) : nullptr;
    const bool isWritten = kernel && kernel->Write(fileName, m_format, *model, messages);
    if (!kernel)
        messages.Fail(reason);
    for (const std::wstring& warning : messages.Warnings())
        addWarningMessage(warning);
    if (!isWritten)
        setErrorMessage(messages.Error());
    return isWritten;
}

} // namespace OrvikCad
