#include "ui/support/FolderPickers.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QTest>

// Names that only this host's folders can have.

namespace tavel::test {

namespace {

class FolderPickerNames : public FolderPickers {};

}  // namespace

TEST_F(FolderPickerNames, a_line_break_in_a_name_is_shown_as_a_blank) {
    folder.Write("photos/two\nlines/a.jpg", "");
    FolderDialog dialog(request);
    QTreeWidgetItem* photos = Child(Stick(dialog), "photos");
    photos->setExpanded(true);
    QTreeWidgetItem* broken = Child(photos, "two\nlines");
    ASSERT_NE(broken, nullptr);
    dialog.show();
    (void)QTest::qWaitForWindowActive(&dialog);
    Tree(dialog).scrollToItem(broken);  // from below the folders of the user's home
    const QImage shown = Tree(dialog).grab().toImage();
    broken->setText(0, QStringLiteral("two lines"));
    EXPECT_EQ(Tree(dialog).grab().toImage(), shown);
    broken->setText(0, QStringLiteral("two words"));
    EXPECT_NE(Tree(dialog).grab().toImage(), shown);
}

}  // namespace tavel::test
