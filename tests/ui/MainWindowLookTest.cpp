#include "core/PublicStuff.h"
#include "ui/main/frmAdd.h"
#include "ui/main/frmCopy.h"
#include "ui/main/frmEnd.h"
#include "ui/main/frmNewPSP.h"
#include "ui/support/MainWindow.h"
#include "ui/toolkit/ImageList.h"
#include "ui/toolkit/Strings.h"

#include <QGroupBox>
#include <QLabel>
#include <QScrollBar>
#include <QToolButton>
#include <cstdlib>

namespace tavel::test {

namespace {

using MainWindowLookTest = MainWindowTest;

QImage Picture(const std::string& name) {
    const QString file = ToQString(SourceFile("data/artwork/icons/" + name + ".png"));
    return QImage(file).convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

QImage Shown(const QIcon& icon, int size, QIcon::Mode mode = QIcon::Normal) {
    return icon.pixmap(size, mode).toImage().convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

}  // namespace

TEST_F(MainWindowLookTest, every_window_of_a_fixed_look_takes_the_style_when_it_loads) {
    gStyle = {"Other", 0x0000FF, 0xFF0000};
    const auto expectStyled = [](QWidget& window, const char* control) {
        EXPECT_EQ(window.palette().color(QPalette::Window), QColor(Qt::red)) << control;
        EXPECT_EQ(Find(window, control).font().families().front(), QStringLiteral("Other"));
    };
    expectStyled(SingleWindow<frmAdd>::Get(), "labPath");
    expectStyled(SingleWindow<frmCopy>::Get(), "labFile");
    expectStyled(SingleWindow<frmEnd>::Get(), "lblEnd");
    expectStyled(SingleWindow<frmNewPSP>::Get(), "Label1");
    for (const char* control : {"cmdSend", "cmdClear", "Frame1", "labPSPStatus", "labFull"}) {
        expectStyled(Main(), control);
    }
    EXPECT_EQ(Find(Main(), "cmdSend").palette().color(QPalette::Button), QColor(Qt::red));
    EXPECT_NE(Find(Main(), "view").font().families().front(), QStringLiteral("Other"));
    EXPECT_NE(grdItems().font().families().front(), QStringLiteral("Other"));
    EXPECT_EQ(trvCat().font().families().front(), QStringLiteral("Verdana"));
    EXPECT_EQ(trvPSPCat().font().families().front(), QStringLiteral("Verdana"));
}

TEST_F(MainWindowLookTest, the_controls_stand_in_the_panels_and_the_frame_that_hold_them) {
    frmMain window;
    auto& Frame1 = Find<QGroupBox>(window, "Frame1");
    EXPECT_EQ(Frame1.title(), QStringLiteral("PSP Status"));
    for (const char* name : {"labPSPStatus", "labEmpty", "labEmptySpace", "labFull", "labFullSpace",
                             "imgEmpty", "imgFull"}) {
        EXPECT_NO_THROW(Find(Frame1, name)) << name;
    }
    EXPECT_EQ(Find<QLabel>(window, "labPSPStatus").text(), QStringLiteral("PSP STATUS"))
        << "before the load";
    EXPECT_EQ(Find(window, "trvCat").parentWidget()->objectName(), QStringLiteral("picCatBack"));
    EXPECT_EQ(Find(window, "trvPSPCat").parentWidget()->objectName(),
              QStringLiteral("picPSPCatBack"));
    EXPECT_TRUE(Find<QLabel>(window, "imgThumb").hasScaledContents());
}

TEST_F(MainWindowLookTest, the_view_button_lies_over_the_right_hand_list) {
    frmMain& window = Open();
    auto& toolbar = Find(window, "tbrRightView");
    auto& view = Find(window, "view");
    const QPoint middle = toolbar.geometry().center();
    EXPECT_EQ(window.centralWidget()->childAt(middle), &view);
    Find(window, "grdAutoSync").show();
    EXPECT_EQ(window.centralWidget()->childAt(middle), &view);
}

TEST_F(MainWindowLookTest, the_banner_fills_its_place) {
    Open();
    const QImage banner = Find(Main(), "Image1").grab().toImage();
    EXPECT_EQ(banner.convertToFormat(QImage::Format_RGB32),
              QImage(QStringLiteral(":/artwork/banner.jpg")).convertToFormat(QImage::Format_RGB32));
}

TEST_F(MainWindowLookTest, every_node_has_the_picture_of_its_kind) {
    AddMagazine("ma_a", {});
    AddAlbum("pa_a", {});
    AddPlaylist("pl_", {});
    AddSeries("vs_a", {});
    Open();
    const struct {
        TreeView& tree;
        const char* key;
        const char* picture;
    } nodes[] = {{trvCat(), "master", "master"},      {trvCat(), "photoall", "photo"},
                 {trvCat(), "musicall", "music"},     {trvCat(), "videoall", "video"},
                 {trvCat(), "magazines", "magazine"}, {trvCat(), "photoalbums", "photo"},
                 {trvCat(), "playlists", "playlist"}, {trvCat(), "videoseries", "vidseries"},
                 {trvCat(), "ma_a", "magazine"},      {trvCat(), "pa_a", "photo"},
                 {trvCat(), "pl_", "playlist"},       {trvCat(), "vs_a", "vidseries"},
                 {trvPSPCat(), "master", "psp"},      {trvPSPCat(), "photoall", "photo"},
                 {trvPSPCat(), "musicall", "music"},  {trvPSPCat(), "videoall", "video"}};
    for (const auto& node : nodes) {
        const QIcon icon = node.tree.Node(node.key).icon(0);
        EXPECT_FALSE(Picture(node.picture).isNull()) << node.picture;
        EXPECT_EQ(Shown(icon, 16), Picture(node.picture)) << node.key;
        const std::string sSelected = std::string(node.picture) + "-selected";
        EXPECT_FALSE(Picture(sSelected).isNull()) << sSelected;
        EXPECT_EQ(Shown(icon, 16, QIcon::Selected), Picture(sSelected)) << node.key;
    }
}

TEST_F(MainWindowLookTest, icons_of_selected_rows_are_set_off_from_a_selection_of_any_colour) {
    for (const char* name : {"master", "video", "music", "photo", "magazine", "album", "playlist",
                             "vidseries", "psp"}) {
        const QImage plain = Picture(name);
        const QImage selected = Picture(std::string(name) + "-selected");
        for (int y = 1; y < 15; ++y) {
            for (int x = 1; x < 15; ++x) {
                if (plain.pixelColor(x, y).alpha() < 128) continue;
                for (const QPoint beside : {QPoint(x - 1, y), {x + 1, y}, {x, y - 1}, {x, y + 1}}) {
                    EXPECT_GT(selected.pixelColor(beside).alpha(), 120) << name;
                }
            }
        }
    }
}

TEST_F(MainWindowLookTest, of_the_two_trees_the_one_whose_node_is_listed_has_the_strong_selection) {
    PlugStick();
    AddMagazine("ma_a", {});
    Open();
    const auto background = [](TreeView& tree) {
        const QRect node = tree.visualItemRect(&tree.SelectedNode());
        const QPoint end(tree.viewport()->width() - 3, node.center().y());
        return tree.viewport()->grab().toImage().pixelColor(end);
    };
    const auto differ = [](const QColor& a, const QColor& b) {
        return std::abs(a.red() - b.red()) + std::abs(a.green() - b.green()) +
                   std::abs(a.blue() - b.blue()) >
               30;
    };
    const auto expectListedIn = [&](TreeView& listed, TreeView& other, const char* after) {
        const QColor strong = listed.palette().color(QPalette::Highlight);
        EXPECT_FALSE(differ(background(listed), strong)) << after;
        EXPECT_TRUE(differ(background(other), strong)) << after;
        EXPECT_TRUE(differ(background(other), other.palette().color(QPalette::Base))) << after;
    };
    ClickNode("photoall");
    ClickNode(trvPSPCat(), "master");
    expectListedIn(trvCat(), trvPSPCat(), "a click on the PSP itself, which lists nothing");
    ClickNode(trvPSPCat(), "musicall");
    expectListedIn(trvPSPCat(), trvCat(), "a click on a folder of the PSP");
    ClickNode("master");
    expectListedIn(trvPSPCat(), trvCat(), "a click on DB, which lists nothing");
    RightClickNode("ma_a");
    Find<QMenu>(Main(), "mnuCats").close();
    expectListedIn(trvPSPCat(), trvCat(), "a right click");
    ClickNode("magazines");
    expectListedIn(trvCat(), trvPSPCat(), "a click on a kind of the library");
    ClickNode(trvPSPCat(), "videoall");
    Main().JumpToGroup("ma_a");
    expectListedIn(trvCat(), trvPSPCat(), "a jump to a group");
}

TEST_F(MainWindowLookTest, a_path_loses_its_middle_and_a_title_its_end) {
    const std::string sLong(200, 'x');
    Open();
    const auto shown = [&](const std::string& sName, const std::string& sPath) {
        ReleaseCollections();
        AddPhoto("ph_a", sName).sPath(sPath);
        Main().SetupItemList(mtPhoto);
        Main().FillList(mtPhoto);
        return grdItems().viewport()->grab().toImage();
    };
    const QImage usual = shown("a", "c:\\a" + sLong + "b.jpg");
    EXPECT_EQ(shown("a", "c:\\a" + sLong + "o" + sLong + "b.jpg"), usual);
    EXPECT_NE(shown("a", "c:\\a" + sLong + "c.jpg"), usual);
    EXPECT_NE(shown("a", "c:\\b" + sLong + "b.jpg"), usual);
    EXPECT_EQ(shown(sLong + "a", ""), shown(sLong + "b", ""));
}

TEST_F(MainWindowLookTest, the_view_button_leaves_the_scroll_bar_and_its_own_text_uncovered) {
    frmMain& window = Open();
    for (int i = 0; i < 60; ++i) {
        const std::string sID = "ph_" + std::to_string(i);
        AddPhoto(sID, sID);
        window.AddToTransferList(sID);
    }
    const QScrollBar& bar = *grdSync().verticalScrollBar();
    ASSERT_TRUE(QTest::qWaitFor([&] { return bar.isVisible(); }));
    const auto onScreen = [](const QWidget& widget) {
        return QRect(widget.mapToGlobal(QPoint(0, 0)), widget.size());
    };
    auto& button = Find<QToolButton>(window, "view");
    for (const char* view : {"auto", "sync"}) {
        button.menu()->findChild<QAction*>(QLatin1String(view))->trigger();
        EXPECT_FALSE(onScreen(bar).intersects(onScreen(button))) << view;
        EXPECT_GT(onScreen(bar).height(), grdSync().height() / 2);
        const int arrow = button.style()->pixelMetric(QStyle::PM_MenuButtonIndicator);
        EXPECT_GE(button.width(), button.fontMetrics().horizontalAdvance(button.text()) + arrow);
    }
}

TEST_F(MainWindowLookTest, rows_of_the_transfer_list_have_the_picture_of_their_kind) {
    AddPhoto("ph_a", "Beach");
    AddMusic("mu_a", "Song", "Singer");
    AddVideo("vd_a", "Film");
    AddMagazine("ma_a", {});
    AddAlbum("pa_a", {});
    AddPlaylist("pl_", {});
    AddSeries("vs_a", {});
    frmMain& window = Open();
    EXPECT_EQ(grdSync().iconSize(), QSize(16, 16));
    const struct {
        const char* id;
        const char* picture;
    } entries[] = {{"vd_a", "video"},     {"ph_a", "photo"},    {"mu_a", "music"},
                   {"vs_a", "vidseries"}, {"ma_a", "magazine"}, {"pa_a", "album"},
                   {"pl_", "playlist"}};
    for (const auto& entry : entries) {
        window.AddToTransferList(entry.id);
        const QModelIndex row = grdSync().model()->index(grdSync().Count() - 1, 0);
        EXPECT_EQ(Shown(row.data(Qt::DecorationRole).value<QIcon>(), 16), Picture(entry.picture))
            << entry.id;
    }
}

TEST_F(MainWindowLookTest, the_views_have_their_pictures_in_full_size) {
    Open();
    const auto& views = *Find<QToolButton>(Main(), "view").menu();
    for (const auto& [name, picture] : {std::pair("sync", "send"), {"auto", "auto"}}) {
        const QIcon icon = views.findChild<QAction*>(QLatin1String(name))->icon();
        EXPECT_EQ(icon.actualSize({32, 32}), QSize(32, 32)) << name;
        EXPECT_EQ(Shown(icon, 32), Picture(picture)) << name;
    }
}

}  // namespace tavel::test
