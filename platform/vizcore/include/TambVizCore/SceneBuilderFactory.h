#ifndef TAMBVIZCORE_SCENEBUILDERFACTORY_H
#define TAMBVIZCORE_SCENEBUILDERFACTORY_H

#include "TambVizCore/Export.h"

#include <memory>

namespace TambVizCore {

class Node;

/// Makes the scene of a view. This class is the default; a view plugin may derive its own, whose
/// nodes carry what its renderer needs.
///
/// @thread Main thread.
class TAMBVIZCORE_API SceneBuilderFactory
{
public:
    SceneBuilderFactory();
    virtual ~SceneBuilderFactory();

    /// @return a new root (transferred out) with id 1 and the name "SCENE"; never null.
    virtual std::unique_ptr<Node> CreateSceneRoot() const;
};

} // namespace TambVizCore

#endif
