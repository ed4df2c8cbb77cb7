#include "gltf/GltfMessages.h"

#include "gltf/GltfTexts.h"

namespace OrvikMesh {

namespace {

constexpr std::size_t kMostWarnings = 20;
constexpr std::size_t kLongestName = 120;

} // namespace

WarningLimit::WarningLimit(ReadMessages& messages) : m_messages(messages) {}

void WarningLimit::Warn(const std::wstring& reason)
{
    if (m_count++ < kMostWarnings)
        m_messages.Warn(reason);
}

void WarningLimit::Finish()
{
    if (m_count > kMostWarnings)
        m_messages.Warn(FillText(kGltfMoreWarnings, {std::to_wstring(m_count - kMostWarnings)}));
}

std::wstring ShortName(const std::wstring& name)
{
    return name.size() <= kLongestName ? name : name.substr(0, kLongestName) + L"...";
}

} // namespace OrvikMesh
