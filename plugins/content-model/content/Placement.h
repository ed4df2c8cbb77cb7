#ifndef ORVIKMODEL_CONTENT_PLACEMENT_H
#define ORVIKMODEL_CONTENT_PLACEMENT_H

#include "OrvikModel/Model.h"

#include <optional>
#include <span>
#include <vector>

namespace OrvikModel {

/// @return a node and all below it, in the order of their numbers; all nodes for null.
std::span<const ModelNode* const> NodesBelow(const Model& model, const ModelNode* node);

/// @return those of them that have a shape. Annotations count only where the node itself is one, or
///         groups them.
std::vector<const ModelNode*> ShapesBelow(const Model& model, const ModelNode* node);

/// Tells by how much a transform enlarges lengths.
///
/// @param matrix  double[16] column-major.
/// @return nothing when it does not enlarge those of all directions alike (to 1e-9), so that a
///         circle would not stay one.
std::optional<double> UniformScale(const double* matrix);

} // namespace OrvikModel

#endif
