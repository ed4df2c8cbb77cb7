#include "ConfigurationFile.h"

#include <TambVizCore/Utils.h>

#include <toml++/toml.h>

#include <algorithm>
#include <stdexcept>
#include <string_view>

namespace Pellux {
namespace {

using TambVizCore::Utils;

using Pairs = std::vector<std::pair<std::wstring, std::wstring>>;
using Sections = std::vector<std::pair<std::wstring, Pairs>>;

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

Pairs readSection(const toml::table& table)
{
    Pairs pairs;
    for (const auto& [key, node] : table) {
        if (const toml::array* const values = node.as_array()) {
            for (const toml::node& value : *values)
                pairs.emplace_back(widen(key.str()), scalarText(value, key.str()));
        } else {
            pairs.emplace_back(widen(key.str()), scalarText(node, key.str()));
        }
    }
    return pairs;
}

Sections readFile(const std::string& contents)
{
    Sections sections;
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
        merge(readFile(Utils::WstringToString(text)));
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

void ConfigurationFile::merge(const Sections& sections)
{
    for (const auto& [name, pairs] : sections) {
        Pairs& target = section(name);
        std::erase_if(target, [&pairs = pairs](const auto& old) {
            return std::any_of(pairs.begin(), pairs.end(),
                               [&old](const auto& added) { return added.first == old.first; });
        });
        target.insert(target.end(), pairs.begin(), pairs.end());
    }
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
