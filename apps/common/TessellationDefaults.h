#ifndef APPSCOMMON_TESSELLATIONDEFAULTS_H
#define APPSCOMMON_TESSELLATIONDEFAULTS_H

namespace Pellux {

/// Asks all renderers of the process for their own default tessellation, until a script sets
/// another. Main thread.
void UseDefaultTessellation();

} // namespace Pellux

#endif
