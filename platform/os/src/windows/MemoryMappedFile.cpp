#include "Handles.h"

#include <OrvikOs/MemoryMappedFile.h>

#include <utility>

namespace OrvikOs {

bool MemoryMappedFile::Open(const std::wstring& path)
{
    Close();
    m_errorText.clear();
    const OwnedHandle file(CreateFileW(path.c_str(), GENERIC_READ,
                                       FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                       nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    LARGE_INTEGER size = {};
    if (!file.IsValid() || GetFileSizeEx(file.Get(), &size) == 0) {
        return FailWith(GetLastError(), &m_errorText);
    }
    if (size.QuadPart > 0) {
        const OwnedHandle mapping(
            CreateFileMappingW(file.Get(), nullptr, PAGE_READONLY, 0, 0, nullptr));
        void* const data =
            mapping.IsValid() ? MapViewOfFile(mapping.Get(), FILE_MAP_READ, 0, 0, 0) : nullptr;
        if (data == nullptr) {
            return FailWith(GetLastError(), &m_errorText);
        }
        m_data = static_cast<unsigned char*>(data);
    }
    m_size = static_cast<std::size_t>(size.QuadPart);
    m_open = true;
    return true;
}

void MemoryMappedFile::ExpectSequentialReading()
{
    if (m_data != nullptr) {
        WIN32_MEMORY_RANGE_ENTRY range = {m_data, m_size};
        PrefetchVirtualMemory(GetCurrentProcess(), 1, &range, 0);
    }
}

void MemoryMappedFile::Close()
{
    if (m_data != nullptr) {
        UnmapViewOfFile(std::exchange(m_data, nullptr));
    }
    m_size = 0;
    m_open = false;
}

} // namespace OrvikOs
