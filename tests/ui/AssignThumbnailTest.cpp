#include "core/PublicStuff.h"
#include "ui/main/ThumbPicture.h"
#include "ui/main/frmLog.h"
#include "ui/main/frmThumb.h"
#include "ui/support/MainWindow.h"
#include "ui/support/Modal.h"
#include "ui/toolkit/Strings.h"
#include "ui/toolkit/Twips.h"

#include <QContextMenuEvent>
#include <QDir>
#include <QImage>
#include <QLineEdit>
#include <QPushButton>
#include <algorithm>
#include <filesystem>

namespace tavel::test {

namespace {

const QString pickTitle = QStringLiteral("Select thumbnail file");

// The dialog over a library of three videos; one has a thumbnail, which is red.
class AssignThumbnailTest : public MainWindowTest {
  protected:
    AssignThumbnailTest() {
        InstallPictures();
        gStyle = {"Verdanda", -1, -1};
        sPhotoSupport = {"jpg", "png"};
        sDefaultDBPath = temp.DrivePath("library");
        std::filesystem::create_directories(temp.HostPath("library/Videos/Thumbnails"));
        Paint("red.png", Qt::red);
        Paint("blue.png", Qt::blue);
        Paint("see-through.png", QColor(0, 0, 255, 99));
        AddVideo("vd_a", "Film").sThumbPath = temp.DrivePath("red.png");
        AddVideo("vd_b", "Clip");
        AddVideo("vd_c", "Third");
        frmThumb::sNewThumbPath.clear();
    }
    ~AssignThumbnailTest() override { frmThumb::sNewThumbPath.clear(); }

    void Paint(const char* file, const QColor& colour) {
        QImage picture(40, 90, QImage::Format_ARGB32);
        picture.fill(colour);
        if (colour.alpha() == 255) picture.convertTo(QImage::Format_RGB32);
        ASSERT_TRUE(picture.save(QString::fromStdString(temp.HostPath(file))));
    }

    // As the menu asks, with these as what is selected.
    void Ask(const std::vector<std::string>& sIDs) {
        if (!SingleWindow<frmMain>::Loaded()) Open();
        ClickNode("videoall");
        RightClickRow(1);
        Main().sSelected = sIDs;
        Pick({"mnuRMB", "mnuThumbnail"});
        if (Dialog().isVisible()) {
            EXPECT_TRUE(BecomesActive(Dialog()));
        }
    }

    static frmThumb& Dialog() { return SingleWindow<frmThumb>::Get(); }
    static bool IsOpen() { return SingleWindow<frmThumb>::Loaded(); }
    static QLineEdit& PathBox() { return Find<QLineEdit>(Dialog(), "txtPath"); }
    static std::string Path() { return FromQString(PathBox().text()); }
    static QPixmap Picture() {
        return Find<QLabel>(Dialog(), "imgThumb").pixmap(Qt::ReturnByValue);
    }
    static QColor Colour() { return Picture().toImage().pixelColor(80, 60); }

    void Browse(const char* file) {
        QStringList picked;
        if (file != nullptr) picked << QString::fromStdString(temp.HostPath(file));
        prompts.ExpectFiles(pickTitle, picked);
        Click(Dialog(), "cmdBrowse");
    }
    void CancelBrowse() { Browse(nullptr); }

    // A click that ends the program with "Run-time error '53'" and what it was doing.
    void ExpectFileNotFound(const char* button, const std::string& doing) {
        const FatalEnds ends;
        prompts.ExpectMsgBox(
            ToQString("Run-time error '53':\r\rFile not found\r\r" + doing +
                      "\r\rTavel has to close. Changes since the start are not saved."),
            MsgBoxButtons::OK, MsgBoxAnswer::OK);
        Click(Dialog(), button);
        EXPECT_EQ(ends.Count(), 1);
    }

