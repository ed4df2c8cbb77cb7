// Linked into every program of a build with sanitizers: what they are told, and which modules that
// are not ours they pass over. Reports of our own code stay.

#include <dlfcn.h>
#include <link.h>

#include <cstring>

namespace {

/// The sanitizers guess where the storage of threads lies in libraries that were loaded late, and
/// end the program where such a guess is wrong: it is for the libraries of Guile.
constexpr char kOptions[] = "intercept_tls_get_addr=0";

/// What is never freed. Fontconfig and the drivers keep what they have read until the end. Open
/// CASCADE drops entities that it has read half, and buffers of its IGES reader. The heap of
/// Guile's collector is not looked at, so what only values of scripts hold (objectFor) seems lost.
constexpr char kLeaks[] = "leak:libfontconfig\n"
                          "leak:libdbus\n"
                          "leak:swrast_dri\n"
                          "leak:libglapi\n"
                          "leak:libguile-3.0\n"
                          "leak:objectFor\n"
                          "leak:libTK\n";

/// Not built with the thread sanitizer: it sees the calls that they make to the C library, and not
/// the atomics by which their threads agree on them. Nor does it see the locks of the C library, by
/// which it reads the time zone and lists what is loaded (visitLibrary gets to see that list).
constexpr char kThreads[] = "called_from_lib:libembree3.so\n"
                            "called_from_lib:libtbb.so\n"
                            "called_from_lib:libQt6Core.so\n"
                            "called_from_lib:libQt6Gui.so\n"
                            "called_from_lib:libQt6Widgets.so\n"
                            "called_from_lib:libglib-2.0.so\n"
                            "race:tzset_internal\n"
                            "race:visitLibrary\n"
                            "race:swrast_dri.so\n";

bool isGraphicsDriver(void* library)
{
    link_map* map = nullptr;
    return dlinfo(library, RTLD_DI_LINKMAP, &map) == 0 && std::strstr(map->l_name, "_dri.so");
}

} // namespace

#define ORVIK_VISIBLE extern "C" __attribute__((visibility("default")))

ORVIK_VISIBLE const char* __asan_default_options();
ORVIK_VISIBLE const char* __tsan_default_options();
ORVIK_VISIBLE const char* __lsan_default_options();
ORVIK_VISIBLE const char* __lsan_default_suppressions();
ORVIK_VISIBLE const char* __tsan_default_suppressions();

/// The window system's client library lets its driver go at the end. It is kept, because a leak is
/// passed over by the name of its library, which one that is gone does not have any more.
ORVIK_VISIBLE int dlclose(void* library) noexcept
{
    static const auto next = reinterpret_cast<int (*)(void*)>(dlsym(RTLD_NEXT, "dlclose"));
    return isGraphicsDriver(library) ? 0 : next(library);
}

const char* __asan_default_options()
{
    return kOptions;
}

const char* __tsan_default_options()
{
    return kOptions;
}

const char* __lsan_default_options()
{
    return "print_suppressions=0";
}

const char* __lsan_default_suppressions()
{
    return kLeaks;
}

const char* __tsan_default_suppressions()
{
    return kThreads;
}
