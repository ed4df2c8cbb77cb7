#include "kernel/MeshBuilder.h"

#include "kernel/FaceMesh.h"
#include "kernel/ShapeSanity.h"

#include <BRepAdaptor_Curve.hxx>
#include <BRep_Tool.hxx>
#include <GCPnts_TangentialDeflection.hxx>
#include <Poly_PolygonOnTriangulation.hxx>
#include <Poly_Triangulation.hxx>
#include <Precision.hxx>
#include <TopExp.hxx>
#include <TopExp_Explorer.hxx>
#include <TopoDS.hxx>
#include <TopoDS_Edge.hxx>
#include <TopoDS_Face.hxx>
#include <TopoDS_Vertex.hxx>

#include <cmath>
#include <stdexcept>
#include <string>

namespace OrvikCad {

using TambVizCore::GeometryBuilder;
using TambVizCore::GeometryPart;
using TambVizCore::MakePartId;
using TambVizCore::PartKind;
using TambVizCore::SharedArray;

namespace {

constexpr std::uint32_t kNone = 0xFFFFFFFFu;

/// Most segments into which one edge without a face is cut.
constexpr int kMaxSegments = 100000;

/// How an edge of the shape is drawn.
struct EdgeWay
{
    bool hasFace = false;
    std::vector<std::uint32_t> vertices; ///< Empty when it is not drawn.
};

class Builder
{
public:
    Builder(const TopoDS_Shape& shape, const ShapeParts& parts, const MeshParameters& parameters)
        : m_shape(shape),
          m_parts(parts),
          m_parameters(parameters),
          m_edges(static_cast<std::size_t>(parts.Edges().Extent())),
          m_vertices(static_cast<std::size_t>(parts.Vertices().Extent()), kNone)
    {
        m_mesh.parameters = parameters;
    }

    ShapeMesh Build()
    {
        addFaces();
        addFreeEdges();
        addEdgeParts();
        addVertexParts();
        GeometryBuilder builder;
        builder.SetPositions(SharedArray<float>(std::move(m_arrays.positions)));
        builder.SetNormals(SharedArray<float>(std::move(m_arrays.normals)));
        builder.SetTriangles(SharedArray<std::uint32_t>(std::move(m_arrays.triangles)));
        builder.SetSegments(SharedArray<std::uint32_t>(std::move(m_segments)));
        builder.SetPoints(SharedArray<std::uint32_t>(std::move(m_points)));
        builder.SetParts(std::move(m_geometryParts));
        builder.SetClosed(isClosed());
        m_mesh.samples = std::make_shared<const MeshSamples>(std::move(m_samples));
        std::string error;
        m_mesh.geometry = builder.Build(error);
        if (!m_mesh.geometry)
            throw std::runtime_error(error);
        return std::move(m_mesh);
    }

private:
    void addFaces()
    {
        reserve();
        for (int i = 1; i <= m_parts.Faces().Extent(); ++i) {
            const TopoDS_Face& face = TopoDS::Face(m_parts.Faces().FindKey(i));
            const auto first = static_cast<std::uint32_t>(m_arrays.triangles.size() / 3);
            TopLoc_Location place;
            const Handle(Poly_Triangulation) triangles = BRep_Tool::Triangulation(face, place);
            if (triangles.IsNull() || triangles->NbTriangles() == 0 ||
                !addFace(face, static_cast<std::uint32_t>(i - 1), triangles, place))
                ++m_mesh.failedFaces;
            addPart(PartKind::Face, static_cast<std::uint32_t>(i - 1), first,
                    static_cast<std::uint32_t>(m_arrays.triangles.size() / 3) - first);
        }
    }

    void reserve()
    {
        std::size_t nodes = 0;
        std::size_t triangleCount = 0;
        for (int i = 1; i <= m_parts.Faces().Extent(); ++i) {
            TopLoc_Location place;
            const Handle(Poly_Triangulation) triangles =
                BRep_Tool::Triangulation(TopoDS::Face(m_parts.Faces().FindKey(i)), place);
            if (triangles.IsNull())
                continue;
            nodes += static_cast<std::size_t>(triangles->NbNodes());
            triangleCount += static_cast<std::size_t>(triangles->NbTriangles());
        }
        m_arrays.positions.reserve(nodes * 3);
        m_arrays.normals.reserve(nodes * 3);
        m_arrays.triangles.reserve(triangleCount * 3);
        m_geometryParts.reserve(static_cast<std::size_t>(
            m_parts.Faces().Extent() + m_parts.Edges().Extent() + m_parts.Vertices().Extent()));
    }

