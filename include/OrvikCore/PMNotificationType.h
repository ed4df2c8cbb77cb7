#ifndef ORVIKCORE_PMNOTIFICATIONTYPE_H
#define ORVIKCORE_PMNOTIFICATIONTYPE_H

#include <string>

namespace OrvikCore {

/// The kind of a text that a plugin manager tells the host.
enum class PMNotificationType : int
{
    Message = 0, ///< Progress.
    Error = 1,   ///< An error.
};

/// Receives the texts of PluginManager (main thread) and ScriptPluginManager (main thread, and the
/// worker while the script engine is loaded and initialised). Must not throw.
using PMNotificationCallback = void (*)(const std::wstring& text, const PMNotificationType& type);

} // namespace OrvikCore

#endif
