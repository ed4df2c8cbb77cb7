#ifndef ORVIKOS_DEBUGOUTPUT_H
#define ORVIKOS_DEBUGOUTPUT_H

#include "OrvikOs/Export.h"

#include <functional>

namespace OrvikOs {

/// Receives what is written to the debug channel.
///
/// @param text  Zero-terminated, may be empty; valid during the call. Called on any thread, also on
/// several
///              at a time. Must not throw.
using DebugSink = std::function<void(const char* text)>;

/// Writes to the debug channel: to the sink if one is set, else to the system's debugger on
/// Windows, else to standard error when the environment variable ORVIK_DEBUG_OUTPUT is "1", else
/// nowhere.
///
/// @param text  Zero-terminated; null counts as empty. Written as it is, no line break is added.
/// @thread  Any thread.
ORVIKOS_API void WriteDebug(const char* text) noexcept;

/// Replaces the sink of the debug channel.
///
/// @param sink  An empty function goes back to the system's own way. A write in progress on another
/// thread
///              may still use the sink before.
/// @thread  Any thread.
ORVIKOS_API void SetDebugSink(DebugSink sink);

} // namespace OrvikOs

#endif
