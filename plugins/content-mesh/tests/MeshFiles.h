#ifndef ORVIKMESH_TESTS_MESHFILES_H
#define ORVIKMESH_TESTS_MESHFILES_H

#include "readers/MeshReader.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <filesystem>
#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>
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

/// The bytes of a binary file, put together value by value.
class ByteWriter
{
public:
    explicit ByteWriter(std::string text = {}, bool isBigEndian = false)
        : m_bytes(std::move(text)), m_isBigEndian(isBigEndian)
    {
    }

    template <class T> ByteWriter& Put(T value)
    {
        char bytes[sizeof(T)];
        std::memcpy(bytes, &value, sizeof(T));
        if (m_isBigEndian)
            std::reverse(bytes, bytes + sizeof(T));
        m_bytes.append(bytes, sizeof(T));
        return *this;
    }
    template <class T> ByteWriter& PutAll(std::initializer_list<T> values)
    {
        for (const T value : values)
            Put(value);
        return *this;
    }
    const std::string& Bytes() const { return m_bytes; }

private:
    std::string m_bytes;
    bool m_isBigEndian;
};

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

    /// The position of a vertex.
    Point Vertex(std::size_t index) const;
    /// The colour of a vertex: red, green, blue, alpha.
    std::array<int, 4> Color(std::size_t index) const;
    Point Normal(std::size_t index) const;
    /// The vertex indices of a triangle.
    std::array<std::uint32_t, 3> Triangle(std::size_t index) const;
    /// The corner of a triangle.
    Point At(std::size_t triangle, std::size_t corner) const;
};

/// Reads from memory with any reader; the file is called "test".
ReadResult ReadBytes(const OrvikMesh::ContentReader& reader, std::string_view bytes,
                     const OrvikMesh::ReadOptions& options = {});

ReadResult ReadPlyBytes(std::string_view bytes, const OrvikMesh::ReadOptions& options = {});
ReadResult ReadOffBytes(std::string_view bytes, const OrvikMesh::ReadOptions& options = {});
ReadResult ReadPcdBytes(std::string_view bytes, const OrvikMesh::ReadOptions& options = {});
ReadResult ReadXyzText(std::string_view text, const OrvikMesh::ReadOptions& options = {});
ReadResult ReadPtsText(std::string_view text, const OrvikMesh::ReadOptions& options = {});
ReadResult ReadStlBytes(std::string_view bytes, const OrvikMesh::ReadOptions& options = {});
ReadResult ReadStlFile(const std::wstring& path, const OrvikMesh::ReadOptions& options = {});
/// Reads a file with the reader of its extension.
ReadResult ReadFile(const std::wstring& path, const OrvikMesh::ReadOptions& options = {});
/// Reads from memory, without material libraries; the file is called "test".
ReadResult ReadObjText(std::string_view text, const OrvikMesh::ReadOptions& options = {});
ReadResult ReadObjFile(const std::wstring& path, const OrvikMesh::ReadOptions& options = {});

#endif
