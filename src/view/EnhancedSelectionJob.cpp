#include "OrvikCore/EnhancedSelectionJob.h"

#include "OrvikCore/AContent.h"
#include "OrvikCore/Dbg.h"

#include <exception>

namespace OrvikCore {

EnhancedSelectionJob::EnhancedSelectionJob(Document& document, AContent* content,
                                           const TambVizCore::RenderId& renderId)
    : m_document(&document), m_content(content), m_renderId(renderId)
{
}

EnhancedSelectionJob::~EnhancedSelectionJob() = default;

bool EnhancedSelectionJob::Execute()
{
    if (m_content == nullptr) {
        return true;
    }
    try {
        m_result = m_content->TryHighlight(m_renderId);
    } catch (const std::exception& error) {
        dbg << "-- Exception in EnhancedSelectionJob: " << error.what() << std::endl;
        return false;
    }
    return true;
}

} // namespace OrvikCore
