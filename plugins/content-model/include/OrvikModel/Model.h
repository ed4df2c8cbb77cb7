#ifndef ORVIKMODEL_MODEL_H
#define ORVIKMODEL_MODEL_H

#include "OrvikModel/ModelShape.h"

#include <TambVizCore/EntityId.h>
#include <TambVizCore/RGBAColor.h>
#include <TambVizCore/VizBox.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace OrvikModel {

/// What a node of a model is: decides its row in the model tree and the type of its entity.
enum class NodeKind
{
    Assembly,          ///< A group of instances.
    AssemblyReference, ///< One placement of an assembly or a body; has one child.
    Body,              ///< A body with exact geometry.
    PolyBody,          ///< A closed body of triangles.
    Mesh,              ///< An open body of triangles.
    Wire,              ///< Edges without faces.
    PointSet,          ///< A few points, such as the free vertices of a file.
    PointCloud,        ///< A scan.
    PmiSet,            ///< Groups the PMI of a model by type.
    PmiType,           ///< One type of PMI; pmiType says which.
    Annotation,        ///< One PMI item: text, and a shape where it has a presentation.
    Views,             ///< Groups the saved views.
    View,              ///< One saved view; camera says from where.
    Captures,          ///< Groups the captures.
    Capture,           ///< One capture: a view with what it shows.
};

/// A camera that a file brought along, world units.
struct SavedCamera
{
    double eye[3] = {0.0, 0.0, 0.0};
    double target[3] = {0.0, 0.0, 0.0};
    double up[3] = {0.0, 0.0, 0.0};
    double width = 0.0; ///< Of the view's window; 0 when the file does not say.
    double height = 0.0;
    bool orthographic = true;
};

/// The size in which a set of a few points is drawn, that none of them is missed.
inline constexpr float kPointSetPixels = 5.0f;

/// One node of a model. Never changes once the model is in a document.
struct ModelNode
{
    NodeKind kind = NodeKind::Assembly;
    std::wstring name;
    /// Unique in its model, from 1; set by Model::NumberNodes. Value of the node's entity and id of
    /// its scene node and its row.
    std::uint64_t number = 0;
    ModelNode* parent = nullptr; ///< Not owned; set by Model::NumberNodes; null for a top node.
    std::vector<std::unique_ptr<ModelNode>> children;

    /// Places the node in its parent, double[16] column-major; empty for the identity.
    std::optional<std::vector<double>> transform;
    /// The colour of everything below that has none of its own.
    std::optional<TambVizCore::RGBAColor> color;
    std::vector<std::wstring> layers; ///< Sorted.
    bool isShown = true;              ///< As the file wants it at first.

    std::shared_ptr<const ModelShape> shape; ///< Null for groups.
    /// Colours of single parts, by part id, in ascending order; they win over the node's.
    std::vector<std::pair<std::uint64_t, TambVizCore::RGBAColor>> partColors;
    float lineWidthPixels = 1.0f;
    float pointSizePixels = 1.0f;

    TambVizCore::EntityType pmiType = TambVizCore::EntityType::Unknown; ///< Of PmiType, Annotation.
    std::wstring text;                  ///< Of Annotation, such as "12 +0.1/-0.05".
    std::optional<SavedCamera> camera;  ///< Of View and Capture.
    std::vector<std::uint64_t> visible; ///< Of Capture: numbers of the nodes that it shows.
};

/// What a format's plugin keeps beside the nodes, such as the kernel's document for saving.
class ModelSource
{
public:
    virtual ~ModelSource();
};

/// What was read from one file. Built by a loader on the worker, then never changed; shared by
/// content and renderers, so that a renderer outlives the content without harm.
struct Model
{
    std::wstring path;        ///< As it was handed to the loader.
    std::uint64_t number = 0; ///< Tells the contents of one document apart; set on adding.
    std::vector<std::unique_ptr<ModelNode>> nodes; ///< The top nodes.
    TambVizCore::VizBox box;                       ///< World units; set by NumberNodes.
    /// The box without annotations, which may lie far around a part; that of all in a model that
    /// has nothing else. Set by NumberNodes.
    TambVizCore::VizBox bodyBox;
    std::shared_ptr<const ModelSource> source; ///< May be null.

    /// Sets numbers in the order of a walk from the top (a parent before its children), parents and
    /// the boxes. The numbers leave out those that stand for grouping rows of the tree and for
    /// types of entities: 10001 to 10999 and 40000.
    void NumberNodes();

    /// @return the node with that number, not owned; null when there is none.
    const ModelNode* FindNode(std::uint64_t nodeNumber) const;

    /// @return all nodes in the order of their numbers, not owned: a parent before its children.
    const std::vector<const ModelNode*>& InOrder() const { return m_byPosition; }

    /// @return the last piece of the path.
    std::wstring FileName() const;

private:
    std::vector<const ModelNode*> m_byPosition; ///< In the order of the numbers.
};

/// @return @p number, or the first one after it that stands neither for a type of entities (10001
///         to 10999) nor for the scene row (40000).
std::uint64_t SkipReservedNumbers(std::uint64_t number);

/// @return the type of the entities of that kind of node.
TambVizCore::EntityType EntityTypeOf(const ModelNode& node);

/// Writes the product of the transforms from the top down to a node, double[16].
void GetWorldTransform(const ModelNode& node, double* matrix);

} // namespace OrvikModel

#endif
