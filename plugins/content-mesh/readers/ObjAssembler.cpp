#include "readers/ObjAssembler.h"

#include "readers/MeshFinish.h"
#include "readers/ObjMaterials.h"
#include "readers/ReaderTexts.h"

#include <OrvikOs/Utf8.h>

#include <algorithm>
#include <iterator>

namespace OrvikMesh {

namespace {

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
    m_vertices.Take(pieces);
    std::uint64_t triangles = 0;
    for (const ObjPiece& piece : pieces) {
        const ObjScan& scan = piece.Scan();
        triangles += scan.cornerCount - std::min(scan.cornerCount, scan.faceCount * 2);
    }
    m_mesh.triangles.Reserve(triangles * 3);
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
        if (!resolve(corners[i].vertex, m_base.vertex, m_vertices.PointCount(), m_facePoints[i])) {
            m_badThin.Add(offset);
            return;
        }
    if (!m_vertices.AreFinite(m_facePoints))
        m_badThin.Add(offset);
    else if (element.kind == ObjElement::Line)
        m_thin.AddLine(m_facePoints, m_range);
    else
        m_thin.AddPoints(m_facePoints, m_range);
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
        if (!resolve(corners[i].vertex, m_base.vertex, m_vertices.PointCount(), m_facePoints[i]))
            return false;
        m_faceNormals[i] = kNone;
        if (corners[i].normal != 0 &&
            !resolve(corners[i].normal, m_base.normal, m_vertices.NormalCount(), m_faceNormals[i]))
            m_badNormals.Add(offset);
        lacksNormal = lacksNormal || m_faceNormals[i] == kNone;
    }
    if (!m_vertices.AreFinite(m_facePoints)) {
        m_nonFinite.Add(offset);
        m_facePoints.clear();
        return true;
    }
    if (face.cornerCount > Triangulator::kMaxEarCorners)
        m_fanned.Add(offset);
    if (lacksNormal && m_vertices.NormalCount() > 0) {
        const std::uint32_t flat = m_vertices.AddFlatNormal(m_facePoints);
        std::replace(m_faceNormals.begin(), m_faceNormals.end(), kNone, flat);
    }
    return true;
}

void ObjAssembler::appendFace(std::size_t cornerCount)
{
    if (m_facePoints.empty())
        return;
    for (std::size_t i = 0; i < cornerCount; ++i)
        m_faceNormals[i] = m_vertices.VertexOf(m_facePoints[i], m_faceNormals[i]);
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
    m_triangulator.Split(m_vertices.Points().Data(), m_facePoints.data(), cornerCount,
                         m_faceTriangles);
    for (const std::uint32_t corner : m_faceTriangles)
        m_mesh.triangles.PushBack(vertices[corner]);
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
    m_vertices.Fill(m_mesh);
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
    m_vertices.MakeCloud(m_mesh);
    if (!FinishPoints(m_mesh, messages))
        return false;
    messages.Warn(kObjOnlyPoints);
    return true;
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
