#include "Dimensions.h"

#include "CommandParts.h"

#include <OrvikCore/ASession.h>
#include <TambCommandsInfra/CallGate.h>
#include <TambVizCore/IView3D.h>
#include <TambVizCore/Utils.h>

#include <algorithm>
#include <atomic>
#include <cmath>
#include <numbers>
#include <utility>

namespace OrvikCommands {

using OrvikCore::Dimension;
using TambVizCore::Utils;

namespace {

std::atomic<bool> leavesDimensions{true};

constexpr int kDigits = 6;         ///< Of a value in the picture.
constexpr double kFarthest = 20.0; ///< Of the apex, in distances of what is measured.
constexpr double kParallel = 1e-6; ///< Sine of an angle below which nothing meets.
constexpr double kArcShare = 0.6;  ///< Radius of the arc, as a share of the way to the farther.
constexpr int kArcSteps = 32;
constexpr double kLegShare = 1.15; ///< How far the legs reach beyond the arc.

double dot(const Triple& a, const Triple& b)
{
    return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}

Triple cross(const Triple& a, const Triple& b)
{
    return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}

/// @return a + factor * b.
Triple along(const Triple& a, double factor, const Triple& b)
{
    return {a[0] + factor * b[0], a[1] + factor * b[1], a[2] + factor * b[2]};
}

double lengthOf(const Triple& a)
{
    return std::hypot(a[0], a[1], a[2]);
}

Triple unit(const Triple& a)
{
    return along({}, 1.0 / lengthOf(a), a);
}

double distanceBetween(const Triple& a, const Triple& b)
{
    return lengthOf(along(a, -1.0, b));
}

/// Where two things meet, and the directions from there whose angle was measured.
struct Corner
{
    Triple apex{};
    Triple first{};
    Triple second{};
};

/// Two planes: the point of their common line nearest to a place, and the directions across it.
std::optional<Corner> meetPlanes(const Bearing& a, const Bearing& b, const Triple& near)
{
    const Triple axis = cross(a.vector, b.vector);
    const double sine = lengthOf(axis);
    if (!(sine > kParallel))
        return std::nullopt;
    // near + u * first normal + v * second normal lies in both planes.
    const double cosine = dot(a.vector, b.vector);
    const double toFirst = dot(a.vector, along(a.place, -1.0, near));
    const double toSecond = dot(b.vector, along(b.place, -1.0, near));
    const double u = (toFirst - cosine * toSecond) / (sine * sine);
    const double v = (toSecond - cosine * toFirst) / (sine * sine);
    return Corner{along(along(near, u, a.vector), v, b.vector), unit(cross(axis, a.vector)),
                  unit(cross(axis, b.vector))};
}

/// Two lines: the middle of the shortest way between them.
std::optional<Corner> meetLines(const Bearing& a, const Bearing& b)
{
    const Triple normal = cross(a.vector, b.vector);
    const double square = dot(normal, normal);
    if (!(square > kParallel * kParallel))
        return std::nullopt;
    const Triple between = along(b.place, -1.0, a.place);
    const Triple onFirst = along(a.place, dot(cross(between, b.vector), normal) / square, a.vector);
    const Triple onSecond =
        along(b.place, dot(cross(between, a.vector), normal) / square, b.vector);
    return Corner{along(along({}, 0.5, onFirst), 0.5, onSecond), a.vector, b.vector};
}

/// A line and a plane: where it passes through, and its shadow on the plane.
std::optional<Corner> meetLineAndPlane(const Bearing& line, const Bearing& plane)
{
    const double sine = dot(line.vector, plane.vector);
    if (!(std::fabs(sine) > kParallel))
        return std::nullopt;
    const double way = dot(plane.vector, along(plane.place, -1.0, line.place)) / sine;
    const Triple apex = along(line.place, way, line.vector);
    Triple shadow = along(line.vector, -sine, plane.vector);
    if (!(lengthOf(shadow) > kParallel)) // It stands upright: every direction serves.
        shadow = along(along(plane.place, -1.0, apex), 0.0, plane.vector);
    if (!(lengthOf(shadow) > 0.0))
        shadow = cross(plane.vector,
                       std::fabs(plane.vector[0]) < 0.5 ? Triple{1, 0, 0} : Triple{0, 1, 0});
    return Corner{apex, line.vector, unit(shadow)};
}

std::optional<Corner> meet(const Bearing& a, const Bearing& b, const Triple& near)
{
    if (a.isPlane && b.isPlane)
        return meetPlanes(a, b, near);
    if (!a.isPlane && !b.isPlane)
        return meetLines(a, b);
    if (b.isPlane)
        return meetLineAndPlane(a, b);
    std::optional<Corner> corner = meetLineAndPlane(b, a);
    if (corner)
        std::swap(corner->first, corner->second);
    return corner;
}

/// An arc around the apex from the first direction to the second, which are less than 180 degrees
/// apart.
std::vector<Triple> arcOf(const Corner& corner, double radius)
{
    Triple across = along(corner.second, -dot(corner.first, corner.second), corner.first);
    const double sine = lengthOf(across);
    if (!(sine > kParallel))
        return {along(corner.apex, radius, corner.first)};
    across = unit(across);
    const double angle = std::atan2(sine, dot(corner.first, corner.second));
    std::vector<Triple> arc;
    for (int i = 0; i <= kArcSteps; ++i) {
        const double turned = angle * i / kArcSteps;
        arc.push_back(along(along(corner.apex, radius * std::cos(turned), corner.first),
                            radius * std::sin(turned), across));
    }
    return arc;
}

std::wstring text(double value, const wchar_t* unitText)
{
    return Utils::StringToWstring(Utils::FormatGeneral(value, kDigits)) + unitText;
}

} // namespace

bool LeavesDimensions()
{
    return leavesDimensions.load(std::memory_order_acquire);
}

void SetLeavesDimensions(bool leaves)
{
    leavesDimensions.store(leaves, std::memory_order_release);
}

Dimension LengthDimension(const double* from, const double* to, double length, bool isExact)
{
    Dimension dimension;
    dimension.line = {{from[0], from[1], from[2]}, {to[0], to[1], to[2]}};
    dimension.text = text(length, isExact ? L" mm" : L"");
    return dimension;
}

Dimension AngleDimension(const Bearing& first, const Bearing& second, double degrees)
{
    Dimension dimension;
    dimension.text = text(degrees, L"\u00B0");
    const Triple between = along(along({}, 0.5, first.place), 0.5, second.place);
    const double apart = distanceBetween(first.place, second.place);
    std::optional<Corner> corner = meet(first, second, between);
    if (!corner || !(distanceBetween(corner->apex, between) <= kFarthest * apart)) {
        dimension.line = {between};
        return dimension;
    }
    // The legs lead to what was measured, as far as the angle is the one of at most 90 degrees.
    if (dot(corner->first, along(first.place, -1.0, corner->apex)) < 0.0)
        corner->first = along({}, -1.0, corner->first);
    if (dot(corner->second, along(second.place, -1.0, corner->apex)) < 0.0)
        corner->second = along({}, -1.0, corner->second);
    if (dot(corner->first, corner->second) < -kParallel)
        corner->second = along({}, -1.0, corner->second);
    const double reach = std::max(distanceBetween(corner->apex, first.place),
                                  distanceBetween(corner->apex, second.place));
    const double radius = kArcShare * reach;
    dimension.line = arcOf(*corner, radius);
    for (const Triple& leg : {corner->first, corner->second})
        dimension.legs.push_back({corner->apex, along(corner->apex, kLegShare * radius, leg)});
    return dimension;
}

void LeaveDimension(Dimension dimension, const std::vector<TambVizCore::EntityId>& measured)
{
    if (!LeavesDimensions())
        return;
    for (TambVizCore::EntityId entity : measured) {
        entity.ReduceToBody();
        dimension.measured.push_back(entity);
    }
    OrvikCore::ASession& session = Session();
    TambCommandsInfra::CallGate::Call([&] {
        if (auto* const drawer = dynamic_cast<OrvikCore::IDimensionDrawer*>(session.View3D()))
            drawer->DrawDimension(dimension);
    });
}

} // namespace OrvikCommands
