#ifndef ORVIKMODEL_CONTENT_SCENENODES_H
#define ORVIKMODEL_CONTENT_SCENENODES_H

#include "OrvikModel/Model.h"

#include <memory>

namespace TambVizCore {
class GeoNode;
class Node;
} // namespace TambVizCore

/// How the nodes of a model become those of a scene.
///
/// @thread  Main thread.
namespace OrvikModel {

/// Tells whether a node stands in space: it has a shape, or groups what has one. Saved views,
/// captures and annotations without curves do not, and nothing below them does.
bool HasSceneNode(const ModelNode& node);

/// Makes the scene node of a node without those below it.
std::unique_ptr<TambVizCore::Node> MakeSceneNode(const Model& model, const ModelNode& node);

/// Gives a scene node the present geometry of the shape and, to parts that are new to it, the
/// colours of the node's parts; nothing when it has that geometry already.
void AdoptShape(const ModelNode& node, TambVizCore::GeoNode& scene);

} // namespace OrvikModel

#endif
