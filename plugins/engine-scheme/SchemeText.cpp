#include "SchemeText.h"

#include <TambVizCore/Utils.h>

namespace OrvikScheme {
namespace {

using TambVizCore::Utils;

/// Wide units that stand for the bytes 0x80 to 0xFF of a text that is no UTF-8.
constexpr wchar_t kFirstByte = 0xDC80;
constexpr wchar_t kLastByte = 0xDCFF;
constexpr wchar_t kPrivatePlane = 0x100000;

} // namespace

std::string TextForScheme(std::wstring_view text)
{
    std::wstring shifted(text);
    for (wchar_t& c : shifted)
        if (c >= kFirstByte && c <= kLastByte)
            c += kPrivatePlane;
    return Utils::WstringToString(shifted);
}

std::wstring TextFromScheme(std::string_view utf8)
{
    std::wstring text = Utils::StringToWstring(utf8);
    for (wchar_t& c : text)
        if (c >= kFirstByte + kPrivatePlane && c <= kLastByte + kPrivatePlane)
            c -= kPrivatePlane;
    return text;
}

} // namespace OrvikScheme
