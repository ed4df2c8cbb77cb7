#ifndef ORVIKMESH_READERS_OFFBODY_H
#define ORVIKMESH_READERS_OFFBODY_H

#include "readers/MeshReader.h"
#include "readers/OffHeader.h"
#include "readers/PolygonCollector.h"

#include <cstdint>
#include <string_view>

namespace OrvikMesh {

/// The vertices of an OFF file while they are read.
struct OffVertices
{
    MeshArray<float> colors; ///< Four per vertex as they stand in the file, or empty.
    std::uint64_t count = 0; ///< Vertices that are there; fewer than announced at the file's end.
};

/// Reads the vertices and faces of a text. Vertices are put into @p mesh, which has room for all of
/// them, and normals as they stand. One thread.
class OffTextBody
{
public:
    OffTextBody(std::string_view text, const OffHeader& header, const ReadOptions& options);

    void ReadVertices(MeshData& mesh, OffVertices& vertices, ReadMessages& messages);
    /// @return the number of faces read; fewer than announced when the file ended.
    std::uint64_t ReadFaces(PolygonCollector& polygons);
    ReadPlace Place() const { return PlaceOf(Offset()); }
    ReadPlace PlaceOf(std::uint64_t offset) const;

private:
    bool readVertex(MeshData& mesh, OffVertices& vertices);
    void readFace(PolygonCollector& polygons);
    bool readFaceColor(std::uint8_t* color);
    bool nextRow();
    void poll();
    std::uint64_t Offset() const { return static_cast<std::uint64_t>(m_at - m_text.data()); }

    std::string_view m_text;
    const OffHeader& m_header;
    const ReadOptions& m_options;
    const char* m_at;
    const char* m_end;
    std::vector<std::uint32_t> m_corners;
};

/// The same of binary data: 32 bits each, big-endian.
class OffBinaryBody
{
public:
    OffBinaryBody(std::string_view content, const OffHeader& header, const ReadOptions& options);

    void ReadVertices(MeshData& mesh, OffVertices& vertices, ReadMessages& messages);
    std::uint64_t ReadFaces(PolygonCollector& polygons);
    ReadPlace Place() const { return PlaceOf(Offset()); }
    ReadPlace PlaceOf(std::uint64_t offset) const { return ReadPlace::Byte(offset); }

private:
    bool readFace(PolygonCollector& polygons);
    std::uint32_t integerAt(std::size_t index) const;
    float floatAt(std::size_t index) const;
    std::size_t wordsLeft() const { return static_cast<std::size_t>(m_end - m_at) / 4; }
    void poll();
    std::uint64_t Offset() const { return static_cast<std::uint64_t>(m_at - m_content.data()); }

    std::string_view m_content;
    const OffHeader& m_header;
    const ReadOptions& m_options;
    const char* m_at;
    const char* m_end;
    std::vector<std::uint32_t> m_corners;
};

} // namespace OrvikMesh

#endif
