#ifndef ORVIKMESH_READERS_SIDEFILES_H
#define ORVIKMESH_READERS_SIDEFILES_H

#include <string>
#include <string_view>

namespace OrvikMesh {

/// Tells whether a file that another one names can only lie in that one's folder or below it: a
/// relative path without "..", drive or scheme. Nothing is looked up; links count as what they are
/// called.
///
/// @param name  UTF-8, with slashes or backslashes.
bool StaysInFolder(std::string_view name);

/// Gives the path of a file that another one names, with slashes.
///
/// @param path  Of the file that names it.
/// @param name  UTF-8, relative to the folder of @p path.
std::wstring PathBeside(const std::wstring& path, std::string_view name);

} // namespace OrvikMesh

#endif
