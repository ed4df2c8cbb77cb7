#include "plugin/KernelLibrary.h"

#include "interface/CadMessages.h"

#include <OrvikOs/Library.h>

#include <mutex>

namespace OrvikCad {

namespace {

constexpr wchar_t kNotLoaded[] = L"The library \"%1\", which reads CAD files, cannot be loaded: %2";
constexpr wchar_t kNoEntry[] = L"it has no entry point for this version";

std::mutex& loading()
{
    static auto* const mutex = new std::mutex();
    return *mutex;
}

} // namespace

ICadKernel* LoadKernel(const std::wstring& libraryName, std::wstring& error)
{
    static ICadKernel* kernel = nullptr; // Guarded by loading().
    const std::lock_guard<std::mutex> lock(loading());
    if (kernel)
        return kernel;
    OrvikOs::Library library;
    if (!library.Load(libraryName)) {
        error = FillText(kNotLoaded, {libraryName, library.ErrorText()});
        return nullptr;
    }
    const auto create = reinterpret_cast<CreateCadKernelFunction>(library.Symbol(kCreateCadKernel));
    if (!create) {
        error = FillText(kNotLoaded, {libraryName, kNoEntry});
        return nullptr;
    }
    kernel = create();
    library.Detach(); // Stays loaded for the life of the process.
    return kernel;
}

} // namespace OrvikCad
