#ifndef PELLUX_TREE_SEARCHRESULTS_H
#define PELLUX_TREE_SEARCHRESULTS_H

#include "tree/KindIcons.h"

#include <TambVizCore/EntityId.h>
#include <TambVizCore/RenderId.h>

#include <QAbstractListModel>
#include <vector>

namespace Pellux {

/// One row of the model tree that a search has found, built or not.
struct FoundRow
{
    QString name;
    QString above; ///< The name of the row above.
    RowStyle::Kind kind{};
    TambVizCore::EntityId entity;
    TambVizCore::RenderId path; ///< In the model tree.
};

/// What a search has found so far. @thread Main thread.
class SearchResults final : public QAbstractListModel
{
    Q_OBJECT

public:
    SearchResults();
    ~SearchResults() override;

    SearchResults(const SearchResults&) = delete;
    SearchResults& operator=(const SearchResults&) = delete;

    void Clear();
    void Append(const std::vector<FoundRow>& rows);
    const FoundRow& At(const QModelIndex& index) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;

private:
    std::vector<FoundRow> m_rows;
    mutable KindIcons m_icons;
};

} // namespace Pellux

#endif
