#include "kernel/FaceMesh.h"

#include <BRep_Tool.hxx>
#include <GeomAbs_SurfaceType.hxx>
#include <GeomAdaptor_Surface.hxx>
#include <Geom_Surface.hxx>
#include <Poly_Triangle.hxx>
#include <gp_Pnt.hxx>
#include <gp_Pnt2d.hxx>
#include <gp_Trsf.hxx>
#include <gp_Vec.hxx>

#include <cmath>
#include <utility>

namespace OrvikCad {

namespace {

/// Shorter products of derivatives have no direction: poles of spheres, tips of cones.
constexpr double kMinNormal = 1e-14;
/// How far towards the middle of the face the surface is looked at instead.
constexpr double kNudge = 1e-3;

bool isClosedForm(GeomAbs_SurfaceType type)
{
    return type == GeomAbs_Plane || type == GeomAbs_Cylinder || type == GeomAbs_Cone ||
           type == GeomAbs_Sphere;
}

/// Appends one face.
class FaceAppender
{
public:
    FaceAppender(const TopoDS_Face& face, const Handle(Poly_Triangulation) & triangles,
                 const TopLoc_Location& place, MeshArrays& arrays)
        : m_triangles(*triangles),
          m_placeOfNodes(place.Transformation()),
          m_arrays(arrays),
          m_isFlipped((face.Orientation() == TopAbs_REVERSED) != m_placeOfNodes.IsNegative())
    {
        TopLoc_Location placeOfSurface;
        m_surface = BRep_Tool::Surface(face, placeOfSurface);
        m_placeOfSurface = placeOfSurface.Transformation();
    }

    bool Run(std::vector<SurfacePoint>& samples)
    {
        const std::uint32_t base = m_arrays.VertexCount();
        if (!addPositions())
            return false;
        addTriangles(base);
        if (m_surface.IsNull() || !m_triangles.HasUVNodes())
            addNormalsOfTriangles(base);
        else
            addNormalsOfSurface(base, samples);
        return true;
    }

private:
    bool addPositions()
    {
        const std::size_t before = m_arrays.positions.size();
        for (int i = 1; i <= m_triangles.NbNodes(); ++i) {
            const gp_Pnt point = m_triangles.Node(i).Transformed(m_placeOfNodes);
            for (int axis = 1; axis <= 3; ++axis)
                m_arrays.positions.push_back(static_cast<float>(point.Coord(axis)));
        }
        for (std::size_t i = before; i < m_arrays.positions.size(); ++i)
            if (!std::isfinite(m_arrays.positions[i])) {
                m_arrays.positions.resize(before);
                return false;
            }
        return true;
    }

    void addTriangles(std::uint32_t base)
    {
        for (int i = 1; i <= m_triangles.NbTriangles(); ++i) {
            int corners[3];
            m_triangles.Triangle(i).Get(corners[0], corners[1], corners[2]);
            if (m_isFlipped)
                std::swap(corners[1], corners[2]);
            const float* points[3];
            for (int corner = 0; corner < 3; ++corner) {
                const std::uint32_t vertex = base + static_cast<std::uint32_t>(corners[corner]) - 1;
                m_arrays.triangles.push_back(vertex);
                points[corner] = &m_arrays.positions[std::size_t{vertex} * 3];
            }
            m_arrays.volume += product(points[0], points[1], points[2]);
        }
    }

    static double product(const float* a, const float* b, const float* c)
    {
        return a[0] * (double{b[1]} * c[2] - double{b[2]} * c[1]) -
               a[1] * (double{b[0]} * c[2] - double{b[2]} * c[0]) +
               a[2] * (double{b[0]} * c[1] - double{b[1]} * c[0]);
    }

    void addNormalsOfSurface(std::uint32_t base, std::vector<SurfacePoint>& samples)
    {
        const GeomAdaptor_Surface surface(m_surface);
        const bool isSampled = !isClosedForm(surface.GetType());
        if (isSampled)
            samples.reserve(static_cast<std::size_t>(m_triangles.NbNodes()));
        gp_Vec normal;
        bool isKnown = false;
        for (int i = 1; i <= m_triangles.NbNodes(); ++i) {
            const gp_Pnt2d uv = m_triangles.UVNode(i);
            if (surface.GetType() != GeomAbs_Plane || !isKnown)
                isKnown = findNormal(surface, uv, normal);
            addNormal(isKnown ? normal : normalOfTriangles(i, base));
            if (isSampled)
                samples.push_back(sampleAt(base + static_cast<std::uint32_t>(i) - 1, uv));
        }
    }

    bool findNormal(const GeomAdaptor_Surface& surface, const gp_Pnt2d& uv, gp_Vec& normal)
    {
        if (normalAt(surface, uv, normal))
            return true;
        const gp_Pnt2d middle = middleOfFace();
        const gp_Pnt2d inside(uv.X() + (middle.X() - uv.X()) * kNudge,
                              uv.Y() + (middle.Y() - uv.Y()) * kNudge);
        return normalAt(surface, inside, normal);
    }

