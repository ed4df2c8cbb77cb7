#ifndef PELLUX_TREE_TREEPANEL_H
#define PELLUX_TREE_TREEPANEL_H

#include "tree/TreeModel.h"
#include "tree/TreeSearch.h"
#include "tree/TreeSelection.h"

#include <TambVizCore/RenderId.h>

#include <QWidget>
#include <vector>

QT_BEGIN_NAMESPACE
class QLabel;
class QLineEdit;
class QListView;
class QStackedWidget;
class QToolButton;
QT_END_NAMESPACE

namespace Pellux {

class RowsView;

/// The model tree of a session: rows with check boxes for what is shown, and a search by name.
/// Whatever it changes, it changes by script commands. @thread Main thread.
class TreePanel final : public QWidget
{
    Q_OBJECT

public:
    /// @param tree, runner, session  Not owned; outlive the panel.
    TreePanel(HostTree& tree, CommandRunner& runner, OrvikCore::ASession& session,
              QWidget* parent = nullptr);
    ~TreePanel() override;

    TreePanel(const TreePanel&) = delete;
    TreePanel& operator=(const TreePanel&) = delete;

    TreeModel& Model() { return m_model; }
    TreeSearch& Search() { return m_search; }
    RowsView& View() { return *m_view; }

    /// Puts the cursor into the search field.
    void FocusSearch();

Q_SIGNALS:
    /// The context menu of a row is asked for, which is selected then.
    /// @param place  Of the pointer, global.
    void MenuAsked(const TambVizCore::RenderId& path, const QPoint& place);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void makeSearchField();
    void makeResults();
    void layOut();
    void connectView();
    void setVisible(const QModelIndex& index, bool visible);
    void activate(const TambVizCore::EntityId& entity);
    void askForMenu(const QPoint& position);
    void askForMenuOfResult(const QPoint& position);
    void showSearch();
    void chooseResults();
    void rememberRows();
    void restoreRows();

    CommandRunner& m_runner;
    TreeModel m_model;
    RowsView* m_view; ///< These four are owned as children.
    QLineEdit* m_searchField = nullptr;
    QLabel* m_searchState = nullptr;
    QToolButton* m_stopButton = nullptr;
    QStackedWidget* m_pages = nullptr;
    QListView* m_resultView = nullptr;
    TreeSelection m_selection;
    TreeSearch m_search;
    std::vector<TambVizCore::RenderId> m_expanded; ///< Before the rows went.
    int m_scrolled = 0;                            ///< Then too.
    bool m_isRestored = false;                     ///< Since the rows went.
};

} // namespace Pellux

#endif
