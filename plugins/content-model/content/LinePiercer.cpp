#include "content/LinePiercer.h"

#include "OrvikModel/ModelEntity.h"
#include "content/SectionedLine.h"

#include <TambVizCore/Geometry.h>
#include <TambVizCore/Matrix.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <span>

namespace OrvikModel {

using OrvikCore::LineHit;
using TambVizCore::Geometry;
using TambVizCore::GeometryHit;
using TambVizCore::GeometryQuery;
using TambVizCore::Ray;

namespace {

/// Places on one side of a body that are nearer to each other than this share of its size are one.
constexpr double kSamePlace = 1e-6;

using Vector = double[3];

double dot(const double* a, const double* b)
{
    return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}

/// @return false when the vector has no length.
bool normalize(double* vector)
{
    const double size = std::hypot(vector[0], vector[1], vector[2]);
    if (!(size > 0.0) || !std::isfinite(size))
        return false;
    for (int i = 0; i < 3; ++i)
        vector[i] /= size;
    return true;
}

/// Multiplies by the upper left of a matrix, and adds the translation times @p w.
void transform(const double* matrix, const double* vector, double w, double* out)
{
    for (int i = 0; i < 3; ++i)
        out[i] = matrix[i] * vector[0] + matrix[4 + i] * vector[1] + matrix[8 + i] * vector[2] +
                 w * matrix[12 + i];
}

/// A line in the units of a shape; parameters are still world units.
struct LocalLine
{
    Vector origin;
    Vector direction;
};

/// Finds the place where a line passes the plane of a triangle, more exactly than an index does.
///
/// @return false for a triangle without area or along the line.
bool passTriangle(const Geometry& geometry, std::uint32_t triangle, const LocalLine& line,
                  RefinedHit& hit)
{
    const float* corners[3];
    for (std::size_t i = 0; i < 3; ++i)
        corners[i] = geometry.Positions().Data() +
                     std::size_t{geometry.Triangles()[std::size_t{triangle} * 3 + i]} * 3;
    Vector a;
    Vector b;
    Vector away;
    for (std::size_t i = 0; i < 3; ++i) {
        const auto first = static_cast<double>(corners[0][i]);
        a[i] = static_cast<double>(corners[1][i]) - first;
        b[i] = static_cast<double>(corners[2][i]) - first;
        away[i] = first - line.origin[i];
    }
    const Vector normal = {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2],
                           a[0] * b[1] - a[1] * b[0]};
    std::copy_n(normal, 3, hit.normal);
    if (!normalize(hit.normal))
        return false;
    hit.parameter = dot(hit.normal, away) / dot(hit.normal, line.direction);
    for (int i = 0; i < 3; ++i)
        hit.position[i] = line.origin[i] + hit.parameter * line.direction[i];
    return std::isfinite(hit.parameter);
}

/// Carries a hit into the world.
LineHit place(const ModelInstance& instance, const double* inverse, const RefinedHit& hit)
{
    LineHit placed;
    placed.distance = hit.parameter;
    transform(instance.world, hit.position, 1.0, placed.position);
    for (int i = 0; i < 3; ++i) // Normals follow the transposed inverse.
        placed.normal[i] = dot(inverse + i * 4, hit.normal);
    normalize(placed.normal);
    return placed;
}

/// Whether one place is told twice: the same side of the same body at the same distance.
bool isSamePlace(const LineHit& a, const LineHit& b, const WorldLine& line, double tolerance)
{
    const bool sameSide =
        (dot(a.normal, line.direction) < 0.0) == (dot(b.normal, line.direction) < 0.0);
    return sameSide && std::abs(a.distance - b.distance) <= tolerance;
}

/// Walks along a line from hit to hit of one shape.
class Piercer
{
public:
    Piercer(const Model& model, const ModelInstance& instance, const WorldLine& line)
        : m_model(model),
          m_instance(instance),
          m_line(line),
          m_geometry(instance.node->shape->WithParts())
    {
    }

