#ifndef ORVIKMESH_IMPORT_MODELSINK_H
#define ORVIKMESH_IMPORT_MODELSINK_H

#include "gltf/GltfMessages.h"
#include "gltf/ModelPieces.h"
#include "gltf/ShapeArrays.h"
#include "import/MeshImport.h"
#include "readers/MeshReader.h"

#include <OrvikModel/Model.h>

#include <cstddef>
#include <exception>
#include <string>
#include <vector>

namespace OrvikMesh {

/// Takes meshes and nodes and builds the model from them. What goes wrong is kept until the library
/// has returned, because nothing may be thrown through it.
class ModelSink
{
public:
    ModelSink(const std::wstring& path, const ReadOptions& options, const ShapeMaker& make,
              OrvikModel::Model& model, ReadMessages& messages)
        : m_path(path),
          m_options(options),
          m_make(make),
          m_model(model),
          m_messages(messages),
          m_warnings(messages)
    {
    }

    /// @return what the library calls; not owned, valid while this is.
    ImportSink Functions();

    /// Throws what was kept.
    void Rethrow() const
    {
        if (m_kept)
            std::rethrow_exception(m_kept);
    }

    /// Ends the model. @return false with an error in the messages.
    bool Finish();

private:
    template <class Work> bool guarded(const Work& work);
    bool addMesh(const ImportedMesh& mesh);
    bool addNode(const ImportedNode& imported);
    void placeNode(const ImportedNode& imported, OrvikModel::ModelNode& node);
    void dropPlainRoot();

    const std::wstring& m_path;
    const ReadOptions& m_options;
    const ShapeMaker& m_make;
    OrvikModel::Model& m_model;
    ReadMessages& m_messages;
    WarningLimit m_warnings;
    std::vector<MeshPiece> m_pieces; ///< Per mesh; without a shape where nothing is left.
    std::vector<OrvikModel::ModelNode*> m_nodes; ///< In the order of their numbers; not owned.
    std::vector<std::vector<MeshPiece>> m_shown; ///< Per node: its pieces.
    std::size_t m_nodeCount = 0;                 ///< With the bodies below nodes.
    std::size_t m_shapeCount = 0;
    std::exception_ptr m_kept;
};

} // namespace OrvikMesh

#endif
