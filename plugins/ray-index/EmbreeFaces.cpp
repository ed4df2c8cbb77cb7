#include "EmbreeDevice.h"
#include "FaceTree.h"

#include <OrvikOs/FpMasked.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace OrvikRay {

using TambVizCore::Geometry;
using TambVizCore::VizBox;

namespace {

/// Below this a tree of our own is built sooner, takes less memory and is walked as fast.
constexpr std::uint32_t kFewTriangles = 4096;
/// Embree multiplies three coordinates: beyond these their product, or that of details a
/// ten-millionth of their size, leaves the range of floats.
constexpr double kSmallest = 1e-6;
constexpr double kLargest = 1e9;
/// Embree keeps offsets of vertices in multiples of four bytes in 32 bits.
constexpr std::uint32_t kMostVertices = 1u << 30;
/// What single precision may lose on the way to a border, in multiples of the largest coordinate:
/// some thirty units in the last place.
constexpr double kRounding = 0x1p-18;

double largestCoordinate(const VizBox& box)
{
    double largest = 0.0;
    for (int i = 0; i < 3; ++i)
        largest = std::max({largest, std::abs(box.Lo()[i]), std::abs(box.Hi()[i])});
    return largest;
}

Box toBox(const VizBox& source)
{
    Box box{};
    for (int i = 0; i < 3; ++i) {
        box.lo[i] = static_cast<float>(source.Lo()[i]); // Exact: a vertex lies there.
        box.hi[i] = static_cast<float>(source.Hi()[i]);
    }
    return box;
}

/// Embree finds the triangles near the line in single precision; each that it reports is decided
/// here in double precision, and where the two differ, its neighbours as well.
class EmbreeFaces final : public IFaceTree
{
public:
    EmbreeFaces(const Geometry& geometry, const EmbreeDevice& device)
        : m_geometry(geometry),
          m_api(device.Api()),
          m_scene(geometry, device),
          m_box(toBox(geometry.BoundingBox())),
          m_tolerance(largestCoordinate(geometry.BoundingBox()) * kRounding)
    {
    }

    void Search(NearestFace& nearest) const override;
    std::size_t MemoryBytes() const override { return sizeof *this + m_scene.MemoryBytes(); }

private:
    /// What a query carries through Embree.
    struct Sight : RTCIntersectContext
    {
        const EmbreeFaces* faces;
        NearestFace* nearest;
        double start; ///< Where Embree's ray begins, in multiples of the line's direction.
        double unit;  ///< Length of Embree's direction in the same.
        double slack; ///< The tolerance in the same.
        bool hasNew;  ///< The triangle at hand, or one around it, is the nearest now.

        float ToEmbree(double distance) const
        {
            return static_cast<float>((distance + slack - start) / unit);
        }
    };

    static void decide(const RTCFilterFunctionNArguments* arguments);
    static bool offerNeighbour(RTCPointQueryFunctionArguments* arguments);
    void lookAround(Sight& sight, std::uint32_t triangle) const;

