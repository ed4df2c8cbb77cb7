#include "CommandParts.h"
#include "Commands.h"
#include "SceneParts.h"
#include "ViewSteps.h"

#include <TambCommandsInfra/CommandTable.h>
#include <TambVizCore/AttributeOpacity.h>
#include <TambVizCore/AttributeVisibility.h>
#include <TambVizCore/GeoNode.h>
#include <TambVizCore/IView3D.h>
#include <TambVizCore/IViewDoUndoStrategy.h>
#include <TambVizCore/RenderingOptions.h>

#include <span>
#include <unordered_set>
#include <vector>

namespace OrvikCommands {
namespace {

using TambCommandsInfra::Arguments;
using TambCommandsInfra::Command;
using TambCommandsInfra::CommandEffect;
using TambCommandsInfra::CommandTable;
using TambCommandsInfra::Parameter;
using TambCommandsInfra::Value;
using TambCommandsInfra::ValueType;
using TambVizCore::AttributeVisibility;
using TambVizCore::EntityId;
using TambVizCore::GeoNode;
using TambVizCore::Node;
using TambVizCore::PartState;
using TambVizCore::RenderId;

/// Shows or hides what some ids name, as one step that can be undone.
bool setVisible(const std::vector<RenderId>& ids, bool visible)
{
    return !ids.empty() && CurrentUndo().ApplyToAll(ids, AttributeVisibility(visible));
}

Command entitiesCommand(const std::string& word, const std::string& summary)
{
    Command command;
    command.name = "view:" + word;
    command.parameters = {EntitiesParameter()};
    command.result = ValueType::Bool;
    command.resultHelp = "#f when nothing of it is drawn";
    command.summary = summary;
    command.effect = CommandEffect::Changes;
    return command;
}

Command showCommand(const std::string& word, bool visible, const std::string& summary)
{
    Command command = entitiesCommand(word, summary);
    command.help = "view:undo takes it back.";
    command.example = "(view:" + word + " (sel:get))";
    command.handler = [name = command.name, visible](const Arguments& arguments) {
        const std::vector<EntityId> entities = EntitiesFrom(name, arguments);
        bool isChanged = false;
        ChangeView([&] { isChanged = setVisible(DrawnIds(entities), visible); });
        return Value(isChanged);
    };
    return command;
}

/// The ids of what is shown and neither one of the nodes to keep, nor above or below one.
class OthersFinder
{
public:
    explicit OthersFinder(const std::vector<RenderId>& kept)
    {
        for (const RenderId& id : kept) {
            RenderId above = id;
            m_kept.insert(id);
            for (; !above.IsEmpty(); above.RemoveLast())
                m_above.insert(above);
        }
    }