    std::string Thumb(const char* name) const {
        return temp.DrivePath("library") + "\\Videos\\Thumbnails\\" + name;
    }
    // Names of what lies in the thumbnail folder, each with a blank.
    std::string Thumbs() const {
        std::string names;
        const QDir folder(QString::fromStdString(temp.HostPath("library/Videos/Thumbnails")));
        for (const QString& name : folder.entryList(QDir::Files)) names += FromQString(name) + " ";
        return names;
    }
    static std::string Assigned(const char* sID) { return colVideo.Item(sID).sThumbPath; }
};

}  // namespace

TEST_F(AssignThumbnailTest, the_dialog_has_its_words_and_its_places) {
    Ask({"vd_b"});
    EXPECT_EQ(FromQString(Dialog().windowTitle()), "Assign Thumbnail");
    EXPECT_EQ(Dialog().size(), QSize(Pixels(7350), Pixels(3015)));
    EXPECT_FALSE(Dialog().isModal());
    const struct {
        const char* name;
        QRect twips;
        const char* text;
    } controls[] = {
        {"Label1", {240, 720, 1695, 255}, "Thumbnail Path"},
        {"txtPath", {240, 1080, 3135, 285}, ""},
        {"cmdBrowse", {240, 1440, 1095, 375}, "Browse..."},
        {"imgThumb", {4560, 240, 2655, 1815}, ""},
        {"cmdOK", {3960, 2400, 1575, 495}, "OK"},
        {"cmdCancel", {5640, 2400, 1575, 495}, "Cancel"},
    };
    for (const auto& control : controls) {
        QWidget& widget = Find(Dialog(), control.name);
        const QRect twips = control.twips;
        const QRect place(twips.topLeft() / 15, twips.size() / 15);
        const bool isBox = &widget == &PathBox();  // a little higher on both sides, for its text
        EXPECT_EQ(widget.geometry(), isBox ? place.adjusted(0, -1, 0, 2) : place) << control.name;
        EXPECT_EQ(FromQString(widget.property("text").toString()), control.text);
    }
    EXPECT_EQ(Find(Dialog(), "Label1").font().family(), QStringLiteral("Verdanda"));
    EXPECT_TRUE(Find<QLabel>(Dialog(), "imgThumb").hasScaledContents());
}

TEST_F(AssignThumbnailTest, it_begins_with_the_picture_and_the_path_of_the_video) {
    Ask({"vd_a"});
    EXPECT_EQ(Colour(), QColor(Qt::red));
    EXPECT_EQ(Picture().size(), QSize(160, 120));
    EXPECT_EQ(Path(), temp.DrivePath("red.png"));
}

TEST_F(AssignThumbnailTest, a_video_without_one_begins_with_the_picture_that_stands_for_it) {
    Ask({"vd_b"});
    EXPECT_EQ(Colour(), QColor(NoThumbColour));
    EXPECT_EQ(Path(), "");
}

TEST_F(AssignThumbnailTest, several_videos_begin_with_what_they_have_in_common) {
    colVideo.Item("vd_c").sThumbPath = temp.DrivePath("red.png");
    Ask({"vd_a", "vd_c"});
    EXPECT_EQ(Colour(), QColor(Qt::red));
    EXPECT_EQ(Path(), temp.DrivePath("red.png"));
    Dialog().close();
    colVideo.Item("vd_c").sThumbPath.clear();
    Ask({"vd_b", "vd_c"});
    EXPECT_EQ(Colour(), QColor(NoThumbColour));
    EXPECT_EQ(Path(), "");
    Dialog().close();
    Ask({"vd_a", "vd_b"});
    EXPECT_EQ(Colour(), QColor(MultiThumbColour));
    EXPECT_EQ(Path(), MultiThumbFile());
}

TEST_F(AssignThumbnailTest, the_menu_asks_in_every_mode) {
    for (const Integer iMode : std::initializer_list<Integer>{0, 1, 2, 3, 4, 5}) {
        iVidThumbMode = iMode;
        Ask({"vd_b"});
        EXPECT_TRUE(IsOpen() && Dialog().isVisible()) << iMode;
        Dialog().close();
    }
}

TEST_F(AssignThumbnailTest, asked_anew_the_open_dialog_takes_the_new_videos_and_keeps_its_path) {
    Ask({"vd_a"});
    const frmThumb* first = &Dialog();
    Ask({"vd_b"});
    EXPECT_EQ(&Dialog(), first);
    EXPECT_EQ(Colour(), QColor(NoThumbColour));
    EXPECT_EQ(Path(), temp.DrivePath("red.png"));
    frmThumb::sNewThumbPath = "c:\\new.thm";
    Click(Dialog(), "cmdOK");
    EXPECT_EQ(Assigned("vd_a"), temp.DrivePath("red.png"));
    EXPECT_EQ(Assigned("vd_b"), "c:\\new.thm");
}

TEST_F(AssignThumbnailTest, a_thumbnail_that_has_gone_shows_no_dialog) {
    colVideo.Item("vd_a").sThumbPath = temp.DrivePath("gone.thm");
    Open();
    EXPECT_EQ(FatalOf([&] { Ask({"vd_a"}); }), failure::FileNotFound);
    EXPECT_FALSE(Dialog().isVisible());
    colVideo.Item("vd_a").sThumbPath = temp.DrivePath("db.txt");
    EXPECT_EQ(FatalOf([&] { Ask({"vd_a"}); }), failure::InvalidPicture);
}

TEST_F(AssignThumbnailTest, what_is_no_video_shows_no_dialog) {
    Open();
    for (const std::vector<std::string>& sIDs :
         {std::vector<std::string>{""}, {"ph_a"}, {"vd_a", "vd_gone"}}) {
        EXPECT_EQ(FailureOf([&] { Main().AssignThumbnail(sIDs); }), failure::InvalidProcedureCall);
        EXPECT_FALSE(IsOpen());
    }
}

TEST_F(AssignThumbnailTest, Browse_makes_a_THM_and_shows_it) {
    Ask({"vd_b"});
    Browse("blue.png");
    EXPECT_EQ(Thumbs(), "1.THM ");
    EXPECT_EQ(frmThumb::sNewThumbPath, Thumb("1.THM"));
    EXPECT_EQ(Path(), temp.DrivePath("blue.png")) << "the source, and no NULs behind it";
    EXPECT_GT(Colour().blue(), 250);
    EXPECT_LT(Colour().red(), 5);
    EXPECT_EQ(Picture().size(), QSize(160, 120));
    EXPECT_EQ(Assigned("vd_b"), "");
    EXPECT_FALSE(bDBChanged);
}

TEST_F(AssignThumbnailTest, Browse_offers_pictures_and_thumbnails) {
    Ask({"vd_b"});
    CancelBrowse();
    const FileRequest& request = prompts.LastFileRequest();
    EXPECT_EQ(request.descriptions, QStringList{QStringLiteral("Supported Picture Files")});
    EXPECT_EQ(request.patterns, QStringList{QStringLiteral("*.jpg;*.png;*.thm;")});
    EXPECT_EQ(request.filterIndex, 0);
    EXPECT_EQ(request.flags, 0x280000 | 0x1000 | 0x4);
    EXPECT_EQ(request.owner, &Dialog());
    EXPECT_TRUE(request.startFolder.isEmpty());
    EXPECT_TRUE(request.startName.isEmpty());
}

TEST_F(AssignThumbnailTest, OK_gives_all_the_videos_the_same_file) {
    Ask({"vd_b", "vd_a", "vd_c"});
    Browse("blue.png");
    Click(Dialog(), "cmdOK");
    EXPECT_FALSE(IsOpen());
    for (const char* sID : {"vd_a", "vd_b", "vd_c"})
        EXPECT_EQ(Assigned(sID), Thumb("1.THM")) << sID;
    EXPECT_EQ(Thumbs(), "1.THM ");
    EXPECT_FALSE(bDBChanged) << "nothing tells that there is something to save";
}

TEST_F(AssignThumbnailTest, OK_shows_the_first_videos_in_the_main_window) {
    iVidThumbMode = 2;
    Ask({"vd_b", "vd_a"});
    auto& shown = Find<QLabel>(Main(), "imgThumb");
    Browse("blue.png");
    Click(Dialog(), "cmdOK");
    EXPECT_TRUE(shown.isVisible());
    EXPECT_GT(shown.pixmap(Qt::ReturnByValue).toImage().pixelColor(80, 60).blue(), 250);
    Ask({"vd_c", "vd_a"});
    PathBox().clear();
    Click(Dialog(), "cmdOK");
    EXPECT_EQ(shown.pixmap(Qt::ReturnByValue).width(), NoThumbWidth);
}

TEST_F(AssignThumbnailTest, OK_below_mode_2_shows_nothing) {
    Ask({"vd_b"});
    Browse("blue.png");
    Click(Dialog(), "cmdOK");
    EXPECT_FALSE(Find(Main(), "imgThumb").isVisible());
}

TEST_F(AssignThumbnailTest, OK_without_a_browse_assigns_what_was_made_last) {
    Ask({"vd_a"});
    Click(Dialog(), "cmdOK");
    EXPECT_EQ(Assigned("vd_a"), "") << "nothing was made yet";
    Ask({"vd_b"});
    Browse("blue.png");
    Click(Dialog(), "cmdOK");
    colVideo.Item("vd_a").sThumbPath = temp.DrivePath("red.png");
    Ask({"vd_a"});
    Click(Dialog(), "cmdOK");
    EXPECT_EQ(Assigned("vd_a"), Thumb("1.THM"));
}

TEST_F(AssignThumbnailTest, a_typed_path_does_no_more_than_fill_the_box) {
    Ask({"vd_b"});
    QTest::keyClicks(&PathBox(), ToQString(temp.DrivePath("blue.png")));
    Click(Dialog(), "cmdOK");
    EXPECT_EQ(Assigned("vd_b"), "");
    EXPECT_EQ(Thumbs(), "");
    frmThumb::sNewThumbPath = Thumb("1.THM");
    Ask({"vd_b"});
    QTest::keyClicks(&PathBox(), QStringLiteral("anything"));
    Click(Dialog(), "cmdOK");
    EXPECT_EQ(Assigned("vd_b"), Thumb("1.THM"));
}

TEST_F(AssignThumbnailTest, OK_with_an_empty_box_takes_the_thumbnail_away) {
    frmThumb::sNewThumbPath = Thumb("1.THM");
    for (const char* text : {"", "   "}) {
        colVideo.Item("vd_a").sThumbPath = temp.DrivePath("red.png");
        Ask({"vd_a"});
        PathBox().selectAll();
        QTest::keyClick(&PathBox(), Qt::Key_Delete);
        QTest::keyClicks(&PathBox(), QLatin1String(text));
        Click(Dialog(), "cmdOK");
        EXPECT_EQ(Assigned("vd_a"), "");
        EXPECT_EQ(frmThumb::sNewThumbPath, Thumb("1.THM"));
    }
    EXPECT_NE(temp.Read("red.png"), "") << "the file itself stays";
}

TEST_F(AssignThumbnailTest, OK_over_a_video_that_has_gone_is_fatal) {
    Ask({"vd_a", "vd_b"});
    frmThumb::sNewThumbPath = "c:\\new.thm";
    colVideo.Remove("vd_b");
    EXPECT_EQ(FatalOf([&] { Click(Dialog(), "cmdOK"); }), failure::InvalidProcedureCall);
    EXPECT_EQ(Assigned("vd_a"), "c:\\new.thm") << "the first had its turn";
    EXPECT_TRUE(IsOpen());
}

TEST_F(AssignThumbnailTest, browsing_twice_leaves_one_new_file) {
    Ask({"vd_b"});
    Browse("blue.png");
    Browse("red.png");
    EXPECT_EQ(Thumbs(), "1.THM ");
    EXPECT_GT(Colour().red(), 250);
    EXPECT_EQ(Path(), temp.DrivePath("red.png"));
}

TEST_F(AssignThumbnailTest, the_file_made_before_goes_before_anything_is_asked) {
    Ask({"vd_b"});
    Browse("blue.png");
    CancelBrowse();
    EXPECT_EQ(Thumbs(), "");
    EXPECT_EQ(Path(), temp.DrivePath("blue.png"));
    EXPECT_GT(Colour().blue(), 250);
    EXPECT_EQ(frmThumb::sNewThumbPath, Thumb("1.THM"));
}

TEST_F(AssignThumbnailTest, a_browse_or_a_Cancel_after_a_cancelled_browse_is_fatal) {
    for (const char* button : {"cmdBrowse", "cmdCancel"}) {
        frmThumb::sNewThumbPath.clear();
        Ask({"vd_b"});
        Browse("blue.png");
        CancelBrowse();
        ExpectFileNotFound(button, "Deleting " + Thumb("1.THM"));
        EXPECT_TRUE(IsOpen());
        Dialog().close();
    }
}

TEST_F(AssignThumbnailTest, a_picture_that_makes_no_thumbnail_is_fatal_and_leaves_no_file) {
    Ask({"vd_b"});
    prompts.ExpectFiles(pickTitle, {QString::fromStdString(temp.HostPath("see-through.png"))});
    ExpectFileNotFound("cmdBrowse", "Making a thumbnail of " + temp.DrivePath("see-through.png"));
    EXPECT_EQ(Thumbs(), "");
    EXPECT_EQ(frmThumb::sNewThumbPath, Thumb("1.THM")) << "it names the file all the same";
    EXPECT_EQ(Path(), "");
}

TEST_F(AssignThumbnailTest, without_the_thumbnail_folder_a_picture_makes_none_and_is_fatal) {
    std::filesystem::remove(temp.HostPath("library/Videos/Thumbnails"));
    Ask({"vd_b"});
    prompts.ExpectFiles(pickTitle, {QString::fromStdString(temp.HostPath("blue.png"))});
    ExpectFileNotFound("cmdBrowse", "Making a thumbnail of " + temp.DrivePath("blue.png"));
    EXPECT_FALSE(std::filesystem::exists(temp.HostPath("library/Videos/Thumbnails")));
}

TEST_F(AssignThumbnailTest, a_thumbnail_that_is_read_only_is_not_deleted_and_ends_the_program) {
    Ask({"vd_b"});
    Browse("blue.png");
    std::filesystem::permissions(temp.HostPath("library/Videos/Thumbnails/1.THM"),
                                 std::filesystem::perms::owner_read);
    for (const char* button : {"cmdBrowse", "cmdCancel"}) {
        EXPECT_EQ(FatalOf([&] { Click(Dialog(), button); }), failure::PermissionDenied) << button;
        EXPECT_EQ(Thumbs(), "1.THM ");
    }
}

TEST_F(AssignThumbnailTest, without_the_pictures_that_stand_for_thumbnails_the_dialog_is_fatal) {
    for (const std::string& sFile : {NoThumbFile(), MultiThumbFile()})
        files.FailOn("ReadWhole " + sFile, failure::FileNotFound);
    Open();
    for (const std::vector<std::string>& sIDs :
         {std::vector<std::string>{"vd_b"}, std::vector<std::string>{"vd_a", "vd_b"}}) {
        ClickNode("videoall");
        RightClickRow(1);
        Main().sSelected = sIDs;
        EXPECT_EQ(FatalOf([&] { Pick({"mnuRMB", "mnuThumbnail"}); }), failure::FileNotFound);
    }
}

TEST_F(AssignThumbnailTest, Cancel_and_Escape_delete_what_was_made_and_close) {
    Ask({"vd_a"});
    Click(Dialog(), "cmdCancel");
    EXPECT_FALSE(IsOpen());
    Ask({"vd_a"});
    Browse("blue.png");
    Click(Dialog(), "cmdCancel");
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(Thumbs(), "");
    EXPECT_EQ(Assigned("vd_a"), temp.DrivePath("red.png"));
    frmThumb::sNewThumbPath.clear();
    Ask({"vd_a"});
    Browse("blue.png");
    QTest::keyClick(&PathBox(), Qt::Key_Escape);
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(Thumbs(), "");
}

TEST_F(AssignThumbnailTest, a_later_Cancel_deletes_the_thumbnail_of_another_video) {
    Ask({"vd_b"});
    Browse("blue.png");
    Click(Dialog(), "cmdOK");
    Ask({"vd_c"});
    Click(Dialog(), "cmdCancel");
    EXPECT_EQ(Thumbs(), "");
    EXPECT_EQ(Assigned("vd_b"), Thumb("1.THM"));
    Ask({"vd_c"});
    ExpectFileNotFound("cmdCancel", "Deleting " + Thumb("1.THM"));
}

TEST_F(AssignThumbnailTest, the_close_box_deletes_nothing) {
    Ask({"vd_b"});
    Browse("blue.png");
    Dialog().close();
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(Thumbs(), "1.THM ");
    EXPECT_EQ(Assigned("vd_b"), "");
    Ask({"vd_b"});
    EXPECT_EQ(Path(), "") << "a fresh dialog";
    EXPECT_EQ(frmThumb::sNewThumbPath, Thumb("1.THM"));
}

TEST_F(AssignThumbnailTest, Enter_is_OK_but_on_another_button) {
    Ask({"vd_a"});
    PathBox().clear();
    QTest::keyClick(&PathBox(), Qt::Key_Return);
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(Assigned("vd_a"), "");
    Ask({"vd_b"});
    prompts.ExpectFiles(pickTitle, {QString::fromStdString(temp.HostPath("blue.png"))});
    Find(Dialog(), "cmdBrowse").setFocus();
    QTest::keyClick(&Find(Dialog(), "cmdBrowse"), Qt::Key_Return);
    EXPECT_EQ(Thumbs(), "1.THM ");
}

TEST_F(AssignThumbnailTest, the_keyboard_goes_round_in_reading_order) {
    Ask({"vd_b"});
    std::string order;
    for (int i = 0; i < 5; ++i) {
        order += FromQString(Dialog().focusWidget()->objectName()) + " ";
        QTest::keyClick(Dialog().focusWidget(), Qt::Key_Tab);
    }
    EXPECT_EQ(order, "txtPath cmdBrowse cmdOK cmdCancel txtPath ");
}

TEST_F(AssignThumbnailTest, the_dialog_takes_the_focus_back_from_the_programs_windows) {
    Ask({"vd_b"});
    SingleWindow<frmLog>::Get().show();
    for (QWidget* other :
         {static_cast<QWidget*>(&Main()), static_cast<QWidget*>(&SingleWindow<frmLog>::Get())}) {
        bool hadFocus = false;
        const auto watch = QObject::connect(
            qApp, &QGuiApplication::focusWindowChanged,
            [&](const QWindow* focused) { hadFocus |= focused == other->windowHandle(); });
        other->activateWindow();
        EXPECT_TRUE(QTest::qWaitFor([&] { return hadFocus; }));
        EXPECT_TRUE(BecomesActive(Dialog()));
        QObject::disconnect(watch);
    }
    Dialog().close();
    Main().activateWindow();
    EXPECT_TRUE(BecomesActive(Main()));
}

// While a box stands, the other windows get no focus that could be taken back.
TEST_F(AssignThumbnailTest, the_dialog_leaves_the_focus_to_the_box_that_it_opens) {
    Ask({"vd_b"});
    const RealPrompts real;
    const QWidget* active = nullptr;
    WhenModal([&](QWidget& box) {
        box.activateWindow();
        (void)QTest::qWaitFor([&] { return QApplication::activeWindow() == &box; });
        RunEvents();
        if (QApplication::activeWindow() == &box) active = &box;
        QTest::keyClick(&box, Qt::Key_Escape);
    });
    Click(Dialog(), "cmdBrowse");
    EXPECT_NE(active, nullptr);
}

TEST_F(AssignThumbnailTest, the_menu_of_the_path_keeps_the_focus) {
    Ask({"vd_b"});
    QContextMenuEvent event(QContextMenuEvent::Mouse, {}, PathBox().mapToGlobal(QPoint()));
    QApplication::sendEvent(&PathBox(), &event);
    const QWidget* menu = QApplication::activePopupWidget();
    ASSERT_NE(menu, nullptr);
    (void)QTest::qWaitFor([&] { return QGuiApplication::focusWindow() == menu->windowHandle(); });
    RunEvents();
    RunEvents();
    EXPECT_EQ(QGuiApplication::focusWindow(), menu->windowHandle());
    QApplication::activePopupWidget()->close();
}

}  // namespace tavel::test
