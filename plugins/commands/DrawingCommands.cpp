#include "CommandParts.h"
#include "Commands.h"
#include "SceneParts.h"

#include <OrvikCore/AViewObject.h>
#include <OrvikCore/IViewObjectProvider.h>
#include <OrvikCore/ViewObjectManager.h>
#include <TambCommandsInfra/CommandTable.h>
#include <TambCommandsInfra/ITambViewServices.h>

#include <array>
#include <cstdint>
#include <stdexcept>
#include <vector>

namespace OrvikCommands {
namespace {

using TambCommandsInfra::Arguments;
using TambCommandsInfra::Command;
using TambCommandsInfra::CommandEffect;
using TambCommandsInfra::CommandTable;
using TambCommandsInfra::Parameter;
using TambCommandsInfra::Presence;
using TambCommandsInfra::Value;
using TambCommandsInfra::ValueType;

const char kDrawArrow[] = "view:draw-arrow";
const char kDrawMesh[] = "view:draw-mesh";

Command drawArrowCommand()
{
    Command command;
    command.name = kDrawArrow;
    command.parameters = {PointParameter("from", "where the arrow begins"),
                          PointParameter("to", "where its point is")};
    command.summary = "Draws an arrow over the model.";
    command.help = "It stays until view:clear-drawing.";
    command.example = "(view:draw-arrow '(0 0 0) '(0 0 50))";
    command.effect = CommandEffect::Changes;
    command.handler = [](const Arguments& arguments) {
        const std::array<double, 3> from = PlaceFrom(kDrawArrow, "from", arguments["from"]);
        const std::array<double, 3> to = PlaceFrom(kDrawArrow, "to", arguments["to"]);
        if (from == to)
            throw WrongArgument(kDrawArrow, "to", "another point than \"from\"", arguments["to"]);
        ViewServices().DrawArrow(from[0], from[1], from[2], to[0], to[1], to[2]);
        return Value();
    };
    return command;
}

Parameter listParameter(const char* name, const char* help, const char* unit, Presence presence)
{
    Parameter parameter;
    parameter.name = name;
    parameter.type = ValueType::List;
    parameter.help = help;
    parameter.unit = unit;
    parameter.presence = presence;
    if (presence == Presence::Optional)
        parameter.defaultValue = Value(Value::List{});
    return parameter;
}

/// Makes one list of numbers out of a list of lists of three.
std::vector<float> triples(const char* parameter, const Arguments& arguments)
{
    std::vector<float> numbers;
    for (const Value& triple : arguments[parameter].AsList()) {
        if (!IsThreeNumbers(triple))
            throw WrongArgument(kDrawMesh, parameter, "a list of lists of three numbers", triple);
        for (const double number : PlaceFrom(kDrawMesh, parameter, triple))
            numbers.push_back(static_cast<float>(number));
    }
    return numbers;
}

/// The corners of the triangles, each the number of a point.
std::vector<int> corners(const Arguments& arguments, std::size_t pointCount)
{
    const Value::List& list = arguments["triangles"].AsList();
    std::vector<int> indices;
    for (const Value& triangle : list) {
        const bool isTriple =
            triangle.GetKind() == Value::Kind::List && triangle.AsList().size() == 3;
        if (!isTriple)
            throw WrongArgument(kDrawMesh, "triangles", "a list of lists of three integers",
                                triangle);
        for (const Value& index : triangle.AsList()) {
            if (index.GetKind() != Value::Kind::Integer || index.AsInteger() < 0 ||
                index.AsInteger() >= static_cast<std::int64_t>(pointCount))
                throw WrongArgument(kDrawMesh, "triangles",
                                    "numbers of points, counted from 0, below " +
                                        std::to_string(pointCount),
                                    index);
            indices.push_back(static_cast<int>(index.AsInteger()));
        }
    }
    return indices;
}

Value drawTriangles(const Arguments& arguments)
{
    std::vector<float> points = triples("points", arguments);
    std::vector<int> indices = corners(arguments, points.size() / 3);
    std::vector<float> normals = triples("normals", arguments);
    std::vector<float> colors = triples("colors", arguments);
    for (const char* const parameter : {"normals", "colors"}) {
        const std::size_t count = arguments[parameter].AsList().size();
        if (count != 0 && count * 3 != points.size())
            throw WrongArgument(kDrawMesh, parameter, "one for each point, or none",
                                arguments[parameter]);
    }
    ViewServices().DrawTessellationData(points, normals, colors, indices);
    return Value();
}

Command drawMeshCommand()
{
    Command command;
    command.name = kDrawMesh;
    command.parameters = {
        listParameter("points", "lists of x, y and z", "mm", Presence::Required),
        listParameter("triangles", "lists of the numbers of three points, counted from 0", "",
                      Presence::Required),
        listParameter("normals", "one list of x, y and z for each point, or none", "",
                      Presence::Optional),
        listParameter("colors",
                      "one list of red, green and blue from 0 to 1 for each point, or "
                      "none",
                      "", Presence::Optional)};
    command.summary = "Draws triangles over the model.";
    command.help = "They stay until view:clear-drawing.";
    command.example = "(view:draw-mesh '((0 0 0) (10 0 0) (0 10 0)) '((0 1 2)))";
    command.effect = CommandEffect::Changes;
    command.handler = drawTriangles;
    return command;
}

Command clearDrawingsCommand()
{
    Command command;
    command.name = "view:clear-drawing";
    command.summary = "Removes the arrows, lines, texts, triangles and dimensions that were drawn "
                      "over the model.";
    command.example = "(view:clear-drawing)";
    command.effect = CommandEffect::Changes;
    command.handler = [](const Arguments&) {
        ViewServices().ClearDrawingObjects();
        return Value();
    };
    return command;
}

Command rotationCenterCommand()
{
    Command command;
    command.name = "view:display-rotation-center";
    command.parameters = {SwitchParameter("show", "#t shows, #f hides; #t when left out")};
    command.summary = "Shows or hides a mark at the point that the camera turns around.";
    command.help = "While the mouse turns the camera a window shows it all the same; pictures show "
                   "it only on request.";
    command.example = "(view:display-rotation-center)";
    command.effect = CommandEffect::Changes;
    command.handler = [](const Arguments& arguments) {
        ChangeView([&] {
            const OrvikCore::ViewObjectManager* const manager =
                CurrentProvider().GetViewObjectManager();
            OrvikCore::AViewObject* const mark =
                manager == nullptr ? nullptr : manager->Get("RotationCenterViewObject");
            if (mark == nullptr)
                throw std::runtime_error("The view has no mark at the rotation centre.");
            mark->SetIsVisible(arguments["show"].AsBool());
        });
        return Value();
    };
    return command;
}

Command incrementalCommand()
{
    Command command;
    command.name = "view:incremental-rendering?";
    command.result = ValueType::Bool;
    command.resultHelp = "#t while large models are brought to the view in slices";
    command.summary = "Tells whether large models are brought to the view in slices.";
    command.example = "(view:incremental-rendering?)";
    command.handler = [](const Arguments&) {
        return Value(ViewServices().GetUseIncrementalRendering());
    };
    return command;
}

Command setIncrementalCommand()
{
    Command command;
    command.name = "view:set-incremental-rendering!";
    command.parameters = {SwitchParameter("use", "#t for slices; #t when left out")};
    command.summary = "Sets whether large models are brought to the view in slices.";
    command.example = "(view:set-incremental-rendering! #f)";
    command.effect = CommandEffect::Changes;
    command.handler = [](const Arguments& arguments) {
        ViewServices().SetUseIncrementalRendering(arguments["use"].AsBool());
        return Value();
    };
    return command;
}

Command updateCommand(const char* name, const char* summary, void (ITambViewServices::*update)())
{
    Command command;
    command.name = name;
    command.summary = summary;
    command.example = "(" + command.name + ")";
    command.handler = [update](const Arguments&) {
        (ViewServices().*update)();
        return Value();
    };
    return command;
}

} // namespace

void RegisterDrawingCommands(CommandTable& table)
{
    table.Register(drawArrowCommand());
    table.Register(drawMeshCommand());
    table.Register(clearDrawingsCommand());
    table.Register(rotationCenterCommand());
    table.Register(incrementalCommand());
    table.Register(setIncrementalCommand());
    table.Register(updateCommand("view:update", "Draws the view where something has changed.",
                                 &ITambViewServices::UpdateDisplay));
    table.Register(updateCommand("view:render-again", "Draws the whole view anew.",
                                 &ITambViewServices::Rerender));
}

} // namespace OrvikCommands
