#ifndef ORVIKOS_POSIX_DESCRIPTOR_H
#define ORVIKOS_POSIX_DESCRIPTOR_H

#include <unistd.h>

#include <utility>

namespace OrvikOs {

/// Closes a descriptor at the end of its scope.
class Descriptor
{
public:
    explicit Descriptor(int descriptor) : m_descriptor(descriptor) {}
    ~Descriptor() { Close(); }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    int Get() const { return m_descriptor; }
    void Close()
    {
        if (m_descriptor >= 0) {
            close(std::exchange(m_descriptor, -1));
        }
    }

private:
    int m_descriptor; ///< Owned; negative when none.
};

} // namespace OrvikOs

#endif
