#include "kernel/LineMeeting.h"

#include <Precision.hxx>
#include <gp_Ax3.hxx>

#include <algorithm>
#include <cmath>

namespace OrvikCad {

namespace {

constexpr int kMaxSteps = 20;
/// The surface is met when it is nearer than this, millimetres.
constexpr double kMet = 1e-9;

/// A line in the frame of a surface.
struct LocalLine
{
    LocalLine(const gp_Ax3& frame, const NearLine& line)
    {
        const gp_Vec offset(frame.Location(), line.point);
        const gp_Dir axes[3] = {frame.XDirection(), frame.YDirection(), frame.Direction()};
        for (int i = 0; i < 3; ++i) {
            point[i] = offset.Dot(axes[i]);
            direction[i] = line.direction.Dot(axes[i]);
        }
    }

    double At(int axis, double parameter) const
    {
        return point[axis] + parameter * direction[axis];
    }

    double point[3];
    double direction[3];
};

/// The roots of a t^2 + 2 b t + c; none, one or two.
struct Roots
{
    Roots(double a, double b, double c)
    {
        const double discriminant = b * b - a * c;
        if (!(discriminant >= 0.0))
            return;
        // The sum of equal signs loses no digits; the product of both roots is c / a.
        const double sum = -(b + std::copysign(std::sqrt(discriminant), b));
        if (sum != 0.0)
            values[count++] = c / sum;
        else if (a != 0.0)
            values[count++] = 0.0;
        if (sum != 0.0 && a != 0.0)
            values[count++] = sum / a;
    }

    double values[2] = {0.0, 0.0};
    int count = 0;
};

bool isAsTold(const NearLine& line, const gp_Vec& normal)
{
    return (normal.Dot(line.direction) < 0.0) == line.isAgainstNormal;
}

/// @param normalAt  The normal at a root.
template <typename NormalAt>
std::optional<LineMeeting> nearestOf(const Roots& roots, const NearLine& line,
                                     const NormalAt& normalAt)
{
    std::optional<LineMeeting> nearest;
    for (int i = 0; i < roots.count; ++i) {
        const LineMeeting meeting{roots.values[i], normalAt(roots.values[i])};
        if (isAsTold(line, meeting.normal) &&
            (!nearest || std::abs(meeting.parameter) < std::abs(nearest->parameter)))
            nearest = meeting;
    }
    return nearest;
}

/// The normal with components along the frame's axes. A left-handed frame turns the product of the
/// derivatives.
gp_Vec inFrame(const gp_Ax3& frame, double x, double y, double z)
{
    gp_Vec normal = gp_Vec(frame.XDirection()) * x + gp_Vec(frame.YDirection()) * y +
                    gp_Vec(frame.Direction()) * z;
    return frame.Direct() ? normal : -normal;
}

/// Solves for the step of Newton's method; none where the line lies in the tangent plane.
std::optional<gp_Vec> stepOf(const gp_Vec& alongU, const gp_Vec& alongV, const gp_Vec& direction,
                             const gp_Vec& miss)
{
    const gp_Vec normal = alongU.Crossed(alongV);
    const double determinant = normal.Dot(direction);
    const double scale = normal.Magnitude() * direction.Magnitude();
    if (!(std::abs(determinant) > 1e-12 * scale))
        return std::nullopt;
    // alongU du + alongV dv - direction dt = miss, by Cramer's rule.
    return gp_Vec(miss.Crossed(alongV).Dot(direction) / determinant,
                  alongU.Crossed(miss).Dot(direction) / determinant,
                  -normal.Dot(miss) / determinant);
}

/// The range of the parameters outside of which the surface does not exist.
struct Domain
{
    explicit Domain(const Geom_Surface& surface)
    {
        surface.Bounds(low[0], high[0], low[1], high[1]);
        isPeriodic[0] = surface.IsUPeriodic();
        isPeriodic[1] = surface.IsVPeriodic();
    }

