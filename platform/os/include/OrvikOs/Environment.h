#ifndef ORVIKOS_ENVIRONMENT_H
#define ORVIKOS_ENVIRONMENT_H

#include "OrvikOs/Export.h"

#include <optional>
#include <string>

namespace OrvikOs {

/// Reads an environment variable. The only place of the project that reads the environment.
///
/// @param name  ASCII name.
/// @return its value, or nothing when it is not set; an empty value is a value.
/// @thread  Any thread, as long as none changes the environment.
ORVIKOS_API std::optional<std::wstring> EnvironmentVariable(const char* name);

/// Gives the user's home folder, without a separator at its end; empty when there is none.
///
/// @thread  Any thread.
ORVIKOS_API std::wstring HomeFolder();

/// Gives the folder for the user's configuration of @p application, which need not exist:
/// $XDG_CONFIG_HOME or ~/.config on Linux, %APPDATA% on Windows, then the application's name.
/// Empty when the user has no home.
///
/// @thread  Any thread.
ORVIKOS_API std::wstring ConfigurationFolder(const std::wstring& application);

/// Gives the folder for what @p application remembers between runs (histories, window places),
/// which need not exist: $XDG_STATE_HOME or ~/.local/state on Linux, %LOCALAPPDATA% on Windows,
/// then the application's name. Empty when the user has no home.
///
/// @thread  Any thread.
ORVIKOS_API std::wstring StateFolder(const std::wstring& application);

/// Gives the folder for short-lived files, without a separator at its end: $TMPDIR or /tmp on
/// Linux.
///
/// @thread  Any thread.
ORVIKOS_API std::wstring TemporaryFolder();

} // namespace OrvikOs

#endif
