#include "support/Support.h"
#include "ui/support/Windows.h"
#include "ui/toolkit/DraggedRows.h"
#include "ui/toolkit/ListView.h"

#include <gtest/gtest.h>

#include <QDropEvent>
#include <QHeaderView>
#include <QLineEdit>
#include <QMimeData>
#include <algorithm>
#include <functional>
#include <memory>
#include <random>
#include <tuple>

namespace tavel::test {

namespace {

class ListViewTest : public testing::Test {
  protected:
    ListViewTest() {
        list.resize(400, 300);
        list.AddColumn("title", "Title", 2880);
        list.AddColumn("size", "Size");
        QObject::connect(&list, &ListView::RowClicked, [this] { clicked += list.CurrentKey(); });
        QObject::connect(&list, &ListView::LabelEdited, [this](const std::string& sNewText) {
            edited += list.CurrentKey() + "=" + sNewText + ";";
        });
    }

    void Fill(const char* keys) {
        for (const char* key = keys; *key != 0; ++key) {
            list.Add(ListRow{{*key}, {std::string("row ") + *key, "1 Mb"}});
        }
    }

    void Show() {
        list.show();
        list.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&list));
    }

    QPoint On(Long row) const { return list.visualRect(list.model()->index(row - 1, 0)).center(); }

    void Press(Long row, Qt::MouseButton button = Qt::LeftButton,
               Qt::KeyboardModifiers keys = Qt::NoModifier) {
        QTest::mousePress(list.viewport(), button, keys, On(row));
    }
    void Release(Long row, Qt::MouseButton button = Qt::LeftButton,
                 Qt::KeyboardModifiers keys = Qt::NoModifier) {
        QTest::mouseRelease(list.viewport(), button, keys, On(row));
    }
    void ClickRow(Long row, Qt::KeyboardModifiers keys = Qt::NoModifier) {
        Press(row, Qt::LeftButton, keys);
        Release(row, Qt::LeftButton, keys);
    }

    std::string Keys() const {
        std::string keys;
        for (Long row = 1; row <= list.Count(); ++row) keys += list.Key(row);
        return keys;
    }
    std::string SelectedKeys() const {
        std::string keys;
        for (Long row = 1; row <= list.Count(); ++row) {
            if (list.Selected(row)) keys += list.Key(row);
        }
        return keys;
    }

    ListView list;
    std::string clicked;
    std::string edited;
};

}  // namespace

TEST_F(ListViewTest, rows_keep_the_order_in_which_they_came) {
    Fill("cab");
    EXPECT_EQ(Keys(), "cab");
    EXPECT_EQ(list.Cell(2, 0), "row a");
    EXPECT_EQ(list.Cell(2, 1), "1 Mb");
    EXPECT_EQ(list.Cell(2, 7), "");
}

TEST_F(ListViewTest, a_key_that_is_there_already_fails_and_adds_nothing) {
    Fill("ab");
    EXPECT_EQ(FailureOf([&] { Fill("a"); }), failure::ListKeyNotUnique);
    EXPECT_EQ(FailureOf([&] {
                  list.Add(std::vector<ListRow>{{"c", {}}, {"b", {}}});
              }),
              failure::ListKeyNotUnique);
    EXPECT_EQ(Keys(), "ab");
    Fill("c");
    EXPECT_EQ(Keys(), "abc");
}

TEST_F(ListViewTest, rows_keys_and_columns_that_are_not_there_fail) {
    Fill("a");
    EXPECT_EQ(FailureOf([&] { list.Key(0); }), failure::ListIndexOutOfBounds);
    EXPECT_EQ(FailureOf([&] { list.Key(2); }), failure::ListIndexOutOfBounds);
    EXPECT_EQ(FailureOf([&] { list.Remove(2); }), failure::ListIndexOutOfBounds);
    EXPECT_EQ(FailureOf([&] { list.Remove("b"); }), failure::ListElementNotFound);
    EXPECT_EQ(FailureOf([&] { list.SetColumnWidth("path", 10); }), failure::ListElementNotFound);
    EXPECT_EQ(FailureOf([&] { list.AlignColumnRight("path"); }), failure::ListElementNotFound);
}

TEST_F(ListViewTest, a_removed_key_may_come_again) {
    Fill("ab");
    list.Remove("a");
    Fill("a");
    EXPECT_EQ(Keys(), "ba");
    list.Clear();
    Fill("a");
    EXPECT_EQ(Keys(), "a");
}

