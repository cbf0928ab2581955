#include "ui/support/Windows.h"
#include "ui/toolkit/DraggedRows.h"
#include "ui/toolkit/ListView.h"
#include "ui/toolkit/TreeView.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QDrag>
#include <QDragMoveEvent>
#include <QMimeData>
#include <QPointer>
#include <QScrollBar>
#include <memory>

namespace tavel::test {

namespace {

// Catches the drag that a control begins.
class DragOf : public QObject {
  public:
    explicit DragOf(QWidget& control) { control.installEventFilter(this); }

    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::ChildAdded)
            m_child = static_cast<QChildEvent*>(event)->child();
        return false;
    }

    QDrag* Get() const { return qobject_cast<QDrag*>(m_child); }

  private:
    QPointer<QObject> m_child;
};

// A tree of more nodes than it shows, in the middle of them.
std::unique_ptr<TreeView> LongTree() {
    auto tree = std::make_unique<TreeView>();
    for (int i = 0; i < 200; ++i) tree->AddNode(nullptr, std::to_string(i), "Node", {});
    tree->resize(200, 200);
    tree->SetDropTarget(true);
    tree->show();
    tree->verticalScrollBar()->setValue(100);
    return tree;
}

void DragOver(QAbstractItemView& view, int y) {
    const std::unique_ptr<QMimeData> rows(MakeDraggedRows());
    QDragEnterEvent enter({50, 100}, Qt::CopyAction, rows.get(), Qt::LeftButton, {});
    QApplication::sendEvent(view.viewport(), &enter);
    QDragMoveEvent move({50, y}, Qt::CopyAction, rows.get(), Qt::LeftButton, {});
    QApplication::sendEvent(view.viewport(), &move);
    EXPECT_TRUE(move.isAccepted());
}

int Top(const QAbstractItemView& view) { return view.verticalScrollBar()->value(); }

// A view that scrolls for long enough tells that another one has stopped.
void WaitForSteps() {
    const auto clock = LongTree();
    DragOver(*clock, 195);
    EXPECT_TRUE(QTest::qWaitFor([&] { return Top(*clock) >= 104; }));
}

}  // namespace

TEST(DraggedRows, the_picture_of_a_drag_lies_beside_the_pointer_and_shows_one_name) {
    ListView list;
    list.AddColumn("title", "Title", 2880);
    list.AddColumn("path", "Path", 6000);
    list.SetDragSource(true);
    list.resize(600, 300);
    list.Add({ListRow{"a", {"one", "c:\\one"}}, ListRow{"b", {"two", "c:\\two"}}});
    list.show();
    list.selectAll();
    const DragOf drag(list);
    const QPoint start = list.visualRect(list.model()->index(1, 0)).center();
    QTest::mousePress(list.viewport(), Qt::LeftButton, {}, start);
    for (int step = 1; step <= 2; ++step) {
        const QPoint point = start + QPoint(step * QApplication::startDragDistance(), 0);
        QMouseEvent move(QEvent::MouseMove, point, list.viewport()->mapToGlobal(point),
                         Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(list.viewport(), &move);
    }
    ASSERT_NE(drag.Get(), nullptr);
    const QPixmap picture = drag.Get()->pixmap();
    const QRect place(-drag.Get()->hotSpot(), picture.deviceIndependentSize().toSize());
    EXPECT_FALSE(place.adjusted(-4, -4, 4, 4).contains(0, 0)) << "the pointer's own place";
    EXPECT_LE(place.height(), 2 * list.fontMetrics().height()) << "one row";
    EXPECT_LT(place.width(), 100) << "its name alone";
    EXPECT_LT(picture.toImage().pixelColor(picture.rect().center()).alpha(), 255) << "see-through";
}

TEST(DraggedRows, the_picture_of_a_long_name_stays_small) {
    ListView list;
    list.AddColumn("title", "Title", 2880);
    list.SetDragSource(true);
    list.Add(ListRow{"a", {std::string(100'000, 'x') + "\n"}});
    list.show();
    const DragOf drag(list);
    DragRow(list, QString(100'000, QLatin1Char('x')));
    ASSERT_NE(drag.Get(), nullptr);
    EXPECT_LE(drag.Get()->pixmap().width(), 250);
}

TEST(DraggedRows, a_drag_near_an_edge_scrolls_that_way) {
    const auto tree = LongTree();
    DragOver(*tree, 100);
    DragOver(*tree, 197);
    EXPECT_TRUE(QTest::qWaitFor([&] { return Top(*tree) >= 103; }));
    DragOver(*tree, 3);
    EXPECT_TRUE(QTest::qWaitFor([&] { return Top(*tree) <= 98; }));
}

TEST(DraggedRows, a_drag_that_rests_near_an_edge_reaches_the_end_and_goes_faster) {
    const auto tree = LongTree();
    DragOver(*tree, 197);
    EXPECT_TRUE(QTest::qWaitFor([&] { return Top(*tree) == tree->verticalScrollBar()->maximum(); },
                                10'000));
}

TEST(DraggedRows, away_from_the_edges_and_once_it_has_gone_it_scrolls_nothing) {
    const auto middle = LongTree();
    DragOver(*middle, 197);
    DragOver(*middle, 100);
    const auto left = LongTree();
    DragOver(*left, 197);
    QDragLeaveEvent leave;
    QApplication::sendEvent(left->viewport(), &leave);
    const auto dropped = LongTree();
    DragOver(*dropped, 197);
    const std::unique_ptr<QMimeData> rows(MakeDraggedRows());
    QDropEvent drop({50, 197}, Qt::CopyAction, rows.get(), Qt::LeftButton, {});
    QApplication::sendEvent(dropped->viewport(), &drop);
    WaitForSteps();
    for (const auto* tree : {middle.get(), left.get(), dropped.get()}) EXPECT_EQ(Top(*tree), 100);
}

}  // namespace tavel::test
