#include "ui/support/DialogRecorder.h"
#include "ui/support/FontCall.h"
#include "ui/support/Modal.h"
#include "ui/support/PromptQueue.h"
#include "ui/support/Windows.h"
#include "ui/toolkit/Strings.h"

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QDialog>
#include <QFontInfo>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPrinter>
#include <limits>

namespace tavel::test {

namespace {

using Call = FontCall;

template <class Control>
Control& Under(QWidget& box, const char* caption) {
    for (const QLabel* label : box.findChildren<QLabel*>()) {
        if (label->text().remove(QLatin1Char('&')) == QLatin1String(caption))
            return *qobject_cast<Control*>(label->buddy());
    }
    throw std::runtime_error(std::string("no label ") + caption);
}

QLineEdit& SizeBox(QWidget& box) { return Under<QLineEdit>(box, "Size"); }

// Types a size and confirms.
void TypeSize(QWidget& box, const char* size) {
    SizeBox(box).selectAll();
    QTest::keyClicks(&SizeBox(box), QLatin1String(size));
    QTest::keyClick(&SizeBox(box), Qt::Key_Return);
}

}  // namespace

TEST(VBChooseFont, a_typed_size_comes_back_with_the_font_that_it_began_with) {
    Call call;
    call.CurFont.setBold(true);
    WhenModal([](QWidget& box) {
        EXPECT_EQ(FromQString(SizeBox(box).text()), "12");
        TypeSize(box, "30");
    });
    EXPECT_TRUE(call.Run());
    EXPECT_EQ(call.CurFont.pointSize(), 30);
    EXPECT_TRUE(call.CurFont.bold());
    EXPECT_EQ(FromQString(call.CurFont.family()), "DejaVu Sans");
    EXPECT_EQ(call.dialog.APIReturn(), 1);
}

TEST(VBChooseFont, another_font_is_chosen_by_the_beginning_of_its_name) {
    Call call;
    WhenModal([](QWidget& box) {
        auto& list = *box.findChild<QListView*>();
        QTest::keyClicks(&list, QStringLiteral("DejaVu Serif"));
        QTest::keyClick(&SizeBox(box), Qt::Key_Return);
    });
    EXPECT_TRUE(call.Run());
    EXPECT_EQ(FromQString(call.CurFont.family()), "DejaVu Serif");
}

TEST(VBChooseFont, a_cancel_leaves_the_font_as_it_is) {
    Call call;
    const QFont before = call.CurFont;
    CancelNext([](QWidget& box) { SizeBox(box).setText(QStringLiteral("30")); });
    EXPECT_FALSE(call.Run());
    EXPECT_EQ(call.CurFont, before);
    EXPECT_EQ(call.dialog.APIReturn(), 0);
}

TEST(VBChooseFont, what_nobody_touches_comes_back_as_it_was) {
    for (const bool italic : {false, true}) {
        for (const bool bold : {false, true}) {
            Call call;
            call.CurFont.setItalic(italic);
            call.CurFont.setBold(bold);
            call.CurFont.setUnderline(italic);
            call.CurFont.setStrikeOut(bold);
            ConfirmNext();
            EXPECT_TRUE(call.Run());
            EXPECT_EQ(FromQString(call.CurFont.family()), "DejaVu Sans");
            EXPECT_EQ(call.CurFont.italic(), italic);
            EXPECT_EQ(call.CurFont.bold(), bold);
            EXPECT_EQ(call.CurFont.underline(), italic) << "though it is not offered";
            EXPECT_EQ(call.CurFont.strikeOut(), bold);
        }
    }
}

TEST(VBChooseFont, a_font_between_those_of_the_lists_stays_if_nobody_touches_it) {
    Call call;
    call.CurFont.setWeight(QFont::DemiBold);
    call.CurFont.setStretch(75);
    const QFont before = call.CurFont;
    ConfirmNext();
    EXPECT_TRUE(call.Run());
    EXPECT_EQ(call.CurFont, before);
}

TEST(VBChooseFont, an_effect_or_a_size_leaves_a_weight_between_those_of_the_list) {
    for (const bool sized : {false, true}) {
        Call call;
        call.CurFont.setWeight(QFont::DemiBold);
        call.CurFont.setStretch(75);
        call.flags = 0x100;
        WhenModal([sized](QWidget& box) {
            if (!sized) QTest::keyClick(box.findChild<QCheckBox*>(), Qt::Key_Space);
            TypeSize(box, sized ? "30" : "12");
        });
        EXPECT_TRUE(call.Run());
        EXPECT_EQ(call.CurFont.weight(), QFont::DemiBold);
        EXPECT_EQ(call.CurFont.stretch(), 75);
        EXPECT_EQ(call.CurFont.pointSize(), sized ? 30 : 12);
        EXPECT_EQ(call.CurFont.strikeOut(), !sized);
    }
}

TEST(VBChooseFont, a_style_that_weight_and_slant_do_not_tell_comes_back_by_its_name) {
    Call call;
    WhenModal([](QWidget& box) {
        QTest::keyClicks(&Under<QListView>(box, "Font style"), QStringLiteral("Condensed Oblique"));
        QTest::keyClick(&SizeBox(box), Qt::Key_Return);
    });
    EXPECT_TRUE(call.Run());
    EXPECT_EQ(FromQString(QFontInfo(call.CurFont).styleName()), "Condensed Oblique");
}

TEST(VBChooseFont, a_size_that_is_typed_as_it_is_shown_has_no_fraction) {
    Call call;
    call.CurFont.setPointSizeF(20.4);
    call.MaxSize = 20;
    WhenModal([](QWidget& box) { TypeSize(box, "20"); });
    EXPECT_TRUE(call.Run());
    EXPECT_EQ(call.CurFont.pointSizeF(), 20);
}

TEST(VBChooseFont, a_size_that_nobody_touches_keeps_its_fraction) {
    Call call;
    call.CurFont.setPointSizeF(8.25);
    ConfirmNext();
    EXPECT_TRUE(call.Run());
    EXPECT_EQ(call.CurFont.pointSizeF(), 8.25);
}

TEST(VBChooseFont, a_size_in_pixels_that_nobody_touches_stays_one) {
    for (const bool touched : {false, true}) {
        Call call;
        call.CurFont.setPixelSize(21);
        call.flags = 0x100;
        ConfirmNext([touched](QWidget& box) {
            if (touched) QTest::keyClick(box.findChild<QCheckBox*>(), Qt::Key_Space);
        });
        EXPECT_TRUE(call.Run());
        EXPECT_EQ(call.CurFont.pixelSize(), 21);
        EXPECT_EQ(call.CurFont.strikeOut(), touched);
    }
}

TEST(VBChooseFont, a_size_in_pixels_counts_against_the_limits) {
    PromptQueue prompts;
    Call call;
    call.CurFont.setPixelSize(40);
    call.MaxSize = 20;
    WhenModal([&](QWidget& box) {
        prompts.ExpectMsgBox(QStringLiteral("The size must be between 1 and 20 points."),
                             MsgBoxButtons::OK, MsgBoxAnswer::OK, box.windowTitle());
        TypeSize(box, FromQString(SizeBox(box).text()).c_str());
        EXPECT_TRUE(box.isVisible());
        TypeSize(box, "20");
    });
    EXPECT_TRUE(call.Run());
    EXPECT_EQ(call.CurFont.pointSize(), 20);
}

TEST(VBChooseFont, a_font_that_was_chosen_may_be_made_bold_before_the_next_call) {
    Call call;
    WhenModal([](QWidget& box) { TypeSize(box, "30"); });
    EXPECT_TRUE(call.Run());
    call.CurFont.setBold(true);
    call.CurFont.setItalic(true);
    WhenModal([](QWidget& box) { TypeSize(box, "31"); });
    EXPECT_TRUE(call.Run());
    EXPECT_TRUE(call.CurFont.bold());
    EXPECT_TRUE(call.CurFont.italic());
    EXPECT_EQ(call.CurFont.pointSize(), 31);
}

TEST(VBChooseFont, a_size_outside_of_the_limits_is_not_taken) {
    struct Case {
        Long least;
        Long most;
        const char* refused;
        const char* taken;
        const char* told;
    };
    for (const Case& one : {Case{10, 20, "9", "10", "The size must be between 10 and 20 points."},
                            Case{10, 20, "21", "20", "The size must be between 10 and 20 points."},
                            Case{10, 0, "9", "400", "The size must be at least 10 points."},
                            Case{0, 20, "21", "1", "The size must be between 1 and 20 points."}}) {
        PromptQueue prompts;
        Call call;
        call.MinSize = one.least;
        call.MaxSize = one.most;
        WhenModal([&](QWidget& box) {
            prompts.ExpectMsgBox(QLatin1String(one.told), MsgBoxButtons::OK, MsgBoxAnswer::OK,
                                 box.windowTitle());
            TypeSize(box, one.refused);
            EXPECT_TRUE(box.isVisible());
            TypeSize(box, one.taken);
        });
        EXPECT_TRUE(call.Run());
        EXPECT_EQ(std::to_string(call.CurFont.pointSize()), one.taken);
    }
}

TEST(VBChooseFont, a_fraction_counts_against_the_limits) {
    PromptQueue prompts;
    Call call;
    call.CurFont.setPointSizeF(20.4);
    call.MaxSize = 20;
    WhenModal([&](QWidget& box) {
        prompts.ExpectMsgBox(QStringLiteral("The size must be between 1 and 20 points."),
                             MsgBoxButtons::OK, MsgBoxAnswer::OK, box.windowTitle());
        QTest::keyClick(&SizeBox(box), Qt::Key_Return);
        EXPECT_TRUE(box.isVisible());
        QTest::keyClick(&box, Qt::Key_Escape);
    });
    EXPECT_FALSE(call.Run());
}

TEST(VBChooseFont, limits_that_allow_no_size_fail_without_a_box) {
    Call call;
    call.MinSize = 20;
    call.MaxSize = 10;
    bool shown = false;
    CancelNext([&shown](QWidget&) { shown = true; });
    EXPECT_FALSE(call.Run());
    EXPECT_FALSE(shown);
    EXPECT_EQ(call.dialog.ExtendedError(), 0);
    Call next;  // whose box is the one that was waited for
    if (!shown) next.Run();
    EXPECT_TRUE(shown);
}

TEST(VBChooseFont, a_limit_below_0_is_none) {
    DialogRecorder dialogs;
    Call call;
    call.MinSize = -3;
    call.MaxSize = std::numeric_limits<Long>::min();
    call.Run();
    EXPECT_EQ(dialogs.font.minSize, 0);
    EXPECT_EQ(dialogs.font.maxSize, 0);
    EXPECT_EQ(dialogs.font.flags, 0x40 | 0x1);
}

TEST(VBChooseFont, effects_are_offered_where_the_flags_ask_for_them) {
    for (const bool offered : {false, true}) {
        Call call;
        call.flags = offered ? 0x100 : 0;
        ConfirmNext([offered](QWidget& box) {
            const auto ticks = box.findChildren<QCheckBox*>();
            EXPECT_EQ(ticks.size(), 2);
            for (QCheckBox* tick : ticks) {
                EXPECT_EQ(tick->isVisible(), offered);
                if (offered) QTest::keyClick(tick, Qt::Key_Space);
            }
        });
        EXPECT_TRUE(call.Run());
        EXPECT_EQ(call.CurFont.underline(), offered);
        EXPECT_EQ(call.CurFont.strikeOut(), offered);
    }
}

TEST(VBChooseFont, the_list_holds_the_fonts_that_are_asked_for) {
    const QStringList all = FamiliesOf({});
    EXPECT_TRUE(all.contains(QStringLiteral("DejaVu Sans")));
    EXPECT_TRUE(all.contains(QStringLiteral("DejaVu Sans Mono")));
    Call oneWidth;
    oneWidth.flags = 0x4000;
    const QStringList mono = FamiliesOf(oneWidth);
    EXPECT_FALSE(mono.contains(QStringLiteral("DejaVu Sans")));
    EXPECT_TRUE(mono.contains(QStringLiteral("DejaVu Sans Mono")));
}

TEST(VBChooseFont, the_flags_say_what_the_arguments_say_and_never_hook_or_template) {
    DialogRecorder dialogs;
    Call call;
    call.flags = 0x8 | 0x10 | 0x20 | 0x4;
    call.Run();
    EXPECT_EQ(dialogs.font.flags, 0x40 | 0x1 | 0x4);
    const QPrinter printer;
    call.PrinterDC = &printer;
    call.MinSize = 8;
    call.flags = 0;
    call.Run();
    EXPECT_EQ(dialogs.font.flags, 0x40 | 0x2 | 0x2000);
    call.MaxSize = 14;
    call.Run();
    EXPECT_EQ(dialogs.font.flags, 0x40 | 0x2 | 0x2000);
    EXPECT_EQ(dialogs.font.minSize, 8);
    EXPECT_EQ(dialogs.font.maxSize, 14);
}

TEST(VBChooseFont, a_failure_leaves_the_font_as_it_is) {
    DialogRecorder dialogs;
    dialogs.fontAnswer.result = 2;
    dialogs.fontAnswer.error = 0x2001;
    Call call;
    const QFont before = call.CurFont;
    EXPECT_FALSE(call.Run());
    EXPECT_EQ(call.CurFont, before);
    EXPECT_EQ(call.dialog.ExtendedError(), 0x2001);
}

TEST(VBChooseFont, an_owner_may_go_while_the_box_tells_a_limit) {
    const RealPrompts real;
    auto* owner = new QWidget;
    Call call;
    call.Owner = owner;
    call.MaxSize = 20;
    WhenModal([owner](QWidget& box) {
        SizeBox(box).setText(QStringLiteral("30"));
        WhenModalOver(
            box, [&box] { static_cast<QDialog&>(box).accept(); },
            [owner](QWidget&) { delete owner; });
    });
    EXPECT_FALSE(call.Run());
}

TEST(VBChooseFont, the_box_belongs_to_its_owner_and_outlives_it) {
    Call call;
    ExpectCancelWithItsOwner(call);
}

}  // namespace tavel::test
