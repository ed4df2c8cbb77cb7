#ifndef PELLUX_RUNTIME_FIRSTFOCUS_H
#define PELLUX_RUNTIME_FIRSTFOCUS_H

#include <QtGlobal>

QT_BEGIN_NAMESPACE
class QWidget;
QT_END_NAMESPACE

/// Which widget of a panel gets the keyboard when the panel is entered. A focus proxy does not do
/// for that: Tab would pass over what stands before it in the panel. @thread Main thread.
namespace Pellux {

/// @param panel  Not owned.
/// @param first  A widget inside; not owned, lives as long as the panel.
void SetFirstFocus(QWidget& panel, QWidget& first);

/// @return what was set for the panel, or for the content of a dock; else its focus proxy, else the
///         first widget inside that Tab reaches; null without one.
QWidget* FirstFocus(QWidget& panel);

} // namespace Pellux

#endif
