#include "ui/support/Windows.h"
#include "ui/toolkit/Controls.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QDialog>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <memory>

namespace tavel::test {

namespace {

// A line and three buttons, of which cmdOK is for Enter; as a dialog and as another window.
class EnterButton : public ::testing::TestWithParam<bool> {
  protected:
    EnterButton() : window(GetParam() ? new QDialog : new QWidget) {
        auto* row = new QHBoxLayout(window.get());
        for (QWidget* control : std::initializer_list<QWidget*>{
                 Named<QLineEdit>("txtName"),
                 Named<QPushButton>("cmdBrowse", QStringLiteral("...")),
                 Named<QPushButton>("cmdOK", QStringLiteral("OK")),
                 Named<QPushButton>("cmdCancel", QStringLiteral("Cancel"))})
            row->addWidget(control);
        for (QPushButton* button : window->findChildren<QPushButton*>()) {
            QObject::connect(button, &QPushButton::clicked,
                             [this, button] { clicked << button->objectName(); });
        }
        SetEnterButton(*window, Find<QPushButton>(*window, "cmdOK"));
        window->show();
        EXPECT_TRUE(BecomesActive(*window));
        Find(*window, "txtName").setFocus();
    }

    // Those that look as though Enter pressed them.
    QStringList Default() const {
        QStringList names;
        for (const QPushButton* button : window->findChildren<QPushButton*>()) {
            if (button->isDefault()) names << button->objectName();
        }
        return names;
    }

    // What a key that comes to the control with the focus clicks.
    QStringList ClickedBy(Qt::KeyboardModifiers modifiers = Qt::NoModifier, bool held = false) {
        clicked.clear();
        QKeyEvent press(QEvent::KeyPress, Qt::Key_Return, modifiers, QString(), held);
        QApplication::sendEvent(window->focusWidget(), &press);
        return clicked;
    }

    std::unique_ptr<QWidget> window;
    QStringList clicked;
};

const QStringList ok(QStringLiteral("cmdOK"));

}  // namespace

TEST_P(EnterButton, is_the_one_that_looks_so_while_no_other_has_the_focus) {
    EXPECT_EQ(Default(), ok);
    EXPECT_EQ(ClickedBy(), ok);
    Click(*window, "cmdOK");
    EXPECT_EQ(Default(), ok);
    EXPECT_EQ(ClickedBy(), ok);
}

TEST_P(EnterButton, another_that_has_the_focus_looks_so_however_it_got_it) {
    for (const char* name : {"cmdBrowse", "cmdCancel"}) {
        const QStringList other(QString::fromLatin1(name));
        Click(*window, name);
        EXPECT_EQ(Default(), other);
        EXPECT_EQ(ClickedBy(), other);
        Find(*window, "txtName").setFocus();
        EXPECT_EQ(Default(), ok);
        Find(*window, name).setFocus(Qt::TabFocusReason);
        EXPECT_EQ(Default(), other);
        EXPECT_EQ(ClickedBy(), other);
    }
}

TEST_P(EnterButton, a_box_over_the_window_keeps_its_own) {
    QDialog box(window.get());
    QPushButton button(&box);
    button.setDefault(true);
    Click(*window, "cmdCancel");
    EXPECT_TRUE(button.isDefault());
}

TEST_P(EnterButton, a_key_that_is_held_down_or_has_company_clicks_nothing) {
    for (const char* name : {"txtName", "cmdOK", "cmdCancel"}) {
        Find(*window, name).setFocus();
        EXPECT_EQ(ClickedBy(Qt::NoModifier, true), QStringList()) << name;
        EXPECT_EQ(ClickedBy(Qt::ControlModifier), QStringList()) << name;
        EXPECT_EQ(ClickedBy(Qt::KeypadModifier).size(), 1) << name;
    }
}

INSTANTIATE_TEST_SUITE_P(, EnterButton, ::testing::Bool(), [](const auto& kind) {
    return kind.param ? std::string("dialog") : std::string("window");
});

}  // namespace tavel::test
