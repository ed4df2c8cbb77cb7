#include "kernel/PmiText.h"

#include <OrvikOs/Utf8.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <map>

namespace OrvikCad {

namespace {

using Dimension = XCAFDimTolObjects_DimensionObject;
using Tolerance = XCAFDimTolObjects_GeomToleranceObject;
using Datum = XCAFDimTolObjects_DatumObject;

constexpr wchar_t kDiameter[] = L"\u2300";
constexpr wchar_t kDegree[] = L"\u00B0";
constexpr wchar_t kPlusMinus[] = L"\u00B1";

/// Values carry the noise of unit conversions in their last digits.
constexpr int kSignificantDigits = 9;

/// The shortest text of a number without its noise, the same in every locale.
std::wstring shortNumber(double value)
{
    char digits[64];
    const auto end = std::to_chars(digits, digits + sizeof digits, value,
                                   std::chars_format::general, kSignificantDigits);
    return {digits, end.ptr};
}

/// @param decimals  Places after the point; 0 for as many as there are.
std::wstring number(double value, int decimals)
{
    if (decimals <= 0)
        return shortNumber(value);
    char digits[400]; // The greatest number has 309 places before the point.
    const auto end = std::to_chars(digits, digits + sizeof digits, value, std::chars_format::fixed,
                                   std::min(decimals, 15));
    return {digits, end.ptr};
}

std::wstring signedNumber(double value, int decimals)
{
    const std::wstring text = number(std::abs(value), decimals);
    return (value < 0.0 ? L"-" : L"+") + text;
}

std::wstring wide(const Handle(TCollection_HAsciiString) & text)
{
    return text.IsNull() ? std::wstring() : OrvikOs::Utf8ToWide(text->ToCString());
}

/// Adds a word after a blank.
void append(std::wstring& text, const std::wstring& word)
{
    if (word.empty())
        return;
    if (!text.empty())
        text += L' ';
    text += word;
}

std::wstring sizeSymbol(XCAFDimTolObjects_DimensionType type)
{
    switch (type) {
    case XCAFDimTolObjects_DimensionType_Size_Diameter:
    case XCAFDimTolObjects_DimensionType_Size_ToroidalMinorDiameter:
    case XCAFDimTolObjects_DimensionType_Size_ToroidalMajorDiameter:
    case XCAFDimTolObjects_DimensionType_Size_ToroidalHighMajorDiameter:
    case XCAFDimTolObjects_DimensionType_Size_ToroidalLowMajorDiameter:
        return kDiameter;
    case XCAFDimTolObjects_DimensionType_Size_SphericalDiameter:
        return std::wstring(L"S") + kDiameter;
    case XCAFDimTolObjects_DimensionType_Size_Radius:
    case XCAFDimTolObjects_DimensionType_Size_ToroidalMinorRadius:
    case XCAFDimTolObjects_DimensionType_Size_ToroidalMajorRadius:
    case XCAFDimTolObjects_DimensionType_Size_ToroidalHighMajorRadius:
    case XCAFDimTolObjects_DimensionType_Size_ToroidalLowMajorRadius:
        return L"R";
    case XCAFDimTolObjects_DimensionType_Size_SphericalRadius:
        return L"SR";
    default:
        return {};
    }
}

/// The symbols of ISO 14405 and ASME Y14.5 in the order of the kernel's enumeration.
constexpr std::array kDimensionModifiers = {
    L"CR",   L"\u25A1", L"ST",   L"CF",   L"(LP)", L"(LS)", L"(GG)", L"(GX)",
    L"(GN)", L"(CC)",   L"(CA)", L"(CV)", L"(SX)", L"(SN)", L"(SA)", L"(SM)",
    L"(SD)", L"(SR)",   L"/",    L"ACS",  L"SCS",  L"CT",   L"(F)",  L"\u2194"};

/// The words and symbols of the kernel's enumeration of tolerances, in its order.
struct ToleranceKind
{
    const wchar_t* word;
    const wchar_t* symbol;
};
constexpr std::array<ToleranceKind, 16> kToleranceKinds = {{
    {L"Geometric tolerance", L""},
    {L"Angularity", L"\u2220"},
    {L"Circular runout", L"\u2197"},
    {L"Circularity", L"\u25CB"},
    {L"Coaxiality", L"\u25CE"},
    {L"Concentricity", L"\u25CE"},
    {L"Cylindricity", L"\u232D"},
    {L"Flatness", L"\u23E5"},
    {L"Parallelism", L"\u2225"},
    {L"Perpendicularity", L"\u27C2"},
    {L"Position", L"\u2316"},
    {L"Profile of a line", L"\u2312"},
    {L"Profile of a surface", L"\u2313"},
    {L"Straightness", L"\u23E4"},
    {L"Symmetry", L"\u232F"},
    {L"Total runout", L"\u2330"},
}};

const ToleranceKind& kindOf(XCAFDimTolObjects_GeomToleranceType type)
{
    const auto index = static_cast<std::size_t>(type);
    return kToleranceKinds[index < kToleranceKinds.size() ? index : 0];
}

constexpr std::array kToleranceModifiers = {
    L"ACS", L"CZ", L"ERE",    L"\u24BB", L"\u24C1", L"LE",     L"MD",         L"\u24C2",  L"LD",
    L"NC",  L"PD", L"\u24C7", L"SEP",    L"ST",     L"\u24C9", L"ALL AROUND", L"ALL OVER"};

constexpr std::array kDatumModifiers = {
    L"ACS",    L"ALS",    L"BSC", L"CF", L"u",      L"v",  L"w",  L"x",  L"y",  L"z",  L"DV",
    L"\u24BB", L"\u24C1", L"SL",  L"MD", L"\u24C2", L"LD", L"><", L"PD", L"PL", L"PT", L"\u25B7"};

template <class Array> std::wstring modifier(const Array& names, int index)
{
    const auto position = static_cast<std::size_t>(index);
    return position < names.size() ? std::wstring(names[position]) : std::wstring();
}

/// "h7", "H9": letter by fundamental deviation, in capitals for a hole.
std::wstring toleranceClass(const Dimension& dimension)
{
    bool isHole = false;
    XCAFDimTolObjects_DimensionFormVariance variance = {};
    XCAFDimTolObjects_DimensionGrade grade = {};
    if (!dimension.GetClassOfTolerance(isHole, variance, grade))
        return {};
    static constexpr std::array kLetters = {L"",  L"A",  L"B",  L"C",  L"CD", L"D", L"E", L"EF",
                                            L"F", L"FG", L"G",  L"H",  L"JS", L"J", L"K", L"M",
                                            L"N", L"P",  L"R",  L"S",  L"T",  L"U", L"V", L"X",
                                            L"Y", L"Z",  L"ZA", L"ZB", L"ZC"};
    std::wstring letters = modifier(kLetters, static_cast<int>(variance));
    if (!isHole)
        std::transform(letters.begin(), letters.end(), letters.begin(),
                       [](wchar_t letter) { return static_cast<wchar_t>(letter + 32); });
    if (grade == XCAFDimTolObjects_DimensionGrade_IT01)
        return letters + L"01";
    return letters + std::to_wstring(static_cast<int>(grade) - 1);
}

/// "+0.1/-0.05", or "\u00B10.1" where both are the same.
std::wstring plusMinus(const Dimension& dimension, int decimals, const std::wstring& unit)
{
    const double upper = dimension.GetUpperTolValue();
    const double lower = -dimension.GetLowerTolValue();
    if (upper == -lower)
        return kPlusMinus + number(std::abs(upper), decimals) + unit;
    return signedNumber(upper, decimals) + L"/" + signedNumber(lower, decimals) + unit;
}

std::wstring qualifier(const Dimension& dimension)
{
    if (!dimension.HasQualifier())
        return {};
    switch (dimension.GetQualifier()) {
    case XCAFDimTolObjects_DimensionQualifier_Min:
        return L"MIN";
    case XCAFDimTolObjects_DimensionQualifier_Max:
        return L"MAX";
    case XCAFDimTolObjects_DimensionQualifier_Avg:
        return L"AVG";
    default:
        return {};
    }
}

/// A reference dimension stands in brackets, a theoretically exact one in a frame.
std::wstring enclose(const Dimension& dimension, std::wstring text)
{
    for (int i = 0; i < dimension.NbDescriptions(); ++i) {
        const std::wstring note = wide(dimension.GetDescription(i));
        if (note == L"auxiliary")
            return L"(" + text + L")";
        if (note == L"theoretical")
            return L"[" + text + L"]";
        append(text, note);
    }
    return text;
}

/// The targets of a datum have its letter in common.
std::wstring datumField(const Datum& datum)
{
    std::wstring text = wide(datum.GetName());
    const XCAFDimTolObjects_DatumModifiersSequence modifiers = datum.GetModifiers();
    for (const XCAFDimTolObjects_DatumSingleModif& each : modifiers)
        append(text, modifier(kDatumModifiers, static_cast<int>(each)));
    return text;
}

std::wstring zone(const Tolerance& tolerance)
{
    switch (tolerance.GetZoneModifier()) {
    case XCAFDimTolObjects_GeomToleranceZoneModif_Projected:
        return L"\u24C5 " + shortNumber(tolerance.GetValueOfZoneModifier());
    case XCAFDimTolObjects_GeomToleranceZoneModif_NonUniform:
        return L"NON-UNIFORM";
    default:
        return {};
    }
}

std::wstring materialCondition(const Tolerance& tolerance)
{
    switch (tolerance.GetMaterialRequirementModifier()) {
    case XCAFDimTolObjects_GeomToleranceMatReqModif_M:
        return L"\u24C2";
    case XCAFDimTolObjects_GeomToleranceMatReqModif_L:
        return L"\u24C1";
    default:
        return {};
    }
}

/// The diameter sign, the value and what stands behind it. A value of 0 means something only with
/// a material condition; otherwise the kernel could not read it.
std::wstring valueField(const Tolerance& tolerance)
{
    std::wstring text;
    const std::wstring material = materialCondition(tolerance);
    if (tolerance.GetTypeOfValue() == XCAFDimTolObjects_GeomToleranceTypeValue_SphericalDiameter)
        text = std::wstring(L"S") + kDiameter;
    else if (tolerance.GetTypeOfValue() == XCAFDimTolObjects_GeomToleranceTypeValue_Diameter)
        text = kDiameter;
    if (tolerance.GetValue() != 0.0 || !material.empty())
        append(text, shortNumber(tolerance.GetValue()));
    append(text, material);
    append(text, zone(tolerance));
    if (tolerance.GetMaxValueModifier() > 0.0)
        append(text, L"MAX " + shortNumber(tolerance.GetMaxValueModifier()));
    const XCAFDimTolObjects_GeomToleranceModifiersSequence modifiers = tolerance.GetModifiers();
    for (const XCAFDimTolObjects_GeomToleranceModif& each : modifiers)
        append(text, modifier(kToleranceModifiers, static_cast<int>(each)));
    return text;
}

} // namespace

bool IsAngular(XCAFDimTolObjects_DimensionType type)
{
    return type == XCAFDimTolObjects_DimensionType_Location_Angular ||
           type == XCAFDimTolObjects_DimensionType_Size_Angular;
}

std::wstring DimensionText(const Dimension& dimension)
{
    if (dimension.GetValues().IsNull() || dimension.GetValues()->Length() == 0)
        return {};
    int places = 0;
    int decimals = 0;
    dimension.GetNbOfDecimalPlaces(places, decimals);
    const std::wstring unit = IsAngular(dimension.GetType()) ? kDegree : L"";
    std::wstring text = sizeSymbol(dimension.GetType());
    if (dimension.IsDimWithRange()) {
        append(text, number(dimension.GetLowerBound(), decimals) + unit + L" - " +
                         number(dimension.GetUpperBound(), decimals) + unit);
    } else {
        append(text, number(dimension.GetValue(), decimals) + unit);
        if (dimension.IsDimWithPlusMinusTolerance())
            append(text, plusMinus(dimension, decimals, unit));
        append(text, toleranceClass(dimension));
    }
    append(text, qualifier(dimension));
    const XCAFDimTolObjects_DimensionModifiersSequence modifiers = dimension.GetModifiers();
    for (const XCAFDimTolObjects_DimensionModif& each : modifiers)
        append(text, modifier(kDimensionModifiers, static_cast<int>(each)));
    return enclose(dimension, std::move(text));
}

std::wstring ToleranceText(const Tolerance& tolerance,
                           const std::vector<Handle(XCAFDimTolObjects_DatumObject)>& datums)
{
    std::wstring text = kindOf(tolerance.GetType()).symbol;
    append(text, valueField(tolerance));
    std::map<int, std::wstring> fields;
    for (const Handle(XCAFDimTolObjects_DatumObject) & datum : datums) {
        std::wstring& field = fields[datum->GetPosition()];
        const std::wstring letters = datumField(*datum);
        // Targets of one datum name the same letter again.
        if (field.empty())
            field = letters;
        else if (field != letters)
            field += L"-" + letters;
    }
    for (const auto& [position, field] : fields)
        text += L" | " + field;
    return text;
}

std::wstring DatumText(const Datum& datum)
{
    std::wstring text = wide(datum.GetName());
    if (datum.IsDatumTarget() && datum.GetDatumTargetNumber() > 0)
        text += std::to_wstring(datum.GetDatumTargetNumber());
    return text;
}

std::wstring ToleranceWord(XCAFDimTolObjects_GeomToleranceType type)
{
    return kindOf(type).word;
}

std::wstring DimensionWord(XCAFDimTolObjects_DimensionType type)
{
    if (IsAngular(type))
        return L"Angle";
    const std::wstring symbol = sizeSymbol(type);
    if (symbol.ends_with(kDiameter))
        return L"Diameter";
    if (symbol.ends_with(L"R"))
        return L"Radius";
    if (type == XCAFDimTolObjects_DimensionType_Size_Thickness)
        return L"Thickness";
    if (type == XCAFDimTolObjects_DimensionType_Size_CurveLength ||
        type == XCAFDimTolObjects_DimensionType_Location_CurvedDistance)
        return L"Length";
    return L"Distance";
}

} // namespace OrvikCad
