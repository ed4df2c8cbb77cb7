#ifndef ORVIKMODEL_CONTENT_TREEROWS_H
#define ORVIKMODEL_CONTENT_TREEROWS_H

#include "OrvikModel/Model.h"

#include "OrvikCore/TreeBuilder.h"

#include <cstdint>

/// How the nodes of a model become rows of the model tree.
///
/// @thread  Main thread.
namespace OrvikModel {

/// Opens and closes a row for each node of a model below the row that is open in the builder.
void BuildRows(OrvikCore::TreeBuilder& builder, const Model& model);

/// @return the kind of a node's row.
OrvikCore::TreeBuilder::TreeItemStyles StyleOf(const ModelNode& node);

/// Finds the child of a node (of the model for null) whose row has an id.
///
/// @return not owned; null when there is none.
const ModelNode* FindRowChild(const Model& model, const ModelNode* parent, std::uint64_t rowId);

} // namespace OrvikModel

#endif
