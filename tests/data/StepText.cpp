#include "StepText.h"

#include <cctype>
#include <cstdint>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace TestData {

namespace {

/// Stands in every file instead of the time of writing.
constexpr char kTimeStamp[] = "2020-01-01T00:00:00";
constexpr std::string_view kEndOfData = "ENDSEC;\nEND-ISO";

/// Reads one character of the plane that has four hexadecimal digits.
std::uint32_t nextCharacter(std::string_view text, std::size_t& position)
{
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text.at(i)); };
    const std::uint32_t lead = byte(position);
    if (lead < 0xE0) {
        position += 2;
        return (lead & 0x1Fu) << 6 | (byte(position - 1) & 0x3Fu);
    }
    position += 3;
    return (lead & 0x0Fu) << 12 | (byte(position - 2) & 0x3Fu) << 6 | (byte(position - 1) & 0x3Fu);
}

std::string escaped(const std::string& text)
{
    std::string result;
    for (std::size_t i = 0; i < text.size();) {
        if (static_cast<unsigned char>(text[i]) < 0x80) {
            result += text[i++];
            continue;
        }
        result += "\\X2\\";
        while (i < text.size() && static_cast<unsigned char>(text[i]) >= 0x80) {
            char digits[8];
            std::snprintf(digits, sizeof digits, "%04X", nextCharacter(text, i));
            result += digits;
        }
        result += "\\X0\\";
    }
    return result;
}

/// Replaces the second text of the entity FILE_NAME.
void replaceTime(std::string& text)
{
    const std::size_t name = text.find("FILE_NAME('");
    const std::size_t begin = text.find("','", name) + 3;
    text.replace(begin, text.find('\'', begin) - begin, kTimeStamp);
}

/// Numbers the placements from 1 in their order in the file.
void numberPlacements(std::string& text)
{
    constexpr std::string_view kPlacement = "NEXT_ASSEMBLY_USAGE_OCCURRENCE('";
    int number = 0;
    for (std::size_t at = text.find(kPlacement); at != std::string::npos;
         at = text.find(kPlacement, at)) {
        at += kPlacement.size();
        text.replace(at, text.find('\'', at) - at, std::to_string(++number));
    }
}

/// @return the highest number of an entity.
int lastEntity(const std::string& stepText)
{
    int last = 0;
    for (std::size_t at = stepText.find("\n#"); at != std::string::npos;
         at = stepText.find("\n#", at + 1))
        last = std::max(last, std::atoi(stepText.c_str() + at + 2));
    return last;
}

} // namespace

std::string ReadText(const std::filesystem::path& file)
{
    std::ifstream stream(file, std::ios::binary);
    if (!stream)
        throw std::runtime_error("cannot read " + file.string());
    return {std::istreambuf_iterator<char>(stream), {}};
}

void WriteText(const std::filesystem::path& file, std::string_view text)
{
    std::ofstream stream(file, std::ios::binary);
    stream.write(text.data(), static_cast<std::streamsize>(text.size()));
    if (!stream.flush())
        throw std::runtime_error("cannot write " + file.string());
}

void SettleStepFile(const std::filesystem::path& file, NameCoding coding)
{
    std::string text = ReadText(file);
    replaceTime(text);
    numberPlacements(text);
    WriteText(file, coding == NameCoding::Escaped ? escaped(text) : text);
}

void ReplaceInText(std::string& text, std::string_view from, std::string_view to,
                   std::size_t position)
{
    const std::size_t at = text.find(from, position);
    if (at == std::string::npos)
        throw std::runtime_error("no such text: " + std::string(from));
    text.replace(at, from.size(), to);
}

void AppendEntities(std::string& stepText, std::string_view entities)
{
    const int first = lastEntity(stepText);
    std::string added;
    for (std::size_t i = 0; i < entities.size();) {
        if (entities[i] != '@') {
            added += entities[i++];
            continue;
        }
        int number = 0;
        for (++i; i < entities.size() && std::isdigit(static_cast<unsigned char>(entities[i])); ++i)
            number = number * 10 + (entities[i] - '0');
        added += '#' + std::to_string(first + number);
    }
    ReplaceInText(stepText, kEndOfData, added + std::string(kEndOfData));
}

int FindEntity(const std::string& stepText, std::string_view beginning)
{
    const std::string pattern = " = " + std::string(beginning);
    const std::size_t at = stepText.find(pattern);
    if (at == std::string::npos)
        throw std::runtime_error("no entity " + std::string(beginning));
    return std::atoi(stepText.c_str() + stepText.rfind('#', at) + 1);
}

} // namespace TestData
