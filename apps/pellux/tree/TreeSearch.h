#ifndef PELLUX_TREE_TREESEARCH_H
#define PELLUX_TREE_TREESEARCH_H

#include "tree/SearchResults.h"
#include "tree/WildcardPattern.h"

#include <QObject>
#include <QTimer>
#include <vector>

namespace OrvikCore {
class ASession;
}

namespace Pellux {

class CommandRunner;
class HostTreeRow;
class TreeModel;

/// Looks for rows of the model tree by name, a little at a time while nothing else is to be done.
///
/// Faces, edges and vertices whose rows are not built yet are found too; their rows stay unbuilt.
/// A search ends when the rows go; it pauses while something runs. @thread Main thread.
class TreeSearch final : public QObject
{
    Q_OBJECT

public:
    /// @param model, runner, session  Not owned; outlive the search.
    TreeSearch(TreeModel& model, CommandRunner& runner, OrvikCore::ASession& session);
    ~TreeSearch() override;

    TreeSearch(const TreeSearch&) = delete;
    TreeSearch& operator=(const TreeSearch&) = delete;

    /// Begins anew; for an empty pattern nothing is found.
    void Start(const WildcardPattern& pattern);

    /// Leaves it at what was found so far.
    void Stop();

    bool IsRunning() const { return m_timer.isActive(); }
    SearchResults& Results() { return m_results; }

    /// Works for about @p milliseconds, at least on one row.
    void Work(int milliseconds);

Q_SIGNALS:
    /// More was found, or the search has begun or ended.
    void Advanced();

private:
    struct Level
    {
        const HostTreeRow* row; ///< Not owned.
        std::size_t next;       ///< The child to visit next.
    };

    bool step();
    void visit(const HostTreeRow& row);
    void listParts(const HostTreeRow& row);
    void visitPart();
    void finish();

    TreeModel& m_model;
    CommandRunner& m_runner;
    OrvikCore::ASession& m_session;
    WildcardPattern m_pattern;
    std::vector<Level> m_open;                  ///< The innermost last.
    std::vector<TambVizCore::EntityId> m_parts; ///< Without rows, of the row visited last.
    std::size_t m_nextPart = 0;
    const HostTreeRow* m_partsRow = nullptr; ///< Not owned; whose parts they are.
    std::vector<FoundRow> m_found;           ///< Not in m_results yet.
    SearchResults m_results;
    QTimer m_timer;
};

} // namespace Pellux

#endif
