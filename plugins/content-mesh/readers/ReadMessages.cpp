#include "readers/ReadMessages.h"

#include <algorithm>
#include <utility>

namespace OrvikMesh {

ReadMessages::ReadMessages(std::wstring fileName) : m_fileName(std::move(fileName)) {}

void ReadMessages::Fail(std::wstring_view reason, ReadPlace place)
{
    if (m_error.empty())
        m_error = compose(reason, place);
}

void ReadMessages::Warn(std::wstring_view reason, ReadPlace place)
{
    m_warnings.push_back(compose(reason, place));
}

std::wstring ReadMessages::compose(std::wstring_view reason, ReadPlace place) const
{
    std::wstring text = m_fileName + L": ";
    if (place.unit == ReadPlace::Unit::Byte)
        text += L"byte " + std::to_wstring(place.number) + L": ";
    if (place.unit == ReadPlace::Unit::Line)
        text += L"line " + std::to_wstring(place.number) + L": ";
    return text.append(reason);
}

std::wstring FillText(std::wstring_view text, std::initializer_list<std::wstring> values)
{
    std::wstring filled;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const std::size_t value = text[i] == L'%' && i + 1 < text.size()
                                      ? static_cast<std::size_t>(text[i + 1] - L'1')
                                      : values.size();
        if (value < values.size()) {
            filled += values.begin()[value];
            ++i;
        } else {
            filled += text[i];
        }
    }
    return filled;
}

std::uint64_t LineAt(std::string_view content, std::uint64_t offset)
{
    const auto end = content.begin() +
                     static_cast<std::ptrdiff_t>(std::min<std::uint64_t>(offset, content.size()));
    return 1 + static_cast<std::uint64_t>(std::count(content.begin(), end, '\n'));
}

} // namespace OrvikMesh
