#include "kernel/PmiDrawings.h"

#include <BRepBuilderAPI_MakeEdge.hxx>
#include <BRep_Builder.hxx>
#include <TCollection_HAsciiString.hxx>
#include <TopoDS_Compound.hxx>
#include <XCAFDimTolObjects_DimensionObject.hxx>
#include <XCAFDimTolObjects_GeomToleranceObject.hxx>
#include <XCAFDoc_DimTolTool.hxx>
#include <XCAFDoc_Dimension.hxx>
#include <XCAFDoc_DocumentTool.hxx>
#include <XCAFDoc_GeomTolerance.hxx>
#include <gp_Ax3.hxx>
#include <gp_Trsf.hxx>

#include <cmath>
#include <optional>
#include <string>

namespace OrvikCad {

namespace {

constexpr std::string_view kRepositioned = "REPOSITIONED_TESSELLATED_ITEM";

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

/// One callout of a file: its name, what it is, and its curves.
struct Callout
{
    std::string name; ///< Of the callout and of the kind of annotation, where it tells one.
    TopoDS_Shape curves;
};

class CalloutReader
{
public:
    CalloutReader(const StepRecords& records, double unit) : m_records(records), m_unit(unit) {}

    /// @return nothing where the callout holds no curves of the kind.
    std::optional<Callout> Read(std::string_view record) const
    {
        const auto arguments = ArgumentsOf(record, "DRAUGHTING_CALLOUT");
        if (arguments.size() < 2)
            return std::nullopt;
        Callout callout{std::string(StringOf(arguments[0])), {}};
        TopoDS_Compound curves;
        BRep_Builder builder;
        builder.MakeCompound(curves);
        bool isEmpty = true;
        for (const std::string_view item : ItemsOf(arguments[1]))
            isEmpty = !addOccurrence(item, callout.name, curves) && isEmpty;
        if (isEmpty)
            return std::nullopt;
        callout.curves = curves;
        return callout;
    }

private:
    bool addOccurrence(std::string_view item, std::string& name, TopoDS_Compound& curves) const
    {
        const auto occurrence =
            ArgumentsOf(m_records.Find(ReferenceOf(item)), "TESSELLATED_ANNOTATION_OCCURRENCE");
        if (occurrence.size() < 3)
            return false;
        const std::string_view set = m_records.Find(ReferenceOf(occurrence[2]));
        const auto place = ArgumentsOf(set, kRepositioned);
        const auto pieces = ArgumentsOf(set, "TESSELLATED_GEOMETRIC_SET");
        if (place.empty() || pieces.empty())
            return false;
        addKind(set, name);
        const gp_Trsf transform = placeOf(ReferenceOf(place[0]));
        bool hasAdded = false;
        for (const std::string_view piece : ItemsOf(pieces[0]))
            hasAdded = addCurves(m_records.Find(ReferenceOf(piece)), transform, curves) || hasAdded;
        return hasAdded;
    }

    /// Adds the kind, such as "diameter dimension", to a name that does not tell it.
    static void addKind(std::string_view set, std::string& name)
    {
        const auto kind = ArgumentsOf(set, "REPRESENTATION_ITEM");
        const std::string word(kind.empty() ? std::string_view() : StringOf(kind[0]));
        if (!word.empty() && name.find(word) == std::string::npos)
            name += name.empty() ? word : " (" + word + ")";
    }

    gp_Trsf placeOf(int axes) const
    {
        const auto arguments = ArgumentsOf(m_records.Find(axes), "AXIS2_PLACEMENT_3D");
        gp_Trsf transform;
        if (arguments.size() < 4)
            return transform;
        const gp_XYZ z = vectorOf(arguments[2], "DIRECTION");
        const gp_XYZ x = vectorOf(arguments[3], "DIRECTION");
        const gp_XYZ origin = vectorOf(arguments[1], "CARTESIAN_POINT") * m_unit;
        if (!isFinite(origin) || !(z.Crossed(x).Modulus() > 1e-9))
            return transform;
        transform.SetTransformation(gp_Ax3(origin, gp_Dir(z), gp_Dir(x)), gp_Ax3());
        return transform;
    }

    gp_XYZ vectorOf(std::string_view reference, std::string_view type) const
    {
        const auto arguments = ArgumentsOf(m_records.Find(ReferenceOf(reference)), type);
        return arguments.size() < 2 ? gp_XYZ() : tripleOf(arguments[1]);
    }

