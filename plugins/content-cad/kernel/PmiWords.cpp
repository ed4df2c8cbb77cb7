#include "kernel/PmiWords.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace OrvikCad {

namespace {

constexpr int kSignificantDigits = 9;

} // namespace

std::wstring ShortNumber(double value)
{
    char digits[64];
    const auto end = std::to_chars(digits, digits + sizeof digits, value,
                                   std::chars_format::general, kSignificantDigits);
    return {digits, end.ptr};
}

std::wstring NumberText(double value, int decimals)
{
    if (decimals <= 0)
        return ShortNumber(value);
    char digits[400]; // The greatest number has 309 places before the point.
    const auto end = std::to_chars(digits, digits + sizeof digits, value, std::chars_format::fixed,
                                   std::min(decimals, 15));
    return {digits, end.ptr};
}

std::wstring SignedNumberText(double value, int decimals)
{
    const std::wstring text = NumberText(std::abs(value), decimals);
    return (value < 0.0 ? L"-" : L"+") + text;
}

void AppendWord(std::wstring& text, const std::wstring& word)
{
    if (word.empty())
        return;
    if (!text.empty())
        text += L' ';
    text += word;
}

} // namespace OrvikCad
