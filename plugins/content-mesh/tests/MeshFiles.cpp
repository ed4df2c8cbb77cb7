#include "MeshFiles.h"

#include "readers/MeshFormats.h"
#include "readers/ObjReader.h"
#include "readers/OffReader.h"
#include "readers/PcdReader.h"
#include "readers/PlyReader.h"
#include "readers/PointTextReader.h"
#include "readers/StlReader.h"

#include <OrvikOs/Thread.h>
#include <OrvikOs/Utf8.h>

#include <atomic>
#include <cmath>
#include <cstring>
#include <fstream>
#include <numbers>
#include <sstream>

using OrvikMesh::MeshData;
using OrvikMesh::ReadMessages;
using OrvikMesh::ReadOptions;

namespace {

std::atomic<unsigned> nextFolder{0};

template <typename Work> ReadResult collect(const std::wstring& name, const Work& work)
{
    ReadResult result;
    ReadMessages messages(name);
    result.ok = work(result.mesh, messages);
    result.error = messages.Error();
    result.warnings = messages.Warnings();
    return result;
}

void addQuad(std::vector<Triangle>& triangles, const Point& a, const Point& b, const Point& c,
             const Point& d)
{
    triangles.push_back({a, b, c});
    triangles.push_back({a, c, d});
}

} // namespace

std::string BinaryStl(const std::vector<Triangle>& triangles, std::uint32_t count,
                      std::string_view header)
{
    std::string bytes(header.substr(0, 80));
    bytes.resize(80, '\0');
    bytes.append(reinterpret_cast<const char*>(&count), sizeof count);
    for (const Triangle& triangle : triangles) {
        bytes.append(12, '\0');
        bytes.append(reinterpret_cast<const char*>(&triangle), sizeof triangle);
        bytes.append(2, '\0');
    }
    return bytes;
}

std::string BinaryStl(const std::vector<Triangle>& triangles)
{
    return BinaryStl(triangles, static_cast<std::uint32_t>(triangles.size()));
}

std::string AsciiStl(const std::vector<Triangle>& triangles, std::string_view name)
{
    std::ostringstream text;
    text.imbue(std::locale::classic());
    text.precision(9);
    text << "solid " << name << '\n';
    for (const Triangle& triangle : triangles) {
        text << "  facet normal 0 0 0\n    outer loop\n";
        for (const Point& point : triangle)
            text << "      vertex " << point[0] << ' ' << point[1] << ' ' << point[2] << '\n';
        text << "    endloop\n  endfacet\n";
    }
    text << "endsolid " << name << '\n';
    return text.str();
}

std::vector<Triangle> Cube(float x)
{
    const auto at = [x](int i) {
        return Point{x + static_cast<float>(i & 1), static_cast<float>(i >> 1 & 1),
                     static_cast<float>(i >> 2 & 1)};
    };
    std::vector<Triangle> triangles;
    addQuad(triangles, at(0), at(2), at(3), at(1));
    addQuad(triangles, at(4), at(5), at(7), at(6));
    addQuad(triangles, at(0), at(1), at(5), at(4));
    addQuad(triangles, at(2), at(6), at(7), at(3));
    addQuad(triangles, at(0), at(4), at(6), at(2));
    addQuad(triangles, at(1), at(3), at(7), at(5));
    return triangles;
}

std::vector<Triangle> Cylinder(int sides)
{
    const auto at = [sides](int i, float z) {
        const double angle = 2.0 * std::numbers::pi * (i % sides) / sides;
        return Point{static_cast<float>(std::cos(angle)), static_cast<float>(std::sin(angle)), z};
    };
    std::vector<Triangle> triangles;
    for (int i = 0; i < sides; ++i) {
        addQuad(triangles, at(i, 0.0f), at(i + 1, 0.0f), at(i + 1, 1.0f), at(i, 1.0f));
        triangles.push_back({Point{0.0f, 0.0f, 0.0f}, at(i + 1, 0.0f), at(i, 0.0f)});
        triangles.push_back({Point{0.0f, 0.0f, 1.0f}, at(i, 1.0f), at(i + 1, 1.0f)});
    }
    return triangles;
}

std::vector<Triangle> Torus(int count)
{
    const int steps = std::max(3, static_cast<int>(std::lround(std::sqrt(count / 2.0))));
    const auto at = [steps](int i, int j) {
        const double u = 2.0 * std::numbers::pi * (i % steps) / steps;
        const double v = 2.0 * std::numbers::pi * (j % steps) / steps;
        const double radius = 10.0 + 3.0 * std::cos(v);
        return Point{static_cast<float>(radius * std::cos(u)),
                     static_cast<float>(radius * std::sin(u)),
                     static_cast<float>(3.0 * std::sin(v))};
    };
    std::vector<Triangle> triangles;
    for (int i = 0; i < steps; ++i)
        for (int j = 0; j < steps; ++j)
            addQuad(triangles, at(i, j), at(i + 1, j), at(i + 1, j + 1), at(i, j + 1));
    return triangles;
}

