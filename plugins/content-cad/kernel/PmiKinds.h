#ifndef ORVIKCAD_KERNEL_PMIKINDS_H
#define ORVIKCAD_KERNEL_PMIKINDS_H

#include <TambVizCore/EntityType.h>

#include <array>
#include <string>

namespace OrvikCad {

/// A type of annotations and the name of its group in the tree.
struct AnnotationType
{
    TambVizCore::EntityType type;
    const wchar_t* name;
};

/// In the order of the tree.
inline constexpr std::array<AnnotationType, 5> kAnnotationTypes = {{
    {TambVizCore::EntityType::PmiDimension, L"Dimensions"},
    {TambVizCore::EntityType::PmiGeometricTolerance, L"Geometric tolerances"},
    {TambVizCore::EntityType::PmiDatum, L"Datums"},
    {TambVizCore::EntityType::PmiNote, L"Notes"},
    {TambVizCore::EntityType::PmiSurfaceFinish, L"Surface finishes"},
}};

/// Tells by the name of an annotation that is only drawn what it is; a note where it tells nothing.
TambVizCore::EntityType AnnotationTypeByName(std::wstring name);

} // namespace OrvikCad

#endif
