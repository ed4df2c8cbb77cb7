#ifndef ORVIKMESH_CONTENT_MESHLOADER_H
#define ORVIKMESH_CONTENT_MESHLOADER_H

#include "OrvikCore/AContentLoader.h"

#include <OrvikModel/Model.h>

#include <cstdint>
#include <memory>
#include <string>

namespace OrvikMesh {

/// The name under which the renderer factories for meshes are registered.
inline constexpr char kMeshTypeName[] = "Mesh";

/// Reads meshes and point clouds into a document, as loader or as importer: the formats that have a
/// reader, glTF, and the long tail through OrvikMeshImport.dll.
///
/// The file is read on the calling thread; only adding the content crosses the call gate. The
/// running job can cancel it. What goes wrong is told by GetErrorMessage() and
/// GetWarningMessages(), each with the file and, where there is one, the byte or line.
///
/// With a host that is not in batch mode, faces, edges, vertices and the spatial index of all
/// bodies are made before the content is added, so that the window's first hover finds them.
///
/// Nothing can be loaded while only the product structure is wanted (OrvikCore::LoadModes): most of
/// these formats have none, and that of the others comes with the shapes.
///
/// @thread  As AContentLoader.
class MeshLoader final : public OrvikCore::AContentLoader
{
public:
    enum class Mode
    {
        Load,
        Import,
    };

    explicit MeshLoader(Mode mode);
    ~MeshLoader() override;

private:
    bool canLoad(const std::wstring& extension) const override;
    void load(const std::wstring& fileName, OrvikCore::Document& document) override;

    std::shared_ptr<OrvikModel::Model> readModel(const std::wstring& fileName);
};

/// Triangles up to which faces, edges and vertices are made while loading, so that edges are drawn
/// from the start: some twenty milliseconds. Those of larger files are made when something asks.
inline constexpr std::uint32_t kEagerPartTriangles = 200000;

} // namespace OrvikMesh

#endif
