#ifndef ORVIKOS_DIRECTORY_H
#define ORVIKOS_DIRECTORY_H

#include "OrvikOs/Export.h"

#include <string>
#include <vector>

namespace OrvikOs {

/// What a directory entry is, links followed.
enum class EntryKind
{
    File,      ///< A regular file.
    Directory, ///< A directory.
    Other,     ///< A device, a socket, a pipe, or a link that leads nowhere.
};

/// One entry of a directory.
struct DirectoryEntry
{
    std::wstring name; ///< File name without its path; see Utf8ToWide() for odd bytes.
    EntryKind kind = EntryKind::Other; ///< What it is.
};

/// Lists a directory, not its sub-directories, in the order in which the file system gives the
/// entries.
/// "." and ".." are left out.
///
/// @param path       The directory; empty means the current one.
/// @param entries    Receives the entries; empty on failure.
/// @param errorText  Receives the system's text on failure; may be null. Untouched on success.
/// @return false when the directory cannot be read.
/// @thread  Any thread.
ORVIKOS_API bool ListDirectory(const std::wstring& path, std::vector<DirectoryEntry>& entries,
                               std::wstring* errorText = nullptr);

/// Tells whether @p path names a regular file, links followed.
///
/// @thread  Any thread.
ORVIKOS_API bool IsFile(const std::wstring& path);

/// Tells whether @p path names a directory, links followed.
///
/// @thread  Any thread.
ORVIKOS_API bool IsDirectory(const std::wstring& path);

/// Makes a directory and those above it where they are missing.
///
/// @param errorText  Receives the system's text on failure; may be null. Untouched on success.
/// @return true when the directory is there afterwards.
/// @thread  Any thread.
ORVIKOS_API bool MakeDirectories(const std::wstring& path, std::wstring* errorText = nullptr);

/// Removes a file.
///
/// @return true when there is no such file afterwards; false for directories and where the system
/// refuses.
/// @thread  Any thread.
ORVIKOS_API bool RemoveFile(const std::wstring& path);

/// Gives @p path as an absolute one: the current directory is put before a relative path. Nothing
/// is looked up, links and ".." stay.
///
/// @thread  Any thread.
ORVIKOS_API std::wstring AbsolutePath(const std::wstring& path);

/// Gives the current directory, without a separator at its end; empty when the system has none to
/// give.
///
/// @thread  Any thread.
ORVIKOS_API std::wstring CurrentDirectory();

} // namespace OrvikOs

#endif
