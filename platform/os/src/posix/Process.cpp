#include <OrvikOs/Process.h>

#include <charconv>
#include <cstddef>
#include <fstream>
#include <string>

namespace OrvikOs {

namespace {

/// Where proc_pid_stat(5) has the start time, counted behind the name: the state is the first.
constexpr int kStartTimeField = 20;

} // namespace

std::optional<std::uint64_t> ProcessStartTime(std::uint32_t processId)
{
    std::ifstream file("/proc/" + std::to_string(processId) + "/stat");
    std::string line;
    if (!std::getline(file, line)) {
        return std::nullopt;
    }
    // The name stands in parentheses and may hold blanks and parentheses itself.
    std::size_t at = line.rfind(')');
    for (int field = 0; at != std::string::npos && field < kStartTimeField; ++field) {
        at = line.find(' ', at + 1);
    }
    // A process that has ended and was not waited for is none.
    const std::size_t state = line.rfind(')') + 2;
    if (at == std::string::npos || line[state] == 'Z' || line[state] == 'X') {
        return std::nullopt;
    }
    std::uint64_t ticks = 0;
    const char* const begin = line.data() + at + 1;
    if (std::from_chars(begin, line.data() + line.size(), ticks).ptr == begin) {
        return std::nullopt;
    }
    return ticks;
}

} // namespace OrvikOs
