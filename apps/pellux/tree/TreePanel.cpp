#include "tree/TreePanel.h"

#include "runtime/CommandRunner.h"
#include "runtime/FirstFocus.h"
#include "runtime/Guarded.h"
#include "tree/EntityForms.h"
#include "tree/RowsView.h"

#include <TambVizCore/EntityType.h>

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QScrollBar>
#include <QStackedWidget>
#include <QTimer>
#include <QToolButton>
#include <QVBoxLayout>

namespace Pellux {

using TambVizCore::EntityId;
using TambVizCore::RenderId;

namespace {

const QString kSource = QStringLiteral("model tree");

/// How soon to look again whether a command can run, milliseconds.
constexpr int kLookAgainMs = 20;

} // namespace

TreePanel::TreePanel(HostTree& tree, CommandRunner& runner, OrvikCore::ASession& session,
                     QWidget* parent)
    : QWidget(parent),
      m_runner(runner),
      m_model(tree, session),
      m_view(new RowsView(this)),
      m_selection((m_view->setModel(&m_model), *m_view), m_model, runner, session),
      m_search(m_model, runner, session)
{
    m_view->setAccessibleName(tr("Model tree"));
    makeSearchField();
    makeResults();
    layOut();
    connectView();
    restoreRows();
}

TreePanel::~TreePanel()
{
    // The view goes after the model that it shows.
    m_view->setModel(nullptr);
    m_resultView->setModel(nullptr);
}

void TreePanel::FocusSearch()
{
    m_searchField->setFocus(Qt::ShortcutFocusReason);
    m_searchField->selectAll();
}

void TreePanel::makeSearchField()
{
    m_searchField = new QLineEdit(this);
    m_searchField->setPlaceholderText(tr("Search by name, * and ? stand for anything"));
    m_searchField->setAccessibleName(tr("Search the model tree"));
    m_searchField->setClearButtonEnabled(true);
    SetFirstFocus(*this, *m_view);
    m_searchState = new QLabel(this);
    m_stopButton = new QToolButton(this);
    m_stopButton->setText(tr("Stop"));
    m_stopButton->setAccessibleName(tr("Stop the search"));
    connect(m_searchField, &QLineEdit::textChanged, this, [this](const QString& text) {
        Guarded([this, &text] { m_search.Start(WildcardPattern(text)); });
    });
    connect(m_searchField, &QLineEdit::returnPressed, this, [this] {
        Guarded([this] {
            if (m_search.Results().rowCount() == 0)
                return;
            m_resultView->setFocus();
            m_resultView->setCurrentIndex(m_search.Results().index(0));
        });
    });
    connect(m_stopButton, &QToolButton::clicked, this,
            [this] { Guarded([this] { m_search.Stop(); }); });
    connect(&m_search, &TreeSearch::Advanced, this, [this] { Guarded([this] { showSearch(); }); });
}

void TreePanel::makeResults()
{
    m_resultView = new QListView(this);
    m_resultView->setModel(&m_search.Results());
    m_resultView->setUniformItemSizes(true);
    m_resultView->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_resultView->setAccessibleName(tr("Rows found"));
    connect(m_resultView->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            [this] { Guarded([this] { chooseResults(); }); });
    m_resultView->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(m_resultView, &QWidget::customContextMenuRequested, this,
            [this](const QPoint& position) {
                Guarded([this, &position] { askForMenuOfResult(position); });
            });
    connect(m_resultView, &QListView::doubleClicked, this, [this](const QModelIndex& index) {
        Guarded([this, &index] { activate(m_search.Results().At(index).entity); });
    });
}

void TreePanel::layOut()
{
    m_pages = new QStackedWidget(this);
    m_pages->addWidget(m_view);
    m_pages->addWidget(m_resultView);
    auto* const searchLine = new QHBoxLayout;
    searchLine->addWidget(m_searchState, 1);
    searchLine->addWidget(m_stopButton);
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(4, 4, 4, 4);
    column->setSpacing(4);
    column->addWidget(m_searchField);
    column->addLayout(searchLine);
    column->addWidget(m_pages, 1);
    setTabOrder(m_searchField, m_stopButton);
    setTabOrder(m_stopButton, m_view);
    setTabOrder(m_view, m_resultView);
    showSearch();
}

void TreePanel::connectView()
{
    connect(&m_model, &TreeModel::VisibilityAsked, this,
            [this](const QModelIndex& index, bool visible) {
                Guarded([this, &index, visible] { setVisible(index, visible); });
            });
    connect(m_view, &QTreeView::doubleClicked, this, [this](const QModelIndex& index) {
        Guarded([this, &index] {
            EntityId entity;
            if (m_model.FindEntity(m_model.RowAt(index), entity))
                activate(entity);
        });
    });
    connect(m_view, &QTreeView::customContextMenuRequested, this, [this](const QPoint& position) {
        Guarded([this, &position] { askForMenu(position); });
    });
    connect(&m_model, &TreeModel::modelAboutToBeReset, this,
            [this] { Guarded([this] { rememberRows(); }); });
    connect(&m_model, &TreeModel::Built, this, [this] { Guarded([this] { restoreRows(); }); });
    connect(&m_runner, &CommandRunner::StateChanged, m_view->viewport(),
            qOverload<>(&QWidget::update));
}

/// A row that is selected with others stands for all of them.
void TreePanel::setVisible(const QModelIndex& index, bool visible)
{
    std::vector<EntityId> entities;
    if (m_view->selectionModel()->isSelected(index))
        entities = m_selection.Entities();
    EntityId entity;
    if (entities.empty() && m_model.FindEntity(m_model.RowAt(index), entity))
        entities.push_back(entity);
    if (!entities.empty())
        m_runner.Run(EntitiesForm(visible ? "view:show" : "view:hide", entities), kSource);
}

/// Goes where a saved view was saved, else to the entity. The first click of a double click may be
/// selecting still.
void TreePanel::activate(const EntityId& entity)
{
    if (!m_runner.IsRunning()) {
        const bool isSaved = entity.Type() == TambVizCore::EntityType::View ||
                             entity.Type() == TambVizCore::EntityType::Capture;
        m_runner.Run(EntitiesForm(isSaved ? "view:saved-view" : "view:zoom-to", {entity}), kSource);
        return;
    }
    QTimer::singleShot(kLookAgainMs, this,
                       [this, entity] { Guarded([this, &entity] { activate(entity); }); });
}

void TreePanel::askForMenu(const QPoint& position)
{
    const QModelIndex index = m_view->indexAt(position);
    if (index.isValid())
        Q_EMIT MenuAsked(m_model.RowAt(index).Path(), m_view->viewport()->mapToGlobal(position));
}

void TreePanel::askForMenuOfResult(const QPoint& position)
{
    const QModelIndex index = m_resultView->indexAt(position);
    if (index.isValid())
        Q_EMIT MenuAsked(m_search.Results().At(index).path,
                         m_resultView->viewport()->mapToGlobal(position));
}

void TreePanel::showSearch()
{
    const bool isSearching = m_search.IsRunning();
    const bool hasPattern = !m_searchField->text().trimmed().isEmpty();
    m_pages->setCurrentIndex(hasPattern ? 1 : 0);
    m_searchState->setVisible(hasPattern);
    m_stopButton->setVisible(hasPattern && isSearching);
    const int count = m_search.Results().rowCount();
    m_searchState->setText(isSearching ? tr("Searching, %1 found so far").arg(count)
                                       : tr("%1 found").arg(count));
}

void TreePanel::chooseResults()
{
    std::vector<EntityId> entities;
    for (const QModelIndex& index : m_resultView->selectionModel()->selectedIndexes())
        entities.push_back(m_search.Results().At(index).entity);
    if (!entities.empty())
        m_selection.Choose(entities, TreeSelection::Reveal::Yes);
}

/// Keeps what is open and where the view is scrolled to: the rows that come may be the same.
void TreePanel::rememberRows()
{
    std::vector<QModelIndex> open{QModelIndex()};
    std::vector<RenderId> expanded;
    while (!open.empty()) {
        const QModelIndex parent = open.back();
        open.pop_back();
        for (int i = 0; i < m_model.rowCount(parent); ++i) {
            const QModelIndex index = m_model.index(i, 0, parent);
            if (!m_view->isExpanded(index))
                continue;
            expanded.push_back(m_model.RowAt(index).Path());
            open.push_back(index);
        }
    }
    if (m_model.rowCount() == 0)
        return;
    m_isRestored = false;
    m_expanded = std::move(expanded);
    m_scrolled = m_view->verticalScrollBar()->value();
}

void TreePanel::restoreRows()
{
    if (m_isRestored || m_model.rowCount() == 0)
        return;
    m_isRestored = true;
    std::vector<RenderId> wanted;
    wanted.swap(m_expanded);
    for (const RenderId& path : wanted)
        if (const HostTreeRow* const row = m_model.Tree().Find(path)) {
            const QModelIndex index = m_model.IndexOf(*row);
            m_model.fetchMore(index);
            m_view->expand(index);
        }
    if (wanted.empty())
        return m_view->expandToDepth(1);
    m_view->doItemsLayout();
    m_view->verticalScrollBar()->setValue(m_scrolled);
}

void TreePanel::keyPressEvent(QKeyEvent* event)
{
    if (event->matches(QKeySequence::Find)) {
        FocusSearch();
    } else if (event->key() == Qt::Key_Escape && !m_searchField->text().isEmpty()) {
        m_searchField->clear();
        m_view->setFocus();
    } else {
        QWidget::keyPressEvent(event);
    }
}

} // namespace Pellux
