#ifndef TAMBVIZCORE_ENTITYTYPE_H
#define TAMBVIZCORE_ENTITYTYPE_H

#include <cstdint>

namespace TambVizCore {

/// The kind of a model entity. The numbers are stable: they appear in tree paths and journals.
///
/// Some of them also serve as ids of grouping rows in the model tree (View, Capture and the five
/// Pmi types), so content must not give these numbers to other nodes.
enum class EntityType : std::uint32_t
{
    Unknown = 0,
    Assembly = 10001,          ///< A group of instances.
    AssemblyReference = 10002, ///< One placement of an assembly or a body.
    Body = 10003,              ///< A body; also the topmost item of a content's tree.
    Mesh = 10004,              ///< A body of triangles without exact geometry.
    AnnotationSet = 10005,     ///< What owns views and captures.
    PointCloud = 10006,
    NonGraphical = 10007, ///< Without a 3D representation; a failed conversion is no error.
    Wire = 10008,
    PointSet = 10009,
    View = 10010,       ///< A saved view; a row with this id says that the next id names one.
    Annotation = 10011, ///< One PMI item.
    Capture = 10012,    ///< A capture; likewise.

    PmiDimension = 10101,
    PmiGeometricTolerance = 10102,
    PmiDatum = 10103,
    PmiNote = 10104,
    PmiSurfaceFinish = 10105,

    Container = 40000, ///< A scene or a container of the tree.
};

} // namespace TambVizCore

#endif
