#include "core/PublicStuff.h"
#include "device/Discovery.h"
#include "ui/main/frmNewPSP.h"
#include "ui/support/DeviceWindow.h"
#include "ui/toolkit/DriveList.h"

#include <QGroupBox>
#include <QImage>
#include <QLabel>
#include <filesystem>

namespace tavel::test {

namespace {

// The status panel, the tree's panels and the poll that drives them.
class DevicePanelsTest : public DeviceWindowTest {
  protected:
    // The figures that show; all six or none are to.
    std::string Figures() {
        std::string names;
        for (const char* name :
             {"labEmpty", "labFull", "labEmptySpace", "labFullSpace", "imgEmpty", "imgFull"}) {
            if (Find(Main(), name).isVisible()) names += std::string(name) + " ";
        }
        return names;
    }
    const std::string all = "labEmpty labFull labEmptySpace labFullSpace imgEmpty imgFull ";

    QRect Place(const char* name) { return Find(Main(), name).geometry(); }
    int RightEndOfBar() { return Place("imgEmpty").right() + 1; }

    void Pull() {
        files.Pull('e');
        PollPSP();
    }
    void PutBack() {
        files.Plug('e', temp.HostPath("stick"));
        PollPSP();
    }

    // What a click in the middle of the device's panel reaches.
    QWidget* InTheMiddleOfTheDevicesPanel() {
        return Main().centralWidget()->childAt(Place("picPSPCatBack").center());
    }
};

}  // namespace

TEST_F(DevicePanelsTest, a_stick_at_the_load_shows_its_name_and_its_space) {
    Open();
    EXPECT_TRUE(bPSPConnected);
    EXPECT_EQ(Text("labPSPStatus"), "Pocket Connected");
    EXPECT_EQ(Text("labEmpty"), "40% Free");
    EXPECT_EQ(Text("labFull"), "60% Used");
    EXPECT_EQ(Text("labFullSpace"), "600 Mb");
    EXPECT_EQ(Text("labEmptySpace"), "400 Mb");
    EXPECT_EQ(Figures(), all);
}

TEST_F(DevicePanelsTest, the_frame_has_its_words_and_labels_at_their_places) {
    Open();
    EXPECT_EQ(Find<QGroupBox>(Main(), "Frame1").title(), QStringLiteral("PSP Status"));
    EXPECT_EQ(Find(Main(), "labPSPStatus").font().pointSizeF(), 13.5);
    EXPECT_EQ(Place("labFull").left(), Place("labFullSpace").left());
    EXPECT_EQ(Place("labEmpty").right(), Place("labEmptySpace").right());
    EXPECT_LT(Place("labFull").right(), Place("labEmpty").left());
    EXPECT_EQ(Place("labFull").left(), Place("imgFull").left());
    EXPECT_EQ(Place("labEmpty").right() + 1, RightEndOfBar());
    for (const char* name : {"labFull", "labFullSpace"})
        EXPECT_TRUE(Find<QLabel>(Main(), name).alignment() & Qt::AlignLeft) << name;
    for (const char* name : {"labEmpty", "labEmptySpace"})
        EXPECT_TRUE(Find<QLabel>(Main(), name).alignment() & Qt::AlignRight) << name;
    EXPECT_GE(Place("labFullSpace").top(), Place("labFull").bottom());
    EXPECT_GE(Place("labEmptySpace").top(), Place("labEmpty").bottom());
}

TEST_F(DevicePanelsTest, the_bar_is_split_where_the_used_part_ends) {
    Open();
    EXPECT_EQ(Place("imgFull"), QRect(120 / 15, 240 / 15, 3780 / 15, 390 / 15));
    EXPECT_EQ(Place("imgEmpty"), QRect((120 + 3780) / 15, 240 / 15, 2520 / 15, 390 / 15));
    for (const double freeSpace : {1e6, 333e6, 777e6, 999e6}) {
        files.At('e').freeSpace = freeSpace;
        Main().RefreshPSPStatus();
        EXPECT_EQ(Place("imgFull").right() + 1, Place("imgEmpty").left()) << freeSpace;
        EXPECT_EQ(RightEndOfBar(), 6420 / 15) << freeSpace;
    }
    files.At('e').freeSpace = 0;
    Main().RefreshPSPStatus();
    EXPECT_EQ(Place("imgFull").width(), 420);
    EXPECT_EQ(Place("imgEmpty").width(), 0);
}

TEST_F(DevicePanelsTest, the_bar_fades_from_green_and_red_below_to_black_above) {
    Open();
    const struct {
        const char* name;
        QColor bottom;
    } parts[] = {{"imgEmpty", QColor(0, 255, 0)}, {"imgFull", QColor(255, 0, 0)}};
    const auto isNear = [](const QColor& a, const QColor& b) {
        return std::abs(a.red() - b.red()) + std::abs(a.green() - b.green()) +
                   std::abs(a.blue() - b.blue()) <
               10;
    };
    for (const auto& part : parts) {
        const QImage image = Find(Main(), part.name).grab().toImage();
        EXPECT_TRUE(isNear(image.pixelColor(2, image.height() - 1), part.bottom)) << part.name;
        EXPECT_TRUE(isNear(image.pixelColor(2, 0), Qt::black)) << part.name;
    }
}

TEST_F(DevicePanelsTest, figures_that_fail_leave_the_name_and_no_bar_to_be_seen) {
    Open();
    sPSPName = "Another";
    files.At('e').hasMedia = false;
    EXPECT_EQ(FailureOf([&] { Main().RefreshPSPStatus(); }), failure::DiskNotReady);
    EXPECT_EQ(Text("labPSPStatus"), "Another Connected");
    EXPECT_EQ(Figures(), "");
}

TEST_F(DevicePanelsTest, no_stick_at_the_load_hides_the_figures) {
    files.Pull('e');
    Open();
    EXPECT_EQ(Text("labPSPStatus"), "No PSP Connected");
    EXPECT_EQ(Figures(), "");
}

TEST_F(DevicePanelsTest, a_stick_without_a_name_is_called_PSP) {
    temp.Write("stick/TavelDataFile.tavel", "[video]\r\nM4V10001=A\r\n");
    Open();
    EXPECT_EQ(Text("labPSPStatus"), "PSP Connected");
}

TEST_F(DevicePanelsTest, a_pulled_stick_covers_the_tree_and_keeps_the_rows) {
    Open();
    const QRect tree = Place("picPSPCatBack");
    EXPECT_EQ(PlaceOf("picCatBack").Height, 3240);
    EXPECT_EQ(Place("picCatBack").height(), 3240 / 15);
    EXPECT_EQ(trvCat().height(), 3240 / 15);
    EXPECT_EQ(InTheMiddleOfTheDevicesPanel(), trvPSPCat().viewport());
    ClickPSP("videoall");
    Pull();
    EXPECT_EQ(Text("labPSPStatus"), "No PSP Connected");
    EXPECT_EQ(Figures(), "");
    EXPECT_EQ(Place("picCatBack").height(), 6735 / 15);
    EXPECT_EQ(trvCat().height(), 6735 / 15);
    EXPECT_EQ(InTheMiddleOfTheDevicesPanel(), trvCat().viewport());
    EXPECT_EQ(Place("picPSPCatBack"), tree);
    EXPECT_TRUE(Find(Main(), "picPSPCatBack").isVisible());
    EXPECT_EQ(grdItems().Count(), 1);
    EXPECT_TRUE(Main().bPSPView);
    EXPECT_FALSE(trvPSPCat().hasFocus());
    EXPECT_EQ(trvPSPCat().focusPolicy(), Qt::NoFocus);
    PutBack();
    EXPECT_EQ(Text("labPSPStatus"), "Pocket Connected");
    EXPECT_EQ(Figures(), all);
    EXPECT_EQ(Place("picCatBack").height(), 3240 / 15);
    EXPECT_EQ(Place("picPSPCatBack"), tree);
    EXPECT_EQ(trvPSPCat().focusPolicy(), Qt::StrongFocus);
}

TEST_F(DevicePanelsTest, sticks_that_come_and_go_leave_the_bar_as_long_as_it_was) {
    Open();
    const QRect full = Place("imgFull");
    const QRect empty = Place("imgEmpty");
    for (int i = 0; i < 3; ++i) {
        Pull();
        PutBack();
        EXPECT_EQ(Place("imgFull"), full);
        EXPECT_EQ(Place("imgEmpty"), empty);
    }
}

TEST_F(DevicePanelsTest, a_deletion_after_the_device_has_gone_widens_the_hidden_bar) {
    Open();
    ClickPSP("videoall");
    // The poll takes a stick without its identity file for gone; its files can still be deleted.
    std::filesystem::remove(temp.HostPath("stick/TavelDataFile.tavel"));
    PollPSP();
    QWidget& bar = Find(Main(), "imgEmpty");
    EXPECT_EQ(bar.width(), 420);
    DeleteRow(1);
    EXPECT_EQ(OnStick("MP_ROOT/100MNV01"), "");
    EXPECT_EQ(bar.width(), 420 + 252);
    temp.Write("stick/TavelDataFile.tavel", "[Data]\r\nPSPName=Pocket\r\n");
    files.At('e').freeSpace = 500'000'000;
    PollPSP();
    EXPECT_EQ(RightEndOfBar(), (120 + 10080) / 15);
    QWidget& frame = Find(Main(), "Frame1");
    const QImage image = frame.grab().toImage();
    const auto atTheEdge = [&](int y) {
        return image.pixelColor(image.width() - 1, y * image.height() / frame.height());
    };
    EXPECT_EQ(atTheEdge(Place("imgEmpty").center().y()), atTheEdge(Place("imgEmpty").bottom() + 5));
}

TEST_F(DevicePanelsTest, the_timer_polls) {
    files.Pull('e');
    Open();
    PlugStick();
    auto& tmrPSP = Find<QTimer>(Main(), "tmrPSP");
    tmrPSP.start(0);
    RunEvents();
    EXPECT_EQ(Text("labPSPStatus"), "Pocket Connected");

    files.FailOn("DriveExists", 57, 2);
    EXPECT_EQ(FatalOf([] { RunEvents(); }), 57);
    tmrPSP.stop();
}

TEST_F(DevicePanelsTest, a_stick_that_is_made_known_shows_only_when_it_is_put_back) {
    std::filesystem::remove(temp.HostPath("stick/TavelDataFile.tavel"));
    Open();
    Pick({"mnuTools", "mnuSetupPSP"});
    frmNewPSP& dialog = SingleWindow<frmNewPSP>::Get();
    Find<DriveList>(dialog, "drvPSP").SetDrive("e:");
    Click(dialog, "cmdOK");
    EXPECT_FALSE(SingleWindow<frmNewPSP>::Loaded());
    EXPECT_TRUE(bPSPConnected);
    for (int tick = 0; tick < 2; ++tick) {
        EXPECT_EQ(Text("labPSPStatus"), "No PSP Connected");
        EXPECT_EQ(Figures(), "");
        EXPECT_EQ(trvPSPCat().Find("e:\\psp\\photo\\Trip"), nullptr);
        EXPECT_EQ(InTheMiddleOfTheDevicesPanel(), trvCat().viewport());
        PollPSP();
    }
    Pull();
    PutBack();
    EXPECT_EQ(Text("labPSPStatus"), "My PSP Connected");
    EXPECT_NE(trvPSPCat().Find("e:\\psp\\photo\\Trip"), nullptr);
}

}  // namespace tavel::test
