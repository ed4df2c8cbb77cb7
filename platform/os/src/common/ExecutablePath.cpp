#include "common/Platform.h"

#include <OrvikOs/ExecutablePath.h>
#include <OrvikOs/Snapshot.h>

namespace OrvikOs {

namespace {

/// The path set for tests; empty means the system's answer. Lives until the process ends.
Snapshot<std::wstring>& replacement()
{
    static auto* const path = new Snapshot<std::wstring>();
    return *path;
}

} // namespace

std::wstring ExecutablePath()
{
    const auto replaced = replacement().Get();
    return replaced->empty() ? SystemExecutablePath() : *replaced;
}

std::wstring ExecutableFolder()
{
    const std::wstring path = ExecutablePath();
    const std::size_t separator = FindLastSeparator(path);
    if (separator == std::wstring::npos) {
        return std::wstring();
    }
    return path.substr(0, separator == 0 ? 1 : separator);
}

void SetExecutablePath(const std::wstring& path)
{
    replacement().Set(path);
}

} // namespace OrvikOs
