#ifndef PELLUX_RUNTIME_QUIETCOMMAND_H
#define PELLUX_RUNTIME_QUIETCOMMAND_H

#include <TambCommandsInfra/Value.h>

#include <vector>

namespace Pellux {

/// Carries a script command out beside the engine: it is not echoed and not in the journal. For
/// questions of the window's own, and for previews of what a command that follows does for good.
///
/// @throws what CommandTable::Run throws.
/// @thread Main thread while nothing runs, or worker thread inside a job.
TambCommandsInfra::Value RunQuietly(const char* command,
                                    std::vector<TambCommandsInfra::Value> arguments = {});

} // namespace Pellux

#endif
