#ifndef PELLUX_ACTIONS_LINEICON_H
#define PELLUX_ACTIONS_LINEICON_H

#include <QIcon>

namespace Pellux {

/// An icon of lines in the colour of the palette's text, sharp at every size.
///
/// @param name  Of the drawing; one that there is not gives the null icon.
QIcon LineIcon(const QString& name);

} // namespace Pellux

#endif