    std::vector<RenderId> Find()
    {
        WalkScene([this](Node& node) {
            const RenderId id = node.GetRenderId();
            if (m_kept.count(id) != 0)
                return false;
            if (m_above.count(id) != 0)
                return true;
            if (node.IsVisible())
                m_others.push_back(id);
            return false;
        });
        return std::move(m_others);
    }

private:
    std::unordered_set<RenderId> m_kept;
    std::unordered_set<RenderId> m_above;
    std::vector<RenderId> m_others;
};

Command isolateCommand()
{
    Command command = entitiesCommand("isolate", "Shows only some bodies or assemblies.");
    command.help =
        "A face, edge or vertex stands for its body. view:show-all shows the rest again, "
        "view:undo takes it back.";
    command.example = "(view:isolate (sel:by-name \"bolt*\"))";
    command.handler = [name = command.name](const Arguments& arguments) {
        std::vector<EntityId> entities = EntitiesFrom(name, arguments);
        for (EntityId& entity : entities)
            entity.ReduceToBody();
        bool isDrawn = false;
        ChangeView([&] {
            const std::vector<RenderId> kept = DrawnIds(entities);
            isDrawn = !kept.empty();
            if (!isDrawn)
                return;
            std::vector<RenderId> changed = OthersFinder(kept).Find();
            std::unordered_set<RenderId> shown;
            for (const RenderId& id : kept)
                if (const Node* const node =
                        TambVizCore::FindRenderId(CurrentView().GetSceneRoot(), id).node;
                    !node->IsVisible() && shown.insert(id).second)
                    changed.push_back(id);
            if (!changed.empty())
                CurrentUndo().ApplyToAll(changed, ShowOnly(std::move(shown)));
        });
        return Value(isDrawn);
    };
    return command;
}

/// The ids of everything that is hidden: nodes, and parts of bodies.
std::vector<RenderId> hiddenIds()
{
    std::vector<RenderId> hidden;
    WalkScene([&hidden](Node& node) {
        const RenderId id = node.GetRenderId();
        if (!node.IsVisible())
            hidden.push_back(id);
        const GeoNode* const geoNode = node.AsGeoNode();
        const auto states =
            geoNode != nullptr ? geoNode->PartStates() : std::span<const PartState>();
        for (std::size_t i = 0; i < states.size(); ++i)
            if (!states[i].Has(PartState::kShown)) {
                hidden.push_back(id);
                hidden.back().AddValue(geoNode->GetGeometry()->Parts()[i].id);
            }
        return true;
    });
    return hidden;
}

Command showAllCommand()
{
    Command command;
    command.name = "view:show-all";
    command.summary = "Shows everything that was hidden.";
    command.help = "view:undo takes it back.";
    command.example = "(view:show-all)";
    command.effect = CommandEffect::Changes;
    command.handler = [](const Arguments&) {
        ChangeView([] { setVisible(hiddenIds(), true); });
        return Value();
    };
    return command;
}

using Step = bool (TambVizCore::IViewDoUndoStrategy::*)();

Command stepCommand(const std::string& word, Step step, const std::string& summary)
{
    Command command;
    command.name = "view:" + word;
    command.result = ValueType::Bool;
    command.resultHelp = "#f when there is no such step";
    command.summary = summary;
    command.help =
        "Steps are hiding, showing, isolating, exploding, making transparent, sections and x-ray, "
        "by script or menu.";
    command.example = "(" + command.name + ")";
    command.effect = CommandEffect::Changes;
    command.handler = [step](const Arguments&) {
        bool isDone = false;
        ChangeView([&] { isDone = (CurrentUndo().*step)(); });
        return Value(isDone);
    };
    return command;
}

Command transparencyCommand()
{
    Command command = entitiesCommand("transparency", "Lets one see through bodies or assemblies.");
    Parameter share =
        RealParameter("share", "0 is as opaque as the model's own colours, 1 unseen", "shares");
    share.minimum = 0.0;
    share.maximum = 1.0;
    command.parameters.insert(command.parameters.begin(), share);
    command.help = "A face, edge or vertex stands for its body. What is seen through is still "
                   "picked. view:undo takes it back.";
    command.example = "(view:transparency 0.5 (sel:get))";
    command.handler = [name = command.name](const Arguments& arguments) {
        std::vector<EntityId> entities = EntitiesFrom(name, arguments);
        for (EntityId& entity : entities)
            entity.ReduceToBody();
        const auto opacity = static_cast<float>(1.0 - arguments["share"].AsReal());
        bool isChanged = false;
        ChangeView([&] {
            const std::vector<RenderId> ids = DrawnIds(entities);
            isChanged = !ids.empty() &&
                        CurrentUndo().ApplyToAll(ids, TambVizCore::AttributeOpacity(opacity));
        });
        return Value(isChanged);
    };
    return command;
}

Command xRayCommand()
{
    Command command;
    command.name = "view:xray";
    command.parameters = {SwitchParameter("on", "#t when left out")};
    command.summary = "Draws everything that is not selected as through frosted glass.";
    command.help = "view:undo takes it back.";
    command.example = "(view:xray #t)";
    command.effect = CommandEffect::Changes;
    command.handler = [](const Arguments& arguments) {
        ChangeView([&] {
            SeeingInside wanted = SeeingInside::Present();
            wanted.isXRay = arguments["on"].AsBool();
            wanted.Apply();
        });
        return Value();
    };
    return command;
}

} // namespace

void RegisterVisibilityCommands(CommandTable& table)
{
    using Strategy = TambVizCore::IViewDoUndoStrategy;
    table.Register(
        showCommand("hide", false, "Hides bodies, assemblies, faces, edges or vertices."));
    table.Register(showCommand("show", true, "Shows what was hidden."));
    table.Register(isolateCommand());
    table.Register(showAllCommand());
    table.Register(stepCommand("undo", &Strategy::Undo, "Takes the view's last step back."));
    table.Register(stepCommand("redo", &Strategy::Redo, "Does again what view:undo took back."));
    table.Register(transparencyCommand());
    table.Register(xRayCommand());
}

} // namespace OrvikCommands
