#ifndef PELLUX_FILES_FILEFILTERS_H
#define PELLUX_FILES_FILEFILTERS_H

#include <QString>

namespace Pellux {

/// The filters of a file dialog, from what the loaders and savers that are registered can do:
/// everything together first, then each format, then all files.
QString OpenFilter();
QString SaveFilter();

/// Tells whether some loader reads files of this name.
bool CanRead(const QString& path);

/// Tells whether the name is that of a script.
bool IsScript(const QString& path);

} // namespace Pellux

#endif
