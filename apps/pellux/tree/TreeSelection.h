#ifndef PELLUX_TREE_TREESELECTION_H
#define PELLUX_TREE_TREESELECTION_H

#include <TambVizCore/EntityId.h>

#include <QObject>
#include <QTimer>
#include <vector>

QT_BEGIN_NAMESPACE
class QItemSelection;
class QTreeView;
QT_END_NAMESPACE

namespace OrvikCore {
class ASession;
}

namespace Pellux {

class CommandRunner;
class HostTreeRow;
class TreeModel;

/// Keeps the selection of a tree view and that of the session in step, both ways: what a hand
/// selects in the tree becomes a sel: command, and whatever is picked or selected elsewhere is
/// selected in the tree, opened and scrolled to. @thread Main thread.
class TreeSelection final : public QObject
{
    Q_OBJECT

public:
    /// @param view     Shows @p model; not owned, as all others; they outlive this object.
    TreeSelection(QTreeView& view, TreeModel& model, CommandRunner& runner,
                  OrvikCore::ASession& session);
    ~TreeSelection() override;

    TreeSelection(const TreeSelection&) = delete;
    TreeSelection& operator=(const TreeSelection&) = delete;

    /// Selects what the session has selected, once the events at hand are done.
    void FollowLater();

    /// @return the entities of the rows that are selected, in the order of the tree.
    std::vector<TambVizCore::EntityId> Entities() const;

    /// Whether the tree is to be opened at what is selected.
    enum class Reveal
    {
        Yes,
        No,
    };

    /// Makes entities the selection of the session by a script command; nothing while something
    /// runs, and nothing when they are that already.
    void Choose(const std::vector<TambVizCore::EntityId>& entities, Reveal reveal);

private:
    void follow();
    void followRows();
    void showLastPick();
    void choose();
    std::vector<const HostTreeRow*> rowsToSelect() const;
    QItemSelection selectionOf(std::vector<const HostTreeRow*> rows) const;

    QTreeView& m_view;
    TreeModel& m_model;
    CommandRunner& m_runner;
    OrvikCore::ASession& m_session;
    QTimer m_followTimer; ///< Many rows are highlighted one by one.
    QTimer m_chooseTimer;
    bool m_isFollowing = false;        ///< The view's selection is being set.
    TambVizCore::EntityId m_lastShown; ///< Scrolled to, or selected in the tree; empty for none.
};

} // namespace Pellux

#endif
