#ifndef ORVIKMESH_GLTF_GLTFMESSAGES_H
#define ORVIKMESH_GLTF_GLTFMESSAGES_H

#include "readers/ReadMessages.h"

#include <cstddef>
#include <string>

namespace OrvikMesh {

/// Hands on the first warnings of one kind and counts the rest. One thread.
class WarningLimit
{
public:
    /// @param messages  Outlives this.
    explicit WarningLimit(ReadMessages& messages);

    void Warn(const std::wstring& reason);

    /// Tells how many were not handed on.
    void Finish();

private:
    ReadMessages& m_messages;
    std::size_t m_count = 0;
};

/// @return a name from a file as it stands in a message: cut off where it is very long.
std::wstring ShortName(const std::wstring& name);

} // namespace OrvikMesh

#endif
