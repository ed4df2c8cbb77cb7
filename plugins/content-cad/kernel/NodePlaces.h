#ifndef ORVIKCAD_KERNEL_NODEPLACES_H
#define ORVIKCAD_KERNEL_NODEPLACES_H

#include <map>
#include <vector>

namespace OrvikModel {
struct Model;
struct ModelNode;
} // namespace OrvikModel

namespace OrvikCad {

using Place = std::vector<double>; ///< double[16] column-major; empty for the identity.

/// @return the place that @p right has when it stands in @p left.
Place Product(const Place& left, const Place& right);

/// Where nodes stand in the world, before they know their parents.
class NodePlaces
{
public:
    /// @param model  Not owned; its nodes outlive the object.
    explicit NodePlaces(const OrvikModel::Model& model);

    Place Find(const OrvikModel::ModelNode* node) const;

private:
    void add(const OrvikModel::ModelNode& node, const Place& above);

    std::map<const OrvikModel::ModelNode*, Place>
        m_places; ///< Of nodes that are not in the origin.
};

} // namespace OrvikCad

#endif
