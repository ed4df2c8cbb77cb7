#ifndef ORVIKOS_EXECUTABLEPATH_H
#define ORVIKOS_EXECUTABLEPATH_H

#include "OrvikOs/Export.h"

#include <string>

namespace OrvikOs {

/// Gives the full path of the running program's file, links resolved; empty when the system does
/// not tell.
///
/// @thread  Any thread.
ORVIKOS_API std::wstring ExecutablePath();

/// Gives the folder of ExecutablePath(), without a separator at its end ("/" for the root itself).
///
/// @thread  Any thread.
ORVIKOS_API std::wstring ExecutableFolder();

/// Makes ExecutablePath() give @p path; the empty text goes back to the system's answer. For tests.
///
/// @thread  Any thread; not while another one looks for plugins.
ORVIKOS_API void SetExecutablePath(const std::wstring& path);

} // namespace OrvikOs

#endif
