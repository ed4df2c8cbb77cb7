#ifndef ORVIKOS_FILEWRITING_H
#define ORVIKOS_FILEWRITING_H

#include "OrvikOs/Export.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace OrvikOs {

/// Writes a whole file so that it is never seen half-written: into a temporary file beside it,
/// which then takes its place in one step.
///
/// @param path       The file; one that exists is replaced and keeps its permissions. A link is
/// followed.
/// @param data       @p size bytes; may be null when @p size is 0.
/// @param errorText  Receives the system's text on failure; may be null. Untouched on success.
/// @return false on failure; the file is then as it was and the temporary file is gone.
/// @thread  Any thread.
ORVIKOS_API bool WriteFileAtomically(const std::wstring& path, const void* data, std::size_t size,
                                     std::wstring* errorText = nullptr);

/// Writes a small file with nothing but open, write and close: usable when the program is dying.
///
/// @param path  UTF-8, zero-terminated; an existing file is emptied first.
/// @return false when the file cannot be opened or written whole.
/// @thread  Any thread, also inside a terminate handler.
ORVIKOS_API bool WriteMarkerFile(const char* path, std::string_view text) noexcept;

/// Where WriteStandardStream() writes to.
enum class StandardStream
{
    Output,
    Error,
};

/// Writes @p text to a standard stream without its buffers: usable when the program is dying. What
/// the buffers still hold comes later or never.
///
/// @thread  Any thread, also inside a terminate handler.
ORVIKOS_API void WriteStandardStream(StandardStream stream, std::string_view text) noexcept;

/// Makes the next abort() end the program whatever scopes are open: the system's default action
/// comes back and stays. For terminate handlers, before they abort.
///
/// @thread  Any thread.
ORVIKOS_API void RestoreDefaultAbort() noexcept;

} // namespace OrvikOs

#endif
