#include "TambCommandsInfra/NearestName.h"

#include "AsciiText.h"

#include <algorithm>
#include <cstddef>

namespace TambCommandsInfra {

namespace {

/// Fewest changes that make one text of the other: insert, delete, replace a character, or exchange
/// two neighbours (each character being changed at most once).
std::size_t editDistance(const std::string& from, const std::string& to)
{
    std::vector<std::size_t> beforeLast(to.size() + 1);
    std::vector<std::size_t> last(to.size() + 1);
    std::vector<std::size_t> row(to.size() + 1);
    for (std::size_t column = 0; column <= to.size(); ++column) {
        row[column] = column;
    }
    for (std::size_t line = 1; line <= from.size(); ++line) {
        beforeLast.swap(last);
        last.swap(row);
        row[0] = line;
        for (std::size_t column = 1; column <= to.size(); ++column) {
            const bool same = from[line - 1] == to[column - 1];
            row[column] = std::min(
                {last[column] + 1, row[column - 1] + 1, last[column - 1] + (same ? 0u : 1u)});
            if (line > 1 && column > 1 && from[line - 1] == to[column - 2] &&
                from[line - 2] == to[column - 1]) {
                row[column] = std::min(row[column], beforeLast[column - 2] + 1);
            }
        }
    }
    return row[to.size()];
}

} // namespace

std::string FindNearestName(std::string_view name, const std::vector<std::string>& names)
{
    const std::string wanted = ToLowerAscii(name);
    std::size_t best = std::max<std::size_t>(2, name.size() / 3) + 1;
    std::string nearest;
    for (const std::string& candidate : names) {
        const std::size_t distance = editDistance(wanted, ToLowerAscii(candidate));
        if (distance < best || (distance == best && !nearest.empty() && candidate < nearest)) {
            best = distance;
            nearest = candidate;
        }
    }
    return nearest;
}

} // namespace TambCommandsInfra
