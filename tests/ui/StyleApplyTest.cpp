#include "ui/toolkit/DriveList.h"
#include "ui/toolkit/LineList.h"
#include "ui/toolkit/ListView.h"
#include "ui/toolkit/ProgressBar.h"
#include "ui/toolkit/StyleApply.h"
#include "ui/toolkit/TreeView.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QFontInfo>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QToolButton>
#include <QTreeWidget>
#include <vector>

namespace tavel::test {

namespace {

constexpr Long red = 0x0000FF;
constexpr Long blue = 0xFF0000;

const QString verdanda = QStringLiteral("Verdanda");

// One control of each kind of the table, and some of other kinds.
struct Controls {
    explicit Controls(QWidget* parent)
        : label(new QLabel(parent)),
          button(new QPushButton(parent)),
          check(new QCheckBox(parent)),
          option(new QRadioButton(parent)),
          combo(new QComboBox(parent)),
          list(new LineList(parent)) {
        auto* picture = new QLabel(parent);
        QPixmap white(8, 8);
        white.fill(Qt::white);
        picture->setPixmap(white);
        auto* stretched = new QLabel(parent);
        stretched->setScaledContents(true);
        others = {picture,
                  stretched,
                  new QWidget(parent),
                  new QFrame(parent),
                  new QLineEdit(parent),
                  new QTreeWidget(parent),
                  new TreeView(parent),
                  new ListView(parent),
                  new DriveList(parent),
                  new QToolButton(parent),
                  new ProgressBar(parent)};
        int top = 20;
        for (QWidget* control : OfTheTable()) {
            control->setGeometry(10, top, 80, 25);
            top += 30;
        }
    }

    std::vector<QWidget*> OfTheTable() const { return {label, button, check, option, combo, list}; }

    QLabel* label;
    QPushButton* button;
    QCheckBox* check;
    QRadioButton* option;
    QComboBox* combo;
    LineList* list;
    std::vector<QWidget*> others;
};

// A window that has them all, once by themselves and once in a frame.
struct Sample {
    Sample() {
        window.resize(300, 300);
        frame->setGeometry(100, 10, 190, 240);
    }

    void Apply(Long lBackColorA, Long lBackColorB) {
        StyleApply(window, {"Verdanda", lBackColorA, lBackColorB});
    }

    // What is on the screen at a point of a control.
    QColor Shown(const QWidget& control, QPoint point) {
        return window.grab().toImage().pixelColor(control.mapTo(&window, point));
    }
    QColor ShownInside(const QWidget& control) { return Shown(control, control.rect().center()); }

