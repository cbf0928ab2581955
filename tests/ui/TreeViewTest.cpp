#include "support/Support.h"
#include "ui/support/Windows.h"
#include "ui/toolkit/DraggedRows.h"
#include "ui/toolkit/Strings.h"
#include "ui/toolkit/TreeView.h"

#include <gtest/gtest.h>

#include <QDragMoveEvent>
#include <QLineEdit>
#include <QMimeData>

namespace tavel::test {

namespace {

class TreeViewTest : public testing::Test {
  protected:
    TreeViewTest() {
        root = &tree.AddNode(nullptr, "root", "Root", {});
        fixed = &tree.AddNode(root, "fixed", "Fixed", {});
        group = &tree.AddNode(root, "group", "Group", {}, true);
        child = &tree.AddNode(fixed, "child", "Child", {});
        root->setExpanded(true);
        fixed->setExpanded(true);
        tree.Select(*root);
        tree.resize(200, 200);
        tree.show();
        tree.activateWindow();
        (void)QTest::qWaitForWindowActive(&tree);
        QObject::connect(&tree, &TreeView::NodeClicked,
                         [this](TreeNode& node, const std::string& sSelectedKey) {
                             clicked += sSelectedKey + ">" + node.Key() + ";";
                         });
        QObject::connect(&tree, &TreeView::MenuRequested,
                         [this](TreeNode& node, QPoint) { rightClicked += node.Key() + ";"; });
        QObject::connect(&tree, &TreeView::RowsDropped,
                         [this](TreeNode& node) { dropped += node.Key() + ";"; });
        QObject::connect(&tree, &TreeView::LabelEdited,
                         [this](TreeNode& node, const std::string& sNewText) {
                             edited += FromQString(node.text(0)) + ">" + sNewText + ";";
                         });
    }

    QPoint On(TreeNode& node) const { return tree.visualItemRect(&node).center(); }
    void ClickNode(TreeNode& node, Qt::MouseButton button = Qt::LeftButton) {
        QTest::mouseClick(tree.viewport(), button, {}, On(node));
    }

