#ifndef PELLUX_PROPERTIES_WRAPPEDVALUES_H
#define PELLUX_PROPERTIES_WRAPPEDVALUES_H

#include <QStyledItemDelegate>

QT_BEGIN_NAMESPACE
class QTreeView;
QT_END_NAMESPACE

namespace Pellux {

/// Breaks what is wider than its column into lines, so that points and boxes can be read in a
/// narrow panel. @thread Main thread.
class WrappedValues final : public QStyledItemDelegate
{
    Q_OBJECT

public:
    /// @param view  Breaks words (setWordWrap); owns the delegate.
    explicit WrappedValues(QTreeView& view);
    ~WrappedValues() override;

    WrappedValues(const WrappedValues&) = delete;
    WrappedValues& operator=(const WrappedValues&) = delete;

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

private:
    QTreeView& m_view;
};

} // namespace Pellux

#endif
