#include "CommandParts.h"
#include "Commands.h"
#include "EntityObject.h"
#include "EntityParts.h"

#include <OrvikCore/AContent.h>
#include <OrvikCore/ARendererTree.h>
#include <OrvikCore/ASession.h>
#include <OrvikCore/ATreeRendererFactory.h>
#include <OrvikCore/Document.h>
#include <OrvikCore/IEntityProperties.h>
#include <OrvikCore/SessionMgr.h>
#include <TambCommandsInfra/CallGate.h>
#include <TambCommandsInfra/CommandTable.h>
#include <TambVizCore/EntityId.h>
#include <TambVizCore/EntityType.h>
#include <TambVizCore/RenderId.h>

#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace OrvikCommands {
namespace {

using TambCommandsInfra::Arguments;
using TambCommandsInfra::CallGate;
using TambCommandsInfra::Command;
using TambCommandsInfra::CommandEffect;
using TambCommandsInfra::CommandTable;
using TambCommandsInfra::Value;
using TambCommandsInfra::ValueType;
using TambVizCore::EntityId;
using TambVizCore::EntityType;

bool isSavedView(const EntityId& entity)
{
    return entity.Type() == EntityType::View || entity.Type() == EntityType::Capture;
}

/// Rows of the tree know what they show. One that is made for this alone needs no tree: a run
/// without windows has none.
/// @return false when no content has such a row.
bool showRow(const OrvikCore::ASession& session, const EntityId& entity)
{
    for (OrvikCore::AContent* const content : session.Document().GetContentList()) {
        OrvikCore::ATreeRendererFactory* const factory =
            content == nullptr
                ? nullptr
                : OrvikCore::SessionMgr::Instance().GetTreeRendererFactory(content->GetTypeName());
        if (factory == nullptr)
            continue;
        const std::unique_ptr<OrvikCore::ARendererTree> rows(
            factory->CreateRenderer(content, /*view=*/nullptr, /*node=*/nullptr));
        TambVizCore::RenderId path;
        if (rows != nullptr && rows->ConvertToRenderId(entity, path))
            return rows->Activate(path);
    }
    return false;
}

Command savedViewsCommand()
{
    Command command;
    command.name = "view:saved-views";
    command.result = ValueType::List;
    command.resultHelp = "entities: the saved views and captures of what is loaded";
    command.summary = "Lists the views that the files themselves have saved.";
    command.example = "(map entity:name (view:saved-views))";
    command.handler = [](const Arguments&) {
        Value::List views;
        for (const OrvikCore::IEntityProperties* const content : LoadedProperties())
            WalkEntities(*content, Depth::Bodies, [&views](const EntityId& entity) {
                if (isSavedView(entity))
                    views.push_back(ToValue(entity));
            });
        return Value(std::move(views));
    };
    return command;
}

Command savedViewCommand()
{
    Command command;
    command.name = "view:saved-view";
    command.parameters = {EntityParameter("view", "a saved view or a capture")};
    command.summary = "Shows a view that a file has saved.";
    command.help =
        "The camera goes where the view was saved. A capture also hides what it does not "
        "name.";
    command.example = "(view:saved-view (car (view:saved-views)))";
    command.effect = CommandEffect::Changes;
    command.handler = [self = command.name](const Arguments& arguments) {
        const EntityId entity = EntityArgument(self, "view", arguments["view"]);
        if (!isSavedView(entity))
            throw WrongArgument(self, "view", "a saved view or a capture", arguments["view"]);
        OrvikCore::ASession& session = Session();
        CallGate::Call([&] {
            if (!showRow(session, entity))
                throw std::runtime_error("The saved view cannot be shown.");
            session.UpdateDisplay();
        });
        return Value();
    };
    return command;
}

} // namespace

void RegisterSavedViewCommands(CommandTable& table)
{
    table.Register(savedViewsCommand());
    table.Register(savedViewCommand());
}

} // namespace OrvikCommands
