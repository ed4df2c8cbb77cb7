#include "common/Platform.h"
#include "posix/Paths.h"

#include <OrvikOs/Directory.h>
#include <OrvikOs/SystemError.h>
#include <OrvikOs/Utf8.h>

#include <dirent.h>
#include <fcntl.h>
#include <limits.h>
#include <unistd.h>

#include <cerrno>
#include <memory>

namespace OrvikOs {

const wchar_t kPathSeparator = L'/';

std::size_t FindLastSeparator(const std::wstring& path)
{
    return path.rfind(kPathSeparator);
}

bool Status(const std::string& path, struct stat& status)
{
    return stat(path.c_str(), &status) == 0;
}

bool FailWith(int error, std::wstring* text)
{
    if (text != nullptr) {
        *text = SystemErrorText(static_cast<unsigned>(error));
    }
    return false;
}

namespace {

EntryKind kindOf(const struct stat& status)
{
    if (S_ISREG(status.st_mode)) {
        return EntryKind::File;
    }
    return S_ISDIR(status.st_mode) ? EntryKind::Directory : EntryKind::Other;
}

EntryKind kindOf(DIR* directory, const dirent& entry)
{
    switch (entry.d_type) {
    case DT_REG:
        return EntryKind::File;
    case DT_DIR:
        return EntryKind::Directory;
    case DT_LNK:
    case DT_UNKNOWN: {
        struct stat status = {};
        const bool known = fstatat(dirfd(directory), entry.d_name, &status, 0) == 0;
        return known ? kindOf(status) : EntryKind::Other;
    }
    default:
        return EntryKind::Other;
    }
}

bool isDotEntry(const char* name)
{
    return name[0] == '.' && (name[1] == '\0' || (name[1] == '.' && name[2] == '\0'));
}

struct DirectoryCloser
{
    void operator()(DIR* directory) const { closedir(directory); }
};

} // namespace

bool ListDirectory(const std::wstring& path, std::vector<DirectoryEntry>& entries,
                   std::wstring* errorText)
{
    entries.clear();
    const std::string folder = path.empty() ? std::string(".") : WideToUtf8(path);
    const std::unique_ptr<DIR, DirectoryCloser> directory(opendir(folder.c_str()));
    if (!directory) {
        return FailWith(errno, errorText);
    }
    std::vector<DirectoryEntry> found;
    for (;;) {
        errno = 0;
        const dirent* const entry = readdir(directory.get());
        if (entry == nullptr) {
            break;
        }
        if (!isDotEntry(entry->d_name)) {
            found.push_back({Utf8ToWide(entry->d_name), kindOf(directory.get(), *entry)});
        }
    }
    if (errno != 0) {
        return FailWith(errno, errorText);
    }
    entries = std::move(found);
    return true;
}

bool IsFile(const std::wstring& path)
{
    struct stat status = {};
    return Status(WideToUtf8(path), status) && S_ISREG(status.st_mode);
}

bool IsDirectory(const std::wstring& path)
{
    struct stat status = {};
    return Status(WideToUtf8(path), status) && S_ISDIR(status.st_mode);
}

bool MakeDirectories(const std::wstring& path, std::wstring* errorText)
{
    const std::string folder = WideToUtf8(path);
    int lastError = folder.empty() ? ENOENT : 0;
    for (std::size_t end = folder.find('/', 1); !folder.empty(); end = folder.find('/', end + 1)) {
        lastError = mkdir(folder.substr(0, end).c_str(), 0777) == 0 ? 0 : errno;
        if (end == std::string::npos) {
            break;
        }
    }
    return IsDirectory(path) || FailWith(lastError == EEXIST ? ENOTDIR : lastError, errorText);
}

bool RemoveFile(const std::wstring& path)
{
    return unlink(WideToUtf8(path).c_str()) == 0 || errno == ENOENT;
}

std::wstring AbsolutePath(const std::wstring& path)
{
    if (!path.empty() && path.front() == kPathSeparator) {
        return path;
    }
    std::wstring absolute = CurrentDirectory();
    if (path.empty()) {
        return absolute;
    }
    if (absolute.empty() || absolute.back() != kPathSeparator) {
        absolute += kPathSeparator;
    }
    return absolute + path;
}

std::wstring CurrentDirectory()
{
    char folder[PATH_MAX];
    return getcwd(folder, sizeof folder) != nullptr ? Utf8ToWide(folder) : std::wstring();
}

} // namespace OrvikOs
