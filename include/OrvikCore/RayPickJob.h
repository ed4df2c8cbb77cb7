#ifndef ORVIKCORE_RAYPICKJOB_H
#define ORVIKCORE_RAYPICKJOB_H

#include "OrvikCore/Export.h"
#include "OrvikCore/IJob.h"

#include <TambVizCore/EntityId.h>
#include <TambVizCore/Ray.h>

namespace OrvikCore {

class Document;

/// Asks a document for the entity under a ray. @thread  Execute: worker; results: after the job.
class ORVIKCORE_API RayPickJob : public IJob
{
public:
    /// @param document  the document asked; not owned, outlives the job.
    /// @param ray       copied.
    RayPickJob(Document& document, const TambVizCore::Ray& ray);
    ~RayPickJob() override;

    /// @return true when something was hit.
    bool Execute() override;

    /// @return true when something was hit; false before the job has run.
    bool IsFound() const { return m_found; }

    /// @return the entity hit; empty when nothing was.
    const TambVizCore::EntityId& Entity() const { return m_entity; }

private:
    Document* m_document; ///< Not owned.
    TambVizCore::Ray m_ray;
    TambVizCore::EntityId m_entity;
    bool m_found = false;
};

} // namespace OrvikCore

#endif
