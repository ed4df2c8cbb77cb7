#include "OrvikCore/TreeBuilder.h"

#include "OrvikCore/ARendererTree.h"
#include "OrvikCore/ASession.h"
#include "OrvikCore/ATreeItemStyle.h"
#include "OrvikCore/AViewTree.h"
#include "OrvikCore/SessionMgr.h"

#include <TambVizCore/EntityId.h>

namespace OrvikCore {

using TambVizCore::EntityId;
using TambVizCore::EntityType;
using TambVizCore::RenderId;

namespace {

/// A path of at most this many ids names a scene or a container.
constexpr int kLongestContainerPath = 2;

/// The owner of every view and capture.
constexpr auto kViewOwner = static_cast<std::uint64_t>(EntityType::AnnotationSet);

TreeBuilder::TreeItemStyles styleOfPmiType(std::uint64_t type)
{
    using Style = TreeBuilder::TreeItemStyles;
    switch (type) {
    case 10101:
        return Style::PMIType10101;
    case 10102:
        return Style::PMIType10102;
    case 10103:
        return Style::PMIType10103;
    case 10104:
        return Style::PMIType10104;
    case 10105:
        return Style::PMIType10105;
    default:
        return Style::PMIType;
    }
}

// Asks the current session's tree renderer; without one there is no success.
bool convertByTreeRenderer(const RenderId& path, EntityId& entity)
{
    ARendererTree* const renderer = SessionMgr::Instance().CurrentSession().GetTreeRenderer();
    return renderer != nullptr && renderer->ConvertToEntityId(path, entity);
}

} // namespace

TreeBuilder* TreeBuilder::CreateTreeBuilder(AViewTree* view)
{
    return new TreeBuilder(view);
}

TreeBuilder::TreeBuilder(AViewTree* viewTree) : view(viewTree) {}

TreeBuilder::~TreeBuilder()
{
    for (const auto& [kind, style] : styles) {
        delete style;
    }
}

void TreeBuilder::ConstructionBegin()
{
    if (view == nullptr) {
        return;
    }
    view->ConstructionBegin(/*incremental=*/false);
    rootPath.Clear();
    ++constructionDepth;
    m_openIds.clear();
}

void TreeBuilder::ConstructionEnd()
{
    if (view == nullptr) {
        return;
    }
    view->ConstructionEnd();
    if (constructionDepth > 0) {
        --constructionDepth;
    }
}

void TreeBuilder::SceneBegin(std::uint64_t const& id, std::wstring const& name)
{
    AnyTypeBegin(id, name, TreeItemStyles::Scene);
    appendToRootPath(id);
}

void TreeBuilder::SceneEnd()
{
    AnyTypeEnd();
}

void TreeBuilder::ContainerBegin(std::uint64_t const& id, std::wstring const& name)
{
    AnyTypeBegin(id, name, TreeItemStyles::Container);
    appendToRootPath(id);
}

void TreeBuilder::ContainerEnd()
{
    AnyTypeEnd();
}

void TreeBuilder::BodyBegin(std::uint64_t const& id, std::wstring const& name)
{
    AnyTypeBegin(id, name, TreeItemStyles::Body);
}

void TreeBuilder::BodyEnd()
{
    AnyTypeEnd();
}

void TreeBuilder::AssemblyBegin(std::uint64_t const& id, std::wstring const& name)
{
    AnyTypeBegin(id, name, TreeItemStyles::Assembly);
}

void TreeBuilder::AssemblyEnd()
{
    AnyTypeEnd();
}

void TreeBuilder::AssemblyReferenceBegin(std::uint64_t const& id, std::wstring const& name)
{
    AnyTypeBegin(id, name, TreeItemStyles::AssemblyReference);
}

void TreeBuilder::AssemblyReferenceEnd()
{
    AnyTypeEnd();
}

void TreeBuilder::PointCloudBegin(std::uint64_t const& id, std::wstring const& name)
{
    AnyTypeBegin(id, name, TreeItemStyles::PointCloud);
}

void TreeBuilder::PointCloudEnd()
{
    AnyTypeEnd();
}

void TreeBuilder::PMIBegin(std::uint64_t const& id, std::wstring const& name)
{
    AnyTypeBegin(id, name, TreeItemStyles::PMI);
}

void TreeBuilder::PMIEnd()
{
    AnyTypeEnd();
}

void TreeBuilder::PMITypeBegin(std::uint64_t const& id, std::wstring const& name)
{
    AnyTypeBegin(id, name, styleOfPmiType(id));
}

void TreeBuilder::PMITypeEnd()
{
    AnyTypeEnd();
}

void TreeBuilder::PolyBodyBegin(std::uint64_t const& id, std::wstring const& name)
{
    AnyTypeBegin(id, name, TreeItemStyles::PolyBody);
}

void TreeBuilder::PolyBodyEnd()
{
    AnyTypeEnd();
}

void TreeBuilder::ViewsBegin(std::uint64_t const& id, std::wstring const& name)
{
    AnyTypeBegin(id, name, TreeItemStyles::Views);
}

void TreeBuilder::ViewsEnd()
{
    AnyTypeEnd();
}

void TreeBuilder::ViewBegin(std::uint64_t const& id, std::wstring const& name)
{
    AnyTypeBegin(id, name, TreeItemStyles::View);
}

void TreeBuilder::ViewEnd()
{
    AnyTypeEnd();
}

void TreeBuilder::CapturesBegin(std::uint64_t const& id, std::wstring const& name)
{
    AnyTypeBegin(id, name, TreeItemStyles::Captures);
}

void TreeBuilder::CapturesEnd()
{
    AnyTypeEnd();
}

void TreeBuilder::CaptureBegin(std::uint64_t const& id, std::wstring const& name)
{
    AnyTypeBegin(id, name, TreeItemStyles::Capture);
}

void TreeBuilder::CaptureEnd()
{
    AnyTypeEnd();
}

void TreeBuilder::FTAGeometryBegin(std::uint64_t const& id, std::wstring const& name)
{
    AnyTypeBegin(id, name, TreeItemStyles::FTAGeometry);
}

void TreeBuilder::FTAGeometryEnd()
{
    AnyTypeEnd();
}

void TreeBuilder::GeometryBegin(std::uint64_t const& id, std::wstring const& name)
{
    AnyTypeBegin(id, name, TreeItemStyles::Geometry);
}

void TreeBuilder::GeometryEnd()
{
    AnyTypeEnd();
}

void TreeBuilder::MeshBegin(std::uint64_t const& id, std::wstring const& name)
{
    // Deliberate: meshes share the style of polygon bodies.
    // Held by TreeBuilderPairs.BeginOpensARowInItsStyleAndEndClosesIt.
    AnyTypeBegin(id, name, TreeItemStyles::PolyBody);
}

void TreeBuilder::MeshEnd()
{
    AnyTypeEnd();
}

void TreeBuilder::WireBegin(std::uint64_t const& id, std::wstring const& name)
{
    AnyTypeBegin(id, name, TreeItemStyles::Wire);
}

void TreeBuilder::WireEnd()
{
    AnyTypeEnd();
}

void TreeBuilder::PointSetBegin(std::uint64_t const& id, std::wstring const& name)
{
    AnyTypeBegin(id, name, TreeItemStyles::PointSet);
}

void TreeBuilder::PointSetEnd()
{
    AnyTypeEnd();
}

void TreeBuilder::AnyTypeBegin(std::uint64_t const& id, std::wstring const& name,
                               TreeItemStyles const& kind)
{
    // Deliberate: asking for a style that is not registered enters null, which AddStyle keeps.
    // Held by TreeBuilderTest.UseOfAnUnregisteredStyleKeepsItNullForGood.
    OpenNode(id, name, styles[kind]);
}

void TreeBuilder::AnyTypeEnd()
{
    CloseNode();
}

bool TreeBuilder::CreateNode(std::uint64_t const& id, std::wstring const& name,
                             ATreeItemStyle const* style)
{
    // Deliberate: held by TreeBuilder.CreateNodeSuppressesIdOneUnderOneOpenNode.
    if (id == 1 && m_openIds.size() == 1) {
        return false;
    }
    if (view == nullptr) {
        return false;
    }
    const bool created = view->CreateNode(id, name, style);
    m_openIds.push_back(id);
    return created;
}

bool TreeBuilder::OpenNode(std::uint64_t const& id, std::wstring const& name,
                           ATreeItemStyle const* style)
{
    if (view == nullptr) {
        return false;
    }
    const bool opened = view->OpenNode(id, name, style);
    if (opened) {
        m_openIds.push_back(id);
    }
    return opened;
}

void TreeBuilder::CloseNode()
{
    if (view == nullptr) {
        return;
    }
    view->CloseNode();
    if (!m_openIds.empty()) {
        m_openIds.pop_back();
    }
}

void TreeBuilder::ClearAll()
{
    if (view == nullptr) {
        return;
    }
    view->ClearAll();
    m_openIds.clear();
    constructionDepth = 0;
}

void TreeBuilder::SetCurrentNodeEnabled(bool const& enabled)
{
    if (view != nullptr) {
        view->SetCurrentNodeEnabled(enabled);
    }
}

void TreeBuilder::BuildRenderId(RenderId& path, EntityId const& entity) const
{
    path = rootPath;
    path.AddValue(entity.Owner());
}

void TreeBuilder::ExtractEntityId(RenderId const& path, EntityId& entity) const
{
    // 1. An empty path shows nothing.
    entity.Clear();
    const int length = path.Length();
    if (length == 0) {
        return;
    }
    // 2. A short path shows a scene or a container.
    if (length <= kLongestContainerPath) {
        entity.SetType(EntityType::Container);
        entity.SetOwner(path[0]);
        entity.SetValue(path[length - 1]);
        return;
    }
    // 3. Views and captures name themselves.
    if (extractViewOrCapture(path, entity)) {
        return;
    }
    // 4. The tree renderer knows its own rows.
    if (convertByTreeRenderer(path, entity)) {
        return;
    }
    // 5. What is left is the body below the root path.
    entity.Clear();
    const int rootLength = rootPath.Length();
    if (length > rootLength) {
        entity.SetType(EntityType::Body);
        entity.SetValue(path[rootLength]);
        entity.SetOwner(0);
    }
}

bool TreeBuilder::GetCurrentRenderId(RenderId& path)
{
    if (view == nullptr || m_openIds.empty()) {
        return false;
    }
    path.Clear();
    for (const std::uint64_t id : m_openIds) {
        path.AddValue(id);
    }
    path.SetOrigin(RenderId::kOriginTree);
    return true;
}

int TreeBuilder::GetChildrenCountForNode(RenderId const& path)
{
    return view != nullptr ? view->GetChildrenCountForNode(path) : -1;
}

void TreeBuilder::AddStyle(TreeItemStyles kind, ATreeItemStyle* style)
{
    styles.emplace(kind, style);
}

AViewTree* TreeBuilder::GetView()
{
    return view;
}

void TreeBuilder::appendToRootPath(std::uint64_t id)
{
    if (view != nullptr) {
        rootPath.AddValue(id);
    }
}

bool TreeBuilder::extractViewOrCapture(RenderId const& path, EntityId& entity) const
{
    const int length = path.Length();
    for (int i = 0; i < length; ++i) {
        const EntityType type = EntityId::GetTypeFromInt(path[i]);
        if (type != EntityType::View && type != EntityType::Capture) {
            continue;
        }
        entity.SetType(type);
        entity.SetOwner(kViewOwner);
        if (i + 1 < length) {
            entity.SetValue(path[i + 1]);
        }
        return true;
    }
    return false;
}

} // namespace OrvikCore
