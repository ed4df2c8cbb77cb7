#ifndef ORVIKMODEL_CONTENT_MODELPICKER_H
#define ORVIKMODEL_CONTENT_MODELPICKER_H

#include "OrvikModel/Model.h"
#include "content/Visibility.h"

#include "OrvikCore/IEntityProperties.h"

#include <OrvikOs/Snapshot.h>
#include <TambVizCore/PartKind.h>

#include <memory>
#include <mutex>
#include <vector>

namespace TambVizCore {
class EntityId;
class Ray;
} // namespace TambVizCore

namespace OrvikModel {

/// Answers the picks of a content. Parts and index of a shape are made when a ray meets its box for
/// the first time.
///
/// What is hidden or cut away in the scene is not hit, and what is displaced there is hit where it
/// is shown. The picker keeps a copy of that state, which crosses the call gate again only after
/// something has changed: a loop of picks never does.
///
/// @thread  Any thread, any number at the same time.
class ModelPicker
{
public:
    /// @param model  Not null; shared.
    /// @param link   Not null; to what draws the model.
    ModelPicker(std::shared_ptr<const Model> model, std::shared_ptr<const SceneLink> link);
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
    /// @return the shapes where the model has them.
    const PlacedInstances& atHome() const;
    std::shared_ptr<const Visibility> visibility() const;

    std::shared_ptr<const Model> m_model;
    std::shared_ptr<const SceneLink> m_link;
    mutable std::once_flag m_prepareOnce;
    mutable std::shared_ptr<const PlacedInstances> m_home; ///< Written once under m_prepareOnce.
    mutable OrvikOs::Snapshot<Visibility> m_visibility;
};

} // namespace OrvikModel

#endif
