#include "core/PublicStuff.h"
#include "support/Support.h"
#include "ui/support/AsHostTells.h"
#include "ui/support/PromptQueue.h"
#include "ui/toolkit/Strings.h"
#include "ui/toolkit/dialogs/CDLG.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QWidget>
#include <limits>

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
    QWidget* Owner = nullptr;
    Long flags = 0x280000;
    CDLG dialog;

    bool Run() {
        return dialog.VBGetOpenFileName(Filename, FileTitle, FileMustExist, MultiSelect, ReadOnly,
                                        HideReadOnly, Filter, FilterIndex, InitDir,
                                        "Select file(s) to add", DefaultExt, Owner, flags);
    }
};

const QString title = QStringLiteral("Select file(s) to add");

// A path of the host to what lies on c:.
QString OnHost(const char* path) { return QDir::rootPath() + QLatin1String(path); }

// A call that ends without a choice, whatever was in its arguments before.
void ExpectNothingChosen(Call& call, Long apiReturn = 0, Long extendedError = 0) {
    call.Filename = "c:\\old.jpg";
    call.FileTitle = "old.jpg";
    EXPECT_FALSE(call.Run());
    EXPECT_EQ(call.Filename, "");
    EXPECT_EQ(call.FileTitle, "");
    EXPECT_EQ(call.Filter, "");
    EXPECT_EQ(call.FilterIndex, -1);
    EXPECT_EQ(call.flags, 0);
    EXPECT_EQ(call.dialog.APIReturn(), apiReturn);
    EXPECT_EQ(call.dialog.ExtendedError(), extendedError);
}
void ExpectNothingChosen(Call&& call) { ExpectNothingChosen(call); }

std::string Padded(const std::string& text) { return text + std::string(460 - text.size(), '\0'); }

// Neither an answer nor a cancel, with the reason.
FileAnswer FailedAnswer() {
    FileAnswer failed;
    failed.result = 2;
    failed.error = 0x3002;
    return failed;
}

}  // namespace

TEST(VBGetOpenFileName, a_single_file_is_its_path_in_a_buffer_of_460_characters) {
    PromptQueue prompts;
    prompts.ExpectFiles(title, {OnHost("media/a b.JPG")}, 1);
    Call call;
    EXPECT_TRUE(call.Run());
    EXPECT_EQ(call.Filename, Padded("c:\\media\\a b.JPG"));
    EXPECT_EQ(call.FileTitle, "a b.JPG");
    EXPECT_EQ(call.FilterIndex, 2);
    EXPECT_EQ(call.Filter, "Photo Files" + nul + "*.jpg;*.png;");
    EXPECT_FALSE(call.ReadOnly) << "the user has not ticked it";
    EXPECT_EQ(call.dialog.APIReturn(), 1);
    EXPECT_EQ(call.dialog.ExtendedError(), 0);
}

TEST(VBGetOpenFileName, several_files_are_the_folder_and_the_names_each_ending_in_a_NUL) {
    PromptQueue prompts;
    prompts.ExpectFiles(title, {OnHost("media/a.jpg"), OnHost("media/b.jpg")});
    Call call;
    EXPECT_TRUE(call.Run());
    EXPECT_EQ(call.Filename, Padded("c:\\media" + nul + "a.jpg" + nul + "b.jpg"));
    EXPECT_EQ(call.FileTitle, "");
    EXPECT_EQ(call.FilterIndex, 1);
    EXPECT_EQ(call.Filter, "Zip Files (*.zip)" + nul + "*.zip");

    prompts.ExpectFiles(title, {OnHost("a.jpg"), OnHost("b.jpg")});
    Call root;
    EXPECT_TRUE(root.Run());
    EXPECT_EQ(root.Filename, Padded("c:\\" + nul + "a.jpg" + nul + "b.jpg"));
}

TEST(VBGetOpenFileName, a_cancel_empties_everything) {
    PromptQueue prompts;
    prompts.ExpectFiles(title, {});
    ExpectNothingChosen(Call());
}

TEST(VBGetOpenFileName, a_failure_looks_like_a_cancel_and_leaves_the_extended_error_0) {
    PromptQueue prompts;
    FileAnswer failed;
    failed.error = 0x3002;
    prompts.ExpectFileAnswer(title, failed);
    ExpectNothingChosen(Call());
}

TEST(VBGetOpenFileName, a_result_that_is_neither_0_nor_1_tells_the_extended_error) {
    PromptQueue prompts;
    prompts.ExpectFileAnswer(title, FailedAnswer());
    Call call;
    ExpectNothingChosen(call, 2, 0x3002);
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
        prompts.ExpectFiles(title, {QDir::rootPath() + QString(one.length - 1, QLatin1Char('x'))});
        Call call;
        if (!one.fits) {
            ExpectNothingChosen(call);
            continue;
        }
        EXPECT_TRUE(call.Run()) << one.length;
        EXPECT_EQ(call.Filename.size(), 460U) << one.length;
    }
}

