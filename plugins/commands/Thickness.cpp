#include "Thickness.h"

#include <OrvikCore/IEntityProperties.h>
#include <TambVizCore/EntityId.h>

#include <algorithm>
#include <cmath>

namespace OrvikCommands {
namespace {

using OrvikCore::IEntityProperties;
using OrvikCore::LineHit;
using Contents = std::vector<const IEntityProperties*>;
using Triple = std::array<double, 3>;

/// An exit nearer to the entry than this share of the coordinates is the entry's own face again.
constexpr double kSamePlace = 1e-6;

double dot(const double* a, const double* b)
{
    return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}

bool isSameBody(const LineHit& a, const LineHit& b)
{
    TambVizCore::EntityId first = a.entity;
    TambVizCore::EntityId second = b.entity;
    first.ReduceToBody();
    second.ReduceToBody();
    return first == second;
}

/// @return the hits of all contents in ascending distance.
std::vector<LineHit> intersect(const Contents& contents, const double* origin,
                               const double* direction)
{
    std::vector<LineHit> all;
    for (const IEntityProperties* const content : contents) {
        std::vector<LineHit> hits;
        if (content->IntersectLine(origin, direction, /*visibleOnly=*/true, hits))
            all.insert(all.end(), hits.begin(), hits.end());
    }
    std::stable_sort(all.begin(), all.end(),
                     [](const LineHit& a, const LineHit& b) { return a.distance < b.distance; });
    return all;
}

/// Finds where the line leaves the body that it has entered.
/// @param from  Looks at hits at least this far along the line.
const LineHit* findExit(const std::vector<LineHit>& hits, const LineHit& entry,
                        const double* direction, double from)
{
    const auto found = std::find_if(hits.begin(), hits.end(), [&](const LineHit& hit) {
        return hit.distance > from && isSameBody(hit, entry) && dot(hit.normal, direction) > 0.0;
    });
    return found == hits.end() ? nullptr : &*found;
}

ThicknessResult between(const LineHit& entry, const LineHit& exit)
{
    ThicknessResult result;
    std::copy_n(entry.position, 3, result.entry);
    std::copy_n(exit.position, 3, result.exit);
    result.thickness =
        std::hypot(exit.position[0] - entry.position[0], exit.position[1] - entry.position[1],
                   exit.position[2] - entry.position[2]);
    result.isExact = entry.exact && exit.exact;
    result.body = entry.entity;
    result.body.ReduceToBody();
    return result;
}

} // namespace

std::optional<ThicknessResult> MeasureThickness(const Contents& contents, const Triple& origin,
                                                const Triple& direction, bool alongNormal)
{
    const std::vector<LineHit> hits = intersect(contents, origin.data(), direction.data());
    const auto entry = std::find_if(hits.begin(), hits.end(), [&](const LineHit& hit) {
        return dot(hit.normal, direction.data()) < 0.0;
    });
    if (entry == hits.end())
        return std::nullopt;
    if (!alongNormal) {
        const LineHit* const exit = findExit(hits, *entry, direction.data(), entry->distance);
        return exit == nullptr ? std::nullopt : std::optional(between(*entry, *exit));
    }
    const double inwards[3] = {-entry->normal[0], -entry->normal[1], -entry->normal[2]};
    const double size = std::max({std::fabs(entry->position[0]), std::fabs(entry->position[1]),
                                  std::fabs(entry->position[2])});
    const std::vector<LineHit> behind = intersect(contents, entry->position, inwards);
    const LineHit* const exit = findExit(behind, *entry, inwards, kSamePlace * size);
    return exit == nullptr ? std::nullopt : std::optional(between(*entry, *exit));
}

} // namespace OrvikCommands
