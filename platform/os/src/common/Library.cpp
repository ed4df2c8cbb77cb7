#include <OrvikOs/Library.h>

#include <utility>

namespace OrvikOs {

Library::Library() = default;

Library::~Library()
{
    Close();
}

Library::Library(Library&& other) noexcept
    : m_handle(std::exchange(other.m_handle, nullptr)),
      m_errorCode(std::exchange(other.m_errorCode, 0u)),
      m_errorText(std::exchange(other.m_errorText, {}))
{
}

Library& Library::operator=(Library&& other) noexcept
{
    if (this != &other) {
        Close();
        m_handle = std::exchange(other.m_handle, nullptr);
        m_errorCode = std::exchange(other.m_errorCode, 0u);
        m_errorText = std::exchange(other.m_errorText, {});
    }
    return *this;
}

bool Library::IsLoaded() const
{
    return m_handle != nullptr;
}

unsigned Library::ErrorCode() const
{
    return m_errorCode;
}

const std::wstring& Library::ErrorText() const
{
    return m_errorText;
}

void Library::Detach()
{
    m_handle = nullptr;
}

} // namespace OrvikOs
