#ifndef ORVIKMESH_READERS_READERTEXTS_H
#define ORVIKMESH_READERS_READERTEXTS_H

namespace OrvikMesh {

// The reasons that readers give, after file and place; %1 and %2 are filled in.

inline constexpr wchar_t kEmptyFile[] = L"the file is empty";
inline constexpr wchar_t kNoTriangle[] = L"the file holds no triangle";
inline constexpr wchar_t kNoPoint[] = L"the file holds no point";
inline constexpr wchar_t kCancelled[] = L"reading was cancelled";
inline constexpr wchar_t kOutOfMemory[] = L"not enough memory to read the file";
inline constexpr wchar_t kTooLarge[] = L"the file holds more than can be numbered with 32 bits";
inline constexpr wchar_t kFault[] =
    L"the file could not be read to its end; it may have been changed meanwhile (%1)";
inline constexpr wchar_t kNonFiniteDropped[] =
    L"a coordinate of triangle %2 is not a finite number; triangles left out: %1";

inline constexpr wchar_t kBadVertexValue[] = L"a value is missing or no number; such vertices: %1";
inline constexpr wchar_t kUnreadableFace[] = L"a value is missing or no number; faces left out: %1";
inline constexpr wchar_t kBadIndex[] = L"an index is out of range; faces left out: %1";
inline constexpr wchar_t kShortFace[] = L"fewer than three vertices; faces left out: %1";
inline constexpr wchar_t kBadNumber[] = L"a coordinate is missing or no number; such vertices: %1";
inline constexpr wchar_t kNonFiniteFace[] =
    L"a coordinate is not a finite number; faces left out: %1";
inline constexpr wchar_t kFanned[] =
    L"more than %2 corners; faces split without regard to concave corners: %1";

inline constexpr wchar_t kStlTooShort[] =
    L"this is no STL file: %1 bytes are fewer than a header's";
inline constexpr wchar_t kStlNotStl[] = L"this is no STL file: it is no text, and the %1 triangles "
                                        L"that its header announces do not fit "
                                        L"its %2 bytes";
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

inline constexpr wchar_t kRounded[] =
    L"coordinates of up to %1 are rounded to steps of %2, which shows";
inline constexpr wchar_t kNonFinitePoint[] =
    L"a coordinate of point %2 is not a finite number; points left out: %1";

inline constexpr wchar_t kPlyNotPly[] = L"this is no PLY file: it does not begin with \"ply\"";
inline constexpr wchar_t kPlyNoEnd[] = L"the header has no \"end_header\"";
inline constexpr wchar_t kPlyNoFormat[] = L"the header does not say which format the data have";
inline constexpr wchar_t kPlyBadFormat[] = L"the format \"%1\" is not known";
inline constexpr wchar_t kPlyBadElement[] = L"an element without a name or a count";
inline constexpr wchar_t kPlyBadProperty[] =
    L"a property outside an element, without a name or of a type that is not known";
inline constexpr wchar_t kPlyJunk[] = L"not understood; lines of the header left out: %1";
inline constexpr wchar_t kPlyNoVertices[] =
    L"the header announces no element \"vertex\" with x, y and z";
inline constexpr wchar_t kNotText[] = L"the header announces text, but the data are binary";
inline constexpr wchar_t kNotBinary[] = L"the header announces binary data, but they are text";
inline constexpr wchar_t kPlyCut[] =
    L"the file ends in the element \"%1\", after %2 of %3; these were read";
inline constexpr wchar_t kPlyCutVertices[] =
    L"the file ends in the element \"vertex\", after %1 of %2; it has no faces";
inline constexpr wchar_t kPlyMissing[] = L"the file ends before the element \"%1\"";
inline constexpr wchar_t kPlyLeftOut[] = L"elements left out: %1";
inline constexpr wchar_t kPlyTrailing[] = L"bytes after the last element, left out: %1";

inline constexpr wchar_t kOffNotOff[] =
    L"this is no OFF file: it begins neither with \"OFF\" nor with a count";
inline constexpr wchar_t kOffNoCounts[] =
    L"the counts of vertices and faces are missing or no numbers";
inline constexpr wchar_t kOffDimension[] = L"vertices of %1 dimensions cannot be read";
inline constexpr wchar_t kOffTooMany[] =
    L"the header announces %1 vertices and %2 faces, more than the file can hold";
inline constexpr wchar_t kOffCutVertices[] =
    L"the file ends in its vertices, after %1 of %2; it has no faces";
inline constexpr wchar_t kOffCutFaces[] =
    L"the file ends in its faces, after %1 of %2; these were read";

inline constexpr wchar_t kPointNoRow[] =
    L"the file holds no point: no line is made of three numbers or more";
inline constexpr wchar_t kPointNoText[] = L"this is no text: a byte is zero";
inline constexpr wchar_t kPointForeign[] =
    L"this is no text of points: it begins with \"%1\", as files of another format do";
inline constexpr wchar_t kPointJunk[] = L"not understood; lines left out, in whole or in part: %1";
inline constexpr wchar_t kPointCount[] = L"the file announces %1 points and holds %2";

inline constexpr wchar_t kPcdNotPcd[] = L"this is no PCD file: its header is not understood";
inline constexpr wchar_t kPcdNoData[] = L"the header has no line \"DATA\"";
inline constexpr wchar_t kPcdBadFormat[] = L"data of the format \"%1\" cannot be read";
inline constexpr wchar_t kPcdBadNumber[] = L"a number is missing or too large";
inline constexpr wchar_t kPcdFieldLines[] =
    L"the lines \"FIELDS\", \"SIZE\", \"TYPE\" and \"COUNT\" do not name as many fields";
inline constexpr wchar_t kPcdBadField[] =
    L"the lines \"SIZE\", \"TYPE\" and \"COUNT\" hold a value that is not known";
inline constexpr wchar_t kPcdNoXyz[] = L"the header has no fields x, y and z";
inline constexpr wchar_t kPcdNoCount[] = L"the header does not say how many points there are";
inline constexpr wchar_t kPcdTwoCounts[] =
    L"the header announces %1 points and an area of %2; the first holds";
inline constexpr wchar_t kPcdCut[] = L"the file ends after %1 of %2 points; these were read";
inline constexpr wchar_t kPcdPackedCut[] = L"the file ends in its compressed data";
inline constexpr wchar_t kPcdPackedSize[] =
    L"the compressed data announce %1 bytes, the points take %2";
inline constexpr wchar_t kPcdPackedTooMuch[] =
    L"the compressed data announce %1 bytes, too much for what the file holds; they were not read";
inline constexpr wchar_t kPcdPackedDamaged[] = L"the compressed data are damaged";

inline constexpr wchar_t kObjZeroIndex[] = L"an index is 0; faces left out: %1";
inline constexpr wchar_t kObjBadNormal[] =
    L"the index of a normal is out of range; indices replaced: %1";
inline constexpr wchar_t kObjJunk[] = L"not understood; lines left out, in whole or in part: %1";
inline constexpr wchar_t kObjLeftOut[] = L"curves and surfaces left out: %1";
inline constexpr wchar_t kObjBadThin[] =
    L"an index that is 0 or out of range, a coordinate that is no finite number, or a line of one "
    L"point; lines and points left out: %1";
inline constexpr wchar_t kObjOnlyPoints[] =
    L"the file holds no faces; its points were read as a point cloud";
inline constexpr wchar_t kObjNoLibrary[] = L"the material library \"%1\" cannot be read: %2";
inline constexpr wchar_t kObjForeignLibrary[] =
    L"the material library \"%1\" lies outside the folder of the file and was not read";
inline constexpr wchar_t kObjManyLibraries[] =
    L"more than %1 material libraries; the others were not read";
inline constexpr wchar_t kObjNoMaterial[] = L"the material \"%1\" is not defined";
inline constexpr wchar_t kObjMoreMaterials[] = L"further materials that are not defined: %1";

} // namespace OrvikMesh

#endif
