#ifndef ORVIKCAD_KERNEL_PMIUNITS_H
#define ORVIKCAD_KERNEL_PMIUNITS_H

#include <StepBasic_MeasureWithUnit.hxx>
#include <StepRepr_RepresentationContext.hxx>

#include <optional>

namespace OrvikCad {

/// @return the length unit of a STEP file's context in millimetres; 1 where it has none.
double LengthUnitOf(const Handle(StepRepr_RepresentationContext) & context);

/// A length as a file tells it.
struct FileLength
{
    double value = 0.0; ///< In the unit.
    double unit = 1.0;  ///< In millimetres.

    double Millimetres() const { return value * unit; }
};

/// Reads a length, whatever the entity of a STEP file that holds it.
///
/// @return nothing where the entity is no length.
std::optional<FileLength> LengthOf(const Handle(Standard_Transient) & entity);

} // namespace OrvikCad

#endif
