#include "import/ModelSink.h"

#include "import/ImportTexts.h"
#include "import/ImportedShape.h"

#include <OrvikOs/Utf8.h>
#include <TambVizCore/Matrix.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <memory>
#include <utility>

namespace OrvikMesh {

using OrvikModel::ModelNode;

namespace {

/// A node takes some hundred bytes; a file may name its meshes again and again.
constexpr std::size_t kMaxNodes = 2000000;

const wchar_t* wordFor(std::uint32_t arity)
{
    return arity == 3 ? L"triangles" : arity == 2 ? L"segments" : L"points";
}

/// @return the name of a node: the library puts names that it makes up into angle brackets.
std::wstring nodeName(const char* given, const std::wstring& path, std::size_t number)
{
    std::wstring name = OrvikOs::Utf8ToWide(given);
    const bool isMadeUp = name.empty() || name.front() == L'<';
    if (!isMadeUp)
        return name;
    if (number > 0)
        return L"Node " + std::to_wstring(number);
    const std::size_t folderEnd = path.find_last_of(L"/\\") + 1;
    return path.substr(folderEnd, path.rfind(L'.') - folderEnd);
}

} // namespace

template <class Work> bool ModelSink::guarded(const Work& work)
{
    try {
        PollCancel(m_options);
        return work();
    } catch (...) {
        m_kept = std::current_exception();
        return false;
    }
}

ImportSink ModelSink::Functions()
{
    ImportSink sink;
    sink.context = this;
    sink.isWanted = [](void* context) {
        return static_cast<ModelSink*>(context)->guarded([] { return true; });
    };
    sink.progress = [](void* context, double share) {
        auto* self = static_cast<ModelSink*>(context);
        self->guarded([&] {
            ReportProgress(self->m_options, share);
            return true;
        });
    };
    sink.addMesh = [](void* context, const ImportedMesh* mesh) {
        auto* self = static_cast<ModelSink*>(context);
        return self->guarded([&] { return self->addMesh(*mesh); });
    };
    sink.addNode = [](void* context, const ImportedNode* node) {
        auto* self = static_cast<ModelSink*>(context);
        return self->guarded([&] { return self->addNode(*node); });
    };
    return sink;
}

bool ModelSink::addMesh(const ImportedMesh& mesh)
{
    MeshPiece piece;
    piece.name = OrvikOs::Utf8ToWide(mesh.name);
    ShapeArrays arrays;
    std::size_t leftOut = 0;
    if (CopyImportedMesh(mesh, arrays, leftOut)) {
        piece.shape = m_make(std::move(arrays));
        piece.kind = KindOf(*piece.shape);
        if (mesh.hasColor && !mesh.colors)
            piece.color =
                TambVizCore::RGBAColor(mesh.color[0], mesh.color[1], mesh.color[2], mesh.color[3]);
    }
    if (leftOut > 0)
        m_warnings.Warn(FillText(kImportBadPieces,
                                 {std::to_wstring(m_pieces.size()),
                                  piece.name.empty() ? L"" : L" \"" + ShortName(piece.name) + L"\"",
                                  wordFor(mesh.arity), std::to_wstring(leftOut)}));
    m_pieces.push_back(std::move(piece));
    return true;
}

bool ModelSink::addNode(const ImportedNode& imported)
{
    auto owned = std::make_unique<ModelNode>();
    ModelNode& node = *owned;
    node.name = nodeName(imported.name, m_path, m_nodes.size());
    placeNode(imported, node);
    std::vector<MeshPiece> pieces;
    for (std::size_t i = 0; i < imported.meshCount; ++i)
        if (imported.meshes[i] < m_pieces.size() && m_pieces[imported.meshes[i]].shape)
            pieces.push_back(m_pieces[imported.meshes[i]]);
    m_nodeCount += 1 + pieces.size();
    if (m_nodeCount > kMaxNodes) {
        m_messages.Fail(FillText(kImportTooManyNodes, {std::to_wstring(kMaxNodes)}));
        return false;
    }
    m_shapeCount += pieces.size();
    if (imported.parent < m_nodes.size())
        m_nodes[imported.parent]->children.push_back(std::move(owned));
    else
        m_model.nodes.push_back(std::move(owned));
    m_nodes.push_back(&node);
    m_shown.push_back(std::move(pieces));
    return true;
}

void ModelSink::placeNode(const ImportedNode& imported, ModelNode& node)
{
    const double* matrix = imported.matrix;
    if (TambVizCore::IsIdentity(matrix))
        return;
    const bool isUsable =
        std::all_of(matrix, matrix + 16,
                    [](double number) {
                        return std::fabs(number) <= double{std::numeric_limits<float>::max()};
                    }) &&
        matrix[3] == 0.0 && matrix[7] == 0.0 && matrix[11] == 0.0 && matrix[15] == 1.0;
    if (isUsable)
        node.transform.emplace(matrix, matrix + 16);
    else
        m_warnings.Warn(FillText(kImportBadTransform, {ShortName(node.name)}));
}

/// The top node that the library makes up itself only groups the others.
void ModelSink::dropPlainRoot()
{
    if (m_model.nodes.size() != 1)
        return;
    ModelNode& root = *m_model.nodes.front();
    if (root.shape || root.transform || root.children.empty() || !m_shown.front().empty())
        return;
    std::vector<std::unique_ptr<ModelNode>> children = std::move(root.children);
    m_model.nodes = std::move(children);
}

bool ModelSink::Finish()
{
    for (std::size_t i = 0; i < m_nodes.size(); ++i)
        ShowPieces(m_shown[i], !m_nodes[i]->children.empty(), *m_nodes[i]);
    dropPlainRoot();
    m_warnings.Finish();
    if (m_shapeCount == 0) {
        m_messages.Fail(kImportNoGeometry);
        return false;
    }
    m_model.NumberNodes();
    return true;
}

} // namespace OrvikMesh
