#include "MeshBenchFiles.h"

#include <OrvikOs/Thread.h>
#include <OrvikOs/Utf8.h>

#include <array>
#include <charconv>
#include <cmath>
#include <cstring>
#include <fstream>
#include <numbers>
#include <stdexcept>

namespace {

/// Vertices per ring and rings, so that the torus has about the number of triangles asked for.
int stepsFor(std::int64_t triangles)
{
    return static_cast<int>(std::lround(std::sqrt(static_cast<double>(triangles) / 2.0)));
}

std::array<float, 6> pointAndNormal(int i, int j, int steps)
{
    const double u = 2.0 * std::numbers::pi * (i % steps) / steps;
    const double v = 2.0 * std::numbers::pi * (j % steps) / steps;
    const double radius = 10.0 + 3.0 * std::cos(v);
    return {static_cast<float>(radius * std::cos(u)),
            static_cast<float>(radius * std::sin(u)),
            static_cast<float>(3.0 * std::sin(v)),
            static_cast<float>(std::cos(v) * std::cos(u)),
            static_cast<float>(std::cos(v) * std::sin(u)),
            static_cast<float>(std::sin(v))};
}

void writeStl(const std::filesystem::path& path, std::int64_t triangles)
{
    const int steps = stepsFor(triangles);
    std::ofstream file(path, std::ios::binary);
    std::array<char, 84> header{};
    const auto count = static_cast<std::uint32_t>(2 * steps * steps);
    std::memcpy(header.data() + 80, &count, sizeof count);
    file.write(header.data(), header.size());
    std::vector<char> strip(static_cast<std::size_t>(steps) * 100, '\0');
    for (int i = 0; i < steps; ++i) {
        for (int j = 0; j < steps; ++j) {
            const auto a = pointAndNormal(i, j, steps);
            const auto b = pointAndNormal(i + 1, j, steps);
            const auto c = pointAndNormal(i + 1, j + 1, steps);
            const auto d = pointAndNormal(i, j + 1, steps);
            char* record = strip.data() + std::size_t{100} * static_cast<std::size_t>(j);
            for (const auto& corners : {std::array{&a, &b, &c}, std::array{&a, &c, &d}}) {
                for (std::size_t k = 0; k < 3; ++k)
                    std::memcpy(record + 12 + 12 * k, corners[k]->data(), 12);
                record += 50;
            }
        }
        file.write(strip.data(), static_cast<std::streamsize>(strip.size()));
    }
}

void append(std::string& text, const char* word, const float* values, int count, int digits)
{
    text += word;
    for (int i = 0; i < count; ++i) {
        std::array<char, 32> number{};
        const auto end = std::to_chars(number.data(), number.data() + number.size(), values[i],
                                       std::chars_format::fixed, digits);
        text += ' ';
        text.append(number.data(), end.ptr);
    }
    text += '\n';
}

/// Points, texture coordinates, normals, then triangles that name all three.
void writeObj(const std::filesystem::path& path, std::int64_t triangles)
{
    const int steps = stepsFor(triangles);
    std::string points;
    std::string textures;
    std::string normals;
    std::string faces;
    const auto corner = [&](int i, int j) {
        const std::string index = std::to_string((i % steps) * steps + j % steps + 1);
        return " " + index + "/" + index + "/" + index;
    };
    for (int i = 0; i < steps; ++i) {
        for (int j = 0; j < steps; ++j) {
            const auto values = pointAndNormal(i, j, steps);
            const float texture[2] = {static_cast<float>(i) / static_cast<float>(steps),
                                      static_cast<float>(j) / static_cast<float>(steps)};
            append(points, "v", values.data(), 3, 6);
            append(textures, "vt", texture, 2, 6);
            append(normals, "vn", values.data() + 3, 3, 4);
            faces += "f" + corner(i, j) + corner(i + 1, j) + corner(i + 1, j + 1) + "\n";
            faces += "f" + corner(i, j) + corner(i + 1, j + 1) + corner(i, j + 1) + "\n";
        }
    }
    std::ofstream file(path, std::ios::binary);
    for (const std::string* part : {&points, &textures, &normals, &faces})
        file.write(part->data(), static_cast<std::streamsize>(part->size()));
}

/// Points with normals.
void writeXyz(const std::filesystem::path& path, std::int64_t points)
{
    const int steps = stepsFor(points * 2);
    std::string text;
    for (int i = 0; i < steps; ++i)
        for (int j = 0; j < steps; ++j)
            append(text, "", pointAndNormal(i, j, steps).data(), 6, 6);
    std::ofstream file(path, std::ios::binary);
    file.write(text.data(), static_cast<std::streamsize>(text.size()));
}

} // namespace

