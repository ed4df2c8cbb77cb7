#include "readers/MeshFinish.h"

#include "readers/ReaderTexts.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstring>
#include <stdexcept>

namespace OrvikMesh {

namespace {

/// Squared lengths that differ from 1 by less are left as they are.
constexpr float kUnitTolerance = 1e-6f;
/// Copies of a vertex that are looked at for one with the colour wanted; a hostile file may have a
/// million faces of different colours around one point.
constexpr int kMaxCopiesTried = 64;

/// Rounding of coordinates shows from this share of a cloud's extent on.
constexpr double kVisibleShare = 1e-4;

/// Warns when single precision moves the points of a cloud visibly, as it does with coordinates of
/// maps.
void warnOfRounding(const MeshData& mesh, ReadMessages& messages)
{
    float least[3] = {INFINITY, INFINITY, INFINITY};
    float most[3] = {-INFINITY, -INFINITY, -INFINITY};
    for (std::size_t i = 0; i < mesh.positions.Size(); ++i) {
        least[i % 3] = std::min(least[i % 3], mesh.positions[i]);
        most[i % 3] = std::max(most[i % 3], mesh.positions[i]);
    }
    double extent = 0.0;
    float farthest = 0.0f;
    for (std::size_t k = 0; k < 3; ++k) {
        extent = std::max(extent, double{most[k]} - double{least[k]});
        farthest = std::max({farthest, std::fabs(least[k]), std::fabs(most[k])});
    }
    const float step = farthest - std::nextafter(farthest, 0.0f);
    if (extent == 0.0 || double{step} <= extent * kVisibleShare)
        return;
    char digits[64];
    const auto toText = [&digits](float value) {
        return std::wstring(digits, std::to_chars(digits, digits + sizeof digits, value).ptr);
    };
    messages.Warn(FillText(kRounded, {toText(farthest), toText(step)}));
}

/// Copies the vertices whose entry in @p newIndex is not kNone to that place, which is not behind
/// their own.
template <class T>
void moveValues(MeshArray<T>& values, std::size_t perVertex,
                const MeshArray<std::uint32_t>& newIndex, std::size_t count)
{
    if (values.IsEmpty())
        return;
    for (std::size_t i = 0; i < newIndex.Size(); ++i)
        if (newIndex[i] != kNone)
            std::memmove(values.Data() + newIndex[i] * perVertex, values.Data() + i * perVertex,
                         perVertex * sizeof(T));
    values.Resize(count * perVertex);
    values.ShrinkToFit();
}

void moveVertices(MeshData& mesh, const MeshArray<std::uint32_t>& newIndex, std::size_t count)
{
    moveValues(mesh.positions, 3, newIndex, count);
    moveValues(mesh.normals, 3, newIndex, count);
    moveValues(mesh.colors, 4, newIndex, count);
}

/// Appends a copy of a vertex with another colour. @return its index.
std::uint32_t copyVertex(MeshData& mesh, std::uint32_t vertex, const std::uint8_t* color)
{
    const std::size_t copy = mesh.VertexCount();
    if (copy >= kNone - 1)
        throw std::length_error("too many vertices");
    for (std::size_t k = 0; k < 3; ++k)
        mesh.positions.PushBack(mesh.positions[std::size_t{vertex} * 3 + k]);
    for (std::size_t k = 0; k < 3 && !mesh.normals.IsEmpty(); ++k)
        mesh.normals.PushBack(mesh.normals[std::size_t{vertex} * 3 + k]);
    for (std::size_t k = 0; k < 4; ++k)
        mesh.colors.PushBack(color[k]);
    return static_cast<std::uint32_t>(copy);
}

} // namespace

bool AreFinite(const MeshArray<float>& values)
{
    // A sum of zeros, which infinities and not-a-numbers spoil, needs no branch per value.
    float sum = 0.0f;
    for (const float value : values)
        sum += value * 0.0f;
    return sum == 0.0f;
}

void NormalizeVector(float* vector)
{
    const double length = std::sqrt(double{vector[0]} * vector[0] + double{vector[1]} * vector[1] +
                                    double{vector[2]} * vector[2]);
    const double scale = length > 0.0 && std::isfinite(length) ? 1.0 / length : 0.0;
    for (std::size_t i = 0; i < 3; ++i)
        vector[i] = scale == 0.0 ? 0.0f : static_cast<float>(vector[i] * scale);
}

void NormalizeNormals(MeshData& mesh)
{
    for (std::size_t i = 0; i + 2 < mesh.normals.Size(); i += 3) {
        float* normal = mesh.normals.Data() + i;
        const float squared = normal[0] * normal[0] + normal[1] * normal[1] + normal[2] * normal[2];
        // Also true for not-a-number.
        if (!(std::fabs(squared - 1.0f) < kUnitTolerance))
            NormalizeVector(normal);
    }
}

void KeepUsedVertices(MeshData& mesh)
{
    MeshArray<std::uint32_t> newIndex;
    newIndex.Resize(mesh.VertexCount());
    std::fill(newIndex.begin(), newIndex.end(), kNone);
    for (const std::uint32_t vertex : mesh.triangles)
        newIndex[vertex] = 0;
    std::uint32_t count = 0;
    for (std::uint32_t& index : newIndex)
        if (index != kNone)
            index = count++;
    if (count == mesh.VertexCount())
        return;
    for (std::uint32_t& vertex : mesh.triangles)
        vertex = newIndex[vertex];
    moveVertices(mesh, newIndex, count);
}

LeftOutPoints KeepFinitePoints(MeshData& mesh)
{
    if (AreFinite(mesh.positions))
        return {};
    MeshArray<std::uint32_t> newIndex;
    newIndex.Resize(mesh.VertexCount());
    std::uint32_t count = 0;
    for (std::size_t i = 0; i < newIndex.Size(); ++i)
        newIndex[i] = IsFinitePoint(mesh.positions.Data() + i * 3) ? count++ : kNone;
    moveVertices(mesh, newIndex, count);
    const auto* first = std::find(newIndex.begin(), newIndex.end(), kNone);
    return {newIndex.Size() - count, static_cast<std::size_t>(first - newIndex.begin())};
}

bool FinishPoints(MeshData& mesh, ReadMessages& messages)
{
    mesh.isPointCloud = true;
    const LeftOutPoints leftOut = KeepFinitePoints(mesh);
    if (leftOut.count > 0)
        messages.Warn(FillText(
            kNonFinitePoint, {std::to_wstring(leftOut.count), std::to_wstring(leftOut.first + 1)}));
    if (mesh.VertexCount() == 0)
        messages.Fail(kNoPoint);
    else
        warnOfRounding(mesh, messages);
    return mesh.VertexCount() > 0;
}

void TakeColors(MeshData& mesh, const MeshArray<float>& components)
{
    float greatest = 0.0f;
    for (std::size_t i = 0; i < components.Size(); ++i)
        if (i % 4 != 3 && components[i] > greatest)
            greatest = components[i];
    const float full = greatest > 1.0f ? 255.0f : 1.0f;
    mesh.colors.Resize(components.Size());
    for (std::size_t i = 0; i < components.Size(); ++i)
        mesh.colors[i] =
            std::isnan(components[i]) ? std::uint8_t{255} : ToColorByte(components[i], full);
}

void ColorFaces(MeshData& mesh, const MeshArray<std::uint8_t>& colors)
{
    // The copies of a point form a list behind the point's own vertex, the newest first.
    const std::size_t pointCount = mesh.VertexCount();
    mesh.colors.Resize(pointCount * 4);
    MeshArray<std::uint32_t> next;
    next.Resize(pointCount);
    std::fill(next.begin(), next.end(), kNone);
    MeshArray<std::uint8_t> isTaken;
    isTaken.Resize(pointCount);
    std::fill(isTaken.begin(), isTaken.end(), std::uint8_t{0});

    const auto find = [&](std::uint32_t vertex, const std::uint8_t* color) {
        for (int i = 0; i < kMaxCopiesTried && vertex != kNone; ++i, vertex = next[vertex])
            if (std::memcmp(mesh.colors.Data() + std::size_t{vertex} * 4, color, 4) == 0)
                return vertex;
        return kNone;
    };
    for (std::size_t corner = 0; corner < mesh.triangles.Size(); ++corner) {
        const std::uint8_t* color = colors.Data() + corner / 3 * 4;
        const std::uint32_t point = mesh.triangles[corner];
        if (isTaken[point] == 0) {
            isTaken[point] = 1;
            std::memcpy(mesh.colors.Data() + std::size_t{point} * 4, color, 4);
            continue;
        }
        std::uint32_t vertex = find(point, color);
        if (vertex == kNone) {
            vertex = copyVertex(mesh, point, color);
            next.PushBack(next[point]);
            next[point] = vertex;
        }
        mesh.triangles[corner] = vertex;
    }
}

} // namespace OrvikMesh
