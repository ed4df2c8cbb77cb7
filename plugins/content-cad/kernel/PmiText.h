#ifndef ORVIKCAD_KERNEL_PMITEXT_H
#define ORVIKCAD_KERNEL_PMITEXT_H

#include <XCAFDimTolObjects_DatumObject.hxx>
#include <XCAFDimTolObjects_DimensionObject.hxx>
#include <XCAFDimTolObjects_GeomToleranceObject.hxx>

#include <string>
#include <vector>

namespace OrvikCad {

/// What a drawing shows of a dimension, in millimetres and degrees: "\u2300 12 +0.1/-0.05",
/// "100 h7", "R 5 MAX". The kernel's lower tolerance counts downwards: 0.05 is "-0.05".
///
/// @return empty where the dimension has no value, such as one that is only drawn.
std::wstring DimensionText(const XCAFDimTolObjects_DimensionObject& dimension);

/// The frame of a geometric tolerance: "\u2316 \u2300 0.2 \u24C2 | A | B-C".
///
/// @param datums  The frame's datums; those with the same position stand in one field.
std::wstring ToleranceText(const XCAFDimTolObjects_GeomToleranceObject& tolerance,
                           const std::vector<Handle(XCAFDimTolObjects_DatumObject)>& datums);

/// The letter of a datum, with its number for a datum target: "A", "B2".
std::wstring DatumText(const XCAFDimTolObjects_DatumObject& datum);

/// The word for a kind of geometric tolerance: "Flatness".
std::wstring ToleranceWord(XCAFDimTolObjects_GeomToleranceType type);

/// The word for a kind of dimension: "Diameter", "Distance".
std::wstring DimensionWord(XCAFDimTolObjects_DimensionType type);

/// @return true for dimensions in degrees.
bool IsAngular(XCAFDimTolObjects_DimensionType type);

} // namespace OrvikCad

#endif
