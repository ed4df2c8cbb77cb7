#include "gltf/GltfPrimitive.h"

#include "gltf/GltfPrimitiveSource.h"
#include "gltf/GltfTexts.h"
#include "gltf/VertexUse.h"
#include "readers/MeshFinish.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace OrvikMesh {

namespace {

/// Bytes of the arrays of one vertex: position, normal, colour, and what finding it takes.
constexpr std::uint64_t kVertexBytes = 12 + 12 + 4 + 5;

class PrimitiveReader
{
public:
    PrimitiveReader(GltfFile& file, const JsonValue& primitive, ShapeArrays& shape,
                    PrimitiveNotes& notes)
        : m_file(file), m_primitive(primitive), m_shape(shape), m_notes(notes)
    {
    }

    bool Run(const GltfMaterial& material);

private:
    bool takeBudget();
    void settleBudget();
    bool readCorners();
    void dropMissingVertices();
    void readPositions();
    void dropNonFinite();
    void pickVertices(const MeshArray<std::uint32_t>& kept);
    void readAttribute(const GltfAccessor& accessor, MeshArray<float>& numbers);
    void readNormals();
    void readColors(const GltfMaterial& material);
    void sayNothingIsLeft();

    std::size_t vertexCount() const { return m_source.VertexCount(); }

