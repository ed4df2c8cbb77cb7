#include "Dimensions.h"

#include "CommandParts.h"
#include "Triples.h"

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

constexpr wchar_t kRadiusSign[] = L"R ";
constexpr wchar_t kDiameterSign[] = L"\u2300 ";

constexpr int kDigits = 6;         ///< Of a value in the picture.
constexpr double kFarthest = 20.0; ///< Of the apex, in distances of what is measured.
constexpr double kParallel = 1e-6; ///< Sine of an angle below which nothing meets.
constexpr double kArcShare = 0.6;  ///< Radius of the arc, as a share of the way to the farther.
constexpr int kArcSteps = 32;
constexpr double kLegShare = 1.15; ///< How far the legs reach beyond the arc.

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
    const Triple axis = Cross(a.vector, b.vector);
    const double sine = LengthOf(axis);
    if (!(sine > kParallel))
        return std::nullopt;
    // near + u * first normal + v * second normal lies in both planes.
    const double cosine = Dot(a.vector, b.vector);
    const double toFirst = Dot(a.vector, Along(a.place, -1.0, near));
    const double toSecond = Dot(b.vector, Along(b.place, -1.0, near));
    const double u = (toFirst - cosine * toSecond) / (sine * sine);
    const double v = (toSecond - cosine * toFirst) / (sine * sine);
    return Corner{Along(Along(near, u, a.vector), v, b.vector), Unit(Cross(axis, a.vector)),
                  Unit(Cross(axis, b.vector))};
}

/// Two lines: the middle of the shortest way between them.
std::optional<Corner> meetLines(const Bearing& a, const Bearing& b)
{
    const Triple normal = Cross(a.vector, b.vector);
    const double square = Dot(normal, normal);
    if (!(square > kParallel * kParallel))
        return std::nullopt;
    const Triple between = Along(b.place, -1.0, a.place);
    const Triple onFirst = Along(a.place, Dot(Cross(between, b.vector), normal) / square, a.vector);
    const Triple onSecond =
        Along(b.place, Dot(Cross(between, a.vector), normal) / square, b.vector);
    return Corner{Along(Along({}, 0.5, onFirst), 0.5, onSecond), a.vector, b.vector};
}

/// A line and a plane: where it passes through, and its shadow on the plane.
std::optional<Corner> meetLineAndPlane(const Bearing& line, const Bearing& plane)
{
    const double sine = Dot(line.vector, plane.vector);
    if (!(std::fabs(sine) > kParallel))
        return std::nullopt;
    const double way = Dot(plane.vector, Along(plane.place, -1.0, line.place)) / sine;
    const Triple apex = Along(line.place, way, line.vector);
    Triple shadow = Along(line.vector, -sine, plane.vector);
    if (!(LengthOf(shadow) > kParallel)) // It stands upright: every direction serves.
        shadow = Along(Along(plane.place, -1.0, apex), 0.0, plane.vector);
    if (!(LengthOf(shadow) > 0.0))
        shadow = Cross(plane.vector,
                       std::fabs(plane.vector[0]) < 0.5 ? Triple{1, 0, 0} : Triple{0, 1, 0});
    return Corner{apex, line.vector, Unit(shadow)};
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
    Triple across = Along(corner.second, -Dot(corner.first, corner.second), corner.first);
    const double sine = LengthOf(across);
    if (!(sine > kParallel))
        return {Along(corner.apex, radius, corner.first)};
    across = Unit(across);
    const double angle = std::atan2(sine, Dot(corner.first, corner.second));
    std::vector<Triple> arc;
    for (int i = 0; i <= kArcSteps; ++i) {
        const double turned = angle * i / kArcSteps;
        arc.push_back(Along(Along(corner.apex, radius * std::cos(turned), corner.first),
                            radius * std::sin(turned), across));
    }
    return arc;
}

std::wstring text(double value, const wchar_t* unitText)
{
    return Utils::StringToWstring(Utils::FormatGeneral(value, kDigits)) + unitText;
}

std::wstring lengthText(double length, bool isExact)
{
    return text(length, isExact ? L" mm" : L"");
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
    dimension.text = lengthText(length, isExact);
    return dimension;
}

Dimension RadiusDimension(const Triple& center, const Triple& end, double radius, bool isExact)
{
    Dimension dimension;
    dimension.line = {center, end};
    dimension.text = kRadiusSign + lengthText(radius, isExact);
    dimension.startsWithHead = false;
    return dimension;
}

Dimension DiameterDimension(const Triple& from, const Triple& to, double diameter, bool isExact)
{
    Dimension dimension;
    dimension.line = {from, to};
    dimension.text = kDiameterSign + lengthText(diameter, isExact);
    return dimension;
}

Dimension AngleDimension(const Bearing& first, const Bearing& second, double degrees)
{
    Dimension dimension;
    dimension.text = text(degrees, L"\u00B0");
    const Triple between = Along(Along({}, 0.5, first.place), 0.5, second.place);
    const double apart = DistanceBetween(first.place, second.place);
    std::optional<Corner> corner = meet(first, second, between);
    if (!corner || !(DistanceBetween(corner->apex, between) <= kFarthest * apart)) {
        dimension.line = {between};
        return dimension;
    }
    // The legs lead to what was measured, as far as the angle is the one of at most 90 degrees.
    if (Dot(corner->first, Along(first.place, -1.0, corner->apex)) < 0.0)
        corner->first = Along({}, -1.0, corner->first);
    if (Dot(corner->second, Along(second.place, -1.0, corner->apex)) < 0.0)
        corner->second = Along({}, -1.0, corner->second);
    if (Dot(corner->first, corner->second) < -kParallel)
        corner->second = Along({}, -1.0, corner->second);
    const double reach = std::max(DistanceBetween(corner->apex, first.place),
                                  DistanceBetween(corner->apex, second.place));
    const double radius = kArcShare * reach;
    dimension.line = arcOf(*corner, radius);
    for (const Triple& leg : {corner->first, corner->second})
        dimension.legs.push_back({corner->apex, Along(corner->apex, kLegShare * radius, leg)});
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
