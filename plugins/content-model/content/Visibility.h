#ifndef ORVIKMODEL_CONTENT_VISIBILITY_H
#define ORVIKMODEL_CONTENT_VISIBILITY_H

#include "OrvikModel/Model.h"

#include <TambVizCore/ClipPlane.h>
#include <TambVizCore/Geometry.h>
#include <TambVizCore/PartKind.h>
#include <TambVizCore/PartState.h>

#include <OrvikRay/InstanceTree.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace TambVizCore {
class IView3D;
class Node;
} // namespace TambVizCore

namespace OrvikModel {

class ModelRenderer3D;

/// A shape of a model where it stands in the world.
struct ModelInstance
{
    const ModelNode* node = nullptr; ///< Not owned; lives as long as the model.
    double world[16];                ///< Column-major.
};

/// The shapes of a model where they stand at one moment, in a tree over their boxes.
struct PlacedInstances
{
    std::vector<ModelInstance> instances; ///< In the order of their nodes' numbers.
    OrvikRay::InstanceTree tree;
};

/// @return the instances (transferred in) with a tree over them.
std::shared_ptr<const PlacedInstances> PlaceInstances(std::vector<ModelInstance> instances);

/// What of a model could be seen at one moment, and where: a copy of what the scene says, for picks
/// on the worker.
struct Visibility
{
    /// A shape that is shown away from where the model has it.
    struct Displaced
    {
        bool operator==(const Displaced& other) const = default;

        std::size_t instance = 0;
        std::array<double, 16> world{}; ///< Column-major.
    };

    /// The states of an instance's parts, some of them hidden.
    struct Mask
    {
        std::shared_ptr<const TambVizCore::Geometry> geometry; ///< Whose parts they are.
        std::vector<TambVizCore::PartState> states;
    };

    bool IsHidden(std::size_t instance) const { return !hidden.empty() && hidden[instance]; }

    /// @return the states of the parts of @p geometry in an instance; empty when all are shown.
    std::span<const TambVizCore::PartState> StatesOf(std::size_t instance,
                                                     const TambVizCore::Geometry& geometry) const;

    /// The kinds of parts that an instance shows.
    TambVizCore::PartKinds KindsOf(std::size_t instance) const
    {
        return beside.count(instance) != 0 ? TambVizCore::kAllPartKinds : modelKinds;
    }

    std::uint64_t stamp = 0;  ///< TambVizCore::GetVisibilityStamp() of that moment; 0 for none.
    std::vector<bool> hidden; ///< By instance; empty when nothing is hidden.
    std::unordered_map<std::size_t, Mask> masks; ///< By instance.
    std::vector<TambVizCore::ClipPlane> planes;  ///< World units.
    TambVizCore::PartKinds modelKinds = TambVizCore::kAllPartKinds;
    std::unordered_set<std::size_t> beside; ///< Instances of clouds and PMI: they show all.
    std::vector<Displaced> displaced;       ///< By instance, ascending; what is hidden is not.
    /// The instances with those that are displaced; null when none is. Set by ModelPicker.
    std::shared_ptr<const PlacedInstances> placed;
};

/// Copies what a view says of the instances of a model. What has no scene node is hidden.
///
/// @param instances   In the order of their nodes' numbers.
/// @param contentNode The scene node that all are below.
/// @thread  Main thread.
void CaptureVisibility(const std::vector<ModelInstance>& instances, TambVizCore::IView3D& view,
                       const TambVizCore::Node& contentNode, Visibility& visibility);

/// Leads from a content to what draws it. Shared by both; each may go first.
///
/// @thread  Main thread.
struct SceneLink
{
    ModelRenderer3D* renderer = nullptr; ///< Not owned; null while nothing draws the content.
};

} // namespace OrvikModel

#endif
