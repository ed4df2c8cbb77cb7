#include "JsonText.h"

#include <TambVizCore/Utils.h>

namespace PelluxBatch {
namespace {

/// The wide units that stand for single bytes which are no UTF-8.
constexpr wchar_t kFirstByteUnit = 0xDC80;
constexpr wchar_t kLastByteUnit = 0xDCFF;
constexpr wchar_t kFirstHighSurrogate = 0xD800;
constexpr wchar_t kLastHighSurrogate = 0xDBFF;

/// Replaces what would become a lone byte. A low surrogate of a pair stays.
std::wstring withoutBytes(const std::wstring& text)
{
    std::wstring result = text;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool isPaired =
            i > 0 && text[i - 1] >= kFirstHighSurrogate && text[i - 1] <= kLastHighSurrogate;
        if (text[i] >= kFirstByteUnit && text[i] <= kLastByteUnit && !isPaired)
            result[i] = 0xFFFD;
    }
    return result;
}

} // namespace

std::string JsonQuoted(const std::wstring& text)
{
    constexpr char kDigits[] = "0123456789abcdef";
    std::string result = "\"";
    for (const char c : TambVizCore::Utils::WstringToString(withoutBytes(text))) {
        if (c == '"' || c == '\\')
            result += '\\';
        if (static_cast<unsigned char>(c) < 0x20) {
            result += "\\u00";
            result += kDigits[(c >> 4) & 0xF];
            result += kDigits[c & 0xF];
        } else {
            result += c;
        }
    }
    return result + "\"";
}

} // namespace PelluxBatch
