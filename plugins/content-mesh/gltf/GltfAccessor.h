#ifndef ORVIKMESH_GLTF_GLTFACCESSOR_H
#define ORVIKMESH_GLTF_GLTFACCESSOR_H

#include "gltf/GltfFile.h"
#include "readers/MeshArray.h"

#include <cstddef>
#include <cstdint>
#include <string>

namespace OrvikMesh {

/// The types of a component, by the numbers that stand in files.
enum class GltfComponent : std::uint16_t
{
    Byte = 5120,
    UnsignedByte = 5121,
    Short = 5122,
    UnsignedShort = 5123,
    UnsignedInt = 5125,
    Float = 5126,
};

/// @return the bytes of one component.
std::size_t SizeOf(GltfComponent component);

/// A run of numbers in a buffer; all of it lies inside the buffer.
struct GltfRun
{
    const std::byte* first = nullptr; ///< Not owned; null stands for zeros.
    std::size_t stride = 0;           ///< Bytes from one element to the next.
    std::size_t count = 0;            ///< Elements; at most 2^32 - 2.
    GltfComponent component = GltfComponent::Float;
};

/// An accessor whose numbers have been found. Any alignment.
struct GltfAccessor
{
    std::uint64_t index = 0; ///< In the file's list.
    GltfRun values;
    std::size_t components = 1; ///< Per element.
    bool isNormalized = false;
    /// Elements that replace others: their numbers and values; none when the count is 0.
    GltfRun sparseIndices;
    GltfRun sparseValues;
};

/// @return true when the numbers are whole ones without sign.
bool AreIndices(const GltfRun& run);

/// Finds the numbers of an accessor.
///
/// @return false with a reason when they do not lie inside their buffer, or are of no known type.
bool FindAccessor(GltfFile& file, std::uint64_t index, GltfAccessor& accessor,
                  std::wstring& reason);

/// Reads single whole numbers without sign, that is indices.
///
/// @return false with a reason when the accessor holds something else.
/// @throws std::bad_alloc
bool ReadWholeNumbers(GltfFile& file, const GltfAccessor& accessor,
                      MeshArray<std::uint32_t>& numbers, std::wstring& reason);

/// Reads all elements of an accessor as numbers; normalised whole numbers become -1 to 1 or 0 to 1.
/// All components of an element are read.
/// @throws std::bad_alloc
void ReadElements(GltfFile& file, const GltfAccessor& accessor, MeshArray<float>& numbers);

/// Reads some elements of an accessor, in the order of their indices, which must be in range.
/// @throws std::bad_alloc
void ReadElements(GltfFile& file, const GltfAccessor& accessor,
                  const MeshArray<std::uint32_t>& indices, MeshArray<float>& numbers);

} // namespace OrvikMesh

#endif
