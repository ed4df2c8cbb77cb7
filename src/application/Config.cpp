#include "OrvikCore/Config.h"

#include "OrvikCore/IConfigInitializer.h"

#include <memory>

namespace OrvikCore {

Config& Config::Instance()
{
    static Config instance;
    return instance;
}

Config::Config() = default;

Config::~Config()
{
    Terminate();
}

bool Config::Initialize(IConfigInitializer& initializer)
{
    m_valid = true;
    std::vector<std::wstring> names;
    initializer.ListSections(names, 0, 0);
    for (const std::wstring& name : names) {
        auto pairs = std::make_unique<std::vector<std::pair<std::wstring, std::wstring>>>();
        initializer.FillSection(name, pairs.get());
        auto*& held = m_sections[name];
        delete held;
        held = pairs.release();
    }
    return m_valid;
}

void Config::Terminate()
{
    m_valid = false;
    for (const auto& [name, pairs] : m_sections) {
        delete pairs;
    }
    m_sections.clear();
}

bool Config::IsValid() const
{
    return m_valid;
}

bool Config::GetSectionNames(std::vector<std::wstring>& names) const
{
    names.clear();
    for (const auto& [name, pairs] : m_sections) {
        names.push_back(name);
    }
    return true;
}

bool Config::GetSection(const std::wstring& name,
                        std::vector<std::pair<std::wstring, std::wstring>>& pairs) const
{
    const auto section = m_sections.find(name);
    if (section == m_sections.end()) {
        return false;
    }
    pairs = *section->second;
    return true;
}

bool Config::GetValue(const std::wstring& section, const std::wstring& key,
                      std::vector<std::wstring>& values) const
{
    values.clear();
    const auto found = m_sections.find(section);
    if (found != m_sections.end()) {
        for (const auto& [pairKey, value] : *found->second) {
            if (pairKey == key) {
                values.push_back(value);
            }
        }
    }
    // Deliberate: false, also when values were found; callers look at the list.
    // Held by Config.GetValueReturnsFalseAlsoWhenValuesAreFound.
    return false;
}

} // namespace OrvikCore
