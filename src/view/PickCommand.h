#ifndef ORVIKCORE_VIEW_PICKCOMMAND_H
#define ORVIKCORE_VIEW_PICKCOMMAND_H

#include <string>

namespace TambVizCore {
class EntityId;
class Ray;
} // namespace TambVizCore

namespace OrvikCore {

/// Writes the script command that repeats a pick.
///
/// @param entity  what was hit; its kind names the command: "face", "edge", "vertex" or "entity".
/// @param ray     origin, direction and radius, each with four decimals and a point.
/// @return at most 4096 characters, for example "(define ent (app:pick-face 0.0000 0.0000 10.0000
///         0.0000 0.0000 -1.0000 0.2500))".
std::wstring PickCommand(const TambVizCore::EntityId& entity, const TambVizCore::Ray& ray);

} // namespace OrvikCore

#endif
