#include "kernel/PmiDrawings.h"

#include "kernel/PmiCallouts.h"

#include <TCollection_HAsciiString.hxx>
#include <XCAFDimTolObjects_DimensionObject.hxx>
#include <XCAFDimTolObjects_GeomToleranceObject.hxx>
#include <XCAFDoc_DimTolTool.hxx>
#include <XCAFDoc_Dimension.hxx>
#include <XCAFDoc_DocumentTool.hxx>
#include <XCAFDoc_GeomTolerance.hxx>

#include <optional>
#include <string>

namespace OrvikCad {

namespace {

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
    return text.find(CalloutReader::kKeyword) != std::string_view::npos;
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