TEST_F(ListViewTest, the_first_row_of_an_empty_list_becomes_current_without_being_selected) {
    EXPECT_EQ(FailureOf([&] { list.Current(); }), failure::ObjectNotSet);
    Fill("ab");
    EXPECT_EQ(list.CurrentKey(), "a");
    EXPECT_EQ(SelectedKeys(), "");
    list.Clear();
    EXPECT_EQ(FailureOf([&] { list.Current(); }), failure::ObjectNotSet);
    Fill("c");
    EXPECT_EQ(list.CurrentKey(), "c");
}

TEST_F(ListViewTest, the_row_that_takes_the_place_of_a_removed_current_row_becomes_current) {
    Fill("abcd");
    Show();
    ClickRow(2);
    list.Remove(2);
    EXPECT_EQ(list.CurrentKey(), "c");
    EXPECT_EQ(SelectedKeys(), "");
    list.Remove("d");
    EXPECT_EQ(list.CurrentKey(), "c");
    list.Remove("c");
    EXPECT_EQ(list.CurrentKey(), "a");
    list.Remove("a");
    EXPECT_EQ(FailureOf([&] { list.Current(); }), failure::ObjectNotSet);
    EXPECT_EQ(clicked, "b");
}

TEST_F(ListViewTest, RemoveSelected_takes_out_every_selected_row) {
    Fill("abcdef");
    Show();
    ClickRow(2);
    ClickRow(3, Qt::ControlModifier);
    ClickRow(5, Qt::ControlModifier);
    list.RemoveSelected();
    EXPECT_EQ(Keys(), "adf");
    EXPECT_EQ(list.CurrentKey(), "f");
    list.RemoveSelected();
    EXPECT_EQ(Keys(), "adf");
}

TEST_F(ListViewTest, a_press_is_a_click_wherever_the_button_is_let_go) {
    Fill("abc");
    Show();
    for (const Qt::MouseButton button : {Qt::LeftButton, Qt::RightButton, Qt::MiddleButton}) {
        clicked.clear();
        Press(2, button);
        EXPECT_EQ(clicked, "b");
        EXPECT_EQ(SelectedKeys(), "b");
        Release(2, button);
        EXPECT_EQ(clicked, "b");
        Press(2, button);
        Release(3, button);
        EXPECT_EQ(clicked, "bb") << "of the selected row as well";
    }
}

TEST_F(ListViewTest, a_press_on_a_row_of_the_selection_clicks_that_row) {
    list.SetDragSource(true);
    Fill("abc");
    Show();
    ClickRow(1);
    ClickRow(3, Qt::ShiftModifier);
    clicked.clear();
    Press(2);
    EXPECT_EQ(clicked, "b");
    EXPECT_EQ(SelectedKeys(), "abc");
    Release(2);
    EXPECT_EQ(clicked, "b");
    EXPECT_EQ(SelectedKeys(), "b");
}

TEST_F(ListViewTest, a_right_press_selects_its_row_whatever_key_is_held) {
    Fill("abc");
    Show();
    ClickRow(1);
    for (const Qt::KeyboardModifier key : {Qt::ControlModifier, Qt::ShiftModifier}) {
        clicked.clear();
        Press(3, Qt::RightButton, key);
        Release(3, Qt::RightButton, key);
        EXPECT_EQ(clicked, "c");
        EXPECT_EQ(SelectedKeys(), "c");
        ClickRow(1);
    }
}

TEST_F(ListViewTest, keys_find_their_rows_however_many_have_come_and_gone) {
    std::vector<std::string> expected;
    std::minstd_rand random(1);
    for (int i = 0; i < 4000; ++i) {
        const bool bGrowing = i % 1000 < 600;
        if (expected.empty() || (random() % 4 != 0) == bGrowing) {
            expected.push_back("key " + std::to_string(random() % 500));
            const auto same = std::find(expected.begin(), expected.end(), expected.back());
            const bool bThere = same + 1 != expected.end();
            EXPECT_EQ(FailureOf([&] {
                          list.Add(ListRow{expected.back(), {}});
                      }),
                      bThere ? failure::ListKeyNotUnique : 0);
            if (bThere) expected.pop_back();
        } else {
            const std::size_t gone = random() % expected.size();
            list.Remove(expected[gone]);
            expected.erase(expected.begin() + static_cast<std::ptrdiff_t>(gone));
        }
        ASSERT_EQ(list.Count(), static_cast<Long>(expected.size()));
    }
    while (!expected.empty()) {
        for (std::size_t i = 0; i < expected.size(); ++i) {
            ASSERT_EQ(list.Key(static_cast<Long>(i) + 1), expected[i]);
        }
        list.Remove(expected.front());
        expected.erase(expected.begin());
    }
}

