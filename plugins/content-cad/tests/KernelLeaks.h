#ifndef ORVIKCAD_TESTS_KERNELLEAKS_H
#define ORVIKCAD_TESTS_KERNELLEAKS_H

#ifdef __SANITIZE_ADDRESS__
#include <sanitizer/lsan_interface.h>
#endif

namespace OrvikCad {

/// While it lives, what this thread allocates is not looked for when the process ends: the kernel's
/// libraries keep settings and documents until then and free none of them.
class KernelLeaks
{
public:
    KernelLeaks() = default;
    KernelLeaks(const KernelLeaks&) = delete;
    KernelLeaks& operator=(const KernelLeaks&) = delete;

private:
#ifdef __SANITIZE_ADDRESS__
    __lsan::ScopedDisabler m_notOurs;
#endif
};

} // namespace OrvikCad

#endif
