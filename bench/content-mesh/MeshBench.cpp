#include "content/MeshBodies.h"
#include "content/PatchBuilder.h"
#include "readers/ObjReader.h"
#include "readers/StlReader.h"

#include <OrvikOs/Thread.h>
#include <OrvikOs/Utf8.h>
#include <TambVizCore/Geometry.h>

#include <OrvikRay/RayIndex.h>
#include <assimp/Importer.hpp>
#include <assimp/postprocess.h>
#include <assimp/scene.h>
#include <benchmark/benchmark.h>

#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <map>
#include <numbers>
#include <string>
#include <vector>

// Reading meshes: our readers beside Assimp, on the same files in the same run. The files are a
// torus of strips, written once per run into the folder for temporary files; the page cache is warm
// because writing has just filled it. Every reader starts from the file's name.

namespace {

using OrvikMesh::MeshData;
using OrvikMesh::ReadMessages;

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

/// The files of this run, written on first use and deleted at its end.
class Files
{
public:
    static Files& Instance()
    {
        static Files files;
        return files;
    }

    const std::string& Stl(std::int64_t triangles) { return get("stl", triangles, &writeStl); }
    const std::string& Obj(std::int64_t triangles) { return get("obj", triangles, &writeObj); }

private:
    using Writer = void (*)(const std::filesystem::path&, std::int64_t);

    Files()
        : m_folder(std::filesystem::temp_directory_path() /
                   ("orvik-mesh-bench-" + std::to_string(OrvikOs::CurrentProcessId())))
    {
        std::filesystem::create_directories(m_folder);
    }
    ~Files()
    {
        std::error_code ignored;
        std::filesystem::remove_all(m_folder, ignored);
    }

    const std::string& get(const std::string& extension, std::int64_t triangles, Writer write)
    {
        std::string& path = m_paths[std::to_string(triangles) + "." + extension];
        if (path.empty()) {
            path = (m_folder / ("torus-" + std::to_string(triangles) + "." + extension)).string();
            write(path, triangles);
        }
        return path;
    }

    std::filesystem::path m_folder;
    std::map<std::string, std::string> m_paths;
};

template <typename Read>
void readOurs(benchmark::State& state, const std::string& file, const Read& read)
{
    const std::wstring path = OrvikOs::Utf8ToWide(file);
    for (auto _ : state) {
        MeshData mesh;
        ReadMessages messages(path);
        if (!read(path, OrvikMesh::ReadOptions{}, mesh, messages))
            state.SkipWithError(OrvikOs::WideToUtf8(messages.Error()).c_str());
        state.counters["triangles"] = static_cast<double>(mesh.TriangleCount());
        state.counters["vertices"] = static_cast<double>(mesh.VertexCount());
    }
}

void readAssimp(benchmark::State& state, const std::string& file, unsigned steps)
{
    for (auto _ : state) {
        Assimp::Importer importer;
        const aiScene* scene = importer.ReadFile(file, steps);
        if (!scene) {
            state.SkipWithError(importer.GetErrorString());
            return;
        }
        state.counters["triangles"] = scene->mMeshes[0]->mNumFaces;
        state.counters["vertices"] = scene->mMeshes[0]->mNumVertices;
    }
}

void stlOurs(benchmark::State& state)
{
    readOurs(state, Files::Instance().Stl(state.range(0)), &OrvikMesh::ReadStl);
}

void stlAssimpRaw(benchmark::State& state)
{
    readAssimp(state, Files::Instance().Stl(state.range(0)), 0);
}

void stlAssimpJoined(benchmark::State& state)
{
    readAssimp(state, Files::Instance().Stl(state.range(0)), aiProcess_JoinIdenticalVertices);
}

void objOurs(benchmark::State& state)
{
    readOurs(state, Files::Instance().Obj(state.range(0)), &OrvikMesh::ReadObj);
}

void objAssimpRaw(benchmark::State& state)
{
    readAssimp(state, Files::Instance().Obj(state.range(0)), 0);
}

void objAssimpJoined(benchmark::State& state)
{
    readAssimp(state, Files::Instance().Obj(state.range(0)), aiProcess_JoinIdenticalVertices);
}

std::shared_ptr<const TambVizCore::Geometry> torusGeometry(std::int64_t triangles)
{
    const std::wstring path = OrvikOs::Utf8ToWide(Files::Instance().Stl(triangles));
    MeshData mesh;
    ReadMessages messages(path);
    OrvikMesh::ReadStl(path, {}, mesh, messages);
    return OrvikMesh::MakeBodies(std::move(mesh), L"torus", messages).front()->shape->Present();
}

/// Faces, edges and vertices of a mesh.
void patches(benchmark::State& state)
{
    const auto geometry = torusGeometry(state.range(0));
    for (auto _ : state)
        benchmark::DoNotOptimize(OrvikMesh::BuildPatches(*geometry));
}

void indexBuild(benchmark::State& state)
{
    const auto geometry = torusGeometry(state.range(0));
    for (auto _ : state)
        benchmark::DoNotOptimize(OrvikRay::BuildRayIndex(*geometry));
}

/// Rays from above, spread over the torus; some pass through its hole.
void rayPick(benchmark::State& state)
{
    const auto geometry = torusGeometry(state.range(0));
    const auto index = OrvikRay::BuildRayIndex(*geometry);
    TambVizCore::GeometryQuery query;
    query.origin[2] = 100.0f;
    query.direction[2] = -1.0f;
    std::uint32_t random = 1;
    std::size_t hits = 0;
    const auto place = [&random] {
        random = random * 1664525u + 1013904223u;
        return static_cast<float>(random >> 8) / 16777216.0f * 26.0f - 13.0f;
    };
    for (auto _ : state) {
        query.origin[0] = place();
        query.origin[1] = place();
        TambVizCore::GeometryHit hit;
        hits += index->FindFace(query, hit) ? 1 : 0;
    }
    state.counters["hit_share"] =
        static_cast<double>(hits) / static_cast<double>(state.iterations());
}

constexpr std::int64_t kMillion = 1000000;

void milliseconds(benchmark::internal::Benchmark* bench)
{
    bench->Unit(benchmark::kMillisecond)->MeasureProcessCPUTime()->UseRealTime();
}

BENCHMARK(stlOurs)->Name("Stl/ours")->Arg(kMillion)->Arg(10 * kMillion)->Apply(milliseconds);
BENCHMARK(stlAssimpRaw)
    ->Name("Stl/assimp_raw")
    ->Arg(kMillion)
    ->Arg(10 * kMillion)
    ->Apply(milliseconds);
BENCHMARK(stlAssimpJoined)->Name("Stl/assimp_joined")->Arg(kMillion)->Apply(milliseconds);
BENCHMARK(objOurs)->Name("Obj/ours")->Arg(kMillion)->Apply(milliseconds);
BENCHMARK(objAssimpRaw)->Name("Obj/assimp_raw")->Arg(kMillion)->Apply(milliseconds);
BENCHMARK(objAssimpJoined)->Name("Obj/assimp_joined")->Arg(kMillion)->Apply(milliseconds);
BENCHMARK(patches)->Name("Patches/torus")->Arg(kMillion)->Apply(milliseconds);
BENCHMARK(indexBuild)->Name("RayIndex/build")->Arg(kMillion)->Apply(milliseconds);
BENCHMARK(rayPick)->Name("RayIndex/pick")->Arg(kMillion);

} // namespace
