#ifndef PLUGINCOMMANDS_SCENEPARTS_H
#define PLUGINCOMMANDS_SCENEPARTS_H

#include <TambCommandsInfra/Command.h>
#include <TambVizCore/EntityId.h>
#include <TambVizCore/RenderId.h>

#include <functional>
#include <vector>

namespace OrvikCore {
class AView3D;
class IViewObjectProvider;
} // namespace OrvikCore
namespace TambVizCore {
class IView3D;
class IViewAttribute;
class IViewDoUndoStrategy;
class Node;
class RenderingOptions;
} // namespace TambVizCore

namespace OrvikCommands {

/// A last parameter that takes any number of entities and lists of them.
TambCommandsInfra::Parameter EntitiesParameter();

/// @return what CollectEntities finds in the arguments of that parameter.
std::vector<TambVizCore::EntityId> EntitiesFrom(const std::string& command,
                                                const TambCommandsInfra::Arguments& arguments);

/// Runs on the main thread what changes the picture, then repaints.
void ChangeView(const std::function<void()>& change);

// The following are for the main thread, inside ChangeView or CallGate::Call.

/// @throws std::runtime_error "There is no view."
TambVizCore::IView3D& CurrentView();

/// @throws std::runtime_error "The view has no camera of its own."
OrvikCore::AView3D& CurrentCameraView();

/// @throws std::runtime_error "The view has no display options."
TambVizCore::RenderingOptions& CurrentOptions();

/// @throws std::runtime_error "The view cannot undo."
TambVizCore::IViewDoUndoStrategy& CurrentUndo();

/// @throws std::runtime_error "The view cannot draw beside the model."
OrvikCore::IViewObjectProvider& CurrentProvider();

/// @return the ids of what draws entities; entities that nothing draws are left out.
std::vector<TambVizCore::RenderId> DrawnIds(const std::vector<TambVizCore::EntityId>& entities);

/// Visits the nodes of the model below the scene's root, not what is drawn beside it, from the top
/// down.
/// @param visit  answers whether to go below the node.
void WalkScene(const std::function<bool(TambVizCore::Node& node)>& visit);

} // namespace OrvikCommands

#endif
