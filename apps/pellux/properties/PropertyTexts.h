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

/// Writes a number for people, with ten significant digits and its unit.
QString NumberText(double number, Unit unit);

/// Writes a value that a command gave for people: numbers with their unit, lists with commas.
QString ValueText(const TambCommandsInfra::Value& value, Unit unit);

} // namespace Pellux

#endif
