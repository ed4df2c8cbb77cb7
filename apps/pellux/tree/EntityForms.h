#ifndef PELLUX_TREE_ENTITYFORMS_H
#define PELLUX_TREE_ENTITYFORMS_H

#include <TambVizCore/EntityId.h>

#include <QString>
#include <vector>

namespace Pellux {

/// Writes the form that finds an entity: (entity:by-id "face 3 of mesh 1 in 1").
QString EntityForm(const TambVizCore::EntityId& entity);

/// Writes a call with entities as its arguments: (view:hide (entity:by-id "body 2 in 1")).
/// @param command  Its name: "view:hide".
QString EntitiesForm(const char* command, const std::vector<TambVizCore::EntityId>& entities);

} // namespace Pellux

#endif
