#include "OrvikCore/RayPickJob.h"

#include "OrvikCore/Document.h"

namespace OrvikCore {

RayPickJob::RayPickJob(Document& document, const TambVizCore::Ray& ray)
    : m_document(&document), m_ray(ray)
{
}

RayPickJob::~RayPickJob() = default;

bool RayPickJob::Execute()
{
    m_found = m_document->RayPick(m_ray, m_entity);
    return m_found;
}

} // namespace OrvikCore
