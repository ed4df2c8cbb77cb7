#ifndef ORVIKCORE_VISIBILITYMENUACTION_H
#define ORVIKCORE_VISIBILITYMENUACTION_H

#include "OrvikCore/Export.h"
#include "OrvikCore/IMenuAction.h"

namespace OrvikCore {

/// Shows or hides what a node of the model tree stands for; behind "&Hide node" and "&Unhide node".
class ORVIKCORE_API VisibilityMenuAction final : public IMenuAction
{
public:
    /// @param isVisible  the visibility to set.
    explicit VisibilityMenuAction(bool isVisible);

    /// Sets the visibility of the node's entity in the current session's 3D view, undoably, and
    /// refreshes the view.
    ///
    /// @param node  a path made by TreeBuilder::GetCurrentRenderId (origin 2).
    /// @return false, with nothing changed, for a path of another origin, without 3D renderer, tree
    ///         renderer or undo strategy, or when the entity cannot be expanded in the 3D view.
    bool Run(const TambVizCore::RenderId& node) override;

private:
    bool visible;
};

} // namespace OrvikCore

#endif
