#ifndef TAMBVIZCORE_IVIEWDOUNDOSTRATEGY_H
#define TAMBVIZCORE_IVIEWDOUNDOSTRATEGY_H

#include "TambVizCore/IHighlightStrategy.h"

#include <vector>

namespace TambVizCore {

class IViewAttribute;
class RenderId;

/// Applies attributes to items of a view so that each step can be undone. Nothing is redrawn.
///
/// @thread Main thread.
class TAMBVIZCORE_API IViewDoUndoStrategy : public IHighlightStrategy
{
public:
    ~IViewDoUndoStrategy() override;

    /// Applies an attribute to one item, as one step.
    /// @return false, without a step, when the id names nothing.
    virtual bool Apply(const RenderId& id, const IViewAttribute& attribute) = 0;

    /// Applies an attribute to several items, as one step; ids that name nothing are left out.
    /// @return false, without a step, when no id names anything.
    virtual bool ApplyToAll(const std::vector<RenderId>& ids, const IViewAttribute& attribute) = 0;

    /// Takes the last step back. @return false when there is none.
    virtual bool Undo() = 0;

    /// Does the step taken back last again. @return false when there is none; a new step forgets
    /// what was taken back.
    virtual bool Redo() = 0;
};

} // namespace TambVizCore

#endif
