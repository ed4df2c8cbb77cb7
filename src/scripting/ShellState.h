#ifndef ORVIKCORE_SCRIPTING_SHELLSTATE_H
#define ORVIKCORE_SCRIPTING_SHELLSTATE_H

#include <OrvikOs/Snapshot.h>

#include <atomic>
#include <string>

namespace OrvikCore {

class AScriptEngine;

/// The part of a shell that its jobs work on; shared, so that a job may finish after the shell.
///
/// Written on the worker (errorText and startupLoadOk also on the main thread), read on both.
struct ShellState
{
    std::atomic<bool> initialized{false};        ///< The engine's initialisation has run.
    std::atomic<bool> terminating{false};        ///< The engine is being destroyed, or gone.
    std::atomic<bool> startupLoadOk{true};       ///< False after a failed set-up.
    OrvikOs::Snapshot<std::wstring> errorText;   ///< The last set-up error.
    std::atomic<AScriptEngine*> engine{nullptr}; ///< Owned; destroyed by Shell::terminate.
};

} // namespace OrvikCore

#endif
