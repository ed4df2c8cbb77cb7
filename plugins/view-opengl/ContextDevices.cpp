#include "ContextDevices.h"

#include <string_view>

namespace ViewOpenGl {

bool HasWord(const char* list, const char* word)
{
    std::string_view rest = list == nullptr ? "" : list;
    while (!rest.empty()) {
        const std::size_t end = rest.find(' ');
        if (rest.substr(0, end) == word)
            return true;
        rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
    }
    return false;
}

bool OpenHardwareDevice(std::span<const ContextDevice> devices,
                        const std::function<bool(const ContextDevice&, std::string&)>& open,
                        std::vector<std::string>& notes)
{
    for (std::size_t i = 0; i < devices.size(); ++i) {
        if (HasWord(devices[i].extensions.c_str(), "EGL_MESA_device_software"))
            continue;
        std::string reason;
        if (open(devices[i], reason))
            return true;
        notes.push_back("graphics device " + std::to_string(i) + " is not used: " + reason);
    }
    return false;
}

} // namespace ViewOpenGl
