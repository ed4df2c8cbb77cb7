#ifndef PELLUX_WINDOW_WINDOWLAYOUT_H
#define PELLUX_WINDOW_WINDOWLAYOUT_H

#include <QtGlobal>

QT_BEGIN_NAMESPACE
class QMainWindow;
QT_END_NAMESPACE

/// Where the window and its docks lay, in "window.ini" of the user's state folder.
/// @thread Main thread.
namespace Pellux::WindowLayout {

/// Puts everything where it was at the end of the last run; docks and tool bars are found by their
/// object names. What cannot be read, or does not fit the screens of today, is left as it is.
void Restore(QMainWindow& window);

/// Remembers where everything is. Nothing without a home folder.
void Save(const QMainWindow& window);

} // namespace Pellux::WindowLayout

#endif
