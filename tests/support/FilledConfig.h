#ifndef TESTS_FILLEDCONFIG_H
#define TESTS_FILLEDCONFIG_H

#include "OrvikCore/Config.h"
#include "OrvikCore/IConfigInitializer.h"

#include <map>
#include <string>
#include <utility>
#include <vector>

/// The pairs of one section of a configuration, in order.
using ConfigSection = std::vector<std::pair<std::wstring, std::wstring>>;

#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

/// A source of configuration in memory.
class FakeConfigInitializer final : public OrvikCore::IConfigInitializer
{
public:
    explicit FakeConfigInitializer(const std::map<std::wstring, ConfigSection>& sections)
        : m_sections(sections)
    {
    }

    std::wstring GetSourceName() const override { return L"memory"; }
    std::wstring GetErrorText() const override { return {}; }
    void ListSections(std::vector<std::wstring>& names, int, int) override
    {
        for (const auto& section : m_sections) {
            names.push_back(section.first);
        }
    }
    void FillSection(const std::wstring& section, ConfigSection* pairs) override
    {
        *pairs = m_sections.at(section);
    }

private:
    const std::map<std::wstring, ConfigSection>& m_sections;
};

#pragma GCC diagnostic pop

/// Makes @p sections the configuration of the process.
inline void FillConfig(const std::map<std::wstring, ConfigSection>& sections)
{
    FakeConfigInitializer initializer(sections);
    OrvikCore::Config::Instance().Initialize(initializer);
}

#endif
