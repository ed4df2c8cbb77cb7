#include "OutputBuffer.h"

#include "SchemeText.h"

#include <algorithm>

namespace OrvikScheme {

void OutputBuffer::Clear()
{
    const OrvikOs::CriticalSection::Guard guard(m_lock);
    m_leftOut = 0;
    m_text.clear();
    if (m_text.capacity() > 65536)
        m_text.shrink_to_fit();
}

void OutputBuffer::Append(std::string_view text)
{
    const OrvikOs::CriticalSection::Guard guard(m_lock);
    const std::size_t taken = std::min(text.size(), kLimitBytes - m_text.size());
    m_text.append(text.substr(0, taken));
    m_leftOut += text.size() - taken;
}

std::wstring OutputBuffer::Text() const
{
    const OrvikOs::CriticalSection::Guard guard(m_lock);
    std::wstring text = TextFromScheme(m_text);
    if (m_leftOut > 0)
        text += L"\n... " + std::to_wstring(m_leftOut) + L" bytes of output were left out\n";
    return text;
}

} // namespace OrvikScheme
