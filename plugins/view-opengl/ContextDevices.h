#ifndef VIEWOPENGL_CONTEXTDEVICES_H
#define VIEWOPENGL_CONTEXTDEVICES_H

#include <cstddef>
#include <functional>
#include <span>
#include <string>
#include <vector>

namespace ViewOpenGl {

/// A device that EGL has enumerated.
struct ContextDevice
{
    void* handle = nullptr; ///< EGLDeviceEXT; not owned.
    std::string extensions; ///< What the device says of itself, words with blanks between.
};

/// @return whether a list of words with blanks between holds a word.
bool HasWord(const char* list, const char* word);

/// Opens the first device that can be opened and has a real processor behind it.
///
/// @param open   tries one; fills the text with the reason and returns false when it cannot.
/// @param notes  receives a line for each device that could not be opened.
/// @return false when there is none.
bool OpenHardwareDevice(std::span<const ContextDevice> devices,
                        const std::function<bool(const ContextDevice&, std::string&)>& open,
                        std::vector<std::string>& notes);

} // namespace ViewOpenGl

#endif
