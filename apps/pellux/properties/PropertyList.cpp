#include "properties/PropertyList.h"

#include "runtime/QtText.h"

namespace Pellux {

PropertyList::PropertyList() = default;

PropertyList::~PropertyList() = default;

void PropertyList::Clear()
{
    beginResetModel();
    m_rows.clear();
    endResetModel();
}

void PropertyList::Append(const PropertyQuestion& question, const PropertyAnswer& answer)
{
    if (!answer.isThere)
        return;
    const int row = static_cast<int>(m_rows.size());
    beginInsertRows({}, row, row);
    m_rows.push_back({question.label, question.script, answer});
    endInsertRows();
}

const QString& PropertyList::Script(int row) const
{
    return m_rows[static_cast<std::size_t>(row)].script;
}

QString PropertyList::RowText(int row) const
{
    const Row& shown = m_rows[static_cast<std::size_t>(row)];
    return text(shown, Label) + QLatin1Char('\t') + text(shown, Value) + QLatin1Char('\t') +
           text(shown, How);
}

int PropertyList::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

int PropertyList::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant PropertyList::data(const QModelIndex& index, int role) const
{
    if (!index.isValid())
        return {};
    const Row& row = m_rows[static_cast<std::size_t>(index.row())];
    switch (role) {
    case Qt::DisplayRole:
        return index.column() == Value && !row.answer.shown.isEmpty() ? row.answer.shown
                                                                      : text(row, index.column());
    case Qt::ToolTipRole:
        return PlainToolTip(text(row, Value) + QLatin1Char('\n') + row.script);
    case Qt::DecorationRole:
        return index.column() == Value && row.answer.color.isValid() ? QVariant(row.answer.color)
                                                                     : QVariant();
    default:
        return {};
    }
}

QVariant PropertyList::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    switch (section) {
    case Label:
        return tr("Property");
    case Value:
        return tr("Value");
    default:
        return tr("Known");
    }
}

QString PropertyList::text(const Row& row, int column) const
{
    switch (column) {
    case Label:
        return row.label;
    case Value:
        return row.answer.value;
    default:
        return row.answer.how;
    }
}

} // namespace Pellux
