#include <OrvikOs/AtomicFile.h>
#include <OrvikOs/FileWriting.h>

namespace OrvikOs {

bool WriteFileAtomically(const std::wstring& path, const void* data, std::size_t size,
                         std::wstring* errorText)
{
    AtomicFile file;
    if (file.Open(path) && file.Write(data, size) && file.Commit()) {
        return true;
    }
    if (errorText != nullptr) {
        *errorText = file.ErrorText();
    }
    return false;
}

} // namespace OrvikOs
