#include "core/PublicStuff.h"
#include "support/FaultyFileService.h"
#include "ui/support/FileDialogs.h"
#include "ui/support/NoHostBoxes.h"
#include "ui/toolkit/RealPrompter.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QMenu>
#include <QTimer>
#include <QUrl>
#include <filesystem>

namespace tavel::test {

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
    EXPECT_EQ(
        TypeInVain(QStringLiteral(R"("a.JPG" "b.jpg")"), "One file is to be named here.").result,
        0);
    EXPECT_EQ(Type(QStringLiteral(R"("b.jpg")")).files,
              QStringList(ToQString(folder.HostPath("b.jpg"))));
}

TEST_F(FileDialogs, files_of_different_folders_are_not_picked_together) {
    folder.Write("Trip/d.jpg", "");
    request.flags |= PickMultiSelect;
    for (const std::string& other :
         {folder.HostPath("Trip/d.jpg"), ProgramHostFolder() + "/" + ProgramHostName()}) {
        const QString typed = QStringLiteral("\"%1\" \"%2\"")
                                  .arg(ToQString(folder.HostPath("b.jpg")), ToQString(other));
        EXPECT_EQ(TypeInVain(typed, "Files of several folders can't be taken at once.").result, 0);
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

TEST_F(FileDialogs, a_new_name_that_no_drive_has_is_not_picked) {
    request.flags = PickHideReadOnly;
    for (const char* name : {"a*b.txt", "a|b.txt"}) {
        const std::string reason = folder.HostPath(name) + " can't be reached.";
        EXPECT_EQ(TypeInVain(QString::fromLatin1(name), reason).result, 0);
    }
}

TEST_F(FileDialogs, a_file_whose_path_is_too_long_is_not_picked) {
    const std::string fits(MaxPathCharacters - folder.DrivePath("").size() - 1, 'x');
    folder.Write(fits, "");
    folder.Write(fits + 'y', "");
    EXPECT_EQ(Type(ToQString(fits)).files, QStringList(ToQString(folder.HostPath(fits))));
    const std::string reason = "A path of more than 254 characters can't be taken.";
    EXPECT_EQ(TypeInVain(ToQString(fits + 'y'), reason).result, 0);
    request.flags = PickHideReadOnly;
    EXPECT_EQ(TypeInVain(ToQString(fits + 'z'), reason).result, 0);
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
    EXPECT_EQ(
        FileDialog(request).sidebarUrls(),
        QList<QUrl>({QUrl::fromLocalFile(QDir::homePath()), QUrl::fromLocalFile(QDir::rootPath()),
                     QUrl::fromLocalFile(ToQString(folder.HostPath()))}));
    Service<FileService>::Use(nullptr);
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

TEST_F(FileDialogs, an_owner_may_go_while_a_menu_stands_over_the_dialog) {
    const RealPrompts real;
    auto* owner = new QWidget;
    request.owner = owner;
    WhenModal([owner](QWidget& box) {
        QMenu menu(&box);
        menu.addAction(QStringLiteral("New Folder"));
        QTimer::singleShot(0, &menu, [owner] { delete owner; });
        EXPECT_EQ(menu.exec(), nullptr);
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
