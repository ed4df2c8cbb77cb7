#include "tree/SearchResults.h"

#include "runtime/QtText.h"

namespace Pellux {

SearchResults::SearchResults() = default;

SearchResults::~SearchResults() = default;

void SearchResults::Clear()
{
    beginResetModel();
    m_rows.clear();
    endResetModel();
}

void SearchResults::Append(const std::vector<FoundRow>& rows)
{
    if (rows.empty())
        return;
    const int first = static_cast<int>(m_rows.size());
    beginInsertRows({}, first, first + static_cast<int>(rows.size()) - 1);
    m_rows.insert(m_rows.end(), rows.begin(), rows.end());
    endInsertRows();
}

const FoundRow& SearchResults::At(const QModelIndex& index) const
{
    return m_rows[static_cast<std::size_t>(index.row())];
}

int SearchResults::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

QVariant SearchResults::data(const QModelIndex& index, int role) const
{
    if (!index.isValid())
        return {};
    const FoundRow& row = At(index);
    switch (role) {
    case Qt::DisplayRole:
        return row.above.isEmpty() ? row.name : tr("%1 \u2014 %2").arg(row.name, row.above);
    case Qt::DecorationRole:
        return m_icons.Of(row.kind, row.entity.SubEntityKind());
    case Qt::ToolTipRole:
        return PlainToolTip(tr("%1, below %2").arg(row.name, row.above));
    default:
        return {};
    }
}

} // namespace Pellux
