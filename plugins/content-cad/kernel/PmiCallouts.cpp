#include "kernel/PmiCallouts.h"

#include <BRepBuilderAPI_MakeEdge.hxx>
#include <BRep_Builder.hxx>
#include <TopoDS_Edge.hxx>
#include <gp_Ax3.hxx>

#include <algorithm>
#include <cmath>
#include <map>
#include <utility>

namespace OrvikCad {

namespace {

/// Shorter strokes are noise of the file, millimetres.
constexpr double kShortestStroke = 1e-6;

using Points = std::vector<gp_Pnt>;

gp_XYZ tripleOf(std::string_view list)
{
    gp_XYZ triple;
    const auto items = ItemsOf(list);
    for (std::size_t axis = 0; axis < 3 && axis < items.size(); ++axis)
        triple.SetCoord(static_cast<int>(axis) + 1, NumberOf(items[axis]));
    return triple;
}

bool isFinite(const gp_XYZ& point)
{
    return std::isfinite(point.X()) && std::isfinite(point.Y()) && std::isfinite(point.Z());
}

/// @return the position of a point that a file counts from 1; -1 where there is none.
int positionOf(std::string_view argument, const Points& points)
{
    const double index = NumberOf(argument);
    return index >= 1.0 && index <= static_cast<double>(points.size()) ? static_cast<int>(index) - 1
                                                                       : -1;
}

bool addStroke(const Points& points, int from, int to, TopoDS_Compound& curves)
{
    if (from < 0 || to < 0)
        return false;
    const gp_Pnt& a = points[static_cast<std::size_t>(from)];
    const gp_Pnt& b = points[static_cast<std::size_t>(to)];
    if (!isFinite(a.XYZ()) || !isFinite(b.XYZ()) || !(a.Distance(b) > kShortestStroke))
        return false;
    BRep_Builder().Add(curves, BRepBuilderAPI_MakeEdge(a, b).Edge());
    return true;
}

bool addLine(const std::vector<std::string_view>& indices, const Points& points,
             TopoDS_Compound& curves)
{
    bool hasAdded = false;
    for (std::size_t i = 0; i + 1 < indices.size(); ++i)
        hasAdded = addStroke(points, positionOf(indices[i], points),
                             positionOf(indices[i + 1], points), curves) ||
                   hasAdded;
    return hasAdded;
}

/// The sides of triangles; those that an odd number of triangles has are the outline.
class Outline
{
public:
    void AddTriangle(int a, int b, int c)
    {
        flip(a, b);
        flip(b, c);
        flip(c, a);
    }

    bool Draw(const Points& points, TopoDS_Compound& curves) const
    {
        bool hasAdded = false;
        for (const auto& [side, isOdd] : m_sides)
            if (isOdd)
                hasAdded = addStroke(points, side.first, side.second, curves) || hasAdded;
        return hasAdded;
    }

private:
    void flip(int a, int b)
    {
        bool& isOdd = m_sides[std::minmax(a, b)];
        isOdd = !isOdd;
    }

