#include "ui/support/DialogRecorder.h"
#include "ui/support/Modal.h"
#include "ui/support/Windows.h"
#include "ui/toolkit/Strings.h"
#include "ui/toolkit/SystemColors.h"
#include "ui/toolkit/dialogs/CDLG.h"

#include <gtest/gtest.h>

#include <QLabel>
#include <QLineEdit>
#include <QPalette>
#include <QPushButton>

namespace tavel::test {

namespace {

// One call, each of whose arguments a test may change.
struct Call {
    Long Color = 0x332211;
    bool AnyColor = true;
    bool FullOpen = true;
    bool DisableFullOpen = false;
    QWidget* Owner = nullptr;
    Long flags = 0;
    CDLG dialog;

    bool Run() {
        return dialog.VBChooseColor(Color, AnyColor, FullOpen, DisableFullOpen, Owner, flags);
    }
};

// The box in which the colour is written as "#rrggbb": the one line that is in no spin box.
QLineEdit& Html(QWidget& box) {
    for (QLineEdit* edit : box.findChildren<QLineEdit*>()) {
        if (edit->objectName().isEmpty()) return *edit;
    }
    throw std::runtime_error("no line for the colour");
}

QPushButton& ButtonNamed(QWidget& box, const char* caption) {
    for (QPushButton* button : box.findChildren<QPushButton*>()) {
        if (button->text().remove(QLatin1Char('&')).startsWith(QLatin1String(caption)))
            return *button;
    }
    throw std::runtime_error(std::string("no button ") + caption);
}

// They stand in two rows, the second one below the first.
void PickCustom(QWidget& box, int index) {
    for (const QLabel* label : box.findChildren<QLabel*>()) {
        QWidget* wells = label->buddy();
        if (wells == nullptr ||
            !label->text().remove(QLatin1Char('&')).startsWith(QLatin1String("Custom colors")))
            continue;
        for (int row = 0; row < index % 2; ++row) QTest::keyClick(wells, Qt::Key_Down);
        for (int column = 0; column < index / 2; ++column) QTest::keyClick(wells, Qt::Key_Right);
        QTest::keyClick(wells, Qt::Key_Space);
        return;
    }
    throw std::runtime_error("no custom colours");
}

void TypeColor(QWidget& box, const char* color) {
    Html(box).setFocus();
    Html(box).selectAll();
    QTest::keyClicks(&Html(box), QLatin1String(color));
}

}  // namespace

TEST(VBChooseColor, a_typed_color_comes_back_with_blue_in_front) {
    Call call;
    WhenModal([](QWidget& box) {
        EXPECT_EQ(FromQString(Html(box).text()), "#112233") << "begins with what it is given";
        TypeColor(box, "#0a141e");
        QTest::keyClick(&Html(box), Qt::Key_Return);
    });
    EXPECT_TRUE(call.Run());
    EXPECT_EQ(call.Color, 0x1E140A);
    EXPECT_EQ(call.dialog.APIReturn(), 1);
    EXPECT_EQ(call.dialog.ExtendedError(), 0);
}

TEST(VBChooseColor, a_cancel_gives_minus_1) {
    Call call;
    CancelNext();
    EXPECT_FALSE(call.Run());
    EXPECT_EQ(call.Color, -1);
    EXPECT_EQ(call.dialog.APIReturn(), 0);
}

TEST(VBChooseColor, begins_with_white_after_a_cancel_and_takes_system_colors) {
    for (const Long color : {-1, static_cast<Long>(0x8000000D)}) {
        Call call;
        call.Color = color;
        CancelNext([color](QWidget& box) {
            EXPECT_EQ(QColor(Html(box).text()), color == -1 ? QColor(Qt::white) : SystemColor(13));
        });
        call.Run();
    }
}

TEST(VBChooseColor, a_failure_tells_its_reason_where_the_result_is_neither_0_nor_1) {
    DialogRecorder dialogs;
    dialogs.colorAnswer.error = 0xFFFF;
    Call call;
    EXPECT_FALSE(call.Run());
    EXPECT_EQ(call.Color, -1);
    EXPECT_EQ(call.dialog.ExtendedError(), 0);
    dialogs.colorAnswer.result = 2;
    call.Color = 0x332211;
    EXPECT_FALSE(call.Run());
    EXPECT_EQ(call.Color, -1);
    EXPECT_EQ(call.dialog.APIReturn(), 2);
    EXPECT_EQ(call.dialog.ExtendedError(), 0xFFFF);
}

TEST(VBChooseColor, the_flags_say_what_the_booleans_say_and_never_hook_or_template) {
    DialogRecorder dialogs;
    Call call;
    call.flags = 0x10 | 0x20 | 0x40 | 0x8;
    call.Run();
    EXPECT_EQ(dialogs.color.flags, 0x100 | 0x2 | 0x1 | 0x8);
    call.flags = 0;
    call.AnyColor = call.FullOpen = false;
    call.DisableFullOpen = true;
    call.Run();
    EXPECT_EQ(dialogs.color.flags, 0x80 | 0x4 | 0x1);
}

TEST(VBChooseColor, the_box_opens_up_by_its_button_unless_it_must_not) {
    Call call;
    call.FullOpen = false;
    WhenModal([](QWidget& box) {
        EXPECT_FALSE(Html(box).isVisible());
        EXPECT_FALSE(ButtonNamed(box, "Add to Custom Colors").isVisible());
        QPushButton& define = ButtonNamed(box, "Define Custom Colors");
        EXPECT_TRUE(define.isVisible());
        QTest::keyClick(&define, Qt::Key_Space);
        EXPECT_TRUE(Html(box).isVisible());
        EXPECT_FALSE(define.isVisible());
        TypeColor(box, "#010203");
        QTest::keyClick(&Html(box), Qt::Key_Return);
    });
    EXPECT_TRUE(call.Run());
    EXPECT_EQ(call.Color, 0x030201);

    call.DisableFullOpen = true;
    ConfirmNext([](QWidget& box) {
        QPushButton& define = ButtonNamed(box, "Define Custom Colors");
        EXPECT_FALSE(define.isEnabled());
        QTest::keyClick(&define, Qt::Key_Space);
        EXPECT_FALSE(Html(box).isVisible());
    });
    EXPECT_TRUE(call.Run());
    EXPECT_EQ(call.Color, 0x030201) << "the colour that it began with";
}

TEST(VBChooseColor, the_box_belongs_to_its_owner_and_outlives_it) {
    Call call;
    ExpectCancelWithItsOwner(call);
    EXPECT_EQ(call.Color, -1);
}

TEST(CustomColor, the_sixteen_begin_as_the_system_colors_0_to_15) {
    CDLG dialog;
    for (int i = 0; i < 16; ++i) EXPECT_EQ(dialog.CustomColor(i), ToOleColor(SystemColor(i))) << i;
}

TEST(CustomColor, the_sixteen_are_those_of_the_first_use) {
    const QPalette before = QApplication::palette();
    const auto windows = [](Qt::GlobalColor color) {
        QPalette palette = QApplication::palette();
        palette.setColor(QPalette::Base, color);
        QApplication::setPalette(palette);
    };
    constexpr int window = 5;
    CDLG dialog;
    windows(Qt::red);
    EXPECT_EQ(dialog.CustomColor(window), 0x0000FF);
    windows(Qt::blue);
    EXPECT_EQ(dialog.CustomColor(window), 0x0000FF);
    QApplication::setPalette(before);
}

TEST(CustomColor, another_index_gives_minus_1_and_stores_nothing) {
    CDLG dialog;
    for (const Long index : {-1, 16, 1000000}) {
        dialog.CustomColor(index, 0x123456);
        EXPECT_EQ(dialog.CustomColor(index), -1);
    }
    for (int i = 0; i < 16; ++i) EXPECT_NE(dialog.CustomColor(i), 0x123456);
}

TEST(CustomColor, what_is_stored_before_the_first_use_stays_and_is_shown) {
    DialogRecorder dialogs;
    Call call;
    call.dialog.CustomColor(15, 0x563412);
    EXPECT_EQ(call.dialog.CustomColor(15), 0x563412);
    EXPECT_EQ(call.dialog.CustomColor(0), ToOleColor(SystemColor(0)));
    call.Run();
    EXPECT_EQ(dialogs.color.custom[15], QColor(0x12, 0x34, 0x56));
    EXPECT_EQ(dialogs.color.custom[0], SystemColor(0));
}

TEST(CustomColor, each_of_the_sixteen_can_be_picked_in_the_box) {
    for (int i = 0; i < 16; ++i) {
        Call call;
        for (int other = 0; other < 16; ++other) call.dialog.CustomColor(other, 0x010203 + other);
        ConfirmNext([i](QWidget& box) { PickCustom(box, i); });
        EXPECT_TRUE(call.Run());
        EXPECT_EQ(call.Color, 0x010203 + i);
        for (int other = 0; other < 16; ++other)
            EXPECT_EQ(call.dialog.CustomColor(other), 0x010203 + other);
    }
}

TEST(CustomColor, all_sixteen_come_back_from_the_box) {
    class Painter : public DialogRecorder {
        ColorAnswer PickColor(const ColorRequest& request) override {
            ColorAnswer answer = DialogRecorder::PickColor(request);
            for (int i = 0; i < 16; ++i)
                answer.custom[static_cast<std::size_t>(i)] = QColor(i, 1, 2);
            return answer;
        }
    } painter;
    Call call;
    call.Run();
    for (int i = 0; i < 16; ++i) EXPECT_EQ(call.dialog.CustomColor(i), 0x020100 + i);
}

TEST(CustomColor, the_dialog_of_another_object_over_this_one_leaves_them) {
    Call below;
    for (int i = 0; i < 16; ++i) below.dialog.CustomColor(i, 0x111111);
    CancelNext([](QWidget&) {
        Call above;
        for (int i = 0; i < 16; ++i) above.dialog.CustomColor(i, 0x222222);
        CancelNext();
        above.Run();
        EXPECT_EQ(above.dialog.CustomColor(0), 0x222222);
    });
    EXPECT_FALSE(below.Run());
    for (int i = 0; i < 16; ++i) EXPECT_EQ(below.dialog.CustomColor(i), 0x111111) << i;
}

TEST(CustomColor, what_the_user_adds_is_kept_after_a_cancel_too) {
    Call call;
    for (int i = 0; i < 16; ++i) call.dialog.CustomColor(i, 0);
    CancelNext([](QWidget& box) {
        TypeColor(box, "#0a0b0c");
        QTest::keyClick(&ButtonNamed(box, "Add to Custom Colors"), Qt::Key_Space);
    });
    EXPECT_FALSE(call.Run());
    int added = 0;
    for (int i = 0; i < 16; ++i) added += call.dialog.CustomColor(i) == 0x0C0B0A ? 1 : 0;
    EXPECT_EQ(added, 1);
}

}  // namespace tavel::test
