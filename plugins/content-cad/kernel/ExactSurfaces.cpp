#include "kernel/ExactSurfaces.h"

#include "kernel/KernelGuard.h"

#include <BRep_Tool.hxx>
#include <GeomAdaptor_Surface.hxx>
#include <Geom_RectangularTrimmedSurface.hxx>
#include <TopLoc_Location.hxx>
#include <TopoDS.hxx>
#include <TopoDS_Face.hxx>

#include <algorithm>
#include <cmath>
#include <limits>

namespace OrvikCad {

using TambVizCore::PartKind;

namespace {

/// How far the exact hit may lie from that on the triangle, in multiples of the sag: along the
/// line, where it grazes the surface, it is farther than across.
constexpr double kReach = 100.0;

const SurfacePoint& nearestSample(const FaceSamples& samples, const gp_Pnt& point)
{
    const float x = static_cast<float>(point.X());
    const float y = static_cast<float>(point.Y());
    const float z = static_cast<float>(point.Z());
    const SurfacePoint* nearest = &samples.points.front();
    float least = std::numeric_limits<float>::max();
    for (const SurfacePoint& sample : samples.points) {
        const float dx = sample.position[0] - x;
        const float dy = sample.position[1] - y;
        const float dz = sample.position[2] - z;
        const float distance = dx * dx + dy * dy + dz * dz;
        if (distance < least) {
            least = distance;
            nearest = &sample;
        }
    }
    return *nearest;
}

} // namespace

ExactSurfaces::ExactSurfaces(const ShapeParts& parts)
{
    m_surfaces.resize(static_cast<std::size_t>(parts.Faces().Extent()));
    int next = 1;
    while (next <= parts.Faces().Extent()) // Goes on behind a face with which the kernel fails.
        RunGuarded([&] {
            while (next <= parts.Faces().Extent()) {
                const int face = next++;
                fill(TopoDS::Face(parts.Faces().FindKey(face)),
                     m_surfaces[static_cast<std::size_t>(face) - 1]);
            }
        });
}

void ExactSurfaces::fill(const TopoDS_Face& face, Surface& surface)
{
    TopLoc_Location place;
    Handle(Geom_Surface) geometry = BRep_Tool::Surface(face, place);
    if (geometry.IsNull())
        return;
    while (const auto trimmed = Handle(Geom_RectangularTrimmedSurface)::DownCast(geometry))
        geometry = trimmed->BasisSurface();
    const GeomAdaptor_Surface adaptor(geometry);
    switch (adaptor.GetType()) {
    case GeomAbs_Plane:
        surface.form = adaptor.Plane();
        break;
    case GeomAbs_Cylinder:
        surface.form = adaptor.Cylinder();
        break;
    case GeomAbs_Cone:
        surface.form = adaptor.Cone();
        break;
    case GeomAbs_Sphere:
        surface.form = adaptor.Sphere();
        break;
    default:
        break;
    }
    surface.place = place.Transformation();
    surface.inverse = surface.place.Inverted();
    surface.isFlipped =
        (face.Orientation() == TopAbs_REVERSED) != face.Location().Transformation().IsNegative();
    surface.geometry = geometry;
}

std::optional<LineMeeting> ExactSurfaces::meet(const Surface& surface, const MeshSamples& samples,
                                               std::uint32_t face, const NearLine& line)
{
    if (const auto* plane = std::get_if<gp_Pln>(&surface.form))
        return MeetPlane(*plane, line);
    if (const auto* cylinder = std::get_if<gp_Cylinder>(&surface.form))
        return MeetCylinder(*cylinder, line);
    if (const auto* cone = std::get_if<gp_Cone>(&surface.form))
        return MeetCone(*cone, line);
    if (const auto* sphere = std::get_if<gp_Sphere>(&surface.form))
        return MeetSphere(*sphere, line);
    const auto around = std::lower_bound(
        samples.begin(), samples.end(), face,
        [](const FaceSamples& some, std::uint32_t wanted) { return some.face < wanted; });
    if (around == samples.end() || around->face != face)
        return std::nullopt;
    const SurfacePoint& start = nearestSample(*around, line.point.Transformed(surface.place));
    std::optional<LineMeeting> met;
    const std::wstring failure =
        RunGuarded([&] { met = MeetSurface(*surface.geometry, start.u, start.v, line); });
    return failure.empty() ? met : std::nullopt;
}

bool ExactSurfaces::Meet(const MeshSamples& samples, double sag, const OrvikModel::FacetHit& facet,
                         OrvikModel::RefinedHit& hit) const
{
    const auto face = static_cast<std::uint32_t>(facet.facePartId);
    if (static_cast<PartKind>(facet.facePartId >> 32) != PartKind::Face ||
        face >= m_surfaces.size() || m_surfaces[face].geometry.IsNull())
        return false;
    const Surface& surface = m_surfaces[face];
    const bool isFlipped = surface.isFlipped != surface.place.IsNegative();
    const gp_Vec along(facet.direction[0], facet.direction[1], facet.direction[2]);
    const gp_Pnt near = gp_Pnt(facet.origin[0], facet.origin[1], facet.origin[2])
                            .Translated(along * facet.parameter);
    const auto found = meet(surface, samples, face,
                            {near.Transformed(surface.inverse), along.Transformed(surface.inverse),
                             facet.isFromOutside != isFlipped});
    if (!found || !(std::abs(found->parameter) * along.Magnitude() <= kReach * sag))
        return false;
    gp_Vec normal = found->normal.Transformed(surface.place);
    const double length = normal.Magnitude();
    if (!(length > 0.0))
        return false;
    normal /= isFlipped ? -length : length;
    const gp_Pnt position = near.Translated(along * found->parameter);
    hit.parameter = facet.parameter + found->parameter;
    for (int axis = 1; axis <= 3; ++axis) {
        hit.position[axis - 1] = position.Coord(axis);
        hit.normal[axis - 1] = normal.Coord(axis);
    }
    return true;
}

} // namespace OrvikCad