    const Geometry& m_geometry;
    const EmbreeApi& m_api;
    EmbreeScene m_scene;
    Box m_box;
    double m_tolerance; ///< In the geometry's units.
};

void EmbreeFaces::Search(NearestFace& nearest) const
{
    // 1. Begin where the line enters the box: a far origin would cost all digits.
    const Line& line = nearest.GetLine();
    double enter = line.near;
    double leave = line.far;
    if (!line.Clip(m_box, m_tolerance, enter, leave))
        return;
    const OrvikOs::FpMasked masked;
    Sight sight;
    rtcInitIntersectContext(&sight);
    sight.filter = &EmbreeFaces::decide;
    sight.faces = this;
    sight.nearest = &nearest;
    sight.hasNew = false;
    sight.slack = m_tolerance / std::sqrt(line.squaredLength);
    sight.start = enter - sight.slack;

    // 2. A direction of about unit length that is exactly parallel.
    const double size = std::max(
        {std::abs(line.direction.x), std::abs(line.direction.y), std::abs(line.direction.z)});
    sight.unit = std::ldexp(1.0, -std::ilogb(size));
    const Vector3 origin = line.At(sight.start);
    const Vector3 direction = line.direction * sight.unit;
    RTCRayHit ray{};
    ray.ray.org_x = static_cast<float>(origin.x);
    ray.ray.org_y = static_cast<float>(origin.y);
    ray.ray.org_z = static_cast<float>(origin.z);
    ray.ray.dir_x = static_cast<float>(direction.x);
    ray.ray.dir_y = static_cast<float>(direction.y);
    ray.ray.dir_z = static_cast<float>(direction.z);
    ray.ray.tfar = sight.ToEmbree(leave);
    ray.ray.mask = ~0u;
    ray.hit.geomID = RTC_INVALID_GEOMETRY_ID;
    ray.hit.instID[0] = RTC_INVALID_GEOMETRY_ID;

    // 3. What is found is in `nearest`.
    m_api.intersect1(m_scene.Handle(), &sight, &ray);
}

/// Decides on one triangle that Embree reports.
void EmbreeFaces::decide(const RTCFilterFunctionNArguments* arguments)
{
    // Embree hands back the very context that the query gave.
    auto& sight = *const_cast<Sight*>(static_cast<const Sight*>(arguments->context));
    const std::uint32_t triangle = RTCHitN_primID(arguments->hit, arguments->N, 0);
    NearestFace& nearest = *sight.nearest;
    const NearestFace::Verdict verdict = nearest.Offer(triangle);
    sight.hasNew = verdict == NearestFace::Verdict::Nearest;
    if (verdict != NearestFace::Verdict::Other)
        sight.faces->lookAround(sight, triangle);
    if (!sight.hasNew) {
        arguments->valid[0] = 0;
        return;
    }
    // The ray goes on for the tolerance: an equally near triangle of a lower number counts.
    RTCRayN_tfar(arguments->ray, arguments->N, 0) = sight.ToEmbree(nearest.Far());
}

bool EmbreeFaces::offerNeighbour(RTCPointQueryFunctionArguments* arguments)
{
    auto& sight = *static_cast<Sight*>(arguments->userPtr);
    if (sight.nearest->Offer(arguments->primID) == NearestFace::Verdict::Nearest)
        sight.hasNew = true;
    return false;
}

/// Offers the triangles around the places where the line passes the border of one: when Embree
/// rounds to the wrong side of it, or several meet there, one of them may be the nearest.
void EmbreeFaces::lookAround(Sight& sight, std::uint32_t triangle) const
{
    const std::uint32_t* corners = m_geometry.Triangles().Data() + std::size_t{triangle} * 3;
    for (int side = 0; side < 3; ++side) {
        Candidate passing;
        MeasureSegment(sight.nearest->GetLine(), triangle, VertexAt(m_geometry, corners[side]),
                       VertexAt(m_geometry, corners[(side + 1) % 3]), passing);
        if (passing.deviation > m_tolerance)
            continue;
        RTCPointQuery query{};
        query.x = static_cast<float>(passing.position.x);
        query.y = static_cast<float>(passing.position.y);
        query.z = static_cast<float>(passing.position.z);
        query.radius = static_cast<float>(2.0 * m_tolerance);
        RTCPointQueryContext context;
        rtcInitPointQueryContext(&context);
        m_api.pointQuery(m_scene.Handle(), &query, &context, &EmbreeFaces::offerNeighbour, &sight);
    }
}

} // namespace

bool SuitsEmbree(const Geometry& geometry)
{
    const VizBox& box = geometry.BoundingBox();
    return geometry.TriangleCount() >= kFewTriangles && geometry.VertexCount() < kMostVertices &&
           box.Radius() >= kSmallest && largestCoordinate(box) <= kLargest;
}

std::unique_ptr<const IFaceTree> MakeEmbreeFaces(const Geometry& geometry,
                                                 const EmbreeDevice& device)
{
    return std::make_unique<EmbreeFaces>(geometry, device);
}

} // namespace OrvikRay
