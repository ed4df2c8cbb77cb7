#ifndef ORVIKOS_UTF8_H
#define ORVIKOS_UTF8_H

#include "OrvikOs/Export.h"

#include <string>
#include <string_view>

namespace OrvikOs {

/// Turns bytes into wide text without ever failing or losing anything.
///
/// Valid UTF-8 becomes the characters that it encodes (on Linux one unit of 32 bits each, on
/// Windows UTF-16). Each byte 0x80..0xFF that is not part of valid UTF-8 becomes the one unit
/// U+DC00 + byte, that is U+DC80..U+DCFF, which valid UTF-8 never encodes. WideToUtf8() turns it
/// back into the same byte, so that every file name survives the round trip. Encoded surrogates,
/// overlong forms and values above U+10FFFF are not valid. Zero bytes are kept.
///
/// @thread  Any thread.
ORVIKOS_API std::wstring Utf8ToWide(std::string_view bytes);

/// Turns wide text into UTF-8, the reverse of Utf8ToWide().
///
/// U+DC80..U+DCFF standing alone become the single bytes 0x80..0xFF. Pairs of surrogates become the
/// one character that they mean, whatever the width of a unit. Other lone surrogates and values
/// above U+10FFFF become U+FFFD. Zero units are kept.
///
/// @thread  Any thread.
ORVIKOS_API std::string WideToUtf8(std::wstring_view text);

/// Tells whether @p bytes are valid UTF-8 throughout.
///
/// @thread  Any thread.
ORVIKOS_API bool IsValidUtf8(std::string_view bytes);

} // namespace OrvikOs

#endif
