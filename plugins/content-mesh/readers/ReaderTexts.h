#ifndef ORVIKMESH_READERS_READERTEXTS_H
#define ORVIKMESH_READERS_READERTEXTS_H

namespace OrvikMesh {

// The reasons that readers give, after file and place; %1 and %2 are filled in.

inline constexpr wchar_t kEmptyFile[] = L"the file is empty";
inline constexpr wchar_t kNoTriangle[] = L"the file holds no triangle";
inline constexpr wchar_t kCancelled[] = L"reading was cancelled";
inline constexpr wchar_t kOutOfMemory[] = L"not enough memory to read the file";
inline constexpr wchar_t kTooLarge[] = L"the file holds more than can be numbered with 32 bits";
inline constexpr wchar_t kFault[] =
    L"the file could not be read to its end; it may have been changed meanwhile (%1)";
inline constexpr wchar_t kNonFiniteDropped[] =
    L"%1 triangles were left out because a coordinate is not a finite number";

inline constexpr wchar_t kStlTooShort[] =
    L"this is no STL file: %1 bytes are fewer than the 84 of a header";
inline constexpr wchar_t kStlNotStl[] = L"this is no STL file";
inline constexpr wchar_t kStlCountTooLarge[] =
    L"the header announces %1 triangles, the file ends after %2; these were read";
inline constexpr wchar_t kStlCountZero[] =
    L"the header announces no triangles, the file holds %1; these were read";
inline constexpr wchar_t kStlTrailing[] =
    L"the header announces %1 triangles; the %2 bytes after them were left out";
inline constexpr wchar_t kStlJunk[] = L"%1 lines were not understood and left out";
inline constexpr wchar_t kStlBadFacet[] =
    L"%1 facets were left out because a number is missing or they have fewer than three vertices";
inline constexpr wchar_t kStlPolygon[] = L"%1 facets have more than three vertices and were split";
inline constexpr wchar_t kStlNoEnd[] = L"the file ends before \"endsolid\"";

inline constexpr wchar_t kObjZeroIndex[] = L"%1 faces were left out because an index is 0";
inline constexpr wchar_t kObjBadIndex[] =
    L"%1 faces were left out because an index is out of range";
inline constexpr wchar_t kObjBadNormal[] = L"%1 indices of normals are out of range";
inline constexpr wchar_t kObjShortFace[] =
    L"%1 faces were left out because they have fewer than three vertices";
inline constexpr wchar_t kObjJunk[] = L"%1 lines were not understood and left out";
inline constexpr wchar_t kObjBadNumber[] = L"%1 vertices hold something that is no number";
inline constexpr wchar_t kObjNonFinite[] =
    L"%1 faces were left out because a coordinate is not a finite number";
inline constexpr wchar_t kObjLeftOut[] =
    L"%1 elements that are no faces (points, lines, curves) were left out";
inline constexpr wchar_t kObjFanned[] =
    L"%1 faces with more than %2 corners were split without regard to concave corners";
inline constexpr wchar_t kObjNoLibrary[] = L"the material library \"%1\" cannot be read: %2";
inline constexpr wchar_t kObjForeignLibrary[] =
    L"the material library \"%1\" lies outside the folder of the file and was not read";
inline constexpr wchar_t kObjNoMaterial[] = L"the material \"%1\" is not defined";
inline constexpr wchar_t kObjMoreMaterials[] = L"%1 further materials are not defined";

} // namespace OrvikMesh

#endif
