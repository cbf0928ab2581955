#include "core/PublicStuff.h"
#include "support/FaultyFileService.h"
#include "support/Support.h"
#include "ui/support/Modal.h"
#include "ui/support/NoHostBoxes.h"
#include "ui/support/PromptQueue.h"
#include "ui/support/Windows.h"
#include "ui/toolkit/InputBox.h"
#include "ui/toolkit/MsgBox.h"
#include "ui/toolkit/RealPrompter.h"
#include "ui/toolkit/Strings.h"
#include "ui/toolkit/WorkWindow.h"
#include "ui/toolkit/dialogs/CommonDialogs.h"
#include "ui/toolkit/dialogs/FileDialog.h"

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFileInfo>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QListView>
#include <QMessageBox>
#include <QProxyStyle>
#include <QPushButton>
#include <QUrl>
#include <filesystem>

namespace tavel::test {

namespace {

QAbstractButton& ButtonOf(QWidget& box, QMessageBox::StandardButton which) {
    return *static_cast<QMessageBox&>(box).button(which);
}

// A desktop whose style puts pictures on the buttons of stock dialogs.
class ButtonsWithPictures {
  public:
    ButtonsWithPictures() { QApplication::setStyle(new Style); }
    ~ButtonsWithPictures() { QApplication::setStyle(QStringLiteral("fusion")); }
    ButtonsWithPictures(const ButtonsWithPictures&) = delete;
    ButtonsWithPictures& operator=(const ButtonsWithPictures&) = delete;

  private:
    class Style : public QProxyStyle {
      public:
        Style() : QProxyStyle(QStringLiteral("fusion")) {}
        int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                      QStyleHintReturn* data) const override {
            if (hint == SH_DialogButtonBox_ButtonsHaveIcons) return 1;
            return QProxyStyle::styleHint(hint, option, widget, data);
        }
    };
};

}  // namespace

TEST(MsgBox, each_key_answers_as_its_button_says) {
    struct Case {
        MsgBoxButtons buttons;
        Qt::Key key;
        MsgBoxAnswer answer;
    };
    const RealPrompts real;
    for (const Case& one :
         {Case{MsgBoxButtons::OK, Qt::Key_Return, MsgBoxAnswer::OK},
          Case{MsgBoxButtons::OK, Qt::Key_Escape, MsgBoxAnswer::OK},
          Case{MsgBoxButtons::OKCancel, Qt::Key_Return, MsgBoxAnswer::OK},
          Case{MsgBoxButtons::OKCancel, Qt::Key_Escape, MsgBoxAnswer::Cancel},
          Case{MsgBoxButtons::YesNo, Qt::Key_Return, MsgBoxAnswer::Yes},
          Case{MsgBoxButtons::YesNo, Qt::Key_Escape, MsgBoxAnswer::No},
          Case{MsgBoxButtons::YesNoDefaultNo, Qt::Key_Return, MsgBoxAnswer::No},
          Case{MsgBoxButtons::YesNoDefaultNo, Qt::Key_Escape, MsgBoxAnswer::No}}) {
        WhenModal([&](QWidget& box) { QTest::keyClick(&box, one.key); });
        EXPECT_EQ(MsgBox(QStringLiteral("Sure?"), one.buttons), one.answer);
    }
}

TEST(MsgBox, a_click_answers_and_the_box_shows_its_words) {
    const RealPrompts real;
    WhenModal([](QWidget& box) {
        EXPECT_EQ(FromQString(box.windowTitle()), "Delete Group?");
        EXPECT_EQ(FromQString(static_cast<QMessageBox&>(box).text()), "<b>one</b>\n\ntwo");
        EXPECT_EQ(static_cast<QMessageBox&>(box).textFormat(), Qt::PlainText);
        QTest::mouseClick(&ButtonOf(box, QMessageBox::No), Qt::LeftButton);
    });
    EXPECT_EQ(MsgBox(QStringLiteral("<b>one</b>\r\rtwo"), MsgBoxButtons::YesNo,
                     QStringLiteral("Delete Group?")),
              MsgBoxAnswer::No);
}

TEST(MsgBox, its_text_begins_where_the_box_does) {
    const RealPrompts real;
    const QString words = QStringLiteral("Already exists in the list ");
    for (const QString& text : {words, words.repeated(9)}) {
        WhenModal([](QWidget& box) {
            const int margin = box.layout()->contentsMargins().left();
            EXPECT_EQ(Find<QLabel>(box, "qt_msgbox_label").x(), margin);
            QTest::keyClick(&box, Qt::Key_Escape);
        });
        MsgBox(text);
    }
}

