#ifndef PELLUX_OPTIONS_H
#define PELLUX_OPTIONS_H

#include "window/WindowRun.h"

#include <CommandLine.h>

namespace Pellux {

/// Reads the command line of the window; a mistake is answered with the reason and the nearest
/// option.
ParseResult ParseOptions(int argc, const char* const* argv, WindowOptions& options);

} // namespace Pellux

#endif
