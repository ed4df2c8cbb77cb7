#ifndef ORVIKCAD_KERNEL_STEPWRITER_H
#define ORVIKCAD_KERNEL_STEPWRITER_H

#include "interface/CadMessages.h"
#include "kernel/CadDocument.h"

#include <string>

namespace OrvikCad {

/// Turns a document into the text of a STEP file by the schema of AP214, in millimetres, with
/// structure, names, colours, transparency and layers.
///
/// Annotations and saved views are left out, with a warning that counts them.
///
/// @param fileName  Stands in the file's header.
/// @return          false with an error in @p messages when the kernel made nothing of it.
/// @throws TambCommandsInfra::JobCancelled
bool MakeStepText(const std::wstring& fileName, const CadDocument& document, std::string& text,
                  CadMessages& messages);

} // namespace OrvikCad

#endif
