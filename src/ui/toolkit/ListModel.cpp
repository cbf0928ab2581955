#include "ui/toolkit/ListModel.h"

#include "platform/Failure.h"
#include "ui/toolkit/DraggedRows.h"
#include "ui/toolkit/ShownText.h"
#include "ui/toolkit/Strings.h"

#include <QMimeData>
#include <iterator>
#include <utility>

namespace tavel {

namespace {

// A character of Qt's takes three bytes at most, so that one cut apart lies beyond what is shown.
constexpr std::size_t EnoughBytes = 4 * MaxShown;

}  // namespace

void ListModel::AddColumn(std::string_view sCaption) {
    const int place = columnCount();
    beginInsertColumns({}, place, place);
    m_columns.push_back({std::string(sCaption), Qt::AlignLeft | Qt::AlignVCenter});
    endInsertColumns();
}

void ListModel::ClearColumns() {
    if (m_columns.empty()) return;
    beginRemoveColumns({}, 0, columnCount() - 1);
    m_columns.clear();
    endRemoveColumns();
}

void ListModel::AlignRight(int column) {
    m_columns[static_cast<std::size_t>(column)].alignment = Qt::AlignRight | Qt::AlignVCenter;
    Q_EMIT headerDataChanged(Qt::Horizontal, column, column);
}

void ListModel::Append(std::vector<ListRow> rows) {
    if (rows.empty()) return;
    const std::size_t first = m_rows.size();
    beginInsertRows({}, static_cast<int>(first), static_cast<int>(first + rows.size()) - 1);
    if (m_rows.empty()) {
        m_rows = std::move(rows);
    } else {
        m_rows.insert(m_rows.end(), std::make_move_iterator(rows.begin()),
                      std::make_move_iterator(rows.end()));
    }
    const bool isUnique = IndexFrom(first);
    endInsertRows();
    if (isUnique) return;
    Remove(static_cast<int>(first), static_cast<int>(m_rows.size() - first));
    Fail(failure::ListKeyNotUnique);
}

// False when one of these rows has a key that a row before it has.
bool ListModel::IndexFrom(std::size_t firstRow) {
    const auto keyOf = [this](int row) -> std::string_view { return Row(row).sKey; };
    for (std::size_t row = firstRow; row < m_rows.size(); ++row) {
        if (!m_keys.Insert(static_cast<int>(row), keyOf)) return false;
    }
    return true;
}

void ListModel::Remove(int first, int count) {
    beginRemoveRows({}, first, first + count - 1);
    const auto begin = m_rows.begin() + first;
    m_rows.erase(begin, begin + count);
    m_keys.Clear();
    IndexFrom(0);
    endRemoveRows();
}

void ListModel::Clear() {
    if (m_rows.empty()) return;
    beginResetModel();
    m_rows.clear();
    m_keys.Clear();
    endResetModel();
}

int ListModel::PositionOf(std::string_view sKey) const {
    return m_keys.Find(sKey, [this](int row) -> std::string_view { return Row(row).sKey; });
}

void ListModel::SetCell(int row, int column, std::string_view sText) {
    m_rows[static_cast<std::size_t>(row)].sCells.Set(static_cast<std::size_t>(column), sText);
    const QModelIndex changed = index(row, column);
    if (changed.isValid()) Q_EMIT dataChanged(changed, changed);
}

int ListModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

int ListModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_columns.size());
}

std::string_view ListModel::CellOf(const QModelIndex& index) const {
    return Row(index.row()).sCells.Get(static_cast<std::size_t>(index.column()));
}

QVariant ListModel::data(const QModelIndex& index, int role) const {
    switch (role) {
        case Qt::DisplayRole:
            return ToQString(CellOf(index).substr(0, EnoughBytes));
        case Qt::EditRole:
            return ToQString(CellOf(index));
        case Qt::DecorationRole:
            return index.column() == 0 && !Row(index.row()).icon.isNull()
                       ? QVariant(Row(index.row()).icon)
                       : QVariant();
        case Qt::TextAlignmentRole:
            return QVariant(m_columns[static_cast<std::size_t>(index.column())].alignment);
        default:
            return {};
    }
}

bool ListModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    if (role != Qt::EditRole) return false;
    SetCell(index.row(), index.column(), FromQString(value.toString()));
    return true;
}

QVariant ListModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || section >= columnCount()) return {};
    const Column& column = m_columns[static_cast<std::size_t>(section)];
    if (role == Qt::DisplayRole) return ToQString(column.sCaption);
    if (role == Qt::TextAlignmentRole) return QVariant(column.alignment);
    return {};
}

Qt::ItemFlags ListModel::flags(const QModelIndex& index) const {
    Qt::ItemFlags flags = Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemNeverHasChildren;
    if (m_dragSource) flags |= Qt::ItemIsDragEnabled;
    if (index.column() == 0) flags |= Qt::ItemIsEditable;
    return flags;
}

QMimeData* ListModel::mimeData(const QModelIndexList&) const { return MakeDraggedRows(); }

}  // namespace tavel
