#include "core/PublicStuff.h"
#include "core/UsefulFunctions.h"
#include "support/FaultyFileService.h"
#include "support/Support.h"
#include "ui/support/Soon.h"
#include "ui/support/Windows.h"
#include "ui/toolkit/DriveList.h"
#include "ui/toolkit/ElidedLabel.h"
#include "ui/toolkit/ImageList.h"
#include "ui/toolkit/ProgressBar.h"
#include "ui/toolkit/ShowNow.h"
#include "ui/toolkit/Strings.h"
#include "ui/toolkit/Twips.h"
#include "ui/toolkit/Yielding.h"

#include <gtest/gtest.h>

#include <QPaintEvent>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

namespace tavel::test {

namespace {

class CountingBar : public ProgressBar {
  public:
    int paints = 0;

  protected:
    void paintEvent(QPaintEvent* event) override {
        ++paints;
        ProgressBar::paintEvent(event);
    }
};

class CountingWindow : public QWidget {
  public:
    int paints = 0;

  protected:
    void paintEvent(QPaintEvent*) override { ++paints; }
};

}  // namespace

TEST(Strings, engine_text_of_any_bytes_becomes_Unicode_and_back) {
    EXPECT_EQ(ToQString("Caf\xC3\xA9"), QStringLiteral(u"Caf\u00E9"));
    EXPECT_EQ(ToQString("Caf\xE9"), QStringLiteral(u"Caf\u00E9"));
    EXPECT_EQ(FromQString(QStringLiteral(u"\u65E5\u672C")), "\xE6\x97\xA5\xE6\x9C\xAC");
}

TEST(Twips, fifteen_make_a_pixel) {
    EXPECT_EQ(Pixels(14760), 984);
    EXPECT_EQ(Pixels(315), 21);
}

TEST(ProgressBar, a_million_values_paint_only_what_changes) {
    CountingBar bar;
    bar.resize(300, 20);
    ShowNow(bar);
    bar.SetMax(1'000'000);
    bar.paints = 0;
    for (int i = 0; i <= 1'000'000; ++i) bar.SetValue(static_cast<float>(i));
    EXPECT_GT(bar.paints, 10);
    EXPECT_LE(bar.paints, 1000);
    const int before = bar.paints;
    for (int i = 0; i < 100; ++i) bar.Repaint();
    EXPECT_EQ(bar.paints, before);
}

TEST(ProgressBar, paints_with_no_event_loop_running) {
    CountingBar bar;
    bar.resize(300, 20);
    ShowNow(bar);
    bar.paints = 0;
    bar.SetValue(100);
    EXPECT_EQ(bar.paints, 1);
    EXPECT_EQ(bar.value(), bar.maximum());
}

TEST(ProgressBar, takes_numbers_as_large_as_a_file) {
    ProgressBar bar;
    bar.SetMax(4.0e9F);
    bar.SetValue(2.0e9F);
    EXPECT_EQ(bar.value() * 2, bar.maximum());
    EXPECT_EQ(bar.Value(), 2.0e9F);
}

TEST(ProgressBar, a_value_outside_the_range_is_kept_and_drawn_at_its_end) {
    ProgressBar bar;
    bar.SetMax(10);
    bar.SetValue(11);
    EXPECT_EQ(bar.Value(), 11);
    EXPECT_EQ(bar.value(), bar.maximum());
    bar.SetMin(20);
    bar.SetMax(0);
    EXPECT_EQ(bar.value(), bar.minimum()) << "an empty file has no way to go";
    EXPECT_EQ(bar.Value(), 11);
}

TEST(ShowNow, the_window_is_painted_before_it_returns) {
    CountingWindow window;
    ShowNow(window);
    EXPECT_GT(window.paints, 0);
    window.hide();
    window.paints = 0;
    ShowNow(window);
    EXPECT_GT(window.paints, 0) << "the second time as well";
}

TEST(ShowNow, no_timer_runs_on_the_way) {
    CountingWindow window;
    int ticks = 0;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [&] { ++ticks; });
    timer.start(1);
    QTest::qSleep(5);
    ShowNow(window);
    RepaintNow(window);
    EXPECT_EQ(ticks, 0);
    EXPECT_TRUE(QTest::qWaitFor([&] { return ticks > 0; })) << "a tick of its own later";
}

TEST(ShowNow, user_input_waits_until_the_window_is_shown) {
    QPushButton button;
    int clicks = 0;
    QObject::connect(&button, &QPushButton::clicked, [&] { ++clicks; });
    button.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&button));
    ClickSoon(button);
    CountingWindow window;
    ShowNow(window);
    EXPECT_EQ(clicks, 0);
    RunEvents();
    EXPECT_EQ(clicks, 1);
}

TEST(RepaintNow, lays_out_what_has_changed_first) {
    QWidget window;
    auto* column = new QVBoxLayout(&window);
    auto* label = new QLabel(QStringLiteral("a"), &window);
    auto* below = new QLabel(QStringLiteral("b"), &window);
    column->addWidget(label);
    column->addWidget(below);
    column->addStretch();
    ShowNow(window);
    const int before = below->y();
    label->setText(QStringLiteral("a\nb\nc"));
    RepaintNow(window);
    EXPECT_GT(below->y(), before);
}

