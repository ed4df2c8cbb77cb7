#include "TambVizCore/Utils.h"

#include <OrvikOs/ExecutablePath.h>
#include <OrvikOs/MemoryMappedFile.h>
#include <OrvikOs/Utf8.h>

#include <cstdint>
#include <filesystem>
#include <system_error>

namespace TambVizCore {

namespace {

/// Made from UTF-8, so that the same code is right on systems with wide file names.
std::filesystem::path toPath(const std::wstring& fileName)
{
    const std::string bytes = OrvikOs::WideToUtf8(fileName);
    return std::filesystem::path(std::u8string(bytes.begin(), bytes.end()));
}

std::wstring fromPath(const std::filesystem::path& path)
{
    const std::u8string bytes = path.u8string();
    return OrvikOs::Utf8ToWide(std::string(bytes.begin(), bytes.end()));
}

constexpr std::uint32_t kReplacement = 0xFFFD;

bool isHighSurrogate(std::uint32_t unit)
{
    return unit >= 0xD800 && unit <= 0xDBFF;
}

bool isLowSurrogate(std::uint32_t unit)
{
    return unit >= 0xDC00 && unit <= 0xDFFF;
}

void appendCharacter(std::wstring& text, std::uint32_t character)
{
    if (sizeof(wchar_t) == 2 && character > 0xFFFF) {
        text += static_cast<wchar_t>(0xD800 + ((character - 0x10000) >> 10));
        text += static_cast<wchar_t>(0xDC00 + ((character - 0x10000) & 0x3FF));
    } else {
        text += static_cast<wchar_t>(character);
    }
}

enum class ByteOrder
{
    Little,
    Big
};

/// Decodes UTF-16; a lone surrogate and an odd last byte become the replacement character.
std::wstring decodeUtf16(std::string_view bytes, ByteOrder order)
{
    const auto unitAt = [&](std::size_t i) -> std::uint32_t {
        const auto first = static_cast<unsigned char>(bytes[i]);
        const auto second = static_cast<unsigned char>(bytes[i + 1]);
        return order == ByteOrder::Little ? first | second << 8u : first << 8u | second;
    };
    std::wstring text;
    text.reserve(bytes.size() / 2);
    std::size_t i = 0;
    for (; i + 1 < bytes.size(); i += 2) {
        const std::uint32_t unit = unitAt(i);
        if (isHighSurrogate(unit) && i + 3 < bytes.size() && isLowSurrogate(unitAt(i + 2))) {
            appendCharacter(text, 0x10000 + ((unit - 0xD800) << 10u) + (unitAt(i + 2) - 0xDC00));
            i += 2;
        } else {
            const bool lone = isHighSurrogate(unit) || isLowSurrogate(unit);
            appendCharacter(text, lone ? kReplacement : unit);
        }
    }
    if (i < bytes.size()) {
        appendCharacter(text, kReplacement);
    }
    return text;
}

std::wstring decode(std::string_view bytes)
{
    if (bytes.starts_with("\xFF\xFE")) {
        return decodeUtf16(bytes.substr(2), ByteOrder::Little);
    }
    if (bytes.starts_with("\xFE\xFF")) {
        return decodeUtf16(bytes.substr(2), ByteOrder::Big);
    }
    if (bytes.starts_with("\xEF\xBB\xBF")) {
        bytes.remove_prefix(3);
    }
    return OrvikOs::Utf8ToWide(bytes);
}

template <class Text> Text changeCase(Text text, char first, char last, int distance)
{
    for (auto& unit : text) {
        if (unit >= first && unit <= last) {
            unit = static_cast<typename Text::value_type>(unit + distance);
        }
    }
    return text;
}

constexpr int kToLower = 'a' - 'A';

} // namespace

std::wstring Utils::GetExePath()
{
    return OrvikOs::ExecutableFolder();
}

bool Utils::FileExists(const std::wstring& fileName)
{
    std::error_code error;
    return !fileName.empty() && std::filesystem::exists(toPath(fileName), error) && !error;
}

std::wstring Utils::GetFileExtension(const std::wstring& fileName)
{
    const std::wstring extension = fromPath(toPath(fileName).extension());
    return extension.empty() ? extension : extension.substr(1);
}

std::wstring Utils::GetFileNameOnly(const std::wstring& fileName)
{
    return fromPath(toPath(fileName).filename());
}

std::wstring Utils::GetAbsolutePath(const std::wstring& fileName)
{
    if (fileName.empty()) {
        return fileName;
    }
    std::error_code error;
    const std::filesystem::path path = std::filesystem::absolute(toPath(fileName), error);
    return error ? fileName : fromPath(path.lexically_normal());
}

std::wstring Utils::GetFileContents(const std::wstring& fileName)
{
    std::wstring text;
    GetFileContents(fileName, text);
    return text;
}

bool Utils::GetFileContents(const std::wstring& fileName, std::wstring& text)
{
    text.clear();
    OrvikOs::MemoryMappedFile file;
    if (!file.Open(fileName)) {
        return false;
    }
    text = decode(file.Text());
    return true;
}

std::wstring Utils::Char2Wchar(const char* text)
{
    return text != nullptr ? OrvikOs::Utf8ToWide(text) : std::wstring();
}

std::wstring Utils::StringToWstring(std::string_view text)
{
    return OrvikOs::Utf8ToWide(text);
}

std::string Utils::WstringToString(std::wstring_view text)
{
    return OrvikOs::WideToUtf8(text);
}

std::string Utils::WstringToString(std::wstring_view text, std::size_t maxBytes)
{
    std::string bytes = OrvikOs::WideToUtf8(text);
    if (bytes.size() <= maxBytes) {
        return bytes;
    }
    // A character has at most three continuation bytes; more of them are no UTF-8 and may be cut.
    std::size_t end = maxBytes;
    for (int i = 0; i < 3 && end > 0 && (bytes[end] & 0xC0) == 0x80; ++i) {
        --end;
    }
    const bool isInside = (bytes[end] & 0xC0) == 0x80;
    bytes.resize(isInside ? maxBytes : end);
    return bytes;
}

std::wstring Utils::ToUpperAscii(std::wstring_view text)
{
    return changeCase(std::wstring(text), 'a', 'z', -kToLower);
}

std::wstring Utils::ToLowerAscii(std::wstring_view text)
{
    return changeCase(std::wstring(text), 'A', 'Z', kToLower);
}

std::string Utils::ToUpperAscii(std::string_view text)
{
    return changeCase(std::string(text), 'a', 'z', -kToLower);
}

std::string Utils::ToLowerAscii(std::string_view text)
{
    return changeCase(std::string(text), 'A', 'Z', kToLower);
}

} // namespace TambVizCore
