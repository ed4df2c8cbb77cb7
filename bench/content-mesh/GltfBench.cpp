#include "content/ShapeOfArrays.h"
#include "gltf/GltfReader.h"

#include <OrvikOs/Thread.h>
#include <OrvikOs/Utf8.h>

#include <assimp/Importer.hpp>
#include <assimp/scene.h>
#include <benchmark/benchmark.h>

#include <cmath>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <numbers>
#include <string>
#include <string_view>
#include <vector>

// Reading glTF: our reader, with the shapes made, beside Assimp without any step after reading, on
// the same files in the same run. The files hold a torus with normals and are written once per run
// into the folder for temporary files, so that the page cache is warm.

namespace {

constexpr int kSteps = 707; // 2 * 707 * 707 triangles: a million.
constexpr std::size_t kVertices = std::size_t{kSteps} * kSteps;
constexpr std::size_t kCorners = kVertices * 6;

template <class T> void append(std::string& bytes, T value)
{
    bytes.append(reinterpret_cast<const char*>(&value), sizeof value);
}

/// Positions, normals and indices, one after the other.
std::string torusBuffer()
{
    std::string positions;
    std::string normals;
    std::string indices;
    const auto vertex = [](int i, int j) {
        return static_cast<std::uint32_t>(i % kSteps * kSteps + j % kSteps);
    };
    for (int i = 0; i < kSteps; ++i) {
        for (int j = 0; j < kSteps; ++j) {
            const double u = 2.0 * std::numbers::pi * i / kSteps;
            const double v = 2.0 * std::numbers::pi * j / kSteps;
            const double radius = 10.0 + 3.0 * std::cos(v);
            for (const double value : {radius * std::cos(u), radius * std::sin(u), 3 * std::sin(v)})
                append(positions, static_cast<float>(value));
            for (const double value :
                 {std::cos(v) * std::cos(u), std::cos(v) * std::sin(u), std::sin(v)})
                append(normals, static_cast<float>(value));
            for (const std::uint32_t corner :
                 {vertex(i, j), vertex(i + 1, j), vertex(i + 1, j + 1), vertex(i, j),
                  vertex(i + 1, j + 1), vertex(i, j + 1)})
                append(indices, corner);
        }
    }
    return positions + normals + indices;
}

std::string torusJson(const std::string& buffer)
{
    const auto run = [](std::size_t offset, std::size_t length) {
        return "{\"buffer\":0,\"byteOffset\":" + std::to_string(offset) +
               ",\"byteLength\":" + std::to_string(length) + "}";
    };
    const std::string vectors =
        ",\"componentType\":5126,\"count\":" + std::to_string(kVertices) + ",\"type\":\"VEC3\"";
    const std::size_t bytes = kVertices * 12;
    return "{\"asset\":{\"version\":\"2.0\"},\"scene\":0,\"scenes\":[{\"nodes\":[0]}],"
           "\"nodes\":[{\"mesh\":0}],\"meshes\":[{\"primitives\":[{\"attributes\":{\"POSITION\":0,"
           "\"NORMAL\":1},\"indices\":2}]}],\"accessors\":[{\"bufferView\":0,\"min\":[-13,-13,-3],"
           "\"max\":[13,13,3]" +
           vectors + "},{\"bufferView\":1" + vectors +
           "},{\"bufferView\":2,\"componentType\":5125,\"count\":" + std::to_string(kCorners) +
           ",\"type\":\"SCALAR\"}],\"bufferViews\":[" + run(0, bytes) + "," + run(bytes, bytes) +
           "," + run(2 * bytes, kCorners * 4) + "],\"buffers\":[{" + buffer +
           "\"byteLength\":" + std::to_string(2 * bytes + kCorners * 4) + "}]}";
}

std::string binaryFile()
{
    std::string json = torusJson("");
    json.resize((json.size() + 3) / 4 * 4, ' ');
    const std::string buffer = torusBuffer();
    std::string bytes = "glTF";
    append(bytes, std::uint32_t{2});
    append(bytes, static_cast<std::uint32_t>(28 + json.size() + buffer.size()));
    append(bytes, static_cast<std::uint32_t>(json.size()));
    bytes += "JSON" + json;
    append(bytes, static_cast<std::uint32_t>(buffer.size()));
    return bytes + std::string("BIN\0", 4) + buffer;
}

std::string embeddedFile()
{
    const std::string_view digits =
        "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    const std::string buffer = torusBuffer();
    std::string text;
    for (std::size_t i = 0; i < buffer.size(); i += 3) {
        std::uint32_t bits = 0;
        for (std::size_t k = 0; k < 3; ++k)
            bits = bits << 8 |
                   (i + k < buffer.size() ? static_cast<unsigned char>(buffer[i + k]) : 0u);
        for (std::size_t k = 0; k < 4; ++k)
            text += i + k <= buffer.size() ? digits[bits >> (18 - 6 * k) & 63] : '=';
    }
    return torusJson("\"uri\":\"data:application/octet-stream;base64," + text + "\",");
}

/// A file of this run, deleted at its end.
class TorusFile
{
public:
    TorusFile(const char* extension, const std::string& bytes)
        : m_path(std::filesystem::temp_directory_path() /
                 ("orvik-gltf-bench-" + std::to_string(OrvikOs::CurrentProcessId()) + extension))
    {
        std::ofstream file(m_path, std::ios::binary);
        file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    }
    ~TorusFile()
    {
        std::error_code ignored;
        std::filesystem::remove(m_path, ignored);
    }
    TorusFile(const TorusFile&) = delete;
    TorusFile& operator=(const TorusFile&) = delete;

