#include "content/MeshRenderer3D.h"

#include "content/MeshContent.h"

#include <TambVizCore/EntityId.h>
#include <TambVizCore/GeoNode.h>
#include <TambVizCore/IView3D.h>
#include <TambVizCore/Node.h>
#include <TambVizCore/RenderId.h>
#include <TambVizCore/Utils.h>

namespace OrvikMesh {

using TambVizCore::EntityId;
using TambVizCore::GeoNode;
using TambVizCore::Node;
using TambVizCore::PartKind;
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

const wchar_t* wordOf(PartKind kind)
{
    switch (kind) {
    case PartKind::Face:
        return L"face ";
    case PartKind::Edge:
        return L"edge ";
    case PartKind::Vertex:
        return L"vertex ";
    default:
        return L"";
    }
}

} // namespace

MeshRenderer3D::MeshRenderer3D(MeshContent& drawn, TambVizCore::IView3D& view)
    : IContentRenderer(&drawn), m_model(drawn.Model()), m_view(view)
{
}

MeshRenderer3D::~MeshRenderer3D()
{
    MeshRenderer3D::discard();
}

/// Found anew each time: whoever clears the view deletes the nodes.
Node* MeshRenderer3D::contentNode() const
{
    Node* node = m_nodeId == 0 ? nullptr : m_view.GetSceneRoot().FindChild(m_nodeId);
    const EntityId entity(m_model->number, 0, TambVizCore::EntityType::Container);
    return node && node->Entity() == entity ? node : nullptr;
}

GeoNode* MeshRenderer3D::bodyNode(std::size_t body) const
{
    Node* parent = contentNode();
    Node* node = parent ? parent->FindChild(body + 1) : nullptr;
    return node ? node->AsGeoNode() : nullptr;
}

void MeshRenderer3D::buildBody(Node& parent, std::size_t body) const
{
    const MeshBody& source = *m_model->bodies[body];
    GeoNode* node = parent.CreateChildGeoNode(body + 1, Utils::WstringToString(source.Name()));
    node->SetEntity(MakeMeshEntity(*m_model, body, 0));
    node->SetColor(source.Color());
    node->SetGeometry(source.Present());
}

bool MeshRenderer3D::Render()
{
    if (contentNode())
        return true;
    Node& root = m_view.GetSceneRoot();
    m_nodeId = freeChildId(root, m_model->number);
    auto node = std::make_unique<Node>(m_nodeId, Utils::WstringToString(m_model->FileName()));
    node->SetEntity(EntityId(m_model->number, 0, TambVizCore::EntityType::Container));
    for (std::size_t i = 0; i < m_model->bodies.size(); ++i)
        buildBody(*node, i);
    root.AddChild(std::move(node));
    setBounds();
    return true;
}

bool MeshRenderer3D::Rerender()
{
    if (!contentNode())
        return Render();
    adoptParts();
    return true;
}

/// Gives nodes the shapes that have been made since they were built. The state of parts stays.
void MeshRenderer3D::adoptParts() const
{
    for (std::size_t i = 0; i < m_model->bodies.size(); ++i) {
        GeoNode* node = bodyNode(i);
        std::shared_ptr<const TambVizCore::Geometry> present = m_model->bodies[i]->Present();
        if (node && node->GetGeometry() != present)
            node->SetGeometry(std::move(present));
    }
}

void MeshRenderer3D::setBounds()
{
    const double* low = m_model->box.Lo();
    const double* high = m_model->box.Hi();
    SetBoxLo(low[0], low[1], low[2]);
    SetBoxHi(high[0], high[1], high[2]);
    m_model->box.GetCenter(geometryCenter);
    geometryRadius = static_cast<float>(m_model->box.Radius());
}

void MeshRenderer3D::discard()
{
    if (contentNode())
        m_view.GetSceneRoot().RemoveChild(m_nodeId);
    m_nodeId = 0;
}

bool MeshRenderer3D::IsRendererFor(OrvikCore::AContent* candidate)
{
    // A content made after this one was deleted may have its address: what was read decides.
    const auto* mesh = dynamic_cast<const MeshContent*>(candidate);
    return mesh && mesh->Model() == m_model;
}

/// Finds the body that an id names, and the part when it names one (else 0).
bool MeshRenderer3D::findBody(const RenderId& id, std::size_t& body, std::uint64_t& partId) const
{
    if (id.Length() < 2 || id.Length() > 3 || id[0] != m_nodeId || m_nodeId == 0 || id[1] == 0 ||
        id[1] > m_model->bodies.size())
        return false;
    body = static_cast<std::size_t>(id[1]) - 1;
    partId = id.Length() == 3 ? id[2] : 0;
    return id.Length() == 2 || m_model->bodies[body]->Present()->FindPart(partId) >= 0;
}

bool MeshRenderer3D::ConvertToEntityId(const RenderId& id, EntityId& entity)
{
    std::size_t body = 0;
    std::uint64_t partId = 0;
    if (!findBody(id, body, partId))
        return false;
    entity = MakeMeshEntity(*m_model, body, partId);
    return true;
}

bool MeshRenderer3D::ConvertToRenderId(const EntityId& entity, RenderId& id)
{
    if (entity.Type() != TambVizCore::EntityType::Mesh || entity.Owner() != m_model->number ||
        entity.Value() == 0 || entity.Value() > m_model->bodies.size())
        return false;
    adoptParts();
    const GeoNode* node = bodyNode(static_cast<std::size_t>(entity.Value()) - 1);
    if (!node)
        return false;
    RenderId path = node->GetRenderId();
    if (entity.SubEntityKind() != PartKind::None) {
        const std::uint64_t partId = TambVizCore::MakePartId(
            entity.SubEntityKind(), static_cast<std::uint32_t>(entity.SubEntityIndex()));
        if (node->GetGeometry()->FindPart(partId) < 0)
            return false;
        path.AddValue(partId);
    }
    id = path;
    return true;
}

bool MeshRenderer3D::ExpandRenderId(const RenderId& id, std::vector<RenderId>& ids)
{
    std::size_t body = 0;
    std::uint64_t partId = 0;
    if (!findBody(id, body, partId))
        return false;
    ids.assign(1, id);
    return true;
}

std::wstring MeshRenderer3D::GetToolTip(const RenderId& id)
{
    std::size_t body = 0;
    std::uint64_t partId = 0;
    if (!findBody(id, body, partId))
        return {};
    const std::wstring& name = m_model->bodies[body]->Name();
    if (partId == 0)
        return name;
    const EntityId entity = MakeMeshEntity(*m_model, body, partId);
    return name + L", " + wordOf(entity.SubEntityKind()) + std::to_wstring(entity.SubEntityIndex());
}

bool MeshRenderer3D::GetBodyList(std::vector<EntityId>& bodies)
{
    bodies.clear();
    for (std::size_t i = 0; i < m_model->bodies.size(); ++i)
        bodies.push_back(MakeMeshEntity(*m_model, i, 0));
    return true;
}

MeshRendererFactory::MeshRendererFactory() = default;

MeshRendererFactory::~MeshRendererFactory() = default;

std::string MeshRendererFactory::GetName() const
{
    return kMeshTypeName;
}

OrvikCore::IContentRenderer* MeshRendererFactory::CreateRenderer(OrvikCore::AContent* content,
                                                                 TambVizCore::IView3D* view)
{
    auto* mesh = dynamic_cast<MeshContent*>(content);
    return mesh && view ? new MeshRenderer3D(*mesh, *view) : nullptr;
}

} // namespace OrvikMesh
