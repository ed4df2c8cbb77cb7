#ifndef PELLUX_VIEW_VIEWFACTS_H
#define PELLUX_VIEW_VIEWFACTS_H

#include <QPoint>
#include <QString>
#include <cstdint>

/// What the status line says of the current session's view. Main thread, while no job runs.
namespace Pellux {

/// @param at  Device pixels of the view.
/// @return what lies there, by the names that its model gives; empty for nothing.
QString NameAt(const QPoint& at);

/// @return how many triangles the visible bodies have, each instance counted.
std::uint64_t CountVisibleTriangles();

} // namespace Pellux

#endif