    QWidget window;
    QGroupBox* frame = new QGroupBox(&window);
    Controls inWindow{&window};
    Controls inFrame{frame};
    std::vector<const Controls*> both{&inWindow, &inFrame};
};

QString Family(const QWidget* control) { return control->font().family(); }

// The back colours of a control, whichever of them it is painted from.
std::vector<QColor> BackColors(const QWidget* control) {
    const QPalette& palette = control->palette();
    return {palette.color(QPalette::Window), palette.color(QPalette::Base),
            palette.color(QPalette::Button)};
}

std::vector<std::vector<QColor>> BackColors(const std::vector<QWidget*>& controls) {
    std::vector<std::vector<QColor>> colors;
    for (const QWidget* control : controls) colors.push_back(BackColors(control));
    return colors;
}

}  // namespace

TEST(StyleApply, each_kind_of_the_table_takes_the_font_name) {
    Sample sample;
    sample.Apply(-1, -1);
    EXPECT_EQ(Family(sample.frame), verdanda);
    for (const Controls* controls : sample.both) {
        for (const QWidget* control : controls->OfTheTable())
            EXPECT_EQ(Family(control), verdanda) << control->metaObject()->className();
    }
}

TEST(StyleApply, a_control_outside_the_table_keeps_its_own_font_and_colours) {
    Sample sample;
    const QString own = QApplication::font().family();
    const auto inWindow = BackColors(sample.inWindow.others);
    const auto inFrame = BackColors(sample.inFrame.others);
    sample.Apply(red, blue);
    EXPECT_EQ(BackColors(sample.inWindow.others), inWindow);
    EXPECT_EQ(BackColors(sample.inFrame.others), inFrame);
    for (const Controls* controls : sample.both) {
        for (const QWidget* control : controls->others)
            EXPECT_EQ(Family(control), own) << control->metaObject()->className();
    }
}

TEST(StyleApply, changes_the_font_name_and_not_its_size) {
    Sample sample;
    QLabel* label = sample.inFrame.label;
    QFont large = label->font();
    large.setPointSizeF(24);
    label->setFont(large);
    sample.Apply(-1, -1);
    EXPECT_EQ(label->font().pointSizeF(), 24);
    EXPECT_EQ(Family(label), verdanda);
}

TEST(StyleApply, a_font_that_no_machine_has_looks_like_the_rest_of_the_desktop) {
    Sample sample;
    sample.Apply(-1, -1);
    EXPECT_EQ(QFontInfo(sample.inFrame.label->font()).family(),
              QFontInfo(QApplication::font()).family());
}

TEST(StyleApply, each_kind_of_the_table_shows_its_colour) {
    Sample sample;
    sample.Apply(red, blue);
    EXPECT_EQ(sample.Shown(sample.window, {295, 295}), QColor(Qt::red));
    // A frame has a shade over it; a button and a combo box are painted as a slope of shades.
    EXPECT_EQ(sample.Shown(*sample.frame, {185, 225}).hsvHue(), QColor(Qt::red).hsvHue());
    for (const Controls* controls : sample.both) {
        EXPECT_EQ(sample.ShownInside(*controls->label), QColor(Qt::red));
        EXPECT_EQ(sample.ShownInside(*controls->check), QColor(Qt::blue));
        EXPECT_EQ(sample.ShownInside(*controls->option), QColor(Qt::blue));
        EXPECT_EQ(sample.ShownInside(*controls->list), QColor(Qt::blue));
        EXPECT_EQ(sample.ShownInside(*controls->button).hsvHue(), QColor(Qt::red).hsvHue());
        EXPECT_EQ(sample.ShownInside(*controls->combo).hsvHue(), QColor(Qt::blue).hsvHue());
        EXPECT_EQ(controls->combo->palette().color(QPalette::Base), QColor(Qt::blue)) << "its list";
    }
}

TEST(StyleApply, minus_1_leaves_each_colour_alone) {
    Sample sample;
    const auto own = BackColors(sample.inFrame.OfTheTable());
    const std::vector<QColor> windows = BackColors(&sample.window);
    const QColor label = sample.ShownInside(*sample.inFrame.label);
    sample.Apply(-1, -1);
    EXPECT_EQ(BackColors(&sample.window), windows);
    EXPECT_EQ(BackColors(sample.frame), windows);
    EXPECT_EQ(BackColors(sample.inWindow.OfTheTable()), own);
    EXPECT_EQ(BackColors(sample.inFrame.OfTheTable()), own);

    sample.Apply(-1, blue);
    EXPECT_EQ(BackColors(&sample.window), windows);
    EXPECT_EQ(BackColors(sample.frame), windows);
    EXPECT_EQ(sample.ShownInside(*sample.inFrame.label), label);
    EXPECT_EQ(sample.ShownInside(*sample.inFrame.list), QColor(Qt::blue));
}

TEST(StyleApply, the_colour_of_a_window_or_frame_does_not_show_in_controls_of_the_other_colour) {
    Sample sample;
    const QColor grey = QApplication::palette().color(QPalette::Button);
    sample.Apply(red, -1);
    for (const Controls* controls : sample.both) {
        EXPECT_EQ(sample.ShownInside(*controls->label), QColor(Qt::red));
        EXPECT_EQ(sample.ShownInside(*controls->check), grey);
        EXPECT_EQ(sample.ShownInside(*controls->option), grey);
        EXPECT_EQ(BackColors(controls->combo), BackColors(Sample().inFrame.combo));
        EXPECT_EQ(BackColors(controls->list), BackColors(Sample().inFrame.list));
    }
}

}  // namespace tavel::test
