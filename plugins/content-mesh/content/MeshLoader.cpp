#include "content/MeshLoader.h"

#include "content/MeshBodies.h"
#include "readers/MeshFormats.h"

#include "OrvikCore/IApplication.h"
#include "OrvikCore/SessionMgr.h"

#include <TambCommandsInfra/CancelToken.h>
#include <TambCommandsInfra/Progress.h>
#include <TambVizCore/Utils.h>

#include <OrvikModel/ModelContent.h>

#include <utility>

namespace OrvikMesh {

using OrvikModel::Model;
using TambCommandsInfra::CancelToken;
using TambCommandsInfra::Progress;
using TambVizCore::Utils;

namespace {

constexpr wchar_t kPhase[] = L"Reading ";
constexpr wchar_t kNoReader[] = L"no reader for this kind of file";

/// Ends the progress that it began, however the reading ends.
class ProgressPhase
{
public:
    explicit ProgressPhase(const std::wstring& name) { Progress::Instance().BeginPhase(name); }
    ~ProgressPhase() { Progress::Instance().End(); }
    ProgressPhase(const ProgressPhase&) = delete;
    ProgressPhase& operator=(const ProgressPhase&) = delete;
};

bool readByExtension(const std::wstring& fileName, const ReadOptions& options, MeshData& mesh,
                     ReadMessages& messages)
{
    const MeshFormat* format =
        FindMeshFormat(Utils::ToUpperAscii(Utils::GetFileExtension(fileName)));
    if (!format) {
        messages.Fail(kNoReader);
        return false;
    }
    return format->read(fileName, options, mesh, messages);
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

/// Builds what is drawn from what was read.
void fillModel(MeshData&& mesh, Model& model, ReadMessages& messages)
{
    const std::size_t triangles = mesh.TriangleCount();
    const bool isPicked = hasWindow();
    model.nodes = MakeBodies(std::move(mesh), stemOf(model.path), messages);
    model.NumberNodes();
    for (const auto& node : model.nodes) {
        if (isPicked)
            node->shape->WithParts();
        else if (triangles <= kEagerPartTriangles)
            node->shape->MakeParts();
    }
}

} // namespace

MeshLoader::MeshLoader(Mode mode)
{
    typeName = mode == Mode::Import ? "OrvikMesh::MeshImporter" : "OrvikMesh::MeshLoader";
    isImporter = mode == Mode::Import;
    for (const MeshFormat& format : MeshFormats())
        validExtensions.emplace(format.extension, format.name);
}

MeshLoader::~MeshLoader() = default;

bool MeshLoader::canLoad(const std::wstring& /*extension*/) const
{
    return true;
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
    MeshData mesh;
    const bool isRead = readByExtension(fileName, options, mesh, messages) &&
                        ReadGuarded(
                            [&] {
                                fillModel(std::move(mesh), *model, messages);
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