    bool addCurves(std::string_view record, const gp_Trsf& transform, TopoDS_Compound& curves) const
    {
        const auto set = ArgumentsOf(record, "TESSELLATED_CURVE_SET");
        if (set.size() < 3)
            return false;
        const auto list = ArgumentsOf(m_records.Find(ReferenceOf(set[1])), "COORDINATES_LIST");
        if (list.size() < 3)
            return false;
        std::vector<gp_Pnt> points;
        for (const std::string_view point : ItemsOf(list[2]))
            points.push_back(gp_Pnt(tripleOf(point) * m_unit).Transformed(transform));
        bool hasAdded = false;
        for (const std::string_view line : ItemsOf(set[2]))
            hasAdded = addLine(ItemsOf(line), points, curves) || hasAdded;
        return hasAdded;
    }

    static bool addLine(const std::vector<std::string_view>& indices,
                        const std::vector<gp_Pnt>& points, TopoDS_Compound& curves)
    {
        const gp_Pnt* before = nullptr;
        bool hasAdded = false;
        for (const std::string_view item : indices) {
            const double index = NumberOf(item); // Counts from 1.
            const gp_Pnt* point = nullptr;
            if (index >= 1.0 && index <= static_cast<double>(points.size()))
                point = &points[static_cast<std::size_t>(index) - 1];
            if (before && point && isFinite(point->XYZ()) && isFinite(before->XYZ()) &&
                before->Distance(*point) > 1e-6) {
                BRep_Builder().Add(curves, BRepBuilderAPI_MakeEdge(*before, *point).Edge());
                hasAdded = true;
            }
            before = point;
        }
        return hasAdded;
    }

    const StepRecords& m_records;
    double m_unit;
};

/// Numbers of the dimensions and tolerances by the callouts that show them.
std::map<int, int> collectLinks(const StepRecords& records)
{
    std::map<int, int> links;
    for (const auto& record : records.All()) {
        for (const std::string_view type :
             {std::string_view("DRAUGHTING_MODEL_ITEM_ASSOCIATION"),
              std::string_view("DRAUGHTING_MODEL_ITEM_ASSOCIATION_WITH_PLACEHOLDER")}) {
            if (!record.text.starts_with(type))
                continue;
            const auto arguments = ArgumentsOf(record.text, type);
            if (arguments.size() >= 5)
                links.emplace(ReferenceOf(arguments[2]), ReferenceOf(arguments[4]));
        }
    }
    return links;
}

Handle(TCollection_HAsciiString) text(const std::string& name)
{
    return new TCollection_HAsciiString(name.c_str());
}

/// Gives a dimension or tolerance its curves.
/// @return true when it has some now.
bool draw(const TDF_Label& label, const Callout& callout)
{
    Handle(XCAFDoc_Dimension) dimension;
    if (label.FindAttribute(XCAFDoc_Dimension::GetID(), dimension)) {
        const auto object = dimension->GetObject();
        object->SetPresentation(callout.curves, text(callout.name));
        dimension->SetObject(object);
        return true;
    }
    Handle(XCAFDoc_GeomTolerance) tolerance;
    if (!label.FindAttribute(XCAFDoc_GeomTolerance::GetID(), tolerance))
        return false;
    const auto object = tolerance->GetObject();
    object->SetPresentation(callout.curves, text(callout.name));
    tolerance->SetObject(object);
    return true;
}

void addDrawnOnly(const Callout& callout, CadDocument& document)
{
    Handle(XCAFDimTolObjects_DimensionObject) object = new XCAFDimTolObjects_DimensionObject();
    object->SetType(XCAFDimTolObjects_DimensionType_CommonLabel);
    object->SetPresentation(callout.curves, text(callout.name));
    const TDF_Label label = XCAFDoc_DocumentTool::DimTolTool(document.Main())->AddDimension();
    XCAFDoc_Dimension::Set(label)->SetObject(object);
}

} // namespace

bool HasDrawings(std::string_view text)
{
    return text.find(kRepositioned) != std::string_view::npos;
}

void AddDrawings(const StepRecords& records, double unit, const LabelsByEntity& labels,
                 CadDocument& document)
{
    std::map<int, TDF_Label> shown; // By callout.
    for (const auto& [entity, callout] : collectLinks(records))
        if (const auto label = labels.find(entity); label != labels.end())
            shown.emplace(callout, label->second);
    const CalloutReader reader(records, unit);
    for (const auto& record : records.All()) {
        if (!record.text.starts_with("DRAUGHTING_CALLOUT"))
            continue;
        const std::optional<Callout> callout = reader.Read(record.text);
        if (!callout)
            continue;
        const auto label = shown.find(record.number);
        if (label == shown.end() || !draw(label->second, *callout))
            addDrawnOnly(*callout, document);
    }
}

} // namespace OrvikCad
