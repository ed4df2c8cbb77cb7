#ifndef PLUGINCOMMANDS_ENTITYPARTS_H
#define PLUGINCOMMANDS_ENTITYPARTS_H

#include <TambCommandsInfra/Command.h>
#include <TambVizCore/EntityId.h>

#include <functional>
#include <string>
#include <vector>

namespace OrvikCore {
class AContent;
class IEntityProperties;
} // namespace OrvikCore

namespace OrvikCommands {

/// A required parameter that takes an entity.
TambCommandsInfra::Parameter EntityParameter(std::string name = "entity",
                                             std::string help = "what a pick gave");

/// An optional parameter that takes a kind of entity, as EntityKind() names it.
TambCommandsInfra::Parameter KindParameter(std::string help);

/// @return the id in an argument of type entity.
/// @throws CommandError "<command>: parameter \"<parameter>\": expected an entity of what is
///         loaded, got one of a document that was closed."
const TambVizCore::EntityId& EntityArgument(const std::string& command,
                                            const std::string& parameter,
                                            const TambCommandsInfra::Value& value);

/// Adds to @p entities what a value holds: an entity, lists of them, or the #f of a pick that hit
/// nothing.
///
/// @throws CommandError "<command>: parameter \"entities\": expected entities, lists of entities,
/// or
///         #f, got ...", and what EntityArgument throws.
void CollectEntities(const std::string& command, const TambCommandsInfra::Value& value,
                     std::vector<TambVizCore::EntityId>& entities);

/// @return the kind in an argument of type string; empty for nil.
/// @throws CommandError for what names no kind.
std::string KindArgument(const std::string& command, const std::string& parameter,
                         const TambCommandsInfra::Value& value);

/// Tells whether a kind stands for faces, edges or vertices.
bool IsPartKind(const std::string& kind);

/// Tells whether an entity is a body, a mesh, a wire or points.
bool IsBodyType(const TambVizCore::EntityId& entity);

/// Tells whether an entity has faces, edges and vertices below it, which are made when it is asked
/// for them: a body or what is drawn of an annotation.
bool HasPartsBelow(const TambVizCore::EntityId& entity);

/// @return what the contents that are loaded know of their entities, in the order of loading; those
///         that know nothing are left out. Not owned, valid while they are loaded.
std::vector<const OrvikCore::IEntityProperties*> LoadedProperties();

/// @return the one that knows an entity; null when none does. Not owned.
const OrvikCore::IEntityProperties* FindProperties(const TambVizCore::EntityId& entity);

/// Whether a walk goes below bodies.
enum class Depth
{
    Bodies,
    Parts,
};

/// Visits what is below a content, each entity before those below it.
///
/// @throws what CancelToken throws once the job is cancelled.
void WalkEntities(const OrvikCore::IEntityProperties& content, Depth depth,
                  const std::function<void(const TambVizCore::EntityId& entity)>& visit);

/// @return x, y and z.
TambCommandsInfra::Value ToPoint(const double* vector);

/// @return how a number is known: "exact" or "triangles".
TambCommandsInfra::Value ToHow(bool isExact);

} // namespace OrvikCommands

#endif
