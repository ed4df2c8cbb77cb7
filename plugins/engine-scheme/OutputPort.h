#ifndef ENGINESCHEME_OUTPUTPORT_H
#define ENGINESCHEME_OUTPUTPORT_H

#include "OutputBuffer.h"

namespace OrvikScheme {

/// Makes @p buffer the target of the current output, error and warning ports of the calling thread.
///
/// @param buffer  Not owned; lives as long as the process writes, which is for ever.
/// @thread Worker thread, in Guile mode.
void RedirectOutput(OutputBuffer& buffer);

} // namespace OrvikScheme

#endif