    double Clamp(int which, double value) const
    {
        return isPeriodic[which] ? value : std::clamp(value, low[which], high[which]);
    }

    double low[2];
    double high[2];
    bool isPeriodic[2];
};

} // namespace

std::optional<LineMeeting> MeetPlane(const gp_Pln& plane, const NearLine& line)
{
    const LocalLine local(plane.Position(), line);
    if (std::abs(local.direction[2]) < 1e-12 * line.direction.Magnitude())
        return std::nullopt;
    return LineMeeting{-local.point[2] / local.direction[2],
                       inFrame(plane.Position(), 0.0, 0.0, 1.0)};
}

std::optional<LineMeeting> MeetCylinder(const gp_Cylinder& cylinder, const NearLine& line)
{
    const LocalLine local(cylinder.Position(), line);
    const double* p = local.point;
    const double* d = local.direction;
    const Roots roots(d[0] * d[0] + d[1] * d[1], p[0] * d[0] + p[1] * d[1],
                      p[0] * p[0] + p[1] * p[1] - cylinder.Radius() * cylinder.Radius());
    return nearestOf(roots, line, [&](double root) {
        return inFrame(cylinder.Position(), local.At(0, root), local.At(1, root), 0.0);
    });
}

std::optional<LineMeeting> MeetCone(const gp_Cone& cone, const NearLine& line)
{
    const LocalLine local(cone.Position(), line);
    const double* p = local.point;
    const double* d = local.direction;
    const double slope = std::tan(cone.SemiAngle());
    const double radius = cone.RefRadius() + slope * p[2];
    const double growth = slope * d[2];
    const Roots roots(d[0] * d[0] + d[1] * d[1] - growth * growth,
                      p[0] * d[0] + p[1] * d[1] - radius * growth,
                      p[0] * p[0] + p[1] * p[1] - radius * radius);
    return nearestOf(roots, line, [&](double root) {
        const double radiusThere = radius + growth * root;
        return inFrame(cone.Position(), local.At(0, root), local.At(1, root), -radiusThere * slope);
    });
}

std::optional<LineMeeting> MeetSphere(const gp_Sphere& sphere, const NearLine& line)
{
    const LocalLine local(sphere.Position(), line);
    const double* p = local.point;
    const double* d = local.direction;
    const Roots roots(d[0] * d[0] + d[1] * d[1] + d[2] * d[2],
                      p[0] * d[0] + p[1] * d[1] + p[2] * d[2],
                      p[0] * p[0] + p[1] * p[1] + p[2] * p[2] - sphere.Radius() * sphere.Radius());
    return nearestOf(roots, line, [&](double root) {
        return inFrame(sphere.Position(), local.At(0, root), local.At(1, root), local.At(2, root));
    });
}

std::optional<LineMeeting> MeetSurface(const Geom_Surface& surface, double u, double v,
                                       const NearLine& line)
{
    const Domain domain(surface);
    u = domain.Clamp(0, u);
    v = domain.Clamp(1, v);
    double parameter = 0.0;
    for (int i = 0; i < kMaxSteps; ++i) {
        gp_Pnt point;
        gp_Vec alongU;
        gp_Vec alongV;
        surface.D1(u, v, point, alongU, alongV);
        const gp_Vec miss(point, line.point.Translated(line.direction * parameter));
        if (miss.Magnitude() <= kMet + Precision::Angular() * line.point.XYZ().Modulus()) {
            const gp_Vec normal = alongU.Crossed(alongV);
            return isAsTold(line, normal) ? std::optional(LineMeeting{parameter, normal})
                                          : std::nullopt;
        }
        const auto step = stepOf(alongU, alongV, line.direction, miss);
        if (!step)
            return std::nullopt;
        u = domain.Clamp(0, u + step->X());
        v = domain.Clamp(1, v + step->Y());
        parameter += step->Z();
    }
    return std::nullopt;
}

} // namespace OrvikCad
