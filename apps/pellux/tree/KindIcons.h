#ifndef PELLUX_TREE_KINDICONS_H
#define PELLUX_TREE_KINDICONS_H

#include <HostTreeRow.h>

#include <QIcon>
#include <map>

namespace Pellux {

/// The small pictures of the kinds of rows, painted at whatever size and resolution is asked for.
/// Their colours can be told apart on light and dark ground. @thread Main thread.
class KindIcons
{
public:
    const QIcon& Of(RowStyle::Kind kind);

private:
    std::map<RowStyle::Kind, QIcon> m_icons;
};

} // namespace Pellux

#endif