    std::string Path() const { return m_path.string(); }

    static const TorusFile& Binary()
    {
        static const TorusFile file(".glb", binaryFile());
        return file;
    }
    static const TorusFile& Embedded()
    {
        static const TorusFile file(".gltf", embeddedFile());
        return file;
    }

private:
    std::filesystem::path m_path;
};

void readOurs(benchmark::State& state, const TorusFile& file)
{
    const std::wstring path = OrvikOs::Utf8ToWide(file.Path());
    for (auto _ : state) {
        OrvikModel::Model model;
        OrvikMesh::ReadMessages messages(path);
        if (!OrvikMesh::ReadGltf(path, {}, &OrvikMesh::MakeShape, model, messages)) {
            state.SkipWithError(OrvikOs::WideToUtf8(messages.Error()).c_str());
            return;
        }
        state.counters["triangles"] = model.nodes[0]->shape->Present()->TriangleCount();
    }
}

void readAssimp(benchmark::State& state, const TorusFile& file)
{
    for (auto _ : state) {
        Assimp::Importer importer;
        const aiScene* scene = importer.ReadFile(file.Path(), 0);
        if (!scene) {
            state.SkipWithError(importer.GetErrorString());
            return;
        }
        state.counters["triangles"] = scene->mMeshes[0]->mNumFaces;
    }
}

void binaryOurs(benchmark::State& state)
{
    readOurs(state, TorusFile::Binary());
}

void binaryAssimp(benchmark::State& state)
{
    readAssimp(state, TorusFile::Binary());
}

void embeddedOurs(benchmark::State& state)
{
    readOurs(state, TorusFile::Embedded());
}

void embeddedAssimp(benchmark::State& state)
{
    readAssimp(state, TorusFile::Embedded());
}

void milliseconds(benchmark::internal::Benchmark* bench)
{
    bench->Unit(benchmark::kMillisecond)->MeasureProcessCPUTime()->UseRealTime();
}

BENCHMARK(binaryOurs)->Name("Glb/ours/1M_triangles")->Apply(milliseconds);
BENCHMARK(binaryAssimp)->Name("Glb/assimp_raw/1M_triangles")->Apply(milliseconds);
BENCHMARK(embeddedOurs)->Name("Gltf/embedded/ours/1M_triangles")->Apply(milliseconds);
BENCHMARK(embeddedAssimp)->Name("Gltf/embedded/assimp_raw/1M_triangles")->Apply(milliseconds);

} // namespace
