#ifndef PELLUX_TREE_ROWSVIEW_H
#define PELLUX_TREE_ROWSVIEW_H

#include <QTreeView>

namespace Pellux {

/// A tree view in which a click on a check box selects nothing. @thread Main thread.
class RowsView final : public QTreeView
{
    Q_OBJECT

public:
    explicit RowsView(QWidget* parent = nullptr);
    ~RowsView() override;

    RowsView(const RowsView&) = delete;
    RowsView& operator=(const RowsView&) = delete;

    /// @return where the check box of a row is, in the viewport; empty when it has none.
    QRect CheckBoxRect(const QModelIndex& index) const;

protected:
    void resizeEvent(QResizeEvent* event) override;
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index,
                                                         const QEvent* event) const override;
};

} // namespace Pellux

#endif
