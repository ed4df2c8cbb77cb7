#include "OrvikCore/ViewOpHighlight.h"

#include "FormatText.h"

#include <TambVizCore/EntityId.h>

namespace OrvikCore {

ViewOpHighlight::ViewOpHighlight(TambVizCore::EntityId* pickResult, bool highlightOn)
    : IViewOp(IViewOpState::Processing), m_pickResult(pickResult), m_highlightOn(highlightOn)
{
}

ViewOpType ViewOpHighlight::Type() const
{
    return ViewOpType::Highlight;
}

std::string ViewOpHighlight::ToString() const
{
    const std::string entity =
        m_pickResult != nullptr ? m_pickResult->ToString() : std::string("EntityId = NULL");
    return FormatText("ViewOpHighlight:  %s  highlightOn = %d", entity.c_str(),
                      m_highlightOn ? 1 : 0);
}

} // namespace OrvikCore
