#pragma once

#include "platform/Numbers.h"
#include "ui/toolkit/CellTexts.h"
#include "ui/toolkit/RowKeys.h"

#include <QAbstractTableModel>
#include <QIcon>
#include <string>
#include <string_view>
#include <vector>

namespace tavel {

// A row of a list: its key, its cells from the first column on, the icon of its first cell and what
// the icon says, for those who don't see it.
struct ListRow {
    std::string sKey;
    CellTexts sCells;
    QIcon icon = {};
    const char* sIconText = "";  // outlives the row
};

// The rows and columns behind a ListView. Texts stay in the engine's form until they are drawn, so
// that filling a list costs little more than making the rows. Positions count from 0 here.
class ListModel : public QAbstractTableModel {
    Q_OBJECT

  public:
    using QAbstractTableModel::QAbstractTableModel;

    void AddColumn(std::string_view sCaption);
    void ClearColumns();
    void AlignRight(int column);
    void ElideInMiddle(int column);

    // Takes all rows or none: fails with 35602 when a key is there already.
    void Append(std::vector<ListRow> rows);
    void Remove(int first, int count);
    void Clear();

    const ListRow& Row(int row) const {
        return m_rows[static_cast<std::size_t>(m_places[static_cast<std::size_t>(row)])];
    }
    int PositionOf(std::string_view sKey) const;  // -1 when no row has the key
    void SetCell(int row, int column, std::string_view sText);
    void SetDragSource(bool bDragSource) { m_dragSource = bDragSource; }

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

  private:
    struct Column {
        std::string sCaption;
        Qt::Alignment alignment;
        Qt::TextElideMode elideMode;
    };

    const std::string& KeyAt(int place) const {
        return m_rows[static_cast<std::size_t>(place)].sKey;
    }
    void IndexFrom(int firstPlace);
    void CloseUp();
    std::string_view CellOf(const QModelIndex& index) const;

    std::vector<Column> m_columns;
    // A row keeps its place while others go, so that its key need not be found anew for each.
    std::vector<ListRow> m_rows;  // in the order in which they came, with empty places in between
    std::vector<int> m_places;    // of each row in m_rows; rising
    RowKeys m_keys;               // to places
    bool m_dragSource = false;
};

}  // namespace tavel
