#ifndef ORVIKCAD_KERNEL_EXTERNALFILES_H
#define ORVIKCAD_KERNEL_EXTERNALFILES_H

#include "interface/CadMessages.h"

#include <STEPCAFControl_Reader.hxx>
#include <XSControl_WorkSession.hxx>

namespace OrvikCad {

/// Takes away what a parsed STEP file says of files outside of its own folder, with a warning for
/// each, so that the kernel does not look for them.
void RefuseFilesElsewhere(const Handle(XSControl_WorkSession) & session, CadMessages& messages);

/// Warns of each file that a STEP file refers to and that could not be read.
void WarnOfMissingFiles(const STEPCAFControl_Reader& reader, CadMessages& messages);

} // namespace OrvikCad

#endif
