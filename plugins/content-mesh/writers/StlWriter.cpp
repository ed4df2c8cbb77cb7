#include "readers/MeshFinish.h"
#include "writers/BodyPlacement.h"
#include "writers/FileSink.h"
#include "writers/WriterTexts.h"

#include <limits>

namespace OrvikMesh {

namespace {

constexpr std::size_t kHeaderBytes = 80;
/// Must not begin with "solid", the first word of a text.
constexpr std::string_view kHeader = "binary STL";

std::array<float, 3> normalOf(const std::array<std::array<float, 3>, 3>& corners)
{
    double sides[2][3];
    for (std::size_t i = 0; i < 3; ++i) {
        sides[0][i] = double{corners[1][i]} - double{corners[0][i]};
        sides[1][i] = double{corners[2][i]} - double{corners[0][i]};
    }
    std::array<float, 3> normal{};
    for (std::size_t i = 0; i < 3; ++i) {
        const std::size_t j = (i + 1) % 3;
        const std::size_t k = (i + 2) % 3;
        normal[i] = static_cast<float>(sides[0][j] * sides[1][k] - sides[0][k] * sides[1][j]);
    }
    NormalizeVector(normal.data());
    return normal;
}

void writeTriangle(const BodyPlacement& body, std::size_t triangle, FileSink& sink)
{
    std::array<std::array<float, 3>, 3> corners{};
    const std::array<std::uint32_t, 3> vertices = body.Triangle(triangle);
    for (std::size_t i = 0; i < 3; ++i)
        corners[i] = body.Position(vertices[i]);
    sink.Raw(normalOf(corners));
    sink.Raw(corners);
    sink.Raw(std::uint16_t{0});
}

void writeFile(const std::wstring& path, const WritableBodies& chosen, const WriteOptions& options)
{
    FileSink sink(path, options);
    std::string header(kHeader);
    header.resize(kHeaderBytes, '\0');
    sink.Text(header);
    sink.Raw(static_cast<std::uint32_t>(chosen.triangles));
    std::size_t done = 0;
    for (const BodyToWrite* body : chosen.bodies) {
        const BodyPlacement placement(*body);
        for (std::size_t i = 0; i < body->TriangleCount(); ++i)
            writeTriangle(placement, i, sink);
        done += body->TriangleCount();
        sink.SetProgress(done, chosen.triangles);
    }
    sink.Commit();
}

} // namespace

bool WriteStl(const std::wstring& path, const MeshToWrite& mesh, const WriteOptions& options,
              ReadMessages& messages)
{
    const WritableBodies chosen = ChooseBodies(mesh, FileHolds::Triangles);
    if (chosen.wiresLeftOut > 0)
        messages.Warn(FillText(kWiresLeftOut, {std::to_wstring(chosen.wiresLeftOut)}));
    if (chosen.triangles == 0) {
        messages.Fail(kNothingToWrite);
        return false;
    }
    if (chosen.triangles > std::numeric_limits<std::uint32_t>::max()) {
        messages.Fail(FillText(kTooManyTriangles, {std::to_wstring(chosen.triangles)}));
        return false;
    }
    if (chosen.cloudsLeftOut > 0)
        messages.Warn(FillText(kCloudsLeftOut, {std::to_wstring(chosen.cloudsLeftOut)}));
    return WriteGuarded([&] { writeFile(path, chosen, options); }, messages);
}

} // namespace OrvikMesh
