#pragma once

#include "ui/support/MainWindow.h"

#include <QLineEdit>

namespace tavel::test {

// frmMain over a library that has groups.
class CategoryTreeTest : public MainWindowTest {
  protected:
    // One of each kind, each in a group, and one photo more.
    static void FillLibrary() {
        AddPhoto("ph_a", "Beach");
        AddPhoto("ph_b", "Hill");
        AddMusic("mu_a", "Song", "Singer");
        AddVideo("vd_a", "Film");
        AddMagazine("ma_a", {"ph_a"});
        AddAlbum("pa_a", {"ph_b"});
        AddPlaylist("pl_", {"mu_a"});
        AddSeries("vs_a", {"vd_a"});
    }

    // The captions of the item list's columns, each with a blank.
    std::string Columns() {
        const QAbstractItemModel& model = *grdItems().model();
        std::string captions;
        for (int i = 0; i < model.columnCount(); ++i) {
            captions += model.headerData(i, Qt::Horizontal).toString().toStdString() + " ";
        }
        return captions;
    }

    // Types a new text into the editor of the tree's label and confirms it.
    void Edit(const char* text) {
        auto* editor = trvCat().findChild<QLineEdit*>();
        ASSERT_NE(editor, nullptr);
        editor->clear();
        QTest::keyClicks(editor, QString::fromUtf8(text));
        QTest::keyClick(editor, Qt::Key_Return);
        RunEvents();
    }
    void Rename(const char* key, const char* text) {
        trvCat().Select(trvCat().Node(key));
        QTest::keyClick(&trvCat(), Qt::Key_F2);
        Edit(text);
    }

    // A click on the arrow in front of a node.
    void ClickArrow(const char* key) {
        const QRect rect = trvCat().visualItemRect(&trvCat().Node(key));
        const QPoint arrow(rect.left() - trvCat().indentation() / 2, rect.center().y());
        QTest::mouseClick(trvCat().viewport(), Qt::LeftButton, {}, arrow);
    }

    using Ids = std::vector<std::string>;
};

}  // namespace tavel::test
