#include "readers/SideFiles.h"

#include <OrvikOs/Utf8.h>

#include <algorithm>

namespace OrvikMesh {

bool StaysInFolder(std::string_view name)
{
    if (name.empty() || name[0] == '/' || name[0] == '\\')
        return false;
    if (name.find(':') != std::string_view::npos || name.find('\0') != std::string_view::npos)
        return false;
    for (std::size_t begin = 0; begin <= name.size();) {
        const std::size_t end = std::min(name.find_first_of("/\\", begin), name.size());
        if (name.substr(begin, end - begin) == "..")
            return false;
        begin = end + 1;
    }
    return true;
}

std::wstring PathBeside(const std::wstring& path, std::string_view name)
{
    std::string slashed(name);
    std::replace(slashed.begin(), slashed.end(), '\\', '/');
    const std::size_t folderEnd = path.find_last_of(L"/\\");
    const std::wstring folder =
        folderEnd == std::wstring::npos ? std::wstring() : path.substr(0, folderEnd + 1);
    return folder + OrvikOs::Utf8ToWide(slashed);
}

} // namespace OrvikMesh
