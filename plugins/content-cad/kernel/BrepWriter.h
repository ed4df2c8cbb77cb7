#ifndef ORVIKCAD_KERNEL_BREPWRITER_H
#define ORVIKCAD_KERNEL_BREPWRITER_H

#include "interface/CadMessages.h"
#include "kernel/CadDocument.h"

#include <string>

namespace OrvikCad {

/// Turns a document into the text of a BREP file: its one top shape, or a compound of them. The
/// format holds shapes and instances, no names and no colours; triangles are left out.
///
/// @return false with an error in @p messages when the document has no shape.
bool MakeBrepText(const CadDocument& document, std::string& text, CadMessages& messages);

} // namespace OrvikCad

#endif
