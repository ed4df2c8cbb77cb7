#include "kernel/KernelText.h"

#include <OrvikOs/Utf8.h>

namespace OrvikCad {

namespace {

constexpr char32_t kReplacement = 0xFFFD;

bool isHighSurrogate(char32_t unit)
{
    return unit >= 0xD800 && unit < 0xDC00;
}

bool isLowSurrogate(char32_t unit)
{
    return unit >= 0xDC00 && unit < 0xE000;
}

} // namespace

std::wstring ToWide(const TCollection_ExtendedString& text)
{
    std::wstring wide;
    wide.reserve(static_cast<std::size_t>(text.Length()));
    for (int i = 1; i <= text.Length(); ++i) {
        const char32_t unit = text.Value(i);
        const char32_t next = i < text.Length() ? text.Value(i + 1) : U'\0';
        if (sizeof(wchar_t) > 2 && isHighSurrogate(unit) && isLowSurrogate(next)) {
            wide += static_cast<wchar_t>(0x10000 + ((unit - 0xD800) << 10) + (next - 0xDC00));
            ++i;
        } else {
            wide += static_cast<wchar_t>(unit);
        }
    }
    return wide;
}

std::wstring ToWide(const Handle(TCollection_HAsciiString) & text)
{
    return text.IsNull() ? std::wstring() : OrvikOs::Utf8ToWide(text->ToCString());
}

TCollection_ExtendedString ToKernel(const std::wstring& text)
{
    std::u16string units;
    for (const wchar_t unit : text) {
        const auto code = static_cast<char32_t>(unit);
        if (code < 0x10000) {
            units += static_cast<char16_t>(code);
        } else if (code < 0x110000) {
            units += static_cast<char16_t>(0xD800 + ((code - 0x10000) >> 10));
            units += static_cast<char16_t>(0xDC00 + ((code - 0x10000) & 0x3FF));
        } else {
            units += static_cast<char16_t>(kReplacement);
        }
    }
    return TCollection_ExtendedString(units.c_str());
}

} // namespace OrvikCad