    std::map<std::pair<int, int>, bool> m_sides;
};

/// Strips turn round the last two points, fans round the first.
enum class Pattern
{
    Strip,
    Fan,
};

void addTriangles(std::string_view lists, Pattern pattern, const std::vector<int>& pointOf,
                  const Points& points, Outline& outline)
{
    const auto resolve = [&](std::string_view item) {
        if (pointOf.empty())
            return positionOf(item, points);
        const double index = NumberOf(item);
        return index >= 1.0 && index <= static_cast<double>(pointOf.size())
                   ? pointOf[static_cast<std::size_t>(index) - 1]
                   : -1;
    };
    for (const std::string_view list : ItemsOf(lists)) {
        const auto items = ItemsOf(list);
        for (std::size_t i = 2; i < items.size(); ++i) {
            const int first = resolve(items[pattern == Pattern::Fan ? 0 : i - 2]);
            const int second = resolve(items[i - 1]);
            const int third = resolve(items[i]);
            if (first >= 0 && second >= 0 && third >= 0)
                outline.AddTriangle(first, second, third);
        }
    }
}

/// Draws the outline of COMPLEX_TRIANGULATED_SURFACE_SET(name, coordinates, count, normals, points,
/// strips, fans).
bool addArea(const std::vector<std::string_view>& area, const Points& points,
             TopoDS_Compound& curves)
{
    std::vector<int> pointOf;
    for (const std::string_view item : ItemsOf(area[4]))
        pointOf.push_back(positionOf(item, points));
    Outline outline;
    addTriangles(area[5], Pattern::Strip, pointOf, points, outline);
    addTriangles(area[6], Pattern::Fan, pointOf, points, outline);
    return outline.Draw(points, curves);
}

/// Adds the kind, such as "diameter dimension", to a name that does not tell it.
void addKind(std::string_view set, std::string& name)
{
    const auto kind = ArgumentsOf(set, "REPRESENTATION_ITEM");
    const std::string word(kind.empty() ? std::string_view() : StringOf(kind[0]));
    if (!word.empty() && name.find(word) == std::string::npos)
        name += name.empty() ? word : " (" + word + ")";
}

} // namespace

CalloutReader::CalloutReader(const StepRecords& records, double unit)
    : m_records(records), m_unit(unit)
{
}

std::optional<Callout> CalloutReader::Read(std::string_view record) const
{
    const auto arguments = ArgumentsOf(record, "DRAUGHTING_CALLOUT");
    if (arguments.size() < 2)
        return std::nullopt;
    Callout callout{std::string(StringOf(arguments[0])), {}};
    BRep_Builder().MakeCompound(callout.curves);
    bool hasCurves = false;
    for (const std::string_view item : ItemsOf(arguments[1]))
        hasCurves = addOccurrence(item, callout) || hasCurves;
    return hasCurves ? std::optional(callout) : std::nullopt;
}

bool CalloutReader::addOccurrence(std::string_view item, Callout& callout) const
{
    const auto occurrence =
        ArgumentsOf(m_records.Find(ReferenceOf(item)), "TESSELLATED_ANNOTATION_OCCURRENCE");
    if (occurrence.size() < 3)
        return false;
    const std::string_view set = m_records.Find(ReferenceOf(occurrence[2]));
    const auto axes = ArgumentsOf(set, kKeyword);
    const auto pieces = ArgumentsOf(set, "TESSELLATED_GEOMETRIC_SET");
    if (axes.empty() || pieces.empty())
        return false;
    if (callout.name.empty())
        callout.name = StringOf(occurrence[0]);
    addKind(set, callout.name);
    const gp_Trsf place = placeOf(ReferenceOf(axes[0]));
    bool hasAdded = false;
    for (const std::string_view piece : ItemsOf(pieces[0])) {
        const std::string_view record = m_records.Find(ReferenceOf(piece));
        const auto lines = ArgumentsOf(record, "TESSELLATED_CURVE_SET");
        const auto area = ArgumentsOf(record, "COMPLEX_TRIANGULATED_SURFACE_SET");
        if (lines.size() >= 3) {
            const Points points = pointsOf(lines[1], place);
            for (const std::string_view line : ItemsOf(lines[2]))
                hasAdded = addLine(ItemsOf(line), points, callout.curves) || hasAdded;
        } else if (area.size() >= 7) {
            hasAdded = addArea(area, pointsOf(area[1], place), callout.curves) || hasAdded;
        }
    }
    return hasAdded;
}

gp_Trsf CalloutReader::placeOf(int axes) const
{
    const auto arguments = ArgumentsOf(m_records.Find(axes), "AXIS2_PLACEMENT_3D");
    gp_Trsf place;
    if (arguments.size() < 4)
        return place;
    const gp_XYZ z = vectorOf(arguments[2], "DIRECTION");
    const gp_XYZ x = vectorOf(arguments[3], "DIRECTION");
    const gp_XYZ origin = vectorOf(arguments[1], "CARTESIAN_POINT") * m_unit;
    if (isFinite(origin) && z.Crossed(x).Modulus() > 1e-9)
        place.SetTransformation(gp_Ax3(origin, gp_Dir(z), gp_Dir(x)), gp_Ax3());
    return place;
}

gp_XYZ CalloutReader::vectorOf(std::string_view reference, std::string_view type) const
{
    const auto arguments = ArgumentsOf(m_records.Find(ReferenceOf(reference)), type);
    return arguments.size() < 2 ? gp_XYZ() : tripleOf(arguments[1]);
}

std::vector<gp_Pnt> CalloutReader::pointsOf(std::string_view reference, const gp_Trsf& place) const
{
    const auto list = ArgumentsOf(m_records.Find(ReferenceOf(reference)), "COORDINATES_LIST");
    Points points;
    if (list.size() < 3)
        return points;
    for (const std::string_view point : ItemsOf(list[2]))
        points.push_back(gp_Pnt(tripleOf(point) * m_unit).Transformed(place));
    return points;
}

} // namespace OrvikCad
