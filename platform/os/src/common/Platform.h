#ifndef ORVIKOS_COMMON_PLATFORM_H
#define ORVIKOS_COMMON_PLATFORM_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace OrvikOs {

class IClipboard;
class IMessageSource;

// What the common sources ask of a system; each function has one definition below src/posix and one
// below src/windows.

/// Gives the path of the program's file; empty when the system does not tell.
std::wstring SystemExecutablePath();

/// Gives the system's own clipboard, null when it has none that works without the host.
IClipboard* SystemClipboard();

/// Gives the queue of the calling thread, null when the system has none.
IMessageSource* SystemMessageSource();

/// Writes to the system's debug channel.
void WriteSystemDebug(const char* text) noexcept;

/// How a wait for several handles has ended.
enum class HandleWait
{
    Signalled, ///< The handle at the given index is signalled, and still is: nothing was taken.
    Input,     ///< The system's own queue has input.
    Timeout,
    Failed,
};

/// Waits for one of @p handles (see Event::NativeHandle()).
///
/// @param inputMask  Kinds of input of the system's own queue that end the wait too; 0 for none.
/// @param index      Receives the index of the first signalled handle for HandleWait::Signalled.
HandleWait WaitForHandles(const std::vector<std::intptr_t>& handles, int timeoutMs,
                          unsigned inputMask, std::size_t& index);

/// Separator between folders.
extern const wchar_t kPathSeparator;

/// Finds the last separator in @p path, npos when there is none.
std::size_t FindLastSeparator(const std::wstring& path);

} // namespace OrvikOs

#endif
