#include "kernel/KernelText.h"
#include "kernel/PmiText.h"
#include "kernel/PmiWords.h"

#include <array>
#include <map>

namespace OrvikCad {

namespace {

using Tolerance = XCAFDimTolObjects_GeomToleranceObject;
using Datum = XCAFDimTolObjects_DatumObject;

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

/// The targets of a datum have its letter in common.
std::wstring datumField(const Datum& datum)
{
    std::wstring text = ToWide(datum.GetName());
    const XCAFDimTolObjects_DatumModifiersSequence modifiers = datum.GetModifiers();
    for (const XCAFDimTolObjects_DatumSingleModif& each : modifiers)
        AppendWord(text, WordAt(kDatumModifiers, static_cast<int>(each)));
    return text;
}

std::wstring zone(const Tolerance& tolerance)
{
    switch (tolerance.GetZoneModifier()) {
    case XCAFDimTolObjects_GeomToleranceZoneModif_Projected:
        return L"\u24C5 " + ShortNumber(tolerance.GetValueOfZoneModifier());
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
        text = std::wstring(L"S") + kDiameterSign;
    else if (tolerance.GetTypeOfValue() == XCAFDimTolObjects_GeomToleranceTypeValue_Diameter)
        text = kDiameterSign;
    if (tolerance.GetValue() != 0.0 || !material.empty())
        AppendWord(text, ShortNumber(tolerance.GetValue()));
    AppendWord(text, material);
    AppendWord(text, zone(tolerance));
    if (tolerance.GetMaxValueModifier() > 0.0)
        AppendWord(text, L"MAX " + ShortNumber(tolerance.GetMaxValueModifier()));
    const XCAFDimTolObjects_GeomToleranceModifiersSequence modifiers = tolerance.GetModifiers();
    for (const XCAFDimTolObjects_GeomToleranceModif& each : modifiers)
        AppendWord(text, WordAt(kToleranceModifiers, static_cast<int>(each)));
    return text;
}

} // namespace

std::wstring ToleranceText(const Tolerance& tolerance,
                           const std::vector<Handle(XCAFDimTolObjects_DatumObject)>& datums)
{
    std::wstring text = kindOf(tolerance.GetType()).symbol;
    AppendWord(text, valueField(tolerance));
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
    std::wstring text = ToWide(datum.GetName());
    if (datum.IsDatumTarget() && datum.GetDatumTargetNumber() > 0)
        text += std::to_wstring(datum.GetDatumTargetNumber());
    return text;
}

std::wstring ToleranceWord(XCAFDimTolObjects_GeomToleranceType type)
{
    return kindOf(type).word;
}

} // namespace OrvikCad