TEST(MsgBox, breaks_a_long_path_at_its_folders_and_fits_the_screen) {
    const RealPrompts real;
    std::string path = "Adding c:";
    for (int i = 0; i < 12; ++i) path += "\\a_folder_of_some_length";
    WhenModal([&](QWidget& box) {
        const auto& words = *box.findChild<QLabel*>(QStringLiteral("qt_msgbox_label"));
        const QRect needed =
            words.fontMetrics().boundingRect(words.contentsRect(), Qt::TextWordWrap, words.text());
        EXPECT_LE(needed.width(), words.contentsRect().width());
        EXPECT_LE(needed.height(), words.contentsRect().height());
        EXPECT_LT(box.width(), box.screen()->availableGeometry().width());
        EXPECT_EQ(FromQString(words.accessibleName()), path) << "without marks";
        ButtonOf(box, QMessageBox::Ok).click();
    });
    MsgBox(QString::fromStdString(path));
}

TEST(MsgBox, is_called_after_the_program_when_it_is_given_no_title) {
    PromptQueue prompts;
    prompts.ExpectMsgBox(QStringLiteral("Hello"), MsgBoxButtons::OK, MsgBoxAnswer::OK,
                         QStringLiteral("Tavel"));
    EXPECT_EQ(MsgBox(QStringLiteral("Hello")), MsgBoxAnswer::OK);
}

TEST(MsgBox, outlives_its_owner) {
    const RealPrompts real;
    auto* owner = new QWidget;
    SetWorkWindow(*owner);
    WhenModal([owner](QWidget& box) {
        ASSERT_EQ(box.parentWidget(), owner);
        delete owner;
    });
    EXPECT_EQ(MsgBox(QStringLiteral("Sure?"), MsgBoxButtons::YesNo), MsgBoxAnswer::No);
}

TEST(Boxes, no_button_has_a_picture_on_a_desktop_that_likes_them) {
    const ButtonsWithPictures desktop;
    const RealPrompts real;
    int buttons = 0;
    const auto look = [&](QWidget& box) {
        for (const QPushButton* button : box.findChildren<QPushButton*>()) {
            EXPECT_TRUE(button->icon().isNull()) << FromQString(box.objectName());
            ++buttons;
        }
        QTest::keyClick(&box, Qt::Key_Escape);
    };
    WhenModal(look);
    InputBox({}, {}, {});
    EXPECT_EQ(buttons, 2);
    WhenModal(look);
    MsgBox({}, MsgBoxButtons::OKCancel);
    EXPECT_EQ(buttons, 4);
    WhenModal(look);
    Service<Prompter>::Get().PickFiles({});
    EXPECT_EQ(buttons, 6);
    WhenModal(look);
    Service<Prompter>::Get().PickFolder({});
    EXPECT_EQ(buttons, 8);
    auto& dialogs = Service<CommonDialogs>::Get();
    WhenModal(look);
    dialogs.PickColor({});
    WhenModal(look);
    dialogs.PickFont({});
    PrintRequest print;
    print.printer = DefaultPrinter();
    WhenModal(look);
    dialogs.PickPrinter(print);
    PageRequest page;
    page.printer = DefaultPrinter();
    WhenModal(look);
    dialogs.SetUpPage(page);
    EXPECT_EQ(buttons, 8 + 5 + 2 + 4 + 2);
}

TEST(InputBox, typed_text_comes_back_on_Enter_and_nothing_on_Escape) {
    const RealPrompts real;
    WhenModal([](QWidget& box) {
        EXPECT_EQ(FromQString(box.windowTitle()), "Name Group");
        auto& edit = *box.findChild<QLineEdit*>();
        EXPECT_EQ(FromQString(edit.text()), "New Group");
        QTest::keyClicks(&edit, QStringLiteral("  Holiday"));
        QTest::keyClick(&edit, Qt::Key_Return);
    });
    const QString prompt = QStringLiteral("What would you like to call your new group?");
    const QString title = QStringLiteral("Name Group");
    EXPECT_EQ(FromQString(InputBox(prompt, title, QStringLiteral("New Group"))), "  Holiday");
    WhenModal([](QWidget& box) { QTest::keyClick(&box, Qt::Key_Escape); });
    EXPECT_EQ(FromQString(InputBox(prompt, title, QStringLiteral("New Group"))), "");
}

namespace {

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

