#include "ui/toolkit/DriveList.h"
#include "ui/toolkit/StyleApply.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QFontInfo>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QTreeWidget>

namespace tavel::test {

namespace {

constexpr Long red = 0x0000FF;
constexpr Long blue = 0xFF0000;

const QString verdanda = QStringLiteral("Verdanda");

// A window with one control of each kind, in a frame as most windows have one.
struct Sample {
    Sample() {
        QPixmap picture(8, 8);
        picture.fill(Qt::white);
        pictureLabel->setPixmap(picture);
    }

    QWidget window;
    QGroupBox* frame = new QGroupBox(&window);
    QLabel* label = new QLabel(frame);
    QPushButton* button = new QPushButton(frame);
    QCheckBox* check = new QCheckBox(frame);
    QRadioButton* option = new QRadioButton(frame);
    QComboBox* combo = new QComboBox(frame);
    QListWidget* list = new QListWidget(frame);
    QLineEdit* text = new QLineEdit(frame);
    QTreeWidget* tree = new QTreeWidget(frame);
    DriveList* drives = new DriveList(frame);
    QLabel* pictureLabel = new QLabel(frame);
};

QString Family(const QWidget* control) { return control->font().family(); }

QColor Back(const QWidget* control, QPalette::ColorRole role) {
    return control->palette().color(role);
}

}  // namespace

TEST(StyleApply, each_kind_of_the_table_takes_the_font_name) {
    Sample sample;
    StyleApply(sample.window, {"Verdanda", -1, -1});
    for (const QWidget* control :
         {static_cast<QWidget*>(sample.frame), static_cast<QWidget*>(sample.label),
          static_cast<QWidget*>(sample.button), static_cast<QWidget*>(sample.check),
          static_cast<QWidget*>(sample.option), static_cast<QWidget*>(sample.combo),
          static_cast<QWidget*>(sample.list)})
        EXPECT_EQ(Family(control), verdanda) << control->metaObject()->className();
}

TEST(StyleApply, a_control_outside_the_table_keeps_its_own_font) {
    Sample sample;
    const QString own = QApplication::font().family();
    StyleApply(sample.window, {"Verdanda", red, blue});
    for (const QWidget* control :
         {static_cast<QWidget*>(sample.text), static_cast<QWidget*>(sample.tree),
          static_cast<QWidget*>(sample.drives), static_cast<QWidget*>(sample.pictureLabel)}) {
        EXPECT_EQ(Family(control), own) << control->metaObject()->className();
        EXPECT_NE(Back(control, QPalette::Base), QColor(Qt::blue));
    }
}

TEST(StyleApply, changes_the_font_name_and_not_its_size) {
    Sample sample;
    QFont large = sample.label->font();
    large.setPointSizeF(24);
    sample.label->setFont(large);
    StyleApply(sample.window, {"Verdanda", -1, -1});
    EXPECT_EQ(sample.label->font().pointSizeF(), 24);
    EXPECT_EQ(Family(sample.label), verdanda);
}

TEST(StyleApply, a_font_that_no_machine_has_looks_like_the_rest_of_the_desktop) {
    Sample sample;
    StyleApply(sample.window, {"Verdanda", -1, -1});
    EXPECT_EQ(QFontInfo(sample.label->font()).family(), QFontInfo(QApplication::font()).family());
}

TEST(StyleApply, each_kind_of_the_table_takes_its_colour) {
    Sample sample;
    StyleApply(sample.window, {"Verdanda", red, blue});
    EXPECT_EQ(Back(&sample.window, QPalette::Window), QColor(Qt::red));
    EXPECT_EQ(Back(sample.frame, QPalette::Window), QColor(Qt::red));
    EXPECT_EQ(Back(sample.label, QPalette::Window), QColor(Qt::red));
    EXPECT_EQ(Back(sample.button, QPalette::Button), QColor(Qt::red));
    EXPECT_EQ(Back(sample.check, QPalette::Window), QColor(Qt::blue));
    EXPECT_EQ(Back(sample.option, QPalette::Window), QColor(Qt::blue));
    EXPECT_EQ(Back(sample.combo, QPalette::Base), QColor(Qt::blue));
    EXPECT_EQ(Back(sample.list, QPalette::Base), QColor(Qt::blue));
}

TEST(StyleApply, minus_1_leaves_each_colour_alone) {
    Sample sample;
    const QPalette windows = sample.window.palette();
    const QPalette lists = sample.list->palette();
    StyleApply(sample.window, {"Verdanda", -1, -1});
    EXPECT_EQ(sample.window.palette(), windows);
    EXPECT_EQ(sample.list->palette(), lists);
    StyleApply(sample.window, {"Verdanda", -1, blue});
    EXPECT_EQ(sample.window.palette(), windows);
    EXPECT_EQ(Back(sample.list, QPalette::Base), QColor(Qt::blue));
}

}  // namespace tavel::test
