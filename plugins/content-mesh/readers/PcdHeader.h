#ifndef ORVIKMESH_READERS_PCDHEADER_H
#define ORVIKMESH_READERS_PCDHEADER_H

#include "readers/ReadMessages.h"
#include "readers/ScalarKernel.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace OrvikMesh {

enum class PcdFormat
{
    Text,
    Binary,
    Compressed,
};

struct PcdField
{
    std::string name;
    /// None for integers of eight bytes, which nothing here needs.
    std::optional<ScalarType> type = ScalarType::Float32;
    std::uint64_t bytes = 4;       ///< Of one value: 1, 2, 4 or 8.
    std::uint64_t count = 1;       ///< Values of one point.
    std::uint64_t offset = 0;      ///< In a row of a binary file, in bytes.
    std::uint64_t firstColumn = 0; ///< In a line of a text.
};

struct PcdHeader
{
    PcdFormat format = PcdFormat::Text;
    std::vector<PcdField> fields;
    std::uint64_t points = 0;
    std::uint64_t height = 1;   ///< More than 1: the points are those of an image.
    std::uint64_t rowBytes = 0; ///< Of a point in a binary file.
    std::size_t end = 0;        ///< Where the data begin.

    /// @return the field with that name and one value; null when there is none.
    const PcdField* Find(std::string_view name) const;
};

/// Reads the header of a PCD file.
///
/// @return false with an error when it is no PCD file, a line of the header is missing or does not
///         fit the others, or x, y or z is missing.
bool ReadPcdHeader(std::string_view content, PcdHeader& header, ReadMessages& messages);

} // namespace OrvikMesh

#endif
