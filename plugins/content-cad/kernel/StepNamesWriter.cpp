#include "kernel/StepNamesWriter.h"

#include <OrvikOs/Utf8.h>

#include <Interface_InterfaceModel.hxx>
#include <STEPConstruct.hxx>
#include <STEPConstruct_Part.hxx>
#include <StepBasic_ProductDefinition.hxx>
#include <StepRepr_NextAssemblyUsageOccurrence.hxx>
#include <StepShape_ShapeDefinitionRepresentation.hxx>
#include <TDF_LabelSequence.hxx>
#include <TransferBRep.hxx>
#include <TransferBRep_ShapeMapper.hxx>
#include <Transfer_FinderProcess.hxx>
#include <XCAFDoc_DocumentTool.hxx>
#include <XCAFDoc_ShapeTool.hxx>
#include <XSControl_TransferWriter.hxx>

#include <map>
#include <vector>

namespace OrvikCad {

namespace {

using Product = Handle(StepBasic_ProductDefinition);
using Placement = Handle(StepRepr_NextAssemblyUsageOccurrence);

/// The placements of a model by the assembly that they stand in, in the model's order.
using PlacementsByAssembly = std::map<const Standard_Transient*, std::vector<Placement>>;

PlacementsByAssembly collectPlacements(const Handle(Interface_InterfaceModel) & model)
{
    PlacementsByAssembly placements;
    for (int i = 1; i <= model->NbEntities(); ++i) {
        const auto placement = Placement::DownCast(model->Value(i));
        if (!placement.IsNull())
            placements[placement->RelatingProductDefinition().get()].push_back(placement);
    }
    return placements;
}

/// @return what the shape of a label became; null where it became nothing.
Product productOf(const TDF_Label& label, const Handle(Transfer_FinderProcess) & transfer)
{
    const TopoDS_Shape shape = XCAFDoc_ShapeTool::GetShape(label);
    if (shape.IsNull())
        return nullptr;
    const Handle(TransferBRep_ShapeMapper) mapper = TransferBRep::ShapeMapper(transfer, shape);
    Handle(StepShape_ShapeDefinitionRepresentation) definition;
    if (!transfer->FindTypedTransient(
            mapper, STANDARD_TYPE(StepShape_ShapeDefinitionRepresentation), definition))
        return nullptr;
    STEPConstruct_Part part;
    part.ReadSDR(definition);
    return part.IsDone() ? part.PD() : nullptr;
}

/// Takes the first placement of a product out of the list.
Placement take(std::vector<Placement>& placements, const Product& product)
{
    for (auto it = placements.begin(); it != placements.end(); ++it) {
        if ((*it)->RelatedProductDefinition() != product)
            continue;
        const Placement found = *it;
        placements.erase(it);
        return found;
    }
    return nullptr;
}

Handle(TCollection_HAsciiString) utf8(const std::wstring& name)
{
    return new TCollection_HAsciiString(OrvikOs::WideToUtf8(name).c_str());
}

} // namespace

void NamePlacements(const Handle(XSControl_WorkSession) & session, const CadDocument& document)
{
    PlacementsByAssembly placements = collectPlacements(session->Model());
    const Handle(Transfer_FinderProcess) transfer = session->TransferWriter()->FinderProcess();
    TDF_LabelSequence shapes;
    XCAFDoc_DocumentTool::ShapeTool(document.Main())->GetShapes(shapes);
    for (const TDF_Label& assembly : shapes) {
        if (!XCAFDoc_ShapeTool::IsAssembly(assembly))
            continue;
        const auto own = placements.find(productOf(assembly, transfer).get());
        if (own == placements.end())
            continue;
        TDF_LabelSequence components;
        XCAFDoc_ShapeTool::GetComponents(assembly, components);
        for (const TDF_Label& component : components) {
            TDF_Label referred;
            if (!XCAFDoc_ShapeTool::GetReferredShape(component, referred))
                continue;
            const Placement placement = take(own->second, productOf(referred, transfer));
            const std::wstring name = NameOf(component);
            if (!placement.IsNull() && !name.empty())
                placement->SetName(utf8(name));
        }
    }
}

} // namespace OrvikCad
