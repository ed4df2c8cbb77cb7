#include "TestModels.h"

#include <OrvikRay/RayIndex.h>

#include <stdexcept>

using OrvikModel::Model;
using OrvikModel::ModelNode;
using OrvikModel::NodeKind;
using TambVizCore::EntityType;
using TambVizCore::Geometry;
using TambVizCore::GeometryBuilder;
using TambVizCore::GeometryPart;
using TambVizCore::MakePartId;
using TambVizCore::PartKind;
using TambVizCore::SharedArray;

namespace {

/// Corners of the faces, counter-clockwise from outside.
constexpr std::uint32_t kFaces[6][4] = {{0, 4, 6, 2}, {1, 3, 7, 5}, {0, 1, 5, 4},
                                        {2, 6, 7, 3}, {0, 2, 3, 1}, {4, 5, 7, 6}};
constexpr std::uint32_t kEdges[12][2] = {{0, 1}, {2, 3}, {4, 5}, {6, 7}, {0, 2}, {1, 3},
                                         {4, 6}, {5, 7}, {0, 4}, {1, 5}, {2, 6}, {3, 7}};

void addParts(GeometryBuilder& builder)
{
    std::vector<std::uint32_t> segments;
    std::vector<std::uint32_t> points;
    for (std::uint32_t i = 0; i < 6; ++i)
        builder.AddPart({PartKind::Face, i * 2, 2, MakePartId(PartKind::Face, i)});
    for (std::uint32_t i = 0; i < 12; ++i) {
        segments.insert(segments.end(), {kEdges[i][0], kEdges[i][1]});
        builder.AddPart({PartKind::Edge, i, 1, MakePartId(PartKind::Edge, i)});
    }
    for (std::uint32_t i = 0; i < 8; ++i) {
        points.push_back(i);
        builder.AddPart({PartKind::Vertex, i, 1, MakePartId(PartKind::Vertex, i)});
    }
    builder.SetSegments(SharedArray<std::uint32_t>(std::move(segments)));
    builder.SetPoints(SharedArray<std::uint32_t>(std::move(points)));
}

NodePtr placed(NodePtr node, std::vector<double> transform)
{
    node->transform = std::move(transform);
    return node;
}

NodePtr makePmi()
{
    NodePtr pmi = MakeNode(NodeKind::PmiSet, L"PMI");
    for (const EntityType type :
         {EntityType::PmiDimension, EntityType::PmiDatum, EntityType::Unknown}) {
        ModelNode& group = AddChild(*pmi, MakeNode(NodeKind::PmiType, L"type"));
        group.pmiType = type;
        ModelNode& drawn = AddChild(group, MakeCube(NodeKind::Annotation, L"drawn", 20.0));
        drawn.pmiType = type;
        drawn.text = L"12 +0.1";
        AddChild(group, MakeNode(NodeKind::Annotation, L"text only")).pmiType = type;
    }
    return pmi;
}

} // namespace

std::shared_ptr<const Geometry> BoxGeometry(const double* low, const double* high, bool withParts)
{
    std::vector<float> positions;
    for (unsigned i = 0; i < 8; ++i)
        for (unsigned axis = 0; axis < 3; ++axis)
            positions.push_back(static_cast<float>((i >> axis & 1u) != 0 ? high[axis] : low[axis]));
    std::vector<std::uint32_t> triangles;
    for (const auto& face : kFaces)
        triangles.insert(triangles.end(), {face[0], face[1], face[2], face[0], face[2], face[3]});
    GeometryBuilder builder;
    builder.SetPositions(SharedArray<float>(std::move(positions)));
    builder.SetTriangles(SharedArray<std::uint32_t>(std::move(triangles)));
    builder.SetClosed(true);
    if (withParts)
        addParts(builder);
    std::string error;
    auto geometry = builder.Build(error);
    if (!geometry)
        throw std::logic_error(error);
    return geometry;
}

TestShape::TestShape(double x, double y, double z, double size)
{
    const double low[3] = {x, y, z};
    const double high[3] = {x + size, y + size, z + size};
    m_plain = BoxGeometry(low, high, false);
    m_parts = BoxGeometry(low, high, true);
}

std::shared_ptr<const Geometry> TestShape::Present() const
{
    return m_hasParts ? m_parts : m_plain;
}

std::shared_ptr<const Geometry> TestShape::WithParts() const
{
    MakeParts();
    if (!m_parts->Index())
        m_parts->PublishIndex(OrvikRay::BuildRayIndex(*m_parts));
    return m_parts;
}

