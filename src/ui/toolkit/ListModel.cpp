#include "ui/toolkit/ListModel.h"

#include "platform/Failure.h"
#include "ui/toolkit/LabelDelegate.h"
#include "ui/toolkit/ShownText.h"
#include "ui/toolkit/Strings.h"

#include <algorithm>
#include <iterator>
#include <numeric>
#include <utility>

namespace tavel {

namespace {

// A character of Qt's takes three bytes at most, so that one cut apart lies beyond what is shown.
constexpr std::size_t EnoughBytes = 4 * MaxShown;

}  // namespace

void ListModel::AddColumn(std::string_view sCaption) {
    const int place = columnCount();
    beginInsertColumns({}, place, place);
    m_columns.push_back({std::string(sCaption), Qt::AlignLeft | Qt::AlignVCenter, Qt::ElideRight});
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

void ListModel::ElideInMiddle(int column) {
    m_columns[static_cast<std::size_t>(column)].elideMode = Qt::ElideMiddle;
}

void ListModel::Append(std::vector<ListRow> rows) {
    if (rows.empty()) return;
    const int firstPlace = static_cast<int>(m_rows.size());
    if (m_rows.empty()) {
        m_rows = std::move(rows);
    } else {
        m_rows.insert(m_rows.end(), std::make_move_iterator(rows.begin()),
                      std::make_move_iterator(rows.end()));
    }
    IndexFrom(firstPlace);

    const std::size_t first = m_places.size();
    const std::size_t count = m_rows.size() - static_cast<std::size_t>(firstPlace);
    beginInsertRows({}, static_cast<int>(first), static_cast<int>(first + count) - 1);
    m_places.resize(first + count);
    std::iota(m_places.begin() + static_cast<std::ptrdiff_t>(first), m_places.end(), firstPlace);
    endInsertRows();
}

// Leaves the rows from there on out when one of them has a key that a row before it has.
void ListModel::IndexFrom(int firstPlace) {
    const auto keyAt = [this](int place) -> std::string_view { return KeyAt(place); };
    const int end = static_cast<int>(m_rows.size());
    for (int place = firstPlace; place < end; ++place) {
        if (m_keys.Insert(place, keyAt)) continue;
        while (place-- > firstPlace) m_keys.Remove(KeyAt(place), keyAt);
        m_rows.resize(static_cast<std::size_t>(firstPlace));
        Fail(failure::ListKeyNotUnique);
    }
}

void ListModel::Remove(int first, int count) {
    const auto keyAt = [this](int place) -> std::string_view { return KeyAt(place); };
    beginRemoveRows({}, first, first + count - 1);
    const auto begin = m_places.begin() + first;
    for (auto place = begin; place != begin + count; ++place) {
        m_keys.Remove(KeyAt(*place), keyAt);
        m_rows[static_cast<std::size_t>(*place)] = {};
    }
    m_places.erase(begin, begin + count);
    if (m_rows.size() > 2 * m_places.size()) CloseUp();
    endRemoveRows();
}

// Takes the empty places out, once there are more of them than rows.
void ListModel::CloseUp() {
    std::vector<ListRow> rows;
    rows.reserve(m_places.size());
    for (int& place : m_places) {
        rows.push_back(std::move(m_rows[static_cast<std::size_t>(place)]));
        place = static_cast<int>(rows.size()) - 1;
    }
    m_rows = std::move(rows);
    m_keys.Clear();
    IndexFrom(0);
}

void ListModel::Clear() {
    if (m_rows.empty()) return;
    beginResetModel();
    m_rows.clear();
    m_places.clear();
    m_keys.Clear();
    endResetModel();
}

int ListModel::PositionOf(std::string_view sKey) const {
    const int place =
        m_keys.Find(sKey, [this](int candidate) -> std::string_view { return KeyAt(candidate); });
    if (place < 0) return -1;
    const auto found = std::lower_bound(m_places.begin(), m_places.end(), place);
    return static_cast<int>(found - m_places.begin());
}

void ListModel::SetCell(int row, int column, std::string_view sText) {
    const int place = m_places[static_cast<std::size_t>(row)];
    m_rows[static_cast<std::size_t>(place)].sCells.Set(static_cast<std::size_t>(column), sText);
    const QModelIndex changed = index(row, column);
    if (changed.isValid()) Q_EMIT dataChanged(changed, changed);
}

int ListModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_places.size());
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
        case Qt::AccessibleTextRole:
            return index.column() == 0 ? QVariant(QLatin1String(Row(index.row()).sIconText))
                                       : QVariant();
        case Qt::TextAlignmentRole:
            return QVariant(m_columns[static_cast<std::size_t>(index.column())].alignment);
        case LabelDelegate::ElideModeRole:
            return m_columns[static_cast<std::size_t>(index.column())].elideMode;
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

}  // namespace tavel