TEST_F(ListViewTest, an_edit_is_broken_off_when_its_row_goes) {
    const struct {
        const char* what;
        std::function<void()> change;
    } changes[] = {{"all rows", [this] { list.Clear(); }},
                   {"the row", [this] { list.Remove("b"); }},
                   {"rows around it", [this] { list.RemoveSelected(); }},
                   {"the columns", [this] { list.ClearColumns(); }}};
    Show();
    for (const auto& change : changes) {
        list.Clear();
        list.ClearColumns();
        list.AddColumn("title", "Title", 2880);
        Fill("abc");
        ClickRow(2);
        list.StartLabelEdit();
        auto* editor = list.findChild<QLineEdit*>();
        ASSERT_NE(editor, nullptr) << change.what;
        QTest::keyClicks(editor, QStringLiteral("half"));
        change.change();
        RunEvents();
        EXPECT_EQ(edited, "") << change.what;
        EXPECT_EQ(list.findChild<QLineEdit*>(), nullptr) << change.what;
    }
}

TEST_F(ListViewTest, an_edit_goes_on_while_other_rows_come_and_go) {
    Fill("abc");
    Show();
    ClickRow(2);
    list.StartLabelEdit();
    auto* editor = list.findChild<QLineEdit*>();
    ASSERT_NE(editor, nullptr);
    QTest::keyClicks(editor, QStringLiteral("half"));
    list.Remove("a");
    Fill("d");
    QTest::keyClicks(editor, QStringLiteral(" and half"));
    QTest::keyClick(editor, Qt::Key_Return);
    RunEvents();
    EXPECT_EQ(edited, "b=half and half;");
    EXPECT_EQ(list.Cell(1, 0), "half and half");
}

TEST_F(ListViewTest, moving_by_keyboard_counts_as_a_click) {
    Fill("abc");
    Show();
    QTest::keyClick(&list, Qt::Key_Down);
    QTest::keyClick(&list, Qt::Key_End);
    QTest::keyClick(&list, Qt::Key_End);
    EXPECT_EQ(clicked, "bc");
}

TEST_F(ListViewTest, selecting_the_current_row_by_keyboard_counts_as_a_click) {
    Show();
    for (const auto& [key, modifiers, selected] :
         {std::tuple(Qt::Key_Space, Qt::NoModifier, "a"), {Qt::Key_A, Qt::ControlModifier, "ab"}}) {
        list.Clear();
        Fill("ab");
        clicked.clear();
        QTest::keyClick(&list, key, modifiers);
        EXPECT_EQ(SelectedKeys(), selected);
        EXPECT_EQ(clicked, "a");
        QTest::keyClick(&list, key, modifiers);
        EXPECT_EQ(clicked, "a");
    }
}

TEST_F(ListViewTest, a_frame_drawn_from_empty_space_to_the_current_row_counts_as_a_click_on_it) {
    Fill("ab");
    Show();
    QTest::mousePress(list.viewport(), Qt::LeftButton, {}, On(2) + QPoint(0, 100));
    for (const Long row : {2, 1}) {
        QMouseEvent move(QEvent::MouseMove, On(row), list.viewport()->mapToGlobal(On(row)),
                         Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(list.viewport(), &move);
    }
    EXPECT_EQ(clicked, "");
    Release(1);
    EXPECT_EQ(SelectedKeys(), "ab");
    EXPECT_EQ(clicked, "a");
}

TEST_F(ListViewTest, a_right_press_selects_an_unselected_row_and_keeps_a_selection_it_is_part_of) {
    Fill("abcd");
    Show();
    ClickRow(1);
    ClickRow(3, Qt::ShiftModifier);
    clicked.clear();
    Press(2, Qt::RightButton);
    EXPECT_EQ(clicked, "b");
    EXPECT_EQ(SelectedKeys(), "abc");
    Release(2, Qt::RightButton);
    Press(4, Qt::RightButton);
    Release(4, Qt::RightButton);
    EXPECT_EQ(clicked, "bd");
    EXPECT_EQ(SelectedKeys(), "d");
}

TEST_F(ListViewTest, a_press_on_empty_space_is_no_click) {
    Fill("a");
    Show();
    const QPoint below = On(1) + QPoint(0, 100);
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, below);
    EXPECT_EQ(clicked, "");
    ClickRow(1);
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, below);
    EXPECT_EQ(SelectedKeys(), "");
    EXPECT_EQ(clicked, "a");
}

