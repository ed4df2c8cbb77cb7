#ifndef ORVIKCAD_KERNEL_IGESWRITER_H
#define ORVIKCAD_KERNEL_IGESWRITER_H

#include "interface/CadMessages.h"
#include "kernel/CadDocument.h"

#include <string>

namespace OrvikCad {

/// Turns a document into the text of an IGES file, in millimetres, with solids as such, names and
/// colours. The format has no instances and no transparency: each placement is written out.
///
/// @param fileName  Stands in the file's header.
/// @return          false with an error in @p messages when the kernel made nothing of it.
/// @throws TambCommandsInfra::JobCancelled
bool MakeIgesText(const std::wstring& fileName, const CadDocument& document, std::string& text,
                  CadMessages& messages);

} // namespace OrvikCad

#endif
