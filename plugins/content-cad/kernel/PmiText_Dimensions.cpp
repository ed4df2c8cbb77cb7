#include "kernel/KernelText.h"
#include "kernel/PmiText.h"
#include "kernel/PmiWords.h"

#include <algorithm>
#include <array>

namespace OrvikCad {

namespace {

using Dimension = XCAFDimTolObjects_DimensionObject;

constexpr wchar_t kDegree[] = L"\u00B0";
constexpr wchar_t kPlusMinus[] = L"\u00B1";

std::wstring sizeSymbol(XCAFDimTolObjects_DimensionType type)
{
    switch (type) {
    case XCAFDimTolObjects_DimensionType_Size_Diameter:
    case XCAFDimTolObjects_DimensionType_Size_ToroidalMinorDiameter:
    case XCAFDimTolObjects_DimensionType_Size_ToroidalMajorDiameter:
    case XCAFDimTolObjects_DimensionType_Size_ToroidalHighMajorDiameter:
    case XCAFDimTolObjects_DimensionType_Size_ToroidalLowMajorDiameter:
        return kDiameterSign;
    case XCAFDimTolObjects_DimensionType_Size_SphericalDiameter:
        return std::wstring(L"S") + kDiameterSign;
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
    std::wstring letters = WordAt(kLetters, static_cast<int>(variance));
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
        return kPlusMinus + NumberText(std::abs(upper), decimals) + unit;
    return SignedNumberText(upper, decimals) + L"/" + SignedNumberText(lower, decimals) + unit;
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
        const std::wstring note = ToWide(dimension.GetDescription(i));
        if (note == L"auxiliary")
            return L"(" + text + L")";
        if (note == L"theoretical")
            return L"[" + text + L"]";
        AppendWord(text, note);
    }
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
        AppendWord(text, NumberText(dimension.GetLowerBound(), decimals) + unit + L" - " +
                             NumberText(dimension.GetUpperBound(), decimals) + unit);
    } else {
        AppendWord(text, NumberText(dimension.GetValue(), decimals) + unit);
        if (dimension.IsDimWithPlusMinusTolerance())
            AppendWord(text, plusMinus(dimension, decimals, unit));
        AppendWord(text, toleranceClass(dimension));
    }
    AppendWord(text, qualifier(dimension));
    const XCAFDimTolObjects_DimensionModifiersSequence modifiers = dimension.GetModifiers();
    for (const XCAFDimTolObjects_DimensionModif& each : modifiers)
        AppendWord(text, WordAt(kDimensionModifiers, static_cast<int>(each)));
    return enclose(dimension, std::move(text));
}

std::wstring DimensionWord(XCAFDimTolObjects_DimensionType type)
{
    if (IsAngular(type))
        return L"Angle";
    const std::wstring symbol = sizeSymbol(type);
    if (symbol.ends_with(kDiameterSign))
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
