#include "readers/ObjAssembler.h"

#include "readers/MeshFinish.h"
#include "readers/ObjMaterials.h"
#include "readers/ReaderTexts.h"

#include <OrvikOs/Utf8.h>

#include <algorithm>
#include <cstring>
#include <stdexcept>

namespace OrvikMesh {

namespace {

/// Vertices of a point that are looked at for one with the normal wanted; a hostile file may give
/// one point a million normals.
constexpr int kMaxVerticesTried = 256;

/// Turns a coded index into one from 0. @return false when it is out of range.
bool resolve(std::int32_t code, std::uint32_t base, std::uint32_t count, std::uint32_t& index)
{
    const std::int64_t value =
        code > 0 ? std::int64_t{code} - 1
                 : std::int64_t{code} - kObjRelativeBase + static_cast<std::int64_t>(base);
    if (value < 0 || value >= count)
        return false;
    index = static_cast<std::uint32_t>(value);
    return true;
}

std::wstring toWide(const std::string& name)
{
    return OrvikOs::Utf8ToWide(name);
}

} // namespace

std::uint32_t ObjAssembler::NameTable::IndexOf(const std::string& name)
{
    const auto next = static_cast<std::uint32_t>(names.size());
    const auto [entry, isNew] = indices.emplace(name, next);
    if (isNew)
        names.push_back(name);
    return entry->second;
}

ObjAssembler::ObjAssembler(std::string_view text, const ReadOptions& options, MeshData& mesh)
    : m_text(text), m_options(options), m_mesh(mesh)
{
}

void ObjAssembler::TakePoints(std::deque<ObjPiece>& pieces)
{
    std::uint64_t points = 0;
    std::uint64_t normals = 0;
    std::uint64_t triangles = 0;
    bool hasColors = false;
    for (const ObjPiece& piece : pieces) {
        const ObjScan& scan = piece.Scan();
        points += scan.vertexCount;
        normals += scan.normalCount;
        triangles += scan.cornerCount - std::min(scan.cornerCount, scan.faceCount * 2);
        hasColors = hasColors || scan.colors;
        m_hasNonFinite = m_hasNonFinite || scan.nonFiniteVertices > 0;
    }
    if (points > kObjMaxIndex || normals > kObjMaxIndex)
        throw std::length_error("too many points");
    m_pointCount = static_cast<std::uint32_t>(points);
    m_fileNormalCount = static_cast<std::uint32_t>(normals);

    m_points.Reserve(points * 3);
    m_normals.Reserve(normals * 3);
    if (hasColors)
        m_pointColors.Reserve(points * 4);
    for (ObjPiece& piece : pieces) {
        const ObjScan& scan = piece.Scan();
        const std::size_t at = m_points.Size() / 3;
        m_points.Resize((at + scan.vertexCount) * 3);
        std::copy_n(scan.positions, std::size_t{scan.vertexCount} * 3, m_points.Data() + at * 3);
        const std::size_t normalAt = m_normals.Size();
        m_normals.Resize(normalAt + std::size_t{scan.normalCount} * 3);
        std::copy_n(scan.normals, std::size_t{scan.normalCount} * 3, m_normals.Data() + normalAt);
        if (hasColors) {
            m_pointColors.Resize((at + scan.vertexCount) * 4);
            std::uint8_t* target = m_pointColors.Data() + at * 4;
            if (scan.colors)
                std::copy_n(scan.colors, std::size_t{scan.vertexCount} * 4, target);
            else
                std::fill_n(target, std::size_t{scan.vertexCount} * 4, std::uint8_t{255});
        }
    }
    m_firstVertex.Resize(m_pointCount);
    std::fill(m_firstVertex.begin(), m_firstVertex.end(), kNone);
    m_mesh.triangles.Reserve(triangles * 3);
    m_nextVertex.Reserve(m_pointCount);
    m_vertexPoint.Reserve(m_pointCount);
    if (m_fileNormalCount > 0)
        m_vertexNormal.Reserve(m_pointCount);
}

void ObjAssembler::Add(const ObjPiece& piece)
{
    const ObjScan& scan = piece.Scan();
    const ObjCorner* corners = scan.corners;
    auto name = piece.Names().begin();
    const auto pieceOffset = static_cast<std::uint64_t>(scan.begin - m_text.data());
    for (std::uint32_t i = 0; i < scan.faceCount; ++i) {
        for (; name != piece.Names().end() && name->face <= i; ++name)
            applyName(*name);
        const ObjFace& face = scan.faces[i];
        if (face.kind == ObjElement::Face)
            addFace(scan, corners, face);
        else
            addThin(corners, face, pieceOffset + face.offset);
        corners += face.cornerCount;
    }
    for (; name != piece.Names().end(); ++name)
        applyName(*name);
    addCounts(scan);
    m_base.vertex += scan.vertexCount;
    m_base.normal += scan.normalCount;
}

void ObjAssembler::addFace(const ObjScan& scan, const ObjCorner* corners, const ObjFace& face)
{
    m_hasFaces = true;
    if (resolveFace(scan, corners, face))
        appendFace(face.cornerCount);
    else
        m_badIndices.Add(static_cast<std::uint64_t>(scan.begin - m_text.data()) + face.offset);
}

/// Adds a polyline or points unless one of the points is not there or not finite.
void ObjAssembler::addThin(const ObjCorner* corners, const ObjFace& element, std::uint64_t offset)
{
    m_facePoints.resize(element.cornerCount);
    for (std::uint32_t i = 0; i < element.cornerCount; ++i)
        if (!resolve(corners[i].vertex, m_base.vertex, m_pointCount, m_facePoints[i])) {
            m_badThin.Add(offset);
            return;
        }
    if (!areFinite())
        m_badThin.Add(offset);
    else if (element.kind == ObjElement::Line)
        m_thin.AddLine(m_facePoints, m_range);
    else
        m_thin.AddPoints(m_facePoints, m_range);
}

/// Whether all coordinates of m_facePoints are.
bool ObjAssembler::areFinite() const
{
    return !m_hasNonFinite ||
           std::all_of(m_facePoints.begin(), m_facePoints.end(), [this](std::uint32_t point) {
               return IsFinitePoint(m_points.Data() + std::size_t{point} * 3);
           });
}

/// Puts the corners of a face into m_facePoints and m_faceNormals. @return false when one of its
/// points does not exist; a face with a point that is not finite is noted and gets no corners.
bool ObjAssembler::resolveFace(const ObjScan& scan, const ObjCorner* corners, const ObjFace& face)
{
    m_facePoints.resize(face.cornerCount);
    m_faceNormals.resize(face.cornerCount);
    const auto offset = static_cast<std::uint64_t>(scan.begin - m_text.data()) + face.offset;
    bool lacksNormal = false;
    for (std::uint32_t i = 0; i < face.cornerCount; ++i) {
        if (!resolve(corners[i].vertex, m_base.vertex, m_pointCount, m_facePoints[i]))
            return false;
        m_faceNormals[i] = kNone;
        if (corners[i].normal != 0 &&
            !resolve(corners[i].normal, m_base.normal, m_fileNormalCount, m_faceNormals[i]))
            m_badNormals.Add(offset);
        lacksNormal = lacksNormal || m_faceNormals[i] == kNone;
    }
    if (!areFinite()) {
        m_nonFinite.Add(offset);
        m_facePoints.clear();
        return true;
    }
    if (face.cornerCount > Triangulator::kMaxEarCorners)
        m_fanned.Add(offset);
    if (lacksNormal && m_fileNormalCount > 0) {
        const std::uint32_t flat = addFlatNormal();
        std::replace(m_faceNormals.begin(), m_faceNormals.end(), kNone, flat);
    }
    return true;
}

void ObjAssembler::appendFace(std::size_t cornerCount)
{
    if (m_facePoints.empty())
        return;
    for (std::size_t i = 0; i < cornerCount; ++i)
        m_faceNormals[i] = vertexOf(m_facePoints[i], m_faceNormals[i]);
    const std::vector<std::uint32_t>& vertices = m_faceNormals;
    const std::size_t at = m_mesh.triangles.Size();
    if (cornerCount == 3) {
        if (at + 3 > m_mesh.triangles.Capacity())
            m_mesh.triangles.Reserve(at * 2 + 3);
        m_mesh.triangles.Resize(at + 3);
        std::copy_n(vertices.data(), 3, m_mesh.triangles.Data() + at);
        return;
    }
    if (cornerCount > Triangulator::kManyCorners)
        PollCancel(m_options);
    m_triangulator.Split(m_points.Data(), m_facePoints.data(), cornerCount, m_faceTriangles);
    for (const std::uint32_t corner : m_faceTriangles)
        m_mesh.triangles.PushBack(vertices[corner]);
}

/// @return the vertex for a point with a normal (or kNone), made when it is new.
std::uint32_t ObjAssembler::vertexOf(std::uint32_t point, std::uint32_t normal)
{
    std::uint32_t* link = &m_firstVertex[point];
    for (int i = 0; i < kMaxVerticesTried && *link != kNone; ++i) {
        if (m_fileNormalCount == 0 || m_vertexNormal[*link] == normal)
            return *link;
        link = &m_nextVertex[*link];
    }
    const auto vertex = static_cast<std::uint32_t>(m_vertexPoint.Size());
    if (vertex == kNone)
        throw std::length_error("too many vertices");
    const std::uint32_t later = *link;
    *link = vertex;
    m_vertexPoint.PushBack(point);
    m_nextVertex.PushBack(later);
    if (m_fileNormalCount > 0)
        m_vertexNormal.PushBack(normal);
    return vertex;
}

/// Makes a normal for the face in hand from its border.
std::uint32_t ObjAssembler::addFlatNormal()
{
    float normal[3] = {0.0f, 0.0f, 0.0f};
    const float* from = m_points.Data() + std::size_t{m_facePoints.back()} * 3;
    for (const std::uint32_t point : m_facePoints) {
        const float* to = m_points.Data() + std::size_t{point} * 3;
        normal[0] += (from[1] - to[1]) * (from[2] + to[2]);
        normal[1] += (from[2] - to[2]) * (from[0] + to[0]);
        normal[2] += (from[0] - to[0]) * (from[1] + to[1]);
        from = to;
    }
    const auto index = static_cast<std::uint32_t>(m_normals.Size() / 3);
    for (const float component : normal)
        m_normals.PushBack(component);
    return index;
}

void ObjAssembler::applyName(const ObjName& name)
{
    switch (name.kind) {
    case ObjName::Kind::Object:
        endRange();
        m_range.object = m_objectNames.IndexOf(name.name);
        break;
    case ObjName::Kind::Group:
        endRange();
        m_range.group = m_groupNames.IndexOf(name.name);
        break;
    case ObjName::Kind::Material:
        endRange();
        m_range.material = m_materialNames.IndexOf(name.name);
        break;
    case ObjName::Kind::Library:
        // One more than are read tells that there are more.
        if (m_libraries.size() <= kMaxLibraries &&
            std::find(m_libraries.begin(), m_libraries.end(), name.name) == m_libraries.end())
            m_libraries.push_back(name.name);
        break;
    }
}

void ObjAssembler::endRange()
{
    const auto now = static_cast<std::uint32_t>(m_mesh.TriangleCount());
    m_range.triangleCount = now - m_range.firstTriangle;
    if (m_range.triangleCount > 0) {
        MeshRange* last = m_mesh.ranges.empty() ? nullptr : &m_mesh.ranges.back();
        if (last && last->object == m_range.object && last->group == m_range.group &&
            last->material == m_range.material)
            last->triangleCount += m_range.triangleCount;
        else
            m_mesh.ranges.push_back(m_range);
    }
    m_range.firstTriangle = now;
}

void ObjAssembler::Finish(ReadMessages& messages)
{
    endRange();
    fillVertices();
    m_mesh.triangles.ShrinkToFit();
    std::transform(m_objectNames.names.begin(), m_objectNames.names.end(),
                   std::back_inserter(m_mesh.objects), toWide);
    std::transform(m_groupNames.names.begin(), m_groupNames.names.end(),
                   std::back_inserter(m_mesh.groups), toWide);
    for (const std::string& name : m_materialNames.names)
        m_mesh.materials.push_back({toWide(name), MeshColor{}, false});

    warn(messages, kObjJunk, m_junkLines);
    warn(messages, kBadNumber, m_badNumbers);
    warn(messages, kObjZeroIndex, m_zeroIndices);
    warn(messages, kBadIndex, m_badIndices);
    warn(messages, kObjBadNormal, m_badNormals);
    warn(messages, kShortFace, m_shortFaces);
    warn(messages, kNonFiniteFace, m_nonFinite);
    warn(messages, kFanned, m_fanned);
    warn(messages, kObjBadThin, m_badThin);
    warn(messages, kObjLeftOut, m_leftOut);
    if (HasFacesOrLines()) // Else all points become one cloud.
        m_mesh.thin = m_thin.Take();
}

bool ObjAssembler::MakeCloud(ReadMessages& messages)
{
    m_mesh.positions = std::move(m_points);
    m_mesh.colors = std::move(m_pointColors);
    if (m_fileNormalCount == m_pointCount && m_fileNormalCount > 0)
        m_mesh.normals = std::move(m_normals);
    NormalizeNormals(m_mesh);
    if (!FinishPoints(m_mesh, messages))
        return false;
    messages.Warn(kObjOnlyPoints);
    return true;
}

void ObjAssembler::fillVertices()
{
    const std::size_t count = m_vertexPoint.Size();
    m_mesh.positions.Resize(count * 3);
    for (std::size_t i = 0; i < count; ++i)
        std::memcpy(m_mesh.positions.Data() + i * 3,
                    m_points.Data() + std::size_t{m_vertexPoint[i]} * 3, 3 * sizeof(float));
    if (!m_pointColors.IsEmpty()) {
        m_mesh.colors.Resize(count * 4);
        for (std::size_t i = 0; i < count; ++i)
            std::memcpy(m_mesh.colors.Data() + i * 4,
                        m_pointColors.Data() + std::size_t{m_vertexPoint[i]} * 4, 4);
    }
    const bool usesNormals =
        std::any_of(m_vertexNormal.begin(), m_vertexNormal.end(),
                    [this](std::uint32_t normal) { return normal < m_fileNormalCount; });
    if (!usesNormals)
        return;
    m_mesh.normals.Resize(count * 3);
    for (std::size_t i = 0; i < count; ++i) {
        float* normal = m_mesh.normals.Data() + i * 3;
        std::memcpy(normal, m_normals.Data() + std::size_t{m_vertexNormal[i]} * 3,
                    3 * sizeof(float));
        NormalizeVector(normal);
    }
}

void ObjAssembler::addCounts(const ObjScan& scan)
{
    const auto add = [this](Occurrences& sum, const ScanOccurrences& part) {
        if (part.count == 0)
            return;
        const auto first = static_cast<std::uint64_t>(part.first - m_text.data());
        sum.first = sum.count == 0 ? first : std::min(sum.first, first);
        sum.count += part.count;
    };
    add(m_zeroIndices, scan.zeroIndices);
    add(m_shortFaces, scan.shortFaces);
    add(m_badNumbers, scan.badNumbers);
    add(m_junkLines, scan.junkLines);
    add(m_badThin, scan.badThin);
    add(m_leftOut, scan.leftOut);
    m_hasFaces = m_hasFaces || scan.zeroIndices.count > 0 || scan.shortFaces.count > 0;
}

void ObjAssembler::warn(ReadMessages& messages, const wchar_t* reason,
                        const Occurrences& occurrences) const
{
    if (occurrences.count == 0)
        return;
    messages.Warn(FillText(reason, {std::to_wstring(occurrences.count),
                                    std::to_wstring(Triangulator::kMaxEarCorners)}),
                  ReadPlace::Line(LineAt(m_text, occurrences.first)));
}

} // namespace OrvikMesh
