#include "kernel/ShapeParts.h"

#include <TambVizCore/Geometry.h>

#include <TopExp.hxx>

namespace OrvikCad {

using TambVizCore::MakePartId;
using TambVizCore::PartKind;

ShapeParts::ShapeParts(const TopoDS_Shape& shape)
{
    TopExp::MapShapes(shape, TopAbs_FACE, m_faces);
    TopExp::MapShapes(shape, TopAbs_EDGE, m_edges);
    TopExp::MapShapes(shape, TopAbs_VERTEX, m_vertices);
}

TopoDS_Shape ShapeParts::Find(std::uint64_t partId) const
{
    const auto index = static_cast<std::uint32_t>(partId);
    const TopTools_IndexedMapOfShape* map = nullptr;
    switch (static_cast<PartKind>(partId >> 32)) {
    case PartKind::Face:
        map = &m_faces;
        break;
    case PartKind::Edge:
        map = &m_edges;
        break;
    case PartKind::Vertex:
        map = &m_vertices;
        break;
    case PartKind::None:
        break;
    }
    if (!map || index >= static_cast<std::uint32_t>(map->Extent()))
        return {};
    return map->FindKey(static_cast<int>(index) + 1);
}

std::uint64_t ShapeParts::IdOf(const TopoDS_Shape& part) const
{
    const auto idIn = [&part](const TopTools_IndexedMapOfShape& map, PartKind kind) {
        const int index = map.FindIndex(part);
        return index == 0 ? 0 : MakePartId(kind, static_cast<std::uint32_t>(index - 1));
    };
    if (part.IsNull())
        return 0;
    switch (part.ShapeType()) {
    case TopAbs_FACE:
        return idIn(m_faces, PartKind::Face);
    case TopAbs_EDGE:
        return idIn(m_edges, PartKind::Edge);
    case TopAbs_VERTEX:
        return idIn(m_vertices, PartKind::Vertex);
    default:
        return 0;
    }
}

} // namespace OrvikCad
