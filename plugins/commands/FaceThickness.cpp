#include "CommandParts.h"
#include "Commands.h"
#include "Dimensions.h"
#include "EntityParts.h"
#include "Thickness.h"

#include <OrvikCore/ASession.h>
#include <OrvikCore/IEntityProperties.h>
#include <OrvikOs/FpMasked.h>
#include <TambCommandsInfra/CallGate.h>
#include <TambCommandsInfra/CancelToken.h>
#include <TambCommandsInfra/CommandTable.h>
#include <TambVizCore/EntityId.h>
#include <TambVizCore/IView3D.h>
#include <TambVizCore/VizBox.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <vector>

namespace OrvikCommands {
namespace {

using OrvikCore::IEntityProperties;
using OrvikCore::LineHit;
using TambCommandsInfra::Arguments;
using TambCommandsInfra::CallGate;
using TambCommandsInfra::Command;
using TambCommandsInfra::CommandEffect;
using TambCommandsInfra::CommandTable;
using TambCommandsInfra::Value;
using TambCommandsInfra::ValueType;
using TambVizCore::EntityId;
using TambVizCore::VizBox;

using Triple = std::array<double, 3>;

/// The finest grid of lines that look for a face has so many in each direction.
constexpr int kFinestGrid = 16;

/// A ray begins so far in front of a face, as a share of the diagonal of the face's box.
constexpr double kInFront = 1e-3;

/// @return the box of a face as it is shown, or as it is where it is not drawn.
VizBox boxOf(const IEntityProperties& content, const EntityId& face)
{
    VizBox box;
    OrvikCore::ASession& session = Session();
    const bool isShown = CallGate::Call([&] {
        TambVizCore::IView3D* const view = session.View3D();
        return view != nullptr && view->GetBoundingBox(face, box);
    });
    if (!isShown)
        content.GetBox(face, box);
    return box;
}

double lengthOf(const VizBox& box, std::size_t axis)
{
    return static_cast<double>(box.Hi()[axis]) - static_cast<double>(box.Lo()[axis]);
}

double diagonalOf(const VizBox& box)
{
    return std::hypot(lengthOf(box, 0), lengthOf(box, 1), lengthOf(box, 2));
}

/// Looks for a face along one line through its box.
std::optional<LineHit> hitAlong(const IEntityProperties& content, const EntityId& face,
                                const Triple& origin, const Triple& direction)
{
    TambCommandsInfra::CancelToken::Instance().ThrowIfCancelled();
    std::vector<LineHit> hits;
    if (!content.IntersectLine(origin.data(), direction.data(), /*visibleOnly=*/true, hits))
        return std::nullopt;
    const auto found = std::find_if(hits.begin(), hits.end(),
                                    [&face](const LineHit& hit) { return hit.entity == face; });
    return found == hits.end() ? std::nullopt : std::optional(*found);
}

/// Looks for a face along the lines of a grid parallel to an axis of the coordinates.
std::optional<LineHit> hitInGrid(const IEntityProperties& content, const EntityId& face,
                                 const VizBox& box, std::size_t axis, int count)
{
    const std::size_t first = (axis + 1) % 3;
    const std::size_t second = (axis + 2) % 3;
    Triple direction = {0.0, 0.0, 0.0};
    direction[axis] = 1.0;
    for (int i = 0; i < count * count; ++i) {
        Triple origin;
        origin[axis] = static_cast<double>(box.Lo()[axis]) - diagonalOf(box);
        origin[first] =
            static_cast<double>(box.Lo()[first]) + lengthOf(box, first) * (i % count + 0.5) / count;
        origin[second] = static_cast<double>(box.Lo()[second]) +
                         lengthOf(box, second) * (i / count + 0.5) / count;
        if (const std::optional<LineHit> hit = hitAlong(content, face, origin, direction))
            return hit;
    }
    return std::nullopt;
}

/// Finds a point that is truly on a face, near to its middle where that is one: a face with a hole
/// in its middle has none there.
/// @return nothing for what is no face, is not shown, or is missed by every line.
std::optional<LineHit> placeOn(const IEntityProperties& content, const EntityId& face)
{
    const VizBox box = boxOf(content, face);
    if (box.IsEmpty())
        return std::nullopt;
    // A face is seen best along the side in which it is thin.
    std::array<std::size_t, 3> axes = {0, 1, 2};
    std::stable_sort(axes.begin(), axes.end(), [&box](std::size_t a, std::size_t b) {
        return lengthOf(box, a) < lengthOf(box, b);
    });
    for (int count = 1; count <= kFinestGrid; count *= 2)
        for (const std::size_t axis : axes)
            if (const std::optional<LineHit> hit = hitInGrid(content, face, box, axis, count))
                return hit;
    return std::nullopt;
}

Value faceThickness(const Arguments& arguments)
{
    const OrvikOs::FpMasked coordinatesAreData;
    const EntityId face = EntityArgument("measure:face-thickness", "face", arguments["face"]);
    const IEntityProperties* const content = FindProperties(face);
    if (content == nullptr)
        return Value(false);
    const std::optional<LineHit> place = placeOn(*content, face);
    if (!place)
        return Value(false);
    const double inFront = kInFront * diagonalOf(boxOf(*content, face));
    Triple origin;
    Triple inwards;
    for (std::size_t i = 0; i < 3; ++i) {
        origin[i] = place->position[i] + inFront * place->normal[i];
        inwards[i] = -place->normal[i];
    }
    const auto result =
        MeasureThickness(LoadedProperties(), origin, inwards, /*alongNormal=*/false);
    if (!result)
        return Value(false);
    LeaveDimension(LengthDimension(result->entry, result->exit, result->thickness, result->isExact),
                   {result->body});
    return Value(Value::List{Value(result->thickness), ToPoint(result->entry),
                             ToPoint(result->exit), ToHow(result->isExact)});
}

} // namespace

void RegisterFaceThicknessCommand(CommandTable& table)
{
    Command command;
    command.name = "measure:face-thickness";
    command.parameters = {EntityParameter("face", "a face that is shown")};
    command.result = ValueType::Any;
    command.resultHelp = "as measure:thickness; #f for what is no face, is not shown, or has "
                         "nothing behind it";
    command.summary = "Measures how thick the material is behind a face, in mm.";
    command.help = "It is measured at one point of the face, against the face's normal: in its "
                   "middle, or beside that where the face has a hole there. The list says where.";
    command.effect = CommandEffect::Changes;
    command.example = "(measure:face-thickness (car (sel:get)))";
    command.handler = &faceThickness;
    table.Register(command);
}

} // namespace OrvikCommands
