#include "kernel/PmiUnits.h"

#include <STEPConstruct_UnitContext.hxx>
#include <StepBasic_NamedUnit.hxx>
#include <StepBasic_Unit.hxx>
#include <StepGeom_GeomRepContextAndGlobUnitAssCtxAndGlobUncertaintyAssCtx.hxx>
#include <StepGeom_GeometricRepresentationContextAndGlobalUnitAssignedContext.hxx>
#include <StepRepr_GlobalUnitAssignedContext.hxx>
#include <StepRepr_MeasureRepresentationItem.hxx>
#include <StepRepr_ReprItemAndMeasureWithUnit.hxx>

namespace OrvikCad {

namespace {

/// The measure that an entity is or holds; null where there is none.
Handle(StepBasic_MeasureWithUnit) measureOf(const Handle(Standard_Transient) & entity)
{
    const auto plain = Handle(StepBasic_MeasureWithUnit)::DownCast(entity);
    if (!plain.IsNull())
        return plain;
    const auto item = Handle(StepRepr_MeasureRepresentationItem)::DownCast(entity);
    if (!item.IsNull())
        return item->Measure();
    const auto complex = Handle(StepRepr_ReprItemAndMeasureWithUnit)::DownCast(entity);
    return complex.IsNull() ? nullptr : complex->GetMeasureWithUnit();
}

Handle(StepRepr_GlobalUnitAssignedContext)
    unitsOf(const Handle(StepRepr_RepresentationContext) & context)
{
    using Plain = StepGeom_GeometricRepresentationContextAndGlobalUnitAssignedContext;
    using Exact = StepGeom_GeomRepContextAndGlobUnitAssCtxAndGlobUncertaintyAssCtx;
    const auto exact = opencascade::handle<Exact>::DownCast(context);
    if (!exact.IsNull())
        return exact->GlobalUnitAssignedContext();
    const auto plain = opencascade::handle<Plain>::DownCast(context);
    return plain.IsNull() ? nullptr : plain->GlobalUnitAssignedContext();
}

} // namespace

double LengthUnitOf(const Handle(StepRepr_RepresentationContext) & context)
{
    const Handle(StepRepr_GlobalUnitAssignedContext) units = unitsOf(context);
    if (units.IsNull())
        return 1.0;
    STEPConstruct_UnitContext factors;
    factors.ComputeFactors(units);
    return factors.LengthDone() ? factors.LengthFactor() : 1.0;
}

std::optional<FileLength> LengthOf(const Handle(Standard_Transient) & entity)
{
    const Handle(StepBasic_MeasureWithUnit) measure = measureOf(entity);
    if (measure.IsNull() || measure->ValueComponentMember().IsNull())
        return std::nullopt;
    const Handle(StepBasic_NamedUnit) unit = measure->UnitComponent().NamedUnit();
    if (unit.IsNull())
        return std::nullopt;
    STEPConstruct_UnitContext factors;
    factors.ComputeFactors(unit);
    if (!factors.LengthDone())
        return std::nullopt;
    return FileLength{measure->ValueComponent(), factors.LengthFactor()};
}

} // namespace OrvikCad
