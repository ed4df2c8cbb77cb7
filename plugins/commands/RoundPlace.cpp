#include "RoundPlace.h"

#include "Triples.h"

#include <OrvikCore/IEntityProperties.h>
#include <TambCommandsInfra/CancelToken.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <vector>

namespace OrvikCommands {
namespace {

using OrvikCore::EntityMeasure;
using OrvikCore::IEntityProperties;
using OrvikCore::LineHit;
using OrvikCore::MeasureResult;
using TambVizCore::EntityId;

/// Below it, as a share of the radius, the middle of what is round lies on its axis: it goes
/// around.
constexpr double kAround = 1e-3;

/// How far a face of triangles may lie from the radius that fits it, as a share of it.
constexpr double kNearRadius = 0.05;

constexpr int kDirections = 16; ///< Around the axis.

/// Radii lie across this direction where they can: from there the standard views see them well.
constexpr Triple kAsSeen{1.0, 1.0, 1.0};

std::optional<Triple> vectorOf(const IEntityProperties& content, const EntityId& entity,
                               EntityMeasure what)
{
    MeasureResult result;
    if (!content.Measure(entity, what, result))
        return std::nullopt;
    return Triple{result.vector[0], result.vector[1], result.vector[2]};
}

/// @return a direction across another.
Triple across(const Triple& axis)
{
    Triple found = Cross(axis, kAsSeen);
    if (!(LengthOf(found) > 0.1))
        found = Cross(axis, {0.0, 0.0, 1.0});
    return Unit(found);
}

/// @return directions around an axis; the first ones lie nearest to the one they start from.
std::vector<Triple> directionsAround(const Triple& axis, const Triple& start)
{
    const Triple side = Cross(axis, start);
    std::vector<Triple> directions;
    for (int i = 0; i < kDirections; ++i) {
        const int step = i % 2 == 0 ? i / 2 : -(i + 1) / 2;
        const double angle = 2.0 * std::numbers::pi * step / kDirections;
        directions.push_back(Along(Along({}, std::cos(angle), start), std::sin(angle), side));
    }
    return directions;
}

bool isOnFace(const IEntityProperties& content, const EntityId& face, const RoundPlace& place,
              const Triple& direction)
{
    TambCommandsInfra::CancelToken::Instance().ThrowIfCancelled();
    std::vector<LineHit> hits;
    if (!content.IntersectLine(place.center.data(), direction.data(), /*visibleOnly=*/false, hits))
        return false;
    return std::any_of(hits.begin(), hits.end(), [&](const LineHit& hit) {
        return hit.entity == face &&
               std::abs(hit.distance - place.radius) < kNearRadius * place.radius;
    });
}

/// An edge runs through all its directions; a face has holes.
Triple chooseDirection(const IEntityProperties& content, const EntityId& entity,
                       const RoundPlace& place, const std::vector<Triple>& directions)
{
    if (!entity.IsFace())
        return directions.front();
    const auto found =
        std::find_if(directions.begin(), directions.end(), [&](const Triple& direction) {
            return isOnFace(content, entity, place, direction);
        });
    return found == directions.end() ? directions.front() : *found;
}

} // namespace

Triple RoundPlace::At(double share) const
{
    return Along(center, share * radius, outward);
}

std::optional<RoundPlace> FindRoundPlace(const IEntityProperties& content, const EntityId& entity)
{
    MeasureResult radius;
    const auto origin = vectorOf(content, entity, EntityMeasure::Origin);
    if (!content.Measure(entity, EntityMeasure::Radius, radius) || !(radius.value > 0.0) || !origin)
        return std::nullopt;
    RoundPlace place{radius.value, radius.exact, *origin, {}};
    const Triple middle = vectorOf(content, entity, EntityMeasure::Center).value_or(*origin);
    MeasureResult surface;
    const bool isSphere =
        content.Measure(entity, EntityMeasure::Surface, surface) && surface.word == "sphere";
    const auto direction = vectorOf(content, entity, EntityMeasure::Direction);
    Triple toMiddle = Along(middle, -1.0, *origin);
    if (direction && !isSphere) {
        place.center = Along(*origin, Dot(toMiddle, *direction), *direction);
        toMiddle = Along(middle, -1.0, place.center);
    }
    const bool isAround = LengthOf(toMiddle) < kAround * radius.value;
    const Triple axis = direction.value_or(isAround ? Triple{0.0, 0.0, 1.0} : across(toMiddle));
    const Triple start = isAround ? across(axis) : Unit(toMiddle);
    place.outward =
        chooseDirection(content, entity, place,
                        directionsAround(isSphere && !isAround ? across(start) : axis, start));
    return place;
}

} // namespace OrvikCommands
