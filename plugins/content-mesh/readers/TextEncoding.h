#ifndef ORVIKMESH_READERS_TEXTENCODING_H
#define ORVIKMESH_READERS_TEXTENCODING_H

#include <cstddef>
#include <string>
#include <string_view>

namespace OrvikMesh {

/// Gives a text file as UTF-8 (or another superset of ASCII, left as it is).
///
/// A UTF-8 byte-order mark is skipped. UTF-16 of either order, told by its byte-order mark, is
/// converted into @p storage; lone surrogates become U+FFFD, an odd last byte is dropped.
///
/// @return a view of @p content or of @p storage.
std::string_view ToUtf8Text(std::string_view content, std::string& storage);

/// Makes lines that end with CR alone end with LF, when all of the first ones do.
///
/// @return a view of @p text or of @p storage, which @p text may view itself.
std::string_view WithLineFeeds(std::string_view text, std::string& storage);

/// Tells text from binary data.
///
/// @param data  The beginning of what should be numbers.
/// @return true when all of the first bytes are letters of numbers and blanks, and there are enough
///         of them to be no coincidence.
bool LooksLikeNumbers(std::string_view data);

/// @return the place of a byte that no text has among the first; npos when there is none.
std::size_t FindBinaryByte(std::string_view data);

} // namespace OrvikMesh

#endif