    TreeView tree;
    TreeNode* root;
    TreeNode* fixed;
    TreeNode* group;
    TreeNode* child;
    std::string clicked;
    std::string rightClicked;
    std::string dropped;
    std::string edited;
};

}  // namespace

TEST_F(TreeViewTest, nodes_are_found_by_key) {
    EXPECT_EQ(&tree.Node("child"), child);
    EXPECT_EQ(child->Parent(), fixed);
    EXPECT_EQ(root->Parent(), nullptr);
    EXPECT_EQ(tree.Find("none"), nullptr);
    EXPECT_EQ(FailureOf([&] { tree.Node("none"); }), failure::ListElementNotFound);
    EXPECT_EQ(FailureOf([&] { tree.AddNode(root, "child", "", {}); }), failure::ListKeyNotUnique);
}

TEST_F(TreeViewTest, removed_nodes_are_forgotten_with_all_below_them) {
    tree.RemoveChild(*root, 0);
    EXPECT_EQ(tree.Find("fixed"), nullptr);
    EXPECT_EQ(tree.Find("child"), nullptr);
    tree.AddNode(root, "child", "Again", {});
    tree.RemoveAll();
    EXPECT_EQ(FailureOf([&] { tree.SelectedNode(); }), failure::ObjectNotSet);
    EXPECT_EQ(tree.SelectedKey(), "");
}

TEST_F(TreeViewTest, a_click_tells_the_node_and_what_was_selected_before) {
    ClickNode(*fixed);
    ClickNode(*fixed);
    ClickNode(*group);
    EXPECT_EQ(clicked, "root>fixed;fixed>fixed;fixed>group;");
}

TEST_F(TreeViewTest, a_press_that_slides_away_still_clicks_the_node_that_it_selected) {
    QTest::mousePress(tree.viewport(), Qt::LeftButton, {}, On(*fixed));
    QTest::mouseMove(tree.viewport(), On(*group));
    QTest::mouseRelease(tree.viewport(), Qt::LeftButton, {}, On(*group));
    EXPECT_EQ(tree.SelectedKey(), "fixed");
    EXPECT_TRUE(fixed->isSelected());
    EXPECT_FALSE(group->isSelected());
    EXPECT_EQ(clicked, "root>fixed;");
}

TEST_F(TreeViewTest, a_press_is_the_click) {
    QTest::mousePress(tree.viewport(), Qt::LeftButton, {}, On(*fixed));
    EXPECT_EQ(clicked, "root>fixed;");
    QTest::mouseRelease(tree.viewport(), Qt::LeftButton, {}, On(*fixed));
    EXPECT_EQ(clicked, "root>fixed;");
}

TEST_F(TreeViewTest, a_click_of_another_button_before_the_release_is_no_press) {
    for (const Qt::MouseButton other : {Qt::RightButton, Qt::MiddleButton}) {
        clicked.clear();
        tree.Select(*root);
        QTest::mousePress(tree.viewport(), Qt::LeftButton, {}, On(*fixed));
        ClickNode(*group, other);
        QTest::mouseRelease(tree.viewport(), Qt::LeftButton, {}, On(*fixed));
        EXPECT_EQ(clicked, "root>fixed;") << other;
    }
}

TEST_F(TreeViewTest, a_double_click_is_one_click_on_a_node_that_was_not_selected) {
    ClickNode(*child);
    QTest::mouseDClick(tree.viewport(), Qt::LeftButton, {}, On(*child));
    QTest::mouseRelease(tree.viewport(), Qt::LeftButton, {}, On(*child));
    EXPECT_EQ(clicked, "root>child;");
}

TEST_F(TreeViewTest, a_double_click_of_another_button_folds_nothing) {
    for (const Qt::MouseButton other : {Qt::RightButton, Qt::MiddleButton}) {
        ClickNode(*fixed);
        QTest::mouseDClick(tree.viewport(), other, {}, On(*fixed));
        QTest::mouseRelease(tree.viewport(), other, {}, On(*fixed));
        EXPECT_TRUE(fixed->isExpanded()) << other;
        clicked.clear();
        ClickNode(*fixed);
        EXPECT_EQ(clicked, "fixed>fixed;") << other;
    }
}

TEST_F(TreeViewTest, beside_all_nodes_nothing_happens) {
    const QPoint beside(100, 190);
    tree.SetDropTarget(true);
    QTest::mouseClick(tree.viewport(), Qt::LeftButton, {}, beside);
    QTest::mouseClick(tree.viewport(), Qt::RightButton, {}, beside);
    const std::unique_ptr<QMimeData> rows(MakeDraggedRows());
    for (const QPoint point : {beside, On(*group)}) {
        EXPECT_EQ(dropped, "");
        QDragEnterEvent enter(point, Qt::CopyAction, rows.get(), Qt::LeftButton, {});
        QApplication::sendEvent(tree.viewport(), &enter);
        QDropEvent drop(point, Qt::CopyAction, rows.get(), Qt::LeftButton, {});
        QApplication::sendEvent(tree.viewport(), &drop);
    }
    EXPECT_EQ(dropped, "group;");
    EXPECT_EQ(clicked + rightClicked, "");
    EXPECT_EQ(tree.SelectedKey(), "root");
}

TEST_F(TreeViewTest, moving_by_keyboard_counts_as_a_click_on_the_node_moved_to) {
    QTest::keyClick(&tree, Qt::Key_Down);
    QTest::keyClick(&tree, Qt::Key_Up);
    QTest::keyClick(&tree, Qt::Key_Up);
    EXPECT_EQ(clicked, "root>fixed;fixed>root;");
}

TEST_F(TreeViewTest, the_arrow_in_front_of_a_node_is_no_click_on_it) {
    std::string collapsed;
    QObject::connect(&tree, &TreeView::NodeCollapsed,
                     [&](TreeNode& node) { collapsed += node.Key(); });
    const QRect rect = tree.visualItemRect(fixed);
    const QPoint arrow(rect.left() - tree.indentation() / 2, rect.center().y());
    QTest::mouseClick(tree.viewport(), Qt::LeftButton, {}, arrow);
    EXPECT_EQ(collapsed, "fixed");
    EXPECT_EQ(clicked, "");
    EXPECT_EQ(tree.SelectedKey(), "root");
}

TEST_F(TreeViewTest, a_right_click_tells_the_node_and_selects_nothing) {
    ClickNode(*group, Qt::RightButton);
    EXPECT_EQ(rightClicked, "group;");
    EXPECT_EQ(tree.SelectedKey(), "root");
    EXPECT_EQ(clicked, "");
}

TEST_F(TreeViewTest, a_click_with_the_control_key_leaves_the_node_selected) {
    ClickNode(*fixed);
    QTest::mouseClick(tree.viewport(), Qt::LeftButton, Qt::ControlModifier, On(*fixed));
    EXPECT_TRUE(fixed->isSelected());
}

TEST_F(TreeViewTest, only_renamable_nodes_are_edited) {
    tree.Select(*fixed);
    tree.StartLabelEdit();
    QTest::keyClick(&tree, Qt::Key_F2);
    EXPECT_EQ(tree.findChild<QLineEdit*>(), nullptr);

    tree.Select(*group);
    QTest::keyClick(&tree, Qt::Key_F2);
    auto* editor = tree.findChild<QLineEdit*>();
    ASSERT_NE(editor, nullptr);
    QTest::keyClicks(editor, QStringLiteral("New"));
    QTest::keyClick(editor, Qt::Key_Down);
    EXPECT_EQ(tree.SelectedKey(), "group");
    QTest::keyClick(editor, Qt::Key_Return);
    RunEvents();
    EXPECT_EQ(edited, "Group>New;");
    EXPECT_EQ(FromQString(group->text(0)), "New");
}

TEST_F(TreeViewTest, a_click_on_the_selected_node_edits_it_if_it_is_a_renamable_one) {
    const int interval = QApplication::doubleClickInterval();
    QApplication::setDoubleClickInterval(0);  // no second click to wait for
    const auto editsAt = [this](TreeNode& node) {
        tree.Select(node);
        ClickNode(node);
        RunEvents();
        return tree.findChild<QLineEdit*>() != nullptr;
    };
    EXPECT_FALSE(editsAt(*fixed));
    EXPECT_TRUE(editsAt(*group));
    QApplication::setDoubleClickInterval(interval);
}

TEST_F(TreeViewTest, a_line_break_is_shown_as_a_blank_and_makes_no_row_higher) {
    const auto showing = [this](const QString& text) {
        root->setText(0, text);
        tree.doItemsLayout();
        return tree.grab().toImage();
    };
    const int height = tree.visualItemRect(root).height();
    EXPECT_GE(height, 18);
    const QImage usual = showing(QStringLiteral("one two"));
    EXPECT_EQ(showing(QStringLiteral("one\ntwo")), usual);
    EXPECT_EQ(FromQString(root->text(0)), "one\ntwo");
    for (TreeNode* node : {root, fixed}) EXPECT_EQ(tree.visualItemRect(node).height(), height);
}

TEST_F(TreeViewTest, what_is_dragged_over_a_node_changes_nothing_that_can_be_seen) {
    tree.SetDropTarget(true);
    fixed->setExpanded(false);
    const std::unique_ptr<QMimeData> rows(MakeDraggedRows());
    const QImage before = tree.grab().toImage();
    QDragEnterEvent enter(On(*fixed), Qt::CopyAction, rows.get(), Qt::LeftButton, {});
    QApplication::sendEvent(tree.viewport(), &enter);
    for (TreeNode* node : {fixed, group, root, fixed}) {
        QDragMoveEvent move(On(*node), Qt::CopyAction, rows.get(), Qt::LeftButton, {});
        QApplication::sendEvent(tree.viewport(), &move);
        EXPECT_TRUE(move.isAccepted());
        EXPECT_EQ(tree.grab().toImage(), before) << node->Key();
    }
    EXPECT_EQ(tree.SelectedKey(), "root");
    EXPECT_FALSE(fixed->isExpanded());
}

}  // namespace tavel::test
