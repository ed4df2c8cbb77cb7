#include "import/ImportReader.h"

#include "gltf/GltfMessages.h"
#include "gltf/ModelPieces.h"
#include "import/ImportTexts.h"
#include "import/ImportedShape.h"
#include "import/MeshImport.h"
#include "readers/ReaderTexts.h"

#include <OrvikOs/FaultScope.h>
#include <OrvikOs/Library.h>
#include <OrvikOs/MemoryMappedFile.h>
#include <OrvikOs/Utf8.h>
#include <TambVizCore/Matrix.h>

#include <algorithm>
#include <cmath>
#include <exception>
#include <limits>
#include <utility>
#include <vector>

namespace OrvikMesh {

using OrvikModel::Model;
using OrvikModel::ModelNode;

namespace {

/// Formats whose files the library reads well. Those with readers of their own are not among them,
/// nor those of solids or of motion alone, nor those whose damaged files make it run for ever
/// (OGEX, SMD) or most of a minute (B3D), or fault often (ASE).
constexpr ImportFormat kFormats[] = {
    {L"3DS", L"3D Studio"},
    {L"3MF", L"3D Manufacturing Format"},
    {L"AC", L"AC3D"},
    {L"AMF", L"Additive Manufacturing File"},
    {L"DAE", L"COLLADA"},
    {L"DXF", L"Drawing Exchange"},
    {L"FBX", L"Autodesk FBX"},
    {L"LWO", L"LightWave"},
    {L"NFF", L"Neutral File Format"},
    {L"X", L"Direct3D X"},
    {L"X3D", L"Extensible 3D"},
    {L"XGL", L"XGL"},
};

/// A node takes some hundred bytes; a file may name its meshes again and again.
constexpr std::size_t kMaxNodes = 2000000;
constexpr std::size_t kErrorBytes = 1000;

const wchar_t* wordFor(std::uint32_t arity)
{
    return arity == 3 ? L"triangles" : arity == 2 ? L"segments" : L"points";
}

std::string lowerExtension(const std::wstring& path)
{
    std::string extension = OrvikOs::WideToUtf8(path.substr(path.rfind(L'.') + 1));
    for (char& character : extension)
        if (character >= 'A' && character <= 'Z')
            character = static_cast<char>(character - 'A' + 'a');
    return extension;
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

/// Takes meshes and nodes and builds the model from them. What goes wrong is kept until the library
/// has returned, because nothing may be thrown through it.
class ModelSink
{
public:
    ModelSink(const std::wstring& path, const ReadOptions& options, const ShapeMaker& make,
              Model& model, ReadMessages& messages)
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
    void placeNode(const ImportedNode& imported, ModelNode& node);
    void dropPlainRoot();

    const std::wstring& m_path;
    const ReadOptions& m_options;
    const ShapeMaker& m_make;
    Model& m_model;
    ReadMessages& m_messages;
    WarningLimit m_warnings;
    std::vector<MeshPiece> m_pieces; ///< Per mesh; without a shape where nothing is left.
    std::vector<ModelNode*> m_nodes; ///< In the order of their numbers; not owned.
    std::vector<std::vector<MeshPiece>> m_shown; ///< Per node: its pieces.
    std::size_t m_nodeCount = 0;                 ///< With the bodies below nodes.
    std::size_t m_shapeCount = 0;
    std::exception_ptr m_kept;
};

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

/// @return the library's function; null with an error in the messages.
ReadMeshFileFn loadReader(const std::wstring& name, ReadMessages& messages)
{
    OrvikOs::Library library;
    if (!library.Load(name)) {
        messages.Fail(FillText(kImportNoLibrary, {name, library.ErrorText()}));
        return nullptr;
    }
    const auto read = reinterpret_cast<ReadMeshFileFn>(library.Symbol(kReadMeshFileSymbol));
    if (!read) {
        messages.Fail(FillText(kImportNoSymbol, {name}));
        return nullptr;
    }
    library.Detach(); // It stays for the life of the process.
    return read;
}

bool isReadable(const std::wstring& path, ReadMessages& messages)
{
    OrvikOs::MemoryMappedFile file;
    if (!file.Open(path))
        messages.Fail(file.ErrorText());
    else if (file.Size() == 0)
        messages.Fail(kEmptyFile);
    else if (file.Size() > kMaxImportBytes)
        messages.Fail(FillText(kImportTooLarge,
                               {std::to_wstring(file.Size()), std::to_wstring(kMaxImportBytes)}));
    return !messages.HasError();
}

bool readWith(ReadMeshFileFn read, const std::wstring& path, ModelSink& sink,
              ReadMessages& messages)
{
    const ImportSink functions = sink.Functions();
    std::vector<char> error(kErrorBytes, '\0');
    const bool isRead = read(OrvikOs::WideToUtf8(path).c_str(), lowerExtension(path).c_str(),
                             &functions, error.data(), error.size());
    sink.Rethrow();
    if (isRead)
        return sink.Finish();
    messages.Fail(FillText(kImportFailed, {OrvikOs::Utf8ToWide(error.data())}));
    return false;
}

} // namespace

std::span<const ImportFormat> ImportFormats()
{
    return kFormats;
}

bool IsImportFormat(std::wstring_view extension)
{
    return std::any_of(std::begin(kFormats), std::end(kFormats),
                       [&](const ImportFormat& format) { return format.extension == extension; });
}

bool ReadImported(const std::wstring& path, const ReadOptions& options, const ShapeMaker& make,
                  Model& model, ReadMessages& messages, const std::wstring& library)
{
    return isReadable(path, messages) &&
           ReadGuarded(
               [&] {
                   const ReadMeshFileFn read = loadReader(library, messages);
                   ModelSink sink(path, options, make, model, messages);
                   return read && readWith(read, path, sink, messages);
               },
               messages);
}

bool ReadImported(const std::wstring& path, const ReadOptions& options, const ShapeMaker& make,
                  Model& model, ReadMessages& messages)
{
    return ReadImported(path, options, make, model, messages, kImportLibrary);
}

} // namespace OrvikMesh
