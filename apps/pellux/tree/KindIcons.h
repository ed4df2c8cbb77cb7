#ifndef PELLUX_TREE_KINDICONS_H
#define PELLUX_TREE_KINDICONS_H

#include <TambVizCore/PartKind.h>

#include <HostTreeRow.h>

#include <QIcon>
#include <map>
#include <utility>

namespace Pellux {

/// The small pictures of the kinds of rows, painted at whatever size and resolution is asked for.
/// Their colours can be told apart on light and dark ground. @thread Main thread.
class KindIcons
{
public:
    /// @param part  Of a row that stands for a face, an edge or a vertex of a body.
    const QIcon& Of(RowStyle::Kind kind, TambVizCore::PartKind part = TambVizCore::PartKind::None);

private:
    std::map<std::pair<RowStyle::Kind, TambVizCore::PartKind>, QIcon> m_icons;
};

} // namespace Pellux

#endif
