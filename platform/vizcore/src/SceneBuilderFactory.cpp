#include "TambVizCore/SceneBuilderFactory.h"

#include "TambVizCore/Node.h"

namespace TambVizCore {

SceneBuilderFactory::SceneBuilderFactory() = default;

SceneBuilderFactory::~SceneBuilderFactory() = default;

std::unique_ptr<Node> SceneBuilderFactory::CreateSceneRoot() const
{
    return std::make_unique<Node>(1, "SCENE");
}

} // namespace TambVizCore
