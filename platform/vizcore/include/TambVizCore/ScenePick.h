#ifndef TAMBVIZCORE_SCENEPICK_H
#define TAMBVIZCORE_SCENEPICK_H

#include "TambVizCore/ClipPlane.h"
#include "TambVizCore/Export.h"
#include "TambVizCore/IGeometryIndex.h"
#include "TambVizCore/Node.h"
#include "TambVizCore/PartKind.h"
#include "TambVizCore/Ray.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace TambVizCore {

class Geometry;

/// One placed geometry that a pick looks at.
struct PickInstance
{
    const Geometry* geometry = nullptr; ///< Not owned; outlives the pick.
    double world[16] = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1}; ///< Column-major.
    /// By part index; empty: all parts are shown. Outlives the pick.
    std::span<const PartState> partStates;
    /// Kinds that are switched off for this instance are left out.
    PartKinds kinds = kAllPartKinds;
};

/// What is looked for; world units.
struct PickQuery
{
    /// The ray's radius is the aperture of edges and vertices at the ray's origin.
    Ray ray;
    /// Growth of the aperture per world unit along the ray; 0 for parallel projection.
    double radiusGrowth = 0.0;
    /// What may be hit. Faces hide what lies behind them also when they are left out, unless the
    /// next field says otherwise.
    PartKinds kinds = kAllPartKinds;
    bool facesHide = true;
    /// Whether nodes of these categories are looked at; for picks in a scene tree.
    bool pointClouds = true;
    bool pmi = true;
    /// Kinds that nodes of models show; clouds and PMI show all of theirs. What is not shown is not
    /// hit and hides nothing. For picks in a scene tree.
    PartKinds modelKinds = kAllPartKinds;
    /// Cuts away what it does not keep. Outlives the pick.
    std::span<const ClipPlane> clipPlanes;
};

/// What a pick found; world units.
struct PickResult
{
    std::size_t instance = 0; ///< Position in the list of instances.
    PartKind kind = PartKind::None;
    std::uint32_t partIndex = kNoPart;
    std::uint32_t primitive = 0;
    double distance = 0.0; ///< World units along the ray from its origin.
    float position[3] = {0.0f, 0.0f, 0.0f};
    float normal[3] = {0.0f, 0.0f, 0.0f};
};

/// Finds what a ray hits in a list of instances.
///
/// A vertex within the aperture wins over an edge, an edge over a face, unless a face hides it: it
/// may lie behind the nearest face by at most the aperture there. Which face is the nearest is
/// decided on the exact surfaces where an index knows them. Geometries without an index are
/// not hit. A ray of zero direction hits nothing. Of equally near ones that of the first instance
/// is found. Every instance costs a look at its box, whatever lies behind the hit nothing more; for
/// thousands of instances a tree over their boxes finds the few to hand over.
///
/// @return false, with @p result untouched, when nothing is hit.
/// @thread Any thread, as long as the instances do not change.
TAMBVIZCORE_API bool PickNearest(std::span<const PickInstance> instances, const PickQuery& query,
                                 PickResult& result);

/// A pick in a scene tree: also the node and the id of what was hit.
struct ScenePickResult
{
    const GeoNode* node = nullptr; ///< Not owned; valid until the scene changes.
    PickResult hit;
    RenderId id; ///< Origin 1; ends with the part's id when a part was hit.
};

/// Finds what a ray hits below @p root: visible, not auxiliary, boxes that the ray misses skipped.
///
/// @return false, with @p result untouched, when nothing is hit.
/// @thread The thread that owns the scene.
TAMBVIZCORE_API bool PickNearest(const Node& root, const PickQuery& query, ScenePickResult& result);

} // namespace TambVizCore

#endif
