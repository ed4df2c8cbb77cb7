#include "tree/TreeSelection.h"

#include "runtime/CommandRunner.h"
#include "runtime/Guarded.h"
#include "tree/EntityForms.h"
#include "tree/TreeModel.h"

#include <OrvikCore/ARendererTree.h>
#include <OrvikCore/ASession.h>

#include <QItemSelection>
#include <QTreeView>
#include <algorithm>
#include <tuple>
#include <unordered_set>

namespace Pellux {

using TambVizCore::EntityId;
using TambVizCore::RenderId;

TreeSelection::TreeSelection(QTreeView& view, TreeModel& model, CommandRunner& runner,
                             OrvikCore::ASession& session)
    : m_view(view), m_model(model), m_runner(runner), m_session(session)
{
    m_followTimer.setSingleShot(true);
    m_chooseTimer.setSingleShot(true);
    connect(&m_followTimer, &QTimer::timeout, this, [this] { Guarded([this] { follow(); }); });
    connect(&m_chooseTimer, &QTimer::timeout, this, [this] { Guarded([this] { choose(); }); });
    connect(view.selectionModel(), &QItemSelectionModel::selectionChanged, this, [this] {
        if (!m_isFollowing)
            m_chooseTimer.start(0);
    });
    connect(&model, &TreeModel::Highlighted, this, &TreeSelection::FollowLater);
    connect(&model, &TreeModel::Built, this, &TreeSelection::FollowLater);
    connect(&runner, &CommandRunner::StateChanged, this, &TreeSelection::FollowLater);
    connect(&model, &TreeModel::RowWanted, &view, [&view](const QModelIndex& index) {
        view.scrollTo(index);
        view.selectionModel()->setCurrentIndex(index, QItemSelectionModel::NoUpdate);
    });
}

TreeSelection::~TreeSelection() = default;

void TreeSelection::FollowLater()
{
    m_followTimer.start(0);
}

std::vector<EntityId> TreeSelection::Entities() const
{
    std::vector<EntityId> entities;
    for (const QModelIndex& index : m_view.selectionModel()->selectedIndexes()) {
        EntityId entity;
        if (m_model.FindEntity(m_model.RowAt(index), entity))
            entities.push_back(entity);
    }
    return entities;
}

void TreeSelection::Choose(const std::vector<EntityId>& entities, Reveal reveal)
{
    const std::vector<EntityId> present = m_session.GetPickedEntities();
    const std::unordered_set<EntityId> before(present.begin(), present.end());
    const std::unordered_set<EntityId> wanted(entities.begin(), entities.end());
    if (before == wanted)
        return;
    if (m_runner.IsRunning())
        return FollowLater();
    if (reveal == Reveal::No)
        m_lastShown = entities.empty() ? EntityId() : entities.back();
    m_runner.Run(entities.empty() ? QStringLiteral("(sel:clear)")
                                  : EntitiesForm("sel:set", entities),
                 QStringLiteral("model tree"));
}

void TreeSelection::choose()
{
    Choose(Entities(), Reveal::No);
}

void TreeSelection::follow()
{
    // What a hand has just selected comes first; the command that follows comes back here.
    if (m_chooseTimer.isActive())
        return;
    showLastPick();
    followRows();
}

void TreeSelection::followRows()
{
    const QItemSelection selection = selectionOf(rowsToSelect());
    m_isFollowing = true;
    m_view.selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
    m_isFollowing = false;
    m_view.viewport()->update();
}

/// Opens the tree at what was picked last, unless the tree was where it was picked.
void TreeSelection::showLastPick()
{
    const std::vector<EntityId> picked = m_session.GetPickedEntities();
    const EntityId last = picked.empty() ? EntityId() : picked.back();
    if (last == m_lastShown || m_runner.IsRunning())
        return;
    m_lastShown = last;
    RenderId path;
    OrvikCore::ARendererTree* const renderer = m_session.GetTreeRenderer();
    if (!last.IsEmpty() && renderer != nullptr && renderer->ConvertToRenderId(last, path))
        m_model.Tree().EnsureNodeVisible(path);
}

/// @return the rows of what is picked, also of what is not drawn, and those that stand for rows
///         that are not built.
std::vector<const HostTreeRow*> TreeSelection::rowsToSelect() const
{
    std::vector<const HostTreeRow*> rows = m_model.Tree().HighlightedRows();
    std::unordered_set<const HostTreeRow*> present(rows.begin(), rows.end());
    OrvikCore::ARendererTree* const renderer = m_session.GetTreeRenderer();
    if (renderer == nullptr)
        return rows;
    for (const EntityId& picked : m_session.GetPickedEntities()) {
        RenderId path;
        const HostTreeRow* const row =
            renderer->ConvertToRenderId(picked, path) ? m_model.Tree().Find(path) : nullptr;
        if (row != nullptr && present.insert(row).second)
            rows.push_back(row);
    }
    return rows;
}

/// Neighbours become one range: a selection of many ranges is slow.
QItemSelection TreeSelection::selectionOf(std::vector<const HostTreeRow*> rows) const
{
    std::sort(rows.begin(), rows.end(), [](const HostTreeRow* a, const HostTreeRow* b) {
        return std::make_tuple(a->Parent(), a->Position()) <
               std::make_tuple(b->Parent(), b->Position());
    });
    QItemSelection selection;
    for (std::size_t first = 0; first < rows.size();) {
        std::size_t last = first;
        while (last + 1 < rows.size() && rows[last + 1]->Parent() == rows[first]->Parent() &&
               rows[last + 1]->Position() == rows[last]->Position() + 1)
            ++last;
        selection.append(
            QItemSelectionRange(m_model.IndexOf(*rows[first]), m_model.IndexOf(*rows[last])));
        first = last + 1;
    }
    return selection;
}

} // namespace Pellux
