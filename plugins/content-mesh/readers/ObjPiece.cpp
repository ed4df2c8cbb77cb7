#include "readers/ObjPiece.h"

#include "readers/LineScan.h"

#include <algorithm>
#include <cstring>

namespace OrvikMesh {

namespace {

constexpr std::uint32_t kFirstRoom = 1024;
/// Longest name that is kept, in bytes.
constexpr std::size_t kMaxNameBytes = 1024;

/// Doubles an array that is full. @return the new room.
template <class T>
std::uint32_t grown(MeshArray<T>& array, std::uint32_t count, std::uint32_t room,
                    std::size_t perElement)
{
    if (count < room)
        return room;
    const std::uint32_t larger = std::max(kFirstRoom, room * 2);
    array.Resize(larger * perElement);
    return larger;
}

/// Whether the line that ends before @p end goes on after it.
bool endsInContinuation(std::string_view text, std::size_t end)
{
    if (end > 0 && text[end - 1] == '\n')
        --end;
    if (end > 0 && text[end - 1] == '\r')
        --end;
    return end > 0 && text[end - 1] == '\\';
}

/// @return the end of the line that holds @p at, past its LF.
std::size_t endOfLine(std::string_view text, std::size_t at)
{
    const std::size_t found = text.find('\n', at);
    return found == std::string_view::npos ? text.size() : found + 1;
}

/// Moves the first occurrence to @p place when it came up since @p before.
void placeNew(ScanOccurrences& now, const ScanOccurrences& before, const char* place)
{
    if (before.count == 0 && now.count > 0)
        now.first = place;
}

} // namespace

ObjPiece::ObjPiece(std::string_view lines)
{
    m_scan.begin = lines.data();
    m_scan.at = lines.data();
    m_scan.end = lines.data() + lines.size();
}

void ObjPiece::Read()
{
    makeRoom();
    scanLines();
}

void ObjPiece::Release()
{
    m_positions = MeshArray<float>();
    m_colors = MeshArray<std::uint8_t>();
    m_normals = MeshArray<float>();
    m_corners = MeshArray<ObjCorner>();
    m_faces = MeshArray<ObjFace>();
    m_names.clear();
}

void ObjPiece::scanLines()
{
    for (;;) {
        switch (ScanObj(m_scan)) {
        case ObjStop::End:
            return;
        case ObjStop::Full:
            makeRoom();
            break;
        case ObjStop::Name:
            addName();
            break;
        case ObjStop::Continued:
            scanContinued();
            break;
        case ObjStop::Colored:
            addColors();
            break;
        }
    }
}

/// Joins a line with those that continue it and reads the whole as one.
void ObjPiece::scanContinued()
{
    const std::string_view rest(m_scan.at, static_cast<std::size_t>(m_scan.end - m_scan.at));
    std::string joined;
    std::size_t end = 0;
    bool goesOn = true;
    while (goesOn && end < rest.size()) {
        const std::size_t begin = end;
        end = endOfLine(rest, begin);
        goesOn = endsInContinuation(rest.substr(0, end), end);
        joined += rest.substr(begin, end - begin);
        if (goesOn)
            joined.replace(joined.rfind('\\'), std::string::npos, " ");
    }
    // A backslash before a CR alone would ask for the next line again.
    for (std::size_t at = 0; (at = joined.find("\\\r", at)) != std::string::npos;)
        joined[at] = ' ';

    const ObjScan before = m_scan;
    m_scan.begin = m_scan.at = joined.data();
    m_scan.end = joined.data() + joined.size();
    scanLines();
    m_scan.begin = before.begin;
    m_scan.at = before.at + end;
    m_scan.end = before.end;
    for (std::uint32_t i = before.faceCount; i < m_scan.faceCount; ++i)
        m_scan.faces[i].offset = static_cast<std::uint32_t>(before.at - before.begin);
    placeNew(m_scan.badNumbers, before.badNumbers, before.at);
    placeNew(m_scan.shortFaces, before.shortFaces, before.at);
    placeNew(m_scan.zeroIndices, before.zeroIndices, before.at);
    placeNew(m_scan.junkLines, before.junkLines, before.at);
    placeNew(m_scan.badThin, before.badThin, before.at);
    placeNew(m_scan.leftOut, before.leftOut, before.at);
}

void ObjPiece::addName()
{
    const std::string_view line(m_scan.nameBegin,
                                static_cast<std::size_t>(m_scan.nameEnd - m_scan.nameBegin));
    const std::size_t keywordEnd = std::min(line.find_first_of(" \t\r\n"), line.size());
    const std::string_view keyword = line.substr(0, keywordEnd);
    ObjName name;
    name.kind = keyword == "o"        ? ObjName::Kind::Object
                : keyword == "g"      ? ObjName::Kind::Group
                : keyword == "usemtl" ? ObjName::Kind::Material
                                      : ObjName::Kind::Library;
    name.face = m_scan.faceCount;
    name.name = Trimmed(line.substr(keywordEnd)).substr(0, kMaxNameBytes);
    m_names.push_back(std::move(name));
}

void ObjPiece::makeRoom()
{
    const std::uint32_t colorRoom = m_scan.vertexRoom;
    m_scan.vertexRoom = grown(m_positions, m_scan.vertexCount, m_scan.vertexRoom, 3);
    m_scan.normalRoom = grown(m_normals, m_scan.normalCount, m_scan.normalRoom, 3);
    m_scan.faceRoom = grown(m_faces, m_scan.faceCount, m_scan.faceRoom, 1);
    // A face that does not fit is read again: the count does not show that there is no room.
    const bool mustGrow = m_scan.areCornersFull || m_scan.cornerRoom == 0;
    m_scan.cornerRoom = grown(m_corners, mustGrow ? m_scan.cornerRoom : 0, m_scan.cornerRoom, 1);
    m_scan.areCornersFull = false;
    if (m_scan.colors && colorRoom < m_scan.vertexRoom)
        m_colors.Resize(std::size_t{m_scan.vertexRoom} * 4);

    m_scan.positions = m_positions.Data();
    m_scan.normals = m_normals.Data();
    m_scan.faces = m_faces.Data();
    m_scan.corners = m_corners.Data();
    m_scan.colors = m_colors.Data();
}

void ObjPiece::addColors()
{
    m_colors.Resize(std::size_t{m_scan.vertexRoom} * 4);
    std::memset(m_colors.Data(), 255, m_colors.Size());
    m_scan.colors = m_colors.Data();
}

std::vector<std::string_view> CutObjText(std::string_view text, std::size_t pieceBytes)
{
    std::vector<std::string_view> pieces;
    while (!text.empty()) {
        std::size_t end = text.size();
        if (text.size() > pieceBytes) {
            end = endOfLine(text, pieceBytes);
            while (end < text.size() && endsInContinuation(text, end))
                end = endOfLine(text, end);
        }
        pieces.push_back(text.substr(0, end));
        text.remove_prefix(end);
    }
    return pieces;
}

} // namespace OrvikMesh