TEST_F(ListViewTest, an_edit_is_told_before_the_label_changes_and_a_broken_off_one_is_not) {
    Fill("ab");
    Show();
    ClickRow(2);
    std::string before;
    QObject::connect(&list, &ListView::LabelEdited, [&] { before = list.Cell(2, 0); });
    list.StartLabelEdit();
    auto* editor = list.findChild<QLineEdit*>();
    ASSERT_NE(editor, nullptr);
    EXPECT_EQ(editor->text(), QStringLiteral("row b"));
    QTest::keyClicks(editor, QStringLiteral("new"));
    QTest::keyClick(editor, Qt::Key_Return);
    RunEvents();
    EXPECT_EQ(edited, "b=new;");
    EXPECT_EQ(before, "row b");
    EXPECT_EQ(list.Cell(2, 0), "new");

    list.StartLabelEdit();
    editor = list.findChild<QLineEdit*>();
    ASSERT_NE(editor, nullptr);
    QTest::keyClicks(editor, QStringLiteral("other"));
    QTest::keyClick(editor, Qt::Key_Escape);
    EXPECT_EQ(edited, "b=new;");
    EXPECT_EQ(list.Cell(2, 0), "new");
}

TEST_F(ListViewTest, keys_that_an_editor_leaves_over_do_not_move_the_current_row) {
    Fill("abc");
    Show();
    ClickRow(2);
    std::string keys;
    QObject::connect(&list, &ListView::KeyPressed, [&](int) { keys += "key;"; });
    list.StartLabelEdit();
    auto* editor = list.findChild<QLineEdit*>();
    ASSERT_NE(editor, nullptr);
    QTest::keyClick(editor, Qt::Key_Down);
    QTest::keyClick(editor, Qt::Key_Delete);
    EXPECT_EQ(list.CurrentKey(), "b");
    EXPECT_EQ(keys, "");
    QTest::keyClicks(editor, QStringLiteral("x"));
    QTest::keyClick(editor, Qt::Key_Tab);
    EXPECT_EQ(edited, "b=x;");
    EXPECT_EQ(list.CurrentKey(), "b");
    RunEvents();
    EXPECT_EQ(list.findChild<QLineEdit*>(), nullptr);
}

TEST_F(ListViewTest, columns_have_twip_widths_and_lefts) {
    EXPECT_EQ(list.ColumnWidth("size"), ListView::DefaultColumnWidth);
    EXPECT_EQ(list.ColumnLeft("title"), 0);
    EXPECT_EQ(list.ColumnLeft("size"), 2880);
    EXPECT_EQ(list.header()->sectionSize(0), 192);
    list.SetColumnWidth("size", 960);
    EXPECT_EQ(list.header()->sectionSize(1), 64);
    list.AlignColumnRight("size");
    Fill("a");
    EXPECT_EQ(list.model()->index(0, 1).data(Qt::TextAlignmentRole).value<Qt::Alignment>(),
              Qt::AlignRight | Qt::AlignVCenter);
}

TEST_F(ListViewTest, columns_may_be_replaced_under_the_rows) {
    Fill("ab");
    list.ClearColumns();
    list.AddColumn("name", "Name");
    EXPECT_EQ(Keys(), "ab");
    list.Clear();
    Fill("c");
    EXPECT_EQ(list.CurrentKey(), "c");
}

TEST_F(ListViewTest, a_byte_outside_UTF_8_is_shown_as_its_Windows_1252_character) {
    list.Add(ListRow{"a", {"caf\xE9"}});
    EXPECT_EQ(list.model()->index(0, 0).data().toString(), QStringLiteral("caf\u00E9"));
    EXPECT_EQ(list.Cell(1, 0), "caf\xE9");
}

TEST_F(ListViewTest, rows_of_another_process_are_not_taken) {
    list.SetDropTarget(true);
    int drops = 0;
    QObject::connect(&list, &ListView::RowsDropped, [&] { ++drops; });
    const auto drop = [this](const QMimeData& rows) {
        QDragEnterEvent enter({9, 9}, Qt::CopyAction, &rows, Qt::LeftButton, {});
        enter.ignore();
        QApplication::sendEvent(list.viewport(), &enter);
        QDropEvent event({9, 9}, Qt::CopyAction, &rows, Qt::LeftButton, {});
        QApplication::sendEvent(list.viewport(), &event);
        return enter.isAccepted();
    };
    const std::unique_ptr<QMimeData> own(MakeDraggedRows());
    EXPECT_TRUE(drop(*own));
    EXPECT_EQ(drops, 1);
    QMimeData others;
    for (const QString& format : own->formats()) {
        others.setData(format, {});
        EXPECT_FALSE(drop(others));
        others.setData(format, "another");
        EXPECT_FALSE(drop(others));
    }
    EXPECT_EQ(drops, 1);
}

}  // namespace tavel::test