    /// Derivatives are placed before they are multiplied, so that a mirroring place turns the
    /// product with them.
    bool normalAt(const GeomAdaptor_Surface& surface, const gp_Pnt2d& uv, gp_Vec& normal) const
    {
        gp_Pnt point;
        gp_Vec alongU;
        gp_Vec alongV;
        surface.D1(uv.X(), uv.Y(), point, alongU, alongV);
        alongU.Transform(m_placeOfSurface);
        alongV.Transform(m_placeOfSurface);
        normal = alongU.Crossed(alongV);
        const double length = normal.Magnitude();
        if (!(length > kMinNormal * (1.0 + alongU.Magnitude() * alongV.Magnitude())))
            return false;
        normal /= m_isFlipped ? -length : length;
        return true;
    }

    gp_Pnt2d middleOfFace()
    {
        if (m_hasMiddle)
            return m_middle;
        gp_XY sum(0.0, 0.0);
        for (int i = 1; i <= m_triangles.NbNodes(); ++i)
            sum += m_triangles.UVNode(i).XY();
        m_middle = gp_Pnt2d(sum / m_triangles.NbNodes());
        m_hasMiddle = true;
        return m_middle;
    }

    /// @return the sum of the normals of the triangles at a node.
    gp_Vec normalOfTriangles(int node, std::uint32_t base) const
    {
        gp_Vec sum(0.0, 0.0, 0.0);
        const std::uint32_t vertex = base + static_cast<std::uint32_t>(node) - 1;
        const std::size_t first =
            m_arrays.triangles.size() - static_cast<std::size_t>(m_triangles.NbTriangles()) * 3;
        for (std::size_t i = first; i < m_arrays.triangles.size(); i += 3)
            if (m_arrays.triangles[i] == vertex || m_arrays.triangles[i + 1] == vertex ||
                m_arrays.triangles[i + 2] == vertex)
                sum += crossOf(i);
        return sum;
    }

    gp_Vec crossOf(std::size_t triangle) const
    {
        const auto at = [&](std::size_t corner) {
            const float* p =
                &m_arrays.positions[std::size_t{m_arrays.triangles[triangle + corner]} * 3];
            return gp_Pnt(p[0], p[1], p[2]);
        };
        return gp_Vec(at(0), at(1)).Crossed(gp_Vec(at(0), at(2)));
    }

    /// For faces that are triangles only.
    void addNormalsOfTriangles(std::uint32_t base)
    {
        std::vector<gp_Vec> sums(static_cast<std::size_t>(m_triangles.NbNodes()),
                                 gp_Vec(0.0, 0.0, 0.0));
        const std::size_t first =
            m_arrays.triangles.size() - static_cast<std::size_t>(m_triangles.NbTriangles()) * 3;
        for (std::size_t i = first; i < m_arrays.triangles.size(); i += 3) {
            const gp_Vec cross = crossOf(i);
            for (std::size_t corner = 0; corner < 3; ++corner)
                sums[m_arrays.triangles[i + corner] - base] += cross;
        }
        for (const gp_Vec& sum : sums)
            addNormal(sum);
    }

    void addNormal(gp_Vec normal)
    {
        const double length = normal.Magnitude();
        if (length > 0.0 && std::isfinite(length))
            normal /= length;
        else
            normal = gp_Vec(0.0, 0.0, 1.0);
        for (int axis = 1; axis <= 3; ++axis)
            m_arrays.normals.push_back(static_cast<float>(normal.Coord(axis)));
    }

    SurfacePoint sampleAt(std::uint32_t vertex, const gp_Pnt2d& uv) const
    {
        const float* p = &m_arrays.positions[std::size_t{vertex} * 3];
        return {{p[0], p[1], p[2]}, static_cast<float>(uv.X()), static_cast<float>(uv.Y())};
    }

    const Poly_Triangulation& m_triangles;
    gp_Trsf m_placeOfNodes;
    gp_Trsf m_placeOfSurface;
    MeshArrays& m_arrays;
    bool m_isFlipped;
    Handle(Geom_Surface) m_surface;
    bool m_hasMiddle = false;
    gp_Pnt2d m_middle; ///< Of the face's nodes, in surface parameters.
};

} // namespace

bool AppendFace(const TopoDS_Face& face, const Handle(Poly_Triangulation) & triangles,
                const TopLoc_Location& place, MeshArrays& arrays,
                std::vector<SurfacePoint>& samples)
{
    return FaceAppender(face, triangles, place, arrays).Run(samples);
}

bool HasClosedForm(const Handle(Geom_Surface) & surface)
{
    return isClosedForm(GeomAdaptor_Surface(surface).GetType());
}

} // namespace OrvikCad
