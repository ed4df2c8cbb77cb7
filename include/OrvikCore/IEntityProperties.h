#ifndef ORVIKCORE_IENTITYPROPERTIES_H
#define ORVIKCORE_IENTITYPROPERTIES_H

#include "OrvikCore/Export.h"

#include <TambVizCore/EntityId.h>
#include <TambVizCore/RGBAColor.h>

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace TambVizCore {
class Geometry;
class VizBox;
} // namespace TambVizCore

namespace OrvikCore {

/// What can be measured of one entity.
enum class EntityMeasure
{
    Area,      ///< Of a face or of all faces of a body, square world units: value.
    Length,    ///< Of an edge or of all edges of a wire, world units: value.
    Volume,    ///< Of a closed body, cubic world units: value.
    Center,    ///< Centre of mass of the volume, area or length; the place of a vertex: vector.
    Normal,    ///< Of a planar face, pointing out of the body, unit length: vector.
    Direction, ///< Of a straight edge, or the axis of a round face or edge, unit length: vector.
    Origin,    ///< A point on the axis of a round face or edge, such as a circle's centre: vector.
    Radius,    ///< Of a round face or edge, world units: value.
    Surface,   ///< "plane", "cylinder", "cone", "sphere", "torus", "freeform", ...: word.
    Curve,     ///< "line", "circle", "ellipse", "freeform", "polyline", ...: word.
};

/// The answer to one question; only the field that the measure names counts.
struct MeasureResult
{
    double value = 0.0;
    double vector[3] = {0.0, 0.0, 0.0};
    std::string word;   ///< UTF-8.
    bool exact = false; ///< From exact geometry; otherwise from triangles, segments and points.
};

/// The shortest way between two entities, world units.
struct DistanceResult
{
    double distance = 0.0;
    double from[3] = {0.0, 0.0, 0.0}; ///< On the first entity.
    double to[3] = {0.0, 0.0, 0.0};   ///< On the second.
    bool exact = false;
};

/// One place where a line passes through a face, world units.
struct LineHit
{
    TambVizCore::EntityId entity;
    double distance = 0.0; ///< Along the line from its origin; never negative.
    double position[3] = {0.0, 0.0, 0.0};
    double normal[3] = {0.0, 0.0, 0.0}; ///< Unit length, out of the body.
    bool exact = false;
};

/// A geometry, or one part of it, where it stands in the world.
struct PlacedShape
{
    TambVizCore::EntityId body; ///< The body, without sub-entity.
    std::wstring name;          ///< Of the body.
    /// Shared; with parts when partId is not 0.
    std::shared_ptr<const TambVizCore::Geometry> geometry;
    std::uint64_t partId = 0; ///< 0 for the whole geometry.
    double world[16] = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1}; ///< Column-major.
    std::optional<TambVizCore::RGBAColor> color;                         ///< Of the body.
};

/// What a content knows of its entities beyond their picture: names, colours, measures, structure.
///
/// A third interface of contents beside AContent and IKindPicker, found with `dynamic_cast`. Every
/// operation that answers bool leaves its result alone and returns false when the entity is not one
/// of this content, or has nothing of the kind asked for.
///
/// @thread Worker thread while a job runs, main thread while none does.
class ORVIKCORE_API IEntityProperties
{
public:
    // Virtual operations in slot order; append only.
    virtual ~IEntityProperties();

    /// Returns the number that tells the contents of one document apart, from 1: the owner of its
    /// entities and the id of its row in the model tree.
    virtual std::uint64_t GetContentNumber() const = 0;

    /// Lists the entities directly below one; of the content itself for an empty id. Faces, edges
    /// and vertices are listed below their body, in this order.
    virtual bool GetChildren(const TambVizCore::EntityId& entity,
                             std::vector<TambVizCore::EntityId>& children) const = 0;

    /// Finds the entity above: the body of a face, the assembly of a body.
    virtual bool GetParent(const TambVizCore::EntityId& entity,
                           TambVizCore::EntityId& parent) const = 0;

    /// Finds the name; a face, edge or vertex without a name of its own has none.
    virtual bool GetName(const TambVizCore::EntityId& entity, std::wstring& name) const = 0;

    /// Finds the colour in which the entity is drawn; false where the view's default holds.
    virtual bool GetColor(const TambVizCore::EntityId& entity,
                          TambVizCore::RGBAColor& color) const = 0;

    /// Lists the layers that the entity or something above it is on, sorted.
    virtual bool GetLayers(const TambVizCore::EntityId& entity,
                           std::vector<std::wstring>& layers) const = 0;

    /// Finds the box, world units.
    virtual bool GetBox(const TambVizCore::EntityId& entity, TambVizCore::VizBox& box) const = 0;

    /// Measures an entity; see EntityMeasure.
    virtual bool Measure(const TambVizCore::EntityId& entity, EntityMeasure what,
                         MeasureResult& result) const = 0;

    /// Measures the least distance between two entities of this content.
    virtual bool MeasureDistance(const TambVizCore::EntityId& from, const TambVizCore::EntityId& to,
                                 DistanceResult& result) const = 0;

    /// Measures the least distance from an entity of this content to shapes of another.
    virtual bool MeasureDistanceToShapes(const TambVizCore::EntityId& from,
                                         const std::vector<PlacedShape>& to,
                                         DistanceResult& result) const = 0;

    /// Lists every place where a half line passes through a face, in ascending distance.
    ///
    /// @param origin, direction  double[3], world units; the direction has any length but 0.
    /// @param visibleOnly        leaves out what is hidden or cut away in the 3D view, and adds the
    ///                           places where section planes cut closed bodies open: these name
    ///                           the body, and their normal points to what was cut away.
    virtual bool IntersectLine(const double* origin, const double* direction, bool visibleOnly,
                               std::vector<LineHit>& hits) const = 0;

    /// Lists the geometries that an entity consists of; of the whole content for an empty id.
    virtual bool GetShapes(const TambVizCore::EntityId& entity,
                           std::vector<PlacedShape>& shapes) const = 0;
};

} // namespace OrvikCore

#endif
