#ifndef ORVIKMODEL_TESTS_TESTMODELS_H
#define ORVIKMODEL_TESTS_TESTMODELS_H

#include "OrvikModel/Model.h"

#include <TambVizCore/Geometry.h>
#include <TambVizCore/RenderId.h>

#include <atomic>
#include <cstdint>
#include <initializer_list>
#include <memory>
#include <string>
#include <vector>

/// The geometry of an axis-parallel box; with parts: faces 0 to 5 (low and high x, y, z), twelve
/// edges, and vertices 0 to 7 (bit 0 for high x, bit 1 for y, bit 2 for z).
std::shared_ptr<const TambVizCore::Geometry> BoxGeometry(const double* low, const double* high,
                                                         bool withParts);

/// A box whose parts and index are made on first use, as with meshes.
class TestShape : public OrvikModel::ModelShape
{
public:
    TestShape(double x, double y, double z, double size);

    std::shared_ptr<const TambVizCore::Geometry> Present() const override;
    std::shared_ptr<const TambVizCore::Geometry> WithParts() const override;
    void MakeParts() const override;
    const TambVizCore::VizBox& BoundingBox() const override { return m_plain->BoundingBox(); }
    bool Retessellate(double sag, double maxAngleDegrees) const override;

    mutable std::vector<double> m_tessellations; ///< Sag and angle of each call.

private:
    std::shared_ptr<const TambVizCore::Geometry> m_plain;
    std::shared_ptr<const TambVizCore::Geometry> m_parts;
    mutable std::atomic<bool> m_hasParts = false;
};

using NodePtr = std::unique_ptr<OrvikModel::ModelNode>;

/// A node without a shape.
NodePtr MakeNode(OrvikModel::NodeKind kind, std::wstring name);

/// A node that shows a unit cube at x (0, 0 for y and z).
NodePtr MakeCube(OrvikModel::NodeKind kind, std::wstring name, double x = 0.0);

/// Adds a child and gives it back.
OrvikModel::ModelNode& AddChild(OrvikModel::ModelNode& parent, NodePtr child);

/// double[16] that moves by x, y, z and enlarges by a factor.
std::vector<double> Moved(double x, double y, double z, double factor = 1.0);

/// A model with the path "/models/NAME", numbered.
std::shared_ptr<OrvikModel::Model>
MakeModel(std::vector<NodePtr> nodes, std::wstring name = L"test.model", std::uint64_t number = 1);

/// One or two unit cubes beside each other: closed bodies "cube 0" at x = 0, "cube 1" at x = 2.
std::shared_ptr<OrvikModel::Model> CubeModel(int cubes = 1, std::uint64_t number = 1);

/// A model with every kind of node: an assembly with two references to bodies that share a shape,
/// bodies of each kind, PMI of three types, views and captures.
std::shared_ptr<OrvikModel::Model> FullModel(std::uint64_t number = 1);

/// @return the node with that name.
const OrvikModel::ModelNode& NodeNamed(const OrvikModel::Model& model, const std::wstring& name);

TambVizCore::RenderId ViewIdOf(std::initializer_list<std::uint64_t> path);
TambVizCore::RenderId TreePathOf(std::initializer_list<std::uint64_t> path);

#endif
