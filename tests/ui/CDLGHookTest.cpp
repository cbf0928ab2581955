#include "platform/Failure.h"
#include "ui/support/DialogRecorder.h"
#include "ui/support/PromptQueue.h"
#include "ui/toolkit/dialogs/CDLG.h"

#include <gtest/gtest.h>

#include <QVariant>
#include <QWidget>
#include <functional>
#include <limits>
#include <memory>

namespace tavel::test {

namespace {

const std::string nul(1, '\0');

class OpensProtected : public CDLG {
  public:
    using CDLG::FilterPiece;
    using CDLG::m_eventSink;
    using CDLG::RaiseDialogError;
    using CDLG::StrFromZ;
};

class SinkRecorder : public CDLG::EventSink {
  public:
    void InitDialog(QWidget& hDlg) override { Tell("InitDialog ", &hDlg); }
    void DialogClose() override { Tell("DialogClose "); }
    void TypeChange(QWidget& hDlg) override { Tell("TypeChange ", &hDlg); }
    bool ConfirmOK() override {
        Tell("ConfirmOK ");
        return confirms;
    }
    void FolderChange(QWidget& hDlg) override { Tell("FolderChange ", &hDlg); }
    void FileChange(QWidget& hDlg) override { Tell("FileChange ", &hDlg); }

    std::string told;
    const QWidget* dialog = nullptr;
    bool confirms = true;

  private:
    void Tell(const char* what, const QWidget* hDlg = nullptr) {
        told += what;
        dialog = hDlg;
    }
};

}  // namespace

TEST(FilterPiece, gives_the_pair_at_the_index) {
    const std::string form = "Zip" + nul + "*.zip" + nul + "Photo" + nul + "*.jpg" + nul + nul;
    EXPECT_EQ(OpensProtected::FilterPiece(form, 1), "Zip" + nul + "*.zip");
    EXPECT_EQ(OpensProtected::FilterPiece(form, 2), "Photo" + nul + "*.jpg");
    EXPECT_EQ(OpensProtected::FilterPiece(form, 3), nul) << "the end mark";
    EXPECT_EQ(OpensProtected::FilterPiece(form, 4), "");
    EXPECT_EQ(OpensProtected::FilterPiece(form, 0), "");
    EXPECT_EQ(OpensProtected::FilterPiece(form, std::numeric_limits<Long>::min()), "");
    EXPECT_EQ(OpensProtected::FilterPiece("", 1), "");
    EXPECT_EQ(OpensProtected::FilterPiece("no end", 1), "");
    EXPECT_EQ(OpensProtected::FilterPiece("a" + nul + "to the end", 1), "a" + nul + "to the end");
}

TEST(StrFromZ, cuts_at_the_first_NUL) {
    EXPECT_EQ(OpensProtected::StrFromZ("abc" + nul + "def"), "abc");
    EXPECT_EQ(OpensProtected::StrFromZ("abc"), "abc");
    EXPECT_EQ(OpensProtected::StrFromZ(nul), "");
}

TEST(RaiseDialogError, a_low_code_is_a_run_time_error_and_a_high_one_the_dialogs_own) {
    struct Case {
        Long code;
        Long number;
        const char* source;
    };
    for (const Case& one : {Case{5, 5, "Tavel.VBError"}, Case{1000, 1000, "Tavel.VBError"},
                            Case{1001, static_cast<Long>(0x800403E9), "Tavel.CommonDialog"}}) {
        try {
            OpensProtected::RaiseDialogError(one.code);
            ADD_FAILURE() << "nothing raised";
        } catch (const Failure& failure) {
            EXPECT_EQ(failure.Number(), one.number);
            EXPECT_EQ(failure.Source(), one.source);
        }
    }
}

TEST(DialogHook, tells_the_sink_what_each_message_stands_for) {
    struct Case {
        Long message;
        Long code;
        const char* told;
        bool withDialog = false;
    };
    for (const Case& one :
         {Case{272, 0, "InitDialog ", true}, Case{130, 0, "DialogClose "},
          Case{78, -607, "TypeChange ", true}, Case{78, -606, "ConfirmOK "}, Case{78, -605, ""},
          Case{78, -604, ""}, Case{78, -603, "FolderChange ", true},
          Case{78, -602, "FileChange ", true}, Case{1, -607, ""}}) {
        QWidget dialog;
        SinkRecorder sink;
        OpensProtected hook;
        hook.m_eventSink = &sink;
        const CDLG::NotifyHeader header{0, 0, one.code};
        EXPECT_EQ(hook.DialogHook(dialog, one.message, 0, &header), 0);
        EXPECT_EQ(sink.told, one.told) << one.message << " " << one.code;
        EXPECT_EQ(sink.dialog, one.withDialog ? &dialog : nullptr) << one.told;
    }
}

TEST(DialogHook, only_a_notification_needs_a_header) {
    QWidget dialog;
    SinkRecorder sink;
    OpensProtected hook;
    hook.m_eventSink = &sink;
    for (const Long message : {272, 130, 78})
        EXPECT_EQ(hook.DialogHook(dialog, message, 0, nullptr), 0);
    EXPECT_EQ(sink.told, "InitDialog DialogClose ");
}

TEST(DialogHook, a_ConfirmOK_that_is_refused_keeps_the_dialog_open) {
    const CDLG::NotifyHeader header{0, 0, -606};
    QWidget dialog;
    SinkRecorder sink;
    OpensProtected hook;
    hook.m_eventSink = &sink;
    sink.confirms = false;
    EXPECT_EQ(hook.DialogHook(dialog, 78, 0, &header), 1);
    EXPECT_EQ(dialog.property("DialogResult").toInt(), 1);
    sink.confirms = true;
    EXPECT_EQ(hook.DialogHook(dialog, 78, 0, &header), 0);
    EXPECT_EQ(dialog.property("DialogResult").toInt(), 0);
}

TEST(DialogHook, a_sink_may_delete_the_dialog_that_it_is_asked_about) {
    class Deletes : public SinkRecorder {
      public:
        explicit Deletes(QWidget* asking) : m_dialog(asking) {}
        bool ConfirmOK() override {
            m_dialog.reset();
            return true;
        }

      private:
        std::unique_ptr<QWidget> m_dialog;
    };
    auto* dialog = new QWidget;
    Deletes sink(dialog);
    OpensProtected hook;
    hook.m_eventSink = &sink;
    const CDLG::NotifyHeader header{0, 0, -606};
    EXPECT_EQ(hook.DialogHook(*dialog, 78, 0, &header), 0);
}

TEST(DialogHook, does_nothing_without_a_sink) {
    const CDLG::NotifyHeader header{0, 0, -606};
    QWidget dialog;
    CDLG hook;
    EXPECT_EQ(hook.DialogHook(dialog, 78, 0, &header), 0);
    EXPECT_FALSE(dialog.property("DialogResult").isValid());
}

namespace {

// Every call that brings a dialog up, each of which is cancelled unless a test says more.
class EveryCall : public ::testing::Test {
  protected:
    PromptQueue prompts;
    DialogRecorder dialogs;
    FileAnswer fileAnswer;
    SinkRecorder sink;
    OpensProtected dialog;
    const std::function<void()> calls[7] = {
        [this] {
            prompts.ExpectFileAnswer(QString(), fileAnswer);
            dialog.VBGetOpenFileName(name, fileTitle, true, false, readOnly, true, filter, index,
                                     "", "", "", nullptr, flags, true, &sink);
        },
        [this] {
            prompts.ExpectFileAnswer(QString(), fileAnswer);
            dialog.VBGetSaveFileName(name, fileTitle, true, filter, index, "", "", "", nullptr,
                                     flags, true, &sink);
        },
        [this] { dialog.VBChooseColor(color, false, false, false, nullptr, 0, true, &sink); },
        [this] { dialog.VBChooseFont(font, nullptr, nullptr, 0, 0, 0, true, &sink); },
        [this] {
            dialog.VBPrintDlg(range, false, from, to, false, copies, true, false, toFile, collate,
                              false, nullptr, nullptr, 0, true, &sink);
        },
        [this] {
            dialog.VBPageSetupDlg2(false, false, false, false, left, 0, right, 0, top, 0, bottom, 0,
                                   paper, across, quality, CDLG::PageUnits::Inches, nullptr,
                                   nullptr, 0, true, &sink);
        },
        [this] {
            dialog.VBPageSetupDlg(false, false, false, false, whole, 0, whole, 0, whole, 0, whole,
                                  0, paper, across, quality, CDLG::PageUnits::Inches, nullptr,
                                  nullptr, 0, true, &sink);
        }};

