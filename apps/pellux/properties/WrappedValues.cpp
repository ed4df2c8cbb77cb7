#include "properties/WrappedValues.h"

#include <QHeaderView>
#include <QTreeView>
#include <algorithm>

namespace Pellux {

WrappedValues::WrappedValues(QTreeView& view) : QStyledItemDelegate(&view), m_view(view)
{
    // Rows are as high as their text needs at this width.
    connect(view.header(), &QHeaderView::sectionResized, &view, &QTreeView::doItemsLayout,
            Qt::QueuedConnection);
}

WrappedValues::~WrappedValues() = default;

QSize WrappedValues::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    const QSize oneLine = QStyledItemDelegate::sizeHint(option, index);
    const int width = m_view.columnWidth(index.column());
    if (oneLine.width() <= width)
        return oneLine;
    QStyleOptionViewItem shown = option;
    initStyleOption(&shown, index);
    // What stands beside the text: margins, and a colour.
    const int beside = oneLine.width() - shown.fontMetrics.horizontalAdvance(shown.text);
    const QRect text = shown.fontMetrics.boundingRect(
        QRect(0, 0, std::max(width - beside, 1), QWIDGETSIZE_MAX), Qt::TextWordWrap, shown.text);
    const int above = oneLine.height() - shown.fontMetrics.height();
    return {width, text.height() + above};
}

} // namespace Pellux
