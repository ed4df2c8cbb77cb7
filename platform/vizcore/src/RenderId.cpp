#include "TambVizCore/RenderId.h"

#include <algorithm>
#include <tuple>

namespace TambVizCore {

RenderId::RenderId(std::uint32_t origin) : m_origin(origin) {}

void RenderId::Clear()
{
    m_origin = kOriginNone;
    m_path.clear();
}

void RenderId::AddValue(const std::uint64_t& value)
{
    m_path.push_back(value);
}

void RenderId::RemoveLast()
{
    if (!m_path.empty()) {
        m_path.pop_back();
    }
}

int RenderId::Length() const
{
    return static_cast<int>(m_path.size());
}

std::uint64_t RenderId::operator[](int index) const
{
    return index >= 0 && index < Length() ? m_path[static_cast<std::size_t>(index)] : 0;
}

std::uint64_t RenderId::Last() const
{
    return m_path.empty() ? 0 : m_path.back();
}

bool RenderId::IsPrefixOf(const RenderId& other) const
{
    return m_origin == other.m_origin && m_path.size() <= other.m_path.size() &&
           std::equal(m_path.begin(), m_path.end(), other.m_path.begin());
}

std::string RenderId::ToString() const
{
    std::string text = "RenderId = " + std::to_string(m_origin) + ":";
    char separator = ' ';
    for (const std::uint64_t value : m_path) {
        text += separator;
        text += std::to_string(value);
        separator = '/';
    }
    return text;
}

bool RenderId::operator<(const RenderId& other) const
{
    return std::tie(m_origin, m_path) < std::tie(other.m_origin, other.m_path);
}

} // namespace TambVizCore

std::size_t
std::hash<TambVizCore::RenderId>::operator()(const TambVizCore::RenderId& id) const noexcept
{
    // FNV-1a over the 64-bit ids, with a last shift so that the low bits see the high ones.
    std::uint64_t value = 0xCBF29CE484222325u ^ id.Origin();
    for (int i = 0; i < id.Length(); ++i) {
        value = (value ^ id[i]) * 0x100000001B3u;
        value ^= value >> 29;
    }
    return static_cast<std::size_t>(value);
}
