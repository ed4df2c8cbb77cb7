#include "CommandParts.h"
#include "Commands.h"
#include "EntityObject.h"
#include "InputParts.h"
#include "SceneParts.h"

#include <OrvikCore/ACamera.h>
#include <OrvikCore/ASession.h>
#include <OrvikCore/AView3D.h>
#include <OrvikCore/Document.h>
#include <OrvikOs/FpMasked.h>
#include <TambCommandsInfra/CallGate.h>
#include <TambCommandsInfra/CommandTable.h>
#include <TambVizCore/AView3DAdapter.h>
#include <TambVizCore/EntityId.h>
#include <TambVizCore/IView3D.h>
#include <TambVizCore/Node.h>
#include <TambVizCore/Ray.h>
#include <TambVizCore/RenderId.h>
#include <TambVizCore/Vector.h>

#include <optional>

namespace OrvikCommands {
namespace {

using TambCommandsInfra::Arguments;
using TambCommandsInfra::CallGate;
using TambCommandsInfra::Command;
using TambCommandsInfra::CommandTable;
using TambCommandsInfra::Value;
using TambCommandsInfra::ValueType;
using TambVizCore::EntityId;
using TambVizCore::Ray;

/// How far from the pointer views look.
constexpr int kAperturePixels = 4;

/// @return the ray through a pixel, from before the model; nothing without a camera. Main thread.
std::optional<Ray> rayThrough(int x, int y)
{
    auto* const view = dynamic_cast<OrvikCore::AView3D*>(&CurrentView());
    if (view == nullptr)
        return std::nullopt;
    Ray ray = view->GetCamera()->Make3DRay(x, y, kAperturePixels);
    float toCenter[3];
    TambVizCore::Subtract(view->GetGeometryCenter(), ray.Origin(), toCenter);
    float back[3] = {ray.Direction()[0], ray.Direction()[1], ray.Direction()[2]};
    TambVizCore::Multiply(back, -TambVizCore::Length(toCenter) - view->GetGeometryRadius());
    float origin[3];
    TambVizCore::Add(ray.Origin(), back, origin);
    ray.SetOrigin(origin);
    return ray;
}

/// Models make ready what finds things under the pointer when a pick passes them for the first
/// time; the view itself, which does not wait, finds nothing before.
void makeReady(int x, int y)
{
    const std::optional<Ray> ray = CallGate::Call([&] { return rayThrough(x, y); });
    const OrvikOs::FpMasked coordinatesAreData;
    EntityId passed;
    if (ray)
        Session().Document().RayPick(*ray, passed);
}

/// Main thread.
bool pickInView(int x, int y, EntityId& entity)
{
    TambVizCore::AView3DAdapter* const adapter = CurrentView().GetView3DAdapter();
    TambVizCore::RenderId id;
    return adapter != nullptr && adapter->GetRenderIdAtPixel(x, y, id) &&
           TambVizCore::GetRenderIdEntity(CurrentView().GetSceneRoot(), id, entity);
}

} // namespace

void RegisterViewPickCommand(CommandTable& table)
{
    Command command;
    command.name = "view:pick";
    command.parameters = {PixelParameter("x", "column in the view, from the left"),
                          PixelParameter("y", "row in the view, from the top")};
    command.result = ValueType::Any;
    command.resultHelp = "the entity under the pixel, or #f";
    command.summary = "Finds what one would point at.";
    command.help = "Hidden things, what sections cut away and kinds that are not displayed are "
                   "not found. Nothing is selected.";
    command.example = "(view:pick 400 300)";
    command.handler = [](const Arguments& arguments) {
        const auto x = static_cast<int>(arguments["x"].AsInteger());
        const auto y = static_cast<int>(arguments["y"].AsInteger());
        makeReady(x, y);
        EntityId entity;
        const bool isFound = CallGate::Call([&] { return pickInView(x, y, entity); });
        return isFound ? ToValue(entity) : Value(false);
    };
    table.Register(command);
}

} // namespace OrvikCommands
