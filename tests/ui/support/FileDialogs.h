#pragma once

#include "support/Support.h"
#include "ui/support/Modal.h"
#include "ui/support/PromptQueue.h"
#include "ui/support/Windows.h"
#include "ui/toolkit/Strings.h"
#include "ui/toolkit/dialogs/FileDialog.h"

#include <gtest/gtest.h>

#include <QLineEdit>
#include <QListView>

namespace tavel::test {

// The toolkit's box that picks files, in a folder with some.
class FileDialogs : public ::testing::Test {
  protected:
    FileDialogs() {
        folder.Write("a.JPG", "");
        folder.Write("b.jpg", "");
        folder.Write("c.mp3", "");
        folder.Write("no extension", "");
        request.title = QStringLiteral("Select file(s) to add");
        request.startFolder = ToQString(folder.HostPath());
        request.descriptions =
            QStringList{QStringLiteral("All Supported Files"), QStringLiteral("Zip Files (*.zip)"),
                        QStringLiteral("Anything")};
        request.patterns = QStringList{QStringLiteral("*.jpg;*.png;"), QStringLiteral("*.zip"),
                                       QStringLiteral("*.*")};
        request.flags = PickFileMustExist | PickHideReadOnly;
    }

    // Types into the name box of the dialog and confirms.
    static void TypeInto(QWidget& box, const QString& typed) {
        auto& edit = Find<QLineEdit>(box, "fileNameEdit");
        edit.setText(typed);
        QTest::keyClick(&edit, Qt::Key_Return);
    }
    FileAnswer Type(const QString& typed) {
        const RealPrompts real;
        WhenModal([typed](QWidget& box) { TypeInto(box, typed); });
        return Service<Prompter>::Get().PickFiles(request);
    }

    // The same for what the box stays for, with a reason.
    FileAnswer TypeInVain(const QString& typed, const std::string& reason) {
        const RealPrompts real;
        WhenModal([typed, reason](QWidget& box) {
            AnswerNext(reason);
            TypeInto(box, typed);
            EXPECT_TRUE(box.isVisible()) << FromQString(typed);
            QTest::keyClick(&box, Qt::Key_Escape);
        });
        return Service<Prompter>::Get().PickFiles(request);
    }

    // The names that the box lists, once it has read the folder.
    static QStringList NamesIn(QWidget& box) {
        const auto& list = Find<QListView>(box, "listView");
        QStringList names;
        const auto read = [&] {
            names.clear();
            for (int row = 0; row < list.model()->rowCount(list.rootIndex()); ++row)
                names << list.model()->index(row, 0, list.rootIndex()).data().toString();
            names.sort();
            return !names.isEmpty();
        };
        EXPECT_TRUE(QTest::qWaitFor(read));
        return names;
    }
    QStringList Listed() {
        FileDialog dialog(request);
        dialog.show();
        return NamesIn(dialog);
    }

    TempFolder folder;
    FileRequest request;
};

}  // namespace tavel::test
