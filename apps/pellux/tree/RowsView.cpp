#include "tree/RowsView.h"

#include <QHeaderView>
#include <QMouseEvent>
#include <QStyle>
#include <QStyleOptionViewItem>

namespace Pellux {
namespace {

/// Of a level, pixels: assemblies are deep.
constexpr int kIndentation = 14;

} // namespace

RowsView::RowsView(QWidget* parent) : QTreeView(parent)
{
    setUniformRowHeights(true);
    setHeaderHidden(true);
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    setExpandsOnDoubleClick(false);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setContextMenuPolicy(Qt::CustomContextMenu);
    setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    // Names deep in an assembly are read by scrolling sideways.
    setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    header()->setStretchLastSection(false);
    header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    setIndentation(kIndentation);
}

RowsView::~RowsView() = default;

QRect RowsView::CheckBoxRect(const QModelIndex& index) const
{
    if (!index.isValid() || !index.flags().testFlag(Qt::ItemIsUserCheckable))
        return {};
    QStyleOptionViewItem option;
    initViewItemOption(&option);
    option.rect = visualRect(index);
    option.features |= QStyleOptionViewItem::HasCheckIndicator;
    return style()->subElementRect(QStyle::SE_ItemViewItemCheckIndicator, &option, this);
}

void RowsView::resizeEvent(QResizeEvent* event)
{
    // Short rows are as wide as the view all the same.
    header()->setMinimumSectionSize(viewport()->width());
    QTreeView::resizeEvent(event);
}

QItemSelectionModel::SelectionFlags RowsView::selectionCommand(const QModelIndex& index,
                                                               const QEvent* event) const
{
    const bool isMouse = event != nullptr && (event->type() == QEvent::MouseButtonPress ||
                                              event->type() == QEvent::MouseButtonRelease ||
                                              event->type() == QEvent::MouseMove);
    if (isMouse &&
        CheckBoxRect(index).contains(static_cast<const QMouseEvent*>(event)->position().toPoint()))
        return QItemSelectionModel::NoUpdate;
    return QTreeView::selectionCommand(index, event);
}

} // namespace Pellux
