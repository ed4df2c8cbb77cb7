#include "DetailLevels.h"

#include <TambVizCore/Geometry.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <span>
#include <utility>

namespace ViewOpenGl {
namespace {

using TambVizCore::Geometry;

/// Cells along the longest side of the box.
constexpr std::array<double, 6> kCells = {320.0, 128.0, 64.0, 32.0, 16.0, 8.0};

/// A level is kept when it has at most this share of the primitives of the one before.
constexpr double kKeptShare = 0.6;

constexpr std::uint32_t kNoCell = 0xFFFFFFFFu;

/// A surface passes through at most about so many of the cells, as a share of those on one side of
/// the box.
constexpr double kSurfaceShare = 6.0;

/// Between two looks at the clock.
constexpr std::size_t kStretch = 4096;

constexpr std::array<std::size_t, 3> kCorners = {3, 2, 1};

/// The indices of a kind: of the geometry, or of the level before.
std::span<const std::uint32_t> indicesOf(const Geometry& geometry, const DetailLevel* before,
                                         std::size_t kind)
{
    if (before != nullptr)
        return before->primitives[kind].indices;
    const auto& own = kind == 0   ? geometry.Triangles()
                      : kind == 1 ? geometry.Segments()
                                  : geometry.Points();
    return {own.Data(), own.Size()};
}

/// Spreads numbers over a table (Knuth's multiplicative hash).
std::size_t hashOf(std::size_t number)
{
    return static_cast<std::size_t>((number * 2654435761ull) >> 8);
}

/// @return the slots of a hash table that is half full with so many entries. It has its size from
/// the start, because entering all anew in a larger one would be a long piece of work.
std::size_t tableFor(std::size_t entries)
{
    return std::bit_ceil(std::max<std::size_t>(2 * entries, 64));
}

/// Triangles that are turned, not mirrored, are equal then, and segments either way.
std::array<std::uint32_t, 3> smallestFirst(const std::uint32_t* corners, std::size_t kind)
{
    const std::size_t count = kCorners[kind];
    const std::size_t first =
        static_cast<std::size_t>(std::min_element(corners, corners + count) - corners);
    return {corners[first], corners[(first + 1) % count], corners[(first + 2) % count]};
}

} // namespace

bool DetailBuilder::Continue(const Geometry& geometry, const TimeSlice& slice)
{
    while (m_step != Step::Done) {
        if (m_step == Step::Begin)
            beginGrid(geometry);
        if (m_step == Step::Gather && !gatherVertices(geometry, slice))
            return false;
        if (m_step == Step::Map && !mapPrimitives(geometry, slice))
            return false;
        if (!endGrid(geometry) && slice.IsOver())
            return false;
    }
    return true;
}

void DetailBuilder::beginGrid(const Geometry& geometry)
{
    const TambVizCore::VizBox& box = geometry.BoundingBox();
    double longest = 0.0;
    for (int i = 0; i < 3; ++i) {
        m_lo[i] = box.Lo()[i];
        longest = std::max(longest, box.Hi()[i] - box.Lo()[i]);
    }
    m_level = DetailLevel();
    m_level.cell = longest / kCells[m_grid];
    m_clusters.clear();
    const auto cells = static_cast<std::size_t>(kSurfaceShare * kCells[m_grid] * kCells[m_grid]);
    const std::size_t slots = tableFor(std::min<std::size_t>(geometry.VertexCount(), cells));
    m_keys.assign(slots, kNoCell);
    m_values.assign(slots, 0);
    m_clusterOf.resize(geometry.VertexCount());
    m_next = 0;
    m_kind = 0;
    m_step = longest > 0.0 && std::isfinite(longest) ? Step::Gather : Step::Done;
}

/// Of a level that others build on only the vertices that it has kept.
bool DetailBuilder::gatherVertices(const Geometry& geometry, const TimeSlice& slice)
{
    const std::size_t count = m_levels.empty() ? geometry.VertexCount() : m_kept.size();
    while (m_next < count) {
        const std::size_t end = std::min(count, m_next + kStretch);
        for (; m_next < end; ++m_next)
            addVertex(geometry,
                      m_levels.empty() ? static_cast<std::uint32_t>(m_next) : m_kept[m_next]);
        if (slice.IsOver())
            return false;
    }
    m_next = 0;
    m_step = Step::Map;
    beginKind(geometry);
    return true;
}

/// Empties the table of the primitives of a kind.
void DetailBuilder::beginKind(const Geometry& geometry)
{
    const auto indices = indicesOf(geometry, m_levels.empty() ? nullptr : &m_levels.back(), m_kind);
    // A closed surface has two triangles a vertex.
    m_table.assign(
        tableFor(std::min<std::size_t>(indices.size() / kCorners[m_kind], 3 * m_clusters.size())),
        0);
}

void DetailBuilder::addVertex(const Geometry& geometry, std::uint32_t vertex)
{
    const float* const position = geometry.Positions().Data() + std::size_t{3} * vertex;
    std::uint32_t cell = 0;
    double distance = 0.0;
    for (int i = 0; i < 3; ++i) {
        const double place = (static_cast<double>(position[i]) - m_lo[i]) / m_level.cell;
        const double whole = std::floor(place);
        cell = cell * 1024u + static_cast<std::uint32_t>(std::clamp(whole, 0.0, 1023.0));
        distance += (place - whole - 0.5) * (place - whole - 0.5);
    }
    const std::uint32_t found = findCluster(cell);
    m_clusterOf[vertex] = found;
    if (found == m_clusters.size()) {
        m_clusters.push_back({vertex, static_cast<float>(distance)});
        return;
    }
    Cluster& cluster = m_clusters[found];
    if (static_cast<float>(distance) < cluster.distance)
        cluster = {vertex, static_cast<float>(distance)};
}

/// @return the cluster of a cell; the number of clusters for one that is entered now.
std::uint32_t DetailBuilder::findCluster(std::uint32_t cell)
{
    if (2 * m_clusters.size() >= m_keys.size())
        growTable();
    const std::size_t mask = m_keys.size() - 1;
    std::size_t slot = hashOf(cell) & mask;
    while (m_keys[slot] != kNoCell && m_keys[slot] != cell)
        slot = (slot + 1) & mask;
    if (m_keys[slot] == kNoCell) {
        m_keys[slot] = cell;
        m_values[slot] = static_cast<std::uint32_t>(m_clusters.size());
    }
    return m_values[slot];
}

void DetailBuilder::growTable()
{
    const std::size_t size = 2 * m_keys.size();
    const auto oldKeys = std::exchange(m_keys, std::vector<std::uint32_t>(size, kNoCell));
    const auto oldValues = std::exchange(m_values, std::vector<std::uint32_t>(size));
    const std::size_t mask = m_keys.size() - 1;
    for (std::size_t old = 0; old < oldKeys.size(); ++old) {
        if (oldKeys[old] == kNoCell)
            continue;
        std::size_t slot = hashOf(oldKeys[old]) & mask;
        while (m_keys[slot] != kNoCell)
            slot = (slot + 1) & mask;
        m_keys[slot] = oldKeys[old];
        m_values[slot] = oldValues[old];
    }
}

bool DetailBuilder::mapPrimitives(const Geometry& geometry, const TimeSlice& slice)
{
    const DetailLevel* const before = m_levels.empty() ? nullptr : &m_levels.back();
    while (true) {
        const std::size_t corners = kCorners[m_kind];
        const auto indices = indicesOf(geometry, before, m_kind);
        const std::size_t count = indices.size() / corners;
        while (m_next < count) {
            const std::size_t end = std::min(count, m_next + kStretch);
            for (; m_next < end; ++m_next) {
                const std::uint32_t source = before != nullptr
                                                 ? before->primitives[m_kind].sources[m_next]
                                                 : static_cast<std::uint32_t>(m_next);
                mapPrimitive(indices.data() + corners * m_next, m_kind, source);
            }
            if (slice.IsOver())
                return false;
        }
        if (m_kind + 1 == kCorners.size())
            return true;
        ++m_kind;
        m_next = 0;
        beginKind(geometry);
    }
}

void DetailBuilder::mapPrimitive(const std::uint32_t* corners, std::size_t kind,
                                 std::uint32_t source)
{
    std::uint32_t mapped[3] = {};
    for (std::size_t i = 0; i < kCorners[kind]; ++i)
        mapped[i] = m_clusters[m_clusterOf[corners[i]]].vertex;
    const bool isFlat = (kind < 2 && mapped[0] == mapped[1]) ||
                        (kind == 0 && (mapped[1] == mapped[2] || mapped[2] == mapped[0]));
    if (isFlat || isKnown(kind, mapped))
        return;
    DetailPrimitives& out = m_level.primitives[kind];
    out.indices.insert(out.indices.end(), mapped, mapped + kCorners[kind]);
    out.sources.push_back(source);
}

/// Enters a primitive, its smallest corner first.
/// @return whether the level has one already that looks the same.
bool DetailBuilder::isKnown(std::size_t kind, const std::uint32_t* corners)
{
    const std::size_t count = m_level.primitives[kind].sources.size();
    // Those beyond are drawn twice rather than waited for: a larger table means to enter all anew.
    if (4 * count >= 3 * m_table.size())
        return false;
    std::uint32_t& found = m_table[findPrimitive(kind, corners)];
    if (found != 0)
        return true;
    found = static_cast<std::uint32_t>(count + 1);
    return false;
}

/// @return the slot of a primitive, or the free one where it belongs.
std::size_t DetailBuilder::findPrimitive(std::size_t kind, const std::uint32_t* corners) const
{
    const std::array<std::uint32_t, 3> wanted = smallestFirst(corners, kind);
    const std::vector<std::uint32_t>& indices = m_level.primitives[kind].indices;
    const std::size_t mask = m_table.size() - 1;
    std::size_t slot = hashOf(wanted[0] * 31 + hashOf(wanted[1] * 31 + hashOf(wanted[2]))) & mask;
    while (m_table[slot] != 0 &&
           smallestFirst(indices.data() + kCorners[kind] * (m_table[slot] - 1), kind) != wanted)
        slot = (slot + 1) & mask;
    return slot;
}

/// @return true when there is no coarser grid.
bool DetailBuilder::endGrid(const Geometry& geometry)
{
    if (m_step == Step::Map) {
        std::size_t count = 0;
        for (const DetailPrimitives& primitives : m_level.primitives)
            count += primitives.sources.size();
        if (static_cast<double>(count) <=
            kKeptShare * static_cast<double>(primitiveCount(geometry))) {
            m_levels.push_back(std::move(m_level));
            m_kept.clear();
            m_kept.reserve(m_clusters.size());
            for (const Cluster& cluster : m_clusters)
                m_kept.push_back(cluster.vertex);
        }
        m_step = Step::Begin;
    }
    if (m_step == Step::Begin && ++m_grid < kCells.size())
        return false;
    m_step = Step::Done;
    m_clusters = {};
    m_clusterOf = {};
    m_keys = {};
    m_values = {};
    m_table = {};
    m_kept = {};
    return true;
}

/// @return of the level before, or of the geometry.
std::size_t DetailBuilder::primitiveCount(const Geometry& geometry) const
{
    std::size_t count = 0;
    for (std::size_t kind = 0; kind < kCorners.size(); ++kind)
        count += indicesOf(geometry, m_levels.empty() ? nullptr : &m_levels.back(), kind).size() /
                 kCorners[kind];
    return count;
}

} // namespace ViewOpenGl