    // The same for what the box stays for.
    FileAnswer TypeInVain(const QString& typed) {
        const RealPrompts real;
        WhenModal([typed](QWidget& box) {
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

}  // namespace

TEST_F(FileDialogs, a_typed_name_is_picked) {
    const FileAnswer answer = Type(QStringLiteral("b.jpg"));
    EXPECT_EQ(answer.result, 1);
    EXPECT_EQ(answer.files, QStringList(ToQString(folder.HostPath("b.jpg"))));
    EXPECT_EQ(answer.filterIndex, 0);
}

TEST_F(FileDialogs, several_typed_names_are_picked_when_several_may_be) {
    request.flags |= PickMultiSelect;
    const FileAnswer answer = Type(QStringLiteral("\"a.JPG\" \"b.jpg\""));
    EXPECT_EQ(answer.files, QStringList({ToQString(folder.HostPath("a.JPG")),
                                         ToQString(folder.HostPath("b.jpg"))}));
}

TEST_F(FileDialogs, quoted_names_are_not_picked_together_where_one_file_is_asked_for) {
    EXPECT_EQ(TypeInVain(QStringLiteral(R"("a.JPG" "b.jpg")")).result, 0);
    EXPECT_EQ(Type(QStringLiteral(R"("b.jpg")")).files,
              QStringList(ToQString(folder.HostPath("b.jpg"))));
}

TEST_F(FileDialogs, files_of_different_folders_are_not_picked_together) {
    folder.Write("Trip/d.jpg", "");
    request.flags |= PickMultiSelect;
    for (const std::string& other : {folder.HostPath("Trip/d.jpg"), std::string("/etc/hosts")}) {
        const QString typed = QStringLiteral("\"%1\" \"%2\"")
                                  .arg(ToQString(folder.HostPath("b.jpg")), ToQString(other));
        EXPECT_EQ(TypeInVain(typed).result, 0);
    }
}

TEST_F(FileDialogs, a_typed_path_loses_its_detours) {
    folder.Write("Trip/d.jpg", "");
    const RealPrompts real;
    const auto pick = [this](const QString& typed) {
        WhenModal([typed](QWidget& box) {
            // For a file that the list leaves out Qt gives the words themselves.
            EXPECT_FALSE(NamesIn(box).contains(QStringLiteral("c.mp3")));
            TypeInto(box, typed);
            if (box.isVisible()) QTest::keyClick(&box, Qt::Key_Escape);
        });
        return Service<Prompter>::Get().PickFiles(request).files;
    };
    const QString file = ToQString(folder.HostPath("c.mp3"));
    EXPECT_EQ(pick(QStringLiteral("Trip/../c.mp3")), QStringList(file));
    request.flags |= PickMultiSelect;
    EXPECT_EQ(pick(QStringLiteral("\"Trip/../c.mp3\" \"%1\"").arg(file)),
              QStringList({file, file}));
}

TEST_F(FileDialogs, a_file_that_has_no_drive_path_is_not_picked) {
    folder.Write("a\\b.jpg", "");
    EXPECT_EQ(TypeInVain(QStringLiteral("a\\b.jpg")).result, 0);
    request.flags |= PickMultiSelect;
    EXPECT_EQ(TypeInVain(QStringLiteral("\"b.jpg\" \"a\\b.jpg\"")).result, 0);
    EXPECT_EQ(TypeInVain(QStringLiteral("/dev/null")).result, 0);
}

TEST_F(FileDialogs, a_new_name_that_no_drive_has_is_not_picked) {
    request.flags = PickHideReadOnly;
    for (const char* name : {"a\\b.txt", "a*b.txt", "a:b.txt"})
        EXPECT_EQ(TypeInVain(QString::fromLatin1(name)).result, 0);
}

TEST_F(FileDialogs, a_file_whose_path_is_too_long_is_not_picked) {
    const std::string fits(MaxPathCharacters - folder.DrivePath("").size() - 1, 'x');
    folder.Write(fits, "");
    folder.Write(fits + 'y', "");
    EXPECT_EQ(Type(ToQString(fits)).files, QStringList(ToQString(folder.HostPath(fits))));
    EXPECT_EQ(TypeInVain(ToQString(fits + 'y')).result, 0);
    request.flags = PickHideReadOnly;
    EXPECT_EQ(TypeInVain(ToQString(fits + 'z')).result, 0);
}

TEST_F(FileDialogs, a_folder_that_is_typed_is_opened) {
    folder.Write("Trip/d.jpg", "");
    const RealPrompts real;
    WhenModal([this](QWidget& box) {
        TypeInto(box, QStringLiteral("Trip"));
        EXPECT_EQ(FromQString(static_cast<FileDialog&>(box).directory().path()),
                  folder.HostPath("Trip"));
        QTest::keyClick(&box, Qt::Key_Escape);
    });
    EXPECT_EQ(Service<Prompter>::Get().PickFiles(request).result, 0);
}

TEST_F(FileDialogs, the_box_starts_at_home_and_then_where_files_were_picked_last) {
    folder.Write("Trip/d.jpg", "");
    request.startFolder.clear();
    const NoHostBoxes noHostBoxes;
    RealPrompter prompter;
    std::string startedIn;
    const auto pick = [&](const QString& typed) {
        WhenModal([&, typed](QWidget& box) {
            startedIn = FromQString(static_cast<FileDialog&>(box).directory().path());
            TypeInto(box, typed);
            if (box.isVisible()) QTest::keyClick(&box, Qt::Key_Escape);
        });
        prompter.PickFiles(request);
        return startedIn;
    };
    const QString elsewhere = ToQString(folder.HostPath());
    EXPECT_EQ(pick(elsewhere), FromQString(QDir::homePath()));
    EXPECT_EQ(pick(ToQString(folder.HostPath("Trip/d.jpg"))), FromQString(QDir::homePath()));
    EXPECT_EQ(pick(elsewhere), folder.HostPath("Trip"));
    EXPECT_EQ(pick(elsewhere), folder.HostPath("Trip"));

    std::filesystem::remove_all(folder.HostPath("Trip"));
    const QString file = ToQString(folder.HostPath("b.jpg"));
    EXPECT_TRUE(std::filesystem::is_directory(pick(file))) << startedIn;
    EXPECT_EQ(pick(elsewhere), folder.HostPath()) << "the typed file was picked";
}

TEST_F(FileDialogs, home_and_the_drives_with_a_medium_stand_at_the_side) {
    FaultyFileService service;
    service.Plug('e', folder.HostPath());
    service.Plug('f', folder.HostPath()).hasMedia = false;
    Service<FileService>::Use(&service);
    EXPECT_EQ(FileDialog(request).sidebarUrls(),
              QList<QUrl>({QUrl::fromLocalFile(QDir::homePath()),
                           QUrl::fromLocalFile(QStringLiteral("/")),
                           QUrl::fromLocalFile(ToQString(folder.HostPath()))}));
    Service<FileService>::Use(nullptr);
}

TEST_F(FileDialogs, nothing_is_kept_in_nor_taken_from_the_file_that_Qt_programs_share) {
    const QDir config(qEnvironmentVariable("XDG_CONFIG_HOME"));
    const QString name = QStringLiteral("QtProject.conf");
    { const FileDialog dialog(request); }
    EXPECT_FALSE(config.exists(name));

    const QByteArray others = "[FileDialog]\nviewMode=List\n";
    QFile file(config.filePath(name));
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    file.write(others);
    file.flush();
    EXPECT_EQ(FileDialog(request).viewMode(), QFileDialog::Detail);
    file.seek(0);
    EXPECT_EQ(file.readAll(), others);
    file.remove();
}

TEST_F(FileDialogs, a_file_that_must_exist_is_asked_for_again) {
    const RealPrompts real;
    WhenModal([](QWidget& box) {
        auto& edit = Find<QLineEdit>(box, "fileNameEdit");
        edit.setText(QStringLiteral("nowhere.jpg"));
        // Qt says so in a box of its own.
        WhenModal([&box](QWidget& said) {
            EXPECT_NE(&said, &box);
            QTest::keyClick(&said, Qt::Key_Return);
        });
        QTest::keyClick(&edit, Qt::Key_Return);
        EXPECT_TRUE(box.isVisible());
        QTest::keyClick(&box, Qt::Key_Escape);
    });
    EXPECT_EQ(Service<Prompter>::Get().PickFiles(request).result, 0);
    request.flags = PickHideReadOnly;
    EXPECT_EQ(Type(QStringLiteral("nowhere.jpg")).files,
              QStringList(ToQString(folder.HostPath("nowhere.jpg"))));
}

TEST_F(FileDialogs, a_name_without_an_extension_gets_the_default_one) {
    request.defaultSuffix = QStringLiteral("jpg");
    EXPECT_EQ(Type(QStringLiteral("b")).files, QStringList(ToQString(folder.HostPath("b.jpg"))));
}

TEST_F(FileDialogs, the_initial_name_stands_in_the_name_box_and_a_path_opens_its_folder) {
    folder.Write("Trip/d.jpg", "");
    request.startName = QStringLiteral("b.jpg");
    const auto initialName = [this] {
        FileDialog dialog(request);
        return FromQString(Find<QLineEdit>(dialog, "fileNameEdit").text());
    };
    EXPECT_EQ(initialName(), "b.jpg");
    request.startName = ToQString(folder.HostPath("Trip/d.jpg"));
    EXPECT_EQ(initialName(), "d.jpg");
    EXPECT_EQ(FromQString(FileDialog(request).directory().path()), folder.HostPath("Trip"));
}

TEST_F(FileDialogs, the_box_has_the_title_and_the_owner_of_the_request) {
    EXPECT_EQ(FileDialog(request).parentWidget(), nullptr);
    QWidget owner;
    request.owner = &owner;
    const FileDialog dialog(request);
    EXPECT_EQ(FromQString(dialog.windowTitle()), "Select file(s) to add");
    EXPECT_EQ(dialog.parentWidget(), &owner);
}

TEST_F(FileDialogs, the_type_that_was_chosen_comes_back_even_among_types_that_look_alike) {
    request.descriptions[1] = request.descriptions[0];
    request.patterns[1] = request.patterns[0];
    const RealPrompts real;
    for (const int steps : {1, 2}) {
        WhenModal([steps](QWidget& box) {
            for (int i = 0; i < steps; ++i)
                QTest::keyClick(&Find<QComboBox>(box, "fileTypeCombo"), Qt::Key_Down);
            TypeInto(box, QStringLiteral("b.jpg"));
        });
        EXPECT_EQ(Service<Prompter>::Get().PickFiles(request).filterIndex, steps);
    }
}

TEST_F(FileDialogs, an_owner_may_go_while_a_box_stands_over_the_dialog) {
    const RealPrompts real;
    auto* owner = new QWidget;
    request.owner = owner;
    WhenModal([owner](QWidget& box) {
        Find<QLineEdit>(box, "fileNameEdit").setText(QStringLiteral("nowhere.jpg"));
        WhenModalOver(
            box, [&box] { static_cast<QDialog&>(box).accept(); },
            [owner](QWidget&) { delete owner; });
    });
    EXPECT_EQ(Service<Prompter>::Get().PickFiles(request).result, 0);
}

TEST_F(FileDialogs, Escape_cancels) {
    const RealPrompts real;
    WhenModal([](QWidget& box) { QTest::keyClick(&box, Qt::Key_Escape); });
    const FileAnswer answer = Service<Prompter>::Get().PickFiles(request);
    EXPECT_EQ(answer.result, 0);
    EXPECT_TRUE(answer.files.isEmpty());
}

TEST_F(FileDialogs, the_filters_list_what_they_match_without_regard_to_case) {
    EXPECT_EQ(Listed(), QStringList({QStringLiteral("a.JPG"), QStringLiteral("b.jpg")}));
    request.filterIndex = 2;
    EXPECT_EQ(Listed().size(), 4) << "a name without a dot too";
}

TEST_F(FileDialogs, an_index_beyond_the_filters_is_the_first_one) {
    for (const int index : {-1, 3}) {
        request.filterIndex = index;
        EXPECT_EQ(Type(QStringLiteral("b.jpg")).filterIndex, 0);
    }
}

TEST_F(FileDialogs, the_descriptions_are_shown_as_they_are_given) {
    const FileDialog dialog(request);
    const auto* types = dialog.findChild<QComboBox*>(QStringLiteral("fileTypeCombo"));
    EXPECT_EQ(FromQString(types->itemText(0)), "All Supported Files");
    EXPECT_EQ(FromQString(types->itemText(1)), "Zip Files (*.zip)");
}

TEST_F(FileDialogs, an_extension_of_odd_characters_does_no_harm) {
    folder.Write("odd.x(y", "");
    request.patterns[0] = QStringLiteral("*.x(y");
    EXPECT_EQ(Listed(), QStringList(QStringLiteral("odd.x(y")));
}

TEST_F(FileDialogs, the_read_only_box_shows_only_when_it_is_asked_for_and_tells_its_tick) {
    EXPECT_EQ(FileDialog(request).findChild<QCheckBox*>(QStringLiteral("chkReadOnly")), nullptr);
    const RealPrompts real;
    for (const bool ticked : {false, true}) {
        request.flags = PickFileMustExist | (ticked ? PickReadOnly : 0);
        WhenModal([ticked](QWidget& box) {
            auto& tick = Find<QCheckBox>(box, "chkReadOnly");
            EXPECT_EQ(tick.isChecked(), ticked);
            tick.click();
            TypeInto(box, QStringLiteral("b.jpg"));
        });
        EXPECT_EQ(Service<Prompter>::Get().PickFiles(request).readOnly, !ticked);
    }
}

}  // namespace tavel::test
