#include "readers/OffReader.h"

#include "readers/MeshFinish.h"
#include "readers/OffBody.h"
#include "readers/OffHeader.h"
#include "readers/PolygonCollector.h"
#include "readers/ReaderTexts.h"
#include "readers/TextEncoding.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>

namespace OrvikMesh {

namespace {

/// Fewest bytes of a triangle in a text, for the guess of how much room is needed.
constexpr std::size_t kFewestFaceBytes = 8;

void makeRoom(const OffHeader& header, MeshData& mesh, OffVertices& vertices)
{
    if (header.vertices >= kNone)
        throw std::length_error("too many vertices");
    mesh.positions.Resize(header.vertices * 3);
    if (header.hasNormals) {
        mesh.normals.Resize(header.vertices * 3);
        std::fill(mesh.normals.begin(), mesh.normals.end(), 0.0f);
    }
    if (header.hasColors) {
        // What a line does not give stays white and opaque.
        vertices.colors.Resize(header.vertices * 4);
        std::fill(vertices.colors.begin(), vertices.colors.end(), std::nanf(""));
    }
}

template <class Body>
bool readVertices(Body& body, const OffHeader& header, MeshData& mesh, ReadMessages& messages)
{
    OffVertices vertices;
    makeRoom(header, mesh, vertices);
    body.ReadVertices(mesh, vertices, messages);
    if (vertices.count < header.vertices) {
        messages.Fail(FillText(kOffCutVertices,
                               {std::to_wstring(vertices.count), std::to_wstring(header.vertices)}),
                      body.Place());
        return false;
    }
    NormalizeNormals(mesh);
    if (header.hasColors)
        TakeColors(mesh, vertices.colors);
    return true;
}

template <class Body>
bool readBody(Body&& body, const OffHeader& header, const ReadOptions& options, std::size_t bytes,
              MeshData& mesh, ReadMessages& messages)
{
    if (!readVertices(body, header, mesh, messages))
        return false;
    if (header.faces == 0)
        return FinishPoints(mesh, messages);
    PolygonCollector polygons(mesh, options);
    polygons.Reserve(std::min<std::uint64_t>(header.faces, bytes / kFewestFaceBytes));
    const std::uint64_t faces = body.ReadFaces(polygons);
    if (faces < header.faces)
        messages.Warn(
            FillText(kOffCutFaces, {std::to_wstring(faces), std::to_wstring(header.faces)}),
            body.Place());
    polygons.Finish(messages, [&](std::uint64_t offset) { return body.PlaceOf(offset); });
    if (mesh.TriangleCount() == 0)
        messages.Fail(kNoTriangle);
    return mesh.TriangleCount() > 0;
}

} // namespace

bool ReadOffContent(std::string_view content, const ReadOptions& options, MeshData& mesh,
                    ReadMessages& messages)
{
    if (content.empty()) {
        messages.Fail(kEmptyFile);
        return false;
    }
    std::string storage;
    const std::string_view text = WithLineFeeds(ToUtf8Text(content, storage), storage);
    OffHeader header;
    if (!ReadOffHeader(text, header, messages))
        return false;
    if (header.isBinary)
        return readBody(OffBinaryBody(content, header, options), header, options, content.size(),
                        mesh, messages);
    return readBody(OffTextBody(text, header, options), header, options, text.size(), mesh,
                    messages);
}

bool ReadOff(const std::wstring& path, const ReadOptions& options, MeshData& mesh,
             ReadMessages& messages)
{
    return ReadMappedFile(path, &ReadOffContent, options, mesh, messages);
}

} // namespace OrvikMesh
