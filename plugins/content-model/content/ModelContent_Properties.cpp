#include "OrvikModel/ModelContent.h"
#include "OrvikModel/ModelEntity.h"
#include "content/PartBoxes.h"
#include "content/Placement.h"

#include <TambVizCore/Geometry.h>

#include <algorithm>
#include <set>

// What a content answers of the structure of its entities.

namespace OrvikModel {

using OrvikCore::PlacedShape;
using TambVizCore::EntityId;
using TambVizCore::Geometry;
using TambVizCore::GeometryPart;
using TambVizCore::RGBAColor;
using TambVizCore::VizBox;

namespace {

/// @return the colour of a node, or the nearest one above it.
std::optional<RGBAColor> colorOf(const ModelNode& node)
{
    for (const ModelNode* at = &node; at; at = at->parent)
        if (at->color)
            return at->color;
    return std::nullopt;
}

std::optional<RGBAColor> partColorOf(const ModelNode& node, std::uint64_t partId)
{
    for (const auto& [id, color] : node.partColors)
        if (id == partId)
            return color;
    return std::nullopt;
}

PlacedShape placeShape(const Model& model, const ModelNode& node, std::uint64_t partId)
{
    PlacedShape shape;
    shape.body = MakeEntity(model, node);
    shape.name = DisplayName(node);
    shape.geometry = node.shape->Present();
    shape.partId = partId;
    GetWorldTransform(node, shape.world);
    shape.color = colorOf(node);
    return shape;
}

} // namespace

std::uint64_t ModelContent::GetContentNumber() const
{
    return m_model->number;
}

bool ModelContent::GetChildren(const EntityId& entity, std::vector<EntityId>& children) const
{
    const EntityMatch match = FindEntity(*m_model, entity);
    if (!entity.IsEmpty() && !match.IsFound())
        return false;
    children.clear();
    if (match.partId != 0)
        return HasPart(*match.node, match.partId);
    for (const auto& child : match.node ? match.node->children : m_model->nodes)
        children.push_back(MakeEntity(*m_model, *child));
    if (match.node && match.node->shape) {
        match.node->shape->MakeParts();
        for (const GeometryPart& part : match.node->shape->Present()->Parts())
            children.push_back(MakeEntity(*m_model, *match.node, part.id));
    }
    return true;
}

bool ModelContent::GetParent(const EntityId& entity, EntityId& parent) const
{
    const EntityMatch match = FindEntity(*m_model, entity);
    if (!match.node || (match.partId != 0 && !HasPart(*match.node, match.partId)))
        return false;
    if (match.partId != 0)
        parent = MakeEntity(*m_model, *match.node);
    else if (match.node->parent)
        parent = MakeEntity(*m_model, *match.node->parent);
    else
        parent = MakeContainerEntity(*m_model);
    return true;
}

bool ModelContent::GetName(const EntityId& entity, std::wstring& name) const
{
    const EntityMatch match = FindEntity(*m_model, entity);
    if (!match.IsFound() || match.partId != 0)
        return false;
    name = match.isContainer ? m_model->FileName() : DisplayName(*match.node);
    return true;
}

bool ModelContent::GetColor(const EntityId& entity, RGBAColor& color) const
{
    const EntityMatch match = FindEntity(*m_model, entity);
    if (!match.node)
        return false;
    std::optional<RGBAColor> found = partColorOf(*match.node, match.partId);
    if (!found)
        found = colorOf(*match.node);
    if (!found)
        return false;
    color = *found;
    return true;
}

bool ModelContent::GetLayers(const EntityId& entity, std::vector<std::wstring>& layers) const
{
    const EntityMatch match = FindEntity(*m_model, entity);
    if (!match.IsFound())
        return false;
    std::set<std::wstring> found;
    for (const ModelNode* at = match.node; at; at = at->parent)
        found.insert(at->layers.begin(), at->layers.end());
    layers.assign(found.begin(), found.end());
    return true;
}

bool ModelContent::GetBox(const EntityId& entity, VizBox& box) const
{
    const EntityMatch match = FindEntity(*m_model, entity);
    VizBox found;
    if (match.isContainer) {
        found = m_model->bodyBox;
    } else if (match.partId != 0 && HasPart(*match.node, match.partId)) {
        const auto geometry = match.node->shape->Present();
        const auto part = static_cast<std::uint32_t>(geometry->FindPart(match.partId));
        double world[16];
        GetWorldTransform(*match.node, world);
        found = m_partBoxes->BoxOf(geometry, part).Transformed(world);
    } else if (match.node && match.partId == 0) {
        for (const ModelNode* node : NodesBelow(*m_model, match.node)) {
            double world[16];
            GetWorldTransform(*node, world);
            if (node->shape)
                found.Add(node->shape->BoundingBox().Transformed(world));
        }
    }
    if (found.IsEmpty())
        return false;
    box = found;
    return true;
}

bool ModelContent::GetShapes(const EntityId& entity, std::vector<PlacedShape>& shapes) const
{
    const EntityMatch match = FindEntity(*m_model, entity);
    if (!entity.IsEmpty() && !match.IsFound())
        return false;
    std::vector<PlacedShape> found;
    if (match.partId != 0) {
        if (!HasPart(*match.node, match.partId))
            return false;
        found.push_back(placeShape(*m_model, *match.node, match.partId));
    } else {
        for (const ModelNode* node : ShapesBelow(*m_model, match.node))
            found.push_back(placeShape(*m_model, *node, 0));
    }
    if (found.empty())
        return false;
    shapes = std::move(found);
    return true;
}

} // namespace OrvikModel
