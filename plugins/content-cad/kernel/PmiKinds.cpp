#include "kernel/PmiKinds.h"

#include <algorithm>
#include <cwctype>
#include <string_view>

namespace OrvikCad {

namespace {

using TambVizCore::EntityType;

/// A part of a name and what it tells; the first one that is found counts.
struct Keyword
{
    std::wstring_view word; ///< Lower case.
    EntityType type;
};
constexpr std::array<Keyword, 24> kKeywords = {{
    {L"rough", EntityType::PmiSurfaceFinish},
    {L"finish", EntityType::PmiSurfaceFinish},
    {L"texture", EntityType::PmiSurfaceFinish},
    {L"note", EntityType::PmiNote},
    {L"datum", EntityType::PmiDatum},
    {L"feature control", EntityType::PmiGeometricTolerance},
    {L"toleranc", EntityType::PmiGeometricTolerance},
    {L"position", EntityType::PmiGeometricTolerance},
    {L"flatness", EntityType::PmiGeometricTolerance},
    {L"profile", EntityType::PmiGeometricTolerance},
    {L"perpendicularity", EntityType::PmiGeometricTolerance},
    {L"parallelism", EntityType::PmiGeometricTolerance},
    {L"runout", EntityType::PmiGeometricTolerance},
    {L"circularity", EntityType::PmiGeometricTolerance},
    {L"cylindricity", EntityType::PmiGeometricTolerance},
    {L"concentricity", EntityType::PmiGeometricTolerance},
    {L"straightness", EntityType::PmiGeometricTolerance},
    {L"angularity", EntityType::PmiGeometricTolerance},
    {L"symmetry", EntityType::PmiGeometricTolerance},
    {L"dimension", EntityType::PmiDimension},
    {L"diameter", EntityType::PmiDimension},
    {L"radius", EntityType::PmiDimension},
    {L"distance", EntityType::PmiDimension},
    {L"linear size", EntityType::PmiDimension},
}};

} // namespace

EntityType AnnotationTypeByName(std::wstring name)
{
    std::transform(name.begin(), name.end(), name.begin(), [](wchar_t letter) {
        return letter < 128 ? static_cast<wchar_t>(std::towlower(static_cast<wint_t>(letter)))
                            : letter;
    });
    for (const Keyword& keyword : kKeywords)
        if (name.find(keyword.word) != std::wstring::npos)
            return keyword.type;
    return EntityType::PmiNote;
}

} // namespace OrvikCad
