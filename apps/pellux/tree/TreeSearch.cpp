#include "tree/TreeSearch.h"

#include "runtime/CommandRunner.h"
#include "runtime/Guarded.h"
#include "runtime/QtText.h"
#include "tree/TreeModel.h"

#include <OrvikCore/AContent.h>
#include <OrvikCore/ARendererTree.h>
#include <OrvikCore/ASession.h>
#include <OrvikCore/Document.h>
#include <OrvikCore/IEntityProperties.h>

#include <QElapsedTimer>

namespace Pellux {

using OrvikCore::IEntityProperties;
using TambVizCore::EntityId;

namespace {

/// How long the event queue lies while the search works, milliseconds.
constexpr int kSliceMs = 6;

/// How soon to look again while something runs, milliseconds.
constexpr int kPauseMs = 50;

/// Rows visited between two looks at the clock.
constexpr int kRowsPerLook = 64;

QString partName(const EntityId& part)
{
    const char* const word = part.IsFace() ? "face " : part.IsEdge() ? "edge " : "vertex ";
    return QLatin1String(word) + QString::number(part.SubEntityIndex());
}

} // namespace

TreeSearch::TreeSearch(TreeModel& model, CommandRunner& runner, OrvikCore::ASession& session)
    : m_model(model), m_runner(runner), m_session(session)
{
    connect(&m_timer, &QTimer::timeout, this, [this] { Guarded([this] { Work(kSliceMs); }); });
    connect(&model, &TreeModel::modelAboutToBeReset, this, [this] {
        Stop();
        m_results.Clear();
    });
}

TreeSearch::~TreeSearch() = default;

void TreeSearch::Start(const WildcardPattern& pattern)
{
    m_pattern = pattern;
    m_open.clear();
    m_parts.clear();
    m_found.clear();
    m_nextPart = 0;
    m_results.Clear();
    if (!pattern.IsEmpty()) {
        m_open.push_back({&m_model.Tree().Root(), 0});
        m_timer.start(0);
    } else {
        m_timer.stop();
    }
    Q_EMIT Advanced();
}

void TreeSearch::Stop()
{
    m_open.clear();
    m_parts.clear();
    m_nextPart = 0;
    finish();
}

void TreeSearch::finish()
{
    m_timer.stop();
    m_results.Append(m_found);
    m_found.clear();
    Q_EMIT Advanced();
}

void TreeSearch::Work(int milliseconds)
{
    // Contents belong to the worker while a job runs.
    const bool isPaused = m_runner.IsBusy();
    m_timer.setInterval(isPaused ? kPauseMs : 0);
    if (isPaused)
        return;
    QElapsedTimer clock;
    clock.start();
    do {
        for (int i = 0; i < kRowsPerLook; ++i)
            if (!step())
                return finish();
    } while (clock.elapsed() < milliseconds);
    if (m_found.empty())
        return;
    m_results.Append(m_found);
    m_found.clear();
    Q_EMIT Advanced();
}

/// @return false when there is nothing left to visit.
bool TreeSearch::step()
{
    if (m_nextPart < m_parts.size()) {
        visitPart();
        return true;
    }
    if (m_open.empty())
        return false;
    Level& level = m_open.back();
    if (level.next == level.row->AnnouncedCount()) {
        m_open.pop_back();
        return true;
    }
    const HostTreeRow& row = level.row->ChildAt(level.next++);
    visit(row);
    m_open.push_back({&row, 0});
    if (m_model.canFetchMore(m_model.IndexOf(row)))
        listParts(row);
    return true;
}

void TreeSearch::visit(const HostTreeRow& row)
{
    FoundRow found;
    found.name = ToQt(row.Text());
    if (!m_pattern.Matches(found.name) || !m_model.FindEntity(row, found.entity))
        return;
    found.above = ToQt(row.Parent()->Text());
    row.GetKind(found.kind);
    found.path = row.Path();
    m_found.push_back(std::move(found));
}

void TreeSearch::listParts(const HostTreeRow& row)
{
    m_parts.clear();
    m_nextPart = 0;
    m_partsRow = &row;
    EntityId body;
    if (!m_model.FindEntity(row, body))
        return;
    for (OrvikCore::AContent* const content : m_session.Document().GetContentList()) {
        const auto* const properties = dynamic_cast<const IEntityProperties*>(content);
        if (properties != nullptr && properties->GetContentNumber() == body.Owner() &&
            properties->GetChildren(body, m_parts))
            return;
    }
}

void TreeSearch::visitPart()
{
    const EntityId& part = m_parts[m_nextPart++];
    FoundRow found;
    found.name = partName(part);
    if (!m_pattern.Matches(found.name))
        return;
    OrvikCore::ARendererTree* const renderer = m_session.GetTreeRenderer();
    if (renderer == nullptr || !renderer->ConvertToRenderId(part, found.path))
        return;
    found.above = ToQt(m_partsRow->Text());
    found.kind = RowStyle::Kind::Geometry;
    found.entity = part;
    m_found.push_back(std::move(found));
}

} // namespace Pellux
