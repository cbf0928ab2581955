#include "core/PublicStuff.h"
#include "support/Support.h"
#include "ui/support/PromptQueue.h"
#include "ui/toolkit/CDLG.h"
#include "ui/toolkit/Strings.h"

#include <gtest/gtest.h>

#include <QWidget>

namespace tavel::test {

namespace {

const std::string nul(1, '\0');

// One call with the arguments that the main window gives, each to be changed by a test.
struct Call {
    std::string Filename;
    std::string FileTitle;
    bool FileMustExist = true;
    bool MultiSelect = true;
    bool ReadOnly = false;
    bool HideReadOnly = true;
    std::string Filter = "Zip Files (*.zip)|*.zip|Photo Files|*.jpg;*.png;";
    Long FilterIndex = 1;
    std::string InitDir;
    std::string DefaultExt;
    Long flags = 0x280000;
    CDLG dialog;

    bool Run() {
        return dialog.VBGetOpenFileName(Filename, FileTitle, FileMustExist, MultiSelect, ReadOnly,
                                        HideReadOnly, Filter, FilterIndex, InitDir,
                                        "Select file(s) to add", DefaultExt, nullptr, flags);
    }
};

class OpensProtected : public CDLG {
  public:
    using CDLG::FilterPiece;
    using CDLG::m_eventSink;
    using CDLG::RaiseDialogError;
    using CDLG::StrFromZ;
};

const QString title = QStringLiteral("Select file(s) to add");

std::string Padded(const std::string& text) { return text + std::string(460 - text.size(), '\0'); }

}  // namespace

TEST(VBGetOpenFileName, a_single_file_is_its_path_in_a_buffer_of_460_characters) {
    PromptQueue prompts;
    prompts.ExpectFiles(title, {QStringLiteral("/media/a b.JPG")}, 1);
    Call call;
    EXPECT_TRUE(call.Run());
    EXPECT_EQ(call.Filename, Padded("c:\\media\\a b.JPG"));
    EXPECT_EQ(call.FileTitle, "a b.JPG");
    EXPECT_EQ(call.FilterIndex, 2);
    EXPECT_EQ(call.Filter, "Photo Files" + nul + "*.jpg;*.png;");
    EXPECT_EQ(call.dialog.APIReturn(), 1);
    EXPECT_EQ(call.dialog.ExtendedError(), 0);
}

TEST(VBGetOpenFileName, several_files_are_the_folder_and_the_names_each_ending_in_a_NUL) {
    PromptQueue prompts;
    prompts.ExpectFiles(title, {QStringLiteral("/media/a.jpg"), QStringLiteral("/media/b.jpg")});
    Call call;
    EXPECT_TRUE(call.Run());
    EXPECT_EQ(call.Filename, Padded("c:\\media" + nul + "a.jpg" + nul + "b.jpg"));
    EXPECT_EQ(call.FileTitle, "");
    EXPECT_EQ(call.FilterIndex, 1);
    EXPECT_EQ(call.Filter, "Zip Files (*.zip)" + nul + "*.zip");
}

TEST(VBGetOpenFileName, a_cancel_empties_everything) {
    PromptQueue prompts;
    prompts.ExpectFiles(title, {});
    Call call;
    call.Filename = "c:\\old.jpg";
    call.FileTitle = "old.jpg";
    EXPECT_FALSE(call.Run());
    EXPECT_EQ(call.Filename, "");
    EXPECT_EQ(call.FileTitle, "");
    EXPECT_EQ(call.Filter, "");
    EXPECT_EQ(call.FilterIndex, -1);
    EXPECT_EQ(call.flags, 0);
    EXPECT_EQ(call.dialog.APIReturn(), 0);
}

TEST(VBGetOpenFileName, a_failure_looks_like_a_cancel_and_leaves_the_extended_error_0) {
    PromptQueue prompts;
    FileAnswer failed;
    failed.error = 0x3002;
    prompts.ExpectFileAnswer(title, failed);
    Call call;
    EXPECT_FALSE(call.Run());
    EXPECT_EQ(call.dialog.APIReturn(), 0);
    EXPECT_EQ(call.dialog.ExtendedError(), 0);
}

TEST(VBGetOpenFileName, a_result_that_is_neither_0_nor_1_tells_the_extended_error) {
    PromptQueue prompts;
    FileAnswer failed;
    failed.result = 2;
    failed.error = 0x3002;
    prompts.ExpectFileAnswer(title, failed);
    Call call;
    EXPECT_FALSE(call.Run());
    EXPECT_EQ(call.dialog.ExtendedError(), 0x3002);
    EXPECT_EQ(call.FilterIndex, -1);
    prompts.ExpectFiles(title, {});
    call.Run();
    EXPECT_EQ(call.dialog.ExtendedError(), 0) << "holds until the next call";
}

TEST(VBGetOpenFileName, a_selection_beyond_the_buffer_acts_as_a_cancel) {
    struct Case {
        int length;  // of the host path of a single file
        bool fits;
    };
    // "c:" comes in front of the host path, and a NUL behind it.
    for (const Case& one : {Case{457, true}, Case{458, false}, Case{5000, false}}) {
        PromptQueue prompts;
        prompts.ExpectFiles(title, {QLatin1Char('/') + QString(one.length - 1, QLatin1Char('x'))});
        Call call;
        EXPECT_EQ(call.Run(), one.fits) << one.length;
        EXPECT_EQ(call.Filename.size(), one.fits ? 460U : 0U) << one.length;
    }
}

TEST(VBGetOpenFileName, several_files_need_room_for_the_end_mark_of_the_list) {
    for (const bool fits : {true, false}) {
        PromptQueue prompts;
        const QString second(fits ? 451 : 452, QLatin1Char('x'));
        prompts.ExpectFiles(title, {QStringLiteral("/m/a"), QStringLiteral("/m/") + second});
        Call call;
        EXPECT_EQ(call.Run(), fits);
    }
}

TEST(VBGetOpenFileName, a_name_or_title_beyond_460_characters_fails_with_5) {
    PromptQueue prompts;
    Call longName;
    longName.Filename = std::string(461, 'x');
    EXPECT_EQ(FailureOf([&] { longName.Run(); }), 5);
    Call longTitle;
    longTitle.FileTitle = std::string(461, 'x');
    EXPECT_EQ(FailureOf([&] { longTitle.Run(); }), 5);

    prompts.ExpectFiles(title, {});
    Call full;
    full.Filename = std::string(460, 'x');
    EXPECT_EQ(FailureOf([&] { full.Run(); }), 0);
}

TEST(VBGetOpenFileName, a_colon_parts_the_filter_as_a_bar_does) {
    PromptQueue prompts;
    prompts.ExpectFiles(title, {QStringLiteral("/a.jpg")}, 1);
    Call call;
    call.Filter = "Photos: small|*.jpg|Music|*.mp3";
    EXPECT_TRUE(call.Run());
    const FileRequest& asked = prompts.LastFileRequest();
    EXPECT_EQ(asked.descriptions, QStringList({QStringLiteral("Photos"), QStringLiteral("*.jpg"),
                                               QStringLiteral("*.mp3")}));
    EXPECT_EQ(asked.patterns,
              QStringList({QStringLiteral(" small"), QStringLiteral("Music"), QString()}));
    EXPECT_EQ(call.Filter, "*.jpg" + nul + "Music");
}

TEST(VBGetOpenFileName, asks_with_all_that_it_was_given) {
    PromptQueue prompts;
    prompts.ExpectFiles(title, {});
    const TempFolder folder;
    Call call;
    call.Filename = "start.jpg";
    call.FilterIndex = 2;
    call.InitDir = folder.DrivePath("");
    call.DefaultExt = "jpg";
    call.Run();
    const FileRequest& asked = prompts.LastFileRequest();
    EXPECT_EQ(FromQString(asked.startName), "start.jpg");
    EXPECT_EQ(FromQString(asked.startFolder), folder.HostPath());
    EXPECT_EQ(FromQString(asked.defaultSuffix), "jpg");
    EXPECT_EQ(asked.filterIndex, 1);
    EXPECT_EQ(asked.patterns.size(), 2);
    EXPECT_TRUE(asked.mustExist);
    EXPECT_TRUE(asked.multiSelect);
    EXPECT_FALSE(asked.showReadOnly);
}

TEST(VBGetOpenFileName, the_flags_say_what_the_booleans_say) {
    PromptQueue prompts;
    prompts.ExpectFiles(title, {QStringLiteral("/a")});
    Call call;
    call.flags = 0x280000 | 0x20 | 0x40;
    call.ReadOnly = true;
    EXPECT_TRUE(call.Run());
    EXPECT_EQ(call.flags, 0x281204) << "neither hook nor template, and the tick is the user's";
    EXPECT_TRUE(call.ReadOnly) << "never taken back";
}

TEST(VBGetOpenFileName, a_flag_does_what_its_boolean_does) {
    PromptQueue prompts;
    prompts.ExpectFiles(title, {});
    Call call;
    call.FileMustExist = call.MultiSelect = call.HideReadOnly = false;
    call.flags = 0x1000 | 0x200 | 0x1;
    call.Run();
    EXPECT_TRUE(prompts.LastFileRequest().mustExist);
    EXPECT_TRUE(prompts.LastFileRequest().multiSelect);
    EXPECT_TRUE(prompts.LastFileRequest().showReadOnly);
    EXPECT_TRUE(prompts.LastFileRequest().readOnly);
}

TEST(VBGetOpenFileName, a_tick_in_the_read_only_box_comes_back) {
    PromptQueue prompts;
    FileAnswer ticked;
    ticked.result = 1;
    ticked.files = QStringList{QStringLiteral("/a")};
    ticked.readOnly = true;
    prompts.ExpectFileAnswer(title, ticked);
    Call call;
    call.HideReadOnly = false;
    EXPECT_TRUE(call.Run());
    EXPECT_TRUE(call.ReadOnly);
    EXPECT_EQ(call.flags & 1, 1);
}

TEST(FilterPiece, gives_the_pair_at_the_index) {
    const std::string form = "Zip" + nul + "*.zip" + nul + "Photo" + nul + "*.jpg" + nul + nul;
    EXPECT_EQ(OpensProtected::FilterPiece(form, 1), "Zip" + nul + "*.zip");
    EXPECT_EQ(OpensProtected::FilterPiece(form, 2), "Photo" + nul + "*.jpg");
    EXPECT_EQ(OpensProtected::FilterPiece(form, 3), nul) << "the end mark";
    EXPECT_EQ(OpensProtected::FilterPiece(form, 4), "");
    EXPECT_EQ(OpensProtected::FilterPiece(form, 0), "");
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

namespace {

class SinkRecorder : public CDLG::EventSink {
  public:
    void InitDialog(QWidget&) override { told += "InitDialog "; }
    void DialogClose() override { told += "DialogClose "; }
    void TypeChange(QWidget&) override { told += "TypeChange "; }
    bool ConfirmOK() override {
        told += "ConfirmOK ";
        return confirms;
    }
    void FolderChange(QWidget&) override { told += "FolderChange "; }
    void FileChange(QWidget&) override { told += "FileChange "; }

    std::string told;
    bool confirms = true;
};

}  // namespace

TEST(DialogHook, tells_the_sink_what_each_message_stands_for) {
    struct Case {
        Long message;
        Long code;
        const char* told;
    };
    for (const Case& one :
         {Case{272, 0, "InitDialog "}, Case{130, 0, "DialogClose "}, Case{78, -607, "TypeChange "},
          Case{78, -606, "ConfirmOK "}, Case{78, -605, ""}, Case{78, -604, ""},
          Case{78, -603, "FolderChange "}, Case{78, -602, "FileChange "}, Case{1, -607, ""}}) {
        QWidget dialog;
        SinkRecorder sink;
        OpensProtected hook;
        hook.m_eventSink = &sink;
        const CDLG::NotifyHeader header{0, 0, one.code};
        EXPECT_EQ(hook.DialogHook(dialog, one.message, 0, &header), 0);
        EXPECT_EQ(sink.told, one.told) << one.message << " " << one.code;
    }
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

TEST(DialogHook, does_nothing_without_a_sink) {
    const CDLG::NotifyHeader header{0, 0, -606};
    QWidget dialog;
    CDLG hook;
    EXPECT_EQ(hook.DialogHook(dialog, 78, 0, &header), 0);
    EXPECT_FALSE(dialog.property("DialogResult").isValid());
}

TEST(DialogHook, a_call_takes_the_sink_away) {
    PromptQueue prompts;
    prompts.ExpectFiles(QString(), {});
    SinkRecorder sink;
    OpensProtected dialog;
    dialog.m_eventSink = &sink;
    std::string name, fileTitle, filter;
    bool readOnly = false;
    Long index = 1, flags = 0;
    dialog.VBGetOpenFileName(name, fileTitle, true, false, readOnly, true, filter, index, "", "",
                             "", nullptr, flags, true, &sink);
    EXPECT_EQ(dialog.m_eventSink, nullptr);
    EXPECT_EQ(sink.told, "");
}

}  // namespace tavel::test
