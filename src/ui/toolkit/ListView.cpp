#include "ui/toolkit/ListView.h"

#include "platform/Failure.h"
#include "ui/toolkit/LabelDelegate.h"
#include "ui/toolkit/Twips.h"

#include <QHeaderView>
#include <QScopedValueRollback>
#include <QStyleOptionHeader>
#include <QStylePainter>
#include <algorithm>
#include <functional>
#include <utility>

namespace tavel {

namespace {

// Goes on with the header above the scroll bar, so that what stands on the header's end doesn't
// stand on the bar's arrow.
class HeaderEnd : public QWidget {
  public:
    using QWidget::QWidget;

  protected:
    void paintEvent(QPaintEvent*) override {
        QStyleOptionHeader option;
        option.initFrom(this);
        QStylePainter(this).drawControl(QStyle::CE_HeaderEmptyArea, option);
    }
};

}  // namespace

ListView::ListView(QWidget* parent) : RowInput(parent), m_headerEnd(new HeaderEnd) {
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
    addScrollBarWidget(m_headerEnd, Qt::AlignTop);

    auto* labels = new LabelDelegate(this);
    setItemDelegate(labels);
    connect(labels, &LabelDelegate::LabelEdited, this,
            [this](const QModelIndex&, const std::string& sNewText) { LabelEdited(sNewText); });
    connect(this, &QTreeView::doubleClicked, this, [this] { RowDoubleClicked(); });
}

void ListView::AddColumn(std::string_view sKey, std::string_view sCaption, int width) {
    m_columns.push_back({std::string(sKey), width});
    m_rows.AddColumn(sCaption);
    header()->resizeSection(m_rows.columnCount() - 1, Pixels(width));
}

void ListView::ClearColumns() {
    BreakOffEdit();
    m_rows.ClearColumns();
    m_columns.clear();
}

void ListView::SetColumnWidth(std::string_view sKey, int width) {
    const int column = ColumnOf(sKey);
    m_columns[static_cast<std::size_t>(column)].width = width;
    header()->resizeSection(column, Pixels(width));
}

void ListView::AlignColumnRight(std::string_view sKey) { m_rows.AlignRight(ColumnOf(sKey)); }

void ListView::ElideColumnInMiddle(std::string_view sKey) { m_rows.ElideInMiddle(ColumnOf(sKey)); }

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
        BreakOffEdit();
        const QScopedValueRollback removing(m_removing, true);
        const int next = first + count < Count() ? first + count : first - 1;
        selectionModel()->setCurrentIndex(m_rows.index(next, 0), QItemSelectionModel::NoUpdate);
    }
    m_rows.Remove(first, count);
}

void ListView::Clear() {
    BreakOffEdit();
    m_rows.Clear();
}

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

void ListView::StartLabelEdit() {
    const QModelIndex label = m_rows.index(Place(Current()), 0);
    scrollTo(label);
    edit(label);
}

void ListView::updateGeometries() {
    QTreeView::updateGeometries();
    m_headerEnd->setFixedHeight(header()->height());
}

// Where the current row stands takes a layout of all rows. While they go one after the other it is
// asked for once, when the last has gone.
void ListView::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    if (!m_removing) return QTreeView::currentChanged(current, previous);
    if (std::exchange(m_currentIsNews, true)) return;
    const auto tell = [this] {
        m_currentIsNews = false;
        QTreeView::currentChanged(currentIndex(), {});
    };
    QMetaObject::invokeMethod(this, tell, Qt::QueuedConnection);
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
