#include "content/TriangleMeasures.h"

#include "content/Primitives.h"
#include "content/ShapeFits.h"

#include <cmath>
#include <optional>

namespace OrvikModel {

using OrvikCore::EntityMeasure;
using OrvikCore::MeasureResult;
using TambVizCore::PartKind;

namespace {

/// Size and centre of a set of triangles, segments or points.
struct Sums
{
    double size = 0.0; ///< Area, length or number.
    Vector3 center;    ///< The middle, when size is not 0.
    double volume = 0.0;
    Vector3 volumeCenter; ///< When volume is not 0.
};

Sums addUp(const Primitives& primitives)
{
    Sums sums;
    if (primitives.Count() == 0)
        return sums;
    // Counted from a corner of the shape itself, so that far away nothing is lost.
    const Vector3 base = primitives.At(0).corner[0];
    for (std::uint32_t i = 0; i < primitives.Count(); ++i) {
        const Primitive primitive = primitives.At(i);
        const Vector3 a = primitive.corner[0] - base;
        const Vector3 b = primitive.corner[1] - base;
        const Vector3 c = primitive.corner[2] - base;
        switch (primitive.corners) {
        case 3: {
            const Vector3 area = Cross(b - a, c - a) * 0.5;
            const double size = Length(area);
            sums.size += size;
            sums.center = sums.center + (a + b + c) * (size / 3.0);
            const double volume = Dot(a, Cross(b, c)) / 6.0;
            sums.volume += volume;
            sums.volumeCenter = sums.volumeCenter + (a + b + c) * (volume / 4.0);
            break;
        }
        case 2:
            sums.size += Length(b - a);
            sums.center = sums.center + (a + b) * (Length(b - a) * 0.5);
            break;
        default:
            sums.size += 1.0;
            sums.center = sums.center + a;
            break;
        }
    }
    sums.center = base + (sums.size > 0.0 ? sums.center * (1.0 / sums.size) : Vector3{});
    if (sums.volume != 0.0)
        sums.volumeCenter = base + sums.volumeCenter * (1.0 / sums.volume);
    return sums;
}

std::vector<Triangle3> trianglesOf(const Primitives& primitives)
{
    std::vector<Triangle3> triangles;
    triangles.reserve(primitives.Count());
    for (std::uint32_t i = 0; i < primitives.Count(); ++i) {
        const Primitive primitive = primitives.At(i);
        triangles.push_back({primitive.corner[0], primitive.corner[1], primitive.corner[2]});
    }
    return triangles;
}

std::vector<std::array<Vector3, 2>> segmentsOf(const Primitives& primitives)
{
    std::vector<std::array<Vector3, 2>> segments;
    segments.reserve(primitives.Count());
    for (std::uint32_t i = 0; i < primitives.Count(); ++i) {
        const Primitive primitive = primitives.At(i);
        segments.push_back({primitive.corner[0], primitive.corner[1]});
    }
    return segments;
}

bool answer(double value, MeasureResult& result)
{
    result.value = value;
    return true;
}

bool answer(const Vector3& vector, MeasureResult& result)
{
    Write(vector, result.vector);
    return true;
}

bool answer(const char* word, MeasureResult& result)
{
    result.word = word;
    return true;
}

/// What a round face or edge answers.
bool answerRound(const RoundFit& fit, EntityMeasure what, MeasureResult& result)
{
    switch (what) {
    case EntityMeasure::Radius:
        return answer(fit.radius, result);
    case EntityMeasure::Origin:
        return answer(fit.center, result);
    case EntityMeasure::Direction:
        return Length(fit.axis) > 0.0 && answer(fit.axis, result);
    default:
        return false;
    }
}

/// What only the form of a face tells.
bool measureFace(const Primitives& primitives, EntityMeasure what, MeasureResult& result)
{
    const std::vector<Triangle3> triangles = trianglesOf(primitives);
    const double noise = primitives.Noise();
    if (const auto plane = FitPlane(triangles, noise)) {
        if (what == EntityMeasure::Surface)
            return answer("plane", result);
        return what == EntityMeasure::Normal && answer(plane->normal, result);
    }
    if (what == EntityMeasure::Normal)
        return false;
    const auto cylinder = FitCylinder(triangles, noise);
    const auto round = cylinder ? cylinder : FitSphere(triangles, noise);
    if (what == EntityMeasure::Surface)
        return answer(cylinder ? "cylinder" : round ? "sphere" : "freeform", result);
    return round && answerRound(*round, what, result);
}

/// What only the form of an edge tells.
bool measureEdge(const Primitives& primitives, EntityMeasure what, MeasureResult& result)
{
    const std::vector<std::array<Vector3, 2>> segments = segmentsOf(primitives);
    const double noise = primitives.Noise();
    if (const auto line = FitLine(segments, noise)) {
        if (what == EntityMeasure::Curve)
            return answer("line", result);
        return what == EntityMeasure::Direction && answer(line->direction, result);
    }
    const auto circle = FitCircle(segments, noise);
    if (what == EntityMeasure::Curve)
        return answer(circle ? "circle" : "polyline", result);
    return circle && answerRound(*circle, what, result);
}

bool measureForm(const Primitives& primitives, EntityMeasure what, MeasureResult& result)
{
    if (primitives.Count() == 0)
        return false;
    if (primitives.Kind() == PartKind::Face && what != EntityMeasure::Curve)
        return measureFace(primitives, what, result);
    if (primitives.Kind() == PartKind::Edge &&
        (what == EntityMeasure::Curve || what == EntityMeasure::Radius ||
         what == EntityMeasure::Origin || what == EntityMeasure::Direction))
        return measureEdge(primitives, what, result);
    return false;
}

bool measureSize(const Primitives& primitives, bool isClosed, EntityMeasure what,
                 MeasureResult& result)
{
    const Sums sums = addUp(primitives);
    switch (what) {
    case EntityMeasure::Area:
        return primitives.Kind() == PartKind::Face && answer(sums.size, result);
    case EntityMeasure::Length:
        return primitives.Kind() == PartKind::Edge && answer(sums.size, result);
    case EntityMeasure::Volume:
        return isClosed && answer(std::abs(sums.volume), result);
    case EntityMeasure::Center:
        if (isClosed && sums.volume != 0.0)
            return answer(sums.volumeCenter, result);
        return sums.size > 0.0 && answer(sums.center, result);
    default:
        return false;
    }
}

} // namespace

bool MeasureTriangles(const std::shared_ptr<const TambVizCore::Geometry>& geometry,
                      std::uint64_t partId, const double* world, EntityMeasure what,
                      MeasureResult& result)
{
    const Primitives primitives(geometry, partId, world);
    const bool isClosed = partId == 0 && geometry->IsClosed() && geometry->TriangleCount() != 0;
    MeasureResult measured;
    switch (what) {
    case EntityMeasure::Area:
    case EntityMeasure::Length:
    case EntityMeasure::Volume:
    case EntityMeasure::Center:
        if (!measureSize(primitives, isClosed, what, measured))
            return false;
        break;
    default:
        // The whole of a body has no form of its own.
        if ((partId == 0 && primitives.Kind() == PartKind::Face) ||
            !measureForm(primitives, what, measured))
            return false;
        break;
    }
    result = measured;
    return true;
}

} // namespace OrvikModel
