#ifndef ORVIKCAD_KERNEL_FILEWRITER_H
#define ORVIKCAD_KERNEL_FILEWRITER_H

#include "interface/CadMessages.h"
#include "interface/ICadKernel.h"

#include <OrvikModel/Model.h>

#include <string>

namespace OrvikCad {

/// @return true for a model with a document of this kernel.
bool CanWriteModel(const OrvikModel::Model& model);

/// Writes a model as ICadKernel::Write() promises: the whole file or none, and a file that was
/// there before stays as it was on failure.
bool WriteModel(const std::wstring& fileName, CadFormat format, const OrvikModel::Model& model,
                CadMessages& messages);

} // namespace OrvikCad

#endif
