#include "controls/SectionRows.h"

#include <algorithm>

namespace Pellux {
namespace {

/// Finds a row that has no section yet and of which something holds; the end without one.
template <typename Holds>
std::vector<int>::iterator findFree(std::vector<int>& numbers, const Holds& holds)
{
    for (std::size_t row = 0; row < numbers.size(); ++row)
        if (numbers[row] == 0 && holds(row))
            return numbers.begin() + static_cast<std::ptrdiff_t>(row);
    return numbers.end();
}

} // namespace

std::vector<int> NumbersOfRows(const std::vector<SectionRow>& rows,
                               const std::vector<SectionPlane>& present)
{
    std::vector<int> numbers(rows.size(), 0);
    std::vector<int> rest;
    // 1. What is where it was, under the same number or another.
    for (int number = 1; number <= static_cast<int>(present.size()); ++number) {
        const SectionPlane& plane = present[static_cast<std::size_t>(number - 1)];
        const auto isOn = [&](std::size_t row) {
            return rows[row].number > 0 && rows[row].plane == plane;
        };
        auto found = findFree(
            numbers, [&](std::size_t row) { return isOn(row) && rows[row].number == number; });
        if (found == numbers.end())
            found = findFree(numbers, isOn);
        if (found == numbers.end())
            rest.push_back(number);
        else
            *found = number;
    }
    // 2. What was moved keeps its number; what is new takes the first row that is off.
    for (const int number : rest) {
        auto found = findFree(numbers, [&](std::size_t row) { return rows[row].number == number; });
        if (found == numbers.end())
            found = findFree(numbers, [&](std::size_t row) { return rows[row].number == 0; });
        if (found == numbers.end())
            found = findFree(numbers, [](std::size_t) { return true; });
        if (found != numbers.end())
            *found = number;
    }
    return numbers;
}

} // namespace Pellux
