#include "ui/toolkit/ListView.h"

#include "platform/Failure.h"
#include "ui/toolkit/LabelDelegate.h"
#include "ui/toolkit/Twips.h"

#include <QHeaderView>
#include <algorithm>
#include <functional>
#include <utility>

namespace tavel {

ListView::ListView(QWidget* parent) : QTreeView(parent) {
    setModel(&m_rows);
    setUniformRowHeights(true);
    setRootIsDecorated(false);
    setItemsExpandable(false);
    setAllColumnsShowFocus(true);
    setSelectionMode(ExtendedSelection);
    setEditTriggers(NoEditTriggers);
    setIconSize({Pixels(240), Pixels(240)});
    setMouseTracking(true);
    header()->setStretchLastSection(false);
    header()->setSectionsClickable(false);
    header()->setSectionsMovable(false);
    header()->setMinimumSectionSize(Pixels(300));
    header()->setMinimumHeight(Pixels(360));

    auto* labels = new LabelDelegate(this);
    setItemDelegate(labels);
    connect(labels, &LabelDelegate::LabelEdited, this,
            [this](const QModelIndex&, const std::string& sNewText) { LabelEdited(sNewText); });
    connect(selectionModel(), &QItemSelectionModel::selectionChanged, this,
            [this] { m_selectionChanged = true; });
    connect(this, &QTreeView::clicked, this, [this] { m_clicked = true; });
    connect(this, &QTreeView::doubleClicked, this, [this] { RowDoubleClicked(); });
}

void ListView::AddColumn(std::string_view sKey, std::string_view sCaption, int width) {
    m_columns.push_back({std::string(sKey), width});
    m_rows.AddColumn(sCaption);
    header()->resizeSection(m_rows.columnCount() - 1, Pixels(width));
}

void ListView::ClearColumns() {
    m_rows.ClearColumns();
    m_columns.clear();
}

void ListView::SetColumnWidth(std::string_view sKey, int width) {
    const int column = ColumnOf(sKey);
    m_columns[static_cast<std::size_t>(column)].width = width;
    header()->resizeSection(column, Pixels(width));
}

void ListView::AlignColumnRight(std::string_view sKey) { m_rows.AlignRight(ColumnOf(sKey)); }

int ListView::ColumnWidth(std::string_view sKey) const {
    return m_columns[static_cast<std::size_t>(ColumnOf(sKey))].width;
}

int ListView::ColumnLeft(std::string_view sKey) const {
    int left = 0;
    for (int i = 0; i < ColumnOf(sKey); ++i) left += m_columns[static_cast<std::size_t>(i)].width;
    return left;
}

void ListView::Add(ListRow row) {
    std::vector<ListRow> rows;
    rows.push_back(std::move(row));
    Add(std::move(rows));
}

void ListView::Add(std::vector<ListRow> rows) {
    const bool bFirst = Count() == 0 && !rows.empty();
    m_rows.Append(std::move(rows));
    if (bFirst) {
        selectionModel()->setCurrentIndex(m_rows.index(0, 0), QItemSelectionModel::NoUpdate);
    }
}

void ListView::Remove(Long row) { RemovePlaces(Place(row), 1); }

void ListView::Remove(std::string_view sKey) {
    const int place = m_rows.PositionOf(sKey);
    if (place < 0) Fail(failure::ListElementNotFound);
    RemovePlaces(place, 1);
}

void ListView::RemoveSelected() {
    std::vector<int> places;
    for (const QModelIndex& index : selectionModel()->selectedRows()) places.push_back(index.row());
    std::sort(places.begin(), places.end(), std::greater<>());
    // Neighbours go in one step: a step lays the whole list out anew.
    for (std::size_t i = 0; i < places.size();) {
        std::size_t end = i + 1;
        while (end < places.size() && places[end] == places[end - 1] - 1) ++end;
        RemovePlaces(places[end - 1], static_cast<int>(end - i));
        i = end;
    }
}

// Left to itself, the selection model would make the row above current.
void ListView::RemovePlaces(int first, int count) {
    const int current = currentIndex().row();
    if (current >= first && current < first + count) {
        const int next = first + count < Count() ? first + count : first - 1;
        selectionModel()->setCurrentIndex(m_rows.index(next, 0), QItemSelectionModel::NoUpdate);
    }
    m_rows.Remove(first, count);
}

void ListView::Clear() { m_rows.Clear(); }

const std::string& ListView::Key(Long row) const { return m_rows.Row(Place(row)).sKey; }

std::string ListView::Cell(Long row, int cell) const {
    return std::string(m_rows.Row(Place(row)).sCells.Get(static_cast<std::size_t>(cell)));
}

int ListView::CellCount(Long row) const {
    return static_cast<int>(m_rows.Row(Place(row)).sCells.Count());
}

bool ListView::Selected(Long row) const {
    return selectionModel()->isSelected(m_rows.index(Place(row), 0));
}

Long ListView::Current() const {
    if (!HasCurrent()) Fail(failure::ObjectNotSet);
    return currentIndex().row() + 1;
}

int ListView::RowLeft(Long row) const {
    const QRect rect = visualRect(m_rows.index(Place(row), 0));
    return Twips(rect.left() + viewport()->x());
}

int ListView::RowTop(Long row) const {
    const QRect rect = visualRect(m_rows.index(Place(row), 0));
    return Twips(rect.top() + viewport()->y());
}

Long ListView::RowAt(QPoint position) const {
    const QModelIndex index = indexAt(position);
    return index.isValid() ? index.row() + 1 : 0;
}

void ListView::StartLabelEdit() {
    const QModelIndex label = m_rows.index(Place(Current()), 0);
    scrollTo(label);
    edit(label);
}

int ListView::Place(Long row) const {
    if (row < 1 || row > Count()) Fail(failure::ListIndexOutOfBounds);
    return row - 1;
}

int ListView::ColumnOf(std::string_view sKey) const {
    const auto found = std::find_if(m_columns.begin(), m_columns.end(),
                                    [&](const Column& column) { return column.sKey == sKey; });
    if (found == m_columns.end()) Fail(failure::ListElementNotFound);
    return static_cast<int>(found - m_columns.begin());
}

}  // namespace tavel
