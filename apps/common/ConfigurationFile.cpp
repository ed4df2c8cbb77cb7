#include "ConfigurationFile.h"

#include <TambVizCore/Utils.h>

#include <toml++/toml.h>

#include <algorithm>
#include <stdexcept>
#include <string_view>

namespace Pellux {
namespace {

using TambVizCore::Utils;

/// What is wrong with a file, and where.
class FileError : public std::runtime_error
{
public:
    FileError(const toml::source_region& region, const std::string& reason)
        : std::runtime_error(reason), m_line(region.begin.line), m_column(region.begin.column)
    {
    }

    std::wstring Text(const std::wstring& path) const
    {
        return path + L":" + std::to_wstring(m_line) + L":" + std::to_wstring(m_column) + L": " +
               Utils::StringToWstring(what());
    }

private:
    unsigned m_line;
    unsigned m_column;
};

std::wstring widen(std::string_view text)
{
    return Utils::StringToWstring(std::string(text));
}

std::wstring scalarText(const toml::node& node, std::string_view key)
{
    if (const auto* text = node.as_string())
        return widen(text->get());
    if (const auto* number = node.as_integer())
        return std::to_wstring(number->get());
    if (const auto* flag = node.as_boolean())
        return flag->get() ? L"true" : L"false";
    if (const auto* number = node.as_floating_point())
        return widen(Utils::FormatShortest(number->get()));
    throw FileError(node.source(), "the value of '" + std::string(key) +
                                       "' must be a string, a number or true or false");
}

std::wstring placeText(const toml::source_region& region)
{
    return std::to_wstring(region.begin.line) + L":" + std::to_wstring(region.begin.column);
}

/// The values of a key, none for an empty array, and where they stand: "<line>:<column>".
struct KeyValues
{
    std::wstring key;
    std::wstring place;
    std::vector<std::wstring> texts;
};

using Values = std::vector<KeyValues>;

/// The entries of a table as they follow each other in the file; the table has them by name.
std::vector<std::pair<std::string_view, const toml::node*>> inFileOrder(const toml::table& table)
{
    std::vector<std::pair<std::string_view, const toml::node*>> entries;
    for (const auto& [key, node] : table)
        entries.emplace_back(key.str(), &node);
    std::stable_sort(entries.begin(), entries.end(), [](const auto& a, const auto& b) {
        const toml::source_position& first = a.second->source().begin;
        const toml::source_position& second = b.second->source().begin;
        return first < second;
    });
    return entries;
}

Values readSection(const toml::table& table)
{
    Values values;
    for (const auto& [key, node] : inFileOrder(table)) {
        values.push_back({widen(key), placeText(node->source()), {}});
        std::vector<std::wstring>& texts = values.back().texts;
        if (const toml::array* const elements = node->as_array()) {
            for (const toml::node& element : *elements)
                texts.push_back(scalarText(element, key));
        } else {
            texts.push_back(scalarText(*node, key));
        }
    }
    return values;
}

std::vector<std::pair<std::wstring, Values>> readFile(const std::string& contents)
{
    std::vector<std::pair<std::wstring, Values>> sections;
    const toml::table root = toml::parse(std::string_view(contents));
    for (const auto& [key, node] : root) {
        const toml::table* const table = node.as_table();
        if (table == nullptr)
            throw FileError(node.source(), "'" + std::string(key.str()) +
                                               "' stands outside a section; sections begin with "
                                               "[Name]");
        sections.emplace_back(widen(key.str()), readSection(*table));
    }
    return sections;
}

} // namespace

ConfigurationFile::ConfigurationFile()
{
    section(L"ScriptEngine").emplace_back(L"File", L"OrvikSchemeEngine.dll");
}

bool ConfigurationFile::AddFile(const std::wstring& path, bool mustExist)
{
    if (!mustExist && !Utils::FileExists(path))
        return true;
    const auto fail = [this](const std::wstring& line) {
        m_errors += m_errors.empty() ? line : L"\n" + line;
        return false;
    };
    std::wstring text;
    if (!Utils::GetFileContents(path, text))
        return fail(path + L": cannot be read");
    try {
        for (const auto& [name, values] : readFile(Utils::WstringToString(text)))
            for (const auto& [key, place, texts] : values) {
                replace(section(name), key, texts);
                m_places[{name, key}] = path + L":" + place;
            }
    } catch (const FileError& error) {
        return fail(error.Text(path));
    } catch (const toml::parse_error& error) {
        return fail(FileError(error.source(), std::string(error.description())).Text(path));
    }
    m_sourceName = path;
    return true;
}

std::wstring ConfigurationFile::GetSourceName() const
{
    return m_sourceName;
}

std::wstring ConfigurationFile::GetErrorText() const
{
    return m_errors;
}

void ConfigurationFile::ListSections(std::vector<std::wstring>& names, int, int)
{
    for (const auto& entry : m_sections)
        names.push_back(entry.first);
}

void ConfigurationFile::FillSection(const std::wstring& name,
                                    std::vector<std::pair<std::wstring, std::wstring>>* pairs)
{
    const Pairs& stored = section(name);
    pairs->insert(pairs->end(), stored.begin(), stored.end());
}

std::wstring ConfigurationFile::GetPlace(const std::wstring& section, const std::wstring& key) const
{
    const auto found = m_places.find({section, key});
    return found == m_places.end() ? std::wstring() : found->second;
}

void ConfigurationFile::replace(Pairs& pairs, const std::wstring& key,
                                const std::vector<std::wstring>& values)
{
    std::erase_if(pairs, [&key](const auto& pair) { return pair.first == key; });
    for (const std::wstring& value : values)
        pairs.emplace_back(key, value);
}

ConfigurationFile::Pairs& ConfigurationFile::section(const std::wstring& name)
{
    const auto found = std::find_if(m_sections.begin(), m_sections.end(),
                                    [&name](const auto& entry) { return entry.first == name; });
    if (found != m_sections.end())
        return found->second;
    m_sections.emplace_back(name, Pairs{});
    return m_sections.back().second;
}

} // namespace Pellux
