#include "tree/TreeModel.h"

#include "runtime/QtText.h"

#include <OrvikCore/ARendererTree.h>
#include <OrvikCore/ASession.h>

#include <QFont>
#include <QGuiApplication>
#include <QPalette>

namespace Pellux {

using TambVizCore::EntityId;

namespace {

using Kind = RowStyle::Kind;

/// Rows of these kinds have rows below them that come when they are opened.
bool hasPartsBelow(const HostTreeRow& row)
{
    Kind kind{};
    if (row.IsFilled() || !row.GetKind(kind))
        return false;
    return kind == Kind::Body || kind == Kind::PolyBody || kind == Kind::Wire ||
           kind == Kind::PointSet;
}

QFont fontOf(const HostTreeRow& row)
{
    QFont font;
    font.setBold(row.IsBold());
    font.setItalic(row.IsItalic());
    return font;
}

} // namespace

TreeModel::TreeModel(HostTree& tree, OrvikCore::ASession& session)
    : m_tree(tree), m_session(session), m_visibility(session)
{
    m_tree.SetObserver(this);
}

TreeModel::~TreeModel()
{
    m_tree.SetObserver(nullptr);
}

const HostTreeRow& TreeModel::RowAt(const QModelIndex& index) const
{
    return index.isValid() ? *static_cast<const HostTreeRow*>(index.constInternalPointer())
                           : m_tree.Root();
}

QModelIndex TreeModel::IndexOf(const HostTreeRow& row) const
{
    if (&row == &m_tree.Root())
        return {};
    return createIndex(static_cast<int>(row.Position()), 0, &row);
}

QModelIndex TreeModel::index(int row, int column, const QModelIndex& parent) const
{
    if (column != 0 || row < 0 || row >= rowCount(parent))
        return {};
    return IndexOf(RowAt(parent).ChildAt(static_cast<std::size_t>(row)));
}

QModelIndex TreeModel::parent(const QModelIndex& child) const
{
    return child.isValid() ? IndexOf(*RowAt(child).Parent()) : QModelIndex();
}

int TreeModel::rowCount(const QModelIndex& parent) const
{
    return parent.column() > 0 ? 0 : static_cast<int>(RowAt(parent).AnnouncedCount());
}

int TreeModel::columnCount(const QModelIndex& /*parent*/) const
{
    return 1;
}

bool TreeModel::hasChildren(const QModelIndex& parent) const
{
    return rowCount(parent) > 0 || canFetchMore(parent);
}

bool TreeModel::canFetchMore(const QModelIndex& parent) const
{
    return parent.isValid() && hasPartsBelow(RowAt(parent));
}

void TreeModel::fetchMore(const QModelIndex& parent)
{
    if (canFetchMore(parent))
        m_tree.Fill(RowAt(parent).Path());
}

QVariant TreeModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid())
        return {};
    const HostTreeRow& row = RowAt(index);
    Kind kind{};
    switch (role) {
    case Qt::DisplayRole:
        return ToQt(row.Text());
    case Qt::DecorationRole:
        return row.GetKind(kind) ? QVariant(m_icons.Of(kind, partOf(row, kind))) : QVariant();
    case Qt::FontRole:
        return fontOf(row);
    case Qt::CheckStateRole:
        return checkState(row);
    case Qt::ToolTipRole:
        return PlainToolTip(toolTip(row));
    case Qt::AccessibleDescriptionRole:
        return QString::fromLatin1(row.KindWord());
    case Qt::ForegroundRole:
        return isDimmed(row)
                   ? QVariant(QGuiApplication::palette().brush(QPalette::Disabled, QPalette::Text))
                   : QVariant();
    default:
        return {};
    }
}

bool TreeModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    if (role != Qt::CheckStateRole || !index.isValid())
        return false;
    // A click on what is partly shown shows all of it.
    Q_EMIT VisibilityAsked(index, value.toInt() != Qt::Unchecked);
    return false;
}

Qt::ItemFlags TreeModel::flags(const QModelIndex& index) const
{
    if (!index.isValid())
        return Qt::NoItemFlags;
    Qt::ItemFlags flags = Qt::ItemIsEnabled;
    EntityId entity;
    if (!FindEntity(RowAt(index), entity))
        return flags;
    flags |= Qt::ItemIsSelectable;
    if (m_visibility.Of(entity) != Shown::Undrawn)
        flags |= Qt::ItemIsUserCheckable;
    return flags;
}

bool TreeModel::FindEntity(const HostTreeRow& row, EntityId& entity) const
{
    OrvikCore::ARendererTree* const renderer = m_session.GetTreeRenderer();
    return renderer != nullptr && row.Parent() != &m_tree.Root() &&
           renderer->ConvertToEntityId(row.Path(), entity);
}

/// @return None for a row that is no face, edge or vertex.
TambVizCore::PartKind TreeModel::partOf(const HostTreeRow& row, Kind kind) const
{
    EntityId entity;
    return kind == Kind::Geometry && FindEntity(row, entity) ? entity.SubEntityKind()
                                                             : TambVizCore::PartKind::None;
}

QVariant TreeModel::checkState(const HostTreeRow& row) const
{
    EntityId entity;
    if (!FindEntity(row, entity))
        return {};
    switch (m_visibility.Of(entity)) {
    case Shown::Undrawn:
        break;
    case Shown::Yes:
        return Qt::Checked;
    case Shown::Partly:
        return Qt::PartiallyChecked;
    case Shown::No:
        return Qt::Unchecked;
    }
    return {};
}

QString TreeModel::toolTip(const HostTreeRow& row) const
{
    OrvikCore::ARendererTree* const renderer = m_session.GetTreeRenderer();
    const QString text = renderer == nullptr ? QString() : ToQt(renderer->GetToolTip(row.Path()));
    const QString kind = QString::fromLatin1(row.KindWord());
    return text.isEmpty() ? kind : text + QStringLiteral("\n") + kind;
}

/// Rows that the file hides, and those of what is hidden now, are written in grey.
bool TreeModel::isDimmed(const HostTreeRow& row) const
{
    EntityId entity;
    return !row.IsEnabled() || (FindEntity(row, entity) && !m_visibility.IsSeen(entity));
}

void TreeModel::RowsChanged()
{
    Q_EMIT Built();
}

void TreeModel::HighlightChanged()
{
    Q_EMIT Highlighted();
}

void TreeModel::ShowRow(const HostTreeRow& row)
{
    Q_EMIT RowWanted(IndexOf(row));
}

void TreeModel::RowsAboutToBeAnnounced(const HostTreeRow& parent, std::size_t first,
                                       std::size_t last)
{
    beginInsertRows(IndexOf(parent), static_cast<int>(first), static_cast<int>(last));
}

void TreeModel::RowsAnnounced()
{
    endInsertRows();
}

void TreeModel::RowsAboutToBeCleared()
{
    beginResetModel();
}

void TreeModel::RowsCleared()
{
    endResetModel();
}

} // namespace Pellux