    bool addFace(const TopoDS_Face& face, std::uint32_t index,
                 const Handle(Poly_Triangulation) & triangles, const TopLoc_Location& place)
    {
        const std::uint32_t base = m_arrays.VertexCount();
        FaceSamples samples;
        samples.face = index;
        if (!AppendFace(face, triangles, place, m_arrays, samples.points))
            return false;
        if (!samples.points.empty())
            m_samples.push_back(std::move(samples));
        for (TopExp_Explorer edges(face, TopAbs_EDGE); edges.More(); edges.Next())
            takeEdge(TopoDS::Edge(edges.Current()), face, triangles, place, base);
        return true;
    }

    /// Keeps the way of an edge over the vertices of the first face at it.
    void takeEdge(const TopoDS_Edge& edge, const TopoDS_Face& face,
                  const Handle(Poly_Triangulation) & triangles, const TopLoc_Location& place,
                  std::uint32_t base)
    {
        const int index = m_parts.Edges().FindIndex(edge);
        if (index == 0 || BRep_Tool::Degenerated(edge))
            return;
        EdgeWay& way = m_edges[static_cast<std::size_t>(index) - 1];
        way.hasFace = true;
        const Handle(Poly_PolygonOnTriangulation) polygon =
            BRep_Tool::PolygonOnTriangulation(edge, triangles, place);
        if (polygon.IsNull() || polygon->NbNodes() < 2)
            return;
        takeEnds(edge, base + static_cast<std::uint32_t>(polygon->Node(1)) - 1,
                 base + static_cast<std::uint32_t>(polygon->Node(polygon->NbNodes())) - 1);
        if (!way.vertices.empty() || BRep_Tool::IsClosed(edge, face))
            return;
        way.vertices.reserve(static_cast<std::size_t>(polygon->NbNodes()));
        for (int i = 1; i <= polygon->NbNodes(); ++i)
            way.vertices.push_back(base + static_cast<std::uint32_t>(polygon->Node(i)) - 1);
    }

    /// The vertices of the shape at an edge's ends are drawn where the edge ends.
    void takeEnds(const TopoDS_Edge& edge, std::uint32_t first, std::uint32_t last)
    {
        TopoDS_Vertex ends[2];
        TopExp::Vertices(TopoDS::Edge(edge.Oriented(TopAbs_FORWARD)), ends[0], ends[1]);
        const std::uint32_t drawn[2] = {first, last};
        for (int i = 0; i < 2; ++i) {
            const int index = ends[i].IsNull() ? 0 : m_parts.Vertices().FindIndex(ends[i]);
            if (index != 0 && m_vertices[static_cast<std::size_t>(index) - 1] == kNone)
                m_vertices[static_cast<std::size_t>(index) - 1] = drawn[i];
        }
    }

    void addFreeEdges()
    {
        for (int i = 1; i <= m_parts.Edges().Extent(); ++i) {
            EdgeWay& way = m_edges[static_cast<std::size_t>(i) - 1];
            const TopoDS_Edge& edge = TopoDS::Edge(m_parts.Edges().FindKey(i));
            if (!way.hasFace && !BRep_Tool::Degenerated(edge) && BRep_Tool::IsGeometric(edge) &&
                IsSane(edge))
                cutFreeEdge(edge, way);
        }
    }

    void cutFreeEdge(const TopoDS_Edge& edge, EdgeWay& way)
    {
        const BRepAdaptor_Curve curve(edge);
        if (Precision::IsInfinite(curve.FirstParameter()) ||
            Precision::IsInfinite(curve.LastParameter()))
            return;
        const GCPnts_TangentialDeflection points(curve, m_parameters.angleRadians,
                                                 m_parameters.sag);
        if (points.NbPoints() < 2 || points.NbPoints() > kMaxSegments)
            return;
        for (int i = 1; i <= points.NbPoints(); ++i)
            way.vertices.push_back(addVertex(points.Value(i)));
        takeEnds(edge, way.vertices.front(), way.vertices.back());
    }

