#ifndef ORVIKMODEL_MODELENTITY_H
#define ORVIKMODEL_MODELENTITY_H

#include "OrvikModel/Model.h"

#include <TambVizCore/EntityId.h>

#include <cstdint>
#include <string>

/// Under which entities and rows the nodes of a model are known outside. The parts of all shapes
/// have the ids that TambVizCore::MakePartId gives.
///
/// @thread  Any thread: a model in a document does not change.
namespace OrvikModel {

/// The entity of a node, or of a face, an edge or a vertex of its shape.
///
/// Value, owner and type are the node's number, the model's number and EntityTypeOf(node). Views
/// and captures are known in the whole document: their owner is EntityType::AnnotationSet, their
/// value the model's number in the upper and the node's in the lower 32 bits.
///
/// @param partId  0 for the whole node.
TambVizCore::EntityId MakeEntity(const Model& model, const ModelNode& node,
                                 std::uint64_t partId = 0);

/// The entity of the model as a whole: its number, OrvikCore::ARendererTree::kSceneRowId,
/// EntityType::Container.
TambVizCore::EntityId MakeContainerEntity(const Model& model);

/// What an entity names in a model.
struct EntityMatch
{
    bool IsFound() const { return isContainer || node != nullptr; }

    bool isContainer = false;        ///< The model as a whole; there is no node then.
    const ModelNode* node = nullptr; ///< Not owned; lives as long as the model.
    std::uint64_t partId = 0;        ///< 0 for the whole node.
};

/// Finds what an entity names; nothing when it is not one of this model. That a part is there is
/// left to HasPart().
EntityMatch FindEntity(const Model& model, const TambVizCore::EntityId& entity);

/// Tells whether the shape of a node has a part, making the parts when there are none yet.
bool HasPart(const ModelNode& node, std::uint64_t partId);

/// The id of a node's row in the model tree, unique among its siblings: its number, but the number
/// of the type for a type of PMI (the first of its parent), and the entity's value for views and
/// captures.
///
/// Deliberate: rows that group views or captures do not have the number of their type, because
/// TreeBuilder::ExtractEntityId makes one entity of all paths that end in it, whatever content they
/// are of. Held by ModelTree.GroupsOfViewsOfSeveralContentsAreToldApart.
std::uint64_t RowIdOf(const Model& model, const ModelNode& node);

/// What a row or a tool tip says of a node: its name, the text after it for an annotation, the word
/// for its kind when it has neither.
std::wstring DisplayName(const ModelNode& node);

/// What a row or a tool tip says of a part: "face 5".
std::wstring DisplayName(std::uint64_t partId);

} // namespace OrvikModel

#endif
