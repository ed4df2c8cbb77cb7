#include "CommandParts.h"
#include "Commands.h"
#include "SceneParts.h"
#include "Selection.h"

#include <TambCommandsInfra/CallGate.h>
#include <TambCommandsInfra/CommandTable.h>
#include <TambVizCore/EntityId.h>
#include <TambVizCore/GeoNode.h>
#include <TambVizCore/Geometry.h>
#include <TambVizCore/IView3D.h>
#include <TambVizCore/PartState.h>
#include <TambVizCore/RenderId.h>

#include <span>
#include <vector>

namespace OrvikCommands {
namespace {

using TambCommandsInfra::Arguments;
using TambCommandsInfra::CallGate;
using TambCommandsInfra::Command;
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

} // namespace

void RegisterHighlightCommand(TambCommandsInfra::CommandTable& table)
{
    Command command;
    command.name = "sel:highlighted";
    command.result = TambCommandsInfra::ValueType::List;
    command.resultHelp = "a list of entities in the order of the scene";
    command.summary = "Lists what is highlighted: under the pointer, or picked by a plain click.";
    command.example = "(sel:highlighted)";
    command.handler = [](const Arguments&) { return ToList(CallGate::Call(&highlighted)); };
    table.Register(command);
}

} // namespace OrvikCommands
