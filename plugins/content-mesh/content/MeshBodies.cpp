#include "content/MeshBodies.h"

#include "content/ArraySharing.h"
#include "content/ClosedShells.h"
#include "content/MeshShape.h"
#include "content/ShapeOfArrays.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <map>
#include <numeric>
#include <stdexcept>
#include <utility>

namespace OrvikMesh {

using OrvikModel::ModelNode;
using OrvikModel::NodeKind;
using TambVizCore::Geometry;
using TambVizCore::GeometryBuilder;
using TambVizCore::RGBAColor;
using TambVizCore::SharedArray;

namespace {

constexpr wchar_t kTooManyBodies[] =
    L"the file has more than %1 objects and groups; they were read as one body";
/// Of triangles without a coloured material beside some with one.
constexpr RGBAColor kPlainColor(204, 204, 204);

std::uint8_t toByte(float value)
{
    return static_cast<std::uint8_t>(value * 255.0f + 0.5f);
}

RGBAColor toColor(const MeshColor& color)
{
    return {toByte(color.red), toByte(color.green), toByte(color.blue), toByte(color.alpha)};
}

/// The runs of triangles that become one body.
struct BodyPlan
{
    std::wstring name;
    std::vector<const MeshRange*> ranges;
};

/// Whether one of them is other than white, which stands for none.
bool hasColor(const MeshArray<std::uint8_t>& colors)
{
    for (std::size_t i = 0; i + 3 < colors.Size(); i += 4)
        if (colors[i] != 255 || colors[i + 1] != 255 || colors[i + 2] != 255)
            return true;
    return false;
}

std::unique_ptr<ModelNode> makeNode(NodeKind kind, const std::wstring& name,
                                    GeometryBuilder& builder)
{
    std::string error;
    std::shared_ptr<const Geometry> geometry = builder.Build(error);
    if (!geometry)
        throw std::logic_error(error);
    auto node = std::make_unique<ModelNode>();
    node->kind = kind;
    node->name = name;
    node->shape = std::make_shared<MeshShape>(std::move(geometry));
    return node;
}

std::unique_ptr<ModelNode> makeCloud(MeshData&& mesh, const std::wstring& name)
{
    const std::size_t count = mesh.VertexCount();
    std::vector<std::uint32_t> points(count);
    std::iota(points.begin(), points.end(), 0u);
    GeometryBuilder builder;
    builder.SetPositions(Share(std::move(mesh.positions)));
    builder.SetNormals(Share(std::move(mesh.normals)));
    builder.SetColors(Share(std::move(mesh.colors)));
    builder.SetPoints(SharedArray<std::uint32_t>(std::move(points)));
    auto node = makeNode(NodeKind::PointCloud, name, builder);
    node->pointSizePixels = CloudPointPixels(count);
    return node;
}

class BodyMaker
{
public:
    BodyMaker(MeshData&& mesh, const std::wstring& defaultName)
        : m_mesh(std::move(mesh)), m_defaultName(defaultName)
    {
    }

    std::vector<std::unique_ptr<ModelNode>> Run(ReadMessages& messages);

private:
    std::vector<std::unique_ptr<ModelNode>> makeSolids(ReadMessages& messages);
    std::unique_ptr<ModelNode> makeThin(MeshThin&& thin) const;
    std::vector<BodyPlan> makePlans(ReadMessages& messages) const;
    std::wstring nameOf(std::uint32_t objectIndex, std::uint32_t groupIndex) const;
    bool usesVertexColors(const BodyPlan& plan) const;
    bool hasOneMaterial(const BodyPlan& plan) const;
    const MeshMaterial* coloredMaterial(std::uint32_t material) const;
    std::unique_ptr<ModelNode> takeWhole(const BodyPlan& plan);
    std::unique_ptr<ModelNode> copyOut(const BodyPlan& plan);
    void copyRange(const MeshRange& range, bool withMaterialColors);
    std::unique_ptr<ModelNode> build(const BodyPlan& plan, MeshData&& arrays,
                                     bool withMaterialColors) const;

