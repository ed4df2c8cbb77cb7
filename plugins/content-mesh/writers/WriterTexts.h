#ifndef ORVIKMESH_WRITERS_WRITERTEXTS_H
#define ORVIKMESH_WRITERS_WRITERTEXTS_H

namespace OrvikMesh {

// The reasons that writers give, after the file; %1 and %2 are filled in.

inline constexpr wchar_t kNothingToWrite[] = L"there is no triangle to write";
inline constexpr wchar_t kNothingAtAll[] = L"there is neither a triangle nor a point to write";
inline constexpr wchar_t kNothingOfAll[] = L"there is no triangle, line or point to write";
inline constexpr wchar_t kTooManyTriangles[] = L"%1 triangles are more than the format can count";
inline constexpr wchar_t kTooManyVertices[] = L"%1 vertices are more than the format can count";
inline constexpr wchar_t kWriteCancelled[] = L"saving was cancelled; the file is as it was";
inline constexpr wchar_t kWriteOutOfMemory[] = L"not enough memory to write the file";
inline constexpr wchar_t kCloudsLeftOut[] =
    L"the format holds no points; point clouds left out: %1";
inline constexpr wchar_t kWiresLeftOut[] = L"the format holds no lines; wires left out: %1";
inline constexpr wchar_t kCloudsBesideMesh[] =
    L"the format holds no points beside triangles; point clouds left out: %1";

} // namespace OrvikMesh

#endif
