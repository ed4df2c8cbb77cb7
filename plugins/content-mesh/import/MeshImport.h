#ifndef ORVIKMESH_IMPORT_MESHIMPORT_H
#define ORVIKMESH_IMPORT_MESHIMPORT_H

#include <cstddef>
#include <cstdint>

// The door of OrvikMeshImport.dll, the library that reads the long tail of formats. It is loaded on
// first use; only plain types go through. Texts are UTF-8 and end with a zero.

namespace OrvikMesh {

/// A mesh; its arrays live until the call that hands it over returns. Nothing in it is checked.
struct ImportedMesh
{
    const char* name = nullptr; ///< Never null.
    std::size_t vertexCount = 0;
    const float* positions = nullptr;       ///< Three per vertex.
    const float* normals = nullptr;         ///< Three per vertex; null without.
    const std::uint8_t* colors = nullptr;   ///< Red, green, blue, alpha per vertex; null without.
    const std::uint32_t* corners = nullptr; ///< Vertex indices, `arity` for each piece.
    std::size_t cornerCount = 0;
    std::uint32_t arity = 3; ///< 3 for triangles, 2 for segments, 1 for points.
    bool hasColor = false;
    std::uint8_t color[4] = {0, 0, 0, 255}; ///< Red, green, blue, alpha of the material.
};

/// A node. A parent comes before its children, the top first.
struct ImportedNode
{
    static constexpr std::uint32_t kNoParent = 0xFFFFFFFFu;

    const char* name = nullptr;            ///< Never null.
    std::uint32_t parent = kNoParent;      ///< Number of an earlier node, from 0.
    double matrix[16] = {0.0};             ///< Column-major.
    const std::uint32_t* meshes = nullptr; ///< Numbers of meshes, from 0.
    std::size_t meshCount = 0;
};

/// Who takes what is read. All calls come on the thread that called ReadMeshFile, none of them may
/// throw; false ends the reading.
struct ImportSink
{
    void* context = nullptr;                   ///< Handed to each call; not owned.
    bool (*isWanted)(void* context) = nullptr; ///< False once the reading was cancelled.
    void (*progress)(void* context, double share) = nullptr;
    bool (*addMesh)(void* context, const ImportedMesh* mesh) = nullptr; ///< All before the nodes.
    bool (*addNode)(void* context, const ImportedNode* node) = nullptr;
};

/// Reads a file and hands its meshes and nodes to the sink.
///
/// @param extension  Of the format, in lower case, without the dot.
/// @param error      receives the reason, cut off at @p errorSize with its zero.
/// @return false when the file could not be read or the sink wanted no more.
using ReadMeshFileFn = bool (*)(const char* path, const char* extension, const ImportSink* sink,
                                char* error, std::size_t errorSize);

inline constexpr char kReadMeshFileSymbol[] = "ReadMeshFile";
inline constexpr wchar_t kImportLibrary[] = L"OrvikMeshImport.dll";

} // namespace OrvikMesh

#endif