    MeshData m_mesh;
    const std::wstring& m_defaultName;
    MeshData m_body;                     ///< Arrays of the body in hand.
    MeshArray<std::uint32_t> m_newIndex; ///< Per vertex of the mesh: its index in the body.
    MeshArray<std::uint32_t> m_stamp;    ///< Per vertex: for which run m_newIndex holds.
    std::uint32_t m_run = 0;
};

std::wstring BodyMaker::nameOf(std::uint32_t objectIndex, std::uint32_t groupIndex) const
{
    const std::wstring object = objectIndex == kNone ? L"" : m_mesh.objects[objectIndex];
    const std::wstring group = groupIndex == kNone ? L"" : m_mesh.groups[groupIndex];
    if (!object.empty() && !group.empty())
        return object + L" / " + group;
    if (object.empty() && group.empty())
        return m_defaultName;
    return object.empty() ? group : object;
}

std::vector<BodyPlan> BodyMaker::makePlans(ReadMessages& messages) const
{
    std::vector<BodyPlan> plans;
    std::map<std::pair<std::uint32_t, std::uint32_t>, std::size_t> indices;
    for (const MeshRange& range : m_mesh.ranges) {
        const auto [entry, isNew] =
            indices.emplace(std::make_pair(range.object, range.group), plans.size());
        if (isNew)
            plans.push_back({nameOf(range.object, range.group), {}});
        plans[entry->second].ranges.push_back(&range);
    }
    if (plans.size() <= kMaxBodies)
        return plans;
    messages.Warn(FillText(kTooManyBodies, {std::to_wstring(kMaxBodies)}));
    BodyPlan whole{m_defaultName, {}};
    for (const MeshRange& range : m_mesh.ranges)
        whole.ranges.push_back(&range);
    return {whole};
}

const MeshMaterial* BodyMaker::coloredMaterial(std::uint32_t material) const
{
    if (material == kNone || !m_mesh.materials[material].hasColor)
        return nullptr;
    return &m_mesh.materials[material];
}

bool BodyMaker::hasOneMaterial(const BodyPlan& plan) const
{
    return std::all_of(plan.ranges.begin(), plan.ranges.end(), [&](const MeshRange* range) {
        return coloredMaterial(range->material) == coloredMaterial(plan.ranges.front()->material);
    });
}

/// Whether a vertex of the body has a colour other than white, which stands for none.
bool BodyMaker::usesVertexColors(const BodyPlan& plan) const
{
    if (m_mesh.colors.IsEmpty())
        return false;
    for (const MeshRange* range : plan.ranges) {
        const std::uint32_t* corner =
            m_mesh.triangles.Data() + std::size_t{range->firstTriangle} * 3;
        for (std::size_t i = 0; i < std::size_t{range->triangleCount} * 3; ++i) {
            const std::uint8_t* color = m_mesh.colors.Data() + std::size_t{corner[i]} * 4;
            if (color[0] != 255 || color[1] != 255 || color[2] != 255)
                return true;
        }
    }
    return false;
}

std::unique_ptr<ModelNode> BodyMaker::build(const BodyPlan& plan, MeshData&& arrays,
                                            bool withMaterialColors) const
{
    const MeshMaterial* material = coloredMaterial(plan.ranges.front()->material);
    const bool keepsColors = withMaterialColors || !arrays.colors.IsEmpty();
    GeometryBuilder builder;
    const bool isClosed = AreClosedShells(arrays.positions.Data(), arrays.VertexCount(),
                                          arrays.triangles.Data(), arrays.triangles.Size() / 3);
    builder.SetClosed(isClosed);
    builder.SetPositions(Share(std::move(arrays.positions)));
    builder.SetNormals(Share(std::move(arrays.normals)));
    builder.SetColors(Share(std::move(arrays.colors)));
    builder.SetTriangles(Share(std::move(arrays.triangles)));
    auto node = makeNode(isClosed ? NodeKind::PolyBody : NodeKind::Mesh, plan.name, builder);
    if (material && !keepsColors)
        node->color = toColor(material->color);
    return node;
}

std::unique_ptr<ModelNode> BodyMaker::takeWhole(const BodyPlan& plan)
{
    if (!usesVertexColors(plan))
        m_mesh.colors = MeshArray<std::uint8_t>();
    MeshData arrays;
    arrays.positions = std::move(m_mesh.positions);
    arrays.normals = std::move(m_mesh.normals);
    arrays.colors = std::move(m_mesh.colors);
    arrays.triangles = std::move(m_mesh.triangles);
    return build(plan, std::move(arrays), false);
}

/// Appends the triangles of a run with the vertices that they use.
void BodyMaker::copyRange(const MeshRange& range, bool withMaterialColors)
{
    const MeshMaterial* material = coloredMaterial(range.material);
    const RGBAColor color = material ? toColor(material->color) : kPlainColor;
    const std::uint32_t* corner = m_mesh.triangles.Data() + std::size_t{range.firstTriangle} * 3;
    for (std::size_t i = 0; i < std::size_t{range.triangleCount} * 3; ++i) {
        const std::size_t vertex = corner[i];
        if (m_stamp[vertex] != m_run) {
            m_stamp[vertex] = m_run;
            m_newIndex[vertex] = static_cast<std::uint32_t>(m_body.VertexCount());
            for (std::size_t axis = 0; axis < 3; ++axis)
                m_body.positions.PushBack(m_mesh.positions[vertex * 3 + axis]);
            for (std::size_t axis = 0; axis < 3 && !m_mesh.normals.IsEmpty(); ++axis)
                m_body.normals.PushBack(m_mesh.normals[vertex * 3 + axis]);
            if (withMaterialColors)
                for (const std::uint8_t component : {color.r, color.g, color.b, color.a})
                    m_body.colors.PushBack(component);
            else if (!m_mesh.colors.IsEmpty())
                for (std::size_t k = 0; k < 4; ++k)
                    m_body.colors.PushBack(m_mesh.colors[vertex * 4 + k]);
        }
        m_body.triangles.PushBack(m_newIndex[vertex]);
    }
}

std::unique_ptr<ModelNode> BodyMaker::copyOut(const BodyPlan& plan)
{
    const bool withVertexColors = usesVertexColors(plan);
    const bool withMaterialColors = !withVertexColors && !hasOneMaterial(plan);
    m_body = MeshData();
    ++m_run;
    for (const MeshRange* range : plan.ranges) {
        copyRange(*range, withMaterialColors);
        // Runs of different colours do not share vertices.
        m_run += withMaterialColors ? 1 : 0;
    }
    if (!withVertexColors && !withMaterialColors)
        m_body.colors = MeshArray<std::uint8_t>();
    m_body.positions.ShrinkToFit();
    m_body.normals.ShrinkToFit();
    m_body.colors.ShrinkToFit();
    m_body.triangles.ShrinkToFit();
    return build(plan, std::move(m_body), withMaterialColors);
}

std::unique_ptr<ModelNode> BodyMaker::makeThin(MeshThin&& thin) const
{
    const bool isColored = hasColor(thin.colors);
    auto node = std::make_unique<ModelNode>();
    node->kind = thin.areLines ? NodeKind::Wire : NodeKind::PointSet;
    node->name = nameOf(thin.object, thin.group);
    if (const MeshMaterial* material = coloredMaterial(thin.material); material && !isColored)
        node->color = toColor(material->color);
    ShapeArrays arrays;
    if (!thin.areLines)
        for (std::uint32_t i = 0; i < thin.VertexCount(); ++i)
            arrays.points.PushBack(i);
    arrays.mesh.positions = std::move(thin.positions);
    if (isColored)
        arrays.mesh.colors = std::move(thin.colors);
    arrays.segments = std::move(thin.segments);
    arrays.runs = std::move(thin.runs);
    node->shape = MakeShape(std::move(arrays));
    node->pointSizePixels = thin.areLines ? node->pointSizePixels : OrvikModel::kPointSetPixels;
    return node;
}

std::vector<std::unique_ptr<ModelNode>> BodyMaker::Run(ReadMessages& messages)
{
    std::vector<std::unique_ptr<ModelNode>> bodies;
    if (m_mesh.TriangleCount() > 0)
        bodies = makeSolids(messages);
    for (MeshThin& thin : m_mesh.thin)
        bodies.push_back(makeThin(std::move(thin)));
    return bodies;
}

std::vector<std::unique_ptr<ModelNode>> BodyMaker::makeSolids(ReadMessages& messages)
{
    const std::vector<BodyPlan> plans = makePlans(messages);
    std::vector<std::unique_ptr<ModelNode>> bodies;
    if (plans.size() == 1 && (usesVertexColors(plans.front()) || hasOneMaterial(plans.front()))) {
        bodies.push_back(takeWhole(plans.front()));
        return bodies;
    }
    m_newIndex.Resize(m_mesh.VertexCount());
    m_stamp.Resize(m_mesh.VertexCount());
    std::fill(m_stamp.begin(), m_stamp.end(), 0u);
    for (const BodyPlan& plan : plans)
        bodies.push_back(copyOut(plan));
    return bodies;
}

} // namespace

std::vector<std::unique_ptr<ModelNode>> MakeBodies(MeshData&& mesh, const std::wstring& defaultName,
                                                   ReadMessages& messages)
{
    if (mesh.isPointCloud) {
        std::vector<std::unique_ptr<ModelNode>> cloud;
        cloud.push_back(makeCloud(std::move(mesh), defaultName));
        return cloud;
    }
    return BodyMaker(std::move(mesh), defaultName).Run(messages);
}

} // namespace OrvikMesh