    std::uint32_t addVertex(const gp_Pnt& point)
    {
        const std::uint32_t index = m_arrays.VertexCount();
        for (int i = 1; i <= 3; ++i)
            m_arrays.positions.push_back(static_cast<float>(point.Coord(i)));
        m_arrays.normals.insert(m_arrays.normals.end(), {0.0f, 0.0f, 1.0f});
        return index;
    }

    void addEdgeParts()
    {
        std::size_t count = 0;
        for (const EdgeWay& way : m_edges)
            count += way.vertices.empty() ? 0 : way.vertices.size() - 1;
        m_segments.reserve(count * 2);
        for (std::size_t edge = 0; edge < m_edges.size(); ++edge) {
            const std::vector<std::uint32_t>& way = m_edges[edge].vertices;
            const auto first = static_cast<std::uint32_t>(m_segments.size() / 2);
            for (std::size_t i = 1; i < way.size(); ++i)
                m_segments.insert(m_segments.end(), {way[i - 1], way[i]});
            addPart(PartKind::Edge, static_cast<std::uint32_t>(edge), first,
                    static_cast<std::uint32_t>(m_segments.size() / 2) - first);
        }
    }

    void addVertexParts()
    {
        m_points.reserve(m_vertices.size());
        for (std::size_t i = 0; i < m_vertices.size(); ++i) {
            const auto first = static_cast<std::uint32_t>(m_points.size());
            std::uint32_t drawn = m_vertices[i];
            if (drawn == kNone) {
                const gp_Pnt point = BRep_Tool::Pnt(
                    TopoDS::Vertex(m_parts.Vertices().FindKey(static_cast<int>(i) + 1)));
                if (std::isfinite(point.X() + point.Y() + point.Z()))
                    drawn = addVertex(point);
            }
            if (drawn != kNone)
                m_points.push_back(drawn);
            addPart(PartKind::Vertex, static_cast<std::uint32_t>(i), first,
                    static_cast<std::uint32_t>(m_points.size()) - first);
        }
    }

    void addPart(PartKind kind, std::uint32_t index, std::uint32_t first, std::uint32_t count)
    {
        GeometryPart part;
        part.kind = kind;
        part.first = first;
        part.count = count;
        part.id = MakePartId(kind, index);
        m_geometryParts.push_back(part);
    }

    /// Whether the backs of the triangles are never seen.
    bool isClosed() const
    {
        if (m_shape.ShapeType() != TopAbs_SOLID || m_mesh.failedFaces > 0)
            return false;
        for (TopExp_Explorer shells(m_shape, TopAbs_SHELL); shells.More(); shells.Next())
            if (!BRep_Tool::IsClosed(shells.Current()))
                return false;
        return m_arrays.volume > 0.0;
    }

    const TopoDS_Shape& m_shape;
    const ShapeParts& m_parts;
    MeshParameters m_parameters;
    ShapeMesh m_mesh;
    MeshSamples m_samples;
    MeshArrays m_arrays;
    std::vector<EdgeWay> m_edges;
    std::vector<std::uint32_t> m_vertices; ///< Per vertex of the shape: the vertex that draws it.
    std::vector<std::uint32_t> m_segments;
    std::vector<std::uint32_t> m_points;
    std::vector<GeometryPart> m_geometryParts;
};

} // namespace

ShapeMesh BuildMesh(const TopoDS_Shape& shape, const ShapeParts& parts,
                    const MeshParameters& parameters)
{
    return Builder(shape, parts, parameters).Build();
}

ShapeMesh EmptyMesh(const MeshParameters& parameters)
{
    std::string error;
    ShapeMesh mesh;
    mesh.parameters = parameters;
    mesh.geometry = GeometryBuilder().Build(error);
    mesh.samples = std::make_shared<const MeshSamples>();
    return mesh;
}

} // namespace OrvikCad
