#include "readers/PointText.h"

#include "readers/LineScan.h"

#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <limits>

namespace OrvikMesh {

namespace {

/// The largest deviation of a normal's length from 1: three decimals are common.
constexpr float kLengthTolerance = 0.02f;
constexpr std::int64_t kMaxCount = std::numeric_limits<std::int64_t>::max() / 16;

/// What a line holds.
struct Row
{
    float numbers[kMaxPointColumns];
    std::size_t count = 0;
    bool isClean = true; ///< Nothing but numbers, separators and a comment.
};

bool atComment(const char* at, const char* end)
{
    return at < end && (*at == '#' || (*at == '/' && at + 1 < end && at[1] == '/'));
}

/// Skips blanks and at most one comma or semicolon among them.
const char* skipSeparator(const char* at, const char* end)
{
    at = SkipBlanks(at, end);
    if (at < end && (*at == ',' || *at == ';'))
        at = SkipBlanks(at + 1, end);
    return at;
}

/// Reads the line at @p at. @return where the next begins.
const char* readRow(const char* at, const char* end, Row& row)
{
    row.count = 0;
    at = SkipBlanks(at, end);
    while (row.count < kMaxPointColumns) {
        const char* next = ScanFloat(at, end, row.numbers[row.count]);
        if (!next)
            break;
        ++row.count;
        at = skipSeparator(next, end);
    }
    row.isClean = row.count == kMaxPointColumns || AtLineEnd(at, end) || atComment(at, end);
    return NextLine(at, end);
}

/// Goes to the next line that is neither empty nor a comment.
const char* skipToPoint(const char* at, const char* end)
{
    for (;;) {
        at = SkipToRow(at, end, '#');
        if (!atComment(at, end))
            return at;
        at = NextLine(at, end);
    }
}

/// Whether a line holds one whole number and nothing else.
bool isCount(const char* line, const char* end, std::uint64_t& count)
{
    std::int64_t value = 0;
    const char* next = ScanDigits(line, end, kMaxCount, value);
    if (next == line)
        return false;
    next = SkipBlanks(next, end);
    count = static_cast<std::uint64_t>(value);
    return AtLineEnd(next, end) || atComment(next, end);
}

template <class Test>
bool holdForAll(const float* values, std::size_t rows, std::size_t columns, std::size_t first,
                const Test& test)
{
    for (std::size_t i = 0; i < rows; ++i)
        if (!test(values + i * columns + first))
            return false;
    return true;
}

bool isUnit(const float* vector)
{
    const float length =
        std::sqrt(vector[0] * vector[0] + vector[1] * vector[1] + vector[2] * vector[2]);
    return std::fabs(length - 1.0f) < kLengthTolerance;
}

bool isColor(const float* color)
{
    const auto isByte = [](float value) {
        return value >= 0.0f && value <= 255.0f && std::floor(value) == value;
    };
    const auto isShare = [](float value) { return value >= 0.0f && value <= 1.0f; };
    return std::all_of(color, color + 3, isByte) || std::all_of(color, color + 3, isShare);
}

} // namespace

void ReadPointRows(std::string_view lines, std::size_t columns, LoneNumbers loneNumbers,
                   PointRows& rows)
{
    const char* at = lines.data();
    const char* const end = at + lines.size();
    Row row;
    while ((at = skipToPoint(at, end)) < end) {
        const char* line = at;
        at = readRow(at, end, row);
        if (row.count >= 3) {
            // What is not there and what is no number are the same.
            std::fill(row.numbers + row.count, row.numbers + kMaxPointColumns, std::nanf(""));
            const std::size_t first = rows.values.Size();
            if (first + columns > rows.values.Capacity())
                rows.values.Reserve(first * 2 + 1024);
            rows.values.Resize(first + columns);
            std::copy_n(row.numbers, columns, rows.values.Data() + first);
        }
        std::uint64_t count = 0;
        if (loneNumbers == LoneNumbers::AreCounts && row.count == 1 && isCount(line, end, count)) {
            rows.announced = rows.announced.value_or(0) + count;
        } else if (row.count < 3 || !row.isClean) {
            rows.junkLines.Add(static_cast<std::uint64_t>(line - lines.data()));
        }
    }
}

std::size_t CountPointColumns(std::string_view text)
{
    const char* at = text.data();
    const char* const end = at + text.size();
    Row row;
    while ((at = skipToPoint(at, end)) < end) {
        at = readRow(at, end, row);
        if (row.count >= 3)
            return row.count;
    }
    return 0;
}

std::size_t SkipPointHeading(std::string_view text, std::optional<std::uint64_t>& announced)
{
    const char* const end = text.data() + text.size();
    const char* at = skipToPoint(text.data(), end);
    if (at == end)
        return text.size();
    std::uint64_t count = 0;
    if (isCount(at, end, count)) {
        announced = count;
        return static_cast<std::size_t>(NextLine(at, end) - text.data());
    }
    Row row;
    const char* next = readRow(at, end, row);
    return row.count == 0 ? static_cast<std::size_t>(next - text.data()) : 0;
}

PointColumns FindPointColumns(const float* values, std::size_t rows, std::size_t columns)
{
    PointColumns found;
    for (const std::size_t first : {3u, 4u, 6u, 7u}) {
        if (first + 3 <= columns && holdForAll(values, rows, columns, first, isUnit)) {
            found.normal = first;
            break;
        }
    }
    // An intensity stands before the colour where there is one number more than needed.
    const bool hasIntensity = columns == 7 || columns == 10;
    for (const std::size_t first : {hasIntensity ? 4u : 3u, 3u, 6u, 7u}) {
        const bool isFree =
            found.normal == 0 || first + 3 <= found.normal || first >= found.normal + 3;
        if (first + 3 <= columns && isFree && holdForAll(values, rows, columns, first, isColor)) {
            found.color = first;
            break;
        }
    }
    return found;
}

} // namespace OrvikMesh