    GltfFile& m_file;
    const JsonValue& m_primitive;
    ShapeArrays& m_shape;
    PrimitiveNotes& m_notes;
    PrimitiveSource m_source;
    MeshArray<std::uint32_t> m_corners;
    bool m_usesAll = false;          ///< Every vertex of the accessor is used.
    MeshArray<std::uint32_t> m_used; ///< Else the numbers of those that are.
    std::uint64_t m_taken = 0;       ///< Of the file's budget.
};

/// Asks for the memory of the arrays before any is had.
bool PrimitiveReader::takeBudget()
{
    const std::uint64_t indices = m_source.indices ? m_source.indices->values.count : vertexCount();
    const std::uint64_t corners = indices * GrowthOf(m_source.mode);
    const std::uint64_t cornerBytes =
        sizeof(std::uint32_t) * (GrowthOf(m_source.mode) == 1 ? corners : corners + indices);
    // A sparse accessor is read as a whole, and one without bytes is limited by nothing else.
    const bool countsWhole =
        m_source.positions.sparseIndices.count > 0 || !m_source.positions.values.first;
    const std::uint64_t vertices =
        countsWhole ? vertexCount() : std::min<std::uint64_t>(vertexCount(), corners * 16);
    m_taken = cornerBytes + vertices * kVertexBytes;
    if (m_file.Budget().Take(m_taken))
        return true;
    m_notes.reason = kGltfTooMuch;
    return false;
}

/// Gives back what was asked for and is not held.
void PrimitiveReader::settleBudget()
{
    const MeshData& mesh = m_shape.mesh;
    const std::uint64_t held =
        sizeof(float) * (mesh.positions.Size() + mesh.normals.Size()) + mesh.colors.Size() +
        sizeof(std::uint32_t) *
            (mesh.triangles.Size() + m_shape.segments.Size() + m_shape.points.Size());
    m_file.Budget().GiveBack(m_taken - std::min(held, m_taken));
}

bool PrimitiveReader::readCorners()
{
    MeshArray<std::uint32_t> run;
    if (m_source.indices) {
        if (!ReadWholeNumbers(m_file, *m_source.indices, run, m_notes.reason))
            return false;
    } else {
        run.Resize(vertexCount());
        std::iota(run.begin(), run.end(), 0u);
    }
    if (GrowthOf(m_source.mode) == 1 && run.Size() % ArityOf(m_source.mode) != 0)
        m_notes.warnings.push_back(
            FillText(kGltfRemainder, {std::to_wstring(ArityOf(m_source.mode))}));
    m_corners = Unfold(m_source.mode, std::move(run));
    return true;
}

void PrimitiveReader::dropMissingVertices()
{
    const std::size_t count = vertexCount();
    std::uint32_t highest = 0;
    for (const std::uint32_t corner : m_corners)
        highest = std::max(highest, corner);
    if (highest < count)
        return;
    const auto isMissing = [count](std::uint32_t corner) { return corner >= count; };
    const std::uint32_t first = *std::find_if(m_corners.begin(), m_corners.end(), isMissing);
    const std::size_t leftOut =
        KeepGoodPieces(m_corners, ArityOf(m_source.mode),
                       [&](std::uint32_t corner) { return !isMissing(corner); });
    m_notes.warnings.push_back(
        FillText(kGltfIndexOutside, {std::to_wstring(first), std::to_wstring(count),
                                     WordFor(m_source.mode), std::to_wstring(leftOut)}));
}

void PrimitiveReader::readPositions()
{
    m_usesAll = ListUsedVertices(m_corners, vertexCount(), m_used);
    readAttribute(m_source.positions, m_shape.mesh.positions);
}

void PrimitiveReader::dropNonFinite()
{
    const MeshArray<float>& positions = m_shape.mesh.positions;
    const std::size_t count = positions.Size() / 3;
    const auto isGood = [&](std::uint32_t vertex) {
        return IsFinitePoint(positions.Data() + std::size_t{vertex} * 3);
    };
    std::uint32_t good = 0;
    while (good < count && isGood(good))
        ++good;
    if (good == count)
        return;
    const std::size_t leftOut = KeepGoodPieces(m_corners, ArityOf(m_source.mode), isGood);
    m_notes.warnings.push_back(
        FillText(kGltfNonFinite, {WordFor(m_source.mode), std::to_wstring(leftOut)}));
    MeshArray<std::uint32_t> kept;
    if (!ListUsedVertices(m_corners, count, kept))
        pickVertices(kept);
}

/// Goes on with some of the vertices that have been read.
void PrimitiveReader::pickVertices(const MeshArray<std::uint32_t>& kept)
{
    MeshArray<float>& positions = m_shape.mesh.positions;
    MeshArray<std::uint32_t> used;
    used.Resize(kept.Size());
    for (std::size_t i = 0; i < kept.Size(); ++i) {
        // In ascending order: nothing is overwritten that is still to be read.
        std::copy_n(positions.Data() + std::size_t{kept[i]} * 3, 3, positions.Data() + i * 3);
        used[i] = m_usesAll ? kept[i] : m_used[kept[i]];
    }
    positions.Resize(kept.Size() * 3);
    m_used = std::move(used);
    m_usesAll = false;
}

void PrimitiveReader::readAttribute(const GltfAccessor& accessor, MeshArray<float>& numbers)
{
    if (m_usesAll)
        ReadElements(m_file, accessor, numbers);
    else
        ReadElements(m_file, accessor, m_used, numbers);
}

void PrimitiveReader::readNormals()
{
    GltfAccessor accessor;
    if (ArityOf(m_source.mode) != 3 ||
        !FindAttribute(m_file, m_primitive, "NORMAL", vertexCount(), accessor, m_notes))
        return;
    if (accessor.components != 3) {
        m_notes.warnings.push_back(
            FillText(kGltfAttribute,
                     {L"NORMAL", FillText(kGltfBadComponents, {std::to_wstring(accessor.index),
                                                               std::to_wstring(accessor.components),
                                                               L"NORMAL", L"3"})}));
        return;
    }
    readAttribute(accessor, m_shape.mesh.normals);
    NormalizeNormals(m_shape.mesh);
}

void PrimitiveReader::readColors(const GltfMaterial& material)
{
    GltfAccessor accessor;
    if (!FindAttribute(m_file, m_primitive, "COLOR_0", vertexCount(), accessor, m_notes))
        return;
    if (accessor.components < 3) {
        m_notes.warnings.push_back(FillText(
            kGltfAttribute,
            {L"COLOR_0", FillText(kGltfBadComponents,
                                  {std::to_wstring(accessor.index),
                                   std::to_wstring(accessor.components), L"COLOR_0", L"3 or 4"})}));
        return;
    }
    // Whole numbers stand for shares, whether the file says so or not.
    accessor.isNormalized = true;
    MeshArray<float> numbers;
    readAttribute(accessor, numbers);
    const std::size_t components = accessor.components;
    MeshArray<std::uint8_t>& colors = m_shape.mesh.colors;
    colors.Resize(numbers.Size() / components * 4);
    std::uint8_t* out = colors.Data();
    for (std::size_t i = 0; i < numbers.Size(); i += components) {
        for (std::size_t k = 0; k < 3; ++k)
            *out++ = ToShownByte(numbers[i + k] * material.color[k]);
        const float alpha = components == 4 ? numbers[i + 3] : 1.0f;
        *out++ = material.isOpaque ? std::uint8_t{255} : ToShareByte(alpha * material.color[3]);
    }
}

/// What was left out last is why there is nothing.
void PrimitiveReader::sayNothingIsLeft()
{
    if (!m_notes.reason.empty())
        return;
    m_notes.reason = kGltfNothingLeft;
    if (m_notes.warnings.empty())
        return;
    m_notes.reason = m_notes.warnings.back();
    m_notes.warnings.pop_back();
}

bool PrimitiveReader::Run(const GltfMaterial& material)
{
    if (!FindPrimitiveSource(m_file, m_primitive, m_source, m_notes.reason) || !takeBudget())
        return false;
    bool isRead = readCorners();
    if (isRead) {
        dropMissingVertices();
        readPositions();
        dropNonFinite();
        PollCancel(m_file.Options());
        isRead = !m_corners.IsEmpty();
    }
    if (isRead) {
        readNormals();
        readColors(material);
        const std::size_t arity = ArityOf(m_source.mode);
        MeshArray<std::uint32_t>& target = arity == 3   ? m_shape.mesh.triangles
                                           : arity == 2 ? m_shape.segments
                                                        : m_shape.points;
        target = std::move(m_corners);
    } else {
        m_shape = ShapeArrays();
        sayNothingIsLeft();
    }
    settleBudget();
    return isRead;
}

} // namespace

bool ReadPrimitive(GltfFile& file, const JsonValue& primitive, const GltfMaterial& material,
                   ShapeArrays& shape, PrimitiveNotes& notes)
{
    return PrimitiveReader(file, primitive, shape, notes).Run(material);
}

} // namespace OrvikMesh
