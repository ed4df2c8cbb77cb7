#include "BoxTree.h"
#include "FaceTree.h"
#include "PrimitiveBoxes.h"

namespace OrvikRay {

using TambVizCore::Geometry;

namespace {

class BoxFaces final : public IFaceTree
{
public:
    explicit BoxFaces(const Geometry& geometry)
    {
        m_tree.Build(PrimitiveBoxes(geometry, geometry.Triangles().Span(), 3));
    }

    void Search(NearestFace& nearest) const override;
    std::size_t MemoryBytes() const override { return sizeof *this + m_tree.MemoryBytes(); }

private:
    BoxTree m_tree;
};

void BoxFaces::Search(NearestFace& nearest) const
{
    const Line& line = nearest.GetLine();
    const std::span<const BoxTree::Node> nodes = m_tree.Nodes();
    if (nodes.empty())
        return;
    const auto enters = [&](std::uint32_t at, double& enter) {
        double leave = nearest.Far();
        enter = line.near;
        return line.Clip(nodes[at].box, 0.0, enter, leave);
    };
    std::uint32_t stack[BoxTree::kMaxDepth];
    std::size_t depth = 0;
    stack[depth++] = 0;
    while (depth > 0) {
        const std::uint32_t at = stack[--depth];
        const BoxTree::Node& node = nodes[at];
        double enter = 0.0;
        if (!enters(at, enter))
            continue;
        if (node.count == 0) {
            // The nearer child is looked at first: what it finds shortens the line.
            double enterLeft = 0.0;
            double enterRight = 0.0;
            const bool hitsLeft = enters(at + 1, enterLeft);
            const bool hitsRight = enters(node.first, enterRight);
            const bool leftFirst = enterLeft <= enterRight;
            if (leftFirst ? hitsRight : hitsLeft)
                stack[depth++] = leftFirst ? node.first : at + 1;
            if (leftFirst ? hitsLeft : hitsRight)
                stack[depth++] = leftFirst ? at + 1 : node.first;
            continue;
        }
        for (std::uint32_t i = 0; i < node.count; ++i)
            nearest.Offer(m_tree.Order()[node.first + i]);
    }
}

} // namespace

std::unique_ptr<const IFaceTree> MakeBoxFaces(const Geometry& geometry)
{
    return std::make_unique<BoxFaces>(geometry);
}

} // namespace OrvikRay
