#include "TambVizCore/Utils.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <limits>
#include <system_error>

namespace TambVizCore {

namespace {

constexpr int kMaxDecimals = 30;
constexpr int kMaxDigits = 17;
/// A sign, the 309 digits of the largest double, a point, the decimals, and some to spare.
constexpr std::size_t kBufferSize = 360;

std::string_view trim(std::string_view text)
{
    constexpr std::string_view kBlanks = " \t\r\n\f\v";
    const std::size_t first = text.find_first_not_of(kBlanks);
    if (first == std::string_view::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

/// Drops one leading plus sign, which std::from_chars refuses.
std::string_view dropPlus(std::string_view text)
{
    const bool isSigned = text.size() > 1 && text[0] == '+' && text[1] != '+' && text[1] != '-';
    return isSigned ? text.substr(1) : text;
}

/// Tells whether a well-formed number that no double can hold is too large (else too small): looks
/// at the power of ten of its first digit that is not 0.
bool isTooLarge(std::string_view text)
{
    const std::size_t exponentAt = std::min(text.find_first_of("eE"), text.size());
    const std::string_view digits = text.substr(0, exponentAt);
    const std::size_t point = std::min(digits.find('.'), digits.size());
    const std::size_t first = digits.find_first_of("123456789");
    if (first == std::string_view::npos) {
        return false;
    }
    const auto pointPlace = static_cast<long long>(point);
    const auto firstPlace = static_cast<long long>(first);
    const long long power =
        firstPlace < pointPlace ? pointPlace - firstPlace - 1 : pointPlace - firstPlace;
    std::string_view exponentText = text.substr(std::min(exponentAt + 1, text.size()));
    exponentText = dropPlus(exponentText);
    long long exponent = 0;
    const auto parsed =
        std::from_chars(exponentText.data(), exponentText.data() + exponentText.size(), exponent);
    if (parsed.ec == std::errc::result_out_of_range) {
        return exponentText[0] != '-';
    }
    return exponent > -power;
}

template <class... Format> std::string format(double value, Format... how)
{
    char buffer[kBufferSize];
    const auto end = std::to_chars(buffer, buffer + kBufferSize, value, how...);
    return std::string(buffer, end.ptr);
}

} // namespace

std::string Utils::PointerToHexString(const void* pointer)
{
    return IntToHexString(reinterpret_cast<std::uintptr_t>(pointer));
}

std::string Utils::IntToHexString(unsigned long long value)
{
    char digits[16];
    const auto end = std::to_chars(digits, digits + sizeof(digits), value, 16);
    return "0x" + std::string(digits, end.ptr);
}

std::string Utils::FormatFixed(double value, int decimals, int minWidth)
{
    std::string text =
        format(value, std::chars_format::fixed, std::clamp(decimals, 0, kMaxDecimals));
    const std::size_t width = minWidth > 0 ? static_cast<std::size_t>(minWidth) : 0;
    if (text.size() < width) {
        text.insert(0, width - text.size(), ' ');
    }
    return text;
}

std::string Utils::FormatGeneral(double value, int digits)
{
    return format(value, std::chars_format::general, std::clamp(digits, 1, kMaxDigits));
}

std::string Utils::FormatShortest(double value)
{
    return format(value);
}

std::string Utils::FormatInt(long long value)
{
    return std::to_string(value);
}

bool Utils::ParseDouble(std::string_view text, double& value)
{
    const std::string_view number = dropPlus(trim(text));
    double parsed = 0.0;
    const char* const end = number.data() + number.size();
    const auto result = std::from_chars(number.data(), end, parsed);
    if (result.ptr != end || result.ec == std::errc::invalid_argument) {
        return false;
    }
    if (result.ec == std::errc::result_out_of_range) {
        const bool isNegative = number[0] == '-';
        parsed = isTooLarge(number.substr(isNegative ? 1 : 0))
                     ? std::numeric_limits<double>::infinity()
                     : 0.0;
        parsed = isNegative ? -parsed : parsed;
    }
    value = parsed;
    return true;
}

bool Utils::ParseDouble(std::wstring_view text, double& value)
{
    std::string narrow;
    narrow.reserve(text.size());
    for (const wchar_t unit : text) {
        if (unit <= 0 || unit > 127) {
            return false;
        }
        narrow += static_cast<char>(unit);
    }
    return ParseDouble(std::string_view(narrow), value);
}

bool Utils::ParseInt(std::string_view text, long long& value)
{
    const std::string_view number = dropPlus(trim(text));
    long long parsed = 0;
    const char* const end = number.data() + number.size();
    const auto result = std::from_chars(number.data(), end, parsed);
    if (result.ptr != end || result.ec != std::errc()) {
        return false;
    }
    value = parsed;
    return true;
}

} // namespace TambVizCore
