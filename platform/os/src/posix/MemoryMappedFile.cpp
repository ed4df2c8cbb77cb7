#include "posix/Descriptor.h"
#include "posix/Paths.h"

#include <OrvikOs/MemoryMappedFile.h>
#include <OrvikOs/Utf8.h>

#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

#include <cerrno>
#include <utility>

namespace OrvikOs {

bool MemoryMappedFile::Open(const std::wstring& path)
{
    Close();
    m_errorText.clear();
    // Without O_NONBLOCK, opening a pipe that nobody writes to would wait for ever.
    const Descriptor file(open(WideToUtf8(path).c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    struct stat status = {};
    if (file.Get() < 0 || fstat(file.Get(), &status) != 0) {
        return FailWith(errno, &m_errorText);
    }
    if (!S_ISREG(status.st_mode)) {
        if (S_ISDIR(status.st_mode)) {
            return FailWith(EISDIR, &m_errorText);
        }
        m_errorText = L"Not a regular file";
        return false;
    }
    const auto size = static_cast<std::size_t>(status.st_size);
    if (size > 0) {
        void* const data = mmap(nullptr, size, PROT_READ, MAP_PRIVATE, file.Get(), 0);
        if (data == MAP_FAILED) {
            return FailWith(errno, &m_errorText);
        }
        m_data = static_cast<unsigned char*>(data);
    }
    m_size = size;
    m_open = true;
    return true;
}

void MemoryMappedFile::ExpectSequentialReading()
{
    if (m_data != nullptr) {
        madvise(m_data, m_size, MADV_SEQUENTIAL);
        madvise(m_data, m_size, MADV_WILLNEED);
    }
}

void MemoryMappedFile::Close()
{
    if (m_data != nullptr) {
        munmap(std::exchange(m_data, nullptr), m_size);
    }
    m_size = 0;
    m_open = false;
}

} // namespace OrvikOs
