#include "ui/support/ButtonsWithPictures.h"
#include "ui/support/Modal.h"
#include "ui/support/NoHostBoxes.h"
#include "ui/support/PromptQueue.h"
#include "ui/support/Windows.h"
#include "ui/toolkit/InputBox.h"
#include "ui/toolkit/MsgBox.h"
#include "ui/toolkit/RealPrompter.h"
#include "ui/toolkit/Strings.h"
#include "ui/toolkit/WorkWindow.h"
#include "ui/toolkit/dialogs/CommonDialogs.h"

#include <gtest/gtest.h>

#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>

namespace tavel::test {

namespace {

QAbstractButton& ButtonOf(QWidget& box, QMessageBox::StandardButton which) {
    return *static_cast<QMessageBox&>(box).button(which);
}

}  // namespace

TEST(MsgBox, each_key_answers_as_its_button_says) {
    struct Case {
        MsgBoxButtons buttons;
        Qt::Key key;
        MsgBoxAnswer answer;
    };
    const RealPrompts real;
    for (const Case& one :
         {Case{MsgBoxButtons::OK, Qt::Key_Return, MsgBoxAnswer::OK},
          Case{MsgBoxButtons::OK, Qt::Key_Escape, MsgBoxAnswer::OK},
          Case{MsgBoxButtons::OKCancel, Qt::Key_Return, MsgBoxAnswer::OK},
          Case{MsgBoxButtons::OKCancel, Qt::Key_Escape, MsgBoxAnswer::Cancel},
          Case{MsgBoxButtons::YesNo, Qt::Key_Return, MsgBoxAnswer::Yes},
          Case{MsgBoxButtons::YesNo, Qt::Key_Escape, MsgBoxAnswer::No},
          Case{MsgBoxButtons::YesNoDefaultNo, Qt::Key_Return, MsgBoxAnswer::No},
          Case{MsgBoxButtons::YesNoDefaultNo, Qt::Key_Escape, MsgBoxAnswer::No}}) {
        WhenModal([&](QWidget& box) { QTest::keyClick(&box, one.key); });
        EXPECT_EQ(MsgBox(QStringLiteral("Sure?"), one.buttons), one.answer);
    }
}

TEST(MsgBox, a_click_answers_and_the_box_shows_its_words) {
    const RealPrompts real;
    WhenModal([](QWidget& box) {
        EXPECT_EQ(FromQString(box.windowTitle()), "Delete Group?");
        EXPECT_EQ(FromQString(static_cast<QMessageBox&>(box).text()), "<b>one</b>\n\ntwo");
        EXPECT_EQ(static_cast<QMessageBox&>(box).textFormat(), Qt::PlainText);
        QTest::mouseClick(&ButtonOf(box, QMessageBox::No), Qt::LeftButton);
    });
    EXPECT_EQ(MsgBox(QStringLiteral("<b>one</b>\r\rtwo"), MsgBoxButtons::YesNo,
                     QStringLiteral("Delete Group?")),
              MsgBoxAnswer::No);
}

TEST(MsgBox, its_text_begins_where_the_box_does) {
    const RealPrompts real;
    const QString words = QStringLiteral("Already exists in the list ");
    for (const QString& text : {words, words.repeated(9)}) {
        WhenModal([](QWidget& box) {
            const int margin = box.layout()->contentsMargins().left();
            EXPECT_EQ(Find<QLabel>(box, "qt_msgbox_label").x(), margin);
            QTest::keyClick(&box, Qt::Key_Escape);
        });
        MsgBox(text);
    }
}

TEST(MsgBox, breaks_a_long_path_at_its_folders_and_fits_the_screen) {
    const RealPrompts real;
    std::string path = "Adding c:";
    for (int i = 0; i < 12; ++i) path += "\\a_folder_of_some_length";
    WhenModal([&](QWidget& box) {
        const auto& words = *box.findChild<QLabel*>(QStringLiteral("qt_msgbox_label"));
        const QRect needed =
            words.fontMetrics().boundingRect(words.contentsRect(), Qt::TextWordWrap, words.text());
        EXPECT_LE(needed.width(), words.contentsRect().width());
        EXPECT_LE(needed.height(), words.contentsRect().height());
        EXPECT_LT(box.width(), box.screen()->availableGeometry().width());
        EXPECT_EQ(FromQString(words.accessibleName()), path) << "without marks";
        ButtonOf(box, QMessageBox::Ok).click();
    });
    MsgBox(QString::fromStdString(path));
}

TEST(MsgBox, is_called_after_the_program_when_it_is_given_no_title) {
    PromptQueue prompts;
    prompts.ExpectMsgBox(QStringLiteral("Hello"), MsgBoxButtons::OK, MsgBoxAnswer::OK,
                         QStringLiteral("Tavel"));
    EXPECT_EQ(MsgBox(QStringLiteral("Hello")), MsgBoxAnswer::OK);
}

TEST(MsgBox, outlives_its_owner) {
    const RealPrompts real;
    auto* owner = new QWidget;
    SetWorkWindow(*owner);
    WhenModal([owner](QWidget& box) {
        ASSERT_EQ(box.parentWidget(), owner);
        delete owner;
    });
    EXPECT_EQ(MsgBox(QStringLiteral("Sure?"), MsgBoxButtons::YesNo), MsgBoxAnswer::No);
}

TEST(Boxes, no_button_has_a_picture_on_a_desktop_that_likes_them) {
    const ButtonsWithPictures desktop;
    const RealPrompts real;
    int buttons = 0;
    const auto look = [&](QWidget& box) {
        for (const QPushButton* button : box.findChildren<QPushButton*>()) {
            EXPECT_TRUE(button->icon().isNull()) << FromQString(box.objectName());
            ++buttons;
        }
        QTest::keyClick(&box, Qt::Key_Escape);
    };
    WhenModal(look);
    InputBox({}, {}, {});
    EXPECT_EQ(buttons, 2);
    WhenModal(look);
    MsgBox({}, MsgBoxButtons::OKCancel);
    EXPECT_EQ(buttons, 4);
    WhenModal(look);
    Service<Prompter>::Get().PickFiles({});
    EXPECT_EQ(buttons, 6);
    WhenModal(look);
    Service<Prompter>::Get().PickFolder({});
    EXPECT_EQ(buttons, 8);
    auto& dialogs = Service<CommonDialogs>::Get();
    WhenModal(look);
    dialogs.PickColor({});
    WhenModal(look);
    dialogs.PickFont({});
    EXPECT_EQ(buttons, 8 + 5 + 2);
}

TEST(InputBox, typed_text_comes_back_on_Enter_and_nothing_on_Escape) {
    const RealPrompts real;
    WhenModal([](QWidget& box) {
        EXPECT_EQ(FromQString(box.windowTitle()), "Name Group");
        auto& edit = *box.findChild<QLineEdit*>();
        EXPECT_EQ(FromQString(edit.text()), "New Group");
        QTest::keyClicks(&edit, QStringLiteral("  Holiday"));
        QTest::keyClick(&edit, Qt::Key_Return);
    });
    const QString prompt = QStringLiteral("What would you like to call your new group?");
    const QString title = QStringLiteral("Name Group");
    EXPECT_EQ(FromQString(InputBox(prompt, title, QStringLiteral("New Group"))), "  Holiday");
    WhenModal([](QWidget& box) { QTest::keyClick(&box, Qt::Key_Escape); });
    EXPECT_EQ(FromQString(InputBox(prompt, title, QStringLiteral("New Group"))), "");
}

}  // namespace tavel::test
