#ifndef TAMBVIZCORE_UTILS_H
#define TAMBVIZCORE_UTILS_H

#include "TambVizCore/Export.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace TambVizCore {

/// Paths, file contents, conversions between narrow and wide text, numbers as text.
///
/// Narrow text is UTF-8. Bytes that are no UTF-8 become the wide units U+DC80 to U+DCFF, one for
/// each byte, and become the same bytes again on the way back, so that every file name and every
/// message survives a round trip. Nothing here looks at the locale, and letters change case only
/// within ASCII.
///
/// @thread Any thread.
class TAMBVIZCORE_API Utils
{
public:
    Utils() = delete;

    // Paths. A path is wide text; '/' separates, on Windows also '\'.

    /// @return the absolute path of the folder that holds the executable, without a separator at
    ///         its end.
    static std::wstring GetExePath();

    /// @return true when there is a file, a folder or anything else by that name.
    static bool FileExists(const std::wstring& fileName);

    /// @return what follows the last dot of the file's name, without the dot and as written; empty
    ///         when there is no dot, or when the only one begins or ends the name.
    static std::wstring GetFileExtension(const std::wstring& fileName);

    /// @return the last piece of the path, extension included; empty for a path that ends in a
    ///         separator.
    static std::wstring GetFileNameOnly(const std::wstring& fileName);

    /// @return the path made absolute against the working folder, without "." and ".." pieces;
    ///         links are not followed, and the file need not exist. Empty stays empty.
    static std::wstring GetAbsolutePath(const std::wstring& fileName);

    /// Reads a text file: UTF-8, or UTF-16 of either order when it starts with a byte-order mark.
    /// The mark is dropped; line ends stay as they are.
    ///
    /// @return the text; empty when the file is empty, is no ordinary file, or cannot be read.
    static std::wstring GetFileContents(const std::wstring& fileName);

    /// Does the same and tells an empty file from one that cannot be read.
    /// @return false, with @p text emptied, when it cannot be read.
    static bool GetFileContents(const std::wstring& fileName, std::wstring& text);

    // Narrow and wide text.

    /// Converts UTF-8 that ends with a zero; null gives an empty text.
    static std::wstring Char2Wchar(const char* text);
    static std::wstring StringToWstring(std::string_view text);
    /// Converts to UTF-8. Pairs of surrogates become one character; a wide unit that is no
    /// character and stands for no byte becomes U+FFFD.
    static std::string WstringToString(std::wstring_view text);

    /// Converts at most @p maxBytes bytes of UTF-8, never half a character.
    static std::string WstringToString(std::wstring_view text, std::size_t maxBytes);

    static std::wstring ToUpperAscii(std::wstring_view text);
    static std::wstring ToLowerAscii(std::wstring_view text);
    static std::string ToUpperAscii(std::string_view text);
    static std::string ToLowerAscii(std::string_view text);

    // Numbers as text; the decimal separator is always a point.

    /// @return "0x" and lower-case hexadecimal digits without leading zeros; "0x0" for null.
    static std::string PointerToHexString(const void* pointer);

    /// @return "0x" and lower-case hexadecimal digits without leading zeros.
    static std::string IntToHexString(unsigned long long value);

    /// Formats as printf's "%<minWidth>.<decimals>f" does in the C locale.
    /// @param decimals  0 to 30; clamped.
    static std::string FormatFixed(double value, int decimals, int minWidth = 0);

    /// Formats as printf's "%.<digits>g" does in the C locale.
    /// @param digits  significant digits, 1 to 17; clamped. 17 keeps every double exactly.
    static std::string FormatGeneral(double value, int digits = 17);

    /// @return the shortest text that reads back as the very same double.
    static std::string FormatShortest(double value);

    static std::string FormatInt(long long value);

    /// Reads a decimal number that fills the whole text: an optional sign, digits with an optional
    /// point and exponent, "inf" or "nan". Blanks around it are allowed.
    ///
    /// @return false, with @p value untouched, for anything else. A number too large gives an
    ///         infinity, one too small a zero, both with its sign and true.
    static bool ParseDouble(std::string_view text, double& value);
    static bool ParseDouble(std::wstring_view text, double& value);

    /// Reads a decimal integer that fills the whole text, with an optional sign and blanks around.
    /// @return false, with @p value untouched, for anything else or one out of range.
    static bool ParseInt(std::string_view text, long long& value);
};

} // namespace TambVizCore

#endif
