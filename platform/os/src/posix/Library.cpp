#include <OrvikOs/Directory.h>
#include <OrvikOs/ExecutablePath.h>
#include <OrvikOs/Library.h>
#include <OrvikOs/Utf8.h>

#include <dlfcn.h>
#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <utility>

namespace OrvikOs {

namespace {

/// The number that stands for a file which is there and cannot be loaded.
constexpr unsigned kBadLibrary = 0xb;

/// Gives what to hand to the loader: a bare name becomes a path when the executable's folder has
/// such a file.
std::string locate(const std::wstring& fileName)
{
    if (fileName.find(L'/') == std::wstring::npos) {
        const std::wstring beside = ExecutableFolder() + L"/" + fileName;
        if (IsFile(beside)) {
            return WideToUtf8(beside);
        }
    }
    return WideToUtf8(fileName);
}

/// Gives the number of the error with which the file cannot be opened, else that of a bad library.
unsigned errorOfOpening(const std::string& path)
{
    const int descriptor = open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (descriptor < 0) {
        return static_cast<unsigned>(errno);
    }
    close(descriptor);
    return kBadLibrary;
}

} // namespace

bool Library::Load(const std::wstring& fileName)
{
    Close();
    m_errorCode = 0;
    m_errorText.clear();
    if (fileName.empty()) { // The loader would give the program itself.
        m_errorCode = ENOENT;
        m_errorText = L"cannot load a library without a name";
        return false;
    }
    const std::string path = locate(fileName);
    m_handle = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (m_handle == nullptr) {
        const char* const text = dlerror();
        m_errorText = Utf8ToWide(text != nullptr ? text : "");
        m_errorCode = errorOfOpening(path);
        return false;
    }
    return true;
}

void* Library::Symbol(const char* name) const
{
    return m_handle != nullptr ? dlsym(m_handle, name) : nullptr;
}

void Library::Close()
{
    if (m_handle != nullptr) {
        dlclose(std::exchange(m_handle, nullptr));
    }
}

} // namespace OrvikOs
