#ifndef ORVIKCAD_KERNEL_PMIREADER_H
#define ORVIKCAD_KERNEL_PMIREADER_H

#include "kernel/ReadContext.h"

namespace OrvikCad {

/// Adds what the document holds of PMI as one PmiSet at the end of the model's top nodes: below it
/// one PmiType for each type that occurs, in the order of their numbers, and below that the
/// annotations in the order of the file.
///
/// An annotation has the text that a drawing would show (PmiText) and, where the file draws it, its
/// curves as a shape, placed by the first place of the body that it belongs to. A datum that
/// several tolerances name is there once. An annotation that is only drawn is a note, unless its
/// name tells that it is a surface finish, a dimension, a tolerance or a datum.
///
/// Nothing is added where the file has no PMI.
void AddPmi(ReadContext& context);

} // namespace OrvikCad

#endif
