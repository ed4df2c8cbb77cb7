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
    L"a coordinate is not a finite number; triangles left out: %1";

inline constexpr wchar_t kStlTooShort[] =
    L"this is no STL file: %1 bytes are fewer than a header's";
inline constexpr wchar_t kStlNotStl[] = L"this is no STL file";
inline constexpr wchar_t kStlCountTooLarge[] =
    L"the header announces %1 triangles, the file ends after %2; these were read";
inline constexpr wchar_t kStlCountZero[] =
    L"the header announces no triangles, the file holds %1; these were read";
inline constexpr wchar_t kStlTrailing[] =
    L"the header announces %1 triangles; bytes after them, left out: %2";
inline constexpr wchar_t kStlJunk[] = L"not understood; lines left out: %1";
inline constexpr wchar_t kStlBadFacet[] =
    L"fewer than three vertices, or a number that is none; facets left out: %1";
inline constexpr wchar_t kStlPolygon[] = L"more than three vertices; facets split: %1";
inline constexpr wchar_t kStlNoEnd[] = L"the file ends before \"endsolid\"";

inline constexpr wchar_t kObjZeroIndex[] = L"an index is 0; faces left out: %1";
inline constexpr wchar_t kObjBadIndex[] = L"an index is out of range; faces left out: %1";
inline constexpr wchar_t kObjBadNormal[] =
    L"the index of a normal is out of range; indices replaced: %1";
inline constexpr wchar_t kObjShortFace[] = L"fewer than three vertices; faces left out: %1";
inline constexpr wchar_t kObjJunk[] = L"not understood; lines left out, in whole or in part: %1";
inline constexpr wchar_t kObjBadNumber[] =
    L"a coordinate is missing or no number; such vertices: %1";
inline constexpr wchar_t kObjNonFinite[] =
    L"a coordinate is not a finite number; faces left out: %1";
inline constexpr wchar_t kObjLeftOut[] = L"points, lines and curves left out: %1";
inline constexpr wchar_t kObjFanned[] =
    L"more than %2 corners; faces split without regard to concave corners: %1";
inline constexpr wchar_t kObjNoLibrary[] = L"the material library \"%1\" cannot be read: %2";
inline constexpr wchar_t kObjForeignLibrary[] =
    L"the material library \"%1\" lies outside the folder of the file and was not read";
inline constexpr wchar_t kObjNoMaterial[] = L"the material \"%1\" is not defined";
inline constexpr wchar_t kObjMoreMaterials[] = L"further materials that are not defined: %1";

} // namespace OrvikMesh

#endif
