#include "TambVizCore/Geometry.h"

#include <OrvikOs/ParallelFor.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <limits>
#include <utility>

namespace TambVizCore {

namespace {

constexpr std::size_t kMaxCount = std::numeric_limits<std::uint32_t>::max();

std::string number(std::uint64_t value)
{
    return std::to_string(value);
}

/// Elements per task; what fits into one task is read on the calling thread.
constexpr std::size_t kElementsPerTask = std::size_t{1} << 20;

/// Calls body(task, begin, end) for runs of elements, on several threads where it pays.
template <class Body> std::size_t forTasks(std::size_t count, Body body)
{
    const std::size_t tasks = (count + kElementsPerTask - 1) / kElementsPerTask;
    const auto run = [&](std::size_t first, std::size_t last) {
        for (std::size_t task = first; task < last; ++task) {
            const std::size_t begin = task * kElementsPerTask;
            body(task, begin, std::min(count, begin + kElementsPerTask));
        }
    };
    if (tasks > 1) {
        OrvikOs::ParallelFor(tasks, 1, run);
    } else {
        run(0, tasks);
    }
    return tasks;
}

/// The box of a run of vertices, and whether all of them are finite.
struct Extent
{
    float lo[3];
    float hi[3];
    bool isFinite;
};

Extent extentOf(const float* first, const float* last)
{
    Extent extent{{first[0], first[1], first[2]}, {first[0], first[1], first[2]}, true};
    // No branch but the loop's: infinity and NaN are those whose exponent is all ones.
    constexpr std::uint32_t kExponent = 0x7F800000u;
    std::uint32_t largest = 0;
    for (const float* p = first; p != last; p += 3) {
        for (int i = 0; i < 3; ++i) {
            largest = std::max(largest, std::bit_cast<std::uint32_t>(p[i]) & kExponent);
            extent.lo[i] = p[i] < extent.lo[i] ? p[i] : extent.lo[i];
            extent.hi[i] = p[i] > extent.hi[i] ? p[i] : extent.hi[i];
        }
    }
    extent.isFinite = largest != kExponent;
    return extent;
}

std::size_t firstBadVertex(const SharedArray<float>& positions)
{
    const auto values = positions.Span();
    const auto bad = std::find_if(values.begin(), values.end(),
                                  [](float value) { return !std::isfinite(value); });
    return static_cast<std::size_t>(bad - values.begin()) / 3;
}

/// Computes the box of all vertices; false, with the vertex's number, at one that is not finite.
bool computeBox(const SharedArray<float>& positions, VizBox& box, std::size_t& badVertex)
{
    const std::size_t count = positions.Size() / 3;
    std::vector<Extent> extents(count / kElementsPerTask + 1);
    const std::size_t tasks =
        forTasks(count, [&](std::size_t task, std::size_t begin, std::size_t end) {
            extents[task] = extentOf(positions.Data() + begin * 3, positions.Data() + end * 3);
        });
    for (std::size_t task = 0; task < tasks; ++task) {
        if (!extents[task].isFinite) {
            badVertex = firstBadVertex(positions);
            return false;
        }
        box.Add(extents[task].lo);
        box.Add(extents[task].hi);
    }
    return true;
}

/// Checks that every index names a vertex.
bool checkIndices(const SharedArray<std::uint32_t>& indices, std::size_t width,
                  std::size_t vertexCount, const char* primitiveName, std::string& error)
{
    std::vector<std::uint32_t> largest(indices.Size() / kElementsPerTask + 1);
    forTasks(indices.Size(), [&](std::size_t task, std::size_t begin, std::size_t end) {
        std::uint32_t found = 0;
        for (std::size_t i = begin; i < end; ++i) {
            found = std::max(found, indices[i]);
        }
        largest[task] = found;
    });
    if (indices.IsEmpty() || *std::max_element(largest.begin(), largest.end()) < vertexCount) {
        return true;
    }
    const auto bad = std::find_if(indices.Span().begin(), indices.Span().end(),
                                  [vertexCount](std::uint32_t i) { return i >= vertexCount; });
    const auto position = static_cast<std::size_t>(bad - indices.Span().begin());
    error = std::string(primitiveName) + " " + number(position / width) + " names vertex " +
            number(*bad) + ", but there are only " + number(vertexCount) + ".";
    return false;
}

/// Sorts the parts by id and checks ids and kinds.
bool sortParts(std::vector<GeometryPart>& parts, std::string& error)
{
    const auto byId = [](const GeometryPart& a, const GeometryPart& b) { return a.id < b.id; };
    if (!std::is_sorted(parts.begin(), parts.end(), byId)) {
        std::sort(parts.begin(), parts.end(), byId);
    }
    for (std::size_t i = 0; i < parts.size(); ++i) {
        const GeometryPart& part = parts[i];
        if (part.id == 0) {
            error = "A part has the id 0.";
            return false;
        }
        if (part.kind != PartKind::Face && part.kind != PartKind::Edge &&
            part.kind != PartKind::Vertex) {
            error = "The part of id " + number(part.id) + " has no kind.";
            return false;
        }
        if (i > 0 && parts[i - 1].id == part.id) {
            error = "Two parts have the id " + number(part.id) + ".";
            return false;
        }
    }
    return true;
}

/// Lists the parts of a kind that are not empty by their first primitive, and checks their runs.
bool orderParts(const std::vector<GeometryPart>& parts, PartKind kind, std::uint64_t primitives,
                std::vector<std::uint32_t>& order, std::string& error)
{
    for (std::size_t i = 0; i < parts.size(); ++i) {
        if (parts[i].kind != kind) {
            continue;
        }
        if (std::uint64_t{parts[i].first} + parts[i].count > primitives) {
            error = "The part of id " + number(parts[i].id) + " reaches beyond its primitives.";
            return false;
        }
        if (parts[i].count > 0) {
            order.push_back(static_cast<std::uint32_t>(i));
        }
    }
    const auto byFirst = [&parts](std::uint32_t a, std::uint32_t b) {
        return parts[a].first < parts[b].first;
    };
    if (!std::is_sorted(order.begin(), order.end(), byFirst)) {
        std::sort(order.begin(), order.end(), byFirst);
    }
    for (std::size_t i = 1; i < order.size(); ++i) {
        const GeometryPart& before = parts[order[i - 1]];
        const GeometryPart& part = parts[order[i]];
        if (part.first - before.first < before.count) {
            error = "The parts of ids " + number(std::min(before.id, part.id)) + " and " +
                    number(std::max(before.id, part.id)) + " overlap.";
            return false;
        }
    }
    order.shrink_to_fit();
    return true;
}

/// Checks that the lengths of the arrays fit together.
bool checkSizes(const Geometry& geometry, std::string& error)
{
    const std::size_t vertices = geometry.Positions().Size() / 3;
    if (geometry.Positions().Size() % 3 != 0) {
        error = "The number of coordinates is not a multiple of three.";
    } else if (vertices > kMaxCount) {
        error = "The geometry has more than 4294967295 vertices.";
    } else if (!geometry.Normals().IsEmpty() && geometry.Normals().Size() != vertices * 3) {
        error = "The number of normals does not match the number of vertices.";
    } else if (!geometry.Colors().IsEmpty() && geometry.Colors().Size() != vertices * 4) {
        error = "The number of colours does not match the number of vertices.";
    } else if (geometry.Triangles().Size() % 3 != 0) {
        error = "The number of triangle indices is not a multiple of three.";
    } else if (geometry.Segments().Size() % 2 != 0) {
        error = "The number of segment indices is not a multiple of two.";
    } else if (geometry.Triangles().Size() / 3 > kMaxCount ||
               geometry.Segments().Size() / 2 > kMaxCount || geometry.Points().Size() > kMaxCount) {
        error = "The geometry has too many primitives.";
    } else {
        return true;
    }
    return false;
}

} // namespace

Geometry& GeometryBuilder::geometry()
{
    if (m_geometry == nullptr) {
        // The constructor is private, so make_shared cannot be used.
        m_geometry.reset(new Geometry());
    }
    return *m_geometry;
}

GeometryBuilder& GeometryBuilder::SetPositions(SharedArray<float> positions)
{
    geometry().m_positions = std::move(positions);
    return *this;
}

GeometryBuilder& GeometryBuilder::SetNormals(SharedArray<float> normals)
{
    geometry().m_normals = std::move(normals);
    return *this;
}

GeometryBuilder& GeometryBuilder::SetColors(SharedArray<std::uint8_t> colors)
{
    geometry().m_colors = std::move(colors);
    return *this;
}

GeometryBuilder& GeometryBuilder::SetTriangles(SharedArray<std::uint32_t> triangles)
{
    geometry().m_triangles = std::move(triangles);
    return *this;
}

GeometryBuilder& GeometryBuilder::SetSegments(SharedArray<std::uint32_t> segments)
{
    geometry().m_segments = std::move(segments);
    return *this;
}

GeometryBuilder& GeometryBuilder::SetPoints(SharedArray<std::uint32_t> points)
{
    geometry().m_points = std::move(points);
    return *this;
}

GeometryBuilder& GeometryBuilder::SetParts(std::vector<GeometryPart> parts)
{
    geometry().m_parts = std::move(parts);
    return *this;
}

GeometryBuilder& GeometryBuilder::AddPart(const GeometryPart& part)
{
    geometry().m_parts.push_back(part);
    return *this;
}

GeometryBuilder& GeometryBuilder::SetClosed(bool closed)
{
    geometry().m_closed = closed;
    return *this;
}

std::shared_ptr<const Geometry> GeometryBuilder::Build(std::string& error)
{
    error.clear();
    geometry();
    const std::shared_ptr<Geometry> built = std::exchange(m_geometry, nullptr);
    if (!checkSizes(*built, error)) {
        return nullptr;
    }
    std::size_t badVertex = 0;
    if (!computeBox(built->m_positions, built->m_box, badVertex)) {
        error = "Vertex " + number(badVertex) + " has a coordinate that is not finite.";
        return nullptr;
    }
    const std::size_t vertices = built->VertexCount();
    if (!checkIndices(built->m_triangles, 3, vertices, "Triangle", error) ||
        !checkIndices(built->m_segments, 2, vertices, "Segment", error) ||
        !checkIndices(built->m_points, 1, vertices, "Point", error)) {
        return nullptr;
    }
    if (!sortParts(built->m_parts, error) ||
        !orderParts(built->m_parts, PartKind::Face, built->TriangleCount(), built->m_byFirst[0],
                    error) ||
        !orderParts(built->m_parts, PartKind::Edge, built->SegmentCount(), built->m_byFirst[1],
                    error) ||
        !orderParts(built->m_parts, PartKind::Vertex, built->PointCount(), built->m_byFirst[2],
                    error)) {
        return nullptr;
    }
    return built;
}

} // namespace TambVizCore
