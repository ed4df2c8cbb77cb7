#ifndef ORVIKCAD_KERNEL_SAVEDVIEWS_H
#define ORVIKCAD_KERNEL_SAVEDVIEWS_H

#include "kernel/ReadContext.h"

namespace OrvikCad {

/// Adds the document's saved views as the last top nodes of the model: a Views node with one View
/// for each, and a Captures node with one Capture for each of them that also says what it shows.
///
/// The nodes of the model must have their numbers, because captures name what they show by number:
/// the nodes made of the body, assembly or annotation that the file lists. Number the nodes again
/// afterwards; the new ones come last, so the others keep theirs.
///
/// Nothing is added where the file has no saved views.
void AddSavedViews(ReadContext& context);

} // namespace OrvikCad

#endif
