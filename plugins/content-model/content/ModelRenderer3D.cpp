#include "OrvikModel/ModelRenderer3D.h"

#include "OrvikModel/ModelContent.h"
#include "OrvikModel/ModelEntity.h"
#include "content/SceneNodes.h"
#include "content/Visibility.h"

#include <OrvikOs/FpMasked.h>
#include <TambVizCore/EntityId.h>
#include <TambVizCore/GeoNode.h>
#include <TambVizCore/IView3D.h>
#include <TambVizCore/RenderId.h>
#include <TambVizCore/Utils.h>

#include <algorithm>
#include <unordered_map>
#include <unordered_set>
#include <utility>

namespace OrvikModel {

using TambVizCore::EntityId;
using TambVizCore::GeoNode;
using TambVizCore::Node;
using TambVizCore::RenderId;
using TambVizCore::Utils;

namespace {

/// @return an id that no child has, the wanted one if it is free.
std::uint64_t freeChildId(const Node& parent, std::uint64_t wanted)
{
    while (parent.FindChild(wanted))
        ++wanted;
    return wanted;
}

} // namespace

ModelRenderer3D::ModelRenderer3D(ModelContent& drawn, TambVizCore::IView3D& view)
    : IContentRenderer(&drawn),
      m_model(drawn.GetModel()),
      m_link(drawn.GetSceneLink()),
      m_view(view)
{
    m_link->renderer = this;
}

ModelRenderer3D::~ModelRenderer3D()
{
    if (m_link->renderer == this)
        m_link->renderer = nullptr;
    ModelRenderer3D::discard();
}

/// Found anew each time: whoever clears the view deletes the nodes.
Node* ModelRenderer3D::contentNode() const
{
    Node* node = m_nodeId == 0 ? nullptr : m_view.GetSceneRoot().FindChild(m_nodeId);
    return node && node->Entity() == MakeContainerEntity(*m_model) ? node : nullptr;
}

/// @return null for a node that is not drawn.
Node* ModelRenderer3D::sceneNode(const ModelNode& node) const
{
    if (!HasSceneNode(node))
        return nullptr;
    const ModelNode* above = node.parent;
    Node* parent = contentNode();
    if (above) {
        std::vector<const ModelNode*> path;
        for (; above; above = above->parent)
            path.push_back(above);
        for (auto step = path.rbegin(); parent && step != path.rend(); ++step)
            parent = parent->FindChild((*step)->number);
    }
    return parent ? parent->FindChild(node.number) : nullptr;
}

void ModelRenderer3D::buildNodes(Node& top) const
{
    std::unordered_map<const ModelNode*, Node*> built;
    for (const ModelNode* node : m_model->InOrder()) {
        if (!HasSceneNode(*node))
            continue;
        const ModelNode* above = node->parent;
        Node& parent = above ? *built.at(above) : top;
        built.emplace(node, parent.AddChild(MakeSceneNode(*m_model, *node)));
    }
}

bool ModelRenderer3D::Render()
{
    if (contentNode())
        return true;
    // What was read was tessellated with the parameters of now.
    m_sag = presentSag();
    m_maxAngleDegrees = presentMaxAngle();
    Node& root = m_view.GetSceneRoot();
    m_nodeId = freeChildId(root, m_model->number);
    auto node = std::make_unique<Node>(m_nodeId, Utils::WstringToString(m_model->FileName()));
    node->SetEntity(MakeContainerEntity(*m_model));
    buildNodes(*node);
    root.AddChild(std::move(node));
    setBounds();
    return true;
}

bool ModelRenderer3D::Rerender()
{
    retessellate();
    if (!contentNode())
        return Render();
    adoptShapes();
    return true;
}

double ModelRenderer3D::presentSag()
{
    return _useDefaultTessellationSag ? 0.0 : _tessellationSag;
}

double ModelRenderer3D::presentMaxAngle()
{
    return _useDefaultTessellationMaxAngle ? 0.0 : _tessellationMaxAngle;
}

/// Has every shape tessellated anew, once, when the shared parameters are not those of before. One
/// after the other: exact shapes may share surfaces.
void ModelRenderer3D::retessellate()
{
    const double sag = presentSag();
    const double maxAngle = presentMaxAngle();
    if (sag == m_sag && maxAngle == m_maxAngleDegrees)
        return;
    m_sag = sag;
    m_maxAngleDegrees = maxAngle;
    const OrvikOs::FpMasked masked;
    std::unordered_set<const ModelShape*> done;
    for (const ModelNode* node : m_model->InOrder())
        if (node->shape && done.insert(node->shape.get()).second)
            node->shape->Retessellate(sag, maxAngle);
}

/// Gives nodes the geometries that have been made since they were built. The state of parts stays.
void ModelRenderer3D::adoptShapes() const
{
    for (const ModelNode* node : m_model->InOrder()) {
        if (!node->shape)
            continue;
        Node* scene = sceneNode(*node);
        if (GeoNode* geo = scene ? scene->AsGeoNode() : nullptr)
            AdoptShape(*node, *geo);
    }
}

void ModelRenderer3D::setBounds()
{
    const double* low = m_model->box.Lo();
    const double* high = m_model->box.Hi();
    SetBoxLo(low[0], low[1], low[2]);
    SetBoxHi(high[0], high[1], high[2]);
    m_model->box.GetCenter(geometryCenter);
    geometryRadius = static_cast<float>(m_model->box.Radius());
}

void ModelRenderer3D::discard()
{
    if (contentNode())
        m_view.GetSceneRoot().RemoveChild(m_nodeId);
    m_nodeId = 0;
}

bool ModelRenderer3D::IsRendererFor(OrvikCore::AContent* candidate)
{
    // A content made after this one was deleted may have its address: what was read decides.
    const auto* model = dynamic_cast<const ModelContent*>(candidate);
    return model && model->GetModel() == m_model;
}

/// Finds what an id names: the content, a node, or a part of a node.
bool ModelRenderer3D::findNode(const RenderId& id, Match& match) const
{
    if (m_nodeId == 0 || id.Length() == 0 || id[0] != m_nodeId)
        return false;
    match = {};
    if (id.Length() == 1)
        return true;
    int end = id.Length();
    match.node = m_model->FindNode(id.Last());
    if (!match.node && id.Length() > 2) {
        match.partId = id.Last();
        match.node = m_model->FindNode(id[--end - 1]);
    }
    // From the node upwards the path must be that of the scene.
    int at = end - 1;
    for (const ModelNode* node = match.node; node; node = node->parent, --at)
        if (at < 1 || id[at] != node->number || !HasSceneNode(*node))
            return false;
    if (!match.node || at != 0)
        return false;
    return match.partId == 0 ||
           (match.node->shape && match.node->shape->Present()->FindPart(match.partId) >= 0);
}

bool ModelRenderer3D::ConvertToEntityId(const RenderId& id, EntityId& entity)
{
    Match match;
    if (!findNode(id, match))
        return false;
    entity = match.node ? MakeEntity(*m_model, *match.node, match.partId)
                        : MakeContainerEntity(*m_model);
    return true;
}

bool ModelRenderer3D::ConvertToRenderId(const EntityId& entity, RenderId& id)
{
    const EntityMatch match = FindEntity(*m_model, entity);
    if (!match.IsFound() || (match.partId != 0 && !HasPart(*match.node, match.partId)))
        return false;
    Node* node = match.isContainer ? contentNode() : sceneNode(*match.node);
    if (!node)
        return false;
    const GeoNode* geo = node->AsGeoNode();
    if (match.partId != 0 && geo && geo->GetGeometry() != match.node->shape->Present())
        adoptShapes();
    id = node->GetRenderId();
    if (match.partId != 0)
        id.AddValue(match.partId);
    return true;
}

bool ModelRenderer3D::ExpandRenderId(const RenderId& id, std::vector<RenderId>& ids)
{
    Match match;
    if (!findNode(id, match))
        return false;
    ids.assign(1, id);
    return true;
}

std::wstring ModelRenderer3D::GetToolTip(const RenderId& id)
{
    Match match;
    if (!findNode(id, match))
        return {};
    if (!match.node)
        return m_model->FileName();
    const std::wstring name = DisplayName(*match.node);
    return match.partId == 0 ? name : name + L", " + DisplayName(match.partId);
}

bool ModelRenderer3D::GetBodyList(std::vector<EntityId>& bodies)
{
    bodies.clear();
    for (const ModelNode* node : m_model->InOrder())
        if (node->shape && node->kind != NodeKind::Annotation)
            bodies.push_back(MakeEntity(*m_model, *node));
    return true;
}

ModelRendererFactory::ModelRendererFactory(std::string typeName) : m_typeName(std::move(typeName))
{
}

ModelRendererFactory::~ModelRendererFactory() = default;

std::string ModelRendererFactory::GetName() const
{
    return m_typeName;
}

OrvikCore::IContentRenderer* ModelRendererFactory::CreateRenderer(OrvikCore::AContent* content,
                                                                  TambVizCore::IView3D* view)
{
    auto* drawn = dynamic_cast<ModelContent*>(content);
    const bool isDrawn = drawn && view && drawn->GetTypeName() == m_typeName;
    return isDrawn ? new ModelRenderer3D(*drawn, *view) : nullptr;
}

} // namespace OrvikModel
