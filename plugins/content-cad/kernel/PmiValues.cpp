#include "kernel/PmiValues.h"

#include "kernel/PmiText.h"
#include "kernel/PmiUnits.h"

#include <Interface_EntityIterator.hxx>
#include <Interface_Graph.hxx>
#include <Interface_InterfaceModel.hxx>
#include <StepDimTol_GeometricTolerance.hxx>
#include <StepRepr_HArray1OfRepresentationItem.hxx>
#include <StepShape_DimensionalCharacteristicRepresentation.hxx>
#include <StepShape_DimensionalLocation.hxx>
#include <StepShape_DimensionalSize.hxx>
#include <StepShape_HArray1OfShapeDimensionRepresentationItem.hxx>
#include <StepShape_PlusMinusTolerance.hxx>
#include <StepShape_ShapeDimensionRepresentation.hxx>
#include <StepShape_ToleranceValue.hxx>
#include <TDF_LabelSequence.hxx>
#include <XCAFDoc_DimTolTool.hxx>
#include <XCAFDoc_Dimension.hxx>
#include <XCAFDoc_DocumentTool.hxx>
#include <XCAFDoc_GeomTolerance.hxx>

#include <algorithm>
#include <cmath>
#include <vector>

namespace OrvikCad {

namespace {

using Session = Handle(XSControl_WorkSession);

/// What a file says of one dimension or tolerance.
struct FileEntry
{
    std::wstring name;
    std::vector<FileLength> values; ///< The nominal one, or the limits.
    std::optional<FileLength> upper;
    std::optional<FileLength> lower; ///< With its sign.
};

std::wstring wide(const Handle(TCollection_HAsciiString) & text)
{
    if (text.IsNull())
        return {};
    const std::string_view bytes = text->ToCString();
    return {bytes.begin(), bytes.end()}; // Only compared.
}

void addValue(const Handle(Standard_Transient) & item, std::vector<FileLength>& values)
{
    if (const auto length = LengthOf(item))
        values.push_back(*length);
}

void readValues(const Handle(StepShape_ShapeDimensionRepresentation) & source,
                std::vector<FileLength>& values)
{
    if (source.IsNull())
        return;
    const auto items = source->ItemsAP242();
    if (!items.IsNull())
        for (int i = items->Lower(); i <= items->Upper(); ++i)
            addValue(items->Value(i).Value(), values);
    else if (!source->Items().IsNull())
        for (int i = source->Items()->Lower(); i <= source->Items()->Upper(); ++i)
            addValue(source->ItemsValue(i), values);
}

void readDimension(const Handle(Standard_Transient) & entity, const Session& session,
                   FileEntry& dimension)
{
    for (Interface_EntityIterator it = session->Graph().Sharings(entity); it.More(); it.Next()) {
        const auto source =
            Handle(StepShape_DimensionalCharacteristicRepresentation)::DownCast(it.Value());
        if (!source.IsNull())
            readValues(source->Representation(), dimension.values);
        const auto tolerance = Handle(StepShape_PlusMinusTolerance)::DownCast(it.Value());
        if (tolerance.IsNull())
            continue;
        const Handle(StepShape_ToleranceValue) range = tolerance->Range().ToleranceValue();
        if (range.IsNull())
            continue;
        dimension.upper = LengthOf(range->UpperBound());
        dimension.lower = LengthOf(range->LowerBound());
    }
}

std::vector<FileEntry> readDimensions(const Session& session)
{
    std::vector<FileEntry> dimensions;
    for (int i = 1; i <= session->Model()->NbEntities(); ++i) {
        const Handle(Standard_Transient) entity = session->Model()->Value(i);
        const auto size = Handle(StepShape_DimensionalSize)::DownCast(entity);
        const auto location = Handle(StepShape_DimensionalLocation)::DownCast(entity);
        if (size.IsNull() && location.IsNull())
            continue;
        dimensions.push_back({wide(size.IsNull() ? location->Name() : size->Name()), {}, {}, {}});
        readDimension(entity, session, dimensions.back());
    }
    return dimensions;
}

std::vector<FileEntry> readTolerances(const Session& session)
{
    std::vector<FileEntry> tolerances;
    for (int i = 1; i <= session->Model()->NbEntities(); ++i) {
        const auto entity =
            Handle(StepDimTol_GeometricTolerance)::DownCast(session->Model()->Value(i));
        if (entity.IsNull())
            continue;
        tolerances.push_back({wide(entity->Name()), {}, {}, {}});
        addValue(entity->Magnitude(), tolerances.back().values);
    }
    return tolerances;
}

/// Whether a number of the kernel comes from one of the entry's, converted or not.
bool agrees(const FileEntry& entry, double number)
{
    const auto isSame = [number](double value) {
        return std::abs(value - number) <= 1e-9 * std::abs(value);
    };
    return std::any_of(entry.values.begin(), entry.values.end(), [&](const FileLength& length) {
        return isSame(length.value) || isSame(length.Millimetres());
    });
}

/// The kernel adds its labels in the order of the file's entities, but leaves out those that hang
/// on nothing.
/// @param number  What the kernel read; none where it read nothing.
/// @return the next entry of that name and number, which has values; null when there is none.
const FileEntry* nextOf(const std::vector<FileEntry>& entries, std::size_t& position,
                        const std::wstring& name, std::optional<double> number)
{
    for (std::size_t i = position; i < entries.size(); ++i) {
        if (entries[i].name != name || (number && !agrees(entries[i], *number)))
            continue;
        position = i + 1;
        return entries[i].values.empty() ? nullptr : &entries[i];
    }
    return nullptr;
}

/// The kernel's array: one value, two limits, or a value with its lower and its upper tolerance.
Handle(TColStd_HArray1OfReal) arrayOf(const FileEntry& file)
{
    std::vector<double> numbers;
    for (const FileLength& length : file.values)
        numbers.push_back(length.Millimetres());
    std::sort(numbers.begin(), numbers.end());
    if (numbers.size() > 2)
        numbers = {numbers.front(), numbers.back()};
    if (numbers.size() == 1 && file.upper && file.lower) {
        numbers.push_back(-file.lower->Millimetres());
        numbers.push_back(file.upper->Millimetres());
    }
    Handle(TColStd_HArray1OfReal) values =
        new TColStd_HArray1OfReal(1, static_cast<int>(numbers.size()));
    for (int i = 0; i < values->Length(); ++i)
        values->SetValue(i + 1, numbers[static_cast<std::size_t>(i)]);
    return values;
}

/// The first number of a dimension; none where the kernel read none.
std::optional<double> numberOf(const XCAFDimTolObjects_DimensionObject& dimension)
{
    const Handle(TColStd_HArray1OfReal) values = dimension.GetValues();
    if (values.IsNull() || values->Length() == 0)
        return std::nullopt;
    return values->Value(values->Lower());
}

void correctDimensions(const Session& session, const Handle(XCAFDoc_DimTolTool) & tool)
{
    TDF_LabelSequence labels;
    tool->GetDimensionLabels(labels);
    if (labels.IsEmpty())
        return;
    const std::vector<FileEntry> file = readDimensions(session);
    std::size_t position = 0;
    for (const TDF_Label& label : labels) {
        Handle(XCAFDoc_Dimension) attribute;
        if (!label.FindAttribute(XCAFDoc_Dimension::GetID(), attribute))
            continue;
        const Handle(XCAFDimTolObjects_DimensionObject) dimension = attribute->GetObject();
        if (IsAngular(dimension->GetType()))
            continue;
        const FileEntry* entry =
            nextOf(file, position, wide(dimension->GetSemanticName()), numberOf(*dimension));
        if (!entry)
            continue;
        dimension->SetValues(arrayOf(*entry));
        attribute->SetObject(dimension);
    }
}

void correctTolerances(const Session& session, const Handle(XCAFDoc_DimTolTool) & tool)
{
    TDF_LabelSequence labels;
    tool->GetGeomToleranceLabels(labels);
    if (labels.IsEmpty())
        return;
    const std::vector<FileEntry> file = readTolerances(session);
    std::size_t position = 0;
    for (const TDF_Label& label : labels) {
        Handle(XCAFDoc_GeomTolerance) attribute;
        if (!label.FindAttribute(XCAFDoc_GeomTolerance::GetID(), attribute))
            continue;
        const Handle(XCAFDimTolObjects_GeomToleranceObject) tolerance = attribute->GetObject();
        const std::optional<double> number =
            tolerance->GetValue() > 0.0 ? std::optional(tolerance->GetValue()) : std::nullopt;
        const FileEntry* entry = nextOf(file, position, wide(tolerance->GetSemanticName()), number);
        if (!entry)
            continue;
        tolerance->SetValue(entry->values.front().Millimetres());
        attribute->SetObject(tolerance);
    }
}

} // namespace

void CorrectPmiValues(const Session& session, CadDocument& document)
{
    const Handle(XCAFDoc_DimTolTool) tool = XCAFDoc_DocumentTool::DimTolTool(document.Main());
    correctDimensions(session, tool);
    correctTolerances(session, tool);
}

} // namespace OrvikCad
