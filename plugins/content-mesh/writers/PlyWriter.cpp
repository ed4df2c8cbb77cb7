#include "writers/PooledMesh.h"

#include <bit>

namespace OrvikMesh {

static_assert(std::endian::native == std::endian::little, "values are written as they lie");

namespace {

void writeHeader(const WritableBodies& chosen, bool hasNormals, bool hasColors, FileSink& sink)
{
    sink.Text("ply\nformat binary_little_endian 1.0\nelement vertex ");
    sink.Number(std::uint64_t{chosen.vertices});
    sink.Text("\nproperty float x\nproperty float y\nproperty float z\n");
    if (hasNormals)
        sink.Text("property float nx\nproperty float ny\nproperty float nz\n");
    if (hasColors)
        sink.Text("property uchar red\nproperty uchar green\nproperty uchar blue\n"
                  "property uchar alpha\n");
    if (!chosen.arePoints) {
        sink.Text("element face ");
        sink.Number(std::uint64_t{chosen.triangles});
        sink.Text("\nproperty list uchar int vertex_indices\n");
    }
    sink.Text("end_header\n");
}

void writeFile(const std::wstring& path, const WritableBodies& chosen, const WriteOptions& options)
{
    FileSink sink(path, options);
    const bool hasNormals = chosen.HaveNormals();
    const bool hasColors = chosen.HaveColors();
    writeHeader(chosen, hasNormals, hasColors, sink);
    ForEachVertex(chosen, sink, [&](const BodyPlacement& body, std::size_t vertex) {
        sink.Raw(body.Position(vertex));
        if (hasNormals)
            sink.Raw(body.Normal(vertex));
        if (hasColors)
            sink.Raw(body.Color(vertex));
    });
    ForEachTriangle(chosen, sink, [&](const std::array<std::uint32_t, 3>& corners) {
        sink.Raw(std::uint8_t{3});
        sink.Raw(corners);
    });
    sink.Commit();
}

} // namespace

bool WritePly(const std::wstring& path, const MeshToWrite& mesh, const WriteOptions& options,
              ReadMessages& messages)
{
    WritableBodies chosen;
    return ChoosePooledBodies(mesh, chosen, messages) &&
           WriteGuarded([&] { writeFile(path, chosen, options); }, messages);
}

} // namespace OrvikMesh
