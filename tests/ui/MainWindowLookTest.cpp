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
#include <QToolButton>

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
        EXPECT_EQ(Shown(icon, 16, QIcon::Selected), Picture(node.picture)) << node.key;
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
