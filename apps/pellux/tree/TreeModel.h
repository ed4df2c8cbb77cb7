#ifndef PELLUX_TREE_TREEMODEL_H
#define PELLUX_TREE_TREEMODEL_H

#include "tree/KindIcons.h"
#include "tree/RowVisibility.h"

#include <TambVizCore/EntityId.h>

#include <HostTree.h>

#include <QAbstractItemModel>

namespace OrvikCore {
class ASession;
}

namespace Pellux {

/// The rows of a HostTree as Qt's views see them. Holds no rows of its own: an index points at the
/// row in the tree. Rows below a body come when they are fetched. @thread Main thread.
class TreeModel final : public QAbstractItemModel, public IHostTreeObserver
{
    Q_OBJECT

public:
    /// Watches the tree until it ends.
    /// @param tree     Not owned; outlives the model.
    /// @param session  Whose tree it is; not owned, outlives the model.
    TreeModel(HostTree& tree, OrvikCore::ASession& session);
    ~TreeModel() override;

    TreeModel(const TreeModel&) = delete;
    TreeModel& operator=(const TreeModel&) = delete;

    QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
    QModelIndex parent(const QModelIndex& child) const override;
    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    bool hasChildren(const QModelIndex& parent = {}) const override;
    bool canFetchMore(const QModelIndex& parent) const override;
    void fetchMore(const QModelIndex& parent) override;
    QVariant data(const QModelIndex& index, int role) const override;
    /// Changes nothing itself: a check box asks by VisibilityAsked().
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    using QObject::parent;

    /// @return the row; the tree's root for an invalid index. Not owned.
    const HostTreeRow& RowAt(const QModelIndex& index) const;
    QModelIndex IndexOf(const HostTreeRow& row) const;

    /// Finds the entity that a row stands for.
    /// @return false for the scene row and for a row that is none of the session's.
    bool FindEntity(const HostTreeRow& row, TambVizCore::EntityId& entity) const;

    HostTree& Tree() { return m_tree; }
    KindIcons& Icons() { return m_icons; }

    void RowsChanged() override;
    void HighlightChanged() override;
    void ShowRow(const HostTreeRow& row) override;
    void RowsAboutToBeAnnounced(const HostTreeRow& parent, std::size_t first,
                                std::size_t last) override;
    void RowsAnnounced() override;
    void RowsAboutToBeCleared() override;
    void RowsCleared() override;

Q_SIGNALS:
    /// A check box was used.
    void VisibilityAsked(const QModelIndex& index, bool visible);

    /// What is highlighted is another; comes once for each row.
    void Highlighted();

    /// A row is to be opened and scrolled to.
    void RowWanted(const QModelIndex& index);

    /// A construction has ended.
    void Built();

private:
    TambVizCore::PartKind partOf(const HostTreeRow& row, RowStyle::Kind kind) const;
    QVariant checkState(const HostTreeRow& row) const;
    QString toolTip(const HostTreeRow& row) const;
    bool isDimmed(const HostTreeRow& row) const;

    HostTree& m_tree;
    OrvikCore::ASession& m_session;
    mutable RowVisibility m_visibility; ///< Remembers between questions.
    mutable KindIcons m_icons;
};

} // namespace Pellux

#endif
