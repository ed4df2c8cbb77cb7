#ifndef PELLUX_PROPERTIES_PROPERTYTEXTS_H
#define PELLUX_PROPERTIES_PROPERTYTEXTS_H

#include <TambCommandsInfra/Value.h>

#include <QString>

namespace Pellux {

/// What a number measures.
enum class Unit
{
    None,
    Length,
    Area,
    Volume,
    Angle,
};

/// What a length of 1 is.
enum class LengthUnit
{
    Unknown,    ///< Files of triangles do not say: "units".
    Millimetre, ///< CAD files are read in millimetres.
};

/// Writes a number for people, with ten significant digits and its unit.
QString NumberText(double number, Unit unit, LengthUnit length = LengthUnit::Unknown);

/// Writes a value that a command gave for people: numbers with their unit, lists with commas.
QString ValueText(const TambCommandsInfra::Value& value, Unit unit,
                  LengthUnit length = LengthUnit::Unknown);

} // namespace Pellux

#endif
