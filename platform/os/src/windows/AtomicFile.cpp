#include "Handles.h"

#include <OrvikOs/AtomicFile.h>

#include <algorithm>
#include <atomic>
#include <memory>
#include <string>

namespace OrvikOs {

namespace {

constexpr std::size_t kLargestWrite = 1u << 30; ///< The system takes the size as 32 bits.

std::wstring temporaryName(const std::wstring& path)
{
    static std::atomic<unsigned> counter{0};
    const unsigned number = counter.fetch_add(1, std::memory_order_relaxed);
    return path + L".new-" + std::to_wstring(GetCurrentProcessId()) + L"-" +
           std::to_wstring(number);
}

/// Creates a new file beside @p path. @return INVALID_HANDLE_VALUE with the last error set.
HANDLE createTemporary(const std::wstring& path, std::wstring& temporary)
{
    for (;;) {
        temporary = temporaryName(path);
        HANDLE const file = CreateFileW(temporary.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW,
                                        FILE_ATTRIBUTE_NORMAL, nullptr);
        if (file != INVALID_HANDLE_VALUE || GetLastError() != ERROR_FILE_EXISTS) {
            return file;
        }
    }
}

} // namespace

struct AtomicFile::State
{
    State() = default;
    ~State()
    {
        closeFile();
        if (!temporary.empty()) {
            DeleteFileW(temporary.c_str());
        }
    }
    State(const State&) = delete;
    State& operator=(const State&) = delete;

    /// @return false with the last error set.
    bool closeFile()
    {
        HANDLE const closing = file;
        file = INVALID_HANDLE_VALUE;
        return closing == INVALID_HANDLE_VALUE || CloseHandle(closing) != 0;
    }

    std::wstring target;
    std::wstring temporary; ///< Empty once it has taken the target's place.
    HANDLE file = INVALID_HANDLE_VALUE;
};

AtomicFile::AtomicFile() = default;

AtomicFile::~AtomicFile()
{
    delete m_state;
}

/// Drops what was written. @return false, for callers to return.
bool AtomicFile::fail(unsigned long error)
{
    delete m_state;
    m_state = nullptr;
    return FailWith(error, &m_errorText);
}

bool AtomicFile::Open(const std::wstring& path)
{
    delete m_state;
    m_state = nullptr;
    m_errorText.clear();
    m_state = std::make_unique<State>().release();
    m_state->target = path;
    std::wstring name;
    m_state->file = createTemporary(path, name);
    if (m_state->file == INVALID_HANDLE_VALUE) {
        return fail(GetLastError());
    }
    m_state->temporary = std::move(name);
    return true;
}

bool AtomicFile::Write(const void* data, std::size_t size)
{
    if (m_state == nullptr) {
        return false;
    }
    const auto* bytes = static_cast<const char*>(data);
    while (size > 0) {
        const auto part = static_cast<DWORD>(std::min(size, kLargestWrite));
        DWORD written = 0;
        if (WriteFile(m_state->file, bytes, part, &written, nullptr) == 0 || written == 0) {
            return fail(GetLastError());
        }
        bytes += written;
        size -= written;
    }
    return true;
}

bool AtomicFile::Commit()
{
    if (m_state == nullptr) {
        return false;
    }
    if (!m_state->closeFile() || MoveFileExW(m_state->temporary.c_str(), m_state->target.c_str(),
                                             MOVEFILE_REPLACE_EXISTING) == 0) {
        return fail(GetLastError());
    }
    m_state->temporary.clear();
    delete m_state;
    m_state = nullptr;
    return true;
}

const std::wstring& AtomicFile::ErrorText() const
{
    return m_errorText;
}

} // namespace OrvikOs
