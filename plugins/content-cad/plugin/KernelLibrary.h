#ifndef ORVIKCAD_PLUGIN_KERNELLIBRARY_H
#define ORVIKCAD_PLUGIN_KERNELLIBRARY_H

#include "interface/ICadKernel.h"

#include <string>

namespace OrvikCad {

/// File name of the kernel's library, beside the executable.
inline constexpr wchar_t kKernelLibrary[] = L"OrvikCadKernel.dll";

/// Gives the kernel, and loads its library first when nobody has asked before. A library that could
/// not be loaded is tried again at the next call.
///
/// @param libraryName  A path or a bare name; only the first success counts.
/// @param error        receives why there is no kernel, naming the library; untouched otherwise.
/// @return             null when there is none; not owned, valid for the life of the process.
/// @thread             Any thread.
ICadKernel* LoadKernel(const std::wstring& libraryName, std::wstring& error);

} // namespace OrvikCad

#endif
