// Linked into every program of a build with sanitizers: what they are told, and which modules that
// are not ours they pass over. Reports of our own code stay.

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
                          "leak:libguile-3.0\n"
                          "leak:objectFor\n"
                          "leak:libTK\n";

/// Not built with the thread sanitizer: it sees the calls that they make to the C library, and not
/// the atomics by which their threads agree on them.
constexpr char kThreads[] = "called_from_lib:libembree3.so\n"
                            "called_from_lib:libtbb.so\n"
                            "race:swrast_dri.so\n";

} // namespace

#define ORVIK_VISIBLE extern "C" __attribute__((visibility("default")))

ORVIK_VISIBLE const char* __asan_default_options();
ORVIK_VISIBLE const char* __tsan_default_options();
ORVIK_VISIBLE const char* __lsan_default_options();
ORVIK_VISIBLE const char* __lsan_default_suppressions();
ORVIK_VISIBLE const char* __tsan_default_suppressions();

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
