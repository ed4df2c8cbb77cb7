#ifndef ORVIKCORE_VIEWOPHIGHLIGHT_H
#define ORVIKCORE_VIEWOPHIGHLIGHT_H

#include "OrvikCore/Export.h"
#include "OrvikCore/IViewOp.h"

namespace TambVizCore {
class EntityId;
}

namespace OrvikCore {

/// Highlights an entity, or clears the highlight.
class ORVIKCORE_API ViewOpHighlight : public IViewOp
{
public:
    /// @param pickResult  the entity (not owned, outlives the operation), or null for none.
    /// @param highlightOn true to highlight it, false to clear the highlight.
    ViewOpHighlight(TambVizCore::EntityId* pickResult, bool highlightOn);

    /// @return the entity; not owned, may be null.
    TambVizCore::EntityId* GetPickResult() const { return m_pickResult; }
    bool HighlightOn() const { return m_highlightOn; }

    ViewOpType Type() const override;

    /// @return "ViewOpHighlight:  " and the text of the entity, or "EntityId = NULL", and
    ///         "  highlightOn = 1" (or 0).
    std::string ToString() const override;

private:
    TambVizCore::EntityId* m_pickResult; ///< Not owned; may be null.
    bool m_highlightOn;
};

} // namespace OrvikCore

#endif
