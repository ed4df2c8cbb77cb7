#ifndef ORVIKCAD_KERNEL_KERNELTEXT_H
#define ORVIKCAD_KERNEL_KERNELTEXT_H

#include <TCollection_ExtendedString.hxx>
#include <TCollection_HAsciiString.hxx>

#include <string>

namespace OrvikCad {

/// Turns the kernel's UTF-16 into wide text.
std::wstring ToWide(const TCollection_ExtendedString& text);

/// Turns the kernel's UTF-8 into wide text; empty for null.
std::wstring ToWide(const Handle(TCollection_HAsciiString) & text);

/// Turns wide text into the kernel's UTF-16; what it cannot hold becomes U+FFFD.
TCollection_ExtendedString ToKernel(const std::wstring& text);

} // namespace OrvikCad

#endif