void TestShape::MakeParts() const
{
    m_hasParts = true;
}

bool TestShape::Retessellate(double sag, double maxAngleDegrees) const
{
    m_tessellations.insert(m_tessellations.end(), {sag, maxAngleDegrees});
    return false;
}

NodePtr MakeNode(NodeKind kind, std::wstring name)
{
    auto node = std::make_unique<ModelNode>();
    node->kind = kind;
    node->name = std::move(name);
    return node;
}

NodePtr MakeCube(NodeKind kind, std::wstring name, double x)
{
    NodePtr node = MakeNode(kind, std::move(name));
    node->shape = std::make_shared<TestShape>(x, 0.0, 0.0, 1.0);
    return node;
}

ModelNode& AddChild(ModelNode& parent, NodePtr child)
{
    parent.children.push_back(std::move(child));
    return *parent.children.back();
}

std::vector<double> Moved(double x, double y, double z, double factor)
{
    return {factor, 0, 0, 0, 0, factor, 0, 0, 0, 0, factor, 0, x, y, z, 1};
}

std::shared_ptr<Model> MakeModel(std::vector<NodePtr> nodes, std::wstring name,
                                 std::uint64_t number)
{
    auto model = std::make_shared<Model>();
    model->path = L"/models/" + name;
    model->number = number;
    model->nodes = std::move(nodes);
    model->NumberNodes();
    return model;
}

std::shared_ptr<Model> CubeModel(int cubes, std::uint64_t number)
{
    std::vector<NodePtr> nodes;
    for (int i = 0; i < cubes; ++i)
        nodes.push_back(MakeCube(NodeKind::PolyBody, L"cube " + std::to_wstring(i), 2.0 * i));
    return MakeModel(std::move(nodes), L"cubes.stl", number);
}

std::shared_ptr<Model> FullModel(std::uint64_t number)
{
    std::vector<NodePtr> nodes;
    NodePtr assembly = MakeNode(NodeKind::Assembly, L"assembly");
    ModelNode& left = AddChild(*assembly, MakeNode(NodeKind::AssemblyReference, L"left"));
    ModelNode& right = AddChild(*assembly, placed(MakeNode(NodeKind::AssemblyReference, L"right"),
                                                  Moved(5.0, 0.0, 0.0, 2.0)));
    const ModelNode& first = AddChild(left, MakeCube(NodeKind::Body, L"left body"));
    AddChild(right, MakeNode(NodeKind::Body, L"right body")).shape = first.shape;
    nodes.push_back(std::move(assembly));
    nodes.push_back(MakeCube(NodeKind::PolyBody, L"closed", 10.0));
    nodes.push_back(MakeCube(NodeKind::Mesh, L"open", 12.0));
    nodes.push_back(MakeCube(NodeKind::Wire, L"wire", 14.0));
    nodes.push_back(MakeCube(NodeKind::PointSet, L"points", 16.0));
    nodes.push_back(MakeCube(NodeKind::PointCloud, L"cloud", 18.0));
    nodes.push_back(makePmi());
    NodePtr views = MakeNode(NodeKind::Views, L"views");
    AddChild(*views, MakeNode(NodeKind::View, L"front"));
    AddChild(*views, MakeNode(NodeKind::View, L"top"));
    NodePtr captures = MakeNode(NodeKind::Captures, L"captures");
    AddChild(*captures, MakeNode(NodeKind::Capture, L"section"));
    nodes.push_back(std::move(views));
    nodes.push_back(std::move(captures));
    return MakeModel(std::move(nodes), L"full.step", number);
}

const ModelNode& NodeNamed(const Model& model, const std::wstring& name)
{
    for (const ModelNode* node : model.InOrder())
        if (node->name == name)
            return *node;
    throw std::logic_error("no such node");
}

TambVizCore::RenderId ViewIdOf(std::initializer_list<std::uint64_t> path)
{
    TambVizCore::RenderId id(TambVizCore::RenderId::kOriginView3D);
    for (const std::uint64_t value : path)
        id.AddValue(value);
    return id;
}

TambVizCore::RenderId TreePathOf(std::initializer_list<std::uint64_t> path)
{
    TambVizCore::RenderId id(TambVizCore::RenderId::kOriginTree);
    for (const std::uint64_t value : path)
        id.AddValue(value);
    return id;
}
