#ifndef ORVIKCAD_KERNEL_PMIVALUES_H
#define ORVIKCAD_KERNEL_PMIVALUES_H

#include "kernel/CadDocument.h"

#include <XSControl_WorkSession.hxx>

#include <string_view>

namespace OrvikCad {

/// Puts the values of a STEP file's dimensions and tolerances right, in millimetres, and adds
/// curves.
///
/// The kernel converts some of a file's measures and leaves others in the unit of the file, loses
/// the sign of lower tolerances and takes two negative tolerances for limits. The lengths are
/// therefore read from the file's entities again; angles stay as the kernel read them, and so does
/// what cannot be told apart. The kernel's convention holds afterwards: a
/// lower tolerance counts downwards, so 12 +0.3/+0.1 has the lower tolerance -0.1.
///
/// Curves of annotations that the kernel cannot read are added (AddDrawings).
///
/// @param session  The file as it was parsed and transferred into @p document.
/// @param text     The file itself.
void CompletePmi(const Handle(XSControl_WorkSession) & session, std::string_view text,
                 CadDocument& document);

} // namespace OrvikCad

#endif
