#ifndef TESTS_FAKECONFIGINITIALIZER_H
#define TESTS_FAKECONFIGINITIALIZER_H

#include "OrvikCore/Config.h"
#include "OrvikCore/IConfigInitializer.h"

#include <string>
#include <utility>
#include <vector>

#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

/// Delivers the sections that a test gives it, in their order.
class FakeConfigInitializer final : public OrvikCore::IConfigInitializer
{
public:
    using Pairs = std::vector<std::pair<std::wstring, std::wstring>>;

    explicit FakeConfigInitializer(std::vector<std::pair<std::wstring, Pairs>> sections)
        : m_sections(std::move(sections))
    {
    }

    std::wstring GetSourceName() const override { return L"test"; }
    std::wstring GetErrorText() const override { return std::wstring(); }
    void ListSections(std::vector<std::wstring>& names, int reserved1, int reserved2) override
    {
        m_reserved = {reserved1, reserved2};
        for (const auto& section : m_sections) {
            names.push_back(section.first);
        }
    }
    void FillSection(const std::wstring& section, Pairs* pairs) override
    {
        m_startedEmpty = m_startedEmpty && pairs->empty();
        // Sections of one name are delivered one after another.
        *pairs = m_sections[m_next++].second;
        m_asked.push_back(section);
    }

    std::pair<int, int> m_reserved{-1, -1};
    bool m_startedEmpty = true;
    std::vector<std::wstring> m_asked;

private:
    std::vector<std::pair<std::wstring, Pairs>> m_sections;
    std::size_t m_next = 0;
};

#pragma GCC diagnostic pop

/// Puts the configuration's sections in place of those before.
inline void Configure(std::vector<std::pair<std::wstring, FakeConfigInitializer::Pairs>> sections)
{
    FakeConfigInitializer initializer(std::move(sections));
    OrvikCore::Config::Instance().Terminate();
    OrvikCore::Config::Instance().Initialize(initializer);
}

#endif
