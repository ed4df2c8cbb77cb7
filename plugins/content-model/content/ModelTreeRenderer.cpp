#include "OrvikModel/ModelTreeRenderer.h"

#include "OrvikModel/ModelContent.h"
#include "OrvikModel/ModelEntity.h"
#include "OrvikModel/ModelRenderer3D.h"
#include "content/TreeRows.h"
#include "content/Visibility.h"

#include "OrvikCore/AViewTree.h"

#include <TambVizCore/EntityId.h>
#include <TambVizCore/EntityType.h>
#include <TambVizCore/Geometry.h>

#include <utility>

namespace OrvikModel {

using OrvikCore::AViewTree;
using OrvikCore::TreeBuilder;
using TambVizCore::EntityId;
using TambVizCore::EntityType;
using TambVizCore::GeometryPart;
using TambVizCore::RenderId;

namespace {

constexpr wchar_t kSceneName[] = L"Scene";

EntityId sceneEntity()
{
    constexpr std::uint64_t id = OrvikCore::ARendererTree::kSceneRowId;
    return {id, id, EntityType::Container};
}

} // namespace

ModelTreeRenderer::ModelTreeRenderer(ModelContent& drawn, AViewTree* viewTree,
                                     TambVizCore::Node* sceneNode)
    : ARendererTree(&drawn, viewTree, sceneNode),
      m_model(drawn.GetModel()),
      m_link(drawn.GetSceneLink())
{
}

ModelTreeRenderer::~ModelTreeRenderer() = default;

RenderId ModelTreeRenderer::containerPath() const
{
    RenderId path(RenderId::kOriginTree);
    path.AddValue(kSceneRowId);
    path.AddValue(m_model->number);
    return path;
}

RenderId ModelTreeRenderer::pathOf(const ModelNode& shown) const
{
    std::vector<std::uint64_t> ids;
    for (const ModelNode* at = &shown; at; at = at->parent)
        ids.push_back(RowIdOf(*m_model, *at));
    RenderId path = containerPath();
    for (auto id = ids.rbegin(); id != ids.rend(); ++id)
        path.AddValue(*id);
    return path;
}

bool ModelTreeRenderer::Render()
{
    TreeBuilder* builder = getTreeBuilder();
    if (!builder)
        return false;
    if (view->GetChildrenCountForNode(containerPath()) >= 0)
        return true;
    m_expanded.clear();
    RenderId open;
    m_madeScene = !builder->GetCurrentRenderId(open);
    if (!m_madeScene) {
        buildContainer(*builder);
        return true;
    }
    builder->ConstructionBegin();
    builder->SceneBegin(kSceneRowId, kSceneName);
    buildContainer(*builder);
    builder->SceneEnd();
    builder->ConstructionEnd();
    return true;
}

void ModelTreeRenderer::buildContainer(TreeBuilder& builder)
{
    builder.ContainerBegin(m_model->number, m_model->FileName());
    BuildRows(builder, *m_model);
    builder.ContainerEnd();
}

/// A model does not change: rows that are there are right.
bool ModelTreeRenderer::Rerender()
{
    return Render();
}

void ModelTreeRenderer::discard()
{
    TreeBuilder* builder = getTreeBuilder();
    if (builder && m_madeScene)
        builder->ClearAll();
    m_madeScene = false;
    m_expanded.clear();
}

bool ModelTreeRenderer::IsRendererFor(OrvikCore::AContent* candidate)
{
    const auto* model = dynamic_cast<const ModelContent*>(candidate);
    return model && model->GetModel() == m_model;
}

ModelTreeRenderer::Row ModelTreeRenderer::findRow(const RenderId& path) const
{
    const int length = path.Length();
    if (length == 0 || path[0] != kSceneRowId)
        return {};
    if (length == 1)
        return {RowKind::Scene, nullptr, 0};
    if (path[1] != m_model->number)
        return {};
    if (length == 2)
        return {RowKind::Container, nullptr, 0};
    const ModelNode* above = nullptr;
    for (int i = 2; i < length; ++i) {
        const ModelNode* child = FindRowChild(*m_model, above, path[i]);
        if (child) {
            above = child;
            continue;
        }
        const bool isPart = above && i + 1 == length && above->shape &&
                            above->shape->Present()->FindPart(path[i]) >= 0;
        return isPart ? Row{RowKind::Part, above, path[i]} : Row{};
    }
    return {RowKind::Node, above, 0};
}

bool ModelTreeRenderer::ConvertToEntityId(const RenderId& path, EntityId& entity)
{
    const Row row = findRow(path);
    switch (row.kind) {
    case RowKind::None:
        return false;
    case RowKind::Scene:
        entity = sceneEntity();
        break;
    case RowKind::Container:
        entity = MakeContainerEntity(*m_model);
        break;
    case RowKind::Node:
    case RowKind::Part:
        entity = MakeEntity(*m_model, *row.node, row.partId);
        break;
    }
    return true;
}

bool ModelTreeRenderer::ConvertToRenderId(const EntityId& entity, RenderId& path)
{
    if (entity == sceneEntity()) {
        path = RenderId(RenderId::kOriginTree);
        path.AddValue(kSceneRowId);
        return true;
    }
    const EntityMatch match = FindEntity(*m_model, entity);
    if (!match.IsFound() || (match.partId != 0 && !HasPart(*match.node, match.partId)))
        return false;
    path = match.isContainer ? containerPath() : pathOf(*match.node);
    if (match.partId != 0)
        path.AddValue(match.partId);
    return true;
}

bool ModelTreeRenderer::Activate(RenderId& path)
{
    const Row row = findRow(path);
    if (row.kind == RowKind::Node && m_link->renderer)
        m_link->renderer->ShowView(*row.node);
    return row.kind != RowKind::None;
}

bool ModelTreeRenderer::ExpandRenderId(const RenderId& path, std::vector<RenderId>& paths)
{
    if (findRow(path).kind == RowKind::None)
        return false;
    paths.assign(1, path);
    return true;
}

std::wstring ModelTreeRenderer::GetToolTip(const RenderId& path)
{
    const Row row = findRow(path);
    switch (row.kind) {
    case RowKind::None:
    case RowKind::Scene:
        break;
    case RowKind::Container:
        return m_model->path;
    case RowKind::Node:
        return DisplayName(*row.node);
    case RowKind::Part:
        return DisplayName(*row.node) + L", " + DisplayName(row.partId);
    }
    return {};
}

bool ModelTreeRenderer::GetBodyList(std::vector<EntityId>& bodies)
{
    bodies.clear();
    for (const ModelNode* shown : m_model->InOrder())
        if (shown->shape && shown->kind != NodeKind::Annotation)
            bodies.push_back(MakeEntity(*m_model, *shown));
    return true;
}

bool ModelTreeRenderer::ExpandNode(const RenderId& path)
{
    const Row row = findRow(path);
    TreeBuilder* builder = getTreeBuilder();
    if (row.kind == RowKind::None || !builder)
        return false;
    if (row.kind == RowKind::Node && row.node->shape && !m_expanded.contains(row.node->number)) {
        m_expanded.insert(row.node->number);
        row.node->shape->MakeParts();
        buildParts(*builder, path, *row.node);
    }
    return true;
}

/// Adds the rows of faces, edges and vertices. The construction is the view's own, because that of
/// the builder would forget the root path of what is there.
void ModelTreeRenderer::buildParts(TreeBuilder& builder, const RenderId& path,
                                   const ModelNode& body)
{
    const auto geometry = body.shape->Present();
    if (geometry->Parts().empty())
        return;
    view->ConstructionBegin(/*incremental=*/true);
    for (int i = 0; i < path.Length(); ++i)
        builder.OpenNode(path[i], std::wstring(), nullptr);
    for (const GeometryPart& part : geometry->Parts()) {
        builder.GeometryBegin(part.id, DisplayName(part.id));
        builder.GeometryEnd();
    }
    for (int i = 0; i < path.Length(); ++i)
        builder.CloseNode();
    view->ConstructionEnd();
}

bool ModelTreeRenderer::GetNodeStyle(const RenderId& path, TreeBuilder::TreeItemStyles& style) const
{
    const Row row = findRow(path);
    switch (row.kind) {
    case RowKind::None:
        return false;
    case RowKind::Scene:
        style = TreeBuilder::TreeItemStyles::Scene;
        break;
    case RowKind::Container:
        style = TreeBuilder::TreeItemStyles::Container;
        break;
    case RowKind::Node:
        style = StyleOf(*row.node);
        break;
    case RowKind::Part:
        style = TreeBuilder::TreeItemStyles::Geometry;
        break;
    }
    return true;
}

ModelTreeRendererFactory::ModelTreeRendererFactory(std::string typeName)
    : m_typeName(std::move(typeName))
{
}

ModelTreeRendererFactory::~ModelTreeRendererFactory() = default;

std::string ModelTreeRendererFactory::GetName() const
{
    return m_typeName;
}

OrvikCore::ARendererTree* ModelTreeRendererFactory::CreateRenderer(OrvikCore::AContent* content,
                                                                   AViewTree* view,
                                                                   TambVizCore::Node* node)
{
    auto* drawn = dynamic_cast<ModelContent*>(content);
    const bool isDrawn = drawn && drawn->GetTypeName() == m_typeName;
    return isDrawn ? new ModelTreeRenderer(*drawn, view, node) : nullptr;
}

} // namespace OrvikModel
