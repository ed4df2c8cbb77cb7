#include "TambVizCore/Node.h"

#include "TambVizCore/GeoNode.h"
#include "TambVizCore/Matrix.h"
#include "TambVizCore/VisibilityStamp.h"

#include <algorithm>
#include <atomic>
#include <cmath>
#include <stdexcept>
#include <utility>

namespace TambVizCore {

namespace {

/// From this number of children on a node finds them through a table.
constexpr std::size_t kTableFrom = 17;

std::uint64_t nextStamp()
{
    static std::atomic<std::uint64_t> last{0};
    return last.fetch_add(1, std::memory_order_relaxed) + 1;
}

} // namespace

Node::Node(std::uint64_t id, std::string name) : m_id(id), m_name(std::move(name))
{
    SetIdentity(m_transform);
}

Node::~Node() = default;

GeoNode* Node::AsGeoNode()
{
    return nullptr;
}

const GeoNode* Node::AsGeoNode() const
{
    return nullptr;
}

Node* Node::ChildAt(std::size_t position) const
{
    return position < m_children.size() ? m_children[position].get() : nullptr;
}

Node* Node::FindChild(std::uint64_t id) const
{
    if (!m_childById.empty()) {
        const auto found = m_childById.find(id);
        return found != m_childById.end() ? found->second : nullptr;
    }
    const auto found = std::find_if(m_children.begin(), m_children.end(),
                                    [id](const auto& child) { return child->m_id == id; });
    return found != m_children.end() ? found->get() : nullptr;
}

Node* Node::CreateChildNode(std::uint64_t id, const std::string& name)
{
    return AddChild(std::make_unique<Node>(id, name));
}

GeoNode* Node::CreateChildGeoNode(std::uint64_t id, const std::string& name)
{
    return AddChild(std::make_unique<GeoNode>(id, name))->AsGeoNode();
}

Node* Node::AddChild(std::unique_ptr<Node> child)
{
    if (child == nullptr) {
        throw std::invalid_argument("Node: null child.");
    }
    if (FindChild(child->m_id) != nullptr) {
        throw std::invalid_argument("Node: a child with this id exists already.");
    }
    Node* const added = child.get();
    m_children.push_back(std::move(child));
    if (!m_childById.empty()) {
        m_childById.emplace(added->m_id, added);
    } else if (m_children.size() >= kTableFrom) {
        for (const auto& each : m_children) {
            m_childById.emplace(each->m_id, each.get());
        }
    }
    added->m_parent = this;
    touch(Change::Structure);
    return added;
}

std::unique_ptr<Node> Node::TakeChild(std::uint64_t id)
{
    const auto found = std::find_if(m_children.begin(), m_children.end(),
                                    [id](const auto& child) { return child->m_id == id; });
    if (found == m_children.end()) {
        return nullptr;
    }
    std::unique_ptr<Node> taken = std::move(*found);
    m_children.erase(found);
    m_childById.erase(id);
    taken->m_parent = nullptr;
    touch(Change::Structure);
    return taken;
}

bool Node::RemoveChild(std::uint64_t id)
{
    return TakeChild(id) != nullptr;
}

void Node::RemoveAllChildren()
{
    if (m_children.empty()) {
        return;
    }
    m_childById.clear();
    m_children.clear();
    touch(Change::Structure);
}

RenderId Node::GetRenderId() const
{
    std::vector<std::uint64_t> path;
    for (const Node* node = this; node->m_parent != nullptr; node = node->m_parent) {
        path.push_back(node->m_id);
    }
    RenderId id(RenderId::kOriginView3D);
    std::for_each(path.rbegin(), path.rend(), [&id](std::uint64_t value) { id.AddValue(value); });
    return id;
}

void Node::SetTransform(const double* matrix)
{
    double home[16];
    GetHomeTransform(home);
    if (std::equal(matrix, matrix + 16, home)) {
        return;
    }
    std::copy(matrix, matrix + 16, m_transform);
    std::copy(matrix + 12, matrix + 15, m_homePlace);
    for (int i = 0; i < 3; ++i) {
        m_transform[12 + i] += m_displacement[i];
    }
    touch(Change::Transform);
}

void Node::GetHomeTransform(double* matrix) const
{
    std::copy(m_transform, m_transform + 16, matrix);
    std::copy(m_homePlace, m_homePlace + 3, matrix + 12);
}

void Node::SetDisplacement(const double* displacement)
{
    const bool isFinite = std::all_of(displacement, displacement + 3,
                                      [](double length) { return std::isfinite(length); });
    if (!isFinite || std::equal(displacement, displacement + 3, m_displacement)) {
        return;
    }
    for (int i = 0; i < 3; ++i) {
        m_displacement[i] = displacement[i];
        m_transform[12 + i] = m_homePlace[i] + displacement[i];
    }
    touch(Change::Transform);
    AdvanceVisibilityStamp();
}

bool Node::IsDisplaced() const
{
    return m_displacement[0] != 0.0 || m_displacement[1] != 0.0 || m_displacement[2] != 0.0;
}

void Node::GetWorldTransform(double* matrix) const
{
    double world[16];
    std::copy(m_transform, m_transform + 16, world);
    for (const Node* node = m_parent; node != nullptr; node = node->m_parent) {
        MultiplyMatrices(node->m_transform, world, world);
    }
    std::copy(world, world + 16, matrix);
}

void Node::SetVisible(bool visible)
{
    if (m_visible != visible) {
        m_visible = visible;
        touch(Change::Appearance);
        AdvanceVisibilityStamp();
    }
}

bool Node::IsVisibleInScene() const
{
    const Node* node = this;
    while (node != nullptr && node->m_visible) {
        node = node->m_parent;
    }
    return node == nullptr;
}

void Node::SetHighlighted(bool highlighted)
{
    if (m_highlighted != highlighted) {
        m_highlighted = highlighted;
        touch(Change::Appearance);
    }
}

void Node::SetSelected(bool selected)
{
    if (m_selected != selected) {
        m_selected = selected;
        touch(Change::Appearance);
    }
}

void Node::SetPicked(bool picked)
{
    if (m_picked != picked) {
        m_picked = picked;
        touch(Change::Appearance);
    }
}

void Node::SetOpacity(float opacity)
{
    const float clamped = std::isnan(opacity) ? 1.0f : std::clamp(opacity, 0.0f, 1.0f);
    if (m_opacity != clamped) {
        m_opacity = clamped;
        touch(Change::Appearance);
    }
}

void Node::SetColor(const std::optional<RGBAColor>& color)
{
    if (m_color != color) {
        m_color = color;
        touch(Change::Appearance);
    }
}

void Node::SetAuxiliary(bool auxiliary)
{
    if (m_auxiliary != auxiliary) {
        m_auxiliary = auxiliary;
        touch(Change::Appearance);
        AdvanceVisibilityStamp();
    }
}

const VizBox& Node::SubtreeBounds() const
{
    if (m_boundsKept) {
        return m_bounds;
    }
    m_bounds = ownBounds();
    for (const auto& child : m_children) {
        if (!child->m_visible || child->m_auxiliary) {
            continue;
        }
        const VizBox& box = child->SubtreeBounds();
        m_bounds.Add(IsIdentity(child->m_transform) ? box : box.Transformed(child->m_transform));
    }
    m_boundsKept = true;
    return m_bounds;
}

VizBox Node::WorldBounds() const
{
    double world[16];
    GetWorldTransform(world);
    return SubtreeBounds().Transformed(world);
}

Node* Node::FindEntity(const EntityId& entity)
{
    if (m_entity.Value() == entity.Value() && m_entity.Owner() == entity.Owner() &&
        m_entity.Type() == entity.Type()) {
        return this;
    }
    for (const auto& child : m_children) {
        if (Node* const found = child->FindEntity(entity)) {
            return found;
        }
    }
    return nullptr;
}

void Node::Print(std::string& out, bool withParts) const
{
    printLevel(out, withParts, 0);
}

void Node::printLevel(std::string& out, bool withParts, std::size_t depth) const
{
    out.append(depth * 2, ' ');
    out += m_name.empty() ? std::string("(no name)") : m_name;
    out += " [" + std::to_string(m_id) + "]";
    printOwn(out, withParts);
    out += m_visible ? "\n" : " hidden\n";
    for (const auto& child : m_children) {
        child->printLevel(out, withParts, depth + 1);
    }
}

void Node::printOwn(std::string& /*out*/, bool /*withParts*/) const {}

VizBox Node::ownBounds() const
{
    return VizBox();
}

void Node::touch(Change change)
{
    const std::uint64_t stamp = nextStamp();
    switch (change) {
    case Change::Structure:
        m_stamps.structure = stamp;
        AdvanceVisibilityStamp();
        break;
    case Change::Transform:
        m_stamps.transform = stamp;
        break;
    case Change::Appearance:
        m_stamps.appearance = stamp;
        break;
    case Change::Parts:
        m_stamps.parts = stamp;
        break;
    }
    for (Node* node = this; node != nullptr; node = node->m_parent) {
        node->m_stamps.subtree = stamp;
        if (change != Change::Parts) {
            node->m_boundsKept = false;
        }
    }
}

NodeMatch FindRenderId(Node& root, const RenderId& id)
{
    Node* node = &root;
    for (int i = 0; i < id.Length(); ++i) {
        Node* const child = node->FindChild(id[i]);
        if (child != nullptr) {
            node = child;
            continue;
        }
        const GeoNode* const geoNode = node->AsGeoNode();
        if (i + 1 != id.Length() || geoNode == nullptr || geoNode->GetGeometry() == nullptr) {
            return {};
        }
        const std::int64_t part = geoNode->GetGeometry()->FindPart(id[i]);
        return part < 0 ? NodeMatch{} : NodeMatch{node, part};
    }
    return id.IsEmpty() ? NodeMatch{} : NodeMatch{node, -1};
}

bool GetRenderIdBox(Node& root, const RenderId& id, VizBox& box)
{
    box.Clear();
    const NodeMatch match = FindRenderId(root, id);
    if (match.node == nullptr) {
        return false;
    }
    if (match.part < 0) {
        box = match.node->WorldBounds();
    } else {
        double world[16];
        match.node->GetWorldTransform(world);
        const auto part = static_cast<std::uint32_t>(match.part);
        box = match.node->AsGeoNode()->GetGeometry()->PartBox(part).Transformed(world);
    }
    return !box.IsEmpty();
}

bool GetRenderIdEntity(Node& root, const RenderId& id, EntityId& entity)
{
    entity.Clear();
    const NodeMatch match = FindRenderId(root, id);
    const Node* owner = match.node;
    while (owner != nullptr && owner->Entity().IsEmpty()) {
        owner = owner->Parent();
    }
    if (owner == nullptr) {
        return false;
    }
    if (match.part < 0) {
        entity = owner->Entity();
        return true;
    }
    const auto& parts = match.node->AsGeoNode()->GetGeometry()->Parts();
    const GeometryPart& part = parts[static_cast<std::size_t>(match.part)];
    const auto index = static_cast<std::uint32_t>(part.id);
    if (part.id != MakePartId(part.kind, index) || static_cast<std::int32_t>(index) < 0) {
        return false;
    }
    entity = owner->Entity();
    entity.SetSubEntity(part.kind, static_cast<std::int32_t>(index));
    return true;
}

bool FindEntityRenderId(Node& root, const EntityId& entity, RenderId& id)
{
    id.Clear();
    const Node* const node = entity.IsEmpty() ? nullptr : root.FindEntity(entity);
    if (node == nullptr) {
        return false;
    }
    RenderId found = node->GetRenderId();
    if (entity.SubEntityKind() != PartKind::None) {
        const GeoNode* const geoNode = node->AsGeoNode();
        const std::uint64_t partId =
            MakePartId(entity.SubEntityKind(), static_cast<std::uint32_t>(entity.SubEntityIndex()));
        if (geoNode == nullptr || geoNode->GetGeometry() == nullptr ||
            geoNode->GetGeometry()->FindPart(partId) < 0) {
            return false;
        }
        found.AddValue(partId);
    }
    id = found;
    return true;
}

} // namespace TambVizCore
