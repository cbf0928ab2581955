#pragma once

#include "ui/main/MainLayout.h"
#include "ui/main/UpCalls.h"
#include "ui/support/Clipping.h"
#include "ui/support/DeviceWindow.h"
#include "ui/support/Modal.h"
#include "ui/support/PromptQueue.h"
#include "ui/toolkit/Strings.h"
#include "ui/toolkit/Twips.h"

#include <gmock/gmock.h>

#include <QApplication>
#include <QDir>
#include <QPalette>
#include <functional>
#include <string>

namespace tavel::test {

inline QPalette DarkPalette() {
    const QColor back(0x31, 0x36, 0x3b);
    const QColor base(0x23, 0x26, 0x29);
    const QColor text(0xef, 0xf0, 0xf1);
    QPalette palette(back);
    palette.setColor(QPalette::Base, base);
    palette.setColor(QPalette::AlternateBase, back);
    for (const QPalette::ColorRole role :
         {QPalette::Text, QPalette::WindowText, QPalette::ButtonText, QPalette::ToolTipText})
        palette.setColor(role, text);
    palette.setColor(QPalette::Highlight, QColor(0x3d, 0xae, 0xe9));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    return palette;
}

// A desktop: the size of its text, and its colours.
struct Desktop {
    double points;
    bool isDark;
};

inline const auto desktops =
    testing::Values(Desktop{8, false}, Desktop{10, false}, Desktop{11, false}, Desktop{14, false},
                    Desktop{8, true}, Desktop{14, true});

inline std::string NameOfDesktop(const testing::TestParamInfo<Desktop>& info) {
    return std::to_string(static_cast<int>(info.param.points)) + "pt_" +
           (info.param.isDark ? "dark" : "light");
}

// Every window of the program on a desktop of each kind, on a screen that is large enough. With
// TAVEL_PICTURES naming a folder, each leaves its picture there for a person to look at.
class LooksTest : public DeviceWindowTest, public testing::WithParamInterface<Desktop> {
  protected:
    LooksTest() : m_usual(QApplication::palette()) {
        WireUpCalls();
        if (GetParam().isDark) QApplication::setPalette(DarkPalette());
        SetScale(ScaleThatFits(GetParam().points, {4000, 3000},
                               {MainLayout::ClientWidth, MainLayout::ClientHeight}));
        for (int i = 0; i < 9; ++i) {
            const std::string number = std::to_string(i);
            AddPhoto("ph_" + number, "Beach " + number);
            AddMusic("mu_" + number, "Song " + number, "The Singers");
        }
        AddVideo("vd_a", "Ferry");
        AddMagazine("ma_a", {"ph_0", "ph_1"});
        AddPlaylist("pl_a", {"mu_0"});
    }
    ~LooksTest() override {
        CleanUp();
        SetScale(1);
        QApplication::setPalette(m_usual);
    }

    // Nothing in the window is cut off.
    void Look(QWidget& window, const char* name) {
        (void)QTest::qWaitForWindowExposed(&window);
        EXPECT_THAT(ClippedIn(window), testing::IsEmpty()) << name;
        const QString folder = qEnvironmentVariable("TAVEL_PICTURES");
        if (folder.isEmpty()) return;
        const auto desktop = NameOfDesktop({GetParam(), 0});
        ASSERT_TRUE(QDir().mkpath(folder));
        EXPECT_TRUE(window.grab().save(QDir(folder).filePath(QStringLiteral("%1_%2x_%3.png")
                                                                 .arg(QLatin1String(name))
                                                                 .arg(window.devicePixelRatioF())
                                                                 .arg(ToQString(desktop)))));
    }

    // The box that `ask` brings up.
    void LookAtBox(const char* name, const std::function<void()>& ask) {
        const RealPrompts real;
        WhenModal([&](QWidget& box) {
            Look(box, name);
            QTest::keyClick(&box, Qt::Key_Escape);
        });
        ask();
    }

  private:
    QPalette m_usual;
};

}  // namespace tavel::test
