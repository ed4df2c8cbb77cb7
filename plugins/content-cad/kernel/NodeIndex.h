#ifndef ORVIKCAD_KERNEL_NODEINDEX_H
#define ORVIKCAD_KERNEL_NODEINDEX_H

#include <TDF_Label.hxx>
#include <TDF_LabelMapHasher.hxx>

#include <span>
#include <unordered_map>
#include <vector>

namespace OrvikModel {
struct ModelNode;
}

namespace OrvikCad {

/// For containers by label.
struct LabelHash
{
    std::size_t operator()(const TDF_Label& label) const
    {
        return static_cast<std::size_t>(TDF_LabelMapHasher::HashCode(label, IntegerLast()));
    }
};

struct LabelEqual
{
    bool operator()(const TDF_Label& a, const TDF_Label& b) const { return a.IsEqual(b); }
};

template <class Value> using LabelMap = std::unordered_map<TDF_Label, Value, LabelHash, LabelEqual>;

/// Finds the nodes that were made from a label: one for each place where it stands in the tree.
///
/// A label of a part gives its Body, or the Assembly that groups its bodies; one of a component
/// gives AssemblyReference nodes; one of an assembly Assembly nodes; one of a solid inside a part
/// its Body nodes.
class NodeIndex
{
public:
    /// @param node  Not owned.
    void Add(const TDF_Label& label, OrvikModel::ModelNode& node)
    {
        m_nodes[label].push_back(&node);
    }

    /// @return the nodes in the order of the tree, empty when there is none; valid until the next
    ///         Add().
    std::span<OrvikModel::ModelNode* const> Find(const TDF_Label& label) const
    {
        const auto found = m_nodes.find(label);
        if (found == m_nodes.end())
            return {};
        return found->second;
    }

private:
    LabelMap<std::vector<OrvikModel::ModelNode*>> m_nodes;
};

} // namespace OrvikCad

#endif
