#include "posix/DescriptorWriting.h"
#include "posix/Paths.h"

#include <OrvikOs/AppendFile.h>
#include <OrvikOs/Utf8.h>

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>

namespace OrvikOs {

namespace {

constexpr mode_t kOwnerOnly = 0600;

} // namespace

struct AppendFile::State
{
    explicit State(int openDescriptor) : descriptor(openDescriptor) {}
    ~State() { close(descriptor); }
    State(const State&) = delete;
    State& operator=(const State&) = delete;

    const int descriptor;
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
    const int descriptor =
        open(WideToUtf8(path).c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, kOwnerOnly);
    if (descriptor < 0) {
        return FailWith(errno, errorText);
    }
    m_state = new State(descriptor);
    return true;
}

bool AppendFile::Append(std::string_view text, std::wstring* errorText)
{
    if (m_state == nullptr) {
        return FailWith(EBADF, errorText);
    }
    return WriteAll(m_state->descriptor, text.data(), text.size()) || FailWith(errno, errorText);
}

} // namespace OrvikOs