TEST(VBGetOpenFileName, a_letter_beyond_ASCII_takes_no_more_room_than_any_other) {
    const QString name = QString(21, QChar(0x0416));
    // "c:\m" with its NUL, the names with theirs, the end of the list.
    const int room = (460 - 5 - 1) / 22;
    for (const int count : {room, room + 1}) {
        PromptQueue prompts;
        QStringList files;
        for (int i = 0; i < count; ++i) files << OnHost("m/") + name;
        prompts.ExpectFiles(title, files);
        Call call;
        EXPECT_EQ(call.Run(), count == room);
        if (count == room) {
            EXPECT_EQ(Characters(call.Filename).size(), 460U);
        }
    }
    PromptQueue prompts;
    prompts.ExpectFiles(title, {});
    Call call;
    for (int i = 0; i < 460; ++i) call.Filename += "\xD0\x96";
    EXPECT_EQ(FailureOf([&] { call.Run(); }), 0);
}

TEST(VBGetOpenFileName, several_files_need_room_for_the_end_mark_of_the_list) {
    for (const bool fits : {true, false}) {
        PromptQueue prompts;
        const QString second(fits ? 451 : 452, QLatin1Char('x'));
        prompts.ExpectFiles(title, {OnHost("m/a"), OnHost("m/") + second});
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
    longTitle.Filename = "a.jpg";
    longTitle.FileTitle = std::string(461, 'x');
    EXPECT_EQ(FailureOf([&] { longTitle.Run(); }), 5);
    EXPECT_EQ(longTitle.Filename, "a.jpg") << "nothing is changed";

    prompts.ExpectFiles(title, {});
    Call full;
    full.Filename = std::string(460, 'x');
    EXPECT_EQ(FailureOf([&] { full.Run(); }), 0);
}

TEST(VBGetOpenFileName, a_call_begins_with_the_results_of_the_last_one_cleared) {
    PromptQueue prompts;
    prompts.ExpectFileAnswer(title, FailedAnswer());
    Call call;
    EXPECT_FALSE(call.Run());
    call.Filename = std::string(461, 'x');
    EXPECT_EQ(FailureOf([&] { call.Run(); }), 5);
    EXPECT_EQ(call.dialog.APIReturn(), 0);
    EXPECT_EQ(call.dialog.ExtendedError(), 0);
}

TEST(VBGetOpenFileName, a_colon_parts_the_filter_as_a_bar_does) {
    PromptQueue prompts;
    prompts.ExpectFiles(title, {OnHost("a.jpg")}, 1);
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

TEST(VBGetOpenFileName, the_filter_ends_in_an_end_mark_behind_its_last_NUL) {
    PromptQueue prompts;
    prompts.ExpectFiles(title, {OnHost("a.zip")}, 1);
    Call call;
    call.Filter = "Zip Files (*.zip)|*.zip";
    EXPECT_TRUE(call.Run());
    EXPECT_EQ(prompts.LastFileRequest().patterns, QStringList(QStringLiteral("*.zip")));
    EXPECT_EQ(call.Filter, nul) << "behind the only pair";
}

TEST(VBGetOpenFileName, asks_with_all_that_it_was_given) {
    PromptQueue prompts;
    prompts.ExpectFiles(title, {});
    const TempFolder folder;
    QWidget owner;
    Call call;
    call.Owner = &owner;
    call.Filename = "start.jpg";
    call.FilterIndex = 2;
    call.InitDir = folder.DrivePath("");
    call.DefaultExt = "jpg";
    call.Run();
    const FileRequest& asked = prompts.LastFileRequest();
    EXPECT_EQ(asked.owner, &owner);
    EXPECT_FALSE(asked.saving);
    EXPECT_EQ(FromQString(asked.startName), "start.jpg");
    EXPECT_EQ(asked.startFolder, AsHostTells(folder.HostPath()));
    EXPECT_EQ(FromQString(asked.defaultSuffix), "jpg");
    EXPECT_EQ(asked.filterIndex, 1);
    EXPECT_EQ(asked.patterns.size(), 2);
    EXPECT_TRUE(asked.Has(PickFileMustExist));
    EXPECT_TRUE(asked.Has(PickMultiSelect));
    EXPECT_TRUE(asked.Has(PickHideReadOnly));
}

TEST(VBGetOpenFileName, asks_for_nothing_that_it_was_not_given) {
    PromptQueue prompts;
    prompts.ExpectFiles(title, {});
    Call call;
    call.Run();
    const FileRequest& asked = prompts.LastFileRequest();
    EXPECT_EQ(asked.owner, nullptr);
    EXPECT_EQ(asked.startName, QString());
    EXPECT_EQ(asked.startFolder, QString());
    EXPECT_EQ(asked.defaultSuffix, QString());
}

TEST(VBGetOpenFileName, another_extension_than_the_default_one_is_told) {
    for (const char* ext : {"jpg", "JPG", ".jpg", ".png", "jpeg"}) {
        PromptQueue prompts;
        prompts.ExpectFiles(title, {OnHost("a.jpg")});
        Call call;
        call.DefaultExt = ext;
        EXPECT_TRUE(call.Run());
        const std::string given = ext;
        EXPECT_EQ((call.flags & 0x400) != 0, given == ".png" || given == "jpeg") << ext;
    }
}

TEST(VBGetOpenFileName, an_index_that_stands_for_no_pair_asks_for_none) {
    for (const Long index : {0, -1, -7, std::numeric_limits<Long>::min()}) {
        PromptQueue prompts;
        prompts.ExpectFiles(title, {});
        Call call;
        call.FilterIndex = index;
        call.Run();
        EXPECT_EQ(prompts.LastFileRequest().filterIndex, -1) << index;
    }
}

TEST(VBGetOpenFileName, an_initial_path_is_asked_for_as_the_hosts_own) {
    PromptQueue prompts;
    const TempFolder folder;
    folder.Write("Trip/a.jpg", "");
    Call call;
    for (const char* name : {"Trip\\a.jpg", "Trip\\new.jpg"}) {
        prompts.ExpectFiles(title, {QString::fromStdString(folder.HostPath("Trip/a.jpg"))});
        call.Filename = folder.DrivePath(name);
        call.FilterIndex = 1;
        EXPECT_TRUE(call.Run());
        EXPECT_EQ(prompts.LastFileRequest().startName,
                  AsHostTells(folder.HostPath("Trip/") + std::string(name).substr(5)));
    }
    // What a call has left in the variable is the next one's initial name.
    prompts.ExpectFiles(title, {});
    call.Run();
    EXPECT_EQ(prompts.LastFileRequest().startName, AsHostTells(folder.HostPath("Trip/a.jpg")));
}

TEST(VBGetOpenFileName, the_flags_say_what_the_booleans_say) {
    PromptQueue prompts;
    prompts.ExpectFiles(title, {OnHost("a")});
    Call call;
    call.flags = 0x280000 | 0x20 | 0x40;
    call.ReadOnly = true;
    EXPECT_TRUE(call.Run());
    EXPECT_EQ(prompts.LastFileRequest().flags, 0x281205);
    EXPECT_EQ(call.flags, 0x281204) << "neither hook nor template, and the tick is the user's";
    EXPECT_TRUE(call.ReadOnly) << "never taken back";

    prompts.ExpectFiles(title, {OnHost("a")});
    Call bare;
    bare.FileMustExist = bare.MultiSelect = bare.HideReadOnly = false;
    bare.flags = 0x280000 | 0x400;  // what only a dialog tells
    EXPECT_TRUE(bare.Run());
    EXPECT_FALSE(prompts.LastFileRequest().Has(PickFileMustExist));
    EXPECT_FALSE(prompts.LastFileRequest().Has(PickMultiSelect));
    EXPECT_FALSE(prompts.LastFileRequest().Has(PickReadOnly));
    EXPECT_EQ(bare.flags, 0x280000);
}

TEST(VBGetOpenFileName, a_flag_does_what_its_boolean_does) {
    PromptQueue prompts;
    prompts.ExpectFiles(title, {});
    Call call;
    call.FileMustExist = call.MultiSelect = call.HideReadOnly = false;
    call.flags = 0x1000 | 0x200 | 0x1;
    call.Run();
    EXPECT_TRUE(prompts.LastFileRequest().Has(PickFileMustExist));
    EXPECT_TRUE(prompts.LastFileRequest().Has(PickMultiSelect));
    EXPECT_FALSE(prompts.LastFileRequest().Has(PickHideReadOnly));
    EXPECT_TRUE(prompts.LastFileRequest().Has(PickReadOnly));
}

TEST(VBGetOpenFileName, a_tick_in_the_read_only_box_comes_back) {
    PromptQueue prompts;
    FileAnswer ticked;
    ticked.result = 1;
    ticked.files = QStringList{OnHost("a")};
    ticked.readOnly = true;
    prompts.ExpectFileAnswer(title, ticked);
    Call call;
    call.HideReadOnly = false;
    EXPECT_TRUE(call.Run());
    EXPECT_TRUE(call.ReadOnly);
    EXPECT_EQ(call.flags & 1, 1);
}

}  // namespace tavel::test
