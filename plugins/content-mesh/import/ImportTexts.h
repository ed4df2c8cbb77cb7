#ifndef ORVIKMESH_IMPORT_IMPORTTEXTS_H
#define ORVIKMESH_IMPORT_IMPORTTEXTS_H

namespace OrvikMesh {

// The reasons that reading the long tail of formats gives; %1, %2 and so on are filled in.

inline constexpr wchar_t kImportNoLibrary[] = L"the library \"%1\" cannot be loaded: %2";
inline constexpr wchar_t kImportNoSymbol[] = L"the library \"%1\" is none that reads meshes";
inline constexpr wchar_t kImportTooLarge[] =
    L"the file has %1 bytes; files of this format are read up to %2";
inline constexpr wchar_t kImportFailed[] = L"the file cannot be read: %1";
inline constexpr wchar_t kImportFailedSomewhere[] =
    L"the file cannot be read: %1; the library that reads it does not tell where";
inline constexpr wchar_t kImportFault[] =
    L"the file cannot be read: the library that reads it failed; the file is damaged, nested too "
    L"deep or refers to itself";
inline constexpr wchar_t kImportMemory[] =
    L"the file cannot be read: that takes more than %1 MB of memory, too much for its %2 bytes";
inline constexpr wchar_t kImportTime[] =
    L"the file cannot be read: that takes more than %1 s of processor time, too much for its %2 "
    L"bytes";
inline constexpr wchar_t kImportNoGeometry[] = L"the file holds no geometry";
inline constexpr wchar_t kImportTooManyNodes[] = L"the file holds more than %1 nodes";
inline constexpr wchar_t kImportBadPieces[] =
    L"mesh %1%2: an index is out of range or a coordinate is not a finite number; %3 left out: %4";
inline constexpr wchar_t kImportBadTransform[] =
    L"node \"%1\": the transform is not made of numbers that place anything and was left out";

} // namespace OrvikMesh

#endif
