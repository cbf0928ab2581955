#include "ui/support/Windows.h"
#include "ui/toolkit/SingleWindow.h"

#include <gtest/gtest.h>

#include <QPointer>

namespace tavel::test {

namespace {

class frmSample : public QWidget {
  public:
    frmSample() { setObjectName(QStringLiteral("frmSample")); }
    void Load() { loads += &SingleWindow<frmSample>::Get() == this ? 1 : 0; }
    int loads = 0;
    bool refuses = false;

  protected:
    void closeEvent(QCloseEvent* event) override { event->setAccepted(!refuses); }
};

using Sample = SingleWindow<frmSample>;

}  // namespace

TEST(SingleWindow, the_first_touch_creates_the_window_hidden_and_loads_it) {
    EXPECT_FALSE(Sample::Loaded());
    EXPECT_FALSE(Sample::Get().isVisible());
    EXPECT_EQ(Sample::Get().loads, 1);
    EXPECT_TRUE(Sample::Loaded());
}

TEST(SingleWindow, closing_by_the_box_unloads_and_the_next_touch_gives_a_fresh_one) {
    const QPointer<frmSample> first = &Sample::Get();
    first->show();
    first->close();
    EXPECT_FALSE(Sample::Loaded());
    EXPECT_NE(&Sample::Get(), first.data());
    RunEvents();
    EXPECT_TRUE(first.isNull());
}

TEST(SingleWindow, a_window_that_refuses_to_close_stays_and_can_still_be_unloaded) {
    frmSample& window = Sample::Get();
    window.refuses = true;
    window.show();
    window.close();
    EXPECT_TRUE(Sample::Loaded());
    EXPECT_TRUE(window.isVisible());
    Sample::Unload();
    EXPECT_FALSE(Sample::Loaded());
    EXPECT_FALSE(window.isVisible());
}

TEST(SingleWindow, UnloadAllBut_spares_the_named_window_alone) {
    Sample::Get();
    WindowRegistry::UnloadAllBut("frmSample");
    EXPECT_TRUE(Sample::Loaded());
    WindowRegistry::UnloadAllBut("frmMain");
    EXPECT_FALSE(Sample::Loaded());
}

}  // namespace tavel::test
