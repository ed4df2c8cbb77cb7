#ifndef ORVIKMESH_READERS_LZF_H
#define ORVIKMESH_READERS_LZF_H

#include <cstddef>

namespace OrvikMesh {

/// How far UnpackLzf() has come; all memory is owned by the caller.
struct LzfState
{
    const std::byte* at = nullptr;  ///< Next packed byte.
    const std::byte* end = nullptr; ///< End of the packed bytes.
    std::byte* begin = nullptr;     ///< Of the room for the unpacked bytes.
    std::byte* to = nullptr;        ///< Where the next unpacked byte goes.
    std::byte* limit = nullptr;     ///< End of the room.
};

enum class LzfStop
{
    Done,    ///< All packed bytes are used up.
    Paused,  ///< At least the asked number of bytes has been unpacked.
    Damaged, ///< A run beyond the end, a copy from before the beginning, or no room for it.
};

/// Unpacks until about @p pause bytes are there, so that the caller can ask whether to stop.
///
/// The first three bits of a control byte tell a run of plain bytes (0) from a copy: of the bits'
/// value plus 2 bytes, or with 7 of the next byte plus 9; the other five bits and a further byte
/// are the distance minus 1. Owns nothing and calls nothing that does.
LzfStop UnpackLzf(LzfState& state, std::size_t pause);

} // namespace OrvikMesh

#endif
