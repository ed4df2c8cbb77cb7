#include "gltf/DataUri.h"

#include <array>
#include <cstdint>

namespace OrvikMesh {

namespace {

constexpr std::uint8_t kNoDigit = 0xFF;
/// Groups of four characters that are decoded between two questions: about a millisecond.
constexpr std::size_t kGroupsPerPoll = std::size_t{1} << 18;

constexpr std::array<std::uint8_t, 256> makeDigits()
{
    std::array<std::uint8_t, 256> digits{};
    digits.fill(kNoDigit);
    constexpr std::string_view kAlphabet =
        "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    for (std::size_t i = 0; i < kAlphabet.size(); ++i)
        digits[static_cast<unsigned char>(kAlphabet[i])] = static_cast<std::uint8_t>(i);
    return digits;
}

constexpr std::array<std::uint8_t, 256> kDigits = makeDigits();

std::uint32_t digitOf(char character)
{
    return kDigits[static_cast<unsigned char>(character)];
}

int hexadecimal(char character)
{
    if (character >= '0' && character <= '9')
        return character - '0';
    if (character >= 'a' && character <= 'f')
        return character - 'a' + 10;
    if (character >= 'A' && character <= 'F')
        return character - 'A' + 10;
    return -1;
}

} // namespace

std::string DecodePercents(std::string_view text)
{
    std::string decoded;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const int high = text[i] == '%' && i + 2 < text.size() ? hexadecimal(text[i + 1]) : -1;
        const int low = high >= 0 ? hexadecimal(text[i + 2]) : -1;
        if (low >= 0) {
            decoded += static_cast<char>(high * 16 + low);
            i += 2;
        } else {
            decoded += text[i];
        }
    }
    return decoded;
}

bool DecodeBase64(std::string_view text, const ReadOptions& options, std::string& bytes,
                  std::size_t& badCharacter)
{
    for (int i = 0; i < 2 && !text.empty() && text.back() == '='; ++i)
        text.remove_suffix(1);
    const std::size_t tail = text.size() % 4;
    const std::size_t groups = text.size() / 4;
    bytes.resize(groups * 3 + (tail == 0 ? 0 : tail - 1));
    char* out = bytes.data();
    std::uint32_t seen = 0;
    const auto join = [&](std::size_t at, std::size_t count) {
        std::uint32_t bits = 0;
        for (std::size_t k = 0; k < 4; ++k) {
            const std::uint32_t digit = k < count ? digitOf(text[at + k]) : 0;
            seen |= digit;
            bits = bits << 6 | (digit & 63u);
        }
        return bits;
    };
    for (std::size_t group = 0; group < groups; ++group) {
        if (group % kGroupsPerPoll == 0)
            PollCancel(options);
        const std::uint32_t bits = join(group * 4, 4);
        *out++ = static_cast<char>(bits >> 16);
        *out++ = static_cast<char>(bits >> 8);
        *out++ = static_cast<char>(bits);
    }
    if (tail > 1) {
        const std::uint32_t bits = join(groups * 4, tail);
        for (std::size_t k = 0; k + 1 < tail; ++k)
            *out++ = static_cast<char>(bits >> (16 - 8 * k));
    }
    badCharacter = text.size();
    if (tail == 1)
        return false;
    if ((seen & 0x80u) == 0)
        return true;
    badCharacter = 0;
    while (digitOf(text[badCharacter]) != kNoDigit)
        ++badCharacter;
    return false;
}

} // namespace OrvikMesh
