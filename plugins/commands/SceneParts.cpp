#include "SceneParts.h"

#include "CommandParts.h"
#include "EntityParts.h"

#include <OrvikCore/ASession.h>
#include <OrvikCore/AView3D.h>
#include <OrvikCore/IViewObjectProvider.h>
#include <TambCommandsInfra/CallGate.h>
#include <TambVizCore/AView3DAdapter.h>
#include <TambVizCore/IView3D.h>
#include <TambVizCore/IViewDoUndoStrategy.h>
#include <TambVizCore/Node.h>

#include <stdexcept>

namespace OrvikCommands {

using TambCommandsInfra::Arguments;
using TambCommandsInfra::CallGate;
using TambCommandsInfra::Parameter;
using TambCommandsInfra::Value;
using TambVizCore::EntityId;
using TambVizCore::Node;
using TambVizCore::RenderId;

namespace {

void walkBelow(Node& parent, const std::function<bool(Node&)>& visit)
{
    for (std::size_t i = 0; i < parent.ChildCount(); ++i) {
        Node& child = *parent.ChildAt(i);
        if (!child.IsAuxiliary() && visit(child))
            walkBelow(child, visit);
    }
}

TambVizCore::AView3DAdapter& currentAdapter()
{
    TambVizCore::AView3DAdapter* const adapter = CurrentView().GetView3DAdapter();
    if (adapter == nullptr)
        throw std::runtime_error("The view has no display options.");
    return *adapter;
}

} // namespace

Parameter EntitiesParameter()
{
    Parameter entities;
    entities.name = "entities";
    entities.help = "entities or lists of them; the #f of a pick that hit nothing is left out";
    entities.presence = TambCommandsInfra::Presence::Variadic;
    return entities;
}

std::vector<EntityId> EntitiesFrom(const std::string& command, const Arguments& arguments)
{
    std::vector<EntityId> entities;
    for (const Value& value : arguments.Rest())
        CollectEntities(command, value, entities);
    return entities;
}

void ChangeView(const std::function<void()>& change)
{
    OrvikCore::ASession& session = Session();
    CallGate::Call([&] {
        change();
        session.UpdateDisplay();
    });
}

TambVizCore::IView3D& CurrentView()
{
    TambVizCore::IView3D* const view = Session().View3D();
    if (view == nullptr)
        throw std::runtime_error("There is no view.");
    return *view;
}

OrvikCore::AView3D& CurrentCameraView()
{
    auto* const view = dynamic_cast<OrvikCore::AView3D*>(&CurrentView());
    if (view == nullptr)
        throw std::runtime_error("The view has no camera of its own.");
    return *view;
}

TambVizCore::RenderingOptions& CurrentOptions()
{
    TambVizCore::RenderingOptions* const options = currentAdapter().GetRenderingOptions();
    if (options == nullptr)
        throw std::runtime_error("The view has no display options.");
    return *options;
}

TambVizCore::IViewDoUndoStrategy& CurrentUndo()
{
    auto* const strategy =
        dynamic_cast<TambVizCore::IViewDoUndoStrategy*>(currentAdapter().GetHighlightStrategy());
    if (strategy == nullptr)
        throw std::runtime_error("The view cannot undo.");
    return *strategy;
}

OrvikCore::IViewObjectProvider& CurrentProvider()
{
    auto* const provider = dynamic_cast<OrvikCore::IViewObjectProvider*>(&CurrentView());
    if (provider == nullptr)
        throw std::runtime_error("The view cannot draw beside the model.");
    return *provider;
}

std::vector<RenderId> DrawnIds(const std::vector<EntityId>& entities)
{
    std::vector<RenderId> ids;
    for (const EntityId& entity : entities) {
        RenderId id;
        if (TambVizCore::FindEntityRenderId(CurrentView().GetSceneRoot(), entity, id))
            ids.push_back(id);
    }
    return ids;
}

void WalkScene(const std::function<bool(Node& node)>& visit)
{
    walkBelow(CurrentView().GetSceneRoot(), visit);
}

} // namespace OrvikCommands
