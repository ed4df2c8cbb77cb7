#include "OrvikCore/ARendererTree.h"

#include "OrvikCore/AViewTree.h"

namespace OrvikCore {

ARendererTree::ARendererTree(AContent* renderedContent, AViewTree* viewTree,
                             TambVizCore::Node* sceneNode)
    : IContentRenderer(renderedContent), view(viewTree), node(sceneNode)
{
}

ARendererTree::~ARendererTree() = default;

void ARendererTree::SetView(AViewTree* viewTree)
{
    view = viewTree;
}

TreeBuilder* ARendererTree::getTreeBuilder()
{
    return view != nullptr ? view->GetTreeBuilder() : nullptr;
}

} // namespace OrvikCore
