#include "writers/PooledMesh.h"

namespace OrvikMesh {

namespace {

void writeNumbers(const std::array<float, 3>& numbers, FileSink& sink)
{
    sink.Number(numbers[0]);
    sink.Text(" ");
    sink.Number(numbers[1]);
    sink.Text(" ");
    sink.Number(numbers[2]);
}

/// Colours of vertices are numbers to 1.
void writeColor(const std::array<std::uint8_t, 4>& color, FileSink& sink)
{
    for (const std::uint8_t component : color) {
        sink.Text(" ");
        sink.Number(static_cast<float>(component) / 255.0f);
    }
}

void writeFile(const std::wstring& path, const WritableBodies& chosen, const WriteOptions& options)
{
    FileSink sink(path, options);
    const bool hasNormals = chosen.HaveNormals();
    const bool hasColors = chosen.HaveColors();
    sink.Text(hasColors ? (hasNormals ? "CNOFF\n" : "COFF\n") : (hasNormals ? "NOFF\n" : "OFF\n"));
    sink.Number(std::uint64_t{chosen.vertices});
    sink.Text(" ");
    sink.Number(std::uint64_t{chosen.triangles});
    sink.Text(" 0\n");
    ForEachVertex(chosen, sink, [&](const BodyPlacement& body, std::size_t vertex) {
        writeNumbers(body.Position(vertex), sink);
        if (hasNormals) {
            sink.Text(" ");
            writeNumbers(body.Normal(vertex), sink);
        }
        if (hasColors)
            writeColor(body.Color(vertex), sink);
        sink.Text("\n");
    });
    ForEachTriangle(chosen, sink, [&](const std::array<std::uint32_t, 3>& corners) {
        sink.Text("3");
        for (const std::uint32_t corner : corners) {
            sink.Text(" ");
            sink.Number(std::uint64_t{corner});
        }
        sink.Text("\n");
    });
    sink.Commit();
}

} // namespace

bool WriteOff(const std::wstring& path, const MeshToWrite& mesh, const WriteOptions& options,
              ReadMessages& messages)
{
    WritableBodies chosen;
    return ChoosePooledBodies(mesh, chosen, messages) &&
           WriteGuarded([&] { writeFile(path, chosen, options); }, messages);
}

} // namespace OrvikMesh
