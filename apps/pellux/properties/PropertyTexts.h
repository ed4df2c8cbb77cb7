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

/// How many digits of a number are written.
enum class Digits
{
    All, ///< Ten that are significant; very large and small numbers with an exponent.
    Few, ///< Six, and all of those before the point.
};

/// Writes a number for people, with its unit.
QString NumberText(double number, Unit unit, LengthUnit length = LengthUnit::Unknown,
                   Digits digits = Digits::All);

/// Writes a value that a command gave for people: numbers with their unit, lists with commas.
QString ValueText(const TambCommandsInfra::Value& value, Unit unit,
                  LengthUnit length = LengthUnit::Unknown, Digits digits = Digits::All);

} // namespace Pellux

#endif