MeshBenchFiles& MeshBenchFiles::Instance()
{
    static MeshBenchFiles files;
    return files;
}

MeshBenchFiles::MeshBenchFiles()
    : m_folder(std::filesystem::temp_directory_path() /
               ("orvik-mesh-bench-" + std::to_string(OrvikOs::CurrentProcessId())))
{
    std::filesystem::create_directories(m_folder);
}

MeshBenchFiles::~MeshBenchFiles()
{
    std::error_code ignored;
    std::filesystem::remove_all(m_folder, ignored);
}

const std::string& MeshBenchFiles::get(const std::string& extension, std::int64_t size,
                                       const Write& write)
{
    std::string& path = m_paths[std::to_string(size) + "." + extension];
    if (path.empty()) {
        path = (m_folder / ("torus-" + std::to_string(size) + "." + extension)).string();
        write(path, size);
    }
    return path;
}

const std::string& MeshBenchFiles::Stl(std::int64_t triangles)
{
    return get("stl", triangles, &writeStl);
}

const std::string& MeshBenchFiles::Obj(std::int64_t triangles)
{
    return get("obj", triangles, &writeObj);
}

const std::string& MeshBenchFiles::Ply(std::int64_t triangles)
{
    return get("ply", triangles, [this](const std::filesystem::path& path, std::int64_t size) {
        OrvikMesh::ReadMessages messages(path.wstring());
        if (!OrvikMesh::WritePly(path.wstring(), Torus(size), {}, messages))
            throw std::runtime_error(OrvikOs::WideToUtf8(messages.Error()));
    });
}

const std::string& MeshBenchFiles::Off(std::int64_t triangles)
{
    return get("off", triangles, [this](const std::filesystem::path& path, std::int64_t size) {
        OrvikMesh::ReadMessages messages(path.wstring());
        if (!OrvikMesh::WriteOff(path.wstring(), Torus(size), {}, messages))
            throw std::runtime_error(OrvikOs::WideToUtf8(messages.Error()));
    });
}

const std::string& MeshBenchFiles::Xyz(std::int64_t points)
{
    return get("xyz", points, &writeXyz);
}

const OrvikMesh::MeshToWrite& MeshBenchFiles::Torus(std::int64_t triangles)
{
    if (m_torusSize == triangles)
        return m_torus;
    const int steps = stepsFor(triangles);
    m_positions.clear();
    m_triangles.clear();
    const auto index = [steps](int i, int j) {
        return static_cast<std::uint32_t>((i % steps) * steps + j % steps);
    };
    for (int i = 0; i < steps; ++i) {
        for (int j = 0; j < steps; ++j) {
            const auto point = pointAndNormal(i, j, steps);
            m_positions.insert(m_positions.end(), point.begin(), point.begin() + 3);
            m_triangles.insert(m_triangles.end(),
                               {index(i, j), index(i + 1, j), index(i + 1, j + 1), index(i, j),
                                index(i + 1, j + 1), index(i, j + 1)});
        }
    }
    OrvikMesh::BodyToWrite body;
    body.name = L"torus";
    body.positions = m_positions;
    body.triangles = m_triangles;
    m_torus.bodies = {body};
    m_torusSize = triangles;
    return m_torus;
}

std::wstring MeshBenchFiles::Scratch() const
{
    return (m_folder / "saved").wstring();
}
