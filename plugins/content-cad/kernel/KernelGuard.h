#ifndef ORVIKCAD_KERNEL_KERNELGUARD_H
#define ORVIKCAD_KERNEL_KERNELGUARD_H

#include <functional>
#include <string>

namespace OrvikCad {

/// Runs code of the kernel: traps are masked, machine faults and the kernel's own exceptions end
/// the code and are told as text.
///
/// @param body  Called once; what it built by then is kept.
/// @return      empty when it ran to its end, else why it did not.
/// @throws TambCommandsInfra::JobCancelled and std::bad_alloc, which concern the whole file.
std::wstring RunGuarded(const std::function<void()>& body);

} // namespace OrvikCad

#endif
