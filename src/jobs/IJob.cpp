#include "OrvikCore/IJob.h"

namespace OrvikCore {

IJob::~IJob() = default;

} // namespace OrvikCore
