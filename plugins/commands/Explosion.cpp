#include "Explosion.h"

#include <TambVizCore/GeoNode.h>
#include <TambVizCore/Geometry.h>
#include <TambVizCore/Node.h>
#include <TambVizCore/VizBox.h>

#include <algorithm>
#include <array>
#include <unordered_map>

namespace OrvikCommands {
namespace {

using TambVizCore::GeoNode;
using TambVizCore::Node;
using TambVizCore::VizBox;

using Vector = std::array<double, 3>;

Vector middleOf(const VizBox& box)
{
    Vector middle;
    for (std::size_t i = 0; i < 3; ++i)
        middle[i] = 0.5 * (static_cast<double>(box.Lo()[i]) + static_cast<double>(box.Hi()[i]));
    return middle;
}

class Exploder
{
public:
    Exploder(double amount, std::size_t levels) : m_amount(amount), m_levels(levels) {}

    Explosion Run(const Node& root)
    {
        for (std::size_t i = 0; i < root.ChildCount(); ++i)
            if (const Node& top = *root.ChildAt(i); !top.IsAuxiliary()) {
                measure(top);
                move(top, {});
                spread(top, 0);
            }
        return std::move(m_result);
    }

private:
    /// Keeps the box of what is at home below a node, in the units of the node above it.
    const VizBox& measure(const Node& node)
    {
        VizBox box;
        const GeoNode* const geoNode = node.AsGeoNode();
        if (geoNode != nullptr && geoNode->GetGeometry() != nullptr &&
            geoNode->GetCategory() != GeoNode::Category::PMI)
            box = geoNode->GetGeometry()->BoundingBox();
        for (std::size_t i = 0; i < node.ChildCount(); ++i)
            if (!node.ChildAt(i)->IsAuxiliary())
                box.Add(measure(*node.ChildAt(i)));
        double home[16];
        node.GetHomeTransform(home);
        return m_boxes[&node] = box.Transformed(home);
    }

    /// Moves the children of a node apart, if it is an assembly, and goes on below.
    void spread(const Node& node, std::size_t level)
    {
        VizBox box;
        std::size_t count = 0;
        for (std::size_t i = 0; i < node.ChildCount(); ++i)
            if (const auto child = m_boxes.find(node.ChildAt(i)); child != m_boxes.end()) {
                box.Add(child->second);
                count += child->second.IsEmpty() ? 0 : 1;
            }
        const bool isAssembly = count > 1 && node.AsGeoNode() == nullptr;
        const bool movesChildren = isAssembly && level < m_levels;
        for (std::size_t i = 0; i < node.ChildCount(); ++i) {
            const Node& child = *node.ChildAt(i);
            const auto found = m_boxes.find(&child);
            if (found == m_boxes.end())
                continue;
            Vector away{};
            if (movesChildren && !found->second.IsEmpty())
                for (std::size_t k = 0; k < 3; ++k)
                    away[k] = m_amount * (middleOf(found->second)[k] - middleOf(box)[k]);
            move(child, away);
            spread(child, isAssembly ? level + 1 : level);
        }
    }

    void move(const Node& node, const Vector& away)
    {
        if (std::equal(away.begin(), away.end(), node.Displacement()))
            return;
        m_result.moved.push_back(node.GetRenderId());
        m_result.displacements.emplace(m_result.moved.back(), away);
    }

    double m_amount;
    std::size_t m_levels;
    std::unordered_map<const Node*, VizBox> m_boxes; ///< Of what is not drawn beside the model.
    Explosion m_result;
};

} // namespace

Explosion Explode(const Node& root, double amount, std::size_t levels)
{
    return Exploder(amount, levels).Run(root);
}

} // namespace OrvikCommands
