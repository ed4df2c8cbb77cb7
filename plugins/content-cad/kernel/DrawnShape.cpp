#include "kernel/DrawnShape.h"

#include <OrvikRay/RayIndex.h>

#include <string>
#include <unordered_map>
#include <utility>

namespace OrvikCad {

using OrvikModel::ModelNode;
using OrvikModel::ModelShape;
using OrvikModel::NodeKind;
using TambVizCore::Geometry;

namespace {

/// The drawings of exact shapes, one for each.
class Drawings
{
public:
    void PutInto(ModelNode& node)
    {
        if (node.shape) {
            std::shared_ptr<const ModelShape>& drawn = m_drawn[node.shape.get()];
            if (!drawn)
                drawn = std::make_shared<const DrawnShape>(node.shape->Present());
            m_exact.push_back(std::exchange(node.shape, drawn));
            if (node.kind == NodeKind::Body)
                node.kind = drawn->Present()->IsClosed() ? NodeKind::PolyBody : NodeKind::Mesh;
        }
        for (const auto& child : node.children)
            PutInto(*child);
    }

private:
    std::unordered_map<const ModelShape*, std::shared_ptr<const ModelShape>> m_drawn;
    std::vector<std::shared_ptr<const ModelShape>> m_exact; ///< Alive, so that keys stay unique.
};

void putInto(ModelNode& node, const std::shared_ptr<const ModelShape>& shape)
{
    if (node.shape)
        node.shape = shape;
    for (const auto& child : node.children)
        putInto(*child, shape);
}

} // namespace

DrawnShape::DrawnShape(std::shared_ptr<const Geometry> geometry) : m_geometry(std::move(geometry))
{
}

DrawnShape::~DrawnShape() = default;

std::shared_ptr<const Geometry> DrawnShape::WithParts() const
{
    const std::lock_guard<std::mutex> lock(m_indexing);
    if (!m_geometry->Index())
        m_geometry->PublishIndex(OrvikRay::BuildRayIndex(*m_geometry));
    return m_geometry;
}

/// What is drawn has its parts from the start.
void DrawnShape::MakeParts() const {}

void KeepOnlyDrawings(OrvikModel::Model& model)
{
    Drawings drawings;
    for (const auto& node : model.nodes)
        drawings.PutInto(*node);
}

void KeepOnlyStructure(OrvikModel::Model& model)
{
    std::string error;
    const auto nothing =
        std::make_shared<const DrawnShape>(TambVizCore::GeometryBuilder().Build(error));
    for (const auto& node : model.nodes)
        putInto(*node, nothing);
}

} // namespace OrvikCad
