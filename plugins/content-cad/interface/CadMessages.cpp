#include "interface/CadMessages.h"

#include <algorithm>
#include <utility>

namespace OrvikCad {

namespace {

constexpr wchar_t kMoreWarnings[] = L"further warnings: %1";

} // namespace

CadMessages::CadMessages(std::wstring fileName) : m_fileName(std::move(fileName)) {}

void CadMessages::Fail(std::wstring_view reason)
{
    if (m_error.empty())
        m_error = m_fileName + L": " + std::wstring(reason);
}

void CadMessages::FailAtLine(std::uint64_t line, std::wstring_view reason)
{
    Fail(L"line " + std::to_wstring(line) + L": " + std::wstring(reason));
}

void CadMessages::Warn(std::wstring_view reason)
{
    addWarning(m_fileName + L": " + std::wstring(reason));
}

void CadMessages::WarnAtLine(std::uint64_t line, std::wstring_view reason)
{
    Warn(L"line " + std::to_wstring(line) + L": " + std::wstring(reason));
}

void CadMessages::WarnAtEntity(std::uint64_t entity, std::wstring_view reason)
{
    Warn(L"#" + std::to_wstring(entity) + L": " + std::wstring(reason));
}

void CadMessages::addWarning(std::wstring text)
{
    if (std::find(m_warnings.begin(), m_warnings.end(), text) != m_warnings.end())
        return;
    if (m_warnings.size() < kMaxWarnings)
        m_warnings.push_back(std::move(text));
    else
        ++m_leftOut;
}

std::vector<std::wstring> CadMessages::Warnings() const
{
    std::vector<std::wstring> warnings = m_warnings;
    if (m_leftOut > 0)
        warnings.push_back(m_fileName + L": " +
                           FillText(kMoreWarnings, {std::to_wstring(m_leftOut)}));
    return warnings;
}

std::wstring FillText(std::wstring_view text, std::initializer_list<std::wstring> values)
{
    std::wstring filled;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const std::size_t which = text[i] == L'%' && i + 1 < text.size()
                                      ? static_cast<std::size_t>(text[i + 1] - L'1')
                                      : values.size();
        if (which < values.size()) {
            filled += *(values.begin() + which);
            ++i;
        } else {
            filled += text[i];
        }
    }
    return filled;
}

} // namespace OrvikCad
