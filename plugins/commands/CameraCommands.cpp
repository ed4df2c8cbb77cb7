#include "CommandParts.h"
#include "Commands.h"
#include "SceneParts.h"

#include <OrvikCore/ACamera.h>
#include <OrvikCore/ACameraFactory.h>
#include <OrvikCore/AView3D.h>
#include <OrvikCore/View3DFactory.h>
#include <TambCommandsInfra/CallGate.h>
#include <TambCommandsInfra/CommandTable.h>
#include <TambCommandsInfra/ITambViewServices.h>
#include <TambVizCore/IView3D.h>
#include <TambVizCore/Utils.h>
#include <TambVizCore/VizBox.h>

#include <algorithm>
#include <array>
#include <map>
#include <memory>
#include <stdexcept>

namespace OrvikCommands {
namespace {

using OrvikCore::ACamera;
using TambCommandsInfra::Arguments;
using TambCommandsInfra::CallGate;
using TambCommandsInfra::Command;
using TambCommandsInfra::CommandEffect;
using TambCommandsInfra::CommandTable;
using TambCommandsInfra::Parameter;
using TambCommandsInfra::Value;
using TambCommandsInfra::ValueType;
using TambVizCore::EntityId;
using TambVizCore::Utils;

const std::string kPerspectiveSuffix = "Perspective";
const std::string kYUp = "CameraYUp";
const std::string kZUp = "CameraZUp";

/// Replaces the camera by one of another class, at the same place. Main thread.
void changeCamera(const std::string& up, bool perspective)
{
    OrvikCore::AView3D& view = CurrentCameraView();
    const std::string name = up + (perspective ? kPerspectiveSuffix : "");
    ACamera* const camera = OrvikCore::View3DFactory::Instance().GetCameraFactory().MakeCamera(
        *view.GetCamera(), name.c_str());
    if (camera == nullptr)
        throw std::runtime_error("The view has no camera named \"" + name + "\".");
    view.SetCamera(camera);
}

bool isPerspective()
{
    return !CurrentCameraView().GetCamera()->IsOrthographic();
}

std::string upOfCamera()
{
    const std::string name = CurrentCameraView().GetCamera()->GetName();
    return name.rfind(kZUp, 0) == 0 ? kZUp : kYUp;
}

/// A command that takes one of two words, or tells which one holds.
Command choiceCommand(const std::string& name, const std::string& parameterName,
                      const std::string& first, const std::string& second)
{
    Command command;
    command.name = name;
    Parameter choice;
    choice.name = parameterName;
    choice.type = ValueType::String;
    choice.help = "\"" + first + "\" or \"" + second + "\"; when left out nothing changes";
    choice.presence = TambCommandsInfra::Presence::Optional;
    command.parameters = {choice};
    command.result = ValueType::String;
    command.resultHelp = "what holds now";
    command.effect = CommandEffect::Changes;
    return command;
}

/// @return the word given, empty when none was.
std::string wordArgument(const Command& command, const Value& value, const std::string& first,
                         const std::string& second)
{
    if (value.GetKind() == Value::Kind::Nil)
        return {};
    const std::string word = Utils::WstringToString(value.AsString());
    if (word != first && word != second)
        throw WrongArgument(command.name, command.parameters.front().name,
                            "\"" + first + "\" or \"" + second + "\"", value);
    return word;
}

Command projectionCommand()
{
    Command command = choiceCommand("view:projection", "kind", "parallel", "perspective");
    command.summary = "Chooses between parallel projection and perspective.";
    command.help = "The camera stays where it is; what lies at the depth of its target keeps its "
                   "size.";
    command.help += " \"orthographic\" is another word for \"parallel\".";
    command.example = "(view:projection \"perspective\")";
    command.handler = [declared = command](const Arguments& arguments) {
        const Value& kind = arguments["kind"];
        const bool isOrthographic =
            kind.GetKind() == Value::Kind::String && kind.AsString() == L"orthographic";
        const std::string word =
            isOrthographic ? "parallel" : wordArgument(declared, kind, "parallel", "perspective");
        bool now = false;
        ChangeView([&] {
            if (!word.empty())
                changeCamera(upOfCamera(), word == "perspective");
            now = isPerspective();
        });
        return Value(now ? L"perspective" : L"parallel");
    };
    return command;
}

Command upAxisCommand()
{
    Command command = choiceCommand("view:up-axis", "axis", "y", "z");
    command.summary = "Chooses the axis that points up in the standard views.";
    command.help = "The camera stays where it is until the next standard view.";
    command.example = "(view:up-axis \"z\")";
    command.handler = [declared = command](const Arguments& arguments) {
        const std::string word = wordArgument(declared, arguments["axis"], "y", "z");
        std::string now;
        ChangeView([&] {
            if (!word.empty())
                changeCamera(word == "z" ? kZUp : kYUp, isPerspective());
            now = upOfCamera();
        });
        return Value(now == kZUp ? L"z" : L"y");
    };
    return command;
}

/// A camera that was saved under a name.
struct SavedCamera
{
    std::array<float, 9> triple; ///< Eye, target, up; mm.
    float fieldOfView;           ///< Radians.
    std::string up;              ///< The class of the camera, without its projection.
    bool perspective;
};

using SavedCameras = std::map<std::wstring, SavedCamera>;

Parameter nameParameter()
{
    Parameter name;
    name.name = "name";
    name.type = ValueType::String;
    name.help = "of the camera";
    return name;
}

Command saveCameraCommand(const std::shared_ptr<SavedCameras>& cameras)
{
    Command command;
    command.name = "view:save-camera";
    command.parameters = {nameParameter()};
    command.summary = "Keeps the place and the projection of the camera under a name.";
    command.help = "A name that is taken gets the new camera. Names are kept until the end of the "
                   "run.";
    command.example = "(view:save-camera \"front left\")";
    command.effect = CommandEffect::Changes;
    command.handler = [cameras, name = command.name](const Arguments& arguments) {
        if (arguments["name"].AsString().empty())
            throw WrongArgument(name, "name", "a name with something in it", arguments["name"]);
        SavedCamera saved;
        CallGate::Call([&saved] {
            ACamera& camera = *CurrentCameraView().GetCamera();
            float* const triple = saved.triple.data();
            camera.GetCamera(triple, triple + 3, triple + 6);
            saved.fieldOfView = camera.GetFieldOfViewRadians();
            saved.up = upOfCamera();
            saved.perspective = isPerspective();
        });
        cameras->insert_or_assign(arguments["name"].AsString(), saved);
        return Value();
    };
    return command;
}

Command restoreCameraCommand(const std::shared_ptr<SavedCameras>& cameras)
{
    Command command;
    command.name = "view:restore-camera";
    command.parameters = {nameParameter()};
    command.result = ValueType::Bool;
    command.resultHelp = "#f when no camera was saved under the name";
    command.summary = "Goes back to a camera that view:save-camera kept.";
    command.example = "(view:restore-camera \"front left\")";
    command.effect = CommandEffect::Changes;
    command.handler = [cameras](const Arguments& arguments) {
        const auto found = cameras->find(arguments["name"].AsString());
        if (found == cameras->end())
            return Value(false);
        SavedCamera saved = found->second;
        ChangeView([&saved] {
            changeCamera(saved.up, saved.perspective);
            ACamera& camera = *CurrentCameraView().GetCamera();
            camera.SetFieldOfViewRadians(saved.fieldOfView);
            float* const triple = saved.triple.data();
            camera.SetCamera(triple, triple + 3, triple + 6);
        });
        return Value(true);
    };
    return command;
}

Command camerasCommand(const std::shared_ptr<SavedCameras>& cameras)
{
    Command command;
    command.name = "view:cameras";
    command.result = ValueType::List;
    command.resultHelp = "the names of view:save-camera, in alphabetical order";
    command.summary = "Lists the cameras that were saved under a name.";
    command.example = "(view:cameras)";
    command.handler = [cameras](const Arguments&) {
        Value::List names;
        for (const auto& [name, camera] : *cameras)
            names.push_back(Value(name));
        return Value(std::move(names));
    };
    return command;
}

Command rotationCenterCommand()
{
    Command command;
    command.name = "view:rotation-center";
    Parameter point;
    point.name = "point";
    point.type = ValueType::Any;
    point.help = "x, y and z in mm, or #f for the middle of the model; left out, nothing "
                 "changes";
    point.presence = TambCommandsInfra::Presence::Optional;
    command.parameters = {point};
    command.result = ValueType::List;
    command.resultHelp = "the point that holds now, in mm";
    command.summary = "Chooses the point that the mouse turns the model about.";
    command.help = "A pick chooses another, and so does whatever moves the camera to a new target.";
    command.example = "(view:rotation-center '(0 0 10))";
    command.effect = CommandEffect::Changes;
    command.handler = [name = command.name](const Arguments& arguments) {
        const Value& given = arguments["point"];
        const bool isMiddle = given.GetKind() == Value::Kind::Bool && !given.AsBool();
        const bool isPoint = IsThreeNumbers(given);
        if (arguments.IsGiven("point") && !isMiddle && !isPoint)
            throw WrongArgument(name, "point", "a point (three numbers), or #f", given);
        std::array<float, 3> now = {};
        CallGate::Call([&] {
            ACamera& camera = *CurrentCameraView().GetCamera();
            if (isMiddle) {
                camera.SetRotationCenter(CurrentView().GetGeometryCenter());
            } else if (isPoint) {
                const std::array<double, 3> wanted = PlaceFrom(name, "point", given);
                for (std::size_t i = 0; i < 3; ++i)
                    now[i] = static_cast<float>(wanted[i]);
                camera.SetRotationCenter(now.data());
            }
            camera.GetRotationCenter(now.data());
        });
        return Value(Value::FromVector({now[0], now[1], now[2]}));
    };
    return command;
}

Command animateCommand()
{
    Command command;
    command.name = "view:animate";
    command.parameters = {SwitchParameter("on", "#t when left out")};
    command.summary = "Chooses whether the camera moves in steps or at once.";
    command.example = "(view:animate #f)";
    command.effect = CommandEffect::Changes;
    command.handler = [](const Arguments& arguments) {
        CallGate::Call(
            [&] { CurrentCameraView().GetCamera()->SetAnimate(arguments["on"].AsBool()); });
        return Value();
    };
    return command;
}

Command zoomToCommand()
{
    Command command;
    command.name = "view:zoom-to";
    command.parameters = {EntitiesParameter()};
    command.result = ValueType::Bool;
    command.resultHelp = "#f when nothing of it is drawn";
    command.summary = "Moves the camera so that some entities fill the view.";
    command.example = "(view:zoom-to (sel:get))";
    command.effect = CommandEffect::Changes;
    command.handler = [name = command.name](const Arguments& arguments) {
        const std::vector<EntityId> entities = EntitiesFrom(name, arguments);
        TambVizCore::VizBox all;
        CallGate::Call([&] {
            TambVizCore::VizBox box;
            for (const EntityId& entity : entities)
                if (CurrentView().GetBoundingBox(entity, box))
                    all.Add(box);
        });
        if (all.IsEmpty())
            return Value(false);
        ViewServices().ZoomToBox(all.Lo()[0], all.Lo()[1], all.Lo()[2], all.Hi()[0], all.Hi()[1],
                                 all.Hi()[2]);
        return Value(true);
    };
    return command;
}

} // namespace

void RegisterCameraCommands(CommandTable& table)
{
    // Both commands live as long as the table.
    const auto cameras = std::make_shared<SavedCameras>();
    table.Register(projectionCommand());
    table.Register(upAxisCommand());
    table.Register(saveCameraCommand(cameras));
    table.Register(restoreCameraCommand(cameras));
    table.Register(camerasCommand(cameras));
    table.Register(rotationCenterCommand());
    table.Register(animateCommand());
    table.Register(zoomToCommand());
}

} // namespace OrvikCommands
