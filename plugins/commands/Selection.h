#ifndef PLUGINCOMMANDS_SELECTION_H
#define PLUGINCOMMANDS_SELECTION_H

#include <TambCommandsInfra/Value.h>
#include <TambVizCore/EntityId.h>

#include <vector>

namespace OrvikCommands {

/// What becomes of what was selected before.
enum class Previous
{
    Replace,
    Keep,
};

/// Selects entities in view and tree; what is selected already stays so once. Worker thread.
void Select(const std::vector<TambVizCore::EntityId>& entities, Previous previous);

/// @return the list that scripts get for entities.
TambCommandsInfra::Value ToList(const std::vector<TambVizCore::EntityId>& entities);

} // namespace OrvikCommands

#endif
