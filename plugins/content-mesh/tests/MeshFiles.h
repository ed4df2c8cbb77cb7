#ifndef ORVIKMESH_TESTS_MESHFILES_H
#define ORVIKMESH_TESTS_MESHFILES_H

#include "readers/MeshReader.h"

#include <array>
#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

using Point = std::array<float, 3>;
using Triangle = std::array<Point, 3>;

/// The bytes of a binary STL file.
///
/// @param count   What its header announces.
/// @param header  Cut or filled up with zeros to 80 bytes.
std::string BinaryStl(const std::vector<Triangle>& triangles, std::uint32_t count,
                      std::string_view header = "binary");

/// The same with the right count.
std::string BinaryStl(const std::vector<Triangle>& triangles);

/// The text of one solid of a text STL file.
std::string AsciiStl(const std::vector<Triangle>& triangles, std::string_view name);

/// Twelve triangles, wound outwards, around (x, 0, 0) to (x + 1, 1, 1).
std::vector<Triangle> Cube(float x = 0.0f);

/// A closed tube of @p sides flat sides, radius 1, z from 0 to 1: 4 * sides triangles.
std::vector<Triangle> Cylinder(int sides);

/// A torus of about @p triangles triangles, in strips.
std::vector<Triangle> Torus(int triangles);

/// A folder that is deleted with all in it.
class TempFolder
{
public:
    TempFolder();
    ~TempFolder();
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    /// Writes a file. @return its path, as the readers take it.
    std::wstring Write(std::string_view name, std::string_view content) const;

    /// @return the path of something in the folder.
    std::wstring PathOf(std::string_view name) const;

    const std::filesystem::path& Path() const { return m_path; }

private:
    std::filesystem::path m_path;
};

/// What reading gave.
struct ReadResult
{
    bool ok = false;
    OrvikMesh::MeshData mesh;
    std::wstring error;
    std::vector<std::wstring> warnings;

    /// The corner of a triangle.
    Point At(std::size_t triangle, std::size_t corner) const;
};

ReadResult ReadStlBytes(std::string_view bytes, const OrvikMesh::ReadOptions& options = {});
ReadResult ReadStlFile(const std::wstring& path, const OrvikMesh::ReadOptions& options = {});
/// Reads from memory, without material libraries; the file is called "test".
ReadResult ReadObjText(std::string_view text, const OrvikMesh::ReadOptions& options = {});
ReadResult ReadObjFile(const std::wstring& path, const OrvikMesh::ReadOptions& options = {});

#endif
