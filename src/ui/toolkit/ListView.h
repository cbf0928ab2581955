#pragma once

#include "platform/Numbers.h"
#include "ui/toolkit/ListModel.h"
#include "ui/toolkit/RowInput.h"

#include <string>
#include <string_view>
#include <vector>

namespace tavel {

// A report-style list of keyed rows under keyed columns, with in-place editing of the first
// column. Rows keep the order in which they came. Rows count from 1, cells and columns from 0;
// lengths are twips.
//
// The current row is the one with the focus, not the selected ones. The first row of an empty
// list becomes current without being selected; when the current row goes, the row that takes its
// place becomes current. There is none only while the list is empty.
//
// Failures: 35600 for a row that is not there, 35601 for a key that is not there, 35602 for a key
// that is there already, 91 when the current row is asked for and there is none.
class ListView : public RowInput<QTreeView> {
    Q_OBJECT

  public:
    static constexpr int DefaultColumnWidth = 1440;

    explicit ListView(QWidget* parent = nullptr);

    void AddColumn(std::string_view sKey, std::string_view sCaption,
                   int width = DefaultColumnWidth);
    void ClearColumns();
    void SetColumnWidth(std::string_view sKey, int width);
    void AlignColumnRight(std::string_view sKey);
    void ElideColumnInMiddle(std::string_view sKey);  // texts that don't fit, such as paths
    int ColumnWidth(std::string_view sKey) const;
    int ColumnLeft(std::string_view sKey) const;

    Long Count() const { return m_rows.rowCount(); }
    void Add(ListRow row);
    void Add(std::vector<ListRow> rows);
    void Remove(Long row);
    void Remove(std::string_view sKey);
    void RemoveSelected();
    void Clear();

    const std::string& Key(Long row) const;
    std::string Cell(Long row, int cell) const;
    int CellCount(Long row) const;
    bool Selected(Long row) const;

    bool HasCurrent() const { return currentIndex().isValid(); }
    Long Current() const;
    const std::string& CurrentKey() const { return Key(Current()); }
    int RowLeft(Long row) const;  // from the left edge of the list
    int RowTop(Long row) const;   // from the top of the list, header included

    void StartLabelEdit();  // of the current row
    void SetDragSource(bool bDragSource);

  Q_SIGNALS:
    // The user has pressed a button on a row, or has otherwise made a row the current one or
    // selected the current one. It is the current row by now.
    void RowClicked();
    void RowDoubleClicked();
    // The right button was let go over a row, or the Menu key pressed, which is about the current
    // row. Either selects its row first and clicks it, if it was not selected.
    void MenuRequested(QPoint globalPosition);
    void MouseReleased(Qt::MouseButton button);
    void MouseMoved(Qt::MouseButtons buttons, int x, int y);
    void KeyPressed(int key);
    void LabelEdited(const std::string& sNewText);
    void RowsDropped();

  protected:
    void CurrentClicked(const QModelIndex& former) override;
    void MenuRequestedOfCurrent(QPoint globalPosition) override;
    void RowsDroppedAt(QPoint viewportPosition) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void startDrag(Qt::DropActions actions) override;
    void updateGeometries() override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;

  private:
    int Place(Long row) const;
    int ColumnOf(std::string_view sKey) const;
    void RemovePlaces(int first, int count);
    void SelectAlone(const QModelIndex& row);

    struct Column {
        std::string sKey;
        int width;
    };

    ListModel m_rows;
    QWidget* m_headerEnd;
    std::vector<Column> m_columns;
    bool m_removing = false;
    bool m_currentIsNews = false;
};

}  // namespace tavel
