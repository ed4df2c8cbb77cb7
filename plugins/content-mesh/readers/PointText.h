#ifndef ORVIKMESH_READERS_POINTTEXT_H
#define ORVIKMESH_READERS_POINTTEXT_H

#include "readers/MeshArray.h"
#include "readers/ReadMessages.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace OrvikMesh {

/// The most numbers of a line that are read; what follows is passed over.
inline constexpr std::size_t kMaxPointColumns = 10;

/// The numbers of some whole lines of a text of points.
struct PointRows
{
    MeshArray<float> values; ///< As many per row as there are columns; NaN where one is missing.
    std::optional<std::uint64_t> announced; ///< The sum of the lines with one whole number.
    Occurrences junkLines;                  ///< Offsets from the start of the lines.
};

/// How a line with one number alone is taken.
enum class LoneNumbers
{
    AreCounts,
    AreJunk,
};

/// Reads lines. Comments and empty lines are passed over; a line with fewer than three numbers is
/// junk.
void ReadPointRows(std::string_view lines, std::size_t columns, LoneNumbers loneNumbers,
                   PointRows& rows);

/// @return the numbers in the first line with at least three; 0 when there is none in sight.
std::size_t CountPointColumns(std::string_view text);

/// @return how many bytes of the text are a heading or a count before the first point.
///
/// @param announced  Receives the count, where there is one.
std::size_t SkipPointHeading(std::string_view text, std::optional<std::uint64_t>& announced);

/// The columns of a row; 0 for those that are not there.
struct PointColumns
{
    std::size_t normal = 0;
    std::size_t color = 0;
};

/// Finds out what the columns after z are.
///
/// @param values  Rows of @p columns numbers each.
PointColumns FindPointColumns(const float* values, std::size_t rows, std::size_t columns);

} // namespace OrvikMesh

#endif
