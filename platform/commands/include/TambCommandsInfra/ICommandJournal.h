#ifndef TAMBCOMMANDSINFRA_ICOMMANDJOURNAL_H
#define TAMBCOMMANDSINFRA_ICOMMANDJOURNAL_H

#include "TambCommandsInfra/Command.h"
#include "TambCommandsInfra/Export.h"

#include <string>

namespace TambCommandsInfra {

/// Learns of every command that the command table runs; the host keeps its journal so.
class TAMBCOMMANDSINFRA_API ICommandJournal
{
public:
    // Virtual operations in slot order; append only.
    virtual ~ICommandJournal();

    /// Called when a command has ended, whether it succeeded or not.
    ///
    /// @param command    As it is registered.
    /// @param arguments  Checked; valid during the call.
    /// @thread The thread that ran the command: the worker, inside a job.
    virtual void NoteCommand(const Command& command, const Arguments& arguments) noexcept = 0;

    /// @return the path of the file that is written; empty when none is. Any thread.
    virtual std::wstring GetPath() const = 0;
};

/// Replaces the journal of the process.
///
/// @param journal  Not owned, may be null; must live until it is replaced and no command runs.
/// @thread Main thread, between jobs.
TAMBCOMMANDSINFRA_API void SetCommandJournal(ICommandJournal* journal);

/// @return the journal of the process or null; not owned. Any thread.
TAMBCOMMANDSINFRA_API ICommandJournal* GetCommandJournal();

} // namespace TambCommandsInfra

#endif