TempFolder::TempFolder()
    : m_path(std::filesystem::temp_directory_path() /
             ("orvik-mesh-" + std::to_string(OrvikOs::CurrentProcessId()) + "-" +
              std::to_string(nextFolder++)))
{
    std::filesystem::create_directories(m_path);
}

TempFolder::~TempFolder()
{
    std::error_code ignored;
    std::filesystem::remove_all(m_path, ignored);
}

std::wstring TempFolder::Write(std::string_view name, std::string_view content) const
{
    std::ofstream file(m_path / std::string(name), std::ios::binary);
    file.write(content.data(), static_cast<std::streamsize>(content.size()));
    return PathOf(name);
}

std::wstring TempFolder::PathOf(std::string_view name) const
{
    return OrvikOs::Utf8ToWide((m_path / std::string(name)).string());
}

Point ReadResult::At(std::size_t triangle, std::size_t corner) const
{
    return Vertex(mesh.triangles[triangle * 3 + corner]);
}

Point ReadResult::Vertex(std::size_t index) const
{
    return {mesh.positions[index * 3], mesh.positions[index * 3 + 1],
            mesh.positions[index * 3 + 2]};
}

std::array<int, 4> ReadResult::Color(std::size_t index) const
{
    return {mesh.colors[index * 4], mesh.colors[index * 4 + 1], mesh.colors[index * 4 + 2],
            mesh.colors[index * 4 + 3]};
}

Point ReadResult::Normal(std::size_t index) const
{
    return {mesh.normals[index * 3], mesh.normals[index * 3 + 1], mesh.normals[index * 3 + 2]};
}

std::array<std::uint32_t, 3> ReadResult::Triangle(std::size_t index) const
{
    return {mesh.triangles[index * 3], mesh.triangles[index * 3 + 1],
            mesh.triangles[index * 3 + 2]};
}

ReadResult ReadBytes(const OrvikMesh::ContentReader& reader, std::string_view bytes,
                     const ReadOptions& options)
{
    return collect(L"test", [&](MeshData& mesh, ReadMessages& messages) {
        return OrvikMesh::ReadGuarded([&] { return reader(bytes, options, mesh, messages); },
                                      messages);
    });
}

ReadResult ReadPlyBytes(std::string_view bytes, const ReadOptions& options)
{
    return ReadBytes(&OrvikMesh::ReadPlyContent, bytes, options);
}

ReadResult ReadOffBytes(std::string_view bytes, const ReadOptions& options)
{
    return ReadBytes(&OrvikMesh::ReadOffContent, bytes, options);
}

ReadResult ReadPcdBytes(std::string_view bytes, const ReadOptions& options)
{
    return ReadBytes(&OrvikMesh::ReadPcdContent, bytes, options);
}

ReadResult ReadXyzText(std::string_view text, const ReadOptions& options)
{
    return ReadBytes(&OrvikMesh::ReadXyzContent, text, options);
}

ReadResult ReadPtsText(std::string_view text, const ReadOptions& options)
{
    return ReadBytes(&OrvikMesh::ReadPtsContent, text, options);
}

ReadResult ReadStlBytes(std::string_view bytes, const ReadOptions& options)
{
    return ReadBytes(&OrvikMesh::ReadStlContent, bytes, options);
}

ReadResult ReadStlFile(const std::wstring& path, const ReadOptions& options)
{
    return collect(path, [&](MeshData& mesh, ReadMessages& messages) {
        return OrvikMesh::ReadStl(path, options, mesh, messages);
    });
}

ReadResult ReadObjText(std::string_view text, const ReadOptions& options)
{
    return collect(L"test", [&](MeshData& mesh, ReadMessages& messages) {
        return OrvikMesh::ReadGuarded(
            [&] { return OrvikMesh::ReadObjContent(L"", text, options, mesh, messages); },
            messages);
    });
}

ReadResult ReadObjFile(const std::wstring& path, const ReadOptions& options)
{
    return collect(path, [&](MeshData& mesh, ReadMessages& messages) {
        return OrvikMesh::ReadObj(path, options, mesh, messages);
    });
}

ReadResult ReadFile(const std::wstring& path, const ReadOptions& options)
{
    std::wstring extension = path.substr(path.rfind(L'.') + 1);
    for (wchar_t& letter : extension)
        letter =
            letter >= L'a' && letter <= L'z' ? static_cast<wchar_t>(letter - L'a' + L'A') : letter;
    return collect(path, [&](MeshData& mesh, ReadMessages& messages) {
        return OrvikMesh::FindMeshFormat(extension)->read(path, options, mesh, messages);
    });
}
