#include "writers/PooledMesh.h"

#include "writers/WriterTexts.h"

#include <limits>

namespace OrvikMesh {

void ForEachVertex(const WritableBodies& chosen, FileSink& sink,
                   const std::function<void(const BodyPlacement& body, std::size_t vertex)>& write)
{
    std::size_t done = 0;
    for (const BodyToWrite* body : chosen.bodies) {
        const BodyPlacement placement(*body);
        for (std::size_t i = 0; i < body->VertexCount(); ++i)
            write(placement, i);
        done += body->VertexCount();
        sink.SetProgress(done, chosen.vertices + chosen.triangles);
    }
}

void ForEachTriangle(const WritableBodies& chosen, FileSink& sink,
                     const std::function<void(const std::array<std::uint32_t, 3>&)>& write)
{
    std::size_t done = 0;
    std::uint32_t first = 0;
    for (const BodyToWrite* body : chosen.bodies) {
        const BodyPlacement placement(*body);
        for (std::size_t i = 0; i < body->TriangleCount(); ++i) {
            std::array<std::uint32_t, 3> corners = placement.Triangle(i);
            for (std::uint32_t& corner : corners)
                corner += first;
            write(corners);
        }
        first += static_cast<std::uint32_t>(body->VertexCount());
        done += body->TriangleCount();
        sink.SetProgress(chosen.vertices + done, chosen.vertices + chosen.triangles);
    }
}

bool ChoosePooledBodies(const MeshToWrite& mesh, WritableBodies& chosen, ReadMessages& messages)
{
    constexpr std::size_t kMost = std::numeric_limits<std::int32_t>::max();
    chosen = ChooseBodies(mesh, FileHolds::TrianglesOrPoints);
    if (chosen.wiresLeftOut > 0)
        messages.Warn(FillText(kWiresLeftOut, {std::to_wstring(chosen.wiresLeftOut)}));
    if (chosen.vertices == 0)
        messages.Fail(kNothingAtAll);
    else if (chosen.vertices > kMost)
        messages.Fail(FillText(kTooManyVertices, {std::to_wstring(chosen.vertices)}));
    else if (chosen.triangles > kMost)
        messages.Fail(FillText(kTooManyTriangles, {std::to_wstring(chosen.triangles)}));
    else if (chosen.cloudsLeftOut > 0)
        messages.Warn(FillText(kCloudsBesideMesh, {std::to_wstring(chosen.cloudsLeftOut)}));
    return !messages.HasError();
}

} // namespace OrvikMesh
