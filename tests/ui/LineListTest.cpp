#include "ui/support/Windows.h"
#include "ui/toolkit/LabelDelegate.h"
#include "ui/toolkit/LineList.h"
#include "ui/toolkit/Strings.h"

#include <gtest/gtest.h>

#include <QHelpEvent>
#include <QScrollBar>
#include <QToolTip>

namespace tavel::test {

namespace {

class LineListTest : public ::testing::Test {
  protected:
    LineListTest() {
        list.resize(300, 200);
        list.show();
    }

    int Range() {
        RunEvents();
        return list.horizontalScrollBar()->maximum();
    }

    std::string TipAt(int row) {
        const QPoint point = list.visualItemRect(list.item(row, 0)).topLeft() + QPoint(2, 2);
        QHelpEvent event(QEvent::ToolTip, point, list.viewport()->mapToGlobal(point));
        QApplication::sendEvent(list.viewport(), &event);
        const QString tip = QToolTip::isVisible() ? QToolTip::text() : QString();
        QToolTip::hideText();
        RunEvents();
        return FromQString(tip);
    }

    LineList list{nullptr};
};

// Measuring a line is what costs when lines are laid out.
class Measured : public LabelDelegate {
  public:
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        ++times;
        return LabelDelegate::sizeHint(option, index);
    }

    mutable int times = 0;
};

}  // namespace

TEST_F(LineListTest, a_line_has_one_height_whatever_its_text_holds) {
    list.AddItem("two lines");
    list.AddItem("two\nlines");
    EXPECT_EQ(list.visualItemRect(list.item(0, 0)).size(),
              list.visualItemRect(list.item(1, 0)).size());
    EXPECT_EQ(FromQString(list.item(1, 0)->text()), "two\nlines");
    const QImage shown = list.grab().toImage();
    list.item(1, 0)->setText(QStringLiteral("two lines"));
    EXPECT_EQ(list.grab().toImage(), shown) << "a break is shown as a blank";
}

TEST_F(LineListTest, a_line_that_reaches_out_of_view_can_be_scrolled_to_its_end) {
    list.AddItem("short");
    EXPECT_EQ(Range(), 0);
    for (int i = 0; i < 100; ++i) list.AddItem("short");
    EXPECT_EQ(Range(), 0) << "the bar of the rows takes nothing away";
    const std::string sLong = std::string(200, 'x') + " end";
    list.AddItem(sLong);
    const int range = Range();
    EXPECT_GE(range + list.viewport()->width(),
              list.fontMetrics().horizontalAdvance(ToQString(sLong)));
    EXPECT_EQ(list.textElideMode(), Qt::ElideNone);
    list.resize(400, 200);
    EXPECT_EQ(Range(), range - 100);

    list.AddItem(sLong + sLong);
    EXPECT_GT(Range(), range) << "while the list is on the screen";
    list.Clear();
    EXPECT_EQ(Range(), 0);
    list.AddItem("short");
    EXPECT_EQ(Range(), 0);
    EXPECT_EQ(list.columnWidth(0), list.viewport()->width()) << "a click beside a text selects it";
}

TEST_F(LineListTest, a_tip_tells_what_reaches_out_of_view) {
    const std::string sLong(200, 'x');
    list.AddItem("short");
    list.AddItem(sLong);
    RunEvents();
    EXPECT_EQ(TipAt(0), "");
    EXPECT_NE(TipAt(1).find(sLong), std::string::npos);
}

TEST_F(LineListTest, another_font_changes_rows_and_range) {
    list.AddItem(std::string(100, 'x'));
    const int range = Range();
    const int height = list.rowHeight(0);
    QFont large = list.font();
    large.setPointSizeF(3 * large.pointSizeF());
    list.setFont(large);
    EXPECT_GT(Range(), 2 * range);
    EXPECT_GT(list.rowHeight(0), height);
    list.AddItem("another");
    EXPECT_EQ(list.rowHeight(1), list.rowHeight(0));
}

TEST_F(LineListTest, a_line_that_is_added_does_not_lay_out_all_lines_anew) {
    Measured delegate;
    list.setItemDelegate(&delegate);
    for (int i = 0; i < 5000; ++i) {
        list.AddItem(std::to_string(i));
        if (i % 20 == 0) RunEvents();
    }
    RunEvents();
    EXPECT_LE(delegate.times, 5001);
}

TEST_F(LineListTest, Home_and_End_go_to_the_first_line_and_the_last) {
    for (int i = 0; i < 100; ++i) list.AddItem(std::to_string(i));
    list.setCurrentCell(50, 0);
    QTest::keyClick(&list, Qt::Key_End);
    EXPECT_EQ(list.currentRow(), 99);
    QTest::keyClick(&list, Qt::Key_Home);
    EXPECT_EQ(list.currentRow(), 0);
    QTest::keyClick(&list, Qt::Key_Down);
    EXPECT_EQ(list.currentRow(), 1);
}

TEST_F(LineListTest, the_ends_of_long_lines_stay_in_view_on_the_way_down) {
    for (int i = 0; i < 3; ++i) list.AddItem(std::string(500, 'x'));
    RunEvents();
    list.setCurrentCell(0, 0);
    QScrollBar& bar = *list.horizontalScrollBar();
    bar.setValue(bar.maximum());
    ASSERT_GT(bar.value(), 0);
    QTest::keyClick(&list, Qt::Key_Down);
    EXPECT_EQ(list.currentRow(), 1);
    EXPECT_EQ(bar.value(), bar.maximum());
}

TEST_F(LineListTest, Tab_leaves_it_and_nothing_is_edited) {
    list.AddItem("a");
    list.AddItem("b");
    list.setCurrentCell(0, 0);
    EXPECT_FALSE(list.tabKeyNavigation());
    QTest::keyClick(&list, Qt::Key_F2);
    QTest::mouseDClick(list.viewport(), Qt::LeftButton, {},
                       list.visualItemRect(list.item(0, 0)).center());
    EXPECT_FALSE(list.isPersistentEditorOpen(list.item(0, 0)));
    EXPECT_EQ(list.findChild<QWidget*>(QStringLiteral("qt_editor")), nullptr);
    EXPECT_EQ(list.selectedItems().size(), 1);
}

}  // namespace tavel::test