TEST(RepaintNow, leaves_a_hidden_window_hidden) {
    CountingWindow window;
    RepaintNow(window);
    EXPECT_EQ(window.paints, 0);
    EXPECT_FALSE(window.isVisible());
}

TEST(ImageList, gives_the_icon_of_a_key_and_fails_without_one) {
    ImageList icons;
    icons.Add(QStringLiteral("#0"), QStringLiteral("photo"));
    EXPECT_FALSE(icons.Icon(QStringLiteral("#0")).pixmap(16, 16).isNull());
    EXPECT_EQ(FailureOf([&] { icons.Icon(QStringLiteral("#1")); }), 35601);
}

TEST(ElidedLabel, keeps_its_text_and_never_widens_the_window) {
    ElidedLabel label;
    label.setText(QString(5000, QLatin1Char('x')));
    EXPECT_EQ(label.minimumSizeHint().width(), 0);
    EXPECT_EQ(label.text().size(), 5000);
}

TEST(ElidedLabel, a_text_that_does_not_fit_is_its_tip) {
    ElidedLabel label;
    label.resize(200, 20);
    for (const char* start : {"c:\\Rock & Roll\\", "c:\\<b>\\", "c:\\two  blanks\\"}) {
        const QString text = QLatin1String(start) + QString(100, QLatin1Char('x'));
        label.setText(text);
        EXPECT_EQ(TipAt(label, {9, 9}), text);
    }
    label.setText(QStringLiteral("c:\\"));
    EXPECT_EQ(TipAt(label, {9, 9}), QString());
}

TEST(ElidedLabel, a_line_break_is_shown_as_a_blank) {
    ElidedLabel label;
    const QString lines = QStringLiteral("one\ntwo\u2028three");
    for (const int width : {200, 30}) {
        label.resize(width, 20);
        label.setText(QStringLiteral("one two three"));
        const QImage usual = label.grab().toImage();
        const QSize hint = label.sizeHint();
        label.setText(lines);
        EXPECT_EQ(label.grab().toImage(), usual);
        EXPECT_EQ(label.sizeHint(), hint);
    }
    EXPECT_EQ(TipAt(label, {9, 9}), QStringLiteral("one two three"));
    EXPECT_EQ(label.text(), lines);
}

namespace {

class DriveLists : public ::testing::Test {
  protected:
    DriveLists() { Service<FileService>::Use(&service); }
    ~DriveLists() override { Service<FileService>::Use(nullptr); }

    TempFolder stick;
    FaultyFileService service;
};

}  // namespace

TEST_F(DriveLists, shows_the_current_drive_at_first_wherever_the_program_lies) {
    service.Plug('b', FromQString(QCoreApplication::applicationDirPath()));
    ASSERT_EQ(GetAppPath().substr(0, 2), "b:");
    const DriveList drives;
    EXPECT_EQ(drives.count(), 2);
    EXPECT_EQ(drives.Drive().substr(0, 2), "c:");
}

TEST_F(DriveLists, opening_it_lists_the_drives_of_the_moment_and_keeps_the_choice) {
    DriveList drives;
    EXPECT_EQ(drives.count(), 1);
    service.Plug('e', stick.HostPath()).label = "PSP";
    drives.showPopup();
    drives.hidePopup();
    EXPECT_EQ(drives.count(), 2);
    EXPECT_EQ(drives.Drive().substr(0, 2), "c:");
    drives.SetDrive("E:\\");
    EXPECT_EQ(drives.Drive(), "e: [PSP]");
    service.Plug('d', stick.HostPath());
    drives.showPopup();
    drives.hidePopup();
    EXPECT_EQ(drives.Drive(), "e: [PSP]");
}

TEST_F(DriveLists, opening_it_goes_back_to_the_current_drive_when_the_chosen_one_has_gone) {
    for (const char letter : {'a', 'd', 'e'}) service.Plug(letter, stick.HostPath());
    DriveList drives;
    EXPECT_EQ(drives.Drive().substr(0, 2), "c:");
    drives.SetDrive("e:");
    service.Pull('e');
    drives.showPopup();
    drives.hidePopup();
    EXPECT_EQ(drives.count(), 3);
    EXPECT_EQ(drives.Drive().substr(0, 2), "c:");
}

TEST_F(DriveLists, a_drive_that_is_not_there_cannot_be_chosen) {
    DriveList drives;
    EXPECT_EQ(FailureOf([&] { drives.SetDrive("x:\\"); }), 68);
    EXPECT_EQ(FailureOf([&] { drives.SetDrive(""); }), 68);
    EXPECT_EQ(drives.Drive().substr(0, 2), "c:");
}

TEST(Yield, lets_events_run_unless_the_last_yield_is_under_2_ms_old) {
    std::int64_t now = 1000;
    Yielding yielding([&] { return now; });
    int ran = 0;
    const auto post = [&] { QTimer::singleShot(0, qApp, [&] { ++ran; }); };
    post();
    yielding.Yield();
    EXPECT_EQ(ran, 1);
    post();
    now = 1001;
    yielding.Yield();
    EXPECT_EQ(ran, 1);
    now = 1002;
    yielding.Yield();
    EXPECT_EQ(ran, 2);
}

}  // namespace tavel::test
