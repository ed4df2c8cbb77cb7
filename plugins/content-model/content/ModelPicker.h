#ifndef ORVIKMODEL_CONTENT_MODELPICKER_H
#define ORVIKMODEL_CONTENT_MODELPICKER_H

#include "OrvikModel/Model.h"

#include "OrvikCore/IEntityProperties.h"

#include <TambVizCore/PartKind.h>
#include <TambVizCore/VizBox.h>

#include <OrvikRay/InstanceTree.h>

#include <cstddef>
#include <memory>
#include <mutex>
#include <vector>

namespace TambVizCore {
class EntityId;
class Ray;
} // namespace TambVizCore

namespace OrvikModel {

/// A shape of a model where it stands in the world.
struct ModelInstance
{
    const ModelNode* node = nullptr; ///< Not owned; lives as long as the model.
    double world[16];                ///< Column-major.
};

/// Answers the picks of a content. Parts and index of a shape are made when a ray meets its box for
/// the first time.
///
/// @thread  Any thread, any number at the same time.
class ModelPicker
{
public:
    /// @param model  Not null; shared.
    explicit ModelPicker(std::shared_ptr<const Model> model);
    ~ModelPicker();
    ModelPicker(const ModelPicker&) = delete;
    ModelPicker& operator=(const ModelPicker&) = delete;

    /// Finds what a ray hits first; see AContent::RayPick.
    ///
    /// @return false, with @p hit untouched, when nothing is hit.
    bool Pick(const TambVizCore::Ray& ray, TambVizCore::PartKinds kinds,
              TambVizCore::EntityId& hit) const;

    /// Finds all that a line passes through; see IEntityProperties::IntersectLine.
    bool Intersect(const double* origin, const double* direction, bool visibleOnly,
                   std::vector<OrvikCore::LineHit>& hits) const;

private:
    void prepare() const;

    std::shared_ptr<const Model> m_model;
    mutable std::once_flag m_prepareOnce;
    mutable std::vector<ModelInstance> m_instances; ///< Written once under m_prepareOnce.
    mutable OrvikRay::InstanceTree m_tree;          ///< Likewise; over the boxes of m_instances.
};

} // namespace OrvikModel

#endif
