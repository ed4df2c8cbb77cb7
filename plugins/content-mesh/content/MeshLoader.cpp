#include "content/MeshLoader.h"

#include "content/MeshBodies.h"
#include "content/ProgressPhase.h"
#include "content/ShapeOfArrays.h"
#include "gltf/GltfReader.h"
#include "import/ImportReader.h"
#include "readers/MeshFormats.h"

#include "OrvikCore/IApplication.h"
#include "OrvikCore/LoadModes.h"
#include "OrvikCore/SessionMgr.h"

#include <TambCommandsInfra/CancelToken.h>
#include <TambCommandsInfra/Progress.h>
#include <TambVizCore/Utils.h>

#include <OrvikModel/ModelContent.h>

#include <algorithm>
#include <set>
#include <utility>
#include <vector>

namespace OrvikMesh {

using OrvikCore::LoadMode;
using OrvikCore::LoadModes;
using OrvikModel::Model;
using OrvikModel::ModelNode;
using OrvikModel::ModelShape;
using OrvikModel::NodeKind;
using TambCommandsInfra::CancelToken;
using TambCommandsInfra::Progress;
using TambVizCore::Utils;

namespace {

constexpr wchar_t kPhase[] = L"Reading ";
constexpr const wchar_t* kGltfExtensions[] = {L"GLTF", L"GLB"};
constexpr wchar_t kNoReader[] = L"no reader for this kind of file";

bool isGltf(const std::wstring& extension)
{
    return std::find(std::begin(kGltfExtensions), std::end(kGltfExtensions), extension) !=
           std::end(kGltfExtensions);
}

std::wstring stemOf(const std::wstring& fileName)
{
    const std::wstring name = Utils::GetFileNameOnly(fileName);
    const std::size_t dot = name.rfind(L'.');
    return dot == std::wstring::npos || dot == 0 ? name : name.substr(0, dot);
}

/// Whether somebody may hover over the model as soon as it is shown.
bool hasWindow()
{
    const OrvikCore::IApplication* application = OrvikCore::SessionMgr::Instance().GetApplication();
    return application && !application->IsBatchMode();
}

/// Reads a format that has one list of bodies.
bool readBodies(const MeshFormat& format, const ReadOptions& options, Model& model,
                ReadMessages& messages)
{
    MeshData mesh;
    return format.read(model.path, options, mesh, messages) &&
           ReadGuarded(
               [&] {
                   model.nodes = MakeBodies(std::move(mesh), stemOf(model.path), messages);
                   model.NumberNodes();
                   return true;
               },
               messages);
}

/// Reads the nodes of the model by the extension of its path.
bool readNodes(const ReadOptions& options, Model& model, ReadMessages& messages)
{
    const std::wstring extension = Utils::ToUpperAscii(Utils::GetFileExtension(model.path));
    if (const MeshFormat* format = FindMeshFormat(extension))
        return readBodies(*format, options, model, messages);
    if (isGltf(extension))
        return ReadGltf(model.path, options, &MakeShape, model, messages);
    if (IsImportFormat(extension))
        return ReadImported(model.path, options, &MakeShape, model, messages);
    messages.Fail(kNoReader);
    return false;
}

/// Finds the different shapes below some nodes, and sets how large the points of clouds are drawn.
void collectShapes(const std::vector<std::unique_ptr<ModelNode>>& nodes,
                   std::set<const ModelShape*>& shapes)
{
    for (const auto& node : nodes) {
        if (node->shape)
            shapes.insert(node->shape.get());
        if (node->kind == NodeKind::PointCloud)
            node->pointSizePixels = CloudPointPixels(node->shape->Present()->PointCount());
        collectShapes(node->children, shapes);
    }
}

/// Makes what somebody may soon ask for.
void prepareShapes(Model& model)
{
    std::set<const ModelShape*> shapes;
    collectShapes(model.nodes, shapes);
    std::size_t triangles = 0;
    for (const ModelShape* shape : shapes)
        triangles += shape->Present()->TriangleCount();
    const bool isPicked = hasWindow();
    for (const ModelShape* shape : shapes) {
        if (isPicked)
            shape->WithParts();
        else if (triangles <= kEagerPartTriangles)
            shape->MakeParts();
    }
}

} // namespace

MeshLoader::MeshLoader(Mode mode)
{
    typeName = mode == Mode::Import ? "OrvikMesh::MeshImporter" : "OrvikMesh::MeshLoader";
    isImporter = mode == Mode::Import;
    for (const MeshFormat& format : MeshFormats())
        validExtensions.emplace(format.extension, format.name);
    for (const wchar_t* extension : kGltfExtensions)
        validExtensions.emplace(extension, L"glTF 2.0");
    for (const ImportFormat& format : ImportFormats())
        validExtensions.emplace(format.extension, format.name);
}

MeshLoader::~MeshLoader() = default;

bool MeshLoader::canLoad(const std::wstring& /*extension*/) const
{
    return LoadModes::Present() != LoadMode::ProductStructure;
}

std::shared_ptr<Model> MeshLoader::readModel(const std::wstring& fileName)
{
    const ProgressPhase phase(kPhase + Utils::GetFileNameOnly(fileName));
    ReadOptions options;
    options.isCancelled = [] { return CancelToken::Instance().IsCancelled(); };
    options.progress = [](double share) { Progress::Instance().Report(share); };
    ReadMessages messages(fileName);
    auto model = std::make_shared<Model>();
    model->path = fileName;
    const bool isRead = readNodes(options, *model, messages) && ReadGuarded(
                                                                    [&] {
                                                                        prepareShapes(*model);
                                                                        return true;
                                                                    },
                                                                    messages);
    for (const std::wstring& warning : messages.Warnings())
        addWarningMessage(warning);
    if (isRead)
        return model;
    setErrorMessage(messages.Error());
    return nullptr;
}

void MeshLoader::load(const std::wstring& fileName, OrvikCore::Document& document)
{
    if (std::shared_ptr<Model> model = readModel(fileName))
        OrvikModel::AddModel(document, std::move(model), kMeshTypeName);
}

} // namespace OrvikMesh
