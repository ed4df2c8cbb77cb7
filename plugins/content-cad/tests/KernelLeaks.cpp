// Linked into every test program that runs Open CASCADE.

/// Tells the leak checker to pass over what the kernel's own libraries never free: buffers of its
/// IGES reader, and entities that it drops half read. Leaks of ours are still reported.
extern "C" __attribute__((visibility("default"))) const char* __lsan_default_suppressions();

extern "C" const char* __lsan_default_suppressions()
{
    return "leak:libTK";
}
