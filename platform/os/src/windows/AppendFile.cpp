#include "Handles.h"

#include <OrvikOs/AppendFile.h>
#include <OrvikOs/SystemError.h>

#include <algorithm>

namespace OrvikOs {

namespace {

constexpr std::size_t kLargestWrite = 1u << 30; ///< The system takes the size as 32 bits.

bool fail(DWORD error, std::wstring* errorText)
{
    if (errorText != nullptr) {
        *errorText = SystemErrorText(error);
    }
    return false;
}

} // namespace

struct AppendFile::State
{
    explicit State(HANDLE openFile) : file(openFile) {}

    OwnedHandle file;
};

AppendFile::AppendFile() = default;

AppendFile::~AppendFile()
{
    delete m_state;
}

bool AppendFile::Open(const std::wstring& path, std::wstring* errorText)
{
    delete m_state;
    m_state = nullptr;
    HANDLE const file = CreateFileW(path.c_str(), FILE_APPEND_DATA, FILE_SHARE_READ, nullptr,
                                    OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE) {
        return fail(GetLastError(), errorText);
    }
    m_state = new State(file);
    return true;
}

bool AppendFile::Append(std::string_view text, std::wstring* errorText)
{
    if (m_state == nullptr) {
        return fail(ERROR_INVALID_HANDLE, errorText);
    }
    while (!text.empty()) {
        const auto part = static_cast<DWORD>(std::min(text.size(), kLargestWrite));
        DWORD written = 0;
        if (WriteFile(m_state->file.Get(), text.data(), part, &written, nullptr) == 0 ||
            written == 0) {
            return fail(GetLastError(), errorText);
        }
        text.remove_prefix(written);
    }
    return true;
}

} // namespace OrvikOs
