#include "OrvikCore/IJobStatusObserver.h"

namespace OrvikCore {

IJobStatusObserver::~IJobStatusObserver() = default;

} // namespace OrvikCore
