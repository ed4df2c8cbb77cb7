#ifndef ORVIKMESH_CONTENT_MESHSAVER_H
#define ORVIKMESH_CONTENT_MESHSAVER_H

#include "OrvikCore/AContentSaver.h"

#include <string>

namespace OrvikMesh {

/// Writes what is drawn of a content to STL, OBJ, PLY and OFF files: the triangles of meshes and,
/// as they are at that moment, of solids, and point clouds where the format holds points.
///
/// Takes every content that tells its shapes (OrvikCore::IEntityProperties), whatever plugin read
/// it; bodies are written where they stand in the world. Files are replaced in one step, or left as
/// they were. Errors and warnings are those of the writers; a further warning counts what has
/// neither triangles nor points: "<file>: the format holds no lines; wires left out: <n>".
///
/// @thread  Worker; looks at the cancel token and reports progress.
class MeshSaver final : public OrvikCore::AContentSaver
{
public:
    MeshSaver();
    ~MeshSaver() override;

private:
    bool save(const std::wstring& fileName, OrvikCore::AContent* content) override;
    bool canSave(OrvikCore::AContent* content, const std::wstring& extension) override;
};

} // namespace OrvikMesh

#endif
