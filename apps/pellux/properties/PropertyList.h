#ifndef PELLUX_PROPERTIES_PROPERTYLIST_H
#define PELLUX_PROPERTIES_PROPERTYLIST_H

#include "properties/PropertyQuestions.h"

#include <QAbstractTableModel>
#include <vector>

namespace Pellux {

/// The questions that were answered, as a table: property, value, how it is known. Questions to
/// which there is no answer have no row. @thread Main thread.
class PropertyList final : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column
    {
        Label,
        Value,
        How,
        ColumnCount,
    };

    PropertyList();
    ~PropertyList() override;

    PropertyList(const PropertyList&) = delete;
    PropertyList& operator=(const PropertyList&) = delete;

    /// Begins anew, without rows.
    void Clear();

    /// Adds the row of an answer; answers come in the order of the questions.
    void Append(const PropertyQuestion& question, const PropertyAnswer& answer);

    /// @return a form that gives the value of a row.
    const QString& Script(int row) const;

    /// @return a row as text, its cells apart by tabs.
    QString RowText(int row) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    struct Row
    {
        QString label;
        QString script;
        PropertyAnswer answer;
    };

    QString text(const Row& row, int column) const;

    std::vector<Row> m_rows;
};

} // namespace Pellux

#endif
