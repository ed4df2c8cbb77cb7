#include "CommandParts.h"
#include "Commands.h"

#include <OrvikCore/ASession.h>
#include <TambCommandsInfra/CallGate.h>
#include <TambCommandsInfra/CommandTable.h>
#include <TambCommandsInfra/ITambViewServices.h>

#include <array>
#include <stdexcept>

namespace OrvikCommands {
namespace {

using TambCommandsInfra::Arguments;
using TambCommandsInfra::CallGate;
using TambCommandsInfra::Command;
using TambCommandsInfra::CommandEffect;
using TambCommandsInfra::CommandTable;
using TambCommandsInfra::Parameter;
using TambCommandsInfra::Presence;
using TambCommandsInfra::Value;
using TambCommandsInfra::ValueType;

using StandardView = void (ITambViewServices::*)();
using Display = void (ITambViewServices::*)(bool show);

Command standardView(const std::string& word, StandardView view, const std::string& summary)
{
    Command command;
    command.name = "view:" + word;
    command.summary = summary;
    command.help = "Looks at the middle of the model from the same distance as before.";
    command.example = "(" + command.name + ")";
    command.effect = CommandEffect::Changes;
    command.handler = [view](const Arguments&) {
        (ViewServices().*view)();
        return Value();
    };
    return command;
}

Command displayCommand(const std::string& word, Display display, const std::string& what)
{
    Command command;
    command.name = "view:display-" + word;
    command.parameters = {SwitchParameter("show", "#t shows, #f hides; #t when left out")};
    command.summary = "Shows or hides " + what + ".";
    command.example = "(" + command.name + " #f)";
    command.effect = CommandEffect::Changes;
    command.handler = [display](const Arguments& arguments) {
        (ViewServices().*display)(arguments["show"].AsBool());
        return Value();
    };
    return command;
}

Command zoomAllCommand()
{
    Command command;
    command.name = "view:zoom-all";
    command.summary = "Moves the camera so that everything is seen.";
    command.example = "(view:zoom-all)";
    command.effect = CommandEffect::Changes;
    command.handler = [](const Arguments&) {
        OrvikCore::ASession& session = Session();
        CallGate::Call([&session] { session.ZoomAll(); });
        return Value();
    };
    return command;
}

Command zoomToBoxCommand()
{
    Command command;
    command.name = "view:zoom-to-box";
    for (const char* name : {"x-min", "y-min", "z-min", "x-max", "y-max", "z-max"})
        command.parameters.push_back(RealParameter(name, std::string(name) + " of the box", "mm"));
    command.summary = "Moves the camera so that a box is seen.";
    command.example = "(view:zoom-to-box 0 0 0 10 10 10)";
    command.effect = CommandEffect::Changes;
    command.handler = [](const Arguments& a) {
        ViewServices().ZoomToBox(a[0].AsReal(), a[1].AsReal(), a[2].AsReal(), a[3].AsReal(),
                                 a[4].AsReal(), a[5].AsReal());
        return Value();
    };
    return command;
}

Command cameraCommand()
{
    Command command;
    command.name = "view:camera";
    command.result = ValueType::List;
    command.resultHelp = "three lists of three numbers: eye and target in mm, up";
    command.summary = "Tells where the camera is and where it looks.";
    command.example = "(view:camera)";
    command.handler = [](const Arguments&) {
        std::array<double, 9> c = {};
        ViewServices().GetCamera(c[0], c[1], c[2], c[3], c[4], c[5], c[6], c[7], c[8]);
        Value::List triple;
        for (std::size_t i = 0; i < 9; i += 3)
            triple.push_back(Value::FromVector({c[i], c[i + 1], c[i + 2]}));
        return Value(std::move(triple));
    };
    return command;
}

Command setCameraCommand()
{
    Command command;
    command.name = "view:set-camera!";
    Parameter up;
    up.name = "up";
    up.type = ValueType::Vector;
    up.help = "direction that points up in the picture";
    command.parameters = {PointParameter("eye", "where the camera is"),
                          PointParameter("target", "where it looks"), up};
    command.summary = "Moves the camera.";
    command.help = "Nothing happens when eye and target are the same point or up points along the "
                   "line of sight.";
    command.example = "(view:set-camera! '(0 0 100) '(0 0 0) '(0 1 0))";
    command.effect = CommandEffect::Changes;
    command.handler = [](const Arguments& arguments) {
        const std::array<double, 3> e = arguments["eye"].AsVector();
        const std::array<double, 3> t = arguments["target"].AsVector();
        const std::array<double, 3> u = arguments["up"].AsVector();
        ViewServices().SetCamera(e[0], e[1], e[2], t[0], t[1], t[2], u[0], u[1], u[2]);
        return Value();
    };
    return command;
}

} // namespace

void RegisterViewCommands(CommandTable& table)
{
    table.DescribeFamily("view", "View and camera");
    using Services = ITambViewServices;
    table.Register(standardView("iso", &Services::Iso, "Looks from a corner."));
    table.Register(standardView("front", &Services::Front, "Looks from the front."));
    table.Register(standardView("back", &Services::Back, "Looks from the back."));
    table.Register(standardView("top", &Services::Top, "Looks from above."));
    table.Register(standardView("bottom", &Services::Bottom, "Looks from below."));
    table.Register(standardView("right", &Services::Right, "Looks from the right."));
    table.Register(standardView("left", &Services::Left, "Looks from the left."));
    table.Register(zoomAllCommand());
    table.Register(zoomToBoxCommand());
    table.Register(cameraCommand());
    table.Register(setCameraCommand());
    table.Register(displayCommand("faces", &Services::DisplayFaces, "faces"));
    table.Register(displayCommand("edges", &Services::DisplayEdges, "edges"));
    table.Register(displayCommand("vertices", &Services::DisplayVertices, "vertices"));
    table.Register(displayCommand("tessellation", &Services::DisplayTessellation,
                                  "the triangles that faces are drawn with"));
    table.Register(displayCommand("clouds", &Services::DisplayClouds, "point clouds"));
    table.Register(
        displayCommand("pmi", &Services::DisplayPMI, "product manufacturing information"));
    table.Register(displayCommand("axes", &Services::DisplayAxes, "the axes of the view"));
}

} // namespace OrvikCommands
