#ifndef ORVIKCORE_ENHANCEDSELECTIONJOB_H
#define ORVIKCORE_ENHANCEDSELECTIONJOB_H

#include "OrvikCore/Export.h"
#include "OrvikCore/IJob.h"

#include <TambVizCore/RenderId.h>

namespace OrvikCore {

class AContent;
class Document;

/// Asks a content to highlight what it sees in the item under the pointer.
///
/// @thread  Execute: worker; result: after the job.
class ORVIKCORE_API EnhancedSelectionJob : public IJob
{
public:
    /// @param document  the document of the content; not owned.
    /// @param content   the content asked; not owned, outlives the job; null: the job does nothing.
    /// @param renderId  the item under the pointer; copied.
    EnhancedSelectionJob(Document& document, AContent* content,
                         const TambVizCore::RenderId& renderId);
    ~EnhancedSelectionJob() override;

    /// @return false when the content threw a std::exception, which is traced as
    ///         "-- Exception in EnhancedSelectionJob: " and its text; else true.
    bool Execute() override;

    /// @return what the content answered; false before the job has run.
    bool Result() const { return m_result; }

private:
    Document* m_document; ///< Not owned.
    AContent* m_content;  ///< Not owned.
    TambVizCore::RenderId m_renderId;
    bool m_result = false;
};

} // namespace OrvikCore

#endif
