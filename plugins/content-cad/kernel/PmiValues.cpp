#include "kernel/PmiValues.h"

#include "kernel/PmiDrawings.h"
#include "kernel/PmiRecords.h"
#include "kernel/PmiText.h"
#include "kernel/PmiUnits.h"

#include <Interface_EntityIterator.hxx>
#include <Interface_Graph.hxx>
#include <Interface_InterfaceModel.hxx>
#include <StepData_StepModel.hxx>
#include <StepDimTol_GeometricTolerance.hxx>
#include <StepRepr_HArray1OfRepresentationItem.hxx>
#include <StepShape_DimensionalCharacteristicRepresentation.hxx>
#include <StepShape_DimensionalLocation.hxx>
#include <StepShape_DimensionalSize.hxx>
#include <StepShape_HArray1OfShapeDimensionRepresentationItem.hxx>
#include <StepShape_PlusMinusTolerance.hxx>
#include <StepShape_ShapeDimensionRepresentation.hxx>
#include <StepShape_ToleranceValue.hxx>
#include <StepVisual_DraughtingModel.hxx>
#include <TDF_LabelSequence.hxx>
#include <XCAFDoc_DimTolTool.hxx>
#include <XCAFDoc_Dimension.hxx>
#include <XCAFDoc_DocumentTool.hxx>
#include <XCAFDoc_GeomTolerance.hxx>

#include <algorithm>
#include <cmath>
#include <unordered_map>
#include <vector>

namespace OrvikCad {

namespace {

using Session = Handle(XSControl_WorkSession);

/// What a file says of one dimension or tolerance.
struct FileEntry
{
    int number = 0; ///< Of the entity.
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

/// @return the number of an entity in the file.
int numberOf(const Handle(Standard_Transient) & entity, const Session& session)
{
    const auto model = Handle(StepData_StepModel)::DownCast(session->Model());
    return model.IsNull() ? 0 : model->IdentLabel(entity);
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
        dimensions.push_back({numberOf(entity, session),
                              wide(size.IsNull() ? location->Name() : size->Name()),
                              {},
                              {},
                              {}});
        readDimension(entity, session, dimensions.back());
    }
    return dimensions;
}

/// Finds entities by their numbers in the file.
class EntitiesByNumber
{
public:
    explicit EntitiesByNumber(const Session& session)
    {
        for (int i = 1; i <= session->Model()->NbEntities(); ++i)
            m_entities.emplace(numberOf(session->Model()->Value(i), session),
                               session->Model()->Value(i));
    }

    Handle(Standard_Transient) Find(int number) const
    {
        const auto found = m_entities.find(number);
        return found == m_entities.end() ? nullptr : found->second;
    }

private:
    std::unordered_map<int, Handle(Standard_Transient)> m_entities;
};

/// The value of a tolerance that the kernel dropped, because it is more than a plain measure.
Handle(Standard_Transient)
    droppedValue(int tolerance, const StepRecords& records, const EntitiesByNumber& entities)
{
    const std::string_view record = records.Find(tolerance);
    auto arguments = ArgumentsOf(record, "GEOMETRIC_TOLERANCE");
    if (arguments.empty()) // A record of one type: FLATNESS_TOLERANCE('name','',#value,#shape).
        arguments = ArgumentsOf(record, record.substr(0, record.find('(')));
    return arguments.size() < 3 ? nullptr : entities.Find(ReferenceOf(arguments[2]));
}

std::vector<FileEntry> readTolerances(const Session& session, const StepRecords& records)
{
    const EntitiesByNumber entities(session);
    std::vector<FileEntry> tolerances;
    for (int i = 1; i <= session->Model()->NbEntities(); ++i) {
        const auto entity =
            Handle(StepDimTol_GeometricTolerance)::DownCast(session->Model()->Value(i));
        if (entity.IsNull())
            continue;
        const int number = numberOf(entity, session);
        tolerances.push_back({number, wide(entity->Name()), {}, {}, {}});
        if (entity->Magnitude().IsNull())
            addValue(droppedValue(number, records, entities), tolerances.back().values);
        else
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
/// @return the next entry of that name and number; null when there is none.
const FileEntry* nextOf(const std::vector<FileEntry>& entries, std::size_t& position,
                        const std::wstring& name, const std::optional<double>& number)
{
    for (std::size_t i = position; i < entries.size(); ++i) {
        if (entries[i].name != name || (number && !agrees(entries[i], *number)))
            continue;
        position = i + 1;
        return &entries[i];
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

void correctDimensions(const Session& session, const Handle(XCAFDoc_DimTolTool) & tool,
                       LabelsByEntity& found)
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
        const bool isAngular = IsAngular(dimension->GetType());
        const FileEntry* entry = nextOf(file, position, wide(dimension->GetSemanticName()),
                                        isAngular ? std::nullopt : numberOf(*dimension));
        if (!entry)
            continue;
        found.emplace(entry->number, label);
        if (isAngular || entry->values.empty())
            continue;
        dimension->SetValues(arrayOf(*entry));
        attribute->SetObject(dimension);
    }
}

void correctTolerances(const Session& session, const StepRecords& records,
                       const Handle(XCAFDoc_DimTolTool) & tool, LabelsByEntity& found)
{
    TDF_LabelSequence labels;
    tool->GetGeomToleranceLabels(labels);
    if (labels.IsEmpty())
        return;
    const std::vector<FileEntry> file = readTolerances(session, records);
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
        found.emplace(entry->number, label);
        if (entry->values.empty())
            continue;
        tolerance->SetValue(entry->values.front().Millimetres());
        attribute->SetObject(tolerance);
    }
}

/// The length unit of the models that annotations are drawn in.
double unitOf(const Session& session)
{
    for (int i = 1; i <= session->Model()->NbEntities(); ++i) {
        const auto model = Handle(StepVisual_DraughtingModel)::DownCast(session->Model()->Value(i));
        if (!model.IsNull())
            return LengthUnitOf(model->ContextOfItems());
    }
    return 1.0;
}

} // namespace

void CompletePmi(const Session& session, std::string_view text, CadDocument& document)
{
    const Handle(XCAFDoc_DimTolTool) tool = XCAFDoc_DocumentTool::DimTolTool(document.Main());
    TDF_LabelSequence tolerances;
    tool->GetGeomToleranceLabels(tolerances);
    const bool hasDrawings = HasDrawings(text);
    const StepRecords records(tolerances.IsEmpty() && !hasDrawings ? std::string_view() : text);
    LabelsByEntity found;
    correctDimensions(session, tool, found);
    correctTolerances(session, records, tool, found);
    if (hasDrawings)
        AddDrawings(records, unitOf(session), found, document);
}

} // namespace OrvikCad
