#include "CommandParts.h"
#include "Commands.h"
#include "SceneParts.h"
#include "Selection.h"

#include <OrvikCore/ASession.h>
#include <TambCommandsInfra/CallGate.h>
#include <TambCommandsInfra/CommandTable.h>
#include <TambVizCore/EntityId.h>
#include <TambVizCore/GeoNode.h>
#include <TambVizCore/Geometry.h>
#include <TambVizCore/IView3D.h>
#include <TambVizCore/PartState.h>
#include <TambVizCore/RenderId.h>
#include <TambVizCore/SelectionHolder.h>

#include <span>
#include <unordered_set>
#include <vector>

namespace OrvikCommands {
namespace {

using TambCommandsInfra::Arguments;
using TambCommandsInfra::CallGate;
using TambCommandsInfra::Command;
using TambCommandsInfra::CommandEffect;
using TambCommandsInfra::Value;
using TambVizCore::EntityId;
using TambVizCore::GeoNode;
using TambVizCore::IView3D;
using TambVizCore::Node;
using TambVizCore::PartState;
using TambVizCore::RenderId;

void addEntity(IView3D& view, const RenderId& id, std::vector<EntityId>& entities)
{
    EntityId entity;
    if (view.Convert(id, entity))
        entities.push_back(entity);
}

std::vector<EntityId> highlighted()
{
    std::vector<EntityId> entities;
    IView3D& view = CurrentView();
    WalkScene([&](Node& node) {
        const RenderId nodeId = node.GetRenderId();
        if (node.IsHighlighted())
            addEntity(view, nodeId, entities);
        const GeoNode* const geoNode = node.AsGeoNode();
        const auto states =
            geoNode != nullptr ? geoNode->PartStates() : std::span<const PartState>();
        for (std::size_t i = 0; i < states.size(); ++i)
            if (states[i].Has(PartState::kHighlighted)) {
                RenderId id = nodeId;
                id.AddValue(geoNode->GetGeometry()->Parts()[i].id);
                addEntity(view, id, entities);
            }
        return true;
    });
    return entities;
}

/// Highlights what draws entities, and nothing else, in view and tree. Main thread.
void highlight(OrvikCore::ASession& session, const std::vector<EntityId>& entities)
{
    TambVizCore::SelectionHolder& holder = *CurrentView().GetSelectionHolder();
    session.UnHighlight();
    holder.ClearHighlight();
    std::vector<RenderId> ids = DrawnIds(entities);
    for (RenderId& id : ids)
        id.SetOrigin(RenderId::kOriginView3D);
    // The session knows the tree, and one highlight at a time.
    if (!ids.empty())
        session.Highlight(ids.front());
    for (const RenderId& id : ids)
        holder.AddHighlight(id);
}

std::vector<EntityId> withoutDoubles(const std::vector<EntityId>& entities)
{
    std::vector<EntityId> once;
    std::unordered_set<EntityId> present;
    for (const EntityId& entity : entities)
        if (present.insert(entity).second)
            once.push_back(entity);
    return once;
}

Command highlightedCommand()
{
    Command command;
    command.name = "sel:highlighted";
    command.result = TambCommandsInfra::ValueType::List;
    command.resultHelp = "a list of entities in the order of the scene";
    command.summary = "Lists what is highlighted: under the pointer, or picked by a plain click.";
    command.example = "(sel:highlighted)";
    command.handler = [](const Arguments&) { return ToList(CallGate::Call(&highlighted)); };
    return command;
}

Command highlightCommand()
{
    Command command;
    command.name = "sel:highlight";
    command.parameters = {EntitiesParameter()};
    command.summary = "Picks entities as a plain click does: they are highlighted, not selected.";
    command.help = "(sel:get) lists them. What was selected or highlighted before is given up; "
                   "without entities that is all.";
    command.example = "(sel:highlight (app:pick-face 0 0 100 0 0 -1 0.5))";
    command.effect = CommandEffect::Changes;
    command.handler = [name = command.name](const Arguments& arguments) {
        const std::vector<EntityId> entities = withoutDoubles(EntitiesFrom(name, arguments));
        OrvikCore::ASession& session = Session();
        ChangeView([&] {
            session.UnSelect();
            highlight(session, entities);
            session.SetPickedEntities(entities);
        });
        return Value();
    };
    return command;
}

Command hoverCommand()
{
    Command command;
    command.name = "sel:hover";
    command.parameters = {EntitiesParameter()};
    command.summary = "Highlights entities as the pointer does over them; nothing is picked.";
    command.help = "What was highlighted before is so no more; what is selected stays. Without "
                   "entities nothing is highlighted, as when the pointer leaves the view.";
    command.example = "(sel:hover (app:pick-face 0 0 100 0 0 -1 0.5))";
    command.effect = CommandEffect::Changes;
    command.handler = [name = command.name](const Arguments& arguments) {
        const std::vector<EntityId> entities = withoutDoubles(EntitiesFrom(name, arguments));
        OrvikCore::ASession& session = Session();
        ChangeView([&] { highlight(session, entities); });
        return Value();
    };
    return command;
}

} // namespace

void RegisterHighlightCommands(TambCommandsInfra::CommandTable& table)
{
    table.Register(highlightedCommand());
    table.Register(highlightCommand());
    table.Register(hoverCommand());
}

} // namespace OrvikCommands
