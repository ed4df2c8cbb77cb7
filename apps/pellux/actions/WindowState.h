#ifndef PELLUX_ACTIONS_WINDOWSTATE_H
#define PELLUX_ACTIONS_WINDOWSTATE_H

#include <QColor>
#include <QString>
#include <QStringList>

namespace OrvikCore {
class IHostWindow;
} // namespace OrvikCore
namespace TambVizCore {
class RenderingOptions;
} // namespace TambVizCore

/// What holds in session, view and window now, for switches and choices of menus. Only asks.
/// @thread Main thread; nothing runs.
namespace Pellux::WindowState {

/// @return the window as scripts see it; null when there is none.
OrvikCore::IHostWindow* Window();

bool IsWatching();
bool IsPanelShown(const QString& name);

/// @return the options of the view; null without a view. Not owned.
const TambVizCore::RenderingOptions* Options();

bool IsPerspective();
bool IsZUp();
bool IsAnimated();

/// @return whether the corner of the view shows the axes.
bool ShowsAxes();
QColor Background(int number);

QString Navigation();
QStringList Navigations();

bool HasModel();
int SelectedCount();

/// @return the paths of what is loaded, in the order of loading, each once.
QStringList LoadedFiles();

} // namespace Pellux::WindowState

#endif
