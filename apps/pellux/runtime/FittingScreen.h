#ifndef PELLUX_RUNTIME_FITTINGSCREEN_H
#define PELLUX_RUNTIME_FITTINGSCREEN_H

#include <QSize>

QT_BEGIN_NAMESPACE
class QWidget;
QT_END_NAMESPACE

namespace Pellux {

/// Makes a size that a window wants small enough for a screen, with what a window manager puts
/// around it.
/// @param on      A widget on the screen.
/// @param wanted  Pixels of the user interface.
QSize FittingScreen(const QWidget& on, const QSize& wanted);

} // namespace Pellux

#endif
