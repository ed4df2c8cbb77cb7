#include "content/ClosedShells.h"

#include <OrvikOs/ParallelFor.h>

#include <algorithm>
#include <atomic>
#include <numeric>
#include <vector>

namespace OrvikMesh {
namespace {

constexpr std::size_t kTrianglesPerPiece = 1 << 16;

/// A number for a side, the opposite of that of the side run along backwards; 0 for no side.
std::uint64_t sideHash(std::uint32_t from, std::uint32_t to)
{
    if (from == to)
        return 0;
    std::uint64_t hash = (std::uint64_t{std::min(from, to)} << 32) | std::max(from, to);
    hash = (hash ^ (hash >> 31)) * 0x9E3779B97F4A7C15u;
    hash = (hash ^ (hash >> 29)) * 0xBF58476D1CE4E5B9u;
    hash ^= hash >> 32;
    return from < to ? hash : ~hash + 1;
}

/// Whether sides cancel each other out: their numbers then add up to 0, and by chance they do so
/// once in 2^64.
bool isClosed(const std::uint32_t* triangles, std::size_t triangleCount, std::size_t vertexCount)
{
    std::atomic<std::uint64_t> total = 0;
    std::atomic<bool> isGood = true;
    OrvikOs::ParallelFor(
        triangleCount, kTrianglesPerPiece, [&](std::size_t begin, std::size_t end) {
            std::uint64_t sum = 0;
            std::uint32_t largest = 0;
            for (const std::uint32_t* t = triangles + begin * 3; t != triangles + end * 3; t += 3) {
                sum += sideHash(t[0], t[1]) + sideHash(t[1], t[2]) + sideHash(t[2], t[0]);
                largest = std::max({largest, t[0], t[1], t[2]});
            }
            total.fetch_add(sum, std::memory_order_relaxed);
            if (largest >= vertexCount)
                isGood.store(false, std::memory_order_relaxed);
        });
    return isGood.load() && total.load() == 0;
}

/// Vertices that hang together by triangles.
class Shells
{
public:
    explicit Shells(std::size_t vertexCount) : m_parent(vertexCount)
    {
        std::iota(m_parent.begin(), m_parent.end(), 0u);
    }

    void Unite(std::uint32_t a, std::uint32_t b)
    {
        a = Root(a);
        b = Root(b);
        // The lower number leads, so a mesh in the order of its shells has short ways.
        if (a != b)
            m_parent[std::max(a, b)] = std::min(a, b);
    }

    std::uint32_t Root(std::uint32_t vertex)
    {
        while (m_parent[vertex] != vertex) {
            m_parent[vertex] = m_parent[m_parent[vertex]];
            vertex = m_parent[vertex];
        }
        return vertex;
    }

private:
    std::vector<std::uint32_t> m_parent;
};

/// Six times the signed volume between a triangle and a point.
double volume(const float* origin, const float* a, const float* b, const float* c)
{
    double p[3];
    double q[3];
    double r[3];
    for (int i = 0; i < 3; ++i) {
        p[i] = double{a[i]} - origin[i];
        q[i] = double{b[i]} - origin[i];
        r[i] = double{c[i]} - origin[i];
    }
    return p[0] * (q[1] * r[2] - q[2] * r[1]) + p[1] * (q[2] * r[0] - q[0] * r[2]) +
           p[2] * (q[0] * r[1] - q[1] * r[0]);
}

/// Whether the volume of every shell is above 0.
bool isOutsideOut(const float* positions, std::size_t vertexCount, const std::uint32_t* triangles,
                  std::size_t triangleCount)
{
    const auto place = [&](std::uint32_t vertex) { return positions + std::size_t{vertex} * 3; };
    const std::uint32_t* const end = triangles + triangleCount * 3;
    Shells shells(vertexCount);
    for (const std::uint32_t* t = triangles; t != end; t += 3) {
        shells.Unite(t[0], t[1]);
        shells.Unite(t[1], t[2]);
    }
    std::vector<double> volumes(vertexCount, 0.0);
    std::vector<bool> isUsed(vertexCount, false);
    std::vector<std::uint32_t> roots;
    for (const std::uint32_t* t = triangles; t != end; t += 3) {
        const std::uint32_t root = shells.Root(t[0]);
        volumes[root] += volume(place(root), place(t[0]), place(t[1]), place(t[2]));
        if (!isUsed[root]) {
            isUsed[root] = true;
            roots.push_back(root);
        }
    }
    return std::all_of(roots.begin(), roots.end(),
                       [&](std::uint32_t root) { return volumes[root] > 0.0; });
}

} // namespace

bool AreClosedShells(const float* positions, std::size_t vertexCount,
                     const std::uint32_t* triangles, std::size_t triangleCount)
{
    return triangleCount > 0 && isClosed(triangles, triangleCount, vertexCount) &&
           isOutsideOut(positions, vertexCount, triangles, triangleCount);
}

} // namespace OrvikMesh