    void Answer(const DialogResult& answer) {
        for (DialogResult* each : std::initializer_list<DialogResult*>{
                 &fileAnswer, &dialogs.colorAnswer, &dialogs.fontAnswer, &dialogs.printAnswer,
                 &dialogs.pageAnswer})
            *each = answer;
    }

  private:
    std::string name, fileTitle, filter;
    bool readOnly = false, toFile = false, collate = false;
    Long index = 1, flags = 0, color = 0, from = 1, to = 1, paper = 0, across = 0, quality = 0;
    Long whole = 0;
    Integer copies = 1;
    double left = 0, right = 0, top = 0, bottom = 0;
    QFont font;
    CDLG::Range range = CDLG::Range::All;
};

}  // namespace

TEST_F(EveryCall, takes_the_sink_away) {
    for (const auto& call : calls) {
        dialog.m_eventSink = &sink;
        call();
        EXPECT_EQ(dialog.m_eventSink, nullptr);
        EXPECT_EQ(sink.told, "");
    }
    dialog.m_eventSink = &sink;
    EXPECT_EQ(CDLG::VBGetFileTitle("c:\\a.jpg"), "a.jpg");
    EXPECT_EQ(dialog.m_eventSink, &sink) << "is no dialog";
}

TEST_F(EveryCall, begins_with_the_results_of_the_last_one_cleared) {
    for (const auto& call : calls) {
        Answer({2, 0x3002});
        call();
        EXPECT_EQ(dialog.APIReturn(), 2);
        EXPECT_EQ(dialog.ExtendedError(), 0x3002);
        Answer({0, 0x3002});
        call();
        EXPECT_EQ(dialog.APIReturn(), 0);
        EXPECT_EQ(dialog.ExtendedError(), 0);
    }
}

}  // namespace tavel::test
