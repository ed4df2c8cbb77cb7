#include "MeshBenchFiles.h"
#include "content/MeshBodies.h"
#include "content/PatchBuilder.h"
#include "readers/ObjReader.h"
#include "readers/OffReader.h"
#include "readers/PlyReader.h"
#include "readers/PointTextReader.h"
#include "readers/StlReader.h"

#include <OrvikOs/Utf8.h>
#include <TambVizCore/Geometry.h>

#include <OrvikRay/RayIndex.h>
#include <assimp/Importer.hpp>
#include <assimp/postprocess.h>
#include <assimp/scene.h>
#include <benchmark/benchmark.h>

#include <cstdint>
#include <string>
#include <vector>

// Reading meshes: our readers beside Assimp, on the same files in the same run. The files are a
// torus of strips, written once per run into the folder for temporary files; the page cache is warm
// because writing has just filled it. Every reader starts from the file's name.

namespace {

using OrvikMesh::MeshData;
using OrvikMesh::ReadMessages;

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
    readOurs(state, MeshBenchFiles::Instance().Stl(state.range(0)), &OrvikMesh::ReadStl);
}

void stlAssimpRaw(benchmark::State& state)
{
    readAssimp(state, MeshBenchFiles::Instance().Stl(state.range(0)), 0);
}

void stlAssimpJoined(benchmark::State& state)
{
    readAssimp(state, MeshBenchFiles::Instance().Stl(state.range(0)),
               aiProcess_JoinIdenticalVertices);
}

void objOurs(benchmark::State& state)
{
    readOurs(state, MeshBenchFiles::Instance().Obj(state.range(0)), &OrvikMesh::ReadObj);
}

void objAssimpRaw(benchmark::State& state)
{
    readAssimp(state, MeshBenchFiles::Instance().Obj(state.range(0)), 0);
}

void objAssimpJoined(benchmark::State& state)
{
    readAssimp(state, MeshBenchFiles::Instance().Obj(state.range(0)),
               aiProcess_JoinIdenticalVertices);
}

void plyOurs(benchmark::State& state)
{
    readOurs(state, MeshBenchFiles::Instance().Ply(state.range(0)), &OrvikMesh::ReadPly);
}

void plyAssimp(benchmark::State& state)
{
    readAssimp(state, MeshBenchFiles::Instance().Ply(state.range(0)), 0);
}

void offOurs(benchmark::State& state)
{
    readOurs(state, MeshBenchFiles::Instance().Off(state.range(0)), &OrvikMesh::ReadOff);
}

void offAssimp(benchmark::State& state)
{
    readAssimp(state, MeshBenchFiles::Instance().Off(state.range(0)), 0);
}

void xyzOurs(benchmark::State& state)
{
    readOurs(state, MeshBenchFiles::Instance().Xyz(state.range(0)), &OrvikMesh::ReadXyz);
}

/// Saves a torus; the disk is the folder of temporary files.
template <auto Write> void save(benchmark::State& state)
{
    const OrvikMesh::MeshToWrite& mesh = MeshBenchFiles::Instance().Torus(state.range(0));
    const std::wstring path = MeshBenchFiles::Instance().Scratch();
    for (auto _ : state) {
        ReadMessages messages(path);
        if (!Write(path, mesh, {}, messages))
            state.SkipWithError(OrvikOs::WideToUtf8(messages.Error()).c_str());
    }
}

std::shared_ptr<const TambVizCore::Geometry> torusGeometry(std::int64_t triangles)
{
    const std::wstring path = OrvikOs::Utf8ToWide(MeshBenchFiles::Instance().Stl(triangles));
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
BENCHMARK(plyOurs)->Name("Ply/ours")->Arg(kMillion)->Apply(milliseconds);
BENCHMARK(plyAssimp)->Name("Ply/assimp_raw")->Arg(kMillion)->Apply(milliseconds);
BENCHMARK(offOurs)->Name("Off/ours")->Arg(kMillion)->Apply(milliseconds);
BENCHMARK(offAssimp)->Name("Off/assimp_raw")->Arg(kMillion)->Apply(milliseconds);
BENCHMARK(xyzOurs)->Name("Xyz/ours_points")->Arg(kMillion)->Apply(milliseconds);
BENCHMARK(save<&OrvikMesh::WriteStl>)->Name("Save/stl")->Arg(kMillion)->Apply(milliseconds);
BENCHMARK(save<&OrvikMesh::WriteObj>)->Name("Save/obj")->Arg(kMillion)->Apply(milliseconds);
BENCHMARK(save<&OrvikMesh::WritePly>)->Name("Save/ply")->Arg(kMillion)->Apply(milliseconds);
BENCHMARK(save<&OrvikMesh::WriteOff>)->Name("Save/off")->Arg(kMillion)->Apply(milliseconds);
BENCHMARK(patches)->Name("Patches/torus")->Arg(kMillion)->Apply(milliseconds);
BENCHMARK(indexBuild)->Name("RayIndex/build")->Arg(kMillion)->Apply(milliseconds);
BENCHMARK(rayPick)->Name("RayIndex/pick")->Arg(kMillion);

} // namespace
