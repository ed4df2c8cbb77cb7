#include "kernel/ExactSurfaces.h"

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
    for (int i = 1; i <= parts.Faces().Extent(); ++i) {
        const TopoDS_Face& face = TopoDS::Face(parts.Faces().FindKey(i));
        Surface& surface = m_surfaces[static_cast<std::size_t>(i) - 1];
        TopLoc_Location place;
        surface.geometry = BRep_Tool::Surface(face, place);
        if (surface.geometry.IsNull())
            continue;
        while (const auto trimmed =
                   Handle(Geom_RectangularTrimmedSurface)::DownCast(surface.geometry))
            surface.geometry = trimmed->BasisSurface();
        surface.type = GeomAdaptor_Surface(surface.geometry).GetType();
        surface.place = place.Transformation();
        surface.inverse = surface.place.Inverted();
        surface.isFlipped = (face.Orientation() == TopAbs_REVERSED) !=
                            face.Location().Transformation().IsNegative();
    }
}

std::optional<LineMeeting> ExactSurfaces::meet(const Surface& surface, const MeshSamples& samples,
                                               std::uint32_t face, const NearLine& line)
{
    const GeomAdaptor_Surface adaptor(surface.geometry);
    switch (surface.type) {
    case GeomAbs_Plane:
        return MeetPlane(adaptor.Plane(), line);
    case GeomAbs_Cylinder:
        return MeetCylinder(adaptor.Cylinder(), line);
    case GeomAbs_Cone:
        return MeetCone(adaptor.Cone(), line);
    case GeomAbs_Sphere:
        return MeetSphere(adaptor.Sphere(), line);
    default:
        break;
    }
    const auto around = std::lower_bound(
        samples.begin(), samples.end(), face,
        [](const FaceSamples& some, std::uint32_t wanted) { return some.face < wanted; });
    if (around == samples.end() || around->face != face)
        return std::nullopt;
    const SurfacePoint& start = nearestSample(*around, line.point.Transformed(surface.place));
    return MeetSurface(*surface.geometry, start.u, start.v, line);
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
