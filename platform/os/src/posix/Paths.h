#ifndef ORVIKOS_POSIX_PATHS_H
#define ORVIKOS_POSIX_PATHS_H

#include <sys/stat.h>

#include <string>

namespace OrvikOs {

/// Looks at what @p path names, links followed. @return false when there is nothing.
bool Status(const std::string& path, struct stat& status);

/// Stores the system's text for @p error in @p text when that is not null. @return false, for
/// callers to return.
bool FailWith(int error, std::wstring* text);

} // namespace OrvikOs

#endif
