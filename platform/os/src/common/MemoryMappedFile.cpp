#include <OrvikOs/MemoryMappedFile.h>

#include <utility>

namespace OrvikOs {

MemoryMappedFile::MemoryMappedFile() = default;

MemoryMappedFile::~MemoryMappedFile()
{
    Close();
}

MemoryMappedFile::MemoryMappedFile(MemoryMappedFile&& other) noexcept
    : m_data(std::exchange(other.m_data, nullptr)),
      m_size(std::exchange(other.m_size, 0u)),
      m_open(std::exchange(other.m_open, false)),
      m_errorText(std::exchange(other.m_errorText, {}))
{
}

MemoryMappedFile& MemoryMappedFile::operator=(MemoryMappedFile&& other) noexcept
{
    if (this != &other) {
        Close();
        m_data = std::exchange(other.m_data, nullptr);
        m_size = std::exchange(other.m_size, 0u);
        m_open = std::exchange(other.m_open, false);
        m_errorText = std::exchange(other.m_errorText, {});
    }
    return *this;
}

bool MemoryMappedFile::IsOpen() const
{
    return m_open;
}

const unsigned char* MemoryMappedFile::Data() const
{
    return m_data;
}

std::size_t MemoryMappedFile::Size() const
{
    return m_size;
}

std::string_view MemoryMappedFile::Text() const
{
    return std::string_view(reinterpret_cast<const char*>(m_data), m_size);
}

const std::wstring& MemoryMappedFile::ErrorText() const
{
    return m_errorText;
}

} // namespace OrvikOs
