#ifndef ORVIKMESH_TESTS_PROCESSMEMORY_H
#define ORVIKMESH_TESTS_PROCESSMEMORY_H

#include <cstddef>
#include <fstream>
#include <string>

/// What reading a file of that size may take, in bytes.
inline std::size_t MemoryAllowedFor(std::size_t fileBytes)
{
    return (std::size_t{64} << 20) + 40 * fileBytes;
}

/// @return a line of the process's state, in bytes; 0 where the system has none.
inline std::size_t ProcessBytes(const std::string& name)
{
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);)
        if (line.compare(0, name.size() + 1, name + ":") == 0)
            return std::stoull(line.substr(name.size() + 1)) * 1024;
    return 0;
}

inline std::size_t PresentMemory()
{
    return ProcessBytes("VmRSS");
}

inline std::size_t PeakMemory()
{
    return ProcessBytes("VmHWM");
}

/// Makes the greatest memory so far the present one. @return false where the system cannot.
inline bool ResetPeakMemory()
{
    std::ofstream file("/proc/self/clear_refs");
    file << "5";
    file.flush();
    return file.good();
}

#endif
