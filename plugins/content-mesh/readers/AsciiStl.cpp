#include "readers/AsciiStl.h"

#include "readers/AsciiStlKernel.h"
#include "readers/ReaderTexts.h"
#include "readers/VertexWelder.h"

#include <OrvikOs/Utf8.h>

#include <algorithm>
#include <cstdint>

namespace OrvikMesh {

namespace {

/// Triangles that are scanned between two welds: 144 KiB, which stays in the cache.
constexpr std::size_t kBlockTriangles = 4096;
constexpr std::size_t kTriangleBytes = 9 * sizeof(float);
/// Fewest bytes that a facet of a text takes, for the guess of how much memory will be needed.
constexpr std::size_t kUsualFacetBytes = 160;
/// The smallest text that counts as a name's place in the list of objects.
constexpr std::size_t kMaxNameBytes = 1024;

/// Collects the triangles of a text and keeps track of its solids.
class AsciiStlCollector
{
public:
    AsciiStlCollector(std::size_t textBytes, MeshData& mesh)
        : m_mesh(mesh), m_welder(textBytes / kUsualFacetBytes / 2)
    {
        m_mesh.triangles.Reserve(textBytes / kUsualFacetBytes * 3);
    }

    void AddBlock(const float* triangles, std::size_t count)
    {
        const auto* records = reinterpret_cast<const std::byte*>(triangles);
        m_welder.AddTriangles(records, kTriangleBytes, count, m_mesh.triangles);
        if (m_firstDropped == 0 && m_welder.DroppedCount() > 0)
            m_firstDropped = m_added + FindNonFiniteTriangle(records, kTriangleBytes, count) + 1;
        m_added += count;
    }

    void BeginSolid(std::string_view name)
    {
        endRange();
        while (!name.empty() && (name.back() == ' ' || name.back() == '\t'))
            name.remove_suffix(1);
        m_object = static_cast<std::uint32_t>(m_mesh.objects.size());
        m_mesh.objects.push_back(OrvikOs::Utf8ToWide(name.substr(0, kMaxNameBytes)));
    }

    void Finish(ReadMessages& messages)
    {
        endRange();
        if (m_firstDropped > 0)
            messages.Warn(FillText(kNonFiniteDropped, {std::to_wstring(m_welder.DroppedCount()),
                                                       std::to_wstring(m_firstDropped)}));
        m_mesh.triangles.ShrinkToFit();
        m_mesh.positions = m_welder.TakePositions();
    }

private:
    void endRange()
    {
        const auto now = static_cast<std::uint32_t>(m_mesh.TriangleCount());
        if (now > m_rangeBegin)
            m_mesh.ranges.push_back({m_rangeBegin, now - m_rangeBegin, m_object, kNone, kNone});
        m_rangeBegin = now;
    }

    MeshData& m_mesh;
    VertexWelder m_welder;
    std::uint32_t m_object = kNone;
    std::uint32_t m_rangeBegin = 0;
    std::size_t m_added = 0;        ///< Triangles, with those that were dropped.
    std::size_t m_firstDropped = 0; ///< Counted from 1; 0 while there is none.
};

void warnCounted(ReadMessages& messages, std::string_view text, const wchar_t* reason,
                 const ScanOccurrences& occurrences)
{
    if (occurrences.count == 0)
        return;
    const auto offset = static_cast<std::uint64_t>(occurrences.first - text.data());
    messages.Warn(FillText(reason, {std::to_wstring(occurrences.count)}),
                  ReadPlace::Line(LineAt(text, offset)));
}

} // namespace

bool ReadAsciiStl(std::string_view text, const ReadOptions& options, MeshData& mesh,
                  ReadMessages& messages)
{
    AsciiStlCollector collector(text.size(), mesh);
    MeshArray<float> block;
    block.Resize((kBlockTriangles + kMaxFacetTriangles) * 9);
    AsciiStlScan scan;
    scan.at = text.data();
    scan.end = text.data() + text.size();
    scan.triangles = block.Data();
    scan.room = kBlockTriangles + kMaxFacetTriangles;
    AsciiStlStop stop = AsciiStlStop::Full;
    while (stop != AsciiStlStop::End) {
        stop = ScanAsciiStl(scan);
        collector.AddBlock(block.Data(), scan.count);
        scan.count = 0;
        if (stop == AsciiStlStop::Solid)
            collector.BeginSolid(
                {scan.nameBegin, static_cast<std::size_t>(scan.nameEnd - scan.nameBegin)});
        PollCancel(options);
        ReportProgress(options, static_cast<double>(scan.at - text.data()) /
                                    static_cast<double>(text.size()));
    }

    warnCounted(messages, text, kStlJunk, scan.junkLines);
    warnCounted(messages, text, kStlBadFacet, scan.badFacets);
    warnCounted(messages, text, kStlPolygon, scan.polygons);
    collector.Finish(messages);
    if (mesh.TriangleCount() == 0) {
        messages.Fail(kNoTriangle);
        return false;
    }
    if (scan.solidsEnded < scan.solidsBegun)
        messages.Warn(kStlNoEnd, ReadPlace::Line(LineAt(text, text.size())));
    return true;
}

} // namespace OrvikMesh