    /// @return all faces that the line passes through, in ascending distance.
    const std::vector<PiercedFace>& Run(std::span<const TambVizCore::PartState> states)
    {
        if (!m_geometry->Index() || !TambVizCore::InvertMatrix(m_instance.world, m_inverse))
            return m_faces;
        transform(m_inverse, m_line.origin, 1.0, m_local.origin);
        transform(m_inverse, m_line.direction, 0.0, m_local.direction);
        const double start = startOfQuery();
        GeometryQuery query;
        for (int i = 0; i < 3; ++i) {
            query.origin[i] = static_cast<float>(m_local.origin[i] + start * m_local.direction[i]);
            query.direction[i] = static_cast<float>(m_local.direction[i]);
        }
        query.facetsOnly = true; // Every triangle is met once; exact places are sorted afterwards.
        GeometryHit hit;
        while (m_geometry->Index()->FindFace(query, hit)) {
            add(hit, states);
            query.minDistance = std::nextafter(std::max(hit.distance, 0.0f),
                                               std::numeric_limits<float>::infinity());
        }
        std::stable_sort(m_faces.begin(), m_faces.end(),
                         [](const PiercedFace& a, const PiercedFace& b) {
                             return a.hit.distance < b.hit.distance;
                         });
        return m_faces;
    }

    const Geometry& Shown() const { return *m_geometry; }

private:
    /// Where to begin so that the index counts from nearby: its numbers are floats.
    double startOfQuery()
    {
        const TambVizCore::VizBox box = m_geometry->BoundingBox().Transformed(m_instance.world);
        float center[3];
        box.GetCenter(center);
        double ahead = 0.0;
        for (int i = 0; i < 3; ++i)
            ahead += (static_cast<double>(center[i]) - m_line.origin[i]) * m_line.direction[i];
        m_size = 2.0 * box.Radius();
        return std::max(0.0, ahead - m_size);
    }

    void add(const GeometryHit& hit, std::span<const TambVizCore::PartState> states)
    {
        const std::uint64_t partId =
            hit.partIndex == TambVizCore::kNoPart ? 0 : m_geometry->Parts()[hit.partIndex].id;
        RefinedHit flat;
        if (!passTriangle(*m_geometry, hit.primitive, m_local, flat))
            return;
        RefinedHit refined;
        FacetHit facet;
        facet.facePartId = partId;
        std::copy_n(m_local.origin, 3, facet.origin);
        std::copy_n(m_local.direction, 3, facet.direction);
        facet.parameter = flat.parameter;
        facet.isFromOutside = dot(flat.normal, m_local.direction) < 0.0;
        const bool isExact = m_instance.node->shape->Refine(facet, refined);
        if (!isExact)
            refined = flat;
        LineHit placed = place(m_instance, m_inverse, refined);
        placed.entity = MakeEntity(m_model, *m_instance.node, partId);
        placed.exact = isExact;
        if (placed.distance >= 0.0)
            keep({placed, hit.partIndex >= states.size() ||
                              states[hit.partIndex].Has(TambVizCore::PartState::kShown)});
    }

    /// A face that is shown counts before one that is not.
    void keep(const PiercedFace& face)
    {
        const auto told =
            std::find_if(m_faces.begin(), m_faces.end(), [&](const PiercedFace& other) {
                return isSamePlace(other.hit, face.hit, m_line, kSamePlace * m_size);
            });
        if (told == m_faces.end())
            m_faces.push_back(face);
        else if (face.isShown && !told->isShown)
            *told = face;
    }

    const Model& m_model;
    const ModelInstance& m_instance;
    const WorldLine& m_line;
    std::shared_ptr<const Geometry> m_geometry;
    double m_inverse[16];
    LocalLine m_local;
    double m_size = 0.0; ///< Of the box, world units.
    std::vector<PiercedFace> m_faces;
};

} // namespace

bool MakeWorldLine(const double* origin, const double* direction, WorldLine& line)
{
    std::copy_n(origin, 3, line.origin);
    std::copy_n(direction, 3, line.direction);
    return normalize(line.direction) && std::isfinite(dot(origin, origin));
}

Ray ToRay(const WorldLine& line)
{
    float origin[3];
    float direction[3];
    double farthest = 0.0;
    for (int i = 0; i < 3; ++i) {
        origin[i] = static_cast<float>(line.origin[i]);
        direction[i] = static_cast<float>(line.direction[i]);
        farthest = std::max(farthest, std::abs(line.origin[i]));
    }
    return {origin, direction, 1e-6 * farthest};
}

void PierceShape(const Model& model, std::size_t position, const ModelInstance& instance,
                 const WorldLine& line, const Visibility& seen, std::vector<LineHit>& hits)
{
    Piercer piercer(model, instance, line);
    const auto& faces = piercer.Run(seen.StatesOf(position, piercer.Shown()));
    KeptPiece(line, seen.planes)
        .AppendSeen(faces, piercer.Shown().IsClosed(), MakeEntity(model, *instance.node), hits);
}

} // namespace OrvikModel
