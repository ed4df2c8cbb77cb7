#ifndef PELLUX_HELP_HELPPANELS_H
#define PELLUX_HELP_HELPPANELS_H

#include <QString>

QT_BEGIN_NAMESPACE
class QWidget;
QT_END_NAMESPACE

namespace Pellux {

/// Makes a panel that says what mouse and keys do now: in the navigation that holds, in the menus
/// and by the configuration.
///
/// @param window  Whose actions are listed.
/// @param parent  Owns the panel.
QWidget* MakeKeysPanel(const QWidget& window, QWidget* parent);

/// Makes a panel with the version of the program and of its libraries.
/// @param parent  Owns the panel.
QWidget* MakeAboutPanel(QWidget* parent);

/// What mouse drags do in a navigation: one line each, "Ctrl-left" and "rotate" with a tab between.
QString DragsOf(const QString& navigation);

} // namespace Pellux

#endif
